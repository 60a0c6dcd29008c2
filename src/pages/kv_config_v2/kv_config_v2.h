#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "monitor/io_check.h"
#include "transfer/transfer_page.h"

namespace korva {

/// The page of family Second: pulse and frequency instruments. They have no linearizer.
///
/// The devices report a value with its unit behind it ("12.50 kHz"), and that is what a cell of the set
/// holds. The field of such a value shows the number; its unit stands beside it, in a box of frequency units
/// that the user may pick from, or in a label where it is always the same. Nothing but the user's own edit,
/// and the grid of 5 msec, changes a cell that came from the device or a file.
///
/// A download sets the device back to its maker's values first, and gives it time after each write.
class KvConfig_V2 final : public TransferPage {
 public:
  KvConfig_V2(Program& program, const Family& family, DeviceLink& link);

  /// Empties the boxes of units too: without a value they begin with Hz again.
  void ClearParameterSet() override;

  ControlArray<ComboBox> cbo_unit;
  OptionGroup optAlarm{"optAlarm", 2};

 protected:
  [[nodiscard]] std::span<const ModelTraits> TraitTable() const override { return {}; }
  [[nodiscard]] std::span<const ListRule> Lists() const override;
  [[nodiscard]] std::vector<OptionRule> Options() override;
  void ApplyModelRules(const String& /*item*/) override {}
  void AfterOption(const OptionRule& /*rule*/, int /*place*/) override {}

  // Numbers and units, kv_config_v2_units.cpp.
  [[nodiscard]] String ShownText(int row) const override;
  [[nodiscard]] String CellOf(int row, const String& text) const override;
  void ShowFurther(int row) override;
  void ShowModelControls() override { io_check_.ShowControls(); }

  // Upload and download, kv_config_v2_download.cpp.
  [[nodiscard]] String ReplyPrefix(int row) const override;
  [[nodiscard]] bool IsChoice(int row) const override;
  [[nodiscard]] std::optional<CodeTable> CodesOf(int item) const override;
  bool CheckInputType() override { return true; }  // item 10 is a frequency here
  void RoundValues() override;
  bool BeginWriting() override { return ResetAllParams(); }
  [[nodiscard]] String DataOf(int row, const String& cell) const override;
  String WriteData(const WriteEntry& entry) override;
  void AfterWrite() override;
  [[nodiscard]] bool CompareReply(const WriteEntry& entry, const String& reply) const override;
  void ShowWriteFailure(const WriteEntry& entry, const String& reply) override;

  // Value check.
  [[nodiscard]] std::span<const StringView> LiveItems() const override;
  bool CheckFields() override;

 private:
  struct FrequencyUnit {
    StringView text;  ///< as the device reports it
    StringView code;  ///< as the device takes it in its item of the unit
  };
  /// The first is the one of a value that nothing is known of.
  static constexpr std::array kFrequencyUnits = {FrequencyUnit{.text = u"Hz", .code = u"0"},
                                                 FrequencyUnit{.text = u"kHz", .code = u"1"},
                                                 FrequencyUnit{.text = u"mHz", .code = u"2"}};

  [[nodiscard]] bool HasUnit(int row) const;
  /// What stands beside the field of a row; empty for a row without a unit.
  [[nodiscard]] String UnitShown(int row) const;
  /// Unit of a value of the row: its own, or the one that is shown when it has none.
  [[nodiscard]] String UnitOfValue(int row, const String& value) const;
  /// The number with the unit that is shown; a text that is no number as it stands.
  [[nodiscard]] String WithUnitShown(int row, const String& text) const;
  void ShowUnitBox(int row);
  void UnitPicked(int index);

  /// Enters programming mode and sets every parameter to the maker's value, so that what the definition does
  /// not write is known too. False, after its box, when the device doesn't take the mode; a device that is
  /// not set back has its box, and the download goes on.
  bool ResetAllParams();
  /// Tells the device the unit of the number that follows; false when it gives no answer. Nothing is sent for
  /// a unit that the device knows no code for.
  bool WriteUnitCode(const String& unit);
  bool CheckNumbers();

  IoCheck io_check_{*this};
};

}  // namespace korva
