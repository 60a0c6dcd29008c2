#include "pages/z2_univ_config/design.h"

#include <array>

#include "pages/z2_design.h"

namespace korva {

namespace {

constexpr int kFirstFreeNumber = 6;  ///< number labels below it are those of live values

constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"00", .label = 24, .field = 0}),
    ListRow({.item = u"10", .label = 11, .field = 1}),
    LabelledOptionRow({.item = u"23", .label = 30, .field = 1}),
    LabelledOptionRow({.item = u"24", .label = 32, .field = 2}),
});

constexpr auto kRangeRows = std::to_array<DesignRow>({
    LabelledOptionRow({.item = u"21", .label = 31, .field = 0}),
    FieldRow({.item = u"14", .label = 12, .field = 1}),
    FieldRow({.item = u"15", .label = 13, .field = 2}),
    LabelledOptionRow({.item = u"25", .label = 33, .field = 3}),
});

constexpr auto kFirstOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"11", .label = 14, .field = 2}),
    FieldRow({.item = u"12", .label = 15, .field = 3}),
    FieldRow({.item = u"13", .label = 16, .field = 4}),
});

constexpr auto kSecondOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"41", .label = 25, .field = 3}),
    FieldRow({.item = u"42", .label = 22, .field = 10}),
    FieldRow({.item = u"43", .label = 23, .field = 11}),
});

constexpr auto kFineAdjustmentRows = std::to_array<DesignRow>({
    FieldRow({.item = u"17", .label = 18, .field = 5}),
    FieldRow({.item = u"18", .label = 19, .field = 6}),
});

/// A place without captions.
constexpr DesignRow BareRow(int field) {
  return {.field = ElementName<arrays::kText>(field), .unit = ElementName<arrays::kUnit>(field)};
}

/// The indexes that no item of today's models has: a new item takes any of them.
constexpr std::array kFreeRows = Joined(
    FreeRows(std::array{6, 7, 8, 9, 17, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 0, 1, 2, 3, 4, 5},
             std::array{12, 13, 14, 15, 16, 17, 18, 19, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38},
             kFirstFreeNumber),
    std::array{BareRow(39), BareRow(40), BareRow(41), BareRow(42), BareRow(43)});

constexpr auto kModbusRows = std::to_array<DesignRow>({
    PlainRow({.item = u"81", .label = 26, .field = 9}),
    ListRow({.item = u"82", .label = 27, .field = 4}),
    ListRow({.item = u"83", .label = 28, .field = 5}),
    ListRow({.item = u"84", .label = 29, .field = 6}),
    {.field = "cmdReadOutModbus cmdWriteInModbus cmdResetModbus"},
    {.label = "lblPrg2", .field = "Modbus_ProgressBar"},
});

constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"04", .label = 2, .field = 22}),
    LiveRow({.item = u"05", .label = 3, .field = 23}),
    LiveRow({.item = u"06", .label = 4, .field = 24}),
    LiveRow({.item = u"07", .label = 5, .field = 25}),
});

constexpr std::array kInputGroups = z2::InputGroups(kInputRows, kRangeRows);
constexpr std::array kOutputGroups = {
    DesignGroup{.heading = TextKey::Output1, .rows = kFirstOutputRows},
    DesignGroup{.heading = TextKey::Output2, .rows = kSecondOutputRows},
    DesignGroup{.column = 1, .heading = TextKey::ZeroSpanAdjustment, .rows = kFineAdjustmentRows},
    DesignGroup{.column = 1, .heading = TextKey::Details, .rows = kFreeRows},
};
constexpr std::array kTableRows = Joined(kUserGridRows, UserMoveRows("cmd_csvFileOpen"));
constexpr std::array kTableGroups = UserTableGroups(kTableRows, kRangedUserFieldRows);
constexpr std::array kModbusGroups = {DesignGroup{.heading = TextKey::Modbus, .rows = kModbusRows}};
constexpr std::array kIoCheckGroups = IoCheckGroups(kMonitorRows, z2::kSettingRows);

constexpr std::array kTabs = {
    kFileTab,
    DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
    DesignTab{.caption = TextKey::Output, .groups = kOutputGroups},
    TableTab(kTableGroups),
    z2::kCjmTab,
    DesignTab{.caption = TextKey::Modbus, .groups = kModbusGroups},
    kPortTab,
    DesignTab{.caption = TextKey::IoCheck, .groups = kIoCheckGroups},
};

}  // namespace

const Design kZ2UnivConfigDesign = {.tabs = kTabs, .options = kSensorOptions};

}  // namespace korva
