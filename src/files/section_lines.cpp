#include "files/section_lines.h"

#include "core/numbers.h"

namespace korva {

std::optional<String> NextLineOfSection(LineReader& lines, int handle) {
  if (lines.AtEnd(handle)) {
    return std::nullopt;
  }
  String line = lines.ReadLine(handle);
  if (IsKeyLine(line)) {
    lines.UnreadLine(line);
    return std::nullopt;
  }
  return line;
}

std::optional<SectionRecord> NextRecord(LineReader& lines, int handle) {
  const std::optional<String> line = NextLineOfSection(lines, handle);
  if (!line) {
    return std::nullopt;
  }
  SectionRecord record;
  int position = lines.NextField(1, *line);
  record.group = LeadingInteger(lines.Field());
  position = lines.NextField(position, *line);
  record.item = LeadingInteger(lines.Field());
  position = lines.NextField(position, *line);
  record.text = lines.Field();
  record.whole = position == -1;
  return record;
}

}  // namespace korva
