// The keyboard reaches all that can be pressed or typed into, in the order of reading, and shows where it is.

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTableView>
#include <QToolButton>

#include "accessibility_bench.h"
#include "app/list_view.h"
#include "dialogs_bench.h"

namespace korva {

namespace {

using Bench = test::WindowBench;
using test::Colours;
using test::EnabledStops;
using test::OnEachTab;
using test::SeenToDiffer;

struct EachFamily : testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Model, EachFamily, testing::ValuesIn(test::kEachFamily),
                         [](const auto& one) { return std::string(one.param); });

QRect AreaInWindow(const QWidget& widget) { return {widget.mapTo(widget.window(), QPoint()), widget.size()}; }

/// The box around a widget; nullptr outside of the boxes.
const QGroupBox* BoxAround(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
    if (const auto* box = qobject_cast<const QGroupBox*>(at)) {
      return box;
    }
  }
  return nullptr;
}

/// Where a stop of the keyboard stands in the order of reading: boxes column by column, lines in them, from
/// left to right. What stands a few pixels higher than its neighbour is in its line.
auto PlaceOf(const QWidget& widget) {
  constexpr int line = 12;
  const QRect box = AreaInWindow(*BoxAround(widget));
  const QRect area = AreaInWindow(widget);
  return std::tuple(box.left(), box.top(), area.center().y() / line, area.left());
}

/// The stops in the order of the Tab key, from the one that has the keyboard until that has it again.
std::vector<QWidget*> WalkByTab(const QWidget& window, Qt::Key key) {
  constexpr int most = 200;
  std::vector<QWidget*> walked;
  const QWidget* const first = window.focusWidget();
  do {
    walked.push_back(window.focusWidget());
    QTest::keyClick(window.focusWidget(), key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
  } while (window.focusWidget() != first && walked.size() < most);
  return walked;
}

std::string NamesOf(const std::vector<QWidget*>& widgets) {
  std::vector<std::string> names;
  names.reserve(widgets.size());
  for (const QWidget* widget : widgets) {
    names.push_back(widget->objectName().toStdString());
  }
  std::sort(names.begin(), names.end());
  return testing::PrintToString(names);
}

/// The Tab key comes to each stop once and round again, and back the same way.
void ExpectWalk(const QWidget& window) {
  const std::vector<QWidget*> forth = WalkByTab(window, Qt::Key_Tab);
  EXPECT_EQ(NamesOf(forth), NamesOf(EnabledStops(window)));
  std::vector<QWidget*> back = WalkByTab(window, Qt::Key_Backtab);
  std::reverse(back.begin() + 1, back.end());
  EXPECT_EQ(back, forth);
}

void ExpectOrderOfReading(const QWidget& window) {
  const QWidget* before = nullptr;
  for (const QWidget* widget : WalkByTab(window, Qt::Key_Tab)) {
    const bool inside = BoxAround(*widget) != nullptr;
    if (inside && before != nullptr) {
      EXPECT_LT(PlaceOf(*before), PlaceOf(*widget))
          << widget->objectName().toStdString() << " behind " << before->objectName().toStdString();
    }
    before = inside ? widget : nullptr;
  }
}

TEST_P(EachFamily, IsReachedByTheTabKeyInTheOrderOfReading) {
  Bench bench(GetParam());
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  bench.Upload();
  OnEachTab(bench, [&] {
    bench.Find<QWidget>("txtFindModel");
    bench.window.Current()->findChild<QWidget*>(QStringLiteral("txtFindModel"))->setFocus();
    ExpectWalk(bench.window);
    ExpectOrderOfReading(bench.window);
  });
}

// Where the keyboard is.

/// The part of a widget that the frame goes around.
QSize Framed(const QWidget& widget) {
  if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
    return bar->tabRect(bar->currentIndex()).size() / 2;
  }
  if (qobject_cast<const QToolButton*>(&widget) != nullptr) {
    return widget.size() - QSize(6, 6);
  }
  return qobject_cast<const QRadioButton*>(&widget) != nullptr ? widget.size() / 2 : widget.size();
}

