// The window on small screens: it starts within them, and what must be in reach stays in view.

#include <gtest/gtest.h>

#include <QLabel>
#include <QScreen>

#include "app/window_host.h"
#include "platform/virtual/virtual_dialogs.h"
#include "window_bench.h"

namespace korva {

namespace {

TEST(WindowSizeTest, StartsWithinAScreenThatIsTooSmallForItsUsualSize) {
  VirtualDialogs dialogs;
  WindowHost host({.installed = KORVA_HOME, .own = KORVA_HOME}, &dialogs);
  ASSERT_TRUE(host.Start());
  const QRect room = host.Window().screen()->availableGeometry();
  ASSERT_LT(room.width(), 1180);
  EXPECT_TRUE(room.contains(host.Window().frameGeometry()));
  EXPECT_TRUE(host.Window().isMaximized());
}

struct Screen {
  const char* name;
  QSize room;  ///< less a title bar of 30
};

struct SmallScreenTest : testing::TestWithParam<std::tuple<const char*, Screen>> {};
INSTANTIATE_TEST_SUITE_P(Each, SmallScreenTest,
                         testing::Combine(testing::Values("QN", "QEY", "QNA2"),
                                          testing::Values(Screen{"1024x600", {1024, 570}},
                                                          Screen{"1366x768at1_5", {911, 482}},
                                                          Screen{"1366x768at2", {683, 354}})),
                         [](const auto& one) {
                           return std::string(std::get<0>(one.param)) + "_on_" + std::get<1>(one.param).name;
                         });

TEST_P(SmallScreenTest, HasEveryButtonInView) {
  const auto& [model, screen] = GetParam();
  test::WindowBench bench(model);
  Page& page = bench.Page();
  page.Notes.Tell(Notice::Port, String(160, u'あ'));
  page.lblWaiting.SetCaption(String(20, u'あ'));
  for (Control* shown :
       std::initializer_list<Control*>{&page.lbl_Waitfor, &page.lblWaiting, &page.flaMsg_CannotEnd,
                                       &page.lblForced, &page.lblHeldClose}) {
    shown->SetVisible(true);
  }
  bench.window.resize(screen.room);
  QCoreApplication::processEvents();
  EXPECT_EQ(bench.window.size(), screen.room);
  for (const Control* control :
       {static_cast<Control*>(&page.cmdUpload), static_cast<Control*>(&page.cmdDownload),
        static_cast<Control*>(&page.cmdCheck), static_cast<Control*>(&page.cmdOpen),
        static_cast<Control*>(&page.cmdSave), static_cast<Control*>(&page.cmdNew),
        static_cast<Control*>(&page.cmdExit), static_cast<Control*>(&page.lst_TypeSelect),
        static_cast<Control*>(&page.lbl_FrmVersion), static_cast<Control*>(&page.Notes)}) {
    const auto* widget =
        bench.window.Current()->findChild<QWidget*>(QString::fromStdString(control->FullName()));
    const QRect area(widget->mapTo(&bench.window, QPoint()), widget->size());
    EXPECT_TRUE(bench.window.rect().contains(area)) << control->FullName();
    EXPECT_GE(area.height(), widget->minimumSizeHint().height()) << control->FullName();
  }
}

}  // namespace

}  // namespace korva
