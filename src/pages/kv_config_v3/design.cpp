#include "pages/kv_config_v3/design.h"

#include <array>

#include "pages/design_parts.h"

namespace korva {

namespace {

constexpr auto kInputRows = std::to_array<DesignRow>({
    PlainRow({.item = u"02", .label = 17, .field = 0}),
    OptionRow({.item = u"10", .label = 45, .field = 0}),
    OptionRow({.item = u"11", .label = 46, .field = 1}),
    ListRow({.item = u"11", .label = 10, .field = 0}),
    ListRow({.item = u"12", .label = 11, .field = 1}),
    ListRow({.item = u"13", .label = 12, .field = 2}),
    OptionRow({.item = u"21", .label = 50, .field = 5}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    OptionRow({.item = u"21", .label = 47, .field = 2}),
    FieldRow({.item = u"13", .label = 18, .field = 18}),
    FieldRow({.item = u"14", .label = 19, .field = 19}),
    FieldRow({.item = u"15", .label = 20, .field = 20}),
    FieldRow({.item = u"18", .label = 23, .field = 23}),
    PlainRow({.item = u"31", .label = 41, .field = 41}),
    PlainRow({.item = u"32", .label = 42, .field = 42}),
});

constexpr auto kOutputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"19", .label = 24, .field = 24}),
    FieldRow({.item = u"20", .label = 25, .field = 25}),
});

constexpr auto kFineAdjustmentRows = std::to_array<DesignRow>({
    FieldRow({.item = u"16", .label = 21, .field = 21}),
    FieldRow({.item = u"17", .label = 22, .field = 22}),
});

constexpr std::array kPointRows = PointRows("cmd_csvFileOpen cmd_csvFileSave");

constexpr auto kFirstAlarmRows = std::to_array<DesignRow>({
    ListRow({.item = u"25", .label = 13, .field = 3}),
    FieldRow({.item = u"22", .label = 32, .field = 32}),
    ListRow({.item = u"23", .label = 16, .field = 5}),
    FieldRow({.item = u"24", .label = 34, .field = 34}),
});

constexpr auto kSecondAlarmRows = std::to_array<DesignRow>({
    ListRow({.item = u"27", .label = 15, .field = 4}),
    FieldRow({.item = u"28", .label = 38, .field = 38}),
    ListRow({.item = u"29", .label = 28, .field = 6}),
    FieldRow({.item = u"30", .label = 40, .field = 40}),
});

constexpr auto kAlarmRows = std::to_array<DesignRow>({
    FieldRow({.item = u"06", .label = 26, .field = 26}),
    FieldRow({.item = u"07", .label = 27, .field = 27}),
    OptionRow({.item = u"08", .label = 48, .field = 3}),
    FieldRow({.item = u"09", .label = 29, .field = 29}),
    OptionRow({.item = u"10", .label = 49, .field = 4}),
    FieldRow({.item = u"26", .label = 36, .field = 36}),
});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"03_mon", .label = 1, .field = 2}),
    LiveRow({.item = u"04_mon", .label = 3, .field = 4}),
    LiveRow({.item = u"05", .label = 4, .field = 5}),
    LiveRow({.item = u"06", .label = 6, .field = 7}),
    LiveRow({.item = u"06", .label = 14, .field = 14}),
});

/// The counters' set values follow the forced output.
constexpr std::array kSettingRows =
    Joined(OutputRows(std::array{LiveRow({.item = u"03_set", .label = 0, .field = 1})}),
           std::array{
               WithButtons(LiveRow({.item = u"04_set", .label = 2, .field = 3}), "cmdSet2"),
               WithButtons(LiveRow({.item = u"06_set", .label = 5, .field = 6}), "cmdSet3"),
           });

/// Commands with the boxes of their answers.
constexpr auto kResetRows = std::to_array<DesignRow>({
    DesignRow{.item = u"12", .label = "lbl_Item(7)", .field = "Text(8) Command_I12"},
    DesignRow{.item = u"13", .label = "lbl_Item(8)", .field = "Text(9) Command_I13"},
});

constexpr std::array kInputGroups = {
    DesignGroup{.heading = TextKey::Input, .rows = kInputRows},
    DesignGroup{.column = 1, .heading = TextKey::Range, .rows = kRangeRows},
};
constexpr std::array kOutputGroups = {
    DesignGroup{.heading = TextKey::Output, .rows = kOutputRows},
    DesignGroup{.heading = TextKey::ZeroSpanAdjustment, .rows = kFineAdjustmentRows},
};
constexpr std::array kTableGroups = TableGroups(kPointRows);
constexpr std::array kAlarmGroups = {
    DesignGroup{.heading = TextKey::FirstAlarm, .rows = kFirstAlarmRows},
    DesignGroup{.column = 1, .heading = TextKey::SecondAlarm, .rows = kSecondAlarmRows},
    DesignGroup{.heading = TextKey::Alarm, .rows = kAlarmRows},
};
constexpr std::array kIoCheckGroups =
    Joined(IoCheckGroups(kMonitorRows, kSettingRows),
           std::array{DesignGroup{.column = 1, .heading = TextKey::Reset, .rows = kResetRows}});

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output, .groups = kOutputGroups},
    TableTab(kTableGroups),
    DesignTab{.caption = TextKey::Alarm, .rule = TabRule::OpenIfTrue, .groups = kAlarmGroups},
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

constexpr std::array kOptions =
    Joined(kTableOptions, std::array{
                              DesignOptions{.options = "optTempUnit", .frame = "Frame(2)"},
                              DesignOptions{.options = "Opt_Direction", .frame = "Frame(3)"},
                              DesignOptions{.options = "Opt_Direction09", .frame = "Frame(4)"},
                              DesignOptions{.options = "Opt_Rotation", .frame = "Frame(5)"},
                          });

}  // namespace

const Design kKvConfigV3Design = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
