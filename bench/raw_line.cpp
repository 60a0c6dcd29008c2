#include "raw_line.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstddef>

namespace korva::bench {

namespace {

constexpr int kReplyLimit = 3000;  // ms

}  // namespace

RawLine::RawLine(const std::string& device) : line_(open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {
  termios settings{};
  tcgetattr(line_, &settings);
  cfmakeraw(&settings);
  tcsetattr(line_, TCSANOW, &settings);
}

RawLine::~RawLine() { close(line_); }

bool RawLine::Exchange(std::string_view command) const {
  if (write(line_, command.data(), command.size()) < 0) {
    return false;
  }
  std::array<char, 256> reply{};
  char last = 0;
  while (last != '\r') {
    pollfd waiting{.fd = line_, .events = POLLIN, .revents = 0};
    poll(&waiting, 1, kReplyLimit);
    const ssize_t count = read(line_, reply.data(), reply.size());
    if (count <= 0) {
      return false;
    }
    last = reply.at(static_cast<std::size_t>(count) - 1);
  }
  return true;
}

}  // namespace korva::bench
