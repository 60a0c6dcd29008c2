// The window: what stands in it, what a user's keys and clicks do, and that it has no mind of its own. The
// program behind it runs in virtual time against a simulated device.

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "app/main_window.h"
#include "app/text.h"
#include "app/window_host.h"
#include "files/parameter_page.h"
#include "support/device_line.h"

namespace korva {

namespace {

constexpr const char* kHome = KORVA_HOME;

/// The program with its window in virtual time, and a device of `model` on COM 1.
struct Bench {
  explicit Bench(const char* model)
      : device(sim::Device::ForModel(kHome, model)),
        application(device.platform, FromQt(QString::fromUtf8(kHome))) {
    application.program.Start();
    window.resize(1180, 740);
    window.show();
    Choose(QString::fromUtf8(model));
  }
  ~Bench() { window.hide(); }

  template <typename T>
  T* Find(const char* name) {
    auto* widget = window.findChild<T*>(QString::fromLatin1(name));
    if (widget == nullptr) {
      qFatal("no widget %s", name);
    }
    return widget;
  }
  void Press(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }
  void Choose(const QString& model) {
    auto* list = Find<QListWidget>("lst_TypeSelect");
    QListWidgetItem* item = list->findItems(model, Qt::MatchExactly).constLast();
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
  }
  void Upload() {
    device.dialogs.QueueAnswer(Answer::Yes);
    device.dialogs.QueueAnswer(Answer::Ok);
    Press("cmdUpload");
  }
  ParameterPage& Page() { return dynamic_cast<ParameterPage&>(*application.program.Showing()); }

  test::DeviceBench device;
  Application application;
  MainWindow window{application};
};

}  // namespace

class WindowTest : public QObject {
  Q_OBJECT

 private slots:
  void every_control_of_the_page_has_a_widget_of_its_name();
  void captions_are_the_japanese_ones();
  void a_click_in_the_list_chooses_the_model();
  void a_second_click_on_the_present_model_counts();
  void the_arrow_keys_choose_a_model();
  void typing_goes_into_the_parameter_set();
  void an_upload_fills_the_fields();
  void the_list_of_a_combo_box_and_the_users_choice();
  void option_buttons_follow_their_group();
  void a_locked_field_takes_no_keys();
  void a_bad_value_is_shown_inverted_until_the_next_check();
  void the_tab_in_front_stays_in_front_while_all_are_locked();
  void a_disabled_tab_cannot_be_brought_to_the_front();
  void alt_and_a_digit_change_the_tab();
  void the_buttons_have_keys();
  void the_memo_has_lines();
  void com_buttons_tell_their_device();
  void the_close_box_during_a_download_shows_why_the_window_stays();
  void the_close_box_ends_the_program();
  void unsaved_changes_keep_the_window_when_the_question_is_cancelled();
  void groups_without_a_shown_field_are_hidden();
  void looking_at_a_device_changes_nothing();
};

void WindowTest::every_control_of_the_page_has_a_widget_of_its_name() {
  Bench bench("QN");
  for (const Control* control : bench.Page().Controls()) {
    const QString name = QString::fromStdString(control->FullName());
    const bool placed = bench.Page().TabOf(*control) >= 0 || control->Name().starts_with("cmd");
    if (placed) {
      QVERIFY2(bench.window.findChild<QWidget*>(name) != nullptr, qPrintable(name));
    }
  }
}

void WindowTest::captions_are_the_japanese_ones() {
  Bench bench("QN");
  QCOMPARE(bench.Find<QPushButton>("cmdUpload")->text(), QStringLiteral("アップロード"));
  QCOMPARE(bench.Find<QTabWidget>("KvCfg_Tab")->tabText(3), QStringLiteral("ﾘﾆｱﾗｲｻﾞ"));
  QCOMPARE(bench.Find<QLabel>("lbl_FrmVersion")->text(), QStringLiteral("KORVA Ver12.09"));
  QCOMPARE(bench.Find<QRadioButton>("OptCom4")->text(), QStringLiteral("COM 4"));
}

void WindowTest::a_click_in_the_list_chooses_the_model() {
  Bench bench("QN");
  bench.Choose(QStringLiteral("QL"));
  QCOMPARE(ToQt(bench.Page().DefFile), QStringLiteral("QL.def"));
  QVERIFY(bench.window.windowTitle().startsWith(QStringLiteral("QL")));
}

void WindowTest::a_second_click_on_the_present_model_counts() {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("A"));
  const std::size_t boxes = bench.device.dialogs.Boxes().size();
  bench.Choose(QStringLiteral("QN"));
  QCOMPARE(bench.device.dialogs.Boxes().size(), boxes + 1);
  QCOMPARE(ToQt(bench.device.dialogs.Boxes().back().box.title), QStringLiteral("ﾌｧｲﾙに保存"));
  QCOMPARE(bench.Find<QLineEdit>("Text(0)")->text(), QStringLiteral("A"));
}

