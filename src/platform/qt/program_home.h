#pragma once

#include <filesystem>
#include <string_view>

namespace korva {

/// The folders in which the program finds its files.
struct ProgramHome {
  std::filesystem::path installed;  ///< holds system
  std::filesystem::path own;        ///< holds data and ports
};

/// Where the files of a program lie. It lies beside them in one folder, or in PREFIX/bin where they are
/// installed in PREFIX/share/korva, to which the user may not write.
/// \param executable  folder of the running executable
/// \param users       the user's own folder for an installed program
/// \param named       the folder that the user names, whose own system files come first; empty: none
ProgramHome FindHome(const std::filesystem::path& executable, const std::filesystem::path& users,
                     const std::filesystem::path& named);

/// The same for this program. What an installed program lacks of the user's own folder, which is
/// $XDG_DATA_HOME/korva, is made; where that fails, what needs it tells later. Both folders are full paths.
/// Needs the application object.
ProgramHome TakeHome(const std::filesystem::path& named);

/// A program that others start and no user: beside them, or in PREFIX/libexec/korva where they are installed
/// in PREFIX/bin.
///
/// \param executable  folder of the running executable
/// \param name        of the program's file
std::filesystem::path FindHelper(const std::filesystem::path& executable, std::string_view name);
/// The same for this program. Needs the application object.
std::filesystem::path TakeHelper(std::string_view name);

}  // namespace korva
