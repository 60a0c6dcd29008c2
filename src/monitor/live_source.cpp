#include "monitor/live_source.h"

namespace korva {

LiveReading ReadingOf(ParameterPage& page, int row, const String& text, bool answered) {
  // A live value has its caption where a parameter has its number.
  const String& caption = page.DataCell(row, kCaption);
  const Label* unit = page.UnitLabelOf(row);
  return {.row = row,
          .caption = caption.empty() ? page.DataCell(row, kNumberCaption) : caption,
          .text = text,
          .unit = unit == nullptr ? String() : unit->Caption(),
          .answered = answered};
}

}  // namespace korva
