#include "sim/model_rules.h"

#include <algorithm>
#include <array>

namespace korva::sim {

namespace {

// The first row that fits counts.
struct PowerUp {
  std::string_view family = {};  // none: any
  std::string_view models;       // models whose name begins so; with a point at its end this one model
  std::string_view item;
  std::string_view value;
};

constexpr std::array kPowerUp = {
    // pulse instruments: times in msec on their grid of 5 msec, frequencies in Hz, hysteresis in %
    PowerUp{.family = "Second", .models = "", .item = "08", .value = "10"},
    PowerUp{.family = "Second", .models = "", .item = "09", .value = "10"},
    PowerUp{.family = "Second", .models = "", .item = "10", .value = "100"},
    PowerUp{.family = "Second", .models = "", .item = "12", .value = "50"},
    PowerUp{.family = "Second", .models = "", .item = "13", .value = "50"},
    PowerUp{.family = "Second", .models = "", .item = "16", .value = "1"},
    PowerUp{.family = "Second", .models = "", .item = "17", .value = "10"},
    PowerUp{.family = "Second", .models = "", .item = "18", .value = "50"},
    PowerUp{.family = "Second", .models = "", .item = "19", .value = "50"},
    PowerUp{.family = "Second", .models = "", .item = "20", .value = "80"},
    PowerUp{.family = "Second", .models = "", .item = "21", .value = "1"},
    PowerUp{.family = "Second", .models = "", .item = "24", .value = "100"},
    PowerUp{.family = "Second", .models = "", .item = "25", .value = "100"},
    PowerUp{.family = "Second", .models = "", .item = "33", .value = "1000"},
    // pulse inputs of the second line: cut-outs in % and Hz, range in Hz, detection levels in V
    PowerUp{.family = "LiteThird", .models = "", .item = "13", .value = "100"},
    PowerUp{.family = "LiteThird", .models = "", .item = "18", .value = "1"},
    PowerUp{.family = "LiteThird", .models = "", .item = "32", .value = "500"},
    PowerUp{.family = "LiteThird", .models = "", .item = "33", .value = "1"},
    PowerUp{.family = "LiteThird", .models = "", .item = "38", .value = "2.5"},
    PowerUp{.family = "LiteThird", .models = "", .item = "39", .value = "0.5"},
    // frequency transmitters: threshold in V, cut-out in %, times in msec
    PowerUp{.family = "LiteForth", .models = "", .item = "09", .value = "2.50"},
    PowerUp{.family = "LiteForth", .models = "", .item = "12", .value = "1.0"},
    PowerUp{.family = "LiteForth", .models = "", .item = "25", .value = "100"},
    PowerUp{.family = "LiteFifth", .models = "", .item = "09", .value = "2.50"},
    PowerUp{.family = "LiteFifth", .models = "", .item = "12", .value = "1.0"},
    PowerUp{.family = "LiteFifth", .models = "", .item = "25", .value = "100"},
    PowerUp{.family = "LiteFifth", .models = "", .item = "26", .value = "5"},
    // frequency transmitters: times in msec, cut-out in %, averaging, threshold in V
    PowerUp{.family = "LiteSecond", .models = "", .item = "08", .value = "10"},
    PowerUp{.family = "LiteSecond", .models = "", .item = "09", .value = "50"},
    PowerUp{.family = "LiteSecond", .models = "", .item = "11", .value = "1.0"},
    PowerUp{.family = "LiteSecond", .models = "", .item = "16", .value = "1"},
    PowerUp{.family = "LiteSecond", .models = "", .item = "30", .value = "0.05"},
    // data of a cold junction sensor that was never exchanged
    PowerUp{.family = "Lite", .models = "", .item = "34", .value = "-999.9"},
    PowerUp{.family = "Lite", .models = "", .item = "35", .value = "-999.9"},
    PowerUp{.family = "QXI", .models = "", .item = "34", .value = "-999.9"},
    PowerUp{.family = "QXI", .models = "", .item = "35", .value = "-999.9"},
    PowerUp{.family = "LiteUniv", .models = "", .item = "34", .value = "-999.9"},
    PowerUp{.family = "LiteUniv", .models = "", .item = "35", .value = "-999.9"},
    // relays: setpoints and hystereses in the unit of the input
    PowerUp{.family = "QXI", .models = "", .item = "26", .value = "100"},
    PowerUp{.family = "QXI", .models = "", .item = "27", .value = "5"},
    PowerUp{.family = "QXI", .models = "", .item = "29", .value = "50"},
    PowerUp{.family = "QXI", .models = "", .item = "30", .value = "5"},
    // scale of the output
    PowerUp{.models = "", .item = "19", .value = "0.00"},
    PowerUp{.models = "", .item = "20", .value = "100.00"},
    // filters: item 24 in s, 25 a count, 26 in s or %, 27 and 28 in %, 29 and 30 codes
    PowerUp{.models = "QHN", .item = "24", .value = "1.0"},
    PowerUp{.models = "QHN", .item = "25", .value = "4"},
    PowerUp{.models = "QHN", .item = "26", .value = "1.0"},
    PowerUp{.models = "QHN", .item = "27", .value = "5.0"},
    PowerUp{.models = "QHN", .item = "28", .value = "5.0"},
    PowerUp{.models = "QHN", .item = "29", .value = "1"},
    PowerUp{.models = "QHN", .item = "30", .value = "1"},
    // backup stations: delays in s, values in %
    PowerUp{.models = "QD", .item = "22", .value = "10"},
    PowerUp{.models = "QD", .item = "24", .value = "10"},
    PowerUp{.models = "QD", .item = "26", .value = "90.0"},
    PowerUp{.models = "QD", .item = "27", .value = "10.0"},
    PowerUp{.models = "QD", .item = "28", .value = "1.0"},
    PowerUp{.models = "QD", .item = "29", .value = "100.0"},
    PowerUp{.models = "QD", .item = "30", .value = "0.0"},
    // computing units: gains, then biases and limits in %
    PowerUp{.models = "QH.", .item = "21", .value = "1.000"},
    PowerUp{.models = "QH.", .item = "22", .value = "1.000"},
    PowerUp{.models = "QH.", .item = "23", .value = "1.000"},
    PowerUp{.models = "QH.", .item = "28", .value = "100.00"},
    PowerUp{.models = "QH.", .item = "30", .value = "100.00"},
    PowerUp{.models = "QHG", .item = "21", .value = "1.000"},
    PowerUp{.models = "QHG", .item = "22", .value = "1.000"},
    PowerUp{.models = "QHG", .item = "23", .value = "1.000"},
    PowerUp{.models = "QHG", .item = "24", .value = "1.000"},
    PowerUp{.models = "QHG", .item = "30", .value = "100.00"},
    PowerUp{.models = "QHG", .item = "32", .value = "100.00"},
    PowerUp{.models = "QHG", .item = "34", .value = "100.00"},
    // counters, encoders and frequency inputs: alarms, prescale, gain
    PowerUp{.models = "QEC2.", .item = "06", .value = "1000"},
    PowerUp{.models = "QEC2.", .item = "07", .value = "100.0"},
    PowerUp{.models = "QEC2.", .item = "09", .value = "1000"},
    PowerUp{.models = "QEC2.", .item = "31", .value = "1"},
    PowerUp{.models = "QEY3.", .item = "07", .value = "1000"},
    PowerUp{.models = "QEY3.", .item = "09", .value = "100.0"},
    PowerUp{.models = "QEY3.", .item = "31", .value = "1"},
    PowerUp{.models = "QCB2.", .item = "31", .value = "1"},
    PowerUp{.models = "QEB2.", .item = "31", .value = "1"},
    PowerUp{.models = "QHC2.", .item = "31", .value = "1.000"},
    PowerUp{.models = "QHC2.", .item = "32", .value = "0.00"},
    // alarm unit: values and hysteresis in %, delays in s
    PowerUp{.models = "QNA2.", .item = "22", .value = "90.0"},
    PowerUp{.models = "QNA2.", .item = "24", .value = "1"},
    PowerUp{.models = "QNA2.", .item = "26", .value = "1.0"},
    PowerUp{.models = "QNA2.", .item = "28", .value = "10.0"},
    PowerUp{.models = "QNA2.", .item = "30", .value = "1"},
    // pulse input: low cut-out in %, pulse averaging
    PowerUp{.models = "QCE2.", .item = "13", .value = "1.0"},
    PowerUp{.models = "QCE2.", .item = "18", .value = "1"},
    PowerUp{.models = "QICE2.", .item = "13", .value = "1.0"},
    PowerUp{.models = "QICE2.", .item = "18", .value = "1"},
    PowerUp{.models = "QIEU2.", .item = "13", .value = "1.0"},
    PowerUp{.models = "QIEU2.", .item = "18", .value = "1"},
    PowerUp{.models = "QEI", .item = "13", .value = "1.0"},
    PowerUp{.models = "QEI", .item = "18", .value = "1"},
};

constexpr std::array kAlarmValues = {
    AlarmValue{.model = "QEC2", .item = "06", .unit = "Hz"},
    AlarmValue{.model = "QEC2", .item = "07", .unit = "%"},
    AlarmValue{.model = "QEC2", .item = "09", .unit = ""},
    AlarmValue{.model = "QEY3", .item = "07", .unit = "Hz"},
    AlarmValue{.model = "QEY3", .item = "09", .unit = "%"},
};

constexpr std::array kNeedless = {
    // without a sensor there is no temperature unit and no burnout; a sensor's own curve is its linearizer
    NeedlessRule{.model = "Univ",
                 .beginning = false,
                 .selector = "10",
                 .codes = "11 12 13 14 15 16 17 18 41",
                 .text = "",
                 .items = "21 24"},
    NeedlessRule{.model = "Univ",
                 .beginning = false,
                 .selector = "10",
                 .codes = "0 1 2 3 4 5 6 7 8 9 99 31 32 98 51 97",
                 .text = "",
                 .items = "23"},
    // voltage and square root inputs have no range to set, and no temperature unit
    NeedlessRule{.model = "QUO",
                 .beginning = false,
                 .selector = "10",
                 .codes = "11 21 41 42",
                 .text = "",
                 .items = "14 15 21"},
    // a product has no gain and biases for its first inputs
    NeedlessRule{
        .model = "QH", .beginning = false, .selector = "10", .codes = "1 2", .text = "", .items = "21 24 25"},
    NeedlessRule{
        .model = "QHG", .beginning = false, .selector = "10", .codes = "1", .text = "", .items = "21 25 26"},
    // without a filter its values have no meaning
    NeedlessRule{.model = "QHN",
                 .beginning = true,
                 .selector = "23",
                 .codes = "",
                 .text = "0:NO FILTER",
                 .items = "24 25 26 27 28 29 30"},
    // an alarm that is not in use has no value, direction and delay
    NeedlessRule{.model = "QNA2",
                 .beginning = false,
                 .selector = "25",
                 .codes = "",
                 .text = "NO ALARM",
                 .items = "22 23 24"},
    NeedlessRule{.model = "QNA2",
                 .beginning = false,
                 .selector = "27",
                 .codes = "",
                 .text = "NO ALARM",
                 .items = "28 29 30"},
};

struct WithoutItems {
  std::string_view input_list;
  std::string_view items;
};

// temperature unit, cold junction, burnout and linearizer
constexpr std::array kWithout = {
    WithoutItems{.input_list = "$I10DC", .items = "21 23 24"},
    WithoutItems{.input_list = "$I10TC", .items = "25"},
    WithoutItems{.input_list = "$I10RTD", .items = "23 25"},
    WithoutItems{.input_list = "$I10PM", .items = "21 23"},
};

struct Spelling {
  std::string_view first_version;
  std::string_view later;
};

// The uneven blanks, "DS" against "PS", and the last two rows are as the devices spell them.
constexpr std::array kSensorTexts = {
    Spelling{.first_version = "Tc-1: (PR)", .later = "Tc-1:  (PR)"},
    Spelling{.first_version = "Tc-2:K(CA)", .later = "Tc-2: K(CA)"},
    Spelling{.first_version = "Tc-3:E(CRC)", .later = "Tc-3: E(CRC)"},
    Spelling{.first_version = "Tc-4:J(IC)", .later = "Tc-4: J(IC)"},
    Spelling{.first_version = "Tc-5:T(CC)", .later = "Tc-5: T(CC)"},
    Spelling{.first_version = "Tc-6:B(RH)", .later = "Tc-6: B(RH)"},
    Spelling{.first_version = "Tc-7:R", .later = "Tc-7: R"},
    Spelling{.first_version = "Tc-8:S", .later = "Tc-8: S"},
    Spelling{.first_version = "Tc-9:WRe5-26", .later = "Tc-9: WRe5-26"},
    Spelling{.first_version = "DS:straight", .later = "PS: Straight"},
    Spelling{.first_version = "Fx:linearizer", .later = "FX: Linearizer"},
    Spelling{.first_version = "RB-1:Pt100", .later = "RB-1: Pt100"},
    Spelling{.first_version = "RB-2:JPt100", .later = "RB-2: JPt100"},
    Spelling{.first_version = "RB-3:Pt 50", .later = "RB-3: Pt 50"},
    Spelling{.first_version = "RB-4:Ni508.4", .later = "RB-4: Ni508.4"},
    Spelling{.first_version = "Sq-1:no drop", .later = "Sq-1:no drop"},
    Spelling{.first_version = "Sq-2:drop out", .later = "Sq-2:drop out"},
};

}  // namespace

std::string_view PowerUpNumber(std::string_view family, std::string_view model, std::string_view item) {
  const auto* const found = std::ranges::find_if(kPowerUp, [&](const PowerUp& row) {
    const bool whole = row.models.ends_with('.');
    return row.item == item && (row.family.empty() || row.family == family) &&
           (whole ? model == row.models.substr(0, row.models.size() - 1) : model.starts_with(row.models));
  });
  return found == kPowerUp.end() ? std::string_view{"0"} : found->value;
}

const AlarmValue* FindAlarmValue(std::string_view model, std::string_view item) {
  const auto* const found = std::ranges::find_if(
      kAlarmValues, [&](const AlarmValue& row) { return row.model == model && row.item == item; });
  return found == kAlarmValues.end() ? nullptr : found;
}

std::string_view CountOfCommand(std::string_view item) {
  if (item == "12") {
    return "03";
  }
  return item == "13" ? "04" : std::string_view{};
}

bool AnswersSlowly(std::string_view model) { return HasWord("QEYD QEYZ QICD QICE", model); }

std::span<const NeedlessRule> NeedlessRules() { return kNeedless; }

std::string_view ItemsWithout(std::string_view input_list) {
  const auto* const found = std::ranges::find(kWithout, input_list, &WithoutItems::input_list);
  return found == kWithout.end() ? std::string_view{} : found->items;
}

std::string_view SensorText(std::size_t row, std::string_view system_text) {
  if (row >= kSensorTexts.size()) {
    return {};
  }
  return system_text == "SYSVER   1.00" ? kSensorTexts.at(row).first_version : kSensorTexts.at(row).later;
}

bool RefusesTrailingPoint(std::string_view model) { return HasWord("QN QUO QC", model); }

Compensation::Kind CorrectsItsSensor(std::string_view model) {
  if (model == "Z8WR2") {
    return Compensation::Kind::LeadResistance;
  }
  return model == "Z8WM2" ? Compensation::Kind::Positions : Compensation::Kind::None;
}

TableShape TableOfModel(std::string_view model) {
  if (HasWord("QHNY1 QHNY2 QHW1 Z2WT2 Z2WR2 Z2WV Z2WV2 Z8WV", model)) {
    return TableShape::Points100;
  }
  const bool short_table = HasWord("QHW QUO QY QZ QEI 10QCE QCE2 QEI2 QCB2 QEB2 QNA2", model);
  return short_table ? TableShape::Points16 : TableShape::None;
}

bool HasWord(std::string_view words, std::string_view word) {
  if (word.empty()) {
    return false;
  }
  while (!words.empty()) {
    const auto blank = words.find(' ');
    if (words.substr(0, blank) == word) {
      return true;
    }
    words.remove_prefix(blank == std::string_view::npos ? words.size() : blank + 1);
  }
  return false;
}

}  // namespace korva::sim
