#include "monitor/monitor_family.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace korva {

namespace {

using Names1 = std::array<StringView, 1>;
using Names2 = std::array<StringView, 2>;

// --- units that the devices tell

constexpr StringView kTypes = u"$I10";
constexpr StringView kFahrenheit = u"deg F";

constexpr UnitTable kTemperatureItem = {.item = u"21", .repeats = 5, .table = u"$I21"};
constexpr UnitSource kUnitFromTemperatureItem = {.kind = UnitKind::Device, .table = kTemperatureItem};
/// The lists of input types of the universal and the second line have the unit in the same column.
constexpr int kTypeUnitColumn = 5;
constexpr UnitTable kTypeItem = {
    .item = u"10", .repeats = 5, .table = kTypes, .unit_column = kTypeUnitColumn};
constexpr UnitSource kUnitFromTypeItem = {.kind = UnitKind::Device, .table = kTypeItem};

constexpr UnitSource kNoUnit = {.kind = UnitKind::None};
constexpr UnitSource kRowUnit = {.kind = UnitKind::Row};
constexpr UnitSource kUnitOfItem04 = {.kind = UnitKind::Item, .text = u"04"};
constexpr UnitSource kPercent = {.kind = UnitKind::Text, .text = u"%"};
constexpr UnitSource kMillivolt = {.kind = UnitKind::Text, .text = u"mV"};
constexpr UnitSource kOhm = {.kind = UnitKind::Text, .text = u"Ohm"};

constexpr std::array kTemperatureUnit = {UnitRule{.unit = kUnitFromTemperatureItem}};
constexpr std::array kCopyOfItem04 = {UnitRule{.unit = kUnitOfItem04}};

// --- First

constexpr std::array<StringView, 6> kFirstPresence = {u"03", u"04", u"05", u"06", u"07", u"08"};
constexpr std::array<StringView, 5> kFivePresence = {u"03", u"04", u"05", u"06", u"07"};

constexpr std::array<StringView, 3> kBackupStations = {u"QD.def", u"QD2.def", u"QD2I.def"};
constexpr Names1 kWithOutputCurrent = {u"QD2I.def"};
constexpr std::array kFirstCycle = {
    CycleItem{.key = u"03_mon", .models = {.names = kBackupStations}},
    CycleItem{.key = u"04"},
    CycleItem{.key = u"05"},
    CycleItem{.key = u"06"},
    CycleItem{.key = u"07"},
    CycleItem{.key = u"08"},
    CycleItem{.key = u"32", .models = {.names = kWithOutputCurrent}},
};

constexpr std::array<StringView, 6> kFirstWithoutUnits = {u"QHG.def", u"QH.def",   u"QD.def",
                                                          u"QD2.def", u"QD2I.def", u"QY.def"};
constexpr Names2 kFirstByType = {u"QHW.def", u"QL.def"};
constexpr Names2 kFirstByRow = {u"QC.def", u"QN.def"};
constexpr Names1 kFirstBySensor = {u"QEI.def"};
constexpr std::array kFirstItem06 = {
    // Row 0 of these lists is no choice of the user's.
    UnitRule{
        .models = {.names = kFirstByType, .beginning = u"QHN.def"},
        .unit = {.kind = UnitKind::Device,
                 .table = {.item = u"10", .repeats = 5, .table = kTypes, .first_row = 1, .unit_column = 8}}},
    UnitRule{.models = {.names = kFirstByRow}, .unit = kRowUnit},
    UnitRule{.models = {.names = kFirstBySensor},
             .unit = {.kind = UnitKind::Device,
                      .table = {.item = u"11", .repeats = 5, .table = u"$I11QEI", .first_row = 1}}},
    UnitRule{.unit = kNoUnit},
};
constexpr std::array kFirstUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kTemperatureUnit},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kFirstItem06},
};

// --- Second

constexpr std::array kSecondCycle = {CycleItem{.key = u"05"}, CycleItem{.key = u"06"},
                                     CycleItem{.key = u"07"}};

// --- Third

constexpr std::array kThirdCycle = {CycleItem{.key = u"03_mon"}, CycleItem{.key = u"04_mon"},
                                    CycleItem{.key = u"05"}, CycleItem{.key = u"06"}};

