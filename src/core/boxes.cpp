#include "core/boxes.h"

#include <array>
#include <cstddef>

#include "core/text_utilities.h"

namespace korva {
namespace {

constexpr std::size_t kBoxCount = static_cast<std::size_t>(BoxKey::kCount);

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };

/// {1}, {2} and {3} in a text are the places of the arguments.
struct BoxRow {
  BoxKey key;
  BoxIcon icon = BoxIcon::Warning;
  StringView title;
  StringView text;
  Buttons buttons = Buttons::Ok;
  Answer preset = Answer::Ok;
};

constexpr StringView kDownload = u"ﾀﾞｳﾝﾛｰﾄﾞ";
constexpr StringView kUpload = u"ｱｯﾌﾟﾛｰﾄﾞ";
constexpr StringView kOpenFile = u"ﾌｧｲﾙを開く";
constexpr StringView kSaveFile = u"ﾌｧｲﾙに保存";
constexpr StringView kEeprom = u"EEPROM";
constexpr StringView kCjm = u"CJM交換";
constexpr StringView kTableCheck = u"ﾃｰﾌﾞﾙﾁｪｯｸ";
constexpr StringView kTableReport = u"ﾃｰﾌﾞﾙ ﾁｪｯｸ";  // with a blank, unlike the warnings' title
constexpr StringView kValueCheck = u"設定値ﾁｪｯｸ";
constexpr StringView kLinearizer = u"ﾘﾆｱﾗｲｻﾞ";

constexpr std::array<BoxRow, kBoxCount> kBoxes = {{
    {.key = BoxKey::OutputTypeUnknown, .title = kDownload, .text = u"Item11 ｺﾝﾎﾞﾎﾞｯｸｽ照合ｴﾗｰ"},
    {.key = BoxKey::OutputTypeMismatch,
     .title = kDownload,
     .text = u"あなたが Item11 で選択した {1} "
             u"は、\n\r接続された変換器のものと一致していません。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
    {.key = BoxKey::InputTypeMismatch,
     .title = kDownload,
     .text = u"あなたが Item10 で選択した {1} "
             u"は、\n\r接続された変換器のものと一致していません。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
    {.key = BoxKey::InputTypeNotSettable,
     .title = kDownload,
     .text = u"あなたが Item10 で選択した項目は設定できません。\n\rﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
    {.key = BoxKey::LinearizerDataMismatch, .title = kDownload, .text = u"Lnrﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
    {.key = BoxKey::Linearizer16DataMismatch, .title = kDownload, .text = u"Lnr16 ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
    {.key = BoxKey::NotProgrammingMode,
     .title = kDownload,
     .text = u"ﾌﾟﾛｸﾞﾗﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。ﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
    {.key = BoxKey::NotMonitorMode, .title = kDownload, .text = u"ﾓﾆﾀﾓｰﾄﾞに変更できませんでした。"},
    {.key = BoxKey::LinearizerDownloadFailed,
     .title = kDownload,
     .text = u"ﾘﾆｱﾗｲｻﾞ処理ｴﾗｰ。ﾃﾞｰﾀのﾀﾞｳﾝﾛｰﾄﾞを中止します。"},
    {.key = BoxKey::ParametersNotReset,
     .title = kDownload,
     .text = u"ﾊﾟﾗﾒｰﾀをﾃﾞﾌｫﾙﾄ値に設定できませんでした。"},
    {.key = BoxKey::DownloadDataMismatch, .title = kDownload, .text = u"ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
    {.key = BoxKey::ItemDataMismatch,
     .title = kDownload,
     .text = u"Item{1}: ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ\n\rｴﾗｰﾒｯｾｰｼﾞ: {2}"},
    {.key = BoxKey::ItemDownloadError, .title = kDownload, .text = u"{1}で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : {2}"},
    {.key = BoxKey::ItemDownloadMismatch, .title = kDownload, .text = u"{1}で ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"},
    {.key = BoxKey::ItemWriteFailed, .title = kDownload, .text = u"Group={1}, Item={2}で ﾃﾞｰﾀ書き込みｴﾗｰ"},
    {.key = BoxKey::ModelMismatch,
     .title = kDownload,
     .text = u"選択した機種名と接続している変換器が一致していません。"},
    {.key = BoxKey::CurveFileNotFound, .title = kDownload, .text = u"ファイルが見つかりません。\n\r{1}"},
    {.key = BoxKey::ModelOfFileUnknown, .title = kUpload, .text = u"機種名ｺﾝﾎﾞﾎﾞｯｸｽ(ModelType$) 照合ｴﾗｰ"},
    {.key = BoxKey::NoModelChosen, .title = kUpload, .text = u"機種名を選択して下さい。"},
    {.key = BoxKey::ModelUnknown, .title = kUpload, .text = u"機種名ｺﾝﾎﾞﾎﾞｯｸｽ 照合ｴﾗｰ"},
    {.key = BoxKey::CfgDataFormat,
     .title = kOpenFile,
     .text = u"cfgﾌｧｲﾙ(GroupItem$)のﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"},
    {.key = BoxKey::CfgFormat, .title = kOpenFile, .text = u"cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"},
    {.key = BoxKey::CfgOpenFailed, .title = kOpenFile, .text = u"{1}"},
    {.key = BoxKey::FileNotFound, .title = kOpenFile, .text = u"ファイルが見つかりません。"},
    {.key = BoxKey::DefFormat,
     .title = kOpenFile,
     .text = u"defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。ﾌﾟﾛｸﾞﾗﾑを再ｲﾝｽﾄｰﾙしてください。"},
    {.key = BoxKey::SaveFailed, .title = kSaveFile, .text = u"{1}"},
    {.key = BoxKey::CsvFileNotFound, .title = kLinearizer, .text = u"ﾌｧｲﾙが見つかりません"},
    {.key = BoxKey::CsvOpenFailed, .title = kLinearizer, .text = u"{1}"},
    {.key = BoxKey::CsvSaveFailed, .title = u"csvファイル保存", .text = u"{1}"},
    {.key = BoxKey::EepromModeNotEntered,
     .title = kEeprom,
     .text = u"EEPROMｱｸｾｽﾓｰﾄﾞ変更ｴﾗｰ。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"},
    {.key = BoxKey::EepromWriteFailed,
     .title = kEeprom,
     .text = u"EEPROM書き込みｴﾗｰ。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"},
    {.key = BoxKey::InputTypeNumberInvalid, .title = kEeprom, .text = u"入力ﾀｲﾌﾟ番号が不正です。"},
    {.key = BoxKey::OutputTypeNumberInvalid, .title = kEeprom, .text = u"出力ﾀｲﾌﾟ番号が不正です。"},
    {.key = BoxKey::AdcTypeUnreadable, .title = kEeprom, .text = u"ADC入力ﾀｲﾌﾟを読み込めませんでした。"},
    {.key = BoxKey::EepromDataInvalid, .title = kEeprom, .text = u"{1}のﾃﾞｰﾀが不適当です｡"},
    {.key = BoxKey::CjmFieldBlank, .title = kCjm, .text = u"空白の項目があります。値を入力して下さい。"},
    {.key = BoxKey::TableFieldBlank,
     .title = kTableCheck,
     .text = u"空白の項目があります。値を入力して下さい。"},
    {.key = BoxKey::TableWriteFailed,
     .title = kTableCheck,
     .text = u"設定した値を書き込むことができませんでした。"},
    {.key = BoxKey::TableReadFailed, .title = kTableCheck, .text = u"値を読み出すことができませんでした。"},
    {.key = BoxKey::TableReadWriteFailed,
     .title = kTableCheck,
     .text = u"ﾃｰﾌﾞﾙﾃﾞｰﾀのRead/Writeｴﾗｰが発生しました。"},
    {.key = BoxKey::LinearizerSwitchedOff,
     .title = kLinearizer,
     .text = u"リニアライズ機能スイッチが無になっています。"},
    {.key = BoxKey::FieldBlank,
     .title = kValueCheck,
     .text = u"空白のﾃｷｽﾄﾎﾞｯｸｽがあります。全てのﾃｷｽﾄﾎﾞｯｸｽにﾃﾞｰﾀを入力して下さい。"},
    {.key = BoxKey::ValueBad,
     .title = kValueCheck,
     .text = u"不適当なデータがあります。色が反転した値を変更して下さい。"},
    {.key = BoxKey::RoundedTo5Msec,
     .title = kValueCheck,
     .text = u"Item{1} の値は、5msec単位に切り捨てました｡\n\r{2}msec -----> {3}msec"},
    {.key = BoxKey::RoundedTo005V,
     .title = kValueCheck,
     .text = u"Item{1} の値は、0.05V単位に切り上げました｡\n\r{2}V -----> {3}V"},
    {.key = BoxKey::OutputOutOfRange,
     .title = kValueCheck,
     .text = u"出力設定値は、{1}% から {2}% の範囲です。"},
    {.key = BoxKey::CountOutOfRange, .title = kValueCheck, .text = u"ｶｳﾝﾄ設定は、{1} から {2} の範囲です。"},
    {.key = BoxKey::ThresholdOutOfRange,
     .title = kValueCheck,
     .text = u"ｼｷｲ値の設定は、{1}V から {2}V の範囲です。"},
    {.key = BoxKey::ZeroTrimOutOfRange,
     .title = u"ｾﾞﾛ微調整値ﾁｪｯｸ",
     .text = u"ｾﾞﾛ微調整値は、{1}% から {2}% の範囲です。"},
    {.key = BoxKey::SpanTrimOutOfRange,
     .title = u"ｽﾊﾟﾝ微調整値ﾁｪｯｸ",
     .text = u"ｽﾊﾟﾝ微調整値は、{1}% から {2}% の範囲です。"},
    {.key = BoxKey::CommFailure,
     .title = u"通信ﾃｽﾄ",
     .text = u"通信が正しく行われていません。次の①・②を確認して下さい。\n\r"
             u"①変換器は正しく接続されていますか。\n\r②ﾎﾟｰﾄは正しく設定されていますか。"},
    {.key = BoxKey::NotZeroTrimMode, .title = u"ｾﾞﾛ微調整", .text = u"ｾﾞﾛﾄﾘﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。"},
    {.key = BoxKey::NotSpanTrimMode,
     .title = u"ｽﾊﾟﾝ微調整",
     .text = u"ｽﾊﾟﾝﾄﾘﾐﾝｸﾞﾓｰﾄﾞに変更できませんでした。"},
    {.key = BoxKey::ModeNotChanged,
     .title = u"I/O ﾁｪｯｸ",
     .text = u"ﾓｰﾄﾞ変更ができませんでした。ｹｰﾌﾞﾙ、変換器をﾁｪｯｸしてください。"},
    {.key = BoxKey::FileSaved,
     .icon = BoxIcon::Plain,
     .title = kSaveFile,
     .text = u"ファイルの保存が終了しました。"},
    {.key = BoxKey::DownloadDone, .icon = BoxIcon::Plain, .title = kDownload, .text = u"ﾀﾞｳﾝﾛｰﾄﾞ完了。"},
    {.key = BoxKey::UploadDone, .icon = BoxIcon::Plain, .title = kUpload, .text = u"ｱｯﾌﾟﾛｰﾄﾞ完了。"},
    {.key = BoxKey::CheckDone, .icon = BoxIcon::Plain, .title = kValueCheck, .text = u"設定値ﾁｪｯｸ完了。"},
    {.key = BoxKey::CjmChanged, .icon = BoxIcon::Plain, .title = kCjm, .text = u"温度補正値を変更しました。"},
    {.key = BoxKey::CjmSetToDefault,
     .icon = BoxIcon::Plain,
     .title = kCjm,
     .text = u"温度補正値をﾃﾞﾌｫﾙﾄ設定値にしました。"},
    {.key = BoxKey::ModbusChanged,
     .icon = BoxIcon::Plain,
     .title = u"Modbus設定変更",
     .text = u"Modbus通信ﾌﾟﾛﾄｺﾙを変更しました。"},
    {.key = BoxKey::TableRead,
     .icon = BoxIcon::Plain,
     .title = kTableReport,
     .text = u"Tableの値を読み出しました。"},
    {.key = BoxKey::TableWritten,
     .icon = BoxIcon::Plain,
     .title = kTableReport,
     .text = u"Tableの値を書き込みました。"},
    {.key = BoxKey::StartDownload,
     .icon = BoxIcon::Question,
     .title = kDownload,
     .text = u"ﾀﾞｳﾝﾛｰﾄﾞを開始します。",
     .buttons = Buttons::OkCancel},
    {.key = BoxKey::StartUpload,
     .icon = BoxIcon::Question,
     .title = kUpload,
     .text = u"ｱｯﾌﾟﾛｰﾄﾞを開始します。",
     .buttons = Buttons::OkCancel},
    {.key = BoxKey::ModelMatches,
     .icon = BoxIcon::Question,
     .title = kUpload,
     .text = u"選択された機種名は、接続された変換器と一致していますか。",
     .buttons = Buttons::YesNo,
     .preset = Answer::Yes},
    {.key = BoxKey::UploadAgain,
     .icon = BoxIcon::Question,
     .title = kUpload,
     .text = u"ｱｯﾌﾟﾛｰﾄﾞでエラーが発生しました。再度ｱｯﾌﾟﾛｰﾄﾞしてください。",
     .buttons = Buttons::OkCancel},
    {.key = BoxKey::UploadLinearizer,
     .icon = BoxIcon::Question,
     .title = kUpload,
     .text = u"100点ﾘﾆｱﾗｲｻﾞのﾃﾞｰﾀをｱｯﾌﾟﾛｰﾄﾞしますか。",
     .buttons = Buttons::YesNo,
     .preset = Answer::Yes},
    {.key = BoxKey::DownloadLinearizer,
     .icon = BoxIcon::Question,
     .title = kDownload,
     .text = u"100点ﾘﾆｱﾗｲｻﾞのﾃﾞｰﾀをﾀﾞｳﾝﾛｰﾄﾞしますか。",
     .buttons = Buttons::YesNo,
     .preset = Answer::Yes},
    {.key = BoxKey::ChangeFormerCell,
     .icon = BoxIcon::Question,
     .title = kLinearizer,
     .text = u"１つ前に選択したセルのﾃﾞｰﾀを変更しますか。",
     .buttons = Buttons::YesNo,
     .preset = Answer::Yes},
    {.key = BoxKey::ChangeCjm,
     .icon = BoxIcon::Warning,
     .title = kCjm,
     .text = u"このコマンドを実行すると、熱電対の温度補正値が変更されます。\n\r続けますか。",
     .buttons = Buttons::YesNo,
     .preset = Answer::No},
    {.key = BoxKey::SaveChanges,
     .icon = BoxIcon::Question,
     .title = kSaveFile,
     .text = u"データは変更されています。保存しますか。",
     .buttons = Buttons::YesNoCancel,
     .preset = Answer::Yes},
}};

constexpr bool BoxesStandInKeyOrder() {
  for (std::size_t row = 0; row < kBoxCount; ++row) {
    if (static_cast<std::size_t>(kBoxes[row].key) != row) {
      return false;
    }
  }
  return true;
}
static_assert(BoxesStandInKeyOrder(), "a box is found by the number of its key");

std::vector<Answer> AnswersOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
      return {Answer::Yes, Answer::No};
    case Buttons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
    case Buttons::Ok:
      break;
  }
  return {Answer::Ok};
}

}  // namespace

bool AskYesNo(Dialogs& dialogs, const String& text, const BoxStyle& style, const String& title) {
  const Answer answer = dialogs.ShowBox(
      {.icon = style.icon, .title = title, .text = text, .buttons = style.buttons, .preset = style.preset});
  return answer == Answer::Yes || answer == Answer::Ok;
}

Box BoxOf(BoxKey key, std::initializer_list<String> arguments) {
  const BoxRow& row = kBoxes.at(static_cast<std::size_t>(key));
  return {.icon = row.icon,
          .title = String(row.title),
          .text = Filled(row.text, arguments),
          .buttons = AnswersOf(row.buttons),
          .preset = row.preset};
}

Answer Boxes::Show(BoxKey key, std::initializer_list<String> arguments) const {
  return dialogs_.ShowBox(BoxOf(key, arguments));
}

bool Boxes::Ask(BoxKey key, std::initializer_list<String> arguments) const {
  const Box box = BoxOf(key, arguments);
  return AskYesNo(dialogs_, box.text, {.icon = box.icon, .buttons = box.buttons, .preset = box.preset},
                  box.title);
}

bool Boxes::ConfirmUpload() const { return Ask(BoxKey::ModelMatches) && Ask(BoxKey::StartUpload); }

void Boxes::ShowCommFailure() const { Show(BoxKey::CommFailure); }

}  // namespace korva
