// How a document is laid out in pages: nothing is lost, cut or drawn twice, and heads come again.

#include "print/sheets.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <map>

#include "core/text_utilities.h"

namespace korva {
namespace {

constexpr QSizeF kArea(500, 700);

String Number(int number) { return Ascii(std::to_string(number)); }

Document Empty() {
  return {.title = u"設定一覧",
          .header = u"QHN    TAG",
          .footer = u"KORVA",
          .page_number = u"{1} / {2}",
          .facts = {},
          .tables = {}};
}

Document WithLines(int lines) {
  Document document = Empty();
  DocumentTable& table = document.tables.emplace_back();
  table.heading = u"入力";
  table.columns = {{.head = u"Item", .share = 1}, {.head = u"名称", .share = 3}};
  for (int line = 0; line < lines; ++line) {
    table.rows.push_back({u"Item " + Number(line), u"名称 " + Number(line)});
  }
  return document;
}

/// A table of `points` rows with their curve.
Document WithPoints(int points) {
  Document document = Empty();
  DocumentTable& table = document.tables.emplace_back();
  table.heading = u"ﾘﾆｱﾗｲｻﾞ";
  table.columns = {{.head = u"k", .number = true}, {.head = u"X(k)", .number = true}};
  table.curve.emplace();
  for (int point = 1; point <= points; ++point) {
    table.rows.push_back({u"k" + Number(point), Number(point) + u".5"});
    table.curve->points.push_back({.row = point, .x = 1.0 * point, .y = point + 0.5});
  }
  return document;
}

/// How often each text stands on the pages.
std::map<QString, int> Counts(const std::vector<Sheet>& sheets) {
  std::map<QString, int> counts;
  for (const Sheet& sheet : sheets) {
    for (const SheetText& text : sheet.texts) {
      ++counts[text.text];
    }
  }
  return counts;
}

std::vector<QString> TextsOf(const Sheet& sheet, SheetText::Kind kind) {
  std::vector<QString> texts;
  for (const SheetText& text : sheet.texts) {
    if (text.kind == kind) {
      texts.push_back(text.text);
    }
  }
  return texts;
}

QImage Drawn(const Sheet& sheet, double scale, double border) {
  QImage image(((kArea + QSizeF(2 * border, 2 * border)) * scale).toSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(scale, scale);
  painter.translate(border, border);
  DrawSheet(painter, sheet);
  return image;
}

/// True when nothing was drawn beside the area.
bool StaysInside(const Sheet& sheet) {
  constexpr int border = 40;
  const QImage image = Drawn(sheet, 1, border);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const bool inside =
          x >= border - 1 && x <= image.width() - border && y >= border - 1 && y <= image.height() - border;
      if (!inside && qGray(image.pixel(x, y)) < 200) {
        return false;
      }
    }
  }
  return true;
}

/// No two texts of a page share a place.
bool AreApart(const Sheet& sheet) {
  for (std::size_t one = 0; one < sheet.texts.size(); ++one) {
    for (std::size_t other = one + 1; other < sheet.texts.size(); ++other) {
      const bool margins = sheet.texts[one].kind == SheetText::Kind::Margin &&
                           sheet.texts[other].kind == SheetText::Kind::Margin;
      const QRectF shared = sheet.texts[one].area & sheet.texts[other].area;
      if (!margins && shared.width() > 0.01 && shared.height() > 0.01) {
        ADD_FAILURE() << sheet.texts[one].text.toStdString() << " | "
                      << sheet.texts[other].text.toStdString();
        return false;
      }
    }
  }
  return true;
}

void ExpectSound(const std::vector<Sheet>& sheets) {
  for (std::size_t page = 0; page < sheets.size(); ++page) {
    EXPECT_TRUE(StaysInside(sheets[page])) << page;
    EXPECT_TRUE(AreApart(sheets[page])) << page;
    for (const SheetText& text : sheets[page].texts) {
      EXPECT_TRUE(QRectF({}, kArea).adjusted(-0.01, -0.01, 0.01, 0.01).contains(text.area))
          << text.text.toStdString();
    }
  }
}

TEST(SheetsTest, EachPageHasTheHeaderAndItsNumber) {
  const Document document = WithLines(200);
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ASSERT_GT(sheets.size(), 2U);
  for (std::size_t page = 0; page < sheets.size(); ++page) {
    const QString number = QStringLiteral("%1 / %2").arg(page + 1).arg(sheets.size());
    EXPECT_EQ(TextsOf(sheets[page], SheetText::Kind::Margin),
              (std::vector<QString>{QStringLiteral("QHN    TAG"), QStringLiteral("KORVA"), number}));
  }
  EXPECT_EQ(SheetsOf(Empty(), kArea).size(), 1U);
}

TEST(SheetsTest, EachRowStandsOnceAndTheHeadsOnEachPageOfTheirTable) {
  const Document document = WithLines(200);
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  const std::map<QString, int> counts = Counts(sheets);
  for (int line = 0; line < 200; ++line) {
    EXPECT_EQ(counts.at(QStringLiteral("Item %1").arg(line)), 1);
    EXPECT_EQ(counts.at(QStringLiteral("名称 %1").arg(line)), 1);
  }
  for (const Sheet& sheet : sheets) {
    EXPECT_EQ(TextsOf(sheet, SheetText::Kind::Head),
              (std::vector<QString>{QStringLiteral("Item"), QStringLiteral("名称")}));
    EXPECT_EQ(TextsOf(sheet, SheetText::Kind::Heading), std::vector<QString>{QStringLiteral("入力")});
  }
}

TEST(SheetsTest, ARowOfSeveralLinesIsNotSplit) {
  Document document = WithLines(30);
  for (int line = 0; line < 30; ++line) {
    document.tables[0].rows[static_cast<std::size_t>(line)][1] =
        Number(line) + u"a\n" + Number(line) + u"b\n" + Number(line) + u"c";
  }
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  ASSERT_GT(sheets.size(), 1U);
  for (const Sheet& sheet : sheets) {
    const std::vector<QString> body = TextsOf(sheet, SheetText::Kind::Body);
    EXPECT_EQ(body.size() % 4, 0U);
    EXPECT_TRUE(body.front().startsWith(QStringLiteral("Item")));
    EXPECT_TRUE(body.back().endsWith(QLatin1Char('c')));
  }
}

TEST(SheetsTest, ALongTextIsWrappedInItsColumnWithAllItsWords) {
  Document document = WithLines(1);
  QString words;
  for (int word = 0; word < 60; ++word) {
    words += QStringLiteral("word%1 ").arg(word);
  }
  document.tables[0].rows[0][1] = words.toStdU16String();
  document.facts = {{u"メモ", String(600, u'あ')}, {u"ﾌｧｲﾙ", u"/" + String(400, u'W')}};
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  QString all;
  qsizetype kana = 0;
  qsizetype letters = 0;
  for (const SheetText& text : sheets[0].texts) {
    all += text.text + QLatin1Char(' ');
    kana += text.text.count(QChar(u'あ'));
    letters += text.text.count(QLatin1Char('W'));
  }
  for (int word = 0; word < 60; ++word) {
    EXPECT_TRUE(all.contains(QStringLiteral("word%1 ").arg(word))) << word;
  }
  EXPECT_EQ(kana, 600);
  EXPECT_EQ(letters, 400);
}

TEST(SheetsTest, ATextOfMoreLinesThanAPageGoesOnOnTheNext) {
  Document document = Empty();
  String memo;
  for (int line = 0; line < 150; ++line) {
    memo += u"line " + Number(line) + u"\n";
  }
  document.facts = {{u"メモ", memo}};
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  EXPECT_LE(sheets.size(), 5U) << "each further page is filled";
  const std::map<QString, int> counts = Counts(sheets);
  for (int line = 0; line < 150; ++line) {
    EXPECT_EQ(counts.at(QStringLiteral("line %1").arg(line)), 1);
  }
}

TEST(SheetsTest, AThousandPointsStandSideBySideEachOnce) {
  const Document document = WithPoints(1000);
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  EXPECT_LT(sheets.size(), 8U);
  const std::map<QString, int> counts = Counts(sheets);
  for (int point = 1; point <= 1000; ++point) {
    EXPECT_EQ(counts.at(QStringLiteral("k%1").arg(point)), 1) << point;
    EXPECT_EQ(counts.at(QStringLiteral("%1.5").arg(point)), 1) << point;
  }
  for (const Sheet& sheet : sheets) {
    const auto heads = TextsOf(sheet, SheetText::Kind::Head);
    EXPECT_EQ(std::count(heads.begin(), heads.end(), QStringLiteral("k")),
              static_cast<std::ptrdiff_t>(sheet.bands.size()));
    EXPECT_GT(sheet.bands.size(), 3U);
  }
}

TEST(SheetsTest, TheCurveStandsOnceOnAPageThatHasRoomForIt) {
  for (const int lines : {0, 15, 25, 30, 35}) {
    Document document = WithLines(lines);
    document.tables.push_back(WithPoints(16).tables[0]);
    const std::vector<Sheet> sheets = SheetsOf(document, kArea);
    ExpectSound(sheets);
    std::size_t curves = 0;
    for (const Sheet& sheet : sheets) {
      curves += sheet.curves.size();
      for (const SheetCurve& curve : sheet.curves) {
        EXPECT_EQ(curve.curve, &*document.tables[1].curve);
        EXPECT_LE(curve.area.bottom(), kArea.height());
      }
    }
    EXPECT_EQ(curves, 1U) << lines;
  }
}

// --- what is drawn

constexpr int kScale = 4;  // dots a point

/// The smallest rectangle that holds all that is darker than `grey`, in points.
QRectF InkOf(const Sheet& sheet, int grey) {
  const QImage image = Drawn(sheet, kScale, 0);
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      ink = qGray(image.pixel(x, y)) < grey ? ink.united(QRect(x, y, 1, 1)) : ink;
    }
  }
  return {QPointF(ink.topLeft()) / kScale, QSizeF(ink.size()) / kScale};
}

