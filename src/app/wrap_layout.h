#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace korva {

/// Widgets side by side, in as many lines as the width asks for, each in its own size. The last one stands at
/// the right end.
class WrapLayout final : public QLayout {
 public:
  explicit WrapLayout(QWidget* parent);

  void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
  [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  [[nodiscard]] Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override { return Arrange({0, 0, width, 0}, false); }
  [[nodiscard]] QSize sizeHint() const override;
  /// Of the widest widget.
  [[nodiscard]] QSize minimumSize() const override;
  void setGeometry(const QRect& area) override;

 private:
  /// The height that is needed; with `place` the items get their places.
  [[nodiscard]] int Arrange(const QRect& area, bool place) const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace korva
