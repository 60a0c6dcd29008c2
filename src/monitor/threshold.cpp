#include "monitor/threshold.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr int kOnce = 0;
constexpr StringView kFrequencyItem = u"06";

/// What may stand behind a number.
struct Suffix {
  StringView text;
  double factor;
};
constexpr std::array kSuffixes = {
    Suffix{.text = u"%", .factor = 1},
    Suffix{.text = u"kHz", .factor = 1000},
    Suffix{.text = u"mHz", .factor = 0.001},
    Suffix{.text = u"Hz", .factor = 1},
};

String WithTwoDecimals(const String& value) {
  return IsNumeric(value) ? FormatMask(LeadingNumber(value), u"0.00") : value;
}

std::optional<ThresholdLimits> Both(const String& low, const String& high) {
  return low.empty() || high.empty() ? std::nullopt
                                     : std::optional(ThresholdLimits{.low = low, .high = high});
}

}  // namespace

std::optional<ThresholdLimits> LimitsInRow(const ParameterPage& page, StringView item) {
  const int row = page.FindDataRow(item);
  return row < 0 ? std::nullopt : Both(page.DataCell(row, kThresholdLow), page.DataCell(row, kThresholdHigh));
}

std::optional<FieldRange> RangeOfThreshold(const std::optional<ThresholdLimits>& limits) {
  return limits ? std::optional(RangeBetween(limits->low, limits->high)) : std::nullopt;
}

bool ValueInRange(const String& text, const ThresholdLimits& limits) {
  String number = Trimmed(text);
  if (number.empty()) {
    return true;
  }
  double factor = 1;
  for (const Suffix& suffix : kSuffixes) {
    if (number.ends_with(suffix.text)) {
      number.resize(number.size() - suffix.text.size());
      factor = suffix.factor;
      break;
    }
  }
  return IsNumeric(number) &&
         IsBetween(LeadingNumber(limits.high), LeadingNumber(limits.low), LeadingNumber(number) * factor);
}

Threshold::Threshold(ParameterPage& page, const ThresholdFamily& family, StatusMonitor& monitor)
    : page_(page),
      family_(family),
      monitor_(monitor),
      steps_{{{.button = &cmdThresholdM1, .volts = u"-1"},
              {.button = &cmdThresholdM01, .volts = u"-0.1"},
              {.button = &cmdThresholdM001, .volts = u"-0.01"},
              {.button = &cmdThresholdP001, .volts = u"0.01"},
              {.button = &cmdThresholdP01, .volts = u"0.1"},
              {.button = &cmdThresholdP1, .volts = u"1"}}} {
  page_.Add(*this);
  page_.RegisterAll<Control>({&cmdThresholdStart, &lblThreshold, &lblMeasFreq, &txtMeasFreq, &unitMeasFreq});
  txtMeasFreq.SetLocked(true);
  txtMeasFreq.SetNumeric(true);
  PaintRest(txtMeasFreq);
  cmdThresholdStart.OnClick = [this] { StartOrStop(); };
  for (const Step& step : steps_) {
    page_.Register(*step.button);
    step.button->SetCaption(step.volts.starts_with(u'-') ? String(step.volts) : u"+" + String(step.volts));
    request_.Offer(*step.button, step.volts);
  }
  monitor_.ShowFrequencyUnitIn(unitMeasFreq);
  ShowState();
}

void Threshold::SetCaptions(Language language) {
  lblMeasFreq.SetCaption(CaptionText(TextKey::InputFrequency, language));
  if (Frame* frame = ItsFrame()) {
    frame->SetCaption(CaptionText(TextKey::Threshold, language));
  }
}

void Threshold::SetExchangesBarred(bool barred) {
  barred_ = barred;
  ShowState();
}

void Threshold::SetUsable(bool usable) {
  usable_ = usable;
  if (Frame* frame = ItsFrame()) {
    frame->SetEnabled(usable);
  }
  if (running_ && !usable) {
    Stop();
  }
  ShowState();
}

void Threshold::ShowState() {
  cmdThresholdStart.SetCaption(CaptionText(running_ ? TextKey::Stop : TextKey::Start));
  cmdThresholdStart.SetEnabled(running_ || (usable_ && !barred_));
  for (const Step& step : steps_) {
    step.button->SetEnabled(running_);
  }
}

void Threshold::PageCleared() {
  refused_ = false;
  lblThreshold.SetCaption({});
  txtMeasFreq.SetText({});
  unitMeasFreq.SetCaption({});
}

void Threshold::PageBuilt() {
  const bool has_box = page_.FindTextIndex(family_.item) >= 0;
  for (Control* control : std::initializer_list<Control*>{&cmdThresholdStart, &lblThreshold, &lblMeasFreq,
                                                          &txtMeasFreq, &unitMeasFreq}) {
    control->SetVisible(has_box);
  }
  for (const Step& step : steps_) {
    step.button->SetVisible(has_box);
  }
  if (Frame* frame = ItsFrame()) {
    frame->SetVisible(has_box);
    frame->SetEnabled(usable_);
  }
}

Frame* Threshold::ItsFrame() const {
  return page_.Frames.Has(family_.frame) ? &page_.Frames[family_.frame] : nullptr;
}

void Threshold::StartOrStop() {
  if (running_) {
    Stop();
  } else {
    Start();
  }
}

void Threshold::Stop() {
  running_ = false;
  request_.Drop();
  ShowState();
}

