#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/control.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/string.h"

namespace korva::cli {

struct Statement;

// The user's actions, one type each. Controls go by their full names ("Text(3)").
struct StartProgram {};
struct ChooseModel {
  String entry;
  std::optional<int> position;  ///< from 0; when given, the entry's text does not count
};
struct ClickButton {
  std::string control;
};
struct TypeText {
  std::string control;
  String text;
};
struct PickEntry {
  std::string control;
  String entry;
};
struct ClickCell {
  std::string grid;
  int row;
  int column;
};
struct PressKey {
  std::string control;
  Key key;
};
struct ClickTab {
  int tab;  ///< from 0
};
struct QueueAnswers {
  std::vector<Answer> answers;
};
struct QueueFile {
  std::optional<String> path;  ///< nothing: the dialog is cancelled
};
struct Delay {
  Milliseconds delay;
  std::shared_ptr<const Statement> statement;  ///< what comes after the delay
};
struct Wait {
  Milliseconds duration;
};
struct PressClose {};
struct ShowControls {
  std::vector<std::string> controls;
};
struct DumpItems {};
struct DumpGrid {
  std::string grid;
};
struct TellReport {};
struct TellWatch {};
struct Compare {
  std::optional<String> file;  ///< nothing: with the device
};

struct MakePdf {
  String path;
};

using Action = std::variant<StartProgram, ChooseModel, ClickButton, TypeText, PickEntry, ClickCell, PressKey,
                            ClickTab, QueueAnswers, QueueFile, Delay, Wait, PressClose, ShowControls,
                            DumpItems, DumpGrid, TellReport, TellWatch, Compare, MakePdf>;

/// A line of a script that says what to do.
struct Statement {
  int line;       ///< its number in the script, from 1
  String source;  ///< as it was written, less blanks around it
  Action action;
};

/// True for a line that says nothing: blank, or a comment that begins with `#`.
bool SaysNothing(StringView text);

/// How deep an action that is to come later (`after`) may hold another one that is.
inline constexpr int kDeepestDelay = 16;

/// The statement that line `number` of a script holds as `text`; nothing when that is no action, or one that
/// is nested more than kDeepestDelay deep.
std::optional<Statement> ParseStatement(int number, StringView text);

}  // namespace korva::cli
