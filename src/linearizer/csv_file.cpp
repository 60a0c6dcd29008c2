#include "linearizer/csv_file.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kSizeWord = u"Siz";
constexpr StringView kTwoDecimals = u"0.00";
constexpr StringView kLineEnd = u"\r\n";
constexpr char16_t kNoCharacter = u'\uFFFD';

bool IsSize(const CsvPoint& record) { return record.x.starts_with(kSizeWord); }

bool IsText(const String& line) {
  return std::none_of(line.begin(), line.end(),
                      [](char16_t character) { return character == 0 || character == kNoCharacter; });
}

String WithTwoDecimals(const String& text) {
  return IsNumeric(text) ? FormatMask(LeadingNumber(text), kTwoDecimals) : text;
}

/// The records of an open file, one a line.
class Records {
 public:
  Records(LineReader& lines, int handle) : lines_(lines), handle_(handle) {}

  /// The next record; nothing at the end of the file, and at a line that is no text.
  std::optional<CsvPoint> Next() {
    if (held_) {
      return std::exchange(held_, std::nullopt);
    }
    if (lines_.AtEnd(handle_)) {
      return std::nullopt;
    }
    const String line = lines_.ReadLine(handle_);
    if (!IsText(line)) {
      no_text_ = true;
      return std::nullopt;
    }
    CsvPoint record;
    const int second = lines_.NextField(1, line);
    record.x = lines_.Field();
    lines_.NextField(second, line);
    record.y = lines_.Field();
    return record;
  }
  /// Makes the record the next one again.
  void Hold(const CsvPoint& record) { held_ = record; }
  [[nodiscard]] bool NoText() const { return no_text_; }

 private:
  LineReader& lines_;
  int handle_;
  std::optional<CsvPoint> held_;
  bool no_text_ = false;
};

void PassSizeRecords(Records& records, SizeRecords rule, CsvTable& table) {
  auto record = records.Next();
  while (record && IsSize(*record)) {
    if (rule == SizeRecords::SkipOne) {
      return;
    }
    table.size = record->y;
    record = records.Next();
  }
  if (record) {
    records.Hold(*record);
  }
}

}  // namespace

std::optional<CsvTable> ReadCsv(LineReader& lines, int handle, const CsvReader& reader, int limit) {
  Records records(lines, handle);
  CsvTable table;
  if (reader.size_records != SizeRecords::ArePoints) {
    PassSizeRecords(records, reader.size_records, table);
  }
  while (static_cast<int>(table.points.size()) < limit) {
    auto record = records.Next();
    const bool first = table.points.empty();
    // What comes behind the size is a point whatever it holds.
    const bool certain = first && reader.size_records == SizeRecords::TakeAll;
    if (!record || (reader.ends_at_blank && !certain && record->x.empty())) {
      break;
    }
    if (reader.passes_over_text && !IsNumeric(record->x)) {
      continue;
    }
    if (reader.two_decimals && !first) {
      record = CsvPoint{.x = WithTwoDecimals(record->x), .y = WithTwoDecimals(record->y)};
    }
    table.points.push_back(*record);
  }
  return records.NoText() ? std::nullopt : std::optional(table);
}

String CsvText(const Grid& grid, int limit, bool writes_size) {
  String text;
  int points = 0;
  for (int row = 1; row <= limit && row < grid.Rows() && !grid.At(row, 1).text.empty(); ++row) {
    text.append(grid.At(row, 1).text).append(u",").append(grid.At(row, 2).text).append(kLineEnd);
    ++points;
  }
  const String size = u"Size, " + Ascii(std::to_string(points)) + u" " + String(kLineEnd);
  return writes_size ? size + text : text;
}

}  // namespace korva
