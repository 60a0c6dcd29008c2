#include "tables/eeprom_stage.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "tables/calibration.h"
#include "tables/memory_map.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr char16_t kFieldEnd = u'-';  // of the model text's fields

/// What belongs to a model's input type, and follows it.
enum class Belonging { Nothing, Calibration, ThermocoupleCurve, ResistanceCurve };
struct InputModel {
  StringView head;  ///< of the model text
  Belonging belonging;
};
constexpr std::array kInputModels = {
    InputModel{.head = u"Z2WT", .belonging = Belonging::ThermocoupleCurve},
    InputModel{.head = u"Z2WT2", .belonging = Belonging::ThermocoupleCurve},
    InputModel{.head = u"Z8WT", .belonging = Belonging::ThermocoupleCurve},
    InputModel{.head = u"Z2WR", .belonging = Belonging::ResistanceCurve},
    InputModel{.head = u"Z2WR2", .belonging = Belonging::ResistanceCurve},
    InputModel{.head = u"Z8WR", .belonging = Belonging::ResistanceCurve},
    InputModel{.head = u"Z2WV", .belonging = Belonging::Calibration},
    InputModel{.head = u"Z2WV2", .belonging = Belonging::Calibration},
    InputModel{.head = u"Z2WF", .belonging = Belonging::Calibration},
    InputModel{.head = u"Z2WF2", .belonging = Belonging::Calibration},
    InputModel{.head = u"Z8WV", .belonging = Belonging::Calibration},
    InputModel{.head = u"Z8WF", .belonging = Belonging::Calibration},
};

/// Models whose output type stands in the memory.
struct OutputModel {
  StringView def_files;
  int code_address;
  std::optional<int> bank = {};  ///< of the calibration; none: the type's own
};
constexpr std::array kOutputModels = {
    OutputModel{.def_files = u"Z2W?.def", .code_address = memory::kOutputCode},
    OutputModel{.def_files = u"Z2W?2.def", .code_address = memory::kOutputCode},
    OutputModel{.def_files = u"Z8W?.def", .code_address = memory::kOutputCodeOfThird, .bank = 2},
    OutputModel{.def_files = u"Z8W?2.def", .code_address = memory::kOutputCodeOfThird, .bank = 2},
};
constexpr std::array<StringView, 4> kLayoutB = {u"Z#WM.def", u"Z#WM2.def", u"Z#WR.def", u"Z#WR2.def"};

Belonging BelongingOf(StringView head) {
  const auto* const found = std::find_if(kInputModels.begin(), kInputModels.end(),
                                         [&](const InputModel& model) { return model.head == head; });
  return found == kInputModels.end() ? Belonging::Nothing : found->belonging;
}

std::optional<SensorKind> SensorOf(Belonging belonging) {
  switch (belonging) {
    case Belonging::ThermocoupleCurve:
      return SensorKind::Thermocouple;
    case Belonging::ResistanceCurve:
      return SensorKind::Resistance;
    default:
      return std::nullopt;
  }
}

/// nullptr for a model whose memory has no place for its output type.
const OutputModel* FindOutputModel(StringView def_file) {
  const auto* const found =
      std::find_if(kOutputModels.begin(), kOutputModels.end(),
                   [&](const OutputModel& model) { return IsLike(def_file, model.def_files); });
  return found == kOutputModels.end() ? nullptr : found;
}

OutputLayout LayoutOf(StringView def_file) {
  const bool b = std::any_of(kLayoutB.begin(), kLayoutB.end(),
                             [&](StringView pattern) { return IsLike(def_file, pattern); });
  return b ? OutputLayout::B : OutputLayout::A;
}

/// A row of a list of types as it goes into the memory.
struct TypeRow {
  int code = 0;
  int adc = 0;
  String text;
  String tag;
};

/// The row with this text; nothing without one, and for a row that lacks one of its numbers.
std::optional<TypeRow> FindType(const ChoiceList& list, const String& text) {
  const int row = list.FindText(text);
  if (row < 0 || !IsNumeric(list.Code(row)) ||
      (list.Has(&ListColumns::adc) && !IsNumeric(list.Cell(row, &ListColumns::adc)))) {
    return std::nullopt;
  }
  return TypeRow{.code = LeadingInteger(list.Code(row)),
                 .adc = LeadingInteger(list.Cell(row, &ListColumns::adc)),
                 .text = list.Text(row),
                 .tag = list.Cell(row, &ListColumns::tag)};
}

