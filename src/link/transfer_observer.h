#pragma once

#include <optional>

#include "core/texts.h"
#include "link/group_item.h"

namespace korva {

/// The last two are those of a table by its own buttons.
enum class Transfer { Upload, Download, TableRead, TableWrite };

/// What proves a step of a transfer, or why nothing does.
enum class Evidence {
  Read,        ///< the device gave what was asked for
  Collated,    ///< the device holds what was chosen, or may be set to it; nothing was sent
  Compared,    ///< the answer to the write was compared with what was sent
  ReadBack,    ///< the item was read again behind the write, and compared
  Held,        ///< the item was read again; the device keeps it within limits of its own
  Echoed,      ///< the device answered the write; what it said was not compared
  Skipped,     ///< nothing was sent
  NotReached,  ///< the transfer ended before
  Silent,      ///< there was no answer
  Refused,     ///< the device refused
  Differs,     ///< the answer is not the one that is due
};

/// True for a step that went wrong.
inline bool IsFailure(Evidence evidence) { return evidence >= Evidence::Silent; }

/// Why nothing was sent for an item.
enum class Skip {
  None,
  NoValue,   ///< the set has no value
  Needless,  ///< the device has no use for it
  NotOfUse,  ///< nor have the present choices
  NoCode,    ///< there is nothing to choose
};

/// One step of a transfer: an item that was read or written, or what takes an item's place.
struct TransferStep {
  int row = -1;                   ///< of $Data; -1: of none
  std::optional<TextKey> what{};  ///< names a step of no row
  WireItem item{};
  String part{};  ///< what of the item, such as the key of a value in a table; empty: all of it
  String sent{};  ///< empty: the item was only read
  String answered{};
  Evidence evidence = Evidence::Read;
  Skip skip = Skip::None;
  bool only_due = false;  ///< `sent` is what was to be found or to be sent, and nothing was sent
};

/// Follows a page's transfers. The engines tell each step when it is done, before its box.
class TransferObserver {
 public:
  TransferObserver() = default;
  TransferObserver(const TransferObserver&) = delete;
  TransferObserver& operator=(const TransferObserver&) = delete;
  virtual ~TransferObserver() = default;

  virtual void TransferBegan(Transfer transfer) = 0;
  /// Steps are told of other operations too.
  virtual void StepDone(const TransferStep& step) = 0;
  /// `good`: nothing ended it before its end.
  virtual void TransferEnded(bool good) = 0;
};

/// True for a reply, or the text of one, by which a device of either dialect shows that it has not taken what
/// was sent to it. Where any answer proves a write, such a one does too: the report tells it all the same.
bool IsRefusedBy(const String& reply);
/// What a missing answer comes to: `reply` is what came last.
Evidence EvidenceOfFailure(const String& reply);

}  // namespace korva
