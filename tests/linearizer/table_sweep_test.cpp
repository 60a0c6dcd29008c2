// Each exchange of a table's upload and download in turn is broken, once and for good, in each way in which a
// line can break, and the close box is pressed at each pump; each run must end as it should.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <tuple>

#include "core/text_utilities.h"
#include "support/page_parts.h"
#include "support/sampled.h"
#include "support/tabs.h"
#include "table_bench.h"

namespace korva::test {
namespace {

using sim::Fault;

/// No run takes longer than this: each value waited for in vain, four times.
constexpr Clock kLongestRun = std::chrono::hours(3);

/// An exchange of the table.
struct Step {
  int position = -1;  ///< of the value; -1: the access to programming mode
  char letter = 'G';
  bool write = false;
};

std::vector<Step> StepsOf(const TableBench& bench, bool download) {
  std::vector<Step> steps;
  const auto add = [&](int position, const std::string& letters) {
    for (const char letter : letters) {
      steps.push_back({.position = position, .letter = letter, .write = letters.size() == 3});
    }
  };
  if (download) {
    add(-1, "GID");
  }
  for (int position = 0; position < bench.Count(); ++position) {
    add(position, "GI");
    if (download) {
      add(position, "GID");
    }
  }
  return steps;
}

struct Break {
  Fault fault;
  bool for_good = false;
  int after = 0;  ///< exchanges of the transfer before it
  Step step;

