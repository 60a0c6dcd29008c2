// What a screen reader is told of every page: names, roles and states, and what it reads out by itself.

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>
#include <QTreeView>
#include <map>
#include <set>

#include "accessibility_bench.h"
#include "app/accessible.h"
#include "app/curve_view.h"
#include "dialogs_bench.h"
#include "linearizer/linearizer.h"
#include "support/page_parts.h"

namespace korva {

namespace {

using Bench = test::WindowBench;
using test::DescriptionOf;
using test::NameOf;
using test::OnEachTab;
using test::Reader;
using test::Spoken;
using test::Stops;

// Names, roles and states.

/// Texts that are seen beside the field of a control: all of these must be in its name.
QStringList SeenBeside(const Page& page, const Control& control) {
  QStringList seen;
  const DesignRow* row = page.RowOf(control);
  const bool value = dynamic_cast<const TextField*>(&control) != nullptr ||
                     dynamic_cast<const ComboBox*>(&control) != nullptr;
  const bool alone = row != nullptr && row->field.find(' ') == std::string_view::npos;
  for (const std::string_view name : {row == nullptr ? "" : row->number, row == nullptr ? "" : row->label}) {
    const auto* label = dynamic_cast<const Label*>(page.FindControl(name));
    if (label != nullptr && label->Visible() && value && alone) {
      seen += ToQt(label->Caption()).simplified();
    }
  }
  return seen;
}

QAccessible::Role RoleOf(const Control& control) {
  if (dynamic_cast<const Button*>(&control) != nullptr) {
    return QAccessible::PushButton;
  }
  if (dynamic_cast<const OptionButton*>(&control) != nullptr) {
    return QAccessible::RadioButton;
  }
  if (dynamic_cast<const TextField*>(&control) != nullptr) {
    return QAccessible::EditableText;
  }
  if (dynamic_cast<const ComboBox*>(&control) != nullptr) {
    return QAccessible::ComboBox;
  }
  if (dynamic_cast<const ListBox*>(&control) != nullptr) {
    return QAccessible::List;
  }
  if (dynamic_cast<const Grid*>(&control) != nullptr) {
    return QAccessible::Table;
  }
  return QAccessible::NoRole;
}

void ExpectStates(const Control& control, QObject* widget) {
  const QAccessible::State state = Spoken(widget).state();
  const Refusal refusal = control.Refused();
  EXPECT_EQ(state.disabled != 0, refusal == Refusal::Disabled || (refusal == Refusal::Locked &&
                                                                  RoleOf(control) == QAccessible::ComboBox));
  EXPECT_EQ(state.invisible != 0, false);
  EXPECT_TRUE(state.focusable != 0 || state.disabled != 0);
  if (const auto* field = dynamic_cast<const TextField*>(&control)) {
    EXPECT_EQ(state.readOnly != 0, field->Locked());
    EXPECT_EQ(state.multiLine != 0, field->Multiline());
  }
  if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    EXPECT_EQ(state.checked != 0, option->Value());
  }
}

/// Every stop of the keyboard on what shows.
void ExpectSpoken(Bench& bench) {
  std::set<std::pair<int, QString>> names;
  for (QWidget* widget : Stops(bench.window)) {
    const std::string object = widget->objectName().toStdString();
    SCOPED_TRACE(object + " " + widget->metaObject()->className());
    const QString name = NameOf(widget);
    EXPECT_FALSE(name.isEmpty());
    EXPECT_NE(name.toStdString(), object);
    EXPECT_TRUE(names.emplace(Spoken(widget).role(), name).second) << name.toStdString() << ": told twice";
    const Control* control = bench.Page().FindControl(object);
    if (control == nullptr) {
      continue;
    }
    for (const QString& seen : SeenBeside(bench.Page(), *control)) {
      EXPECT_TRUE(name.contains(seen)) << name.toStdString() << " lacks " << seen.toStdString();
    }
    EXPECT_EQ(Spoken(widget).role(), RoleOf(*control));
    ExpectStates(*control, widget);
  }
}

TEST(SpokenTest, EveryModelHasNamesRolesAndStatesOfAllThatTheKeyboardReaches) {
  Bench bench("QN");
  const Reader reader;
  std::set<const Family*> families;
  const std::vector<String> models = bench.Page().lst_TypeSelect.Entries();
  for (const String& model : models) {
    if (model.empty()) {
      continue;
    }
    SCOPED_TRACE(ToQt(model).toStdString());
    const auto& entries = bench.Page().lst_TypeSelect.Entries();
    bench.Page().lst_TypeSelect.UserPicks(
        static_cast<int>(std::find(entries.begin(), entries.end(), model) - entries.begin()));
    families.insert(&bench.Page().ItsFamily());
    OnEachTab(bench, [&] { ExpectSpoken(bench); });
  }
  EXPECT_EQ(families.size(), 11U);
}

struct SpokenName {
  const char* model;
  const char* control;
  QString name;
  QString description;
};

struct NameTest : testing::TestWithParam<SpokenName> {};
INSTANTIATE_TEST_SUITE_P(Each, NameTest,
                         testing::Values(SpokenName{"QHW", "lst_TypeSelect", "機種名", {}},
                                         SpokenName{"QHW", "txtAuthor", "作者名", {}},
                                         SpokenName{"QHW", "Text(10)", "入力ｽﾊﾟﾝ (100%), Item 15", {}},
                                         SpokenName{"QHW", "Text(14)", "出力ｽｹｰﾙ下限, Item 19", "%"},
                                         SpokenName{"QHW", "Combo(0)", "入力種類, Item 10", {}},
                                         SpokenName{"QHW", "LnrFlexGrid", "ﾘﾆｱﾗｲｻﾞ", {}},
                                         SpokenName{"QHW", "cmdUpload", "アップロード", "Ctrl+U"},
                                         SpokenName{"QHW", "Text(7)", "出力信号, Item 08", "mA"},
                                         SpokenName{"QHW", "cmdSet", "OUTPUT, 出力設定値, Item 03", {}},
                                         SpokenName{"QHW", "cmdMonitorOFF", "OFF", {}},
                                         SpokenName{"QHW", "cmdStatusMonOFF", "OFF, 出力設定値, Item 03", {}},
                                         SpokenName{"QHW", "ProgressBar", "設定値", {}},
                                         SpokenName{"QN", "optTempUnit(1)", "deg F, 温度単位, Item 21", {}},
                                         SpokenName{"QN", "Frame(3)", "温度単位, Item 21", {}},
                                         SpokenName{"Z2WPA", "cbo_unit(1)", "単位, 低周波ｶｯﾄ, Item 33", {}},
                                         SpokenName{"Z8WT2", "txtOut2Span", "ｽﾊﾟﾝ微調整, 第2出力", "%"},
                                         SpokenName{"Z8WT2", "cmdOut2SpanM01", "-0.1, ｽﾊﾟﾝ微調整, 第2出力",
                                                    "PgDown"}),
                         [](const auto& one) {
                           std::string name = std::string(one.param.model) + "_" + one.param.control;
                           std::replace_if(
                               name.begin(), name.end(), [](char sign) { return std::isalnum(sign) == 0; },
                               '_');
                           return name;
                         });

TEST_P(NameTest, IsCaptionAndItem) {
  Bench bench(GetParam().model);
  const Reader reader;
  // The caption of a frame is a label of the same name.
  const auto found = bench.window.Current()->findChildren<QWidget*>(QString::fromLatin1(GetParam().control));
  QWidget* widget = found.constLast();
  EXPECT_EQ(NameOf(widget).toStdString(), GetParam().name.toStdString());
  EXPECT_EQ(DescriptionOf(widget).toStdString(), GetParam().description.toStdString());
}

// What is told when it happens.

TEST(ReadOutTest, EachNewTextIsReadOnceWhenItComesOrChanges) {
  Label control("lblForced");
  control.SetVisible(false);
  auto* label = ControlViews::CaptionView(control, nullptr);
  std::vector<std::string> read;
  OnNewText(control, qobject_cast<QLabel*>(label),
            [&](const QLabel& one) { read.push_back(one.text().toStdString()); });
  control.SetCaption(u"50 %");
  EXPECT_TRUE(read.empty());
  control.SetVisible(true);
  control.SetLook(Look::Highlight);
  EXPECT_EQ(read, std::vector<std::string>({"50 %"}));
  control.SetCaption(u"60 %");
  control.SetVisible(false);
  control.SetVisible(true);
  EXPECT_EQ(read, std::vector<std::string>({"50 %", "60 %", "60 %"}));
  delete label;
  control.SetCaption(u"70 %");
  EXPECT_EQ(read.size(), 3U);
}

TEST(ReadOutTest, WhatStandsOverThePageIsAnAlertAndWhatStandsBelowANotification) {
  Bench bench("QN");
  const Reader reader;
  for (const char* name : {"lblForced", "lblHeldClose", "lblMsg_CannotEnd"}) {
    EXPECT_EQ(Spoken(bench.Find<QLabel>(name)).role(), QAccessible::AlertMessage) << name;
  }
  EXPECT_EQ(Spoken(bench.Find<QLabel>("lblNotices")).role(), QAccessible::Notification);
  EXPECT_EQ(Spoken(bench.Find<QLabel>("lblWaiting")).role(), QAccessible::StatusBar);
  bench.Page().Notes.Tell(Notice::NotKept, u"失われます");
  EXPECT_EQ(NameOf(bench.Find<QLabel>("lblNotices")), QStringLiteral("失われます"));
}

TEST(SpokenTest, TellsWhatAFieldIsInAndFollowsIt) {
  Bench bench("QHW");
  const Reader reader;
  TextField& control = bench.Page().Text[14];
  auto* field = bench.Find<QWidget>("Text(14)");
  const auto expect = [&](const char* words) {
    QCoreApplication::processEvents();
    EXPECT_EQ(DescriptionOf(field).toStdString(), words);
  };
  expect("%");
  control.SetLook(Look::Bad);
  expect("%, 不適当な値");
  control.SetLook(Look::Normal);
  control.UserTypes(u"300");  // the page marks it itself
  control.SetDiffers(true);
  expect("%, 範囲外の値です, 比較したものと異なります");
  control.UserTypes({});
  control.SetDiffers(false);
  control.SetMarked(true);
  expect("%, 要確認");
  control.SetMarked(false);
  control.SetLook(Look::Highlight);
  expect("%");
}

TEST(SpokenTest, NamesFollowTheModelAndTheCaptions) {
  Bench bench("QHW");
  const Reader reader;
  auto* field = bench.Find<QWidget>("Text(9)");
  EXPECT_EQ(NameOf(field), QStringLiteral("入力ｾﾞﾛ (0%), Item 14"));
  dynamic_cast<Label&>(*bench.Page().FindControl("Label(19)")).SetCaption(u"Zero");
  QCoreApplication::processEvents();
  EXPECT_EQ(NameOf(field), QStringLiteral("Zero, Item 14"));
}

TEST(SpokenTest, NothingIsToldBeforeAScreenReaderAsks) {
  Bench bench("QHW");
  QCoreApplication::processEvents();
  EXPECT_TRUE(bench.Find<QWidget>("Text(9)")->accessibleName().isEmpty());
}

TEST(SpokenTest, ABadTabSaysSo) {
  Bench bench("QHW");
  const Reader reader;
  bench.Page().Text[9].SetLook(Look::Bad);
  QCoreApplication::processEvents();
  auto* bar = bench.window.Current()->findChild<QTabBar*>();
  EXPECT_EQ(Spoken(bar).child(1)->text(QAccessible::Name), QStringLiteral("入力, 不適当な値"));
  bench.Page().Text[9].SetLook(Look::Normal);
  QCoreApplication::processEvents();
  EXPECT_EQ(Spoken(bar).child(1)->text(QAccessible::Name), QStringLiteral("入力"));
}

TEST(SpokenTest, ATableHasHeadsRowsAndTheStatesOfItsCells) {
  Bench bench("QHW");
  const Reader reader;
  Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  bench.Show(3);
  grid.SetText(2, 1, u"12.5");
  grid.SetLook(2, 1, Look::Bad);
  auto* table = Spoken(bench.Find<QTableView>("LnrFlexGrid")).tableInterface();
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->columnDescription(1).toStdString(), ToQt(grid.At(0, 1).text).toStdString());
  QAccessibleInterface* cell = table->cellAt(2, 1);
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  EXPECT_EQ(cell->text(QAccessible::Name), QStringLiteral("12.5"));
  EXPECT_EQ(cell->text(QAccessible::Description), QStringLiteral("不適当な値"));
  const auto* model = bench.Find<QTableView>("LnrFlexGrid")->model();
  EXPECT_EQ(model->headerData(2, Qt::Vertical, Qt::AccessibleTextRole).toString(), QStringLiteral("02"));
  EXPECT_EQ(Spoken(bench.window.Current()->findChild<QWidget*>("LnrFlexGrid curve")).role(),
            QAccessible::Chart);
}

