#include "cli/script_dialogs.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace korva::cli {

namespace {

std::string_view WordOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Warning:
      return "warning";
    case BoxIcon::Question:
      return "question";
    case BoxIcon::Plain:
      break;
  }
  return "plain";
}

}  // namespace

String FullPath(const String& folder, const String& path) {
  return (std::filesystem::path(folder) / std::filesystem::path(path)).u16string();
}

Answer ScriptDialogs::ShowBox(const Box& box) {
  const Answer answer = AnswerTo(box);
  std::string line =
      "box " + std::string(WordOf(box.icon)) + " " + Quoted(box.title) + " " + Quoted(box.text);
  char before = ' ';
  for (const Answer button : box.buttons) {
    line += before;
    line += WordOf(button);
    before = ',';
  }
  transcript_.Tell(line + " -> " + std::string(WordOf(answer)));
  return answer;
}

Answer ScriptDialogs::AnswerTo(const Box& box) {
  if (box.buttons.size() == 1 || answers_.empty()) {
    return LeastAnswer(box);
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  if (Offers(box, answer)) {
    return answer;
  }
  transcript_.Refuse("answer " + std::string(WordOf(answer)), "not offered");
  return LeastAnswer(box);
}

std::optional<String> ScriptDialogs::ChooseFile(const FileDialog& dialog) {
  std::optional<String> path;
  if (!files_.empty()) {
    path = std::move(files_.front());
    files_.pop_front();
  }
  if (path) {
    path = FullPath(dialog.start_folder, *path);
  }
  transcript_.Tell("dialog " + std::string(dialog.save ? "save " : "open ") + Quoted(dialog.start_folder) +
                   " " + Quoted(dialog.filter) + " " + std::to_string(dialog.filter_index) + " -> " +
                   (path ? Quoted(*path) : "cancel"));
  return path;
}

void ScriptDialogs::ShowFailure(const String& text) { transcript_.Tell("failure " + Quoted(text)); }

}  // namespace korva::cli
