#pragma once

#include "pages/kv_config_v2/units.h"
#include "transfer/download.h"
#include "transfer/number_check.h"
#include "transfer/upload.h"

namespace korva {

// What the page of family Second does its own way in upload, check and download. The page and its units
// outlive all of it.

/// In the column of prefixes "O" and "N" mark a choice, anything else is the prefix of a value.
class KvConfigV2Form final : public RowForm {
 public:
  KvConfigV2Form(const ParameterPage& page, const KvConfigV2Units& units) : RowForm(page), units_(units) {}
  [[nodiscard]] String ReplyPrefix(int row) const override;
  [[nodiscard]] bool IsChoice(int row) const override;
  [[nodiscard]] String DataOf(int row, const String& cell) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;

 private:
  const KvConfigV2Units& units_;
};

/// A download sets the device back to its maker's values first, and gives it time after each write.
class KvConfigV2Download final : public DownloadSteps {
 public:
  KvConfigV2Download(ParameterPage& page, const RowForm& form, const KvConfigV2Units& units)
      : DownloadSteps(page), form_(form), units_(units) {}
  bool Collate() override { return true; }  // item 10 is a frequency here
  void RoundValues() override;
  bool BeginWriting() override { return ResetAllParams(); }
  String WriteData(const WriteEntry& entry) override;
  void AfterWrite() override;
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
  void ShowWriteFailure(const WriteEntry& entry, const String& reply) override;

 private:
  /// Enters programming mode and sets every parameter to the maker's value, so that what the definition does
  /// not write is known too. False, after its box, when the device doesn't take the mode; a device that is
  /// not set back has its box, and the download goes on.
  bool ResetAllParams();
  /// Tells the device the unit of the number that follows; false when it gives no answer. Nothing is sent for
  /// a unit that the device knows no code for.
  bool WriteUnitCode(const String& unit);

  const RowForm& form_;
  const KvConfigV2Units& units_;
};

}  // namespace korva
