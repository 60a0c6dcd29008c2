// The reset of the universal transmitter, with its window, from the page of family LiteUniv.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "z2_univ_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

using namespace std::chrono_literals;

struct SystemResetTest : testing::Test {
  SystemResetTest() {
    bench.line.accesses.clear();
    bench.app.program.Window().Observe([this](const ModalWindow& window, bool open) {
      (open ? opened : closed) = bench.loop.Now();
      EXPECT_EQ(window.Name(), "frmWaiting");
    });
  }

  ModbusSettings& Modbus() { return bench.Univ().modbus; }
  Texts BoxesOfReset() {
    bench.TakeBoxes();
    bench.line.accesses.clear();
    bench.Click(Modbus().cmdResetModbus);
    return bench.TakeBoxes();
  }

  Z2UnivBench bench;
  std::optional<Clock> opened;
  std::optional<Clock> closed;
};

TEST_F(SystemResetTest, ResetsInProgrammingModeWaitsAndReadsInMonitorMode) {
  bench.device.Set("01", "81", "44");
  EXPECT_EQ(BoxesOfReset(), Texts());
  EXPECT_EQ(bench.line.accesses,
            (Texts{"01/01", "01/01 D1", "00/88", "00/88 DR", "01/01", "01/01 D0", "00/01", "01/81", "01/81 D",
                   "01/82", "01/82 D", "01/83", "01/83 D", "01/84", "01/84 D"}));
  EXPECT_EQ(bench.Field(u"81").Text(), u"44");
  EXPECT_EQ(bench.device.InForce("81"), "44 hex") << "what was written is in force now";
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.ExpectAtRest();
}

TEST_F(SystemResetTest, TheWindowStandsForFiveAndAHalfSecondsWithABarThatRisesByTens) {
  std::vector<std::pair<int, Clock>> steps;
  Modbus().Reset_ProgressBar.Observe([&] {
    steps.emplace_back(static_cast<int>(Modbus().Reset_ProgressBar.Value()), bench.loop.Now() - *opened);
  });
  BoxesOfReset();
  ASSERT_TRUE(opened && closed);
  EXPECT_EQ(*closed - *opened, 5500ms);
  ASSERT_EQ(steps.size(), 11U);
  for (std::size_t step = 0; step < 10; ++step) {
    EXPECT_EQ(steps[step].first, static_cast<int>(step + 1) * 10);
    EXPECT_EQ(steps[step].second, (step + 1) * 500ms);
  }
  EXPECT_EQ(steps.back().first, 0) << "at rest again";
  EXPECT_EQ(Modbus().lblResetMsg.Caption(), u"ｼｽﾃﾑをﾘｾｯﾄしています。\n\rしばらくお待ち下さい");
}

TEST_F(SystemResetTest, WhileTheWindowIsOpenThePageBehindItTakesNothing) {
  bench.loop.After(2s, [&] {
    ASSERT_TRUE(opened && !closed);
    EXPECT_EQ(bench.app.program.Window().Get()->Controls().size(), 2U);
    for (const Control* control : bench.Page().Controls()) {
      EXPECT_EQ(bench.Page().WhyRefused(*control), "window open") << control->FullName();
    }
  });
  BoxesOfReset();
  EXPECT_EQ(bench.app.program.Window().Get(), nullptr);
  EXPECT_EQ(bench.Page().WhyRefused(bench.Page().cmdUpload), "");
}

TEST_F(SystemResetTest, OnCom4ItContinuesOnCom2) {
  for (const int number : {2, 3, 4}) {
    bench.port.Connect(number, &bench.line);
  }
  for (const auto& [chosen, ends_on] : std::vector<std::pair<int, int>>{{1, 1}, {2, 2}, {3, 2}, {4, 2}}) {
    SCOPED_TRACE(chosen);
    bench.Press(bench.Page().OptCom, chosen - 1);
    EXPECT_EQ(BoxesOfReset(), Texts());
    EXPECT_EQ(bench.port.Number(), ends_on);
    EXPECT_EQ(bench.Page().OptCom.Selected(), ends_on - 1) << "and the page shows it";
  }
}

