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
    disk_->files[path].clear();
    return std::make_unique<File>(disk_, disk_->files[path]);
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
  [[nodiscard]] const std::string& Bytes(const String& path) const { return disk_->files.at(path); }
  [[nodiscard]] bool Has(const String& path) const { return disk_->files.contains(path); }
  [[nodiscard]] int Open() const { return disk_->open; }
  void FailCreation(Fault fault) { create_fault_ = fault; }
  void FailWrites(Fault fault) { disk_->write_fault = fault; }
  void FailKeeping(Fault fault) { disk_->keep_fault = fault; }
  /// What was brought to the disk last.
  [[nodiscard]] const std::string& Kept() const { return disk_->kept; }

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
  /// An open file keeps it: a program may end its record when this is gone.
  struct Disk {
    std::map<String, std::string> files;
    Fault write_fault = Fault::None;
    Fault keep_fault = Fault::None;
    std::string kept;
    int open = 0;
  };
  class File final : public RecordFile {
   public:
    File(std::shared_ptr<Disk> disk, std::string& bytes) : disk_(std::move(disk)), bytes_(bytes) {
      ++disk_->open;
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() override { --disk_->open; }
    bool Add(std::string_view bytes, SystemReason& reason) override {
      if (disk_->write_fault != Fault::None) {
        reason = MemoryFiles::ReasonOf(disk_->write_fault);
        return false;
      }
      bytes_ += bytes;
      return true;
    }
    bool Keep(SystemReason& reason) override {
      disk_->kept = bytes_;
      reason = MemoryFiles::ReasonOf(disk_->keep_fault);
      return disk_->keep_fault == Fault::None;
    }

   private:
    std::shared_ptr<Disk> disk_;
    std::string& bytes_;
  };

  EventLoop& loop_;
  std::shared_ptr<Disk> disk_ = std::make_shared<Disk>();
  std::vector<FileDialog> asked_;
  Chosen chosen_;
  Fault create_fault_ = Fault::None;
};

}  // namespace korva::test