constexpr Names2 kThirdBySensorType = {u"QICE2.def", u"QIEU2.def"};
constexpr Names1 kThirdPercent = {u"QNA2.def"};
constexpr Names2 kThirdBySensor = {u"QCE2.def", u"QEI2.def"};
constexpr Names1 kThirdByRange = {u"QHC2.def"};
constexpr std::array kThirdItem06 = {
    UnitRule{.models = {.names = kThirdBySensorType},
             .unit = {.kind = UnitKind::Device,
                      .table = {.item = u"11", .repeats = 3, .table = u"$I11QIE", .first_row = 1}},
             .shown_in = 14},
    UnitRule{.models = {.names = kThirdPercent}, .unit = kPercent},
    UnitRule{.models = {.names = kThirdBySensor},
             .unit = {.kind = UnitKind::Device, .table = {.item = u"11", .repeats = 3, .table = u"$I11QEI"}}},
    UnitRule{
        .models = {.names = kThirdByRange},
        .unit = {.kind = UnitKind::Device, .table = {.item = u"11", .repeats = 3, .table = u"$I11QHC2"}}},
    UnitRule{.unit = kNoUnit},
};
constexpr std::array kThirdUnits = {
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kThirdItem06}};

// --- QXI

constexpr std::array kFourToSeven = {CycleItem{.key = u"04"}, CycleItem{.key = u"05"},
                                     CycleItem{.key = u"06"}, CycleItem{.key = u"07"}};

/// A voltage input has the unit of its type, a potentiometer that of the temperature item; the signals of all
/// other inputs are told in percent.
String UnitOfUniversalInput(const UnitReader& reader) {
  const String type = reader.Read(kTypeItem.item, kTypeItem.repeats);
  if (type.starts_with(u"mV-")) {
    return reader.LookUp(kTypeItem, type);
  }
  return reader.UnitFrom(type.starts_with(u"POT") ? kUnitFromTemperatureItem : kPercent, u"06");
}
constexpr std::array kUniversalItem06 = {
    UnitRule{.unit = {.kind = UnitKind::Rule, .rule = UnitOfUniversalInput}}};
constexpr std::array kUniversalUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kTemperatureUnit},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kUniversalItem06},
    UnitStep{.item = u"07", .timer = UnitTimer::Item07, .rules = kTemperatureUnit},
};

// --- Lite

constexpr std::array kLiteCycle = {CycleItem{.key = u"04"}, CycleItem{.key = u"03"}, CycleItem{.key = u"06"},
                                   CycleItem{.key = u"07"}};

constexpr std::array<StringView, 4> kLiteTemperature = {u"Z#WT2.def", u"Z#WT.def", u"Z#WR.def", u"Z#WR2.def"};
constexpr std::array<StringView, 4> kLiteVoltage = {u"Z#WV2.def", u"Z#WV.def", u"Z#WF.def", u"Z#WF2.def"};
constexpr Names2 kLitePotentiometer = {u"Z#WM.def", u"Z#WM2.def"};
constexpr std::array kLiteItem04 = {
    UnitRule{.models = {.names = kLiteTemperature}, .unit = kUnitFromTemperatureItem},
    UnitRule{.models = {.names = kLiteVoltage}, .unit = kUnitFromTypeItem},
    UnitRule{.models = {.names = kLitePotentiometer}, .unit = kUnitFromTypeItem},
};
constexpr std::array kLiteItem06 = {
    UnitRule{.models = {.names = kLiteVoltage}, .unit = kUnitFromTypeItem},
    UnitRule{.unit = kRowUnit},
};
constexpr std::array kLiteUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kLiteItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kLiteItem06},
    UnitStep{.item = u"07", .rules = kCopyOfItem04},
};

// --- LiteUniv

constexpr StringView kVoltageKind = u"$I10DC";
constexpr StringView kThermocoupleKind = u"$I10TC";
constexpr StringView kResistanceKind = u"$I10RTD";
constexpr StringView kPotentiometerKind = u"$I10PM";
constexpr UnitSource kUnitFromVoltageItem = {
    .kind = UnitKind::Device,
    .table = {.item = u"10", .repeats = 5, .table = kVoltageKind, .unit_column = kTypeUnitColumn}};
