// A definition file of any bytes: read by the reader of each family, then chosen on the page of family First,
// whose set is checked, emptied and saved with it.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "files/definition.h"
#include "pages/page_bench.h"

namespace korva {
namespace {

void ReadWithEachFamily(test::PageBench& bench) {
  SharedState shared;
  LineReader lines(bench.files, bench.code_page, shared);
  const Boxes boxes(bench.dialogs);
  for (const Family& family : Families()) {
    Definition definition(family);
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
  bench.Start();
  korva::KvConfig& page = bench.Page();
  bench.Do([&] { page.lst_TypeSelect.UserPicks(1); });
  bench.Do([&] { page.CheckCommand(); });
  for (int box = 0; box < page.Combo.Count(); ++box) {
    bench.Do([&] {
      if (!page.Combo[box].Entries().empty()) {
        page.Combo[box].UserPicks(0);
      }
    });
  }
  bench.dialogs.QueueFile(u"/korva/data/kept.cfg");
  bench.Do([&] { page.SaveCfgFile(); });
  bench.Do([&] { page.NewCommand(); });
  return 0;
}
