#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <ostream>

#include "app/qt_dialogs.h"
#include "app/qt_paper.h"
#include "app/qt_record_place.h"

namespace korva::test {

/// What opens the dialogs that the program shows over its window.
struct DialogsBench {
  void Ask(std::vector<Answer> buttons, Answer preset) {
    dialogs.ShowBox({.icon = BoxIcon::Question,
                     .title = u"設定値",
                     .text = u"失われます。\r\n続けますか",
                     .buttons = std::move(buttons),
                     .preset = preset});
  }
  [[nodiscard]] FileDialog Files(bool save) const {
    return {.save = save,
            .start_folder = folder.path().toStdU16String(),
            .filter = u"KORVA (*.cfg)|*.cfg|All (*.*)|*.*|",
            .name = u"a.cfg"};
  }
  void AskForRecord() {
    question = records.Ask(Files(true), [](const std::optional<String>& /*path*/) {});
  }
  /// Asks for a record whose file there is already.
  void AskToReplace() {
    QFile file(folder.filePath(QStringLiteral("a.cfg")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    AskForRecord();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* chooser = qobject_cast<QFileDialog*>(window);
      if (chooser != nullptr && chooser->isVisible()) {
        chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file.fileName());
        QMetaObject::invokeMethod(chooser, "accept");
      }
    }
  }

  QTemporaryDir folder;
  EventGate gate;
  QtDialogs dialogs{gate};
  QtPaper paper{gate};
  QtRecordPlace records{gate};
  std::unique_ptr<OpenQuestion> question;
};

/// One of these dialogs. The texts of the buttons are empty where it has none that is meant.
struct DialogCase {
  const char* name;
  std::function<void(DialogsBench& bench)> open;
  QString preset;  ///< text of the button that Enter presses
  QString escape;  ///< of the one that Escape presses
};

inline std::ostream& operator<<(std::ostream& out, const DialogCase& dialog) { return out << dialog.name; }

inline std::vector<DialogCase> AllDialogs() {
  using A = Answer;
  const QString ok = QStringLiteral("OK");
  const QString cancel = QStringLiteral("キャンセル");
  const QString yes = QStringLiteral("はい(&Y)");
  const QString no = QStringLiteral("いいえ(&N)");
  const QString save = QStringLiteral("保存(&S)");
  const auto ask = [](const std::vector<A>& buttons, A preset) {
    return [buttons, preset](DialogsBench& bench) { bench.Ask(buttons, preset); };
  };
  return {
      {"Message", ask({A::Ok}, A::Ok), ok, ok},
      {"Offer", ask({A::Ok, A::Cancel}, A::Ok), ok, cancel},
      {"Warning", ask({A::Ok, A::Cancel}, A::Cancel), cancel, cancel},
      {"Question", ask({A::Yes, A::No}, A::Yes), yes, no},
      {"Choice", ask({A::Yes, A::No, A::Cancel}, A::No), no, cancel},
      {"Failure", [](auto& bench) { bench.dialogs.ShowFailure(u"失われます。\r\n続けますか"); }, ok, ok},
      {"OpenFile", [](auto& bench) { bench.dialogs.ChooseFile(bench.Files(false)); }, {}, {}},
      {"SaveFile", [](auto& bench) { bench.dialogs.ChooseFile(bench.Files(true)); }, {}, {}},
      {"Printers", [](auto& bench) { bench.paper.Print({}); }, {}, {}},
      {"RecordFile", [](auto& bench) { bench.AskForRecord(); }, {}, {}},
      {"ReplaceFile", [](auto& bench) { bench.AskToReplace(); }, no, no},
  };
}

/// Opens the dialog, calls `look` with it when it is active, and leaves it by the Escape key.
inline void InDialog(const DialogCase& dialog, const std::function<void(QDialog& shown)>& look) {
  DialogsBench bench;
  bool looked = false;
  QTimer::singleShot(0, [&] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      auto* shown = qobject_cast<QDialog*>(window);
      if (shown != nullptr && shown->isVisible() && !looked) {
        looked = true;
        QApplication::setActiveWindow(shown);  // no window manager does
        look(*shown);
        QTest::keyClick(shown, Qt::Key_Escape);
        EXPECT_FALSE(shown->isVisible());
        shown->close();
      }
    }
  });
  dialog.open(bench);
  QCoreApplication::processEvents();  // those that have no loop of their own
  EXPECT_TRUE(looked);
}

/// Each of them in light and dark colours.
struct EachDialog : testing::TestWithParam<std::tuple<DialogCase, bool>> {};
inline std::string NameOfDialog(const testing::TestParamInfo<std::tuple<DialogCase, bool>>& one) {
  return std::string(std::get<0>(one.param).name) + (std::get<1>(one.param) ? "_dark" : "_light");
}

}  // namespace korva::test
