#include "monitor/count_setting.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "monitor/answer_cleaning.h"
#include "monitor/held_exchange.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr std::array kWideCount = {ModelRange{.low = u"0", .high = u"4294967295"}};

constexpr std::array<StringView, 1> kUpCounters = {u"QCB2.def"};
constexpr std::array kUpDownCount = {
    ModelRange{.models = {.names = kUpCounters}, .low = u"0", .high = u"99999999"},
    ModelRange{.low = u"-99999999", .high = u"99999999"},
};

constexpr std::array<StringView, 2> kWithoutOutput = {u"QEC2.def", u"QEY3.def"};

/// Digits behind at most one sign. A number such as "1E3" or "12.0" is no count for the device.
bool IsWholeNumber(StringView text) {
  if (!text.empty() && (text.front() == u'+' || text.front() == u'-')) {
    text.remove_prefix(1);
  }
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char16_t digit) { return digit >= u'0' && digit <= u'9'; });
}

}  // namespace

constexpr CountItem kCount03 = {.set_key = u"03_set",
                                .monitor_key = u"03_mon",
                                .ranges = kWideCount,
                                .models = {.names = kWithoutOutput},
                                .timer = "Item03_MonitorTimer"};
constexpr CountItem kCount04 = {.set_key = u"04_set",
                                .monitor_key = u"04_mon",
                                .ranges = kWideCount,
                                .timer = "Item04_MonitorTimer",
                                .button = "cmdSet2"};
constexpr CountItem kCount06 = {.set_key = u"06_set",
                                .monitor_key = u"06",
                                .ranges = kUpDownCount,
                                .timer = "Item06_MonitorTimer",
                                .button = "cmdSet3"};

CountSetting::CountSetting(ParameterPage& page, const CountItem& item, StatusMonitor& monitor,
                           OutputSetting& output)
    : PressButton(item.button),
      BlinkTimer(item.timer, page.ItsProgram().Loop(), kBlinkPeriod),
      page_(page),
      item_(item),
      monitor_(monitor),
      output_(output) {
  page_.Add(*this);
  if (HasOwnButton()) {
    page_.Register(PressButton);
    PressButton.OnClick = [this] { Set(); };
  } else {
    output_.cmdSet.OnClick = [this] { Serves() ? Set() : output_.Set(); };
  }
}

void CountSetting::SetCaptions(Language language) {
  PressButton.SetCaption(CaptionText(TextKey::OutputButton, language));
}

void CountSetting::PageBuilt() {
  if (HasOwnButton()) {
    PressButton.SetVisible(Serves());
  } else if (Serves()) {
    output_.cmdStatusMonOFF.SetVisible(false);  // it ends a forced output, which a counter has not
  }
}

bool CountSetting::Serves() const {
  return item_.models.IsAllOrHas(page_.DefFile) && page_.FindTextIndex(item_.set_key) >= 0;
}

void CountSetting::Set() {
  if (page_.OperationRuns() || !Serves()) {
    return;
  }
  TextField& set_box = *page_.FindField(item_.set_key);
  if (!CheckCount(Trimmed(set_box.Text()))) {
    return;
  }
  BeginHeldExchange(page_);
  set_box.SetEnabled(false);
  const bool sent = Write(set_box);
  EndHeldExchange(page_, sent && page_.EnterMonitorMode());
  if (sent) {
    set_box.SetText({});
  }
  set_box.SetEnabled(true);
  if (sent) {
    set_box.SetFocus();
  }
}

bool CountSetting::CheckCount(const String& text) const {
  const ModelRange& range = korva::RangeOf(item_.ranges, page_.DefFile);
  if (IsWholeNumber(text) &&
      IsBetween(LeadingNumber(range.high), LeadingNumber(range.low), LeadingNumber(text))) {
    return true;
  }
  page_.Box().Show(BoxKey::CountOutOfRange, {String(range.low), String(range.high)});
  return false;
}

std::optional<FieldRange> CountSetting::RangeOfRow(int row) const {
  if (page_.DataCell(row, kItem) != item_.set_key || !Serves()) {
    return std::nullopt;
  }
  const ModelRange& range = korva::RangeOf(item_.ranges, page_.DefFile);
  return RangeBetween(range.low, range.high);
}

bool CountSetting::Write(const TextField& set_box) {
  TextField* shown = page_.FindField(item_.monitor_key);
  std::optional<Blinking<TextField>> blinking;
  if (shown != nullptr) {
    blinking.emplace(*shown, BlinkTimer);
  }
  monitor_.ResetMonitorColours();
  if (!page_.EnterProgrammingMode()) {
    return false;
  }
  const String count = TrimNumericHead(set_box.Text(), {});
  const String answer = page_.Items().WriteRetry(kItemRepeats, ItemKey(item_.set_key).OnWire(), count);
  if (shown != nullptr) {
    shown->SetText(TrimNumericHead(answer, {}));
  }
  return true;
}

}  // namespace korva
