#pragma once

#include "linearizer/lnr_table.h"
#include "tables/user_table_fields.h"

namespace korva {

/// A user's table as it travels: one of a page's, with what it is to the page.
struct UserTableInHand {
  UserTable which = UserTable::None;
  const UserTableForm& form;
  LnrTable& points;
};

/// A user's table on its way to and from the device, row by row through an item with keys. What was read or
/// written before a failure stays.
class UserTableTransfer {
 public:
  /// `bar` shows how far it is. All outlive this.
  UserTableTransfer(ParameterPage& page, const UserTableFamily& family, UserTableFields& fields,
                    ProgressBar& bar)
      : page_(page), family_(family), fields_(fields), bar_(bar) {}

  /// Empties the table, puts the device in monitor mode, and reads fields and points. False, after its box,
  /// when that was refused or something could not be read.
  bool Read(const UserTableInHand& table);
  /// Puts the device in programming mode, where it stays, and writes points and fields, which have been
  /// checked. The same.
  bool Write(const UserTableInHand& table);

 private:
  class Journey;

  ParameterPage& page_;
  const UserTableFamily& family_;
  UserTableFields& fields_;
  ProgressBar& bar_;
};

}  // namespace korva
