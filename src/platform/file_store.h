#pragma once

#include <cstddef>
#include <functional>
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

  /// Called with the path of a file that has all its bytes and has not yet taken the old one's place.
  using Review = std::function<void(const String& written)>;
  /// Writes the file beside `path` and renames it into place, so that the old one stays whole when anything
  /// fails. False on failure, and `reason` then tells why.
  bool Replace(const String& path, std::string_view bytes, SystemReason& reason) {
    return Replace(path, bytes, reason, [](const String&) {});
  }
  /// The same, with a look at what was written before it is renamed.
  virtual bool Replace(const String& path, std::string_view bytes, SystemReason& reason,
                       const Review& review) = 0;

  /// The platform's folder separator.
  [[nodiscard]] virtual char16_t Separator() const = 0;
};

}  // namespace korva
