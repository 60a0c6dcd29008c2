#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/dialogs.h"
#include "platform/system_reason.h"

namespace korva {

/// Day and time of day by the user's calendar and clock, in whole seconds.
using LocalTime = std::chrono::local_seconds;

/// A file that grows while the program runs. It is closed with this.
class RecordFile {
 public:
  RecordFile() = default;
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;
  virtual ~RecordFile() = default;

  /// Adds the bytes at its end, where they stay whatever becomes of the program. False on failure, and
  /// `reason` then tells why; nothing of the bytes stands in the file then.
  virtual bool Add(std::string_view bytes, SystemReason& reason) = 0;
  /// Brings all that was added to the disk, which may take a while: a line that waited for it would hold the
  /// loop that it belongs to. False on failure, and `reason` then tells why.
  virtual bool Keep(SystemReason& reason) = 0;
};

/// A question to the user that waits for its answer while everything goes on; it is withdrawn with this.
class OpenQuestion {
 public:
  OpenQuestion() = default;
  OpenQuestion(const OpenQuestion&) = delete;
  OpenQuestion& operator=(const OpenQuestion&) = delete;
  virtual ~OpenQuestion() = default;
};

/// What a recording needs of its surroundings: it is begun beside a loop that must not wait for it.
class RecordPlace {
 public:
  /// The path of the chosen file, or nothing when the user cancelled. It enters through the gate, once.
  using Chosen = std::function<void(const std::optional<String>& path)>;

  RecordPlace() = default;
  RecordPlace(const RecordPlace&) = delete;
  RecordPlace& operator=(const RecordPlace&) = delete;
  virtual ~RecordPlace() = default;

  /// Shows the dialog and returns at once. `chosen` is never called from inside this call.
  virtual std::unique_ptr<OpenQuestion> Ask(const FileDialog& dialog, Chosen chosen) = 0;
  /// An empty file, in place of one of this name; nullptr on failure, and `reason` then tells why.
  virtual std::unique_ptr<RecordFile> Create(const String& path, SystemReason& reason) = 0;
  [[nodiscard]] virtual LocalTime Time() const = 0;
};

}  // namespace korva
