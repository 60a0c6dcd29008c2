#include "sim/pseudo_terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

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

  /// What the making of the link says when it is refused; empty when it is not.
  std::string Refusal() const {
    try {
      const PortLink link(folder_ / "COM1", "/dev/zero");
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return {};
  }

  std::filesystem::path folder_;
};

TEST_F(PortLinkTest, LinkAndItsFolderAreMadeAndTheLinkRemoved) {
  {
    const PortLink link(folder_ / "COM1", "/dev/null");
    EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/null");
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::symlink_status(folder_ / "COM1")));
}

TEST_F(PortLinkTest, NothingStaysInTheFolder) {
  { const PortLink link(folder_ / "COM1", "/dev/null"); }
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(PortLinkTest, LinkThatAKilledSimulatorLeftIsTakenOver) {
  const pid_t killed = fork();
  if (killed == 0) {
    const PortLink link(folder_ / "COM1", "/dev/pts/99999");
    _exit(0);
  }
  waitpid(killed, nullptr, 0);
  ASSERT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/pts/99999");
  {
    const PortLink link(folder_ / "COM1", "/dev/null");
    EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/null");
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(PortLinkTest, LinkThatAUserMadeIsLeftAloneWhetherItsDeviceIsThereOrNot) {
  std::filesystem::create_directories(folder_);
  for (const char* device : {"/dev/null", "/dev/serial/by-id/unplugged", "/dev/pts/99999"}) {
    std::filesystem::create_symlink(device, folder_ / "COM1");
    const std::string refused = Refusal();
    EXPECT_NE(refused.find(std::string("COM1 -> ") + device + " was not made by korva-sim"),
              std::string::npos);
    EXPECT_NE(refused.find("remove it, or choose another name by --link"), std::string::npos);
    EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), device);
    std::filesystem::remove(folder_ / "COM1");
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
  }
}

TEST_F(PortLinkTest, LinkThatAUserMadeInPlaceOfAKilledSimulatorsIsLeftAlone) {
  const pid_t killed = fork();
  if (killed == 0) {
    const PortLink link(folder_ / "COM1", "/dev/pts/99999");
    _exit(0);
  }
  waitpid(killed, nullptr, 0);
  std::filesystem::remove(folder_ / "COM1");
  std::filesystem::create_symlink("/dev/ttyUSB0", folder_ / "COM1");
  EXPECT_NE(Refusal(), "");
  EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/ttyUSB0");
}

TEST_F(PortLinkTest, LinkOfASimulatorThatServesIsLeftAlone) {
  const PortLink first(folder_ / "COM1", "/dev/pts/99999");
  EXPECT_NE(Refusal().find("another korva-sim serves"), std::string::npos);
  EXPECT_EQ(std::filesystem::read_symlink(folder_ / "COM1"), "/dev/pts/99999");
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
