// What the report of a page's settings says, by hand for models of several families.

#include "companions/settings_report.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using Rows = std::vector<std::vector<String>>;

class SettingsBench : public PageBench {
 public:
  explicit SettingsBench(const String& model) { Choose(model); }
  [[nodiscard]] Document Report(const String& file = {}) { return SettingsReport(Page(), file); }
  /// The rows under a heading; none where there is no such heading, or it is there twice.
  Rows Under(const String& heading) {
    Rows rows;
    int found = 0;
    for (const DocumentTable& table : Report().tables) {
      if (table.heading == heading) {
        rows = table.rows;
        ++found;
      }
    }
    return found == 1 ? rows : Rows();
  }
  std::vector<String> Headings() {
    std::vector<String> headings;
    for (const DocumentTable& table : Report().tables) {
      headings.push_back(table.heading);
    }
    return headings;
  }
  String Fact(const String& what) {
    for (const auto& [name, text] : Report().facts) {
      if (name == what) {
        return text;
      }
    }
    return u"(not told)";
  }
  TextField& FieldNamed(const char* name) { return dynamic_cast<TextField&>(*Page().FindControl(name)); }
};

TEST(SettingsReportTest, TellsTheItemsBoxByBoxWithCaptionValueAndUnit) {
  SettingsBench bench(u"QHN");
  bench.Type(u"02", u"PUMP 7");
  bench.Pick(bench.Page().Combo[0], u"1:DC V");
  bench.Pick(bench.Page().Combo[1], u"0-5 V");
  bench.Pick(bench.Page().Combo[2], u"1:LAG");
  bench.Type(u"14", u"0.5");
  bench.Type(u"15", u"4.5");
  bench.Type(u"16", u"-0.25");
  bench.Type(u"17", u"100.5");
  bench.Type(u"19", u"0");
  bench.Type(u"20", u"100");
  bench.Type(u"24", u"1.5");
  EXPECT_EQ(bench.Headings(),
            (std::vector<String>{u"入力", u"入力: ﾚﾝｼﾞ", u"出力", u"出力: ｾﾞﾛ/ｽﾊﾟﾝ調整", u"ﾌｨﾙﾀ"}));
  EXPECT_EQ(bench.Under(u"入力"), (Rows{{u"Item 02", u"ﾀｸﾞ名", u"PUMP 7", u""},
                                        {u"Item 10", u"入力種類", u"1:DC V", u""},
                                        {u"Item 11", u"入力ﾚﾝｼﾞ", u"0-5 V", u""}}));
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ"), (Rows{{u"Item 14", u"入力ｾﾞﾛ (0%)", u"0.5", u"V"},
                                              {u"Item 15", u"入力ｽﾊﾟﾝ (100%)", u"4.5", u"V"}}));
  EXPECT_EQ(bench.Under(u"出力"),
            (Rows{{u"Item 19", u"出力ｽｹｰﾙ下限", u"0", u"%"}, {u"Item 20", u"出力ｽｹｰﾙ上限", u"100", u"%"}}));
  EXPECT_EQ(bench.Under(u"出力: ｾﾞﾛ/ｽﾊﾟﾝ調整"),
            (Rows{{u"Item 16", u"ｾﾞﾛ微調整", u"-0.25", u"%"}, {u"Item 17", u"ｽﾊﾟﾝ微調整", u"100.5", u"%"}}));
  EXPECT_EQ(bench.Under(u"ﾌｨﾙﾀ"),
            (Rows{{u"Item 23", u"ﾌｨﾙﾀ種類", u"1:LAG", u""}, {u"Item 24", u"時定数", u"1.5", u"s"}}));
}

TEST(SettingsReportTest, HeadsTheReportWithModelTagDayAuthorAndMemo) {
  SettingsBench bench(u"QHN");
  bench.loop.SetToday(Date(std::chrono::year(2031), std::chrono::month(2), std::chrono::day(3)));
  bench.Type(u"02", u" PUMP 7 ");
  bench.Type(bench.Page().txtAuthor, u"山田");
  bench.Type(bench.Page().txtMemo, u"one\r\ntwo");
  const Document document = bench.Report();
  EXPECT_EQ(document.title, u"設定一覧");
  EXPECT_EQ(document.header, u"QHN    PUMP 7");
  EXPECT_EQ(document.page_number, u"{1} / {2}");
  EXPECT_EQ(document.facts,
            (std::vector<std::pair<String, String>>{{u"機種名", u"QHN    直流入力、一次遅れフィルタ付"},
                                                    {u"ﾀｸﾞ名", u"PUMP 7"},
                                                    {u"日付", u"2031-02-03"},
                                                    {u"作者名", u"山田"},
                                                    {u"メモ", u"one\ntwo"}}));
  EXPECT_EQ(bench.Report(u"/korva/data/a.cfg").facts.at(4),
            (std::pair<String, String>{u"ファイル名", u"/korva/data/a.cfg"}));
}

