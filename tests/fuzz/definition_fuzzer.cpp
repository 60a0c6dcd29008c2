// A definition file of any bytes: read by the reader of each family, then chosen on the page of family First,
// where every button that works by it is pressed.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bench.h"
#include "files/definition.h"

namespace korva {
namespace {

void ReadWithEachFamily(test::PageBench& bench) {
  SharedState shared;
  LineReader lines(bench.files, bench.code_page, shared);
  const Boxes boxes(bench.dialogs);
  for (const RegistryEntry& entry : Registry()) {
    Definition definition(entry.record.family, entry.record.definition);
    try {
      ReadDefFile(lines, boxes, test::DefPath(u"QL"), definition);
    } catch (const RuntimeFailure&) {
      continue;  // a file that is cut off ends the program
    }
  }
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  bench.files.Put(korva::test::DefPath(u"QL"), {reinterpret_cast<const char*>(data), size});
  korva::ReadWithEachFamily(bench);
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
