#pragma once

#include <optional>

#include "core/line_reader.h"

namespace korva {

// The sections of definition and configuration files: a key line, then the section's lines.

/// The key that ends a definition or configuration file.
inline constexpr StringView kEndKey = u"$End";

/// True for a line that begins a section.
inline bool IsKeyLine(StringView line) { return !line.empty() && line.front() == u'$'; }

/// The next line of a section of the file open under `handle`; nothing at the section's end, which the next
/// key line is: that stays to be read.
std::optional<String> NextLineOfSection(LineReader& lines, int handle);

/// A record of a configuration file: the text of an item.
struct SectionRecord {
  int group = 0;
  int item = 0;
  String text;
  bool whole = true;  ///< false: the line has more fields than a record, so the text may have been cut
};

/// The next line of a section as a record; nothing at the section's end.
std::optional<SectionRecord> NextRecord(LineReader& lines, int handle);

}  // namespace korva
