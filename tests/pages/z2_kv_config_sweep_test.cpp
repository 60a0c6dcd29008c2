// Whole downloads of transmitters, with items, memory, curve and linearizer, broken at their exchanges and
// closed at their pumps. Of the breaks, and of the many blocks of a curve, a sample is drawn by a fixed seed.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "support/sampled.h"
#include "transmitter_exchanges.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;
using sim::Fault;

constexpr unsigned kSeed = 20261;
constexpr unsigned kOneBlockIn = 24;
constexpr unsigned kOneBreakIn = 3;
constexpr std::array kFaults = {Fault::Silent, Fault::Refused,   Fault::Garbled, Fault::Half,
                                Fault::Late,   Fault::StuckByte, Fault::Doubled};
constexpr std::size_t kBreaks = 2 * kFaults.size();  // of an exchange: once and for good
constexpr std::size_t kTableType = 513;
constexpr char kBeingWritten = 99;

/// A sample by a fixed seed of the ways in which a line can break or the memory can fail, at every exchange
/// but for most of the curve's blocks.
std::vector<Break> BreaksIn(const std::vector<Exchange>& exchanges) {
  std::minstd_rand random(kSeed);
  const auto drawn = [&random](unsigned one_in) { return random() % one_in == 0; };
  std::vector<Break> breaks;
  for (std::size_t at = 0; at < exchanges.size(); ++at) {
    if (exchanges[at].block && !drawn(kOneBlockIn)) {
      continue;
    }
    for (const Fault fault : kFaults) {
      for (const bool for_good : {false, true}) {
        if (drawn(kOneBreakIn)) {
          breaks.push_back({.fault = fault, .for_good = for_good, .at = at});
        }
      }
    }
  }
  return breaks;
}

/// What a device holds before a download and after it.
struct Held {
  explicit Held(const TransmitterBench& bench) : memory(bench.Memory()), items(bench.Items()) {}
  std::string memory;
  Texts items;
};

/// Each byte is an old or a new one, and the table's type tells how far the table got: 99 exactly while it is
/// being written.
void ExpectMemoryBetween(const std::string& before, const std::string& after, const std::string& memory) {
  for (std::size_t at = 0; at < memory.size(); ++at) {
    if (memory[at] != before[at] && memory[at] != after[at] && at != kTableType) {
      ADD_FAILURE() << "neither the old nor the new byte at " << at;
      return;
    }
  }
  const auto is_table_of = [&](const std::string& all) {
    return memory[512] == all[512] && memory.compare(513, std::string::npos, all, 513) == 0;
  };
  EXPECT_TRUE(memory[kTableType] == kBeingWritten || is_table_of(before) || is_table_of(after))
      << "99 exactly while the table is being written";
}

void ExpectItemsBetween(const Texts& before, const Texts& after, const Texts& items) {
  for (std::size_t at = 0; at < items.size(); ++at) {
    EXPECT_TRUE(items[at] == before[at] || items[at] == after[at]) << items[at];
  }
}

/// A success is all that was to be written. A value is proved by the presence of an answer alone, so that one
/// that was refused once can be missing.
void ExpectSuccess(const Break& line_break, const Exchange& exchange, const Held& after, const Held& now) {
  EXPECT_TRUE(now.memory == after.memory) << "no success without the whole memory";
  const bool value_refused = line_break.fault == Fault::Refused && exchange.access == Access::Items &&
                             exchange.write && !IsCompared(exchange.item);
  for (std::size_t at = 0; at < now.items.size(); ++at) {
    if (!value_refused || !now.items[at].starts_with(exchange.item)) {
      EXPECT_EQ(now.items[at], after.items[at]);
    }
  }
}

