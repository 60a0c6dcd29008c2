#pragma once

#include "platform/string.h"
#include "platform/system_reason.h"

namespace korva {

enum class Language { Japanese, English };

/// One key for each caption of the program. Where two captions read the same (the two "表示"), each control
/// has a key of its own, since they differ in the other language or may come to differ.
enum class TextKey {
  // Tabs.
  File,
  Input,
  Output,
  Output1,
  Output2,
  Linearizer,
  TcTable,
  RtdTable,
  Filter,
  Alarm,
  Cjm,
  DipSwitch,
  Modbus,
  Port,
  IoCheck,
  // Header of the page and its buttons.
  Model,
  FindModel,  ///< in the empty field above the list of models
  Author,
  Directory,
  FileName,
  Memo,
  Upload,
  Download,
  Open,
  Save,
  Check,
  New,
  Exit,
  // Linearizer and sensor tables.
  Row,
  Column,
  NewValue,
  OpenCsv,
  SaveCsv,
  Modify,
  Cancel,
  ChangeOfValue,
  OutputForced,  ///< heads the value in the banner of a forced output
  CloseAtPause,  ///< a close request ends the program at the next pause of the line
  CloseAtEnd,    ///< … when the operation has ended well
  CloseAtOff,    ///< … when the user lets the output go
  // Notices of the status area.
  TableUnsaved,        ///< a table was read from a file
  SensorTableUnsaved,  ///< … and it is a sensor's curve
  EditNotTaken,        ///< before the open cell
  NotPlain,            ///< before the items whose texts are no plain numbers
  SentAsTyped,         ///< the same of those that were sent
  NotPasted,           ///< (number of values) beyond the last row or column of a table
  NotKept,             ///< before what a saved file will not give back
  MemoLine,            ///< before the number of a line
  NoTable,             ///< the device has no linearizer stored
  TableNotRead,        ///< or it could not be read
  ChangeCjm,
  CheckTable,
  WriteIn,
  ReadOut,
  TableBar,  ///< progress with a table that travels by its buttons
  SystemReset,
  Curve,      ///< the picture of a table
  UserTable,  ///< points of a sensor's curve or of the linearizer, whichever is in use
  TablePitch,
  TableBase,
  TableSize,
  Range,
  Default,
  // Compensation and calibration.
  SensorCompensation,  ///< heads all of it
  ZeroCompensation,
  SpanCompensation,
  LineResistanceCompensation,
  ZeroPositionCalibration,
  SpanPositionCalibration,
  Execute,
  Reset,
  ResetFirst,
  ResetSecond,
  ResetCalibration,
  Transmitting,
  // I/O check.
  TransferBar,  ///< progress with the values of the set
  Setting,
  Monitor,
  CountSet,      ///< heads the set values of counters
  CountMonitor,  ///< heads their shown values
  Output1Monitor,
  Output2Monitor,
  Monitoring,
  Waiting,
  FirstAlarm,
  SecondAlarm,
  ZeroSpanAdjustment,
  FirstOutput,
  SecondOutput,
  FineZero,
  FineSpan,
  Details,      ///< the frame of the detail settings
  OpenDetails,  ///< the button that shows it
  CloseDetails,
  Threshold,      ///< of a frequency's pulses
  SetCutOut,      ///< the button that gives the input a cut-out
  DisableCutOut,  ///< the one that takes it away
  InputFrequency,
  Maximum,
  Minimum,
  OptionYes,
  OptionNo,
  AtZeroPercent,  ///< the end of a range
  AtHundredPercent,
  UpperLimit,
  LowerLimit,
  ResettingSystem,  ///< two lines, in the window shown while the device restarts
  // Why the system refused a file or a port.
  ReasonMissing,
  ReasonNotPermitted,
  ReasonFolder,
  ReasonNoSpace,
  ReasonReadOnly,
  ReasonInUse,
  ReasonTooLarge,
  // The port and the line, in the status area.
  PortNotOpen,  ///< (number, its device, why)
  PortMissing,
  PortGroup,      ///< (group whose members may use it)
  AwaitingItem,   ///< (group, item, try, tries, port's number, bits a second, seconds)
  AwaitingReply,  ///< (port's number, bits a second, seconds)
  // Stages of the work on the device's memory, in the status area.
  InputTypeUnread,  ///< of the device, before any is rewritten
  StageDate,
  StageInputType,
  StageOutputType,
  StageModelText,
  StageCalibration,
  StageCurve,       ///< (the sensor's curve file)
  StageLinearizer,  ///< writing it
  StageReadLinearizer,
  // What a stage that broke off left undone.
  InputBankUnfinished,
  OutputBankUnfinished,
  ModelTextUnfinished,  ///< (the model text as it should be)
  BlocksDone,           ///< (stage, blocks done, of blocks)
  TimeLeft,             ///< (minutes, seconds), behind BlocksDone
  // The windows beside the page.
  CopyRows,
  ClosePanel,
  // The window of the line.
  LineView,  ///< the button and the window
  LineTime,  ///< heads of the columns
  LineKind,
  LineText,
  LineSent,  ///< what a line is
  LineReceived,
  LineNotSent,
  LineSilent,
  SaveLine,
  // The comparison.
  Comparison,      ///< the window
  Compare,         ///< the button that compares with the device
  CompareFile,     ///< the button that compares with a file
  CompareUnbegun,  ///< (model, number of differences) heads of the window
  CompareBroken,
  CompareOtherModel,
  CompareSame,
  CompareDiffers,
  ComparePage,  ///< heads of the columns
  CompareInDevice,
  CompareInFile,
  CompareMark,  ///< of a field that differs
  // The report of a transfer.
  Report,          ///< the button and its window
  ReportOfUpload,  ///< (model) heads the report
  ReportOfDownload,
  ReportOfTableRead,
  ReportOfTableWrite,
  ReportRuns,  ///< behind the head: how the transfer went
  ReportDone,
  ReportBroken,
  ReportUnbegun,  ///< there was no transfer yet
  ReportItem,     ///< heads of the columns
  ReportCaption,
  ReportSent,
  ReportAnswered,
  ReportProof,
  LinkTest,  ///< what a step is that sends no item of the set
  DeviceMode,
  DeviceReset,
  UnitCode,
  DeviceMemory,
  DeviceSystem,  ///< the item by which a device tells its version
  DeviceType,    ///< what the device holds of a type before it is rewritten
  ProofRead,     ///< how a step was proved
  ProofCollated,
  ProofCompared,
  ProofReadBack,
  ProofHeld,
  ProofEchoed,
  ProofSkipped,  ///< (why)
  ProofNotReached,
  ProofSilent,
  ProofRefused,
  ProofDiffers,
  SkipNoValue,  ///< why nothing was sent
  SkipNeedless,
  SkipNotOfUse,
  SkipNoCode,
  StepSilent,   ///< (item, its name) the sentence of the status area
  StepNotRead,  ///< (item, its name, answer)
  StepRefused,  ///< (item, its name, sent, answer)
  StepDiffers,  ///< (item, its name, sent, answer)
  StepUnlike,   ///< (item, its name, what the page has, answer)
  StepMisread,  ///< (item, its name, answer)
  StepsMore,    ///< (how many) behind it
  // Undo and redo.
  Undo,  ///< the button
  Redo,
  // The report of settings.
  SettingsReport,  ///< heads the document
  SavePdf,         ///< the buttons
  Print,
  SettingsValue,  ///< heads of the columns, beside those of the report of a transfer
  SettingsUnit,
  SettingsDate,
  SettingsPage,
  PdfSaved,     ///< (path)
  PdfNotSaved,  ///< (why)
  NotDrawn,     ///< why a PDF file could not be made
  NotPrinted,
  // What the screen tells of a field.
  HelpRange,   ///< (low, high, each with the unit)
  HelpLength,  ///< (number)
  HelpFixed,
  HelpLive,
  HelpOutside,
  // The live values in large.
  Watch,  ///< the button and the window
  WatchMinimum,
  WatchMaximum,
  WatchAge,     ///< (seconds) since the value was read that is shown
  WatchSilent,  ///< (seconds)
  WatchNothing,
  WatchAnew,  ///< the buttons
  RecordStart,
  RecordStop,
  RecordRuns,    ///< (path)
  RecordFailed,  ///< (why)
  // The same in both languages.
  Com1,
  Com2,
  Com3,
  Com4,
  OutputButton,
  Off,
  On,
  Start,
  Stop,
  Ok,
  Version,
  kCount  ///< how many keys there are; no key itself
};

/// The caption. A caption without an English text has the Japanese one in both languages.
const String& CaptionText(TextKey key, Language language = Language::Japanese);

/// Why the system refused: in the program's words where it knows the case, else in the system's own.
String ReasonText(const SystemReason& reason, Language language = Language::Japanese);

/// Font of captions and lists.
inline constexpr StringView kFontName = u"ＭＳ Ｐゴシック";

/// Why the window stays open: the message of the frame that shows when it is closed during a download.
const String& CannotEndText();
/// What to enter on the cold junction tab, in two lines.
const String& ColdJunctionInfoText();
/// Where to make the table of a user's own sensor: `kind` "T" thermocouple, "R" resistance thermometer. Empty
/// for any other.
const String& TableHintText(StringView kind);

// Filters of the file dialogs, in the form "text|pattern|text|pattern|".
const String& CsvFilter();
const String& CfgFilter();
const String& DefFilter();
const String& TextFilter();
const String& PdfFilter();
/// Of the dialog that opens a configuration: definition files, configurations, all files. Shown first is
/// number 2, the configurations (kOpenCfgFilterIndex).
const String& OpenCfgFilter();
inline constexpr int kOpenCfgFilterIndex = 2;

}  // namespace korva
