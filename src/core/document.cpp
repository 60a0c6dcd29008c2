#include "core/document.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kLargestShare = 100;
constexpr std::string_view kEndWord = "end";

// --- as bytes

std::string Escaped(StringView text) {
  std::string escaped;
  for (const char one : ToUtf8(text)) {
    switch (one) {
      case '\\':
        escaped += "\\\\";
        break;
      case '\t':
        escaped += "\\t";
        break;
      case '\n':
        escaped += "\\n";
        break;
      default:
        escaped += one;
    }
  }
  return escaped;
}

template <typename Number>
String Digits(Number number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return Ascii({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

String Flag(bool flag) { return flag ? u"1" : u"0"; }

void Put(std::string& plain, std::string_view word, const std::vector<String>& cells) {
  plain += word;
  for (const String& cell : cells) {
    plain += '\t';
    plain += Escaped(cell);
  }
  plain += '\n';
}

void Put(std::string& plain, const Curve& curve) {
  Put(plain, "curve", {curve.x_title, curve.y_title});
  for (const CurvePoint& point : curve.points) {
    Put(plain, "point",
        {Digits(point.row), Digits(point.x), Digits(point.y), Flag(point.bad), Flag(point.selected)});
  }
}

void Put(std::string& plain, const DocumentTable& table) {
  Put(plain, "table", {table.heading});
  for (const DocumentColumn& column : table.columns) {
    Put(plain, "column", {column.head, Digits(column.share), Flag(column.number)});
  }
  for (const auto& row : table.rows) {
    Put(plain, "row", row);
  }
  if (table.curve) {
    Put(plain, *table.curve);
  }
}

// --- from bytes

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) {
      return parts;
    }
    text.remove_prefix(end + 1);
  }
}

String Unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\\' && at + 1 < text.size()) {
      ++at;
      plain += text[at] == 't' ? '\t' : text[at] == 'n' ? '\n' : text[at];
    } else {
      plain += text[at];
    }
  }
  return FromUtf8(plain);
}

using Cells = std::vector<String>;

/// The number that a cell is, to its last character.
template <typename Number>
std::optional<Number> NumberIn(const String& cell) {
  const std::string digits = ToUtf8(cell);
  Number number{};
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool whole = error == std::errc() && end == digits.data() + digits.size();
  return whole ? std::optional(number) : std::nullopt;
}

bool TakeText(String& text, const Cells& cells) {
  text = cells.empty() ? String() : cells[0];
  return cells.size() == 1;
}

bool TakeColumn(Document& document, const Cells& cells) {
  if (document.tables.empty() || !document.tables.back().rows.empty() || cells.size() != 3) {
    return false;
  }
  const std::optional<int> share = NumberIn<int>(cells[1]);
  document.tables.back().columns.push_back(
      {.head = cells[0], .share = share.value_or(0), .number = cells[2] == u"1"});
  return share && *share >= 1 && *share <= kLargestShare;
}

bool TakeRow(Document& document, const Cells& cells) {
  if (document.tables.empty() || cells.size() != document.tables.back().columns.size()) {
    return false;
  }
  document.tables.back().rows.push_back(cells);
  return true;
}

bool TakeCurve(Document& document, const Cells& cells) {
  if (document.tables.empty() || cells.size() != 2) {
    return false;
  }
  document.tables.back().curve = Curve{.points = {}, .x_title = cells[0], .y_title = cells[1]};
  return true;
}

bool TakePoint(Document& document, const Cells& cells) {
  if (document.tables.empty() || !document.tables.back().curve || cells.size() != 5) {
    return false;
  }
  const std::optional<int> row = NumberIn<int>(cells[0]);
  const std::optional<double> x = NumberIn<double>(cells[1]);
  const std::optional<double> y = NumberIn<double>(cells[2]);
  if (!row || !x || !y || !std::isfinite(*x) || !std::isfinite(*y)) {
    return false;
  }
  document.tables.back().curve->points.push_back(
      {.row = *row, .x = *x, .y = *y, .bad = cells[3] == u"1", .selected = cells[4] == u"1"});
  return true;
}

/// Takes what a line says into the document; false for one that says nothing there.
using Taker = bool (*)(Document&, const Cells&);
constexpr std::array<std::pair<std::string_view, Taker>, 10> kTakers = {{
    {"title", [](Document& document, const Cells& cells) { return TakeText(document.title, cells); }},
    {"header", [](Document& document, const Cells& cells) { return TakeText(document.header, cells); }},
    {"footer", [](Document& document, const Cells& cells) { return TakeText(document.footer, cells); }},
    {"number", [](Document& document, const Cells& cells) { return TakeText(document.page_number, cells); }},
    {"fact",
     [](Document& document, const Cells& cells) {
       return cells.size() == 2 && (document.facts.emplace_back(cells[0], cells[1]), true);
     }},
    {"table", [](Document& document,
                 const Cells& cells) { return TakeText(document.tables.emplace_back().heading, cells); }},
    {"column", TakeColumn},
    {"row", TakeRow},
    {"curve", TakeCurve},
    {"point", TakePoint},
}};

bool TakeLine(Document& document, std::string_view line) {
  const std::vector<std::string_view> parts = Split(line, '\t');
  const auto* const taker =
      std::find_if(kTakers.begin(), kTakers.end(), [&](const auto& one) { return one.first == parts[0]; });
  if (taker == kTakers.end()) {
    return false;
  }
  Cells cells;
  cells.reserve(parts.size());
  std::transform(parts.begin() + 1, parts.end(), std::back_inserter(cells), Unescaped);
  return taker->second(document, cells);
}

}  // namespace

std::string PlainForm(const Document& document) {
  std::string plain;
  Put(plain, "title", {document.title});
  Put(plain, "header", {document.header});
  Put(plain, "footer", {document.footer});
  Put(plain, "number", {document.page_number});
  for (const auto& [what, text] : document.facts) {
    Put(plain, "fact", {what, text});
  }
  for (const DocumentTable& table : document.tables) {
    Put(plain, table);
  }
  Put(plain, kEndWord, {});
  return plain;
}

std::optional<Document> DocumentOf(std::string_view plain) {
  Document document;
  while (true) {
    const std::size_t end = plain.find('\n');
    if (end == std::string_view::npos) {
      return std::nullopt;
    }
    if (plain.substr(0, end) == kEndWord) {
      return document;
    }
    if (!TakeLine(document, plain.substr(0, end))) {
      return std::nullopt;
    }
    plain.remove_prefix(end + 1);
  }
}

}  // namespace korva
