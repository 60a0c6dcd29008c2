// A definition file of any bytes: chosen on the page of family First, where every button that works by it is
// pressed.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "agreement.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  bench.files.Put(korva::test::DefPath(u"QL"), {reinterpret_cast<const char*>(data), size});
  korva::test::AgreeableDevice device(bench.port);
  bench.port.Connect(1, &device);
  korva::test::AgreeTo(bench);
  bench.Start();
  korva::KvConfig& page = bench.First();
  bench.Do([&] { page.lst_TypeSelect.UserPicks(1); });
  for (int box = 0; box < page.Combo.Count(); ++box) {
    bench.Do([&] {
      if (!page.Combo[box].Entries().empty()) {
        page.Combo[box].UserPicks(0);
      }
    });
  }
  bench.Do([&] { page.optTempUnit[1].Click(); });
  bench.Do([&] { page.cmdCheck.Click(); });
  bench.Do([&] { page.cmdDownload.Click(); });
  page.DataChanged = false;
  bench.Do([&] { page.cmdUpload.Click(); });
  bench.Do([&] { page.cmdDownload.Click(); });
  page.DataChanged = false;
  bench.Do([&] { page.NewCommand(); });
  return 0;
}
