#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "link/group_item.h"
#include "link/serial_link.h"
#include "platform/platform.h"

namespace korva {

// The device's memory travels as hexadecimal text, two upper-case digits a byte.

/// `value` in two's complement, cut on the left or filled with zeros to `size` bytes (1 to 4).
std::string ToHexField(std::int32_t value, int size);
/// The first `size` bytes of a text of one byte a character. It is at least that long.
std::string ToHexField(std::string_view text, int size);
/// The pairs of digits in reverse order: numbers lie in the memory low byte first.
std::string SwapBytePairs(std::string_view hex);
/// The number of the digits, high byte first; -1 when there is any other character than 0 to 9 and A to F.
/// Two bytes are 0 to 65535; all other lengths are signed, save that the lowest number of a length (80 of one
/// byte) stays positive. Throws RuntimeFailure for a number that 32 bits don't hold.
std::int32_t HexToNumber(std::string_view hex);
/// One character for each pair of digits. A character below "0" counts as 0, one above "F" as 15.
std::string HexToText(std::string_view hex);

/// The memory of a device of the second line: 8192 bytes, written in pages of 16. SelectEeprom comes before
/// anything else, and the mode lasts until the device is sent to another one.
///
/// Nothing is repeated and nothing is undone: a failed write can have stored a part. Silence fails the
/// access. So does an answer that isn't the one that the command asks for, character by character: what it
/// tells nobody may trust with the device's calibration. The line is drained behind one before the next
/// command goes out (SerialLink::LoseStep).
class Eeprom {
 public:
  /// What is stored: a number, or a text of one byte a character.
  using Value = std::variant<std::int32_t, String>;
  static constexpr std::int32_t kFailed = -1;
  static constexpr int kSize = 8192;  ///< bytes

  /// Both outlive this.
  Eeprom(SerialLink& link, const CodePage& code_page) : link_(link), code_page_(code_page) {}

  /// Enters the mode. The device's last answer, or empty when it doesn't take it.
  String SelectEeprom(const WireItem& item);
  /// `count` + 1 tries at most.
  String SelectEepromRetry(int count, const WireItem& item);

  /// The number of `size` bytes (1 to 3) at `address` (0 to 8191), or the text of -`size` bytes when `size`
  /// is 0 or below. kFailed when any step fails; Failed() tells that from a number that is -1.
  Value EepReadValue(int address, int size);
  /// The same as text; "-1" when it failed. The size of EepReadString is the text's length.
  String EepReadNumber(int address, int size);
  String EepReadString(int address, int length);

  /// Writes a number of `size` bytes, or -`size` bytes of a text, which is at least that long, when `size` is
  /// 0 or below. Each block is read back. 0, or kFailed.
  int EepWriteValue(int address, int size, const Value& value);
  /// Writes, and reads back once more: what is stored then, or empty when the write failed.
  String EepWriteNumber(int address, int size, std::int32_t value);
  String EepWriteString(int address, int length, const String& text);
  /// Writes 1 to 8 bytes, given as hexadecimal text, at most up to a page's end at a time. 0, or kFailed.
  int EepWriteChunk(int address, const std::string& hex);

  /// Called behind each block that was read, or written and read back: `sent` are the digits of a write,
  /// empty for a read. What the device gave is the link's last reply. Of a block that is read back once more,
  /// only a fault is told, with the digits that were written.
  std::function<void(int address, const std::string& sent, bool good)> OnBlock;

  /// True when the last of these accesses failed.
  [[nodiscard]] bool Failed() const { return failed_; }

 private:
  bool SetAddress(int address, int count);
  /// The digits of the next `count` bytes; empty when that failed.
  std::string Fetch(int address, int count);
  /// Reads what was just written, which are these digits.
  String ReadAgain(int address, int size, std::string digits);
  std::optional<String> ReadText(int address, int length);
  bool WriteNumber(int address, int size, std::int32_t value);
  bool WriteText(int address, int length, const String& text);
  bool WriteChunk(int address, const std::string& hex);
  bool WritePart(int address, const std::string& hex);
  /// Tells of a block; `good`.
  bool Told(int address, const std::string& sent, bool good) const;
  /// True when `reply` is `expected`; another text shows that the line is out of step.
  bool Expect(const String& reply, const std::string& expected);

  SerialLink& link_;
  const CodePage& code_page_;
  std::string due_;  ///< the digits of what is read again and has still to come
  bool failed_ = false;
};

}  // namespace korva
