#include "far_end.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>
#include <memory>
#include <string_view>
#include <utility>

namespace korva::bench {

namespace {

constexpr long kNanosecondsPerSecond = 1'000'000'000;

timespec Later(timespec time, long nanoseconds) {
  time.tv_nsec += nanoseconds;
  time.tv_sec += time.tv_nsec / kNanosecondsPerSecond;
  time.tv_nsec %= kNanosecondsPerSecond;
  return time;
}

// Sends byte by byte, the first one when the command's and its own time on the wire have passed.
void AnswerPaced(int line, std::size_t command_length, std::string_view answer, long character) {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  time = Later(time, character * static_cast<long>(command_length));
  for (const char byte : answer) {
    time = Later(time, character);
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &time, nullptr);
    if (write(line, &byte, 1) != 1) {
      return;
    }
  }
}

[[noreturn]] void Serve(int line, int baud, const Answers& answers) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  prctl(PR_SET_TIMERSLACK, 1);
  fcntl(line, F_SETFL, fcntl(line, F_GETFL) & ~O_NONBLOCK);
  constexpr long bits_per_character = 10;
  const long character = baud == 0 ? 0 : bits_per_character * kNanosecondsPerSecond / baud;
  std::array<char, 256> command{};
  ssize_t length = 0;
  while ((length = read(line, command.data(), command.size())) > 0) {
    const auto size = static_cast<std::size_t>(length);
    const std::string answer = answers({command.data(), size - 1});
    if (baud == 0) {
      if (write(line, answer.data(), answer.size()) < 0) {
        break;
      }
    } else {
      AnswerPaced(line, size, answer, character);
    }
  }
  _exit(0);
}

}  // namespace

std::string AnswerWithOneValue(std::string_view command) {
  return command.front() == 'G' ? FarEnd::kAccepted : FarEnd::kValue;
}

Answers AnswersOf(sim::Device device) {
  const auto kept = std::make_shared<sim::Device>(std::move(device));
  return [kept](std::string_view command) { return kept->Answer(command).text + '\r'; };
}

FarEnd::FarEnd(int baud, const Answers& answers) {
  // Held open by the device's process too, so that a program that closes the line does not end the device.
  const int near_end = open(terminal_.Device().c_str(), O_RDWR | O_NOCTTY);
  process_ = fork();
  if (process_ == 0) {
    Serve(terminal_.FarEnd(), baud, answers);
  }
  close(near_end);
}

FarEnd::~FarEnd() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

}  // namespace korva::bench
