// A device that answers any bytes, one reply a line, to the access to its memory.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "any_device.h"
#include "demand.h"
#include "link/device_page.h"
#include "link/eeprom.h"
#include "reader_bench.h"

namespace korva {
namespace {

// A reply is awaited for three seconds, and a line that is out of step is drained for as long.
constexpr Milliseconds kLongestExchange{6200};

/// `access` ends within the time of so many exchanges.
template <typename Access>
void Try(const VirtualEventLoop& loop, int exchanges, Access access) {
  const Clock begun = loop.Now();
  access();
  test::Demand(loop.Now() - begun <= exchanges * kLongestExchange);
}

/// A number that was read lies in the range of its bytes; one that wasn't is -1.
void DemandNumber(const Eeprom& eeprom, const Eeprom::Value& value, std::int32_t low, std::int32_t high) {
  const std::int32_t number = std::get<std::int32_t>(value);
  test::Demand(eeprom.Failed() ? number == Eeprom::kFailed : number >= low && number <= high);
}

void ReadAndWrite(const VirtualEventLoop& loop, Eeprom& eeprom) {
  Try(loop, 4, [&] {
    const String reply = eeprom.SelectEepromRetry(1, {.group = u"99", .item = u"10"});
    test::Demand(reply.empty() || reply == u"D   EEPROM Access");
  });
  Try(loop, 2, [&] { DemandNumber(eeprom, eeprom.EepReadValue(513, 1), -0x7F, 0x80); });
  Try(loop, 2, [&] { DemandNumber(eeprom, eeprom.EepReadValue(520, 2), 0, 0xFFFF); });
  Try(loop, 2, [&] { DemandNumber(eeprom, eeprom.EepReadValue(8189, 3), -0x7FFFFF, 0x800000); });
  Try(loop, 6, [&] {
    const String text = eeprom.EepReadString(48, 20);
    test::Demand(text.size() <= 20 && (!eeprom.Failed() || text == u"-1"));
  });
  Try(loop, 5, [&] {
    const String written = eeprom.EepWriteNumber(74, 2, 2026);
    test::Demand(!written.empty() || eeprom.Failed());
  });
  Try(loop, 10, [&] { eeprom.EepWriteString(48, 16, u"Z2WT-KA-S       "); });
  Try(loop, 6, [&] {
    const bool written = eeprom.EepWriteChunk(8175, "0123456789ABCDEF") == 0;
    test::Demand(written != eeprom.Failed());
  });
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
  link.line.OpenAtStart(u"1200,n,8,1");
  korva::Eeprom eeprom(link.line, bench.code_page);
  loop.Gate().Enter([&] { korva::ReadAndWrite(loop, eeprom); });
  return 0;
}
