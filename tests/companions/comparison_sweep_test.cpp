// A comparison finds what was changed on each model, and leaves page, set and file title as they are.

#include <gtest/gtest.h>

#include "companions/comparer.h"
#include "companions/part_of.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"

namespace korva::test {
namespace {

/// Everything that the page shows and keeps, a line each.
std::vector<std::string> StateOf(const ParameterPage& page) {
  std::vector<std::string> lines;
  for (const Control* control : page.Controls()) {
    const auto* const option = dynamic_cast<const OptionButton*>(control);
    const auto* const bar = dynamic_cast<const ProgressBar*>(control);
    lines.push_back(control->FullName() + (control->Visible() ? " shown" : "") +
                    (control->Enabled() ? " enabled" : "") + (control->Locked() ? " locked " : " ") +
                    ToUtf8(control->ShownText()) + (option != nullptr && option->Value() ? " on" : "") +
                    std::to_string(bar == nullptr ? 0 : bar->Value()) +
                    std::to_string(static_cast<int>(control->ShownLook())));
    if (const auto* const grid = dynamic_cast<const Grid*>(control)) {
      for (int row = 0; row < grid->Rows(); ++row) {
        for (int column = 0; column < grid->Columns(); ++column) {
          lines.push_back(ToUtf8(grid->At(row, column).text));
        }
      }
    }
  }
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    lines.emplace_back(page.Tabs.TabEnabled(tab) ? "open" : "closed");
  }
  for (int group = 0; group < page.GroupItem.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      lines.push_back(ToUtf8(page.GroupItem.At(group, item)));
    }
  }
  lines.emplace_back(page.DataChanged ? "changed" : "unchanged");
  lines.push_back(ToUtf8(page.DefFile));
  return lines;
}

class ComparisonOfModel : public testing::TestWithParam<String> {};

TEST_P(ComparisonOfModel, FindsTheTagThatSomeoneChangedAndTouchesNothing) {
  PageBench bench;
  sim::Device& device = bench.Connect(GetParam());
  bench.Choose(GetParam());
  bench.TakeTables();
  bench.Upload();
  bench.Type(u"02", u"MINE");
  bench.Save(kFile);
  ASSERT_TRUE(device.Set("01", "02", "THEIRS"));
  bench.TakeBoxes();
  const std::vector<std::string> before = StateOf(bench.Page());
  const std::vector<String> known(bench.app.program.Shared().KnownItemNames.begin(),
                                  bench.app.program.Shared().KnownItemNames.end());
  bench.Click(PartOf<Comparer>(bench.Page())->cmdCompare);
  EXPECT_EQ(StateOf(bench.Page()), before);
  EXPECT_EQ(std::vector<String>(bench.app.program.Shared().KnownItemNames.begin(),
                                bench.app.program.Shared().KnownItemNames.end()),
            known);
  EXPECT_TRUE(bench.TakeBoxes().empty());
  const Comparison& compared = bench.app.companions.Compared;
  EXPECT_EQ(compared.Result(), Comparison::Outcome::Complete);
  ASSERT_EQ(compared.Differences().size(), 1U) << ToUtf8(compared.Differences().back().item);
  EXPECT_EQ(compared.Differences().front().item, u"01/02");
  EXPECT_EQ(compared.Differences().front().page, u"MINE");
  EXPECT_EQ(compared.Differences().front().other, u"THEIRS");
  bench.Do([&] { PartOf<Comparer>(bench.Page())->CompareFile(kFile); });
  EXPECT_EQ(compared.Differences().size(), 0U);
  EXPECT_EQ(compared.Result(), Comparison::Outcome::Complete);
  EXPECT_EQ(StateOf(bench.Page()), before);
}

INSTANTIATE_TEST_SUITE_P(Each, ComparisonOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
