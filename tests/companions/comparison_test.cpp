// What a comparison of the page with a device or a file finds, and that it touches neither page nor set.

#include "companions/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "companions/comparer.h"
#include "companions/part_of.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"

namespace korva::test {
namespace {

using Found = std::vector<Difference>;
using Outcome = Comparison::Outcome;

class CompareBench : public PageBench {
 public:
  explicit CompareBench(const String& model, const sim::DeviceOptions& options = {})
      : device(PageBench::Connect(model, options)) {
    Choose(model);
    TakeTables();
    Upload();
    TakeBoxes();
  }
  [[nodiscard]] const Comparison& Compared() const { return app.companions.Compared; }
  Comparer& Part() { return *PartOf<Comparer>(Page()); }
  const Found& Compare() {
    Click(Part().cmdCompare);
    return Compared().Differences();
  }
  const Found& CompareWith(const String& path) {
    Do([&] { Part().CompareFile(path); });
    return Compared().Differences();
  }

  sim::Device& device;
};

TEST(ComparisonTest, FindsNothingWhereNothingWasChangedAndAsksNothing) {
  CompareBench bench(u"QHW");
  EXPECT_EQ(bench.Compare(), Found());
  EXPECT_EQ(bench.Compared().Result(), Outcome::Complete);
  EXPECT_EQ(bench.Compared().What(), Comparison::With::Device);
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST(ComparisonTest, ListsWhatSomeoneChangedAndMarksItsFieldUntilTheNextEdit) {
  CompareBench bench(u"QHW");
  bench.device.Set("01", "14", "2.5");
  EXPECT_EQ(bench.Compare(),
            (Found{{.item = u"01/14", .caption = u"入力ｾﾞﾛ (0%)", .page = u"0 V", .other = u"2.5 V"}}));
  EXPECT_TRUE(bench.Field(u"14").Differs());
  EXPECT_FALSE(bench.Field(u"15").Differs());
  EXPECT_EQ(bench.LookOf(u"14"), Look::Normal);
  EXPECT_EQ(bench.Field(u"14").Text(), u"0");
  bench.Type(u"02", u"X");
  EXPECT_FALSE(bench.Field(u"14").Differs());
}

TEST(ComparisonTest, TakesTheSameNumberForTheSame) {
  CompareBench bench(u"QHW");
  bench.Type(u"14", u"0.0");
  EXPECT_EQ(bench.Compare(), Found());
}

TEST(ComparisonTest, FindsAChoice) {
  CompareBench bench(u"QHW");
  bench.device.Set("01", "10", "3:DC mA");
  const Found& found = bench.Compare();
  const auto type =
      std::find_if(found.begin(), found.end(), [](const Difference& one) { return one.item == u"01/10"; });
  ASSERT_NE(type, found.end());
  EXPECT_EQ(type->page, u"1:DC V");
  EXPECT_EQ(type->other, u"3:DC mA");
  EXPECT_TRUE(bench.Page().Combo[0].Differs());
}

TEST(ComparisonTest, ComparesTemperaturesInTheUnitOfThePage) {
  CompareBench bench(u"Z8WT2");
  bench.Press(bench.Page().optTempUnit, 1);
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U) << ToUtf8(found.empty() ? String() : found.back().item);
  EXPECT_EQ(found.front().item, u"01/21");
}

TEST(ComparisonTest, FindsAnotherUnitOfTheSameNumber) {
  CompareBench bench(u"QIC");
  const String number = bench.Field(u"10").Text();
  auto& box = dynamic_cast<ComboBox&>(*bench.Page().FindControl("cbo_unit(0)"));
  const String there = box.Text();
  bench.Pick(box, there == u"kHz" ? u"Hz" : u"kHz");
  if (bench.Field(u"10").Text() != number) {
    bench.Type(u"10", number);
  }
  EXPECT_EQ(bench.Compare(), (Found{{.item = u"01/10",
                                     .caption = u"入力ﾌﾙｽｹｰﾙ",
                                     .page = number + u" " + box.Text(),
                                     .other = number + u" " + there}}));
  EXPECT_TRUE(bench.Field(u"10").Differs());
  EXPECT_TRUE(box.Differs());
  bench.Type(bench.Page().txtMemo, u"read");
  EXPECT_FALSE(box.Differs());
}

TEST(ComparisonTest, ComparesThePointsOfATable) {
  CompareBench bench(u"QHW");
  bench.device.Set("01", "60", "12.5");
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().item, u"table 1,1");
  EXPECT_EQ(found.front().other, u"12.50");
}

/// A device with its table in use, read by the page.
class TableCompareBench : public CompareBench {
 public:
  explicit TableCompareBench(const String& model) : CompareBench(model) {
    EXPECT_TRUE(device.Set("01", "23", "ON"));
    Page().DataChanged = false;
    Upload();
    TakeBoxes();
  }
  Grid& Table() { return dynamic_cast<Grid&>(*Page().FindControl("LnrFlexGrid")); }
};

TEST(ComparisonTest, ComparesThePointsOfATableInTheDevicesMemory) {
  TableCompareBench bench(u"Z2WM");
  ASSERT_NE(bench.Table().At(1, 1).text, u"");
  EXPECT_EQ(bench.Compare(), Found());
  const String there = bench.Table().At(1, 2).text;
  bench.Do([&] { bench.Table().SetText(1, 2, u"77.00"); });
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front(),
            (Difference{.item = u"table 1,2", .caption = u"ﾃｰﾌﾞﾙ Y(k) %", .page = u"77.00", .other = there}));
}

