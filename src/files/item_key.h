#pragma once

#include <concepts>

#include "link/group_item.h"

namespace korva {

/// An item on the page, as columns 0 and 1 of $Data name it. Behind its number a key may carry a role, where
/// several rows are about one item of the device: "03_set" is the value to send of item 03, "03_mon" the one
/// that the device took.
class ItemKey {
 public:
  /// The key of an item of group "01". Implicit, since a key is a text wherever it is written down.
  template <std::convertible_to<StringView> Text>
  ItemKey(const Text& key) : ItemKey(u"01", key) {}
  ItemKey(StringView group, StringView key) : group_(group), key_(key) {}

  [[nodiscard]] const String& Group() const { return group_; }
  [[nodiscard]] const String& Key() const { return key_; }
  /// The item that is selected on the wire: without the role.
  [[nodiscard]] WireItem OnWire() const { return {.group = group_, .item = key_.substr(0, key_.find(u'_'))}; }

 private:
  String group_;
  String key_;
};

}  // namespace korva
