#include "pages/z2_kv_config_v4/design.h"

#include "pages/z2_late_design.h"

namespace korva {

namespace {

constexpr std::array kInputRows =
    Joined(late_z2::kInputRows, std::array{ListRow({.item = u"29", .label = 24, .field = 7})});

// The caption labels of the live values stand here too: those are captioned by their numbers.
constexpr std::array kFreeRows =
    FreeRows(std::array{5,  6,  7,  8,  9,  21, 25, 26, 27, 28, 29, 30, 31, 32, 34,
                        35, 36, 37, 38, 39, 40, 41, 42, 43, 0,  1,  2,  3,  4},
             std::array{7,  8,  9,  11, 12, 13, 14, 15, 16, 17, 18, 19, 25, 26, 27,
                        28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41},
             late_z2::kLiveNumbers);
constexpr std::array kUnlabelledRows = {DesignRow{.field = "Text(42)", .unit = "lbl_unit(42)"},
                                        DesignRow{.field = "Text(43)", .unit = "lbl_unit(43)"}};
/// A list for a new item.
constexpr std::array kFreeLists = {DesignRow{.field = "Combo(0) Combo(1)"}};

constexpr std::array kInputGroups = z2::InputGroups(kInputRows, late_z2::kRangeRows);
constexpr std::array kDetailRows = Joined(kFreeRows, kUnlabelledRows, kFreeLists);
constexpr std::array kOutputGroups = z2::OutputGroups(late_z2::kOutputRows, late_z2::kFineRows, kDetailRows);
constexpr std::array kTableGroups = TableGroups(late_z2::kPointRows);
constexpr std::array kTabs =
    z2::PulseTabs(kInputGroups, kOutputGroups, kTableGroups, late_z2::kIoCheckGroups);

}  // namespace

const Design kZ2KvConfigV4Design = {.tabs = kTabs, .options = late_z2::kOptions};

}  // namespace korva
