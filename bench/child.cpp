#include "child.h"

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
#include <set>
#include <sstream>
#include <string_view>
#include <thread>

namespace korva::bench {

namespace {

constexpr double kKilobytesOfMegabyte = 1024;

// The environment of this process with those variables in front, where they count.
std::vector<char*> Environment(std::vector<std::string>& front) {
  std::vector<char*> variables;
  variables.reserve(front.size());
  for (std::string& variable : front) {
    variables.push_back(variable.data());
  }
  for (char** variable = environ; *variable != nullptr; ++variable) {
    variables.push_back(*variable);
  }
  variables.push_back(nullptr);
  return variables;
}

}  // namespace

Child::Child(const std::string& program, const std::string& home,
             const std::vector<std::string>& surroundings) {
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
  std::vector<std::string> variables = surroundings;
  if (posix_spawn(&process_, name.c_str(), &pipes, nullptr, arguments.data(),
                  Environment(variables).data()) != 0) {
    process_ = -1;
  }
  posix_spawn_file_actions_destroy(&pipes);
  close(input[0]);
  close(output[1]);
  input_ = input[1];
  output_ = output[0];
}

Child::~Child() {
  close(input_);
  close(output_);
  if (process_ > 0) {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
}

void Child::Say(const std::string& text) const {
  benchmark::DoNotOptimize(write(input_, text.data(), text.size()));
}

std::string Child::ReadUpTo(const std::string& text) const {
  std::string read_so_far;
  std::array<char, 512> block{};
  ssize_t count = 0;
  while (read_so_far.find(text) == std::string::npos &&
         (count = read(output_, block.data(), block.size())) > 0) {
    read_so_far.append(block.data(), static_cast<std::size_t>(count));
  }
  return read_so_far;
}

std::string Child::About(const std::string& what) const {
  std::ifstream in("/proc/" + std::to_string(process_) + "/" + what);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

bool Child::Sleeps() const {
  const std::string line = About("stat");
  const std::size_t name_end = line.rfind(") ");
  return name_end != std::string::npos && line.compare(name_end, 3, ") S") == 0;
}

double Child::Megabytes(const std::string& key) const {
  std::istringstream words(About("status"));
  std::string word;
  while (words >> word && word != key) {
  }
  double kilobytes = 0;
  words >> kilobytes;
  return kilobytes / kKilobytesOfMegabyte;
}

std::vector<std::string> Child::MappedFiles() const {
  std::istringstream maps(About("maps"));
  std::set<std::string> files;
  for (std::string line; std::getline(maps, line);) {
    if (const std::size_t path = line.find('/'); path != std::string::npos) {
      files.insert(line.substr(path));
    }
  }
  return {files.begin(), files.end()};
}

WatchedDevice::WatchedDevice() {
  close(open(terminal_.Device().c_str(), O_RDWR | O_NOCTTY));  // from now on a closed near end can be told
}

bool WatchedDevice::IsOpened() const {
  pollfd line{.fd = terminal_.FarEnd(), .events = 0, .revents = 0};
  poll(&line, 1, 0);
  return (line.revents & POLLHUP) == 0;
}

double SecondsToWindow(const Child& program, const WatchedDevice& device) {
  using namespace std::chrono_literals;
  using std::chrono::steady_clock;
  constexpr auto look = 500us;
  constexpr int asleep = 40;  // looks in a row
  const auto start = steady_clock::now();
  auto fell_asleep = start;
  int looks = 0;
  while (looks < asleep && steady_clock::now() - start < 20s) {
    std::this_thread::sleep_for(look);
    const bool sleeps = device.IsOpened() && program.Sleeps();
    looks = sleeps ? looks + 1 : 0;
    fell_asleep = looks == 1 ? steady_clock::now() : fell_asleep;
  }
  return looks < asleep ? -1 : std::chrono::duration<double>(fell_asleep - start).count();
}

}  // namespace korva::bench
