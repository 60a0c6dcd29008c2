#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "definition_source.h"

// The catalogue's source, and where the definition of each of its models stands.

/// A row of the catalogue, with the line that it stands on.
struct Model {
  int line = 0;
  std::string name;
  std::string definition;
  std::string family;
};

void PrintTo(const Model& model, std::ostream* out);

/// Folder of the sources.
const std::string& SystemFolder();

/// The catalogue as it is written.
Source Catalogue();

/// Its rows in order.
std::vector<Model> Models();

/// Path of a model's definition, empty for a family that is not known.
std::string PathOf(const Model& model);
