#include "monitor/fine_trim.h"

#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr int kBlinkLit = 1000;   ///< ms for which a value is highlighted
constexpr int kBlinkUnlit = 300;  ///< ms until the next one is read
constexpr int kSlice = 50;        ///< ms within which a press is noticed
constexpr StringView kUntrimmed = u"0.00";
constexpr TrimSteps kPercentSteps = {.m01 = u"-0.1", .m001 = u"-0.01", .p001 = u"0.01", .p01 = u"0.1"};

constexpr FineTrimEnd ZeroOf(std::string_view name, StringView item) {
  return {.name = name,
          .item = item,
          .caption = TextKey::FineZero,
          .low = u"-5",
          .high = u"5",
          .out_of_range = BoxKey::ZeroTrimOutOfRange};
}

constexpr FineTrimEnd SpanOf(std::string_view name, StringView item) {
  return {.name = name,
          .item = item,
          .caption = TextKey::FineSpan,
          .origin = 100,
          .low = u"95",
          .high = u"105",
          .out_of_range = BoxKey::SpanTrimOutOfRange};
}

/// The trim in percent that an answer tells; nothing when it tells none.
std::optional<double> Told(const String& answer) {
  const String number = TellsRefusal(answer) ? String() : TrimNumericText(answer);
  return number.empty() ? std::nullopt : std::optional(LeadingNumber(number));
}

/// What the item is to hold, counted in whole hundredths, so that no remainder of a sum goes to the device.
double Target(const String& shown, const String& step, double origin) {
  const auto hundredths = [](double percent) { return std::round(percent * kTrimHundredths); };
  return (hundredths(LeadingNumber(shown)) - hundredths(origin) + hundredths(LeadingNumber(step))) /
         kTrimHundredths;
}

}  // namespace

constexpr FineTrimEnd kFirstZeroTrim = ZeroOf("Out1Zero", u"19");
constexpr FineTrimEnd kFirstSpanTrim = SpanOf("Out1Span", u"20");
constexpr FineTrimEnd kSecondZeroTrim = ZeroOf("Out2Zero", u"44");
constexpr FineTrimEnd kSecondSpanTrim = SpanOf("Out2Span", u"45");

FineTrim::FineTrim(ParameterPage& page, const FineTrimEnd& end)
    : TrimButtons(end.name),
      CaptionLabel(std::string("IO_lbl").append(end.name)),
      Box(std::string("txt").append(end.name)),
      UnitLabel(std::string("lbl").append(end.name).append("Unit")),
      page_(page),
      end_(end) {
  page_.Add(*this);
  for (Control* control : Controls()) {
    page_.Register(*control);
  }
  page_.RegisterAll<Control>({&CaptionLabel, &Box, &UnitLabel});
  Box.SetLocked(true);
  Box.SetNumeric(true);
  PaintRest(Box);
  UnitLabel.SetCaption(u"%");
  StartButton.OnClick = [this] { StartOrStop(); };
  Offer(request_, kPercentSteps);
  ShowState();
}

void FineTrim::SetCaptions(Language language) {
  TrimButtons::SetCaptions(end_.low, end_.high, language);
  CaptionLabel.SetCaption(CaptionText(end_.caption, language));
}

void FineTrim::SetExchangesBarred(bool barred) {
  barred_ = barred;
  ShowState();
}

void FineTrim::PageCleared() {
  told_ = false;
  Box.SetText({});
}

void FineTrim::PageBuilt() {
  const bool has_item = page_.FindDataRow(end_.item) >= 0;
  for (Control* control : Controls()) {
    control->SetVisible(has_item);
  }
  for (Control* control : std::initializer_list<Control*>{&CaptionLabel, &Box, &UnitLabel}) {
    control->SetVisible(has_item);
  }
}

void FineTrim::ShowState() {
  ShowRunning(running_);
  StartButton.SetEnabled(running_ || !barred_);
}

std::optional<FieldRange> FineTrim::RangeOfField(const TextField& field) const {
  if (&field != &Box) {
    return std::nullopt;
  }
  return RangeBetween(end_.low, end_.high);
}

void FineTrim::StartOrStop() {
  if (running_) {
    Stop();
  } else {
    Start();
  }
}

void FineTrim::Start() {
  if (page_.OperationRuns() || page_.FindDataRow(end_.item) < 0) {
    return;
  }
  page_.BeginOperation();
  page_.BarExchanges();
  if (page_.EnterMonitorMode()) {
    Run();
  }
  page_.EndOperation();
  page_.FreeExchanges();
}

void FineTrim::Run() {
  running_ = true;
  told_ = false;
  ShowState();
  TellBegan();
  while (running_) {
    if (request_.Waits()) {
      request_.CarryOut([this](const String& step) { Apply(step); });
    } else {
      Turn();
      TellTurn();
    }
  }
  TellEnded();
}

void FineTrim::Stop() {
  running_ = false;
  request_.Drop();
  ShowState();
}

void FineTrim::Turn() {
  PaintHighlight(Box);
  ShowTold(page_.Items().ReadRetry(kItemRepeats, ItemKey(end_.item).OnWire()));
}

void FineTrim::Apply(const String& step) {
  if (step == kTrimReset) {
    const String answer =
        page_.Items().WriteRetry(kItemRepeats, ItemKey(end_.item).OnWire(), String(kUntrimmed));
    if (Told(answer)) {
      PaintHighlight(Box);
      ShowTold(answer);
    }
  } else if (told_) {
    const double target = Target(Box.Text(), step, end_.origin);
    const double shown = target + end_.origin;
    if (!IsBetween(LeadingNumber(end_.high), LeadingNumber(end_.low), shown)) {
      page_.Box().Show(end_.out_of_range, {String(end_.low), String(end_.high)});
      return;
    }
    PaintHighlight(Box);
    if (Send(ShortestText(target))) {
      ShowForATurn(FormatMask(shown, kTrimMask), true);
    }
  } else {
    return;
  }
  if (running_ && !request_.Waits() && !page_.EnterMonitorMode()) {
    Stop();
  }
}

bool FineTrim::Send(const String& data) {
  return Told(page_.Items().WriteRetry(kItemRepeats, ItemKey(end_.item).OnWire(), data)).has_value();
}

void FineTrim::ShowTold(const String& answer) {
  const std::optional<double> trim = Told(answer);
  told_ = trim.has_value();
  const bool blank = !told_ && end_.origin == 0;
  ShowForATurn(blank ? String() : FormatMask(trim.value_or(0) + end_.origin, kTrimMask), !answer.empty());
}

void FineTrim::ShowForATurn(const String& text, bool answered) {
  Box.SetText(text);
  TellRead([&] {
    return LiveReading{.row = page_.FindDataRow(end_.item),
                       .caption = CaptionLabel.Caption(),
                       .text = told_ ? text : String(),
                       .unit = UnitLabel.Caption(),
                       .answered = answered};
  });
  Wait(kBlinkLit);
  PaintRest(Box);
  Wait(kBlinkUnlit);
}

void FineTrim::Wait(int milliseconds) {
  for (int waited = 0; waited < milliseconds && running_ && !request_.Waits(); waited += kSlice) {
    page_.Line().WaitFor(kSlice);
  }
}

}  // namespace korva