struct TransmitterSweep : testing::TestWithParam<TypeChange> {
  TransmitterSweep() {
    TransmitterBench good(GetParam());
    before.emplace(good);
    EXPECT_EQ(good.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
    good.ExpectAllWritten();
    after.emplace(good);
    exchanges = ExchangesOf(GetParam(), good.commands);
  }
  void CheckBroken(TransmitterBench& bench, const Break& line_break) const;
  void CheckAgain(TransmitterBench& bench) const;

  std::optional<Held> before;
  std::optional<Held> after;
  std::vector<Exchange> exchanges;
};
INSTANTIATE_TEST_SUITE_P(Model, TransmitterSweep, testing::ValuesIn(TypeChanges()),
                         [](const auto& one) { return std::string(one.param.name); });

void TransmitterSweep::CheckBroken(TransmitterBench& bench, const Break& line_break) const {
  const Exchange& exchange = exchanges[line_break.at];
  bench.StartBreak(line_break);
  const Texts boxes = bench.BoxesOfDownload();
  bench.ExpectUsable();
  EXPECT_TRUE(bench.SetOf() == bench.chosen) << "the page keeps its values";
  const Held now(bench);
  if (IsForeseen(line_break)) {
    EXPECT_EQ(boxes, ExpectedBoxes(GetParam(), line_break, exchange));
  } else {
    EXPECT_TRUE(IsAnOutcome(boxes)) << testing::PrintToString(boxes);
  }
  ExpectMemoryBetween(before->memory, after->memory, now.memory);
  ExpectItemsBetween(before->items, after->items, now.items);
  if (std::find(boxes.begin(), boxes.end(), Shown(BoxKey::DownloadDone)) != boxes.end()) {
    ExpectSuccess(line_break, exchange, *after, now);
  }
  if (!line_break.for_good || line_break.fault == Fault::StuckByte) {
    EXPECT_EQ(bench.device.Mode(), '0');
  } else if (!bench.Page().CommFailed) {
    const std::string& last = bench.commands.back();
    EXPECT_TRUE(last == "D0" || last == "G01" || last == "I01") << "not monitor mode but " << last;
  }
}

// The next download brings all but what the status area tells: a calibration that it finds no change for, for
// which another type must come first, and a model text that broke off.
void TransmitterSweep::CheckAgain(TransmitterBench& bench) const {
  bench.device.ClearFaults();
  bench.loop.RunUntilIdle();
  const String& told = bench.Page().Notes.Told(Notice::Unfinished);
  if (told.find(u"-S ") != String::npos) {  // the model text as it should be
    bench.device.GetMemory().PutText(48, 16, before->memory.substr(48, 16));
  }
  if (!told.empty()) {
    bench.ChooseFormerTypes();
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << "other types";
    EXPECT_EQ(told, u"");
    bench.ChooseTypes();
  }
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << "again";
  EXPECT_TRUE(bench.Memory() == after->memory) << "again";
  EXPECT_EQ(bench.Items(), after->items) << "again";
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST_P(TransmitterSweep, ADownloadBrokenAtAnyExchangeTellsWhatWasProvedAndWhatTheNextOneCantMend) {
  const std::vector<Break> breaks = Sampled(BreaksIn(exchanges));
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    TransmitterBench bench(GetParam());
    CheckBroken(bench, line_break);
    CheckAgain(bench);
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string(GetParam().name) + ": downloads with a broken exchange", breaks.size(),
            kBreaks * exchanges.size());
}

/// A model text that gets longer, so that one which breaks off between its blocks has lost a field's end.
TypeChange LongerModelText() {
  return {.name = "Z2WT_PR",
          .model = u"Z2WT",
          .delivered = "TC T (CC)",
          .input = u"TC PR",
          .model_text = "Z2WT-PRB-S      ",
          .code = 0,
          .adc = 0,
          .curve = SensorKind::Thermocouple};
}
struct LongerTextSweep : TransmitterSweep {};
INSTANTIATE_TEST_SUITE_P(Model, LongerTextSweep, testing::Values(LongerModelText()),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(LongerTextSweep, AStageBrokenAtAnyExchangeIsMendedByTheNextDownload) {
  std::vector<Break> breaks = BreaksIn(exchanges);
  std::erase_if(breaks, [this](const Break& line_break) {
    return line_break.for_good || exchanges[line_break.at].access != Access::Stage;
  });
  breaks = Sampled(breaks);
  for (const Break& line_break : breaks) {
    SCOPED_TRACE(line_break.Name());
    TransmitterBench bench(GetParam());
    CheckBroken(bench, line_break);
    CheckAgain(bench);
    ASSERT_FALSE(HasFailure());
  }
  const auto of_stage = std::count_if(exchanges.begin(), exchanges.end(), [](const Exchange& exchange) {
    return exchange.access == Access::Stage;
  });
  TellShare(std::string(GetParam().name) + ": stages with a broken exchange", breaks.size(),
            kFaults.size() * static_cast<std::size_t>(of_stage));
}

// The close box.

/// Presses the close box at a pump of what follows.
struct ClosedTransmitter : TransmitterBench {
  ClosedTransmitter(const TypeChange& type_change, std::size_t at) : TransmitterBench(type_change) {
    loop.OnPump([this, first = loop.PumpCount() + 1, at] {
      if (loop.PumpCount() == first + at) {
        app.program.PressClose();
        told = Page().flaMsg_CannotEnd.Visible();
      }
    });
  }
  bool told = false;
};

/// The pumps of a download, from 0.
std::vector<std::size_t> PumpsOf(TransmitterBench& bench) {
  std::vector<std::size_t> pumps;
  bench.loop.OnPump([&] { pumps.push_back(pumps.size()); });
  bench.BoxesOfDownload();
  bench.loop.OnPump(nullptr);
  return pumps;
}

TEST_P(TransmitterSweep, ClosedAtAnyPumpADownloadTellsThatItCannotEndGoesToItsEndAndThenEnds) {
  TransmitterBench whole(GetParam());
  const std::vector<std::size_t> all = PumpsOf(whole);
  const std::vector<std::size_t> pumps = Sampled(all);
  for (const std::size_t at : pumps) {
    SCOPED_TRACE(at);
    ClosedTransmitter bench(GetParam(), at);
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
    EXPECT_TRUE(bench.told);
    EXPECT_EQ(bench.commands.size(), exchanges.size());
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_TRUE(bench.Memory() == after->memory);
    EXPECT_EQ(bench.Items(), after->items);
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string(GetParam().name) + ": downloads closed", pumps.size(), all.size());
}

/// The last exchange with the memory, the longest way to a failure.
std::size_t LastOfMemory(const std::vector<Exchange>& exchanges) {
  const auto last = std::find_if(exchanges.rbegin(), exchanges.rend(), [](const Exchange& exchange) {
    return exchange.within > 2;  // items and modes take three
  });
  return static_cast<std::size_t>(exchanges.rend() - last) - 1;
}

TEST_P(TransmitterSweep, ClosedAtAnyPumpADownloadThatFailsInTheMemoryKeepsTheWindow) {
  const Break failure{.fault = Fault::Refused, .at = LastOfMemory(exchanges)};
  TransmitterBench whole(GetParam());
  whole.StartBreak(failure);
  const std::vector<std::size_t> all = PumpsOf(whole);
  const std::vector<std::size_t> pumps = Sampled(all);
  for (const std::size_t at : pumps) {
    SCOPED_TRACE(at);
    ClosedTransmitter bench(GetParam(), at);
    bench.StartBreak(failure);
    EXPECT_EQ(bench.BoxesOfDownload(), ExpectedBoxes(GetParam(), failure, exchanges[failure.at]));
    EXPECT_TRUE(bench.told);
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_FALSE(bench.Page().flaMsg_CannotEnd.Visible());
    EXPECT_EQ(bench.device.Mode(), '0');
    CheckAgain(bench);
    bench.ExpectUsable();
    ASSERT_FALSE(HasFailure());
  }
  TellShare(std::string(GetParam().name) + ": failing downloads closed", pumps.size(), all.size());
}

}  // namespace
}  // namespace korva::test
