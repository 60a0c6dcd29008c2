// A device that answers any bytes, one reply a line, to single exchanges of both dialects.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "any_device.h"
#include "demand.h"
#include "link/device_page.h"
#include "link/keyed_item.h"
#include "reader_bench.h"

namespace korva {
namespace {

constexpr Milliseconds kReplyLimit{3000};
constexpr int kExchangesOfTry = 3;  // group, item, data

/// An exchange with its repeats ends in time, whatever comes.
template <typename Exchange>
void Try(const VirtualEventLoop& loop, int tries, Exchange exchange) {
  const Clock begun = loop.Now();
  exchange();
  test::Demand(loop.Now() - begun <= tries * kExchangesOfTry * (kReplyLimit + Milliseconds(200)));
}

void SpeakBothDialects(const VirtualEventLoop& loop, DeviceLink& link) {
  for (ItemAccess* items :
       {static_cast<ItemAccess*>(&link.cok), static_cast<ItemAccess*>(&link.enter_item)}) {
    Try(loop, 2, [&] { items->ReadRetry(1, {u"01", u"14"}); });
    Try(loop, 2, [&] { items->WriteRetry(1, {u"01", u"14"}, u"12.5"); });
  }
  Try(loop, 2, [&] { link.enter_item.ReadItemNameRetry(1, {u"00", u"99"}); });
  link.line.RcvMsg();
}

/// A value, its unit taken from behind it, is a part of what the device told.
void SpeakInKeys(const VirtualEventLoop& loop, DeviceLink& link) {
  constexpr int tries = kItemRepeats + 1;
  const KeyedItem item(link.enter_item, {u"01", u"60"});
  Try(loop, tries, [&] {
    const String answer = item.Read(u"T12");
    for (const char16_t* unit : {u"mV", u"Ohm", u"%"}) {
      test::Demand(answer.find(WithoutUnit(answer, unit)) != String::npos);
    }
  });
  Try(loop, tries, [&] { (void)item.Write(u"P", u"10"); });
  Try(loop, tries, [&] { (void)item.WriteRow(u"T12", u"7.9034"); });
  Try(loop, tries, [&] { (void)item.Command(u"R"); });
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::ReaderBench bench(nullptr, 0);
  korva::VirtualEventLoop loop;
  korva::VirtualPort port(loop);
  korva::test::AnyDevice device(port, {reinterpret_cast<const char*>(data), size});
  port.Connect(1, &device);
  korva::DeviceLink link({.loop = loop,
                          .port = port,
                          .dialogs = bench.dialogs,
                          .files = bench.files,
                          .code_page = bench.code_page},
                         bench.shared);
  bench.shared.KnownItemNames[0] = u"Zero";
  link.line.OpenAtStart(u"1200,n,8,1");
  loop.Gate().Enter([&] {
    korva::SpeakBothDialects(loop, link);
    korva::SpeakInKeys(loop, link);
  });
  return 0;
}
