// Each exchange of each button's whole operation on the page of family Nano is broken in turn, and the close
// box is pressed at each pump. Whatever happens, the page can be used again, the device can be read, and
// nothing was told that isn't so.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/z8_kv_config/z8_kv_config.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

/// A page with its set uploaded, whose model has what the operation is about.
struct NanoSweep : SweepBench {
  using SweepBench::SweepBench;

  z8KvConfig& Z8() { return dynamic_cast<z8KvConfig&>(Page()); }

  /// Runs a trim with a step inside, and presses STOP behind six seconds.
  void RunTrim(FineTrim& trim, Button& step) {
    loop.After(1200ms, [this, &step] {
      if (Page().WhyRefused(step).empty()) {
        step.Click();
      }
    });
    StopBehind(6s, trim);
    Click(trim.StartButton);
  }
  void ExpectIdle() {
    ExpectUsable();
    for (FineTrim* trim : {&Z8().first_zero, &Z8().first_span, &Z8().second_zero, &Z8().second_span}) {
      EXPECT_EQ(trim->StartButton.Caption(), u"START") << trim->StartButton.Name();
      EXPECT_TRUE(trim->StartButton.Enabled()) << trim->StartButton.Name();
      EXPECT_FALSE(trim->P01Button.Pending() || trim->ResetButton.Pending());
    }
    EXPECT_TRUE(Z8().compensation.cmdReadOutComp.Enabled());
  }

 private:
  void StopBehind(Milliseconds time, FineTrim& trim) {
    loop.After(time, [this, &trim] {
      if (trim.Running()) {
        trim.StartButton.Click();
      } else if (app.program.Shared().CommBusy) {
        StopBehind(1s, trim);
      }
    });
  }
};

struct NanoOperation {
  const char* name;
  String model;
  std::function<void(NanoSweep&)> run;
  std::vector<BoxKey> boxes;  ///< that may show
  std::size_t one_in = 1;     ///< the share that is tried
};

void PrintTo(const NanoOperation& operation, std::ostream* out) { *out << operation.name; }

/// Uses the user's curve of a thermocouple, of three points.
void UseTable(NanoSweep& bench) {
  bench.Pick(bench.Page().Combo[0], u"13 User's TC");
  bench.Do([&bench] {
    LnrTable& table = bench.Z8().tables.TableOf(UserTable::Thermocouple);
    for (int row = 1; row <= 3; ++row) {
      table.Store(row, 1, Ascii(std::to_string(row)));
    }
  });
  bench.Type(bench.Z8().tables.fields.txtStep, u"10");
  bench.Type(bench.Z8().tables.fields.txtBase, u"0");
  bench.Type(bench.Z8().tables.fields.txtSize, u"3");
  bench.Page().DataChanged = false;
}

const std::vector<NanoOperation> kNanoOperations = {
    {.name = "Upload",
     .model = u"Z8WR2",
     .run = [](NanoSweep& bench) { bench.Upload(); },
     .boxes = {BoxKey::CommFailure, BoxKey::NotMonitorMode, BoxKey::UploadDone, BoxKey::UploadAgain,
               BoxKey::ModelMismatch},
     .one_in = 17},
    {.name = "Download",
     .model = u"Z8WT2",
     .run =
         [](NanoSweep& bench) {
           UseTable(bench);
           bench.Type(u"12_0", u"5");
           bench.Download();
         },
     .boxes = {BoxKey::StartDownload, BoxKey::CommFailure, BoxKey::NotMonitorMode, BoxKey::NotProgrammingMode,
               BoxKey::ModelMismatch, BoxKey::OutputTypeUnknown, BoxKey::OutputTypeMismatch,
               BoxKey::DownloadDataMismatch, BoxKey::DownloadDone, BoxKey::TableWriteFailed,
               BoxKey::TableReadWriteFailed},
     .one_in = 29},
    {.name = "ZeroTrim",
     .model = u"Z8WV2",
     .run = [](NanoSweep& bench) { bench.RunTrim(bench.Z8().first_zero, bench.Z8().first_zero.P01Button); },
     .boxes = {BoxKey::NotMonitorMode},
     .one_in = 5},
    {.name = "SpanTrimReset",
     .model = u"Z8WV2",
     .run =
         [](NanoSweep& bench) { bench.RunTrim(bench.Z8().second_span, bench.Z8().second_span.ResetButton); },
     .boxes = {BoxKey::NotMonitorMode},
     .one_in = 5},
    {.name = "LineSet",
     .model = u"Z8WR2",
     .run = [](NanoSweep& bench) { bench.Click(bench.Z8().compensation.cmdLineSet); },
     .boxes = {}},
    {.name = "Position",
     .model = u"Z8WM2",
     .run = [](NanoSweep& bench) { bench.Click(bench.Z8().compensation.cmd100Per); },
     .boxes = {}},
    {.name = "ColdJunction",
     .model = u"Z8WT2",
     .run =
         [](NanoSweep& bench) {
           bench.dialogs.QueueAnswer(Answer::Yes);
           bench.Click(bench.Z8().cold_junction.cmdDefaultCJM);
         },
     .boxes = {BoxKey::ChangeCjm, BoxKey::CommFailure, BoxKey::NotProgrammingMode, BoxKey::NotMonitorMode,
               BoxKey::CjmSetToDefault},
     .one_in = 3},
};

