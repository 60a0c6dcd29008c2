// Every model of the catalogue at power-up, and with its own values written back.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>

#include "model_device.h"
#include "sim/number.h"

namespace korva::sim {
namespace {

class ModelsTest : public testing::TestWithParam<Model> {
 protected:
  ModelsTest() : device_(Device::ForModel(kHome, GetParam().name, LaterVersion())) {}

  static DeviceOptions LaterVersion() {
    DeviceOptions options;
    options.system_text = "SYSVER   2.00";  // spells the input types as the definition files do
    return options;
  }

  /// The item's number, less a unit that the device sets behind it.
  std::optional<double> Number(const std::string& item) const {
    const auto value = device_.Value("01", item);
    return ParseNumber(value.substr(0, value.find_last_of("0123456789.") + 1));
  }

  /// The row of a section with this text in any column.
  const Definition::Row* RowOf(const std::string& section, const std::string& text) const {
    for (const auto& row : definition_.Rows(section)) {
      if (!text.empty() && std::ranges::find(row, text) != row.end()) {
        return &row;
      }
    }
    return nullptr;
  }

  /// The row of a choice; inputs with classes stand in a list of each class.
  const Definition::Row* RowOfChoice(const std::string& section, const std::string& text) const {
    for (const auto& row : definition_.Rows("$I00")) {
      const auto* const found = section == "$I10" ? RowOf(Field(row, 2), text) : nullptr;
      if (found != nullptr) {
        return found;
      }
    }
    return RowOf(section, text);
  }

  /// What stands before the value of a row; the words for a choice's form, or a value's kind, are no prefix.
  std::string Prefix(const Definition::Row& row) const {
    const auto& prefix = Field(row, 22);
    return device_.GetFamily().kinds || prefix == "O" || prefix == "N" ? std::string{} : prefix;
  }

  /// A reply as a configurator takes it: without the "D", and in the dialect of a display without the blanks.
  std::string Shown(const std::string& reply) const {
    if (device_.GetFamily().dialect == Dialect::Cok) {
      return reply.starts_with('D') ? reply.substr(1) : reply;
    }
    return std::string(TrimBlanks(reply.substr(1)));
  }

  /// The value of a row's item as the device reports it, or "CNU".
  std::string ReportedValue(const Definition::Row& row) {
    const auto reply = Read(device_, Field(row, 0), Field(row, 1).substr(0, 2));
    return Shown(device_.GetFamily().dialect == Dialect::Cok ? reply : device_.Answer("D").text);
  }

  /// A value less the unit behind it, which the device doesn't take.
  static std::string Plain(const Definition::Row& row, const std::string& value) {
    return Field(row, 1) == "02" ? value : value.substr(0, value.find_last_of("0123456789.") + 1);
  }

