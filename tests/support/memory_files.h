#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_store.h"

namespace korva::test {

/// Files that lie in memory, with failures that a test switches on by name.
class MemoryFiles final : public FileStore {
 public:
  enum class Fault { None, DiskFull, FolderGone, NotPermitted, IsFolder, BadDisk };

  [[nodiscard]] bool Exists(const String& path) const override { return files_.contains(path); }

  std::optional<std::string> Read(const String& path, std::size_t most, SystemReason& reason) const override {
    const auto found = files_.find(path);
    if (found == files_.end()) {
      reason = ReasonOf(Fault::FolderGone);
      return std::nullopt;
    }
    if (read_fault_ != Fault::None) {
      reason = ReasonOf(read_fault_);
      return std::nullopt;
    }
    if (found->second.size() > most) {
      reason = {.what = SystemReason::Case::TooLarge, .words = u"File too large"};
      return std::nullopt;
    }
    return found->second;
  }

  using FileStore::Replace;
  bool Replace(const String& path, std::string_view bytes, SystemReason& reason,
               const Review& review) override {
    ++replacements_;
    if (write_fault_ != Fault::None) {
      reason = ReasonOf(write_fault_);
      return false;
    }
    const String written = path + u".written";
    files_[written] = bytes;
    review(written);
    files_[path] = bytes;
    files_.erase(written);
    return true;
  }

  [[nodiscard]] char16_t Separator() const override { return separator_; }

  /// Lays a file down, whatever fault is switched on.
  void Put(const String& path, std::string_view bytes) { files_[path] = bytes; }
  void Remove(const String& path) { files_.erase(path); }
  /// The file's bytes; nothing when there is none.
  [[nodiscard]] std::optional<std::string> Bytes(const String& path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? std::nullopt : std::optional(found->second);
  }
  [[nodiscard]] const std::map<String, std::string>& All() const { return files_; }

  void FailReads(Fault fault) { read_fault_ = fault; }
  void FailWrites(Fault fault) { write_fault_ = fault; }
  /// What Read and Replace give as the system's reason for a fault.
  [[nodiscard]] static SystemReason ReasonOf(Fault fault) {
    switch (fault) {
      case Fault::DiskFull:
        return {.what = SystemReason::Case::NoSpace, .words = u"No space left on device"};
      case Fault::FolderGone:
        return {.what = SystemReason::Case::Missing, .words = u"No such file or directory"};
      case Fault::NotPermitted:
        return {.what = SystemReason::Case::NotPermitted, .words = u"Permission denied"};
      case Fault::IsFolder:
        return {.what = SystemReason::Case::Folder, .words = u"Is a directory"};
      case Fault::BadDisk:
        return {.words = u"Input/output error"};
      case Fault::None:
        break;
    }
    return {};
  }
  /// How often Replace was called, failures included.
  [[nodiscard]] int Replacements() const { return replacements_; }
  void SetSeparator(char16_t separator) { separator_ = separator; }

 private:
  std::map<String, std::string> files_;
  Fault read_fault_ = Fault::None;
  Fault write_fault_ = Fault::None;
  int replacements_ = 0;
  char16_t separator_ = u'/';
};

}  // namespace korva::test
