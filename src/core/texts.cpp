#include "core/texts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace korva {
namespace {

constexpr std::size_t kTextCount = static_cast<std::size_t>(TextKey::kCount);

struct TextRow {
  TextKey key;
  StringView japanese;
  StringView english = {};  ///< empty: as in Japanese
};

constexpr std::array<TextRow, kTextCount> kTexts = {{
    {.key = TextKey::File, .japanese = u"ﾌｧｲﾙ", .english = u"File"},
    {.key = TextKey::Input, .japanese = u"入力", .english = u"Input"},
    {.key = TextKey::Output, .japanese = u"出力", .english = u"Output"},
    {.key = TextKey::Output1, .japanese = u"出力(1)", .english = u"Output(1)"},
    {.key = TextKey::Output2, .japanese = u"出力(2)", .english = u"Output(2)"},
    {.key = TextKey::Linearizer, .japanese = u"ﾘﾆｱﾗｲｻﾞ", .english = u"Linearizer"},
    {.key = TextKey::TcTable, .japanese = u"TC TBL"},
    {.key = TextKey::RtdTable, .japanese = u"RTD TBL"},
    {.key = TextKey::Filter, .japanese = u"ﾌｨﾙﾀ", .english = u"Filter"},
    {.key = TextKey::Alarm, .japanese = u"警報", .english = u"Alarm"},
    {.key = TextKey::Cjm, .japanese = u"CJM", .english = u"CJM"},
    {.key = TextKey::DipSwitch, .japanese = u"Dipｽｲｯﾁ", .english = u"DipSW"},
    {.key = TextKey::Modbus, .japanese = u"Modbus", .english = u"Modbus"},
    {.key = TextKey::Port, .japanese = u"ﾎﾟｰﾄ", .english = u"Port"},
    {.key = TextKey::IoCheck, .japanese = u"I/O ﾁｪｯｸ", .english = u"I/O check"},
    {.key = TextKey::Model, .japanese = u"機種名", .english = u"Model"},
    {.key = TextKey::FindModel, .japanese = u"機種・種類を検索", .english = u"Find model or kind"},
    {.key = TextKey::Author, .japanese = u"作者名", .english = u"Author"},
    {.key = TextKey::Directory, .japanese = u"ﾃﾞｨﾚｸﾄﾘ名", .english = u"Directory"},
    {.key = TextKey::FileName, .japanese = u"ファイル名", .english = u"File name"},
    {.key = TextKey::Memo, .japanese = u"メモ", .english = u"Notes"},
    {.key = TextKey::Upload, .japanese = u"アップロード", .english = u"UPLOAD"},
    {.key = TextKey::Download, .japanese = u"ダウンロード", .english = u"DOWNLOAD"},
    {.key = TextKey::Open, .japanese = u"ファイルを開く", .english = u"OPEN"},
    {.key = TextKey::Save, .japanese = u"ファイルに保存", .english = u"SAVE"},
    {.key = TextKey::Check, .japanese = u"設定値ﾁｪｯｸ", .english = u"CHECK"},
    {.key = TextKey::New, .japanese = u"新規作成", .english = u"NEW"},
    {.key = TextKey::Exit, .japanese = u"終了", .english = u"EXIT"},
    {.key = TextKey::Row, .japanese = u"行", .english = u"Row"},
    {.key = TextKey::Column, .japanese = u"列", .english = u"Column"},
    {.key = TextKey::NewValue, .japanese = u"変更内容", .english = u"Content"},
    {.key = TextKey::OpenCsv, .japanese = u"csvﾌｧｲﾙを開く", .english = u"Open *.csv"},
    {.key = TextKey::SaveCsv, .japanese = u"csvﾌｧｲﾙに保存", .english = u"Save *.csv"},
    {.key = TextKey::Modify, .japanese = u"変更する", .english = u"Modify"},
    {.key = TextKey::Cancel, .japanese = u"中止", .english = u"Cancel"},
    {.key = TextKey::ChangeOfValue, .japanese = u"値の変更", .english = u"Modification of value"},
    {.key = TextKey::OutputForced, .japanese = u"出力を強制中", .english = u"OUTPUT FORCED"},
    {.key = TextKey::CloseAtPause,
     .japanese = u"終了は保留中です。通信の次の区切りでﾌﾟﾛｸﾞﾗﾑを終了します。",
     .english = u"The close request is held: the program ends at the next pause of the line."},
    {.key = TextKey::CloseAtEnd,
     .japanese = u"終了は保留中です。この処理が正常に終わるとﾌﾟﾛｸﾞﾗﾑを終了します。",
     .english = u"The close request is held: the program ends when this operation has ended well."},
    {.key = TextKey::CloseAtOff,
     .japanese = u"終了は保留中です。OFFで出力の強制を終えるとﾌﾟﾛｸﾞﾗﾑを終了します。",
     .english = u"The close request is held: the program ends when OFF has let the output go."},
    {.key = TextKey::TableUnsaved,
     .japanese = u"ﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）",
     .english = u"The linearizer table comes from a csv file and is not saved with the settings"},
    {.key = TextKey::SensorTableUnsaved,
     .japanese = u"ｾﾝｻのﾃｰﾌﾞﾙはcsvﾌｧｲﾙの値です（設定ファイルに未保存）",
     .english = u"The sensor table comes from a csv file and is not saved with the settings"},
    {.key = TextKey::EditNotTaken,
     .japanese = u"「変更する」を押していない値は、ﾁｪｯｸ･ﾀﾞｳﾝﾛｰﾄﾞ･保存に含まれません: ",
     .english = u"A value that was not confirmed with Modify is not checked, sent or saved: "},
    {.key = TextKey::NotPlain,
     .japanese = u"数値でないﾃﾞｰﾀは、ﾀﾞｳﾝﾛｰﾄﾞでこのまま送信されます: ",
     .english = u"No plain numbers, a download sends them as they stand: "},
    {.key = TextKey::SentAsTyped,
     .japanese = u"数値でないﾃﾞｰﾀを、このまま送信しました: ",
     .english = u"No plain numbers, sent as they stand: "},
    {.key = TextKey::NotPasted,
     .japanese = u"貼り付けた値のうち{1}個は、表の範囲外のため取り込んでいません",
     .english = u"{1} of the pasted values lie beyond the table and were left out"},
    {.key = TextKey::NotKept,
     .japanese = u"保存したﾌｧｲﾙを開いても、次の内容は元に戻りません: ",
     .english = u"The saved file will not give these back: "},
    {.key = TextKey::MemoLine, .japanese = u"メモの行", .english = u"Notes, line"},
    {.key = TextKey::NoTable,
     .japanese = u"変換器にﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙは保存されていません。",
     .english = u"The device holds no linearizer table."},
    {.key = TextKey::TableNotRead,
     .japanese = u"変換器のﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙを読み込めませんでした。",
     .english = u"The device's linearizer table could not be read."},
    {.key = TextKey::ChangeCjm, .japanese = u"CJM交換", .english = u"Change CJM"},
    {.key = TextKey::CheckTable, .japanese = u"ﾁｪｯｸ", .english = u"CHECK"},
    {.key = TextKey::WriteIn, .japanese = u"書込み", .english = u"WRITE IN"},
    {.key = TextKey::ReadOut, .japanese = u"読み出し"},
    {.key = TextKey::TableBar, .japanese = u"ﾃｰﾌﾞﾙ転送", .english = u"Table"},
    {.key = TextKey::SystemReset, .japanese = u"ｼｽﾃﾑ ﾘｾｯﾄ"},
    {.key = TextKey::Curve, .japanese = u"曲線", .english = u"Curve"},
    {.key = TextKey::UserTable, .japanese = u"ﾃｰﾌﾞﾙ", .english = u"Table"},
    {.key = TextKey::TablePitch, .japanese = u"ﾃｰﾌﾞﾙﾋﾟｯﾁ"},
    {.key = TextKey::TableBase, .japanese = u"ﾃｰﾌﾞﾙ最小温度"},
    {.key = TextKey::TableSize, .japanese = u"ﾃｰﾌﾞﾙｻｲｽﾞ"},
    {.key = TextKey::Range, .japanese = u"ﾚﾝｼﾞ"},
    {.key = TextKey::Default, .japanese = u"ﾃﾞﾌｫﾙﾄ", .english = u"DEFAULT"},
    {.key = TextKey::SensorCompensation, .japanese = u"ｾﾝｻ補正", .english = u"Sensor compensation"},
    {.key = TextKey::ZeroCompensation, .japanese = u"ｾﾞﾛ点補正値"},
    {.key = TextKey::SpanCompensation, .japanese = u"ｽﾊﾟﾝ点補正値"},
    {.key = TextKey::LineResistanceCompensation, .japanese = u"線路抵抗補償"},
    {.key = TextKey::ZeroPositionCalibration, .japanese = u"0% ﾎﾟｼﾞｼｮﾝ校正"},
    {.key = TextKey::SpanPositionCalibration, .japanese = u"100% ﾎﾟｼﾞｼｮﾝ校正"},
    {.key = TextKey::Execute, .japanese = u"実行"},
    {.key = TextKey::Reset, .japanese = u"ﾘｾｯﾄ"},
    {.key = TextKey::ResetFirst, .japanese = u"ﾘｾｯﾄ 1", .english = u"RESET 1"},
    {.key = TextKey::ResetSecond, .japanese = u"ﾘｾｯﾄ 2", .english = u"RESET 2"},
    {.key = TextKey::ResetCalibration, .japanese = u"校正 ﾘｾｯﾄ"},
    {.key = TextKey::Transmitting, .japanese = u"転送中", .english = u"Transmitting"},
    {.key = TextKey::TransferBar, .japanese = u"設定値", .english = u"Settings"},
    {.key = TextKey::Setting, .japanese = u"設定", .english = u"Setting"},
    {.key = TextKey::Monitor, .japanese = u"表示", .english = u"Monitor"},
    {.key = TextKey::CountSet, .japanese = u"設定", .english = u"COUNT SET"},
    {.key = TextKey::CountMonitor, .japanese = u"表示", .english = u"MONITOR"},
    {.key = TextKey::Output1Monitor, .japanese = u"第1出力表示", .english = u"Monitor"},
    {.key = TextKey::Output2Monitor, .japanese = u"第2出力表示", .english = u"Monitor"},
    {.key = TextKey::Monitoring, .japanese = u"表示", .english = u"Monitoring"},
    {.key = TextKey::Waiting, .japanese = u"お待ち下さい", .english = u"Reading Data."},
    {.key = TextKey::FirstAlarm, .japanese = u"第1警報", .english = u"Alarm 1"},
    {.key = TextKey::SecondAlarm, .japanese = u"第2警報", .english = u"Alarm 2"},
    {.key = TextKey::ZeroSpanAdjustment, .japanese = u"ｾﾞﾛ/ｽﾊﾟﾝ調整"},
    {.key = TextKey::FirstOutput, .japanese = u"第1出力"},
    {.key = TextKey::SecondOutput, .japanese = u"第2出力"},
    {.key = TextKey::FineZero, .japanese = u"ｾﾞﾛ点微調整"},
    {.key = TextKey::FineSpan, .japanese = u"ｽﾊﾟﾝ微調整"},
    {.key = TextKey::Details, .japanese = u"詳細設定"},
    {.key = TextKey::OpenDetails, .japanese = u"詳細設定"},
    {.key = TextKey::CloseDetails, .japanese = u"閉じる"},
    {.key = TextKey::Threshold, .japanese = u"ｼｷｲ値", .english = u"Threshold"},
    {.key = TextKey::SetCutOut, .japanese = u"ｶｯﾄｱｳﾄ設定", .english = u"Set cut-out"},
    {.key = TextKey::DisableCutOut, .japanese = u"ｶｯﾄｱｳﾄ解除", .english = u"No cut-out"},
    {.key = TextKey::InputFrequency, .japanese = u"入力 周波数"},
    {.key = TextKey::Maximum, .japanese = u"最大"},
    {.key = TextKey::Minimum, .japanese = u"最小"},
    {.key = TextKey::OptionYes, .japanese = u"有"},
    {.key = TextKey::OptionNo, .japanese = u"無"},
    {.key = TextKey::AtZeroPercent, .japanese = u"0%"},
    {.key = TextKey::AtHundredPercent, .japanese = u"100%"},
    {.key = TextKey::UpperLimit, .japanese = u"上限"},
    {.key = TextKey::LowerLimit, .japanese = u"下限"},
    {.key = TextKey::ResettingSystem, .japanese = u"ｼｽﾃﾑをﾘｾｯﾄしています。\n\rしばらくお待ち下さい"},
    {.key = TextKey::ReasonMissing,
     .japanese = u"ﾌｧｲﾙまたはﾌｫﾙﾀﾞが見つかりません。",
     .english = u"The file or folder was not found."},
    {.key = TextKey::ReasonNotPermitted,
     .japanese = u"ｱｸｾｽする権限がありません。",
     .english = u"You have no permission."},
    {.key = TextKey::ReasonFolder, .japanese = u"ﾌｧｲﾙではなくﾌｫﾙﾀﾞです。", .english = u"It is a folder."},
    {.key = TextKey::ReasonNoSpace,
     .japanese = u"ﾃﾞｨｽｸの空き容量が足りません。",
     .english = u"The disk is full."},
    {.key = TextKey::ReasonReadOnly,
     .japanese = u"ﾃﾞｨｽｸは読み取り専用です。",
     .english = u"The disk is read-only."},
    {.key = TextKey::ReasonInUse,
     .japanese = u"ほかのﾌﾟﾛｸﾞﾗﾑが使用中です。",
     .english = u"Another program is using it."},
    {.key = TextKey::ReasonTooLarge,
     .japanese = u"ﾌｧｲﾙが大きすぎます。",
     .english = u"The file is too large."},
    {.key = TextKey::PortNotOpen,
     .japanese = u"COM {1}（{2}）を開けません。{3}",
     .english = u"COM {1} ({2}) can't be opened. {3}"},
    {.key = TextKey::PortMissing,
     .japanese = u"ﾎﾟｰﾄが見つかりません。",
     .english = u"The port was not found."},
    {.key = TextKey::PortGroup,
     .japanese = u"ｸﾞﾙｰﾌﾟ {1} に加わり、ﾛｸﾞｲﾝし直してください。",
     .english = u" Join the group {1} and log in again."},
    {.key = TextKey::AwaitingItem,
     .japanese = u"応答待ち: Group {1}, Item {2}（{3}/{4} 回目）COM {5}, {6} bps, {7} 秒",
     .english = u"Awaiting group {1}, item {2} (try {3} of {4}) on COM {5} at {6} bps, {7} s"},
    {.key = TextKey::AwaitingReply,
     .japanese = u"応答待ち: COM {1}, {2} bps, {3} 秒",
     .english = u"Awaiting a reply on COM {1} at {2} bps, {3} s"},
    {.key = TextKey::InputTypeUnread,
     .japanese = u"変換器の入力ﾀｲﾌﾟ(Item10)を読み込めなかったので、ﾀﾞｳﾝﾛｰﾄﾞを中止しました。",
     .english = u"The download was given up: the device's input type (item 10) could not be read."},
    {.key = TextKey::StageDate,
     .japanese = u"EEPROM: ﾀﾞｳﾝﾛｰﾄﾞ日付を書き込んでいます",
     .english = u"EEPROM: writing the date of the download"},
    {.key = TextKey::StageInputType,
     .japanese = u"EEPROM: 入力ﾀｲﾌﾟを書き込んでいます",
     .english = u"EEPROM: writing the input type"},
    {.key = TextKey::StageOutputType,
     .japanese = u"EEPROM: 出力ﾀｲﾌﾟを書き込んでいます",
     .english = u"EEPROM: writing the output type"},
    {.key = TextKey::StageModelText,
     .japanese = u"EEPROM: 形式を書き込んでいます",
     .english = u"EEPROM: writing the model text"},
    {.key = TextKey::StageCalibration,
     .japanese = u"EEPROM: 校正値を書き込んでいます",
     .english = u"EEPROM: writing the calibration"},
    {.key = TextKey::StageCurve,
     .japanese = u"EEPROM: ｾﾝｻのｶｰﾌﾞ {1} を書き込んでいます",
     .english = u"EEPROM: writing the sensor's curve {1}"},
    {.key = TextKey::StageLinearizer,
     .japanese = u"EEPROM: ﾘﾆｱﾗｲｻﾞを書き込んでいます",
     .english = u"EEPROM: writing the linearizer"},
    {.key = TextKey::StageReadLinearizer,
     .japanese = u"EEPROM: ﾘﾆｱﾗｲｻﾞを読み込んでいます",
     .english = u"EEPROM: reading the linearizer"},
    {.key = TextKey::InputBankUnfinished,
     .japanese =
         u"EEPROM: 入力の校正値が入力ﾀｲﾌﾟに合っていません。別の校正値を使う入力ﾀｲﾌﾟをﾀﾞｳﾝﾛｰﾄﾞしてから、"
         u"目的の入力ﾀｲﾌﾟをﾀﾞｳﾝﾛｰﾄﾞしてください。",
     .english = u"EEPROM: the input's calibration may not be that of its type. Download an input type with "
                u"another calibration, then the one that you want."},
    {.key = TextKey::OutputBankUnfinished,
     .japanese = u"EEPROM: 出力の校正値が出力ﾀｲﾌﾟに合っていません。別の出力ﾀｲﾌﾟをﾀﾞｳﾝﾛｰﾄﾞしてから、"
                 u"目的の出力ﾀｲﾌﾟをﾀﾞｳﾝﾛｰﾄﾞしてください。",
     .english =
         u"EEPROM: the output's calibration may not be that of its type. Download another output type, "
         u"then the one that you want."},
    {.key = TextKey::ModelTextUnfinished,
     .japanese = u"EEPROM: 形式の書き込みが途中で終わりました。正しい形式は {1} です。",
     .english = u"EEPROM: the model text was not written to its end. It should be {1}."},
    {.key = TextKey::BlocksDone, .japanese = u"{1}: {2}/{3} ﾌﾞﾛｯｸ", .english = u"{1}: {2} of {3} blocks"},
    {.key = TextKey::TimeLeft, .japanese = u"、残り {1} 分 {2} 秒", .english = u", {1} min {2} s left"},
    {.key = TextKey::CopyRows, .japanese = u"ｺﾋﾟｰ", .english = u"COPY"},
    {.key = TextKey::ClosePanel, .japanese = u"閉じる", .english = u"CLOSE"},
    {.key = TextKey::LineView, .japanese = u"通信ﾓﾆﾀ", .english = u"Line view"},
    {.key = TextKey::LineTime, .japanese = u"時間 (秒)", .english = u"Time (s)"},
    {.key = TextKey::LineKind, .japanese = u"方向", .english = u"Direction"},
    {.key = TextKey::LineText, .japanese = u"内容", .english = u"Text"},
    {.key = TextKey::LineSent, .japanese = u"送信", .english = u"sent"},
    {.key = TextKey::LineReceived, .japanese = u"受信", .english = u"received"},
    {.key = TextKey::LineNotSent, .japanese = u"送信不可", .english = u"not sent"},
    {.key = TextKey::LineSilent, .japanese = u"応答なし", .english = u"no reply"},
    {.key = TextKey::SaveLine, .japanese = u"ﾌｧｲﾙに保存", .english = u"SAVE"},
    {.key = TextKey::Comparison, .japanese = u"比較", .english = u"Comparison"},
    {.key = TextKey::Compare, .japanese = u"変換器と比較", .english = u"Compare with device"},
    {.key = TextKey::CompareFile, .japanese = u"ﾌｧｲﾙと比較", .english = u"Compare with file"},
    {.key = TextKey::CompareUnbegun,
     .japanese = u"比較はまだありません。",
     .english = u"Nothing was compared yet."},
    {.key = TextKey::CompareBroken,
     .japanese = u"{1}: 最後まで読み込めなかったので、比較していません。",
     .english = u"{1}: not compared, since not all could be read."},
    {.key = TextKey::CompareOtherModel,
     .japanese = u"{1}: ﾌｧｲﾙは別の機種のものなので、比較していません。",
     .english = u"{1}: not compared, since the file is of another model."},
    {.key = TextKey::CompareSame, .japanese = u"{1}: 違いはありません。", .english = u"{1}: no differences."},
    {.key = TextKey::CompareDiffers,
     .japanese = u"{1}: {2} 項目が異なります。",
     .english = u"{1}: {2} values differ."},
    {.key = TextKey::ComparePage, .japanese = u"画面", .english = u"Page"},
    {.key = TextKey::CompareInDevice, .japanese = u"変換器", .english = u"Device"},
    {.key = TextKey::CompareInFile, .japanese = u"ﾌｧｲﾙ", .english = u"File"},
    {.key = TextKey::CompareMark, .japanese = u"比較したものと異なります", .english = u"Differs"},
    {.key = TextKey::Report, .japanese = u"転送ﾚﾎﾟｰﾄ", .english = u"Transfer report"},
    {.key = TextKey::ReportOfUpload, .japanese = u"ｱｯﾌﾟﾛｰﾄﾞ {1}: ", .english = u"Upload, {1}: "},
    {.key = TextKey::ReportOfDownload, .japanese = u"ﾀﾞｳﾝﾛｰﾄﾞ {1}: ", .english = u"Download, {1}: "},
    {.key = TextKey::ReportOfTableRead,
     .japanese = u"ﾃｰﾌﾞﾙの読み出し {1}: ",
     .english = u"Table read out, {1}: "},
    {.key = TextKey::ReportOfTableWrite,
     .japanese = u"ﾃｰﾌﾞﾙの書込み {1}: ",
     .english = u"Table written in, {1}: "},
    {.key = TextKey::ReportRuns, .japanese = u"転送中", .english = u"running"},
    {.key = TextKey::ReportDone, .japanese = u"完了", .english = u"done"},
    {.key = TextKey::ReportBroken, .japanese = u"中止", .english = u"broken off"},
    {.key = TextKey::ReportUnbegun,
     .japanese = u"転送はまだありません。",
     .english = u"There was no transfer yet."},
    {.key = TextKey::ReportItem, .japanese = u"Item", .english = u"Item"},
    {.key = TextKey::ReportCaption, .japanese = u"名称", .english = u"Name"},
    {.key = TextKey::ReportSent, .japanese = u"送信", .english = u"Sent"},
    {.key = TextKey::ReportAnswered, .japanese = u"応答", .english = u"Answered"},
    {.key = TextKey::ReportProof, .japanese = u"確認", .english = u"Proof"},
    {.key = TextKey::LinkTest, .japanese = u"通信ﾃｽﾄ", .english = u"Link test"},
    {.key = TextKey::DeviceMode, .japanese = u"ﾓｰﾄﾞ", .english = u"Mode"},
    {.key = TextKey::DeviceReset, .japanese = u"ﾃﾞﾌｫﾙﾄ値に設定", .english = u"Set to default"},
    {.key = TextKey::UnitCode, .japanese = u"単位", .english = u"Unit"},
    {.key = TextKey::DeviceMemory, .japanese = u"EEPROM", .english = u"EEPROM"},
    {.key = TextKey::DeviceSystem, .japanese = u"ｼｽﾃﾑﾊﾞｰｼﾞｮﾝ", .english = u"System version"},
    {.key = TextKey::DeviceType, .japanese = u"変換器の現在値", .english = u"Present in the device"},
    {.key = TextKey::ProofRead, .japanese = u"読出し", .english = u"read"},
    {.key = TextKey::ProofCollated,
     .japanese = u"照合（送信なし）",
     .english = u"checked against the page, nothing sent"},
    {.key = TextKey::ProofCompared, .japanese = u"応答と照合", .english = u"answer compared"},
    {.key = TextKey::ProofReadBack, .japanese = u"読み直して照合", .english = u"read again and compared"},
    {.key = TextKey::ProofHeld,
     .japanese = u"読み直し（変換器の値）",
     .english = u"read again, the device's own value"},
    {.key = TextKey::ProofEchoed, .japanese = u"応答あり", .english = u"answered, not compared"},
    {.key = TextKey::ProofSkipped, .japanese = u"送信なし: {1}", .english = u"not sent: {1}"},
    {.key = TextKey::ProofNotReached, .japanese = u"未送信（中止）", .english = u"not sent, it ended before"},
    {.key = TextKey::ProofSilent, .japanese = u"応答なし", .english = u"no answer"},
    {.key = TextKey::ProofRefused, .japanese = u"拒否", .english = u"refused"},
    {.key = TextKey::ProofDiffers, .japanese = u"不一致", .english = u"another answer"},
    {.key = TextKey::SkipNoValue, .japanese = u"設定値なし", .english = u"no value"},
    {.key = TextKey::SkipNeedless, .japanese = u"変換器で使用しない", .english = u"not used by the device"},
    {.key = TextKey::SkipNotOfUse,
     .japanese = u"現在の選択では使用しない",
     .english = u"of no use with the present choices"},
    {.key = TextKey::SkipNoCode, .japanese = u"選択肢なし", .english = u"nothing to choose"},
    {.key = TextKey::StepSilent,
     .japanese = u"Item {1} {2}: 変換器の応答がありませんでした。",
     .english = u"Item {1} {2}: the device gave no answer."},
    {.key = TextKey::StepNotRead,
     .japanese = u"Item {1} {2}: 変換器は読出しを拒否しました（応答「{3}」）。",
     .english = u"Item {1} {2}: the device refused to be read (it answered \"{3}\")."},
    {.key = TextKey::StepRefused,
     .japanese = u"Item {1} {2}: 変換器は「{3}」を拒否しました（応答「{4}」）。",
     .english = u"Item {1} {2}: the device refused \"{3}\" (it answered \"{4}\")."},
    {.key = TextKey::StepDiffers,
     .japanese = u"Item {1} {2}: 「{3}」に対し、変換器は「{4}」と応答しました。",
     .english = u"Item {1} {2}: to \"{3}\" the device answered \"{4}\"."},
    {.key = TextKey::StepUnlike,
     .japanese = u"Item {1} {2}: 画面は「{3}」ですが、変換器は「{4}」です。",
     .english = u"Item {1} {2}: the page has \"{3}\", the device \"{4}\"."},
    {.key = TextKey::StepMisread,
     .japanese = u"Item {1} {2}: 変換器の応答「{3}」は読み取れません。",
     .english = u"Item {1} {2}: the device's answer \"{3}\" can't be read."},
    {.key = TextKey::StepsMore, .japanese = u" ほか {1} 項目。", .english = u" {1} more failed."},
    {.key = TextKey::Undo, .japanese = u"元に戻す", .english = u"UNDO"},
    {.key = TextKey::Redo, .japanese = u"やり直し", .english = u"REDO"},
    {.key = TextKey::SettingsReport, .japanese = u"設定一覧", .english = u"Settings"},
    {.key = TextKey::SavePdf, .japanese = u"PDFに保存", .english = u"Save as PDF"},
    {.key = TextKey::Print, .japanese = u"印刷", .english = u"Print"},
    {.key = TextKey::SettingsValue, .japanese = u"設定値", .english = u"Value"},
    {.key = TextKey::SettingsUnit, .japanese = u"単位", .english = u"Unit"},
    {.key = TextKey::SettingsDate, .japanese = u"日付", .english = u"Date"},
    {.key = TextKey::SettingsPage, .japanese = u"{1} / {2}"},
    {.key = TextKey::PdfSaved, .japanese = u"PDFに保存しました: {1}", .english = u"Saved as PDF: {1}"},
    {.key = TextKey::PdfNotSaved,
     .japanese = u"PDFに保存できませんでした: {1}",
     .english = u"Could not be saved as PDF: {1}"},
    {.key = TextKey::NotDrawn,
     .japanese = u"ﾍﾟｰｼﾞを描画できませんでした。",
     .english = u"The pages could not be drawn."},
    {.key = TextKey::NotPrinted, .japanese = u"印刷できませんでした。", .english = u"Could not be printed."},
    {.key = TextKey::HelpRange, .japanese = u"範囲: {1} ～ {2}", .english = u"Range: {1} to {2}"},
    {.key = TextKey::HelpLength, .japanese = u"{1} 文字以内", .english = u"At most {1} characters"},
    {.key = TextKey::HelpFixed, .japanese = u"この機種では変更できません", .english = u"Fixed on this model"},
    {.key = TextKey::HelpLive, .japanese = u"変換器の現在の値", .english = u"Live value of the device"},
    {.key = TextKey::HelpOutside, .japanese = u"範囲外の値です", .english = u"Outside its range"},
    {.key = TextKey::Watch, .japanese = u"現在値ﾓﾆﾀ", .english = u"Live values"},
    {.key = TextKey::WatchMinimum, .japanese = u"最小", .english = u"Min"},
    {.key = TextKey::WatchMaximum, .japanese = u"最大", .english = u"Max"},
    {.key = TextKey::WatchAge, .japanese = u"{1} 秒前", .english = u"{1} s ago"},
    {.key = TextKey::WatchSilent, .japanese = u"応答なし {1} 秒", .english = u"No answer for {1} s"},
    {.key = TextKey::WatchNothing,
     .japanese = u"I/Oﾁｪｯｸの測定を開始すると、現在の値を表示します。",
     .english = u"Shows the live values while the monitor runs."},
    {.key = TextKey::WatchAnew, .japanese = u"最小/最大をｸﾘｱ", .english = u"Clear min/max"},
    {.key = TextKey::RecordStart, .japanese = u"CSVに記録", .english = u"Record to CSV"},
    {.key = TextKey::RecordStop, .japanese = u"記録停止", .english = u"Stop recording"},
    {.key = TextKey::RecordRuns, .japanese = u"記録中: {1}", .english = u"Recording: {1}"},
    {.key = TextKey::RecordFailed, .japanese = u"記録できません: {1}", .english = u"Recording failed: {1}"},
    {.key = TextKey::Com1, .japanese = u"COM 1"},
    {.key = TextKey::Com2, .japanese = u"COM 2"},
    {.key = TextKey::Com3, .japanese = u"COM 3"},
    {.key = TextKey::Com4, .japanese = u"COM 4"},
    {.key = TextKey::OutputButton, .japanese = u"OUTPUT"},
    {.key = TextKey::Off, .japanese = u"OFF"},
    {.key = TextKey::On, .japanese = u"ON"},
    {.key = TextKey::Start, .japanese = u"START"},
    {.key = TextKey::Stop, .japanese = u"STOP"},
    {.key = TextKey::Ok, .japanese = u"OK"},
    {.key = TextKey::Version, .japanese = u"KORVA Ver" KORVA_VERSION},
}};

constexpr bool TextsStandInKeyOrder() {
  for (std::size_t row = 0; row < kTextCount; ++row) {
    if (static_cast<std::size_t>(kTexts[row].key) != row) {
      return false;
    }
  }
  return true;
}
static_assert(TextsStandInKeyOrder(), "a caption is found by the number of its key");

struct CaptionPair {
  String japanese;
  String english;
};

std::array<CaptionPair, kTextCount> MakeCaptions() {
  std::array<CaptionPair, kTextCount> captions;
  for (std::size_t row = 0; row < kTextCount; ++row) {
    captions[row].japanese = kTexts[row].japanese;
    captions[row].english = kTexts[row].english.empty() ? kTexts[row].japanese : kTexts[row].english;
  }
  return captions;
}

constexpr std::array kReasons = {
    std::pair(SystemReason::Case::Missing, TextKey::ReasonMissing),
    std::pair(SystemReason::Case::NotPermitted, TextKey::ReasonNotPermitted),
    std::pair(SystemReason::Case::Folder, TextKey::ReasonFolder),
    std::pair(SystemReason::Case::NoSpace, TextKey::ReasonNoSpace),
    std::pair(SystemReason::Case::ReadOnly, TextKey::ReasonReadOnly),
    std::pair(SystemReason::Case::InUse, TextKey::ReasonInUse),
    std::pair(SystemReason::Case::TooLarge, TextKey::ReasonTooLarge),
};

constexpr StringView kCfgFilter = u"KORVAで作成されたテキストファイル (*.cfg)|*.cfg|";
constexpr StringView kTextFilter = u"テキストファイル (*.txt)|*.txt|";
constexpr StringView kDefFilter = u"プログラム管理ファイル (*.def)|*.def";
constexpr StringView kAllFilter = u"すべてのファイル (*.*)|*.*|";

}  // namespace

