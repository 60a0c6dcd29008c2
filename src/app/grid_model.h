#pragma once

#include <QAbstractTableModel>
#include <QWidget>

#include "core/grid.h"

namespace korva {

/// A grid as a table view asks for it, cell by cell of what it draws. Nothing is kept of the cells, so that a
/// table of 1000 rows costs no more than its rows in view. Row 0 is the view's header.
class GridModel final : public QAbstractTableModel {
 public:
  /// True of a cell with an edit of its text that stands open.
  static constexpr int kMarkRole = Qt::UserRole;
  /// True of a cell that differs from what the table was compared with.
  static constexpr int kDiffersRole = Qt::UserRole + 1;

  /// Both outlive the model. Cells are drawn in the colours of the `view`.
  GridModel(const Grid& grid, const QWidget& view) : grid_(grid), view_(view) {}

  /// Takes the grid's size.
  void FollowSize();
  /// Tells the view that a cell has changed, or all of them.
  void TellCell(int row, int column);
  void TellAll();

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void FollowRows();

  const Grid& grid_;
  const QWidget& view_;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace korva
