#include "app/grid_view.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "app/looks.h"
#include "app/text.h"

namespace korva {

namespace {

constexpr int kMarkRole = Qt::UserRole;

/// Draws the cells, and the mark of an open edit over its cell.
class MarkDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(kMarkRole).toBool()) {
      const QColor text = index.data(Qt::ForegroundRole).value<QBrush>().color();
      painter->save();
      DrawMark(*painter, option.rect.adjusted(4, 0, -4, -2), text);
      painter->restore();
    }
  }
};

}  // namespace

GridView::GridView(Grid& grid, std::function<void(int row, int column)> click, QWidget* parent)
    : QTableWidget(parent), grid_(grid), click_(std::move(click)) {
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::NoSelection);
  setTabKeyNavigation(false);  // Tab leaves the table
  setItemDelegate(new MarkDelegate(this));
  verticalHeader()->setVisible(false);
  QHeaderView* head = horizontalHeader();
  head->setSectionResizeMode(QHeaderView::Stretch);
  head->setHighlightSections(false);
  head->setSectionsClickable(true);
  // A press on the head would move the frame of the keyboard into the column.
  disconnect(head, &QHeaderView::sectionPressed, this, nullptr);
  disconnect(head, &QHeaderView::sectionEntered, this, nullptr);
  connect(head, &QHeaderView::sectionClicked, this, [this](int column) { click_(0, column); });
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) { click_(row, column); });
  connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int column) {
    if (!following_) {
      grid_.SetCurrentCell(std::max(0, row), std::max(0, column));
    }
  });
  // A cell that comes into view, or a table that becomes smaller, scrolls without the user's doing.
  connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
          [this] { user_scrolls_ = verticalScrollBar()->sliderPosition() != verticalScrollBar()->value(); });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    const bool by_user = std::exchange(user_scrolls_, false);
    const int top = std::max(1, rowAt(0));
    if (by_user) {
      grid_.UserScrolls(top);
    } else if (!following_) {
      grid_.SetTopRow(top);
    }
  });
}

void GridView::Show() {
  const auto [row, column] = grid_.LastChange();
  if (!seen_ || (seen_ != grid_.Changes() && row < 0)) {
    ShowAll();
  } else if (seen_ != grid_.Changes()) {
    ShowCell(row, column);
  }
  seen_ = grid_.Changes();
  ShowCurrent();
  ShowTopRow();
}

void GridView::ShowAll() {
  const QScopedValueRollback following(following_, true);
  setRowCount(grid_.Rows());
  setColumnCount(grid_.Columns());
  setRowHidden(0, true);
  for (int row = 0; row < grid_.Rows(); ++row) {
    for (int column = 0; column < grid_.Columns(); ++column) {
      ShowCell(row, column);
    }
  }
}

void GridView::ShowCell(int row, int column) {
  if (row == 0) {
    ShowHead(column);
    return;
  }
  QTableWidgetItem* cell_item = item(row, column);
  if (cell_item == nullptr) {
    cell_item = new QTableWidgetItem;
    setItem(row, column, cell_item);
  }
  const Grid::Cell& cell = grid_.At(row, column);
  const bool head = column == 0;
  const QPalette colours =
      PaletteOf(head && cell.look == Look::Normal ? Look::Grey : cell.look, QApplication::palette(this));
  // What has no colours of its own looks disabled when the table is.
  const bool plain = cell.look == Look::Normal;
  cell_item->setText(ToQt(cell.text));
  cell_item->setBackground(plain && !head ? QBrush() : colours.base());
  cell_item->setForeground(plain ? QBrush() : colours.text());
  cell_item->setData(kMarkRole, cell.marked);
  cell_item->setTextAlignment(head ? Qt::AlignCenter : Qt::AlignRight | Qt::AlignVCenter);
}

void GridView::ShowHead(int column) {
  QTableWidgetItem* head = horizontalHeaderItem(column);
  if (head == nullptr) {
    head = new QTableWidgetItem;
    setHorizontalHeaderItem(column, head);
  }
  const Grid::Cell& cell = grid_.At(0, column);
  const QPalette colours = PaletteOf(cell.look, QApplication::palette(this));
  const bool plain = cell.look == Look::Normal;
  head->setText(ToQt(cell.text));
  head->setBackground(plain ? QBrush() : colours.base());
  head->setForeground(plain ? QBrush() : colours.text());
}

void GridView::ShowCurrent() {
  const auto [row, column] = grid_.CurrentCell();
  if (row == std::max(0, currentRow()) && column == std::max(0, currentColumn())) {
    return;
  }
  const bool none = row == 0;
  setCurrentCell(none ? -1 : row, none ? -1 : column);
  scrollTo(currentIndex());
}

void GridView::ShowTopRow() {
  if (grid_.TopRow() > 0 && grid_.TopRow() < rowCount() && grid_.TopRow() != rowAt(0)) {
    const QScopedValueRollback following(following_, true);
    scrollTo(model()->index(grid_.TopRow(), 0), QAbstractItemView::PositionAtTop);
  }
}

void GridView::keyboardSearch(const QString& /*search*/) {}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool press = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  if (press && currentRow() > 0) {
    click_(currentRow(), currentColumn());
    return;
  }
  QTableWidget::keyPressEvent(event);
}

}  // namespace korva
