#pragma once

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/string.h"

namespace korva {

enum class BoxIcon { Plain, Warning, Question };
enum class Answer { Ok, Cancel, Yes, No };

/// A message box. `buttons` are in the order of showing; `preset` is the one that Enter presses.
struct Box {
  BoxIcon icon = BoxIcon::Plain;
  String title;
  String text;
  std::vector<Answer> buttons = {Answer::Ok};
  Answer preset = Answer::Ok;
};

inline bool Offers(const Box& box, Answer answer) {
  return std::find(box.buttons.begin(), box.buttons.end(), answer) != box.buttons.end();
}

/// The answer that changes least: the only button, else cancel, else no. It counts where a box is closed or
/// left without an answer.
inline Answer LeastAnswer(const Box& box) {
  if (box.buttons.size() == 1) {
    return box.buttons.front();
  }
  return Offers(box, Answer::Cancel) ? Answer::Cancel : Answer::No;
}

/// A file dialog. `filter` has the platform's form "text|pattern|text|pattern|", `filter_index` counts
/// from 1.
struct FileDialog {
  bool save = false;  ///< a save dialog asks before it lets an existing file be replaced
  String start_folder;
  String filter;
  int filter_index = 1;
  String name = {};  ///< of the file, as a save dialog proposes it; empty: none
};

/// The user, as far as boxes and file dialogs go.
class Dialogs {
 public:
  Dialogs() = default;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;
  virtual ~Dialogs() = default;

  /// Shows the box and waits for one of its buttons. Closing it counts as LeastAnswer.
  virtual Answer ShowBox(const Box& box) = 0;

  /// Full path of the chosen file, or nothing when the user cancelled.
  virtual std::optional<String> ChooseFile(const FileDialog& dialog) = 0;

  /// The platform's error box for a failure that ends the program. Called outside any event.
  virtual void ShowFailure(const String& text) = 0;
};

}  // namespace korva
