#include "link/eeprom.h"

#include <algorithm>

#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kBlock = 8;  // bytes that one command moves at most
constexpr int kPage = 16;  // bytes; a write must not run over a page's end
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr StringView kMenu = u"D      enter item";
constexpr StringView kEepromMode = u"D   EEPROM Access";

std::string ByteDigits(unsigned byte) { return {kDigits[byte >> 4U & 0xFU], kDigits[byte & 0xFU]}; }

// The digit's value; what lies outside counts as the nearest.
unsigned NearestDigit(char digit) {
  const int code = static_cast<unsigned char>(digit);
  const int value = code <= '9' ? code - '0' : code - 'A' + 10;
  return static_cast<unsigned>(std::clamp(value, 0, 15));
}

// The bytes' digits in a reply that is "D" and nothing but them; empty for any other.
std::string DigitsOf(const String& reply, int count) {
  const std::string text = ToUtf8(reply);
  const bool own = text.size() == 1 + 2 * static_cast<std::size_t>(count) && text.front() == 'D' &&
                   text.find_first_not_of(kDigits, 1) == std::string::npos;
  return own ? text.substr(1) : std::string();
}

}  // namespace

std::string ToHexField(std::int32_t value, int size) {
  std::string hex;
  for (int byte = size - 1; byte >= 0; --byte) {
    hex += ByteDigits(static_cast<std::uint32_t>(value) >> static_cast<unsigned>(8 * byte) & 0xFFU);
  }
  return hex;
}

std::string ToHexField(std::string_view text, int size) {
  std::string hex;
  for (const char character : text.substr(0, static_cast<std::size_t>(size))) {
    hex += ByteDigits(static_cast<unsigned char>(character));
  }
  return hex;
}

std::string SwapBytePairs(std::string_view hex) {
  std::string swapped;
  for (std::size_t end = hex.size() / 2 * 2; end >= 2; end -= 2) {
    swapped += hex.substr(end - 2, 2);
  }
  return swapped;
}

std::int32_t HexToNumber(std::string_view hex) {
  std::int64_t number = 0;
  for (const char digit : hex) {
    const std::size_t value = kDigits.find(digit);
    if (value == std::string_view::npos) {
      return Eeprom::kFailed;
    }
    number = number * 16 + static_cast<std::int64_t>(value);
    if (number > INT32_MAX) {
      throw RuntimeFailure(u"変換器の数値が大きすぎます。「" + FromUtf8(hex) + u"」");
    }
  }
  constexpr std::size_t word = 4;
  constexpr std::size_t longest = 8;  // whose sign would be beyond 32 bits
  if (hex.size() == word || hex.size() >= longest) {
    return static_cast<std::int32_t>(number);
  }
  const std::int64_t range = std::int64_t{1} << (4 * hex.size());
  return static_cast<std::int32_t>(2 * number > range ? number - range : number);
}

std::string HexToText(std::string_view hex) {
  std::string text;
  for (std::size_t at = 0; at + 2 <= hex.size(); at += 2) {
    text += static_cast<char>(NearestDigit(hex[at]) * 16 + NearestDigit(hex[at + 1]));
  }
  return text;
}

bool Eeprom::Expect(const String& reply, const std::string& expected) {
  const bool own = reply == FromUtf8(expected);
  if (!own && !reply.empty()) {
    link_.LoseStep();
  }
  return own;
}

String Eeprom::SelectEeprom(const WireItem& item) {
  const auto command = [this](char16_t letter, const String& text) {
    return link_.SendCommandUntrimmed(letter + text + u'\r');
  };
  if (!Expect(command(u'G', item.group), ToUtf8(kMenu))) {
    return {};
  }
  const String reply = command(u'I', item.item);
  return Expect(reply, ToUtf8(kEepromMode)) ? reply : String();
}

String Eeprom::SelectEepromRetry(int count, const WireItem& item) {
  String reply = SelectEeprom(item);
  for (int repeat = 0; repeat < count && reply.empty(); ++repeat) {
    reply = SelectEeprom(item);
  }
  return reply;
}

bool Eeprom::SetAddress(int address, int count) {
  const std::string command = "DS" + ToHexField(address, 2) + "-" + std::to_string(count) + "\r";
  return Expect(link_.SendCommandUntrimmed(FromUtf8(command)), "COK");
}