void WindowTest::the_arrow_keys_choose_a_model() {
  Bench bench("QN");
  QTest::keyClick(bench.Find<QListWidget>("lst_TypeSelect"), Qt::Key_Down);
  QCOMPARE(ToQt(bench.Page().DefFile), QStringLiteral("QUO.def"));
}

void WindowTest::typing_goes_into_the_parameter_set() {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("PUMP 3"));
  QCOMPARE(ToQt(bench.Page().Item(2)), QStringLiteral("PUMP 3"));
  QVERIFY(bench.Page().DataChanged);
}

void WindowTest::an_upload_fills_the_fields() {
  Bench bench("QN");
  bench.Upload();
  QCOMPARE(bench.Find<QLineEdit>("Text(0)")->text(), QStringLiteral("TAG-1"));
  QCOMPARE(bench.Find<QLineEdit>("Text(9)")->text(), ToQt(bench.Page().Item(14)));
  QCOMPARE(bench.Find<QComboBox>("Combo(0)")->currentText(), ToQt(bench.Page().Item(10)));
  QCOMPARE(bench.Find<QProgressBar>("ProgressBar")->value(), 0);
}

void WindowTest::the_list_of_a_combo_box_and_the_users_choice() {
  Bench bench("QUO");
  bench.Upload();
  auto* combo = bench.Find<QComboBox>("Combo(0)");
  QCOMPARE(combo->count(), 17);
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_Home);
  QCOMPARE(ToQt(bench.Page().Item(10)), combo->itemText(0));
}

void WindowTest::option_buttons_follow_their_group() {
  Bench bench("QN");
  bench.Upload();
  QVERIFY(bench.Find<QRadioButton>("optTempUnit(0)")->isChecked());
  bench.Press("optTempUnit(1)");
  QVERIFY(!bench.Find<QRadioButton>("optTempUnit(0)")->isChecked());
  QVERIFY(bench.Find<QRadioButton>("optTempUnit(1)")->isChecked());
  QCOMPARE(bench.Find<QLabel>("lbl_unit(9)")->text(), QStringLiteral("deg F"));
}

