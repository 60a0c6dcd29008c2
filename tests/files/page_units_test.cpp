#include "page_builder_fixture.h"

namespace korva::test {
namespace {

class PageUnits : public PageBuilder {};

TEST_F(PageUnits, AFixedUnitStandsInItsLabel) {
  TestPage& page = Show(DefText({{.item = u"16", .text = u"1", .unit_label = u"11", .unit = u"%"}}));
  EXPECT_TRUE(page.lbl_unit[11].Visible());
  EXPECT_EQ(page.lbl_unit[11].Caption(), u"%");
  EXPECT_FALSE(page.lbl_unit[10].Visible());
}

TEST_F(PageUnits, ATemperatureShowsTheUnitOfTheOptionEvenAheadOfIt) {
  const DataRow shown = {.item = u"04", .text = u"3", .unit_label = u"3", .unit = u"$in"};
  const DataRow follows = {
      .item = u"14", .text = u"9", .unit_label = u"9", .unit = u"$in", .temperature = u"Item21"};
  TestPage& page = ShowWith(21, u"deg F", DefText({shown, follows, kUnitRow}, kUnits));
  EXPECT_EQ(page.lbl_unit[3].Caption(), u"deg F");
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"deg F");
  page.SetItem(21, u"");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[3].Caption(), u"");
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"");
}

TEST_F(PageUnits, RowsOfTheInputTypeTakeItsUnit) {
  const DataRow zero = {.item = u"14", .text = u"9", .unit_label = u"9", .unit_key = u"$I10"};
  TestPage& page = ShowWith(10, u"Type B", DefText({zero, TypeRow(u"$I10")}, kTypes));
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"V");
  for (const String type : {u"Type D", u"Strange"}) {
    page.SetItem(10, type);
    page.BuildPage();
    EXPECT_EQ(page.lbl_unit[9].Caption(), u"");
  }
}

TEST_F(PageUnits, ATypeWithoutATemperatureKeepsItsUnitThoughTheRowFollowsTheOption) {
  const DataRow zero = {.item = u"14",
                        .text = u"9",
                        .unit_label = u"9",
                        .unit = u"$in",
                        .unit_key = u"$I10",
                        .temperature = u"Item21"};
  host.Choose(u"OTHER", DefText({zero, TypeRow(u"$I10"), kUnitRow}, String(kTypes) + String(kUnits)));
  TestPage& page = host.Page();
  page.SetItem(10, u"Type B");
  page.SetItem(21, u"NEEDLESS");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"V");
  page.SetItem(10, u"Type A");
  page.SetItem(21, u"K");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[9].Caption(), u"K");
}

TEST_F(PageUnits, RowsOfTheSensorTakeItsUnit) {
  const DataRow code = {.item = u"18", .text = u"8", .unit_label = u"8", .unit_key = u"$I11QEI"};
  const DataRow sensor = {.item = u"11", .combo = u"3", .key = u"$I11QEI"};
  TestPage& page = ShowWith(11, u"S1", DefText({code, sensor}, u"$I11QEI\n0,S0,ppm\n1,S1,pH\n"));
  EXPECT_EQ(page.lbl_unit[8].Caption(), u"pH");
  page.SetItem(11, u"S9");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[8].Caption(), u"");
}

TEST_F(PageUnits, AUnitThatOthersSetStaysOnBuildingAgain) {
  TestPage& page = Show(DefText({{.item = u"06", .text = u"5", .unit_label = u"5"}}));
  page.lbl_unit[5].SetCaption(u"kHz");
  page.BuildPage();
  EXPECT_EQ(page.lbl_unit[5].Caption(), u"kHz");
}

}  // namespace
}  // namespace korva::test
