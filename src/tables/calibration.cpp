#include "tables/calibration.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "tables/memory_map.h"

namespace korva {

namespace {

/// A value of the calibration: where each type's one lies, and the place of the active one.
struct BankRow {
  int width;  ///< bytes
  std::array<int, 3> sources;
  int active;
};
/// The difference of two neighbouring values, which the device wants beside them.
struct BankDifference {
  int width;
  std::size_t first;  ///< row of the value from which the next row's is taken
  int active;
};
struct Bank {
  std::span<const BankRow> rows;
  std::span<const BankDifference> differences;
};

constexpr std::array<BankRow, 6> kAdcRows = {{
    {.width = 2, .sources = {237, 253, 269}, .active = 193},
    {.width = 2, .sources = {239, 255, 271}, .active = 195},
    {.width = 3, .sources = {241, 257, 273}, .active = 197},
    {.width = 3, .sources = {244, 260, 276}, .active = 200},
    {.width = 3, .sources = {247, 263, 279}, .active = 206},
    {.width = 3, .sources = {250, 266, 282}, .active = 209},
}};
constexpr std::array<BankDifference, 2> kAdcDifferences = {{
    {.width = 3, .first = 2, .active = 203},
    {.width = 3, .first = 4, .active = 212},
}};
constexpr std::array<BankRow, 6> kOutputRowsA = {{
    {.width = 2, .sources = {373, 389, 405}, .active = 349},
    {.width = 2, .sources = {375, 391, 407}, .active = 351},
    {.width = 3, .sources = {377, 393, 409}, .active = 355},
    {.width = 3, .sources = {380, 396, 412}, .active = 358},
    {.width = 3, .sources = {383, 399, 415}, .active = 364},
    {.width = 3, .sources = {386, 402, 418}, .active = 367},
}};
constexpr std::array<BankDifference, 3> kOutputDifferencesA = {{
    {.width = 2, .first = 0, .active = 353},
    {.width = 3, .first = 2, .active = 361},
    {.width = 3, .first = 4, .active = 370},
}};
constexpr std::array<BankRow, 6> kOutputRowsB = {{
    {.width = 2, .sources = {440, 456, 472}, .active = 416},
    {.width = 2, .sources = {442, 458, 474}, .active = 418},
    {.width = 3, .sources = {444, 460, 476}, .active = 422},
    {.width = 3, .sources = {447, 463, 479}, .active = 425},
    {.width = 3, .sources = {450, 466, 482}, .active = 431},
    {.width = 3, .sources = {453, 469, 485}, .active = 434},
}};
constexpr std::array<BankDifference, 3> kOutputDifferencesB = {{
    {.width = 2, .first = 0, .active = 420},
    {.width = 3, .first = 2, .active = 428},
    {.width = 3, .first = 4, .active = 437},
}};

constexpr Bank kAdcBank = {.rows = kAdcRows, .differences = kAdcDifferences};
constexpr Bank kOutputBankA = {.rows = kOutputRowsA, .differences = kOutputDifferencesA};
constexpr Bank kOutputBankB = {.rows = kOutputRowsB, .differences = kOutputDifferencesB};

/// Copies one row; its value, or nothing when that failed.
std::optional<std::int32_t> CopyRow(Eeprom& eeprom, const BankRow& row, std::size_t type) {
  const Eeprom::Value value = eeprom.EepReadValue(row.sources.at(type), row.width);
  if (eeprom.Failed()) {
    return std::nullopt;
  }
  const std::int32_t number = std::get<std::int32_t>(value);
  return StoreNumber(eeprom, row.active, row.width, number) ? std::optional(number) : std::nullopt;
}

bool CopyBank(Eeprom& eeprom, const Bank& bank, int type) {
  if (type < 0 || type >= static_cast<int>(bank.rows.front().sources.size())) {
    return false;
  }
  std::vector<std::int32_t> values;
  for (const BankRow& row : bank.rows) {
    const std::optional<std::int32_t> value = CopyRow(eeprom, row, static_cast<std::size_t>(type));
    if (!value) {
      return false;
    }
    values.push_back(*value);
  }
  return std::all_of(bank.differences.begin(), bank.differences.end(), [&](const BankDifference& difference) {
    return StoreNumber(eeprom, difference.active, difference.width,
                       values.at(difference.first) - values.at(difference.first + 1));
  });
}

}  // namespace

bool StoreNumber(Eeprom& eeprom, int address, int size, std::int32_t value) {
  const String stored = eeprom.EepWriteNumber(address, size, value);
  return !eeprom.Failed() && stored == Ascii(std::to_string(HexToNumber(ToHexField(value, size))));
}

bool StoreText(Eeprom& eeprom, const CodePage& code_page, int address, const String& text) {
  const std::optional<std::string> bytes = code_page.Encode(text);
  if (!bytes || bytes->size() > memory::kTextSize) {
    return false;
  }
  const String padded = text + String(memory::kTextSize - bytes->size(), u' ');
  return eeprom.EepWriteString(address, memory::kTextSize, padded) == padded && !eeprom.Failed();
}

bool CopyAdcBank(Eeprom& eeprom, int type) { return CopyBank(eeprom, kAdcBank, type); }

bool CopyOutputBank(Eeprom& eeprom, OutputLayout layout, int type) {
  return CopyBank(eeprom, layout == OutputLayout::A ? kOutputBankA : kOutputBankB, type);
}

}  // namespace korva
