#include "app/help_tips.h"

#include <QHelpEvent>
#include <QToolTip>

#include "app/text.h"

namespace korva {

HelpTips::HelpTips(const Page& page, QWidget& view) : QObject(&view), page_(page), view_(view) {
  view.installEventFilter(this);
}

bool HelpTips::eventFilter(QObject* watched, QEvent* event) {
  // What no widget under the pointer has answered comes up to the view.
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    QWidget* widget = view_.childAt(help->pos());
    if (const QString tip = TipOf(widget); !tip.isEmpty()) {
      QToolTip::showText(help->globalPos(), tip, widget);
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

QString HelpTips::TipOf(const QWidget* widget) const {
  for (; widget != nullptr && widget != &view_; widget = widget->parentWidget()) {
    const Control* control = page_.FindControl(widget->objectName().toStdString());
    if (control != nullptr && control->Help) {
      return ToQt(control->Help());
    }
  }
  return {};
}

}  // namespace korva
