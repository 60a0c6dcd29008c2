#include "page_builder_fixture.h"

namespace korva::test {
namespace {

TEST_F(PageBuilder, ShowsTheLabelsOfARow) {
  TestPage& page = Show(DefText(
      {{.item = u"02", .number_label = u"3", .number = u"Item 02", .label = u"7", .caption = u"ﾀｸﾞ名"}}));
  EXPECT_TRUE(page.lbl_Item[3].Visible());
  EXPECT_EQ(page.lbl_Item[3].Caption(), u"Item 02");
  EXPECT_TRUE(page.CaptionLabels[7].Visible());
  EXPECT_EQ(page.CaptionLabels[7].Caption(), u"ﾀｸﾞ名");
  EXPECT_FALSE(page.lbl_Item[4].Visible());
  EXPECT_FALSE(page.CaptionLabels[0].Visible());
}

TEST_F(PageBuilder, ShowsTheValueOfAField) {
  TestPage& page = ShowWith(2, u"TAG-1", DefText({{.item = u"02", .text = u"5"}}));
  EXPECT_TRUE(page.Text[5].Visible());
  EXPECT_EQ(page.Text[5].Text(), u"TAG-1");
  EXPECT_FALSE(page.Text[5].Locked());
  EXPECT_EQ(page.Text[5].ShownLook(), Look::Normal);
  EXPECT_FALSE(page.Text[0].Visible());
}

TEST_F(PageBuilder, AFieldWithoutAKnownValueIsEmptyAndOpen) {
  TestPage& page = Show(DefText({{.item = u"14", .text = u"5"}}));
  EXPECT_EQ(page.Text[5].Text(), u"");
  EXPECT_FALSE(page.Text[5].Locked());
}

TEST_F(PageBuilder, ANeedlessFieldIsEmptyLockedAndGreyAndStaysNeedlessInTheSet) {
  host.Choose(u"OTHER", DefText({{.item = u"14", .text = u"5"}}));
  host.Page().SetItem(14, u"12");
  host.Page().BuildPage();
  host.Page().SetItem(14, u"NEEDLESS");
  host.Page().BuildPage();
  TestPage& page = host.Page();
  EXPECT_EQ(page.Text[5].Text(), u"");
  EXPECT_TRUE(page.Text[5].Locked());
  EXPECT_EQ(page.Text[5].ShownLook(), Look::Grey);
  EXPECT_EQ(page.Item(14), u"NEEDLESS");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, ANeedlessFieldOpensAgainWithAValue) {
  TestPage& page = ShowWith(14, u"NEEDLESS", DefText({{.item = u"14", .text = u"5"}}));
  page.SetItem(14, u"3");
  page.BuildPage();
  EXPECT_EQ(page.Text[5].Text(), u"3");
  EXPECT_FALSE(page.Text[5].Locked());
  EXPECT_EQ(page.Text[5].ShownLook(), Look::Normal);
}

TEST_F(PageBuilder, AFixedFieldShowsItsValueLockedAndGrey) {
  TestPage& page = ShowWith(33, u"55", DefText({{.item = u"33", .text = u"4", .rule = u"Y"}}));
  EXPECT_EQ(page.Text[4].Text(), u"55");
  EXPECT_TRUE(page.Text[4].Locked());
  EXPECT_EQ(page.Text[4].ShownLook(), Look::Grey);
}

TEST_F(PageBuilder, AFieldOfALiveValueIsBlankOnAPageBuiltAgainAndTheSetStays) {
  const String rows = DefText({{.item = u"03_set", .text = u"1"},
                               {.item = u"03_mon", .text = u"2", .rule = u"Y"},
                               {.item = u"05", .text = u"4", .rule = u"Y"}});
  TestPage& page = ShowWith(5, u"55", rows);
  EXPECT_EQ(page.Text[4].Text(), u"");
  page.Text[1].UserTypes(u"50");
  page.BuildPage();
  for (const int index : {1, 2, 4}) {
    EXPECT_EQ(page.Text[index].Text(), u"") << index;
  }
  page.Text[4].SetText(u"56.1");
  EXPECT_EQ(page.Text[4].Text(), u"56.1") << "read from the device";
  EXPECT_EQ(page.Item(3), u"50");
  EXPECT_EQ(page.Item(5), u"56.1");
}

TEST_F(PageBuilder, AnItemThatTheModelWritesIsNoLiveValue) {
  TestPage& page = ShowWith(5, u"55", DefText({{.item = u"05", .text = u"4", .position = u"0"}}));
  EXPECT_EQ(page.Text[4].Text(), u"55");
}

TEST_F(PageBuilder, ARowThatIsNotOnThePageBuildsNothing) {
  TestPage& page = ShowWith(2, u"TAG",
                            DefText({{.item = u"02",
                                      .number_label = u"3",
                                      .on_page = u"N",
                                      .label = u"3",
                                      .text = u"5",
                                      .combo = u"1",
                                      .frame = u"2",
                                      .unit_label = u"4",
                                      .unit = u"V"}}));
  EXPECT_FALSE(page.lbl_Item[3].Visible());
  EXPECT_FALSE(page.CaptionLabels[3].Visible());
  EXPECT_FALSE(page.Text[5].Visible());
  EXPECT_FALSE(page.Combo[1].Visible());
  EXPECT_FALSE(page.Frames[2].Visible());
  EXPECT_FALSE(page.lbl_unit[4].Visible());
  EXPECT_EQ(page.Item(2), u"TAG");
}

TEST_F(PageBuilder, ShowsAuthorAndMemoOfTheSet) {
  TestPage& page = Show(DefText({{.item = u"02", .text = u"5"}}));
  page.GroupItem.Author = u"a";
  page.GroupItem.Memo = u"one\r\ntwo";
  page.BuildPage();
  EXPECT_EQ(page.txtAuthor.Text(), u"a");
  EXPECT_EQ(page.txtMemo.Text(), u"one\r\ntwo");
  EXPECT_FALSE(page.DataChanged);
}

TEST_F(PageBuilder, EndsWithTheModelsOwnControls) {
  TestPage& page = Show(DefText({{.item = u"02", .text = u"5"}}));
  const int before = page.probe.built;
  page.BuildPage();
  EXPECT_EQ(page.probe.built, before + 1);
  EXPECT_FALSE(page.Building());
}

TEST_F(PageBuilder, ClearPageHidesEverythingAndEmptiesUnitsAndOptions) {
  TestPage& page = ShowWith(21, u"K",
                            DefText({{.item = u"21",
                                      .number_label = u"1",
                                      .label = u"1",
                                      .text = u"1",
                                      .combo = u"1",
                                      .key = u"$I21",
                                      .frame = u"1",
                                      .unit_label = u"1",
                                      .unit = u"V"}},
                                    u"$I21\n0,deg C\n2,K\n"));
  page.Frames[1].SetEnabled(false);
  ASSERT_TRUE(page.optTempUnit[1].Value());
  page.ClearPage();
  EXPECT_FALSE(page.lbl_Item[1].Visible());
  EXPECT_FALSE(page.CaptionLabels[1].Visible());
  EXPECT_FALSE(page.Text[1].Visible());
  EXPECT_FALSE(page.Combo[1].Visible());
  EXPECT_FALSE(page.Frames[1].Visible());
  EXPECT_TRUE(page.Frames[1].Enabled());
  EXPECT_FALSE(page.lbl_unit[1].Visible());
  EXPECT_EQ(page.lbl_unit[1].Caption(), u"");
  EXPECT_FALSE(page.optTempUnit[0].Visible());
  EXPECT_EQ(page.optTempUnit.Selected(), -1);
  EXPECT_EQ(page.Item(21), u"K");
}

TEST_F(PageBuilder, AnIndexWithoutAControlEndsTheProgramNamingFileRowAndColumn) {
  const std::vector<DataRow> rows = {{.item = u"02", .text = u"44"},
                                     {.item = u"02", .text = u"-1"},
                                     {.item = u"02", .combo = u"4"},
                                     {.item = u"02", .frame = u"10"},
                                     {.item = u"02", .unit_label = u"41", .unit = u"V"},
                                     {.item = u"02", .number_label = u"55"},
                                     {.item = u"02", .label = u"45"}};
  host.Start();
  host.Page().DefFile = u"BAD.def";
  for (const DataRow& row : rows) {
    host.PutText(u"/bad.def", DefText({{.item = u"03", .text = u"1"}, row}));
    ReadDefFile(host.program.Lines(), host.program.Box(), u"/bad.def", host.Page().Def);
    try {
      host.Page().BuildPage();
      ADD_FAILURE() << "built";
    } catch (const RuntimeFailure& failure) {
      EXPECT_NE(failure.Text().find(u"BAD.def"), String::npos);
      EXPECT_NE(failure.Text().find(u"2行目"), String::npos);
    }
    EXPECT_FALSE(host.Page().Building());
  }
}

TEST_F(PageBuilder, AnItemOutsideTheSetEndsTheProgram) {
  host.Start();
  host.PutText(u"/bad.def", DefText({{.item = u"500", .text = u"1"}}));
  ReadDefFile(host.program.Lines(), host.program.Box(), u"/bad.def", host.Page().Def);
  EXPECT_THROW(host.Page().BuildPage(), RuntimeFailure);
}

TEST_F(PageBuilder, FindsTheFieldOfAnItem) {
  TestPage& page = Show(DefText({{.group = u"00", .item = u"02", .text = u"9"},
                                 {.item = u"02", .text = u"5"},
                                 {.item = u"03_set", .text = u"6"},
                                 {.item = u"10", .combo = u"0"}}));
  EXPECT_EQ(page.FindTextIndex(u"02"), 5);
  EXPECT_EQ(page.FindTextIndex({u"1", u"2"}), 5);
  EXPECT_EQ(page.FindTextIndex({u"0", u"2"}), 9);
  EXPECT_EQ(page.FindTextIndex(u"03_set"), 6);
  EXPECT_EQ(page.FindTextIndex(u"03"), -1);
  EXPECT_EQ(page.FindTextIndex(u"10"), -1);
  EXPECT_EQ(page.FindTextIndex({u"02", u"02"}), -1);
  EXPECT_EQ(page.FindField(u"02"), &page.Text[5]);
  EXPECT_EQ(page.FindField(u"10"), nullptr);
}

TEST_F(PageBuilder, FindsTheRowOfABoxAndTellsWhenThereIsNone) {
  TestPage& page = Show(DefText({{.item = u"02", .text = u"5"}, {.item = u"10", .combo = u"0"}}));
  EXPECT_EQ(page.FindComboRow(0), 1);
  EXPECT_EQ(page.FindComboRow(1), 32);
}

TEST_F(PageBuilder, FindsAnInputTypeByItsText) {
  TestPage& page = ShowWith(10, u"Type C", DefText({TypeRow(u"N")}, kTypes));
  EXPECT_EQ(page.FindI10Row(u"Type B"), 1);
  EXPECT_EQ(page.FindI10Row(u"type b"), -1);
  EXPECT_EQ(page.FindI10Row(u""), -1);
  EXPECT_EQ(page.InputTypeRow(), 2);
}

TEST_F(PageBuilder, TellsTheTitleOfAnInputType) {
  TestPage& page = Show(DefText({TypeRow(u"N")}, kRanges));
  EXPECT_EQ(page.TitleIndex(0), 0);
  EXPECT_EQ(page.TitleIndex(1), 1);
  EXPECT_EQ(page.TitleIndex(2), 2);
  EXPECT_EQ(page.TitleIndex(3), 0);
  EXPECT_EQ(page.TitleIndex(4), -1);
  EXPECT_EQ(page.TitleIndex(5), 4);
  EXPECT_EQ(page.TitleIndex(-1), 0);
}

TEST_F(PageBuilder, ColoursTheFieldOfAnItem) {
  TestPage& page = Show(DefText({{.item = u"14", .text = u"9"}}));
  page.SetFieldColor(u"14", Look::Bad);
  page.SetFieldColor(u"15", Look::Bad);
  EXPECT_EQ(page.Text[9].ShownLook(), Look::Bad);
}

}  // namespace
}  // namespace korva::test
