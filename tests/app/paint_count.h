#pragma once

#include <QEvent>
#include <QWidget>

namespace korva {

/// Counts the paints of a widget.
class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

}  // namespace korva
