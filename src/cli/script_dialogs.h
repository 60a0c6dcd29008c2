#pragma once

#include <deque>
#include <optional>

#include "cli/transcript.h"
#include "platform/dialogs.h"

namespace korva::cli {

/// The path that a script means: one that is not a full one counts from `folder`.
String FullPath(const String& folder, const String& path);

/// A user who answers boxes and file dialogs at once, with what a script has queued for them. Each is printed
/// with its outcome.
///
/// A box with one button is answered by itself and takes nothing from the queue. A question without a queued
/// answer gets the one that changes least: cancel, else no. So does one whose queued answer is none of its
/// buttons; that answer is used up and printed as refused. A file dialog without a queued outcome is
/// cancelled.
class ScriptDialogs final : public Dialogs {
 public:
  /// `transcript` outlives the dialogs.
  explicit ScriptDialogs(Transcript& transcript) : transcript_(transcript) {}

  Answer ShowBox(const Box& box) override;
  /// A path is a FullPath from the dialog's start folder. Where a save dialog would ask
  /// whether a file may be replaced, the script has answered by giving the path.
  std::optional<String> ChooseFile(const FileDialog& dialog) override;
  void ShowFailure(const String& text) override;

  void QueueAnswer(Answer answer) { answers_.push_back(answer); }
  /// Queues a path, or nothing for a dialog that is cancelled.
  void QueueFile(std::optional<String> path) { files_.push_back(std::move(path)); }

 private:
  Answer AnswerTo(const Box& box);

  Transcript& transcript_;
  std::deque<Answer> answers_;
  std::deque<std::optional<String>> files_;
};

}  // namespace korva::cli
