#include "core/modal_window.h"

#include <gtest/gtest.h>

#include "core/program_host.h"

namespace korva {
namespace {

struct ModalWindowTest : testing::Test {
  ModalWindowTest() {
    host.program.Start();
    host.program.Window().Observe([this](const ModalWindow& shown, bool open) {
      seen.push_back(shown.Name() + (open ? " open" : " closed"));
    });
  }
  test::ProgramHost host;
  Label message{"lblMessage"};
  ModalWindow window{"frmSmall", {&message}};
  std::vector<std::string> seen;
};

TEST_F(ModalWindowTest, IsOpenForAsLongAsItIsShown) {
  EXPECT_EQ(host.program.Window().Get(), nullptr);
  {
    const WindowShown shown(host.program, window);
    EXPECT_EQ(host.program.Window().Get(), &window);
    EXPECT_EQ(seen, std::vector<std::string>{"frmSmall open"});
  }
  EXPECT_EQ(host.program.Window().Get(), nullptr);
  EXPECT_EQ(seen, (std::vector<std::string>{"frmSmall open", "frmSmall closed"}));
}

TEST_F(ModalWindowTest, KeepsTheUserFromThePageBehindIt) {
  Page& page = host.Showing();
  EXPECT_EQ(page.WhyRefused(page.cmdExit), "");
  const WindowShown shown(host.program, window);
  EXPECT_EQ(page.WhyRefused(page.cmdExit), "window open");
  EXPECT_EQ(page.WhyRefused(page.lst_TypeSelect), "window open");
}

TEST_F(ModalWindowTest, GoesWithTheEndOfTheProgramInsideIt) {
  host.loop.Gate().Enter([&] {
    const WindowShown shown(host.program, window);
    Program::End();
  });
  EXPECT_EQ(host.status, 0);
  EXPECT_EQ(seen.back(), "frmSmall closed");
}

TEST_F(ModalWindowTest, LetsACloseRequestThrough) {
  const WindowShown shown(host.program, window);
  host.program.Shared().CommBusy = true;
  host.program.PressClose();
  EXPECT_TRUE(host.program.Shared().QuitRequested);
}

TEST_F(ModalWindowTest, HasControlsThatAreThePagesToo) {
  Page& page = host.Showing();
  page.Register(window);
  EXPECT_EQ(page.FindControl("lblMessage"), &message);
  EXPECT_TRUE(page.InWindow(message));
  EXPECT_FALSE(page.InWindow(page.cmdExit));
}

}  // namespace
}  // namespace korva
