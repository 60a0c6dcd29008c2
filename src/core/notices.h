#pragma once

#include <array>

#include "core/control.h"

namespace korva {

/// What the status area can tell, in the order in which it shows: one text at a time of each.
enum class Notice {
  Port,         ///< why the port did not open
  Stage,        ///< what a long operation is about, and how far it is
  Transfer,     ///< the item at which the last transfer failed, and why
  Unfinished,   ///< what a download that broke off left undone in the device
  NotPasted,    ///< what of a paste has no place in the table
  OpenEdit,     ///< an edit stands open that is not part of the set
  NotPlain,     ///< texts of number fields that are no plain numbers, as they would be sent
  SentAsTyped,  ///< those of them that the last download sent
  NotKept,      ///< what the file saved last will not give back
  Pdf,          ///< what became of the report of settings that was to be saved
  NoTable,      ///< the device holds no linearizer, or did not tell it
  kCount
};

/// The status area's texts: what the user should know though nothing has failed, or what a box has no room
/// for. One under the other, hidden while there is none.
class Notices : public Label {
 public:
  explicit Notices(std::string_view name) : Label(name) { SetVisible(false); }

  /// Shows `text` in place of what was told under `kind`; an empty one withdraws it.
  void Tell(Notice kind, const String& text);
  /// What is told under `kind`, empty for nothing.
  [[nodiscard]] const String& Told(Notice kind) const { return texts_.at(static_cast<std::size_t>(kind)); }

 private:
  std::array<String, static_cast<std::size_t>(Notice::kCount)> texts_;
};

}  // namespace korva
