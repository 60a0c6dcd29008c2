// What the inputs of a page tell of themselves, and the mark of a number outside its limits.

#include "companions/field_help.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "companions/edit_history.h"
#include "companions/meanings.h"
#include "companions/part_of.h"
#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/linearizer.h"
#include "pages/page_bench.h"

namespace korva::test {
namespace {

int LinesIn(const String& text) {
  return text.empty() ? 0 : static_cast<int>(std::count(text.begin(), text.end(), u'\n')) + 1;
}

class HelpBench : public PageBench {
 public:
  explicit HelpBench(const String& model) : device(Connect(model)) { Choose(model); }
  /// With the device's values, which are all within their limits.
  HelpBench& Filled() {
    TakeTables();
    Upload();
    TakeBoxes();
    return *this;
  }
  std::string HelpOf(std::string_view name) {
    const Control* control = Page().FindControl(name);
    return control == nullptr || !control->Help ? "no help" : ToUtf8(control->Help());
  }
  std::string HelpOfItem(const String& item) { return HelpOf(Field(item).FullName()); }
  TextField& FieldNamed(std::string_view name) { return dynamic_cast<TextField&>(*Page().FindControl(name)); }
  /// True when the field is marked with this text in it.
  bool MarkedWith(TextField& field, const String& text) {
    Do([&] { field.UserTypes(text); });
    return field.Outside();
  }
  bool MarkedWith(const String& item, const String& text) { return MarkedWith(Field(item), text); }

