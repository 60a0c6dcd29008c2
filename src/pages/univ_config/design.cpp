#include "pages/univ_config/design.h"

#include <array>

#include "pages/design_parts.h"

namespace korva {

namespace {

constexpr int kFirstFreeNumber = 6;  ///< number labels below it are those of live values

constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"10", .label = 11, .field = 0}),
    {.field = "lbl_Tc99User"},
    LabelledOptionRow({.item = u"24", .label = 32, .field = 2}),
    LabelledOptionRow({.item = u"23", .label = 31, .field = 1}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    LabelledOptionRow({.item = u"21", .label = 30, .field = 0}),
    FieldRow({.item = u"14", .label = 12, .field = 1}),
    FieldRow({.item = u"15", .label = 13, .field = 2}),
});

constexpr auto kOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"11", .label = 14, .field = 1}),
    FieldRow({.item = u"12", .label = 15, .field = 3}),
    FieldRow({.item = u"13", .label = 16, .field = 4}),
    FieldRow({.item = u"19", .label = 17, .field = 5}),
    FieldRow({.item = u"20", .label = 18, .field = 6}),
    LabelledOptionRow({.item = u"31", .label = 35, .field = 5}),
});

constexpr auto kFirstAlarmRows = std::to_array<DesignRow>({
    LabelledOptionRow({.item = u"25", .label = 33, .field = 3}),
    LabelledOptionRow({.item = u"38", .label = 36, .field = 6}),
    FieldRow({.item = u"26", .label = 19, .field = 7}),
    FieldRow({.item = u"27", .label = 20, .field = 8}),
    FieldRow({.item = u"80", .label = 25, .field = 13}),
    FieldRow({.item = u"81", .label = 26, .field = 14}),
    LabelledOptionRow({.item = u"84", .label = 38, .field = 8}),
});

constexpr auto kSecondAlarmRows = std::to_array<DesignRow>({
    LabelledOptionRow({.item = u"28", .label = 34, .field = 4}),
    LabelledOptionRow({.item = u"39", .label = 37, .field = 7}),
    FieldRow({.item = u"29", .label = 23, .field = 9}),
    FieldRow({.item = u"30", .label = 24, .field = 10}),
    FieldRow({.item = u"82", .label = 27, .field = 15}),
    FieldRow({.item = u"83", .label = 28, .field = 16}),
    LabelledOptionRow({.item = u"85", .label = 39, .field = 9}),
});

/// The indexes that no item of today's models has: a new item takes any of them.
constexpr std::array kFreeRows =
    FreeRows(std::array{6, 7, 8, 9, 29, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 0, 1, 2, 3, 4, 5},
             std::array{17, 18, 19, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43},
             kFirstFreeNumber);

constexpr std::array kPointRows = PointRows("cmd_csvFileOpen");

constexpr std::array kCjmExchangeRows = CjmExchangeRows({.item = u"34", .label = 21, .field = 11});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"04", .label = 2, .field = 22}),
    LiveRow({.item = u"05", .label = 3, .field = 23}),
    LiveRow({.item = u"06", .label = 4, .field = 24}),
    LiveRow({.item = u"07", .label = 5, .field = 25}),
});

constexpr std::array kSettingRows = OutputRows(std::array{
    LiveRow({.item = u"03_set", .label = 0, .field = 20}),
    LiveRow({.item = u"03_mon", .label = 1, .field = 21}),
});

constexpr std::array kInputGroups = {
    DesignGroup{.heading = TextKey::Input, .rows = kInputRows},
    DesignGroup{.column = 1, .heading = TextKey::Range, .rows = kRangeRows},
};
constexpr std::array kOutputGroups = {
    DesignGroup{.heading = TextKey::Output, .rows = kOutputRows},
    DesignGroup{.column = 1, .heading = TextKey::FirstAlarm, .rows = kFirstAlarmRows},
    DesignGroup{.column = 1, .heading = TextKey::SecondAlarm, .rows = kSecondAlarmRows},
    DesignGroup{.heading = TextKey::Details, .rows = kFreeRows},
};
constexpr std::array kTableGroups = TableGroups(kPointRows);
constexpr std::array kCjmGroups = CjmGroups(kCjmExchangeRows);
constexpr auto kInputPictureRows = std::to_array<DesignRow>({{.field = "ImgInput"}});
constexpr auto kOutputPictureRows = std::to_array<DesignRow>({{.field = "ImgOutput"}});
constexpr std::array kDipSwitchGroups = {
    DesignGroup{.heading = TextKey::Input, .rows = kInputPictureRows},
    DesignGroup{.column = 1, .heading = TextKey::Output, .rows = kOutputPictureRows},
};
constexpr std::array kIoCheckGroups = IoCheckGroups(kMonitorRows, kSettingRows);

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output, .groups = kOutputGroups},
    TableTab(kTableGroups),
    CjmTab(kCjmGroups),
    DesignTab{.caption = TextKey::DipSwitch, .groups = kDipSwitchGroups},
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

constexpr std::array kOptions = {
    DesignOptions{.options = "optTempUnit", .frame = "Frame(0)"},
    DesignOptions{.options = "Opt_Lnr", .frame = "Frame(1)"},
    DesignOptions{.options = "optBurn", .frame = "Frame(2)"},
    DesignOptions{.options = "optRelay_1", .frame = "Frame(3)"},
    DesignOptions{.options = "optRelay_2", .frame = "Frame(4)"},
    DesignOptions{.options = "optDirect", .frame = "Frame(5)"},
    DesignOptions{.options = "optSetpointUnit_1", .frame = "Frame(6)"},
    DesignOptions{.options = "optSetpointUnit_2", .frame = "Frame(7)"},
    DesignOptions{.options = "optExcitation_1", .frame = "Frame(8)"},
    DesignOptions{.options = "optExcitation_2", .frame = "Frame(9)"},
};

}  // namespace

const Design kUnivConfigDesign = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
