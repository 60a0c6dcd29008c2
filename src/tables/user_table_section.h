#pragma once

#include <vector>

#include "core/line_reader.h"
#include "core/page_part.h"
#include "linearizer/lnr_table.h"
#include "tables/user_table_fields.h"

namespace korva {

/// The key of the section.
inline constexpr StringView kTableKey = u"$Table";

/// A user's table as a configuration file has it: what belongs to it, and the texts of its cells by their
/// place, X before Y.
struct SavedTable {
  UserTableFields::Texts fields;
  std::vector<std::pair<int, String>> cells;
};

/// The section, with its key line and line ends: what is not empty of `fields`, then of the cells of `table`;
/// nullptr for none.
String TableSection(const UserTableFields::Texts& fields, const LnrTable* table);

/// Reads the records of the section from the file open under `handle` into `saved`; the next key line is
/// pushed back. Records of any other group or place are passed over.
SectionRead ReadTableSection(LineReader& lines, int handle, SavedTable& saved);

/// Puts the cells into their places of the table, which is emptied first; those outside it are passed over.
void TakeCells(const std::vector<std::pair<int, String>>& cells, LnrTable& table);

}  // namespace korva
