// A configuration file of any bytes: opened, checked on the page that it brings, saved, and opened again from
// what was saved.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pages/page_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr const char16_t* path = u"/korva/data/kept.cfg";
  korva::test::PageBench bench;
  bench.files.Put(path, {reinterpret_cast<const char*>(data), size});
  bench.Start();
  for (int time = 0; time < 2; ++time) {
    bench.dialogs.QueueFile(path);
    bench.Do([&] { bench.Page().OpenCommand(); });
    bench.Do([&] { bench.Page().cmdCheck.Click(); });
    bench.dialogs.QueueFile(path);
    bench.Do([&] { bench.Page().SaveCfgFile(); });
  }
  return 0;
}
