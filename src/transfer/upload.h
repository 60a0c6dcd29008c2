#pragma once

#include "transfer/row_form.h"

namespace korva {

/// What became of the reading of one row.
enum class RowRead {
  Read,   ///< its cell holds the device's answer
  Empty,  ///< there was no answer: its cell is empty, and the upload goes on
  Stop,   ///< nothing further is read
};

/// What a family does its own way in an upload.
class UploadSteps {
 public:
  explicit UploadSteps(ParameterPage& page) : page_(page) {}
  UploadSteps(const UploadSteps&) = delete;
  UploadSteps& operator=(const UploadSteps&) = delete;
  virtual ~UploadSteps() = default;

  /// Makes sure that model and device belong together, and that the user wants to start. False, after its
  /// box, ends the upload with the page unchanged.
  virtual bool ConfirmModel();
  /// Reads the item of a row from the device.
  [[nodiscard]] virtual String ReadItem(int row) const;
  /// What the answer to the reading of a row means. Stop comes after its box; what was read up to there is
  /// shown, and nothing is reported as complete.
  virtual RowRead Judge(const String& answer) { return answer.empty() ? RowRead::Empty : RowRead::Read; }
  /// After an answer of the device has gone into the cell of `row`.
  virtual void AfterItemRead(int /*row*/) {}
  virtual void AfterAllRead() {}
  /// What the progress bar shows once the row, of `rows`, has been read.
  [[nodiscard]] virtual float ProgressAt(int row, int rows) const {
    return static_cast<float>(row + 1) / static_cast<float>(rows) * 100;
  }

 protected:
  [[nodiscard]] ParameterPage& Page() const { return page_; }

 private:
  ParameterPage& page_;
};

/// cmdUpload: reads every item of the model into the set and shows it. An item that doesn't answer leaves an
/// empty cell and the upload goes on, unless the family ends it there: then what was read is shown, no part
/// reads anything, and nothing is reported as complete. A part that can't be read ends it too; the items that
/// were read stay.
///
/// It is one sequence: its questions, the flags and the locked frame around it, its steps, and the closing
/// that runs once, whichever step failed. While it runs the frame is locked; the state of the tabs from
/// before is then the page's KeptTabEnabled.
class Upload {
 public:
  /// Takes the page's button. All outlive this.
  Upload(ParameterPage& page, const RowForm& form, UploadSteps& steps);
  Upload(const Upload&) = delete;
  Upload& operator=(const Upload&) = delete;
  ~Upload() = default;

  void Run();

 private:
  /// What became of the reading of the items.
  struct Values {
    bool complete = false;  ///< none of them ended it
    bool any = false;       ///< one at least went into the set
  };
  bool ReadParts();
  Values UploadValues();
  Values ReadAllItems();
  RowRead ReadRow(int row);
  [[nodiscard]] String StripReplyPrefix(int row, const String& reply) const;

  ParameterPage& page_;
  const RowForm& form_;
  UploadSteps& steps_;
};

/// True when the user has chosen a model; else false, after its box.
bool ModelChosen(const Page& page);

}  // namespace korva
