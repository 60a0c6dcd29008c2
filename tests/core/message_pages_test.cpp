// docs/messages.md and docs/messages.ja.md tell what each message means. These tests hold both pages against
// the texts of the programs, and against each other.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "core/boxes.h"
#include "core/text_utilities.h"
#include "core/texts.h"

namespace korva {
namespace {

using TextLines = std::vector<std::string>;

/// A message as a page tells it. An entry may have several that have one explanation.
struct ToldMessage {
  std::string text;
  std::string english = {};  ///< below it, on the English page
};
struct MessageEntry {
  std::vector<ToldMessage> messages;
  TextLines points;  ///< where it comes, why, and what to do
};
struct MessageChapter {
  std::string heading;
  std::vector<MessageEntry> entries;
};
struct MessagePage {
  const char* file;
  std::array<std::string_view, 3> labels;  ///< which the points begin with
  std::string whole = {};
  std::vector<MessageChapter> chapters = {};
  std::vector<MessageEntry> entries = {};  ///< of all chapters
  std::vector<ToldMessage> messages = {};  ///< of all entries
};

std::string WholeFile(const std::filesystem::path& path) {
  std::ifstream file(std::filesystem::path(KORVA_SOURCE_DIR) / path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

TextLines LinesOfFile(const std::filesystem::path& path) {
  TextLines lines;
  std::ifstream file(std::filesystem::path(KORVA_SOURCE_DIR) / path);
  EXPECT_TRUE(file.is_open()) << path;
  for (std::string line; std::getline(file, line);) {
    lines.push_back(line);
  }
  return lines;
}

void AddLine(std::string& text, std::string_view line) { text.append(text.empty() ? "" : "\n").append(line); }

/// Reads a page: chapters, whose entries are the messages as they are shown between two rules, and their
/// points.
class MessagePageReader {
 public:
  explicit MessagePageReader(MessagePage& page) : page_(page) {}

  void Take(const std::string& line) {
    if (in_message_) {
      TakeLineOfMessage(line);
    } else if (line.starts_with("## ")) {
      page_.chapters.push_back({.heading = line, .entries = {}});
    } else if (line == "```text") {
      BeginMessage();
    } else if (line.starts_with("> ")) {
      AddLine(Entries().back().messages.back().english,
              line.substr(2, line.size() - (line.ends_with('\\') ? 3 : 2)));
    } else if (line.starts_with("- **")) {
      Entries().back().points.push_back(line.substr(2));
    } else if (line.starts_with("  ")) {
      Entries().back().points.back() += line.substr(1);
    }
  }

 private:
  std::vector<MessageEntry>& Entries() { return page_.chapters.back().entries; }

  void BeginMessage() {
    if (Entries().empty() || !Entries().back().points.empty()) {
      Entries().emplace_back();
    }
    Entries().back().messages.emplace_back();
    in_message_ = true;
  }
  void TakeLineOfMessage(const std::string& line) {
    if (line == "```") {
      in_message_ = false;
    } else {
      AddLine(Entries().back().messages.back().text, line);
    }
  }

  MessagePage& page_;
  bool in_message_ = false;
};

MessagePage ReadPage(MessagePage page) {
  page.whole = WholeFile(page.file);
  MessagePageReader reader(page);
  for (const std::string& line : LinesOfFile(page.file)) {
    reader.Take(line);
  }
  for (const MessageChapter& chapter : page.chapters) {
    page.entries.insert(page.entries.end(), chapter.entries.begin(), chapter.entries.end());
  }
  for (const MessageEntry& entry : page.entries) {
    page.messages.insert(page.messages.end(), entry.messages.begin(), entry.messages.end());
  }
  return page;
}

const std::array<MessagePage, 2>& MessagePages() {
  static const std::array<MessagePage, 2> pages = {
      ReadPage({.file = "docs/messages.md", .labels = {"**Where:** ", "**Why:** ", "**What to do:** "}}),
      ReadPage({.file = "docs/messages.ja.md", .labels = {"**表示場所:** ", "**原因:** ", "**対処:** "}})};
  return pages;
}
const MessagePage& EnglishPage() { return MessagePages().front(); }
const MessagePage& JapanesePage() { return MessagePages().back(); }

TextLines TextsOf(const std::vector<ToldMessage>& messages) {
  TextLines texts;
  texts.reserve(messages.size());
  for (const ToldMessage& message : messages) {
    texts.push_back(message.text);
  }
  return texts;
}

/// The text as a page gives it: its lines have one end.
std::string AsTold(const String& text) {
  String told = text;
  std::erase(told, u'\r');
  return ToUtf8(told);
}

bool TellsText(const std::vector<ToldMessage>& messages, const std::string& text) {
  return std::any_of(messages.begin(), messages.end(),
                     [&](const ToldMessage& message) { return message.text == text; });
}

/// True when a message of the page has these words, or the page gives them as words of the program.
bool TellsWords(const MessagePage& page, const std::string& words) {
  return page.whole.find("`" + words + "`") != std::string::npos ||
         std::any_of(page.messages.begin(), page.messages.end(), [&](const ToldMessage& message) {
           return message.text.find(words) != std::string::npos;
         });
}

void ExpectTold(const std::string& text) {
  for (const MessagePage& page : MessagePages()) {
    EXPECT_TRUE(TellsText(page.messages, text)) << page.file << " lacks: " << text;
  }
}

/// True when the English page has these words below the text.
bool TellsEnglish(const std::string& text, const std::string& english) {
  const std::vector<ToldMessage>& messages = EnglishPage().messages;
  return std::any_of(messages.begin(), messages.end(), [&](const ToldMessage& message) {
    return message.text == text && message.english.find(english) != std::string::npos;
  });
}

TEST(MessagePages, HaveTheSameMessagesInTheSameChapters) {
  const auto& english = EnglishPage().chapters;
  const auto& japanese = JapanesePage().chapters;
  ASSERT_EQ(english.size(), japanese.size());
  ASSERT_FALSE(english.empty());
  for (std::size_t at = 0; at < english.size(); ++at) {
    SCOPED_TRACE(english[at].heading);
    // "## 3. ", the chapter's number.
    EXPECT_EQ(english[at].heading.substr(0, english[at].heading.find(' ', 3)),
              japanese[at].heading.substr(0, japanese[at].heading.find(' ', 3)));
    ASSERT_EQ(english[at].entries.size(), japanese[at].entries.size());
    for (std::size_t entry = 0; entry < english[at].entries.size(); ++entry) {
      EXPECT_EQ(TextsOf(english[at].entries[entry].messages), TextsOf(japanese[at].entries[entry].messages));
    }
  }
}

TEST(MessagePages, ListEachChapterAtTheTop) {
  for (const MessagePage& page : MessagePages()) {
    const std::string top = page.whole.substr(0, page.whole.find("\n## "));
    for (const MessageChapter& chapter : page.chapters) {
      EXPECT_NE(top.find("\n- [" + chapter.heading.substr(3) + "](#"), std::string::npos)
          << page.file << ": " << chapter.heading;
    }
  }
}

TEST(MessagePages, TellWhereEachMessageComesWhyAndWhatToDo) {
  for (const MessagePage& page : MessagePages()) {
    for (const MessageEntry& entry : page.entries) {
      SCOPED_TRACE(std::string(page.file) + ": " + entry.messages.front().text);
      ASSERT_EQ(entry.points.size(), page.labels.size());
      for (std::size_t point = 0; point < page.labels.size(); ++point) {
        EXPECT_TRUE(entry.points[point].starts_with(page.labels.at(point))) << entry.points[point];
        EXPECT_GT(entry.points[point].size(), page.labels.at(point).size());
      }
    }
  }
}

TEST(MessagePages, TellEachMessageOnce) {
  for (const MessagePage& page : MessagePages()) {
    TextLines texts = TextsOf(page.messages);
    std::sort(texts.begin(), texts.end());
    const auto twice = std::adjacent_find(texts.begin(), texts.end());
    EXPECT_EQ(twice, texts.end()) << page.file << ": " << *twice;
  }
}

TEST(MessagePages, TellEachBoxUnderItsTitle) {
  for (int key = 0; key < static_cast<int>(BoxKey::kCount); ++key) {
    const Box box = BoxOf(static_cast<BoxKey>(key), {u"{1}", u"{2}", u"{3}"});
    const std::string text = AsTold(box.text);
    const std::string title = "**" + ToUtf8(box.title) + "**";
    const auto tells = [&](const MessageEntry& entry) {
      return TellsText(entry.messages, text) && entry.points.front().find(title) != std::string::npos;
    };
    for (const MessagePage& page : MessagePages()) {
      EXPECT_TRUE(std::any_of(page.entries.begin(), page.entries.end(), tells))
          << page.file << " lacks the box " << title << ": " << text;
    }
  }
}

/// Long captions of controls, and the program's own name with its version.
constexpr std::array kCaptionsForAll = {TextKey::SpanPositionCalibration, TextKey::Version};

/// Short texts that tell what goes on, as a message does.
constexpr std::array kShortMessages = {
    TextKey::OutputForced,  TextKey::MemoLine,     TextKey::Waiting,       TextKey::LineNotSent,
    TextKey::LineSilent,    TextKey::CompareMark,  TextKey::ReportRuns,    TextKey::ReportDone,
    TextKey::ReportBroken,  TextKey::ProofRead,    TextKey::ProofCollated, TextKey::ProofCompared,
    TextKey::ProofReadBack, TextKey::ProofHeld,    TextKey::ProofEchoed,   TextKey::ProofNotReached,
    TextKey::ProofSilent,   TextKey::ProofRefused, TextKey::ProofDiffers,  TextKey::SkipNoValue,
    TextKey::SkipNeedless,  TextKey::SkipNotOfUse, TextKey::SkipNoCode,    TextKey::HelpLive,
    TextKey::HelpOutside};

/// A caption is short and has no place to be filled in; all else tells something.
bool IsMessage(TextKey key) {
  constexpr std::size_t kLongestCaption = 12;
  const auto is_key = [key](TextKey one) { return one == key; };
  const String& text = CaptionText(key);
  return std::none_of(kCaptionsForAll.begin(), kCaptionsForAll.end(), is_key) &&
         (text.size() > kLongestCaption || text.find_first_of(u"。{") != String::npos ||
          text.ends_with(u": ") || std::any_of(kShortMessages.begin(), kShortMessages.end(), is_key));
}

TEST(MessagePages, TellEachTextThatIsNoCaption) {
  int told = 0;
  for (int number = 0; number < static_cast<int>(TextKey::kCount); ++number) {
    const auto key = static_cast<TextKey>(number);
    if (IsMessage(key)) {
      ExpectTold(AsTold(CaptionText(key)));
      ++told;
    }
  }
  EXPECT_GT(told, 60);
}

TEST(MessagePages, GiveTheEnglishTextWhereTheProgramHasOne) {
  for (int number = 0; number < static_cast<int>(TextKey::kCount); ++number) {
    const auto key = static_cast<TextKey>(number);
    const String& english = CaptionText(key, Language::English);
    if (!IsMessage(key) || english == CaptionText(key)) {
      continue;
    }
    const std::string text = AsTold(CaptionText(key));
    EXPECT_TRUE(TellsEnglish(text, ToUtf8(Trimmed(english)))) << text << " says: " << ToUtf8(english);
  }
}

TEST(MessagePages, TellTheTextsOfTheFramesAndHints) {
  for (const String& text :
       {CannotEndText(), ColdJunctionInfoText(), TableHintText(u"T"), TableHintText(u"R")}) {
    ExpectTold(AsTold(text));
  }
}

// --- texts that stand in the programs' sources

/// The text's literals, with their escapes resolved as far as messages have any.
TextLines LiteralsIn(std::string_view source) {
  TextLines literals;
  bool inside = false;
  for (std::size_t at = 0; at < source.size(); ++at) {
    if (source[at] == '"' && (inside || at == 0 || source[at - 1] != '\'')) {
      inside = !inside;
      if (inside) {
        literals.emplace_back();
      }
    } else if (inside && source[at] == '\\') {
      ++at;
      literals.back() += source[at] == 'n' ? '\n' : source[at];
    } else if (inside) {
      literals.back() += source[at];
    }
  }
  return literals;
}

/// The end of the statement that begins at `from`: its semicolon outside of any literal.
std::size_t EndOfStatement(std::string_view source, std::size_t from) {
  bool inside = false;
  std::size_t at = from;
  for (; at < source.size() && (inside || source[at] != ';'); ++at) {
    if (source[at] == '"' && source[at - 1] != '\\' && source[at - 1] != '\'') {
      inside = !inside;
    }
  }
  return at;
}

/// The literals of all statements that have `call` in them, from there on.
TextLines LiteralsOfCalls(const std::string& source, const std::string& call) {
  TextLines literals;
  for (std::size_t at = source.find(call); at != std::string::npos; at = source.find(call, at + 1)) {
    const std::size_t end = EndOfStatement(source, at + call.size());
    const TextLines more = LiteralsIn(std::string_view(source).substr(at, end - at));
    literals.insert(literals.end(), more.begin(), more.end());
  }
  return literals;
}

std::vector<std::filesystem::path> SourcesIn(const std::string& folder) {
  std::vector<std::filesystem::path> sources;
  const std::filesystem::path root = KORVA_SOURCE_DIR;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
    if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") {
      sources.push_back(entry.path().lexically_relative(root));
    }
  }
  EXPECT_FALSE(sources.empty()) << folder;
  return sources;
}

void ExpectWordsTold(std::string words, const std::filesystem::path& source) {
  words.erase(words.find_last_not_of('\n') + 1);
  words.erase(0, words.find_first_not_of('\n'));
  for (const MessagePage& page : MessagePages()) {
    EXPECT_TRUE(words.empty() || TellsWords(page, words))
        << page.file << " lacks: " << words << ", of " << source;
  }
}

struct TellingCall {
  const char* folder;
  const char* call;
  std::size_t least;  ///< so many words are found, or the call has another name by now
};

constexpr std::array kTellingCalls = {
    TellingCall{.folder = "src", .call = "throw RuntimeFailure(", .least = 30},
    TellingCall{.folder = "src/app", .call = "std::cerr <<", .least = 2},
    TellingCall{.folder = "src", .call = "MissingFontText(", .least = 2},
    TellingCall{.folder = "src/cli", .call = "Complain(", .least = 4},
    TellingCall{.folder = "src/print", .call = "Fail(", .least = 2},
    TellingCall{.folder = "src/cli", .call = "problem = ", .least = 3},
    TellingCall{.folder = "src/cli", .call = "Wrong(", .least = 5},
    TellingCall{.folder = "src/cli", .call = " Refused(", .least = 5},
    TellingCall{.folder = "src/sim", .call = "throw SetupError(", .least = 15},
    TellingCall{.folder = "src/sim", .call = "throw std::runtime_error(", .least = 4},
    TellingCall{.folder = "src/sim", .call = "throw std::system_error(", .least = 2},
    TellingCall{.folder = "src/sim", .call = "Checked(", .least = 5},
    TellingCall{.folder = "src/sim", .call = "Fail(", .least = 5},
};

TEST(MessagePages, TellWhatTheSourcesTellByThemselves) {
  for (const TellingCall& telling : kTellingCalls) {
    std::size_t found = 0;
    for (const auto& source : SourcesIn(telling.folder)) {
      for (const std::string& words : LiteralsOfCalls(WholeFile(source), telling.call)) {
        ExpectWordsTold(words, source);
        ++found;
      }
    }
    EXPECT_GE(found, telling.least) << telling.call;
  }
}

TEST(MessagePages, TellWhatTheLimitsOfAFieldSay) {
  // Each in Japanese, and then in English.
  const TextLines words = LiteralsOfCalls(WholeFile("src/companions/meanings.cpp"), "kLimits = ");
  ASSERT_GE(words.size(), 14U);
  ASSERT_EQ(words.size() % 2, 0U);
  for (std::size_t at = 0; at < words.size(); at += 2) {
    ExpectTold(words[at]);
    EXPECT_TRUE(TellsEnglish(words[at], words[at + 1])) << words[at] << " says: " << words[at + 1];
  }
}

/// The tests above look at texts, boxes and limits one by one; what a field means is no message.
constexpr std::array<std::string_view, 3> kOtherSentences = {"src/core/texts.cpp", "src/core/boxes.cpp",
                                                             "src/companions/meanings.cpp"};

TEST(MessagePages, TellEachSentenceOfTheSources) {
  std::size_t found = 0;
  for (const auto& source : SourcesIn("src")) {
    if (std::find(kOtherSentences.begin(), kOtherSentences.end(), source.generic_string()) !=
        kOtherSentences.end()) {
      continue;
    }
    for (const std::string& line : LinesOfFile(source)) {
      for (const std::string& literal : LiteralsIn(line)) {
        if (literal.find("。") != std::string::npos) {
          ExpectWordsTold(literal, source);
          ++found;
        }
      }
    }
  }
  EXPECT_GT(found, 10U);
}

/// All sources, one behind the other; a text over several lines is one.
std::string JoinedSources() {
  std::string joined;
  for (const auto& source : SourcesIn("src")) {
    const std::string whole = WholeFile(source);
    for (std::size_t at = 0; at < whole.size(); ++at) {
      const std::size_t next = whole.find_first_not_of(" \n", at + 1);
      const std::size_t quote = next != std::string::npos && whole[next] == 'u' ? next + 1 : next;
      if (whole[at] == '"' && quote < whole.size() && whole[quote] == '"' && quote > at + 1) {
        at = quote;
      } else {
        joined += whole[at];
      }
    }
  }
  return joined;
}

/// What of a message stands in one piece in a source: its words between its places, as a literal has them.
TextLines PiecesOf(const std::string& message) {
  TextLines pieces(1);
  for (std::size_t at = 0; at < message.size(); ++at) {
    const std::string_view rest = std::string_view(message).substr(at);
    if (rest.starts_with('{') || rest.starts_with("「") || rest.starts_with("」")) {
      pieces.emplace_back();
      at += 2;  // a place and a bracket have three bytes
    } else if (message[at] == '\n') {
      pieces.emplace_back();
    } else {
      pieces.back().append(message[at] == '"' ? "\\" : "").append(1, message[at]);
    }
  }
  return pieces;
}

TEST(MessagePages, TellNothingThatTheProgramsDontTell) {
  const std::string sources = JoinedSources();
  for (const std::string& text : TextsOf(EnglishPage().messages)) {
    const bool japanese =
        std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 0x7F; });
    for (const std::string& piece : japanese ? PiecesOf(text) : TextLines()) {
      EXPECT_NE(sources.find(piece), std::string::npos) << "no source has \"" << piece << "\" of: " << text;
    }
  }
}

