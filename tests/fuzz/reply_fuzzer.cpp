// A device that answers any bytes, one reply a line, during an upload and a download on each page, and single
// exchanges.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "bench.h"

namespace korva {
namespace {

void TransferWholeSet(test::PageBench& bench) {
  ParameterPage& page = bench.Page();
  bench.Do([&] { page.cmdUpload.Click(); });
  page.DataChanged = false;
  bench.Do([&] { page.cmdDownload.Click(); });
  page.DataChanged = false;
}

void SpeakBothDialects(DeviceLink& link) {
  for (ItemAccess* items :
       {static_cast<ItemAccess*>(&link.cok), static_cast<ItemAccess*>(&link.enter_item)}) {
    items->ReadRetry(1, {u"01", u"14"});
    items->WriteRetry(1, {u"01", u"14"}, u"12.5");
  }
  link.enter_item.WriteParamPairRetry(1, {u"01", u"14"}, u"1", u"2");
  link.enter_item.ReadItemNameRetry(1, {u"00", u"99"});
  link.line.RcvMsg();
  link.line.SendCommandStripped(u"D\r");
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
  bench.Do([&] { korva::SpeakBothDialects(bench.app.link); });
  return 0;
}
