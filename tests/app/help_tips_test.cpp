// What the window shows of the help of a page's inputs, and the sign of a number outside its limits.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QRadioButton>
#include <QTabBar>
#include <QToolTip>
#include <algorithm>

#include "app/looks.h"
#include "contrast.h"
#include "window_bench.h"

namespace korva {

namespace {

/// The page of a model with a scale of the output in Text(14) and Text(15), -299.99 to 299.99, in front.
struct TipBench : test::WindowBench {
  TipBench() : WindowBench("QN") { Show(2); }

  /// What shows when the pointer rests on the middle of a widget.
  static QString TipOf(QWidget* widget) {
    QToolTip::hideText();
    const QPoint at = widget->rect().center();
    QHelpEvent help(QEvent::ToolTip, at, widget->mapToGlobal(at));
    QCoreApplication::sendEvent(widget, &help);
    return QToolTip::text();
  }
  /// What a short number leaves free of its field.
  [[nodiscard]] QImage LeftEnd() const { return low->grab(QRect(0, 0, 24, low->height())).toImage(); }

  QLineEdit* low = Find<QLineEdit>("Text(14)");
  TextField& field = Page().Text[14];
};

TEST(HelpTipsTest, AFieldShowsItsHelpWhileThePointerRestsOnIt) {
  TipBench bench;
  EXPECT_EQ(TipBench::TipOf(bench.low),
            QStringLiteral("Item 19  出力ｽｹｰﾙ下限\n範囲: -299.99 ～ 299.99 %\n"
                           "0 % に対応する出力ｽｹｰﾙの下端です。\n上限は下限より大きくします。"));
}

TEST(HelpTipsTest, BoxesAndOptionsShowTheirs) {
  TipBench bench;
  bench.Show(1);
  EXPECT_TRUE(
      TipBench::TipOf(bench.Find<QComboBox>("Combo(0)")).startsWith(QStringLiteral("Item 10  入力種類")));
  EXPECT_TRUE(TipBench::TipOf(bench.Find<QRadioButton>("optTempUnit(1)"))
                  .startsWith(QStringLiteral("Item 21  温度単位")));
}

TEST(HelpTipsTest, AWidgetWithATipOfItsOwnKeepsThat) {
  TipBench bench;
  auto* button = bench.Find<QWidget>("cmdCheck");
  ASSERT_FALSE(button->toolTip().isEmpty());
  EXPECT_EQ(TipBench::TipOf(button), button->toolTip());
}

/// What F1 shows while a widget has the keyboard.
QString TipByKey(QWidget* widget) {
  QToolTip::hideText();
  widget->setFocus();
  QTest::keyClick(widget, Qt::Key_F1);
  return QToolTip::text();
}

TEST(HelpTipsTest, F1ShowsTheTipOfWhatHasTheKeyboard) {
  TipBench bench;
  EXPECT_TRUE(TipByKey(bench.low).startsWith(QStringLiteral("Item 19  出力ｽｹｰﾙ下限\n範囲")));
  EXPECT_EQ(TipByKey(bench.Find<QWidget>("cmdCheck")), QStringLiteral("Ctrl+K"));
  bench.Show(1);
  EXPECT_TRUE(TipByKey(bench.Find<QWidget>("Combo(0)")).startsWith(QStringLiteral("Item 10  入力種類")));
  EXPECT_TRUE(TipByKey(bench.Find<QWidget>("optTempUnit(1)")).startsWith(QStringLiteral("Item 21")));
  EXPECT_EQ(TipByKey(bench.window.Current()->findChild<QTabBar*>()), QStringLiteral("Alt+2"));
  auto* list = bench.Find<QListWidget>("lst_TypeSelect");
  ASSERT_EQ(list->currentItem()->text(), QStringLiteral("QN"));
  EXPECT_EQ(TipByKey(list), list->currentItem()->data(Qt::AccessibleDescriptionRole).toString());
  EXPECT_FALSE(QToolTip::text().isEmpty());
}

TEST(HelpTipsTest, WhatTellsNothingShowsNoTip) {
  TipBench bench;
  EXPECT_EQ(TipBench::TipOf(bench.Find<QWidget>("Label(24)")), QString());
}

TEST(HelpTipsTest, HelpIsPutTogetherOnlyWhenItIsShown) {
  TipBench bench;
  int asked = 0;
  bench.field.Help = [&asked] {
    ++asked;
    return String(u"help");
  };
  bench.field.UserTypes(u"5");
  QCoreApplication::processEvents();
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(TipBench::TipOf(bench.low), QStringLiteral("help"));
  EXPECT_EQ(asked, 1);
}

TEST(HelpTipsTest, ANumberOutsideHasASignThatGoesWithIt) {
  TipBench bench;
  bench.field.UserTypes(u"300");
  ASSERT_TRUE(bench.field.Outside());
  const QImage with_sign = bench.LeftEnd();
  bench.field.UserTypes(u"299");
  EXPECT_NE(bench.LeftEnd(), with_sign);
}

TEST(HelpTipsTest, TheCheckShowsItsOwnColoursInPlaceOfTheSign) {
  TipBench bench;
  bench.field.UserTypes(u"300");
  const QMargins margins = bench.low->textMargins();
  EXPECT_GT(margins.left(), 0) << "the number keeps clear of the sign";
  bench.field.SetLook(Look::Bad);
  EXPECT_EQ(bench.low->textMargins().left(), 0);
  EXPECT_FALSE(bench.field.Outside());
}

TEST(HelpTipsTest, TheSignCanBeSeenInLightAndDark) {
  for (const auto& [base, text] : {std::pair(QColor(Qt::white), QColor(Qt::black)),
                                   std::pair(QColor(0x1e, 0x1e, 0x1e), QColor(Qt::white))}) {
    QImage picture(20, 20, QImage::Format_RGB32);
    picture.fill(base);
    QPainter painter(&picture);
    DrawWarningSign(painter, QRect(3, 3, 13, 13), text);
    painter.end();
    double best = 1;
    int seen = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        const double contrast = test::ContrastOf(picture.pixelColor(x, y), base);
        best = std::max(best, contrast);
        seen += contrast >= 3 ? 1 : 0;
      }
    }
    EXPECT_GE(best, 3);
    EXPECT_GE(seen, 30) << "lines that are thick enough";
  }
}

}  // namespace

}  // namespace korva
