#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korva::cli {

/// What the command line of korva-cli asks for.
struct Arguments {
  std::optional<std::string> home;    ///< the program's folder; nothing: that of the executable
  std::optional<std::string> script;  ///< nothing: standard input
  bool line = false;                  ///< print the traffic with the device as well
  bool keep_going = false;            ///< a wrong line does not end the script
  bool strict = false;                ///< the exit status tells whether something was refused
  bool help = false;
};

/// Reads the arguments, given without the program's name. Nothing when they are wrong; `problem` then says
/// why.
std::optional<Arguments> ParseArguments(std::span<const char* const> words, std::string& problem);

/// What --help prints.
std::string_view HelpText();

}  // namespace korva::cli