/// The model text before its first and behind its last field end.
String HeadOf(const String& model_text) { return Trimmed(model_text.substr(0, model_text.find(kFieldEnd))); }

String TailOf(const String& model_text) {
  const std::size_t end = model_text.rfind(kFieldEnd);
  return end == String::npos ? String() : Trimmed(model_text.substr(end + 1));
}

}  // namespace

/// What the steps of one stage hand on.
struct EepromStage::Change {
  int adc_before = 0;
  String item10_before;
  String head = {};  ///< of the model text
  TypeRow input = {};
  TypeRow output = {};
  String output_tag = {};  ///< empty where the model text tells no output
};

struct EepromStage::Step {
  TextKey stage;
  Outcome (EepromStage::*run)(Change&);
  float share;  ///< of the whole stage, in percent, that is done then
};

std::span<const EepromStage::Step> EepromStage::Steps() {
  static constexpr std::array steps = {
      Step{.stage = TextKey::StageDate, .run = &EepromStage::StampDate, .share = 20},
      Step{.stage = TextKey::StageInputType, .run = &EepromStage::WriteInputType, .share = 40},
      Step{.stage = TextKey::StageOutputType, .run = &EepromStage::WriteOutputType, .share = 60},
      Step{.stage = TextKey::StageModelText, .run = &EepromStage::WriteModelText, .share = 80},
      Step{.stage = TextKey::StageCalibration, .run = &EepromStage::FollowTypes, .share = 100},
  };
  return steps;
}

EepromStage::EepromStage(ParameterPage& page)
    : page_(page),
      eeprom_(page.Line(), page.ItsProgram().Surroundings().code_page),
      notice_(page),
      unfinished_(page),
      curves_(page, eeprom_, notice_) {
  page_.Add(*this);
  eeprom_.OnBlock = [this](int address, const std::string& sent, bool good) {
    TellBlock(address, FromUtf8(sent), good);
  };
}

void EepromStage::TellBlock(int address, const String& sent, bool good) const {
  const String& reply = page_.Line().LastReply();
  const Evidence proved = sent.empty() ? Evidence::Read : Evidence::ReadBack;
  page_.TellStep({.what = TextKey::DeviceMemory,
                  .item = memory::AccessItem(),
                  .part = Ascii(std::to_string(address)),
                  .sent = sent,
                  .answered = reply.starts_with(u"D") ? reply.substr(1) : reply,
                  .evidence = good ? proved : EvidenceOfFailure(reply)});
}

bool EepromStage::EnterMemory() {
  const String answer = eeprom_.SelectEepromRetry(kItemRepeats, memory::AccessItem());
  page_.TellRead({.what = TextKey::DeviceMemory, .item = memory::AccessItem()}, answer);
  return !answer.empty();
}

String EepromStage::MissingCurve() const {
  const String model = page_.DefFile.substr(0, page_.DefFile.find(u'.'));
  const std::optional<SensorKind> kind = SensorOf(BelongingOf(model));
  const std::optional<TypeRow> type = FindType(page_.Def.ListOf(u"$I10"), page_.Item(kTypeItem));
  const CurveFile* const file = kind && type ? FindCurveFile(*kind, type->code) : nullptr;
  SystemReason reason;
  const FileStore& files = page_.ItsProgram().Surroundings().files;
  return file == nullptr || ReadTableFile(files, page_.AppPath, *file, reason) ? String()
                                                                               : String(file->name);
}

bool EepromStage::ReadDevice() {
  notice_.End();
  OutputTypeChanged = false;
  adc_before_ = ReadAdcType();
  if (adc_before_ == Eeprom::kFailed) {
    return false;
  }
  item10_before_ = ReadItem(u"10");
  if (item10_before_.empty()) {
    notice_.Begin(TextKey::InputTypeUnread);
    return false;
  }
  CheckItem11Changed();
  return true;
}

