// A device that answers any bytes. The input is cut at its line feeds; each piece arrives as the reply to one
// command, carriage returns included, and an empty piece is silence. Behind the last piece the first follows.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pages/page_bench.h"

namespace korva {
namespace {

class AnyDevice final : public test::CommandLine {
 public:
  AnyDevice(VirtualPort& port, std::string_view input) : port_(port) {
    for (std::size_t at = 0; at <= input.size();) {
      const std::size_t end = std::min(input.find('\n', at), input.size());
      replies_.emplace_back(input.substr(at, end - at));
      at = end + 1;
    }
  }

 private:
  void Take(const Command& command) override {
    const std::string& reply = replies_[next_];
    next_ = (next_ + 1) % replies_.size();
    if (!reply.empty()) {
      port_.DeliverPaced(command.received + Milliseconds(10), reply, 0);
    }
  }

  VirtualPort& port_;
  std::vector<std::string> replies_;
  std::size_t next_ = 0;
};

/// A user who wants every operation to go on.
void AgreeTo(test::PageBench& bench) {
  bench.dialogs.OnBox([&bench](const Box& box) {
    if (box.buttons.size() > 1) {
      bench.dialogs.QueueAnswer(box.buttons.front());
    }
  });
}

void TransferWholeSet(test::PageBench& bench) {
  KvConfig& page = bench.Page();
  bench.Do([&] { page.UploadCommand(); });
  page.DataChanged = false;
  bench.Do([&] { page.DownloadCommand(); });
}

void SpeakBothDialects(DeviceLink& link) {
  for (ItemAccess* items :
       {static_cast<ItemAccess*>(&link.cok), static_cast<ItemAccess*>(&link.enter_item)}) {
    items->ReadRetry(1, u"01", u"14");
    items->WriteRetry(1, u"01", u"14", u"12.5");
  }
  link.enter_item.WriteParamPairRetry(1, u"01", u"14", u"1", u"2");
  link.enter_item.ReadItemNameRetry(1, u"00", u"99");
  link.line.RcvMsg();
  link.line.SendCommandStripped(u"D\r");
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  korva::AnyDevice device(bench.port, {reinterpret_cast<const char*>(data), size});
  bench.port.Connect(1, &device);
  korva::AgreeTo(bench);
  bench.Start();
  bench.Choose(u"QL");
  korva::TransferWholeSet(bench);
  bench.Do([&] { korva::SpeakBothDialects(bench.app.link); });
  return 0;
}
