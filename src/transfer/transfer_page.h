#pragma once

#include <optional>
#include <span>

#include "files/parameter_page.h"
#include "transfer/conversion.h"
#include "transfer/value_check.h"
#include "transfer/write_list.h"

namespace korva {

/// A page that exchanges its whole parameter set with the device: upload, download with verification, and the
/// check of the values before anything is written.
///
/// Each command is one sequence: its questions, the flags and the locked frame around it, its steps, and the
/// closing that runs once, whichever step failed. Families override the steps. While a command runs the frame
/// is locked; the state of the tabs from before is then KeptTabEnabled.
class TransferPage : public ParameterPage {
 public:
  TransferPage(Program& program, const PageKind& kind, DeviceLink& link, const FieldArrays& arrays,
               int groups);

  void SetCaptions(Language language) override;

  /// cmdUpload: reads every item of the model into the set and shows it. An item that doesn't answer leaves
  /// an empty cell and the upload goes on.
  void UploadCommand();
  /// cmdDownload: checks the set, writes it, and proves each write by the device's answer. The set stays as
  /// it is, whatever happens; after a failure the device keeps what was written up to then.
  void DownloadCommand();
  /// cmdCheck: marks every bad value, and tells the result.
  void CheckCommand();

  /// The blank check, then the checks of the values; false after the box that tells what is wrong. Bad fields
  /// are marked; a field that was corrected loses its mark. For a locked frame, whose kept tab states tell
  /// whether the linearizer's table can be reached and so is to be checked.
  bool CheckAllValues();

 protected:
  // Steps of an upload.
  /// Makes sure that model and device belong together, and that the user wants to start. False, after its
  /// box, ends the upload with the page unchanged.
  virtual bool ConfirmModel();
  /// What the device puts before the value of a row of $Data; empty for a choice.
  [[nodiscard]] virtual String ReplyPrefix(int row) const;
  /// After an answer of the device has gone into the cell of `row`.
  virtual void AfterItemRead(int /*row*/) {}
  /// Reads the linearizer's table into the set, which has been emptied. `before` is the set as it was before
  /// the upload. False when the user keeps the table from there.
  virtual bool UploadTable(const ParameterSet& /*before*/) { return true; }

  // Steps of a download.
  /// Brings values that go to the device on its grid, with a box for each that changes.
  virtual void RoundValues() {}
  /// Compares the input type of the device with the chosen one, since not every type can be set from here.
  /// False after its box.
  virtual bool CheckInputType();
  /// Makes the device ready for the writes, from programming mode on. False after its box.
  virtual bool BeginWriting();
  /// True when the item of a row goes out as the code of its text, false when it goes out as a value.
  [[nodiscard]] virtual bool IsChoice(int row) const { return ReplyPrefix(row).empty(); }
  /// False when the present choices make the row of no use: it is then not written.
  [[nodiscard]] virtual bool Applies(int /*row*/) const { return true; }
  /// What goes out for the value in the cell of a row.
  [[nodiscard]] virtual String DataOf(int row, const String& cell) const;
  /// Where the codes of a choice item of group "01" stand for the chosen model; nothing when the item is
  /// none, or has nothing to choose under the present input type, and is then not written.
  [[nodiscard]] virtual std::optional<CodeTable> CodesOf(int item) const = 0;
  /// Writes one entry that can be read; the text that is to prove it, or empty when the device gave none.
  virtual String WriteChecked(const WriteEntry& entry);
  /// Sends the data of one entry; the device's echo, or empty when there was none.
  virtual String WriteData(const WriteEntry& entry);
  /// After each write, good or bad.
  virtual void AfterWrite() {}
  [[nodiscard]] virtual bool CompareReply(const WriteEntry& entry, const String& reply) const {
    return ReplyProves(entry, reply);
  }
  /// Tells that an entry could not be written, or that `reply` does not prove it.
  virtual void ShowWriteFailure(const WriteEntry& entry, const String& reply);
  /// Writes the linearizer's table, which is in use. False after its box.
  virtual bool DownloadTable() { return true; }

