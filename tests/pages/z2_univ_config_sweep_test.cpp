// The operations of the page of family LiteUniv: each exchange in turn is broken, once and for good, in each
// way in which a line can break, and the close box is pressed at each pump.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/text_utilities.h"
#include "pages/z2_univ_config/z2_univ_config.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Boxes = std::vector<std::string>;

/// An address and choices that the device was not delivered with.
const std::vector<std::pair<std::string, std::string>> kSettings = {
    {"81", "2A hex"}, {"82", "38400 bps"}, {"83", "EVEN"}, {"84", "2 BITS"}};
const std::vector<std::string> kDelivered = {"01 hex", "9600 bps", "NONE", "1 BIT"};

struct Z2UnivSweep : SweepBench {
  Z2UnivSweep() : SweepBench(u"Z2WU") {}

  ModbusSettings& Modbus() { return dynamic_cast<z2UnivConfig&>(Page()).modbus; }
  void ReadOut() { Click(Modbus().cmdReadOutModbus); }
  /// Fills the tab in.
  void ChangeSettings() {
    Type(u"81", u"2a");
    Do([&] {
      for (const auto& [item, text] : kSettings) {
        if (item != "81") {
          Page().SetItem(std::stoi(item), FromUtf8(text));
        }
      }
      Page().BuildPage();
    });
    commands.clear();
    TakeBoxes();
  }
  /// Uploads, agreeing to each question that comes.
  void UploadAgreeing() {
    dialogs.OnBox([this](const Box& box) {
      if (box.buttons.size() > 1) {
        dialogs.QueueAnswer(box.buttons.front());
      }
    });
    Click(Page().cmdUpload);
    dialogs.OnBox(nullptr);
  }
  /// Takes another input, and another type of both outputs.
  void ChangeInput() {
    Pick(Page().Combo[0], u"熱電対");
    Pick(Page().Combo[1], u"TC K (CA)");
    Pick(Page().Combo[2], u"-10-10 V");
    Pick(Page().Combo[3], u"-2.5-2.5 V");
    commands.clear();
  }
};

struct Z2UnivOperation {
  std::string name;
  std::function<void(Z2UnivSweep&)> prepare;
  std::function<void(Z2UnivSweep&)> run;
  Boxes boxes;                                   ///< of a whole run
  std::vector<BoxKey> failures;                  ///< what else may be told
  std::function<void(const Z2UnivSweep&)> held;  ///< what holds of the device whatever broke
  bool ends_by_pause = false;                    ///< a close request ends the program at its next pause
};

void ExpectEachSettingOldOrNew(const Z2UnivSweep& bench) {
  for (std::size_t place = 0; place < kSettings.size(); ++place) {
    const auto& [item, text] = kSettings[place];
    const std::string held = bench.device.Value("01", item);
    EXPECT_TRUE(held == text || held == kDelivered[place]) << item << " holds " << held;
  }
}

void ExpectNothingWritten(const Z2UnivSweep& bench) {
  for (std::size_t place = 0; place < kSettings.size(); ++place) {
    EXPECT_EQ(bench.device.Value("01", kSettings[place].first), kDelivered[place]);
  }
}

const std::vector<Z2UnivOperation> kOperations = {
    {.name = "ReadOut",
     .prepare = [](Z2UnivSweep& bench) { bench.commands.clear(); },
     .run = [](Z2UnivSweep& bench) { bench.ReadOut(); },
     .boxes = {},
     .failures = {BoxKey::CommFailure},
     .held = ExpectNothingWritten,
     .ends_by_pause = true},
    {.name = "WriteIn",
     .prepare = [](Z2UnivSweep& bench) { bench.ChangeSettings(); },
     .run = [](Z2UnivSweep& bench) { bench.Click(bench.Modbus().cmdWriteInModbus); },
     .boxes = {Shown(BoxKey::ModbusChanged)},
     .failures = {BoxKey::CommFailure, BoxKey::NotProgrammingMode, BoxKey::NotMonitorMode},
     .held = ExpectEachSettingOldOrNew},
    {.name = "Reset",
     .prepare = [](Z2UnivSweep& bench) { bench.commands.clear(); },
     .run = [](Z2UnivSweep& bench) { bench.Click(bench.Modbus().cmdResetModbus); },
     .boxes = {},
     .failures = {BoxKey::CommFailure, BoxKey::NotProgrammingMode, BoxKey::NotMonitorMode},
     .held = ExpectNothingWritten},
    {.name = "Upload",
     .prepare =
         [](Z2UnivSweep& bench) {
           bench.device.Set("01", "10", "TC K (CA)");
           bench.commands.clear();
         },
     .run = [](Z2UnivSweep& bench) { bench.UploadAgreeing(); },
     .boxes = {Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload), Shown(BoxKey::UploadDone)},
     .failures = {BoxKey::CommFailure, BoxKey::NotMonitorMode, BoxKey::UploadAgain, BoxKey::ModelMatches,
                  BoxKey::StartUpload},
     .held = [](const Z2UnivSweep& bench) { EXPECT_EQ(bench.device.Value("01", "10"), "TC K (CA)"); },
     .ends_by_pause = true},
    {.name = "Download",
     .prepare = [](Z2UnivSweep& bench) { bench.ChangeInput(); },
     .run = [](Z2UnivSweep& bench) { bench.Download(); },
     .boxes = {Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadDone)},
     .failures = {BoxKey::CommFailure, BoxKey::NotMonitorMode, BoxKey::NotProgrammingMode,
                  BoxKey::StartDownload, BoxKey::OutputTypeUnknown, BoxKey::DownloadDataMismatch},
     .held =
         [](const Z2UnivSweep& bench) {
           const std::string input = bench.device.Value("01", "10");
           EXPECT_TRUE(input == "TC K (CA)" || input == "DC V") << input;
           EXPECT_EQ(bench.device.Value("01", "25"), "OFF") << "it is no item of thermocouples";
         }},
};

