#pragma once

#include <filesystem>

namespace korva::sim {

/// The folders in which the simulator finds its files.
struct SimHome {
  std::filesystem::path installed;  ///< Holds system.
  std::filesystem::path own;        ///< Holds ports.
};

/// Where the simulator's files lie: beside it in one folder, or where it is installed in PREFIX/bin, in
/// PREFIX/share/korva and the user's own folder, korva in XDG_DATA_HOME.
/// \param executable  Folder of the executable.
/// \param named       The folder that the user names, whose own system files come first; empty: none.
SimHome FindSimHome(const std::filesystem::path& executable, const std::filesystem::path& named);

}  // namespace korva::sim
