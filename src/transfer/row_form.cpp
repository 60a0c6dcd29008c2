#include "transfer/row_form.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/known_items.h"

namespace korva {

String RowForm::DataOf(int /*row*/, const String& cell) const {
  return cell == kEmptyTag ? cell : Trimmed(cell);
}

bool RowForm::IsToBeWritten(int row) const {
  const String& condition = page_.DataCell(row, kWriteCondition);
  if (!Applies(row)) {
    return false;
  }
  if (condition == u"Y") {
    return true;
  }
  const int type = page_.InputTypeRow();
  if (type < 0) {
    return false;
  }
  const ChoiceList types = page_.Def.ListOf(u"$I10");
  return (condition == u"$I10" && types.Settable(type)) ||
         (condition == u"$I10_CNECTI11" && !types.Cell(type, &ListColumns::title).empty());
}

std::optional<CodeTable> RowForm::CodesToSend(int row) const {
  const String& cell = page_.SetCell(row);
  const bool choice = IsChoice(row) && page_.DataCell(row, kGroup) == u"01";
  return choice && !cell.empty() && cell != kNeedless && IsToBeWritten(row)
             ? CodesOf(LeadingInteger(page_.DataCell(row, kItem)))
             : std::nullopt;
}

ChoiceList RowForm::ListOf(const CodeTable& codes) const {
  return page_.Def.ListOf(codes.key).UnderTitle(codes.title);
}

bool RowForm::HasCode(int row) const {
  const std::optional<CodeTable> codes = CodesToSend(row);
  if (!codes || WillBeSpelt(row)) {
    return true;
  }
  const ChoiceList list = ListOf(*codes);
  const int choice = list.Find(codes->holds, page_.SetCell(row));
  return choice >= 0 && !list.Code(choice).empty();
}

std::optional<CodeTable> RowForm::CodesOfRow(const String& item) const {
  const int row = page_.FindDataRow(item);
  if (row < 0 || page_.DataCell(row, kChoiceKey).empty()) {
    return std::nullopt;
  }
  return CodeTable{.key = page_.DataCell(row, kChoiceKey)};
}

std::optional<CodeTable> RowForm::RangeCodesUnderTitle() const {
  return page_.RangesOfType()
             ? std::optional(CodeTable{.key = u"$I11Body", .title = page_.TitleIndex(page_.InputTypeRow())})
             : std::nullopt;
}

}  // namespace korva
