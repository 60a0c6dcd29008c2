// The I/O check tab of the page of family Second, and the pace of its slow devices.

#include <gtest/gtest.h>

#include <set>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

void ClickAfter(V2Bench& bench, Clock delay, Button& button) {
  bench.loop.After(delay, [&bench, &button] {
    EXPECT_EQ(bench.V2().WhyRefused(button), "") << button.FullName();
    button.Click();
  });
}

TEST(V2MonitorTest, ReadsPercentFrequencyAndOutputOverAndOver) {
  V2Bench bench(u"QEYZ");
  std::set<String> frequencies;
  TextField& box = bench.Field(u"06");
  box.Observe([&] { frequencies.insert(box.Text()); });
  ClickAfter(bench, 20s, Part<StatusMonitor>(bench.V2()).cmdMonitorOFF);
  bench.Click(Part<StatusMonitor>(bench.V2()).cmdMonitorON);
  EXPECT_GT(frequencies.size(), 3U);
  for (const char16_t* item : {u"05", u"06", u"07"}) {
    EXPECT_TRUE(IsNumeric(bench.Field(item).Text())) << ToUtf8(item);
    EXPECT_EQ(bench.LookOf(item), Look::Grey);
  }
  EXPECT_EQ(bench.UnitOf(u"05"), u"%");
  EXPECT_EQ(bench.UnitOf(u"06"), u"Hz");
  EXPECT_EQ(bench.UnitOf(u"07"), u"%");
  EXPECT_EQ(bench.Field(u"03_mon").Text(), u"");
  EXPECT_FALSE(bench.V2().DataChanged);
  EXPECT_EQ(bench.TakeBoxes(), Texts{});
  bench.ExpectAtRest();
}

TEST(V2MonitorTest, ForcesTheOutputAndReleasesIt) {
  V2Bench bench(u"QIC");
  bench.ForceOutput(u"50.5");
  EXPECT_EQ(bench.Field(u"03_mon").Text(), u"50.50");
  EXPECT_EQ(bench.device.Mode(), '1');
  EXPECT_EQ(bench.line.writes, (Texts{"01=1", "03=50.5"}));
  const auto& commands = bench.line.Commands();
  EXPECT_GE(commands[3].received - commands[2].received, 500ms);
  bench.Click(Part<OutputSetting>(bench.V2()).cmdStatusMonOFF);
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_TRUE(bench.Field(u"03_set").Enabled());
  bench.ExpectAtRest();
}

TEST(V2MonitorTest, RefusesAnOutputBeyondItsRange) {
  V2Bench bench(u"QIC");
  bench.ForceOutput(u"115.01");
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::OutputOutOfRange, {u"-15.00", u"115.00"})});
  EXPECT_EQ(bench.line.writes, Texts{});
}

// Slow devices.

TEST(V2SlowDeviceTest, ModelsAreSlowByTheEndOfTheirNameOrByTheirName) {
  PageBench bench;
  const auto slow = [&] { return bench.app.link.line.SlowDevice(); };
  bench.Start();
  EXPECT_FALSE(slow());
  for (const auto& [model, expected] :
       {std::pair{u"QD", false}, std::pair{u"QEY", false}, std::pair{u"QEYD", true}, std::pair{u"QEYZ", true},
        std::pair{u"QIC", false}, std::pair{u"QICD", true}, std::pair{u"QICE", true}, std::pair{u"QL", true},
        std::pair{u"QEY", false}, std::pair{u"QL", false}}) {
    bench.Choose(model);
    EXPECT_EQ(slow(), expected) << ToUtf8(model);
  }
}

/// From one command of an upload to the next, as if all were of the same length.
std::set<Milliseconds> Paces(V2Bench& bench) {
  bench.line.ForgetCommands();
  bench.V2().DataChanged = false;
  bench.Upload();
  const auto& commands = bench.line.Commands();
  std::set<Milliseconds> paces;
  for (std::size_t at = 1; at < commands.size(); ++at) {
    const auto begun = [&](std::size_t place) {
      return commands[place].received -
             bench.port.CharacterTime() * static_cast<Clock::rep>(commands[place].text.size() + 1);
    };
    paces.insert(std::chrono::round<Milliseconds>(begun(at) - begun(at - 1)));
  }
  return paces;
}

TEST(V2SlowDeviceTest, IsLookedAtTwiceASecond) {
  for (const char16_t* model : {u"QEYD", u"QEYZ", u"QICD", u"QICE"}) {
    V2Bench bench(model);
    EXPECT_EQ(Paces(bench), std::set<Milliseconds>{500ms}) << ToUtf8(model);
    EXPECT_EQ(bench.V2().Item(10), u"100.00 Hz");
  }
  V2Bench quick(u"QIC");
  EXPECT_LT(*Paces(quick).rbegin(), 250ms);
}

TEST(V2SlowDeviceTest, StaysSlowOnEveryPageUntilItsOwnHoldsAnotherModel) {
  PageBench bench;
  bench.Connect(u"QL");
  std::vector<Clock> sent;
  bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
    if (traffic.sent) {
      sent.push_back(bench.loop.Now());
    }
  };
  const auto pace = [&] {
    sent.clear();
    bench.Upload();
    bench.Page().DataChanged = false;
    return std::pair(sent.at(1) - sent.at(0), bench.TakeBoxes().back());
  };
  const std::string done = Shown(BoxKey::UploadDone);
  bench.Choose(u"QICE");
  bench.Choose(u"QL");
  EXPECT_EQ(pace(), std::pair(Clock(500ms), done));
  bench.Choose(u"QIC");
  bench.Choose(u"QL");
  EXPECT_LT(pace().first, 250ms);
}

}  // namespace
}  // namespace korva::test
