#pragma once

#include "core/shared_state.h"
#include "link/serial_link.h"

namespace korva {

/// An item as it is selected on the wire, both texts sent as they stand: "01", "99". An item of the page may
/// be another text (ItemKey).
struct WireItem {
  String group;
  String item;
};

/// Repeats of an item's exchange, unless something else is said.
inline constexpr int kItemRepeats = 3;

/// Access to the items of a device, whatever dialect it speaks. `count` is the number of repeats: count + 1
/// tries at most, each a whole exchange from the group on, without a pause, until one gives a text.
class ItemAccess {
 public:
  ItemAccess() = default;
  ItemAccess(const ItemAccess&) = delete;
  ItemAccess& operator=(const ItemAccess&) = delete;
  virtual ~ItemAccess() = default;

  /// The item's text, or empty when no try gave one.
  virtual String ReadRetry(int count, const WireItem& item) = 0;
  /// The device's echo, or empty when no try gave one.
  virtual String WriteRetry(int count, const WireItem& item, const String& data) = 0;
};

/// The dialect whose devices answer a group selection with "COK".
class CokDialect : public ItemAccess {
 public:
  CokDialect(SerialLink& link, SharedState& shared) : link_(link), shared_(shared) {}

  /// One read: the data, "ERROR" when the device refused ("CNG"), "NEEDLESS" when the item is of no use in
  /// its present configuration ("CNU"), or empty.
  String ReadItem(const WireItem& item);
  /// One write: the echo, or empty; the reply that stopped it then stands in LastItemReply.
  String WriteItem(const WireItem& item, const String& data);
  String ReadItemRetry(int count, const WireItem& item);
  String WriteItemRetry(int count, const WireItem& item, const String& data);

  String ReadRetry(int count, const WireItem& item) override { return ReadItemRetry(count, item); }
  String WriteRetry(int count, const WireItem& item, const String& data) override {
    return WriteItemRetry(count, item, data);
  }

 private:
  SerialLink& link_;
  SharedState& shared_;
};

/// The dialect whose devices answer a group selection with "enter item", and an item selection with its
/// title.
class EnterItemDialect : public ItemAccess {
 public:
  EnterItemDialect(SerialLink& link, SharedState& shared) : link_(link), shared_(shared) {}

  /// Selects the item; true when the device answers with a title that the program knows, so that a device in
  /// another menu is noticed before any data goes out.
  bool SelectItem(const WireItem& item);
  /// True for the fixed titles and for those that the page in use has loaded into KnownItemNames. An empty
  /// title is none: entries of that list that no item fills must not let data go out to a silent device.
  [[nodiscard]] bool IsKnownItemName(const String& name) const;

  String ReadParam(const WireItem& item);
  String WriteParam(const WireItem& item, const String& data);
  /// Sends `head` and then `tail`, whatever the order of the arguments.
  String WriteParamPair(const WireItem& item, const String& tail, const String& head);
  String ReadParamRetry(int count, const WireItem& item);
  String WriteParamRetry(int count, const WireItem& item, const String& data);
  String WriteParamPairRetry(int count, const WireItem& item, const String& tail, const String& head);
  /// The item's reply to its selection, after a group answered exactly with "enter item".
  String ReadItemName(const WireItem& item);
  String ReadItemNameRetry(int count, const WireItem& item);

  String ReadRetry(int count, const WireItem& item) override { return ReadParamRetry(count, item); }
  String WriteRetry(int count, const WireItem& item, const String& data) override {
    return WriteParamRetry(count, item, data);
  }

 private:
  SerialLink& link_;
  SharedState& shared_;
};

}  // namespace korva
