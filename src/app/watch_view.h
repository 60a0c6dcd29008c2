#pragma once

#include <QFrame>
#include <optional>
#include <vector>

#include "app/side_view.h"
#include "companions/watch_panel.h"

namespace korva {

class DigitsView;
class TrendView;

/// A live value on the screen: its caption, the value in large digits, least, most, age and trend.
class TileView final : public QFrame {
 public:
  explicit TileView(QWidget* parent);
  void Show(const WatchPanel::Tile& tile, const WatchedValue& value);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowTile(const WatchPanel::Tile& tile);

  std::optional<WatchPanel::Tile> shown_;
  unsigned shown_change_ = 0;  ///< of the value: its trend is drawn up to there
  QLabel* caption_;
  DigitsView* digits_;
  QLabel* numbers_;
  QLabel* age_;
  TrendView* trend_;
};

/// The window of the live values on the screen.
class WatchView final : public SideView {
 public:
  WatchView(WatchPanel& panel, EventGate& gate, QWidget* parent);

 protected:
  void ShowContents(bool other_heading) override;

 private:
  class Tiles;

  WatchPanel& panel_;
  Tiles* tiles_;
};

/// In how many columns `count` tiles stand in a place of this size: those that leave them nearest to the form
/// of a tile.
int ColumnsOf(int count, const QSize& place);

}  // namespace korva
