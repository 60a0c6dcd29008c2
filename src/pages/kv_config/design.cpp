#include "pages/kv_config/design.h"

#include <array>

#include "pages/design_parts.h"

namespace korva {

namespace {

constexpr auto kInputRows = std::to_array<DesignRow>({
    PlainRow({.item = u"02", .label = 17, .field = 0}),
    ListRow({.item = u"10", .label = 26, .field = 0}),
    OptionRow({.item = u"10", .label = 45, .field = 0}),
    ListRow({.item = u"11", .label = 27, .field = 1}),
    ListRow({.item = u"11", .label = 29, .field = 3}),
    OptionRow({.item = u"11", .label = 46, .field = 1}),
    OptionRow({.item = u"11", .label = 47, .field = 2}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    OptionRow({.item = u"21", .label = 48, .field = 3}),
    FieldRow({.item = u"14", .label = 19, .field = 9}),
    FieldRow({.item = u"15", .label = 20, .field = 10}),
    FieldRow({.item = u"13", .label = 18, .field = 8}),
    FieldRow({.item = u"18", .label = 23, .field = 13}),
});

constexpr auto kOutputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"19", .label = 24, .field = 14}),
    FieldRow({.item = u"20", .label = 25, .field = 15}),
});

constexpr auto kFineAdjustmentRows = std::to_array<DesignRow>({
    FieldRow({.item = u"16", .label = 21, .field = 11}),
    FieldRow({.item = u"17", .label = 22, .field = 12}),
});

constexpr auto kDetailsRows = std::to_array<DesignRow>({
    FieldRow({.item = u"21", .label = 30, .field = 16}),
    FieldRow({.item = u"22", .label = 31, .field = 17}),
    FieldRow({.item = u"23", .label = 32, .field = 18}),
    FieldRow({.item = u"24", .label = 33, .field = 19}),
    FieldRow({.item = u"25", .label = 34, .field = 20}),
    FieldRow({.item = u"26", .label = 35, .field = 21}),
    FieldRow({.item = u"27", .label = 36, .field = 22}),
    FieldRow({.item = u"28", .label = 37, .field = 23}),
    FieldRow({.item = u"29", .label = 38, .field = 24}),
    FieldRow({.item = u"30", .label = 39, .field = 25}),
    FieldRow({.item = u"31", .label = 40, .field = 26}),
    FieldRow({.item = u"32", .label = 41, .field = 27}),
    FieldRow({.item = u"33", .label = 42, .field = 28}),
    FieldRow({.item = u"34", .label = 43, .field = 29}),
});

constexpr auto kAlarmRows = std::to_array<DesignRow>({
    OptionRow({.item = u"21", .label = 49, .field = 4}),
    OptionRow({.item = u"23", .label = 50, .field = 5}),
    OptionRow({.item = u"25", .label = 51, .field = 6}),
    OptionRow({.item = u"31", .label = 52, .field = 7}),
});

constexpr std::array kPointRows = PointRows("cmd_csvFileOpen");

constexpr auto kFilterRows = std::to_array<DesignRow>({
    ListRow({.item = u"23", .label = 28, .field = 2}),
    FieldRow({.item = u"24", .label = 10, .field = 30}),
    FieldRow({.item = u"25", .label = 11, .field = 31}),
    FieldRow({.item = u"26", .label = 12, .field = 32}),
    FieldRow({.item = u"27", .label = 13, .field = 33}),
    FieldRow({.item = u"28", .label = 14, .field = 34}),
    FieldRow({.item = u"29", .label = 15, .field = 35}),
    FieldRow({.item = u"30", .label = 16, .field = 36}),
});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"04", .label = 2, .field = 3}),
    LiveRow({.item = u"05", .label = 3, .field = 4}),
    LiveRow({.item = u"06", .label = 4, .field = 5}),
    LiveRow({.item = u"07", .label = 5, .field = 6}),
    LiveRow({.item = u"08", .label = 6, .field = 7}),
    LiveRow({.item = u"32", .label = 7, .field = 37}),
});

constexpr std::array kSettingRows = OutputRows(std::array{
    LiveRow({.item = u"03_set", .label = 0, .field = 1}),
    LiveRow({.item = u"03_mon", .label = 1, .field = 2}),
});

constexpr std::array kInputGroups = {
    DesignGroup{.heading = TextKey::Input, .rows = kInputRows},
    DesignGroup{.column = 1, .heading = TextKey::Range, .rows = kRangeRows},
};
constexpr std::array kOutputGroups = {
    DesignGroup{.heading = TextKey::Output, .rows = kOutputRows},
    DesignGroup{.heading = TextKey::ZeroSpanAdjustment, .rows = kFineAdjustmentRows},
    DesignGroup{.column = 1, .heading = TextKey::Details, .rows = kDetailsRows},
    DesignGroup{.heading = TextKey::Alarm, .rows = kAlarmRows},
};
constexpr std::array kTableGroups = TableGroups(kPointRows);
constexpr std::array kFilterGroups = {DesignGroup{.heading = TextKey::Filter, .rows = kFilterRows}};
constexpr std::array kIoCheckGroups = IoCheckGroups(kMonitorRows, kSettingRows);

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output, .groups = kOutputGroups},
    TableTab(kTableGroups),
    DesignTab{.caption = TextKey::Filter, .rule = TabRule::OpenIfTrue, .groups = kFilterGroups},
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

constexpr std::array kOptions =
    Joined(kTableOptions, std::array{
                              DesignOptions{.options = "Opt_Root", .frame = "Frame(2)"},
                              DesignOptions{.options = "optTempUnit", .frame = "Frame(3)"},
                              DesignOptions{.options = "Opt_Backup", .frame = "Frame(4)"},
                              DesignOptions{.options = "Opt_Updown", .frame = "Frame(5)"},
                              DesignOptions{.options = "Opt_Alarm", .frame = "Frame(6)"},
                              DesignOptions{.options = "Opt_Recovery", .frame = "Frame(7)"},
                          });

}  // namespace

const Design kKvConfigDesign = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