/// What stands between the variables of a text of the shell.
TextLines WordsBetweenVariables(std::string_view text) {
  TextLines words(1);
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\\') {
      words.back() += text[++at];
    } else if (text[at] != '$') {
      words.back() += text[at];
    } else {
      words.emplace_back();
      const bool braced = text[at + 1] == '{';
      const auto is_name = [](char c) { return c == '_' || (c >= 'a' && c <= 'z'); };
      at = braced ? text.find('}', at) : at + 1;
      while (!braced && at + 1 < text.size() && is_name(text[at + 1])) {
        ++at;
      }
    }
  }
  return words;
}

/// The texts of the shell behind `begin`, which ends with their first quote.
TextLines ShellTextsBehind(const std::string& script, std::string_view begin) {
  TextLines texts;
  for (std::size_t at = script.find(begin); at != std::string::npos; at = script.find(begin, at + 1)) {
    const std::size_t first = at + begin.size();
    std::size_t end = first;
    while (script[end] != '"' || script[end - 1] == '\\') {
      ++end;
    }
    texts.push_back(script.substr(first, end - first));
  }
  return texts;
}

TEST(MessagePages, TellTheComplaintsOfTheBatch) {
  constexpr std::array<std::string_view, 2> begins = {"complain \"", "why=\""};
  const std::string script = WholeFile("src/cli/korva-batch");
  std::size_t found = 0;
  for (const std::string_view begin : begins) {
    for (const std::string& text : ShellTextsBehind(script, begin)) {
      for (const std::string& words : WordsBetweenVariables(text)) {
        ExpectWordsTold(words, "src/cli/korva-batch");
        ++found;
      }
    }
  }
  EXPECT_GT(found, 20U);
}

}  // namespace
}  // namespace korva
