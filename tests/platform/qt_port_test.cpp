#include "platform/qt/qt_port.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "platform/qt/qt_event_loop.h"
#include "pseudo_terminal.h"

namespace korva {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// A program's folder with a fresh pseudo-terminal linked as COM 1.
struct QtPortTest : testing::Test {
  QtPortTest() {
    std::string name = (fs::temp_directory_path() / "korva-ports-XXXXXX").string();
    folder = mkdtemp(name.data());
    fs::create_directory(folder / "ports");
    fs::create_symlink(terminal.Device(), folder / "ports" / "COM1");
    port.emplace(loop.Gate(), folder);
    port->OnArrival([this] { ++arrivals; });
  }
  ~QtPortTest() override {
    port.reset();
    fs::remove_all(folder);
  }
  QtPortTest(const QtPortTest&) = delete;
  QtPortTest& operator=(const QtPortTest&) = delete;

  // Pumps for as long as `waiting`, at most two seconds.
  bool PumpWhile(const std::function<bool()>& waiting) {
    bool late = false;
    const TimerId limit = loop.StartTimer(2000ms, [&] { late = true; });
    while (waiting() && !late) {
      loop.Pump();
    }
    loop.StopTimer(limit);
    return !late;
  }

  void PumpFor(Milliseconds time) {
    bool done = false;
    const TimerId timer = loop.StartTimer(time, [&] { done = true; });
    PumpWhile([&] { return !done; });
    loop.StopTimer(timer);
  }

