#pragma once

#include <initializer_list>
#include <vector>

#include "platform/dialogs.h"
#include "platform/string.h"

namespace korva {

/// One key for each message box of the program. A name in brackets is the box's arguments in their order.
enum class BoxKey {
  // Download: warnings.
  OutputTypeUnknown,         ///< the device's item 11 stands in no row of the model's list
  OutputTypeMismatch,        ///< (name) the output type chosen is not the one fixed in the device
  InputTypeMismatch,         ///< (name) the input type chosen is not the one fixed in the device
  InputTypeNotSettable,      ///< the input type chosen can't be set from here
  LinearizerDataMismatch,    ///< 100 points: the device echoed something else
  Linearizer16DataMismatch,  ///< 16 points: the device echoed something else
  NotProgrammingMode,
  NotMonitorMode,
  LinearizerDownloadFailed,
  ParametersNotReset,
  DownloadDataMismatch,
  ItemDataMismatch,      ///< (item's name, reply)
  ItemDownloadError,     ///< (group and item, last characters of the reply)
  ItemDownloadMismatch,  ///< (group and item)
  ItemWriteFailed,       ///< (group, item)
  ModelMismatch,         ///< the device is of another model
  CurveFileNotFound,     ///< (file) the curve of the chosen sensor
  // Upload: warnings.
  ModelOfFileUnknown,  ///< the file's model was not found in the list
  NoModelChosen,
  ModelUnknown,  ///< the list's text is no model of the catalogue
  // Files: warnings.
  CfgDataFormat,  ///< too many fields in a record of values
  CfgFormat,      ///< a line that is no key, or too many bytes
  CfgOpenFailed,  ///< (why it can't be read)
  FileNotFound,
  DefFormat,
  SaveFailed,       ///< (why) a configuration could not be written
  CsvFileNotFound,  ///< a table file
  CsvOpenFailed,    ///< (why it can't be read)
  CsvSaveFailed,    ///< (why) a table file could not be written
  // EEPROM: warnings.
  EepromModeNotEntered,
  EepromWriteFailed,
  InputTypeNumberInvalid,
  OutputTypeNumberInvalid,
  AdcTypeUnreadable,
  EepromDataInvalid,  ///< (item's name)
  // Tables and cold junction: warnings.
  CjmFieldBlank,
  TableFieldBlank,
  TableWriteFailed,
  TableReadFailed,
  TableReadWriteFailed,
  LinearizerSwitchedOff,
  // Value check: warnings.
  FieldBlank,
  ValueBad,
  RoundedTo5Msec,       ///< (item's name, old value, new value) in msec
  RoundedTo005V,        ///< (item's name, old value, new value) in V
  OutputOutOfRange,     ///< (low, high) in %
  CountOutOfRange,      ///< (low, high)
  ThresholdOutOfRange,  ///< (low, high) in V
  ZeroTrimOutOfRange,   ///< (low, high) in %
  SpanTrimOutOfRange,   ///< (low, high) in %
  // Link and modes: warnings.
  CommFailure,
  NotZeroTrimMode,
  NotSpanTrimMode,
  ModeNotChanged,
  // Reports.
  FileSaved,
  DownloadDone,
  UploadDone,
  CheckDone,
  CjmChanged,
  CjmSetToDefault,
  ModbusChanged,
  TableRead,
  TableWritten,
  // Questions.
  StartDownload,
  StartUpload,
  ModelMatches,
  UploadAgain,
  UploadLinearizer,
  DownloadLinearizer,
  ChangeFormerCell,
  ChangeCjm,
  SaveChanges,
  kCount  ///< how many keys there are; no key itself
};

/// What a box looks like, less its texts.
struct BoxStyle {
  BoxIcon icon = BoxIcon::Question;
  std::vector<Answer> buttons = {Answer::Yes, Answer::No};
  Answer preset = Answer::Yes;
};

/// Shows the box; true for the answers yes and OK.
bool AskYesNo(Dialogs& dialogs, const String& text, const BoxStyle& style, const String& title);

/// The message boxes of the program, with their fixed texts and titles.
class Boxes {
 public:
  explicit Boxes(Dialogs& dialogs) : dialogs_(dialogs) {}

  /// Shows the box of `key`, its places filled with `arguments` in their order, and returns the answer. The
  /// number of arguments is the one that the key names. A warning or a report is always answered OK.
  Answer Show(BoxKey key, std::initializer_list<String> arguments = {}) const;
  /// Shows the question of `key`; true for the answers yes and OK.
  [[nodiscard]] bool Ask(BoxKey key, std::initializer_list<String> arguments = {}) const;
  /// Asks whether the model matches the device, then whether to start; true when both are accepted.
  [[nodiscard]] bool ConfirmUpload() const;
  /// Tells that no device answers, and what to check.
  void ShowCommFailure() const;

 private:
  Dialogs& dialogs_;
};

/// The box of `key` as it is shown, its places filled with `arguments` in their order.
Box BoxOf(BoxKey key, std::initializer_list<String> arguments = {});

}  // namespace korva
