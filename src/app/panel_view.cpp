#include "app/panel_view.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <memory>

#include "app/accessible.h"
#include "app/looks.h"
#include "app/text.h"
#include "core/texts.h"

namespace korva {

namespace {

constexpr QSize kPanelSize(760, 420);
constexpr int kColumn = 32;       ///< widest at first, in digits of the font
constexpr int kLeastColumn = 10;  ///< narrowest at first: a time grows while the window is open

}  // namespace

/// The panel's table. It tells the view of each change by rows, so that what is selected stays.
class PanelView::Model final : public QAbstractTableModel {
 public:
  Model(const Panel& panel, QObject* parent)
      : QAbstractTableModel(parent),
        panel_(panel),
        first_(panel.FirstRow()),
        end_(panel.EndRow()),
        generation_(panel.Generation()) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : end_ - first_;
  }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(panel_.Heads().size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DisplayRole) {
      return ToQt(panel_.Cells(first_ + index.row()).at(static_cast<std::size_t>(index.column())));
    }
    if (role == Qt::BackgroundRole || role == Qt::ForegroundRole) {
      const Look look = panel_.LookOf(first_ + index.row());
      const QPalette palette = PaletteOf(look, QApplication::palette());
      const auto part = role == Qt::BackgroundRole ? QPalette::Base : QPalette::Text;
      return look == Look::Normal ? QVariant() : QVariant(palette.brush(part));
    }
    if (role == Qt::AccessibleDescriptionRole && panel_.LookOf(first_ + index.row()) == Look::Highlight) {
      return LookWords();
    }
    return {};
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    return orientation == Qt::Horizontal && role == Qt::DisplayRole
               ? QVariant(ToQt(panel_.Heads().at(static_cast<std::size_t>(section))))
               : QVariant();
  }

  /// Takes over what has changed.
  void Follow() {
    if (generation_ != panel_.Generation() || panel_.FirstRow() > end_ || panel_.EndRow() < end_) {
      beginResetModel();
      first_ = panel_.FirstRow();
      end_ = panel_.EndRow();
      generation_ = panel_.Generation();
      endResetModel();
      return;
    }
    if (panel_.FirstRow() > first_) {
      beginRemoveRows({}, 0, panel_.FirstRow() - first_ - 1);
      first_ = panel_.FirstRow();
      endRemoveRows();
    }
    if (panel_.EndRow() > end_) {
      beginInsertRows({}, end_ - first_, panel_.EndRow() - first_ - 1);
      end_ = panel_.EndRow();
      endInsertRows();
    }
  }

  /// The rows of these places, tabs between the cells.
  [[nodiscard]] QString TextOf(const QList<int>& places) const {
    QStringList lines;
    for (const int place : places) {
      QStringList cells;
      for (const String& cell : panel_.Cells(first_ + place)) {
        cells += ToQt(cell);
      }
      lines += cells.join(QLatin1Char('\t'));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
  }

 private:
  const Panel& panel_;
  int first_;
  int end_;
  unsigned generation_;
};

PanelView::PanelView(Panel& panel, EventGate& gate, QWidget* parent)
    : SideView(panel, gate, parent),
      panel_(panel),
      table_(new QTableView(this)),
      model_(new Model(panel, this)) {
  resize(kPanelSize);
  MakeTable();
  Assemble(table_, {{.caption = TextKey::CopyRows, .name = "copy", .action = [this] { Copy(); }}});
}

void PanelView::MakeTable() {
  table_->setModel(model_);
  table_->setObjectName(QStringLiteral("table"));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().lineSpacing() * 5 / 4);
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->installEventFilter(this);
  FitColumns();  // to the rows that were there before
  // The end stays in view as long as the user does not scroll away from it. The bar moves once more when the
  // window goes, whose members are gone by then.
  QScrollBar* bar = table_->verticalScrollBar();
  const auto at_end = std::make_shared<bool>(panel_.BeginsAtEnd());
  connect(bar, &QScrollBar::valueChanged, bar,
          [bar, at_end](int value) { *at_end = value == bar->maximum(); });
  connect(bar, &QScrollBar::rangeChanged, bar, [bar, at_end](int /*least*/, int most) {
    if (*at_end) {
      bar->setValue(most);
    }
  });
}

void PanelView::ShowContents(bool other_heading) {
  ShowRows();
  if (other_heading) {
    FitColumns();
  }
}

void PanelView::WidenColumns() {
  table_->horizontalHeader()->setStretchLastSection(false);  // it would be cut at the window's edge
  table_->resizeColumnsToContents();
}

void PanelView::FitColumns() {
  table_->horizontalHeader()->setStretchLastSection(true);
  // The last one fills what is left; a width of its own would take that from it.
  for (int column = 0; column + 1 < model_->columnCount({}); ++column) {
    table_->resizeColumnToContents(column);
    table_->setColumnWidth(column, std::clamp(table_->columnWidth(column), Digits(table_, kLeastColumn),
                                              Digits(table_, kColumn)));
  }
}

void PanelView::ShowRows() {
  const int before = model_->rowCount({});
  model_->Follow();
  if (before == 0 && model_->rowCount({}) > 0) {
    FitColumns();
  }
}

void PanelView::Copy() {
  QList<int> places;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
    places += index.row();
  }
  std::sort(places.begin(), places.end());
  if (places.isEmpty()) {
    for (int place = 0; place < model_->rowCount({}); ++place) {
      places += place;
    }
  }
  QApplication::clipboard()->setText(model_->TextOf(places));
}

bool PanelView::Press(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) {
    Copy();  // the table would copy one cell
    return true;
  }
  const bool widens = key.key() == Qt::Key_Plus;
  if (!key.modifiers().testFlag(Qt::ControlModifier) || (!widens && key.key() != Qt::Key_Minus)) {
    return false;
  }
  if (widens) {
    WidenColumns();
  } else {
    FitColumns();
  }
  return true;
}

bool PanelView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && Press(*static_cast<QKeyEvent*>(event))) {
    return true;
  }
  return SideView::eventFilter(watched, event);
}

}  // namespace korva
