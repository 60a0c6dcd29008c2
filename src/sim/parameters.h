#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "sim/definition.h"
#include "sim/family.h"

namespace korva::sim {

/// What the device does with data for an item.
enum class WriteResult {
  Done,
  Refused,    ///< It doesn't know this value.
  NotUsable,  ///< The item is of no use in the present configuration.
};

/// One item of the device's menu.
struct Item {
  /// What an item holds and how it takes data.
  enum class Kind {
    Fixed,   ///< A text of the device itself; takes no data.
    Mode,    ///< The device mode.
    Tag,     ///< Up to ten characters, reported padded to ten.
    Number,  ///< A number.
    Choice,  ///< A row of a table: takes the code, reports the text.
    Live,    ///< A measured value; takes no data.
    Output,  ///< A measured value that takes a number to force the output.
  };

  std::string group;
  std::string item;
  Kind kind = Kind::Number;
  std::string title;      ///< As the device's display names it.
  std::string prefix;     ///< Stands before the value in a reply.
  std::string unit;       ///< Unit of a live value.
  std::string section;    ///< Definition section of a choice.
  bool by_title = false;  ///< The choice's column in `$I11Body` follows from the input type.
  bool uploaded = false;  ///< Configurators read it as a parameter.
  std::string held;       ///< The value, save for choices and live values.
  std::size_t row = 0;    ///< The chosen row of a choice.
};

/// The items of one device with their values, without mode and measurement.
class Parameters {
 public:
  static constexpr std::size_t kTagLength = 10;

  /// All items at power-up.
  Parameters(const Model& model, Definition definition, const Family& family, std::string system_text);

  /// The item, or null when the device has none there.
  Item* Find(std::string_view group, std::string_view item);
  const Item* Find(std::string_view group, std::string_view item) const;

  bool HasGroup(std::string_view group) const;

  /// Whether the item is of no use in the present configuration.
  bool Needless(const Item& item) const;

  /// The value of a tag (unpadded), number, choice or fixed text as the device reports it. Zero and span are
  /// held inside the limits of the input type.
  std::string Text(const Item& item) const;

  /// Gives a tag, number or choice a value, as a configurator does.
  /// \param data  For a choice the code.
  WriteResult Write(Item& item, std::string_view data);

  /// Gives an item any value that it can hold, as a technician at the device does.
  /// \param value  For a choice the text or the code.
  /// \return false when it can't hold this.
  bool Set(Item& item, std::string_view value);

  /// All values as at power-up.
  void Reset();

  /// Definition file without its ending, such as "QHW".
  const std::string& ModelCode() const { return code_; }

 private:
  void AddRow(const Definition::Row& row);
  void AddFixed(std::string_view group, std::string_view item, std::string_view title, std::string value);
  void ClassifyRow(const Definition::Row& row, Item& item) const;
  void PowerUp(Item& item) const;
  std::size_t FirstRow(const Item& item) const;
  std::string PowerUpLimit(bool span) const;

  std::size_t TextColumn(const Item& item) const;
  std::string RowText(const Item& item, std::size_t row) const;
  std::string Code(const Item& item) const;
  bool RowUsable(const Item& item, std::size_t row) const;
  const Definition::Row* InputType() const;
  std::size_t InputTitle() const;
  std::optional<std::pair<std::string, std::string>> Limits() const;
  std::string Limited(const std::string& held) const;
  WriteResult WriteChoice(Item& item, std::string_view data);
  void SettleRange();

  Definition definition_;
  const Family& family_;
  std::string code_;
  std::string system_text_;
  std::vector<Item> items_;
};

}  // namespace korva::sim
