#include "core/boxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "platform/virtual/virtual_dialogs.h"

namespace korva {
namespace {

using Arguments = std::vector<String>;

/// The boxes that have places for arguments, with the number of places.
const std::map<BoxKey, std::size_t>& PlacesOfBoxes() {
  static const std::map<BoxKey, std::size_t> places = {
      {BoxKey::OutputTypeMismatch, 1}, {BoxKey::InputTypeMismatch, 1},    {BoxKey::ItemDataMismatch, 2},
      {BoxKey::ItemDownloadError, 2},  {BoxKey::ItemDownloadMismatch, 1}, {BoxKey::ItemWriteFailed, 2},
      {BoxKey::SaveFailed, 1},         {BoxKey::CsvSaveFailed, 1},        {BoxKey::CsvOpenFailed, 1},
      {BoxKey::EepromDataInvalid, 1},  {BoxKey::RoundedTo5Msec, 3},       {BoxKey::RoundedTo005V, 3},
      {BoxKey::OutputOutOfRange, 2},   {BoxKey::CountOutOfRange, 2},      {BoxKey::ThresholdOutOfRange, 2},
      {BoxKey::ZeroTrimOutOfRange, 2}, {BoxKey::SpanTrimOutOfRange, 2},   {BoxKey::CfgOpenFailed, 1},
      {BoxKey::CurveFileNotFound, 1},
  };
  return places;
}

/// The box with "<1>", "<2>" and "<3>" as arguments, as many as it has places for.
Box SampleOf(BoxKey key) {
  const auto found = PlacesOfBoxes().find(key);
  switch (found == PlacesOfBoxes().end() ? 0 : found->second) {
    case 1:
      return BoxOf(key, {u"<1>"});
    case 2:
      return BoxOf(key, {u"<1>", u"<2>"});
    case 3:
      return BoxOf(key, {u"<1>", u"<2>", u"<3>"});
    default:
      return BoxOf(key);
  }
}

std::vector<BoxKey> AllBoxes() {
  std::vector<BoxKey> keys;
  keys.reserve(static_cast<std::size_t>(BoxKey::kCount));
  for (int key = 0; key < static_cast<int>(BoxKey::kCount); ++key) {
    keys.push_back(static_cast<BoxKey>(key));
  }
  return keys;
}

struct Warning {
  BoxKey key;
  String title;
  String text;
};

class WarningTest : public testing::TestWithParam<Warning> {};

TEST_P(WarningTest, HasAnExclamationIconAnOkButtonAndItsTexts) {
  const Box box = SampleOf(GetParam().key);
  EXPECT_EQ(box.icon, BoxIcon::Warning);
  EXPECT_EQ(box.title, GetParam().title);
  EXPECT_EQ(box.text, GetParam().text);
  EXPECT_EQ(box.buttons, std::vector<Answer>{Answer::Ok});
  EXPECT_EQ(box.preset, Answer::Ok);
}

INSTANTIATE_TEST_SUITE_P(
    Download, WarningTest,
    testing::Values(
        Warning{BoxKey::OutputTypeUnknown, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"Item11 ｺﾝﾎﾞﾎﾞｯｸｽ照合ｴﾗｰ"},
        Warning{BoxKey::OutputTypeMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                u"あなたが Item11 で選択した <1> は、\n\r"
                u"接続された変換器のものと一致していません。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
        Warning{BoxKey::InputTypeMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                u"あなたが Item10 で選択した <1> は、\n\r"
                u"接続された変換器のものと一致していません。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
        Warning{BoxKey::InputTypeNotSettable, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                u"あなたが Item10 で選択した項目は設定できません。\n\rﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
        Warning{BoxKey::LinearizerDataMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"Lnrﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
        Warning{BoxKey::Linearizer16DataMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"Lnr16 ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
        Warning{BoxKey::NotProgrammingMode, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                u"ﾌﾟﾛｸﾞﾗﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
        Warning{BoxKey::NotMonitorMode, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"ﾓﾆﾀﾓｰﾄﾞに変更できませんでした。"},
        Warning{BoxKey::LinearizerDownloadFailed, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                u"ﾘﾆｱﾗｲｻﾞ処理ｴﾗｰ。ﾃﾞｰﾀのﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
        Warning{BoxKey::ParametersNotReset, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"ﾊﾟﾗﾒｰﾀをﾃﾞﾌｫﾙﾄ値に設定できませんでした。"},
        Warning{BoxKey::DownloadDataMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
        Warning{BoxKey::ItemDataMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"Item<1>: ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ\n\rｴﾗｰﾒｯｾｰｼﾞ: <2>"},
        Warning{BoxKey::ItemDownloadError, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"<1>で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : <2>"},
        Warning{BoxKey::ItemDownloadMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"<1>で ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
        Warning{BoxKey::ItemWriteFailed, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"Group=<1>, Item=<2>で ﾃﾞｰﾀ書き込みｴﾗｰ"},
        Warning{BoxKey::ModelMismatch, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                u"選択した機種名と接続している変換器が一致していません。"},
        Warning{BoxKey::CurveFileNotFound, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"ファイルが見つかりません。\n\r<1>"}));

INSTANTIATE_TEST_SUITE_P(
    Upload, WarningTest,
    testing::Values(Warning{BoxKey::ModelOfFileUnknown, u"ｱｯﾌﾟﾛｰﾄﾞ", u"機種名ｺﾝﾎﾞﾎﾞｯｸｽ(ModelType$) 照合ｴﾗｰ"},
                    Warning{BoxKey::NoModelChosen, u"ｱｯﾌﾟﾛｰﾄﾞ", u"機種名を選択して下さい。"},
                    Warning{BoxKey::ModelUnknown, u"ｱｯﾌﾟﾛｰﾄﾞ", u"機種名ｺﾝﾎﾞﾎﾞｯｸｽ 照合ｴﾗｰ"}));

INSTANTIATE_TEST_SUITE_P(
    Files, WarningTest,
    testing::Values(
        Warning{BoxKey::CfgDataFormat, u"ﾌｧｲﾙを開く",
                u"cfgﾌｧｲﾙ(GroupItem$)のﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"},
        Warning{BoxKey::CfgFormat, u"ﾌｧｲﾙを開く", u"cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"},
        Warning{BoxKey::CfgOpenFailed, u"ﾌｧｲﾙを開く", u"<1>"},
        Warning{BoxKey::FileNotFound, u"ﾌｧｲﾙを開く", u"ファイルが見つかりません。"},
        Warning{BoxKey::DefFormat, u"ﾌｧｲﾙを開く", u"defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。ﾌﾟﾛｸﾞﾗﾑを再ｲﾝｽﾄｰﾙしてください。"},
        Warning{BoxKey::SaveFailed, u"ﾌｧｲﾙに保存", u"<1>"},
        Warning{BoxKey::CsvFileNotFound, u"ﾘﾆｱﾗｲｻﾞ", u"ﾌｧｲﾙが見つかりません"},
        Warning{BoxKey::CsvOpenFailed, u"ﾘﾆｱﾗｲｻﾞ", u"<1>"},
        Warning{BoxKey::CsvSaveFailed, u"csvファイル保存", u"<1>"}));

INSTANTIATE_TEST_SUITE_P(
    Eeprom, WarningTest,
    testing::Values(Warning{BoxKey::EepromModeNotEntered, u"EEPROM",
                            u"EEPROMｱｸｾｽﾓｰﾄﾞ変更ｴﾗｰ。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"},
                    Warning{BoxKey::EepromWriteFailed, u"EEPROM",
                            u"EEPROM書き込みｴﾗｰ。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"},
                    Warning{BoxKey::InputTypeNumberInvalid, u"EEPROM", u"入力ﾀｲﾌﾟ番号が不正です。"},
                    Warning{BoxKey::OutputTypeNumberInvalid, u"EEPROM", u"出力ﾀｲﾌﾟ番号が不正です。"},
                    Warning{BoxKey::AdcTypeUnreadable, u"EEPROM", u"ADC入力ﾀｲﾌﾟを読み込めませんでした。"},
                    Warning{BoxKey::EepromDataInvalid, u"EEPROM", u"<1>のﾃﾞｰﾀが不適当です｡"}));

INSTANTIATE_TEST_SUITE_P(
    Tables, WarningTest,
    testing::Values(
        Warning{BoxKey::CjmFieldBlank, u"CJM交換", u"空白の項目があります。値を入力して下さい。"},
        Warning{BoxKey::TableFieldBlank, u"ﾃｰﾌﾞﾙﾁｪｯｸ", u"空白の項目があります。値を入力して下さい。"},
        Warning{BoxKey::TableWriteFailed, u"ﾃｰﾌﾞﾙﾁｪｯｸ", u"設定した値を書き込むことができませんでした。"},
        Warning{BoxKey::TableReadFailed, u"ﾃｰﾌﾞﾙﾁｪｯｸ", u"値を読み出すことができませんでした。"},
        Warning{BoxKey::TableReadWriteFailed, u"ﾃｰﾌﾞﾙﾁｪｯｸ", u"ﾃｰﾌﾞﾙﾃﾞｰﾀのRead/Writeｴﾗｰが発生しました。"},
        Warning{BoxKey::LinearizerSwitchedOff, u"ﾘﾆｱﾗｲｻﾞ", u"リニアライズ機能スイッチが無になっています。"}));

INSTANTIATE_TEST_SUITE_P(
    ValueCheck, WarningTest,
    testing::Values(
        Warning{BoxKey::FieldBlank, u"設定値ﾁｪｯｸ",
                u"空白のﾃｷｽﾄﾎﾞｯｸｽがあります。全てのﾃｷｽﾄﾎﾞｯｸｽにﾃﾞｰﾀを入力して下さい。"},
        Warning{BoxKey::ValueBad, u"設定値ﾁｪｯｸ",
                u"不適当なデータがあります。色が反転した値を変更して下さい。"},
        Warning{BoxKey::RoundedTo5Msec, u"設定値ﾁｪｯｸ",
                u"Item<1> の値は、5msec単位に切り捨てました｡\n\r<2>msec -----> <3>msec"},
        Warning{BoxKey::RoundedTo005V, u"設定値ﾁｪｯｸ",
                u"Item<1> の値は、0.05V単位に切り上げました｡\n\r<2>V -----> <3>V"},
        Warning{BoxKey::OutputOutOfRange, u"設定値ﾁｪｯｸ", u"出力設定値は、<1>% から <2>% の範囲です。"},
        Warning{BoxKey::CountOutOfRange, u"設定値ﾁｪｯｸ", u"ｶｳﾝﾄ設定は、<1> から <2> の範囲です。"},
        Warning{BoxKey::ThresholdOutOfRange, u"設定値ﾁｪｯｸ", u"ｼｷｲ値の設定は、<1>V から <2>V の範囲です。"},
        Warning{BoxKey::ZeroTrimOutOfRange, u"ｾﾞﾛ微調整値ﾁｪｯｸ",
                u"ｾﾞﾛ微調整値は、<1>% から <2>% の範囲です。"},
        Warning{BoxKey::SpanTrimOutOfRange, u"ｽﾊﾟﾝ微調整値ﾁｪｯｸ",
                u"ｽﾊﾟﾝ微調整値は、<1>% から <2>% の範囲です。"}));

INSTANTIATE_TEST_SUITE_P(
    LinkAndModes, WarningTest,
    testing::Values(Warning{BoxKey::CommFailure, u"通信ﾃｽﾄ",
                            u"通信が正しく行われていません。次の①・②を確認して下さい。\n\r"
                            u"①変換器は正しく接続されていますか。\n\r"
                            u"②ﾎﾟｰﾄは正しく設定されていますか。"},
                    Warning{BoxKey::NotZeroTrimMode, u"ｾﾞﾛ微調整", u"ｾﾞﾛﾄﾘﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。"},
                    Warning{BoxKey::NotSpanTrimMode, u"ｽﾊﾟﾝ微調整",
                            u"ｽﾊﾟﾝﾄﾘﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。"},
                    Warning{BoxKey::ModeNotChanged, u"I/O ﾁｪｯｸ",
                            u"ﾓｰﾄﾞ変更ができませんでした。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"}));

struct Report {
  BoxKey key;
  String title;
  String text;
};

class ReportTest : public testing::TestWithParam<Report> {};

TEST_P(ReportTest, IsAPlainBoxWithAnOkButton) {
  const Box box = BoxOf(GetParam().key);
  EXPECT_EQ(box.icon, BoxIcon::Plain);
  EXPECT_EQ(box.title, GetParam().title);
  EXPECT_EQ(box.text, GetParam().text);
  EXPECT_EQ(box.buttons, std::vector<Answer>{Answer::Ok});
}

INSTANTIATE_TEST_SUITE_P(
    All, ReportTest,
    testing::Values(Report{BoxKey::FileSaved, u"ﾌｧｲﾙに保存", u"ファイルの保存が終了しました。"},
                    Report{BoxKey::DownloadDone, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"ﾀﾞｳﾝﾛｰﾄﾞ完了。"},
                    Report{BoxKey::UploadDone, u"ｱｯﾌﾟﾛｰﾄﾞ", u"ｱｯﾌﾟﾛｰﾄﾞ完了。"},
                    Report{BoxKey::CheckDone, u"設定値ﾁｪｯｸ", u"設定値ﾁｪｯｸ完了。"},
                    Report{BoxKey::CjmChanged, u"CJM交換", u"温度補正値を変更しました。"},
                    Report{BoxKey::CjmSetToDefault, u"CJM交換", u"温度補正値をﾃﾞﾌｫﾙﾄ設定値にしました。"},
                    Report{BoxKey::ModbusChanged, u"Modbus設定変更", u"Modbus通信ﾌﾟﾛﾄｺﾙを変更しました。"},
                    Report{BoxKey::TableRead, u"ﾃｰﾌﾞﾙ ﾁｪｯｸ", u"Tableの値を読み出しました。"},
                    Report{BoxKey::TableWritten, u"ﾃｰﾌﾞﾙ ﾁｪｯｸ", u"Tableの値を書き込みました。"}));

struct Question {
  BoxKey key;
  BoxIcon icon;
  String title;
  String text;
  std::vector<Answer> buttons;
  Answer preset;
};

const std::vector<Answer> kOkCancel = {Answer::Ok, Answer::Cancel};
const std::vector<Answer> kYesNo = {Answer::Yes, Answer::No};
const std::vector<Answer> kYesNoCancel = {Answer::Yes, Answer::No, Answer::Cancel};

class QuestionTest : public testing::TestWithParam<Question> {};

TEST_P(QuestionTest, HasItsIconTextsButtonsAndPreset) {
  const Box box = BoxOf(GetParam().key);
  EXPECT_EQ(box.icon, GetParam().icon);
  EXPECT_EQ(box.title, GetParam().title);
  EXPECT_EQ(box.text, GetParam().text);
  EXPECT_EQ(box.buttons, GetParam().buttons);
  EXPECT_EQ(box.preset, GetParam().preset);
}

INSTANTIATE_TEST_SUITE_P(
    All, QuestionTest,
    testing::Values(Question{BoxKey::StartDownload, BoxIcon::Question, u"ﾀﾞｳﾝﾛｰﾄﾞ", u"ﾀﾞｳﾝﾛｰﾄﾞを開始します。",
                             kOkCancel, Answer::Ok},
                    Question{BoxKey::StartUpload, BoxIcon::Question, u"ｱｯﾌﾟﾛｰﾄﾞ", u"ｱｯﾌﾟﾛｰﾄﾞを開始します。",
                             kOkCancel, Answer::Ok},
                    Question{BoxKey::ModelMatches, BoxIcon::Question, u"ｱｯﾌﾟﾛｰﾄﾞ",
                             u"選択された機種名は、接続された変換器と一致していますか。", kYesNo,
                             Answer::Yes},
                    Question{BoxKey::UploadAgain, BoxIcon::Question, u"ｱｯﾌﾟﾛｰﾄﾞ",
                             u"ｱｯﾌﾟﾛｰﾄﾞでエラーが発生しました。再度ｱｯﾌﾟﾛｰﾄﾞしてください。", kOkCancel,
                             Answer::Ok},
                    Question{BoxKey::UploadLinearizer, BoxIcon::Question, u"ｱｯﾌﾟﾛｰﾄﾞ",
                             u"100点ﾘﾆｱﾗｲｻﾞのﾃﾞｰﾀをｱｯﾌﾟﾛｰﾄﾞしますか。", kYesNo, Answer::Yes},
                    Question{BoxKey::DownloadLinearizer, BoxIcon::Question, u"ﾀﾞｳﾝﾛｰﾄﾞ",
                             u"100点ﾘﾆｱﾗｲｻﾞのﾃﾞｰﾀをﾀﾞｳﾝﾛｰﾄﾞしますか。", kYesNo, Answer::Yes},
                    Question{BoxKey::ChangeFormerCell, BoxIcon::Question, u"ﾘﾆｱﾗｲｻﾞ",
                             u"１つ前に選択したセルのﾃﾞｰﾀを変更しますか。", kYesNo, Answer::Yes},
                    Question{BoxKey::ChangeCjm, BoxIcon::Warning, u"CJM交換",
                             u"このコマンドを実行すると、熱電対の温度補正値が変更されます。\n\r続けますか。",
                             kYesNo, Answer::No},
                    Question{BoxKey::SaveChanges, BoxIcon::Question, u"ﾌｧｲﾙに保存",
                             u"データは変更されています。保存しますか。", kYesNoCancel, Answer::Yes}));

TEST(BoxTable, HasNoTwoBoxesOfTheSameTitleAndText) {
  std::set<std::pair<String, String>> seen;
  for (const BoxKey key : AllBoxes()) {
    const Box box = SampleOf(key);
    EXPECT_TRUE(seen.emplace(box.title, box.text).second) << testing::PrintToString(box.text);
  }
}

TEST(BoxTable, PresetsOneOfTheButtonsOfEachBox) {
  for (const BoxKey key : AllBoxes()) {
    const Box box = SampleOf(key);
    EXPECT_NE(std::find(box.buttons.begin(), box.buttons.end(), box.preset), box.buttons.end())
        << testing::PrintToString(box.text);
  }
}

TEST(BoxTable, LeavesNoPlaceUnfilled) {
  for (const BoxKey key : AllBoxes()) {
    const Box box = SampleOf(key);
    EXPECT_FALSE(box.title.empty());
    EXPECT_FALSE(box.text.empty());
    EXPECT_EQ(box.text.find(u'{'), String::npos) << testing::PrintToString(box.text);
  }
}

TEST(BoxTable, FillsAnArgumentThatLooksLikeAPlaceAsItIs) {
  EXPECT_EQ(BoxOf(BoxKey::CountOutOfRange, {u"{2}", u"{1}"}).text, u"ｶｳﾝﾄ設定は、{2} から {1} の範囲です。");
}

class BoxesTest : public testing::Test {
 protected:
  VirtualDialogs dialogs_;
  Boxes boxes_{dialogs_};
};

TEST_F(BoxesTest, ShowsTheBoxWithItsArgumentsAndReturnsTheAnswer) {
  dialogs_.QueueAnswer(Answer::Cancel);
  EXPECT_EQ(boxes_.Show(BoxKey::SaveChanges), Answer::Cancel);
  EXPECT_EQ(boxes_.Show(BoxKey::OutputOutOfRange, {u"-15.00", u"115.00"}), Answer::Ok);
  ASSERT_EQ(dialogs_.Boxes().size(), 2U);
  EXPECT_EQ(dialogs_.Boxes()[0].box.title, u"ﾌｧｲﾙに保存");
  EXPECT_EQ(dialogs_.Boxes()[1].box.text, u"出力設定値は、-15.00% から 115.00% の範囲です。");
}

TEST_F(BoxesTest, AskIsTrueForYesAndOkAlone) {
  for (const auto& [key, answer, expected] : {std::tuple(BoxKey::ModelMatches, Answer::Yes, true),
                                              std::tuple(BoxKey::ModelMatches, Answer::No, false),
                                              std::tuple(BoxKey::StartUpload, Answer::Ok, true),
                                              std::tuple(BoxKey::StartUpload, Answer::Cancel, false)}) {
    dialogs_.QueueAnswer(answer);
    EXPECT_EQ(boxes_.Ask(key), expected);
  }
}

TEST_F(BoxesTest, AskShowsTheWholeBox) {
  EXPECT_FALSE(boxes_.Ask(BoxKey::ChangeCjm));
  ASSERT_EQ(dialogs_.Boxes().size(), 1U);
  EXPECT_EQ(dialogs_.Boxes()[0].box.icon, BoxIcon::Warning);
  EXPECT_EQ(dialogs_.Boxes()[0].box.preset, Answer::No);
  EXPECT_EQ(dialogs_.Boxes()[0].box.title, u"CJM交換");
}

TEST_F(BoxesTest, AskYesNoShowsTheTextInTheGivenStyle) {
  dialogs_.QueueAnswer(Answer::Ok);
  EXPECT_TRUE(AskYesNo(
      dialogs_, u"text",
      {.icon = BoxIcon::Plain, .buttons = {Answer::Ok, Answer::Cancel}, .preset = Answer::Cancel}, u"title"));
  ASSERT_EQ(dialogs_.Boxes().size(), 1U);
  const Box& box = dialogs_.Boxes()[0].box;
  EXPECT_EQ(box.icon, BoxIcon::Plain);
  EXPECT_EQ(box.title, u"title");
  EXPECT_EQ(box.text, u"text");
  EXPECT_EQ(box.buttons, kOkCancel);
  EXPECT_EQ(box.preset, Answer::Cancel);
}

TEST_F(BoxesTest, ConfirmUploadAsksForTheModelAndThenForTheStart) {
  dialogs_.QueueAnswer(Answer::Yes);
  dialogs_.QueueAnswer(Answer::Ok);
  EXPECT_TRUE(boxes_.ConfirmUpload());
  ASSERT_EQ(dialogs_.Boxes().size(), 2U);
  EXPECT_EQ(dialogs_.Boxes()[0].box.text, u"選択された機種名は、接続された変換器と一致していますか。");
  EXPECT_EQ(dialogs_.Boxes()[1].box.text, u"ｱｯﾌﾟﾛｰﾄﾞを開始します。");
}

TEST_F(BoxesTest, ConfirmUploadDoesNotAskForTheStartWhenTheModelDiffers) {
  dialogs_.QueueAnswer(Answer::No);
  EXPECT_FALSE(boxes_.ConfirmUpload());
  EXPECT_EQ(dialogs_.Boxes().size(), 1U);
}

TEST_F(BoxesTest, ConfirmUploadIsFalseWhenTheStartIsCancelled) {
  dialogs_.QueueAnswer(Answer::Yes);
  dialogs_.QueueAnswer(Answer::Cancel);
  EXPECT_FALSE(boxes_.ConfirmUpload());
  EXPECT_EQ(dialogs_.Boxes().size(), 2U);
}

TEST_F(BoxesTest, ShowCommFailureTellsInThreeLinesWhatToCheck) {
  boxes_.ShowCommFailure();
  ASSERT_EQ(dialogs_.Boxes().size(), 1U);
  EXPECT_EQ(dialogs_.Boxes()[0].box.title, u"通信ﾃｽﾄ");
  EXPECT_EQ(dialogs_.Boxes()[0].box.text,
            u"通信が正しく行われていません。次の①・②を確認して下さい。\n\r"
            u"①変換器は正しく接続されていますか。\n\r②ﾎﾟｰﾄは正しく設定されていますか。");
}

}  // namespace
}  // namespace korva