TEST(SettingsReportTest, TellsBlankValuesByADashAndInventsNone) {
  SettingsBench bench(u"QHN");
  EXPECT_EQ(bench.Fact(u"ﾀｸﾞ名"), u"―");
  EXPECT_EQ(bench.Fact(u"メモ"), u"―");
  EXPECT_EQ(bench.Report().header, u"QHN");
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ"),
            (Rows{{u"Item 14", u"入力ｾﾞﾛ (0%)", u"―", u""}, {u"Item 15", u"入力ｽﾊﾟﾝ (100%)", u"―", u""}}));
}

TEST(SettingsReportTest, TellsABadValueAsItStands) {
  SettingsBench bench(u"QHN");
  bench.Type(u"14", u"abc");  // without a type it has no unit
  bench.Page().SetFieldColor(u"14", Look::Bad);
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ").front(),
            (std::vector<String>{u"Item 14", u"入力ｾﾞﾛ (0%)", u"abc", u""}));
}

TEST(SettingsReportTest, TellsWhatTheDeviceOrThePresentChoiceDoesNotUse) {
  SettingsBench bench(u"QUO");
  bench.Pick(bench.Page().Combo[0], u"Tc-2: K(CA)");
  bench.Press(bench.Page().optTempUnit, 1);
  bench.Type(u"14", u"32");
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ").at(0), (std::vector<String>{u"Item 21", u"温度単位", u"deg F", u""}));
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ").at(1),
            (std::vector<String>{u"Item 14", u"入力ｾﾞﾛ (0%)", u"32", u"deg F"}));
  // A root extractor has no range.
  bench.Pick(bench.Page().Combo[0], u"Sq-1:no drop");
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ"),
            (Rows{{u"Item 21", u"温度単位", u"(変換器で使用しない)", u""},
                  {u"Item 14", u"入力ｾﾞﾛ (0%)", u"(変換器で使用しない)", u""},
                  {u"Item 15", u"入力ｽﾊﾟﾝ (100%)", u"(変換器で使用しない)", u""}}));
}

TEST(SettingsReportTest, TellsTheUnitOfAFrequencyOutOfItsBox) {
  SettingsBench bench(u"QIC");
  bench.Type(u"10", u"12.5");
  auto& box = dynamic_cast<ComboBox&>(*bench.Page().FindControl("cbo_unit(0)"));
  bench.Pick(box, u"kHz");
  const Rows rows = bench.Under(u"入力");
  const auto found =
      std::find_if(rows.begin(), rows.end(), [](const auto& row) { return row[0] == u"Item 10"; });
  ASSERT_NE(found, rows.end());
  EXPECT_EQ(*found, (std::vector<String>{u"Item 10", u"入力ﾌﾙｽｹｰﾙ", bench.Field(u"10").Text(), u"kHz"}));
}

TEST(SettingsReportTest, TellsEachNumberOfAPairWithItsName) {
  SettingsBench bench(u"Z8WV2");
  bench.Pick(bench.Page().Combo[0], u"-10-10 V");
  bench.Type(u"14_0", u"1.5");
  bench.Type(u"14_100", u"5");
  bench.Type(u"15_Min", u"-11");
  bench.Type(u"15_Max", u"11");
  EXPECT_EQ(bench.Under(u"入力: ﾚﾝｼﾞ"), (Rows{{u"Item 14", u"入力ﾚﾝｼﾞ 0%", u"1.5", u"V"},
                                              {u"Item 14", u"入力ﾚﾝｼﾞ 100%", u"5", u"V"},
                                              {u"Item 15", u"入力制限 最小", u"-11", u"V"},
                                              {u"Item 15", u"入力制限 最大", u"11", u"V"}}));
}

TEST(SettingsReportTest, TellsAChosenOptionByItsCaption) {
  SettingsBench bench(u"Z2WU");
  bench.Pick(bench.Page().Combo[0], u"熱電対");
  bench.Press(*bench.Page().FindOptions("optBurn"), 2);
  const Rows rows = bench.Under(u"入力");
  EXPECT_EQ(rows.at(1), (std::vector<String>{u"区分", u"入力の種別", u"熱電対", u""}));
  EXPECT_EQ(rows.at(rows.size() - 1), (std::vector<String>{u"Item 24", u"ﾊﾞｰﾝｱｳﾄ", u"DOWNSCALE", u""}));
}

TEST(SettingsReportTest, TellsWhatABoxHidesThatTheUserCanOpen) {
  SettingsBench bench(u"Z2WQ");
  bench.Do([&] { bench.Field(u"08").SetText(u"5"); });
  ASSERT_EQ(bench.Field(u"08").Refused(), Refusal::Hidden);
  EXPECT_EQ(bench.Under(u"入力: 詳細設定").at(1),
            (std::vector<String>{u"Item 08", u"ﾁｬﾀﾘﾝｸﾞ除去時間", u"5", u"msec"}));
}

