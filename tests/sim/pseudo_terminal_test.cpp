#include "sim/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <memory>

namespace korva::sim {
namespace {

/// Waits until the descriptor is readable.
bool Readable(int descriptor) {
  pollfd wait{.fd = descriptor, .events = POLLIN, .revents = 0};
  return poll(&wait, 1, 10'000) == 1;
}

std::unique_ptr<Descriptor> OpenPort(const PseudoTerminal& terminal) {
  return std::make_unique<Descriptor>(open(terminal.Name().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
}

TEST(PseudoTerminalTest, BytesGoBothWaysUnchanged) {
  PseudoTerminal terminal;
  const auto port = OpenPort(terminal);
  ASSERT_GE(port->Get(), 0);
  ASSERT_EQ(write(port->Get(), "G01\r", 4), 4);
  ASSERT_TRUE(Readable(terminal.Descriptor()));
  EXPECT_EQ(terminal.Read(), "G01\r");
  EXPECT_EQ(terminal.Read(), "") << "nothing more, and no wait";
  terminal.Write("COK\r\xFF");
  ASSERT_TRUE(Readable(port->Get()));
  std::array<char, 16> buffer{};
  ASSERT_EQ(read(port->Get(), buffer.data(), buffer.size()), 5);
  EXPECT_EQ(std::string(buffer.data(), 5), "COK\r\xFF");
}

TEST(PseudoTerminalTest, PortIsAsNewAfterItsProgramHasClosedIt) {
  PseudoTerminal terminal;
  auto port = OpenPort(terminal);
  ASSERT_EQ(ioctl(port->Get(), TIOCEXCL), 0);
  terminal.Write("late\r");
  ASSERT_TRUE(Readable(port->Get()));
  port.reset();
  ASSERT_TRUE(Readable(terminal.UseDescriptor()));
  EXPECT_TRUE(terminal.ClosedByProgram());

  port = OpenPort(terminal);
  ASSERT_GE(port->Get(), 0) << "exclusive use has ended";
  int exclusive = 1;
  ASSERT_EQ(ioctl(port->Get(), TIOCGEXCL, &exclusive), 0);
  EXPECT_EQ(exclusive, 0);
  int waiting = 1;
  ASSERT_EQ(ioctl(port->Get(), FIONREAD, &waiting), 0);
  EXPECT_EQ(waiting, 0) << "nobody reads what the former program left";
  ASSERT_TRUE(Readable(terminal.UseDescriptor()));
  EXPECT_FALSE(terminal.ClosedByProgram()) << "opened, not closed";
}

TEST(PseudoTerminalTest, PortStaysInUseWhileASecondProgramHasIt) {
  PseudoTerminal terminal;
  const auto first = OpenPort(terminal);
  ASSERT_TRUE(Readable(terminal.UseDescriptor()));
  EXPECT_FALSE(terminal.ClosedByProgram());
  auto second = OpenPort(terminal);
  second.reset();
  ASSERT_TRUE(Readable(terminal.UseDescriptor()));
  EXPECT_FALSE(terminal.ClosedByProgram());
}

TEST(PseudoTerminalTest, UnreadBytesAreLostInsteadOfBlocking) {
  const PseudoTerminal terminal;
  for (int i = 0; i < 100; ++i) {
    terminal.Write(std::string(4096, 'x'));
  }
}

class PortLinkTest : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::path(testing::TempDir()) /
              ("ports_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::remove_all(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path folder_;
};

TEST_F(PortLinkTest, LinkAndItsFolderAreMadeAndTheLinkRemoved) {
  {
    const PortLink link(folder_ / "COM1", "/dev/null");
    EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/null");
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(folder_ / "COM1")));
}

TEST_F(PortLinkTest, StaleLinkIsReplaced) {
  std::filesystem::create_directories(folder_);
  std::filesystem::create_symlink(folder_ / "gone", folder_ / "COM1");
  const PortLink link(folder_ / "COM1", "/dev/null");
  EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/null");
}

TEST_F(PortLinkTest, WhatIsNoLinkIsLeftAlone) {
  std::filesystem::create_directories(folder_);
  std::ofstream(folder_ / "COM1") << "kept";
  EXPECT_THROW(PortLink(folder_ / "COM1", "/dev/null"), std::runtime_error);
  EXPECT_TRUE(std::filesystem::is_regular_file(folder_ / "COM1"));
}

TEST_F(PortLinkTest, LinkThatAnotherDeviceHasTakenOverStays) {
  {
    const PortLink first(folder_ / "COM1", "/dev/null");
    std::filesystem::remove(folder_ / "COM1");
    std::filesystem::create_symlink("/dev/zero", folder_ / "COM1");
  }
  EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/zero");
}

}  // namespace
}  // namespace korva::sim
