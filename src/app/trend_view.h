#pragma once

#include <QPolygonF>
#include <QWidget>
#include <chrono>
#include <deque>
#include <vector>

#include "companions/watch.h"

namespace korva {

/// The trend of a live value: a line over the last minutes, which is interrupted where nothing was told. The
/// value's axis holds what is drawn; that of time, in minutes and seconds before the last reading, is as long
/// as the trend.
class TrendView final : public QWidget {
 public:
  explicit TrendView(QWidget* parent);
  /// Shows the trend of the value, which is the caller's.
  void Show(const WatchedValue& value);
  /// What the axis of time begins with: the shortest span that holds the trend.
  [[nodiscard]] std::chrono::seconds Span() const { return span_; }
  /// The pieces of the line, each of points that follow one another.
  [[nodiscard]] std::vector<QPolygonF> Pieces() const;

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Scale;
  [[nodiscard]] Scale ScaleOf() const;
  void DrawTimes(QPainter& painter, const Scale& scale) const;
  void DrawValues(QPainter& painter, const Scale& scale) const;

  std::deque<WatchedValue::Point> points_;
  Clock end_{0};
  std::chrono::seconds span_{0};
};

}  // namespace korva
