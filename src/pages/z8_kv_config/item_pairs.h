#pragma once

#include <array>
#include <map>
#include <optional>

#include "files/parameter_page.h"

namespace korva {

/// The two numbers of an item that holds two, as texts.
struct PairTexts {
  String first;
  String second;
  bool operator==(const PairTexts&) const = default;
};
/// Before and behind the first blank; a text without one is the first number alone.
PairTexts SplitPair(StringView text);
/// Both with one blank between them; no blank behind a first number that stands alone.
String JoinPair(const PairTexts& pair);
/// The two numbers of a device's answer, each less the unit behind it.
PairTexts PairOfAnswer(StringView answer);

/// The items of family Nano that hold two numbers: ranges and limits of the input and of both outputs. On the
/// page each number has a field, which a row of $Data of its own stands for ("14_0", "14_100"); in the set,
/// in files and on the wire both are one text.
///
/// The set keeps the device's digits, and a field shows them by the mask of its row. An edit takes the text
/// that was typed, and leaves the other number as it is, even when a blank was typed into the one.
///
/// Temperatures are in deg C on the wire, whatever the page shows. So a number that was read is kept beside
/// the set: as long as nobody has edited it, it goes out as it was read, and another unit is converted from
/// it, which no rounding can move away.
class ItemPairs final : public PagePart {
 public:
  /// Adds itself and the labels of its fields to the page, which outlives this.
  explicit ItemPairs(ParameterPage& page);

  void SetCaptions(Language language) override;
  void PageCleared() override { read_.clear(); }
  void SetCleared() override { read_.clear(); }
  void UploadBegins() override { read_.clear(); }
  void SettleTabs(TabMoment moment) override;
  [[nodiscard]] std::optional<String> ShownText(int row) const override;
  [[nodiscard]] std::optional<String> CellOf(int row, const String& text) const override;
  void PageBuilt() override;
  void ChoiceMade(const Choice& choice) override;
  [[nodiscard]] std::function<void()> Keep() override {
    return [this, read = read_] { read_ = read; };
  }

  /// True for the row of one of two numbers.
  [[nodiscard]] bool Has(int row) const { return PlaceOf(row).pair >= 0; }
  /// The row with which the item of a row travels: that of its first number.
  [[nodiscard]] int CarrierOf(int row) const;
  /// Takes what an upload has put into the cell of a row.
  void TakeAnswer(int row);
  /// Brings what was read, in deg C, into the unit of the set, as far as that was read. May be repeated.
  void ShowInUnit();
  /// What goes out for the cell of a row: in deg C, and by the device's mask what was not read so. Empty
  /// while a number is missing.
  [[nodiscard]] String DataOf(int row) const;
  /// Puts the range that a choice brings along into the pair of these two rows, in the unit of the page.
  void BringRange(StringView first_key, StringView list, int row);

 private:
  /// The place of a row of $Data among the pairs.
  struct Place {
    int pair = -1;  ///< -1: it is none of theirs
    bool second = false;
  };
  /// A number as it was read, and as the set has it in the unit of the page.
  struct Number {
    String read;
    String shown;
  };

  [[nodiscard]] Place PlaceOf(int row) const;
  /// The row of the first, or second, number of the pair to which a row belongs; -1 for none.
  [[nodiscard]] int RowOf(int row, bool second) const;
  /// The temperature unit that the set tells by its text or, as its options do, by its code.
  [[nodiscard]] String UnitOfSet() const;
  /// The number of a row as the set has it.
  [[nodiscard]] String TextOf(int row) const;
  [[nodiscard]] String MaskOf(int row) const;
  [[nodiscard]] String ShownUnitOf(int row) const;
  /// The number of a row if it is still the one that was read.
  [[nodiscard]] const Number* Unedited(int row) const;
  [[nodiscard]] String DataOfNumber(int row) const;
  void Remember(int row, const Number& number);
  /// Puts a text into the number's place in the set.
  void Put(int row, const String& text);
  void ChangeUnit(int row, const String& unit);
  void BringOne(int row, const String& preset, bool low);

  ParameterPage& page_;
  std::map<String, Number> read_;  ///< by the key of the row
  std::array<Label, 12> labels_;   ///< in the order of the rows
};

}  // namespace korva
