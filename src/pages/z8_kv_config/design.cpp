#include "pages/z8_kv_config/design.h"

#include <array>

#include "pages/design_parts.h"

namespace korva {

namespace {

constexpr int kFirstFreeNumber = 7;  ///< number labels below it are those of live values

/// One of two numbers: which one it is stands beside its field.
constexpr DesignRow NumberRow(const ItemPlace& place, std::string_view label_and_field) {
  DesignRow row = FieldRow(place);
  row.field = label_and_field;
  return row;
}

constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"10", .label = 11, .field = 0}),
    LabelledOptionRow({.item = u"23", .label = 31, .field = 1}),
    LabelledOptionRow({.item = u"24", .label = 32, .field = 2}),
    LabelledOptionRow({.item = u"25", .label = 33, .field = 3}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    LabelledOptionRow({.item = u"21", .label = 30, .field = 0}),
    NumberRow({.item = u"14_0", .label = 12, .field = 1}, "lblInputScale0 Text(1)"),
    NumberRow({.item = u"14_100", .label = 13, .field = 2}, "lblInputScale100 Text(2)"),
    NumberRow({.item = u"15_Min", .label = 14, .field = 3}, "lblInputPropMin Text(3)"),
    NumberRow({.item = u"15_Max", .label = 15, .field = 4}, "lblInputPropMax Text(4)"),
});

constexpr auto kCompensationRows = std::to_array<DesignRow>({
    {.label = "lblCompX", .field = "txtCompX", .unit = "lbl_unitX"},
    {.label = "lblCompY", .field = "txtCompY", .unit = "lbl_unitY"},
    {.label = "lblComp", .field = "cmdLineSet cmdLineReset"},
    {.field = "cmd0Per cmd100Per cmdCalReset"},
    {.field = "cmdReadOutComp"},
});

constexpr auto kFirstOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"11", .label = 16, .field = 1}),
    NumberRow({.item = u"12_0", .label = 17, .field = 5}, "lblOut1Scale0 Text(5)"),
    NumberRow({.item = u"12_100", .label = 18, .field = 6}, "lblOut1Scale100 Text(6)"),
    NumberRow({.item = u"13_Min", .label = 19, .field = 7}, "lblOut1PropMin Text(7)"),
    NumberRow({.item = u"13_Max", .label = 20, .field = 8}, "lblOut1PropMax Text(8)"),
});

constexpr auto kSecondOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"41", .label = 21, .field = 2}),
    NumberRow({.item = u"42_0", .label = 22, .field = 9}, "lblOut2Scale0 Text(9)"),
    NumberRow({.item = u"42_100", .label = 23, .field = 10}, "lblOut2Scale100 Text(10)"),
    NumberRow({.item = u"43_Min", .label = 24, .field = 11}, "lblOut2PropMin Text(11)"),
    NumberRow({.item = u"43_Max", .label = 25, .field = 12}, "lblOut2PropMax Text(12)"),
});

/// The indexes that no item of today's models has: a new item takes any of them.
constexpr std::array kFreeRows = FreeRows(
    std::array{7, 8, 9, 28, 29, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 0, 1, 2, 3, 4, 5, 6},
    std::array{15, 16, 17, 18, 19, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43},
    kFirstFreeNumber);

/// The grids, of which one shows, the limits of its values, and what moves it.
constexpr std::array kPointRows = Joined(kUserGridRows, std::array{DesignRow{.field = "lblLnrLimits"}},
                                         UserMoveRows("cmd_csvFileOpen cmd_csvFileSave"));

constexpr std::array kCjmExchangeRows = CjmExchangeRows({.item = u"34", .label = 26, .field = 13});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"04", .label = 2, .field = 23}),
    LiveRow({.item = u"05", .label = 3, .field = 24}),
    LiveRow({.item = u"06", .label = 4, .field = 25}),
    LiveRow({.item = u"07", .label = 5, .field = 26}),
});

