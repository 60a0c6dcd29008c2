#include "document.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <fstream>
#include <regex>

namespace {

constexpr std::string_view kFence = "```";

std::size_t IndentOf(std::string_view line) { return std::min(line.find_first_not_of(' '), line.size()); }

/// The number at the beginning with its point, "13."; empty where there is none.
std::string_view NumberOf(std::string_view text) {
  const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
  return digits > 0 && text.substr(digits).starts_with(". ") ? text.substr(0, digits + 1)
                                                             : std::string_view();
}

/// Reads line after line; a block that can go on stays open.
class BlockReader {
 public:
  void Take(const std::string& line) {
    ++line_;
    const std::string_view body = std::string_view(line).substr(IndentOf(line));
    if (in_code_ || body.starts_with(kFence)) {
      TakeCode(line, body);
    } else if (body.empty()) {
      open_ = false;
    } else if (body.starts_with('#')) {
      TakeHeading(body);
    } else if (body.starts_with("![")) {
      const std::size_t path = body.find("](") + 2;
      Begin("picture " + std::string(body.substr(path, body.find(')', path) - path)), line);
      open_ = false;
    } else if (body.starts_with('|')) {
      TakeRow(line, body);
    } else if (body.starts_with("- ") || !NumberOf(body).empty()) {
      Begin((body.starts_with("- ") ? "point " : "step ") + std::to_string(IndentOf(line)), line);
    } else if (open_ && rows_ == 0) {
      blocks_.back().text += "\n" + line;
    } else {
      Begin("paragraph", line);
    }
  }

  std::vector<DocumentBlock> Blocks() && { return std::move(blocks_); }

 private:
  void Begin(std::string form, std::string text) {
    blocks_.push_back({.line = line_, .form = std::move(form), .text = std::move(text)});
    open_ = true;
    rows_ = 0;
  }
  void TakeHeading(std::string_view body) {
    const std::size_t level = body.find_first_not_of('#');
    const std::string_view text = body.substr(level + 1);
    Begin("heading " + std::to_string(level) + ", " + std::string(NumberOf(text)), std::string(text));
    blocks_.back().heading = true;
    open_ = false;
  }
  void TakeCode(const std::string& line, std::string_view body) {
    const bool fence = body.starts_with(kFence);
    if (!in_code_) {
      Begin("code", {});
    }
    blocks_.back().form += "\n" + line;
    open_ = false;
    in_code_ = in_code_ != fence;
  }
  void TakeRow(const std::string& line, std::string_view body) {
    if (!open_ || rows_ == 0) {
      Begin({}, line);
    } else {
      blocks_.back().text += "\n" + line;
    }
    ++rows_;
    const auto columns = std::count(body.begin(), body.end(), '|') - 1;
    blocks_.back().form = "table " + std::to_string(rows_) + " x " + std::to_string(columns);
  }

  std::vector<DocumentBlock> blocks_;
  int line_ = 0;
  int rows_ = 0;  ///< of the table that is open
  bool open_ = false;
  bool in_code_ = false;
};

/// The bytes of the letter at `at`.
std::size_t LengthAt(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  return std::min(length, text.size() - at);
}

/// The number of a letter of three bytes, which all Japanese ones are; 0 for any other.
unsigned CodeOf(std::string_view letter) {
  if (letter.size() != 3) {
    return 0;
  }
  const auto low = [&](std::size_t at) { return static_cast<unsigned char>(letter[at]) & 0x3FU; };
  return (static_cast<unsigned char>(letter[0]) & 0x0FU) << 12U | low(1) << 6U | low(2);
}

bool IsHalfWidth(unsigned code) { return code >= 0xFF66 && code <= 0xFF9F; }

bool IsJapanese(unsigned code) {
  const bool kana = code >= 0x3041 && code <= 0x30FF && code != 0x30FB;
  return kana || (code >= 0x4E00 && code <= 0x9FFF) || IsHalfWidth(code);
}

/// Headings lose their punctuation in a link.
bool IsPunctuation(std::string_view letter) {
  const unsigned code = CodeOf(letter);
  const bool ascii = letter.size() == 1 && std::isalnum(static_cast<unsigned char>(letter[0])) == 0 &&
                     letter != "-" && letter != "_";
  return ascii || (code >= 0x2010 && code <= 0x206F) || (code >= 0x3000 && code <= 0x303F) ||
         code == 0x30FB || (code >= 0xFF00 && code <= 0xFF0F) || (code >= 0xFF1A && code <= 0xFF20) ||
         code == 0xFF65;
}

std::string AnchorOf(std::string_view heading) {
  std::string anchor;
  for (std::size_t at = 0; at < heading.size(); at += LengthAt(heading, at)) {
    const std::string_view letter = heading.substr(at, LengthAt(heading, at));
    if (letter == " ") {
      anchor += '-';
    } else if (!IsPunctuation(letter)) {
      anchor += letter;
    }
  }
  std::transform(anchor.begin(), anchor.end(), anchor.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return anchor;
}

}  // namespace

Document ReadDocument(const std::string& path) {
  std::ifstream file(path);
  BlockReader reader;
  for (std::string line; std::getline(file, line);) {
    reader.Take(line);
  }
  return {.path = path, .blocks = std::move(reader).Blocks()};
}

std::vector<DocumentSection> SectionsOf(const Document& document) {
  std::vector<DocumentSection> sections;
  for (const DocumentBlock& block : document.blocks) {
    if (block.heading) {
      sections.push_back({.heading = block.text});
    }
    if (!sections.empty()) {
      sections.back().text += block.text + "\n";
    }
  }
  return sections;
}

std::vector<std::string> AnchorsOf(const Document& document) {
  std::vector<std::string> anchors;
  for (const DocumentBlock& block : document.blocks) {
    if (block.heading) {
      anchors.push_back(AnchorOf(block.text));
    }
  }
  return anchors;
}

std::vector<std::string> LinksIn(std::string_view text) {
  std::vector<std::string> links;
  for (std::size_t at = text.find("]("); at != std::string_view::npos; at = text.find("](", at + 1)) {
    const std::size_t begin = text.rfind('[', at);
    const bool picture = begin != std::string_view::npos && begin > 0 && text[begin - 1] == '!';
    if (begin != std::string_view::npos && !picture) {
      links.emplace_back(text.substr(at + 2, text.find(')', at) - at - 2));
    }
  }
  return links;
}

std::set<std::string> NumbersIn(const std::string& text) {
  static const std::regex number(R"((^|[^A-Za-z0-9_/.+-])([-+]?[0-9]+(\.[0-9]+)?))");
  std::set<std::string> numbers;
  for (std::sregex_iterator found(text.begin(), text.end(), number); found != std::sregex_iterator();
       ++found) {
    numbers.insert(found->str(2));
  }
  return numbers;
}

std::set<std::string> JapaneseIn(std::string_view text, bool half_width) {
  std::set<std::string> runs;
  std::string run;
  const auto end_run = [&] {
    if (!run.empty()) {
      runs.insert(run);
    }
    run.clear();
  };
  for (std::size_t at = 0; at < text.size(); at += LengthAt(text, at)) {
    const std::string_view letter = text.substr(at, LengthAt(text, at));
    const unsigned code = CodeOf(letter);
    if (half_width ? IsHalfWidth(code) : IsJapanese(code)) {
      run += letter;
    } else {
      end_run();
    }
  }
  end_run();
  return runs;
}