constexpr std::array kLiteUnivItem04 = {
    UnitRule{.input_kind = kThermocoupleKind, .unit = kUnitFromTemperatureItem},
    UnitRule{.input_kind = kResistanceKind, .unit = kUnitFromTemperatureItem},
    UnitRule{.input_kind = kVoltageKind, .unit = kUnitFromVoltageItem},
    UnitRule{.input_kind = kPotentiometerKind, .unit = kPercent},
};
constexpr std::array kLiteUnivItem06 = {
    UnitRule{.input_kind = kVoltageKind, .unit = kUnitFromVoltageItem},
    UnitRule{.input_kind = kPotentiometerKind, .unit = kPercent},
    UnitRule{.input_kind = kThermocoupleKind, .unit = kMillivolt},
    UnitRule{.input_kind = kResistanceKind, .unit = kOhm},
    UnitRule{.unit = kUnitOfItem04},
};
constexpr std::array kLiteUnivUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kLiteUnivItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kLiteUnivItem06},
    UnitStep{.item = u"07", .rules = kCopyOfItem04},
};

// --- Nano

constexpr Names1 kNanoVoltage = {u"Z8WV2.def"};
constexpr Names1 kNanoPotentiometer = {u"Z8WM2.def"};
constexpr Names1 kNanoThermocouple = {u"Z8WT2.def"};
constexpr Names1 kNanoResistance = {u"Z8WR2.def"};
constexpr UnitSource kUnitOfLabel2 = {.kind = UnitKind::Caption, .label = 2};
constexpr std::array kNanoItem04 = {
    UnitRule{.models = {.names = kNanoVoltage}, .unit = kUnitOfLabel2},
    UnitRule{.models = {.names = kNanoPotentiometer}, .unit = kPercent},
    UnitRule{.unit = kUnitFromTemperatureItem},
};
constexpr std::array kNanoItem06 = {
    UnitRule{.models = {.names = kNanoVoltage}, .unit = kUnitOfLabel2},
    UnitRule{.models = {.names = kNanoPotentiometer}, .unit = kPercent},
    UnitRule{.models = {.names = kNanoThermocouple}, .unit = kMillivolt},
    UnitRule{.models = {.names = kNanoResistance}, .unit = kOhm},
    UnitRule{.unit = kUnitFromTemperatureItem},
};
constexpr std::array kNanoUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kNanoItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kNanoItem06},
    UnitStep{.item = u"07", .timer = UnitTimer::Item07, .rules = kNanoItem04},
};

constexpr Names2 kNanoTemperature = {u"Z8WR2.def", u"Z8WT2.def"};
constexpr Names2 kNanoOffsetItems = {u"04", u"07"};
constexpr TemperatureOffset kNanoOffset = {.models = {.names = kNanoTemperature},
                                           .items = kNanoOffsetItems,
                                           .unit_table = kTemperatureItem,
                                           .unit = kFahrenheit,
                                           .subtracted = 25.6};

// --- LiteSecond

constexpr std::array<StringView, 6> kLiteSecondPresence = {u"22", u"04", u"05", u"06", u"07", u"08"};
constexpr std::array kLiteSecondCycle = {CycleItem{.key = u"06"}, CycleItem{.key = u"07"}};

String UnitOfFrequencyCode(const UnitReader& reader) {
  constexpr std::array<StringView, 3> kUnits = {u"mHz", u"Hz", u"kHz"};
  const String code = reader.Read(u"03", 0);
  const bool known = code.size() == 1 && code[0] >= u'0' && code[0] < u'0' + kUnits.size();
  return known ? String(kUnits.at(static_cast<std::size_t>(code[0] - u'0'))) : String();
}
constexpr std::array kLiteSecondItem06 = {
    UnitRule{.unit = {.kind = UnitKind::Rule, .rule = UnitOfFrequencyCode}}};
constexpr std::array kLiteSecondUnits = {UnitStep{
    .item = u"06", .timer = UnitTimer::Item06, .rules = kLiteSecondItem06, .to_measured_frequency = true}};

// --- LiteThird

constexpr std::array kLiteThirdCycle = {CycleItem{.key = u"05"}, CycleItem{.key = u"06"}};

// --- LiteForth, LiteFifth

constexpr std::array<StringView, 6> kLiteForthPresence = {u"22", u"04", u"11", u"06", u"07", u"08"};
constexpr std::array kLiteForthCycle = {CycleItem{.key = u"04"}, CycleItem{.key = u"05"},
                                        CycleItem{.key = u"06"}};