/// The text of a box as far as it is the same whatever it tells of.
std::string Beginning(BoxKey key) {
  const std::string text = Shown(key, {u"\n", u"\n", u"\n"});
  return text.substr(0, text.find('\n'));
}

struct NanoSweepTest : testing::TestWithParam<NanoOperation> {
  /// A bench at whose page the operation can begin.
  static std::unique_ptr<NanoSweep> Bench() {
    auto bench = std::make_unique<NanoSweep>(GetParam().model);
    if (GetParam().name == std::string("ColdJunction")) {
      bench->dialogs.QueueAnswer(Answer::Yes);
      bench->Click(bench->Z8().cold_junction.cmdChangeCJM);
      bench->TakeBoxes();
    }
    bench->commands.clear();
    return bench;
  }
};
INSTANTIATE_TEST_SUITE_P(Operation, NanoSweepTest, testing::ValuesIn(kNanoOperations),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(NanoSweepTest, BrokenAtAnyExchangeEndsWithAPageThatCanBeUsedAndADeviceThatCanBeRead) {
  const auto good = Bench();
  GetParam().run(*good);
  good->ExpectIdle();
  const std::vector<Break> all = BreaksOf(good->commands.size());
  const std::vector<Break> breaks = OneIn(GetParam().one_in, all);
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    const auto bench = Bench();
    bench->StartBreak(line_break);
    GetParam().run(*bench);
    bench->ExpectIdle();
    for (const std::string& box : bench->TakeBoxes()) {
      EXPECT_TRUE(std::any_of(GetParam().boxes.begin(), GetParam().boxes.end(), [&](BoxKey key) {
        return box.starts_with(Beginning(key));
      })) << box;
    }
    bench->ExpectUploadWorks();
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string("Nano ") + GetParam().name + " with a broken exchange", breaks.size(), all.size());
}

TEST_P(NanoSweepTest, ClosedAtAnyPumpEndsTheProgramAtAPauseOrKeepsTheWindowUntilTheDeviceIsBack) {
  const auto whole = Bench();
  std::size_t pumps = 0;
  whole->loop.OnPump([&] { ++pumps; });
  GetParam().run(*whole);
  std::vector<std::size_t> places(pumps);
  for (std::size_t at = 0; at < pumps; ++at) {
    places[at] = at;
  }
  const std::vector<std::size_t> tried = OneIn(1 + (2 * GetParam().one_in), places);
  for (const std::size_t at : tried) {
    SCOPED_TRACE(at);
    const auto bench = Bench();
    bench->loop.OnPump([&bench, at, first = bench->loop.PumpCount() + 1] {
      if (bench->loop.PumpCount() == first + at) {
        bench->app.program.PressClose();
      }
    });
    GetParam().run(*bench);
    EXPECT_TRUE(bench->status.has_value() || !bench->app.program.Shared().CommBusy);
    EXPECT_EQ(bench->device.Mode(), '0') << "the device is not left in programming mode";
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string("Nano ") + GetParam().name + " closed", tried.size(), pumps);
}

}  // namespace
}  // namespace korva::test
