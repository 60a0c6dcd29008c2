#pragma once

#include <array>
#include <optional>

#include "core/field_range.h"
#include "files/parameter_page.h"

namespace korva {

/// What sets a family's exchange of the cold junction module apart.
struct ColdJunctionFamily {
  StringView identity_item = u"99";  ///< of group "00", read before the device's mode is changed
  /// What undoes an exchange, as sent; the check takes it though it lies outside the limits.
  std::array<StringView, 2> defaults = {u"-999.9", u"-999.9"};
  /// Both values travel as one text in item 34, a blank between them.
  bool one_item = false;
  /// The fields take the values of the set whenever the frame opens.
  bool fills_fields = false;
  /// A failed exchange has its box; one that finds no device has it in any case.
  bool tells_failure = true;
};

/// The exchange of a thermocouple input's cold junction module: writes the two numbers that come with the new
/// module into items 34 and 35 of group "01", or sets them back to their defaults. Nothing else of the device
/// changes.
///
///     Hidden --cmdChangeCJM, Yes--> Shown --cmdCancelCJM, or No to a question--> Hidden
///
/// An exchange takes the device to programming mode and back, with the frame of the page locked. Its tab is
/// closed on models without these items.
class ColdJunction final : public PagePart, public RangeTeller {
 public:
  /// Adds itself and its controls to the page. Both outlive this.
  ColdJunction(ParameterPage& page, const ColdJunctionFamily& family);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void ResetBars() override { CJM_ProgressBar.SetValue(0); }
  void PageCleared() override { fraCJM.SetVisible(false); }
  void SettleTabs(TabMoment moment) override;

  /// The limits of its two values, and their default besides.
  [[nodiscard]] std::optional<FieldRange> RangeOfRow(int row) const override;

  /// True when the chosen model has both items.
  [[nodiscard]] bool Serves() const;
  void Open();       ///< cmdChangeCJM
  void Close();      ///< cmdCancelCJM; the fields keep what stands in them
  void TryValues();  ///< cmdCJMcheck
  /// cmdWriteInCJM. What the device then holds stands in the fields.
  void WriteIn();
  /// cmdDefaultCJM
  void SetToDefault();

  Frame fraCJM{"fraCJM"};
  Label lbl_CJMmsg{"lbl_CJMmsg"};
  Label lblPrg{"lblPrg"};  ///< shown while an exchange runs
  ProgressBar CJM_ProgressBar{"CJM_ProgressBar"};
  Button cmdChangeCJM{"cmdChangeCJM"};
  Button cmdCJMcheck{"cmdCJMcheck"};
  Button cmdWriteInCJM{"cmdWriteInCJM"};
  Button cmdDefaultCJM{"cmdDefaultCJM"};
  Button cmdCancelCJM{"cmdCancelCJM"};

 private:
  /// One text for each item.
  using Texts = std::array<String, 2>;

  [[nodiscard]] TextField* FieldOf(std::size_t place) const;
  void SetLooks(Look look) const;
  [[nodiscard]] bool IsGood(std::size_t place, const String& text) const;
  /// Colours the fields, good or bad; true when both are good.
  [[nodiscard]] bool ColourFields() const;
  /// False after its box.
  bool CheckFields();
  void Begin();
  /// Tells how the exchange went.
  void Tell(bool done, BoxKey report);
  /// The closing: the program ends if the user wanted to close it meanwhile and nothing has failed.
  void End(bool good);
  bool Exchange(const Texts& texts);
  bool WriteItems(const Texts& texts);
  /// Writes an item and gives what the device then holds; nothing when it didn't take the data.
  [[nodiscard]] std::optional<String> WriteItem(StringView item, const String& data) const;
  void ShowAnswer(std::size_t place, StringView answer) const;
  [[nodiscard]] Texts FieldTexts() const;
  [[nodiscard]] Texts Defaults() const;

  ParameterPage& page_;
  const ColdJunctionFamily& family_;
};

}  // namespace korva
