#pragma once

#include <filesystem>
#include <string>

#include "sample.h"

// Transmitters as their maker delivers them, with the curves of the build.

namespace korva::sim {

/// The build's own installation, in whose system folder the curves lie.
inline const std::filesystem::path kInstalled = KORVA_HOME;

/// A transmitter of a model.
inline Device TransmitterOf(const std::string& model) {
  const Model row{.name = model, .definition_file = model + ".def", .family_word = "Lite"};
  DeviceOptions options;
  options.curves = kInstalled / "system" / "z2Kv";
  return {row, Definition::Read(kInstalled, row), options};
}

/// A transmitter with the sensor of a code.
inline Device TransmitterWith(const std::string& model, int sensor) {
  auto device = TransmitterOf(model);
  device.Set("01", "10", std::to_string(sensor));
  return device;
}

}  // namespace korva::sim
