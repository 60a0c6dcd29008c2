#pragma once

#include <optional>
#include <span>

#include "platform/string.h"

namespace korva {

/// What switches a model's linearizer table on, and so its tab.
enum class TableSwitch {
  None,         ///< no table: the tab is disabled
  Always,       ///< the table is always in use: the tab is enabled
  TableOption,  ///< the tab is enabled unless button 0 of Opt_Table is on
  LnrOption,    ///< the tab is enabled unless button 0 of Opt_Lnr is on
  InputType,    ///< the tab is enabled with an input type that uses the table
  AsItStands,   ///< the table is in use, and the tab stays as it is
};

/// How the code of item 11 is found when it is written.
enum class RangeCode {
  UnderTitle,   ///< in the column of the present input type's title
  FirstColumn,  ///< in the first text column
  SensorTable,  ///< in the table of sensors with a unit and span base of their own
};

/// What the page knows of a model beyond its definition file. One row of the page's table for each model that
/// differs from the defaults; a model goes by its definition file's name or by the beginning of that name.
///
/// The tab flag of which the columns of the table's tab speak is the definition's entry for that tab in
/// $SSTab.
struct ModelTraits {
  StringView def_file;
  bool beginning = false;  ///< `def_file` is the beginning of the names that this row serves

  /// Points of the linearizer table: 16 or 100.
  int table_points = 16;
  /// The tab of a model that was chosen, when its tab flag is True; without the flag it is disabled. Always
  /// and InputType also tell that the device works with the table without a switch being on.
  TableSwitch table_on_choice = TableSwitch::TableOption;
  /// The tab after an upload, whatever its flag.
  TableSwitch table_after_upload = TableSwitch::None;
  /// The tab after a configuration was opened, when the tab flag is True and the rule is another one than on
  /// choice.
  std::optional<TableSwitch> table_on_opening = {};
  /// The tab after a configuration was opened, when the tab flag is anything but True.
  TableSwitch table_without_flag = TableSwitch::None;

  /// A fixed input type shows row 0 of its list, and that text.
  bool lists_fixed_input_type = false;
  /// Items 24 to 30 are of use only with a filter chosen in item 23.
  bool filter_follows_type = false;
  /// Item 11 is set by Opt_Root, else by Opt_Lnr.
  bool range_options_are_root = false;
  /// The page shows the controls of the status monitor.
  bool has_monitor = true;
  /// Temperature limits and values are shown in the mask "#0".
  bool whole_number_limits = false;
  /// A point at the end of a value is dropped before it is written.
  bool drops_trailing_point = false;
  /// The input types are spelt by the device's version.
  bool spells_by_version = false;
  /// Item 11 is listed anew for each input type, and limits items 14 and 15.
  bool range_follows_type = false;
  /// A new input type brings its unit, zero and span.
  bool resets_range_on_type = false;
  /// Items 21 and 23 are backup and up/down.
  bool has_backup_items = false;
  RangeCode range_code = RangeCode::UnderTitle;
};

/// The row that serves the definition file: an exact name before a beginning, else the defaults.
const ModelTraits& TraitsOf(std::span<const ModelTraits> models, StringView def_file);

}  // namespace korva
