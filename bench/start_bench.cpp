// From the start of a program to its first page, seen from outside.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <thread>

#include "bench_host.h"
#include "platform/pseudo_terminal.h"

namespace korva::bench {

namespace {

using Seconds = std::chrono::duration<double>;
using std::chrono::steady_clock;

constexpr int kStarts = 15;

// A program that was started, with pipes for its input and output.
class Child {
 public:
  Child(const char* program, const std::string& home) {
    std::array<int, 2> input{};
    std::array<int, 2> output{};
    if (pipe2(input.data(), O_CLOEXEC) != 0 || pipe2(output.data(), O_CLOEXEC) != 0) {
      return;
    }
    posix_spawn_file_actions_t pipes{};
    posix_spawn_file_actions_init(&pipes);
    posix_spawn_file_actions_adddup2(&pipes, input[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&pipes, output[1], STDOUT_FILENO);
    std::string name = program;
    std::string option = "--home";
    std::string folder = home;
    const std::array<char*, 4> arguments = {name.data(), option.data(), folder.data(), nullptr};
    if (posix_spawn(&process_, program, &pipes, nullptr, arguments.data(), environ) != 0) {
      process_ = -1;
    }
    posix_spawn_file_actions_destroy(&pipes);
    close(input[0]);
    close(output[1]);
    input_ = input[1];
    output_ = output[0];
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child() {
    close(input_);
    close(output_);
    if (process_ > 0) {
      kill(process_, SIGTERM);
      waitpid(process_, nullptr, 0);
    }
  }

  void Say(const std::string& text) const {
    benchmark::DoNotOptimize(write(input_, text.data(), text.size()));
  }

  // Reads until the output has `text`; false when the output ends before.
  [[nodiscard]] bool ReadsUpTo(const std::string& text) const {
    std::string read_so_far;
    std::array<char, 512> block{};
    ssize_t count = 0;
    while (read_so_far.find(text) == std::string::npos &&
           (count = read(output_, block.data(), block.size())) > 0) {
      read_so_far.append(block.data(), static_cast<std::size_t>(count));
    }
    return read_so_far.find(text) != std::string::npos;
  }

  // Whether the program is sleeping at this moment.
  [[nodiscard]] bool Sleeps() const {
    std::ifstream in("/proc/" + std::to_string(process_) + "/stat");
    std::string line;
    std::getline(in, line);
    const std::size_t name_end = line.rfind(") ");
    return name_end != std::string::npos && line.compare(name_end, 3, ") S") == 0;
  }

 private:
  pid_t process_ = -1;
  int input_ = -1;
  int output_ = -1;
};

void StartWithoutWindow(benchmark::State& state) {
  const PseudoTerminal device;
  const HomeFolder home(device.Device());
  while (state.KeepRunning()) {
    const auto start = steady_clock::now();
    const Child program(KORVA_BENCH_HOME "/korva-cli", home.Path().string());
    program.Say("start\n");
    if (!program.ReadsUpTo("page ")) {
      state.SkipWithError("no page");
    }
    state.SetIterationTime(Seconds(steady_clock::now() - start).count());
  }
}
BENCHMARK(StartWithoutWindow)
    ->Iterations(1)
    ->Repetitions(kStarts)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// True while a program holds the near end open.
bool IsOpened(const PseudoTerminal& terminal) {
  pollfd line{.fd = terminal.FarEnd(), .events = 0, .revents = 0};
  poll(&line, 1, 0);
  return (line.revents & POLLHUP) == 0;
}

// The window stands when the program, its port opened by the page, goes to sleep and stays asleep.
void StartWithWindow(benchmark::State& state) {
  using namespace std::chrono_literals;
  constexpr auto look = 500us;
  constexpr int asleep = 40;  // looks in a row
  while (state.KeepRunning()) {
    const PseudoTerminal device;
    close(open(device.Device().c_str(), O_RDWR | O_NOCTTY));  // from now on a closed near end can be told
    const HomeFolder home(device.Device());
    const auto start = steady_clock::now();
    const Child program(KORVA_BENCH_HOME "/korva", home.Path().string());
    auto fell_asleep = start;
    int looks = 0;
    while (looks < asleep && steady_clock::now() - start < 20s) {
      std::this_thread::sleep_for(look);
      const bool sleeps = IsOpened(device) && program.Sleeps();
      looks = sleeps ? looks + 1 : 0;
      fell_asleep = looks == 1 ? steady_clock::now() : fell_asleep;
    }
    if (looks < asleep) {
      state.SkipWithError("no page");
    }
    state.SetIterationTime(Seconds(fell_asleep - start).count());
  }
}
BENCHMARK(StartWithWindow)
    ->Iterations(1)
    ->Repetitions(kStarts)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace korva::bench
