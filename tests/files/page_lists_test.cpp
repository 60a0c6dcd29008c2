#include "page_builder_fixture.h"

namespace korva::test {
namespace {

class PageLists : public PageBuilder {};

using Entries = std::vector<String>;

TEST_F(PageLists, AFixedInputTypeHasNoListAndIsLocked) {
  TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"Y")}, kTypes));
  EXPECT_TRUE(page.Combo[0].Visible());
  EXPECT_TRUE(page.Combo[0].Entries().empty());
  EXPECT_EQ(page.Combo[0].Text(), u"Type B");
  EXPECT_TRUE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].ShownLook(), Look::Grey);
}

TEST_F(PageLists, TheRuleNListsAllInputTypesLocked) {
  TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"N")}, kTypes));
  EXPECT_EQ(page.Combo[0].Entries().size(), 17U);
  EXPECT_EQ(page.Combo[0].Entries()[3], u"Type D");
  EXPECT_TRUE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].Text(), u"Type B");
}

TEST_F(PageLists, TheRuleOfTheTableListsTheOpenInputTypes) {
  TestPage& page = ShowWith(10, u"Type B", DefText({TypeRow(u"$I10")}, kTypes));
  EXPECT_EQ(page.Combo[0].Entries(), (Entries{u"Type A", u"Type B"}));
  EXPECT_FALSE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].ShownLook(), Look::Normal);
}

TEST_F(PageLists, TheRuleOfTheTableLocksAFixedInputType) {
  TestPage& page = ShowWith(10, u"Type C", DefText({TypeRow(u"$I10")}, kTypes));
  EXPECT_TRUE(page.Combo[0].Entries().empty());
  EXPECT_TRUE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].Text(), u"Type C");
}

TEST_F(PageLists, AnUnknownInputTypeStaysAsTextOverTheOpenOnes) {
  TestPage& page = ShowWith(10, u"Strange", DefText({TypeRow(u"$I10")}, kTypes));
  EXPECT_EQ(page.Combo[0].Text(), u"Strange");
  EXPECT_EQ(page.Combo[0].Entries().size(), 2U);
  EXPECT_FALSE(page.Combo[0].Locked());
}

TEST_F(PageLists, AnyOtherRuleListsNothingAndStaysOpen) {
  TestPage& page = ShowWith(10, u"Type A", DefText({TypeRow(u"")}, kTypes));
  EXPECT_TRUE(page.Combo[0].Entries().empty());
  EXPECT_FALSE(page.Combo[0].Locked());
}

TEST_F(PageLists, ALockedBoxOpensAgainUnderAnotherModel) {
  ShowWith(10, u"Type B", DefText({TypeRow(u"N")}, kTypes));
  TestPage& page = Show(DefText({TypeRow(u"$I10")}, kTypes), u"QD");
  EXPECT_FALSE(page.Combo[0].Locked());
  EXPECT_EQ(page.Combo[0].Entries(), (Entries{u"Type A", u"Type B"}));
}

TEST_F(PageLists, TheRangeListsTheColumnUnderTheTitleOfTheInputType) {
  TestPage& page = ShowWith(10, u"Volts", DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
  page.SetItem(11, u"v3");
  page.BuildPage();
  EXPECT_EQ(page.Combo[1].Entries(), (Entries{u"v1", u"v2", u"v3", u"v4", u"v5"}));
  EXPECT_EQ(page.Combo[1].Text(), u"v3");
  EXPECT_FALSE(page.Combo[1].Locked());
}

TEST_F(PageLists, ARangeUnderNoChoiceIsEmptyLockedAndGrey) {
  for (const String type : {u"Plain", u"Untitled", u"Strange", u""}) {
    TestPage& page = ShowWith(10, type, DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
    page.SetItem(11, u"v3");
    page.BuildPage();
    EXPECT_TRUE(page.Combo[1].Entries().empty());
    EXPECT_EQ(page.Combo[1].Text(), u"");
    EXPECT_TRUE(page.Combo[1].Locked());
    EXPECT_EQ(page.Combo[1].ShownLook(), Look::Grey);
    EXPECT_EQ(page.Item(11), u"v3");
  }
}

TEST_F(PageLists, ARangeUnderAnUnknownTitleIsEmptyAndOpen) {
  for (const String type : {u"Lost", u"Beyond"}) {
    TestPage& page = ShowWith(10, type, DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
    EXPECT_TRUE(page.Combo[1].Entries().empty());
    EXPECT_EQ(page.Combo[1].Text(), u"");
    EXPECT_FALSE(page.Combo[1].Locked());
  }
}

TEST_F(PageLists, ANeedlessRangeIsBlankAndCanBeChosenOnceThereIsAChoice) {
  TestPage& page = ShowWith(10, u"Volts", DefText({TypeRow(u"$I10"), kRangeRow}, kRanges));
  page.SetItem(11, u"NEEDLESS");
  page.BuildPage();
  EXPECT_EQ(page.Combo[1].Text(), u"");
  EXPECT_EQ(page.Combo[1].Entries().size(), 5U);
  EXPECT_FALSE(page.Combo[1].Locked());
}

TEST_F(PageLists, FiltersAndSensorsAreListedWhole) {
  TestPage& page = ShowWith(
      23, u"1:DEVIATION",
      DefText(
          {{.item = u"23", .combo = u"2", .key = u"$I23"}, {.item = u"11", .combo = u"3", .key = u"$I11QEI"}},
          u"$I23\n0,0:NO FILTER\n1,1:DEVIATION\n$I11QEI\n0,S0,ppm\n1,S1,ppm\n2,S2\n3,S3\n4,S4\n5,S5\n6,S6\n"
          u"7,S7,pH\n"));
  EXPECT_EQ(page.Combo[2].Entries(), (Entries{u"0:NO FILTER", u"1:DEVIATION"}));
  EXPECT_EQ(page.Combo[2].Text(), u"1:DEVIATION");
  EXPECT_EQ(page.Combo[3].Entries().size(), 8U);
  EXPECT_EQ(page.Combo[3].Entries()[7], u"S7");
  EXPECT_FALSE(page.Combo[3].Locked());
}

TEST_F(PageLists, OfTwoRowsWithOneBoxTheFirstIsFoundAndTheLastIsSeen) {
  TestPage& page = ShowWith(23, u"b",
                            DefText({{.item = u"10", .combo = u"2", .key = u"$I10", .rule = u"N"},
                                     {.item = u"23", .combo = u"2", .key = u"$I23"}},
                                    u"$I23\n0,a\n1,b\n"));
  EXPECT_EQ(page.FindComboRow(2), 0);
  EXPECT_EQ(page.Combo[2].Entries(), (Entries{u"a", u"b"}));
  EXPECT_EQ(page.Combo[2].Text(), u"b");
}

}  // namespace
}  // namespace korva::test
