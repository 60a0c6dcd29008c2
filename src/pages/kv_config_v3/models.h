#pragma once

#include <array>
#include <span>

#include "transfer/field_checks.h"

namespace korva {

/// The value checks of the models of family Third.
std::span<const ModelCheck> KvConfigV3Checks();

/// A unit that the device puts behind the value of an item: so many characters at the value's end are not
/// part of it.
struct AppendedUnit {
  StringView def_file;
  StringView item;  ///< two digits, of group "01"
  std::size_t length = 0;
};
std::span<const AppendedUnit> AppendedUnits();

/// An alarm value that goes to the device together with the direction of its alarm.
struct DirectedValue {
  StringView def_file;
  StringView item;       ///< of the value; two digits, of group "01"
  StringView direction;  ///< item of the direction, whose list has "up" in row 0 and "down" in row 1
};
std::span<const DirectedValue> DirectedValues();

/// An alarm that its type can switch off. Items have two digits and are of group "01".
struct SwitchedAlarm {
  StringView def_file;
  StringView type;                  ///< item whose choice is kNoAlarm or another
  std::array<StringView, 3> items;  ///< of no use without the alarm
  StringView direction;             ///< the one of them that must be chosen with the alarm
};
std::span<const SwitchedAlarm> SwitchedAlarms();

/// The choice that switches an alarm off, as the device reports it.
inline constexpr StringView kNoAlarm = u"NO ALARM";

}  // namespace korva
