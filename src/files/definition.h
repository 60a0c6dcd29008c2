#pragma once

#include <map>
#include <vector>

#include "core/boxes.h"
#include "core/family.h"
#include "core/line_reader.h"
#include "files/definition_form.h"

namespace korva {

/// A table of texts of a fixed size, as the definition files fill it.
class StringTable {
 public:
  StringTable() = default;
  StringTable(int rows, int columns);
  [[nodiscard]] int Rows() const { return rows_; }
  [[nodiscard]] int Columns() const { return columns_; }
  /// The cell; a place outside the table ends the program with a text that names it.
  [[nodiscard]] const String& At(int row, int column) const { return cells_[Place(row, column)]; }
  void Set(int row, int column, const String& text) { cells_[Place(row, column)] = text; }
  /// Empties every cell.
  void Clear();
  /// First row from `first` on whose `column` equals `text`; -1 when none does.
  [[nodiscard]] int FindRow(int column, StringView text, int first = 0) const;

 private:
  [[nodiscard]] std::size_t Place(int row, int column) const;

  int rows_ = 0;
  int columns_ = 0;
  std::vector<String> cells_;
};

/// A list of choices, read by what its columns hold. Shows the table of a definition, which outlives it. A
/// row outside the table ends the program, as it does there.
class ChoiceList {
 public:
  ChoiceList(const StringTable& table, const ListColumns& columns) : table_(&table), columns_(columns) {}

  [[nodiscard]] int Rows() const { return table_->Rows(); }
  /// True when the list has such a column.
  [[nodiscard]] bool Has(ListColumn column) const { return columns_.*column >= 0; }
  /// The cell; empty when the list has no such column.
  [[nodiscard]] const String& Cell(int row, ListColumn column) const;
  [[nodiscard]] const String& Code(int row) const { return Cell(row, &ListColumns::code); }
  [[nodiscard]] const String& Text(int row) const { return Cell(row, &ListColumns::text); }
  /// True when the device can be set to the choice from here: the column says Y.
  [[nodiscard]] bool Settable(int row) const { return Cell(row, &ListColumns::settable) == u"Y"; }
  /// First row from `first` on with this text or code; -1 when there is none.
  [[nodiscard]] int FindText(StringView text, int first = 0) const {
    return Find(&ListColumns::text, text, first);
  }
  [[nodiscard]] int FindCode(StringView code, int first = 0) const {
    return Find(&ListColumns::code, code, first);
  }
  /// The same for any column; -1 also when the list has no such column.
  [[nodiscard]] int Find(ListColumn column, StringView text, int first = 0) const;
  /// Titles under which the list has texts and limits of their own, 1 or more.
  [[nodiscard]] int Titles() const { return columns_.titles; }
  /// The list under a title, from 1: its texts and limits stand in columns of their own. A title that the
  /// list has not ends the program.
  [[nodiscard]] ChoiceList UnderTitle(int title) const;

 private:
  const StringTable* table_;
  ListColumns columns_;
};

/// What is known of one model: the tables of its definition file. A section that the file lacks is empty.
class Definition {
 public:
  /// Both outlive the definition.
  Definition(const Family& family, const DefinitionForm& form);
  Definition(const Definition&) = delete;
  Definition& operator=(const Definition&) = delete;
  ~Definition() = default;
  /// The table of a key of the family ("$Data", "$I10", "$I11Title", "$I11Body", "$SSTab"). Any other key is
  /// a fault of the program and ends it.
  [[nodiscard]] StringTable& operator[](StringView key);
  [[nodiscard]] const StringTable& operator[](StringView key) const;
  [[nodiscard]] const StringTable& Data() const { return *data_; }
  /// Cell of a row of $Data, where the family has that column; empty in a family without it.
  [[nodiscard]] const String& Cell(int row, DataColumn column) const;
  /// First row of $Data from `first` on whose `column`, which the family has, equals `text`; -1 when none
  /// does.
  [[nodiscard]] int FindRow(DataColumn column, StringView text, int first = 0) const {
    return Data().FindRow(ColumnOf(column), text, first);
  }
  /// Number of the column in the family's $Data; -1 when it has none.
  [[nodiscard]] int ColumnOf(DataColumn column) const { return form_.layout.*column; }
  [[nodiscard]] bool HasColumn(DataColumn column) const { return ColumnOf(column) >= 0; }
  /// The list of choices of a key of the family ("$I10", "$I11Body"). Any other key is a fault of the program
  /// and ends it.
  [[nodiscard]] ChoiceList ListOf(StringView key) const;
  [[nodiscard]] const DefinitionForm& Form() const { return form_; }
  /// True when the family's definitions may have this section, or the key stands for one of its lists.
  [[nodiscard]] bool Has(StringView key) const { return tables_.contains(key) || IsChosenList(key); }
  /// Lets the form's chosen_list stand for the list of `key`; with an empty key it is a list without rows.
  void ChooseList(StringView key) { chosen_ = key; }
  [[nodiscard]] StringView ChosenList() const { return chosen_; }
  /// Empties every cell of every table; no list is chosen then.
  void ClearDefTables();

 private:
  [[nodiscard]] bool IsChosenList(StringView key) const { return !key.empty() && key == form_.chosen_list; }

  const Family& family_;
  const DefinitionForm& form_;
  StringView chosen_;  ///< key of the list that the form's chosen_list stands for
  std::map<StringView, StringTable> tables_;
  const StringTable* data_ = nullptr;  ///< the one of them that is asked most
};

/// Name of the file that defines a model: the catalogue's, or the one file of a family that has only one.
String DefFileName(const DefinitionForm& form, const String& def_file);

/// Path of a definition file below the program's folder.
String DefFilePath(const String& app_path, const Family& family, const DefinitionForm& form,
                   const String& def_file, char16_t separator);

/// Reads the file into the tables, which are cleared first. A line that is no key of the family shows its box
/// and leaves what was read so far; a missing file, one without any key, or one cut off inside a table ends
/// the program.
void ReadDefFile(LineReader& lines, const Boxes& boxes, const String& path, Definition& definition);

}  // namespace korva