  static Clock ProcessorTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return std::chrono::seconds(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           std::chrono::microseconds(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
  }

  PseudoTerminal terminal;
  fs::path folder;
  QtEventLoop loop;
  std::optional<QtPort> port;
  int arrivals = 0;
};

TEST_F(QtPortTest, WhatIsWrittenIsOnTheWireWhenTheCallReturns) {
  ASSERT_TRUE(port->Open(1, {}));
  EXPECT_TRUE(port->Write("G01\r"));
  EXPECT_EQ(terminal.Receive(), "G01\r");
}

TEST_F(QtPortTest, WhatArrivesWaitsAsOneChunkUntilItIsTaken) {
  ASSERT_TRUE(port->Open(1, {}));
  EXPECT_EQ(port->Available(), 0U);
  terminal.Send("CO");
  EXPECT_TRUE(PumpWhile([&] { return port->Available() < 2; }));
  terminal.Send("K\r");
  EXPECT_TRUE(PumpWhile([&] { return port->Available() < 4; }));
  EXPECT_GE(arrivals, 1);
  EXPECT_EQ(port->Take(), "COK\r");
  EXPECT_EQ(port->Available(), 0U);
}

TEST_F(QtPortTest, AllByteValuesPassBothWays) {
  ASSERT_TRUE(port->Open(1, {.baud = 38400}));
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  terminal.Send(bytes);
  EXPECT_TRUE(PumpWhile([&] { return port->Available() < 256; }));
  EXPECT_EQ(port->Take(), bytes);
  EXPECT_TRUE(port->Write(bytes));
  EXPECT_EQ(terminal.Receive(), bytes);
}

TEST_F(QtPortTest, TheLineIsSetAsAsked) {
  ASSERT_TRUE(port->Open(1, {.baud = 9600}));
  EXPECT_EQ(port->TimedBaud(), 9600);
  termios settings{};
  ASSERT_EQ(tcgetattr(terminal.FarEnd(), &settings), 0);
  EXPECT_EQ(cfgetospeed(&settings), static_cast<speed_t>(B9600));
  EXPECT_EQ(settings.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
  port->Close();
  EXPECT_EQ(port->TimedBaud(), std::nullopt);
}

TEST_F(QtPortTest, SettingsThatNoLineHasCannotBeOpened) {
  EXPECT_FALSE(port->Open(1, {.parity = 'x'}));
  EXPECT_FALSE(port->Open(1, {.baud = 0}));
  EXPECT_FALSE(port->Open(1, {.data_bits = 0}));
  EXPECT_FALSE(port->Open(1, {.stop_bits = 0}));
  EXPECT_FALSE(port->IsOpen());
  EXPECT_TRUE(port->Open(1, {}));
}

TEST_F(QtPortTest, APortThatDoesNotExistOrIsNoLineCannotBeOpened) {
  std::ofstream(folder / "ports" / "COM2") << "a file";
  fs::create_directory(folder / "ports" / "COM3");
  fs::create_symlink("/dev/nothing-of-this-name", folder / "ports" / "COM4");
  for (const int number : {2, 3, 4}) {
    EXPECT_FALSE(port->Open(number, {})) << number;
    EXPECT_FALSE(port->IsOpen());
    EXPECT_FALSE(port->Write("G01\r"));
  }
  EXPECT_EQ(arrivals, 0);
}

TEST_F(QtPortTest, APortThatCannotBeOpenedTellsWhy) {
  using enum SystemReason::Case;
  std::ofstream(folder / "ports" / "COM2") << "a file";
  fs::create_directory(folder / "ports" / "COM3");
  fs::create_symlink("/dev/nothing-of-this-name", folder / "ports" / "COM4");
  EXPECT_FALSE(port->Open(2, {}));
  EXPECT_EQ(port->WhyNotOpen().what, Other);
  EXPECT_EQ(port->WhyNotOpen().words, u"Inappropriate ioctl for device");
  EXPECT_FALSE(port->Open(3, {}));
  EXPECT_EQ(port->WhyNotOpen().what, Folder);
  EXPECT_FALSE(port->Open(4, {}));
  EXPECT_EQ(port->WhyNotOpen().what, Missing);
}

TEST_F(QtPortTest, APortThatAnotherProgramHasIsInUse) {
  QtPort other(loop.Gate(), folder);
  ASSERT_TRUE(other.Open(1, {}));
  EXPECT_FALSE(port->Open(1, {}));
  EXPECT_EQ(port->WhyNotOpen().what, SystemReason::Case::InUse);
  other.Close();
  EXPECT_TRUE(port->Open(1, {}));
}

TEST_F(QtPortTest, APortWithoutPermissionTellsThatAndTheGroupThatHasIt) {
  if (getuid() != 0) {
    GTEST_SKIP() << "only the superuser can give a device to a group";
  }
  constexpr gid_t kDialout = 20;  // everywhere on the system that the program is built for
  ASSERT_EQ(chown(terminal.Device().c_str(), 0, kDialout), 0);
  ASSERT_EQ(chmod(terminal.Device().c_str(), 0660), 0);
  fs::permissions(folder, fs::perms(0755));
  EXPECT_EQ(port->UserGroup(1), "dialout");
  const pid_t user = fork();
  if (user == 0) {
    const bool refused = setuid(65534) == 0 && !port->Open(1, {}) &&
                         port->WhyNotOpen().what == SystemReason::Case::NotPermitted;
    _exit(refused ? 0 : 1);
  }
  int status = 0;
  waitpid(user, &status, 0);
  EXPECT_EQ(status, 0);
  ASSERT_EQ(chmod(terminal.Device().c_str(), 0640), 0);
  EXPECT_EQ(port->UserGroup(1), "") << "its members may not write";
}

TEST_F(QtPortTest, TheDeviceIsNamedAsTheUserKnowsIt) {
  fs::create_symlink("/dev/nothing-of-this-name", folder / "ports" / "COM2");
  EXPECT_EQ(port->DeviceName(1), "ports/COM1");
  EXPECT_EQ(port->DeviceName(2), "ports/COM2") << "the link stands there although its device is gone";
  EXPECT_EQ(port->DeviceName(3), "/dev/ttyS2");
}

TEST_F(QtPortTest, TheDeviceItselfMayLieInThePortsFolder) {
  fs::remove(folder / "ports" / "COM1");
  fs::create_symlink(terminal.Device(), folder / "other");
  fs::create_symlink("../other", folder / "ports" / "COM1");
  EXPECT_TRUE(port->Open(1, {})) << "a link to a link, relative to its place";
}

TEST_F(QtPortTest, OpeningAnotherPortClosesTheOpenOne) {
  const PseudoTerminal other;
  fs::create_symlink(other.Device(), folder / "ports" / "COM2");
  ASSERT_TRUE(port->Open(1, {}));
  ASSERT_TRUE(port->Open(2, {}));
  port->Write("G01\r");
  EXPECT_EQ(terminal.Receive(), "");
  EXPECT_EQ(other.Receive(), "G01\r");
  EXPECT_FALSE(port->Open(3, {.baud = 0}));
  EXPECT_FALSE(port->IsOpen());
}

TEST_F(QtPortTest, ClosingLosesWhatWasNotTakenAndWhatComesWhileClosed) {
  ASSERT_TRUE(port->Open(1, {}));
  terminal.Send("stale");
  EXPECT_TRUE(PumpWhile([&] { return port->Available() == 0; }));
  port->Close();
  port->Close();
  EXPECT_FALSE(port->IsOpen());
  EXPECT_EQ(port->Available(), 0U);
  EXPECT_FALSE(port->Write("G01\r"));

  terminal.Send("staler");
  ASSERT_TRUE(port->Open(1, {}));
  terminal.Send("fresh");
  EXPECT_TRUE(PumpWhile([&] { return port->Available() < 5; }));
  EXPECT_EQ(port->Take(), "fresh");
}

TEST_F(QtPortTest, OpeningIsNoArrival) {
  ASSERT_TRUE(port->Open(1, {}));
  PumpFor(10ms);
  EXPECT_EQ(arrivals, 0);
}

TEST_F(QtPortTest, AnArrivalThatEndsTheProgramLeavesThePump) {
  ASSERT_TRUE(port->Open(1, {}));
  port->OnArrival([] { throw ProgramEnd{}; });
  terminal.Send("x");
  EXPECT_THROW(PumpFor(2000ms), ProgramEnd);
}

TEST_F(QtPortTest, AVanishedPortRefusesWritesAndUsesNoProcessorTime) {
  ASSERT_TRUE(port->Open(1, {}));
  terminal.Vanish();
  EXPECT_TRUE(PumpWhile([&] { return arrivals == 0; })) << "the break is told";
  EXPECT_FALSE(port->IsOpen());
  EXPECT_FALSE(port->Write("G01\r"));
  const Clock before = ProcessorTime();
  PumpFor(300ms);
  EXPECT_LT(ProcessorTime() - before, 20ms);
  EXPECT_EQ(port->Available(), 0U);
  EXPECT_EQ(arrivals, 1) << "and told once";
}

TEST_F(QtPortTest, ABreakThatTheWriteNoticesRefusesTheNextOne) {
  ASSERT_TRUE(port->Open(1, {}));
  terminal.Vanish();
  port->Write("G01\r");
  const Clock before = ProcessorTime();
  PumpFor(300ms);
  EXPECT_LT(ProcessorTime() - before, 20ms);
  EXPECT_FALSE(port->IsOpen());
  EXPECT_FALSE(port->Write("G01\r"));
  EXPECT_EQ(arrivals, 1) << "the break is told once";
}

TEST_F(QtPortTest, WhatArrivedBeforeTheBreakCanStillBeTaken) {
  ASSERT_TRUE(port->Open(1, {}));
  terminal.Send("COK\r");
  EXPECT_TRUE(PumpWhile([&] { return port->Available() < 4; }));
  arrivals = 0;
  terminal.Vanish();
  EXPECT_TRUE(PumpWhile([&] { return arrivals == 0; }));
  EXPECT_EQ(port->Take(), "COK\r");
}

TEST_F(QtPortTest, AVanishedPortWorksAgainWhenItIsBackAndReopened) {
  ASSERT_TRUE(port->Open(1, {}));
  terminal.Vanish();
  EXPECT_TRUE(PumpWhile([&] { return arrivals == 0; }));
  EXPECT_FALSE(port->Open(1, {})) << "not back yet";

  const PseudoTerminal back;
  fs::remove(folder / "ports" / "COM1");
  fs::create_symlink(back.Device(), folder / "ports" / "COM1");
  ASSERT_TRUE(port->Open(1, {}));
  PumpFor(10ms);  // a closing that is still under way for the old line must not reach the new one
  EXPECT_TRUE(port->Write("G01\r"));
  EXPECT_EQ(back.Receive(), "G01\r");
  back.Send("COK\r");
  EXPECT_TRUE(PumpWhile([&] { return port->Available() < 4; }));
}

TEST_F(QtPortTest, APortMayBeReopenedAsSoonAsItsBreakIsTold) {
  const PseudoTerminal back;
  fs::create_symlink(back.Device(), folder / "ports" / "COM2");
  ASSERT_TRUE(port->Open(1, {}));
  bool reopened = false;
  port->OnArrival([&] { reopened = port->Open(2, {}); });
  terminal.Vanish();
  EXPECT_TRUE(PumpWhile([&] { return !reopened; }));
  PumpFor(10ms);
  EXPECT_TRUE(port->Write("G01\r"));
  EXPECT_EQ(back.Receive(), "G01\r");
}

TEST_F(QtPortTest, ALineThatNobodyReadsDoesNotFillTheMemory) {
  ASSERT_TRUE(port->Open(1, {}));
  const std::string block(1024, 'x');
  for (int count = 0; count < 200; ++count) {
    const int before = arrivals;
    terminal.Send(block);
    ASSERT_TRUE(PumpWhile([&] { return arrivals == before; }));
  }
  EXPECT_LE(port->Available(), 80U * 1024);
}

}  // namespace
}  // namespace korva
