// korva-sim: serves one simulated device on a pseudo-terminal, sleeping whenever nothing is due.
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

#include "sim/device.h"
#include "sim/line.h"
#include "sim/options.h"
#include "sim/pseudo_terminal.h"

namespace korva::sim {
namespace {

constexpr int kFailed = 1;
constexpr int kBadArguments = 2;

Instant Now() { return std::chrono::steady_clock::now().time_since_epoch(); }

void PrintList(const std::filesystem::path& home) {
  std::puts("models (name, family, definition file):");
  for (const auto& model : ReadCatalogue(home)) {
    std::printf("  %-10s %-10s %s\n", model.name.c_str(), model.family_word.c_str(),
                model.definition_file.c_str());
  }
  std::puts("faults:");
  for (const auto& info : AllFaults()) {
    std::printf("  %-22.*s %.*s\n", static_cast<int>(info.name.size()), info.name.data(),
                static_cast<int>(info.what.size()), info.what.data());
  }
}

/// A text with all that is not printable ASCII as \xNN.
std::string Printable(std::string_view text) {
  std::string printable;
  for (const char byte : text) {
    if (byte >= ' ' && byte <= '~') {
      printable += byte;
    } else {
      std::array<char, 5> code{};
      std::snprintf(code.data(), code.size(), "\\x%02X",
                    static_cast<unsigned>(static_cast<unsigned char>(byte)));
      printable += code.data();
    }
  }
  return printable;
}

void PrintExchange(std::string_view line, const Reply& reply) {
  std::printf("> \"%s\"\n", Printable(line).c_str());
  std::puts(reply.silent ? "< none" : ("< \"" + Printable(reply.text) + "\"").c_str());
  std::fflush(stdout);
}

Device MakeDevice(const Options& options) {
  DeviceOptions device_options;
  device_options.latency = options.latency;
  device_options.system_text = options.system_text.value_or(device_options.system_text);
  auto device = Device::ForModel(options.home.installed, options.model, device_options);
  for (const auto& preset : options.presets) {
    if (!device.Set(preset.group, preset.item, preset.value)) {
      throw SetupError("--set " + preset.group + "/" + preset.item + "=" + preset.value + ": model " +
                       device.GetModel().name + " has no such item, or the item can't hold this value");
    }
  }
  for (const auto& fault : options.faults) {
    device.AddFault(fault);
  }
  return device;
}

/// Sleeps until bytes are due or one of the descriptors has something.
void Sleep(std::span<pollfd> descriptors, std::optional<Instant> due) {
  timespec timeout{};
  if (due) {
    const auto rest = std::max(Instant{0}, *due - Now());
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(rest);
    timeout.tv_sec = seconds.count();
    timeout.tv_nsec = (rest - seconds).count();
  }
  if (ppoll(descriptors.data(), descriptors.size(), due ? &timeout : nullptr, nullptr) < 0 &&
      errno != EINTR) {
    throw std::system_error(errno, std::generic_category(), "can't wait for the pseudo-terminal");
  }
}

void Serve(PseudoTerminal& terminal, Line& line, int end_signals) {
  // Waits end on time: a rounding of 50 microseconds would be a fifth of a character at 38400 bit/s.
  prctl(PR_SET_TIMERSLACK, 1UL);
  std::array descriptors = {pollfd{.fd = end_signals, .events = POLLIN, .revents = 0},
                            pollfd{.fd = terminal.UseDescriptor(), .events = POLLIN, .revents = 0},
                            pollfd{.fd = terminal.Descriptor(), .events = POLLIN, .revents = 0}};
  while (true) {
    Sleep(descriptors, line.NextDue());
    if (descriptors[0].revents != 0) {
      return;
    }
    if (descriptors[1].revents != 0 && terminal.ClosedByProgram()) {
      line.Reset();
    }
    if (descriptors[2].revents != 0) {
      line.Receive(terminal.Read(), Now());
    }
    for (auto due = line.NextDue(); due && *due <= Now(); due = line.NextDue()) {
      terminal.Write(line.TakeDue(*due));
    }
  }
}

void Run(const Options& options) {
  auto device = MakeDevice(options);
  Line line(device, !options.fast);
  if (options.trace) {
    line.OnExchange(PrintExchange);
  }
  // From here on the signals only wake the loop, so that the link is always removed.
  sigset_t ends;
  sigemptyset(&ends);
  sigaddset(&ends, SIGINT);
  sigaddset(&ends, SIGTERM);
  sigaddset(&ends, SIGHUP);
  sigprocmask(SIG_BLOCK, &ends, nullptr);
  const Descriptor end_signals(signalfd(-1, &ends, SFD_CLOEXEC));
  if (end_signals.Get() < 0) {
    throw std::system_error(errno, std::generic_category(), "can't wait for signals");
  }
  PseudoTerminal terminal;
  const PortLink link(options.link, terminal.Name());
  std::printf("korva-sim: %s on %s -> %s\n", device.GetModel().name.c_str(), options.link.c_str(),
              terminal.Name().c_str());
  std::fflush(stdout);
  Serve(terminal, line, end_signals.Get());
}

/// Lets a write that fails fail, instead of ending the process, and gives closed standard streams' numbers to
/// a file that takes nothing: the terminal must not get one of them, since what is printed would go to the
/// line.
void PrepareProcess() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) < 0) {
      (void)open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
}

int Main(std::span<const char* const> arguments) {
  PrepareProcess();
  try {
    const auto executable = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const auto options = ParseOptions(arguments, executable);
    if (options.help) {
      std::fputs(HelpText().data(), stdout);
    } else if (options.list) {
      PrintList(options.home.installed);
    } else {
      Run(options);
    }
    return 0;
  } catch (const SetupError& error) {
    std::fprintf(stderr, "korva-sim: %s\n", error.what());
    return kBadArguments;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "korva-sim: %s\n", error.what());
    return kFailed;
  }
}

}  // namespace
}  // namespace korva::sim

int main(int count, char** arguments) {
  return korva::sim::Main({arguments + 1, static_cast<std::size_t>(std::max(0, count - 1))});
}