  sim::Device& device;
};

// What is told.

TEST(FieldHelpTest, AFieldTellsItemRangeMeaningAndCondition) {
  HelpBench bench(u"QN");
  bench.Pick(bench.Page().Combo[0], u"RB-1:Pt100");
  EXPECT_EQ(bench.HelpOfItem(u"14"),
            "Item 14  入力ｾﾞﾛ (0%)\n範囲: -200 ～ 850 deg C\n0 % に対応する入力の値です。\n"
            "ｾﾞﾛとｽﾊﾟﾝの差は 20 deg C 以上とします。");
}

TEST(FieldHelpTest, TheRangeIsInThePresentUnit) {
  HelpBench bench(u"QN");
  bench.Pick(bench.Page().Combo[0], u"RB-1:Pt100");
  bench.Press(bench.Page().optTempUnit, 1);
  EXPECT_EQ(bench.HelpOfItem(u"15"),
            "Item 15  入力ｽﾊﾟﾝ (100%)\n範囲: -328 ～ 1562 deg F\n100 % に対応する入力の値です。\n"
            "ｾﾞﾛとｽﾊﾟﾝの差は 36 deg F 以上とします。");
  bench.Press(bench.Page().optTempUnit, 2);
  EXPECT_EQ(bench.HelpOfItem(u"15"),
            "Item 15  入力ｽﾊﾟﾝ (100%)\n範囲: 73 ～ 1123 K\n100 % に対応する入力の値です。\n"
            "ｾﾞﾛとｽﾊﾟﾝの差は 20 K 以上とします。");
}

TEST(FieldHelpTest, ItFollowsTheChoiceThatLimitsTheField) {
  HelpBench bench(u"QN");
  bench.Pick(bench.Page().Combo[0], u"RB-3:Pt 50");
  EXPECT_EQ(bench.HelpOfItem(u"14"),
            "Item 14  入力ｾﾞﾛ (0%)\n範囲: -200 ～ 649 deg C\n0 % に対応する入力の値です。\n"
            "ｾﾞﾛとｽﾊﾟﾝの差は 40 deg C 以上とします。");
}

TEST(FieldHelpTest, TheLimitsAreTheSameWhateverModelWasThereBefore) {
  PageBench one;
  for (const String& model : FirstModels()) {
    PageBench other;
    other.Choose(model);
    one.Choose(model);
    one.New();
    for (int index = 0; index < one.Page().Text.Count(); ++index) {
      const TextField& field = one.Page().Text[index];
      EXPECT_EQ(ToUtf8(field.Help()), ToUtf8(other.Page().Text[index].Help()))
          << ToUtf8(model) << " " << field.FullName();
    }
  }
}

TEST(FieldHelpTest, ItSpeaksTheLanguageOfTheCaptions) {
  HelpBench bench(u"QN");
  bench.Pick(bench.Page().Combo[0], u"RB-1:Pt100");
  bench.Page().SetCaptions(Language::English);
  EXPECT_EQ(bench.HelpOfItem(u"14"),
            "Item 14  Input zero\nRange: -200 to 850 deg C\nThe input that counts as 0 %.\n"
            "Zero and span must be 20 deg C apart at least.");
}

TEST(FieldHelpTest, ATagTellsItsLength) {
  HelpBench bench(u"QN");
  EXPECT_EQ(bench.HelpOfItem(u"02"),
            "Item 02  ﾀｸﾞ名\n10 文字以内\n変換器の識別名です。計器番号などを付けます。");
}

TEST(FieldHelpTest, AFieldWithoutLimitsTellsNoRange) {
  HelpBench bench(u"QN");
  EXPECT_EQ(bench.HelpOfItem(u"16"), "Item 16  ｾﾞﾛ微調整\n0 % 側のずれを微調整します。");
}

TEST(FieldHelpTest, TheEndsOfAScaleTellWhichIsTheHigher) {
  HelpBench bench(u"QN");
  EXPECT_EQ(bench.HelpOfItem(u"19"),
            "Item 19  出力ｽｹｰﾙ下限\n範囲: -299.99 ～ 299.99 %\n0 % に対応する出力ｽｹｰﾙの下端です。\n"
            "上限は下限より大きくします。");
}

TEST(FieldHelpTest, ALiveValueSaysSo) {
  HelpBench bench(u"QN");
  EXPECT_EQ(bench.HelpOfItem(u"05"), "Item 05  入力値\n測定した入力の値です。\n変換器の現在の値");
}

TEST(FieldHelpTest, ABoxAndAnOptionTellWhatTheyAreFor) {
  HelpBench bench(u"QN");
  EXPECT_EQ(bench.HelpOf("Combo(0)"), "Item 10  入力種類\n入力につなぐｾﾝｻや信号の種類です。");
  for (const char* name : {"optTempUnit(1)", "Frame(3)"}) {
    EXPECT_EQ(bench.HelpOf(name),
              "Item 21  温度単位\n温度の表示と設定に使う単位です。変えると値も換算されます。");
  }
}

TEST(FieldHelpTest, AnOptionThatIsFixedOnTheModelSaysSo) {
  HelpBench bench(u"QHN6");
  bench.Filled();
  EXPECT_EQ(bench.HelpOf("Combo(0)"),
            "Item 10  入力種類\n入力につなぐｾﾝｻや信号の種類です。\nこの機種では変更できません");
}

TEST(FieldHelpTest, OneOfTwoNumbersOfAnItemHasItsName) {
  HelpBench bench(u"Z8WV2");
  const std::string help = bench.HelpOf("Text(2)");
  EXPECT_EQ(help.substr(0, help.find('\n')), "Item 14  入力ﾚﾝｼﾞ 100%");
}

TEST(FieldHelpTest, InputsThatAreNoItemTellTheirMeaningToo) {
  HelpBench bench(u"Z8WT2");
  EXPECT_NE(bench.HelpOf("txtBase").find("表の最初の行の温度です。"), std::string::npos);
  EXPECT_NE(bench.HelpOf("txtLnrNewValue").find("選んだｾﾙに入れる値です。"), std::string::npos);
  EXPECT_NE(bench.HelpOf("OptCom1").find("通信ﾎﾟｰﾄ"), std::string::npos);
  EXPECT_EQ(bench.HelpOf("cmdUpload"), "no help");
}

TEST(FieldHelpTest, EveryInputOfEveryModelTellsWhatItIsForInBothLanguages) {
  for (const String& model : AllModels()) {
    PageBench bench;
    bench.Choose(model);
    for (const Language language : {Language::Japanese, Language::English}) {
      bench.Page().SetCaptions(language);
      for (const Control* control : bench.Page().Controls()) {
        const bool port = control->Name().starts_with("OptCom");
        const bool frame = dynamic_cast<const Frame*>(control) != nullptr;
        if (control->Help && control->Visible()) {
          EXPECT_GE(LinesIn(control->Help()), frame  ? 0
                                              : port ? 1
                                                     : 2)
              << ToUtf8(model) << " " << control->FullName();
        }
      }
    }
    const ParameterPage& page = bench.Page();
    for (int row = 0; row < page.Def.Data().Rows(); ++row) {
      const String& caption = page.DataCell(row, kCaption).empty() ? page.DataCell(row, kNumberCaption)
                                                                   : page.DataCell(row, kCaption);
      if (page.DataCell(row, kOnPage).empty()) {
        continue;  // it shows on no page
      }
      for (const Language language : {Language::Japanese, Language::English}) {
        EXPECT_FALSE(MeaningOfItem(caption, page.DataCell(row, kItem), language).empty())
            << ToUtf8(model) << " " << ToUtf8(page.DataCell(row, kItem)) << " " << ToUtf8(caption);
      }
    }
  }
}

// The mark.

TEST(FieldHelpTest, ANumberOutsideIsMarkedWhileItStandsThere) {
  HelpBench bench(u"QN");
  bench.Filled();
  EXPECT_FALSE(bench.Field(u"19").Outside());
  EXPECT_TRUE(bench.MarkedWith(u"19", u"-300"));
  EXPECT_FALSE(bench.MarkedWith(u"19", u"-299.99"));
  EXPECT_TRUE(bench.MarkedWith(u"19", u"300"));
  EXPECT_EQ(bench.LookOf(u"19"), Look::Normal) << "the inverted colours are the check's";
  EXPECT_FALSE(bench.MarkedWith(u"19", u"")) << "blank";
  EXPECT_FALSE(bench.MarkedWith(u"19", u"abc")) << "no number";
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST(FieldHelpTest, TheTipOfAMarkedFieldSaysSo) {
  HelpBench bench(u"QN");
  bench.Type(u"19", u"300");
  EXPECT_EQ(bench.HelpOfItem(u"19"),
            "Item 19  出力ｽｹｰﾙ下限\n範囲: -299.99 ～ 299.99 %\n範囲外の値です\n"
            "0 % に対応する出力ｽｹｰﾙの下端です。\n上限は下限より大きくします。");
}

TEST(FieldHelpTest, TheMarkMakesWayForTheCheck) {
  HelpBench bench(u"QN");
  bench.Filled();
  EXPECT_TRUE(bench.MarkedWith(u"20", u"300"));
  bench.Check();
  EXPECT_EQ(bench.LookOf(u"20"), Look::Bad);
  EXPECT_FALSE(bench.Field(u"20").Outside());
  EXPECT_FALSE(bench.MarkedWith(u"20", u"301")) << "it is still marked as bad";
  bench.Type(u"20", u"100");
  bench.Check();
  EXPECT_EQ(bench.LookOf(u"20"), Look::Normal);
  EXPECT_TRUE(bench.MarkedWith(u"20", u"300"));
}

TEST(FieldHelpTest, ValuesOfADeviceAndOfAFileAreMarkedToo) {
  HelpBench bench(u"QN");
  bench.device.Set("01", "20", "300");
  bench.Filled();
  EXPECT_TRUE(bench.Field(u"20").Outside());
  bench.Save(kFile);
  bench.New();
  EXPECT_FALSE(bench.Field(u"20").Outside());
  bench.Open(kFile);
  EXPECT_TRUE(bench.Field(u"20").Outside());
}

TEST(FieldHelpTest, AnotherModelTakesTheMarkAway) {
  HelpBench bench(u"QN");
  bench.Type(u"20", u"300");
  TextField& field = bench.Field(u"20");
  EXPECT_TRUE(field.Outside());
  bench.dialogs.QueueAnswer(Answer::No);
  bench.Choose(u"QHW");
  EXPECT_FALSE(field.Outside());
}

TEST(FieldHelpTest, TheMarkStaysWithAValueThatAnotherUnitConverts) {
  HelpBench bench(u"QN");
  bench.Pick(bench.Page().Combo[0], u"RB-1:Pt100");
  bench.Type(u"14", u"-200");
  bench.Type(u"15", u"900");
  for (const int unit : {1, 2, 0}) {
    bench.Press(bench.Page().optTempUnit, unit);
    EXPECT_FALSE(bench.Field(u"14").Outside()) << unit;
    EXPECT_TRUE(bench.Field(u"15").Outside()) << unit << " " << ToUtf8(bench.Field(u"15").Text());
  }
}

TEST(FieldHelpTest, AChoiceWithOtherLimitsMarksWhatStandsOutsideThem) {
  HelpBench bench(u"QHW");
  bench.Filled();
  bench.Pick(bench.Page().Combo[0], u"1:DC V");
  bench.Type(u"15", u"11");
  EXPECT_TRUE(bench.Field(u"15").Outside());
  bench.Pick(bench.Page().Combo[0], u"3:DC mA");
  EXPECT_FALSE(bench.Field(u"15").Outside());
}

TEST(FieldHelpTest, TheMarkFollowsWhatIsTakenBackAndPutAgain) {
  HelpBench bench(u"QHW");
  bench.Filled();
  bench.Pick(bench.Page().Combo[0], u"1:DC V");
  bench.Type(u"15", u"11");
  ASSERT_TRUE(bench.Field(u"15").Outside());
  bench.Click(PartOf<EditHistory>(bench.Page())->cmdUndo);
  EXPECT_FALSE(bench.Field(u"15").Outside());
  bench.Click(PartOf<EditHistory>(bench.Page())->cmdRedo);
  EXPECT_TRUE(bench.Field(u"15").Outside());
}

TEST(FieldHelpTest, WhatIsOutsideIsCheckedAsEver) {
  HelpBench bench(u"QHW");
  bench.Filled();
  bench.Type(u"20", u"300");
  bench.Check();
  EXPECT_EQ(bench.TakeBoxes().size(), 1U);
}

// Fields that are judged elsewhere.

TEST(FieldHelpTest, AForcedOutputHasTheLimitsOfItsButton) {
  HelpBench bench(u"QHW");
  EXPECT_NE(bench.HelpOfItem(u"03_set").find("範囲: -15 ～ 115 %"), std::string::npos);
  EXPECT_TRUE(bench.MarkedWith(u"03_set", u"115.01"));
  EXPECT_FALSE(bench.MarkedWith(u"03_set", u"115"));
}

TEST(FieldHelpTest, ACountTakesThePlaceOfAForcedOutput) {
  HelpBench bench(u"QEC2");
  EXPECT_TRUE(bench.MarkedWith(u"03_set", u"4294967296"));
  EXPECT_FALSE(bench.MarkedWith(u"03_set", u"4294967295"));
  EXPECT_TRUE(bench.MarkedWith(u"03_set", u"-1"));
}

TEST(FieldHelpTest, ATrimHasItsLimits) {
  HelpBench bench(u"Z2WQ");
  EXPECT_TRUE(bench.MarkedWith(u"28_span", u"93.99"));
  EXPECT_FALSE(bench.MarkedWith(u"28_span", u"94"));
  HelpBench two(u"Z8WV2");
  EXPECT_NE(two.HelpOf("txtOut1Zero").find("範囲: -5 ～ 5 %"), std::string::npos);
}

TEST(FieldHelpTest, AThresholdHasTheLimitsOfItsRowOrOfItsRange) {
  HelpBench rate(u"Z2WPR");
  EXPECT_FALSE(rate.MarkedWith(u"09", u"0.1"));
  EXPECT_TRUE(rate.MarkedWith(u"09", u"5.01"));
  HelpBench bench(u"Z2WQ");
  bench.Filled();
  bench.Pick(bench.Page().Combo[2], u"1 Vp-p");
  EXPECT_FALSE(bench.MarkedWith(u"30", u"0.1"));
  EXPECT_TRUE(bench.MarkedWith(u"30", u"1.01"));
}

TEST(FieldHelpTest, AColdJunctionsDefaultIsAllowedBesides) {
  HelpBench bench(u"Z2WT");
  TextField& field = bench.Field(u"34");
  EXPECT_NE(bench.HelpOfItem(u"34").find("範囲: 20 ～ 29.99999"), std::string::npos);
  EXPECT_NE(bench.HelpOfItem(u"34").find("-999.9 も使えます。"), std::string::npos);
  EXPECT_TRUE(bench.MarkedWith(field, u"30"));
  EXPECT_FALSE(bench.MarkedWith(field, u"-999.9"));
  EXPECT_TRUE(bench.MarkedWith(field, u"-999.8"));
}

TEST(FieldHelpTest, AUsersTableHasTheLimitsOfTheTableThatShows) {
  HelpBench bench(u"Z8WT2");
  TextField& size = bench.FieldNamed("txtSize");
  const std::optional<FieldRange> linearizer = PartOf<FieldHelp>(bench.Page())->RangeOf(size);
  ASSERT_TRUE(linearizer.has_value());
  EXPECT_EQ(linearizer->high, 101);
  EXPECT_TRUE(bench.MarkedWith(size, u"102"));
}

TEST(FieldHelpTest, TheSizeThatGoesToTheDeviceIsAtMostTheTablesOwn) {
  HelpBench bench(u"Z2WQ");
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("LnrFlexGrid"));
  TextField& size = bench.FieldNamed("txtSize");
  auto& table = PartOf<Linearizer>(bench.Page())->Table();
  bench.Do([&] {
    for (int row = 1; row <= 3; ++row) {
      table.Store(row, 1, ShortestText(row));
      table.Store(row, 2, ShortestText(row));
    }
    table.ShowLnrTable();
  });
  EXPECT_NE(bench.HelpOf("txtSize").find("範囲: 0 ～ 3"), std::string::npos) << bench.HelpOf("txtSize");
  EXPECT_FALSE(bench.MarkedWith(size, u"3"));
  EXPECT_TRUE(bench.MarkedWith(size, u"4"));
  bench.Do([&] {
    table.Store(4, 1, u"4");
    table.ShowLnrTable();
  });
  EXPECT_FALSE(size.Outside());
  bench.Do([&] {
    table.Store(4, 1, u"");
    table.ShowLnrTable();
  });
  EXPECT_TRUE(size.Outside());
  EXPECT_EQ(grid.At(4, 1).text, u"");
}

TEST(FieldHelpTest, MarksBothEndsOfAPairThatDoNotGoTogetherWhicheverIsEdited) {
  HelpBench bench(u"Z2WT");  // TC PR: 0 to 1760, 370 apart at least
  bench.Filled();
  TextField& zero = bench.Field(u"14");
  TextField& span = bench.Field(u"15");
  bench.Type(zero, u"500");
  bench.Type(span, u"870");
  EXPECT_FALSE(zero.Outside());
  EXPECT_FALSE(span.Outside());
  bench.Type(span, u"869");
  EXPECT_TRUE(zero.Outside());
  EXPECT_TRUE(span.Outside());
  EXPECT_NE(bench.HelpOfItem(u"14").find("組になる値と合いません"), std::string::npos);
  EXPECT_EQ(bench.HelpOfItem(u"14").find("範囲外の値です"), std::string::npos);
  bench.Type(zero, u"499");
  EXPECT_FALSE(zero.Outside());
  EXPECT_FALSE(span.Outside());
  bench.Type(zero, u"-1");  // its own limit is what is wrong, the other end is good
  EXPECT_TRUE(zero.Outside());
  EXPECT_FALSE(span.Outside());
  EXPECT_NE(bench.HelpOfItem(u"14").find("範囲外の値です"), std::string::npos);
  bench.Type(zero, u"900");
  EXPECT_TRUE(span.Outside());
  bench.Type(zero, u"");  // half a pair is none
  EXPECT_FALSE(span.Outside());
}

TEST(FieldHelpTest, TheValueUnderEditHasTheLimitsOfItsColumn) {
  HelpBench bench(u"QHW");
  bench.Filled();
  auto& grid = dynamic_cast<Grid&>(*bench.Page().FindControl("LnrFlexGrid"));
  bench.Do([&] { grid.UserClicks(1, 1); });
  TextField& value = bench.FieldNamed("txtLnrNewValue");
  EXPECT_TRUE(bench.MarkedWith(value, u"300"));
  EXPECT_FALSE(bench.MarkedWith(value, u"299.99"));
  EXPECT_NE(bench.HelpOf("txtLnrNewValue").find("範囲: -300 より大きく 300 より小さい"), std::string::npos);
}

}  // namespace
}  // namespace korva::test
