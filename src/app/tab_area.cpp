#include "app/tab_area.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "app/looks.h"

namespace korva {

TabArea::TabArea(QWidget* parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
}

bool TabArea::CanScroll() const {
  return verticalScrollBar()->maximum() > 0 || horizontalScrollBar()->maximum() > 0;
}

bool TabArea::HoldsStop() const {
  const QList<QWidget*> widgets = widget()->findChildren<QWidget*>();
  return std::any_of(widgets.begin(), widgets.end(), [this](const QWidget* one) {
    return (one->focusPolicy() & Qt::TabFocus) != 0 && one->isVisibleTo(this) && one->isEnabledTo(this);
  });
}

void TabArea::Settle() {
  const bool stop = CanScroll() && !HoldsStop();
  if (stop == (focusPolicy() != Qt::NoFocus)) {
    return;
  }
  setFocusPolicy(stop ? Qt::StrongFocus : Qt::NoFocus);
  const int frame = stop ? kFocusFrame : 0;
  setViewportMargins(frame, frame, frame, frame);
}

bool TabArea::event(QEvent* event) {
  const bool taken = QScrollArea::event(event);
  if (event->type() == QEvent::Paint && hasFocus()) {
    QPainter painter(this);
    const QRect around =
        viewport()->geometry().adjusted(-kFocusFrame, -kFocusFrame, kFocusFrame, kFocusFrame);
    DrawFocusFrame(painter, around, palette().color(QPalette::Window));
  } else if (event->type() == QEvent::Show || event->type() == QEvent::Resize) {
    due_.start(0, this);
  }
  return taken;
}

bool TabArea::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    due_.start(0, this);  // what stands in it has changed
  }
  return QScrollArea::eventFilter(watched, event);
}

void TabArea::timerEvent(QTimerEvent* /*event*/) {
  due_.stop();
  Settle();
}

}  // namespace korva