void ExpectASilentTableAlone(const Found& found) {
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().item, u"table");
  EXPECT_TRUE(found.front().silent);
}

TEST(ComparisonTest, TellsOfATableInTheDevicesMemoryThatCantBeRead) {
  TableCompareBench bench(u"Z2WM");
  bench.device.AddFault(sim::ParseFault("silent-access"));
  bench.Page().DataChanged = false;
  bench.Upload();
  bench.TakeBoxes();
  ASSERT_EQ(bench.Table().At(1, 1).text, u"");
  ExpectASilentTableAlone(bench.Compare());
}

TEST(ComparisonTest, TakesANumberWithMoreDigitsBehindItForNoPointThatTheDeviceHas) {
  CompareBench bench(u"QHW");
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("LnrFlexGrid"));
  bench.device.Set("01", "60", "12");
  bench.Do([&] { grid.SetText(1, 1, u"12 %"); });
  EXPECT_EQ(bench.Compare(), Found());
  bench.Do([&] { grid.SetText(1, 1, u"12,5"); });  // the check refuses it
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().page, u"12,5");
}

TEST(ComparisonTest, TellsOfAPointThatDidNotAnswerThoughThePageIsBlankThereToo) {
  CompareBench bench(u"QHW");
  bench.device.AddFault(sim::ParseFault("silent=I62"));
  bench.Page().DataChanged = false;
  bench.Upload();
  bench.TakeBoxes();
  ExpectASilentTableAlone(bench.Compare());
}

TEST(ComparisonTest, MarksThePointsThatDifferUntilTheNextEditOfTheTableOrOfAField) {
  CompareBench bench(u"QHW");
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("LnrFlexGrid"));
  bench.device.Set("01", "60", "12.5");
  bench.Compare();
  EXPECT_TRUE(grid.At(1, 1).differs);
  EXPECT_FALSE(grid.At(1, 2).differs);
  EXPECT_FALSE(grid.At(2, 1).differs);
  bench.Do([&] { grid.SetLook(5, 2, Look::Selected); });  // the editor opens on a cell
  EXPECT_TRUE(grid.At(1, 1).differs);
  bench.Do([&] { grid.SetText(5, 2, u"7"); });
  EXPECT_FALSE(grid.At(1, 1).differs);

  EXPECT_EQ(bench.Compare().size(), 2U);
  EXPECT_TRUE(grid.At(1, 1).differs);
  EXPECT_TRUE(grid.At(5, 2).differs);
  bench.Type(u"02", u"X");
  EXPECT_FALSE(grid.At(1, 1).differs);
  EXPECT_FALSE(grid.At(5, 2).differs);

  bench.Compare();
  bench.Page().DataChanged = false;
  bench.Choose(u"QHNY1");  // on the same page, with a larger table
  EXPECT_FALSE(grid.At(1, 1).differs);
}

TEST(ComparisonTest, ComparesWhatTravelsWithAUsersTable) {
  CompareBench bench(u"Z8WT2");
  bench.device.Set("01", "10", "13 User's TC");
  bench.Page().DataChanged = false;
  bench.Upload();
  bench.TakeBoxes();
  ASSERT_EQ(bench.Compare(), Found());
  auto& step = dynamic_cast<TextField&>(*bench.Page().FindControl("txtStep"));
  const String there = step.Text();
  bench.Type(step, there + u"1");
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front(),
            (Difference{.item = u"table", .caption = u"ﾃｰﾌﾞﾙﾋﾟｯﾁ", .page = there + u"1", .other = there}));
  auto& base = dynamic_cast<TextField&>(*bench.Page().FindControl("txtBase"));
  EXPECT_TRUE(step.Differs());
  EXPECT_FALSE(base.Differs());
  bench.Type(base, u"3");
  EXPECT_FALSE(step.Differs());
}

