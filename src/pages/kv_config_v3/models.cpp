#include "pages/kv_config_v3/models.h"

#include "pages/pulse_input.h"

namespace korva {

namespace {

// --- limits

/// Pulse averaging where the frequency range doesn't limit it.
constexpr std::array kPulseAveraging = {ItemRange{.item = 18, .low = 1, .high = 255}};
constexpr std::array kShortAveraging = {ItemRange{.item = 18, .low = 1, .high = 100}};

constexpr SensorCheck kPulseInput = {.table = u"$I11QEI"};
constexpr SensorCheck kPulseInputByRange = {.table = u"$I11QEI", .code_ranges = kAveragingByRange};
constexpr SensorCheck kPlainPulseInput = {.table = u"$I11QIE"};

/// Prescale and preset.
constexpr std::array kQcb2Ranges = {ItemRange{.item = 31, .low = 1, .high = 99999999},
                                    ItemRange{.item = 32, .low = 0, .high = 99999999}};

/// Zero and span, gain and bias.
constexpr std::array kQhc2Ranges = {
    ItemRange{.item = 14, .low = 0, .high = 150000},
    ItemRange{.item = 15, .low = 0, .high = 150000},
    ItemRange{.item = 31, .low = -29.999, .high = 29.999},
    ItemRange{.item = 32, .low = -299.99, .high = 299.99},
};

/// Alarms in Hz, in % and of the count; prescale.
constexpr std::array kQec2Ranges = {
    ItemRange{.item = 6, .low = 0, .high = 100000},
    ItemRange{.item = 7, .low = 0, .high = 115},
    ItemRange{.item = 9, .low = 0, .high = 99999999},
    ItemRange{.item = 31, .low = 1, .high = 10000},
};

/// Alarms in Hz and in %; prescale.
constexpr std::array kQey3Ranges = {
    ItemRange{.item = 7, .low = 0, .high = 100000},
    ItemRange{.item = 9, .low = 0, .high = 115},
    ItemRange{.item = 31, .low = 1, .high = 10000},
};

/// Span and prescale.
constexpr std::array kQeb2Ranges = {ItemRange{.item = 15, .low = 1, .high = 100000},
                                    ItemRange{.item = 31, .low = 1, .high = 10000}};

/// Value and delay of both alarms, and the hysteresis that they share.
constexpr std::array kQna2Ranges = {
    ItemRange{.item = 22, .low = -15, .high = 115}, ItemRange{.item = 24, .low = 0, .high = 999},
    ItemRange{.item = 28, .low = -15, .high = 115}, ItemRange{.item = 30, .low = 0, .high = 999},
    ItemRange{.item = 26, .low = 0, .high = 10},
};

/// A locked field is one of no use at present, which says nothing about the others: they are judged all the
/// same.
constexpr RangeCondition kEach = RangeCondition::NoneMissing;

constexpr std::array kChecks = {
    ModelCheck{.def_file = u"QEI2.def", .sensor = &kPulseInputByRange},
    ModelCheck{
        .def_file = u"QCE2.def", .ranges = kPulseAveraging, .condition = kEach, .sensor = &kPulseInput},
    ModelCheck{
        .def_file = u"QIEU2.def", .ranges = kShortAveraging, .condition = kEach, .sensor = &kPlainPulseInput},
    ModelCheck{
        .def_file = u"QICE2.def", .ranges = kShortAveraging, .condition = kEach, .sensor = &kPlainPulseInput},
    ModelCheck{.def_file = u"QCB2.def", .ranges = kQcb2Ranges, .condition = kEach},
    ModelCheck{.def_file = u"QHC2.def", .ranges = kQhc2Ranges, .condition = kEach},
    ModelCheck{.def_file = u"QEC2.def", .ranges = kQec2Ranges, .condition = kEach},
    ModelCheck{.def_file = u"QEY3.def", .ranges = kQey3Ranges, .condition = kEach},
    ModelCheck{.def_file = u"QEB2.def", .ranges = kQeb2Ranges, .condition = kEach},
    ModelCheck{.def_file = u"QNA2.def", .ranges = kQna2Ranges, .condition = kEach},
};

// --- alarms

constexpr std::array kAppendedUnits = {
    AppendedUnit{.def_file = u"QEC2.def", .item = u"06", .length = 2},  // Hz
    AppendedUnit{.def_file = u"QEC2.def", .item = u"07", .length = 1},  // %
    AppendedUnit{.def_file = u"QEY3.def", .item = u"07", .length = 2},
    AppendedUnit{.def_file = u"QEY3.def", .item = u"09", .length = 1},
};

constexpr std::array kDirectedValues = {
    DirectedValue{.def_file = u"QEC2.def", .item = u"06", .direction = u"08"},
    DirectedValue{.def_file = u"QEC2.def", .item = u"07", .direction = u"08"},
    DirectedValue{.def_file = u"QEC2.def", .item = u"09", .direction = u"10"},
    DirectedValue{.def_file = u"QEY3.def", .item = u"07", .direction = u"08"},
    DirectedValue{.def_file = u"QEY3.def", .item = u"09", .direction = u"08"},
};

constexpr std::array kSwitchedAlarms = {
    SwitchedAlarm{.def_file = u"QNA2.def", .type = u"25", .items = {u"22", u"23", u"24"}, .direction = u"23"},
    SwitchedAlarm{.def_file = u"QNA2.def", .type = u"27", .items = {u"28", u"29", u"30"}, .direction = u"29"},
};

}  // namespace

std::span<const ModelCheck> KvConfigV3Checks() { return kChecks; }

std::span<const AppendedUnit> AppendedUnits() { return kAppendedUnits; }

std::span<const DirectedValue> DirectedValues() { return kDirectedValues; }

std::span<const SwitchedAlarm> SwitchedAlarms() { return kSwitchedAlarms; }

}  // namespace korva
