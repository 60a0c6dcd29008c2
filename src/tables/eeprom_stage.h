#pragma once

#include <optional>
#include <span>

#include "files/parameter_page.h"
#include "tables/curve_writer.h"
#include "tables/unfinished_stage.h"

namespace korva {

/// The stage of a download that rewrites what a device has no items for, in its memory: the date of the
/// download,
/// the types of input and output with the model text that tells them, and what belongs to another type – the
/// sensor's curve, or the calibration.
///
/// ReadDevice comes before the items are written, the stage behind them. The device is in the mode of memory
/// access during the stage and in monitor mode after it, but for a stage that could not begin. What was
/// written before a failure stays in the device; the status area tells what of it is undone.
class EepromStage final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this.
  explicit EepromStage(ParameterPage& page);

  /// The name of the curve's file that the chosen input type needs and that can't be read; empty when there
  /// is none such.
  [[nodiscard]] String MissingCurve() const;
  /// Reads what the stage compares with: type of the converter, input and output type. False when the
  /// download must end: the first, after its box, or the second could not be read, which the status area
  /// tells.
  bool ReadDevice();
  // Why a download ended without a box belongs to the set that it was for.
  void PageCleared() override { notice_.End(); }
  void DefinitionRead() override { unfinished_.ModelChosen(page_.DefFile); }
  void UploadBegins() override { notice_.End(); }
  /// The stage, as DownloadEepromStage.
  bool Download() override { return DownloadEepromStage(adc_before_, item10_before_); }

  /// The type of the device's converter; -1 after its box.
  int ReadAdcType();
  /// True when the device has the chosen output type. Another one sets OutputTypeChanged.
  bool CheckItem11Changed();
  /// Runs the stage; the arguments are the device's type of the converter and its item 10 before the items
  /// were written. False after its box, or boxes.
  bool DownloadEepromStage(int adc_before, const String& item10_before);
  bool WriteDownloadDate();
  bool CopyAdcBank(int type);
  bool CopyOutputBank(int type);

  /// Curves and linearizers, on the same access to the memory.
  [[nodiscard]] CurveWriter& Curves() { return curves_; }

  /// The device had another output type than the chosen one, so that its calibration does not fit.
  bool OutputTypeChanged = false;

 private:
  enum class Outcome { Good, WriteFailed, InputTypeUnknown, OutputTypeUnknown, AdcTypeUnread };
  struct Change;
  struct Step;
  static std::span<const Step> Steps();

  /// Enters the mode of memory access; false when the device doesn't take it.
  bool EnterMemory();
  void TellBlock(int address, const String& sent, bool good) const;
  Outcome RunSteps(Change& change);
  bool Finish(Outcome outcome);
  /// A step's way to tell whether it succeeded, where it can fail in one way only.
  static Outcome WrittenIf(bool written) { return written ? Outcome::Good : Outcome::WriteFailed; }

  // The steps.
  Outcome StampDate(Change& change);
  Outcome WriteInputType(Change& change);
  Outcome WriteOutputType(Change& change);
  Outcome WriteModelText(Change& change);
  Outcome FollowTypes(Change& change);

  Outcome CopyBankOfNewAdc(int adc_before);
  Outcome CopyBankOfNewOutput(const Change& change);
  Outcome WriteCurve(const Change& change, SensorKind kind);
  /// True when the device holds the curve of this number; nothing when it could not be asked.
  std::optional<bool> HoldsCurve(int type);
  /// Empty when it could not be read.
  String ReadModelText();
  [[nodiscard]] bool StoreText(int address, const String& text);
  [[nodiscard]] String ReadItem(StringView item) const;

  ParameterPage& page_;
  Eeprom eeprom_;
  StageNotice notice_;
  UnfinishedStage unfinished_;
  CurveWriter curves_;
  int adc_before_ = 0;
  String item10_before_;
  String item11_before_;
};

}  // namespace korva
