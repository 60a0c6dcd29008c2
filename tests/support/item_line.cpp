#include "support/item_line.h"

namespace korva::test {
namespace {

using Replies = std::deque<std::optional<std::string>>;

std::optional<std::string> Next(Replies& replies) {
  std::optional<std::string> reply = replies.front();
  if (replies.size() > 1) {
    replies.pop_front();
  }
  return reply;
}

}  // namespace

void ItemLine::Take(const Command& command) {
  if (Commands().size() > silent_from) {
    return;
  }
  const std::string& text = command.text;
  if (text.starts_with('G')) {
    group_ = text.substr(1);
  } else if (text.starts_with('I')) {
    selected_ = group_ + "/" + text.substr(1);
  }
  const auto told = replies.find(text);
  const auto echo = text.starts_with('D') ? echoes.find(selected_) : echoes.end();
  std::optional<std::string> reply;
  if (told != replies.end()) {
    reply = Next(told->second);
  } else if (echo != echoes.end()) {
    reply = Next(echo->second);
  } else {
    reply = GoodReply(text);
  }
  Milliseconds latency(10);
  if (text.starts_with('D') && late_once.contains(selected_)) {
    latency = late_once[selected_];
    late_once.erase(selected_);
  }
  if (reply) {
    port_.DeliverPaced(command.received + latency, *reply + "\r", 0);
  }
}

std::optional<std::string> ItemLine::GoodReply(const std::string& text) {
  switch (text.front()) {
    case 'G':
      return "COK";
    case 'I': {
      const auto found = items.find(selected_);
      return found == items.end() ? "CNG" : "D" + found->second;
    }
    default:
      return "D" + Write(text.substr(1));
  }
}

std::string ItemLine::Write(const std::string& data) {
  writes.push_back(selected_ + "=" + data);
  const auto choice = choices.find(selected_);
  std::string value = choice == choices.end() ? prefixes[selected_] + data : choice->second[data];
  items[selected_] = value;
  return value;
}

}  // namespace korva::test