Sheet WithText(SheetText::Kind kind, bool right) {
  return {
      .bands = {},
      .rules = {},
      .texts = {{.kind = kind, .area = {100, 200, 300, 24}, .text = QStringLiteral("HHH"), .right = right}},
      .curves = {}};
}

TEST(SheetsTest, ATextIsDrawnInBlackAtItsEndOfItsArea) {
  const QRectF left = InkOf(WithText(SheetText::Kind::Body, false), 60);
  const QRectF right = InkOf(WithText(SheetText::Kind::Body, true), 60);
  EXPECT_NEAR(left.left(), 100, 2);
  EXPECT_LT(left.right(), 150);
  EXPECT_NEAR(right.right(), 400, 2);
  EXPECT_GT(right.left(), 350);
  EXPECT_NEAR(left.center().y(), 212, 2);
}

TEST(SheetsTest, AHeadingIsLargerThanWhatStandsBelowItAndTheTitleIsTheLargest) {
  const auto height = [](SheetText::Kind kind) { return InkOf(WithText(kind, false), 128).height(); };
  EXPECT_LT(height(SheetText::Kind::Head), height(SheetText::Kind::Heading));
  EXPECT_LT(height(SheetText::Kind::Body), height(SheetText::Kind::Heading));
  EXPECT_LT(height(SheetText::Kind::Heading), height(SheetText::Kind::Title));
}