  /// False for a device that answers too late for good: what it answers then depends on each instant.
  [[nodiscard]] bool Foreseen() const { return fault != Fault::Late || !for_good; }
  [[nodiscard]] std::string Name() const {
    return std::string(sim::AllFaults()[static_cast<std::size_t>(fault)].name) +
           (for_good ? " for good" : " once") + ", value " + std::to_string(step.position) + " " +
           step.letter + (step.write ? " of the write" : " of the read");
  }
};

/// The breaks of a whole transfer, of which the table's exchanges are the last, save the `closing` ones.
std::vector<Break> BreaksOf(const TableBench& good, bool download) {
  const std::vector<Step> steps = StepsOf(good, download);
  const int closing = download ? 3 : 0;
  const int before = static_cast<int>(good.commands.size() - steps.size()) - closing;
  std::vector<Break> breaks;
  for (std::size_t place = 0; place < steps.size(); ++place) {
    for (const Fault fault : {Fault::Silent, Fault::Refused, Fault::Garbled, Fault::Late}) {
      for (const bool for_good : {false, true}) {
        breaks.push_back({.fault = fault,
                          .for_good = for_good,
                          .after = before + static_cast<int>(place),
                          .step = steps[place]});
      }
    }
    breaks.push_back(
        {.fault = Fault::Doubled, .after = before + static_cast<int>(place), .step = steps[place]});
  }
  return Sampled(breaks);
}

void Start(TableBench& bench, const Break& line_break) {
  bench.device.ClearFaults();
  bench.commands.clear();
  const int first = bench.device.Exchanges() + 1 + line_break.after;
  bench.device.AddFault({.fault = line_break.fault,
                         .first = first,
                         .last = line_break.for_good ? sim::FaultRule::kForGood : first,
                         .command = {}});
}

void ExpectUsable(TableBench& bench) {
  const SharedState& shared = bench.app.program.Shared();
  const ParameterPage& page = bench.Page();
  EXPECT_FALSE(bench.status.has_value()) << "the program has ended";
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested || page.UploadBusy ||
               page.CommFailed);
  EXPECT_EQ(page.TransferBar.Value(), 0.0F);
  EXPECT_EQ(Part<Linearizer>(page).LnrProgressBar.Value(), 0.0F);
  EXPECT_FALSE(page.flaMsg_CannotEnd.Visible());
  for (const Control* control :
       {static_cast<const Control*>(&page.cmdUpload), static_cast<const Control*>(&page.cmdDownload),
        static_cast<const Control*>(&page.cmdSave), static_cast<const Control*>(&page.lst_TypeSelect),
        static_cast<const Control*>(&Part<Linearizer>(page).LnrFlexGrid),
        static_cast<const Control*>(&Part<Linearizer>(page).cmd_csvFileOpen)}) {
    EXPECT_EQ(page.WhyRefused(*control), "") << control->FullName();
  }
  for (const TextKey tab : {TextKey::File, TextKey::Input, TextKey::Output, TextKey::Linearizer,
                            TextKey::Port, TextKey::IoCheck}) {
    EXPECT_TRUE(TabOpen(page, tab)) << ToUtf8(CaptionText(tab));
  }
}

/// The line is good again: what is still under way arrives, and an upload brings the device's table.
void ExpectUploadWorks(TableBench& bench) {
  bench.device.ClearFaults();
  bench.loop.RunUntilIdle();
  bench.Page().DataChanged = false;
  bench.UploadAll();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
  EXPECT_EQ(bench.SetTable(), bench.DeviceTable());
  EXPECT_EQ(bench.GridTable(), bench.DeviceTable());
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_EQ(bench.dialogs.Unused(), 0U);
}

/// The boxes of a download from the table's question on. A garbled echo of a mode is taken for one, and the
/// next access fails. A mode that is repeated once is lost with a late reply.
Texts BoxesOf(const TableBench& bench, const Break& line_break) {
  const Step& step = line_break.step;
  const bool in_mode = step.position < 0;
  const bool once = bench.app.program.Showing()->ItsFamily().word == u"Third";
  const bool late_mode = in_mode && line_break.fault == Fault::Late && once;
  if (!line_break.for_good && !late_mode) {
    return {Shown(BoxKey::DownloadDone)};
  }
  const bool mode_taken = !in_mode || (line_break.fault == Fault::Garbled && step.letter == 'D');
  Texts boxes = {Shown(BoxKey::NotProgrammingMode)};
  if (mode_taken) {
    boxes = {Shown(bench.Long() ? BoxKey::LinearizerDataMismatch : BoxKey::Linearizer16DataMismatch),
             Shown(BoxKey::LinearizerDownloadFailed)};
  }
  if (line_break.for_good) {
    boxes.push_back(Shown(BoxKey::NotMonitorMode));
  }
  return boxes;
}

/// Values up to the one that a line broken for good spoiled are the page's, those behind it the device's own.
void ExpectWrittenUpTo(const TableBench& bench, int position, const std::vector<String>& own,
                       const std::vector<String>& before) {
  const std::vector<String> held = bench.DeviceTable();
  for (int place = 0; place < bench.Count(); ++place) {
    const auto at = static_cast<std::size_t>(place);
    if (place < position) {
      EXPECT_EQ(held[at], own[at]) << place;
    } else if (place > position) {
      EXPECT_EQ(held[at], before[at]) << place;
    }
  }
}

/// After a break that lasted, or a reply that may still be under way, the later upload is proved; after any
/// other the next run is the proof.
void ExpectNextRunWorks(TableBench& bench, const Break& line_break) {
  if (line_break.for_good || line_break.fault == Fault::Late) {
    ExpectUploadWorks(bench);
  }
}

/// The same device and page serve one broken run after the other.
void CheckBrokenDownload(TableBench& bench, const Break& line_break, const std::vector<String>& own,
                         const std::vector<String>& before) {
  ASSERT_TRUE(bench.SetDeviceTable(before));
  bench.PutTable(own);
  const Clock start = bench.loop.Now();
  Start(bench, line_break);
  bench.DownloadAll();
  EXPECT_LT(bench.loop.Now() - start, kLongestRun);
  ExpectUsable(bench);
  EXPECT_EQ(bench.SetTable(), own) << "the page keeps its values";
  EXPECT_EQ(bench.GridTable(), own);
  Texts boxes = bench.TakeBoxes();
  boxes.erase(boxes.begin(), boxes.begin() + (bench.Long() ? 2 : 1));
  const std::string done = Shown(BoxKey::DownloadDone);
  if (std::find(boxes.begin(), boxes.end(), done) != boxes.end()) {
    EXPECT_TRUE(bench.DeviceHoldsTheTable()) << "no success without the table in the device";
  }
  if (line_break.Foreseen()) {
    EXPECT_EQ(boxes, BoxesOf(bench, line_break));
    if (boxes.front() != done) {
      ExpectWrittenUpTo(bench, line_break.step.position, own, before);
    }
    if (!line_break.for_good) {
      EXPECT_EQ(bench.device.Mode(), '0');
    }
  }
  ExpectNextRunWorks(bench, line_break);
}

void CheckBrokenUpload(TableBench& bench, const Break& line_break, const std::vector<String>& own) {
  ASSERT_TRUE(bench.SetDeviceTable(own));
  bench.PutTable({});
  bench.Page().DataChanged = false;
  Start(bench, line_break);
  bench.UploadAll();
  ExpectUsable(bench);
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
  EXPECT_EQ(bench.GridTable(), bench.SetTable());
  EXPECT_EQ(bench.device.Mode(), '0');
  const std::vector<String> read = bench.SetTable();
  for (int position = 0; position < bench.Count(); ++position) {
    const String& cell = read[static_cast<std::size_t>(position)];
    const bool struck = position == line_break.step.position && line_break.step.letter == 'I';
    if (!line_break.Foreseen()) {
      EXPECT_TRUE(cell.empty() || cell == own[static_cast<std::size_t>(position)]) << position;
    } else if ((struck && line_break.fault == Fault::Refused) ||
               (line_break.for_good && position >= line_break.step.position)) {
      EXPECT_EQ(cell, u"") << position;
    } else {
      EXPECT_EQ(cell, own[static_cast<std::size_t>(position)]) << position;
    }
  }
  ExpectNextRunWorks(bench, line_break);
}

struct TableSweepTest : testing::TestWithParam<const char16_t*> {
  const TableModel& model = ModelNamed(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Model, TableSweepTest, testing::Values(u"QHW", u"QHNY1", u"QEI2"),
                         [](const auto& one) { return ToUtf8(one.param); });

/// One device and page serve many broken runs, one after the other; in time a fresh pair takes over.
class Relay {
 public:
  explicit Relay(const TableModel& of_model) : model_(of_model) {}
  TableBench& Next() {
    if (!bench_ || bench_->loop.Now() > kServiceLife) {
      bench_.emplace(model_);
    }
    return *bench_;
  }

