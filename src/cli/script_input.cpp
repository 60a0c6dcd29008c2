#include "cli/script_input.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

namespace korva::cli {

ScriptInput::ScriptInput(EventLoop& loop, int descriptor)
    : loop_(loop), notifier_(descriptor, QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { Read(); });
}

std::optional<std::string> ScriptInput::NextLine(const std::function<bool()>& over) {
  std::optional<std::string> line;
  loop_.Gate().Enter([&] {
    while (!over() && !(line = lines_.Next()) && !lines_.Closed()) {
      loop_.Pump();
    }
  });
  return line;
}

void ScriptInput::Read() {
  constexpr std::size_t kPiece = 65536;
  std::array<char, kPiece> bytes{};
  const ssize_t count = ::read(static_cast<int>(notifier_.socket()), bytes.data(), bytes.size());
  if (count > 0) {
    lines_.Feed(std::string_view(bytes.data(), static_cast<std::size_t>(count)));
    return;
  }
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
    return;  // the notifier calls again
  }
  if (count < 0) {
    problem_ = std::generic_category().message(errno);
  }
  notifier_.setEnabled(false);
  lines_.Close();
}

}  // namespace korva::cli
