#include "print/sheets.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/text_utilities.h"
#include "print/curve_picture.h"
#include "print/fonts.h"

namespace korva {

namespace {

constexpr double kCellGap = 4;    ///< beside the text of a cell
constexpr double kLineGap = 1.5;  ///< above and below the lines of a row
constexpr double kTableGap = 12;  ///< above a table
constexpr double kMarginGap = 8;  ///< between header or footer and what is between them
constexpr double kFactsShare = 0.2;
constexpr double kBlockGap = 14;  ///< between tables side by side
constexpr double kCurveHeight = 210;
constexpr std::size_t kLeastBlockRows = 6;  ///< fewer rows of numbers are not worth the rest of a page
constexpr std::size_t kRowsTogether = 8;    ///< at the beginning of a table
constexpr double kCurveScale = 0.6;         ///< paper shows finer lines than a screen
constexpr double kRuleWidth = 0.5;
constexpr int kRuleGrey = 190;
constexpr int kBandGrey = 236;

QFont FontOf(SheetText::Kind kind) {
  QFont font;
  font.setFamilies(FontFamilies());
  font.setHintingPreference(QFont::PreferNoHinting);  // so that widths are the same at any scale
  switch (kind) {
    case SheetText::Kind::Body:
      font.setPixelSize(9);
      break;
    case SheetText::Kind::Head:
    case SheetText::Kind::Margin:
      font.setPixelSize(8);
      break;
    case SheetText::Kind::Heading:
      font.setPixelSize(11);
      font.setBold(true);
      break;
    case SheetText::Kind::Title:
      font.setPixelSize(16);
      font.setBold(true);
      break;
  }
  return font;
}

/// As large as the heads of tables where a curve is drawn smaller.
QFont CurveFont() {
  QFont font = FontOf(SheetText::Kind::Head);
  font.setPixelSize(static_cast<int>(font.pixelSize() / kCurveScale));
  return font;
}

QPalette InkAndPaper() {
  QPalette palette;
  palette.setColor(QPalette::Text, Qt::black);
  palette.setColor(QPalette::Base, Qt::white);
  return palette;
}

/// What a kind of text measures.
class Measure {
 public:
  explicit Measure(SheetText::Kind kind) : font_(FontOf(kind)), metrics_(font_) {}
  [[nodiscard]] double Height() const { return std::ceil(metrics_.lineSpacing()); }
  [[nodiscard]] double WidthOf(const QString& text) const { return metrics_.horizontalAdvance(text); }

  /// The text in lines that are at most so wide; at least one.
  [[nodiscard]] QStringList Lines(const QString& text, double width) const {
    QStringList lines;
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
      AddLines(paragraph, width, lines);
    }
    return lines;
  }

 private:
  void AddLines(const QString& paragraph, double width, QStringList& lines) const {
    QTextLayout layout(paragraph, font_);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    while (true) {
      QTextLine line = layout.createLine();
      if (!line.isValid()) {
        break;
      }
      line.setLineWidth(width);
      const QString part = paragraph.mid(line.textStart(), line.textLength());
      lines += part.mid(0, part.size() - TrailingBlanks(part));
    }
    layout.endLayout();
  }

  static qsizetype TrailingBlanks(const QString& text) {
    qsizetype count = 0;
    while (count < text.size() && text[text.size() - 1 - count].isSpace()) {
      ++count;
    }
    return count;
  }

  QFont font_;
  QFontMetricsF metrics_;
};

QString PaperText(const String& text) { return QString::fromStdU16String(text); }

/// A cell's place in a row, and how its text stands there.
struct Slot {
  double left = 0;
  double width = 0;
  bool right = false;
};

/// Fills pages from the top.
class Press {
 public:
  Press(const Document& document, const QSizeF& area) : document_(document), area_(area) {
    top_ = margin_.Height() + kMarginGap;
    bottom_ = area.height() - margin_.Height() - kMarginGap;
    NewSheet();
  }

