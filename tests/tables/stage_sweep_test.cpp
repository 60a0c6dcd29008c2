// Every exchange of the stage fails in turn, once and for good: what must hold then.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <random>

#include "core/text_utilities.h"
#include "support/sampled.h"
#include "tables_bench.h"

namespace korva::test {
namespace {

constexpr int kOneIn = 8;      // of the curve's blocks
constexpr unsigned kSeed = 1;  // of their choice

/// A model, and types that it does not have as it is delivered.
struct SweptModel {
  std::string model;
  std::string input;
  std::string output;
};

/// One exchange that goes wrong.
struct Mishap {
  std::string fault;
  std::size_t at = 0;
  bool for_good = false;

  [[nodiscard]] std::string Text() const { return fault + "@" + std::to_string(at) + (for_good ? "-" : ""); }
};

struct StageSweepTest : testing::TestWithParam<SweptModel> {
  StageSweepTest() {
    TablesBench bench(GetParam().model);
    before = bench.Memory().Bytes(0, 8192);
    EXPECT_TRUE(Run(bench));
    after = bench.Memory().Bytes(0, 8192);
    commands = bench.line.Commands();
  }

  static bool Run(TablesBench& bench) {
    bench.ChooseInput(GetParam().input);
    bench.ChooseOutput(GetParam().output);
    return bench.RunStage();
  }
  /// All exchanges but for most of the curve's blocks.
  [[nodiscard]] std::vector<Mishap> Mishaps() const {
    std::minstd_rand random(kSeed);
    std::vector<Mishap> mishaps;
    std::size_t tried = 0;
    for (std::size_t at = 1; at <= commands.size(); ++at) {
      if (IsOfCurve(at) && random() % kOneIn != 0) {
        continue;
      }
      ++tried;
      for (const char* fault : {"silent", "refused", "garbled", "late", "doubled", "stuck-byte"}) {
        mishaps.push_back({.fault = fault, .at = at});
        mishaps.push_back({.fault = fault, .at = at, .for_good = true});
      }
    }
    std::cout << GetParam().model << ": " << tried << " of " << commands.size() << " exchanges\n";
    return mishaps;
  }
  /// True for an exchange inside the blocks, away from their beginning and their end.
  [[nodiscard]] bool IsOfCurve(std::size_t at) const {
    const auto is_block = [this](std::size_t number) {
      const std::string& text = commands.at(number - 1).text;
      return text.starts_with("DS1") && text.ends_with("-8");
    };
    return at > 20 && at + 20 < commands.size() && (is_block(at) || is_block(at - 1) || is_block(at - 2)) &&
           (is_block(at + 9) || is_block(at + 10) || is_block(at + 11));
  }

  std::string before;
  std::string after;
  std::vector<CommandLine::Command> commands;
};

std::string TableOf(const std::string& memory) { return memory.substr(535); }
std::string TypeOf(const std::string& memory) { return memory.substr(513, 1); }

/// The type is 99 exactly when a table has begun and not ended.
void ExpectTypeOfTable(const std::string& before, const std::string& after, const std::string& memory) {
  const std::string type = TypeOf(memory);
  if (TypeOf(before) == TypeOf(after) && TableOf(before) == TableOf(after)) {
    EXPECT_EQ(type, TypeOf(before)) << "no table is written";
  } else if (type == TypeOf(after)) {
    EXPECT_EQ(TableOf(memory), TableOf(after)) << "ended";
  } else if (type == TypeOf(before)) {
    EXPECT_EQ(TableOf(memory), TableOf(before)) << "not begun";
  } else {
    EXPECT_EQ(type, "\x63");
  }
}

/// The box of the failure, and of a device that does not come back to monitor mode.
void ExpectBoxes(const TablesBench& bench, bool stage_begun) {
  std::vector<std::string> boxes = bench.Boxes();
  std::erase(boxes, Shown(BoxKey::NotMonitorMode));
  if (boxes.empty()) {
    EXPECT_FALSE(stage_begun);
    EXPECT_EQ(bench.page->Notes.Told(Notice::Stage), CaptionText(TextKey::InputTypeUnread));
    return;
  }
  EXPECT_EQ(boxes.size(), 1U);
  EXPECT_TRUE(boxes.front() == Shown(BoxKey::EepromWriteFailed) ||
              boxes.front() == Shown(BoxKey::EepromModeNotEntered) ||
              boxes.front() == Shown(BoxKey::AdcTypeUnreadable))
      << boxes.front();
  EXPECT_EQ(bench.page->Notes.Told(Notice::Stage), u"");
}

TEST_P(StageSweepTest, ASuccessIsTheWholeMemoryAndAFailureHasItsBoxMonitorModeAndATypeThatTellsTheTable) {
  int good_runs = 0;
  for (const Mishap& mishap : Sampled(Mishaps())) {
    SCOPED_TRACE(mishap.Text());
    TablesBench bench(GetParam().model);
    bench.device.AddFault(sim::ParseFault(mishap.Text()));
    const bool good = Run(bench);
    good_runs += good ? 1 : 0;
    const std::string memory = bench.Memory().Bytes(0, 8192);
    ExpectTypeOfTable(before, after, memory);
    EXPECT_EQ(bench.host.dialogs.Failures().size(), 0U);
    if (good) {
      EXPECT_EQ(memory, after);
      continue;
    }
    const bool stage_begun = Count(bench.Sent(), "G99 I10") > 1;
    ExpectBoxes(bench, stage_begun);
    EXPECT_EQ(bench.page->TransferBar.Value(), 0.0F);
    if (stage_begun && !mishap.for_good) {
      EXPECT_TRUE(bench.Sent().ends_with("G01 I01 D0")) << bench.Sent().substr(bench.Sent().size() - 40);
    }
    if (HasFailure()) {
      return;  // one is enough to look into
    }
  }
  EXPECT_GT(good_runs, 0) << "some mishaps are overcome";
}

INSTANTIATE_TEST_SUITE_P(
    Models, StageSweepTest,
    testing::Values(SweptModel{"Z2WT", "TC T (CC)", "1-5 V"}, SweptModel{"Z2WR", "Ni100", "0-10 V"},
                    SweptModel{"Z2WF", "0 - 20 mA", "1-5 V"}, SweptModel{"Z2WV", "-50 - 50 mV", "0-10 V"},
                    SweptModel{"Z8WT", "TC U", "0-5 V"}, SweptModel{"Z2WM", "POT 2-10 kOhm", "1-5 V"}));

}  // namespace
}  // namespace korva::test
