// The titles that the dialect of "enter item" expects of its items, from page to page.

#include <gtest/gtest.h>

#include <algorithm>

#include "page_bench.h"

namespace korva {
namespace {

class ItemTitlesTest : public testing::Test {
 protected:
  ItemTitlesTest() { bench_.Start(); }
  [[nodiscard]] int Known() {
    const auto& names = bench_.app.program.Shared().KnownItemNames;
    return static_cast<int>(
        std::count_if(names.begin(), names.end(), [](const String& name) { return !name.empty(); }));
  }

  test::PageBench bench_;
};

TEST_F(ItemTitlesTest, AreThoseOfTheChosenModel) {
  bench_.Choose(u"QEY");
  const auto names = bench_.app.program.Shared().KnownItemNames;
  for (int row = 0; row < bench_.Page().Def.Data().Rows(); ++row) {
    EXPECT_EQ(names.at(static_cast<std::size_t>(row)), bench_.Page().DataCell(row, kItemTitle)) << row;
  }
  EXPECT_GT(Known(), 0);
}

TEST_F(ItemTitlesTest, OfAFormerPageAreNotLeftToOneOfTheOtherDialect) {
  bench_.Choose(u"QEY");
  for (const char16_t* model : {u"QL", u"QEI2"}) {
    bench_.Choose(model);
    EXPECT_EQ(Known(), 0);
    bench_.app.program.Shared().KnownItemNames.fill(u"of a former page");
  }
}

TEST_F(ItemTitlesTest, AreThereAgainWhenTheirPageComesBack) {
  bench_.Choose(u"QEY");
  const auto names = bench_.app.program.Shared().KnownItemNames;
  bench_.Choose(u"QL");
  bench_.Choose(u"QEY");
  EXPECT_EQ(bench_.app.program.Shared().KnownItemNames, names);
}

TEST_F(ItemTitlesTest, AreReadAnewWhenThePageIsActivatedWithTheModelThatItHas) {
  bench_.Choose(u"QEY");
  const auto names = bench_.app.program.Shared().KnownItemNames;
  const Family& second = bench_.Page().ItsFamily();
  bench_.app.program.Shared().KnownItemNames.fill(u"of a former page");
  bench_.Do([&] { bench_.app.program.Show(second); });
  EXPECT_EQ(bench_.app.program.Shared().KnownItemNames, names);
}

}  // namespace
}  // namespace korva