int EepromStage::ReadAdcType() {
  const int type =
      EnterMemory() ? LeadingInteger(eeprom_.EepReadNumber(memory::kAdcType, 1)) : Eeprom::kFailed;
  if (type == Eeprom::kFailed) {
    page_.Box().Show(BoxKey::AdcTypeUnreadable);
  }
  return type;
}

bool EepromStage::CheckItem11Changed() {
  item11_before_ = ReadItem(u"11");
  const bool same = item11_before_ == Trimmed(page_.Item(kRangeItem));
  if (!same) {
    OutputTypeChanged = true;
  }
  return same;
}

bool EepromStage::DownloadEepromStage(int adc_before, const String& item10_before) {
  page_.TransferBar.SetValue(0);
  if (!EnterMemory()) {
    page_.Box().Show(BoxKey::EepromModeNotEntered);
    return false;
  }
  Change change{.adc_before = adc_before, .item10_before = item10_before};
  const bool good = Finish(RunSteps(change));
  notice_.End();
  return good;
}

EepromStage::Outcome EepromStage::RunSteps(Change& change) {
  for (const Step& step : Steps()) {
    notice_.Begin(step.stage);
    const Outcome outcome = (this->*step.run)(change);
    if (outcome != Outcome::Good) {
      return outcome;
    }
    page_.TransferBar.SetValue(step.share);
  }
  return Outcome::Good;
}

bool EepromStage::Finish(Outcome outcome) {
  switch (outcome) {
    case Outcome::WriteFailed:
      page_.Box().Show(BoxKey::EepromWriteFailed);
      break;
    case Outcome::InputTypeUnknown:
      page_.Box().Show(BoxKey::InputTypeNumberInvalid);
      break;
    case Outcome::OutputTypeUnknown:
      page_.Box().Show(BoxKey::OutputTypeNumberInvalid);
      break;
    case Outcome::AdcTypeUnread:  // has shown its box
    case Outcome::Good:
      break;
  }
  unfinished_.Tell();
  page_.EnterMonitorMode();
  if (outcome == Outcome::WriteFailed || outcome == Outcome::AdcTypeUnread) {
    page_.TransferBar.SetValue(0);
  }
  return outcome == Outcome::Good;
}

EepromStage::Outcome EepromStage::StampDate(Change& change) {
  change.head = HeadOf(ReadModelText());
  return WrittenIf(!eeprom_.Failed() && WriteDownloadDate());
}

bool EepromStage::WriteDownloadDate() {
  const Date today = page_.ItsProgram().Loop().Today();
  return StoreNumber(eeprom_, memory::kYear, 2, static_cast<int>(today.year())) &&
         StoreNumber(eeprom_, memory::kMonth, 1, static_cast<int>(static_cast<unsigned>(today.month()))) &&
         StoreNumber(eeprom_, memory::kDay, 1, static_cast<int>(static_cast<unsigned>(today.day())));
}

EepromStage::Outcome EepromStage::WriteInputType(Change& change) {
  const std::optional<TypeRow> type = FindType(page_.Def.ListOf(u"$I10"), page_.Item(kTypeItem));
  if (!type) {
    page_.Box().Show(BoxKey::EepromDataInvalid, {u"Item10"});
    return Outcome::InputTypeUnknown;
  }
  change.input = *type;
  if (BelongingOf(change.head) == Belonging::Calibration) {
    unfinished_.input.Follow(ShortestText(change.adc_before), ShortestText(type->adc));
  }
  return WrittenIf(StoreNumber(eeprom_, memory::kInputCode, 1, type->code) &&
                   StoreText(memory::kInputText, type->text) &&
                   StoreNumber(eeprom_, memory::kAdcType, 1, type->adc));
}

EepromStage::Outcome EepromStage::WriteOutputType(Change& change) {
  const std::optional<TypeRow> type = FindType(page_.Def.ListOf(u"$I11"), page_.Item(kRangeItem));
  if (!type) {
    page_.Box().Show(BoxKey::EepromDataInvalid, {u"Item11"});
    return Outcome::OutputTypeUnknown;
  }
  change.output = *type;
  unfinished_.output.Follow(item11_before_, type->text);
  const OutputModel* const model = FindOutputModel(page_.DefFile);
  if (model == nullptr) {
    return Outcome::Good;
  }
  change.output_tag = type->tag;
  return WrittenIf(StoreNumber(eeprom_, model->code_address, 1, type->code) &&
                   StoreText(memory::kOutputText, type->text));
}

