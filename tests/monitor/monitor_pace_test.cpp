// When the monitor reads: the exchange of an item, half a second in which its value is highlighted, and
// nothing else.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "monitor_bench.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::MonitorBench;

/// A command, and the millisecond at which it has reached the device.
using Instants = std::vector<std::pair<std::string, Milliseconds>>;

Instants InstantsOf(const MonitorBench& bench) {
  Instants instants;
  for (const auto& command : bench.line.Commands()) {
    instants.emplace_back(command.text, std::chrono::round<Milliseconds>(command.received));
  }
  return instants;
}

/// Two cycles of a device of First with items 04 to 08 and no unit to look up.
struct TwoCycles : MonitorBench {
  TwoCycles(Clock latency, bool timed) : MonitorBench(u"First", "QY.def", test::AllRows()) {
    host.port.SetTimed(timed);
    line.latency = latency;
    line.items["01"] = "0";
    line.on_command = [this, cycles = 0](const std::string& command) mutable {
      if (command == "I04" && ++cycles == 2) {
        StopAfter(Clock(0));
      }
    };
    MonitorBench::Start();
  }
};

TEST(MonitorPaceTest, WithADeviceThatAnswersAtOnceAnItemIsReadEveryHalfSecond) {
  const TwoCycles bench(0ms, false);
  const Instants expected = {
      {"G01", 0ms},    {"I01", 0ms},    {"D0", 0ms},                                        // mode
      {"G01", 0ms},    {"I04", 0ms},    {"G01", 500ms},  {"I05", 500ms},  {"G01", 1000ms},  // first cycle
      {"I06", 1000ms}, {"G01", 1500ms}, {"I07", 1500ms}, {"G01", 2000ms}, {"I08", 2000ms},  //
      {"G01", 2500ms}, {"I04", 2500ms}, {"G01", 3000ms}, {"I05", 3000ms}, {"G01", 3500ms},  // second cycle
      {"I06", 3500ms}, {"G01", 4000ms}, {"I07", 4000ms}, {"G01", 4500ms}, {"I08", 4500ms}};
  EXPECT_EQ(InstantsOf(bench), expected);
  EXPECT_EQ(bench.host.loop.Now(), 5000ms);
}

TEST(MonitorPaceTest, ADevicesLatencyAddsToEachExchange) {
  const TwoCycles bench(35ms, false);
  // The mode change takes three latencies, an item two and the half second.
  const Instants expected = {
      {"G01", 0ms},    {"I01", 35ms},   {"D0", 70ms},                                       //
      {"G01", 105ms},  {"I04", 140ms},  {"G01", 675ms},  {"I05", 710ms},  {"G01", 1245ms},  //
      {"I06", 1280ms}, {"G01", 1815ms}, {"I07", 1850ms}, {"G01", 2385ms}, {"I08", 2420ms},  //
      {"G01", 2955ms}, {"I04", 2990ms}, {"G01", 3525ms}, {"I05", 3560ms}, {"G01", 4095ms},  //
      {"I06", 4130ms}, {"G01", 4665ms}, {"I07", 4700ms}, {"G01", 5235ms}, {"I08", 5270ms}};
  EXPECT_EQ(InstantsOf(bench), expected);
  EXPECT_EQ(bench.host.loop.Now(), 5805ms);
}

TEST(MonitorPaceTest, ACycleOfFiveItemsOnASlowLineTakesWhatWireAndWaitsTake) {
  const TwoCycles bench(10ms, true);
  // A character takes 10 bits of 1200 in a second: 8 1/3 ms. The mode change has 4 + 4 characters of the
  // group, 4 + 3 of the item and 3 + 3 of the data: 175 ms, and 3 x 10 ms of latency. An item has 4 + 4 of
  // the group and 4 + 6 of the item: 150 ms, 2 x 10 ms and 500 ms. Each command is there 33 ms (25 ms the
  // data) after its first bit, the item's behind the group's exchange of 77 ms.
  const Instants expected = {
      {"G01", 33ms},   {"I01", 110ms},  {"D0", 170ms},                                      //
      {"G01", 238ms},  {"I04", 315ms},  {"G01", 908ms},  {"I05", 985ms},  {"G01", 1578ms},  //
      {"I06", 1655ms}, {"G01", 2248ms}, {"I07", 2325ms}, {"G01", 2918ms}, {"I08", 2995ms},  //
      {"G01", 3588ms}, {"I04", 3665ms}, {"G01", 4258ms}, {"I05", 4335ms}, {"G01", 4928ms},  //
      {"I06", 5005ms}, {"G01", 5598ms}, {"I07", 5675ms}, {"G01", 6268ms}, {"I08", 6345ms}};
  EXPECT_EQ(InstantsOf(bench), expected);
  // 205 ms of the mode change and two cycles of 5 x 670 ms.
  EXPECT_EQ(std::chrono::round<Milliseconds>(bench.host.loop.Now()), 6905ms);
}

// --- the other dialect, and the exchanges of the other families

struct PaceCase {
  StringView word;
  std::string def_file;
  Clock item;  ///< for one item: its replies, of 10 ms each, and half a second
};
struct PaceTest : testing::TestWithParam<PaceCase> {};
INSTANTIATE_TEST_SUITE_P(Dialect, PaceTest,
                         testing::Values(PaceCase{u"First", "QY.def", 520ms},
                                         PaceCase{u"Second", "M.def", 530ms},
                                         PaceCase{u"LiteForth", "M.def", 520ms},
                                         PaceCase{u"LiteThird", "M.def", 530ms}),
                         [](const auto& one) { return ToUtf8(one.param.word); });

TEST_P(PaceTest, OneItemTakesItsExchangeAndHalfASecondToTheMillisecond) {
  const PaceCase& one = GetParam();
  MonitorBench bench(one.word, one.def_file, test::AllRows());
  bench.StopAfter(30s);
  bench.Start();
  std::vector<Clock> selections;
  for (const auto& command : bench.line.Commands()) {
    // Neither the mode nor what tells the units.
    if (command.text[0] == 'I' && command.text != "I01" && command.text != "I21" && command.text != "I11") {
      selections.push_back(command.received);
    }
  }
  ASSERT_GT(selections.size(), 20U);
  for (std::size_t at = 1; at < selections.size(); ++at) {
    EXPECT_EQ(selections[at] - selections[at - 1], one.item) << at;
  }
}

}  // namespace
}  // namespace korva
