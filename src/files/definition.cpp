#include "files/definition.h"

#include <algorithm>
#include <string>

#include "core/text_utilities.h"
#include "files/section_lines.h"
#include "platform/event_gate.h"

namespace korva {

namespace {

constexpr int kDefHandle = 3;
const String kEmptyCell;

/// Reads the sections of one definition file, which is open. Each reader ends with the next key line pushed
/// back, or at its table's last row.
class SectionReader {
 public:
  SectionReader(LineReader& lines, Definition& definition)
      : lines_(lines), definition_(definition), shapes_(definition.Form().sections) {}

  /// The section with this key that stands in `block`; nullptr when the family has none.
  [[nodiscard]] const SectionShape* Find(StringView key, StringView block = {}) const {
    const auto found = std::find_if(shapes_.begin(), shapes_.end(), [&](const SectionShape& shape) {
      return shape.key == key && shape.block == block;
    });
    return found == shapes_.end() ? nullptr : &*found;
  }

  void Read(const SectionShape& shape) {
    switch (shape.kind) {
      case SectionKind::Table:
        return ReadTable(definition_[shape.key]);
      case SectionKind::List:
        return ReadList(definition_[shape.key]);
      case SectionKind::Block:
        return ReadBlock(shape.key);
    }
  }

 private:
  // The end of the file is not looked for: a table that is not closed by a key line was cut off.
  void ReadTable(StringTable& table) {
    for (int row = 0; row < table.Rows(); ++row) {
      const String line = lines_.ReadLine(kDefHandle);
      if (IsKeyLine(line)) {
        lines_.UnreadLine(line);
        return;
      }
      TakeFields(line, table, row);
    }
  }

  void ReadList(StringTable& list) {
    do {
      const String line = lines_.ReadLine(kDefHandle);
      if (IsKeyLine(line)) {
        lines_.UnreadLine(line);
        return;
      }
      TakeFields(line, list, 0);
    } while (!lines_.AtEnd(kDefHandle));
  }

  void ReadBlock(StringView block) {
    do {
      const String line = lines_.ReadLine(kDefHandle);
      if (const SectionShape* shape = Find(line, block)) {
        Read(*shape);
      } else if (IsKeyLine(line)) {
        lines_.UnreadLine(line);
        return;
      }
    } while (!lines_.AtEnd(kDefHandle));
  }

  void TakeFields(const String& line, StringTable& table, int row) {
    int position = 1;
    for (int column = 0; column < table.Columns() && position != -1; ++column) {
      position = lines_.NextField(position, line);
      table.Set(row, column, lines_.Field());
    }
  }

  LineReader& lines_;
  Definition& definition_;
  std::span<const SectionShape> shapes_;
};

}  // namespace

StringTable::StringTable(int rows, int columns)
    : rows_(rows),
      columns_(columns),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)) {}

void StringTable::Clear() { std::fill(cells_.begin(), cells_.end(), String()); }

int StringTable::FindRow(int column, StringView text, int first) const {
  for (int row = first; row < rows_; ++row) {
    if (At(row, column) == text) {
      return row;
    }
  }
  return -1;
}

std::size_t StringTable::Place(int row, int column) const {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_) {
    throw RuntimeFailure(u"定義の表に無い場所です: " + Ascii(std::to_string(row)) + u"行 " +
                         Ascii(std::to_string(column)) + u"列");
  }
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) +
         static_cast<std::size_t>(column);
}

const String& ChoiceList::Cell(int row, ListColumn column) const {
  const String& code = table_->At(row, columns_.code);  // proves the row
  if (column == &ListColumns::code) {
    return code;
  }
  return Has(column) ? table_->At(row, columns_.*column) : kEmptyCell;
}

int ChoiceList::Find(ListColumn column, StringView text, int first) const {
  return Has(column) ? table_->FindRow(columns_.*column, text, first) : -1;
}

ChoiceList ChoiceList::UnderTitle(int title) const {
  if (title < 1 || title > columns_.titles) {
    throw RuntimeFailure(u"定義の表に無いタイトルです: " + Ascii(std::to_string(title)));
  }
  ListColumns columns = columns_;
  columns.text += title - 1;
  for (const ListColumn limit :
       {&ListColumns::low, &ListColumns::high, &ListColumns::preset_low, &ListColumns::preset_high}) {
    columns.*limit += Has(limit) ? 2 * (title - 1) : 0;
  }
  return {*table_, columns};
}

Definition::Definition(const Family& family, const DefinitionForm& form) : family_(family), form_(form) {
  for (const SectionShape& shape : form.sections) {
    if (shape.kind != SectionKind::Block) {
      tables_.emplace(shape.key, StringTable(shape.rows, shape.columns));
    }
  }
  data_ = &(*this)[u"$Data"];
}

StringTable& Definition::operator[](StringView key) {
  const auto found = tables_.find(key);
  if (found == tables_.end()) {
    throw RuntimeFailure(u"機種群 " + String(family_.word) + u" の定義に無い表です: " + String(key));
  }
  return found->second;
}

const StringTable& Definition::operator[](StringView key) const {
  return const_cast<Definition&>(*this)[key];  // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

const String& Definition::Cell(int row, DataColumn column) const {
  return HasColumn(column) ? Data().At(row, ColumnOf(column)) : kEmptyCell;
}

ChoiceList Definition::ListOf(StringView key) const {
  if (IsChosenList(key)) {
    static const StringTable no_rows;
    return chosen_.empty() ? ChoiceList(no_rows, ListColumns()) : ListOf(chosen_);
  }
  const auto shape = std::find_if(
      form_.sections.begin(), form_.sections.end(),
      [key](const SectionShape& one) { return one.key == key && one.kind != SectionKind::Block; });
  return {(*this)[key], shape == form_.sections.end() ? ListColumns() : shape->means};
}

void Definition::ClearDefTables() {
  for (auto& [key, table] : tables_) {
    table.Clear();
  }
  chosen_ = {};
}

String DefFileName(const DefinitionForm& form, const String& def_file) {
  return form.only_file.Has() ? String(form.only_file.Value()) : def_file;
}

String DefFilePath(const String& app_path, const Family& family, const DefinitionForm& form,
                   const String& def_file, char16_t separator) {
  String path = app_path;
  if (path.empty() || path.back() != separator) {
    path += separator;
  }
  path.append(u"system").append(1, separator).append(family.folder).append(1, separator);
  return path + DefFileName(form, def_file);
}

void ReadDefFile(LineReader& lines, const Boxes& boxes, const String& path, Definition& definition) {
  definition.ClearDefTables();
  lines.OpenTextFile(path, kDefHandle);
  String line = lines.ReadLine(kDefHandle);
  while (!IsKeyLine(line)) {
    line = lines.ReadLine(kDefHandle);
  }
  SectionReader reader(lines, definition);
  while (const SectionShape* shape = reader.Find(line)) {
    reader.Read(*shape);
    if (lines.AtEnd(kDefHandle)) {
      line = kEndKey;
      break;
    }
    line = lines.ReadLine(kDefHandle);
  }
  if (line != kEndKey) {
    boxes.Show(BoxKey::DefFormat);
  }
  lines.CloseTextFile(kDefHandle);
}

}  // namespace korva
