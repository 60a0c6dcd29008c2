// The window: what stands in it, what a user's keys and clicks do, and that it has no mind of its own. The
// program behind it runs in virtual time against a simulated device.

#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>

#include "app/text.h"
#include "app/window_host.h"
#include "window_bench.h"

namespace korva {

namespace {

using Bench = test::WindowBench;

struct PageInWindowTest : testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Model, PageInWindowTest, testing::Values("QN", "QEY", "QNA2"),
                         [](const auto& one) { return std::string(one.param); });

TEST_P(PageInWindowTest, EveryControlOfThePageHasAWidgetOfItsName) {
  Bench bench(GetParam());
  for (const Control* control : bench.Page().Controls()) {
    const QString name = QString::fromStdString(control->FullName());
    const bool placed = bench.Page().TabOf(*control) >= 0 || control->Name().starts_with("cmd");
    if (placed) {
      EXPECT_TRUE(bench.window.findChild<QWidget*>(name) != nullptr) << name.toStdString();
    }
  }
}

TEST_P(PageInWindowTest, TheListStaysInItsPlaceWhenAnotherPageComes) {
  Bench bench(GetParam());
  QApplication::setActiveWindow(&bench.window);
  auto* former = bench.window.Current()->findChild<QListWidget*>("lst_TypeSelect");
  former->setFocus();
  ASSERT_TRUE(former->hasFocus());
  const QRect before = former->geometry();
  bench.Choose(QStringLiteral("QIC"));
  QCoreApplication::processEvents();
  auto* list = bench.window.Current()->findChild<QListWidget*>("lst_TypeSelect");
  EXPECT_EQ(list->geometry(), before);
  EXPECT_TRUE(list->isVisible());
  EXPECT_EQ(list->currentItem()->text(), QStringLiteral("QIC"));
}

/// Lets the window's own events run until the program has ended; false when it does not.
bool Ends(const Bench& bench) {
  return QTest::qWaitFor([&] { return bench.application.program.Loop().Gate().Ended(); }, 5000);
}

TEST(WindowTest, AnEndThatTheSystemWantsIsAPressOfTheCloseBox) {
  Bench bench("QN");
  bench.window.RequestEnd();
  EXPECT_TRUE(Ends(bench));
}

TEST(WindowTest, AnEndThatTheSystemWantsAsksOnceAboutWhatIsNotSaved) {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("A"));
  bench.window.RequestEnd();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !bench.device.dialogs.Boxes().empty(); }, 5000));
  EXPECT_TRUE(QAbstractEventDispatcher::instance()->registeredTimers(&bench.window).isEmpty());
  EXPECT_EQ(bench.device.dialogs.Boxes().size(), 1U);
  EXPECT_FALSE(bench.application.program.Loop().Gate().Ended());
}

TEST(WindowTest, AnEndThatTheSystemWantsAwaitsWhatIsUnderWayOnTheDevice) {
  Bench bench("QN");
  SharedState& shared = bench.application.program.Shared();
  shared.CommBusy = shared.DownloadBusy = true;
  bench.window.RequestEnd();
  EXPECT_TRUE(QTest::qWaitFor([&] { return shared.QuitRequested; }, 5000));
  EXPECT_FALSE(bench.application.program.Loop().Gate().Ended());
  EXPECT_TRUE(bench.Page().flaMsg_CannotEnd.Visible());
  shared.CommBusy = shared.DownloadBusy = false;
  EXPECT_TRUE(Ends(bench));
}

TEST(WindowTest, AnEndThatTheSystemWantsClosesTheBoxThatStandsInTheWay) {
  Bench bench("QN");
  QMessageBox box(&bench.window);
  bench.window.RequestEnd();
  box.exec();
  EXPECT_TRUE(Ends(bench));
}

TEST(WindowTest, CaptionsAreTheJapaneseOnes) {
  Bench bench("QN");
  EXPECT_EQ(bench.Find<QPushButton>("cmdUpload")->text(), QStringLiteral("アップロード"));
  EXPECT_EQ(bench.Find<QTabWidget>("KvCfg_Tab")->tabText(3), QStringLiteral("ﾘﾆｱﾗｲｻﾞ"));
  EXPECT_EQ(bench.Find<QLabel>("lbl_FrmVersion")->text(), QStringLiteral("KORVA Ver12.09"));
  EXPECT_EQ(bench.Find<QRadioButton>("OptCom4")->text(), QStringLiteral("COM 4"));
}

TEST(WindowTest, AClickInTheListChoosesTheModel) {
  Bench bench("QN");
  bench.Choose(QStringLiteral("QL"));
  EXPECT_EQ(ToQt(bench.Page().DefFile), QStringLiteral("QL.def"));
  EXPECT_TRUE(bench.window.windowTitle().startsWith(QStringLiteral("QL")));
}

