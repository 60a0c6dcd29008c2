#include "monitor/output_trim.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "link/group_item.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr int kLitTime = 700;    ///< ms for which a value is highlighted
constexpr int kUnlitTime = 200;  ///< ms until the next one is read
constexpr TrimSteps kHundredthSteps = {.m01 = u"-10", .m001 = u"-1", .p001 = u"1", .p01 = u"10"};

/// The value as the decimal number of 15 digits that a user reads.
double Rounded(double value) { return LeadingNumber(ShortestText(value)); }

std::optional<double> Percent(const String& fraction) {
  return IsNumeric(fraction) ? std::optional(Rounded(LeadingNumber(fraction) * 100)) : std::nullopt;
}
std::optional<double> ZeroPercent(StringView answer) { return Percent(ZeroFromTrimAnswer(answer)); }
std::optional<double> SpanPercent(StringView answer) { return Percent(SpanFromTrimAnswer(answer)); }

String ZeroStep(StringView step, double /*target*/) { return u"Z" + String(step); }
String SpanStep(StringView step, double /*target*/) { return u"S" + String(step); }

}  // namespace

String ZeroFromTrimAnswer(StringView answer) {
  const String text = Trimmed(answer);
  return text.substr(0, text.find(u' '));
}

String SpanFromTrimAnswer(StringView answer) {
  const String text = Trimmed(answer);
  const std::size_t blank = text.find(u' ');
  return blank == String::npos ? String() : Trimmed(text.substr(blank));
}

constexpr TrimEnd kZeroTrim = {.key = u"28_zero",
                               .name = "OutZero",
                               .read_item = u"28",
                               .percent_of = ZeroPercent,
                               .write_item = u"29",
                               .data_of = ZeroStep,
                               .reset_data = u"C0",
                               .low = u"-6",
                               .high = u"6",
                               .out_of_range = BoxKey::ZeroTrimOutOfRange,
                               .untold = u"0",
                               .in_monitor_mode = true};
constexpr TrimEnd kSpanTrim = {.key = u"28_span",
                               .name = "OutSpan",
                               .read_item = u"28",
                               .percent_of = SpanPercent,
                               .write_item = u"29",
                               .data_of = SpanStep,
                               .reset_data = u"C0",
                               .low = u"94",
                               .high = u"106",
                               .out_of_range = BoxKey::SpanTrimOutOfRange,
                               .untold = u"100"};

OutputTrim::OutputTrim(ParameterPage& page, const TrimEnd& end)
    : TrimButtons(end.name), page_(page), end_(end) {
  page_.Add(*this);
  for (Control* control : Controls()) {
    page_.Register(*control);
  }
  StartButton.OnClick = [this] { StartOrStop(); };
  Offer(request_, kHundredthSteps);
  ShowRunning(running_);
}

void OutputTrim::SetCaptions(Language language) { TrimButtons::SetCaptions(end_.low, end_.high, language); }

void OutputTrim::PageBuilt() {
  TextField* box = page_.FindField(end_.key);
  for (Control* control : Controls()) {
    control->SetVisible(box != nullptr);
  }
  const bool uploaded = box != nullptr && page_.UploadBusy && !box->Locked();
  if (uploaded && box->Text().empty()) {
    box->SetText(String(end_.untold));
  }
}

std::optional<String> OutputTrim::ShownText(int row) const {
  if (!IsItsRow(row)) {
    return std::nullopt;
  }
  const auto percent = end_.percent_of(page_.SetCell(row));
  return percent ? FormatMask(*percent, kTrimMask) : String();
}

std::optional<String> OutputTrim::CellOf(int row, const String& /*text*/) const {
  return IsItsRow(row) ? std::optional(page_.SetCell(row)) : std::nullopt;
}

std::optional<FieldRange> OutputTrim::RangeOfRow(int row) const {
  if (page_.DataCell(row, kItem) != end_.key) {
    return std::nullopt;
  }
  return RangeBetween(end_.low, end_.high);
}

void OutputTrim::StartOrStop() {
  if (running_) {
    Stop();
  } else {
    Start();
  }
}

void OutputTrim::Start() {
  TextField* box = page_.FindField(end_.key);
  if (page_.OperationRuns() || box == nullptr) {
    return;
  }
  page_.BeginOperation();
  page_.LockFrame();
  if (end_.in_monitor_mode && !page_.EnterMonitorMode()) {
    page_.EndOperation();
    page_.UnlockFrame();
    return;
  }
  running_ = true;
  ShowRunning(running_);
  KeepInReach(page_, StartButton);
  StartButton.SetFocus();
  CarryOver(*box);
  request_.Drop();
  TellBegan();
  while (running_) {
    Turn(*box);
  }
  TellEnded();
  PaintHighlight(*box);
  page_.EndOperation();
}

void OutputTrim::Stop() {
  page_.UnlockFrame();
  running_ = false;
  request_.Drop();
  ShowRunning(running_);
}

void OutputTrim::CarryOver(const TextField& box) {
  const String target = Trimmed(box.Text());
  if (target.empty()) {
    return;
  }
  if (!IsNumeric(target)) {
    page_.Box().Show(end_.out_of_range, {String(end_.low), String(end_.high)});
    return;
  }
  const auto present = end_.percent_of(Read());
  if (!present) {
    return;
  }
  const double steps = Rounded(LeadingNumber(target) * kTrimHundredths) - Rounded(*present * kTrimHundredths);
  if (Rounded(steps) != 0) {
    Step(ShortestText(steps));
  }
}

void OutputTrim::Turn(TextField& box) {
  request_.CarryOut([this](const String& step) { Apply(step); });
  PaintHighlight(box);
  const String answer = Read();
  const auto percent = end_.percent_of(answer);
  if (percent) {
    page_.GroupItem.Set(u"01", String(end_.read_item), answer);
    ShowTold(box, FormatMask(*percent, kTrimMask));
  }
  TellRead([&] {
    return ReadingOf(page_, page_.FindDataRow(end_.key), percent ? box.Text() : String(), !answer.empty());
  });
  page_.Line().WaitFor(kLitTime);
  PaintRest(box);
  page_.Line().WaitFor(kUnlitTime);
  TellTurn();
}

void OutputTrim::Apply(const String& step) {
  if (step == kTrimReset) {
    page_.Items().WriteRetry(kItemRepeats, ItemKey(end_.write_item).OnWire(), String(end_.reset_data));
  } else {
    Step(step);
  }
}

void OutputTrim::Step(const String& step) {
  const auto present = end_.percent_of(Read());
  if (!present) {
    return;
  }
  const double target = Rounded(*present + LeadingNumber(step) / kTrimHundredths);
  if (IsBetween(LeadingNumber(end_.high), LeadingNumber(end_.low), target)) {
    page_.Items().WriteRetry(kItemRepeats, ItemKey(end_.write_item).OnWire(), end_.data_of(step, target));
  } else {
    page_.Box().Show(end_.out_of_range, {String(end_.low), String(end_.high)});
  }
}

void OutputTrim::ShowTold(TextField& box, const String& percent) {
  const bool locked = box.Locked();
  box.SetLocked(true);  // it is no edit of the user's, even when STOP has freed the box meanwhile
  box.SetText(percent);
  box.SetLocked(locked);
}

String OutputTrim::Read() const {
  return page_.Items().ReadRetry(kItemRepeats, ItemKey(end_.read_item).OnWire());
}

}  // namespace korva
