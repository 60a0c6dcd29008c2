#include "sim/definition.h"

#include <fstream>
#include <iterator>

#include "sim/family.h"

namespace korva::sim {

namespace {

/// Drops blanks, TABs, double quotes and the line end around a text. None of these bytes is ever the second
/// byte of a character in code page 932, so the text may stay as bytes.
std::string_view TrimmedField(std::string_view text) {
  constexpr std::string_view dropped = " \t\"\r\n";
  const auto begin = text.find_first_not_of(dropped);
  if (begin == std::string_view::npos) {
    return {};
  }
  return text.substr(begin, text.find_last_not_of(dropped) - begin + 1);
}

std::vector<std::string> SplitFields(std::string_view line) {
  std::vector<std::string> fields;
  while (true) {
    const auto comma = line.find(',');
    fields.emplace_back(TrimmedField(line.substr(0, comma)));
    if (comma == std::string_view::npos) {
      return fields;
    }
    line.remove_prefix(comma + 1);
  }
}

/// Takes the next line off the text, trimmed.
std::string_view NextLine(std::string_view& text) {
  const auto end = text.find('\n');
  const auto line = TrimmedField(text.substr(0, end));
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return line;
}

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw SetupError("can't read " + path.string());
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

void Definition::Join(std::string_view key, std::string_view keys) {
  std::vector<Row> joined = Rows(key);
  while (!keys.empty()) {
    const auto blank = std::min(keys.find(' '), keys.size());
    const auto& rows = Rows(keys.substr(0, blank));
    joined.insert(joined.end(), rows.begin(), rows.end());
    keys.remove_prefix(std::min(blank + 1, keys.size()));
  }
  sections_[std::string(key)] = std::move(joined);
}

const std::string& Field(const Definition::Row& row, std::size_t column) {
  static const std::string empty;
  return column < row.size() ? row[column] : empty;
}

std::vector<Model> ReadCatalogue(const std::filesystem::path& home) {
  const auto path = home / "system" / "MdlVTRMFx.jpn";
  const std::string whole = ReadWhole(path);
  std::string_view rest = whole;
  while (!rest.empty() && NextLine(rest) != "$Type") {
  }
  if (rest.empty()) {
    throw SetupError(path.string() + " has no models behind a line $Type");
  }
  std::vector<Model> models;
  while (!rest.empty()) {
    const auto line = NextLine(rest);
    if (line == "$End") {
      break;
    }
    const auto fields = SplitFields(line);
    if (!fields[0].empty()) {
      models.push_back(
          {.name = fields[0], .definition_file = Field(fields, 1), .family_word = Field(fields, 2)});
    }
  }
  return models;
}

Definition Definition::Parse(std::string_view text) {
  Definition definition;
  std::vector<Row>* section = nullptr;
  while (!text.empty()) {
    const auto line = NextLine(text);
    if (line == "$End") {
      break;
    }
    if (line.starts_with('$')) {
      section = &definition.sections_[std::string(line)];
    } else if (section != nullptr) {
      section->push_back(SplitFields(line));
    }
  }
  if (definition.Rows("$Data").empty()) {
    throw SetupError("the definition has no rows behind a line $Data");
  }
  return definition;
}

Definition Definition::Read(const std::filesystem::path& home, const Model& model) {
  const Family* const family = FindFamily(model.family_word);
  if (family == nullptr) {
    throw SetupError("model " + model.name + " has the unknown family word \"" + model.family_word + "\"");
  }
  const auto path = home / "system" / family->folder / model.definition_file;
  try {
    return Parse(ReadWhole(path));
  } catch (const SetupError& error) {
    throw SetupError("model " + model.name + ", " + path.string() + ": " + error.what());
  }
}

const std::vector<Definition::Row>& Definition::Rows(std::string_view key) const {
  static const std::vector<Row> none;
  const auto found = sections_.find(key);
  return found == sections_.end() ? none : found->second;
}

}  // namespace korva::sim
