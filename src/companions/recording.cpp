#include "companions/recording.h"

#include <array>
#include <cstdio>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr char16_t kQuote = u'"';
constexpr StringView kNeedQuotes = u",\"\r\n";

String CsvCell(const String& text) {
  if (text.find_first_of(kNeedQuotes) == String::npos) {
    return text;
  }
  String cell(1, kQuote);
  for (const char16_t character : text) {
    cell.append(character == kQuote ? 2 : 1, character);
  }
  return cell + kQuote;
}

/// "2024-02-29 09:05:00", which a spreadsheet takes for a time.
String TextOf(LocalTime time) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return Ascii(text.data());
}

String SecondsText(Clock time) { return FormatMask(std::chrono::duration<double>(time).count(), u"0.000"); }

/// The text's bytes; "?" for a character of a garbled answer that has none.
std::string BytesOf(const String& text, const CodePage& code_page) {
  if (const auto whole = code_page.Encode(text)) {
    return *whole;
  }
  std::string bytes;
  for (const char16_t character : text) {
    bytes += code_page.Encode(StringView(&character, 1)).value_or("?");
  }
  return bytes;
}

}  // namespace

String CsvLine(const std::vector<String>& cells) {
  String line;
  for (const String& cell : cells) {
    line += CsvCell(cell) + u",";
  }
  if (!line.empty()) {
    line.pop_back();
  }
  return line + u"\r\n";
}

bool Recording::Begin(RecordPlace& place, const String& path) {
  End();
  ForgetProblem();
  place_ = &place;
  path_ = path;
  rows_.clear();
  turn_.clear();
  SystemReason reason;
  file_ = place.Create(path, reason);
  if (!Runs()) {
    Fail(reason);
  }
  return Runs();
}

void Recording::End() {
  SystemReason reason;
  if (Runs() && !file_->Keep(reason)) {
    problem_ = ReasonText(reason);
  }
  file_.reset();
}

void Recording::Take(const WatchReading& reading) {
  if (Runs()) {
    turn_[reading.row] = reading;
  }
}

void Recording::EndTurn(const std::vector<WatchedValue>& values, Language language) {
  if (!Runs() || values.empty()) {
    return;
  }
  if (rows_.empty()) {
    // What was read so far may be a part of a turn; but now all values of the loop are known.
    began_ = loop_.Now();
    rows_.reserve(values.size());
    for (const WatchedValue& value : values) {
      rows_.push_back(value.row);
    }
    Write(Head(values, language));
  } else {
    Write(Line());
  }
  turn_.clear();
}

Recording::Cells Recording::Head(const std::vector<WatchedValue>& values, Language language) {
  Cells cells = {CaptionText(TextKey::SettingsDate, language), CaptionText(TextKey::LineTime, language)};
  cells.reserve(cells.size() + 2 * values.size());
  for (const WatchedValue& value : values) {
    cells.push_back(value.item + u" " + value.caption);
    cells.push_back(CaptionText(TextKey::SettingsUnit, language));
  }
  return cells;
}

Recording::Cells Recording::Line() const {
  Cells cells = {TextOf(place_->Time()), SecondsText(loop_.Now() - began_)};
  cells.reserve(cells.size() + 2 * rows_.size());
  for (const int row : rows_) {
    const auto reading = turn_.find(row);
    const bool told = reading != turn_.end() && !reading->second.text.empty();
    cells.push_back(told ? reading->second.text : String());
    cells.push_back(told ? reading->second.unit : String());
  }
  return cells;
}

void Recording::Write(const Cells& cells) {
  SystemReason reason;
  if (!file_->Add(BytesOf(CsvLine(cells), code_page_), reason)) {
    Fail(reason);
  }
}

void Recording::Fail(const SystemReason& reason) {
  End();
  problem_ = ReasonText(reason);
}

}  // namespace korva
