// Each exchange of an upload and of a download in turn is broken, once and for good, in each way in which a
// line can break; each run must end as it should, with a page that can be used again.

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;
using sim::Fault;

/// What an exchange is part of.
enum class Phase { Link, Monitor, Type, Programming, Items, Leave, Closing, None };

struct Step {
  Phase phase = Phase::Items;
  char letter = 'G';
  bool write = false;   ///< the access that it belongs to goes on to send data
  bool reread = false;  ///< the read that proves item 14 or 15
  int item = 0;
};

/// The accesses of a run without faults, exchange by exchange.
std::vector<Step> StepsOf(const Texts& commands, bool download) {
  std::vector<Step> steps;
  for (std::size_t at = 0; at < commands.size();) {
    const bool write = at + 2 < commands.size() && commands[at + 2].front() == 'D';
    const int item = std::stoi(commands[at + 1].substr(1));
    const bool after_write = !steps.empty() && steps.back().write && steps.back().item == item;
    for (const char letter : write ? std::string("GID") : std::string("GI")) {
      steps.push_back({.letter = letter,
                       .write = write,
                       .reread = !write && after_write && (item == 14 || item == 15),
                       .item = item});
    }
    at += write ? 3 : 2;
  }
  const auto mark = [&](std::size_t from, std::size_t count, Phase phase) {
    for (std::size_t place = from; place < from + count; ++place) {
      steps.at(place).phase = phase;
    }
  };
  mark(0, 2, Phase::Link);
  mark(2, 3, Phase::Monitor);
  if (download) {
    mark(5, 2, Phase::Type);
    mark(7, 3, Phase::Programming);
    mark(steps.size() - 6, 3, Phase::Leave);
    mark(steps.size() - 3, 3, Phase::Closing);
  }
  return steps;
}

/// The first access that a lasting break leaves without an answer that the program accepts.
Phase FirstFailure(const Break& line_break, const Step& step) {
  // What a refusal of a read and a garbled echo of a mode command amount to: they are taken for an answer,
  // and the next access fails at its group.
  const bool accepted =
      (line_break.fault == Fault::Refused && step.letter == 'I' && !step.write && !step.reread) ||
      (line_break.fault == Fault::Garbled && step.letter == 'D');
  switch (step.phase) {
    case Phase::Link:
      return accepted ? Phase::Monitor : Phase::Link;
    case Phase::Monitor:
      return accepted ? Phase::Programming : Phase::Monitor;
    case Phase::Type:
      return Phase::Programming;  // an input type that can't be read is not compared
    case Phase::Programming:
      return accepted ? Phase::Items : Phase::Programming;
    case Phase::Leave:
      return accepted ? Phase::Closing : Phase::Leave;
    case Phase::Closing:
      return accepted ? Phase::None : Phase::Closing;
    default:
      return Phase::Items;
  }
}

/// The boxes of a download after its question.
Texts DownloadBoxes(const Break& line_break, const Step& step) {
  const std::string monitor = Shown(BoxKey::NotMonitorMode);
  const std::string done = Shown(BoxKey::DownloadDone);
  const std::string mismatch = Shown(BoxKey::DownloadDataMismatch);
  if (!line_break.for_good) {
    // A repeat mends everything but a refusal that the device gives as its answer.
    const bool refused_proof = line_break.fault == Fault::Refused && step.reread && step.letter == 'I';
    return {refused_proof ? mismatch : done};
  }
  switch (FirstFailure(line_break, step)) {
    case Phase::Link:
      return {Shown(BoxKey::CommFailure)};
    case Phase::Monitor:
      return {monitor, monitor};
    case Phase::Programming:
      return {Shown(BoxKey::NotProgrammingMode), monitor};
    case Phase::Leave:
      return {monitor, done, monitor};
    case Phase::Closing:
      return {done, monitor};
    case Phase::None:
      return {done};
    default:
      return {mismatch, monitor, monitor};
  }
}

