#include "app/help_tips.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTabBar>
#include <QToolTip>

#include "app/text.h"

namespace korva {

namespace {

/// Lets a widget's tip come as if the pointer rested on what has the keyboard in it.
void AskForTip(QWidget& widget) {
  QWidget* asked = &widget;
  QPoint place = widget.rect().center();
  if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
    place = bar->tabRect(bar->currentIndex()).center();
  } else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
    asked = view->viewport();
    place = view->visualRect(view->currentIndex()).center();
  }
  QHelpEvent help(QEvent::ToolTip, place, asked->mapToGlobal(place));
  QCoreApplication::sendEvent(asked, &help);
}

}  // namespace

HelpTips::HelpTips(const Page& page, QWidget& view) : QObject(&view), page_(page), view_(view) {
  view.installEventFilter(this);
}

bool HelpTips::eventFilter(QObject* watched, QEvent* event) {
  // What no widget under the pointer, or with the keyboard, has answered comes up to the view.
  if (event->type() == QEvent::ToolTip && ShowTip(*static_cast<QHelpEvent*>(event))) {
    return true;
  }
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1) {
    if (QWidget* focus = view_.focusWidget()) {
      AskForTip(*focus);
    }
    return true;
  }
  return QObject::eventFilter(watched, event);
}

bool HelpTips::ShowTip(const QHelpEvent& help) const {
  QWidget* widget = view_.childAt(help.pos());
  const QString tip = TipOf(widget);
  if (!tip.isEmpty()) {
    QToolTip::showText(help.globalPos(), tip, widget);
  }
  return !tip.isEmpty();
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