TEST(WindowTest, ASecondClickOnThePresentModelCounts) {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("A"));
  const std::size_t boxes = bench.device.dialogs.Boxes().size();
  bench.Choose(QStringLiteral("QN"));
  ASSERT_EQ(bench.device.dialogs.Boxes().size(), boxes + 1);
  EXPECT_EQ(ToQt(bench.device.dialogs.Boxes().back().box.title), QStringLiteral("ﾌｧｲﾙに保存"));
  EXPECT_EQ(bench.Find<QLineEdit>("Text(0)")->text(), QStringLiteral("A"));
}

TEST(WindowTest, TheArrowKeysChooseAModel) {
  Bench bench("QN");
  QTest::keyClick(bench.Find<QListWidget>("lst_TypeSelect"), Qt::Key_Down);
  EXPECT_EQ(ToQt(bench.Page().DefFile), QStringLiteral("QUO.def"));
}

TEST(WindowTest, TypingGoesIntoTheParameterSet) {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("PUMP 3"));
  EXPECT_EQ(ToQt(bench.Page().Item(2)), QStringLiteral("PUMP 3"));
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(WindowTest, AnUploadFillsTheFields) {
  Bench bench("QN");
  bench.Upload();
  EXPECT_EQ(bench.Find<QLineEdit>("Text(0)")->text(), QStringLiteral("TAG-1"));
  EXPECT_EQ(bench.Find<QLineEdit>("Text(9)")->text(), ToQt(bench.Page().Item(14)));
  EXPECT_EQ(bench.Find<QComboBox>("Combo(0)")->currentText(), ToQt(bench.Page().Item(10)));
  EXPECT_EQ(bench.Find<QProgressBar>("ProgressBar")->value(), 0);
}

TEST(WindowTest, TheListOfAComboBoxAndTheUsersChoice) {
  Bench bench("QUO");
  bench.Upload();
  auto* combo = bench.Find<QComboBox>("Combo(0)");
  EXPECT_EQ(combo->count(), 17);
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_Home);
  EXPECT_EQ(ToQt(bench.Page().Item(10)), combo->itemText(0));
}

