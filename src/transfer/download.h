#pragma once

#include <array>
#include <span>
#include <vector>

#include "transfer/number_fields.h"
#include "transfer/row_form.h"
#include "transfer/value_check.h"

namespace korva {

/// What a family does its own way in a download.
class DownloadSteps {
 public:
  explicit DownloadSteps(ParameterPage& page) : page_(page) {}
  DownloadSteps(const DownloadSteps&) = delete;
  DownloadSteps& operator=(const DownloadSteps&) = delete;
  virtual ~DownloadSteps() = default;

  /// Makes sure that model and device belong together. False after its box.
  virtual bool ConfirmModel();
  /// Compares what is fixed in the device with what was chosen, before the values are looked at. False after
  /// its box.
  virtual bool Collate();
  /// Brings values that go to the device on its grid, with a box for each that changes.
  virtual void RoundValues() {}
  /// Makes the device ready for the writes, from programming mode on. False after its box.
  virtual bool BeginWriting() { return page_.EnterProgrammingMode(); }
  /// The data of an entry as it goes out in the end.
  [[nodiscard]] virtual String FinalData(const WriteEntry& entry) const { return entry.data; }
  /// What the device holds before an entry is written, or empty when it gives nothing.
  [[nodiscard]] virtual String ReadBefore(const WriteEntry& entry) const;
  /// Writes one entry that can be read; the text that is to prove it, or empty when the device gave none.
  virtual String WriteChecked(const WriteEntry& entry);
  /// True when the last entry was sent: one that can't be read before is not.
  [[nodiscard]] bool Wrote() const { return wrote_; }
  /// Sends the data of one entry; the device's echo, or empty when there was none.
  virtual String WriteData(const WriteEntry& entry);
  /// What is to prove a write whose echo was `echo`; empty for nothing.
  [[nodiscard]] virtual String Proof(const WriteEntry& entry, const String& echo) const;
  /// After each write, good or bad.
  virtual void AfterWrite() {}
  [[nodiscard]] virtual bool CompareReply(const WriteEntry& entry, const String& reply) const {
    return ReplyProves(entry, reply);
  }
  /// True when CompareReply looked at what `reply`, which it has found good, says, and not only whether there
  /// is one.
  [[nodiscard]] virtual bool ComparesReply(const WriteEntry& entry, const String& /*reply*/) const {
    return ReplyIsCompared(entry);
  }
  /// Tells that an entry could not be written, or that `reply` does not prove it.
  virtual void ShowWriteFailure(const WriteEntry& entry, const String& reply);
  /// The position in the order of writing at which the progress bar has reached 90.
  [[nodiscard]] virtual int LastPosition() const { return 20; }

 protected:
  [[nodiscard]] ParameterPage& Page() const { return page_; }

 private:
  ParameterPage& page_;
  bool wrote_ = false;
};

/// cmdDownload: checks the set, writes it, and proves each write by the device's answer. The set stays as it
/// is, whatever happens; after a failure the device keeps what was written up to then.
///
/// It is one sequence, like the upload: the closing runs once, whichever step failed.
class Download {
 public:
  /// Takes the page's button. All outlive this.
  Download(ParameterPage& page, const RowForm& form, ValueCheck& check, DownloadSteps& steps);
  Download(const Download&) = delete;
  Download& operator=(const Download&) = delete;
  ~Download() = default;

  void Run();

 private:
  /// What goes out for the value of a row in the end; empty for nothing, and for a choice.
  [[nodiscard]] String DataToSend(int row) const;
  bool DownloadValues();
  bool DownloadParts();
  bool WriteAllItems();
  [[nodiscard]] WriteList BuildWriteList();
  [[nodiscard]] WriteEntry EntryOf(int row) const;
  [[nodiscard]] String CodeOf(const CodeTable& codes, const String& item, const String& text) const;
  bool WriteVerifyList(WriteList& list);
  bool WriteVerified(WriteEntry& entry);
  /// Tells what became of an entry that was written, or should have been.
  void TellWritten(const WriteEntry& entry, const String& reply, bool good) const;
  void TellUnwritten(const WriteEntry& entry, Evidence evidence) const;

  ParameterPage& page_;
  const RowForm& form_;
  ValueCheck& check_;
  DownloadSteps& steps_;
  NumberFields numbers_;
};

/// The list of the input types where there is one only.
inline constexpr std::array<StringView, 1> kInputTypeList = {u"$I10"};
/// Compares the input type of the device with the chosen one, since not every type can be set from here.
/// `lists` are those in which the device's type may stand. False after its box.
bool CollateInputType(const ParameterPage& page, std::span<const StringView> lists = kInputTypeList);
/// The same for the output type, item 11 in the list $I11. One that stands in no row of the list is a fault
/// here.
bool CollateOutputType(const ParameterPage& page);

}  // namespace korva