/// The keyboard's frame is a line around the widget at least, however the keyboard came.
void ExpectFocusSeen(QWidget& window) {
  for (QWidget* widget : EnabledStops(window)) {
    SCOPED_TRACE(widget->objectName().toStdString());
    widget->clearFocus();
    const QImage without = widget->grab().toImage();
    widget->setFocus(Qt::MouseFocusReason);
    ASSERT_TRUE(widget->hasFocus());
    const QImage with = widget->grab().toImage();
    const QSize framed = Framed(*widget);
    EXPECT_GE(SeenToDiffer(without, with), 2 * (framed.width() + framed.height()) - 16);
  }
}

struct FocusInColours : test::InColours {};
INSTANTIATE_TEST_SUITE_P(Model, FocusInColours,
                         testing::Combine(testing::ValuesIn(test::kEachFamily), testing::Bool()),
                         test::NameOfColours);

TEST_P(FocusInColours, ShowsWhereTheKeyboardIs) {
  const Colours colours(std::get<1>(GetParam()));
  Bench bench(std::get<0>(GetParam()));
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  bench.Upload();
  OnEachTab(bench, [&] { ExpectFocusSeen(bench.window); });
}

// What is larger than the window.

/// The area of the tab in front.
QScrollArea& AreaInFront(Bench& bench) {
  auto* tabs = bench.window.Current()->findChild<QTabWidget*>();
  return *qobject_cast<QScrollArea*>(tabs->currentWidget());
}

/// Scrolls by a key of what has the keyboard; true when the area moved.
bool Scrolls(QScrollArea& area) {
  QScrollBar& bar = *area.verticalScrollBar();
  const int before = bar.value();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
  const bool moved = bar.value() > before;
  bar.setValue(0);
  return moved;
}

/// Waits until the tab has settled whether it has the keyboard.
void Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
}

TEST_P(EachFamily, HasNoTabThatIsHigherThanTheWindowAndCantBeScrolledByKeys) {
  Bench bench(GetParam());
  bench.window.resize(900, 420);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  bench.Upload();
  int high = 0;
  OnEachTab(bench, [&] {
    Settle();
    QScrollArea& area = AreaInFront(bench);
    if (area.verticalScrollBar()->maximum() == 0) {
      EXPECT_EQ(area.focusPolicy(), Qt::NoFocus);
      return;
    }
    ++high;
    const std::vector<QWidget*> stops = EnabledStops(bench.window);
    const auto inside = std::find_if(stops.begin(), stops.end(), [&](const QWidget* stop) {
      return area.isAncestorOf(stop) && qobject_cast<const QComboBox*>(stop) == nullptr &&
             qobject_cast<const QTableView*>(stop) == nullptr;  // these have pages of their own
    });
    ASSERT_TRUE(inside != stops.end() || area.focusPolicy() == Qt::StrongFocus);
    (inside != stops.end() ? *inside : &area)->setFocus();
    area.verticalScrollBar()->setValue(0);
    EXPECT_TRUE(Scrolls(area)) << QApplication::focusWidget()->objectName().toStdString();
  });
  EXPECT_GT(high, 0);
}

struct PictureTab : testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Colours, PictureTab, testing::Bool(),
                         [](const auto& one) { return one.param ? "dark" : "light"; });

TEST_P(PictureTab, WithoutAFieldIsReachedScrolledAndLeftByKeysInAWindowThatIsTooLow) {
  const Colours colours(GetParam());
  Bench bench("QXI");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  const int tab = bench.Page().TabWith(TextKey::DipSwitch);
  bench.Show(tab);
  bench.window.resize(900, 420);
  Settle();
  QScrollArea& area = AreaInFront(bench);
  EXPECT_EQ(area.focusPolicy(), Qt::StrongFocus);
  EXPECT_EQ(test::NameOf(&area), bench.window.Current()->findChild<QTabWidget*>()->tabText(tab));
  bench.window.Current()->findChild<QWidget*>(QStringLiteral("txtFindModel"))->setFocus();
  ExpectWalk(bench.window);
  ExpectFocusSeen(bench.window);
  area.setFocus();
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown}) {
    const int before = area.verticalScrollBar()->value();
    QTest::keyClick(&area, key);
    EXPECT_GT(area.verticalScrollBar()->value(), before);
  }
  bench.window.resize(1180, 1200);
  Settle();
  EXPECT_EQ(area.focusPolicy(), Qt::NoFocus);
}

