#include "pages/kv_config_v2/design.h"

#include <array>

#include "pages/design_parts.h"

namespace korva {

namespace {

// The box of its unit stands behind the field of a frequency.

constexpr auto kInputRows = std::to_array<DesignRow>({
    PlainRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"23", .label = 14, .field = 0}),
    DesignRow{.item = u"10", .number = "lbl_Item(11)", .label = "Label(11)", .field = "Text(6) cbo_unit(0)"},
    FieldRow({.item = u"08", .label = 12, .field = 7}),
    FieldRow({.item = u"09", .label = 13, .field = 8}),
    PlainRow({.item = u"16", .label = 15, .field = 9}),
});

constexpr auto kFirstOutputRows = std::to_array<DesignRow>({
    DesignRow{.item = u"17", .number = "lbl_Item(16)", .label = "Label(16)", .field = "Text(10) cbo_unit(1)"},
    FieldRow({.item = u"12", .label = 17, .field = 11}),
    FieldRow({.item = u"13", .label = 18, .field = 12}),
    ListRow({.item = u"27", .label = 21, .field = 1}),
    ListRow({.item = u"28", .label = 22, .field = 2}),
});

constexpr auto kFineAdjustmentRows = std::to_array<DesignRow>({
    FieldRow({.item = u"30", .label = 19, .field = 13}),
    FieldRow({.item = u"31", .label = 20, .field = 14}),
});

constexpr auto kAlarmRows = std::to_array<DesignRow>({
    OptionRow({.item = u"26", .label = 30, .field = 0}),
    ListRow({.item = u"29", .label = 23, .field = 3}),
    DesignRow{.item = u"20", .number = "lbl_Item(24)", .label = "Label(24)", .field = "Text(15) cbo_unit(2)"},
    FieldRow({.item = u"21", .label = 25, .field = 16}),
    FieldRow({.item = u"24", .label = 28, .field = 19}),
    FieldRow({.item = u"25", .label = 29, .field = 20}),
});

constexpr auto kSecondOutputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"18", .label = 26, .field = 17}),
    FieldRow({.item = u"19", .label = 27, .field = 18}),
});

constexpr auto kDetailsRows = std::to_array<DesignRow>({
    FieldRow({.item = u"33", .label = 31, .field = 21}),
});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"05", .label = 2, .field = 3}),
    LiveRow({.item = u"06", .label = 3, .field = 4}),
    LiveRow({.item = u"07", .label = 4, .field = 5}),
});

constexpr std::array kSettingRows = OutputRows(std::array{
    LiveRow({.item = u"03_set", .label = 0, .field = 1}),
    LiveRow({.item = u"03_mon", .label = 1, .field = 2}),
});

constexpr std::array kInputGroups = {DesignGroup{.heading = TextKey::Input, .rows = kInputRows}};
constexpr std::array kOutput1Groups = {
    DesignGroup{.heading = TextKey::FirstOutput, .rows = kFirstOutputRows},
    DesignGroup{.column = 1, .heading = TextKey::ZeroSpanAdjustment, .rows = kFineAdjustmentRows},
};
constexpr std::array kOutput2Groups = {
    DesignGroup{.heading = TextKey::Alarm, .rows = kAlarmRows},
    DesignGroup{.column = 1, .heading = TextKey::SecondOutput, .rows = kSecondOutputRows},
    DesignGroup{.column = 1, .heading = TextKey::Details, .rows = kDetailsRows},
};
constexpr std::array kIoCheckGroups = IoCheckGroups(kMonitorRows, kSettingRows);

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output1, .groups = kOutput1Groups},
    DesignTab{.caption = TextKey::Output2, .groups = kOutput2Groups},
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

constexpr std::array kOptions = {DesignOptions{.options = "optAlarm", .frame = "Frame(0)"}};

}  // namespace

const Design kKvConfigV2Design = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