TEST(SpokenTest, AModelOfTheListTellsItsKind) {
  Bench bench("QHW");
  auto* list = bench.Find<QListWidget>("lst_TypeSelect");
  const QString kind = Spoken(list).child(list->currentRow())->text(QAccessible::Description);
  EXPECT_TRUE(kind.startsWith(QStringLiteral("直流入力"))) << kind.toStdString();
}

TEST(SpokenTest, AChoiceAndAnOptionCanBeUsed) {
  Bench bench("QN");
  const Reader reader;
  bench.Show(1);
  QAccessibleInterface& option = Spoken(bench.Find<QRadioButton>("optTempUnit(1)"));
  EXPECT_EQ(option.state().checked, 0U);
  ASSERT_TRUE(option.actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
  option.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(option.state().checked, 1U);
  auto* box = bench.Find<QComboBox>("Combo(0)");
  QAccessibleInterface& choice = Spoken(box);
  EXPECT_EQ(choice.text(QAccessible::Value), box->currentText());
  EXPECT_EQ(choice.state().expanded, 0U);
  choice.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_EQ(choice.state().expanded, 1U);
  EXPECT_EQ(choice.child(0)->role(), QAccessible::List);
  choice.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_FALSE(box->view()->isVisible());
}

TEST(SpokenTest, AChoiceThatStandsInNoEntryIsToldAllTheSame) {
  Bench bench("QN");
  const Reader reader;
  bench.Show(1);
  bench.Page().Combo[0].SetText(u"another sensor");
  EXPECT_EQ(Spoken(bench.Find<QComboBox>("Combo(0)")).text(QAccessible::Value),
            QStringLiteral("another sensor"));
}

TEST(SpokenTest, APressThatWaitsSaysSo) {
  Bench bench("Z2WQ");
  const Reader reader;
  auto& step = dynamic_cast<Button&>(*bench.Page().FindControl("cmdThresholdP01"));
  auto* button = bench.Find<QWidget>("cmdThresholdP01");
  const std::string before = DescriptionOf(button).toStdString();
  step.SetPending(true);
  QCoreApplication::processEvents();
  EXPECT_NE(DescriptionOf(button).indexOf(QStringLiteral("待機中")), -1);
  step.SetPending(false);
  QCoreApplication::processEvents();
  EXPECT_EQ(DescriptionOf(button).toStdString(), before);
}

struct SpokenDialog : testing::TestWithParam<test::DialogCase> {};
INSTANTIATE_TEST_SUITE_P(Of, SpokenDialog, testing::ValuesIn(test::AllDialogs()),
                         [](const auto& one) { return std::string(one.param.name); });

/// What a widget of Qt's own dialogs is.
QAccessible::Role RoleOf(const QWidget& widget) {
  if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) {
    return QAccessible::PushButton;
  }
  if (qobject_cast<const QLineEdit*>(&widget) != nullptr) {
    return QAccessible::EditableText;
  }
  if (qobject_cast<const QComboBox*>(&widget) != nullptr) {
    return QAccessible::ComboBox;
  }
  return qobject_cast<const QTreeView*>(&widget) != nullptr ? QAccessible::Tree : QAccessible::List;
}