  // Steps of the value check. Each colours its fields, good or bad, and is false when one is bad.
  /// The items of group "01" that show live values on models that don't write them, and whose fields may be
  /// blank: "03_set", "03_mon", "04" to "08".
  [[nodiscard]] virtual std::span<const StringView> LiveItems() const;
  /// The checks that hold for every model: tag, zero and span, scale.
  virtual bool CheckFields();
  /// The checks of the chosen model.
  virtual bool CheckModel() { return true; }
  /// The linearizer's table, which is in use.
  virtual bool CheckTable() { return true; }
  /// True when that table has no value at all, and would make the device's curve a flat zero.
  [[nodiscard]] virtual bool IsTableBlank() const { return false; }

  // Checks of which families put their own together.
  /// Item 02: at most 10 characters, each of one byte up to 225 in the code page.
  bool CheckTag();
  /// Items 14 and 15 against the limits and the smallest span of the input type.
  bool CheckZeroSpan();
  /// Items 19 and 20: 20 above 19, both from -299.99 to 299.99.
  bool CheckScale();
  /// Items 14 and 15 against the limits of the range chosen in item 11, under the title of the input type.
  bool CheckRangeOfType();
  /// Fields against their ranges, rows by item. Under OpenInOrder the first bad field ends the check and a
  /// blank one counts 0; else every field whose cell isn't empty is judged.
  bool CheckRanges(std::span<const ItemRange> ranges, RangeCondition condition);
  bool CheckSensor(const SensorCheck& check);
  bool CheckByModel(const ModelCheck& check);

  /// The codes of item 11 in the column of the present input type's title; nothing under a title without one.
  [[nodiscard]] std::optional<CodeTable> RangeCodesUnderTitle() const;

  /// Cuts the times of these items (group "01") to the grid of 5 msec, with a box for each that changes.
  void Round5ms(std::span<const StringView> items);
  /// Raises the voltages of these items to the grid of 0.05 V, with a box for each that changes.
  void Round005V(std::span<const StringView> items);

  void ChangeTemperatureUnit(int place) override;
  /// Spells the input types as the device does from which the set came, so that a set of an older device is
  /// found in the list, and checked, when its file is opened again.
  void AdaptDefinition() override;

 private:
  struct Limits {
    double low = 0;
    double high = 0;
    double span = 0;
  };
  using GridRule = GridRounding (*)(const String& text);

  // Upload.
  void UploadValues();
  bool ModelChosen();
  void ReadAllItems();
  [[nodiscard]] String StripReplyPrefix(int row, const String& reply) const;
  void SpellInputTypes(const SensorTexts& texts);
  void TableStep(const ParameterSet& before);
  // Download.
  bool DownloadValues();
  void CollateSpelling();
  /// Marks each combo box whose text has no code in the model's tables, such as a range of the input type
  /// chosen before; false after the box of bad values. Nothing has been written then.
  bool CheckChoices();
  [[nodiscard]] bool HasCode(int row) const;
  bool WriteAllItems();
  void BuildWriteList(WriteList& list);
  [[nodiscard]] WriteEntry EntryOf(int row) const;
  [[nodiscard]] bool IsToBeWritten(int row) const;
  /// Where the choice of a row must stand to be written; nothing when the row sends no choice.
  [[nodiscard]] std::optional<CodeTable> CodesToSend(int row) const;
  [[nodiscard]] String CodeOf(const CodeTable& codes, const String& item, const String& text) const;
  bool WriteVerifyList(WriteList& list);
  bool WriteVerified(WriteEntry& entry);
  // Value check. Items are those of group "01".
  bool CheckBlankFields();
  [[nodiscard]] bool IsLiveField(int index) const;
  /// The box that tells what is wrong; nothing when all is well.
  std::optional<BoxKey> FindFault();
  [[nodiscard]] bool TableInUse() const;
  static String ItemText(int item);
  TextField* FieldOf(int item);
  bool Mark(int item, bool good);
  [[nodiscard]] Limits LimitsOfType(int type) const;
  static bool IsGoodWithoutRange(double zero, double span_end);
  bool CheckRange(const ItemRange& range);
  bool CheckRangesInOrder(std::span<const ItemRange> ranges);
  // Units and grids.
  [[nodiscard]] String UnitOf(int item) const;
  [[nodiscard]] const Label* UnitLabelOf(int row) const;
  bool ChangeUnitOfRow(int row, const String& unit);
  [[nodiscard]] String WithinLimits(double value, const String& item, int type, const String& unit) const;
  void RoundItems(std::span<const StringView> items, GridRule rule, BoxKey box);
};

}  // namespace korva
