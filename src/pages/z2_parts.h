#pragma once

#include <array>

#include "files/definition_form.h"
#include "linearizer/lnr_family.h"
#include "linearizer/table_exchange.h"
#include "monitor/monitor_family.h"
#include "monitor/output_family.h"
#include "monitor/threshold_family.h"

namespace korva {

// What the records of several families of the second line have in common.

/// Models that have no box for a forced output, as far as their pages know.
inline constexpr std::array<StringView, 2> kZ2WithoutSetBox = {u"QD.def", u"QD2.def"};

/// The tab of every model that has a table at all follows Opt_Lnr.
inline constexpr std::array kZ2LnrModels = {LnrModel{.def_file = u"Z",
                                                     .beginning = true,
                                                     .points = kLnrLongPoints,
                                                     .on_choice = TableSwitch::LnrOption,
                                                     .after_upload = TableSwitch::LnrOption}};

/// The table of 16 or 100 `points`; `buttons` are those by which it travels, nullptr where it rides with
/// upload and download.
constexpr LnrFamily Z2Table(int points, const TableButtonsForm* buttons) {
  return {.points = points,
          .quantities = kPercentQuantity,
          .models = kZ2LnrModels,
          .needs_flag = true,
          .buttons = buttons,
          .limits = buttons == nullptr ? StringView() : kPercentLimits};
}

// Families LiteForth and LiteFifth.

inline constexpr DataLayout kLateZ2Layout = {.threshold_low = 21, .threshold_high = 24};
inline constexpr ListColumns kLateZ2Temperatures = {.unit = 6};
inline constexpr ListColumns kLateZ2Types = {.low = 2, .high = 3, .unit = 6, .input_class = 5};

inline constexpr std::array<StringView, 6> kLateZ2Presence = {u"22", u"04", u"11", u"06", u"07", u"08"};
inline constexpr std::array kLateZ2Cycle = {CycleItem{.key = u"04"}, CycleItem{.key = u"05"},
                                            CycleItem{.key = u"06"}};
inline constexpr std::array kLateZ2Item04 = {
    UnitRule{.unit = {.kind = UnitKind::Device, .table = {.item = u"21", .table = u"$I21"}}}};
inline constexpr std::array kLateZ2Item06 = {
    UnitRule{.unit = {.kind = UnitKind::Device, .table = {.item = u"11", .table = u"$I11"}}}};
inline constexpr std::array kLateZ2Units = {
    UnitStep{
        .item = u"04", .timer = UnitTimer::Item04, .rules = kLateZ2Item04, .to_measured_frequency = true},
    UnitStep{
        .item = u"06", .timer = UnitTimer::Item06, .rules = kLateZ2Item06, .to_measured_frequency = true},
};
inline constexpr std::array kLateZ2UnitLists = {UnitList{.key = u"$I21", .item = 21},
                                                UnitList{.key = u"$I11", .item = 11}};
inline constexpr std::array<StringView, 5> kLateZ2Live = {u"03_set", u"03_mon", u"04", u"05", u"06"};
/// What the pages show; `lists` fill the combo boxes.
constexpr FieldForm LateZ2Fields(std::span<const ListRule> lists) {
  return {.arrays = {.lbl_item = 43, .label = 43, .text = 43, .frame = 1, .combo = 7, .lbl_unit = 43},
          .groups = 4,
          .lists = lists,
          .unit_lists = kLateZ2UnitLists,
          .live_items = kLateZ2Live,
          .text_items = kTagAlone};
}
constexpr ListRule LateZ2List(StringView key) { return {.key = key, .table = key, .fill = ListFill::Coded}; }
/// The frame is that around its controls.
inline constexpr ThresholdFamily kLateZ2Threshold = {.item = u"09", .repeats = 1, .frame = 1};

inline constexpr MonitorFamily kLateZ2Monitor = {.presence = kLateZ2Presence,
                                                 .cycle = kLateZ2Cycle,
                                                 .clean = StripItemPrefix,
                                                 .resets_colours = false,
                                                 .paints_first = true,
                                                 .units = kLateZ2Units};
inline constexpr OutputFamily kLateZ2Output = {
    .ranges = kUsualOutputRange, .clean_sent = TrimPlain, .clean_answer = StripItemPrefix};

}  // namespace korva
