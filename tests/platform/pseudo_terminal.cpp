#include "pseudo_terminal.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace korva {

PseudoTerminal::PseudoTerminal() : far_end_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  std::array<char, 128> name{};
  if (grantpt(far_end_) != 0 || unlockpt(far_end_) != 0 ||
      ptsname_r(far_end_, name.data(), name.size()) != 0) {
    throw std::runtime_error("no pseudo-terminal to be had");
  }
  device_ = name.data();
  termios settings{};
  tcgetattr(far_end_, &settings);
  cfmakeraw(&settings);
  tcsetattr(far_end_, TCSANOW, &settings);
}

void PseudoTerminal::Send(std::string_view bytes) const {
  if (write(far_end_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
    throw std::runtime_error("the pseudo-terminal does not take the bytes");
  }
}

std::string PseudoTerminal::Receive() const {
  std::array<char, 4096> bytes{};
  const ssize_t count = read(far_end_, bytes.data(), bytes.size());
  return {bytes.data(), static_cast<std::size_t>(count > 0 ? count : 0)};
}

void PseudoTerminal::Vanish() {
  if (far_end_ >= 0) {
    close(std::exchange(far_end_, -1));
  }
}

}  // namespace korva