constexpr int kLiteForthUnitColumn = 6;
constexpr std::array kLiteForthItem04 = {
    UnitRule{.unit = {.kind = UnitKind::Device,
                      .table = {.item = u"21", .table = u"$I21", .unit_column = kLiteForthUnitColumn}}}};
constexpr std::array kLiteForthItem06 = {
    UnitRule{.unit = {.kind = UnitKind::Device,
                      .table = {.item = u"11", .table = u"$I11", .unit_column = kLiteForthUnitColumn}}}};
constexpr std::array kLiteForthUnits = {
    UnitStep{
        .item = u"04", .timer = UnitTimer::Item04, .rules = kLiteForthItem04, .to_measured_frequency = true},
    UnitStep{
        .item = u"06", .timer = UnitTimer::Item06, .rules = kLiteForthItem06, .to_measured_frequency = true},
};

constexpr std::array kFamilies = {
    MonitorFamily{.family = u"First",
                  .presence = kFirstPresence,
                  .cycle = kFirstCycle,
                  .clean = TrimNumericHead,
                  .paints_first = true,
                  .units = kFirstUnits,
                  .models_without_units = {.names = kFirstWithoutUnits},
                  .hidden_rows_keep_unit = true},
    MonitorFamily{.family = u"Second",
                  .presence = kFivePresence,
                  .cycle = kSecondCycle,
                  .clean = TrimNumericTail,
                  .paints_first = true},
    MonitorFamily{.family = u"Third",
                  .presence = kFirstPresence,
                  .cycle = kThirdCycle,
                  .clean = TrimNumericHead,
                  .locks_first = true,
                  .focuses_stop = true,
                  .obeys_write_condition = true,
                  .paints_first = true,
                  .units = kThirdUnits},
    MonitorFamily{.family = u"QXI",
                  .presence = kFivePresence,
                  .cycle = kFourToSeven,
                  .clean = TrimNumericHead,
                  .has_io_check_mode = true,
                  .needs_unit = true,
                  .units = kUniversalUnits},
    // The second line's first devices have item 03 where their sisters have item 05.
    MonitorFamily{.family = u"Lite",
                  .presence = kFivePresence,
                  .cycle = kLiteCycle,
                  .clean = TrimNumericTail,
                  .needs_unit = true,
                  .units = kLiteUnits},
    MonitorFamily{.family = u"LiteUniv",
                  .presence = kFivePresence,
                  .cycle = kFourToSeven,
                  .clean = TrimNumericTail,
                  .needs_unit = true,
                  .units = kLiteUnivUnits},
    MonitorFamily{.family = u"Nano",
                  .presence = kFivePresence,
                  .cycle = kFourToSeven,
                  .clean = TrimNumericTail,
                  .needs_unit = true,
                  .units = kNanoUnits,
                  .offset = &kNanoOffset},
    MonitorFamily{.family = u"LiteSecond",
                  .presence = kLiteSecondPresence,
                  .cycle = kLiteSecondCycle,
                  .clean = TrimNumericTailFixed,
                  .resets_colours = false,
                  .paints_first = true,
                  .units = kLiteSecondUnits},
    MonitorFamily{.family = u"LiteThird",
                  .presence = kFirstPresence,
                  .cycle = kLiteThirdCycle,
                  .clean = TrimNumericTail,
                  .paints_first = true},
    MonitorFamily{.family = u"LiteForth",
                  .presence = kLiteForthPresence,
                  .cycle = kLiteForthCycle,
                  .clean = StripItemPrefix,
                  .resets_colours = false,
                  .paints_first = true,
                  .units = kLiteForthUnits},
    MonitorFamily{.family = u"LiteFifth",
                  .presence = kLiteForthPresence,
                  .cycle = kLiteForthCycle,
                  .clean = StripItemPrefix,
                  .resets_colours = false,
                  .paints_first = true,
                  .units = kLiteForthUnits},
};

}  // namespace

std::span<const MonitorFamily> MonitorFamilies() { return kFamilies; }

const MonitorFamily& MonitorFamilyOf(const Family& family) {
  const auto* const row = std::find_if(kFamilies.begin(), kFamilies.end(),
                                       [&](const MonitorFamily& one) { return one.family == family.word; });
  if (row == kFamilies.end()) {
    throw std::logic_error("a family without a status monitor");
  }
  return *row;
}

}  // namespace korva
