#include "app/focus_keeper.h"

#include <QFocusEvent>
#include <QTimer>
#include <utility>

namespace korva {

namespace {

bool IsStop(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.isEnabled() && widget.isVisible();
}

}  // namespace

FocusKeeper::FocusKeeper(QWidget& page) : QObject(&page) {
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    if (widget->focusPolicy() != Qt::NoFocus) {
      widget->installEventFilter(this);
    }
  }
}

bool FocusKeeper::eventFilter(QObject* watched, QEvent* event) {
  auto& widget = static_cast<QWidget&>(*watched);
  if (event->type() == QEvent::FocusOut) {
    FocusLeft(widget);
  } else if (event->type() == QEvent::FocusIn) {
    FocusCame(static_cast<QFocusEvent*>(event)->reason());
  } else if (event->type() == QEvent::EnabledChange) {
    Enabled(widget);
  }
  return QObject::eventFilter(watched, event);
}

void FocusKeeper::FocusLeft(QWidget& widget) {
  wandering_ = !widget.isEnabled();
  if (!wandering_) {
    return;
  }
  if (lost_ == nullptr) {
    lost_ = &widget;
  }
  // What disabled it may enable others yet, such as the button that ends a live loop.
  QTimer::singleShot(0, this, [this] { GoOn(); });
}

void FocusKeeper::GoOn() {
  if (lost_ == nullptr || lost_->window()->focusWidget() != nullptr) {
    return;
  }
  QWidget* next = lost_->nextInFocusChain();
  while (next != lost_ && !IsStop(*next)) {
    next = next->nextInFocusChain();
  }
  if (next != lost_) {
    wandering_ = true;
    next->setFocus(Qt::TabFocusReason);
  }
}

void FocusKeeper::FocusCame(Qt::FocusReason reason) {
  // A disabled widget hands the focus on like the Tab key.
  const bool by_itself = (std::exchange(wandering_, false) && reason == Qt::TabFocusReason) ||
                         reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
  if (!by_itself) {
    lost_ = nullptr;
  }
}

void FocusKeeper::Enabled(const QWidget& widget) {
  if (lost_ == &widget && widget.isEnabled()) {
    std::exchange(lost_, nullptr)->setFocus();
  }
}

}  // namespace korva
