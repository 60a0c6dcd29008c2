#include "app/watch_view.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QResizeEvent>
#include <algorithm>
#include <cmath>
#include <limits>

#include "app/digits_view.h"
#include "app/looks.h"
#include "app/text.h"
#include "app/trend_view.h"

namespace korva {

namespace {

constexpr QSize kWatchSize(860, 560);
constexpr double kTileForm = 1.5;  ///< width to height
// Shares of a tile's height.
constexpr int kDigitsShare = 3;
constexpr int kTrendShare = 3;

QLabel* NewLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(QString::fromLatin1(name));
  return label;
}

void SetText(QLabel* label, const QString& text) {
  if (label->text() != text) {
    label->setText(text);
  }
}

/// Least and most, with room between them.
QString NumbersOf(const WatchPanel::Tile& tile) {
  return tile.least.empty() ? QString() : ToQt(tile.least) + QStringLiteral("    ") + ToQt(tile.most);
}

/// All that the tile tells, for those who can't see it.
QString DescriptionOf(const WatchPanel::Tile& tile) {
  QStringList parts;
  for (const String& part : {tile.text + u" " + tile.unit, tile.age, tile.least, tile.most}) {
    if (const QString text = ToQt(part).trimmed(); !text.isEmpty()) {
      parts += text;
    }
  }
  return parts.join(QStringLiteral(", "));
}

}  // namespace

int ColumnsOf(int count, const QSize& place) {
  int best = 1;
  double least = std::numeric_limits<double>::max();
  for (int columns = 1; columns <= count; ++columns) {
    const int rows = (count + columns - 1) / columns;
    const int empty = rows * columns - count;
    const double form =
        (static_cast<double>(place.width()) / columns) / (static_cast<double>(place.height()) / rows);
    const double away = std::abs(std::log(form / kTileForm)) + 0.3 * empty;
    if (away < least) {
      least = away;
      best = columns;
    }
  }
  return best;
}

TileView::TileView(QWidget* parent)
    : QFrame(parent),
      caption_(NewLabel(this, "caption")),
      digits_(new DigitsView(this)),
      numbers_(NewLabel(this, "numbers")),
      age_(NewLabel(this, "age")),
      trend_(new TrendView(this)) {
  setObjectName(QStringLiteral("tile"));
  setFrameShape(QFrame::StyledPanel);
  setBackgroundRole(QPalette::Base);
  setForegroundRole(QPalette::Text);
  setAutoFillBackground(true);
  setFocusPolicy(Qt::StrongFocus);
  for (QLabel* label : {caption_, numbers_, age_}) {
    label->setForegroundRole(QPalette::Text);
    label->setMinimumWidth(1);  // a narrow tile cuts it
  }
  QFont bold = font();
  bold.setBold(true);
  caption_->setFont(bold);
  age_->setFont(bold);
  age_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* layout = new QGridLayout(this);
  layout->addWidget(caption_, 0, 0);
  layout->addWidget(age_, 0, 1);
  layout->addWidget(digits_, 1, 0, 1, 2);
  layout->addWidget(numbers_, 2, 0, 1, 2, Qt::AlignRight);
  layout->addWidget(trend_, 3, 0, 1, 2);
  layout->setColumnStretch(0, 1);
  layout->setRowStretch(1, kDigitsShare);
  layout->setRowStretch(3, kTrendShare);
}

void TileView::Show(const WatchPanel::Tile& tile, const WatchedValue& value) {
  if (shown_ != tile) {
    ShowTile(tile);
    shown_ = tile;
  }
  if (shown_change_ != value.change) {
    shown_change_ = value.change;
    trend_->Show(value);
  }
}

void TileView::ShowTile(const WatchPanel::Tile& tile) {
  SetText(caption_, ToQt(tile.caption));
  SetText(numbers_, NumbersOf(tile));
  SetText(age_, ToQt(tile.age));
  digits_->Show(ToQt(tile.text), ToQt(tile.unit), tile.old);
  setAccessibleName(ToQt(tile.caption));
  setAccessibleDescription(DescriptionOf(tile));
}

void TileView::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  if (hasFocus()) {
    QPainter painter(this);
    DrawFocusFrame(painter, rect(), palette().color(QPalette::Base));
  }
}

/// The tiles side by side and one under the other, as their place allows.
class WatchView::Tiles final : public QWidget {
 public:
  explicit Tiles(QWidget* parent) : QWidget(parent), layout_(new QGridLayout(this)) {
    setObjectName(QStringLiteral("tiles"));
    layout_->setContentsMargins(0, 0, 0, 0);
  }

  void Show(const WatchPanel& panel) {
    const std::vector<WatchedValue>& values = panel.Values();
    if (values.size() != tiles_.size()) {
      SetCount(values.size());
    }
    for (std::size_t place = 0; place < values.size(); ++place) {
      tiles_[place]->Show(panel.TileOf(values[place]), values[place]);
    }
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QWidget::resizeEvent(event);
    LayOut();
  }

 private:
  void SetCount(std::size_t count) {
    while (tiles_.size() > count) {
      delete tiles_.back();
      tiles_.pop_back();
    }
    while (tiles_.size() < count) {
      tiles_.push_back(new TileView(this));
      tiles_.back()->show();  // at once, so that it can have the keyboard
    }
    setFocusProxy(tiles_.empty() ? nullptr : tiles_.front());
    columns_ = 0;
    LayOut();
  }
  void LayOut() {
    const auto count = static_cast<int>(tiles_.size());
    const int columns = ColumnsOf(count, size());
    if (columns == columns_) {
      return;
    }
    columns_ = columns;
    for (int place = 0; place < layout_->columnCount(); ++place) {
      layout_->setColumnStretch(place, 0);
    }
    for (int place = 0; place < layout_->rowCount(); ++place) {
      layout_->setRowStretch(place, 0);
    }
    for (int place = 0; place < count; ++place) {
      layout_->addWidget(tiles_[static_cast<std::size_t>(place)], place / columns, place % columns);
      layout_->setColumnStretch(place % columns, 1);
      layout_->setRowStretch(place / columns, 1);
    }
  }

  QGridLayout* layout_;
  std::vector<TileView*> tiles_;
  int columns_ = 0;
};

WatchView::WatchView(WatchPanel& panel, EventGate& gate, QWidget* parent)
    : SideView(panel, gate, parent), panel_(panel), tiles_(new Tiles(this)) {
  resize(kWatchSize);
  Assemble(tiles_);
}

void WatchView::ShowContents(bool /*other_heading*/) { tiles_->Show(panel_); }

}  // namespace korva
