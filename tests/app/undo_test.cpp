// Undo and redo by keys and buttons: the page has one for all, which the fields' own don't stand in the way
// of.

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>

#include "linearizer/linearizer.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva {

namespace {

struct UndoBench : test::WindowBench {
  UndoBench() : WindowBench("QHW") {
    QApplication::setActiveWindow(&window);
    Show(1);
  }
  static void UndoIn(QWidget* widget) { QTest::keyClick(widget, Qt::Key_Z, Qt::ControlModifier); }
  /// The captions of the menu that a right click opens on a widget.
  static QStringList MenuOf(QWidget* widget) {
    const QPoint middle = widget->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, widget->mapToGlobal(middle));
    QApplication::sendEvent(widget, &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QStringList captions;
    for (const QAction* action : menu == nullptr ? QList<QAction*>() : menu->actions()) {
      captions += action->text();
    }
    if (menu != nullptr) {
      menu->close();
    }
    return captions;
  }

  QLineEdit* tag = Find<QLineEdit>("Text(0)");
  QLineEdit* zero = Find<QLineEdit>("Text(9)");
  QPlainTextEdit* memo = Find<QPlainTextEdit>("txtMemo");
  QPushButton* undo = Find<QPushButton>("cmdUndo");
  QPushButton* redo = Find<QPushButton>("cmdRedo");
  TextField& tag_field = Page().Text[0];
  TextField& zero_field = Page().Text[9];
};

TEST(UndoTest, TellsItsKeysAndRestsWhileThereIsNothingToTakeBack) {
  const UndoBench bench;
  EXPECT_EQ(bench.undo->toolTip(), QStringLiteral("Ctrl+Z"));
  EXPECT_EQ(bench.redo->toolTip(), QStringLiteral("Ctrl+Y / Ctrl+Shift+Z"));
  EXPECT_FALSE(bench.undo->isEnabled());
  EXPECT_FALSE(bench.redo->isEnabled());
  EXPECT_TRUE(bench.undo->isVisible());
}

TEST(UndoTest, InAFieldTakesTheEditOfThePageBackAndNotTheLastLetter) {
  UndoBench bench;
  bench.tag->setFocus();
  bench.tag->selectAll();
  QTest::keyClicks(bench.tag, QStringLiteral("ABC"));
  bench.zero->setFocus();
  bench.zero->selectAll();
  QTest::keyClicks(bench.zero, QStringLiteral("12"));
  const String former = bench.zero_field.Text();
  ASSERT_EQ(former, u"12");
  UndoBench::UndoIn(bench.zero);
  EXPECT_EQ(bench.zero_field.Text(), u"");
  EXPECT_EQ(bench.zero->text(), QString());
  // Once more in the same field: the edit before it, on another tab or not.
  UndoBench::UndoIn(bench.zero);
  EXPECT_EQ(bench.tag_field.Text(), u"");
  EXPECT_TRUE(bench.tag->hasFocus());
  QTest::keyClick(bench.tag, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(bench.tag->text(), QStringLiteral("ABC"));
  QTest::keyClick(bench.tag, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(bench.zero->text(), QStringLiteral("12"));
  EXPECT_FALSE(bench.redo->isEnabled());
}

TEST(UndoTest, InTheMemoIsThePagesToo) {
  UndoBench bench;
  bench.memo->setFocus();
  QTest::keyClicks(bench.memo, QStringLiteral("one"));
  QTest::keyClick(bench.memo, Qt::Key_Return);
  QTest::keyClicks(bench.memo, QStringLiteral("two"));
  ASSERT_EQ(bench.Page().txtMemo.Text(), u"one\r\ntwo");
  UndoBench::UndoIn(bench.memo);
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"");
  EXPECT_EQ(bench.memo->toPlainText(), QString());
  QTest::keyClick(bench.memo, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(bench.memo->toPlainText(), QStringLiteral("one\ntwo"));
  EXPECT_EQ(bench.memo->textCursor().position(), 7);
  QTest::keyClicks(bench.memo, QStringLiteral("!"));
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"one\r\ntwo!");
}

TEST(UndoTest, InATableTakesACellBackAndInItsEditorWhatIsTyped) {
  UndoBench bench;
  bench.Show(3);
  auto& table = test::Part<Linearizer>(bench.Page());
  auto* grid = bench.Find<QTableView>("LnrFlexGrid");
  auto* value = bench.Find<QLineEdit>("txtLnrNewValue");
  const auto open = [&](int row) {
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(row, 1));
    QTest::keyClick(grid, Qt::Key_Return);
  };
  open(2);
  QTest::keyClicks(value, QStringLiteral("12.5"));
  QTest::keyClick(value, Qt::Key_Return);
  ASSERT_EQ(table.LnrFlexGrid.At(2, 1).text, u"12.5");
  open(4);
  QTest::keyClicks(value, QStringLiteral("7"));
  UndoBench::UndoIn(value);
  EXPECT_EQ(value->text(), QString());
  EXPECT_TRUE(value->isVisible());
  EXPECT_EQ(table.LnrFlexGrid.At(2, 1).text, u"12.5");
  UndoBench::UndoIn(value);
  EXPECT_EQ(table.LnrFlexGrid.At(2, 1).text, u"");
  EXPECT_FALSE(value->isVisible());
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_EQ(grid->currentIndex().row(), 2);
  QTest::keyClick(grid, Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(table.LnrFlexGrid.At(2, 1).text, u"12.5");
}

TEST(UndoTest, ByItsButtons) {
  UndoBench bench;
  bench.tag->setFocus();
  QTest::keyClicks(bench.tag, QStringLiteral("X"));
  ASSERT_TRUE(bench.undo->isEnabled());
  bench.Press("cmdUndo");
  EXPECT_EQ(bench.tag_field.Text(), u"");
  EXPECT_FALSE(bench.undo->isEnabled());
  bench.Press("cmdRedo");
  EXPECT_EQ(bench.tag_field.Text(), u"X");
}

TEST(UndoTest, StandsInNoMenuOfAField) {
  UndoBench bench;
  for (QWidget* widget : {static_cast<QWidget*>(bench.tag), bench.memo->viewport()}) {
    const QStringList captions = UndoBench::MenuOf(widget);
    ASSERT_FALSE(captions.isEmpty());
    EXPECT_TRUE(captions.front().contains(QStringLiteral("Cu&t")) ||
                captions.front().contains(QStringLiteral("&T")))
        << captions.front().toStdString();
    EXPECT_TRUE(captions.filter(QStringLiteral("Ctrl+Z")).isEmpty());
  }
}

}  // namespace
}  // namespace korva
