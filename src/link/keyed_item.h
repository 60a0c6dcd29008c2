#pragma once

#include <utility>

#include "link/group_item.h"

namespace korva {

/// An item behind which a device keeps many values, each under a key: a letter ("P"), or a letter and the
/// number of a row from 0 ("T12"). Of the dialect of "enter item".
///
/// Each access is a whole exchange from the group on, tried again up to three times. An answer by which the
/// device shows that it has not taken what was sent counts as none.
class KeyedItem {
 public:
  /// `access` outlives this.
  KeyedItem(EnterItemDialect& access, WireItem item) : access_(access), item_(std::move(item)) {}

  /// The device's answer to a key; empty when it gives none.
  [[nodiscard]] String Read(const String& key) const;
  /// Sends a key with a value, "P10"; false when the device gives no answer.
  [[nodiscard]] bool Write(const String& key, const String& value) const;
  /// Sends a row with its value, "T12D7.9034"; the same.
  [[nodiscard]] bool WriteRow(const String& key_and_row, const String& value) const;
  /// Sends a command; false when the device answers anything but "OK".
  [[nodiscard]] bool Command(const String& command) const;

 private:
  EnterItemDialect& access_;
  WireItem item_;
};

/// The answer without `unit`, if it ends in that, and without blanks around what is left.
String WithoutUnit(StringView answer, StringView unit);

}  // namespace korva