TEST(ComparisonTest, LeavesTheTableOfAnotherInputOut) {
  CompareBench bench(u"Z8WT2");
  bench.Save(kFile);
  bench.TakeBoxes();
  bench.Pick(bench.Page().Combo[0], u"13 User's TC");
  auto& curve = dynamic_cast<Grid&>(*bench.Page().FindControl("TCFlexGrid"));
  bench.Do([&] { curve.SetText(1, 1, u"7.00"); });
  bench.CompareWith(kFile);
  for (const Difference& one : bench.Compared().Differences()) {
    EXPECT_NE(one.item.substr(0, 6), u"table ") << ToUtf8(one.item);
  }
  EXPECT_FALSE(curve.At(1, 1).differs);
}

TEST(ComparisonTest, FindsAValueThatComesWithThatOfAnotherRow) {
  CompareBench bench(u"Z8WT2");
  bench.device.Set("01", "34", "25.000 580.000");
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().item, u"01/35");
  EXPECT_TRUE(bench.Field(u"35").Differs());
}

TEST(ComparisonTest, FindsInAFileWhatNoUploadReads) {
  CompareBench bench(u"Z2WU");
  bench.Type(u"81", u"1A");
  bench.Save(kFile);
  bench.TakeBoxes();
  bench.Type(u"81", u"1B");
  EXPECT_EQ(bench.CompareWith(kFile),
            (Found{{.item = u"01/81", .caption = u"ｱﾄﾞﾚｽ (01～7F)", .page = u"1B", .other = u"1A"}}));
  EXPECT_TRUE(bench.Field(u"81").Differs());
  EXPECT_EQ(bench.Compare(), Found());
}

TEST(ComparisonTest, TellsWhatDidNotAnswer) {
  CompareBench bench(u"QHW");
  bench.device.AddFault(sim::ParseFault("silent=I15"));
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().item, u"01/15");
  EXPECT_TRUE(found.front().silent);
}

TEST(ComparisonTest, TellsWhatDidNotAnswerThoughThePageIsBlankThereToo) {
  CompareBench bench(u"QHW");
  bench.Type(u"15", u"");
  bench.device.AddFault(sim::ParseFault("silent=I15"));
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().item, u"01/15");
  EXPECT_TRUE(found.front().silent);
}

TEST(ComparisonTest, TellsWhatTheDeviceRefusedThoughThePageShowsTheSameOfItsUpload) {
  CompareBench bench(u"QHW");
  bench.device.AddFault(sim::ParseFault("refused=I15"));
  bench.Page().DataChanged = false;
  bench.Upload();
  bench.TakeBoxes();
  ASSERT_EQ(bench.Field(u"15").Text(), u"ERROR");
  const Found& found = bench.Compare();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().item, u"01/15");
  EXPECT_TRUE(found.front().untold);
  EXPECT_FALSE(found.front().silent);
  EXPECT_TRUE(bench.Field(u"15").Differs());
  EXPECT_EQ(bench.app.companions.Panels()[1]->Cells(0).back(), u"拒否");
}

