#include "cli/action.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>
#include <utility>

#include "cli/transcript.h"
#include "core/text_utilities.h"

namespace korva::cli {

namespace {

constexpr StringView kBlanks = u" \t\r\n";

StringView WithoutBlanks(StringView text) {
  const std::size_t begin = std::min(text.find_first_not_of(kBlanks), text.size());
  return text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// What stands behind the action's word.
class Words {
 public:
  Words(int line, StringView text, int depth) : line_(line), depth_(depth), rest_(WithoutBlanks(text)) {}

  /// Number of the line in which they stand.
  [[nodiscard]] int Line() const { return line_; }

  /// In how many delayed actions they stand.
  [[nodiscard]] int Depth() const { return depth_; }

  [[nodiscard]] bool Empty() const { return rest_.empty(); }

  /// Takes the next word; empty when none is left.
  std::string Next() {
    const std::size_t end = std::min(rest_.find_first_of(kBlanks), rest_.size());
    const StringView word = rest_.substr(0, end);
    rest_ = WithoutBlanks(rest_.substr(end));
    return ToUtf8(word);
  }

  /// Takes a whole number from 0.
  std::optional<int> NextNumber() { return Number(Next()); }

  /// Takes all that is left as it stands.
  StringView Rest() { return std::exchange(rest_, {}); }

  static std::optional<int> Number(std::string_view digits) {
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, error] = std::from_chars(digits.data(), end, number);
    const bool whole = !digits.empty() && rest == end && error == std::errc();
    return whole && digits.front() != '-' ? std::optional(number) : std::nullopt;
  }

 private:
  int line_;
  int depth_;
  StringView rest_;
};

bool IsQuoted(StringView text) { return text.size() >= 2 && text.front() == u'"' && text.back() == u'"'; }

// What is no escape stands for itself.
String Unescaped(StringView text) {
  String plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t next = text[at] == u'\\' && at + 1 < text.size() ? text[at + 1] : u'\0';
    if (next == u'n') {
      plain += u"\r\n";
      ++at;
    } else if (next == u'"' || next == u'\\') {
      plain += next;
      ++at;
    } else {
      plain += text[at];
    }
  }
  return plain;
}

String TextOf(StringView text) {
  return IsQuoted(text) ? Unescaped(text.substr(1, text.size() - 2)) : String(text);
}

using Parsed = std::optional<Action>;

std::optional<Statement> ParseNested(int number, StringView text, int depth);

template <typename T>
Parsed Alone(Words& words) {
  return words.Empty() ? Parsed(T{}) : std::nullopt;
}

Parsed ParseChoose(Words& words) {
  if (words.Empty()) {
    return std::nullopt;
  }
  const StringView text = words.Rest();
  const std::optional<int> position =
      text.front() == u'#' ? Words::Number(ToUtf8(text.substr(1))) : std::nullopt;
  return ChooseModel{.entry = TextOf(text), .position = position};
}

Parsed ParseClick(Words& words) {
  return words.Empty() ? Parsed() : ClickButton{.control = ToUtf8(words.Rest())};
}

Parsed ParseType(Words& words) {
  const std::string control = words.Next();
  return control.empty() ? Parsed() : TypeText{.control = control, .text = TextOf(words.Rest())};
}

Parsed ParsePick(Words& words) {
  const std::string control = words.Next();
  return words.Empty() ? Parsed() : PickEntry{.control = control, .entry = TextOf(words.Rest())};
}

Parsed ParseCell(Words& words) {
  const std::string grid = words.Next();
  const std::optional<int> row = words.NextNumber();
  const std::optional<int> column = words.NextNumber();
  return row && column && words.Empty() ? Parsed(ClickCell{.grid = grid, .row = *row, .column = *column})
                                        : std::nullopt;
}

Parsed ParseKey(Words& words) {
  constexpr std::array<std::pair<std::string_view, Key>, 5> keys = {{{"Enter", Key::Enter},
                                                                     {"Up", Key::Up},
                                                                     {"Down", Key::Down},
                                                                     {"Left", Key::Left},
                                                                     {"Right", Key::Right}}};
  const std::string control = words.Next();
  const std::string name = words.Next();
  const auto* const key =
      std::find_if(keys.begin(), keys.end(), [&](const auto& row) { return row.first == name; });
  return key != keys.end() && words.Empty() ? Parsed(PressKey{.control = control, .key = key->second})
                                            : std::nullopt;
}

Parsed ParseTab(Words& words) {
  const std::optional<int> tab = words.NextNumber();
  return tab && words.Empty() ? Parsed(ClickTab{.tab = *tab}) : std::nullopt;
}

Parsed ParseAnswer(Words& words) {
  constexpr std::array kAnswers = {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No};
  QueueAnswers queue;
  while (!words.Empty()) {
    const std::string word = words.Next();
    const auto* const answer =
        std::find_if(kAnswers.begin(), kAnswers.end(), [&](Answer a) { return WordOf(a) == word; });
    if (answer == kAnswers.end()) {
      return std::nullopt;
    }
    queue.answers.push_back(*answer);
  }
  return queue.answers.empty() ? Parsed() : queue;
}

Parsed ParseFile(Words& words) {
  const StringView text = words.Rest();
  const String path = TextOf(text);
  if (path.empty()) {
    return std::nullopt;
  }
  return text == u"cancel" ? QueueFile{} : QueueFile{.path = path};
}

Parsed ParseAfter(Words& words) {
  const std::optional<int> ms = words.NextNumber();
  std::optional<Statement> statement = ParseNested(words.Line(), words.Rest(), words.Depth() + 1);
  if (!ms || !statement) {
    return std::nullopt;
  }
  return Delay{.delay = Milliseconds(*ms), .statement = std::make_shared<Statement>(*std::move(statement))};
}

Parsed ParseWait(Words& words) {
  const std::optional<int> ms = words.NextNumber();
  return ms && words.Empty() ? Parsed(Wait{.duration = Milliseconds(*ms)}) : std::nullopt;
}

Parsed ParseShow(Words& words) {
  ShowControls show;
  while (!words.Empty()) {
    show.controls.push_back(words.Next());
  }
  return show.controls.empty() ? Parsed() : show;
}

Parsed ParseDump(Words& words) {
  return words.Empty() ? Parsed(DumpItems{}) : DumpGrid{.grid = ToUtf8(words.Rest())};
}

Parsed ParseCompare(Words& words) {
  const std::string with = words.Next();
  if (with == "device") {
    return words.Empty() ? Parsed(Compare{}) : std::nullopt;
  }
  const String path = TextOf(words.Rest());
  return with == "file" && !path.empty() ? Parsed(Compare{.file = path}) : std::nullopt;
}

Parsed ParsePdf(Words& words) {
  const String path = TextOf(words.Rest());
  return path.empty() ? Parsed() : MakePdf{.path = path};
}

struct ActionRow {
  std::string_view word;
  Parsed (*parse)(Words& words);
};

constexpr std::array<ActionRow, 19> kActions = {{
    {.word = "start", .parse = Alone<StartProgram>},
    {.word = "choose", .parse = ParseChoose},
    {.word = "click", .parse = ParseClick},
    {.word = "type", .parse = ParseType},
    {.word = "pick", .parse = ParsePick},
    {.word = "cell", .parse = ParseCell},
    {.word = "key", .parse = ParseKey},
    {.word = "tab", .parse = ParseTab},
    {.word = "answer", .parse = ParseAnswer},
    {.word = "file", .parse = ParseFile},
    {.word = "after", .parse = ParseAfter},
    {.word = "wait", .parse = ParseWait},
    {.word = "close", .parse = Alone<PressClose>},
    {.word = "show", .parse = ParseShow},
    {.word = "dump", .parse = ParseDump},
    {.word = "report", .parse = Alone<TellReport>},
    {.word = "watch", .parse = Alone<TellWatch>},
    {.word = "compare", .parse = ParseCompare},
    {.word = "pdf", .parse = ParsePdf},
}};

std::optional<Statement> ParseNested(int number, StringView text, int depth) {
  if (depth > kDeepestDelay) {
    return std::nullopt;
  }
  const StringView source = WithoutBlanks(text);
  Words words(number, source, depth);
  const std::string word = words.Next();
  const auto* const row = std::find_if(kActions.begin(), kActions.end(),
                                       [&](const ActionRow& action) { return action.word == word; });
  if (row == kActions.end()) {
    return std::nullopt;
  }
  Parsed action = row->parse(words);
  if (!action) {
    return std::nullopt;
  }
  return Statement{.line = number, .source = String(source), .action = *std::move(action)};
}

}  // namespace

bool SaysNothing(StringView text) {
  const StringView said = WithoutBlanks(text);
  return said.empty() || said.front() == u'#';
}

std::optional<Statement> ParseStatement(int number, StringView text) { return ParseNested(number, text, 0); }

}  // namespace korva::cli
