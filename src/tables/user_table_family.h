#pragma once

#include <optional>
#include <span>

#include "files/model_set.h"
#include "linearizer/lnr_family.h"

namespace korva {

/// The tables of a page on which the user may define an input's curve himself.
enum class UserTable {
  None,
  Linearizer,    ///< points X(k), Y(k) in percent
  Thermocouple,  ///< the voltage in mV at each temperature
  Resistance,    ///< the resistance in ohm at each temperature
};

/// What sets one of them apart on a family's page.
struct UserTableForm {
  LnrHeads heads;
  LnrLimits limits;      ///< of a value
  int points = 0;        ///< rows of its grid; points count from 0
  int fewest = 1;        ///< points that go to the device
  int most = 0;          ///< the same
  StringView note = {};  ///< the line beside the grid that tells the limits; empty: there is none
  StringView sent_mask = u"#0.0000";  ///< of a value that is written
};

/// An input type whose curve is the user's.
struct UserInput {
  StringView text;         ///< of item 10
  bool beginning = false;  ///< `text` is how it begins
  UserTable table = UserTable::None;
  ModelSet models = {};  ///< empty: all
};

/// What sets a family's user tables apart. Item 25 switches its linearizer.
struct UserTableFamily {
  UserTableForm linearizer;
  UserTableForm thermocouple;
  UserTableForm resistance;
  std::span<const UserInput> inputs;
  /// A resistance table has a range, chosen in cmbRange.
  bool ranged = false;
  /// The device gives and takes a table between commands: "R" and "C" open it, "W" keeps it.
  bool opened_by_commands = false;
  StringView shown_mask = {};  ///< of a value that was read; empty: as it comes
  /// Limits of pitch and base, whole numbers then; nothing: any number.
  std::optional<LnrLimits> steps = {};
  std::optional<LnrLimits> bases = {};
  /// A device that answers more to the question for the pitch tells a size: the highest one is shown until
  /// the size itself is read, and the pitch stays. 0: any answer is the pitch.
  int most_step = 0;
};

// What the linearizers of all these families have in common.
inline constexpr LnrHeads kUserLinearizerHeads = kPercentQuantity.front().heads;
inline constexpr LnrLimits kUserLinearizerLimits = {.low = -15, .high = 115};
inline constexpr int kUserLinearizerPoints = 101;

}  // namespace korva
