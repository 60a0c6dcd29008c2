#pragma once

#include <map>
#include <span>
#include <string_view>
#include <vector>

#include "core/boxes.h"
#include "core/family.h"
#include "core/line_reader.h"

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

/// What a column of $Data is for. Up to kUnitLabel the number is the column in every family, behind it the
/// column in families First and Third; other families have some of these elsewhere, or not at all
/// (Definition::Cell).
enum DataColumn : int {
  kGroup = 0,        ///< as sent on the wire
  kItem = 1,         ///< as sent on the wire, or a tag such as 03_set
  kNumberLabel = 2,  ///< index of lbl_Item
  kNumberCaption = 3,
  kUploaded = 4,  ///< Y: read at upload
  kOnPage = 5,    ///< Y: takes part in the page
  kLabel = 6,     ///< index of Label
  kCaption = 7,   ///< Japanese; 8 is the English one
  kTextIndex = 9,
  kComboIndex = 10,
  kChoiceKey = 11,  ///< the list of the combo box or option group
  kFrameIndex = 12,
  kUnitLabel = 13,       ///< index of lbl_unit
  kUnitText = 14,        ///< $in: the unit of the temperature option
  kUnitKey = 15,         ///< the section whose choice brings the unit
  kTemperature = 16,     ///< Item21: a temperature, which follows the unit option
  kLastOption = 17,      ///< last index of the option group
  kDefaultOption = 18,   ///< index of the option button of a new set
  kChangeRule = 19,      ///< Y: fixed
  kWriteCondition = 20,  ///< when the item is written
  kReplyPrefix = 22,
  kWritePosition = 23,  ///< place in the order of writing, 0 to 20
  // Of other families only.
  kUnitBox,    ///< index of the box from which the value's unit is chosen
  kItemTitle,  ///< the item's title on the device's display
};
inline constexpr int kDataColumns = kItemTitle + 1;

enum class SectionKind { Table, List, Block };

/// One section of a family's definition files: a table of rows; a list, which is one row; or a block of
/// further sections ($I11 with the list $I11Title and the table $I11Body), which name it as theirs.
struct SectionShape {
  StringView key;
  int rows = 1;
  int columns = 0;
  SectionKind kind = SectionKind::Table;
  StringView block = {};  ///< the block in which the section stands; empty: in none
};

/// The sections that a family's definition files may hold.
std::span<const SectionShape> SectionsOf(const Family& family);

/// What is known of one model: the tables of its definition file. A section that the file lacks is empty.
class Definition {
 public:
  explicit Definition(const Family& family);
  /// The table of a key of the family ("$Data", "$I10", "$I11Title", "$I11Body", "$SSTab"). Any other key is
  /// a fault of the program and ends it.
  [[nodiscard]] StringTable& operator[](StringView key);
  [[nodiscard]] const StringTable& operator[](StringView key) const;
  [[nodiscard]] const StringTable& Data() const { return (*this)[u"$Data"]; }
  /// Cell of a row of $Data, where the family has that column; empty in a family without it.
  [[nodiscard]] const String& Cell(int row, DataColumn column) const;
  /// True when the family's definitions have this column.
  [[nodiscard]] bool HasColumn(DataColumn column) const { return ColumnOf(column) >= 0; }
  [[nodiscard]] const Family& ItsFamily() const { return family_; }
  /// True when the family's definitions may have this section.
  [[nodiscard]] bool Has(StringView key) const { return tables_.contains(key); }
  /// Empties every cell of every table.
  void ClearDefTables();

 private:
  [[nodiscard]] int ColumnOf(DataColumn column) const;

  const Family& family_;
  std::map<StringView, StringTable> tables_;
};

/// Name of the file that defines a model: the catalogue's, or the one file of a family that has only one.
String DefFileName(const Family& family, const String& def_file);

/// Path of a definition file below the program's folder.
String DefFilePath(const String& app_path, const Family& family, const String& def_file, char16_t separator);

/// Reads the file into the tables, which are cleared first. A line that is no key of the family shows its box
/// and leaves what was read so far; a missing file, one without any key, or one cut off inside a table ends
/// the program.
void ReadDefFile(LineReader& lines, const Boxes& boxes, const String& path, Definition& definition);

}  // namespace korva