TEST(ComparisonTest, TellsNoDifferencesOfADeviceThatIsNotReadToItsEnd) {
  CompareBench bench(u"QHW");
  bench.device.AddFault(sim::ParseFault("silent"));
  EXPECT_EQ(bench.Compare(), Found());
  EXPECT_EQ(bench.Compared().Result(), Outcome::Broken);
  EXPECT_EQ(bench.TakeBoxes(), std::vector{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(bench.Page().WhyRefused(bench.Page().cmdUpload), "");
}

TEST(ComparisonTest, ComparesWithAFileAndNotWithOneOfAnotherModel) {
  CompareBench bench(u"QHW");
  bench.Save(kFile);
  bench.TakeBoxes();
  EXPECT_EQ(bench.CompareWith(kFile), Found());
  bench.Type(u"14", u"2");
  EXPECT_EQ(bench.CompareWith(kFile),
            (Found{{.item = u"01/14", .caption = u"入力ｾﾞﾛ (0%)", .page = u"2 V", .other = u"0 V"}}));
  EXPECT_EQ(bench.Page().txtFileTitle.Text(), u"kept.cfg");
  bench.Page().DataChanged = false;
  bench.Choose(u"QZ");
  EXPECT_EQ(bench.CompareWith(kFile), Found());
  EXPECT_EQ(bench.Compared().Result(), Outcome::OtherModel);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QZ");
}

TEST(ComparisonTest, TellsNoDifferencesFromAFileThatIsNotReadToItsEnd) {
  CompareBench bench(u"QHW");
  bench.Save(kFile);
  bench.TakeBoxes();
  std::string bytes = bench.files.Bytes(kFile).value();
  bench.files.Put(kFile, bytes.replace(bytes.find("$Memo"), 5, "$Memory"));
  EXPECT_EQ(bench.CompareWith(kFile), Found());
  EXPECT_EQ(bench.Compared().Result(), Outcome::Broken);
  EXPECT_EQ(bench.TakeBoxes(), std::vector{Shown(BoxKey::CfgFormat)});
}

TEST(ComparisonTest, TakesAnInputTypeThatADeviceOfAnotherVersionSpellsInItsOwnWayForTheSame) {
  CompareBench older(u"QUO");
  older.Save(kFile);
  const String kept = older.TextOf(kFile);
  ASSERT_NE(kept.find(u"Tc-1: (PR)"), String::npos);
  CompareBench bench(u"QUO", {.system_text = "SYSVER   2.00"});
  ASSERT_EQ(bench.Page().Item(10), u"Tc-1:  (PR)");
  bench.files.Put(kFile, older.files.Bytes(kFile).value());
  EXPECT_EQ(bench.CompareWith(kFile), Found());
  bench.Pick(bench.Page().Combo[0], u"Tc-2: K(CA)");
  bench.CompareWith(kFile);
  EXPECT_TRUE(std::any_of(bench.Compared().Differences().begin(), bench.Compared().Differences().end(),
                          [](const Difference& one) { return one.other == u"Tc-1: (PR)"; }));
}

TEST(ComparisonTest, LetsTheUserChooseTheFile) {
  CompareBench bench(u"QHW");
  bench.Save(kFile);
  bench.TakeBoxes();
  bench.Type(u"14", u"2");
  bench.Click(bench.Part().cmdCompareFile);  // the dialog is cancelled
  EXPECT_EQ(bench.Compared().What(), Comparison::With::Nothing);
  bench.dialogs.QueueFile(kFile);
  bench.Click(bench.Part().cmdCompareFile);
  EXPECT_EQ(bench.Compared().What(), Comparison::With::File);
  EXPECT_EQ(bench.Compared().Differences().size(), 1U);
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(ComparisonTest, BeginsToLookForTheFileWhereThePagesOwnLies) {
  CompareBench bench(u"QHW");
  bench.Save(u"/home/me/b.cfg");
  bench.TakeBoxes();
  bench.Click(bench.Part().cmdCompareFile);
  EXPECT_EQ(bench.dialogs.FileDialogs().back().dialog.start_folder, u"/home/me");
}

TEST(ComparisonTest, LeavesTheReportOfTheLastTransfer) {
  CompareBench bench(u"QHW");
  const auto rows = bench.app.companions.Report.Rows();
  bench.Compare();
  EXPECT_EQ(bench.app.companions.Report.Rows(), rows);
}

TEST(ComparisonTest, LetsAForcedOutputGoAsAnUploadDoes) {
  CompareBench bench(u"QHW");
  bench.Do([&] { bench.Page().TellForced(u"50 %"); });
  bench.Compare();
  EXPECT_FALSE(bench.Page().lblForced.Visible());
}

TEST(ComparisonTest, HoldsACloseRequestLikeAnUpload) {
  CompareBench bench(u"QHW");
  bench.loop.After(Milliseconds(500), [&] { bench.app.program.PressClose(); });
  bench.Click(bench.Part().cmdCompare);
  EXPECT_EQ(bench.status, 0);
}

TEST(ComparisonTest, IsBarredWhileAnOperationRuns) {
  CompareBench bench(u"QHW");
  bool seen = false;
  bench.loop.After(Milliseconds(500), [&] {
    seen = true;
    EXPECT_EQ(bench.Page().WhyRefused(bench.Part().cmdCompare), "disabled");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Page().cmdUpload), "disabled");
    EXPECT_TRUE(bench.Page().OperationRuns());
  });
  bench.Compare();
  EXPECT_TRUE(seen);
  EXPECT_FALSE(bench.Page().OperationRuns());
}

}  // namespace
}  // namespace korva::test