struct Z2UnivSweepTest : testing::TestWithParam<Z2UnivOperation> {
  /// Boxes of a run that fails: each one that may be told, and the whole run's report at most behind the
  /// others.
  static void ExpectTold(const Boxes& boxes) {
    Boxes allowed = GetParam().boxes;
    for (const BoxKey key : GetParam().failures) {
      allowed.push_back(Shown(key));
    }
    for (const std::string& box : boxes) {
      EXPECT_NE(std::find(allowed.begin(), allowed.end(), box), allowed.end()) << box;
    }
  }
};
INSTANTIATE_TEST_SUITE_P(Operation, Z2UnivSweepTest, testing::ValuesIn(kOperations),
                         [](const auto& one) { return one.param.name; });

TEST_P(Z2UnivSweepTest, WhateverBreaksItIsDoneOrToldAndThePageGoesOn) {
  Z2UnivSweep whole;
  GetParam().prepare(whole);
  whole.TakeBoxes();
  GetParam().run(whole);
  ASSERT_EQ(whole.TakeBoxes(), GetParam().boxes);
  const std::vector<Break> breaks =
      OneIn(GetParam().name == "ReadOut" ? 2 : 7, BreaksOf(whole.commands.size()));
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    Z2UnivSweep bench;
    GetParam().prepare(bench);
    bench.TakeBoxes();
    bench.StartBreak(line_break);
    const Clock begin = bench.loop.Now();
    GetParam().run(bench);
    EXPECT_LE(bench.loop.Now() - begin, kLongestRun);
    ExpectTold(bench.TakeBoxes());
    GetParam().held(bench);
    bench.ExpectUsable();
    // The line is good again, once what came too late has been drained.
    bench.device.ClearFaults();
    bench.loop.RunUntilIdle();
    bench.ReadOut();
    EXPECT_EQ(bench.TakeBoxes(), Boxes());
    for (const auto& [item, text] : kSettings) {
      const std::string held = bench.device.Value("01", item);
      const std::string shown = ToUtf8(bench.Page().Item(std::stoi(item)));
      EXPECT_EQ(shown + (item == "81" ? " hex" : ""), held);
    }
    bench.ExpectUploadWorks();
    ASSERT_FALSE(HasFailure());
  }
  TellShare("Z2WU: " + GetParam().name + " with a broken exchange", breaks.size(), 9 * whole.commands.size());
}

TEST_P(Z2UnivSweepTest, ClosedAtAnyPumpItEndsWithTheDeviceAsItIsToBe) {
  Z2UnivSweep whole;
  GetParam().prepare(whole);
  const std::size_t before = whole.loop.PumpCount();
  GetParam().run(whole);
  const std::size_t pumps = whole.loop.PumpCount() - before;
  const std::vector<std::size_t> sampled = OneIn(3, SampledPumps(pumps));
  for (const std::size_t at : sampled) {
    SCOPED_TRACE(at);
    Z2UnivSweep bench;
    GetParam().prepare(bench);
    std::size_t sent = 0;
    bench.loop.OnPump([&, first = bench.loop.PumpCount() + 1, at] {
      if (bench.loop.PumpCount() == first + at) {
        sent = bench.commands.size();
        bench.app.program.PressClose();
      }
    });
    GetParam().run(bench);
    GetParam().held(bench);
    if (GetParam().ends_by_pause) {
      EXPECT_EQ(bench.status, 0);
      EXPECT_LE(bench.commands.size(), sent) << "no exchange begins after the one under way";
    }
    EXPECT_EQ(bench.app.program.Window().Get(), nullptr);
    EXPECT_EQ(bench.device.Mode(), '0') << "no device is left in programming mode";
    ASSERT_FALSE(HasFailure());
  }
  TellShare("Z2WU: " + GetParam().name + " closed", sampled.size(), pumps);
}

}  // namespace
}  // namespace korva::test