  std::vector<Sheet> Run() {
    PutTitle();
    for (const auto& [what, text] : document_.facts) {
      PutRow({PaperText(what), PaperText(text)}, FactSlots(), [] {});
    }
    for (const DocumentTable& table : document_.tables) {
      const bool numbers =
          !table.columns.empty() && std::all_of(table.columns.begin(), table.columns.end(),
                                                [](const DocumentColumn& column) { return column.number; });
      if (numbers) {
        PutNumbers(table);
      } else {
        PutTable(table);
      }
    }
    PutMargins();
    return std::move(sheets_);
  }

 private:
  [[nodiscard]] double Room() const { return bottom_ - y_; }
  [[nodiscard]] double RowHeight(qsizetype lines) const {
    return static_cast<double>(lines) * body_.Height() + 2 * kLineGap;
  }
  [[nodiscard]] double HeadHeight() const { return head_.Height() + 2 * kLineGap; }

  void NewSheet() {
    sheets_.emplace_back();
    y_ = top_;
  }

  void Put(SheetText::Kind kind, const QRectF& area, const QString& text, bool right = false) {
    if (!text.isEmpty()) {
      sheets_.back().texts.push_back({.kind = kind, .area = area, .text = text, .right = right});
    }
  }

  void PutTitle() {
    const Measure title(SheetText::Kind::Title);
    for (const QString& line : title.Lines(PaperText(document_.title), area_.width())) {
      Put(SheetText::Kind::Title, {0, y_, area_.width(), title.Height()}, line);
      y_ += title.Height();
    }
    y_ += kMarginGap;
  }

  [[nodiscard]] std::vector<Slot> FactSlots() const {
    const double first = kFactsShare * area_.width();
    return {{.left = 0, .width = first}, {.left = first, .width = area_.width() - first}};
  }

  /// A row of cells. `begin_again` is called on each further page that it begins.
  template <typename Beginner>
  void PutRow(const std::vector<QString>& texts, const std::vector<Slot>& places,
              const Beginner& begin_again) {
    std::vector<QStringList> cells;
    qsizetype lines = 1;
    for (std::size_t cell = 0; cell < texts.size(); ++cell) {
      cells.push_back(body_.Lines(texts[cell], places[cell].width - 2 * kCellGap));
      lines = std::max(lines, cells.back().size());
    }
    for (qsizetype done = 0; done < lines;) {
      qsizetype part = lines - done;
      if (RowHeight(part) > Room()) {
        NewSheet();
        begin_again();
        const auto room = static_cast<qsizetype>((Room() - 2 * kLineGap) / body_.Height());
        part = std::clamp<qsizetype>(room, 1, part);
      }
      PutLines(cells, places, done, part);
      done += part;
    }
  }

  /// So many of the lines of a row's cells, from `first` on, and the rule below.
  void PutLines(const std::vector<QStringList>& cells, const std::vector<Slot>& places, qsizetype first,
                qsizetype count) {
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
      const Slot& slot = places[cell];
      for (qsizetype line = first; line < std::min(first + count, cells[cell].size()); ++line) {
        const double above = y_ + kLineGap + static_cast<double>(line - first) * body_.Height();
        Put(SheetText::Kind::Body, {slot.left + kCellGap, above, slot.width - 2 * kCellGap, body_.Height()},
            cells[cell][line], slot.right);
      }
    }
    y_ += RowHeight(count);
    sheets_.back().rules.emplace_back(places.front().left, y_, places.back().left + places.back().width, y_);
  }

  void PutHeading(const DocumentTable& table) {
    for (const QString& line : heading_.Lines(PaperText(table.heading), area_.width())) {
      Put(SheetText::Kind::Heading, {0, y_, area_.width(), heading_.Height()}, line);
      y_ += heading_.Height();
    }
    y_ += 2 * kLineGap;
  }

  void PutHeads(const DocumentTable& table, const std::vector<Slot>& places) {
    const double left = places.front().left;
    sheets_.back().bands.emplace_back(left, y_, places.back().left + places.back().width - left,
                                      HeadHeight());
    for (std::size_t column = 0; column < places.size(); ++column) {
      const Slot& slot = places[column];
      const double width = slot.width - 2 * kCellGap;
      Put(SheetText::Kind::Head, {slot.left + kCellGap, y_ + kLineGap, width, head_.Height()},
          head_.Lines(PaperText(table.columns[column].head), width).front(), slot.right);
    }
    y_ += HeadHeight();
  }