TEST_P(SpokenDialog, HasNamesRolesAndStatesOfAllThatTheKeyboardReaches) {
  const Reader reader;
  test::InDialog(GetParam(), [](QDialog& shown) {
    EXPECT_FALSE(NameOf(&shown).isEmpty());
    const bool box = qobject_cast<QMessageBox*>(&shown) != nullptr;
    EXPECT_EQ(Spoken(&shown).role(), box ? QAccessible::AlertMessage : QAccessible::Dialog);
    EXPECT_EQ(DescriptionOf(&shown), box ? qobject_cast<QMessageBox*>(&shown)->text() : QString());
    std::set<QString> names;
    for (QWidget* stop : Stops(shown)) {
      SCOPED_TRACE(stop->objectName().toStdString() + " " + stop->metaObject()->className());
      const QString name = NameOf(stop);
      EXPECT_TRUE(name.size() > 1 && name != stop->objectName()) << name.toStdString();
      EXPECT_TRUE(names.insert(name).second) << name.toStdString();
      EXPECT_EQ(Spoken(stop).role(), RoleOf(*stop));
      EXPECT_EQ(Spoken(stop).state().disabled != 0, !stop->isEnabled());
      if (qobject_cast<QComboBox*>(stop) != nullptr) {  // on this system it is told by its label
        EXPECT_FALSE(Spoken(stop).relations(QAccessible::Label).isEmpty());
      }
    }
    EXPECT_FALSE(names.empty());
  });
}