TEST(WindowTest, TheWheelOverAClosedComboBoxChoosesNothingAndIsLeftToTheTab) {
  Bench bench("QUO");
  bench.Upload();
  bench.Show(1);
  auto* combo = bench.Find<QComboBox>("Combo(0)");
  const String type = bench.Page().Item(10);
  const String zero = bench.Page().Item(14);
  combo->setFocus();
  const QPointF centre = combo->rect().center();
  QWheelEvent wheel(centre, combo->mapToGlobal(centre), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(combo, &wheel);
  EXPECT_EQ(ToQt(bench.Page().Item(10)), ToQt(type));
  EXPECT_EQ(ToQt(bench.Page().Item(14)), ToQt(zero));
  EXPECT_FALSE(wheel.isAccepted());
}

TEST(WindowTest, OptionButtonsFollowTheirGroup) {
  Bench bench("QN");
  bench.Upload();
  EXPECT_TRUE(bench.Find<QRadioButton>("optTempUnit(0)")->isChecked());
  bench.Press("optTempUnit(1)");
  EXPECT_TRUE(!bench.Find<QRadioButton>("optTempUnit(0)")->isChecked());
  EXPECT_TRUE(bench.Find<QRadioButton>("optTempUnit(1)")->isChecked());
  EXPECT_EQ(bench.Find<QLabel>("lbl_unit(9)")->text(), QStringLiteral("deg F"));
}

TEST(WindowTest, ALockedFieldTakesNoKeys) {
  Bench bench("QN");
  auto* field = bench.Find<QLineEdit>("Text(9)");
  bench.Page().Text[9].SetLocked(true);
  bench.Page().Text[9].SetLook(Look::Grey);
  const QString before = field->text();
  QTest::keyClicks(field, QStringLiteral("1"));
  EXPECT_EQ(field->text(), before);
  EXPECT_EQ(field->palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
}

TEST(WindowTest, ABadValueIsShownInvertedUntilTheNextCheck) {
  Bench bench("QN");
  bench.Upload();
  auto* field = bench.Find<QLineEdit>("Text(15)");
  field->selectAll();
  QTest::keyClicks(field, QStringLiteral("-500"));
  const QPalette system = QApplication::palette(field);
  bench.Press("cmdCheck");
  EXPECT_EQ(field->palette().color(QPalette::Base), system.color(QPalette::Text));
  EXPECT_EQ(field->palette().color(QPalette::Text), system.color(QPalette::Base));
  field->selectAll();
  QTest::keyClicks(field, QStringLiteral("100"));
  EXPECT_EQ(field->palette().color(QPalette::Base), system.color(QPalette::Text));
  bench.Press("cmdCheck");
  EXPECT_EQ(field->palette().color(QPalette::Base), system.color(QPalette::Base));
}

TEST(WindowTest, TheTabInFrontStaysInFrontWhileAllAreLocked) {
  Bench bench("QN");
  auto* tabs = bench.Find<QTabWidget>("KvCfg_Tab");
  tabs->setCurrentIndex(2);
  bench.Page().LockFrame();
  EXPECT_EQ(tabs->currentIndex(), 2);
  EXPECT_TRUE(!tabs->isTabEnabled(2));
  bench.Page().UnlockFrame();
  EXPECT_EQ(tabs->currentIndex(), 2);
  EXPECT_TRUE(tabs->isTabEnabled(2));
}

TEST(WindowTest, ADisabledTabCannotBeBroughtToTheFront) {
  Bench bench("QN");
  auto* tabs = bench.Find<QTabWidget>("KvCfg_Tab");
  EXPECT_TRUE(!tabs->isTabEnabled(4));
  bench.window.Current()->ShowTab(4);
  EXPECT_EQ(tabs->currentIndex(), 0);
}

TEST(WindowTest, AltAndADigitChangeTheTab) {
  Bench bench("QN");
  EXPECT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  QTest::keyClick(&bench.window, Qt::Key_2, Qt::AltModifier);
  EXPECT_EQ(bench.Find<QTabWidget>("KvCfg_Tab")->currentIndex(), 1);
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
}

TEST(WindowTest, TheButtonsHaveKeys) {
  Bench bench("QN");
  EXPECT_TRUE(QTest::qWaitForWindowActive(&bench.window));
  QTest::keyClick(&bench.window, Qt::Key_K, Qt::ControlModifier);
  ASSERT_FALSE(bench.device.dialogs.Boxes().empty());
  EXPECT_EQ(ToQt(bench.device.dialogs.Boxes().back().box.title), QStringLiteral("設定値ﾁｪｯｸ"));
  EXPECT_TRUE(bench.Find<QPushButton>("cmdCheck")->toolTip().contains(QLatin1String("K")));
}

TEST(WindowTest, TheMemoHasLines) {
  Bench bench("QN");
  auto* memo = bench.Find<QPlainTextEdit>("txtMemo");
  QTest::keyClicks(memo, QStringLiteral("one"));
  QTest::keyClick(memo, Qt::Key_Return);
  QTest::keyClicks(memo, QStringLiteral("two"));
  EXPECT_EQ(ToQt(bench.Page().GroupItem.Memo), QStringLiteral("one\r\ntwo"));
}

TEST(WindowTest, ComButtonsTellTheirDevice) {
  Bench bench("QN");
  for (int number = 1; number <= 4; ++number) {
    const QString name = QStringLiteral("OptCom%1").arg(number);
    EXPECT_EQ(bench.Find<QRadioButton>(qPrintable(name))->toolTip(),
              ToQt(bench.application.link.line.DeviceName(number)));
  }
}

TEST(WindowTest, TheCloseBoxDuringADownloadShowsWhyTheWindowStays) {
  Bench bench("QN");
  bench.Upload();
  auto* notice = bench.Find<QWidget>("flaMsg_CannotEnd");
  bool shown = false;
  bench.device.loop.After(Clock(std::chrono::seconds(3)), [&] {
    bench.window.close();
    shown = notice->isVisible() && bench.window.isVisible();
  });
  bench.device.dialogs.QueueAnswer(Answer::Ok);
  bench.Press("cmdDownload");
  EXPECT_TRUE(shown);
  EXPECT_TRUE(bench.device.loop.Gate().Ended());
}

TEST(WindowTest, TheCloseBoxEndsTheProgram) {
  Bench bench("QN");
  bench.window.close();
  EXPECT_TRUE(bench.device.loop.Gate().Ended());
}

TEST(WindowTest, UnsavedChangesKeepTheWindowWhenTheQuestionIsCancelled) {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("A"));
  bench.device.dialogs.QueueAnswer(Answer::Cancel);
  bench.window.close();
  EXPECT_TRUE(bench.window.isVisible());
  EXPECT_TRUE(!bench.device.loop.Gate().Ended());
}

TEST(WindowTest, GroupsWithoutAShownFieldAreHidden) {
  Bench bench("QN");
  auto* field = bench.Find<QWidget>("Text(16)");
  EXPECT_TRUE(qobject_cast<QGroupBox*>(field->parentWidget())->isHidden());
  bench.Choose(QStringLiteral("QHG"));
  EXPECT_TRUE(!qobject_cast<QGroupBox*>(field->parentWidget())->isHidden());
}

TEST(WindowTest, LookingAtADeviceChangesNothing) {
  Bench bench("QHG");
  bench.Upload();
  ParameterSet& set = bench.Page().GroupItem;
  std::vector<String> before;
  before.reserve(ParameterSet::kItems);
  for (int item = 0; item < ParameterSet::kItems; ++item) {
    before.push_back(set.At(1, item));
  }
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    bench.window.Current()->ShowTab(tab);
    QCoreApplication::processEvents();
  }
  for (QLineEdit* field : bench.window.findChildren<QLineEdit*>()) {
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Tab);
  }
  for (int item = 0; item < ParameterSet::kItems; ++item) {
    EXPECT_EQ(ToQt(set.At(1, item)), ToQt(before[static_cast<std::size_t>(item)]));
  }
}

}  // namespace
}  // namespace korva

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  korva::PrepareLook();
  return RUN_ALL_TESTS();
}
