#include "core/catalogue.h"

namespace korva {
namespace {

constexpr int kCatalogueHandle = 1;

}  // namespace

void ReadModelCatalogue(LineReader& lines, const String& path, ModelTable& models) {
  models = ModelTable();
  lines.OpenTextFile(path, kCatalogueHandle);
  while (lines.ReadLine(kCatalogueHandle) != u"$Type") {
  }
  for (auto& row : models.cells) {
    const String line = lines.ReadLine(kCatalogueHandle);
    if (line == u"$End") {
      break;
    }
    int position = 1;
    for (String& cell : row) {
      position = lines.NextField(position, line);
      cell = lines.Field();
      if (position == -1) {
        break;
      }
    }
  }
  lines.CloseTextFile(kCatalogueHandle);
}

String FamilyOfRow(const ModelTable& models, int index) {
  const bool in_table = index >= 0 && index < ModelTable::kRows;
  return in_table ? models.At(index, ModelTable::kFamily) : String();
}

std::optional<int> FindModelByName(const ModelTable& models, StringView name) {
  for (int row = 0; row < ModelTable::kRows; ++row) {
    if (models.At(row, ModelTable::kName) == name) {
      return row;
    }
  }
  return std::nullopt;
}

int FindModelByDefFile(const ModelTable& models, StringView def_file) {
  for (int row = 1; row < ModelTable::kRows; ++row) {
    if (models.At(row, ModelTable::kDefFile) == def_file) {
      return row;
    }
  }
  return 0;
}

}  // namespace korva
