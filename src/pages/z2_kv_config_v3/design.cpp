#include "pages/z2_kv_config_v3/design.h"

#include <array>

#include "pages/z2_design.h"

namespace korva {

namespace {

constexpr int kFirstFreeNumber = 4;  ///< number labels below it are those of live values

/// A frequency: the box of its unit stands behind the field.
constexpr DesignRow FrequencyRow(const ItemPlace& place, std::string_view fields) {
  DesignRow row = FieldRow(place);
  row.field = fields;
  return row;
}

constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"35", .label = 11, .field = 0}),
    FieldRow({.item = u"38", .label = 12, .field = 6}),
    FieldRow({.item = u"39", .label = 13, .field = 7}),
    LabelledOptionRow({.item = u"10", .label = 30, .field = 0}),
    LabelledOptionRow({.item = u"36", .label = 31, .field = 1}),
    LabelledOptionRow({.item = u"37", .label = 32, .field = 2}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    FrequencyRow({.item = u"32", .label = 14, .field = 4}, "Text(4) cbo_unit(0)"),
    FrequencyRow({.item = u"33", .label = 15, .field = 5}, "Text(5) cbo_unit(1)"),
    ListRow({.item = u"23", .label = 16, .field = 2}),
    LabelledOptionRow({.item = u"42", .label = 33, .field = 3}),
});

constexpr auto kOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"41", .label = 17, .field = 1}),
    FieldRow({.item = u"12", .label = 18, .field = 1}),
    FieldRow({.item = u"13", .label = 19, .field = 2}),
    FieldRow({.item = u"18", .label = 20, .field = 3}),
    ListRow({.item = u"40", .label = 21, .field = 3}),
});

constexpr auto kFineAdjustmentRows = std::to_array<DesignRow>({
    FieldRow({.item = u"30", .label = 22, .field = 8}),
    FieldRow({.item = u"31", .label = 23, .field = 9}),
});

/// A field for which no caption is left.
constexpr DesignRow BareRow(int field) {
  return {.field = ElementName<arrays::kText>(field), .unit = ElementName<arrays::kUnit>(field)};
}

/// The indexes that no item of today's models has: a new item takes any of them.
constexpr std::array kFreeRows =
    Joined(FreeRows(std::array{4,  5,  6,  7,  8,  9,  24, 25, 26, 27, 28, 29, 34,
                               35, 36, 37, 38, 39, 40, 41, 42, 43, 0,  1,  2,  3},
                    std::array{10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 24, 25, 26,
                               27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39},
                    kFirstFreeNumber),
           std::array{BareRow(40), BareRow(41), BareRow(42), BareRow(43)});

constexpr std::array kPointRows = PointRows("cmd_csvFileOpen");

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"05", .label = 2, .field = 22}),
    LiveRow({.item = u"06", .label = 3, .field = 23}),
});

constexpr std::array kInputGroups = z2::InputGroups(kInputRows, kRangeRows);
constexpr std::array kOutputGroups = z2::OutputGroups(kOutputRows, kFineAdjustmentRows, kFreeRows);
constexpr std::array kTableGroups = TableGroups(kPointRows);
constexpr std::array kIoCheckGroups = IoCheckGroups(kMonitorRows, z2::kSettingRows);

constexpr std::array kTabs = z2::PulseTabs(kInputGroups, kOutputGroups, kTableGroups, kIoCheckGroups);

constexpr std::array kOptions = {
    DesignOptions{.options = "Opt_DecrPress", .frame = "Frame(0)"},
    DesignOptions{.options = "Opt_FilterSSW", .frame = "Frame(1)"},
    DesignOptions{.options = "Opt_FilterLSW", .frame = "Frame(2)"},
    DesignOptions{.options = "Opt_Lnr", .frame = "Frame(3)"},
};

}  // namespace

const Design kZ2KvConfigV3Design = {.tabs = kTabs, .options = kOptions};

}  // namespace korva