/// The boxes of an upload.
Texts UploadBoxes(const Break& line_break, const Step& step) {
  const Phase failure = line_break.for_good ? FirstFailure(line_break, step) : Phase::None;
  if (failure == Phase::Link) {
    return {Shown(BoxKey::CommFailure)};
  }
  Texts boxes = {Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload)};
  if (failure == Phase::Monitor) {
    boxes.push_back(Shown(BoxKey::NotMonitorMode));
  }
  boxes.push_back(Shown(BoxKey::UploadDone));
  return boxes;
}

/// A page whose uploaded set can be changed.
struct Sweep : SweepBench {
  using SweepBench::SweepBench;

  void Change() {
    Type(u"02", u"PUMP 1");
    Type(u"16", u"0.70");
    Type(u"17", u"1.50");
    changed = SetOf();
  }

  std::vector<String> changed;
};

/// A device whose every item has a value of its own, so that no answer is good by chance.
void Prepare(Sweep& bench) {
  bench.device.Set("01", "16", "0.20");
  bench.device.Set("01", "17", "1.10");
  bench.Upload();
  bench.uploaded = bench.SetOf();
  bench.Page().DataChanged = false;
  bench.TakeBoxes();
  bench.commands.clear();
}

void ExpectUploadedCells(Sweep& bench, const Break& line_break, const std::vector<Step>& steps) {
  for (std::size_t place = 0; place < steps.size(); ++place) {
    const Step& step = steps[place];
    if (step.phase != Phase::Items || step.letter != 'I') {
      continue;
    }
    const String& cell = bench.Page().Item(step.item);
    const bool struck = place == line_break.at;
    const String& own = bench.uploaded[static_cast<std::size_t>(step.item)];
    if (struck && line_break.fault == Fault::Refused) {
      EXPECT_EQ(cell, u"ERROR") << step.item;
    } else if (!line_break.Foreseen()) {
      EXPECT_TRUE(cell.empty() || cell == own) << step.item;
    } else if (line_break.for_good && place >= line_break.at) {
      EXPECT_EQ(cell, u"") << step.item;
    } else {
      EXPECT_EQ(cell, own) << step.item;
    }
  }
}

// Model QL has neither a table nor a filter, so that every exchange is one of the set's.

TEST(FaultSweepTest, AnUploadBrokenAtAnyExchangeEndsAsItShould) {
  Sweep good(u"QL");
  good.Upload();
  const std::vector<Step> steps = StepsOf(good.commands, false);
  int runs = 0;
  for (const Break& line_break : BreaksOf(steps.size())) {
    SCOPED_TRACE(line_break.Name());
    Sweep bench(u"QL");
    Prepare(bench);
    const Clock start = bench.loop.Now();
    bench.StartBreak(line_break);
    bench.Upload();
    ++runs;
    EXPECT_LT(bench.loop.Now() - start, kLongestRun);
    bench.ExpectUsable();
    const Step& step = steps[line_break.at];
    const Texts boxes = bench.TakeBoxes();
    const bool started = boxes != Texts{Shown(BoxKey::CommFailure)};
    EXPECT_EQ(bench.Page().DataChanged, started);
    EXPECT_EQ(bench.Page().CommFailed, !started);
    if (line_break.Foreseen()) {
      EXPECT_EQ(boxes, UploadBoxes(line_break, step));
      EXPECT_EQ(bench.device.Mode(), '0');
    } else if (started) {
      EXPECT_EQ(boxes.back(), Shown(BoxKey::UploadDone));
    }
    if (!started) {
      EXPECT_EQ(bench.SetOf(), bench.uploaded);
      EXPECT_EQ(bench.dialogs.Unused(), 2U);
      continue;
    }
    ExpectUploadedCells(bench, line_break, steps);
    bench.ExpectUploadWorks();
    EXPECT_EQ(bench.SetOf(), bench.uploaded);
  }
  std::cout << "uploads with a broken exchange: " << runs << '\n';
}

