#include "app/grid_view.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

#include "app/looks.h"
#include "app/text.h"
#include "print/contrast.h"

namespace korva {

namespace {

/// What a cell is drawn on.
QColor BaseOf(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const QVariant own = index.data(Qt::BackgroundRole);
  return own.isValid() ? own.value<QBrush>().color() : option.palette.color(QPalette::Base);
}

/// Draws the cells, and over them the mark of an open edit, and of a text that differs from what the table
/// was compared with.
class MarkDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.data(GridModel::kDiffersRole).toBool()) {
      QRect bar = option.rect;
      bar.setWidth(kDifferenceMark);
      painter->fillRect(bar, MarkColour(BaseOf(option, index)));
    }
    if (index.data(GridModel::kMarkRole).toBool()) {
      const QColor text = index.data(Qt::ForegroundRole).value<QBrush>().color();
      painter->save();
      DrawMark(*painter, option.rect.adjusted(4, 0, -4, -2), text);
      painter->restore();
    }
  }
};

}  // namespace

GridView::GridView(Grid& grid, Actions actions, QWidget* parent)
    : QTableView(parent), grid_(grid), model_(grid, *this), actions_(std::move(actions)) {
  setModel(&model_);
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
  connect(head, &QHeaderView::sectionClicked, this, [this](int column) { actions_.click(0, column); });
  connect(this, &QTableView::clicked, this,
          [this](const QModelIndex& cell) { actions_.click(cell.row(), cell.column()); });
  FollowScrolling();
}

/// A cell that comes into view, or a table that becomes smaller, scrolls without the user's doing.
void GridView::FollowScrolling() {
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
    model_.TellCell(row, column);
  }
  seen_ = grid_.Changes();
  ShowCurrent();
  ShowTopRow();
}

void GridView::ShowAll() {
  const QScopedValueRollback following(following_, true);
  model_.FollowSize();
  setRowHidden(0, true);
  model_.TellAll();
}

void GridView::ShowCurrent() {
  const auto [row, column] = grid_.CurrentCell();
  if (row == std::max(0, currentIndex().row()) && column == std::max(0, currentIndex().column())) {
    return;
  }
  setCurrentIndex(row == 0 ? QModelIndex() : model_.index(row, column));
  scrollTo(currentIndex());
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (!following_) {
    grid_.SetCurrentCell(std::max(0, current.row()), std::max(0, current.column()));
  }
}

void GridView::ShowTopRow() {
  if (grid_.TopRow() > 0 && grid_.TopRow() < model_.rowCount() && grid_.TopRow() != rowAt(0)) {
    const QScopedValueRollback following(following_, true);
    scrollTo(model_.index(grid_.TopRow(), 0), QAbstractItemView::PositionAtTop);
  }
}

void GridView::keyboardSearch(const QString& /*search*/) {}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (event->matches(QKeySequence::Paste)) {
    actions_.paste(std::max(1, currentIndex().row()), std::max(1, currentIndex().column()),
                   QGuiApplication::clipboard()->text());
    return;
  }
  const bool press = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
  if (press && currentIndex().row() > 0) {
    actions_.click(currentIndex().row(), currentIndex().column());
    return;
  }
  QTableView::keyPressEvent(event);
}

}  // namespace korva
