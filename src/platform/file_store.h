#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/string.h"
#include "platform/system_reason.h"

namespace korva {

/// Files of the platform. Paths use its own separator.
class FileStore {
 public:
  FileStore() = default;
  FileStore(const FileStore&) = delete;
  FileStore& operator=(const FileStore&) = delete;
  virtual ~FileStore() = default;

  [[nodiscard]] virtual bool Exists(const String& path) const = 0;

  /// All bytes of the file; nothing when it can't be read or has more than `most` bytes, and `reason` then
  /// tells why.
  virtual std::optional<std::string> Read(const String& path, std::size_t most,
                                          SystemReason& reason) const = 0;

  /// Writes the file beside `path` and renames it into place, so that the old one stays whole when anything
  /// fails. False on failure, and `reason` then tells why.
  virtual bool Replace(const String& path, std::string_view bytes, SystemReason& reason) = 0;

  /// The platform's folder separator.
  [[nodiscard]] virtual char16_t Separator() const = 0;
};

}  // namespace korva
