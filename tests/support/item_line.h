#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/command_line.h"

namespace korva::test {

/// A device of the "COK" dialect whose every answer a test can set: its items hold the texts that it is told,
/// and a write is kept and echoed behind the item's prefix.
class ItemLine final : public CommandLine {
 public:
  explicit ItemLine(VirtualPort& port) : port_(port) {}

  /// Items by "group/item"; the text is what follows the "D" of a reply, prefix included.
  std::map<std::string, std::string> items;
  /// What the device puts before the value of an item when it echoes a write.
  std::map<std::string, std::string> prefixes;
  /// Choices: what the device reports for the code that was written.
  std::map<std::string, std::map<std::string, std::string>> choices;
  /// Replies in place of the good ones to a command, one after the other; nothing is silence. The last one
  /// stays.
  std::map<std::string, std::deque<std::optional<std::string>>> replies;
  /// The same for writes of an item, by "group/item". The write is not carried out.
  std::map<std::string, std::deque<std::optional<std::string>>> echoes;
  /// Writes of these items ("group/item") are echoed this much later, once.
  std::map<std::string, Milliseconds> late_once;
  /// Answers nothing from this many commands on.
  std::size_t silent_from = static_cast<std::size_t>(-1);

  /// Each write that was carried out, as "group/item=data".
  std::vector<std::string> writes;

 private:
  void Take(const Command& command) override;
  std::optional<std::string> GoodReply(const std::string& text);
  std::string Write(const std::string& data);

  VirtualPort& port_;
  std::string group_;
  std::string selected_;
};

}  // namespace korva::test
