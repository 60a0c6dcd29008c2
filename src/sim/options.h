#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sim/faults.h"
#include "sim/setup_error.h"
#include "sim/sim_home.h"

namespace korva::sim {

/// A value that an item gets before the device starts.
struct Preset {
  std::string group;
  std::string item;
  std::string value;
};

/// What the command line of korva-sim asks for.
struct Options {
  SimHome home;
  std::string model;  ///< Empty: the catalogue's first.
  std::filesystem::path link;
  bool fast = false;
  std::optional<std::chrono::milliseconds> latency;  ///< None: the device's own.
  std::optional<std::string> system_text;
  std::vector<FaultRule> faults;
  std::vector<Preset> presets;
  bool list = false;
  bool trace = false;
  bool help = false;
};

/// Reads the arguments.
/// \param arguments     Without the program's name.
/// \param executable  Folder of the executable.
/// \throws SetupError with a text for the user when an argument is unknown, lacks its value or has a bad one.
Options ParseOptions(std::span<const char* const> arguments, const std::filesystem::path& executable);

/// What --help prints.
std::string_view HelpText();

}  // namespace korva::sim