  /// Leaves room above a table, of which at least so much stands on the page where it begins.
  void Begin(double least) {
    y_ += kTableGap;
    if (least + heading_.Height() + 2 * kLineGap > Room()) {
      NewSheet();
    }
  }

  void PutTable(const DocumentTable& table) {
    if (table.columns.empty()) {
      return;
    }
    const std::vector<Slot> places = SharedSlots(table);
    const auto begin = [&] {
      PutHeading(table);
      PutHeads(table, places);
    };
    const auto rows = static_cast<double>(std::min(table.rows.size(), kRowsTogether));
    Begin(HeadHeight() + rows * RowHeight(1));
    begin();
    for (const auto& row : table.rows) {
      std::vector<QString> texts;
      std::transform(row.begin(), row.end(), std::back_inserter(texts), PaperText);
      PutRow(texts, places, begin);
    }
  }

  [[nodiscard]] std::vector<Slot> SharedSlots(const DocumentTable& table) const {
    double all = 0;
    for (const DocumentColumn& column : table.columns) {
      all += column.share;
    }
    std::vector<Slot> places;
    double left = 0;
    for (const DocumentColumn& column : table.columns) {
      const double width = column.share * area_.width() / all;
      places.push_back({.left = left, .width = width, .right = column.number});
      left += width;
    }
    return places;
  }