void Threshold::Start() {
  TextField* box = page_.FindField(family_.item);
  if (box == nullptr || page_.OperationRuns()) {
    return;
  }
  page_.BeginOperation();
  page_.BarExchanges();
  if (page_.EnterMonitorMode()) {
    Run(*box);
  }
  page_.EndOperation();
  page_.FreeExchanges();
}

void Threshold::Run(TextField& box) {
  running_ = usable_;
  ShowState();
  monitor_.ShowMonitorUnits();
  ShowThresholdRange();
  if (running_) {
    ApplyBox(box);
  }
  request_.Drop();
  TellBegan();
  while (running_) {
    request_.CarryOut([&](const String& step) { ApplyThresholdStep(box, step); });
    ShowThreshold(box);
    ShowMeasuredFrequency();
    TellTurn();
  }
  TellEnded();
  Paint(box, Look::Highlight);
}

void Threshold::ShowThresholdRange() {
  PaintHighlight(lblThreshold);
  const std::optional<ThresholdLimits> limits = ReadLimits();
  lblThreshold.SetCaption(limits ? limits->low + u"V <= X <= " + limits->high + u"V" : String());
  PaintRest(lblThreshold);
}

std::optional<ThresholdLimits> Threshold::ReadLimits() const {
  if (family_.range_item.empty()) {
    return LimitsInRow(page_, family_.item);
  }
  return LimitsOfRange(Trimmed(page_.Items().ReadRetry(kOnce, ItemKey(family_.range_item).OnWire())));
}

std::optional<ThresholdLimits> Threshold::LimitsOfRange(const String& told) const {
  const ChoiceList ranges = page_.Def.ListOf(family_.ranges);
  const int text_row = told.empty() ? -1 : ranges.FindText(told);
  const int row = text_row < 0 && IsPlainDecimal(told) ? LeadingInteger(told) : text_row;
  return row < 0 || row >= ranges.Rows()
             ? std::nullopt
             : Both(ranges.Cell(row, &ListColumns::low), ranges.Cell(row, &ListColumns::high));
}

std::optional<FieldRange> Threshold::RangeOfRow(int row) const {
  if (page_.DataCell(row, kItem) != family_.item) {
    return std::nullopt;
  }
  return RangeOfThreshold(family_.range_item.empty()
                              ? LimitsInRow(page_, family_.item)
                              : LimitsOfRange(page_.GroupItem.At(u"01", String(family_.range_item))));
}

void Threshold::ApplyBox(TextField& box) {
  const String value = Trimmed(box.Text());
  if (value.empty()) {
    return;
  }
  if (const std::optional<ThresholdLimits> limits = ReadLimits()) {
    Send(box, value, *limits);
  }
}

void Threshold::ApplyThresholdStep(TextField& box, const String& step) {
  const std::optional<ThresholdLimits> limits = ReadLimits();
  const String present = ReadThreshold(family_.repeats);
  // Where the device doesn't tell from where to go on, or how far, it is sent nothing.
  if (limits && !present.empty()) {
    Send(box, ShortestText(LeadingNumber(present) + LeadingNumber(step)), *limits);
  }
}

void Threshold::Send(TextField& box, const String& value, const ThresholdLimits& limits) {
  refused_ = !ValueInRange(value, limits);
  if (refused_) {
    Paint(box, Look::Bad);
    page_.Box().Show(BoxKey::ThresholdOutOfRange, {limits.low, limits.high});
    return;
  }
  Paint(box, Look::Normal);
  const String answer =
      NumberOf(page_.Items().WriteRetry(family_.repeats, ItemKey(family_.item).OnWire(), value));
  Show(box, answer);
}

void Threshold::ShowThreshold(TextField& box) {
  const String value = ReadThreshold(kOnce);
  if (!value.empty()) {
    Paint(box, Look::Highlight);
  }
  Show(box, value);
  TellRead([&] { return ReadingOf(page_, page_.FindDataRow(family_.item), value, !value.empty()); });
  page_.Line().WaitFor(kShowTime);
  Paint(box, Look::Grey);
}

void Threshold::ShowMeasuredFrequency() {
  const String answer = page_.Items().ReadRetry(kOnce, ItemKey(kFrequencyItem).OnWire());
  PaintHighlight(txtMeasFreq);
  const int row = page_.FindDataRow(kFrequencyItem);
  txtMeasFreq.SetText(WithTwoDecimals(monitor_.ShownValue(row, answer)));
  TellRead([&] {
    LiveReading reading = ReadingOf(page_, row, txtMeasFreq.Text(), !answer.empty());
    reading.unit = unitMeasFreq.Caption();
    return reading;
  });
  page_.Line().WaitFor(kShowTime);
  PaintRest(txtMeasFreq);
}

String Threshold::ReadThreshold(int repeats) const {
  return NumberOf(page_.Items().ReadRetry(repeats, ItemKey(family_.item).OnWire()));
}

String Threshold::NumberOf(const String& answer) const {
  const String value = monitor_.ShownValue(page_.FindDataRow(family_.item), answer);
  return NumericLength(value) > 0 ? value : String();
}

void Threshold::Show(TextField& box, const String& value) const {
  if (usable_ && !value.empty()) {
    box.SetText(value);
  }
}

void Threshold::Paint(TextField& box, Look look) const {
  if (usable_) {
    box.SetLook(refused_ ? Look::Bad : look);
  }
}

}  // namespace korva
