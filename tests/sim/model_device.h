#pragma once

#include <filesystem>
#include <string>

#include "sample.h"

// Devices of the models that the catalogue has.

namespace korva::sim {

/// The project: the texts of its system folder lie there as they are.
inline const std::filesystem::path kHome = KORVA_SOURCE_DIR;

/// A device of a model, in programming mode.
inline Device ProgrammedDevice(const std::string& model) {
  auto device = Device::ForModel(kHome, model);
  EnterProgramming(device);
  return device;
}

}  // namespace korva::sim
