#include "core/text_utilities.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>

#include "core/numbers.h"

namespace korva {
namespace {

constexpr char16_t kReplacement = u'\uFFFD';

String Stripped(StringView text, StringView characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == StringView::npos) {
    return {};
  }
  return String(text.substr(first, text.find_last_not_of(characters) - first + 1));
}

bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

void AppendUtf8(std::string& bytes, char32_t c) {
  const auto append = [&bytes](char32_t byte) {
    bytes += static_cast<char>(static_cast<std::uint8_t>(byte));
  };
  if (c < 0x80) {
    append(c);
  } else if (c < 0x800) {
    append(0xC0 | c >> 6);
    append(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    append(0xE0 | c >> 12);
    append(0x80 | (c >> 6 & 0x3F));
    append(0x80 | (c & 0x3F));
  } else {
    append(0xF0 | c >> 18);
    append(0x80 | (c >> 12 & 0x3F));
    append(0x80 | (c >> 6 & 0x3F));
    append(0x80 | (c & 0x3F));
  }
}

void AppendUtf16(String& text, char32_t c) {
  if (c < 0x10000) {
    text += static_cast<char16_t>(c);
  } else {
    text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
  }
}

/// Takes one character from the front of `bytes`; a broken sequence gives U+FFFD and takes the bytes up to
/// the one that broke it, at least one.
char32_t TakeUtf8(std::string_view& bytes) {
  const auto lead = static_cast<std::uint8_t>(bytes.front());
  bytes.remove_prefix(1);
  if (lead < 0x80) {
    return lead;
  }
  if (lead < 0xC2 || lead > 0xF4) {
    return kReplacement;
  }
  const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t c = lead & (0x3FU >> following);
  for (int taken = 0; taken < following; ++taken) {
    const auto next = bytes.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(bytes.front());
    // The second byte's range keeps out overlong forms, surrogates and what lies beyond U+10FFFF.
    const bool overlong = taken == 0 && ((lead == 0xE0 && next < 0xA0) || (lead == 0xF0 && next < 0x90));
    const bool beyond = taken == 0 && ((lead == 0xED && next > 0x9F) || (lead == 0xF4 && next > 0x8F));
    if ((next & 0xC0) != 0x80 || overlong || beyond) {
      return kReplacement;
    }
    c = c << 6 | (next & 0x3F);
    bytes.remove_prefix(1);
  }
  return c;
}

}  // namespace

bool IsBetween(double upper, double lower, double x) { return lower <= x && x <= upper; }

String TrimNumericText(StringView text) { return Stripped(text.substr(0, NumericLength(text)), u" \t"); }

String TrimNumericTextLeft(StringView text) {
  while (!text.empty() && !IsNumeric(text)) {
    text.remove_prefix(1);
  }
  return Stripped(text, u" \t");
}

String FilterNumericText(StringView text) {
  String filtered;
  for (const char16_t c : text) {
    if ((c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.') {
      filtered += c;
    }
  }
  return IsNumeric(filtered) ? filtered : String();
}

double NumericValue(StringView text) { return LeadingNumber(FilterNumericText(text)); }

String CommaToPoint(StringView text) {
  String changed(text);
  const std::size_t comma = changed.find(u',');
  if (comma != String::npos) {
    changed[comma] = u'.';
  }
  return changed;
}

String HalfWidthNumber(StringView text) {
  constexpr char16_t kFullZero = u'０';
  constexpr char16_t kFullNine = u'９';
  constexpr StringView kFullMarks = u"＋－\u2212．";  // U+2212 is the minus of mathematics
  constexpr StringView kHalfMarks = u"+--.";
  String half(text);
  for (char16_t& c : half) {
    if (c >= kFullZero && c <= kFullNine) {
      c = static_cast<char16_t>(u'0' + (c - kFullZero));
    } else if (const std::size_t mark = kFullMarks.find(c); mark != StringView::npos) {
      c = kHalfMarks[mark];
    }
  }
  return half;
}

String Trimmed(StringView text) { return Stripped(text, u" "); }

String Simplified(StringView text) {
  String simple;
  bool gap = false;
  for (const char16_t character : text) {
    const bool blank = StringView(u" \t\r\n\u3000").find(character) != StringView::npos;
    if (!blank) {
      if (gap && !simple.empty()) {
        simple += u' ';
      }
      simple += character;
    }
    gap = blank;
  }
  return simple;
}

// In one pass, so that an argument that looks like a place stays as it is.
bool IsLike(StringView text, StringView pattern) {
  const auto matches = [](char16_t character, char16_t wanted) {
    const bool digit = character >= u'0' && character <= u'9';
    return wanted == u'?' || character == wanted || (wanted == u'#' && digit);
  };
  return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), matches);
}

String Filled(StringView text, std::initializer_list<String> arguments) {
  String filled;
  while (!text.empty()) {
    const bool place = text.size() >= 3 && text[0] == u'{' && text[2] == u'}';
    if (place) {
      const auto number = static_cast<std::size_t>(text[1] - u'1');
      assert(number < arguments.size());
      filled += number < arguments.size() ? arguments.begin()[number] : String();
      text.remove_prefix(3);
    } else {
      filled += text.front();
      text.remove_prefix(1);
    }
  }
  return filled;
}

String Ascii(std::string_view text) {
  String wide;
  for (const char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    wide += byte < 0x80 ? static_cast<char16_t>(byte) : kReplacement;
  }
  return wide;
}

std::string ToUtf8(StringView text) {
  std::string bytes;
  for (std::size_t index = 0; index < text.size(); ++index) {
    char32_t c = text[index];
    if (IsHighSurrogate(c) && index + 1 < text.size() && IsLowSurrogate(text[index + 1])) {
      ++index;
      c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(text[index]) - 0xDC00);
    } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
      c = kReplacement;
    }
    AppendUtf8(bytes, c);
  }
  return bytes;
}

String FromUtf8(std::string_view text) {
  String wide;
  while (!text.empty()) {
    AppendUtf16(wide, TakeUtf8(text));
  }
  return wide;
}

bool IsUtf8(std::string_view text) { return ToUtf8(FromUtf8(text)) == text; }

}  // namespace korva
