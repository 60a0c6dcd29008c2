#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/event_loop.h"
#include "platform/record_place.h"
#include "support/memory_files.h"

namespace korva::test {

/// Records that lie in memory, and a user who answers the dialog when the test has him do so. It is nine
/// o'clock on 29 February 2024 when the loop begins.
class MemoryRecords final : public RecordPlace {
 public:
  using Fault = MemoryFiles::Fault;

  /// The loop outlives this.
  explicit MemoryRecords(EventLoop& loop) : loop_(loop) {}

  std::unique_ptr<OpenQuestion> Ask(const FileDialog& dialog, Chosen chosen) override {
    asked_.push_back(dialog);
    chosen_ = std::move(chosen);
    return std::make_unique<Question>(*this);
  }
  std::unique_ptr<RecordFile> Create(const String& path, SystemReason& reason) override {
    if (create_fault_ != Fault::None) {
      reason = MemoryFiles::ReasonOf(create_fault_);
      return nullptr;
    }
    files_[path].clear();
    return std::make_unique<File>(*this, files_[path]);
  }
  [[nodiscard]] LocalTime Time() const override {
    using std::chrono::local_days;
    const Date day{std::chrono::year(2024), std::chrono::February, std::chrono::day(29)};
    return std::chrono::floor<std::chrono::seconds>(local_days(day) + std::chrono::hours(9) + loop_.Now());
  }

  /// The user chooses a file, or cancels the dialog that is open.
  void Choose(const std::optional<String>& path) {
    const Chosen chosen = std::exchange(chosen_, nullptr);
    loop_.Gate().Enter([&] { chosen(path); });
  }
  [[nodiscard]] bool Asks() const { return chosen_ != nullptr; }
  /// All dialogs so far.
  [[nodiscard]] const std::vector<FileDialog>& Asked() const { return asked_; }
  [[nodiscard]] const std::string& Bytes(const String& path) const { return files_.at(path); }
  [[nodiscard]] bool Has(const String& path) const { return files_.contains(path); }
  [[nodiscard]] int Open() const { return open_; }
  void FailCreation(Fault fault) { create_fault_ = fault; }
  void FailWrites(Fault fault) { write_fault_ = fault; }
  void FailKeeping(Fault fault) { keep_fault_ = fault; }
  /// What was brought to the disk last.
  [[nodiscard]] const std::string& Kept() const { return kept_; }

 private:
  class Question final : public OpenQuestion {
   public:
    explicit Question(MemoryRecords& records) : records_(records) {}
    Question(const Question&) = delete;
    Question& operator=(const Question&) = delete;
    ~Question() override { records_.chosen_ = nullptr; }

   private:
    MemoryRecords& records_;
  };
  class File final : public RecordFile {
   public:
    File(MemoryRecords& records, std::string& bytes) : records_(records), bytes_(bytes) { ++records_.open_; }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() override { --records_.open_; }
    bool Add(std::string_view bytes, SystemReason& reason) override {
      if (records_.write_fault_ != Fault::None) {
        reason = MemoryFiles::ReasonOf(records_.write_fault_);
        return false;
      }
      bytes_ += bytes;
      return true;
    }
    bool Keep(SystemReason& reason) override {
      records_.kept_ = bytes_;
      reason = MemoryFiles::ReasonOf(records_.keep_fault_);
      return records_.keep_fault_ == Fault::None;
    }

   private:
    MemoryRecords& records_;
    std::string& bytes_;
  };

  EventLoop& loop_;
  std::map<String, std::string> files_;
  std::vector<FileDialog> asked_;
  Chosen chosen_;
  Fault create_fault_ = Fault::None;
  Fault write_fault_ = Fault::None;
  Fault keep_fault_ = Fault::None;
  std::string kept_;
  int open_ = 0;
};

}  // namespace korva::test
