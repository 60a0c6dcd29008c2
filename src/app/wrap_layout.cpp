#include "app/wrap_layout.h"

#include <algorithm>

namespace korva {

WrapLayout::WrapLayout(QWidget* parent) : QLayout(parent) { setContentsMargins(0, 0, 0, 0); }

QLayoutItem* WrapLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrapLayout::takeAt(int index) {
  if (index < 0 || index >= count()) {
    return nullptr;
  }
  QLayoutItem* taken = items_[static_cast<std::size_t>(index)].release();
  items_.erase(items_.begin() + index);
  return taken;
}

QSize WrapLayout::sizeHint() const {
  QSize hint;
  for (const auto& item : items_) {
    const QSize size = item->sizeHint();
    hint = {hint.width() + size.width() + spacing(), std::max(hint.height(), size.height())};
  }
  return hint;
}

QSize WrapLayout::minimumSize() const {
  QSize least;
  for (const auto& item : items_) {
    least = least.expandedTo(item->sizeHint());
  }
  return least;
}

void WrapLayout::setGeometry(const QRect& area) {
  QLayout::setGeometry(area);
  static_cast<void>(Arrange(area, true));
}

int WrapLayout::Arrange(const QRect& area, bool place) const {
  QPoint at = area.topLeft();
  int line_height = 0;
  for (const auto& item : items_) {
    const QSize size = item->sizeHint();
    if (at.x() > area.x() && at.x() + size.width() > area.x() + area.width()) {
      at = {area.x(), at.y() + line_height + spacing()};
      line_height = 0;
    }
    const int right_end = area.x() + area.width() - size.width();
    const int left = item == items_.back() ? std::max(at.x(), right_end) : at.x();
    if (place) {
      item->setGeometry({QPoint(left, at.y()), size});
    }
    at.rx() += size.width() + spacing();
    line_height = std::max(line_height, size.height());
  }
  return at.y() + line_height - area.y();
}

}  // namespace korva
