#include "monitor/item_command.h"

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "monitor_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::kMonitorFailure;
using test::kProgrammingFailure;
using test::MonitorBench;
using test::Spoilt;
using Texts = std::vector<std::string>;

constexpr CommandItem kReset12 = {
    .item = u"12", .button = "Command_I12", .caption = TextKey::ResetFirst, .timer = "Item12_Timer"};
constexpr CommandItem kReset13 = {
    .item = u"13", .button = "Command_I13", .caption = TextKey::ResetSecond, .timer = "Item13_Timer"};

constexpr std::size_t kNever = static_cast<std::size_t>(-1);

/// A counter with a reset, in whose box a former answer stands.
struct CommandBench : MonitorBench {
  explicit CommandBench(const std::string& item = "12")
      : MonitorBench(u"Third", "QEC2.def", test::RowsOf({{.item = item, .index = 8}})),
        box(Box(FromUtf8(item))),
        command(*page, item == "12" ? kReset12 : kReset13) {
    line.items[item] = "RESETA0";
    box.SetText(u"old");
    box.SetLook(Look::Grey);
  }
  void Run() {
    Do([this] { command.Run(); });
  }

  TextField& box;
  ItemCommand command;
};

TEST(ItemCommandTest, WritesItsItemWithoutDataShowsTheAnswerAndReturnsAfterATenthOfASecond) {
  for (const std::string item : {"12", "13"}) {
    CommandBench bench(item);
    bench.Run();
    EXPECT_EQ(bench.line.Sent(), "G01 I01 D1 G01 I" + item + " D G01 I01 D0");
    EXPECT_EQ(bench.box.Text(), u"0");
    EXPECT_EQ(bench.box.ShownLook(), Look::Normal) << "window colours";
    EXPECT_TRUE(bench.AtRest());
    EXPECT_EQ(bench.Boxes(), Texts{});
    const auto& commands = bench.line.Commands();
    EXPECT_EQ(commands[6].received - commands[5].received, 110ms) << "10 ms of reply, then the wait";
  }
}

TEST(ItemCommandTest, TheBoxBlinksFromThePressToTheReturn) {
  CommandBench bench;
  bench.line.spoilt[4] = Spoilt::Silent;
  std::vector<std::pair<Clock, Look>> looks;
  bench.box.Observe([&] { looks.emplace_back(bench.host.loop.Now(), bench.box.ShownLook()); });
  bool blinks = false;
  bench.line.on_command = [&](const std::string& text) {
    blinks = text == "D0" && bench.command.BlinkTimer.Running();
  };
  bench.Run();
  ASSERT_GT(looks.size(), 10U);
  for (std::size_t at = 0; at < 10; ++at) {
    EXPECT_EQ(looks[at].first, Milliseconds(200 * static_cast<int>(at)));
    EXPECT_EQ(looks[at].second, at % 2 == 0 ? Look::Highlight : Look::Grey);
  }
  EXPECT_TRUE(blinks);
  EXPECT_TRUE(bench.TimersStopped());
  EXPECT_EQ(bench.box.ShownLook(), Look::Normal);
}

TEST(ItemCommandTest, NothingElseCanStartMeanwhile) {
  CommandBench bench;
  int looked = 0;
  bench.line.on_command = [&](const std::string&) {
    ++looked;
    const test::MonitorPage& page = *bench.page;
    EXPECT_TRUE(page.Shared().CommBusy && page.Shared().DownloadBusy);
    for (const Button* button : std::initializer_list<const Button*>{
             &test::Part<OutputSetting>(page).cmdSet, &test::Part<OutputSetting>(page).cmdStatusMonOFF,
             &test::Part<StatusMonitor>(page).cmdMonitorON, &test::Part<StatusMonitor>(page).cmdMonitorOFF,
             &page.cmdUpload, &page.cmdDownload, &page.cmdExit}) {
      EXPECT_FALSE(button->Enabled()) << button->FullName();
    }
    EXPECT_FALSE(page.Tabs.TabEnabled(0));
  };
  bench.Run();
  EXPECT_EQ(looked, 9);
}

TEST(ItemCommandTest, ADeviceThatDoesNotTakeProgrammingModeInTwoTriesKeepsTheFormerAnswer) {
  CommandBench bench;
  bench.line.refused.insert("01");
  bench.Run();
  EXPECT_EQ(bench.line.Sent(), "G01 I01 G01 I01");
  EXPECT_EQ(bench.Boxes(), Texts{kProgrammingFailure});
  EXPECT_EQ(bench.box.Text(), u"old");
  EXPECT_EQ(bench.box.ShownLook(), Look::Normal);
  EXPECT_TRUE(bench.AtRest());
}

