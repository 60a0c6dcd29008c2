#pragma once

#include <QWidget>
#include <functional>

#include "core/control.h"
#include "core/grid.h"
#include "platform/event_gate.h"

namespace korva {

/// Draws controls as widgets: each widget shows what its control holds, follows its changes, and turns what
/// the user does into the control's own user actions. A widget never changes a text that it shows.
class ControlViews {
 public:
  /// Every user action enters the program through `gate`.
  explicit ControlViews(EventGate& gate) : gate_(gate) {}

  /// The widget of any control, under the control's full name. A frame becomes a plain area for what stands
  /// in it, its caption is drawn by CaptionView. Never nullptr.
  QWidget* Make(Control& control, QWidget* parent);
  /// A label that shows a captioned control's caption.
  static QWidget* CaptionView(CaptionedControl& control, QWidget* parent);

  /// Lets the user's action in.
  void Enter(const std::function<void()>& action) { gate_.Enter(action); }

 private:
  QWidget* MakeButton(Button& button, QWidget* parent);
  QWidget* MakeOption(OptionButton& option, QWidget* parent);
  QWidget* MakeField(TextField& field, QWidget* parent);
  QWidget* MakeMemo(TextField& field, QWidget* parent);
  QWidget* MakeCombo(ComboBox& combo, QWidget* parent);
  QWidget* MakeList(ListBox& list, QWidget* parent);
  QWidget* MakeGrid(Grid& grid, QWidget* parent);
  static QWidget* MakeBar(ProgressBar& bar, QWidget* parent);
  static QWidget* MakePicture(Picture& picture, QWidget* parent);

  EventGate& gate_;
};

/// Calls `update` now and after each change of the control, as long as `widget` lives.
void Follow(Control& control, QWidget* widget, std::function<void()> update);

}  // namespace korva
