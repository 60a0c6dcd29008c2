#include "tables/cold_junction.h"

#include <algorithm>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr std::array<StringView, 2> kCjmItems = {u"34", u"35"};

struct CjmLimits {
  double low = 0;
  double high = 0;
};
/// What can be printed on the paper of a module.
constexpr std::array kCjmLimits = {CjmLimits{.low = 20, .high = 29.99999},
                                   CjmLimits{.low = 500, .high = 699.99999}};

}  // namespace

ColdJunction::ColdJunction(ParameterPage& page, const ColdJunctionFamily& family)
    : page_(page), family_(family) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&fraCJM, &lbl_CJMmsg, &lblPrg, &CJM_ProgressBar, &cmdChangeCJM, &cmdCJMcheck,
                              &cmdWriteInCJM, &cmdDefaultCJM, &cmdCancelCJM});
  fraCJM.SetVisible(false);
  lblPrg.SetVisible(false);
  cmdChangeCJM.OnClick = [this] { Open(); };
  cmdCancelCJM.OnClick = [this] { Close(); };
  cmdCJMcheck.OnClick = [this] { TryValues(); };
  cmdWriteInCJM.OnClick = [this] { WriteIn(); };
  cmdDefaultCJM.OnClick = [this] { SetToDefault(); };
}

void ColdJunction::SetCaptions(Language language) {
  struct Caption {
    CaptionedControl* control;
    TextKey key;
  };
  for (const Caption& one : {Caption{.control = &fraCJM, .key = TextKey::ChangeCjm},
                             Caption{.control = &cmdChangeCJM, .key = TextKey::ChangeCjm},
                             Caption{.control = &cmdCJMcheck, .key = TextKey::CheckTable},
                             Caption{.control = &cmdWriteInCJM, .key = TextKey::WriteIn},
                             Caption{.control = &cmdDefaultCJM, .key = TextKey::Default},
                             Caption{.control = &cmdCancelCJM, .key = TextKey::Cancel},
                             Caption{.control = &CJM_ProgressBar, .key = TextKey::Cjm},
                             Caption{.control = &lblPrg, .key = TextKey::Transmitting}}) {
    one.control->SetCaption(CaptionText(one.key, language));
  }
  lbl_CJMmsg.SetCaption(ColdJunctionInfoText());
}

void ColdJunction::SetExchangesBarred(bool barred) {
  for (Button* button : {&cmdChangeCJM, &cmdCJMcheck, &cmdWriteInCJM, &cmdDefaultCJM, &cmdCancelCJM}) {
    button->SetEnabled(!barred);
  }
}

void ColdJunction::SettleTabs(TabMoment /*moment*/) {
  if (const int tab = page_.TabWith(TextKey::Cjm); tab >= 0) {
    page_.Tabs.SetTabEnabled(tab, Serves() && page_.TabFlag(tab) != u"False");
  }
}

bool ColdJunction::Serves() const { return FieldOf(0) != nullptr && FieldOf(1) != nullptr; }

TextField* ColdJunction::FieldOf(std::size_t place) const {
  return page_.FindField(String(kCjmItems.at(place)));
}

void ColdJunction::Open() {
  if (page_.OperationRuns() || !page_.Box().Ask(BoxKey::ChangeCjm)) {
    return;
  }
  fraCJM.SetVisible(true);
  for (std::size_t place = 0; family_.fills_fields && Serves() && place < kCjmItems.size(); ++place) {
    FieldOf(place)->SetText(page_.Item(LeadingInteger(kCjmItems.at(place))));
  }
}

void ColdJunction::Close() { fraCJM.SetVisible(false); }

void ColdJunction::TryValues() {
  if (CheckFields()) {
    CJM_ProgressBar.SetValue(0);
    page_.Box().Show(BoxKey::CheckDone);
  }
}

bool ColdJunction::CheckFields() {
  if (!Serves()) {
    return true;
  }
  if (FieldOf(0)->Text().empty() || FieldOf(1)->Text().empty()) {
    page_.Box().Show(BoxKey::CjmFieldBlank);
    return false;
  }
  if (!ColourFields()) {
    page_.Box().Show(BoxKey::ValueBad);
    return false;
  }
  return true;
}

bool ColdJunction::IsGood(std::size_t place, const String& text) const {
  const double value = LeadingNumber(text);
  const double preset = LeadingNumber(family_.defaults.at(place));
  const CjmLimits& limits = kCjmLimits.at(place);
  return value == preset || IsBetween(limits.high, limits.low, value);
}

