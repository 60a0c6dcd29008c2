#include "sim/memory.h"

#include <algorithm>
#include <optional>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";
constexpr std::string_view kTaken = "COK";
constexpr std::string_view kNotTaken = "CNG";
constexpr std::size_t kMostBytes = 8;  // of one command

/// The number that upper-case hexadecimal digits are; none for any other text.
std::optional<std::size_t> FromHex(std::string_view digits) {
  std::size_t value = 0;
  for (const char digit : digits) {
    const auto place = kHexDigits.find(digit);
    if (place == std::string_view::npos) {
      return std::nullopt;
    }
    value = (value * kHexDigits.size()) + place;
  }
  return digits.empty() ? std::nullopt : std::optional(value);
}

std::uint8_t ByteOf(char character) { return static_cast<std::uint8_t>(character); }

}  // namespace

// --- memory
// -------------------------------------------------------------------------------------------------

void Memory::WritePage(std::size_t address, std::string_view bytes) {
  const std::size_t page = address / kPage * kPage;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes_.at(page + ((address + i) % kPage)) = ByteOf(bytes[i]);
  }
}

std::string Memory::Bytes(std::size_t address, std::size_t count) const {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) {
    bytes += static_cast<char>(bytes_.at(address + i));
  }
  return bytes;
}

void Memory::Put(std::size_t address, std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    bytes_.at(address + i) = ByteOf(bytes[i]);
  }
}

std::int32_t Memory::Number(std::size_t address, std::size_t count) const {
  // Begun with the sign, so that it fills the bytes that the number has not.
  auto value = static_cast<std::uint32_t>(bytes_.at(address + count - 1) >= 0x80 ? -1 : 0);
  for (std::size_t i = count; i-- > 0;) {
    value = (value << 8U) | bytes_.at(address + i);
  }
  return static_cast<std::int32_t>(value);
}

void Memory::PutNumber(std::size_t address, std::size_t count, std::int32_t value) {
  auto rest = static_cast<std::uint32_t>(value);
  for (std::size_t i = 0; i < count; ++i) {
    bytes_.at(address + i) = static_cast<std::uint8_t>(rest & 0xFFU);
    rest >>= 8U;
  }
}

std::string Memory::Text(std::size_t address, std::size_t count) const {
  return std::string(TrimBlanks(Bytes(address, count)));
}

void Memory::PutText(std::size_t address, std::size_t count, std::string_view text) {
  std::string padded(text);
  padded.resize(count, ' ');
  Put(address, padded);
}

// --- access
// -------------------------------------------------------------------------------------------------

std::string MemoryAccess::Answer(std::string_view line, Trouble trouble) {
  if (line == "D") {
    return count_ == 0 ? std::string(kNotTaken) : Fetch(trouble.wrong);
  }
  const bool taken = ChoosesPlace(line) ? ChoosePlace(line.substr(2)) : Store(line.substr(1), trouble.stuck);
  return std::string(taken ? kTaken : kNotTaken);
}

bool MemoryAccess::ChoosePlace(std::string_view text) {
  constexpr std::size_t length = std::string_view("0000-0").size();
  constexpr std::size_t dash = std::string_view("0000").size();
  count_ = 0;
  if (text.size() != length || text[dash] != '-') {
    return false;
  }
  const auto address = FromHex(text.substr(0, dash));
  const auto count = FromHex(text.substr(dash + 1));
  if (!address || !count || *count == 0 || *count > kMostBytes || *address + *count > Memory::kSize) {
    return false;
  }
  address_ = *address;
  count_ = *count;
  return true;
}

bool MemoryAccess::Store(std::string_view digits, bool stuck) {
  if (count_ == 0 || digits.size() != 2 * count_) {
    return false;
  }
  std::string bytes;
  for (std::size_t i = 0; i < count_; ++i) {
    const auto byte = FromHex(digits.substr(2 * i, 2));
    if (!byte) {
      return false;
    }
    bytes += static_cast<char>(*byte);
  }
  if (stuck) {
    bytes.pop_back();
  }
  memory_.WritePage(address_, bytes);
  return true;
}

std::string MemoryAccess::Fetch(bool wrong) const {
  std::string bytes = memory_.Bytes(address_, count_);
  if (wrong) {
    bytes.back() = static_cast<char>(ByteOf(bytes.back()) ^ 0x01U);
  }
  std::string reply = "D";
  for (const char byte : bytes) {
    reply += kHexDigits[ByteOf(byte) >> 4U];
    reply += kHexDigits[ByteOf(byte) & 0x0FU];
  }
  return reply;
}

}  // namespace korva::sim
