#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "core/line_reader.h"
#include "platform/string.h"

namespace korva {

/// The catalogue of device models: name as listed, definition file, family word. Rows that the file doesn't
/// fill are empty texts.
struct ModelTable {
  static constexpr int kRows = 69;
  static constexpr int kColumns = 3;
  enum Column : int { kName = 0, kDefFile = 1, kFamily = 2 };

  /// The cell of `row` (0 to 68) and `column` (0 to 2).
  [[nodiscard]] const String& At(int row, int column) const {
    return cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
  }

  std::array<std::array<String, kColumns>, kRows> cells;
};

/// Reads the catalogue file: one model a line between "$Type" and "$End". Rows beyond the table are not read.
/// A missing file, and one that ends before "$End" or the last row, throws RuntimeFailure.
void ReadModelCatalogue(LineReader& lines, const String& path, ModelTable& models);

/// Family word of row `index`; empty when the index is outside the table.
String FamilyOfRow(const ModelTable& models, int index);

/// First row with exactly this model name. An empty name finds the first empty row.
std::optional<int> FindModelByName(const ModelTable& models, StringView name);

/// First of the rows 1 to 68 with exactly this definition file; 0 when there is none. Row 0 is left out
/// because the result 0 stands for "no model": the model of row 0 can't be told from one that is not in the
/// catalogue.
int FindModelByDefFile(const ModelTable& models, StringView def_file);

}  // namespace korva
