#pragma once

#include <array>
#include <span>

#include "linearizer/lnr_check.h"
#include "linearizer/lnr_model.h"
#include "linearizer/lnr_table.h"

namespace korva {

struct TableButtonsForm;

/// What the values of a table mean: its heads and, where the check asks for them, its limits.
struct LnrQuantity {
  StringView kind = {};  ///< letter of the input's kind of table; empty where all inputs have the same
  LnrHeads heads;
  LnrLimits x_limits = {.low = -15, .high = 115};
  LnrLimits y_limits = {.low = -15, .high = 115};
  /// The table is the curve of the input itself: it is in use without a switch.
  bool is_input_curve = false;
};

/// What a table must be to go to the device.
enum class LnrRule {
  Range,  ///< CheckLnrRange
  Curve,  ///< CheckLnrCurve
};

/// What sets a family's linearizer apart.
struct LnrFamily {
  int points = 0;  ///< of every table of the family; 0: as the model's traits say
  LnrRule rule = LnrRule::Curve;
  std::span<const LnrQuantity> quantities;  ///< the first is the one of a new page
  std::span<const LnrModel> models = {};    ///< those that differ from the defaults
  /// A model whose definition has no flag for the tab has no table, after an upload either.
  bool needs_flag = false;
  /// The input types whose table is in use, as the devices spell them.
  std::span<const StringView> table_types = {};
  /// How the table travels by the buttons of its tab (TableButtons). Upload and download then leave it as it
  /// is. nullptr: it rides with them.
  const TableButtonsForm* buttons = nullptr;
  /// The arrow keys take an edit and go on to the next cell. The field of the edit is gone with a scroll of
  /// the grid and with another tab.
  bool edits_by_arrows = false;
  StringView limits = {};  ///< the line beside the grid that tells the limits; empty: there is none
};

/// Points without a unit.
inline constexpr std::array kPlainQuantity = {LnrQuantity{.heads = {u"k", u"X(k)", u"Y(k)"}}};
/// Points in percent.
inline constexpr std::array kPercentQuantity = {
    LnrQuantity{.heads = {u"  k", u"  X(k)        %", u"  Y(k)        %"}}};

/// The line of limits of points in percent.
inline constexpr StringView kPercentLimits = u"-15.00% =< X(k),Y(k) =< 115.00%";

}  // namespace korva
