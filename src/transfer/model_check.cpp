#include "transfer/model_check.h"

#include <algorithm>
#include <array>

namespace korva {

namespace {

constexpr std::size_t kHead = 4;
constexpr std::size_t kTailBegin = 3;  // the tail's letter is the head's last
constexpr std::size_t kTail = 2;

StringView TailOf(StringView model) {
  return model.size() < kTailBegin ? StringView() : model.substr(kTailBegin, kTail);
}

bool IsTail(StringView text) {
  constexpr std::array<StringView, 5> kTails = {u"T2", u"R2", u"V2", u"M2", u"F2"};
  return std::find(kTails.begin(), kTails.end(), text) != kTails.end();
}

}  // namespace

bool SameModel(StringView def_file, StringView model) {
  if (def_file.substr(0, kHead) != model.substr(0, kHead)) {
    return false;
  }
  const StringView expected = TailOf(def_file);
  const StringView found = TailOf(model);
  return expected == found || (!IsTail(expected) && !IsTail(found));
}

bool ConfirmModelOfDevice(DevicePage& page) {
  TransferStep step{.what = TextKey::Model,
                    .item = {.group = u"00", .item = u"01"},
                    .sent = page.DefFile.substr(0, page.DefFile.find(u'.')),
                    .only_due = true};
  const String model = page.ReadIdentity(step.item);
  if (!model.empty() && SameModel(page.DefFile, model)) {
    step.answered = model;
    step.evidence = Evidence::Collated;
    page.TellStep(step);
    return true;
  }
  page.TellSent(step, model, Evidence::Differs);
  page.CommFailed = true;
  page.Box().Show(model.empty() ? BoxKey::CommFailure : BoxKey::ModelMismatch);
  return false;
}

}  // namespace korva
