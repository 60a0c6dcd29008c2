#include "cold_copy.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

namespace korva::bench {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPlugins = "/plugins/";

// The libraries of the C and C++ languages: some program has always loaded them.
bool IsAlwaysLoaded(const std::string& name) {
  constexpr std::array<std::string_view, 6> names = {"ld-linux", "libc.so",       "libm.so",
                                                     "libgcc_s", "libpthread.so", "libstdc++"};
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view beginning) { return name.starts_with(beginning); });
}

// True for a program or a library; what else is mapped is data.
bool IsCode(const fs::path& file) {
  const std::string name = file.filename().string();
  return !IsAlwaysLoaded(name) && (name.find(".so") != std::string::npos || name.starts_with("korva"));
}

// Where the copy lies in the folder: Qt finds its plugins by the names of their folders.
fs::path PlaceOf(const fs::path& file) {
  const std::string path = file.string();
  const std::size_t plugin = path.rfind(kPlugins);
  return plugin == std::string::npos ? file.filename() : fs::path(path.substr(plugin + 1));
}

// Writes the file out, lets the system forget it, and looks how much it has kept.
bool PutOut(const fs::path& file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  fsync(descriptor);
  posix_fadvise(descriptor, 0, 0, POSIX_FADV_DONTNEED);
  const std::size_t size = fs::file_size(file);
  void* const map = mmap(nullptr, size, PROT_NONE, MAP_SHARED, descriptor, 0);
  close(descriptor);
  if (map == MAP_FAILED) {
    return false;
  }
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  std::vector<unsigned char> kept((size + page - 1) / page);
  mincore(map, size, kept.data());
  munmap(map, size);
  return std::none_of(kept.begin(), kept.end(), [](unsigned char state) { return (state & 1U) != 0; });
}

}  // namespace

ColdCopy::ColdCopy(const std::vector<std::string>& files) {
  std::string name = (fs::temp_directory_path() / "korva-cold-XXXXXX").string();
  folder_ = mkdtemp(name.data());
  for (const fs::path file : files) {
    if (IsCode(file)) {
      const fs::path copy = folder_ / PlaceOf(file);
      fs::create_directories(copy.parent_path());
      fs::copy_file(file, copy, fs::copy_options::skip_existing);
    }
  }
}

ColdCopy::~ColdCopy() { fs::remove_all(folder_); }

bool ColdCopy::Cool() const {
  bool cold = !fs::is_empty(folder_);
  for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
    cold = (!entry.is_regular_file() || PutOut(entry.path())) && cold;
  }
  return cold;
}

std::string ColdCopy::Of(const std::string& program) const {
  return (folder_ / fs::path(program).filename()).string();
}

std::vector<std::string> ColdCopy::Surroundings() const {
  return {"LD_LIBRARY_PATH=" + folder_.string(), "QT_PLUGIN_PATH=" + (folder_ / "plugins").string()};
}

}  // namespace korva::bench
