// The model list on the screen: what is read there is what a click chooses, however it was scrolled.

#include <gtest/gtest.h>

#include <QApplication>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>

#include "window_bench.h"

namespace korva {

namespace {

struct ListBench : test::WindowBench {
  ListBench() : WindowBench("QN") {
    window.resize(1180, 450);
    QApplication::setActiveWindow(&window);
    Shown()->setFocus();
    QCoreApplication::processEvents();
  }
  /// The list of the page that shows.
  [[nodiscard]] QListWidget* Shown() const {
    return window.Current()->findChild<QListWidget*>(QStringLiteral("lst_TypeSelect"));
  }
  /// What stands on the screen in the list's place.
  [[nodiscard]] QImage OnScreen() const {
    QCoreApplication::processEvents();
    const QRect area(Shown()->viewport()->mapTo(&window, QPoint()), Shown()->viewport()->size());
    return window.screen()
        ->grabWindow(window.winId(), area.x(), area.y(), area.width(), area.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  }
  /// The list painted afresh, from what a click would find.
  [[nodiscard]] QImage Afresh() const {
    Shown()->viewport()->update();
    return OnScreen();
  }
  [[nodiscard]] int TopRow() const { return Shown()->row(Shown()->itemAt(1, 1)); }
};

TEST(ListViewTest, ShowsAfterEachKeyWhatAClickWouldChoose) {
  ListBench bench;
  for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_Down, Qt::Key_End, Qt::Key_Up, Qt::Key_PageUp,
                            Qt::Key_Home, Qt::Key_Down}) {
    QTest::keyClick(bench.Shown(), key);
    const QImage shown = bench.OnScreen();
    EXPECT_EQ(shown, bench.Afresh()) << "key " << key;
    const QListWidget* list = bench.Shown();
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualItemRect(list->currentItem())))
        << "key " << key;
  }
}

TEST(ListViewTest, ShowsAfterScrollingWhatAClickWouldChoose) {
  ListBench bench;
  const int chosen = bench.Page().lst_TypeSelect.ListIndex();
  QScrollBar* bar = bench.Shown()->verticalScrollBar();
  bar->setValue(bar->maximum());
  const QImage shown = bench.OnScreen();
  EXPECT_EQ(shown, bench.Afresh());
  EXPECT_GT(bench.TopRow(), 0);
  EXPECT_EQ(bench.Page().lst_TypeSelect.TopIndex(), bench.TopRow());
  EXPECT_EQ(bench.Page().lst_TypeSelect.ListIndex(), chosen);
}

TEST(ListViewTest, TheChosenEntryStaysInViewWhileAnOperationLocksTheList) {
  ListBench bench;
  const int last = bench.Shown()->count() - 1;
  bench.device.loop.Gate().Enter([&] { bench.Page().lst_TypeSelect.UserPicks(last); });
  QCoreApplication::processEvents();
  bench.Page().lst_TypeSelect.SetEnabled(false);
  const QListWidget* list = bench.Shown();
  EXPECT_EQ(list->currentRow(), last);
  EXPECT_TRUE(list->viewport()->rect().contains(list->visualItemRect(list->currentItem())));
}

TEST(ListViewTest, TheEmptyEntriesAtTheEndAreNotShown) {
  ListBench bench;
  const auto& entries = bench.Page().lst_TypeSelect.Entries();
  ASSERT_EQ(entries.size(), 69U);
  ASSERT_TRUE(entries.back().empty());
  const QListWidget* list = bench.Shown();
  EXPECT_FALSE(list->item(list->count() - 1)->text().isEmpty());
  const auto shown = static_cast<std::size_t>(list->count());
  EXPECT_LT(shown, entries.size());
  for (std::size_t row = 0; row < entries.size(); ++row) {
    EXPECT_EQ(row < shown ? list->item(static_cast<int>(row))->text() : QString(), ToQt(entries[row]));
  }
}

TEST(ListViewTest, TheEndKeyChoosesTheLastModel) {
  ListBench bench;
  QTest::keyClick(bench.Shown(), Qt::Key_End);
  const QListWidget* list = bench.Shown();
  EXPECT_EQ(bench.Page().lst_TypeSelect.ListIndex(), list->count() - 1);
  EXPECT_FALSE(list->currentItem()->text().isEmpty());
}

TEST(ListViewTest, AnotherFamilysPageShowsTheListFromTheSameRow) {
  ListBench bench;
  const QListWidget* former = bench.Shown();
  QTest::keyClick(bench.Shown(), Qt::Key_End);
  ASSERT_NE(bench.Shown(), former);
  EXPECT_GT(bench.TopRow(), 0);
  EXPECT_EQ(bench.TopRow(), former->row(former->itemAt(1, 1)));
}

}  // namespace

}  // namespace korva
