#include "pages/z2_kv_config_v2/design.h"

#include <array>

#include "pages/z2_design.h"

namespace korva {

namespace {

constexpr int kLiveNumbers = 4;  ///< number labels below it are those of live values

constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"20", .label = 11, .field = 0}),
    ListRow({.item = u"33", .label = 13, .field = 2}),
    ListRow({.item = u"05", .label = 14, .field = 3}),
    FieldRow({.item = u"14", .label = 16, .field = 1}),
    FieldRow({.item = u"15", .label = 17, .field = 2}),
    WithButtons(FieldRow({.item = u"11", .label = 18, .field = 3}), "cmdSetCutOut cmdDisableCutOut"),
});

/// What a user rarely sets is closed until he asks for it.
constexpr auto kDetailButtonRows = std::to_array<DesignRow>({{.field = "cmdDetailInfo cmdCloseInfo"}});
constexpr auto kDetailRows = std::to_array<DesignRow>({
    ListRow({.item = u"32", .label = 15, .field = 4}),
    FieldRow({.item = u"08", .label = 19, .field = 5}),
    FieldRow({.item = u"16", .label = 20, .field = 6}),
});

/// The switch of the linearizer, with room for a caption beside its frame.
constexpr DesignRow kLnrRow = [] {
  DesignRow row = OptionRow({.item = u"61", .label = 30, .field = 0});
  row.label = ElementName<arrays::kCaption>(30);
  return row;
}();

constexpr auto kOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"13", .label = 12, .field = 1}),
    FieldRow({.item = u"09", .label = 21, .field = 7}),
    kLnrRow,
});

/// The indexes that no item of today's models has: a new item takes any of them.
constexpr std::array kFreeRows =
    Joined(FreeRows(std::array{4,  5,  6,  7,  8,  9,  25, 26, 27, 28, 29, 31, 32, 33,
                               34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 0,  1,  2,  3},
                    std::array{8,  9,  10, 11, 12, 15, 16, 17, 18, 19, 24, 25, 26, 27,
                               28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41},
                    kLiveNumbers),
           std::array{DesignRow{.field = "Text(42)", .unit = "lbl_unit(42)"},
                      DesignRow{.field = "Text(43)", .unit = "lbl_unit(43)"}});

constexpr std::array kPointRows =
    MovedPointRows({.field = "cmdReadOutTable cmdWriteInTable lblSize txtSize"});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"06", .label = 2, .field = 22}),
    LiveRow({.item = u"07", .label = 3, .field = 23}),
});

constexpr std::array kThresholdRows = ThresholdRows({.item = u"30", .label = 22, .field = 4});

constexpr std::array kSettingRows = OutputRows(std::array{
    LiveRow({.item = u"24_set", .label = 0, .field = 20}),
    LiveRow({.item = u"24_mon", .label = 1, .field = 21}),
});

constexpr std::string_view kTrimKeys = "- PgDown Down Up PgUp - -";
constexpr std::array kTrimRows = {
    SteppedRow(FieldRow({.item = u"28_zero", .label = 23, .field = 13}),
               "cmdOutZeroStart cmdOutZeroM01 cmdOutZeroM001 cmdOutZeroP001 cmdOutZeroP01 "
               "cmdOutZeroReset lblOutZeroLimits",
               kTrimKeys),
    SteppedRow(FieldRow({.item = u"28_span", .label = 24, .field = 14}),
               "cmdOutSpanStart cmdOutSpanM01 cmdOutSpanM001 cmdOutSpanP001 cmdOutSpanP01 "
               "cmdOutSpanReset lblOutSpanLimits",
               kTrimKeys),
};

constexpr std::array kInputGroups = {
    DesignGroup{.heading = TextKey::Input, .rows = kInputRows},
    DesignGroup{.column = 1, .heading = TextKey::Details, .rows = kDetailButtonRows},
    DesignGroup{.column = 1, .heading = TextKey::Details, .frame = "fraDetailInfo", .rows = kDetailRows},
};
constexpr std::array kOutputGroups = {
    DesignGroup{.heading = TextKey::Output, .rows = kOutputRows},
    DesignGroup{.column = 1, .heading = TextKey::Output, .rows = kFreeRows},
};
constexpr std::array kTableGroups = TableGroups(kPointRows);
constexpr std::array kIoCheckGroups = {
    DesignGroup{.heading = TextKey::Monitoring, .frame = "fraMonitoring", .rows = kMonitorRows},
    DesignGroup{.heading = TextKey::Threshold, .rows = kThresholdRows},
    DesignGroup{.heading = TextKey::Output, .rows = kSettingRows},
    DesignGroup{.heading = TextKey::ZeroSpanAdjustment, .rows = kTrimRows},
};

constexpr std::array kTabs = z2::PulseTabs(kInputGroups, kOutputGroups, kTableGroups, kIoCheckGroups);

constexpr std::array kOptions = {DesignOptions{.options = "Opt_Lnr", .frame = "Frame(0)"}};

}  // namespace

const Design kZ2KvConfigV2Design = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
