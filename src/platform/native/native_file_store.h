#pragma once

#include "platform/file_store.h"

namespace korva {

/// The machine's own files. Symbolic links are followed: a link that is replaced stays a link, and its target
/// gets the new bytes.
class NativeFileStore final : public FileStore {
 public:
  [[nodiscard]] bool Exists(const String& path) const override;

  /// As FileStore says. What is no regular file (a folder, a pipe, a device) can't be read, so that a read
  /// never waits for anything.
  std::optional<std::string> Read(const String& path, std::size_t most, SystemReason& reason) const override;

  /// As FileStore says; an existing file keeps its permissions, and one that may not be written is not
  /// replaced. The bytes are on the disk before the name changes. What a save that was killed left in the
  /// folder
  /// (".korva-<process>-<number>.tmp") is removed.
  using FileStore::Replace;
  bool Replace(const String& path, std::string_view bytes, SystemReason& reason,
               const Review& review) override;

  [[nodiscard]] char16_t Separator() const override;
};

}  // namespace korva
