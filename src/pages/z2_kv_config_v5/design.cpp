#include "pages/z2_kv_config_v5/design.h"

#include "pages/z2_late_design.h"

namespace korva {

namespace {

// The caption labels of the live values stand here too: those are captioned by their numbers.
constexpr std::array kFreeRows = FreeRows(std::array{5,  6,  7,  8,  9,  24, 25, 26, 27, 28, 29, 30, 31, 32,
                                                     34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 0,  1,  2,  3},
                                          std::array{8,  9,  11, 12, 13, 14, 15, 16, 17, 18, 19, 25, 26, 27,
                                                     28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41},
                                          late_z2::kLiveNumbers);
constexpr std::array kUnlabelledRows = {
    DesignRow{.label = "Label(4)", .field = "Text(42)", .unit = "lbl_unit(42)"},
    DesignRow{.field = "Text(43)", .unit = "lbl_unit(43)"}};
/// Lists for new items.
constexpr std::array kFreeLists = {DesignRow{.field = "Combo(0) Combo(1) Combo(7)"}};

constexpr std::array kInputGroups = z2::InputGroups(late_z2::kInputRows, late_z2::kRangeRows);
constexpr std::array kOutputRows =
    Joined(late_z2::kOutputRows, std::array{FieldRow({.item = u"26", .label = 21, .field = 7})});
constexpr std::array kDetailRows = Joined(kFreeRows, kUnlabelledRows, kFreeLists);
constexpr std::array kOutputGroups = z2::OutputGroups(kOutputRows, late_z2::kFineRows, kDetailRows);

/// The editor's button of its own stands beside the usual ones.
constexpr std::array kEditorRows = {kCellEditorRows[0], kCellEditorRows[1],
                                    DesignRow{.field = "cmdLnrChangeOK cmdLnrChangeCancel Lnr_OK"}};
constexpr std::array kTableGroups = [] {
  std::array groups = TableGroups(late_z2::kPointRows);
  groups.back().rows = kEditorRows;
  return groups;
}();
constexpr std::array kTabs =
    z2::PulseTabs(kInputGroups, kOutputGroups, kTableGroups, late_z2::kIoCheckGroups);

}  // namespace

const Design kZ2KvConfigV5Design = {.tabs = kTabs, .options = late_z2::kOptions};

}  // namespace korva
