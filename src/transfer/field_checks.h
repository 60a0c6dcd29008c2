#pragma once

#include <array>
#include <optional>
#include <span>

#include "core/field_range.h"
#include "files/parameter_page.h"
#include "transfer/known_items.h"

namespace korva {

// The tables of a page's value check. Items are those of group "01"; all limits are inclusive and in the unit
// of the field.

/// The range of one item's field.
struct ItemRange {
  int item = 0;  ///< 0 to 99
  double low = 0;
  double high = 0;
  StringView def_file = {};  ///< the only model that the row serves; empty: every model
};

/// Which fields a range check asks for before it judges anything; where they are not as asked, it passes.
enum class RangeCondition {
  NoneMissing,  ///< every item of the table has a field
  NoneLocked,   ///< no item of the table has a locked field; items without one are passed over
  AllOpen,      ///< every item of the table has a field and none of them is locked
  OpenInOrder,  ///< item after item, up to the first that has no field or a locked one
};

/// The range of an item that follows the code of another item's choice.
struct CodeRange {
  StringView code;  ///< of the choice
  double low = 0;
  double high = 0;
};

/// The check of a model whose limits follow the sensor chosen in item 11.
struct SensorCheck {
  StringView table;  ///< of the sensors: code, text as reported, unit, base of the span
  int code_item = 18;
  std::span<const CodeRange> code_ranges = {};  ///< of `code_item` by the sensor's code; no row: no limits
  int span_item = 15;
  double span_factor = 1.5;  ///< `span_item` may be at most this many times the sensor's base
  ItemRange percent = {.item = 13, .low = 0, .high = 100};
};

/// The value check of one model.
struct ModelCheck {
  StringView def_file;
  bool beginning = false;  ///< `def_file` is the beginning of the names
  std::span<const ItemRange> ranges = {};
  RangeCondition condition = RangeCondition::AllOpen;
  const SensorCheck* sensor = nullptr;  ///< beside the ranges
};

/// An output: the item of its type and the list of its types, and the items of its two ends.
struct OutputItems {
  int type = kRangeItem;
  StringView list = u"$I11";
  int low = kOutputZeroItem;
  int high = kOutputSpanItem;
};

/// The row that serves the definition file, the first in the table's order; nullptr when there is none.
const ModelCheck* FindCheck(std::span<const ModelCheck> checks, StringView def_file);

/// Checks of fields of which the pages put their own together. Each colours its fields, good or bad, and is
/// false when one is bad. A field that was corrected loses its mark.
///
/// Beside a check stands what tells its limits: those by which it would judge the field of an item of group
/// "01" as page and set stand now, and nothing for an item that it would not judge. What is blank counts as
/// judged: it is about to be filled.
///
/// As a part of the page it learns when a definition was read, and does nothing else.
class FieldChecks final : public PagePart {
 public:
  /// Adds itself to the page. Both live as long as each other.
  explicit FieldChecks(ParameterPage& page) : page_(page) { page_.Add(*this); }

  /// Other items, other fields.
  void DefinitionRead() override { fields_.fill(std::nullopt); }

  /// The item of group "01" that the row of $Data is; -1 for another group and for a key with a role.
  [[nodiscard]] int ItemOf(int row) const;

  /// Item 02: at most 10 characters, each of one byte up to 225 in the code page.
  bool CheckTag();
  [[nodiscard]] static std::optional<FieldRange> RangeOfTag(int item);
  /// Every open field that may not be blank: a number, or a text of which a part of the page makes one.
  bool CheckNumbers();
  /// Items 14 and 15 against the limits and the smallest span of the input type. With `whole_numbers` limits
  /// in another unit than deg C are rounded to whole numbers, else to those within them, and an input type
  /// without limits has those of a voltage.
  bool CheckZeroSpan(bool whole_numbers);
  [[nodiscard]] std::optional<FieldRange> RangeOfZeroSpan(int item, bool whole_numbers) const;
  /// The two ends of an output against the limits and the smallest span of its type; they have no unit that
  /// changes. An output type that stands in no row has no limits.
  bool CheckOutputRange(const OutputItems& output = {});
  [[nodiscard]] std::optional<FieldRange> RangeOfOutput(int item, const OutputItems& output = {}) const;
  /// Items 19 and 20: 20 above 19, both from -299.99 to 299.99.
  bool CheckScale();
  [[nodiscard]] std::optional<FieldRange> RangeOfScale(int item) const;
  /// Items 14 and 15 against the limits of the range chosen in item 11, under the title of the input type.
  bool CheckRangeOfType();
  [[nodiscard]] std::optional<FieldRange> RangeOfType(int item) const;
  /// Fields against their ranges, rows by item. Under OpenInOrder the first bad field ends the check and a
  /// blank one counts 0; else every field whose cell isn't empty is judged.
  bool CheckRanges(std::span<const ItemRange> ranges, RangeCondition condition);
  bool CheckSensor(const SensorCheck& check);
  bool CheckByModel(const ModelCheck& check);
  [[nodiscard]] std::optional<FieldRange> RangeByModel(int item, const ModelCheck& check) const;

 private:
  static String ItemText(int item);
  [[nodiscard]] TextField* FieldOf(int item) const;
  bool Mark(int item, bool good);
  [[nodiscard]] String UnitOfItem(int item) const;
  /// True when the fields of both ends are there and of use.
  [[nodiscard]] bool HasPair(int low_item, int high_item) const;
  /// True when the row of the input type limits anything.
  [[nodiscard]] bool LimitsType(int type) const;
  [[nodiscard]] FieldRange LimitsOfType(int type, bool whole_numbers) const;
  [[nodiscard]] std::optional<FieldRange> LimitsOfOutput(const OutputItems& output) const;
  /// Those of the range chosen in item 11; nothing without one.
  [[nodiscard]] std::optional<FieldRange> LimitsOfRange() const;
  bool MarkPair(int low_item, int high_item, const FieldRange& limits);
  /// The range, as that of the two ends of a pair.
  [[nodiscard]] FieldRange OfPair(FieldRange range, int low_item, int high_item) const;
  static bool IsGoodWithoutRange(double zero, double span_end);
  [[nodiscard]] bool Judges(const ItemRange& range) const;
  bool CheckRange(const ItemRange& range);
  /// The ranges that the condition leaves to be judged on this page.
  [[nodiscard]] std::span<const ItemRange> Asked(std::span<const ItemRange> ranges,
                                                 RangeCondition condition) const;
  /// True when all fields of the sensor's check are there.
  [[nodiscard]] bool HasFields(const SensorCheck& check) const;
  /// Row of the sensor chosen in item 11; -1 for none.
  [[nodiscard]] int SensorRow(const SensorCheck& check) const;
  // What the chosen sensor limits; nothing without one.
  [[nodiscard]] std::optional<ItemRange> CodeRangeOf(const SensorCheck& check) const;
  [[nodiscard]] std::optional<double> HighestSpan(const SensorCheck& check) const;
  [[nodiscard]] std::optional<FieldRange> RangeOfSensor(int item, const SensorCheck& check) const;

  ParameterPage& page_;
  /// The field of each item that was asked for since the definition was read; nullptr: it has none.
  mutable std::array<std::optional<TextField*>, 100> fields_{};
};

}  // namespace korva
