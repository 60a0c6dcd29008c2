#include "app/memo_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>
#include <QTest>
#include <QTextBlock>

namespace korva {
namespace {

constexpr int kMebibyte = 1 << 20;

/// Text of a line, of `length` characters.
QString Line(const QString& repeated, int length) {
  return repeated.repeated(length / repeated.size() + 1).left(length);
}

/// Puts the cursor `place` characters behind the beginning of what stands in the document.
void MoveTo(MemoView& memo, int place) {
  QTextCursor cursor = memo.textCursor();
  cursor.setPosition(place);
  memo.setTextCursor(cursor);
}

TEST(MemoView, ALockedTextIsSelectedByKeysAndKept) {
  MemoView memo;
  memo.ShowText(QStringLiteral("Zone 2"));
  memo.Lock(true);
  QTest::keyClick(&memo, Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(memo.textCursor().selectedText(), QStringLiteral("Zone 2"));
  QTest::keyClick(&memo, Qt::Key_X);
  EXPECT_EQ(memo.ShownText(), QStringLiteral("Zone 2"));
  memo.Lock(false);
  QTest::keyClick(&memo, Qt::Key_X);
  EXPECT_EQ(memo.ShownText(), QStringLiteral("x"));
}

TEST(MemoView, ShowsALineOfAMebibyteInUnderASecond) {
  for (const QString& repeated : {QStringLiteral("x"), QStringLiteral("word "), QStringLiteral("aあｱ漢1 ")}) {
    const QString text = Line(repeated, kMebibyte);
    MemoView memo;
    memo.resize(600, 200);
    memo.show();
    QCoreApplication::processEvents();
    QElapsedTimer time;
    time.start();
    memo.ShowText(text);
    QCoreApplication::processEvents();
    memo.insertPlainText(QStringLiteral("a"));
    QCoreApplication::processEvents();
    EXPECT_LT(time.elapsed(), 1000) << repeated.toStdString();
    EXPECT_EQ(memo.ShownText(), QStringLiteral("a") + text);
  }
}

TEST(MemoView, GivesATextBackAsItIs) {
  for (const int length : {0, 1, 3999, 4000, 4001, 8000, 8001, 20000}) {
    const QString line = Line(QStringLiteral("abc あ"), length);
    for (const QString& text : {line, line + QLatin1Char('\n'), QLatin1Char('\n') + line,
                                line + QLatin1Char('\n') + line, line + QStringLiteral("\n\n") + line}) {
      MemoView memo;
      memo.ShowText(text);
      EXPECT_EQ(memo.ShownText(), text) << length;
    }
  }
}

TEST(MemoView, LeavesLinesThatPeopleWriteInOnePiece) {
  MemoView memo;
  memo.ShowText(Line(QStringLiteral("word "), 4000) + QStringLiteral("\nsecond"));
  EXPECT_EQ(memo.document()->blockCount(), 2);
}

TEST(MemoView, PartsNoCharacterOfTwoUnits) {
  const QString text = QLatin1Char('a') + Line(QString::fromUcs4(U"\U00020B9F"), 20000);
  MemoView memo;
  memo.ShowText(text);
  EXPECT_EQ(memo.ShownText(), text);
  EXPECT_FALSE(memo.document()->findBlockByNumber(1).text().front().isLowSurrogate());
}

TEST(MemoView, TakesWhatIsTypedAtTheEndOfAPiece) {
  const QString text = Line(QStringLiteral("x"), 10000);
  MemoView memo;
  memo.ShowText(text);
  MoveTo(memo, 4002);  // behind the first piece's end: its mark and the break
  QTest::keyClicks(&memo, QStringLiteral("ab"));
  EXPECT_EQ(memo.ShownText(), QString(text).insert(4000, QStringLiteral("ab")));
  QTest::keyClick(&memo, Qt::Key_Return);
  EXPECT_EQ(memo.ShownText(), QString(text).insert(4000, QStringLiteral("ab\n")));
  memo.undo();
  memo.undo();
  EXPECT_EQ(memo.ShownText(), text);
}

TEST(MemoView, KeepsTheTextWhenABreakBetweenPiecesIsDeletedAndBroughtBack) {
  const QString text = Line(QStringLiteral("x"), 10000);
  MemoView memo;
  memo.ShowText(text);
  MoveTo(memo, 4002);
  QTest::keyClick(&memo, Qt::Key_Backspace);
  EXPECT_EQ(memo.ShownText(), text);
  memo.undo();
  EXPECT_EQ(memo.ShownText(), text);
  memo.selectAll();
  QTest::keyClick(&memo, Qt::Key_Delete);
  EXPECT_EQ(memo.ShownText(), QString());
  memo.undo();
  EXPECT_EQ(memo.ShownText(), text);
}

TEST(MemoView, PastesAndCopiesALongLineWhole) {
  const QString text = Line(QStringLiteral("xy"), 10000) + QStringLiteral("\nlast");
  MemoView memo;
  memo.ShowText(QStringLiteral("[]"));
  MoveTo(memo, 1);
  QApplication::clipboard()->setText(text);
  memo.paste();
  EXPECT_EQ(memo.ShownText(), QLatin1Char('[') + text + QLatin1Char(']'));
  EXPECT_GT(memo.document()->blockCount(), 2);
  QApplication::clipboard()->clear();
  memo.selectAll();
  memo.copy();
  EXPECT_EQ(QApplication::clipboard()->text(), QLatin1Char('[') + text + QLatin1Char(']'));
}

}  // namespace
}  // namespace korva