const String& CaptionText(TextKey key, Language language) {
  static const std::array<CaptionPair, kTextCount> captions = MakeCaptions();
  const CaptionPair& pair = captions.at(static_cast<std::size_t>(key));
  return language == Language::English ? pair.english : pair.japanese;
}

String ReasonText(const SystemReason& reason, Language language) {
  const auto* const row = std::find_if(kReasons.begin(), kReasons.end(),
                                       [&](const auto& one) { return one.first == reason.what; });
  return row == kReasons.end() ? reason.words : CaptionText(row->second, language);
}

const String& CannotEndText() {
  static const String text = u"ﾀﾞｳﾝﾛｰﾄﾞの途中でﾌﾟﾛｸﾞﾗﾑを終了することはできません。";
  return text;
}

const String& ColdJunctionInfoText() {
  static const String text = u"温度補正値を変更します。\n\rCJMに添付されているﾃﾞｰﾀを入力してください。";
  return text;
}

const String& TableHintText(StringView kind) {
  static const String thermocouple = u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、熱電対のﾃｰﾌﾞﾙを作成して下さい。";
  static const String resistance_thermometer = u"「ﾘﾆｱﾗｲｻﾞ」ﾀﾌﾞを選択し、測温体のﾃｰﾌﾞﾙを作成して下さい。";
  static const String none;
  if (kind == u"T") {
    return thermocouple;
  }
  return kind == u"R" ? resistance_thermometer : none;
}

const String& CsvFilter() {
  static const String filter(u"カンマ区切りのファイル (*.csv)|*.csv|");
  return filter;
}

const String& CfgFilter() {
  static const String filter(kCfgFilter);
  return filter;
}

const String& TextFilter() {
  static const String filter(kTextFilter);
  return filter;
}

const String& PdfFilter() {
  static const String filter(u"PDFファイル (*.pdf)|*.pdf|");
  return filter;
}

const String& DefFilter() {
  static const String filter = String(kCfgFilter).append(kAllFilter).append(kDefFilter);
  return filter;
}

const String& OpenCfgFilter() {
  static const String filter = String(kDefFilter).append(u"|").append(kCfgFilter).append(kAllFilter);
  return filter;
}

}  // namespace korva
