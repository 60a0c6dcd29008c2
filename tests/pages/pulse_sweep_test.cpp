// Exchanges of each common operation on the pages of the pulse transmitters are broken in turn. Whatever
// happens, the page can be used again, the device can be read, and a success is one.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "support/page_parts.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

struct PulseModel {
  const char* name;
  const char* cut_out;             ///< item of a number that is changed
  std::vector<std::string> cycle;  ///< live items, in their order
  bool refusal_is_answer = false;  ///< values are proved by the presence of an answer alone
};
const std::vector<PulseModel> kPulseModels = {
    {.name = "Z2WQ", .cut_out = "11", .cycle = {"06", "07"}, .refusal_is_answer = true},
    {.name = "Z2WPA", .cut_out = "18", .cycle = {"05", "06"}},
    {.name = "Z2WPR", .cut_out = "12", .cycle = {"04", "05", "06"}},
    {.name = "Z2WPL", .cut_out = "12", .cycle = {"04", "05", "06"}},
};
void PrintTo(const PulseModel& model, std::ostream* out) { *out << model.name; }

/// A page whose uploaded set is changed in two places.
struct PulseSweep : SweepBench {
  explicit PulseSweep(const PulseModel& of_model) : SweepBench(FromUtf8(of_model.name)), model(of_model) {
    Type(u"02", u"SWEEP");
    Type(FromUtf8(model.cut_out), u"3.00");
    Page().DataChanged = false;
    changed = SetOf();
  }
  /// Monitors until the button that stops is pressed, behind four seconds or as soon as it can be.
  void Monitor() {
    StopFrom(4s);
    Click(Part<StatusMonitor>(Page()).cmdMonitorON);
  }
  /// Forces the output, and lets it go if it was forced.
  void ForceAndLetGo() {
    auto& output = Part<OutputSetting>(Page());
    Type(Page().FindField(u"24_set") == nullptr ? u"03_set" : u"24_set", u"40");
    Click(output.cmdSet);
    if (app.program.Shared().CommBusy) {
      Click(output.cmdStatusMonOFF);
    }
  }
  [[nodiscard]] bool DeviceHoldsChanges() const {
    return Trimmed(FromUtf8(device.Value("01", "02"))) == u"SWEEP" &&
           LeadingNumber(FromUtf8(device.Value("01", model.cut_out))) == 3;
  }

  const PulseModel& model;
  std::vector<String> changed;  ///< SetOf() before the operation

 private:
  void StopFrom(Clock after) {
    loop.After(std::chrono::ceil<Milliseconds>(after), [this] {
      Button& stop = Part<StatusMonitor>(Page()).cmdMonitorOFF;
      if (stop.Enabled() && app.program.Shared().CommBusy) {
        stop.Click();
      } else if (app.program.Shared().CommBusy) {
        StopFrom(1s);
      }
    });
  }
};

struct PulseOperation {
  const char* name;
  std::function<void(PulseSweep&)> run;
  std::vector<BoxKey> boxes;  ///< that may show
};
const std::vector<PulseOperation> kPulseOperations = {
    {.name = "Upload",
     .run = [](PulseSweep& bench) { bench.Upload(); },
     .boxes = {BoxKey::ModelMatches, BoxKey::StartUpload, BoxKey::UploadDone, BoxKey::NotMonitorMode,
               BoxKey::CommFailure, BoxKey::UploadLinearizer}},
    {.name = "Download",
     .run = [](PulseSweep& bench) { bench.Download(); },
     .boxes = {BoxKey::StartDownload, BoxKey::DownloadDone, BoxKey::DownloadDataMismatch,
               BoxKey::NotMonitorMode, BoxKey::NotProgrammingMode, BoxKey::CommFailure}},
    {.name = "Monitor", .run = [](PulseSweep& bench) { bench.Monitor(); }, .boxes = {BoxKey::NotMonitorMode}},
    {.name = "Output",
     .run = [](PulseSweep& bench) { bench.ForceAndLetGo(); },
     .boxes = {BoxKey::NotProgrammingMode, BoxKey::NotMonitorMode}},
};
void PrintTo(const PulseOperation& operation, std::ostream* out) { *out << operation.name; }

struct PulseOperationTest : testing::TestWithParam<std::tuple<PulseModel, PulseOperation>> {};
INSTANTIATE_TEST_SUITE_P(Page, PulseOperationTest,
                         testing::Combine(testing::ValuesIn(kPulseModels),
                                          testing::ValuesIn(kPulseOperations)),
                         [](const auto& one) {
                           return std::string(std::get<0>(one.param).name) + "_" +
                                  std::get<1>(one.param).name;
                         });

/// Where a live value stands a number does, what the device refused, or nothing.
void ExpectLive(PulseSweep& bench) {
  for (const std::string& item : bench.model.cycle) {
    const String shown = bench.Field(FromUtf8(item)).Text();
    EXPECT_TRUE(shown.empty() || shown == u"ERROR" || IsNumeric(shown)) << item << ' ' << ToUtf8(shown);
  }
}

TEST_P(PulseOperationTest, BrokenAtAnyExchangeEndsWithAPageThatCanBeUsedAndATrueReport) {
  const auto& [model, operation] = GetParam();
  PulseSweep good(model);
  operation.run(good);
  good.ExpectUsable();
  const bool download = std::string_view(operation.name) == "Download";
  EXPECT_EQ(good.DeviceHoldsChanges(), download);
  const std::vector<Break> breaks = OneIn(5, BreaksOf(good.commands.size()));
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    PulseSweep bench(model);
    const Clock begun = bench.loop.Now();
    bench.StartBreak(line_break);
    operation.run(bench);
    EXPECT_LT(bench.loop.Now() - begun, kLongestRun);
    bench.ExpectUsable();
    const Texts boxes = bench.TakeBoxes();
    for (const std::string& box : boxes) {
      EXPECT_TRUE(std::any_of(operation.boxes.begin(), operation.boxes.end(), [&](BoxKey key) {
        return box == Shown(key);
      })) << box;
    }
    const bool done = std::find(boxes.begin(), boxes.end(), Shown(BoxKey::DownloadDone)) != boxes.end();
    const bool unproved = model.refusal_is_answer && line_break.fault == sim::Fault::Refused;
    if (done && !unproved) {
      EXPECT_TRUE(bench.DeviceHoldsChanges()) << "no success without all of it";
    }
    if (std::string_view(operation.name) == "Monitor") {
      ExpectLive(bench);
    }
    if (std::string_view(operation.name) != "Upload") {
      EXPECT_TRUE(bench.changed.at(2) == bench.SetOf().at(2)) << "the page keeps its values";
    }
    if (bench.dialogs.Unused() == 0) {
      bench.ExpectUploadWorks();
    }
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string(model.name) + ": " + operation.name + " with a broken exchange", breaks.size(),
            9 * good.commands.size());
}

}  // namespace
}  // namespace korva::test
