// A catalogue of any bytes: the program starts with it, and the user clicks on every row of the list.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "pages/page_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  bench.files.Put(u"/korva/system/MdlVTRMFx.jpn", {reinterpret_cast<const char*>(data), size});
  bench.Start();
  for (int row = 0; row < korva::ModelTable::kRows && !bench.status; ++row) {
    bench.Do([&] { bench.Page().lst_TypeSelect.UserPicks(row); });
  }
  return 0;
}
