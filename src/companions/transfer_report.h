#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "link/transfer_observer.h"

namespace korva {

/// One line of a report.
struct ReportRow {
  String item{};      ///< "01/14"; of a value in a table or the memory with its key behind it
  String caption{};   ///< what the definition calls it
  String sent{};      ///< empty: nothing, or it was only read; see only_due
  String answered{};  ///< as it came; empty: nothing
  Evidence evidence = Evidence::Read;
  Skip skip = Skip::None;
  bool only_due = false;  ///< `sent` was not sent: the device was to hold it, or it was still to go out

  bool operator==(const ReportRow&) const = default;
};

/// What the last transfer of the program sent, what the device answered and what that proves. A new transfer
/// clears it.
///
///     Unbegun, Done, Broken --Begin--> Running --End--> Done or Broken
class TransferReport {
 public:
  enum class State { Unbegun, Running, Done, Broken };

  void Begin(Transfer transfer, const String& model);
  void Add(ReportRow row);
  void End(bool good);

  [[nodiscard]] State Now() const { return state_; }
  [[nodiscard]] Transfer Kind() const { return transfer_; }
  [[nodiscard]] const String& Model() const { return model_; }
  [[nodiscard]] const std::vector<ReportRow>& Rows() const { return rows_; }
  /// How many reports there were before this one.
  [[nodiscard]] unsigned Number() const { return number_; }
  /// The item that went wrong, in one sentence, and how many more did; empty when none did.
  [[nodiscard]] String FaultSentence(Language language = Language::Japanese) const;

  /// `action` is called after each change.
  void Observe(std::function<void()> action) { observers_.push_back(std::move(action)); }

 private:
  void Changed() const;

  State state_ = State::Unbegun;
  Transfer transfer_ = Transfer::Upload;
  String model_;
  unsigned number_ = 0;
  std::vector<ReportRow> rows_;
  std::vector<std::function<void()>> observers_;
};

/// What a row's step proves, in words.
String EvidenceText(const ReportRow& row, Language language = Language::Japanese);

}  // namespace korva
