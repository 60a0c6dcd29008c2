#include "companions/transfer_report.h"

#include <algorithm>
#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

TextKey TextOf(Evidence evidence) {
  switch (evidence) {
    case Evidence::Read:
      return TextKey::ProofRead;
    case Evidence::Collated:
      return TextKey::ProofCollated;
    case Evidence::Compared:
      return TextKey::ProofCompared;
    case Evidence::ReadBack:
      return TextKey::ProofReadBack;
    case Evidence::Held:
      return TextKey::ProofHeld;
    case Evidence::Echoed:
      return TextKey::ProofEchoed;
    case Evidence::Skipped:
      return TextKey::ProofSkipped;
    case Evidence::NotReached:
      return TextKey::ProofNotReached;
    case Evidence::Silent:
      return TextKey::ProofSilent;
    case Evidence::Refused:
      return TextKey::ProofRefused;
    case Evidence::Differs:
      break;
  }
  return TextKey::ProofDiffers;
}

TextKey TextOf(Skip skip) {
  switch (skip) {
    case Skip::Needless:
      return TextKey::SkipNeedless;
    case Skip::NotOfUse:
      return TextKey::SkipNotOfUse;
    case Skip::NoCode:
      return TextKey::SkipNoCode;
    case Skip::NoValue:
    case Skip::None:
      break;
  }
  return TextKey::SkipNoValue;
}

bool Failed(const ReportRow& row) { return IsFailure(row.evidence); }

String SentenceOf(const ReportRow& row, Language language) {
  const auto text = [language](TextKey key) -> const String& { return CaptionText(key, language); };
  if (row.evidence == Evidence::Silent) {
    return Filled(text(TextKey::StepSilent), {row.item, row.caption});
  }
  const bool refused = row.evidence == Evidence::Refused;
  if (row.sent.empty() || (refused && row.only_due)) {
    return Filled(text(refused ? TextKey::StepNotRead : TextKey::StepMisread),
                  {row.item, row.caption, row.answered});
  }
  const TextKey differs = row.only_due ? TextKey::StepUnlike : TextKey::StepDiffers;
  return Filled(text(refused ? TextKey::StepRefused : differs),
                {row.item, row.caption, row.sent, row.answered});
}

}  // namespace

void TransferReport::Begin(Transfer transfer, const String& model) {
  state_ = State::Running;
  transfer_ = transfer;
  model_ = model;
  rows_.clear();
  ++number_;
  Changed();
}

void TransferReport::Add(ReportRow row) {
  rows_.push_back(std::move(row));
  Changed();
}

void TransferReport::End(bool good) {
  state_ = good ? State::Done : State::Broken;
  Changed();
}

String TransferReport::FaultSentence(Language language) const {
  const auto fault = std::find_if(rows_.begin(), rows_.end(), Failed);
  if (fault == rows_.end()) {
    return {};
  }
  const auto more = std::count_if(fault + 1, rows_.end(), Failed);
  const String rest = Filled(CaptionText(TextKey::StepsMore, language), {Ascii(std::to_string(more))});
  return SentenceOf(*fault, language) + (more > 0 ? rest : String());
}

void TransferReport::Changed() const {
  for (const auto& action : observers_) {
    action();
  }
}

String EvidenceText(const ReportRow& row, Language language) {
  return Filled(CaptionText(TextOf(row.evidence), language), {CaptionText(TextOf(row.skip), language)});
}

}  // namespace korva
