#pragma once

#include <sys/stat.h>

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "platform/string.h"

namespace korva {

/// Mode of a new file, less the user's umask.
inline constexpr mode_t kNewFileMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;

/// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor();

  [[nodiscard]] int Number() const { return number_; }
  [[nodiscard]] bool Open() const { return number_ >= 0; }

 private:
  int number_;
};

/// Nothing for a text that is no path on this machine.
std::optional<std::filesystem::path> ToPath(const String& path);
/// Why the object can't be read or written as a file; 0 when it can.
int WhyNoFile(const struct stat& status);
/// Writes all bytes; the system's error number, 0 for success.
int WriteAll(int file, std::string_view bytes);

}  // namespace korva
