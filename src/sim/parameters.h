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

// Sections of choices that mean more than their rows.
inline constexpr std::string_view kRanges = "$I11Body";           ///< Ranges by the input type's title.
inline constexpr std::string_view kFrequencyUnits = "frequency";  ///< The device's own, in no definition.

/// One item of the device's menu.
struct Item {
  /// What an item holds and how it takes data.
  enum class Kind {
    Fixed,         ///< A text of the device itself; takes no data.
    Mode,          ///< The device mode.
    Tag,           ///< Up to ten characters, reported padded to ten.
    Number,        ///< A number.
    Choice,        ///< A row of a table: takes the code, reports the text.
    Live,          ///< A measured value; takes no data.
    Output,        ///< A measured value that takes a number to force the output.
    Count,         ///< A whole number that goes on by itself in monitor mode, and can be set.
    Command,       ///< Acts when it is written without data: sets a count to 0. Reads as 0.
    Stored,        ///< A text that stands in the device's memory; takes no data.
    Trim,          ///< Zero and span of the output's trim; takes no data.
    Trimmer,       ///< Takes the commands that move the trim.
    Table,         ///< Takes and answers the commands of the linearizer table.
    Address,       ///< Two hexadecimal digits, 01 to 7F.
    Restart,       ///< Restarts the device when it is written with "R".
    Keyed,         ///< A table whose values have keys.
    Access,        ///< Lets the device's memory be read and written byte by byte while it is selected.
    Pair,          ///< Two numbers with a blank between them.
    FineTrim,      ///< A number in percent, by which an end of an output is moved.
    Compensation,  ///< Takes and answers the commands that correct the sensor's circuit.
  };

  std::string group;
  std::string item;
  Kind kind = Kind::Number;
  std::string title;    ///< As the device's display names it.
  std::string form;     ///< Word of the definition for its kind, or its prefix.
  std::string prefix;   ///< Stands before the value in a reply.
  std::string unit;     ///< Unit that the definition gives.
  std::string follows;  ///< List of the choice that brings the unit.
  std::string tail;     ///< Stands behind a number in a reply, with a blank before it if it has one.
  /// Item of group 01 with the unit in which this number is written and held; empty: it is no frequency.
  std::string unit_item;
  bool directed = false;  ///< A number that may be written with a direction behind it.
  std::string section;    ///< Definition section of a choice.
  bool by_title = false;  ///< The choice's column in `$I11Body` follows from the input type.
  bool uploaded = false;  ///< Configurators read it as a parameter.
  std::string low;        ///< Lowest threshold in volts; empty: no threshold, or one without limits.
  std::string high;       ///< Highest threshold.
  std::string held;       ///< The value, save for choices and live values.
  std::size_t row = 0;    ///< The chosen row of a choice.
};

/// Whether the item is zero or span, which the device limits.
bool IsLimited(const Item& item);

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

  /// The value of a tag (unpadded), number, choice, count or fixed text as the device reports it, a number
  /// with its unit if the device shows one. Zero and span are held inside the limits of the input type.
  std::string Text(const Item& item) const;

  /// A number as `Text` has it, less the unit.
  std::string Plain(const Item& item) const;

  /// The value of a number, a frequency in Hz where the device holds its unit; none for other items.
  std::optional<double> Quantity(const Item& item) const;

  /// Gives a tag, number, choice or count a value, or carries out a command, as a configurator does.
  /// \param data  For a choice the code, for a command nothing.
  WriteResult Write(Item& item, std::string_view data);

  /// Gives an item any value that it can hold, as a technician at the device does.
  /// \param value  For a choice the text or the code.
  /// \return false when it can't hold this.
  bool Set(Item& item, std::string_view value);

  /// Counts one on; behind its highest value a count begins at 0 again.
  static void CountOn(Item& count);

  /// All values as at power-up.
  void Reset();

  /// The unit of an item of a device whose input has classes: of the scale, of the sensor's signal, or the
  /// definition's own; empty where it has none.
  std::string UnitOf(const Item& item) const;

  const Definition& GetDefinition() const { return definition_; }
  /// Definition file without its ending, such as "QHW".
  const std::string& ModelCode() const { return code_; }

 private:
  void AddRow(const Definition::Row& row);
  void AddFixed(std::string_view group, std::string_view item, std::string_view title, std::string value);
  void AddUnits();
  void AddMemory();
  void AddTrims();
  void AddRestart();
  void AddOutputs();
  void AddKeyedTables();
  void ClassifyRow(const Definition::Row& row, Item& item) const;
  Item::Kind KindOf(const Definition::Row& row, const Item& item) const;
  void PowerUp(Item& item) const;
  std::size_t FirstRow(const Item& item) const;
  bool IsPreferred(const Item& item, std::size_t row) const;
  std::string PowerUpText(const Item& item) const;
  std::string PowerUpLimit(bool span) const;
  std::string FirstTypeLimit(const Item& item) const;
  std::string PairOfType(const Item& pair) const;
  void BringPairs(const Item& type);

  const std::vector<Definition::Row>& Rows(const Item& choice) const;
  std::size_t TextColumn(const Item& item) const;
  std::string RowText(const Item& item, std::size_t row) const;
  std::string Code(const Item& item) const;
  bool RowUsable(const Item& item, std::size_t row) const;
  const Definition::Row* InputType() const;
  std::size_t InputTitle() const;
  std::string_view InputList() const;
  std::string ScaleUnit() const;
  void BringRange(const Item& choice);
  std::optional<std::pair<std::string, std::string>> Limits() const;
  std::string Limited(const std::string& held) const;
  WriteResult WriteChoice(Item& item, std::string_view data);
  WriteResult WriteNumber(Item& item, std::string_view data) const;
  bool IsThreshold(const Item& item, double volts) const;
  WriteResult CarryOut(const Item& command, std::string_view data);
  void Hold(Item& item, double value, std::string_view text) const;
  const std::vector<Definition::Row>& FrequencyUnits() const;
  void Choose(Item& item, std::size_t row);
  void SettleRange();
  std::optional<std::string> FixedEnd(const Item& item) const;
  void BringOutputRange(const Item& choice);

  Definition definition_;
  const Family& family_;
  std::string code_;
  std::string system_text_;
  std::vector<Item> items_;
};

}  // namespace korva::sim
