#include "linearizer/csv_file.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr std::size_t kComparedLetters = 3;
constexpr StringView kTwoDecimals = u"0.00";
constexpr StringView kLineEnd = u"\r\n";
constexpr char16_t kNoCharacter = u'\uFFFD';

/// A record ahead of the points.
struct HeadWord {
  StringView word;
  std::optional<String> CsvHeads::*head;
};
/// In the order in which a file has them.
constexpr std::array kHeadWords = {
    HeadWord{.word = u"Base", .head = &CsvHeads::base}, HeadWord{.word = u"Step", .head = &CsvHeads::step},
    HeadWord{.word = u"Size", .head = &CsvHeads::size}, HeadWord{.word = u"Range", .head = &CsvHeads::range}};

/// What the record tells ahead of the points; nullptr for a point.
const HeadWord* HeadOf(const CsvPoint& record, SizeRecords rule) {
  const auto* const found = std::find_if(kHeadWords.begin(), kHeadWords.end(), [&](const HeadWord& head) {
    return record.x.starts_with(head.word.substr(0, kComparedLetters));
  });
  const bool taken =
      found != kHeadWords.end() && (rule == SizeRecords::TakeAllHeads || found->head == &CsvHeads::size);
  return taken ? found : nullptr;
}

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

void PassHeads(Records& records, SizeRecords rule, CsvHeads& heads) {
  auto record = records.Next();
  for (const HeadWord* head = nullptr; record && (head = HeadOf(*record, rule)) != nullptr;) {
    if (rule == SizeRecords::SkipOne) {
      return;
    }
    heads.*head->head = record->y;
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
    PassHeads(records, reader.size_records, table.heads);
  }
  while (static_cast<int>(table.points.size()) < limit) {
    auto record = records.Next();
    const bool first = table.points.empty();
    // What comes behind the size is a point whatever it holds.
    const bool certain = first && reader.size_records >= SizeRecords::TakeAll;
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

int CsvPoints(const Grid& grid, int limit) {
  int points = 0;
  while (points < limit && points + 1 < grid.Rows() && !grid.At(points + 1, 1).text.empty()) {
    ++points;
  }
  return points;
}

String CsvText(const Grid& grid, int limit, bool writes_size) {
  const String size = Ascii(std::to_string(CsvPoints(grid, limit)));
  return CsvText(grid, limit, CsvHeads{.size = writes_size ? std::optional(size) : std::nullopt});
}

String CsvText(const Grid& grid, int limit, const CsvHeads& heads) {
  String text;
  for (const HeadWord& head : kHeadWords) {
    if (const std::optional<String>& value = heads.*head.head) {
      text.append(head.word).append(u", ").append(*value).append(u" ").append(kLineEnd);
    }
  }
  for (int row = 1; row <= CsvPoints(grid, limit); ++row) {
    text.append(grid.At(row, 1).text);
    for (int column = 2; column < grid.Columns(); ++column) {
      text.append(u",").append(grid.At(row, column).text);
    }
    text.append(kLineEnd);
  }
  return text;
}

}  // namespace korva
