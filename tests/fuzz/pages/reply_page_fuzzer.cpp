// A device that answers any bytes, one reply a line, during an upload and a download on each page.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "agreement.h"
#include "any_device.h"

namespace korva {
namespace {

void TransferWholeSet(test::PageBench& bench) {
  ParameterPage& page = bench.Page();
  bench.Do([&] { page.cmdUpload.Click(); });
  page.DataChanged = false;
  bench.Do([&] { page.cmdDownload.Click(); });
  page.DataChanged = false;
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  korva::test::AnyDevice device(bench.port, {reinterpret_cast<const char*>(data), size});
  bench.port.Connect(1, &device);
  korva::test::AgreeTo(bench);
  bench.Start();
  for (const char16_t* model : {u"QL", u"QEY", u"QEC2"}) {
    bench.Choose(model);
    korva::TransferWholeSet(bench);
  }
  return 0;
}