TEST(SpokenTest, TheWindowThatStandsWhileADeviceRestartsTellsItsTextAndItsBar) {
  Bench bench("Z2WU");
  const Reader reader;
  bench.Show(5);
  bool looked = false;
  bench.device.loop.After(std::chrono::milliseconds(2600), [&] {
    auto* view = bench.Find<QDialog>("frmWaiting");
    EXPECT_EQ(Spoken(view).role(), QAccessible::Dialog);
    EXPECT_EQ(NameOf(view), QStringLiteral("KORVA"));
    EXPECT_EQ(DescriptionOf(view), QStringLiteral("ｼｽﾃﾑをﾘｾｯﾄしています。\nしばらくお待ち下さい"));
    auto* bar = view->findChild<QWidget*>(QStringLiteral("Reset_ProgressBar"));
    EXPECT_EQ(Spoken(bar).role(), QAccessible::ProgressBar);
    EXPECT_EQ(NameOf(bar), DescriptionOf(view));
    EXPECT_EQ(Spoken(bar).valueInterface()->currentValue().toInt(), 50);
    EXPECT_TRUE(Stops(*view).empty());
    looked = true;
  });
  bench.Press("cmdResetModbus");
  EXPECT_TRUE(looked);
}

TEST(SpokenTest, TheWindowsBesideThePageHaveNames) {
  Bench bench("QHW");
  const Reader reader;
  test::ReadAll(bench);
  for (SideWindow* window : test::WindowsBeside(bench)) {
    window->Open();
    QCoreApplication::processEvents();  // what is new shows then
    SCOPED_TRACE(window->Name());
    auto* view = bench.Find<QDialog>(window->Name().c_str());
    EXPECT_FALSE(NameOf(view).isEmpty());
    for (QWidget* stop : Stops(*view)) {
      EXPECT_FALSE(NameOf(stop).isEmpty()) << stop->metaObject()->className();
      EXPECT_NE(NameOf(stop), stop->objectName());
    }
  }
}

}  // namespace

}  // namespace korva
