// A device that answers any bytes, one reply a line, during an upload and a download that rewrites its memory
// with a sensor's curve.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "agreement.h"
#include "any_device.h"
#include "demand.h"

namespace korva {
namespace {

void RewriteTypes(test::PageBench& bench) {
  ParameterPage& page = bench.Page();
  bench.Do([&] { page.cmdUpload.Click(); });
  bench.Do([&] {
    page.Combo[0].UserPicks(6);  // Ni100
    page.Combo[1].UserPicks(2);  // 0-10 V
    page.cmdDownload.Click();
  });
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  korva::test::AnyDevice device(bench.port, {reinterpret_cast<const char*>(data), size});
  bench.port.Connect(1, &device);
  korva::test::AgreeTo(bench);
  bench.Start();
  bench.Choose(u"Z2WR");
  korva::RewriteTypes(bench);
  // A choice that stands in no list ends the program.
  korva::test::Demand(bench.status.has_value() || !bench.app.program.Shared().CommBusy);
  return 0;
}
