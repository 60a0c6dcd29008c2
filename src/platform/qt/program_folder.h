#pragma once

#include <filesystem>

namespace korva {

/// The folder of the running executable, in which system, data and ports lie unless the user names another.
/// Needs the application object.
std::filesystem::path ProgramFolder();

}  // namespace korva
