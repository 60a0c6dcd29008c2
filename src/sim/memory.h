#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korva::sim {

/// The EEPROM of a device: bytes with their addresses, all FF where nothing was ever written.
///
/// It is written by pages of 16 bytes: a write that runs over the end of its page goes on at the page's
/// beginning, over what stands there, as such a memory does. Reading knows no pages.
class Memory {
 public:
  static constexpr std::size_t kSize = 8192;
  static constexpr std::size_t kPage = 16;

  /// Writes bytes as the memory takes them in one go. \param address  0 to 8191; at most 16 bytes.
  void WritePage(std::size_t address, std::string_view bytes);

  /// The bytes from an address on. \param address,count  Together not beyond 8192.
  std::string Bytes(std::size_t address, std::size_t count) const;

  /// Gives bytes a content from outside, without regard to pages. \param address  With the bytes not beyond
  /// 8192.
  void Put(std::size_t address, std::string_view bytes);

  /// A number of 1 to 4 bytes, low byte first, in two's complement.
  std::int32_t Number(std::size_t address, std::size_t count) const;
  void PutNumber(std::size_t address, std::size_t count, std::int32_t value);

  /// A text, less the blanks around it.
  std::string Text(std::size_t address, std::size_t count) const;
  /// Puts a text, cut to its place or padded with blanks to it.
  void PutText(std::size_t address, std::size_t count, std::string_view text);

 private:
  std::vector<std::uint8_t> bytes_ = std::vector<std::uint8_t>(kSize, 0xFF);
};

/// The byte access to a device's memory, once its item is selected: "DS", the address in four hexadecimal
/// digits, "-" and the count of bytes, 1 to 8; then "D" fetches them, or "D" and the bytes in hexadecimal
/// digits stores them. Digits are upper case. The place stays the same until the next "DS".
class MemoryAccess {
 public:
  /// What may go wrong with one command line, on purpose.
  struct Trouble {
    bool stuck = false;  ///< The last byte of a write doesn't take; it is answered as if it did.
    bool wrong = false;  ///< The last byte fetched is another than the memory's.
  };

  /// \param memory  Outlives the access.
  explicit MemoryAccess(Memory& memory) : memory_(memory) {}

  /// The access has just been selected: no place is chosen.
  void Enter() { count_ = 0; }

  /// Whether a line of the menu ("D...") chooses a place.
  static bool ChoosesPlace(std::string_view line) { return line.starts_with("DS"); }

  /// Answers a line that begins with "D".
  /// \return "COK", "D" and the bytes fetched, or "CNG" for all that it doesn't understand: another form, a
  ///         place beyond the memory, a count of bytes that isn't the one told, no place chosen.
  std::string Answer(std::string_view line, Trouble trouble);

 private:
  bool ChoosePlace(std::string_view text);
  bool Store(std::string_view digits, bool stuck);
  std::string Fetch(bool wrong) const;

  Memory& memory_;
  std::size_t address_ = 0;
  std::size_t count_ = 0;  // 0: no place chosen
};

}  // namespace korva::sim
