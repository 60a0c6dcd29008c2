#pragma once

#include <QHelpEvent>
#include <QObject>
#include <QWidget>

#include "core/page.h"

namespace korva {

/// Shows what the page's controls tell of themselves (Control::Help) in tooltips while the pointer rests on
/// their widgets, or when F1 is pressed while they have the keyboard. A widget with a tooltip of its own keeps
/// that.
class HelpTips final : public QObject {
 public:
  /// `view` holds the widgets of the page's controls, under their full names, and keeps this.
  HelpTips(const Page& page, QWidget& view);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Answers the pointer; true when the page had something to tell.
  [[nodiscard]] bool ShowTip(const QHelpEvent& help) const;
  /// What the widget, or the next one around it that shows a control, tells; empty for nothing.
  [[nodiscard]] QString TipOf(const QWidget* widget) const;

  const Page& page_;
  QWidget& view_;
};

}  // namespace korva
