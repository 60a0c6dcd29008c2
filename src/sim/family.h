#pragma once

#include <cstddef>
#include <string_view>

namespace korva::sim {

/// How a device of a family answers its command lines.
enum class Dialect {
  Cok,        ///< "G" is answered with "COK", "I" with the item's value.
  EnterItem,  ///< "G" is answered with "enter item", "I" with the item's title, a lone "D" with its value.
};

/// What surrounds the number in a reply of a live value.
enum class LiveForm {
  Head,  ///< A head before the number: "PV:  12.34".
  Unit,  ///< A unit behind the number: "  12.34 %".
};

/// How many points the device's linearizer table has on the items of groups 01 to 03.
enum class TableShape {
  None,
  Points16,   ///< Group 01, items 60 to 91.
  Points100,  ///< Groups 02 and 03, items 00 to 99.
  ByModel,    ///< One of these by model.
};

/// How a device takes frequencies.
enum class FrequencyCodes {
  None,            ///< It has no item for their unit.
  FromHertz,       ///< 0 Hz, 1 kHz, 2 mHz; every number is reported with its unit.
  FromMillihertz,  ///< 0 mHz, 1 Hz, 2 kHz; only frequencies are reported with their unit.
};

/// Columns of `$Data` that not every family's definitions have at the same place.
struct DataColumns {
  std::size_t unit;       ///< Text of the unit.
  std::size_t unit_box;   ///< Box of frequency units, beyond the row where the family has none.
  std::size_t position;   ///< Place in the order of writing.
  std::size_t follows;    ///< List of the choice that brings the unit.
  std::size_t code_item;  ///< Item of a frequency's unit where it is another than the family's.
};

/// The tables of devices on which the input's curve can be the user's.
struct KeyedTables {
  std::size_t sensor_rows = 0;  ///< Rows of those of sensors; 0: there are no such tables.
  bool ranged = false;          ///< That of a resistance thermometer has a range.
  bool guarded = false;         ///< They are given and taken between commands.
};

/// What devices of one family have in common.
struct Family {
  std::string_view word;         ///< Family word of the catalogue.
  std::string_view folder;       ///< Folder of the definition files, below `system`.
  unsigned baud;                 ///< Line speed in bit/s; 8 data bits, no parity, 1 stop bit.
  Dialect dialect;               ///< How it answers.
  std::string_view mode_item;    ///< Item of group 01 that holds the device mode.
  std::string_view output_item;  ///< Item of group 01 that forces the output in programming mode.
  std::string_view live_items;   ///< Items of group 01 with live values, separated by blanks.
  LiveForm live_form;            ///< How live values are written.
  TableShape table;              ///< Shape of the linearizer table.
  bool typed_input;            ///< `$I10` holds limits and settable flag of each type, `$I11Body` its ranges.
  DataColumns columns;         ///< Columns of its definitions.
  std::string_view span_item;  ///< Item of group 01 with the span of the input.
  std::string_view
      unit_item;  ///< Item of group 01 with the unit in which frequencies are written; empty: none.
  std::string_view reset_item;          ///< Item of group 01 that resets all parameters; empty: none.
  bool counts;                          ///< A live value that can be set and is no percentage is a count.
  std::string_view empty_tag;           ///< What a device without a tag answers in the `EnterItem` dialect.
  std::string_view tag_echo = {};       ///< What a write of the tag is answered with; empty: the tag.
  std::string_view table_item = {};     ///< Item of group 01 that takes the table in a dialogue; empty: none.
  std::string_view live_settings = {};  ///< Items of group 01 that take data in monitor mode too.
  std::size_t type_unit = 8;            ///< Column of `$I10` with the unit.
  double table_limit = 300;             ///< Largest amount of a value of the linearizer table.
  KeyedTables tables = {};              ///< On items 60 to 62 of group 01.
  /// Lists of the inputs, one for each class of the input, separated by blanks: item 10 takes a row of any of
  /// them. Empty: there is one list.
  std::string_view input_lists = {};
  std::string_view network_items = {};  ///< Items of group 01 that take effect at a restart only.
  std::string_view restart_item = {};   ///< Item of group 00 that restarts the device; empty: none.
  std::string_view pairs = {};       ///< Items of group 01 that hold two numbers with a blank between them.
  std::string_view fine_trims = {};  ///< Items of group 01 that trim an end of an output by a value in %.
  /// Item of group 01 that corrects the sensor's circuit, on models that can; empty: none.
  std::string_view compensation_item = {};
  FrequencyCodes frequencies = FrequencyCodes::None;
  /// Column 22 tells the kind of an item; no reply has a prefix.
  bool kinds = false;
  bool memory = false;  ///< Types, calibration and curve stand in a memory with an access of its own.
  /// The output is trimmed by items 28 and 29, the table travels through item 62, and item 03 tells the unit
  /// of frequencies.
  bool trims = false;
  /// Input and output are chosen freely: what the choice has no use for is not usable, and an end of a range
  /// that is not the user's own can't be set.
  bool universal = false;
  bool threshold_in_row = false;  ///< Columns 21 and 24 of an item limit it, where they are filled.
};

/// The family of a family word, compared exactly; null when there is none.
const Family* FindFamily(std::string_view word);

}  // namespace korva::sim