std::string Eeprom::Fetch(int address, int count) {
  const std::string due = due_.substr(0, 2 * static_cast<std::size_t>(count));
  due_.erase(0, due.size());
  if (!SetAddress(address, count)) {
    Told(address, due, false);
    return {};
  }
  const String reply = link_.SendCommandUntrimmed(u"D\r");
  std::string digits = DigitsOf(reply, count);
  if (digits.empty() && !reply.empty()) {
    link_.LoseStep();
  }
  const bool good = !digits.empty() && (due.empty() || digits == due);
  if (due.empty() || !good) {
    Told(address, due, good);
  }
  return digits;
}

Eeprom::Value Eeprom::EepReadValue(int address, int size) {
  if (size <= 0) {
    const std::optional<String> text = ReadText(address, -size);
    failed_ = !text;
    return text ? Value(*text) : Value(kFailed);
  }
  const std::string hex = Fetch(address, size);
  failed_ = hex.empty();
  return failed_ ? kFailed : HexToNumber(SwapBytePairs(hex));
}

std::optional<String> Eeprom::ReadText(int address, int length) {
  std::string text;
  for (int done = 0; done < length; done += kBlock) {
    const std::string hex = Fetch(address + done, std::min(length - done, kBlock));
    if (hex.empty()) {
      return std::nullopt;
    }
    text += HexToText(hex);
  }
  return code_page_.Decode(text);
}

String Eeprom::EepReadNumber(int address, int size) {
  const Value value = EepReadValue(address, size);
  const auto* const number = std::get_if<std::int32_t>(&value);
  return number != nullptr ? Ascii(std::to_string(*number)) : std::get<String>(value);
}

String Eeprom::EepReadString(int address, int length) { return EepReadNumber(address, -length); }

int Eeprom::EepWriteValue(int address, int size, const Value& value) {
  const bool written = size > 0 ? WriteNumber(address, size, std::get<std::int32_t>(value))
                                : WriteText(address, -size, std::get<String>(value));
  failed_ = !written;
  return written ? 0 : kFailed;
}

bool Eeprom::WriteNumber(int address, int size, std::int32_t value) {
  return WriteChunk(address, SwapBytePairs(ToHexField(value, size)));
}

bool Eeprom::WriteText(int address, int length, const String& text) {
  const std::optional<std::string> bytes = code_page_.Encode(text);
  if (!bytes || bytes->size() < static_cast<std::size_t>(length)) {
    return false;
  }
  for (int done = 0; done < length; done += kBlock) {
    const std::string_view rest = std::string_view(*bytes).substr(static_cast<std::size_t>(done));
    if (!WriteChunk(address + done, ToHexField(rest, std::min(length - done, kBlock)))) {
      return false;
    }
  }
  return true;
}

String Eeprom::EepWriteNumber(int address, int size, std::int32_t value) {
  return EepWriteValue(address, size, value) == kFailed
             ? String()
             : ReadAgain(address, size, SwapBytePairs(ToHexField(value, size)));
}

String Eeprom::EepWriteString(int address, int length, const String& text) {
  return EepWriteValue(address, -length, text) == kFailed
             ? String()
             : ReadAgain(address, -length, ToHexField(code_page_.Encode(text).value(), length));
}

String Eeprom::ReadAgain(int address, int size, std::string digits) {
  due_ = std::move(digits);
  String stored = EepReadNumber(address, size);
  due_.clear();
  return stored;
}

int Eeprom::EepWriteChunk(int address, const std::string& hex) {
  failed_ = !WriteChunk(address, hex);
  return failed_ ? kFailed : 0;
}

// A write that ends at a page's end is not split: its second part is empty.
bool Eeprom::WriteChunk(int address, const std::string& hex) {
  const int count = static_cast<int>(hex.size() / 2);
  const int page_end = (address + count) / kPage * kPage;
  const int first = page_end > address ? page_end - address : count;
  const std::size_t digits = std::size_t{2} * static_cast<std::size_t>(first);
  return WritePart(address, hex.substr(0, digits)) &&
         (first == count || WritePart(address + first, hex.substr(digits)));
}

bool Eeprom::WritePart(int address, const std::string& hex) {
  const std::string data = "D" + hex;
  const bool good = SetAddress(address, static_cast<int>(hex.size() / 2)) &&
                    Expect(link_.SendCommandUntrimmed(FromUtf8(data + "\r")), "COK") &&
                    Expect(link_.SendCommandUntrimmed(u"D\r"), data);
  return Told(address, hex, good);
}

bool Eeprom::Told(int address, const std::string& sent, bool good) const {
  if (OnBlock) {
    OnBlock(address, sent, good);
  }
  return good;
}

}  // namespace korva
