#include "sim/sim_home.h"

#include <cstdlib>
#include <system_error>

namespace korva::sim {

namespace {

namespace fs = std::filesystem;

bool HasSystem(const fs::path& folder) {
  std::error_code error;
  return fs::is_directory(folder / "system", error);
}

fs::path Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// A path that is not full counts as not set.
fs::path UsersData() {
  const auto data = Variable("XDG_DATA_HOME");
  return (data.is_absolute() ? data : Variable("HOME") / ".local" / "share") / "korva";
}

}  // namespace

SimHome FindSimHome(const fs::path& executable, const fs::path& named) {
  const auto shared = executable.parent_path() / "share" / "korva";
  if (HasSystem(executable) || !HasSystem(shared)) {
    const auto folder = named.empty() ? executable : named;
    return {.installed = folder, .own = folder};
  }
  return {.installed = !named.empty() && HasSystem(named) ? named : shared,
          .own = named.empty() ? UsersData() : named};
}

}  // namespace korva::sim
