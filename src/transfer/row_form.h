#pragma once

#include <optional>

#include "files/parameter_page.h"
#include "transfer/write_list.h"

namespace korva {

/// How a row of $Data travels between the parameter set and the device. Families override what they do their
/// own way.
class RowForm {
 public:
  /// The page outlives the form.
  explicit RowForm(const ParameterPage& page) : page_(page) {}
  RowForm(const RowForm&) = delete;
  RowForm& operator=(const RowForm&) = delete;
  virtual ~RowForm() = default;

  /// What the device puts before the value of a row; empty for a choice.
  [[nodiscard]] virtual String ReplyPrefix(int row) const { return page_.DataCell(row, kReplyPrefix); }
  /// True when the item of a row goes out as the code of its text, false when it goes out as a value.
  [[nodiscard]] virtual bool IsChoice(int row) const { return ReplyPrefix(row).empty(); }
  /// False when the present choices make the row of no use: it is then not written.
  [[nodiscard]] virtual bool Applies(int /*row*/) const { return true; }
  /// What goes out for the value in the cell of a row.
  [[nodiscard]] virtual String DataOf(int row, const String& cell) const;
  /// Where the codes of a choice item of group "01" stand for the chosen model; nothing when the item is
  /// none, or has nothing to choose under the present input type, and is then not written.
  [[nodiscard]] virtual std::optional<CodeTable> CodesOf(int item) const = 0;
  /// The row with which the item of a row travels, where several rows show parts of one item.
  [[nodiscard]] virtual int CarrierOf(int row) const { return row; }
  /// True when the cell of a choice, which has no code as it stands, will be brought into the device's own
  /// spelling before it is written.
  [[nodiscard]] virtual bool WillBeSpelt(int /*row*/) const { return false; }

  /// True when a download writes the row under the present choices.
  [[nodiscard]] bool IsToBeWritten(int row) const;
  /// Where the choice of a row must stand to be written; nothing when the row sends no choice.
  [[nodiscard]] std::optional<CodeTable> CodesToSend(int row) const;
  [[nodiscard]] ChoiceList ListOf(const CodeTable& codes) const;
  /// False when the row sends a choice for which the model has no code.
  [[nodiscard]] bool HasCode(int row) const;

 protected:
  /// The codes of item 11 under the present input type's title; nothing under a title without any.
  [[nodiscard]] std::optional<CodeTable> RangeCodesUnderTitle() const;
  /// The codes of an item of group "01" in the list that its row names; nothing when it names none.
  [[nodiscard]] std::optional<CodeTable> CodesOfRow(const String& item) const;
  [[nodiscard]] const ParameterPage& Page() const { return page_; }

 private:
  const ParameterPage& page_;
};

}  // namespace korva
