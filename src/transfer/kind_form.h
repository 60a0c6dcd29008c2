#pragma once

#include "transfer/row_form.h"

namespace korva {

// How rows travel in the families whose definitions tell the kind of each item: none is a choice, "TG:" the
// tag, "FINZER" and "FINSPN" are fine values, and any other word is a value that goes out as its text.

class KindForm final : public RowForm {
 public:
  using RowForm::RowForm;
  [[nodiscard]] bool IsChoice(int row) const override { return Page().DataCell(row, kItemKind).empty(); }
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
};

/// True for the row of a value: neither a choice nor the tag.
bool IsValueRow(const ParameterPage& page, int row);

/// What a device reports of a value, less the unit behind it; a text without a number stays as it is.
String ValueWithoutUnit(const String& text);

/// True when the device's reply proves what was written to a row: a choice and the tag come back as they are
/// in the set, fine values within the device's rounding, and any other value is proved by any reply.
bool ReplyProvesKind(const ParameterPage& page, const WriteEntry& entry, const String& reply);

}  // namespace korva