TEST(SettingsReportTest, LeavesLiveValuesAndClosedTabsOut) {
  SettingsBench bench(u"QHW");
  for (const DocumentTable& table : bench.Report().tables) {
    for (const auto& row : table.rows) {
      EXPECT_NE(row.at(1), u"出力値");
      EXPECT_NE(row.at(0), u"出力値");
    }
  }
  bench.Page().Tabs.SetTabEnabled(3, false);
  EXPECT_EQ(bench.Headings(), (std::vector<String>{u"入力", u"入力: ﾚﾝｼﾞ", u"出力", u"出力: ｾﾞﾛ/ｽﾊﾟﾝ調整"}));
}

TEST(SettingsReportTest, TellsThePointsOfATableUpToTheLastWithTheirCurve) {
  SettingsBench bench(u"QHW");
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("LnrFlexGrid"));
  grid.SetText(1, 1, u"0");
  grid.SetText(1, 2, u"0.0");
  grid.SetText(3, 1, u"50");
  grid.SetText(3, 2, u"25");
  grid.SetLook(3, 2, Look::Selected);
  const DocumentTable table = bench.Report().tables.back();
  EXPECT_EQ(table.heading, u"ﾘﾆｱﾗｲｻﾞ");
  EXPECT_EQ(table.columns, (std::vector<DocumentColumn>{{.head = u"k", .number = true},
                                                        {.head = u"X(k)", .number = true},
                                                        {.head = u"Y(k)", .number = true}}));
  EXPECT_EQ(table.rows, (Rows{{u"01", u"0", u"0.0"}, {u"02", u"―", u"―"}, {u"03", u"50", u"25"}}));
  EXPECT_EQ(table.curve, (Curve{.points = {{.row = 1, .x = 0, .y = 0}, {.row = 3, .x = 50, .y = 25}},
                                .x_title = u"X(k) %",
                                .y_title = u"Y(k) %"}));
}

TEST(SettingsReportTest, AnEmptyTableIsTold) {
  SettingsBench bench(u"QHW");
  const DocumentTable table = bench.Report().tables.back();
  EXPECT_EQ(table.rows, (Rows{{u"01", u"―", u"―"}}));
  EXPECT_FALSE(table.curve);
}

TEST(SettingsReportTest, TellsAUsersTableWithItsFieldsAsFarAsItIsInUse) {
  SettingsBench bench(u"Z2WU");
  bench.Pick(bench.Page().Combo[0], u"測温抵抗体");
  bench.Pick(bench.Page().Combo[1], u"User's RTD");
  bench.Type(bench.FieldNamed("txtStep"), u"10");
  bench.Type(bench.FieldNamed("txtBase"), u"-50");
  bench.Type(bench.FieldNamed("txtSize"), u"3");
  auto& range = dynamic_cast<ComboBox&>(*bench.Page().FindControl("cmbRange"));
  bench.Pick(range, range.Entries().at(1));
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("RTDFlexGrid"));
  grid.SetText(1, 1, u"80.31");
  grid.SetText(2, 1, u"84.27");
  grid.SetText(3, 1, u"88.22");
  grid.SetText(4, 1, u"92.16");
  const std::vector<DocumentTable> tables = bench.Report().tables;
  const auto points =
      std::find_if(tables.begin(), tables.end(), [](const auto& table) { return table.curve.has_value(); });
  ASSERT_NE(points, tables.end());
  EXPECT_EQ(points->rows, (Rows{{u"00", u"80.31"}, {u"01", u"84.27"}, {u"02", u"88.22"}}));
  EXPECT_EQ(points->curve->points.at(2).x, -30);
  EXPECT_EQ((points - 1)->rows, (Rows{{u"", u"ﾃｰﾌﾞﾙﾋﾟｯﾁ", u"10", u"deg C"},
                                      {u"", u"ﾃｰﾌﾞﾙ最小温度", u"-50", u"deg C"},
                                      {u"", u"ﾃｰﾌﾞﾙｻｲｽﾞ", u"3", u""},
                                      {u"", u"ﾚﾝｼﾞ", range.Entries().at(1), u""}}));
}

TEST(SettingsReportTest, SpeaksTheLanguageOfThePage) {
  SettingsBench bench(u"QHN");
  bench.Page().SetCaptions(Language::English);
  const Document document = bench.Report();
  EXPECT_EQ(document.title, u"Settings");
  EXPECT_EQ(document.facts.front().second, u"QHN    DC input with a first-order lag filter.");
  EXPECT_EQ(document.tables.front().heading, u"Input");
  EXPECT_EQ(document.tables.front().columns.at(2).head, u"Value");
}

}  // namespace
}  // namespace korva::test
