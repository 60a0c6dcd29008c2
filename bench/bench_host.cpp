#include "bench_host.h"

#include <algorithm>
#include <cstdlib>

namespace korva::bench {

namespace fs = std::filesystem;

HomeFolder::HomeFolder(const std::string& device) {
  std::string name = (fs::temp_directory_path() / "korva-bench-XXXXXX").string();
  path_ = mkdtemp(name.data());
  fs::create_directory(path_ / "ports");
  fs::create_directory(path_ / "data");
  fs::create_symlink(device, path_ / "ports" / "COM1");
  fs::create_directory_symlink(fs::path(KORVA_BENCH_HOME) / "system", path_ / "system");
}

HomeFolder::~HomeFolder() { fs::remove_all(path_); }

BenchHost::BenchHost(const std::string& device)
    : home(device),
      port(loop.Gate(), home.Path()),
      application({.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page},
                  home.Path().u16string()) {}

void BenchHost::StartWith(StringView model) {
  application.program.Start();
  ListBox& list = application.program.Showing()->lst_TypeSelect;
  const auto found = std::find(list.Entries().begin(), list.Entries().end(), model);
  Act([&] { list.UserPicks(static_cast<int>(found - list.Entries().begin())); });
}

}  // namespace korva::bench