TEST(SheetsTest, BandsAndRulesAreDrawnInTheirPlacesPalerThanAnyText) {
  const Sheet band{.bands = {{50, 60, 200, 12}}, .rules = {}, .texts = {}, .curves = {}};
  EXPECT_EQ(InkOf(band, 250), QRectF(50, 60, 200, 12));
  EXPECT_TRUE(InkOf(band, 200).isEmpty());
  const Sheet rule{.bands = {}, .rules = {{50, 300, 250, 300}}, .texts = {}, .curves = {}};
  const QRectF line = InkOf(rule, 250);
  EXPECT_NEAR(line.left(), 50, 1);
  EXPECT_NEAR(line.right(), 250, 1);
  EXPECT_NEAR(line.center().y(), 300, 1);
  EXPECT_LE(line.height(), 1);
  EXPECT_TRUE(InkOf(rule, 128).isEmpty());
}

TEST(SheetsTest, ACurveFillsItsPlaceAndNothingElse) {
  const Document document = WithPoints(16);
  const QRectF area(100, 300, 350, 210);
  const Sheet sheet{
      .bands = {}, .rules = {}, .texts = {}, .curves = {{.area = area, .curve = &*document.tables[0].curve}}};
  const QRectF ink = InkOf(sheet, 128);
  EXPECT_TRUE(area.contains(ink)) << ink.left() << " " << ink.top() << " " << ink.right() << " "
                                  << ink.bottom();
  EXPECT_GT(ink.width(), 0.8 * area.width());
  EXPECT_GT(ink.height(), 0.7 * area.height());
}

TEST(SheetsTest, ACellThatIsWiderThanThePageIsWrapped) {
  Document document = WithPoints(2);
  document.tables[0].rows[1][1] = String(300, u'W');
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  qsizetype letters = 0;
  for (const SheetText& text : sheets[0].texts) {
    letters += text.text.count(QLatin1Char('W'));
  }
  EXPECT_EQ(letters, 300);
}

TEST(SheetsTest, ACellThatIsTooWideForItsColumnIsWrappedInATableOfSeveralColumnsToo) {
  Document document = WithPoints(40);
  document.tables[0].columns.push_back({.head = u"Y(k)", .number = true});
  for (std::vector<String>& row : document.tables[0].rows) {
    row.emplace_back(u"1");
  }
  document.tables[0].rows[1][1] = String(300, u'W');
  const std::vector<Sheet> sheets = SheetsOf(document, kArea);
  ExpectSound(sheets);
  const std::map<QString, int> counts = Counts(sheets);
  for (int point = 1; point <= 40; ++point) {
    EXPECT_EQ(counts.at(QStringLiteral("k%1").arg(point)), 1);
  }
}

TEST(SheetsTest, ATinyPaperLosesNothing) {
  Document document = WithLines(20);
  document.tables.push_back(WithPoints(20).tables[0]);
  const std::vector<Sheet> sheets = SheetsOf(document, {200, 200});
  const std::map<QString, int> counts = Counts(sheets);
  for (int line = 0; line < 20; ++line) {
    EXPECT_EQ(counts.at(QStringLiteral("Item %1").arg(line)), 1);
    EXPECT_EQ(counts.at(QStringLiteral("k%1").arg(line + 1)), 1);
  }
}

TEST(SheetsTest, TablesWithoutRowsOrColumnsAreNoHarm) {
  Document document = Empty();
  document.tables = {{.heading = u"a", .columns = {}, .rows = {}},
                     {.heading = u"b", .columns = {{.head = u"c", .number = true}}, .rows = {}},
                     {.heading = u"d", .columns = {{.head = u"e"}}, .rows = {}}};
  EXPECT_EQ(SheetsOf(document, kArea).size(), 1U);
}

}  // namespace
}  // namespace korva

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
