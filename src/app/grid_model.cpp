#include "app/grid_model.h"

#include <QApplication>
#include <QBrush>

#include "app/accessible.h"
#include "app/looks.h"
#include "app/text.h"
#include "core/texts.h"

namespace korva {

namespace {

/// What a screen reader tells of a cell.
QString Told(const Grid::Cell& cell) {
  const QString state = cell.marked ? LookWords() : StateWords(cell.look);
  const QString mark = ToQt(CaptionText(TextKey::CompareMark));
  return !cell.differs ? state : state.isEmpty() ? mark : state + QStringLiteral("、") + mark;
}

/// What is drawn of a cell; `look` is the one that its column lends it.
QVariant Drawn(const Grid::Cell& cell, Look look, int role, const QWidget& view) {
  const bool plain = look == Look::Normal;
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(cell.text);
    // What has no colours of its own looks disabled when the table is.
    case Qt::BackgroundRole:
      return plain ? QVariant() : PaletteOf(look, QApplication::palette(&view)).base();
    case Qt::ForegroundRole:
      return cell.look == Look::Normal ? QVariant() : PaletteOf(look, QApplication::palette(&view)).text();
    case GridModel::kMarkRole:
      return cell.marked;
    case GridModel::kDiffersRole:
      return cell.differs;
    case Qt::AccessibleDescriptionRole:
      return Told(cell);
    default:
      return {};
  }
}

}  // namespace

void GridModel::FollowSize() {
  if (columns_ == grid_.Columns()) {
    FollowRows();
    return;
  }
  beginResetModel();
  rows_ = grid_.Rows();
  columns_ = grid_.Columns();
  endResetModel();
}

void GridModel::FollowRows() {
  if (grid_.Rows() > rows_) {
    beginInsertRows({}, rows_, grid_.Rows() - 1);
    rows_ = grid_.Rows();
    endInsertRows();
  } else if (grid_.Rows() < rows_) {
    beginRemoveRows({}, grid_.Rows(), rows_ - 1);
    rows_ = grid_.Rows();
    endRemoveRows();
  }
}

void GridModel::TellCell(int row, int column) {
  if (row == 0) {
    emit headerDataChanged(Qt::Horizontal, column, column);
  } else {
    emit dataChanged(index(row, column), index(row, column));
  }
}

void GridModel::TellAll() {
  if (rows_ > 0 && columns_ > 0) {
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
    emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
  }
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const bool number = index.column() == 0;
  if (role == Qt::TextAlignmentRole) {
    return static_cast<int>(number ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
  }
  const Grid::Cell& cell = grid_.At(index.row(), index.column());
  return Drawn(cell, number && cell.look == Look::Normal ? Look::Grey : cell.look, role, view_);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (rows_ == 0 || columns_ == 0) {
    return {};
  }
  if (orientation == Qt::Vertical) {
    // The rows' numbers stand in the table; a screen reader asks for them here.
    return role == Qt::AccessibleTextRole ? ToQt(grid_.At(section, 0).text) : QVariant();
  }
  const Grid::Cell& cell = grid_.At(0, section);
  return Drawn(cell, cell.look, role, view_);
}

}  // namespace korva