  /// Columns as wide as their texts, or with equal parts of the page where it has no room for them.
  [[nodiscard]] std::vector<Slot> NumberSlots(const DocumentTable& table) const {
    std::vector<double> widths;
    widths.reserve(table.columns.size());
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
      double width = head_.WidthOf(PaperText(table.columns[column].head));
      for (const auto& row : table.rows) {
        width = std::max(width, body_.WidthOf(PaperText(row[column])));
      }
      widths.push_back(std::ceil(width) + 1 + 2 * kCellGap);
    }
    const bool fits = std::accumulate(widths.begin(), widths.end(), 0.0) <= area_.width();
    const double part = area_.width() / static_cast<double>(widths.size());
    std::vector<Slot> places;
    double left = 0;
    for (const double width : widths) {
      places.push_back({.left = left, .width = fits ? width : part, .right = true});
      left += places.back().width;
    }
    return places;
  }

  void PutNumbers(const DocumentTable& table) {
    const std::vector<Slot> places = NumberSlots(table);
    const double width = places.back().left + places.back().width;
    const auto blocks = static_cast<std::size_t>(
        std::max(1.0, std::floor((area_.width() + kBlockGap) / (width + kBlockGap))));
    Begin(table.curve ? kCurveHeight : HeadHeight() + static_cast<double>(kLeastBlockRows) * RowHeight(1));
    PutHeading(table);
    if (table.curve) {
      PutCurve(*table.curve);
    }
    if (blocks == 1) {
      PutHeads(table, places);
    }
    for (std::size_t done = 0; done < table.rows.size();) {
      done += blocks == 1 ? PutOneBlock(table, places, done) : PutBlocks(table, places, blocks, done);
    }
  }

  void PutCurve(const Curve& curve) {
    sheets_.back().curves.push_back({.area = {0, y_, area_.width(), kCurveHeight}, .curve = &curve});
    y_ += kCurveHeight + kMarginGap;
  }

  /// A row of a table that is too wide to stand beside itself.
  std::size_t PutOneBlock(const DocumentTable& table, const std::vector<Slot>& places, std::size_t row) {
    std::vector<QString> texts;
    std::transform(table.rows[row].begin(), table.rows[row].end(), std::back_inserter(texts), PaperText);
    PutRow(texts, places, [&] {
      PutHeading(table);
      PutHeads(table, places);
    });
    return 1;
  }

  /// The rows from `first` on that this page has room for, in tables side by side; how many these were.
  std::size_t PutBlocks(const DocumentTable& table, const std::vector<Slot>& places, std::size_t blocks,
                        std::size_t first) {
    const std::size_t left = table.rows.size() - first;
    const std::size_t wanted = (left + blocks - 1) / blocks;
    if (RowsInRoom() < std::min(wanted, kLeastBlockRows)) {
      NewSheet();
      PutHeading(table);
    }
    const std::size_t rows = std::clamp<std::size_t>(RowsInRoom(), 1, wanted);
    const double above = y_;
    std::size_t done = 0;
    for (std::size_t block = 0; block < blocks && done < left; ++block) {
      y_ = above;
      std::vector<Slot> moved = places;
      const double width = places.back().left + places.back().width;
      for (Slot& place : moved) {
        place.left += static_cast<double>(block) * (width + kBlockGap);
      }
      PutHeads(table, moved);
      for (std::size_t row = 0; row < rows && done < left; ++row, ++done) {
        PutNumberRow(table.rows[first + done], moved);
      }
    }
    y_ = above + HeadHeight() + static_cast<double>(rows) * RowHeight(1);
    return done;
  }

  [[nodiscard]] std::size_t RowsInRoom() const {
    return static_cast<std::size_t>(std::max(0.0, (Room() - HeadHeight()) / RowHeight(1)));
  }

  void PutNumberRow(const std::vector<String>& row, const std::vector<Slot>& places) {
    std::vector<QStringList> cells;
    std::transform(row.begin(), row.end(), std::back_inserter(cells),
                   [](const String& cell) { return QStringList(PaperText(cell)); });
    PutLines(cells, places, 0, 1);
  }

  void PutMargins() {
    const double width = area_.width();
    const double below = area_.height() - margin_.Height();
    for (std::size_t page = 0; page < sheets_.size(); ++page) {
      const auto put = [&](double y, const QString& text, bool right) {
        const QStringList lines = margin_.Lines(text, right ? width : 0.8 * width);
        sheets_[page].texts.push_back({.kind = SheetText::Kind::Margin,
                                       .area = {0, y, width, margin_.Height()},
                                       .text = lines.front(),
                                       .right = right});
      };
      put(0, PaperText(document_.header), false);
      put(below, PaperText(document_.footer), false);
      put(below, PaperText(Filled(document_.page_number, {FromNumber(page + 1), FromNumber(sheets_.size())})),
          true);
      sheets_[page].rules.emplace_back(0, margin_.Height() + kLineGap, width, margin_.Height() + kLineGap);
    }
  }

  static String FromNumber(std::size_t number) { return Ascii(std::to_string(number)); }

  const Document& document_;
  QSizeF area_;
  Measure body_{SheetText::Kind::Body};
  Measure head_{SheetText::Kind::Head};
  Measure margin_{SheetText::Kind::Margin};
  Measure heading_{SheetText::Kind::Heading};
  double top_ = 0;
  double bottom_ = 0;
  double y_ = 0;
  std::vector<Sheet> sheets_;
};

}  // namespace

std::vector<Sheet> SheetsOf(const Document& document, const QSizeF& area) {
  return Press(document, area).Run();
}

void DrawSheet(QPainter& painter, const Sheet& sheet) {
  for (const QRectF& band : sheet.bands) {
    painter.fillRect(band, QColor(kBandGrey, kBandGrey, kBandGrey));
  }
  painter.setPen(QPen(QColor(kRuleGrey, kRuleGrey, kRuleGrey), kRuleWidth));
  for (const QLineF& rule : sheet.rules) {
    painter.drawLine(rule);
  }
  painter.setPen(Qt::black);
  for (const SheetText& text : sheet.texts) {
    painter.setFont(FontOf(text.kind));
    const Qt::Alignment place = (text.right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    painter.drawText(text.area, static_cast<int>(place) | Qt::TextSingleLine | Qt::TextDontClip, text.text);
  }
  for (const SheetCurve& curve : sheet.curves) {
    painter.save();
    painter.translate(curve.area.topLeft());
    painter.scale(kCurveScale, kCurveScale);
    CurvePicture(*curve.curve, curve.area.size() / kCurveScale, CurveFont()).Draw(painter, InkAndPaper());
    painter.restore();
  }
}

}  // namespace korva