TEST_F(SystemResetTest, LeavesThePortAt38400Baud) {
  BoxesOfReset();
  EXPECT_EQ(bench.port.Settings().baud, 38400);
  EXPECT_TRUE(bench.port.IsOpen());
}

TEST_F(SystemResetTest, ADeviceThatTakesNoProgrammingModeEndsItBehindItsBox) {
  bench.line.replies["01/01 D1"] = std::nullopt;
  EXPECT_EQ(BoxesOfReset(), Texts{Shown(BoxKey::NotProgrammingMode)});
  EXPECT_EQ(bench.line.accesses.size(), 8U) << "four tries, and nothing behind them";
  EXPECT_FALSE(opened);
  bench.ExpectAtRest();
}

TEST_F(SystemResetTest, TheAnswerToTheResetIsNotLookedAt) {
  bench.line.replies["00/88 DR"] = std::nullopt;
  EXPECT_EQ(BoxesOfReset(), Texts());
  EXPECT_EQ(bench.Accesses("00/88 DR").size(), 1U) << "one try";
}

TEST_F(SystemResetTest, ADeviceThatDoesNotComeBackGivesAnEmptyReadAndTheFailureBox) {
  bench.Click(Modbus().cmdReadOutModbus);
  bench.device.AddFault(sim::ParseFault("no-return"));
  EXPECT_EQ(BoxesOfReset(), (Texts{Shown(BoxKey::NotMonitorMode), Shown(BoxKey::CommFailure)}));
  EXPECT_EQ(bench.Field(u"81").Text(), u"");
  bench.ExpectAtRest();
}

TEST_F(SystemResetTest, APortThatDoesNotOpenEndsTheProgramWithItsBoxAndARescueFile) {
  bench.ReadAll();
  bench.Type(u"02", u"KEPT");
  ASSERT_TRUE(bench.Page().DataChanged);
  bench.loop.After(2s, [&] { bench.port.Remove(1); });
  bench.Click(Modbus().cmdResetModbus);
  EXPECT_EQ(bench.status, 1);
  ASSERT_EQ(bench.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench.dialogs.Failures().front().find(u"COM 1"), String::npos)
      << ToUtf8(bench.dialogs.Failures().front());
  EXPECT_NE(bench.TextOf(u"/korva/data/rescue.cfg").find(u"KEPT"), String::npos);
  EXPECT_TRUE(closed) << "the window has gone";
}

TEST_F(SystemResetTest, ACloseRequestIsHeldUntilTheNextPauseAndEndsTheProgramThere) {
  Clock asked{0};
  bench.loop.After(2s, [&] {
    asked = bench.loop.Now();
    bench.app.program.PressClose();
    EXPECT_TRUE(bench.Page().lblHeldClose.Visible());
    EXPECT_FALSE(bench.Page().flaMsg_CannotEnd.Visible());
  });
  bench.Click(Modbus().cmdResetModbus);
  EXPECT_EQ(bench.status, 0);
  EXPECT_LE(bench.loop.Now() - asked, 500ms);
  EXPECT_EQ(closed, bench.loop.Now());
  EXPECT_EQ(bench.Accesses("01/81"), Texts());
}

TEST_F(SystemResetTest, ACloseRequestWhileTheDeviceIsWrittenWaitsForTheWindow) {
  bench.loop.After(1ms, [&] {
    bench.app.program.PressClose();
    EXPECT_TRUE(bench.Page().flaMsg_CannotEnd.Visible());
  });
  bench.Click(Modbus().cmdResetModbus);
  EXPECT_EQ(bench.status, 0);
  EXPECT_EQ(bench.Accesses("00/88 DR").size(), 1U) << "the device is not left in programming mode";
  EXPECT_EQ(*closed - *opened, 500ms);
}

}  // namespace
}  // namespace korva::test
