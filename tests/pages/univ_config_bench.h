#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "page_bench.h"
#include "pages/univ_config/univ_config.h"

namespace korva::test {

/// A simulated device whose answers a test can replace. The device itself takes every command.
class UnivLine final : public DeviceLine {
 public:
  using DeviceLine::DeviceLine;

  /// What comes in place of the device's reply to an access: "01/10" for the selection of an item, which
  /// tells its value, "01/14 D5" for a write; nothing is silence.
  std::map<std::string, std::optional<std::string>> replies;
  std::vector<std::string> writes;    ///< "01/14=5", in the order in which they came, modes apart
  std::vector<std::string> accesses;  ///< "G01", "I14", "D5"
  std::function<void(const std::string& access)> on_access;

 private:
  sim::Reply Answer(const Command& command) override {
    accesses.push_back(command.text);
    sim::Reply reply = DeviceLine::Answer(command);
    const char letter = command.text.empty() ? ' ' : command.text.front();
    if (letter == 'G') {
      group_ = command.text.substr(1);
      return reply;
    }
    if (letter == 'I') {
      item_ = group_ + "/" + command.text.substr(1);
    } else if (item_ != "01/01") {
      writes.push_back(item_ + "=" + command.text.substr(1));
    }
    const std::string access = letter == 'I' ? item_ : item_ + " " + command.text;
    if (on_access) {
      on_access(access);
    }
    if (const auto altered = replies.find(access); altered != replies.end()) {
      reply.silent = !altered->second;
      reply.text = altered->second.value_or("");
    }
    return reply;
  }

  std::string group_;
  std::string item_;
};

/// The page of family QXI with a device behind it. The model is chosen.
class UnivBench : public PageBench {
 public:
  explicit UnivBench(const String& model = u"QXI") : device(Connect(model)), line(port, device) {
    port.Connect(1, &line);
    Choose(model);
    TakeBoxes();
  }

  UnivConfig& Univ() { return dynamic_cast<UnivConfig&>(Page()); }
  ComboBox& Input() { return Page().Combo[0]; }
  ComboBox& Output() { return Page().Combo[1]; }
  void PickInput(const String& text) { Pick(Input(), text); }
  void PickOutput(const String& text) { Pick(Output(), text); }
  /// The input type of this number, as the list names it.
  String InputText(const String& number) {
    const ChoiceList types = Page().Def.ListOf(u"$I10");
    return types.Text(types.FindCode(number));
  }
  String OutputText(const String& number) {
    const ChoiceList outputs = Page().Def.ListOf(u"$I11");
    return outputs.Text(outputs.FindCode(number));
  }
  /// Puts a text into the set as a file would, and shows the set.
  void Show(int item, const String& cell) {
    Do([&] {
      Page().SetItem(item, cell);
      Page().BuildPage();
    });
  }
  /// Uploads from a device with this input, answering the question of the table with no.
  void Read(const String& input = {}) {
    if (!input.empty() && !device.Set("01", "10", ToUtf8(input))) {
      throw std::logic_error("no such input");
    }
    Page().DataChanged = false;
    Upload();
    Page().DataChanged = false;
    TakeBoxes();
    line.writes.clear();
    line.accesses.clear();
  }
  /// A set that passes the check, for this input and output.
  void Fill(const String& input, const String& output = u"mV-1:1-5 V") {
    PickInput(input);
    PickOutput(output);
    for (const auto& [item, text] :
         std::initializer_list<std::pair<const char16_t*, const char16_t*>>{{u"19", u"0"},
                                                                            {u"20", u"100"},
                                                                            {u"26", u"50"},
                                                                            {u"27", u"5"},
                                                                            {u"29", u"20"},
                                                                            {u"30", u"5"},
                                                                            {u"80", u"0"},
                                                                            {u"81", u"0"},
                                                                            {u"82", u"0"},
                                                                            {u"83", u"0"}}) {
      Type(item, text);
    }
  }
  std::string CheckResult() {
    TakeBoxes();
    Check();
    return TakeBoxes().at(0);
  }
  bool Passes() { return CheckResult() == Shown(BoxKey::CheckDone); }
  /// The boxes of a download behind its first question.
  std::vector<std::string> BoxesOfDownload(const std::vector<Answer>& answers = {}) {
    line.writes.clear();
    return DownloadAnswering(answers);
  }
  [[nodiscard]] bool Wrote(const std::string& item) const {
    return std::any_of(line.writes.begin(), line.writes.end(),
                       [&](const std::string& write) { return write.starts_with(item + "="); });
  }

  sim::Device& device;
  UnivLine line;
};

}  // namespace korva::test
