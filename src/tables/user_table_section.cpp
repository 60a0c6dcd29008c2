#include "tables/user_table_section.h"

#include <string>

#include "core/text_utilities.h"
#include "files/section_lines.h"

namespace korva {

namespace {

constexpr int kFieldGroup = 5;
constexpr int kCellGroup = 6;
constexpr StringView kRecordEnd = u"\r\n";

String Number(int number) { return Ascii(std::to_string(number)); }

String Record(int group, int place, const String& text) {
  return u"\"" + Number(group) + u"\",\"" + Number(place) + u"\",\"" + text + u"\"" + String(kRecordEnd);
}

String CellRecords(const LnrTable& table) {
  const int values = table.Columns() - 1;
  String records;
  for (int place = 0; place < values * table.Points(); ++place) {
    if (const String& text = table.Value(place / values + 1, place % values + 1); !text.empty()) {
      records += Record(kCellGroup, place, text);
    }
  }
  return records;
}

void TakeRecord(const SectionRecord& record, SavedTable& saved) {
  const int fields = static_cast<int>(saved.fields.size());
  if (record.group == kFieldGroup && record.item >= 0 && record.item < fields) {
    saved.fields.at(static_cast<std::size_t>(record.item)) = record.text;
  } else if (record.group == kCellGroup) {
    saved.cells.emplace_back(record.item, record.text);
  }
}

}  // namespace

String TableSection(const UserTableFields::Texts& fields, const LnrTable* table) {
  String section = String(kTableKey).append(kRecordEnd);
  int place = 0;
  for (const String& text : fields) {
    section += text.empty() ? String() : Record(kFieldGroup, place, text);
    ++place;
  }
  return table == nullptr ? section : section + CellRecords(*table);
}

SectionRead ReadTableSection(LineReader& lines, int handle, SavedTable& saved) {
  while (const std::optional<SectionRecord> record = NextRecord(lines, handle)) {
    TakeRecord(*record, saved);
    if (!record->whole) {
      return SectionRead::Faulty;
    }
  }
  return SectionRead::Whole;
}

void TakeCells(const std::vector<std::pair<int, String>>& cells, LnrTable& table) {
  const int values = table.Columns() - 1;
  table.Clear();
  for (const auto& [place, text] : cells) {
    if (place >= 0 && place < values * table.Points()) {
      table.Store(place / values + 1, place % values + 1, text);
    }
  }
}

}  // namespace korva
