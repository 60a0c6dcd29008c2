#include "platform/native/native_file.h"

#include <unistd.h>

#include <cerrno>
#include <exception>
#include <string>

namespace korva {

Descriptor::~Descriptor() {
  if (number_ >= 0) {
    close(number_);
  }
}

std::optional<std::filesystem::path> ToPath(const String& path) {
  try {
    std::filesystem::path native(path);
    if (native.native().find('\0') == std::string::npos) {
      return native;
    }
  } catch (const std::exception&) {  // an unpaired surrogate
    return std::nullopt;
  }
  return std::nullopt;
}

int WhyNoFile(const struct stat& status) {
  if (S_ISREG(status.st_mode)) {
    return 0;
  }
  return S_ISDIR(status.st_mode) ? EISDIR : ENOTSUP;
}

int WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) {
      return errno;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count > 0 ? count : 0));
  }
  return 0;
}

}  // namespace korva
