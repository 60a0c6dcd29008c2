#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/dialogs.h"

namespace korva {

/// A user who answers boxes and file dialogs from queues, at once. A box with one button answers itself and
/// takes nothing from the queue; a question without a queued answer gets the one that changes least (cancel,
/// else no); a file dialog without a queued choice is cancelled.
class VirtualDialogs final : public Dialogs {
 public:
  struct ShownBox {
    Box box;
    Answer answer = Answer::Ok;
  };
  struct ShownFileDialog {
    FileDialog dialog;
    std::optional<String> choice;
  };

  /// Throws std::logic_error when the queued answer is none of the box's buttons.
  Answer ShowBox(const Box& box) override;
  std::optional<String> ChooseFile(const FileDialog& dialog) override;
  void ShowFailure(const String& text) override { failures_.push_back(text); }

  void QueueAnswer(Answer answer) { answers_.push_back(answer); }
  /// Queues a path, or nothing for a cancelled dialog.
  void QueueFile(std::optional<String> choice) { choices_.push_back(std::move(choice)); }

  /// `hook` is called while a box stands on the screen, before it is answered.
  void OnBox(std::function<void(const Box&)> hook) { on_box_ = std::move(hook); }

  /// All boxes, file dialogs and failures so far, in order of showing.
  [[nodiscard]] const std::vector<ShownBox>& Boxes() const { return boxes_; }
  [[nodiscard]] const std::vector<ShownFileDialog>& FileDialogs() const { return file_dialogs_; }
  [[nodiscard]] const std::vector<String>& Failures() const { return failures_; }

  /// Answers and choices that are queued and were not used.
  [[nodiscard]] std::size_t Unused() const { return answers_.size() + choices_.size(); }

 private:
  Answer NextAnswer(const Box& box);

  std::deque<Answer> answers_;
  std::deque<std::optional<String>> choices_;
  std::function<void(const Box&)> on_box_;
  std::vector<ShownBox> boxes_;
  std::vector<ShownFileDialog> file_dialogs_;
  std::vector<String> failures_;
};

}  // namespace korva
