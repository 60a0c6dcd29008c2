#pragma once

#include <span>

#include "files/model_set.h"
#include "files/parameter_page.h"

namespace korva {

/// The item of group "01" by which a device tells its input, and the lists of the definition in which its
/// answer may stand, one for each kind of input. It is read once, before the units.
struct InputItem {
  StringView item = {};  ///< empty: the family has one kind of input only
  int repeats = 0;
  std::span<const StringView> lists = {};
};

/// A unit that the device tells: the text of an item of group "01", looked up in a list of the definition
/// that has units.
struct UnitTable {
  StringView item;
  int repeats = 0;
  StringView table;
  int first_row = 0;
  bool by_code = false;  ///< the device may tell the code in place of the text
};

class UnitReader;

enum class UnitKind {
  None,     ///< no unit
  Text,     ///< always `text`
  Row,      ///< the unit that the item's row names
  Caption,  ///< what lbl_unit(`label`) shows
  Item,     ///< what the unit label of item `text` shows
  Device,   ///< the device tells it, through `table`
  Input,    ///< the one beside the device's input in the list of its kind
  Rule,     ///< `rule` tells it
};
struct UnitSource {
  UnitKind kind = UnitKind::None;
  StringView text = {};
  int label = -1;
  UnitTable table = {};
  String (*rule)(const UnitReader&) = nullptr;
};

/// The unit of an item on some models, or with one kind of input, which goes by the key of its list; without
/// either, on all.
struct UnitRule {
  ModelSet models = {};
  StringView input_kind = {};
  UnitSource unit;
  int shown_in = -1;  ///< index of lbl_unit when it is another one than the item's
};

enum class UnitTimer { None, Item04, Item06, Item07 };

/// One unit label to fill when monitoring starts. The first rule that holds gives the unit; when none does
/// the label stays.
struct UnitStep {
  StringView item;
  UnitTimer timer = UnitTimer::None;
  std::span<const UnitRule> rules;
  bool to_measured_frequency = false;  ///< goes to the measured frequency too
  bool blinks = true;                  ///< the ticks of the timer toggle the label; else nothing does
};

/// Finds the units of live values.
class UnitReader {
 public:
  /// `input` outlives the reader.
  UnitReader(ParameterPage& page, const InputItem& input) : page_(page), input_(input) {}

  /// Asks the device for its input, where the family has several kinds. One that stands in no list has none.
  void AskForInput();
  /// The rule that holds now; nullptr when none does.
  [[nodiscard]] const UnitRule* FindRule(std::span<const UnitRule> rules) const;
  /// The unit of `item`. Reads the device where the source says so: no answer, or one that stands in no row,
  /// gives an empty unit.
  [[nodiscard]] String UnitFrom(const UnitSource& source, const String& item) const;
  /// The device's text of an item of group "01", after up to `repeats` more tries; empty when none gave one.
  [[nodiscard]] String Read(StringView item, int repeats) const;
  /// The unit beside `text` in the table.
  [[nodiscard]] String LookUp(const UnitTable& table, const String& text) const;

  /// The unit label of a row of $Data; nullptr when it has none, or there is no such row (-1).
  [[nodiscard]] Label* LabelOf(int row) const { return page_.UnitLabelOf(row); }
  [[nodiscard]] Label* LabelOf(StringView item) const { return LabelOf(page_.FindDataRow(item)); }

 private:
  ParameterPage& page_;
  const InputItem& input_;
  String input_text_;      ///< as the device told it last
  StringView input_kind_;  ///< key of its list
};

}  // namespace korva
