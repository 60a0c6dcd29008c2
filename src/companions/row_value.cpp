#include "companions/row_value.h"

#include "core/design_names.h"
#include "core/text_utilities.h"

namespace korva {

String CaptionOf(const ParameterPage& page, int row) {
  const String& japanese = page.DataCell(row, kCaption);
  if (japanese.empty()) {
    return page.DataCell(row, kNumberCaption);
  }
  const bool english = page.CaptionLanguage() == Language::English;
  return english ? page.Def.Data().At(row, page.Def.ColumnOf(kCaption) + 1) : japanese;
}

Control* ControlOf(ParameterPage& page, int row) {
  if (!page.DataCell(row, kTextIndex).empty()) {
    return &page.Text[page.Place(row, kTextIndex, page.Text.Count())];
  }
  if (!page.DataCell(row, kComboIndex).empty()) {
    return &page.Combo[page.Place(row, kComboIndex, page.Combo.Count())];
  }
  return nullptr;
}

OptionGroup* OptionsOf(const ParameterPage& page, int row) {
  const OptionRule* rule = page.FindOptionRule(page.DataCell(row, kChoiceKey));
  return page.DataCell(row, kFrameIndex).empty() || rule == nullptr ? nullptr : rule->options;
}

String ShownOf(ParameterPage& page, int row) {
  if (const Control* control = ControlOf(page, row)) {
    return Trimmed(control->ShownText());
  }
  const OptionGroup* options = OptionsOf(page, row);
  if (options == nullptr) {
    return Trimmed(page.SetCell(row));
  }
  return options->Selected() < 0 ? String() : (*options)[options->Selected()].Caption();
}

ComboBox* UnitBoxOf(ParameterPage& page, int row) {
  const Control* const control = ControlOf(page, row);
  const DesignRow* const line = control == nullptr ? nullptr : page.RowOf(*control);
  if (line == nullptr || dynamic_cast<const TextField*>(control) == nullptr) {
    return nullptr;
  }
  for (const std::string_view name : NamesIn(line->field)) {
    auto* const box = dynamic_cast<ComboBox*>(page.FindControl(name));
    if (box != nullptr && box->Visible()) {
      return box;
    }
  }
  return nullptr;
}

String UnitShownOf(ParameterPage& page, int row) {
  if (const ComboBox* box = UnitBoxOf(page, row)) {
    return box->Text();
  }
  const Label* unit = page.UnitLabelOf(row);
  return unit == nullptr ? String() : unit->Caption();
}

}  // namespace korva
