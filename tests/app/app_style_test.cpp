// What the style draws beside Fusion: edges of inputs that are seen in light and dark colours, room for
// texts, and lines that stand in line.

#include "app/app_style.h"

#include <QGroupBox>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionViewItem>
#include <QTimer>

#include "accessibility_bench.h"
#include "app/looks.h"
#include "app/qt_dialogs.h"

namespace korva {

namespace {

using Bench = test::WindowBench;
using test::Colours;

struct EdgesTest : testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(In, EdgesTest, testing::Bool(),
                         [](const auto& one) { return one.param ? "Dark" : "Light"; });

/// The strongest contrast to the window of the pixels at the middle of a widget's left end, `depth` from it.
double ContrastOfEdge(QWidget& widget, int depth) {
  const QColor window = QApplication::palette().color(QPalette::Window);
  const QImage picture = widget.grab(QRect(0, widget.height() / 2, depth, 1)).toImage();
  double contrast = 1;
  for (int x = 0; x < picture.width(); ++x) {
    contrast = std::max(contrast, Contrast(picture.pixelColor(x, 0), window));
  }
  return contrast;
}

template <typename Widget>
std::unique_ptr<Widget> Shown() {
  auto widget = std::make_unique<Widget>();
  widget->resize(120, 26);
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::Base,
                   palette.color(QPalette::Window));  // a locked field, which has its edge alone
  widget->setPalette(palette);
  return widget;
}

TEST_P(EdgesTest, OfFieldsAreSeenOnTheWindow) {
  const Colours colours(GetParam());
  EXPECT_GE(ContrastOfEdge(*Shown<QLineEdit>(), 1), kMarkContrast);
  EXPECT_GE(ContrastOfEdge(*Shown<QPlainTextEdit>(), 1), kMarkContrast);
}

TEST_P(EdgesTest, OfAnOptionThatIsOffIsSeenOnTheWindow) {
  const Colours colours(GetParam());
  EXPECT_GE(ContrastOfEdge(*Shown<QRadioButton>(), 4), kMarkContrast);
}

TEST_P(EdgesTest, OfCellsAreBetweenTheColoursOfTheTable) {
  const Colours colours(GetParam());
  QStyleOptionViewItem option;
  option.palette = QApplication::palette();
  const int hint = QApplication::style()->styleHint(QStyle::SH_Table_GridLineColor, &option);
  const QColor line = QColor::fromRgba(static_cast<QRgb>(hint));
  EXPECT_GT(Contrast(line, option.palette.color(QPalette::Base)), 1.4);
  EXPECT_GT(Contrast(line, option.palette.color(QPalette::Text)), kTextContrast);
}

/// A line along the bottom, and no edge that would make a button of it.
TEST_P(EdgesTest, OfABarAtRestIsTheLineBelowItsCaption) {
  const Colours colours(GetParam());
  QProgressBar bar;
  bar.resize(120, 26);
  const auto contrast_at = [&](int y) {
    return Contrast(bar.grab(QRect(60, y, 1, 1)).toImage().pixelColor(0, 0),
                    QApplication::palette().color(QPalette::Window));
  };
  bar.setFormat(QString());
  bar.setValue(0);
  bar.setPalette(PaletteAtRest(QApplication::palette()));
  EXPECT_LT(ContrastOfEdge(bar, 4), 1.1);
  EXPECT_LT(contrast_at(0), 1.1);
  EXPECT_GT(contrast_at(24), 1.4);
  bar.setValue(1);
  bar.setPalette(PaletteAtWork(QApplication::palette()));
  EXPECT_GT(ContrastOfEdge(bar, 4), 1.1);
}

TEST(BoxTest, IsWideEnoughForItsTitle) {
  test::VirtualHost host;
  QtDialogs dialogs(host.loop.Gate());
  int width = 0;
  QTimer::singleShot(0, [&] {
    auto* box = QApplication::activeModalWidget();
    width = box->width();
    qobject_cast<QDialog*>(box)->accept();
  });
  const String title = u"ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合";
  EXPECT_EQ(dialogs.ShowBox({.title = title, .text = u"完了。", .buttons = {Answer::Ok}}), Answer::Ok);
  EXPECT_GT(width, QFontMetrics(QApplication::font()).horizontalAdvance(ToQt(title)) + 100);
}

struct OfEachFamily : testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Model, OfEachFamily, testing::ValuesIn(test::kEachFamily),
                         [](const auto& one) { return std::string(one.param); });

TEST_P(OfEachFamily, NoButtonsTextTouchesItsEdges) {
  const Bench bench(GetParam());
  for (const QPushButton* button : bench.window.findChildren<QPushButton*>()) {
    const int text = button->fontMetrics().horizontalAdvance(button->text());
    EXPECT_GE(button->sizeHint().width(), text + 16) << button->objectName().toStdString();
  }
}

TEST_P(OfEachFamily, WhatBeginsALineOfABoxStandsInOneColumn) {
  Bench bench(GetParam());
  bench.Upload();
  test::OnEachTab(bench, [&] {
    for (const QGroupBox* box : bench.window.Current()->findChildren<QGroupBox*>()) {
      const int first = box->layout()->contentsRect().left();
      for (const QWidget* child : box->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const int apart = child->x() - first;
        EXPECT_TRUE(!child->isVisible() || apart == 0 || apart > 20)
            << child->objectName().toStdString() << " " << apart;
      }
    }
  });
}

TEST_P(OfEachFamily, ANumberOutsideItsLimitsStandsBesideItsSign) {
  const Bench bench(GetParam());
  constexpr int sign = 20;
  constexpr int edges = 8;
  int fields = 0;
  for (const Control* control : bench.Page().Controls()) {
    const auto* field = dynamic_cast<const TextField*>(control);
    const auto name = QString::fromStdString(control->FullName());
    const auto* widget = bench.window.Current()->findChild<const QLineEdit*>(name);
    if (field == nullptr || !field->Numeric() || field->Locked() || widget == nullptr) {
      continue;
    }
    const int digits = widget->fontMetrics().horizontalAdvance(QStringLiteral("-99999"));
    EXPECT_GE(widget->maximumWidth(), sign + digits + edges) << control->FullName();
    ++fields;
  }
  EXPECT_GT(fields, 3);
}

}  // namespace
}  // namespace korva
