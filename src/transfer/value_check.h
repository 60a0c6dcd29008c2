#pragma once

#include <span>

#include "platform/string.h"

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
  StringView code;  ///< column 0 of the choice's table
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

/// The row that serves the definition file, the first in the table's order; nullptr when there is none.
const ModelCheck* FindCheck(std::span<const ModelCheck> checks, StringView def_file);

}  // namespace korva
