#include "app/list_view.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "app/text.h"

namespace korva {

/// Tells a screen reader what the tooltip tells.
class ListView::Entry final : public QListWidgetItem {
 public:
  using QListWidgetItem::QListWidgetItem;
  [[nodiscard]] QVariant data(int role) const override {
    auto* list = static_cast<ListView*>(listWidget());
    return role == Qt::AccessibleDescriptionRole && list != nullptr ? list->Description(list->row(this))
                                                                    : QListWidgetItem::data(role);
  }
};

ListView::ListView(ListBox& list, std::function<void(int position)> pick, QWidget* parent)
    : QListWidget(parent), list_(list), pick_(std::move(pick)) {
  setUniformItemSizes(true);
  connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!following_ && row >= 0 && row != list_.ListIndex()) {
      pick_(row);
    }
  });
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
    if (!following_) {
      list_.SetTopIndex(std::max(0, TopRow()));
    }
  });
}

void ListView::Show() {
  const QScopedValueRollback following(following_, true);
  Fill();
  // The page's wish counts once: to bring the present entry into view may have moved the rows since.
  if (const int top = list_.TopIndex(); top != shown_top_ && top >= 0 && top < count()) {
    shown_top_ = top;
    scrollToItem(item(top), QAbstractItemView::PositionAtTop);
  }
  if (currentRow() != list_.ListIndex()) {
    setCurrentRow(list_.ListIndex());
    scrollToItem(currentItem());
  }
}

void ListView::Fill() {
  const auto& entries = list_.Entries();
  const auto last =
      std::find_if(entries.rbegin(), entries.rend(), [](const String& entry) { return !entry.empty(); });
  const auto shown = entries.rend() - last;
  if (count() == shown) {
    return;
  }
  clear();
  std::for_each(entries.begin(), entries.begin() + shown,
                [this](const String& entry) { addItem(new Entry(ToQt(entry))); });
}

QString ListView::Description(int position) {
  if (!describe_) {
    return {};
  }
  const auto [found, fresh] = descriptions_.try_emplace(position);
  if (fresh) {
    found->second = describe_(position);
  }
  return found->second;
}

void ListView::Narrow(const QString& words) {
  const QScopedValueRollback following(following_, true);
  const QStringList wanted = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  for (int position = 0; position < count(); ++position) {
    const bool fits = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
      return item(position)->text().contains(word, Qt::CaseInsensitive) ||
             Description(position).contains(word, Qt::CaseInsensitive);
    });
    setRowHidden(position, !fits);
  }
}

std::vector<int> ListView::Shown() const {
  std::vector<int> shown;
  for (int position = 0; position < count(); ++position) {
    if (!isRowHidden(position)) {
      shown.push_back(position);
    }
  }
  return shown;
}

bool ListView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int position = row(itemAt(help->pos()));
    QToolTip::showText(help->globalPos(), position < 0 ? QString() : Description(position), this);
    return true;
  }
  return QListWidget::viewportEvent(event);
}

void ListView::resizeEvent(QResizeEvent* event) {
  const QListWidgetItem* present = currentItem();
  const QRect before(QPoint(), event->oldSize());
  const bool in_view = present != nullptr && before.contains(visualItemRect(present));
  QListWidget::resizeEvent(event);
  if (in_view) {
    scrollToItem(present);
  }
}

// The keyboard's focus alone chooses nothing: a list without a choice would else take its first entry as soon
// as its page comes to the front.
void ListView::focusInEvent(QFocusEvent* event) {
  const QScopedValueRollback following(following_, true);
  const int row = currentRow();
  QListWidget::focusInEvent(event);
  setCurrentRow(row);
}

// As a click on the present entry.
void ListView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) && currentRow() >= 0) {
    pick_(currentRow());
    return;
  }
  QListWidget::keyPressEvent(event);
}

// A click on the present entry counts as well; a press that moves to another one is told above. One beside
// the entries would take the mark off the present one, which stays in use.
void ListView::mousePressEvent(QMouseEvent* event) {
  const int before = currentRow();
  const int pressed = row(itemAt(event->position().toPoint()));
  if (pressed < 0) {
    return;
  }
  QListWidget::mousePressEvent(event);
  if (pressed == before) {
    pick_(pressed);
  }
}

}  // namespace korva