TEST(ItemCommandTest, AnItemThatTheDeviceRefusesFourTimesShowsAnEmptyBoxAndTheDeviceReturns) {
  CommandBench bench;
  bench.line.refused.insert("12");
  bench.Run();
  EXPECT_EQ(bench.line.Sent(), "G01 I01 D1 G01 I12 G01 I12 G01 I12 G01 I12 G01 I01 D0");
  EXPECT_EQ(bench.box.Text(), u"");
  EXPECT_EQ(bench.Boxes(), Texts{});
  EXPECT_TRUE(bench.AtRest());
}

TEST(ItemCommandTest, ADeviceThatDoesNotReturnToMonitorModeIsToldAndThePageIsFree) {
  CommandBench bench;
  bench.line.silent_from = 7;
  bench.Run();
  EXPECT_EQ(bench.Boxes(), Texts{kMonitorFailure});
  EXPECT_EQ(bench.box.Text(), u"0");
  EXPECT_EQ(bench.box.ShownLook(), Look::Normal);
  EXPECT_TRUE(bench.AtRest());
}

TEST(ItemCommandTest, EachReplySilentRefusedGarbledOrLateLeavesThePageFreeAndTheDeviceInMonitorMode) {
  for (const Spoilt spoilt : test::kAllSpoilt) {
    for (std::size_t number = 1; number <= 9; ++number) {
      CommandBench bench;
      bench.line.spoilt[number] = spoilt;
      bench.Run();
      const std::string place = std::to_string(number) + " " + std::to_string(static_cast<int>(spoilt));
      EXPECT_TRUE(bench.AtRest()) << place;
      EXPECT_EQ(bench.box.ShownLook(), Look::Normal) << place;
      EXPECT_EQ(bench.line.writes.back(), "01=0") << place;
      EXPECT_FALSE(bench.ended) << place;
    }
  }
}

TEST(ItemCommandTest, TheCloseBoxAtAnyPumpIsHeldUntilTheDeviceIsBackInMonitorMode) {
  for (const std::size_t silent_from : {kNever, std::size_t{1}, std::size_t{3}, std::size_t{7}}) {
    CommandBench whole;
    whole.line.silent_from = silent_from;
    const std::size_t before = whole.host.loop.PumpCount();
    whole.Run();
    const std::size_t pumps = whole.host.loop.PumpCount() - before;
    ASSERT_GE(pumps, 2U);
    for (std::size_t at = 1; at <= pumps; ++at) {
      SCOPED_TRACE(std::to_string(silent_from) + " " + std::to_string(at));
      CommandBench bench;
      bench.line.silent_from = silent_from;
      const std::size_t first = bench.host.loop.PumpCount();
      bool told = false;
      bench.host.loop.OnPump([&] {
        if (bench.host.loop.PumpCount() == first + at) {
          bench.program.PressClose();
          told = bench.page->flaMsg_CannotEnd.Visible();
        }
      });
      bench.Run();
      EXPECT_TRUE(told);
      EXPECT_EQ(bench.line.Sent(), whole.line.Sent());
      EXPECT_EQ(bench.ended, silent_from == kNever);
      EXPECT_EQ(bench.Boxes().size(), silent_from == kNever ? 0U : 1U);
      EXPECT_TRUE(bench.TimersStopped());
      EXPECT_FALSE(bench.page->flaMsg_CannotEnd.Visible());
    }
  }
}

TEST(ItemCommandTest, ARowWithoutABoxOrWithAParameterIsNoCommand) {
  struct Case {
    test::MonitorRow row;
    bool serves;
  };
  for (const Case& one : std::vector<Case>{{{.item = "13", .index = 9}, true},
                                           {{.item = "13"}, false},
                                           {{.item = "13", .index = 9, .position = "3"}, false},
                                           {{.item = "12", .index = 9}, false}}) {
    MonitorBench bench(u"Third", "M.def", test::RowsOf({one.row}));
    ItemCommand command(*bench.page, kReset13);
    bench.line.items["13"] = "0";
    EXPECT_EQ(command.Serves(), one.serves);
    bench.Do([&] { command.Run(); });
    EXPECT_EQ(bench.line.Commands().empty(), !one.serves);
  }
}

}  // namespace
}  // namespace korva
