#pragma once

#include <string>
#include <string_view>
#include <vector>

// Reads the sources of system/ as they are written, in UTF-8, without any of the program's own readers.

/// One line of fields, less the blanks, TABs and double quotes around each.
struct SourceRow {
  int line = 0;  ///< from 1
  std::vector<std::string> fields;

  /// The field, or an empty text where the line is shorter.
  const std::string& operator[](std::size_t column) const;
};

/// A key line and the rows up to the next one.
struct SourceSection {
  std::string key;
  int line = 0;
  std::vector<SourceRow> rows;
};

/// A text of system/: free text, then sections.
struct Source {
  std::vector<std::string> lines;
  std::vector<SourceSection> sections;

  /// The section, or null when the text has none of this key.
  const SourceSection* Find(std::string_view key) const;
  /// Its rows; none without the section.
  const std::vector<SourceRow>& Rows(std::string_view key) const;
};

/// Drops blanks, TABs and double quotes at both ends.
std::string Trimmed(std::string_view text);

/// The text of a file below system/; without lines when it can't be read.
Source ReadSource(const std::string& path);

/// Whether the text comes back the same from code page 932.
bool SurvivesCodePage(std::string_view text);
