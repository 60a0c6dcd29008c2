// The operations of the page of family LiteUniv: each exchange in turn is broken, once and for good, in each
// way in which a line can break, and the close box is pressed at each pump.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/numbers.h"
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

  UserTables& Tables() { return dynamic_cast<z2UnivConfig&>(Page()).tables; }
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

// --- the user's own tables

/// A table in use, and how it moves.
struct Z2UnivTableMove {
  std::string name;
  std::string input;    ///< with it the device has the table in use
  std::string item;     ///< by which the table travels
  BoxKey done;          ///< what a whole move tells at its end
  bool writes = false;  ///< it goes to its end; any other ends behind the exchange under way
  std::function<void(Z2UnivSweep&)> run;
};

void UploadTable(Z2UnivSweep& bench) { bench.UploadAgreeing(); }
void ReadTableOut(Z2UnivSweep& bench) { bench.Click(bench.Tables().buttons.cmdReadOutTable); }
void WriteTableIn(Z2UnivSweep& bench) { bench.Click(bench.Tables().buttons.cmdWriteInTable); }
void DownloadTable(Z2UnivSweep& bench) {
  bench.TakeTables();
  bench.Download();
}

const std::vector<Z2UnivTableMove> kTableMoves = {
    {.name = "UploadOfACurve",
     .input = "User's TC",
     .item = "60",
     .done = BoxKey::UploadDone,
     .run = UploadTable},
    {.name = "UploadOfALinearizer",
     .input = "DC V",
     .item = "62",
     .done = BoxKey::UploadDone,
     .run = UploadTable},
    {.name = "ReadOutOfACurve",
     .input = "User's TC",
     .item = "60",
     .done = BoxKey::TableRead,
     .run = ReadTableOut},
    {.name = "WriteInOfACurve",
     .input = "User's TC",
     .item = "60",
     .done = BoxKey::TableWritten,
     .writes = true,
     .run = WriteTableIn},
    {.name = "DownloadOfALinearizer",
     .input = "DC V",
     .item = "62",
     .done = BoxKey::DownloadDone,
     .writes = true,
     .run = DownloadTable},
};

/// Page and device have a table of three rows in use; the device's second value differs from the page's.
struct Z2UnivTableSweep : Z2UnivSweep {
  explicit Z2UnivTableSweep(const Z2UnivTableMove& move) : in_device(device.GetKeyedTable(move.item)) {
    in_device.SetSize(3);
    device.Set("01", "10", move.input);
    device.Set("01", "25", "ON");
    UploadAgreeing();
    for (std::size_t row = 0; row < 3; ++row) {
      in_device.SetValue(row, 0, row == 1 ? 7.25 : 10.0 * static_cast<double>(row));
    }
    Do([this] {
      for (int row = 1; row <= 3; ++row) {
        Points().Store(row, 1, FormatMask(row == 2 ? 7.5 : 10.0 * (row - 1), u"0.00"));
      }
    });
    Page().DataChanged = false;
    TakeBoxes();
    commands.clear();
    first_pump = loop.PumpCount() + 1;
  }
  LnrTable& Points() { return Tables().TableOf(Tables().Shown()); }

  sim::KeyedTable& in_device;
  std::size_t first_pump = 0;
};

struct Z2UnivTableMoveTest : testing::TestWithParam<Z2UnivTableMove> {};
INSTANTIATE_TEST_SUITE_P(Move, Z2UnivTableMoveTest, testing::ValuesIn(kTableMoves),
                         [](const auto& one) { return one.param.name; });

TEST_P(Z2UnivTableMoveTest, ClosedAtAnyPumpAReadEndsWithinOneExchangeAndAWriteGoesToItsEnd) {
  const std::string done = Shown(GetParam().done);
  Z2UnivTableSweep whole(GetParam());
  GetParam().run(whole);
  ASSERT_EQ(whole.TakeBoxes().back(), done);
  ASSERT_EQ(whole.Points().Value(2, 1), GetParam().writes ? u"7.50" : u"7.2500");
  const std::size_t pumps = whole.loop.PumpCount() + 1 - whole.first_pump;
  const std::vector<std::size_t> sampled = OneIn(3, SampledPumps(pumps));
  for (const std::size_t at : sampled) {
    SCOPED_TRACE(at);
    Z2UnivTableSweep bench(GetParam());
    std::size_t sent = 0;
    bench.loop.OnPump([&] {
      if (bench.loop.PumpCount() == bench.first_pump + at) {
        sent = bench.commands.size();
        bench.app.program.PressClose();
      }
    });
    GetParam().run(bench);
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.device.Mode(), '0') << "no device is left in programming mode";
    const Boxes boxes = bench.TakeBoxes();
    const bool told = std::find(boxes.begin(), boxes.end(), done) != boxes.end();
    if (GetParam().writes) {
      EXPECT_TRUE(told);
      EXPECT_EQ(bench.commands, whole.commands);
      EXPECT_EQ(std::stod(bench.in_device.Value(1)), 7.5);
    } else {
      EXPECT_FALSE(told);
      EXPECT_LE(bench.commands.size(), sent) << "no exchange begins after the one under way";
      EXPECT_EQ(std::stod(bench.in_device.Value(1)), 7.25);
    }
    ASSERT_FALSE(HasFailure());
  }
  TellShare("Z2WU: " + GetParam().name + " closed", sampled.size(), pumps);
}

}  // namespace
}  // namespace korva::test
