#pragma once

#include <optional>

#include "platform/string.h"

namespace korva {

/// What switches a model's linearizer table on, and so its tab.
enum class TableSwitch {
  None,         ///< no table: the tab is disabled
  Always,       ///< the table is always in use: the tab is enabled
  TableOption,  ///< the tab is enabled unless button 0 of Opt_Table is on
  LnrOption,    ///< the tab is enabled unless button 0 of Opt_Lnr is on
  InputType,    ///< the tab is enabled with an input type that uses the table
  /// The kind of table that the input has (LnrQuantity) settles it: a curve of the input itself enables the
  /// tab, any other unless button 0 of Opt_Lnr is on, and an input without a table disables it.
  InputKind,
  AsItStands,  ///< the table is in use, and the tab stays as it is
};

/// The linearizer of a model that differs from the defaults. A model goes by its definition file's name or by
/// the beginning of that name.
///
/// The tab flag is the definition's entry for the linearizer's tab in $SSTab.
struct LnrModel {
  StringView def_file = {};
  bool beginning = false;  ///< `def_file` is the beginning of the names that this row serves

  int points = 16;  ///< of the table: 16 or 100
  /// The tab of a model that was chosen, when its tab flag is True; without the flag it is disabled. Always
  /// and InputType also tell that the device works with the table without a switch being on.
  TableSwitch on_choice = TableSwitch::TableOption;
  /// The tab after an upload, whatever its flag.
  TableSwitch after_upload = TableSwitch::None;
  /// The tab after a configuration was opened, when the tab flag is True and the rule is another one than on
  /// choice.
  std::optional<TableSwitch> on_opening = {};
  /// The tab after a configuration was opened, when the tab flag is anything but True.
  TableSwitch without_flag = TableSwitch::None;
};

}  // namespace korva