 private:
  static constexpr Clock kServiceLife = std::chrono::hours(72);
  const TableModel& model_;
  std::optional<TableBench> bench_;
};

TEST_P(TableSweepTest, AnUploadBrokenAtAnyExchangeLeavesWhatCouldNotBeReadEmpty) {
  TableBench good(model);
  good.UploadAll();
  const std::vector<Break> breaks = BreaksOf(good, false);
  Relay relay(model);
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    CheckBrokenUpload(relay.Next(), line_break, good.OwnTable());
    ASSERT_FALSE(HasFailure());
  }
  std::cout << "uploads with a broken exchange: " << breaks.size() << '\n';
}

/// The longest sweep, cut so that the processors share it.
constexpr std::size_t kShares = 4;
struct BrokenDownloadTest : testing::TestWithParam<std::tuple<const char16_t*, std::size_t>> {
  const TableModel& model = ModelNamed(std::get<0>(GetParam()));
  const std::size_t share = std::get<1>(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Model, BrokenDownloadTest,
                         testing::Combine(testing::Values(u"QHW", u"QHNY1", u"QEI2"),
                                          testing::Range<std::size_t>(0, kShares)),
                         [](const auto& one) {
                           return ToUtf8(std::get<0>(one.param)) + "_" +
                                  std::to_string(std::get<1>(one.param));
                         });

TEST_P(BrokenDownloadTest, IsNoSuccessUnlessTheDeviceHoldsTheTable) {
  TableBench good(model);
  const std::vector<String> before = good.DeviceTable();
  good.PutTable(good.OwnTable());
  good.DownloadAll();
  const std::vector<Break> breaks = BreaksOf(good, true);
  Relay relay(model);
  std::size_t swept = 0;
  for (std::size_t place = share; place < breaks.size(); place += kShares) {
    SCOPED_TRACE(breaks[place].Name());
    CheckBrokenDownload(relay.Next(), breaks[place], good.OwnTable(), before);
    ASSERT_FALSE(HasFailure());
    ++swept;
  }
  std::cout << "downloads with a broken exchange: " << swept << " of " << breaks.size() << '\n';
}

TEST_P(TableSweepTest, ALateReplyOfOneValueDoesNotProveTheNextOneThatIsTheSame) {
  TableBench good(model);
  const std::vector<String> before = good.DeviceTable();
  // Y(k) is X(k), and each point's values are those that the device holds for the point before.
  std::vector<String> own(before.size(), u"-50");
  for (std::size_t place = 2; place < own.size(); ++place) {
    own[place] = before[place - 2];
  }
  good.PutTable(own);
  good.DownloadAll();
  const std::vector<Break> breaks = BreaksOf(good, true);
  Relay relay(model);
  for (const Break& line_break : breaks) {
    if (line_break.fault == Fault::Late) {
      SCOPED_TRACE(line_break.Name());
      CheckBrokenDownload(relay.Next(), line_break, own, before);
      ASSERT_FALSE(HasFailure());
    }
  }
}

// The close box.

/// The pumps of a transfer, counted from its start.
std::vector<std::size_t> PumpsOf(TableBench& bench, bool download) {
  std::vector<std::size_t> pumps;
  bench.loop.OnPump([&] { pumps.push_back(pumps.size()); });
  if (download) {
    bench.DownloadAll();
  } else {
    bench.UploadAll();
  }
  return pumps;
}

/// Presses the close box at a pump of what follows.
struct ClosedBench : TableBench {
  ClosedBench(const TableModel& table_model, std::size_t at) : TableBench(table_model) {
    loop.OnPump([this, first = loop.PumpCount() + 1, at] {
      if (loop.PumpCount() == first + at) {
        sent_at_close = commands.size();
        app.program.PressClose();
        told = Page().flaMsg_CannotEnd.Visible();
      }
    });
  }
  std::size_t sent_at_close = 0;
  bool told = false;
};

TEST_P(TableSweepTest, ClosedAtAnyPumpAnUploadEndsTheProgramWithinOneExchange) {
  TableBench whole(model);
  const std::vector<std::size_t> pumps = PumpsOf(whole, false);
  ASSERT_GT(pumps.size(), 60U);
  for (const std::size_t at : Sampled(pumps)) {
    SCOPED_TRACE(at);
    ClosedBench bench(model, at);
    bench.UploadAll();
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.commands.size(), bench.sent_at_close) << "no exchange begins after the one under way";
    EXPECT_FALSE(bench.told);
    const Texts boxes = bench.TakeBoxes();
    EXPECT_EQ(std::count(boxes.begin(), boxes.end(), Shown(BoxKey::UploadDone)), 0);
    ASSERT_FALSE(HasFailure());
  }
  TellShare("uploads closed", Sampled(pumps).size(), pumps.size());
}

TEST_P(TableSweepTest, ClosedAtAnyPumpADownloadTellsThatItCannotEndGoesToItsEndAndThenEnds) {
  TableBench whole(model);
  whole.PutTable(whole.OwnTable());
  const std::vector<std::size_t> pumps = PumpsOf(whole, true);
  const std::size_t exchanges = whole.commands.size();
  ASSERT_GT(pumps.size(), 150U);
  for (const std::size_t at : Sampled(pumps)) {
    SCOPED_TRACE(at);
    ClosedBench bench(model, at);
    bench.PutTable(bench.OwnTable());
    bench.DownloadAll();
    EXPECT_TRUE(bench.told);
    EXPECT_EQ(bench.commands.size(), exchanges);
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_EQ(bench.DeviceTable(), bench.OwnTable());
    ASSERT_FALSE(HasFailure());
  }
  TellShare("downloads closed", Sampled(pumps).size(), pumps.size());
}

TEST_P(TableSweepTest, ClosedAtAnyPumpADownloadThatFailsInTheTableKeepsTheWindow) {
  TableBench whole(model);
  const std::vector<String> own = whole.OwnTable();
  const sim::FaultRule fault = {.fault = Fault::WrongEcho, .command = "D" + ToUtf8(own.back())};
  whole.PutTable(own);
  const std::vector<std::size_t> pumps = PumpsOf(whole, true);
  for (const std::size_t at : Sampled(pumps)) {
    SCOPED_TRACE(at);
    ClosedBench bench(model, at);
    bench.device.AddFault(fault);
    bench.PutTable(own);
    bench.DownloadAll();
    EXPECT_TRUE(bench.told);
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::LinearizerDownloadFailed));
    EXPECT_EQ(bench.device.Mode(), '0');
    ExpectUploadWorks(bench);
    ExpectUsable(bench);
    ASSERT_FALSE(HasFailure());
  }
  TellShare("failing downloads closed", Sampled(pumps).size(), pumps.size());
}

}  // namespace
}  // namespace korva::test