EepromStage::Outcome EepromStage::WriteModelText(Change& change) {
  const String tail = TailOf(ReadModelText());
  if (tail.empty()) {
    return Outcome::WriteFailed;
  }
  const UnfinishedStage::ModelText text{
      .head = change.head, .tags = change.input.tag + change.output_tag, .tail = tail};
  const bool written = StoreText(memory::kModelText, text.Whole());
  unfinished_.ModelTextWritten(text, written);
  return WrittenIf(written);
}

EepromStage::Outcome EepromStage::FollowTypes(Change& change) {
  const Belonging belonging = BelongingOf(change.head);
  const std::optional<SensorKind> sensor = SensorOf(belonging);
  Outcome outcome = Outcome::Good;
  if (sensor) {
    outcome = WriteCurve(change, *sensor);
  } else if (belonging == Belonging::Calibration) {
    outcome = CopyBankOfNewAdc(change.adc_before);
  }
  return outcome == Outcome::Good && OutputTypeChanged ? CopyBankOfNewOutput(change) : outcome;
}

EepromStage::Outcome EepromStage::CopyBankOfNewOutput(const Change& change) {
  const OutputModel* const model = FindOutputModel(page_.DefFile);
  unfinished_.output.Begin();
  if (!CopyOutputBank(model == nullptr ? change.output.code : model->bank.value_or(change.output.code))) {
    return Outcome::WriteFailed;
  }
  unfinished_.output.End();
  return Outcome::Good;
}

EepromStage::Outcome EepromStage::CopyBankOfNewAdc(int adc_before) {
  const int adc = ReadAdcType();
  if (adc == Eeprom::kFailed) {
    return Outcome::AdcTypeUnread;
  }
  if (adc == adc_before) {
    return Outcome::Good;
  }
  unfinished_.input.Begin();
  if (!CopyAdcBank(adc)) {
    return Outcome::WriteFailed;
  }
  unfinished_.input.End();
  return Outcome::Good;
}

// A curve that broke off in an earlier download is written anew though the type stays the same.
EepromStage::Outcome EepromStage::WriteCurve(const Change& change, SensorKind kind) {
  const String item10 = ReadItem(u"10");
  if (item10 == change.item10_before) {
    const std::optional<bool> held = HoldsCurve(change.input.code);
    if (!held || *held) {
      return WrittenIf(held.has_value());
    }
  }
  const int result = kind == SensorKind::Thermocouple ? curves_.DownloadTcTable(change.input.code, item10)
                                                      : curves_.DownloadRtdTable(change.input.code, item10);
  return WrittenIf(result == 0);
}

std::optional<bool> EepromStage::HoldsCurve(int type) {
  if (eeprom_.SelectEeprom(memory::AccessItem()).empty()) {
    return std::nullopt;
  }
  const String held = eeprom_.EepReadNumber(memory::kTableType, 1);
  return eeprom_.Failed() ? std::nullopt : std::optional(LeadingInteger(held) == type);
}

bool EepromStage::CopyAdcBank(int type) {
  notice_.Begin(TextKey::StageCalibration);
  return korva::CopyAdcBank(eeprom_, type);
}

bool EepromStage::CopyOutputBank(int type) {
  notice_.Begin(TextKey::StageCalibration);
  return korva::CopyOutputBank(eeprom_, LayoutOf(page_.DefFile), type);
}

String EepromStage::ReadModelText() {
  const String text = eeprom_.EepReadString(memory::kModelText, memory::kTextSize);
  return eeprom_.Failed() ? String() : text;
}

bool EepromStage::StoreText(int address, const String& text) {
  return korva::StoreText(eeprom_, page_.ItsProgram().Surroundings().code_page, address, text);
}

String EepromStage::ReadItem(StringView item) const {
  const WireItem wire{.group = u"01", .item = String(item)};
  const String answer = page_.Items().ReadRetry(kItemRepeats, wire);
  page_.TellRead({.what = TextKey::DeviceType, .item = wire}, answer);
  return Trimmed(answer);
}

}  // namespace korva
