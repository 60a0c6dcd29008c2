#include "pages/kv_config/models.h"

#include <array>

#include "pages/pulse_input.h"

namespace korva {

namespace {

constexpr std::array kModels = {
    KvConfigModel{.def_file = u"QHNY1.def",
                  .lists_fixed_input_type = true,
                  .filter_follows_type = true,
                  .range_follows_type = true,
                  .range_code = RangeCode::FirstColumn},
    KvConfigModel{.def_file = u"QHNY2.def",
                  .lists_fixed_input_type = true,
                  .filter_follows_type = true,
                  .range_follows_type = true,
                  .range_code = RangeCode::FirstColumn},
    KvConfigModel{
        .def_file = u"QHW1.def", .lists_fixed_input_type = true, .range_code = RangeCode::FirstColumn},
    KvConfigModel{
        .def_file = u"QHN", .beginning = true, .filter_follows_type = true, .range_follows_type = true},
    KvConfigModel{.def_file = u"QHW.def", .range_follows_type = true},
    KvConfigModel{.def_file = u"QL.def", .range_follows_type = true},
    KvConfigModel{.def_file = u"QC.def",
                  .whole_number_limits = true,
                  .drops_trailing_point = true,
                  .resets_range_on_type = true},
    KvConfigModel{.def_file = u"QN.def",
                  .whole_number_limits = true,
                  .drops_trailing_point = true,
                  .resets_range_on_type = true},
    KvConfigModel{.def_file = u"QUO.def",
                  .whole_number_limits = true,
                  .drops_trailing_point = true,
                  .spells_by_version = true,
                  .resets_range_on_type = true},
    KvConfigModel{.def_file = u"QH.def", .range_code = RangeCode::FirstColumn},
    KvConfigModel{.def_file = u"QHG.def", .range_code = RangeCode::FirstColumn},
    KvConfigModel{.def_file = u"QD.def", .has_backup_items = true},
    KvConfigModel{.def_file = u"QD2.def", .has_backup_items = true},
    KvConfigModel{.def_file = u"QD2I.def", .has_backup_items = true},
    KvConfigModel{.def_file = u"QEI.def", .range_code = RangeCode::SensorTable},
};

constexpr std::array<StringView, 2> kRootModels = {u"QH.def", u"QHG.def"};

/// Filter items. A model without a row for an item has no check of it.
constexpr std::array kFilterRanges = {
    ItemRange{.item = 24, .low = 0.1, .high = 100},
    ItemRange{.item = 25, .low = 1, .high = 8, .def_file = u"QHN1.def"},
    ItemRange{.item = 25, .low = 1, .high = 8, .def_file = u"QHN2.def"},
    ItemRange{.item = 25, .low = 2, .high = 8, .def_file = u"QHN6.def"},
    ItemRange{.item = 25, .low = 1, .high = 100, .def_file = u"QHNY1.def"},
    ItemRange{.item = 25, .low = 1, .high = 100, .def_file = u"QHNY2.def"},
    ItemRange{.item = 26, .low = 0, .high = 100, .def_file = u"QHN2.def"},
    ItemRange{.item = 26, .low = 0, .high = 100, .def_file = u"QHN3.def"},
    ItemRange{.item = 26, .low = 0, .high = 100, .def_file = u"QHN4.def"},
    ItemRange{.item = 26, .low = 0.1, .high = 100, .def_file = u"QHNY2.def"},
    ItemRange{.item = 27, .low = 0, .high = 200},
    ItemRange{.item = 28, .low = 0, .high = 200},
    ItemRange{.item = 29, .low = 0, .high = 7},
    ItemRange{.item = 30, .low = 0, .high = 7},
};

/// Delays, alarm points and hysteresis of the models with a backup.
constexpr std::array kQdRanges = {
    ItemRange{.item = 22, .low = 0, .high = 200},   ItemRange{.item = 24, .low = 0, .high = 200},
    ItemRange{.item = 26, .low = -25, .high = 125}, ItemRange{.item = 27, .low = -25, .high = 125},
    ItemRange{.item = 28, .low = 0, .high = 10},    ItemRange{.item = 29, .low = -25, .high = 125},
    ItemRange{.item = 30, .low = -25, .high = 125},
};

constexpr std::array kQhRanges = {
    ItemRange{.item = 21, .low = -29.999, .high = 29.999},
    ItemRange{.item = 22, .low = -29.999, .high = 29.999},
    ItemRange{.item = 23, .low = -29.999, .high = 29.999},
    ItemRange{.item = 24, .low = -299.99, .high = 299.99},
    ItemRange{.item = 25, .low = -299.99, .high = 299.99},
    ItemRange{.item = 26, .low = -299.99, .high = 299.99},
    ItemRange{.item = 27, .low = -25, .high = 125},
    ItemRange{.item = 28, .low = -25, .high = 125},
    ItemRange{.item = 29, .low = -25, .high = 125},
    ItemRange{.item = 30, .low = -25, .high = 125},
};

constexpr std::array kQhgRanges = {
    ItemRange{.item = 21, .low = -29.999, .high = 29.999},
    ItemRange{.item = 22, .low = -29.999, .high = 29.999},
    ItemRange{.item = 23, .low = -29.999, .high = 29.999},
    ItemRange{.item = 24, .low = -29.999, .high = 29.999},
    ItemRange{.item = 25, .low = -299.99, .high = 299.99},
    ItemRange{.item = 26, .low = -299.99, .high = 299.99},
    ItemRange{.item = 27, .low = -299.99, .high = 299.99},
    ItemRange{.item = 28, .low = -299.99, .high = 299.99},
    ItemRange{.item = 29, .low = -25, .high = 125},
    ItemRange{.item = 30, .low = -25, .high = 125},
    ItemRange{.item = 31, .low = -25, .high = 125},
    ItemRange{.item = 32, .low = -25, .high = 125},
    ItemRange{.item = 33, .low = -25, .high = 125},
    ItemRange{.item = 34, .low = -25, .high = 125},
};

constexpr SensorCheck kQeiSensor = {.table = u"$I11QEI", .code_ranges = kAveragingByRange};

constexpr std::array kChecks = {
    ModelCheck{.def_file = u"QHN",
               .beginning = true,
               .ranges = kFilterRanges,
               .condition = RangeCondition::OpenInOrder},
    ModelCheck{.def_file = u"QD.def", .ranges = kQdRanges},
    ModelCheck{.def_file = u"QD2.def", .ranges = kQdRanges},
    ModelCheck{.def_file = u"QD2I.def", .ranges = kQdRanges},
    ModelCheck{.def_file = u"QH.def", .ranges = kQhRanges, .condition = RangeCondition::NoneLocked},
    ModelCheck{.def_file = u"QHG.def", .ranges = kQhgRanges, .condition = RangeCondition::NoneLocked},
    ModelCheck{.def_file = u"QEI.def", .sensor = &kQeiSensor},
};

}  // namespace

std::span<const KvConfigModel> KvConfigModels() { return kModels; }

ModelSet KvConfigRootModels() { return {.names = kRootModels}; }

std::span<const ModelCheck> KvConfigChecks() { return kChecks; }

}  // namespace korva