  Device device_;
  Definition definition_ = Definition::Read(kHome, GetParam());
};

TEST_P(ModelsTest, UploadedItemsHaveAValueWithTheirPrefixOrAreNotUsable) {
  int read = 0;
  for (const auto& row : definition_.Rows("$Data")) {
    if (Field(row, 4) != "Y") {
      continue;
    }
    ++read;
    const auto value = ReportedValue(row);
    if (value != "CNU") {
      EXPECT_TRUE(value.starts_with(Prefix(row)) && value.size() > Prefix(row).size())
          << Field(row, 1) << ": " << value;
    }
  }
  EXPECT_GE(read, 5);
}

TEST_P(ModelsTest, OwnValuesWrittenBackInTheOrderOfWritingEchoUnchanged) {
  const std::size_t position_column = GetParam().family_word == "Second" ? 24 : 23;
  std::map<int, const Definition::Row*> order;
  for (const auto& row : definition_.Rows("$Data")) {
    const auto& position = Field(row, position_column);
    if (!position.empty()) {
      EXPECT_TRUE(order.emplace(std::stoi(position), &row).second) << "position " << position;
    }
  }
  ASSERT_FALSE(order.empty());
  EnterProgramming(device_);
  for (const auto& [position, row] : order) {
    const auto before = ReportedValue(*row);
    if (before == "CNU" || before == "not usable") {
      continue;
    }
    auto data = before.substr(Prefix(*row).size());
    if (Field(*row, 11).empty()) {
      data = Plain(*row, data);
    } else {
      const bool ranges = Field(*row, 11) == "$I11" && !definition_.Rows("$I11Body").empty();
      const auto section = ranges ? "$I11Body" : Field(*row, 11);
      const auto* const choice = RowOfChoice(section, data);
      ASSERT_NE(choice, nullptr) << section << " has no row " << data;
      data = Field(*choice, 0);
    }
    EXPECT_EQ(Shown(Write(device_, "01", Field(*row, 1).substr(0, 2), data)), before) << Field(*row, 1);
  }
}

TEST_P(ModelsTest, ZeroAndSpanKeepTheLimitsOfTheInputType) {
  const auto* const type = RowOf("$I10", device_.Value("01", "10"));
  if (type == nullptr || Field(*type, 2).empty() || !Number("14")) {
    return;  // no input type with limits, or no zero to set
  }
  EXPECT_GE(*Number("14"), *ParseNumber(Field(*type, 2)));
  EXPECT_LE(*Number("15"), *ParseNumber(Field(*type, 3)));
  EXPECT_GE(*Number("15") - *Number("14"), *ParseNumber(Field(*type, 4)));
}

TEST_P(ModelsTest, NumbersKeepTheRangesOfTheirModel) {
  struct Range {
    std::string_view models;  // beginning of the name
    int first;
    int last;
    double low;
    double high;
  };
  constexpr Range ranges[] = {
      {"", 19, 20, -299.99, 299.99},
      {"QHN", 24, 24, 0.1, 100},
      {"QHN1", 25, 25, 1, 8},
      {"QHN2", 25, 25, 1, 8},
      {"QHN6", 25, 25, 2, 8},
      {"QHNY", 25, 25, 1, 100},
      {"QHN2", 26, 26, 0, 100},
      {"QHN3", 26, 26, 0, 100},
      {"QHN4", 26, 26, 0, 100},
      {"QHNY2", 26, 26, 0.1, 100},
      {"QHN", 27, 28, 0, 200},
      {"QHN", 29, 30, 0, 7},
      {"QD", 22, 22, 0, 200},
      {"QD", 24, 24, 0, 200},
      {"QD", 26, 27, -25, 125},
      {"QD", 28, 28, 0, 10},
      {"QD", 29, 30, -25, 125},
      {"QHG", 21, 24, -29.999, 29.999},
      {"QHG", 25, 28, -299.99, 299.99},
      {"QHG", 29, 34, -25, 125},
      {"QH.", 21, 23, -29.999, 29.999},
      {"QH.", 24, 26, -299.99, 299.99},
      {"QH.", 27, 30, -25, 125},
      {"QEI", 13, 13, 0, 100},
      {"QEI", 18, 18, 1, 2},
      {"QCE2", 13, 13, 0, 100},
      {"QCE2", 18, 18, 1, 255},
      {"QIEU2", 13, 13, 0, 100},
      {"QIEU2", 18, 18, 1, 100},
      {"QICE2", 13, 13, 0, 100},
      {"QICE2", 18, 18, 1, 100},
      {"QCB2", 31, 31, 1, 99999999},
      {"QCB2", 32, 32, 0, 99999999},
      {"QEB2", 15, 15, 1, 100000},
      {"QEB2", 31, 31, 1, 10000},
      {"QNA2", 22, 22, -15, 115},
      {"QNA2", 24, 24, 0, 999},
      {"QNA2", 26, 26, 0, 10},
      {"QNA2", 28, 28, -15, 115},
      {"QNA2", 30, 30, 0, 999},
      {"QEC2", 6, 6, 0, 100000},
      {"QEC2", 7, 7, 0, 115},
      {"QEC2", 9, 9, 0, 99999999},
      {"QEC2", 31, 31, 1, 10000},
      {"QEY3", 7, 7, 0, 100000},
      {"QEY3", 9, 9, 0, 115},
      {"QEY3", 31, 31, 1, 10000},
      {"QHC2", 14, 15, 0, 150000},
      {"QHC2", 31, 31, -29.999, 29.999},
      {"QHC2", 32, 32, -299.99, 299.99},
  };
  for (const auto& range : ranges) {
    if (!GetParam().definition_file.starts_with(range.models)) {
      continue;
    }
    for (int item = range.first; item <= range.last; ++item) {
      const auto number = Number((item < 10 ? "0" : "") + std::to_string(item));
      if (number) {
        EXPECT_GE(*number, range.low) << item;
        EXPECT_LE(*number, range.high) << item;
      }
    }
  }
  const bool scale = device_.GetFamily().fine_trims.empty();  // else they trim an output
  if (scale && Number("19") && Number("20")) {
    EXPECT_GT(*Number("20"), *Number("19"));
  }
}

TEST_P(ModelsTest, SpansAreTheRatedOnesOfTheirFrequencyRange) {
  for (const char* const list : {"$I11QEI", "$I11QIE", "$I11QHC2"}) {
    const auto* const range = RowOf(list, device_.Value("01", "11"));
    if (range != nullptr) {
      EXPECT_EQ(device_.Value("01", "15"), Field(*range, 3));
    }
  }
}

TEST_P(ModelsTest, TimesAreOnTheirGrid) {
  for (const auto& row : definition_.Rows("$Data")) {
    if (Field(row, 15) == "msec") {
      const auto value = device_.Value("01", Field(row, 1));
      ASSERT_TRUE(value.ends_with(" msec")) << Field(row, 1) << ": " << value;
      EXPECT_TRUE(value.ends_with("0 msec") || value.ends_with("5 msec")) << Field(row, 1) << ": " << value;
      EXPECT_GT(std::stoi(value), 0) << Field(row, 1);
    }
  }
}

TEST_P(ModelsTest, LiveValuesAreNumbersBetweenTheirHeadAndTheirUnit) {
  for (const auto& row : definition_.Rows("$Data")) {
    const bool setting = Field(row, 1) == "00" || !device_.InForce(Field(row, 1)).empty();
    if (Field(row, 4) == "Y" || Field(row, 0) != "01" || setting) {
      continue;
    }
    const auto value = ReportedValue(row);
    const auto number = value.find_first_of("-0123456789.");
    ASSERT_NE(number, std::string::npos) << Field(row, 1) << ": " << value;
    const auto end = value.find(' ', number);
    EXPECT_TRUE(ParseNumber(std::string_view(value).substr(number, end - number)))
        << Field(row, 1) << ": " << value;
  }
}

std::string ModelName(const testing::TestParamInfo<Model>& model) {
  return std::to_string(model.index) + "_" + model.param.name;
}

INSTANTIATE_TEST_SUITE_P(Catalogue, ModelsTest, testing::ValuesIn(ReadCatalogue(kHome)), ModelName);

}  // namespace
}  // namespace korva::sim