TEST(FaultSweepTest, ADownloadBrokenAtAnyExchangeEndsAsItShould) {
  Sweep good(u"QL");
  good.Change();
  good.Download();
  const std::vector<Step> steps = StepsOf(good.commands, true);
  int runs = 0;
  for (const Break& line_break : BreaksOf(steps.size())) {
    SCOPED_TRACE(line_break.Name());
    Sweep bench(u"QL");
    Prepare(bench);
    bench.Change();
    const Clock start = bench.loop.Now();
    bench.StartBreak(line_break);
    bench.Download();
    ++runs;
    EXPECT_LT(bench.loop.Now() - start, kLongestRun);
    bench.ExpectUsable();
    EXPECT_TRUE(bench.Page().DataChanged);
    EXPECT_EQ(bench.SetOf(), bench.changed) << "the page keeps its values";
    Texts boxes = bench.TakeBoxes();
    EXPECT_EQ(boxes.front(), Shown(BoxKey::StartDownload));
    boxes.erase(boxes.begin());
    if (line_break.Foreseen()) {
      EXPECT_EQ(boxes, DownloadBoxes(line_break, steps[line_break.at]));
      if (!line_break.for_good) {
        EXPECT_EQ(bench.device.Mode(), '0');
      }
    }
    if (boxes == Texts{Shown(BoxKey::DownloadDone)}) {
      EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"PUMP 1");
      EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "16"))), u"0.70");
      EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "17"))), u"1.50");
    }
    EXPECT_EQ(bench.Page().CommFailed, boxes == Texts{Shown(BoxKey::CommFailure)});
    if (!bench.Page().CommFailed) {
      EXPECT_TRUE(bench.commands.back() == "D0" || bench.commands.back() == "G01" ||
                  bench.commands.back() == "I01")
          << "the last that was tried is monitor mode, not " << bench.commands.back();
    }
    bench.ExpectUploadWorks();
  }
  std::cout << "downloads with a broken exchange: " << runs << '\n';
}

// The other shapes of a transfer: a linearizer that is always in use, input types spelt by version, filters.

struct ModelSweepTest : testing::TestWithParam<const char*> {
  /// Breaks that are tried: fewer where the model's transfers have a sweep of their own as well.
  static std::vector<Break> Tried(std::size_t exchanges) {
    const std::string model = GetParam();
    return OneIn(model == "Z2WU" || model.starts_with("Z8") ? 11 : 1, BreaksOf(exchanges));
  }
};

INSTANTIATE_TEST_SUITE_P(Model, ModelSweepTest,
                         testing::Values("QHW", "QUO", "QHN1", "QXI", "QEI", "QEY", "QICE", "QNA2", "QEC2",
                                         "QHC2", "Z2WV", "Z2WQ", "Z2WPR", "Z2WPL", "Z2WU", "Z8WV2", "Z8WM2",
                                         "Z8WT2", "Z8WR2"),
                         [](const auto& one) { return std::string(one.param); });

TEST_P(ModelSweepTest, ATransferBrokenAtAnyExchangeLeavesAPageThatCanBeUsed) {
  const String model = FromUtf8(GetParam());
  std::size_t runs = 0;
  std::size_t all = 0;
  for (const bool download : {false, true}) {
    Sweep good(model);
    const auto transfer = [download](Sweep& bench) {
      if (download) {
        bench.Download();
      } else {
        bench.Upload();
      }
    };
    transfer(good);
    ASSERT_EQ(good.TakeBoxes().back(), Shown(download ? BoxKey::DownloadDone : BoxKey::UploadDone));
    all += 9 * good.commands.size();
    for (const Break& line_break : Tried(good.commands.size())) {
      SCOPED_TRACE((download ? "download, " : "upload, ") + line_break.Name());
      Sweep bench(model);
      const Clock start = bench.loop.Now();
      bench.StartBreak(line_break);
      transfer(bench);
      ++runs;
      EXPECT_LT(bench.loop.Now() - start, kLongestRun);
      bench.ExpectUsable();
      if (bench.dialogs.Unused() == 0) {
        bench.ExpectUploadWorks();
      }
      if (testing::Test::HasFailure()) {
        return;
      }
    }
  }
  TellShare(std::string(GetParam()) + ": transfers with a broken exchange", runs, all);
}

}  // namespace
}  // namespace korva::test
