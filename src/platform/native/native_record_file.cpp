#include "platform/native/native_record_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <utility>

#include "platform/native/native_file.h"
#include "platform/native/native_reason.h"

namespace korva {

namespace {

class NativeRecordFile final : public RecordFile {
 public:
  explicit NativeRecordFile(Descriptor file) : file_(std::move(file)) {}

  bool Add(std::string_view bytes, SystemReason& reason) override {
    const int error = WriteAll(file_.Number(), bytes);
    if (error == 0) {
      length_ += static_cast<off_t>(bytes.size());
      return true;
    }
    reason = ReasonOf(error);
    Shorten();
    return false;
  }

  bool Keep(SystemReason& reason) override {
    const bool kept = fsync(file_.Number()) == 0;
    if (!kept) {
      reason = ReasonOf(errno);
    }
    return kept;
  }

 private:
  // Takes back what was written of a line. A disk that refuses this too keeps a piece of it.
  void Shorten() const {
    if (ftruncate(file_.Number(), length_) == 0) {
      lseek(file_.Number(), length_, SEEK_SET);
    }
  }

  Descriptor file_;
  off_t length_ = 0;
};

// The system's error number of what keeps the file from being emptied; 0 when it is empty.
int Emptied(const Descriptor& file) {
  struct stat status {};
  if (!file.Open() || fstat(file.Number(), &status) != 0) {
    return errno;
  }
  if (const int why = WhyNoFile(status)) {
    return why;
  }
  return ftruncate(file.Number(), 0) == 0 ? 0 : errno;
}

}  // namespace

std::unique_ptr<RecordFile> CreateRecordFile(const String& path, SystemReason& reason) {
  const auto native = ToPath(path);
  if (!native) {
    reason = ReasonOf(EILSEQ);
    return nullptr;
  }
  // O_NONBLOCK: opening a pipe would wait for its other end.
  Descriptor file(
      open(native->c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, kNewFileMode));
  if (const int error = Emptied(file)) {
    reason = ReasonOf(error);
    return nullptr;
  }
  return std::make_unique<NativeRecordFile>(std::move(file));
}

LocalTime LocalTimeNow() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  localtime_r(&now, &parts);
  return LocalTime(std::chrono::seconds(now + parts.tm_gmtoff));
}

}  // namespace korva
