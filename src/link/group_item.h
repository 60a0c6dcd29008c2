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

/// True for what a device of the dialect of "enter item" shows when it has not taken what was sent to it.
bool TellsRefusal(StringView answer);

/// What counts as the device's answer to data: the data of an item, or, behind a command whose echo tells
/// nothing, any text.
enum class Echo { Data, AnyText };

/// Access to the items of a device, whatever dialect it speaks. `count` is the number of repeats: count + 1
/// tries at most, each a whole exchange from the group on, without a pause, until one gives a text.
///
/// A reply that can't be its command's own, such as one that came too late for the command before, gives no
/// text, and the line is drained before the next try (SerialLink::LoseStep). Nothing but what came to the
/// command itself is given as the item's text.
class ItemAccess {
 public:
  ItemAccess() = default;
  ItemAccess(const ItemAccess&) = delete;
  ItemAccess& operator=(const ItemAccess&) = delete;
  virtual ~ItemAccess() = default;

  /// The item's text, or empty when no try gave one.
  virtual String ReadRetry(int count, const WireItem& item) = 0;
  /// The device's echo, or empty when no try gave one or the device refused ("CNG", "CNU").
  virtual String WriteRetry(int count, const WireItem& item, const String& data) = 0;
  /// The same for a command that changes the device's mode: whatever text comes back counts as an echo, in
  /// the dialect of "enter item" a refusal too.
  virtual String WriteModeRetry(int count, const WireItem& item, const String& data) = 0;
};

/// The dialect whose devices answer a group selection with "COK".
class CokDialect : public ItemAccess {
 public:
  CokDialect(SerialLink& link, SharedState& shared) : link_(link), shared_(shared) {}

  /// One read: the data, "ERROR" when the device refused ("CNG"), "NEEDLESS" when the item is of no use in
  /// its present configuration ("CNU"), or empty.
  String ReadItem(const WireItem& item);
  /// One write: the echo, or empty; the reply that stopped it then stands in LastItemReply.
  String WriteItem(const WireItem& item, const String& data) { return Write(item, data, Echo::Data); }
  String ReadItemRetry(int count, const WireItem& item);
  String WriteItemRetry(int count, const WireItem& item, const String& data);

  String ReadRetry(int count, const WireItem& item) override { return ReadItemRetry(count, item); }
  String WriteRetry(int count, const WireItem& item, const String& data) override {
    return WriteItemRetry(count, item, data);
  }
  String WriteModeRetry(int count, const WireItem& item, const String& data) override;

 private:
  bool SelectGroup(const WireItem& item);
  /// Sends a command; true when what comes back is an answer to it and no refusal.
  bool Send(const String& command, Echo echo);
  String Write(const WireItem& item, const String& data, Echo echo);

  SerialLink& link_;
  SharedState& shared_;
  String last_reply_;  ///< to the last command of a write
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

  /// One read: the data, "ERROR" when the device refused ("CNG"), "NEEDLESS" when the item is of no use in
  /// its present configuration ("CNU"), or empty.
  String ReadParam(const WireItem& item);
  /// One write: the echo, or empty when there was none or the device refused.
  String WriteParam(const WireItem& item, const String& data);
  /// Sends `head` and then `tail`, whatever the order of the arguments.
  String WriteParamPair(const WireItem& item, const String& tail, const String& head);
  /// A reply of the text `not_ready` counts as none.
  String ReadParamRetry(int count, const WireItem& item, StringView not_ready = {});
  String WriteParamRetry(int count, const WireItem& item, const String& data);
  String WriteParamPairRetry(int count, const WireItem& item, const String& tail, const String& head);
  /// The item's reply to its selection, after a group answered exactly with "enter item".
  String ReadItemName(const WireItem& item);
  String ReadItemNameRetry(int count, const WireItem& item);

  String ReadRetry(int count, const WireItem& item) override { return ReadParamRetry(count, item); }
  String WriteRetry(int count, const WireItem& item, const String& data) override {
    return WriteParamRetry(count, item, data);
  }
  String WriteModeRetry(int count, const WireItem& item, const String& data) override;

 private:
  /// Selects the item and sends `data`: the reply as it came, a refusal among them, or empty.
  String Send(const WireItem& item, const String& data, Echo echo);

  SerialLink& link_;
  SharedState& shared_;
  String title_reply_;  ///< to the last selection of an item
};

}  // namespace korva