std::optional<FieldRange> ColdJunction::RangeOfRow(int row) const {
  for (std::size_t place = 0; place < kCjmItems.size(); ++place) {
    if (page_.DataCell(row, kItem) == kCjmItems.at(place)) {
      return FieldRange{.low = kCjmLimits.at(place).low,
                        .high = kCjmLimits.at(place).high,
                        .also = LeadingNumber(family_.defaults.at(place))};
    }
  }
  return std::nullopt;
}

bool ColdJunction::ColourFields() const {
  bool good = true;
  for (std::size_t place = 0; place < kCjmItems.size(); ++place) {
    TextField& field = *FieldOf(place);
    const bool field_good = IsGood(place, field.Text());
    field.SetLook(field_good ? Look::Normal : Look::Bad);
    good = good && field_good;
  }
  return good;
}

void ColdJunction::SetLooks(Look look) const {
  for (std::size_t place = 0; place < kCjmItems.size(); ++place) {
    FieldOf(place)->SetLook(look);
  }
}

ColdJunction::Texts ColdJunction::FieldTexts() const {
  return {TrimNumericText(FieldOf(0)->Text()), TrimNumericText(FieldOf(1)->Text())};
}

ColdJunction::Texts ColdJunction::Defaults() const {
  return {String(family_.defaults.front()), String(family_.defaults.back())};
}

void ColdJunction::WriteIn() {
  if (page_.OperationRuns() || !Serves() || !CheckFields()) {
    return;
  }
  Begin();
  const bool wanted = page_.Box().Ask(BoxKey::ChangeCjm);
  const bool done = wanted && Exchange(FieldTexts());
  if (wanted) {
    Tell(done, BoxKey::CjmChanged);
  } else {
    Close();
  }
  End(done || !wanted);
}

void ColdJunction::SetToDefault() {
  if (page_.OperationRuns() || !Serves()) {
    return;
  }
  SetLooks(Look::Grey);
  if (!page_.Box().Ask(BoxKey::ChangeCjm)) {
    Close();
    SetLooks(Look::Normal);
    return;
  }
  Begin();
  const bool done = Exchange(Defaults());
  Tell(done, BoxKey::CjmSetToDefault);
  SetLooks(Look::Normal);
  End(done);
}

void ColdJunction::Begin() {
  page_.CommFailed = false;
  page_.BeginDownload();
  page_.LockFrame();
}

void ColdJunction::Tell(bool done, BoxKey report) {
  if (done) {
    CJM_ProgressBar.SetValue(100);
    page_.Box().Show(report);
  } else if (family_.tells_failure || page_.CommFailed) {
    page_.Box().ShowCommFailure();
  }
}

void ColdJunction::End(bool good) {
  CJM_ProgressBar.SetValue(0);
  if (good) {
    page_.CheckPendingQuit();
  } else {
    page_.EndDownload();
  }
  page_.UnlockFrame();
}

bool ColdJunction::Exchange(const Texts& texts) {
  lblPrg.SetVisible(true);
  CJM_ProgressBar.SetValue(20);
  page_.CommFailed = page_.ReadIdentity({.group = u"00", .item = String(family_.identity_item)}).empty();
  const bool done =
      !page_.CommFailed && page_.EnterProgrammingMode() && WriteItems(texts) && page_.EnterMonitorMode();
  lblPrg.SetVisible(false);
  return done;
}

bool ColdJunction::WriteItems(const Texts& texts) {
  CJM_ProgressBar.SetValue(30);
  if (family_.one_item) {
    const std::optional<String> answer = WriteItem(kCjmItems.front(), texts.front() + u" " + texts.back());
    if (answer) {
      const std::size_t blank = std::min(answer->find(u' '), answer->size());
      ShowAnswer(0, StringView(*answer).substr(0, blank));
      ShowAnswer(1, StringView(*answer).substr(blank));
    }
    return answer.has_value();
  }
  for (std::size_t place = 0; place < kCjmItems.size(); ++place) {
    CJM_ProgressBar.SetValue(place == 0 ? 30 : 70);
    const std::optional<String> answer = WriteItem(kCjmItems.at(place), texts.at(place));
    if (!answer) {
      return false;
    }
    ShowAnswer(place, *answer);
  }
  return true;
}

std::optional<String> ColdJunction::WriteItem(StringView item, const String& data) const {
  const WireItem wire{.group = u"01", .item = String(item)};
  if (page_.Items().WriteRetry(kItemRepeats, wire, data).empty()) {
    return std::nullopt;
  }
  return Trimmed(page_.Items().ReadRetry(kItemRepeats, wire));
}

void ColdJunction::ShowAnswer(std::size_t place, StringView answer) const {
  TextField& field = *FieldOf(place);
  field.SetText(TrimNumericText(answer));
  field.SetLook(IsGood(place, field.Text()) ? Look::Normal : Look::Bad);
}

}  // namespace korva
