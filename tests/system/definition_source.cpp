#include "definition_source.h"

#include <iconv.h>

#include <algorithm>
#include <fstream>
#include <optional>

namespace {

std::vector<std::string> Split(std::string_view line) {
  std::vector<std::string> fields;
  while (true) {
    const auto comma = line.find(',');
    fields.push_back(Trimmed(line.substr(0, comma)));
    if (comma == std::string_view::npos) {
      return fields;
    }
    line.remove_prefix(comma + 1);
  }
}

std::optional<std::string> Convert(std::string_view text, const char* to, const char* from) {
  iconv_t converter = iconv_open(to, from);
  std::string in(text);
  std::string out((4 * text.size()) + 4, '\0');
  char* in_at = in.data();
  char* out_at = out.data();
  std::size_t in_left = in.size();
  std::size_t out_left = out.size();
  const auto irreversible = iconv(converter, &in_at, &in_left, &out_at, &out_left);
  iconv_close(converter);
  if (irreversible != 0) {
    return std::nullopt;
  }
  out.resize(out.size() - out_left);
  return out;
}

}  // namespace

const std::string& SourceRow::operator[](std::size_t column) const {
  static const std::string empty;
  return column < fields.size() ? fields[column] : empty;
}

const SourceSection* Source::Find(std::string_view key) const {
  const auto found = std::ranges::find(sections, key, &SourceSection::key);
  return found == sections.end() ? nullptr : &*found;
}

const std::vector<SourceRow>& Source::Rows(std::string_view key) const {
  static const std::vector<SourceRow> none;
  const auto* const section = Find(key);
  return section == nullptr ? none : section->rows;
}

std::string Trimmed(std::string_view text) {
  constexpr std::string_view dropped = " \t\"";
  const auto begin = text.find_first_not_of(dropped);
  if (begin == std::string_view::npos) {
    return {};
  }
  return std::string(text.substr(begin, text.find_last_not_of(dropped) - begin + 1));
}

Source ReadSource(const std::string& path) {
  Source source;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    source.lines.push_back(line);
    const auto trimmed = Trimmed(line);
    const int number = static_cast<int>(source.lines.size());
    if (trimmed.starts_with('$')) {
      source.sections.push_back({.key = trimmed, .line = number, .rows = {}});
    } else if (!source.sections.empty()) {
      source.sections.back().rows.push_back({.line = number, .fields = Split(trimmed)});
    }
  }
  return source;
}

bool SurvivesCodePage(std::string_view text) {
  const auto encoded = Convert(text, "CP932", "UTF-8");
  return encoded && Convert(*encoded, "UTF-8", "CP932") == std::string(text);
}
