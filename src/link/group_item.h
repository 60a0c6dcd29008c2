#pragma once

#include "core/shared_state.h"
#include "link/serial_link.h"

namespace korva {

/// Access to the items of a device, whatever dialect it speaks. Group and item are the texts of the
/// definition file ("01", "99"), sent as they stand. `count` is the number of repeats: count + 1 tries at
/// most, each a whole exchange from the group on, without a pause, until one gives a text.
class ItemAccess {
 public:
  ItemAccess() = default;
  ItemAccess(const ItemAccess&) = delete;
  ItemAccess& operator=(const ItemAccess&) = delete;
  virtual ~ItemAccess() = default;

  /// The item's text, or empty when no try gave one.
  virtual String ReadRetry(int count, const String& group, const String& item) = 0;
  /// The device's echo, or empty when no try gave one.
  virtual String WriteRetry(int count, const String& group, const String& item, const String& data) = 0;
};

/// The dialect whose devices answer a group selection with "COK".
class CokDialect : public ItemAccess {
 public:
  CokDialect(SerialLink& link, SharedState& shared) : link_(link), shared_(shared) {}

  /// One read: the data, "ERROR" when the device refused ("CNG"), "NEEDLESS" when the item is of no use in
  /// its present configuration ("CNU"), or empty.
  String ReadItem(const String& group, const String& item);
  /// One write: the echo, or empty; the reply that stopped it then stands in LastItemReply.
  String WriteItem(const String& group, const String& item, const String& data);
  String ReadItemRetry(int count, const String& group, const String& item);
  String WriteItemRetry(int count, const String& group, const String& item, const String& data);

  String ReadRetry(int count, const String& group, const String& item) override {
    return ReadItemRetry(count, group, item);
  }
  String WriteRetry(int count, const String& group, const String& item, const String& data) override {
    return WriteItemRetry(count, group, item, data);
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
  bool SelectItem(const String& group, const String& item);
  /// True for the fixed titles and for those that the page in use has loaded into KnownItemNames. An empty
  /// title is none: entries of that list that no item fills must not let data go out to a silent device.
  [[nodiscard]] bool IsKnownItemName(const String& name) const;

  String ReadParam(const String& group, const String& item);
  String WriteParam(const String& group, const String& item, const String& data);
  /// Sends `head` and then `tail`, whatever the order of the arguments.
  String WriteParamPair(const String& group, const String& item, const String& tail, const String& head);
  String ReadParamRetry(int count, const String& group, const String& item);
  String WriteParamRetry(int count, const String& group, const String& item, const String& data);
  String WriteParamPairRetry(int count, const String& group, const String& item, const String& tail,
                             const String& head);
  /// The item's reply to its selection, after a group answered exactly with "enter item".
  String ReadItemName(const String& group, const String& item);
  String ReadItemNameRetry(int count, const String& group, const String& item);

  String ReadRetry(int count, const String& group, const String& item) override {
    return ReadParamRetry(count, group, item);
  }
  String WriteRetry(int count, const String& group, const String& item, const String& data) override {
    return WriteParamRetry(count, group, item, data);
  }

 private:
  SerialLink& link_;
  SharedState& shared_;
};

}  // namespace korva
