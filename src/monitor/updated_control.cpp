#include "monitor/updated_control.h"

namespace korva {

void PaintHighlight(TextField& field) { field.SetLook(Look::Highlight); }
void PaintHighlight(Label& label) { label.SetLook(Look::Highlight); }
void PaintRest(TextField& field) { field.SetLook(Look::Grey); }
void PaintRest(Label& label) { label.SetLook(Look::Normal); }

void ToggleTextColour(TextField& field) {
  if (field.ShownLook() == Look::Highlight) {
    PaintRest(field);
  } else {
    PaintHighlight(field);
  }
}

void ToggleLabelColour(Label& label) {
  if (label.ShownLook() == Look::Highlight) {
    PaintRest(label);
  } else {
    PaintHighlight(label);
  }
}

void KeepInReach(Page& page, Button& button) {
  button.SetEnabled(true);
  if (const int tab = page.TabOf(button); tab >= 0) {
    page.Tabs.SetTabEnabled(tab, true);
  }
}

}  // namespace korva