TEST(KeyboardTest, EnterAndSpaceChooseThePresentEntryAgainAsAClickDoes) {
  ListBox list("lst_TypeSelect");
  list.AddEntry(u"QN");
  list.AddEntry(u"QC");
  list.ShowListIndex(1);
  std::vector<int> picked;
  ListView view(
      list, [&](int position) { picked.push_back(position); }, nullptr);
  view.Show();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    QTest::keyClick(&view, key);
  }
  EXPECT_EQ(picked, std::vector<int>({1, 1, 1}));
  list.ShowListIndex(-1);
  view.Show();
  QTest::keyClick(&view, Qt::Key_Return);
  EXPECT_EQ(picked.size(), 3U);
}

struct WindowsBesideTest : testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Colours, WindowsBesideTest, testing::Bool(),
                         [](const auto& one) { return one.param ? "dark" : "light"; });

struct KeysInDialog : test::EachDialog {};
INSTANTIATE_TEST_SUITE_P(Of, KeysInDialog,
                         testing::Combine(testing::ValuesIn(test::AllDialogs()), testing::Bool()),
                         test::NameOfDialog);

TEST_P(KeysInDialog, ReachAllShowWhereTheyAreAndAnswerAsTheyShould) {
  const auto& dialog = std::get<0>(GetParam());
  const Colours colours(std::get<1>(GetParam()));
  test::InDialog(dialog, [&](QDialog& shown) {
    ASSERT_TRUE(shown.isAncestorOf(QApplication::focusWidget()));
    if (auto* box = qobject_cast<QMessageBox*>(&shown)) {
      const auto* focused = qobject_cast<const QPushButton*>(QApplication::focusWidget());
      ASSERT_NE(focused, nullptr);
      EXPECT_EQ(focused->text(), dialog.preset);
      EXPECT_TRUE(focused->isDefault());
      QObject::connect(box, &QMessageBox::buttonClicked, box,
                       [&](const QAbstractButton* button) { EXPECT_EQ(button->text(), dialog.escape); });
    }
    ExpectWalk(shown);
    ExpectFocusSeen(shown);
  });
}

TEST(KeyboardTest, BeginsInTheListOfModels) {
  test::DeviceBench device(sim::Device::ForModel(KORVA_HOME, "QN"));
  Application application(device.platform, FromQt(QString::fromUtf8(KORVA_HOME)));
  MainWindow window(application);
  application.program.Start();
  window.show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("lst_TypeSelect"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("txtFindModel"));
}

TEST(KeyboardTest, AWindowThatShowsNothingYetHasTheKeyboardOnAButton) {
  Bench bench("QHW");
  SideWindow& window = bench.application.companions.ValuesInLarge();
  window.Open();
  EXPECT_EQ(bench.Find<QDialog>(window.Name().c_str())->focusWidget()->objectName(), QStringLiteral("close"));
}

TEST_P(WindowsBesideTest, AreReachedAndShowWhereTheKeyboardIs) {
  const Colours colours(GetParam());
  Bench bench("QHW");
  test::ReadAll(bench);
  for (SideWindow* window : test::WindowsBeside(bench)) {
    window->Open();
    QCoreApplication::processEvents();  // what is new shows then
    auto* view = bench.Find<QDialog>(window->Name().c_str());
    SCOPED_TRACE(window->Name());
    QApplication::setActiveWindow(view);  // no window manager does
    const std::vector<QWidget*> stops = EnabledStops(*view);
    const bool has_heading = stops.front()->objectName() == QStringLiteral("heading");
    EXPECT_EQ(NamesOf({QApplication::focusWidget()}), NamesOf({stops.at(has_heading ? 1 : 0)}));
    ExpectWalk(*view);
    ExpectFocusSeen(*view);
    window->Close();
  }
}

}  // namespace

}  // namespace korva
