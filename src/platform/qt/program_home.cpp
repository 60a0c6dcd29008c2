#include "platform/qt/program_home.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <system_error>

namespace korva {

namespace {

namespace fs = std::filesystem;

bool HoldsSystem(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder / "system", error);
}

/// Where a user's programs keep what is his.
fs::path UsersFolder() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return fs::path(data.toStdU16String()) / "korva";
}

fs::path FullPath(const fs::path& named) {
  std::error_code error;
  return named.empty() ? named : fs::absolute(named, error).lexically_normal();
}

}  // namespace

ProgramHome FindHome(const fs::path& executable, const fs::path& users, const fs::path& named) {
  const fs::path shared = executable.parent_path() / "share" / "korva";
  if (HoldsSystem(executable) || !HoldsSystem(shared)) {
    const fs::path folder = named.empty() ? executable : named;
    return {.installed = folder, .own = folder};
  }
  return {.installed = !named.empty() && HoldsSystem(named) ? named : shared,
          .own = named.empty() ? users : named};
}

ProgramHome TakeHome(const fs::path& named) {
  const fs::path users = UsersFolder();
  ProgramHome home =
      FindHome(QCoreApplication::applicationDirPath().toStdU16String(), users, FullPath(named));
  if (home.own == users) {
    std::error_code error;
    fs::create_directories(home.own / "data", error);
    fs::create_directories(home.own / "ports", error);
  }
  return home;
}

fs::path FindHelper(const fs::path& executable, std::string_view name) {
  std::error_code error;
  const fs::path beside = executable / name;
  return fs::exists(beside, error) ? beside : executable.parent_path() / "libexec" / "korva" / name;
}

fs::path TakeHelper(std::string_view name) {
  return FindHelper(QCoreApplication::applicationDirPath().toStdU16String(), name);
}

}  // namespace korva
