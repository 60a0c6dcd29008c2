#pragma once

#include <QTableView>
#include <functional>
#include <optional>

#include "app/grid_model.h"
#include "core/grid.h"

namespace korva {

/// A grid on the screen. The head row stays in view: it is the table's header, and row 0 of the table is
/// hidden, so that rows and columns have the grid's numbers. Only the cells in view are drawn, and of a
/// changed cell itself alone.
///
/// The arrow keys move the frame of the keyboard only; Enter or Space then does what a click would. Which
/// cell is under edit is the page's to say.
class GridView final : public QTableView {
 public:
  /// What the user can do with a cell.
  struct Actions {
    std::function<void(int row, int column)> click;
    std::function<void(int row, int column, const QString& text)> paste;
  };
  GridView(Grid& grid, Actions actions, QWidget* parent);
  /// Brings the widget to what the grid holds; called after each change of it.
  void Show();
  /// The letters and digits of the keyboard choose no cell.
  void keyboardSearch(const QString& search) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void FollowScrolling();
  void ShowAll();
  void ShowCurrent();
  void ShowTopRow();

  Grid& grid_;
  GridModel model_;
  Actions actions_;
  std::optional<unsigned> seen_;  ///< how many changes of the grid it shows
  bool following_ = false;        ///< the page scrolls, not the user
  bool user_scrolls_ = false;     ///< the next change of the scroll bar is the user's
};

}  // namespace korva
