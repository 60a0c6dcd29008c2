// After a check that fails the user stands at the first field that made it fail.

#include <gtest/gtest.h>

#include "linearizer/linearizer.h"
#include "page_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

/// The page of a model after an upload, with a note of each control of the page that gets the focus.
struct FaultBench : test::PageBench {
  explicit FaultBench(const String& model) {
    device = &Connect(model);
    Choose(model);
    Upload();
    for (Control* control : Page().Controls()) {
      control->ObserveFocus([this, control] { focused = control->FullName(); });
    }
  }
  [[nodiscard]] std::vector<int> BadTabs() {
    std::vector<int> bad;
    for (int tab = 0; tab < Page().Tabs.Count(); ++tab) {
      if (Page().Tabs.TabBad(tab)) {
        bad.push_back(tab);
      }
    }
    return bad;
  }
  sim::Device* device = nullptr;
  std::string focused;
};

using Tabs = std::vector<int>;

TEST(FaultFocus, ABadFieldComesToTheFrontAndHasTheFocus) {
  FaultBench bench(u"QN");
  bench.Type(u"15", u"99999");
  bench.Page().Tabs.SetCurrent(5);
  bench.Check();
  EXPECT_EQ(bench.Page().Tabs.Current(), bench.Page().TabOf(bench.Field(u"15")));
  EXPECT_EQ(bench.focused, bench.Field(u"15").FullName());
  EXPECT_EQ(bench.BadTabs(), Tabs{1});
}

TEST(FaultFocus, TheFirstBlankFieldIsTheFirstOnTheScreen) {
  FaultBench bench(u"QEI");
  ASSERT_LT(bench.Field(u"13").Index(), bench.Field(u"15").Index());  // and stands below it
  bench.Type(u"13", u"");
  bench.Type(u"15", u"");
  bench.Check();
  EXPECT_EQ(bench.focused, bench.Field(u"15").FullName());
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
  bench.Type(u"15", u"100");
  bench.Check();
  EXPECT_EQ(bench.focused, bench.Field(u"13").FullName());
}

TEST(FaultFocus, ATabIsMarkedUntilAllOnItIsGood) {
  FaultBench bench(u"QN");
  bench.Type(u"19", u"50");
  bench.Type(u"20", u"50");
  bench.Check();
  EXPECT_EQ(bench.BadTabs(), Tabs{2});
  bench.Type(u"20", u"60");
  EXPECT_EQ(bench.BadTabs(), Tabs{2});
  bench.Check();
  EXPECT_EQ(bench.BadTabs(), Tabs{});
}

TEST(FaultFocus, AnotherModelHasNoMarkedTab) {
  FaultBench bench(u"QN");
  bench.Type(u"15", u"99999");
  bench.Check();
  bench.dialogs.QueueAnswer(Answer::No);
  bench.Choose(u"QC");
  EXPECT_EQ(bench.BadTabs(), Tabs{});
}

TEST(FaultFocus, ADownloadThatFailsItsCheckGoesThereToo) {
  FaultBench bench(u"QN");
  bench.Type(u"15", u"99999");
  bench.Page().Tabs.SetCurrent(5);
  bench.Download();
  EXPECT_EQ(bench.focused, bench.Field(u"15").FullName());
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
  EXPECT_FALSE(bench.Page().Shared().CommBusy);
}

TEST(FaultFocus, AChoiceThatCannotBeSentComesToTheFront) {
  FaultBench bench(u"QL");
  ComboBox& range = bench.Page().Combo[1];
  bench.Page().SetItem(11, u"no such range");
  bench.Page().BuildPage();
  bench.Page().Tabs.SetCurrent(5);
  bench.Download();
  ASSERT_EQ(range.ShownLook(), Look::Bad);
  EXPECT_EQ(bench.focused, range.FullName());
  EXPECT_EQ(bench.BadTabs(), Tabs{1});
}

TEST(FaultFocus, AGoodCheckMovesNothing) {
  FaultBench bench(u"QN");
  bench.Page().Tabs.SetCurrent(2);
  bench.Check();
  EXPECT_EQ(bench.focused, "");
  EXPECT_EQ(bench.Page().Tabs.Current(), 2);
}

/// A model whose table is always in use.
struct TableFaultBench : FaultBench {
  TableFaultBench() : FaultBench(u"QHW") {}
  Linearizer& table = test::Part<Linearizer>(Page());
};

TEST(FaultFocus, ABadCellComesIntoViewWithTheFrameOfTheKeyboard) {
  TableFaultBench bench;
  bench.table.Table().Store(12, 2, u"x");
  bench.table.Table().Store(14, 1, u"x");
  bench.Check();
  EXPECT_EQ(bench.focused, "LnrFlexGrid");
  EXPECT_EQ(bench.table.LnrFlexGrid.CurrentCell(), std::pair(12, 2));
  EXPECT_EQ(bench.Page().Tabs.Current(), 3);
  EXPECT_EQ(bench.BadTabs(), Tabs{3});
}

TEST(FaultFocus, ATableWithoutAValueComesToTheFront) {
  TableFaultBench bench;
  bench.table.Table().Clear();
  bench.Check();
  EXPECT_EQ(bench.focused, "LnrFlexGrid");
  EXPECT_EQ(bench.Page().Tabs.Current(), 3);
}

}  // namespace
}  // namespace korva
