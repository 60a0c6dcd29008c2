// Files that are dropped on the window.

#include <gtest/gtest.h>

#include <QDropEvent>
#include <QMimeData>

#include "app/qt_dialogs.h"
#include "window_bench.h"

namespace korva {

namespace {

struct DropBench : test::WindowBench {
  explicit DropBench(const char* model) : WindowBench(model) {
    window.OnFileDropped([this](const QString& path, const Button& button) {
      opened += path + QLatin1Char(' ') + QString::fromStdString(button.FullName());
    });
  }
  /// Drops files; true when the window took the drop.
  bool Drop(const QList<QUrl>& files) {
    QMimeData data;
    data.setUrls(files);
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) {
      return false;
    }
    QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    return drop.isAccepted();
  }
  bool Drop(const char* file) { return Drop({QUrl::fromLocalFile(QString::fromUtf8(file))}); }

  QStringList opened;
};

TEST(DropTest, AConfigurationAndATableAreOpenedByTheButtonsForThem) {
  DropBench bench("QHW1");
  bench.Page().Tabs.SetTabEnabled(bench.Page().TabWith(TextKey::Linearizer), true);
  EXPECT_TRUE(bench.Drop("/home/me/a.cfg"));
  EXPECT_TRUE(bench.Drop("/home/me/B.CSV"));
  EXPECT_EQ(bench.opened, QStringList({"/home/me/a.cfg cmdOpen", "/home/me/B.CSV cmd_csvFileOpen"}));
}

TEST(DropTest, NothingElseIsTaken) {
  DropBench bench("QHW1");
  EXPECT_FALSE(bench.Drop("/home/me/a.txt"));
  EXPECT_FALSE(bench.Drop({QUrl("https://example.com/a.cfg")}));
  EXPECT_FALSE(bench.Drop({QUrl::fromLocalFile("/a.cfg"), QUrl::fromLocalFile("/b.cfg")}));
  EXPECT_FALSE(bench.Drop(QList<QUrl>()));
}

TEST(DropTest, ATableIsNotTakenWhereItsTabIsClosedOrTheModelHasNone) {
  DropBench closed("QHW1");
  closed.Page().Tabs.SetTabEnabled(closed.Page().TabWith(TextKey::Linearizer), false);
  EXPECT_FALSE(closed.Drop("/home/me/b.csv"));
  DropBench without("QEY");
  EXPECT_FALSE(without.Drop("/home/me/b.csv"));
}

TEST(DropTest, NothingIsTakenWhileAnOperationLocksThePage) {
  DropBench bench("QHW1");
  bench.Page().Tabs.SetTabEnabled(bench.Page().TabWith(TextKey::Linearizer), true);
  bench.Page().LockFrame();
  EXPECT_FALSE(bench.Drop("/home/me/a.cfg"));
  EXPECT_FALSE(bench.Drop("/home/me/b.csv"));
  bench.Page().UnlockFrame();
  EXPECT_TRUE(bench.Drop("/home/me/a.cfg"));
  EXPECT_TRUE(bench.Drop("/home/me/b.csv"));
}

TEST(DropTest, ADroppedFileIsTheAnswerToTheNextFileToOpen) {
  DropBench bench("QHW1");
  QtDialogs dialogs(bench.device.loop.Gate());
  std::optional<String> chosen;
  dialogs.WithFile(u"/home/me/a.cfg", [&] { chosen = dialogs.ChooseFile({}); });
  EXPECT_EQ(chosen, u"/home/me/a.cfg");
}

}  // namespace

}  // namespace korva
