// What the window starts with: Qt's texts in Japanese, a font, a file.

#include <gtest/gtest.h>

#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QProcess>
#include <QTemporaryDir>

#include "app/window_host.h"
#include "platform/virtual/virtual_dialogs.h"
#include "print/fonts.h"
#include "window_bench.h"

namespace korva {

namespace {

TEST(StartTest, QtsOwnTextsAreJapanese) {
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("キャンセル"));
  const QFileDialog dialog;
  EXPECT_TRUE(dialog.labelText(QFileDialog::FileName).startsWith(QStringLiteral("ファイル名")));
}

TEST(StartTest, TheTranslationLiesBesideTheProgram) {
  EXPECT_TRUE(QFile::exists(QStringLiteral(KORVA_HOME "/translations/qtbase_ja.qm")));
}

TEST(StartTest, AMissingJapaneseFontIsTold) {
  EXPECT_TRUE(MissingFontText({}).contains(QStringLiteral("font")));
  EXPECT_EQ(MissingFontText({QStringLiteral("Noto Sans CJK JP")}), QString());
}

TEST(StartTest, AFileOfTheCommandLineIsOpened) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("pump.cfg"));
  {
    test::WindowBench bench("QN");
    bench.Upload();
    bench.device.dialogs.QueueFile(FromQt(path));
    bench.Press("cmdSave");
    ASSERT_TRUE(QFile::exists(path));
  }
  VirtualDialogs dialogs;
  WindowHost host({.installed = KORVA_HOME, .own = KORVA_HOME}, &dialogs);
  ASSERT_TRUE(host.Start());
  host.Open(path);
  const Page& page = *host.Running().Showing();
  EXPECT_EQ(ToQt(page.lst_TypeSelect.Text()), QStringLiteral("QN"));
  EXPECT_EQ(ToQt(page.txtFileTitle.Text()), QStringLiteral("pump.cfg"));
  EXPECT_TRUE(dialogs.FileDialogs().empty());
}

TEST(StartTest, ASaveDialogProposesTheTagOrTheModelAsAName) {
  test::WindowBench bench("QHW");
  const auto proposed = [&](const char* button) {
    bench.Press(button);
    return ToQt(bench.device.dialogs.FileDialogs().back().dialog.name);
  };
  EXPECT_EQ(proposed("cmdSave"), QStringLiteral("QHW.cfg"));
  bench.Page().SetItem(2, u"  PUMP 3/4  ");
  EXPECT_EQ(proposed("cmdSave"), QStringLiteral("PUMP 3_4.cfg"));
  bench.Page().SetItem(2, u"          ");
  EXPECT_EQ(proposed("cmdSave"), QStringLiteral("QHW.cfg"));
  EXPECT_EQ(proposed("cmdOpen"), QString());
}

TEST(StartTest, AFileThatIsMissingIsToldInItsBox) {
  VirtualDialogs dialogs;
  WindowHost host({.installed = KORVA_HOME, .own = KORVA_HOME}, &dialogs);
  ASSERT_TRUE(host.Start());
  host.Open(QStringLiteral("/nowhere/pump.cfg"));
  ASSERT_EQ(dialogs.Boxes().size(), 1U);
  EXPECT_EQ(dialogs.Boxes().front().box.text, BoxOf(BoxKey::FileNotFound).text);
}

/// Who dropped it waits until the window has taken it, so no question of the opening may stand before.
TEST(StartTest, AFileThatIsDroppedIsOpenedOnceItIsTaken) {
  VirtualDialogs dialogs;
  WindowHost host({.installed = KORVA_HOME, .own = KORVA_HOME}, &dialogs);
  ASSERT_TRUE(host.Start());
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QStringLiteral("/nowhere/pump.cfg"))});
  const auto drop = [&] {
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&host.Window(), &enter);
    QDropEvent dropped({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&host.Window(), &dropped);
  };
  drop();
  EXPECT_TRUE(dialogs.FileDialogs().empty());
  QCoreApplication::processEvents();
  EXPECT_EQ(dialogs.FileDialogs().size(), 1U);
  drop();
  host.Running().Showing()->LockFrame();  // meanwhile it can't be opened any more
  QCoreApplication::processEvents();
  EXPECT_EQ(dialogs.FileDialogs().size(), 1U);
}

TEST(StartTest, TheVersionIsToldWithoutADisplay) {
  QProcess program;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("no-such-platform"));
  program.setProcessEnvironment(environment);
  program.start(QStringLiteral(KORVA_HOME "/korva"), {QStringLiteral("--version")});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(program.exitCode(), 0);
  EXPECT_EQ(program.readAllStandardOutput(), QByteArray("KORVA 12.09\n"));
}

}  // namespace

}  // namespace korva
