#include "platform/qt/end_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace korva {

namespace {

constexpr std::array kEndSignals = {SIGINT, SIGTERM, SIGHUP};

// A handler may do next to nothing: it writes into a pipe, from whose other end the loop learns of it.
std::array<int, 2> signal_pipe = {-1, -1};

void Note(int /*signal*/) {
  const int error = errno;
  const char byte = 0;
  [[maybe_unused]] const ssize_t told = write(signal_pipe[1], &byte, 1);  // a full pipe tells the same
  errno = error;
}

int OpenPipe() {
  if (pipe2(signal_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    throw std::system_error(errno, std::generic_category(), "can't take signals");
  }
  return signal_pipe[0];
}

}  // namespace

EndSignals::EndSignals(std::function<void()> action) : notifier_(OpenPipe(), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this, action = std::move(action)] {
    Drain();
    action();
  });
  struct sigaction handling {};
  handling.sa_handler = Note;
  handling.sa_flags = SA_RESTART;
  for (const int signal : kEndSignals) {
    sigaction(signal, &handling, &former_[signal]);
  }
}

EndSignals::~EndSignals() {
  for (const auto& [signal, handling] : former_) {
    sigaction(signal, &handling, nullptr);
  }
  notifier_.setEnabled(false);
  for (int& end : signal_pipe) {
    close(std::exchange(end, -1));
  }
}

void EndSignals::Drain() const {
  std::array<char, 64> bytes{};
  while (read(static_cast<int>(notifier_.socket()), bytes.data(), bytes.size()) > 0) {
  }
}

}  // namespace korva
