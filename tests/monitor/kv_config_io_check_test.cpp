// The I/O check tab of the page of family First, against simulated devices.

#include <gtest/gtest.h>

#include <set>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::PageBench;

struct IoBench : PageBench {
  explicit IoBench(const String& model) {
    device = &Connect(model);
    Choose(model);
  }
  /// The user's press, `delay` from now, of a button that must be in reach then. The backup stations' page
  /// has the buttons of the monitor hidden.
  void ClickAfter(Clock delay, Button& button) {
    loop.After(delay, [this, &button] {
      EXPECT_EQ(Page().WhyRefused(button), !Page().DefFile.starts_with(u"QD") ? "" : "hidden")
          << button.FullName();
      button.Click();
    });
  }
  void Monitor(Clock duration) {
    ClickAfter(duration, test::Part<StatusMonitor>(Page()).cmdMonitorOFF);
    Do([this] { test::Part<StatusMonitor>(Page()).cmdMonitorON.Click(); });
  }
  sim::Device* device = nullptr;
};

TEST(KvConfigMonitorTest, ShowsLiveValuesThatMoveAndTheUnitsOfTheDevice) {
  IoBench bench(u"QN");
  ASSERT_TRUE(bench.device->Set("01", "21", "1"));
  std::set<String> temperatures;
  TextField& box = bench.Field(u"04");
  box.Observe([&] { temperatures.insert(box.Text()); });
  bench.Monitor(20s);
  EXPECT_GT(temperatures.size(), 3U);
  EXPECT_EQ(bench.UnitOf(u"04"), u"deg F");
  EXPECT_EQ(bench.UnitOf(u"06"), u"Ohm");
  for (const char16_t* item : {u"04", u"05", u"06", u"07"}) {
    EXPECT_TRUE(IsNumeric(bench.Field(item).Text())) << ToUtf8(item);
    EXPECT_EQ(bench.LookOf(item), Look::Grey);
  }
  EXPECT_EQ(bench.Field(u"03_mon").Text(), u"");
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_TRUE(bench.Page().cmdUpload.Enabled());
  EXPECT_EQ(bench.device->Mode(), '0');
}

TEST(KvConfigMonitorTest, WatchingLeavesNothingToSave) {
  IoBench bench(u"QN");
  ASSERT_FALSE(bench.Page().DataChanged);
  bench.Monitor(5s);
  EXPECT_NE(bench.Field(u"05").Text(), u"");
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST(KvConfigMonitorTest, OnlyTheStopButtonIsInReachAndItsTabWithIt) {
  IoBench bench(u"QN");
  bench.loop.After(3s, [&] {
    const KvConfig& page = bench.First();
    EXPECT_EQ(page.WhyRefused(test::Part<StatusMonitor>(page).cmdMonitorOFF), "");
    EXPECT_EQ(page.WhyRefused(test::Part<StatusMonitor>(page).cmdMonitorON), "disabled");
    EXPECT_EQ(page.WhyRefused(test::Part<OutputSetting>(page).cmdSet), "disabled");
    EXPECT_EQ(page.WhyRefused(page.lst_TypeSelect), "disabled");
    for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
      EXPECT_EQ(page.Tabs.TabEnabled(tab), tab == page.TabOf(test::Part<StatusMonitor>(page).cmdMonitorOFF))
          << tab;
    }
  });
  bench.Monitor(5s);
  EXPECT_TRUE(bench.Page().Tabs.TabEnabled(0));
}

TEST(KvConfigMonitorTest, BackupStationsHaveTheirMonitorValueInTheCycleAndNoUnitIsLookedUp) {
  for (const char16_t* model : {u"QD", u"QD2", u"QD2I"}) {
    IoBench bench(model);
    const String unit = bench.UnitOf(u"05");
    std::string items;
    bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
      if (traffic.sent && traffic.text.starts_with(u"I")) {
        items += ToUtf8(traffic.text) + " ";
      }
    };
    bench.Monitor(1500ms);
    const std::string cycle = items.substr(0, items.find("I03", 5));
    EXPECT_TRUE(cycle.starts_with("I01 I03 I05 I07 ")) << items;
    EXPECT_EQ(cycle.find("I10"), std::string::npos) << items;
    EXPECT_EQ(cycle.find("I11"), std::string::npos) << items;
    EXPECT_EQ(cycle.find("I21"), std::string::npos) << items;
    EXPECT_EQ(cycle.find("I32") != std::string::npos, String(model) == u"QD2I") << items;
    EXPECT_TRUE(IsNumeric(bench.Field(u"03_mon").Text())) << ToUtf8(bench.Field(u"03_mon").Text());
    EXPECT_TRUE(IsNumeric(bench.Field(u"05").Text()));
    EXPECT_EQ(bench.UnitOf(u"05"), unit);
  }
}

