#include "transfer/value_check.h"

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "value_check_fixture.h"

namespace korva::test {
namespace {

// The command.

TEST_F(ValueCheckTest, AGoodSetIsReportedWithTheBarAtItsEndAndThenZero) {
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CheckDone)});
  EXPECT_EQ(bench.progress, (std::vector<int>{5, 10, 100, 0}));
  EXPECT_EQ(bench.line.Sent(), "");
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(ValueCheckTest, ABadValueEndsTheBarAtZeroWithTheBox) {
  bench.Type(u"20", u"-1");
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::ValueBad)});
  EXPECT_EQ(bench.progress, (std::vector<int>{5, 0}));
}

TEST_F(ValueCheckTest, TheFrameIsLockedWhileTheBoxShowsAndTabsKeepTheirState) {
  bench.page->Tabs.SetTabEnabled(4, false);
  bool locked = false;
  bench.host.dialogs.OnBox(
      [&](const Box&) { locked = !bench.page->cmdUpload.Enabled() && !bench.page->Tabs.TabEnabled(0); });
  bench.Check();
  EXPECT_TRUE(locked);
  EXPECT_TRUE(bench.page->Tabs.TabEnabled(3));
  EXPECT_FALSE(bench.page->Tabs.TabEnabled(4));
}

// Blank fields.

TEST_F(ValueCheckTest, ABlankFieldIsToldBeforeAnyValueIsChecked) {
  bench.Type(u"22", u"");
  bench.Type(u"20", u"-1");
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::FieldBlank)});
  EXPECT_EQ(bench.LookOf(u"20"), Look::Normal);
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(ValueCheckTest, ABlankTagPassesAndBecomesTenBlanksInTheSet) {
  bench.Type(u"02", u"");
  EXPECT_TRUE(Passes());
  EXPECT_EQ(bench.page->Item(2), u"          ");
  EXPECT_EQ(bench.page->Text[0].Text(), u"");
}

TEST_F(ValueCheckTest, BlankLiveValuesLockedFieldsAndHiddenOnesAreLeftAlone) {
  EXPECT_TRUE(Passes()) << "the fields of 03_set, 03_mon, 04 and 08 are blank";
  bench.page->Text[7].SetText(u"");
  bench.page->Text[7].SetLocked(true);
  EXPECT_TRUE(Passes());
  bench.page->Text[7].SetLocked(false);
  bench.page->Text[7].SetVisible(false);
  EXPECT_TRUE(Passes());
}

TEST(BlankFieldsTest, ABlankFieldThatADownloadWritesIsNoLiveValueWhateverItsItem) {
  for (const bool written : {false, true}) {
    TransferBench bench(
        DataSection({{.item = "06", .text = "0", .prefix = "ALMFRQ", .position = written ? "0" : ""}}) +
        kCheckSections);
    bench.Check();
    EXPECT_EQ(bench.Boxes(), Texts{Shown(written ? BoxKey::FieldBlank : BoxKey::CheckDone)});
  }
}

// The tag.

TEST_F(ValueCheckTest, ATagHasAtMostTenCharactersOfOneByteUpTo225) {
  struct Case {
    String tag;
    bool good;
  };
  for (const auto& [tag, good] : {
           Case{u"ABCDEFGHIJ", true}, Case{u"  ABCDEFGHIJ  ", true}, Case{u"ABCDEFGHIJK", false},
           Case{u"ﾀｸﾞ", true}, Case{u"\uFF9F", true},  // the last half-width character, byte 223
           Case{u"タグ", false}, Case{u"A漢", false},
           Case{u"\u20AC", false},  // the code page has no such character
       }) {
    bench.Type(u"02", tag);
    EXPECT_EQ(Passes(), good) << ToUtf8(tag);
    EXPECT_EQ(bench.LookOf(u"02"), good ? Look::Normal : Look::Bad) << ToUtf8(tag);
  }
}

TEST_F(ValueCheckTest, ACorrectedFieldLosesItsInvertedColoursOnlyWhenTheCheckRunsAgain) {
  bench.Type(u"02", u"ABCDEFGHIJK");
  EXPECT_FALSE(Passes());
  bench.Type(u"02", u"ABC");
  EXPECT_EQ(bench.LookOf(u"02"), Look::Bad);
  EXPECT_TRUE(Passes());
  EXPECT_EQ(bench.LookOf(u"02"), Look::Normal);
}

// Zero and span.

TEST_F(ValueCheckTest, ZeroMustBeAtLeastTheLowestValueAndSpanIsThenLeftAlone) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"0", u"50"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"-0.1", u"2000"));
  ExpectLooks(Look::Bad, Look::Normal);
}

TEST_F(ValueCheckTest, SpanMustBeAtMostTheHighestValueAndZeroIsThenGood) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"0", u"1000"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"0", u"1000.1"));
  ExpectLooks(Look::Normal, Look::Bad);
}

