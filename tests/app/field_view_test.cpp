// The fields of numbers on the screen: what is typed, what is pasted, and the mark.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>

#include "window_bench.h"

namespace korva {

namespace {

/// The page of a model with a tag in Text(0) and a number in Text(9), which is in front.
struct FieldBench : test::WindowBench {
  FieldBench() : WindowBench("QN") {
    QApplication::setActiveWindow(&window);
    Show(1);
    number->setFocus();
  }
  [[nodiscard]] QImage Picture() const { return number->grab().toImage(); }

  QLineEdit* tag = Find<QLineEdit>("Text(0)");
  QLineEdit* number = Find<QLineEdit>("Text(9)");
  TextField& field = Page().Text[9];
};

TEST(FieldViewTest, AsksTheInputMethodForPlainDigitsWhereANumberGoes) {
  const FieldBench bench;
  EXPECT_TRUE(bench.number->inputMethodHints().testFlag(Qt::ImhPreferNumbers));
  EXPECT_FALSE(bench.tag->inputMethodHints().testFlag(Qt::ImhPreferNumbers));
}

TEST(FieldViewTest, FullWidthDigitsThatArePastedBecomeHalfWidthWhereANumberGoes) {
  FieldBench bench;
  QApplication::clipboard()->setText(QStringLiteral("－１２．５"));
  bench.number->selectAll();
  QTest::keyClick(bench.number, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(bench.number->text(), QStringLiteral("-12.5"));
  EXPECT_EQ(bench.field.Text(), u"-12.5");
  EXPECT_FALSE(bench.field.Marked());
  bench.number->selectAll();
  bench.number->paste();  // the menu's
  EXPECT_EQ(bench.number->text(), QStringLiteral("-12.5")) << "over the same number";
  bench.tag->setFocus();
  bench.tag->selectAll();
  bench.tag->paste();
  EXPECT_EQ(bench.Page().Text[0].Text(), u"－１２．５");
}

TEST(FieldViewTest, ThePasteGoesWhereTheCursorIsAndTheCursorBehindIt) {
  FieldBench bench;
  bench.number->clear();
  QTest::keyClicks(bench.number, QStringLiteral("19"));
  bench.number->setCursorPosition(1);
  QApplication::clipboard()->setText(QStringLiteral("２．"));
  bench.number->paste();
  EXPECT_EQ(bench.field.Text(), u"12.9");
  EXPECT_EQ(bench.number->cursorPosition(), 3);
}

TEST(FieldViewTest, WhatIsTypedStaysAsItIsAndIsMarked) {
  FieldBench bench;
  bench.number->clear();
  QInputMethodEvent commit;
  commit.setCommitString(QStringLiteral("１２"));
  QApplication::sendEvent(bench.number, &commit);
  EXPECT_EQ(bench.number->text(), QStringLiteral("１２"));
  EXPECT_EQ(bench.field.Text(), u"１２");
  EXPECT_TRUE(bench.field.Marked());
}

TEST(FieldViewTest, TheMarkIsDrawnAndGoes) {
  FieldBench bench;
  bench.tag->setFocus();  // no blinking cursor in the picture
  bench.field.UserTypes(u"1,5");
  ASSERT_TRUE(bench.field.Marked());
  const QImage marked = bench.Picture();
  bench.field.SetMarked(false);
  EXPECT_NE(bench.Picture(), marked);
  bench.field.SetMarked(true);
  EXPECT_EQ(bench.Picture(), marked);
}

}  // namespace

}  // namespace korva
