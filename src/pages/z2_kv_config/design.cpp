#include "pages/z2_kv_config/design.h"

#include <array>

#include "pages/z2_design.h"

namespace korva {

namespace {

constexpr int kFirstFreeNumber = 6;  ///< number labels below it are those of live values

/// The input type, and the range that belongs to it.
constexpr DesignRow kInputTypeRow = [] {
  DesignRow row = ListRow({.item = u"10", .label = 11, .field = 0});
  row.unit = "lbl_Range";
  return row;
}();

constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    kInputTypeRow,
    LabelledOptionRow({.item = u"16", .label = 30, .field = 1}),
    LabelledOptionRow({.item = u"24", .label = 32, .field = 3}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    LabelledOptionRow({.item = u"21", .label = 31, .field = 0}),
    FieldRow({.item = u"14", .label = 12, .field = 1}),
    FieldRow({.item = u"15", .label = 13, .field = 2}),
    LabelledOptionRow({.item = u"23", .label = 33, .field = 2}),
});

constexpr auto kOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"11", .label = 14, .field = 1}),
    FieldRow({.item = u"12", .label = 15, .field = 3}),
    FieldRow({.item = u"13", .label = 16, .field = 4}),
    FieldRow({.item = u"19", .label = 22, .field = 10}),
    FieldRow({.item = u"20", .label = 23, .field = 11}),
});

constexpr auto kFineAdjustmentRows = std::to_array<DesignRow>({
    FieldRow({.item = u"17", .label = 18, .field = 5}),
    FieldRow({.item = u"18", .label = 19, .field = 6}),
});

/// The indexes that no item of today's models has: a new item takes any of them.
constexpr std::array kFreeRows = FreeRows(std::array{6,  7,  8,  9,  17, 24, 25, 26, 27, 28, 29, 34, 35, 36,
                                                     37, 38, 39, 40, 41, 42, 43, 0,  1,  2,  3,  4,  5},
                                          std::array{9,  12, 13, 14, 15, 16, 17, 18, 19, 26, 27, 28, 29, 30,
                                                     31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43},
                                          kFirstFreeNumber);

constexpr std::array kPointRows = PointRows("cmd_csvFileOpen cmd_csvFileSave");

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"04", .label = 2, .field = 22}),
    LiveRow({.item = u"03", .label = 3, .field = 23}),
    LiveRow({.item = u"06", .label = 4, .field = 24}),
    LiveRow({.item = u"07", .label = 5, .field = 25}),
});

constexpr std::array kInputGroups = z2::InputGroups(kInputRows, kRangeRows);
constexpr std::array kOutputGroups = z2::OutputGroups(kOutputRows, kFineAdjustmentRows, kFreeRows);
constexpr std::array kTableGroups = TableGroups(kPointRows);
constexpr std::array kIoCheckGroups = IoCheckGroups(kMonitorRows, z2::kSettingRows);

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output, .groups = kOutputGroups},
    TableTab(kTableGroups),
    z2::kCjmTab,
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

constexpr std::array kOptions = {
    DesignOptions{.options = "optTempUnit", .frame = "Frame(0)"},
    DesignOptions{.options = "Opt_FiltSW", .frame = "Frame(1)"},
    DesignOptions{.options = "Opt_Lnr", .frame = "Frame(2)"},
    DesignOptions{.options = "optBurn", .frame = "Frame(3)"},
};

}  // namespace

const Design kZ2KvConfigDesign = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