TEST_F(ValueCheckTest, ACorrectedZeroLosesItsMarkThoughTheSpanIsTooHigh) {
  bench.Type(u"14", u"-1");
  EXPECT_FALSE(Passes());
  ExpectLooks(Look::Bad, Look::Normal);
  bench.Type(u"14", u"0");
  bench.Type(u"15", u"1001");
  EXPECT_FALSE(Passes());
  ExpectLooks(Look::Normal, Look::Bad);
}

TEST_F(ValueCheckTest, ZeroAndSpanMustBeTheSmallestSpanApartOrBothAreBad) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"100", u"150"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"100", u"149.9"));
  ExpectLooks(Look::Bad, Look::Bad);
  EXPECT_TRUE(ZeroSpanGood(u"3:DC", u"", u"0.2", u"0.3")) << "0.1 apart as the user reads it";
}

TEST_F(ValueCheckTest, LimitsOfZeroAndAThousandGoTo32And1832InFahrenheit) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg F", u"32", u"1832"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg F", u"31.9", u"1832"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg F", u"32", u"1832.1"));
  // The smallest span of 50 deg C is 90 deg F.
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg F", u"100", u"190"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg F", u"100", u"189.9"));
}

TEST_F(ValueCheckTest, InKelvinTheLowLimitIsRoundedUpTheHighOneDownAndTheSpanStays) {
  // 0 + 273.2 goes up to 274, 1000 + 273.2 down to 1273.
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"K", u"274", u"1273"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"273.9", u"1273"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"274", u"1273.1"));
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"K", u"300", u"350"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"300", u"349.9"));
  // -200.4 deg C is -328.72 deg F and goes up to -328; 600.4 is 1112.72 and goes down to 1112.
  EXPECT_TRUE(ZeroSpanGood(u"2:TC", u"deg F", u"-328", u"1112"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-328.1", u"1112"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-328", u"1112.1"));
}

TEST_F(ValueCheckTest, LimitsInVoltAreTakenAsTheyStandWhateverTheTemperatureUnit) {
  EXPECT_TRUE(ZeroSpanGood(u"3:DC", u"deg F", u"-10", u"10"));
  EXPECT_FALSE(ZeroSpanGood(u"3:DC", u"K", u"-10", u"10.1"));
}

TEST_F(ValueCheckTest, AnInputTypeOutsideTheTableLeavesZeroAndSpanUncheckedAndUncoloured) {
  for (const String type : {u"9:OTHER", u""}) {
    EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"100", u"101"));
    bench.page->SetItem(10, type);
    EXPECT_TRUE(Passes());
    ExpectLooks(Look::Bad, Look::Bad);
  }
}

TEST_F(ValueCheckTest, NEEDLESSZeroAndSpanPass) {
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"NEEDLESS", u"NEEDLESS"));
}

TEST_F(ValueCheckTest, ATextReadsAsItsLeadingNumberAndAsZeroWithoutOne) {
  EXPECT_TRUE(ZeroSpanGood(u"3:DC", u"", u"1.5.2", u"1.6")) << "1.5.2 reads as 1.5";
  EXPECT_FALSE(ZeroSpanGood(u"3:DC", u"", u"1.5.2", u"1.59"));
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"deg C", u"abc", u"50"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"deg C", u"abc", u"49"));
}

TEST_F(ValueCheckTest, WithoutARangeInTheListZeroAndSpanPass) {
  EXPECT_TRUE(ZeroSpanGood(u"4:STRAIGHT", u"", u"-500", u"500"));
}

struct WholeNumberCheckTest : ValueCheckTest {
  WholeNumberCheckTest() : ValueCheckTest({.whole_number_limits = true}) {}
};

