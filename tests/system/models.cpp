#include "models.h"

#include <ostream>

#include "family_facts.h"

void PrintTo(const Model& model, std::ostream* out) { *out << model.name; }

const std::string& SystemFolder() {
  static const std::string folder = KORVA_SYSTEM_SOURCES;
  return folder;
}

Source Catalogue() { return ReadSource(SystemFolder() + "/MdlVTRMFx.jpn"); }

std::vector<Model> Models() {
  std::vector<Model> models;
  const auto catalogue = Catalogue();
  for (const auto& row : catalogue.Rows("$Type")) {
    models.push_back({.line = row.line, .name = row[0], .definition = row[1], .family = row[2]});
  }
  return models;
}

std::string PathOf(const Model& model) {
  const auto family = Families().find(model.family);
  return family == Families().end()
             ? std::string{}
             : SystemFolder() + "/" + std::string(family->second.folder) + "/" + model.definition;
}