/// What each output is forced to, behind its name.
constexpr DesignRow Named(std::string_view name, DesignRow row) {
  row.number = name;
  return row;
}
constexpr std::array kSettingRows = Joined(
    OutputRows(std::array{LiveRow({.item = u"03_set", .label = 0, .field = 20})}),
    std::array{
        Named("IO_lblShowOut1", LiveRow({.item = u"03_mon", .label = 1, .field = 21})),
        Named("IO_lblShowOut2", {.label = "lbl_Item(6)", .field = "Text(22)", .unit = "lbl_unit(22)"})});

constexpr std::string_view kTrimKeys = "- PgDown Down Up PgUp - -";
constexpr std::array kTrimRows = {
    SteppedRow({.number = "IO_lblOut1",
                .label = "IO_lblOut1Zero",
                .field = "txtOut1Zero",
                .unit = "lblOut1ZeroUnit"},
               "cmdOut1ZeroStart cmdOut1ZeroM01 cmdOut1ZeroM001 cmdOut1ZeroP001 cmdOut1ZeroP01 "
               "cmdOut1ZeroReset lblOut1ZeroLimits",
               kTrimKeys),
    SteppedRow({.label = "IO_lblOut1Span", .field = "txtOut1Span", .unit = "lblOut1SpanUnit"},
               "cmdOut1SpanStart cmdOut1SpanM01 cmdOut1SpanM001 cmdOut1SpanP001 cmdOut1SpanP01 "
               "cmdOut1SpanReset lblOut1SpanLimits",
               kTrimKeys),
    SteppedRow({.number = "IO_lblOut2",
                .label = "IO_lblOut2Zero",
                .field = "txtOut2Zero",
                .unit = "lblOut2ZeroUnit"},
               "cmdOut2ZeroStart cmdOut2ZeroM01 cmdOut2ZeroM001 cmdOut2ZeroP001 cmdOut2ZeroP01 "
               "cmdOut2ZeroReset lblOut2ZeroLimits",
               kTrimKeys),
    SteppedRow({.label = "IO_lblOut2Span", .field = "txtOut2Span", .unit = "lblOut2SpanUnit"},
               "cmdOut2SpanStart cmdOut2SpanM01 cmdOut2SpanM001 cmdOut2SpanP001 cmdOut2SpanP01 "
               "cmdOut2SpanReset lblOut2SpanLimits",
               kTrimKeys),
};

constexpr std::array kInputGroups = {
    DesignGroup{.heading = TextKey::Input, .rows = kInputRows},
    DesignGroup{.column = 1, .heading = TextKey::Range, .rows = kRangeRows},
    DesignGroup{.heading = TextKey::SensorCompensation, .rows = kCompensationRows},
};
constexpr std::array kFirstOutputGroups = {
    DesignGroup{.heading = TextKey::FirstOutput, .rows = kFirstOutputRows}};
constexpr std::array kSecondOutputGroups = {
    DesignGroup{.heading = TextKey::SecondOutput, .rows = kSecondOutputRows},
    DesignGroup{.column = 1, .heading = TextKey::Details, .rows = kFreeRows},
};
constexpr std::array kTableGroups = UserTableGroups(kPointRows, kUserFieldRows);
constexpr std::array kCjmGroups = CjmGroups(kCjmExchangeRows);
constexpr std::array kIoCheckGroups = {
    DesignGroup{.heading = TextKey::Monitoring, .frame = "fraMonitoring", .rows = kMonitorRows},
    DesignGroup{.heading = TextKey::Output, .rows = kSettingRows},
    DesignGroup{.heading = TextKey::ZeroSpanAdjustment, .frame = "fraZeroSpan", .rows = kTrimRows},
};

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output1, .groups = kFirstOutputGroups},
    DesignTab{.caption = TextKey::Output2, .groups = kSecondOutputGroups},
    TableTab(kTableGroups),
    CjmTab(kCjmGroups),
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

}  // namespace

const Design kZ8KvConfigDesign = {.tabs = kTabs, .options = kSensorOptions};

}  // namespace korva