TEST_F(WholeNumberCheckTest, LimitsAreRoundedByTheMask) {
  // -200.4 deg C is -328.72 deg F, by the mask -329; 600.4 is 1112.72, by the mask 1113.
  EXPECT_TRUE(ZeroSpanGood(u"2:TC", u"deg F", u"-329", u"1113"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-329.1", u"1113"));
  EXPECT_FALSE(ZeroSpanGood(u"2:TC", u"deg F", u"-329", u"1113.1"));
  // In K 0 is 273.2, by the mask 273.
  EXPECT_TRUE(ZeroSpanGood(u"1:RTD", u"K", u"273", u"1273"));
  EXPECT_FALSE(ZeroSpanGood(u"1:RTD", u"K", u"272.9", u"1273"));
}

TEST_F(WholeNumberCheckTest, WithoutARangeInTheListZeroAndSpanHaveARuleOfTheirOwn) {
  struct Case {
    String zero;
    String span;
    bool good;
  };
  for (const auto& [zero, span, good] : {
           Case{u"-10", u"10", true}, Case{u"-10.1", u"9", false}, Case{u"0", u"10.1", false},
           Case{u"0.001", u"0.004", true},                                                     // 0.003 apart
           Case{u"0.001", u"0.0039", false}, Case{u"5", u"1", false}, Case{u"6", u"8", true},  // 3 x 2 is 6
           Case{u"6", u"7.9", false},  // 3 x 1.9 is 5.7
       }) {
    EXPECT_EQ(ZeroSpanGood(u"4:STRAIGHT", u"", zero, span), good) << ToUtf8(zero) << " " << ToUtf8(span);
    ExpectLooks(good ? Look::Normal : Look::Bad, good ? Look::Normal : Look::Bad);
  }
}

// The scale.

TEST_F(ValueCheckTest, TheScalesHighEndMustExceedItsLowEndAndBothLieWithin299Point99) {
  struct Case {
    String low;
    String high;
    Look low_look;
    Look high_look;
  };
  for (const auto& one : {
           Case{u"0", u"0.01", Look::Normal, Look::Normal},
           Case{u"50", u"50", Look::Bad, Look::Bad},
           Case{u"50", u"49", Look::Bad, Look::Bad},
           Case{u"-299.99", u"299.99", Look::Normal, Look::Normal},
           Case{u"-300", u"299.99", Look::Bad, Look::Normal},
           Case{u"0", u"300", Look::Normal, Look::Bad},
           Case{u"-300", u"300", Look::Bad, Look::Bad},
       }) {
    bench.Type(u"19", one.low);
    bench.Type(u"20", one.high);
    const bool good = one.low_look == Look::Normal && one.high_look == Look::Normal;
    EXPECT_EQ(Passes(), good) << ToUtf8(one.low) << " " << ToUtf8(one.high);
    EXPECT_EQ(bench.LookOf(u"19"), one.low_look);
    EXPECT_EQ(bench.LookOf(u"20"), one.high_look);
  }
}

TEST_F(ValueCheckTest, AScaleOfWhichOneEndIsOfNoUsePasses) {
  bench.page->SetItem(19, u"NEEDLESS");
  bench.page->SetItem(20, u"999");
  bench.page->BuildPage();
  EXPECT_TRUE(Passes());
}

TEST(ValueCheckFieldsTest, MissingFieldsPass) {
  TransferBench bench(DataSection({{.item = "33", .text = "0"}}) + kCheckSections);
  bench.page->SetItem(10, u"1:RTD");
  bench.page->SetItem(33, u"1");
  bench.page->BuildPage();
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CheckDone)});
  bench.page->SetItem(11, u"0-5 V");
  EXPECT_TRUE(bench.page->fields.CheckRangeOfType());
}

// The order.

TEST_F(ValueCheckTest, TheFirstBadCheckEndsTheRun) {
  int model_checks = 0;
  bench.page->model_check = [&](BenchPage&) {
    ++model_checks;
    return true;
  };
  bench.Type(u"02", u"ABCDEFGHIJK");
  bench.Type(u"20", u"-1");
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench.LookOf(u"20"), Look::Normal);
  EXPECT_EQ(model_checks, 0);
}

TEST_F(ValueCheckTest, TheModelsCheckAndThePagesPartsComeLast) {
  bench.Check();
  EXPECT_EQ(bench.page->notes, Texts{"check table"});
  bench.page->table.finding = Finding::Bad;
  EXPECT_FALSE(Passes());
  bench.page->model_good = false;
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench.page->notes, Texts{});
}

TEST_F(ValueCheckTest, APartTellsWhetherAValueIsMissingOrBad) {
  for (const auto& [finding, box] :
       {std::pair{Finding::Blank, BoxKey::FieldBlank}, std::pair{Finding::Bad, BoxKey::ValueBad},
        std::pair{Finding::Good, BoxKey::CheckDone}}) {
    bench.page->table.finding = finding;
    bench.Check();
    EXPECT_EQ(bench.Boxes().back(), Shown(box));
    const bool good = finding == Finding::Good;
    EXPECT_EQ(bench.progress, good ? (std::vector{5, 10, 100, 0}) : (std::vector{5, 0}));
    EXPECT_TRUE(bench.AtRest());
  }
}

TEST_F(ValueCheckTest, PartsAreAskedInTheirOrderAndTheFirstThatIsNotGoodEndsTheRun) {
  BenchPart& second = bench.page->AddPart("second");
  bench.Check();
  EXPECT_EQ(bench.page->notes, (Texts{"check table", "check second"}));
  second.finding = Finding::Bad;
  EXPECT_FALSE(Passes());
  EXPECT_EQ(bench.page->notes, (Texts{"check table", "check second"}));
  bench.page->table.finding = Finding::Blank;
  bench.Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::FieldBlank));
  EXPECT_EQ(bench.page->notes, Texts{"check table"});
}

}  // namespace
}  // namespace korva::test
