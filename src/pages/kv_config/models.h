#pragma once

#include <span>

#include "files/model_set.h"
#include "transfer/field_checks.h"

namespace korva {

/// How the code of item 11 is found when it is written.
enum class RangeCode {
  UnderTitle,   ///< in the column of the present input type's title
  FirstColumn,  ///< in the first text column
  SensorTable,  ///< in the table of sensors with a unit and span base of their own
};

/// What the page of family First knows of a model beyond its definition file, where it differs from the
/// defaults. A model goes by its definition file's name or by the beginning of that name.
struct KvConfigModel {
  StringView def_file = {};
  bool beginning = false;  ///< `def_file` is the beginning of the names that this row serves

  /// A fixed input type shows row 0 of its list, and that text.
  bool lists_fixed_input_type = false;
  /// Items 24 to 30 are of use only with a filter chosen in item 23.
  bool filter_follows_type = false;
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
std::span<const KvConfigModel> KvConfigModels();

/// The models whose item 11 is set by Opt_Root; on all others Opt_Lnr sets it.
ModelSet KvConfigRootModels();

/// The value checks of the models of family First.
std::span<const ModelCheck> KvConfigChecks();

}  // namespace korva
