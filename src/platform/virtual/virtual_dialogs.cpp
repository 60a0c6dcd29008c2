#include "platform/virtual/virtual_dialogs.h"

#include <stdexcept>
#include <utility>

namespace korva {

Answer VirtualDialogs::ShowBox(const Box& box) {
  if (on_box_) {
    on_box_(box);
  }
  const Answer answer = NextAnswer(box);
  boxes_.push_back({.box = box, .answer = answer});
  return answer;
}

Answer VirtualDialogs::NextAnswer(const Box& box) {
  if (box.buttons.size() == 1 || answers_.empty()) {
    return LeastAnswer(box);
  }
  const Answer answer = answers_.front();
  answers_.pop_front();
  if (!Offers(box, answer)) {
    throw std::logic_error("the queued answer is none of the box's buttons");
  }
  return answer;
}

std::optional<String> VirtualDialogs::ChooseFile(const FileDialog& dialog) {
  std::optional<String> choice;
  if (!choices_.empty()) {
    choice = std::move(choices_.front());
    choices_.pop_front();
  }
  file_dialogs_.push_back({.dialog = dialog, .choice = choice});
  return choice;
}

}  // namespace korva
