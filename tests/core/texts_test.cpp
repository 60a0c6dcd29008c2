#include "core/texts.h"

#include <gtest/gtest.h>

#include <vector>

namespace korva {
namespace {

struct Caption {
  TextKey key;
  String japanese;
  String english;
};

class CaptionTest : public testing::TestWithParam<Caption> {};

TEST_P(CaptionTest, ReadsInBothLanguages) {
  EXPECT_EQ(CaptionText(GetParam().key), GetParam().japanese);
  EXPECT_EQ(CaptionText(GetParam().key, Language::Japanese), GetParam().japanese);
  EXPECT_EQ(CaptionText(GetParam().key, Language::English), GetParam().english);
}

INSTANTIATE_TEST_SUITE_P(Tabs, CaptionTest,
                         testing::Values(Caption{TextKey::File, u"ﾌｧｲﾙ", u"File"},
                                         Caption{TextKey::Input, u"入力", u"Input"},
                                         Caption{TextKey::Output, u"出力", u"Output"},
                                         Caption{TextKey::Output1, u"出力(1)", u"Output(1)"},
                                         Caption{TextKey::Linearizer, u"ﾘﾆｱﾗｲｻﾞ", u"Linearizer"},
                                         Caption{TextKey::Filter, u"ﾌｨﾙﾀ", u"Filter"},
                                         Caption{TextKey::Alarm, u"警報", u"Alarm"},
                                         Caption{TextKey::DipSwitch, u"Dipｽｲｯﾁ", u"DipSW"},
                                         Caption{TextKey::Port, u"ﾎﾟｰﾄ", u"Port"},
                                         Caption{TextKey::IoCheck, u"I/O ﾁｪｯｸ", u"I/O check"}));

INSTANTIATE_TEST_SUITE_P(Frame, CaptionTest,
                         testing::Values(Caption{TextKey::Model, u"機種名", u"Model"},
                                         Caption{TextKey::Author, u"作者名", u"Author"},
                                         Caption{TextKey::Directory, u"ﾃﾞｨﾚｸﾄﾘ名", u"Directory"},
                                         Caption{TextKey::FileName, u"ファイル名", u"File name"},
                                         Caption{TextKey::Memo, u"メモ", u"Notes"},
                                         Caption{TextKey::Upload, u"アップロード", u"UPLOAD"},
                                         Caption{TextKey::Download, u"ダウンロード", u"DOWNLOAD"},
                                         Caption{TextKey::Open, u"ファイルを開く", u"OPEN"},
                                         Caption{TextKey::Save, u"ファイルに保存", u"SAVE"},
                                         Caption{TextKey::Check, u"設定値ﾁｪｯｸ", u"CHECK"},
                                         Caption{TextKey::New, u"新規作成", u"NEW"},
                                         Caption{TextKey::Exit, u"終了", u"EXIT"}));

INSTANTIATE_TEST_SUITE_P(
    Linearizer, CaptionTest,
    testing::Values(
        Caption{TextKey::Row, u"行", u"Row"}, Caption{TextKey::Column, u"列", u"Column"},
        Caption{TextKey::NewValue, u"変更内容", u"Content"},
        Caption{TextKey::OpenCsv, u"csvﾌｧｲﾙを開く", u"Open *.csv"},
        Caption{TextKey::SaveCsv, u"csvﾌｧｲﾙに保存", u"Save *.csv"},
        Caption{TextKey::Modify, u"変更する", u"Modify"}, Caption{TextKey::Cancel, u"中止", u"Cancel"},
        Caption{TextKey::ChangeOfValue, u"値の変更", u"Modification of value"},
        Caption{TextKey::TableUnsaved, u"ﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）",
                u"The linearizer table comes from a csv file and is not saved with the settings"},
        Caption{TextKey::SensorTableUnsaved, u"ｾﾝｻのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）",
                u"The sensor table comes from a csv file and is not saved with the settings"},
        Caption{TextKey::EditNotTaken, u"「変更する」を押していない値は、ﾁｪｯｸ･ﾀﾞｳﾝﾛｰﾄﾞ･保存に含まれません: ",
                u"A value that was not confirmed with Modify is not checked, sent or saved: "},
        Caption{TextKey::NotPlain, u"数値でないﾃﾞｰﾀは、ﾀﾞｳﾝﾛｰﾄﾞでこのまま送信されます: ",
                u"No plain numbers, a download sends them as they stand: "},
        Caption{TextKey::SentAsTyped, u"数値でないﾃﾞｰﾀを、このまま送信しました: ",
                u"No plain numbers, sent as they stand: "},
        Caption{TextKey::NotKept, u"保存したﾌｧｲﾙを開いても、次の内容は元に戻りません: ",
                u"The saved file will not give these back: "},
        Caption{TextKey::MemoLine, u"メモの行", u"Notes, line"}, Caption{TextKey::Curve, u"曲線", u"Curve"}));

INSTANTIATE_TEST_SUITE_P(
    MemoryOfTheDevice, CaptionTest,
    testing::Values(
        Caption{TextKey::InputTypeUnread,
                u"変換器の入力ﾀｲﾌﾟ(Item10)を読み込めなかったので、ﾀﾞｳﾝﾛｰﾄﾞを中止しました。",
                u"The download was given up: the device's input type (item 10) could not be read."},
        Caption{TextKey::StageDate, u"EEPROM: ﾀﾞｳﾝﾛｰﾄﾞ日付を書き込んでいます",
                u"EEPROM: writing the date of the download"},
        Caption{TextKey::StageCurve, u"EEPROM: ｾﾝｻのｶｰﾌﾞ {1} を書き込んでいます",
                u"EEPROM: writing the sensor's curve {1}"},
        Caption{TextKey::BlocksDone, u"{1}: {2}/{3} ﾌﾞﾛｯｸ", u"{1}: {2} of {3} blocks"},
        Caption{TextKey::TimeLeft, u"、残り {1} 分 {2} 秒", u", {1} min {2} s left"}));

INSTANTIATE_TEST_SUITE_P(IoCheck, CaptionTest,
                         testing::Values(Caption{TextKey::Setting, u"設定", u"Setting"},
                                         Caption{TextKey::Monitor, u"表示", u"Monitor"},
                                         Caption{TextKey::Monitoring, u"表示", u"Monitoring"},
                                         Caption{TextKey::CountSet, u"設定", u"COUNT SET"},
                                         Caption{TextKey::CountMonitor, u"表示", u"MONITOR"},
                                         Caption{TextKey::ResetFirst, u"ﾘｾｯﾄ 1", u"RESET 1"},
                                         Caption{TextKey::ResetSecond, u"ﾘｾｯﾄ 2", u"RESET 2"},
                                         Caption{TextKey::FirstAlarm, u"第1警報", u"Alarm 1"},
                                         Caption{TextKey::SecondAlarm, u"第2警報", u"Alarm 2"},
                                         Caption{TextKey::Threshold, u"ｼｷｲ値", u"Threshold"},
                                         Caption{TextKey::SetCutOut, u"ｶｯﾄｱｳﾄ設定", u"Set cut-out"},
                                         Caption{TextKey::DisableCutOut, u"ｶｯﾄｱｳﾄ解除", u"No cut-out"},
                                         Caption{TextKey::Waiting, u"お待ち下さい", u"Reading Data."},
                                         Caption{TextKey::Output2Monitor, u"第2出力表示", u"Monitor"}));

INSTANTIATE_TEST_SUITE_P(
    WithoutAnEnglishTextAreTheSameInBoth, CaptionTest,
    testing::Values(Caption{TextKey::TcTable, u"TC TBL", u"TC TBL"},
                    Caption{TextKey::SystemReset, u"ｼｽﾃﾑ ﾘｾｯﾄ", u"ｼｽﾃﾑ ﾘｾｯﾄ"},
                    Caption{TextKey::ZeroPositionCalibration, u"0% ﾎﾟｼﾞｼｮﾝ校正", u"0% ﾎﾟｼﾞｼｮﾝ校正"},
                    Caption{TextKey::OptionYes, u"有", u"有"}, Caption{TextKey::OptionNo, u"無", u"無"},
                    Caption{TextKey::LowerLimit, u"下限", u"下限"},
                    Caption{TextKey::ResettingSystem, u"ｼｽﾃﾑをﾘｾｯﾄしています。\n\rしばらくお待ち下さい",
                            u"ｼｽﾃﾑをﾘｾｯﾄしています。\n\rしばらくお待ち下さい"}));

INSTANTIATE_TEST_SUITE_P(
    ThatStayEnglish, CaptionTest,
    testing::Values(Caption{TextKey::Com1, u"COM 1", u"COM 1"}, Caption{TextKey::Com2, u"COM 2", u"COM 2"},
                    Caption{TextKey::Com3, u"COM 3", u"COM 3"}, Caption{TextKey::Com4, u"COM 4", u"COM 4"},
                    Caption{TextKey::OutputButton, u"OUTPUT", u"OUTPUT"},
                    Caption{TextKey::Off, u"OFF", u"OFF"}, Caption{TextKey::On, u"ON", u"ON"},
                    Caption{TextKey::Start, u"START", u"START"}, Caption{TextKey::Stop, u"STOP", u"STOP"},
                    Caption{TextKey::Version, u"KORVA Ver12.09", u"KORVA Ver12.09"}));

INSTANTIATE_TEST_SUITE_P(
    OfTheSystemsReasons, CaptionTest,
    testing::Values(
        Caption{TextKey::ReasonMissing, u"ﾌｧｲﾙまたはﾌｫﾙﾀﾞが見つかりません。",
                u"The file or folder was not found."},
        Caption{TextKey::ReasonNotPermitted, u"ｱｸｾｽする権限がありません。", u"You have no permission."},
        Caption{TextKey::ReasonFolder, u"ﾌｧｲﾙではなくﾌｫﾙﾀﾞです。", u"It is a folder."},
        Caption{TextKey::ReasonNoSpace, u"ﾃﾞｨｽｸの空き容量が足りません。", u"The disk is full."},
        Caption{TextKey::ReasonReadOnly, u"ﾃﾞｨｽｸは読み取り専用です。", u"The disk is read-only."},
        Caption{TextKey::ReasonInUse, u"ほかのﾌﾟﾛｸﾞﾗﾑが使用中です。", u"Another program is using it."},
        Caption{TextKey::PortMissing, u"ﾎﾟｰﾄが見つかりません。", u"The port was not found."},
        Caption{TextKey::ReasonTooLarge, u"ﾌｧｲﾙが大きすぎます。", u"The file is too large."}));

TEST(Texts, TellWhyTheSystemRefusedOrElseTheSystemsOwnWords) {
  using enum SystemReason::Case;
  EXPECT_EQ(ReasonText({.what = NotPermitted, .words = u"Permission denied"}), u"ｱｸｾｽする権限がありません。");
  EXPECT_EQ(ReasonText({.what = NoSpace, .words = u"No space left"}, Language::English),
            u"The disk is full.");
  EXPECT_EQ(ReasonText({.words = u"Input/output error"}), u"Input/output error");
  for (const auto what : {Missing, NotPermitted, Folder, NoSpace, ReadOnly, InUse, TooLarge}) {
    EXPECT_NE(ReasonText({.what = what, .words = u"own"}), u"own");
  }
}

TEST(Texts, HaveACaptionForEveryKey) {
  for (int key = 0; key < static_cast<int>(TextKey::kCount); ++key) {
    EXPECT_FALSE(CaptionText(static_cast<TextKey>(key)).empty()) << key;
    EXPECT_FALSE(CaptionText(static_cast<TextKey>(key), Language::English).empty()) << key;
  }
}

TEST(Texts, AreShownInTheProportionalGothicFont) { EXPECT_EQ(kFontName, u"ＭＳ Ｐゴシック"); }

TEST(Texts, TellThatADownloadHoldsTheProgram) {
  EXPECT_EQ(CannotEndText(), u"ﾀﾞｳﾝﾛｰﾄﾞの途中でﾌﾟﾛｸﾞﾗﾑを終了することはできません。");
}

TEST(Texts, TellInTwoLinesWhatToEnterForAColdJunction) {
  EXPECT_EQ(ColdJunctionInfoText(),
            u"温度補正値を変更します。\n\rCJMに添付されているﾃﾞｰﾀを入力してください。");
}

TEST(Texts, HintAtTheTableOfAThermocoupleOrAResistanceThermometer) {
  EXPECT_EQ(TableHintText(u"T"), u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、熱電対のﾃｰﾌﾞﾙを作成して下さい。");
  EXPECT_EQ(TableHintText(u"R"), u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、測温体のﾃｰﾌﾞﾙを作成して下さい。");
  EXPECT_EQ(TableHintText(u"L"), u"");
  EXPECT_EQ(TableHintText(u""), u"");
}

TEST(Texts, FilterTableFiles) { EXPECT_EQ(CsvFilter(), u"カンマ区切りのファイル (*.csv)|*.csv|"); }

TEST(Texts, FilterConfigurationsAndDefinitions) {
  EXPECT_EQ(CfgFilter(), u"KORVAで作成されたテキストファイル (*.cfg)|*.cfg|");
  EXPECT_EQ(DefFilter(),
            u"KORVAで作成されたテキストファイル (*.cfg)|*.cfg|すべてのファイル (*.*)|*.*|"
            u"プログラム管理ファイル (*.def)|*.def");
}

TEST(Texts, OpenWithDefinitionsConfigurationsAndAllFilesAndShowConfigurations) {
  EXPECT_EQ(OpenCfgFilter(),
            u"プログラム管理ファイル (*.def)|*.def|KORVAで作成されたテキストファイル (*.cfg)|*.cfg|"
            u"すべてのファイル (*.*)|*.*|");
  EXPECT_EQ(kOpenCfgFilterIndex, 2);
}

}  // namespace
}  // namespace korva