TEST(KvConfigMonitorTest, QD2IShowsItsOutputCurrentInItem32) {
  IoBench bench(u"QD2I");
  ASSERT_TRUE(bench.device->Set("01", "32", "12.00"));
  bench.Monitor(5s);
  EXPECT_EQ(bench.Field(u"32").Text(), u"12.00");
}

TEST(KvConfigMonitorTest, ACycleOfFiveItemsAt1200BaudTakesWhatWireAndWaitsTake) {
  IoBench bench(u"QD2I");
  std::vector<Clock> starts;
  bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
    if (traffic.sent && traffic.text == u"I03") {
      starts.push_back(bench.loop.Now());
    }
  };
  bench.Monitor(10s);
  ASSERT_GE(starts.size(), 3U);
  // An item: "G01", "COK", "I05" and the reply, "DINPPCT   50.50" for one, each with a carriage return and 10
  // bits a character at 1200 baud; the device's latency of 10 ms for either reply; half a second. Each of the
  // five values has a name of six characters before it.
  const double characters = 5 * (4 + 4 + 4 + 1 + 6 + 8 + 1);
  const double expected = characters * 10 / 1200 + 5 * (2 * 0.010 + 0.500);
  EXPECT_NEAR(std::chrono::duration<double>(starts[2] - starts[1]).count(), expected, expected / 100);
}

TEST(KvConfigMonitorTest, EveryModelOfTheFamilyCanBeMonitoredAndStopped) {
  for (const String& model : test::FirstModels()) {
    IoBench bench(model);
    bench.Monitor(8s);
    const KvConfig& page = bench.First();
    EXPECT_FALSE(page.Shared().CommBusy) << ToUtf8(model);
    EXPECT_TRUE(page.cmdUpload.Enabled()) << ToUtf8(model);
    EXPECT_TRUE(bench.TakeBoxes().empty()) << ToUtf8(model);
    EXPECT_FALSE(bench.status.has_value()) << ToUtf8(model);
  }
}

TEST(KvConfigMonitorTest, ClosingTheWindowEndsTheProgramWithinHalfASecondOfAWait) {
  IoBench bench(u"QN");
  Clock pressed{0};
  bench.loop.After(5s, [&] {
    pressed = bench.loop.Now();
    bench.app.program.PressClose();
  });
  bench.Do([&] { test::Part<StatusMonitor>(bench.Page()).cmdMonitorON.Click(); });
  EXPECT_EQ(bench.status, 0);
  EXPECT_LE(bench.loop.Now() - pressed, 510ms);
}

TEST(KvConfigOutputTest, AForcedOutputIsHeldWithTheInputValuesFollowingUntilOff) {
  IoBench bench(u"QN");
  bench.ForceOutput(u"75.5");
  KvConfig& page = bench.First();
  EXPECT_EQ(bench.device->Mode(), '1');
  EXPECT_EQ(LeadingNumber(bench.Field(u"03_mon").Text()), 75.5);
  EXPECT_EQ(bench.device->Value("01", "07"), "75.50");
  EXPECT_EQ(page.WhyRefused(test::Part<OutputSetting>(page).cmdStatusMonOFF), "");
  EXPECT_EQ(page.WhyRefused(test::Part<StatusMonitor>(page).cmdMonitorON), "disabled");
  EXPECT_EQ(page.WhyRefused(bench.Field(u"03_set")), "disabled");
  bench.Click(test::Part<OutputSetting>(page).cmdStatusMonOFF);
  EXPECT_EQ(bench.device->Mode(), '0');
  EXPECT_EQ(page.WhyRefused(test::Part<StatusMonitor>(page).cmdMonitorON), "");
  EXPECT_EQ(page.WhyRefused(bench.Field(u"03_set")), "");
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST(KvConfigOutputTest, CmdSetWith11500IsAcceptedWith11501Refused) {
  IoBench bench(u"QN");
  bench.ForceOutput(u"115.01");
  EXPECT_EQ(bench.TakeBoxes(),
            std::vector<std::string>{"設定値ﾁｪｯｸ: 出力設定値は、-15.00% から 115.00% の範囲です。"});
  EXPECT_EQ(bench.device->Exchanges(), 0);
  bench.ForceOutput(u"115.00");
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_EQ(bench.device->Mode(), '1');
}

TEST(KvConfigOutputTest, CmdStatusMonOFFWithTheCablePulledShowsTheFailureAndUnlocksAllTheSame) {
  IoBench bench(u"QN");
  bench.ForceOutput(u"50");
  bench.device->AddFault(sim::ParseFault("silent"));
  bench.Click(test::Part<OutputSetting>(bench.Page()).cmdStatusMonOFF);
  EXPECT_EQ(bench.TakeBoxes(), std::vector<std::string>{test::Shown(BoxKey::NotMonitorMode)});
  EXPECT_EQ(bench.Page().WhyRefused(test::Part<StatusMonitor>(bench.Page()).cmdMonitorON), "");
}

}  // namespace
}  // namespace korva
