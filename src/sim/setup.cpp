#include "sim/setup.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>

#include "sim/number.h"

namespace korva::sim {

namespace {

// --- places in the memory

struct Place {
  std::size_t address;
  std::size_t size;
};

constexpr Place kModelText{.address = 48, .size = 16};
constexpr Place kDay{.address = 72, .size = 1};
constexpr Place kMonth{.address = 73, .size = 1};
constexpr Place kYear{.address = 74, .size = 2};
constexpr Place kConverterType{.address = 77, .size = 1};
constexpr Place kInputCode{.address = 78, .size = 1};
constexpr Place kOutputCodeOfZ2{.address = 79, .size = 1};
constexpr Place kInputText{.address = 80, .size = 16};
constexpr Place kOutputText{.address = 96, .size = 16};
constexpr Place kOutputCodeOfZ8{.address = 158, .size = 1};

// The descriptor of the table at the memory's end.
constexpr Place kTableZero{.address = 512, .size = 1};
constexpr Place kTableType{.address = 513, .size = 1};
constexpr Place kTablePitch{.address = 518, .size = 2};
constexpr Place kTableStart{.address = 520, .size = 2};
constexpr Place kTableWidth{.address = 526, .size = 2};
constexpr Place kTableRise{.address = 528, .size = 3};
constexpr std::array kTableBases = {Place{.address = 514, .size = 2}, Place{.address = 522, .size = 2},
                                    Place{.address = 531, .size = 2}};
constexpr std::array kTableTops = {Place{.address = 516, .size = 2}, Place{.address = 524, .size = 2},
                                   Place{.address = 533, .size = 2}};
constexpr std::size_t kValueSize = 3;
constexpr std::size_t kMostValues = 2544;  // more would run over the descriptor

constexpr std::int32_t kNoTable = 99;
constexpr std::int32_t kLinearizer = 101;

// --- calibration

/// A value of a calibration: where the active one stands, and where the one of type 0 does; those of the
/// other types stand 16 and 32 bytes behind it. The values are made up, each type's a little apart.
struct BankRow {
  Place active;
  std::size_t source;
  std::int32_t value;
};
constexpr std::size_t kBankPitch = 16;
constexpr std::int32_t kTypes = 3;

/// The first value less the second one goes to a place of its own.
struct BankDifference {
  std::size_t first;
  std::size_t second;
  Place place;
};

struct Bank {
  std::array<BankRow, 6> rows;
  std::span<const BankDifference> differences;
};

// Words for the amplifier, then readings of the converter at 100 % and at 0 %, for the signal and for the
// reference.
constexpr std::array kInputDifferences = {
    BankDifference{.first = 2, .second = 3, .place = {.address = 203, .size = 3}},
    BankDifference{.first = 4, .second = 5, .place = {.address = 212, .size = 3}}};
constexpr Bank kInputBank{
    .rows = {{{.active = {.address = 193, .size = 2}, .source = 237, .value = 2010},
              {.active = {.address = 195, .size = 2}, .source = 239, .value = 40500},
              {.active = {.address = 197, .size = 3}, .source = 241, .value = 5'812'340},
              {.active = {.address = 200, .size = 3}, .source = 244, .value = 212'007},
              {.active = {.address = 206, .size = 3}, .source = 247, .value = 6'104'881},
              {.active = {.address = 209, .size = 3}, .source = 250, .value = -151'236}}},
    .differences = kInputDifferences};

// Settings of the output at 0 % and at 100 %, then readings of it.
constexpr std::array kDifferencesA = {
    BankDifference{.first = 0, .second = 1, .place = {.address = 353, .size = 2}},
    BankDifference{.first = 2, .second = 3, .place = {.address = 361, .size = 3}},
    BankDifference{.first = 4, .second = 5, .place = {.address = 370, .size = 3}}};
constexpr Bank kOutputBankA{
    .rows = {{{.active = {.address = 349, .size = 2}, .source = 373, .value = 11'210},
              {.active = {.address = 351, .size = 2}, .source = 375, .value = 52'340},
              {.active = {.address = 355, .size = 3}, .source = 377, .value = 7'001'230},
              {.active = {.address = 358, .size = 3}, .source = 380, .value = 903'411},
              {.active = {.address = 364, .size = 3}, .source = 383, .value = 6'840'077},
              {.active = {.address = 367, .size = 3}, .source = 386, .value = -97'654}}},
    .differences = kDifferencesA};
constexpr std::array kDifferencesB = {
    BankDifference{.first = 0, .second = 1, .place = {.address = 420, .size = 2}},
    BankDifference{.first = 2, .second = 3, .place = {.address = 428, .size = 3}},
    BankDifference{.first = 4, .second = 5, .place = {.address = 437, .size = 3}}};
constexpr Bank kOutputBankB{
    .rows = {{{.active = {.address = 416, .size = 2}, .source = 440, .value = 11'780},
              {.active = {.address = 418, .size = 2}, .source = 442, .value = 51'920},
              {.active = {.address = 422, .size = 3}, .source = 444, .value = 7'020'118},
              {.active = {.address = 425, .size = 3}, .source = 447, .value = 899'276},
              {.active = {.address = 431, .size = 3}, .source = 450, .value = 6'811'503},
              {.active = {.address = 434, .size = 3}, .source = 453, .value = -99'120}}},
    .differences = kDifferencesB};

/// Value of a bank's row for a type, another one for each type.
std::int32_t BankValue(const BankRow& row, std::int32_t type) { return row.value + (137 * type); }

/// Puts the values of all types into their banks, and those of one type to the active places.
void Calibrate(Memory& memory, const Bank& bank, std::int32_t type) {
  for (const auto& row : bank.rows) {
    for (std::int32_t of_type = 0; of_type < kTypes; ++of_type) {
      memory.PutNumber(row.source + (kBankPitch * static_cast<std::size_t>(of_type)), row.active.size,
                       BankValue(row, of_type));
    }
    memory.PutNumber(row.active.address, row.active.size, BankValue(row, type));
  }
  for (const auto& difference : bank.differences) {
    memory.PutNumber(
        difference.place.address, difference.place.size,
        BankValue(bank.rows.at(difference.first), type) - BankValue(bank.rows.at(difference.second), type));
  }
}

// --- curves

/// The table of a sensor: its file, and the temperature of its first value. It has one value a degree.
struct Sensor {
  std::string_view file;
  std::int32_t base;
};

constexpr std::array kThermocouples = {
    Sensor{.file = "TC_TypePR_00", .base = -50}, Sensor{.file = "TC_TypeK_01", .base = -273},
    Sensor{.file = "TC_TypeE_02", .base = -273}, Sensor{.file = "TC_TypeJ_03", .base = -260},
    Sensor{.file = "TC_TypeT_04", .base = -272}, Sensor{.file = "TC_TypeB_05", .base = 23},
    Sensor{.file = "TC_TypeR_06", .base = -100}, Sensor{.file = "TC_TypeS_07", .base = -100},
    Sensor{.file = "TC_TypeC_08", .base = -50},  Sensor{.file = "TC_TypeN_09", .base = -273},
    Sensor{.file = "TC_TypeU_10", .base = -250}, Sensor{.file = "TC_TypeL_11", .base = -250},
    Sensor{.file = "TC_TypeP_12", .base = -50}};
constexpr std::array kResistances = {
    Sensor{.file = "RTD00_JPt100_89", .base = -235}, Sensor{.file = "RTD01_Pt100_89", .base = -240},
    Sensor{.file = "RTD02_Pt100_97", .base = -240},  Sensor{.file = "RTD03_Pt50_81", .base = -235},
    Sensor{.file = "RTD04_Ni508", .base = -100},     Sensor{.file = "RTD05_Pt1000", .base = -240},
    Sensor{.file = "RTD06_Ni100", .base = -100},     Sensor{.file = "RTD07_Cu10", .base = -210}};

/// What kind of transmitter a model is: T, R, V, F or M, the fourth character of its code.
char KindOf(std::string_view code) { return code.size() > 3 ? code[3] : '\0'; }

std::span<const Sensor> SensorsOf(char kind) {
  if (kind == 'T') {
    return kThermocouples;
  }
  return kind == 'R' ? std::span<const Sensor>(kResistances) : std::span<const Sensor>();
}

/// The numbers of a curve's file, 4 bytes each, low byte first; none when it can't be read.
std::vector<std::int32_t> ReadCurve(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::int32_t> values;
  for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4) {
    std::uint32_t value = 0;
    for (std::size_t byte = 4; byte-- > 0;) {
      value = (value << 8U) | static_cast<std::uint8_t>(bytes[at + byte]);
    }
    values.push_back(static_cast<std::int32_t>(value));
  }
  return values;
}

/// What the device knows of its table besides the values.
struct Table {
  std::int32_t type;
  std::int32_t base;
  std::int32_t top;
  std::vector<std::int32_t> values;
  std::int32_t rise;
};

/// Puts a table to the memory's end, and its descriptor.
void StoreTable(Memory& memory, const Table& table) {
  const std::size_t start = Memory::kSize - (kValueSize * table.values.size());
  for (std::size_t i = 0; i < table.values.size(); ++i) {
    memory.PutNumber(start + (kValueSize * i), kValueSize, table.values[i]);
  }
  const auto put = [&](const Place& place, std::int32_t value) {
    memory.PutNumber(place.address, place.size, value);
  };
  put(kTableZero, 0);
  put(kTableType, table.type);
  std::ranges::for_each(kTableBases, [&](const Place& place) { put(place, table.base); });
  std::ranges::for_each(kTableTops, [&](const Place& place) { put(place, table.top); });
  put(kTablePitch, 1);
  put(kTableStart, static_cast<std::int32_t>(start));
  put(kTableWidth, table.top - table.base);
  put(kTableRise, table.rise);
}

/// What one percent of a linearizer is stored as.
std::int32_t LinearizerScale(std::string_view code) { return code.starts_with("Z2WF") ? 32768 : 65536; }

// --- lists of types

constexpr std::size_t kLowColumn = 2;
constexpr std::size_t kHighColumn = 3;
constexpr std::size_t kUnitColumn = 5;
constexpr std::size_t kTagColumn = 6;
constexpr std::size_t kConverterColumn = 7;

std::int32_t WholeNumber(std::string_view text) {
  return static_cast<std::int32_t>(ParseNumber(text).value_or(0));
}

/// The first row in use; an empty row when there is none.
Definition::Row FirstType(const std::vector<Definition::Row>& rows) {
  const auto used = [](const Definition::Row& row) { return !Field(row, 0).empty(); };
  const auto found = std::ranges::find_if(rows, used);
  return found == rows.end() ? Definition::Row{} : *found;
}

const Definition::Row* FindType(const std::vector<Definition::Row>& rows, std::string_view choice) {
  const auto found = std::ranges::find_if(rows, [&](const Definition::Row& row) {
    return !choice.empty() && (Field(row, 1) == choice || Field(row, 0) == choice);
  });
  return found == rows.end() ? nullptr : &*found;
}

Setup::Limits LimitsOf(const Definition::Row* row) {
  return row == nullptr ? Setup::Limits{}
                        : Setup::Limits{.low = Field(*row, kLowColumn), .high = Field(*row, kHighColumn)};
}

/// The values from the start that the descriptor tells to the memory's end; none when that is no place for
/// them.
std::vector<std::int32_t> StoredValues(const Memory& memory) {
  const auto start = static_cast<std::size_t>(memory.Number(kTableStart.address, kTableStart.size) & 0xFFFF);
  std::vector<std::int32_t> values;
  if (start < Memory::kSize - (kValueSize * kMostValues)) {
    return values;
  }
  for (std::size_t at = start; at + kValueSize <= Memory::kSize; at += kValueSize) {
    values.push_back(memory.Number(at, kValueSize));
  }
  return values;
}

}  // namespace

Setup::Setup(const Definition& definition, std::string_view code, std::filesystem::path curves)
    : inputs_(definition.Rows("$I10")),
      outputs_(definition.Rows("$I11")),
      code_(code),
      curves_(std::move(curves)) {
  memory.PutNumber(kDay.address, kDay.size, 15);
  memory.PutNumber(kMonth.address, kMonth.size, 6);
  memory.PutNumber(kYear.address, kYear.size, 2023);
  ChooseInput(FirstType(inputs_));
  ChooseOutput(FirstType(outputs_));
}

std::string Setup::ModelText() const { return memory.Text(kModelText.address, kModelText.size); }

std::string Setup::InputText() const { return memory.Text(kInputText.address, kInputText.size); }

std::string Setup::OutputText() const { return memory.Text(kOutputText.address, kOutputText.size); }

bool Setup::SetInput(std::string_view choice) {
  const auto* const row = FindType(inputs_, choice);
  if (row != nullptr) {
    ChooseInput(*row);
  }
  return row != nullptr;
}

bool Setup::SetOutput(std::string_view choice) {
  const auto* const row = FindType(outputs_, choice);
  if (row != nullptr) {
    ChooseOutput(*row);
  }
  return row != nullptr;
}

bool Setup::SetModelText(std::string_view text) {
  const bool fits = text.size() <= kModelText.size;
  if (fits) {
    memory.PutText(kModelText.address, kModelText.size, text);
  }
  return fits;
}

void Setup::ChooseInput(const Definition::Row& row) {
  const std::int32_t converter = WholeNumber(Field(row, kConverterColumn));
  memory.PutNumber(kConverterType.address, kConverterType.size, converter);
  memory.PutNumber(kInputCode.address, kInputCode.size, WholeNumber(Field(row, 0)));
  memory.PutText(kInputText.address, kInputText.size, Field(row, 1));
  Calibrate(memory, kInputBank, converter);
  PutTable(row);
  input_tag_ = Field(row, kTagColumn);
  PutModelText();
}

/// Models of the second line keep the code of the output, and its calibration, as told by it; those of the
/// third line have one output circuit, which is calibrated as type 2.
void Setup::ChooseOutput(const Definition::Row& row) {
  const std::int32_t code = WholeNumber(Field(row, 0));
  const bool third_line = code_.starts_with("Z8");
  const Place& place = third_line ? kOutputCodeOfZ8 : kOutputCodeOfZ2;
  memory.PutNumber(place.address, place.size, code);
  memory.PutText(kOutputText.address, kOutputText.size, Field(row, 1));
  const bool layout_b = KindOf(code_) == 'M' || KindOf(code_) == 'R';
  Calibrate(memory, layout_b ? kOutputBankB : kOutputBankA, third_line ? 2 : code);
  output_tag_ = Field(row, kTagColumn);
  PutModelText();
}

void Setup::PutModelText() { SetModelText(code_ + "-" + input_tag_ + output_tag_ + "-S"); }

void Setup::PutTable(const Definition::Row& type) {
  if (!SensorsOf(KindOf(code_)).empty()) {
    PutCurve(type);
  } else if (KindOf(code_) == 'F' || KindOf(code_) == 'M') {
    PutLinearizer();
  }
}

void Setup::PutCurve(const Definition::Row& type) {
  const auto index = static_cast<std::size_t>(WholeNumber(Field(type, 0)));
  const auto sensors = SensorsOf(KindOf(code_));
  const auto values = index < sensors.size()
                          ? ReadCurve(curves_ / (std::string(sensors[index].file) + ".tct"))
                          : std::vector<std::int32_t>{};
  sensor_range_.reset();
  if (values.empty() || values.size() > kMostValues) {
    memory.PutNumber(kTableType.address, kTableType.size, kNoTable);
    return;
  }
  const std::int32_t base = sensors[index].base;
  const auto at = [&](std::size_t column) {
    const auto last = static_cast<std::int32_t>(values.size()) - 1;
    const auto degree = WholeNumber(Field(type, column)) - base;
    return static_cast<double>(values[static_cast<std::size_t>(std::clamp(degree, 0, last))]);
  };
  sensor_range_ = {.x = at(kLowColumn), .y = at(kHighColumn)};
  StoreTable(memory, {.type = static_cast<std::int32_t>(index),
                      .base = base,
                      .top = base + static_cast<std::int32_t>(values.size()) - 1,
                      .values = values,
                      .rise = values.back() - values.front()});
}

/// A straight line of 11 points. The numbers are percentages in fractions of a word, and the temperatures of
/// the descriptor percentages in fractions of a byte.
void Setup::PutLinearizer() {
  constexpr std::int32_t points = 11;
  constexpr std::int32_t byte = 256;
  const std::int32_t scale = LinearizerScale(code_);
  std::vector<std::int32_t> values;
  for (std::int32_t point = 0; point < points; ++point) {
    values.insert(values.end(), 2, 10 * point * scale);
  }
  StoreTable(memory, {.type = kLinearizer,
                      .base = 0,
                      .top = 100 * byte,
                      .values = values,
                      .rise = values.back() - values.front()});
}

// --- what the memory means

std::string Setup::InputUnit() const {
  const auto* const row = FindType(inputs_, InputText());
  return row == nullptr ? std::string{} : Field(*row, kUnitColumn);
}

Setup::Limits Setup::InputLimits() const { return LimitsOf(FindType(inputs_, InputText())); }

Setup::Limits Setup::OutputLimits() const { return LimitsOf(FindType(outputs_, OutputText())); }

bool Setup::HasSensor() const { return !SensorsOf(KindOf(code_)).empty(); }

bool Setup::HasColdJunction() const { return KindOf(code_) == 'T'; }

std::vector<Point> Setup::StoredCurve() const {
  const auto type = memory.Number(kTableType.address, kTableType.size);
  std::vector<Point> points;
  if (!HasSensor() || type < 0 || type >= std::ssize(SensorsOf(KindOf(code_)))) {
    return points;
  }
  double temperature = memory.Number(kTableBases.front().address, kTableBases.front().size);
  for (const auto value : StoredValues(memory)) {
    points.push_back({.x = static_cast<double>(value), .y = temperature});
    temperature += memory.Number(kTablePitch.address, kTablePitch.size);
  }
  return points;
}

std::vector<Point> Setup::StoredLinearizer() const {
  std::vector<Point> points;
  if (memory.Number(kTableType.address, kTableType.size) != kLinearizer) {
    return points;
  }
  const auto values = StoredValues(memory);
  const double scale = LinearizerScale(code_);
  for (std::size_t i = 0; i + 1 < values.size(); i += 2) {
    points.push_back({.x = values[i] / scale, .y = values[i + 1] / scale});
  }
  return points;
}

}  // namespace korva::sim
