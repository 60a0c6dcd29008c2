#include "pages/z2_kv_config_v3/point_dialogue.h"

#include <algorithm>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_item.h"

namespace korva {

namespace {

constexpr StringView kAllPoints = u"100";
constexpr int kTries = kItemRepeats + 1;
constexpr float kBarAtBegin = 10;

String Digits(std::size_t number) { return Ascii(std::to_string(number)); }

/// The two numbers of an answer, which blanks separate; false when it has anything else.
bool TakePoint(const String& answer, PointTexts& texts) {
  const String text = Trimmed(answer);
  const std::size_t blank = std::min(text.find(u' '), text.size());
  texts = {.x = text.substr(0, blank), .y = Trimmed(text.substr(blank))};
  const bool good = IsPlainDecimal(texts.x) && IsPlainDecimal(texts.y);
  if (!good) {
    texts = {};
  }
  return good;
}

String LastWord(const String& answer) {
  const String text = Trimmed(answer);
  return text.substr(text.rfind(u' ') + 1);
}

/// A step of the dialogue, for the report of the transfer.
TransferStep StepOf(const String& data) {
  return {.what = TextKey::Linearizer, .item = {.group = u"01", .item = u"42"}, .sent = data};
}

/// True when the device's answer to a point tells of no other value.
bool IsTaken(const String& answer, const String& y) {
  const String text = Trimmed(answer);
  if (text.empty() || TellsRefusal(text)) {
    return false;
  }
  const String last = LastWord(text);
  return !IsNumeric(last) || LnrValueMatches(y, last);
}

}  // namespace

String PointDialogue::Send(const String& data) const {
  return page_.EnterItem().WriteParamRetry(0, {.group = u"01", .item = u"42"}, data);
}

LnrReading PointDialogue::Read(ProgressBar& bar) {
  LnrReading reading;
  open_ = false;
  for (int point = 1; point <= LeadingInteger(kAllPoints); ++point) {
    PointTexts texts;
    const Answer answer = ReadPoint(point, texts);
    reading.complete = reading.complete && (answer == Answer::Point || answer == Answer::End);
    if (answer == Answer::End || answer == Answer::NoDialogue) {
      break;
    }
    reading.points.push_back(texts);
    bar.SetValue(static_cast<float>(point));
  }
  bar.SetValue(100);
  return reading;
}

PointDialogue::Answer PointDialogue::ReadPoint(int point, PointTexts& texts) {
  bool answered = false;
  for (int i = 0; i < kTries; ++i) {
    open_ = open_ || (Ask(u"O", u"output number") && Ask(String(kAllPoints), u"output num-data"));
    if (!open_) {
      continue;
    }
    answered = true;
    const String number = Digits(static_cast<std::size_t>(point));
    const String answer = Send(number);
    page_.TellSent(StepOf(number), answer);
    if (!answer.empty() && Trimmed(answer).empty()) {
      return Answer::End;
    }
    open_ = TakePoint(answer, texts);
    if (open_) {
      return Answer::Point;
    }
  }
  return answered ? Answer::Wrong : Answer::NoDialogue;
}

bool PointDialogue::Write(std::span<const PointTexts> points, ProgressBar& bar) {
  bool written = false;
  for (int i = 0; i < kTries && !written; ++i) {
    written = Ask(u"C", u"rest_linear");
  }
  const bool cleared = written;
  written = false;
  for (int i = 0; cleared && i < kTries && !written; ++i) {
    written = WriteAll(points, bar);
  }
  if (!written) {
    page_.Box().Show(BoxKey::LinearizerDataMismatch);
  }
  return written;
}

bool PointDialogue::WriteAll(std::span<const PointTexts> points, ProgressBar& bar) const {
  bar.SetValue(kBarAtBegin);
  if (!Ask(u"I", u"input number") || !Ask(Digits(points.size()), u"input num-data")) {
    return false;
  }
  std::size_t number = 0;
  return std::all_of(points.begin(), points.end(), [&](const PointTexts& point) {
    const bool taken = WritePoint(++number, point);
    const float share = static_cast<float>(number) / static_cast<float>(points.size());
    bar.SetValue(kBarAtBegin + (100 - kBarAtBegin) * share);
    return taken;
  });
}

bool PointDialogue::WritePoint(std::size_t number, const PointTexts& point) const {
  const String data = Digits(number) + u" " + point.x + u" " + point.y;
  const String answer = Send(data);
  const bool taken = IsTaken(answer, point.y);
  const Evidence proved = IsNumeric(LastWord(answer)) ? Evidence::Compared : Evidence::Echoed;
  page_.TellSent(StepOf(data), answer, taken ? proved : Evidence::Differs);
  return taken;
}

}  // namespace korva