void WindowTest::a_locked_field_takes_no_keys() {
  Bench bench("QN");
  auto* field = bench.Find<QLineEdit>("Text(9)");
  bench.Page().Text[9].SetLocked(true);
  bench.Page().Text[9].SetLook(Look::Grey);
  const QString before = field->text();
  QTest::keyClicks(field, QStringLiteral("1"));
  QCOMPARE(field->text(), before);
  QCOMPARE(field->palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
}

void WindowTest::a_bad_value_is_shown_inverted_until_the_next_check() {
  Bench bench("QN");
  bench.Upload();
  auto* field = bench.Find<QLineEdit>("Text(15)");
  field->selectAll();
  QTest::keyClicks(field, QStringLiteral("-500"));
  const QPalette system = QApplication::palette(field);
  bench.Press("cmdCheck");
  QCOMPARE(field->palette().color(QPalette::Base), system.color(QPalette::Text));
  QCOMPARE(field->palette().color(QPalette::Text), system.color(QPalette::Base));
  field->selectAll();
  QTest::keyClicks(field, QStringLiteral("100"));
  QCOMPARE(field->palette().color(QPalette::Base), system.color(QPalette::Text));
  bench.Press("cmdCheck");
  QCOMPARE(field->palette().color(QPalette::Base), system.color(QPalette::Base));
}

void WindowTest::the_tab_in_front_stays_in_front_while_all_are_locked() {
  Bench bench("QN");
  auto* tabs = bench.Find<QTabWidget>("KvCfg_Tab");
  tabs->setCurrentIndex(2);
  bench.Page().LockFrame();
  QCOMPARE(tabs->currentIndex(), 2);
  QVERIFY(!tabs->isTabEnabled(2));
  bench.Page().UnlockFrame();
  QCOMPARE(tabs->currentIndex(), 2);
  QVERIFY(tabs->isTabEnabled(2));
}

void WindowTest::a_disabled_tab_cannot_be_brought_to_the_front() {
  Bench bench("QN");
  auto* tabs = bench.Find<QTabWidget>("KvCfg_Tab");
  QVERIFY(!tabs->isTabEnabled(4));
  bench.window.Current()->ShowTab(4);
  QCOMPARE(tabs->currentIndex(), 0);
}

void WindowTest::alt_and_a_digit_change_the_tab() {
  Bench bench("QN");
  QVERIFY(QTest::qWaitForWindowActive(&bench.window));
  QTest::keyClick(&bench.window, Qt::Key_2, Qt::AltModifier);
  QCOMPARE(bench.Find<QTabWidget>("KvCfg_Tab")->currentIndex(), 1);
  QCOMPARE(bench.Page().Tabs.Current(), 1);
}

void WindowTest::the_buttons_have_keys() {
  Bench bench("QN");
  QVERIFY(QTest::qWaitForWindowActive(&bench.window));
  QTest::keyClick(&bench.window, Qt::Key_K, Qt::ControlModifier);
  QCOMPARE(ToQt(bench.device.dialogs.Boxes().back().box.title), QStringLiteral("設定値ﾁｪｯｸ"));
  QVERIFY(bench.Find<QPushButton>("cmdCheck")->toolTip().contains(QLatin1String("K")));
}

void WindowTest::the_memo_has_lines() {
  Bench bench("QN");
  auto* memo = bench.Find<QPlainTextEdit>("txtMemo");
  QTest::keyClicks(memo, QStringLiteral("one"));
  QTest::keyClick(memo, Qt::Key_Return);
  QTest::keyClicks(memo, QStringLiteral("two"));
  QCOMPARE(ToQt(bench.Page().GroupItem.Memo), QStringLiteral("one\r\ntwo"));
}

void WindowTest::com_buttons_tell_their_device() {
  Bench bench("QN");
  for (int number = 1; number <= 4; ++number) {
    const QString name = QStringLiteral("OptCom%1").arg(number);
    QCOMPARE(bench.Find<QRadioButton>(qPrintable(name))->toolTip(),
             ToQt(bench.application.link.line.DeviceName(number)));
  }
}

void WindowTest::the_close_box_during_a_download_shows_why_the_window_stays() {
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
  QVERIFY(shown);
  QVERIFY(bench.device.loop.Gate().Ended());
}

void WindowTest::the_close_box_ends_the_program() {
  Bench bench("QN");
  bench.window.close();
  QVERIFY(bench.device.loop.Gate().Ended());
}

void WindowTest::unsaved_changes_keep_the_window_when_the_question_is_cancelled() {
  Bench bench("QN");
  QTest::keyClicks(bench.Find<QLineEdit>("Text(0)"), QStringLiteral("A"));
  bench.device.dialogs.QueueAnswer(Answer::Cancel);
  bench.window.close();
  QVERIFY(bench.window.isVisible());
  QVERIFY(!bench.device.loop.Gate().Ended());
}

void WindowTest::groups_without_a_shown_field_are_hidden() {
  Bench bench("QN");
  QWidget* field = bench.Find<QWidget>("Text(16)");
  QVERIFY(qobject_cast<QGroupBox*>(field->parentWidget())->isHidden());
  bench.Choose(QStringLiteral("QHG"));
  QVERIFY(!qobject_cast<QGroupBox*>(field->parentWidget())->isHidden());
}

void WindowTest::looking_at_a_device_changes_nothing() {
  Bench bench("QHG");
  bench.Upload();
  ParameterSet& set = bench.Page().GroupItem;
  std::vector<String> before;
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
    QCOMPARE(ToQt(set.At(1, item)), ToQt(before[static_cast<std::size_t>(item)]));
  }
}

}  // namespace korva

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  korva::PrepareLook();
  korva::WindowTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "window_test.moc"
