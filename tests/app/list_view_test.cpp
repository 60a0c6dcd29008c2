// The model list on the screen: what is read there is what a click chooses, however it was scrolled.

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>

#include "app/model_finder.h"
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

TEST(ListViewTest, KeepsThePresentEntryInViewWhenTheWindowBecomesSmaller) {
  ListBench bench;
  bench.window.resize(1180, 740);
  QCoreApplication::processEvents();
  const int row = bench.Shown()->row(bench.Shown()->itemAt(1, bench.Shown()->viewport()->height() - 30));
  bench.Page().lst_TypeSelect.UserPicks(row);
  QCoreApplication::processEvents();
  const QListWidget* list = bench.Shown();  // of the page that the model brings
  const auto in_view = [&] {
    return list->viewport()->rect().contains(list->visualItemRect(list->item(row)));
  };
  ASSERT_EQ(list->currentRow(), row);
  ASSERT_TRUE(in_view());
  bench.window.resize(1180, 450);
  QCoreApplication::processEvents();
  EXPECT_TRUE(in_view());
}

TEST(ListViewTest, AClickBesideTheEntriesLeavesThePresentOneMarked) {
  ListBench bench;
  bench.window.Current()->findChild<QLineEdit*>(ModelFinder::kName)->setText(QStringLiteral("QN"));
  QListWidget* list = bench.Shown();
  const QPoint below(10, list->viewport()->height() - 5);
  ASSERT_EQ(list->itemAt(below), nullptr);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, below);
  ASSERT_EQ(list->selectedItems().size(), 1);
  EXPECT_EQ(list->selectedItems().front()->text(), QStringLiteral("QN"));
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

/// Types into the field above the list; the names that are left.
QStringList Narrowed(ListBench& bench, const QString& words) {
  auto* finder = bench.window.Current()->findChild<QLineEdit*>(QStringLiteral("txtFindModel"));
  finder->setFocus();
  QTest::keyClick(finder, Qt::Key_Escape);
  finder->insert(words);
  QStringList left;
  for (int row = 0; row < bench.Shown()->count(); ++row) {
    if (!bench.Shown()->isRowHidden(row)) {
      left += bench.Shown()->item(row)->text();
    }
  }
  return left;
}

TEST(ModelFinderTest, TypingNarrowsTheListByNameInCapitalsOrNot) {
  ListBench bench;
  EXPECT_EQ(Narrowed(bench, "qhny"), QStringList({"QHNY1", "QHNY2"}));
  EXPECT_EQ(Narrowed(bench, "2WPA"), QStringList({"Z2WPA"}));
  EXPECT_EQ(Narrowed(bench, "no such model"), QStringList());
  EXPECT_EQ(Narrowed(bench, "").size(), bench.Shown()->count());
}

TEST(ModelFinderTest, TypingFindsTheKindOfDeviceTooAndWordsAddUp) {
  ListBench bench;
  EXPECT_EQ(Narrowed(bench, "Z8 熱電対"), QStringList({"Z8WT", "Z8WT2"}));
}

TEST(ModelFinderTest, NarrowingChoosesNothingAndShowsThePageAsItWas) {
  ListBench bench;
  const int chosen = bench.Page().lst_TypeSelect.ListIndex();
  const int top = bench.Page().lst_TypeSelect.TopIndex();
  Narrowed(bench, "z2w");
  EXPECT_EQ(bench.Page().lst_TypeSelect.ListIndex(), chosen);
  EXPECT_EQ(bench.Page().lst_TypeSelect.TopIndex(), top);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QN");
}

TEST(ModelFinderTest, EnterChoosesTheOneModelThatIsLeftAndTheSearchFollowsToItsPage) {
  ListBench bench;
  Narrowed(bench, "z2wp");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QN") << "of several none";
  Narrowed(bench, "z2wpa");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"Z2WPA");
  auto* finder = bench.window.Current()->findChild<QLineEdit*>(QStringLiteral("txtFindModel"));
  EXPECT_EQ(finder->text(), QStringLiteral("z2wpa"));
  EXPECT_TRUE(finder->hasFocus());
}

TEST(ModelFinderTest, EnterChoosesNothingWhileAnOperationLocksTheList) {
  ListBench bench;
  Narrowed(bench, "z2wpa");
  bench.Page().lst_TypeSelect.SetEnabled(false);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QN");
}

TEST(ModelFinderTest, DownLeadsIntoTheListAmongTheModelsThatAreLeft) {
  ListBench bench;
  Narrowed(bench, "qhny");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(bench.Shown()->hasFocus());
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), u"QN") << "the focus alone chooses nothing";
}

TEST(ListViewTest, ATooltipTellsTheKindOfDevice) {
  ListBench bench;
  QListWidget* list = bench.Shown();
  QListWidgetItem* item = list->findItems("QN", Qt::MatchExactly).constLast();
  list->scrollToItem(item);
  const QPoint at = list->visualItemRect(item).center();
  QHelpEvent help(QEvent::ToolTip, at, list->viewport()->mapToGlobal(at));
  QCoreApplication::sendEvent(list->viewport(), &help);
  EXPECT_EQ(QToolTip::text(), QStringLiteral("測温抵抗体入力"));
}

}  // namespace

}  // namespace korva
