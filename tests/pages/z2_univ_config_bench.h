#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "pages/z2_univ_config/z2_univ_config.h"
#include "z2_kv_config_bench.h"

namespace korva::test {

/// The page of the universal transmitter with its device behind it. The model is chosen.
struct Z2UnivBench : Z2Bench {
  Z2UnivBench() : Z2Bench(u"Z2WU") {}

  z2UnivConfig& Univ() { return dynamic_cast<z2UnivConfig&>(Page()); }
  ComboBox& ClassBox() { return Page().Combo[0]; }
  ComboBox& InputBox() { return Page().Combo[1]; }
  /// Makes the device one with this input, uploads, and forgets boxes and accesses.
  void ReadInput(const std::string& input) {
    device.Set("01", "10", input);
    ReadAll();
  }
  void ReadAll() {
    BoxesOfUpload({Answer::Yes, Answer::Ok});
    Page().DataChanged = false;
    line.accesses.clear();
  }
  /// Puts `to` in place of the first `from` behind `row` in the definition, and chooses the model anew.
  void Redefine(StringView row, StringView from, const String& to) {
    String text = TextOf(DefPath(u"Z2WU"));
    std::erase(text, u'\r');
    const std::size_t at = text.find(from, text.find(row));
    if (at == String::npos) {
      throw std::logic_error("the definition has no such row");
    }
    PutText(DefPath(u"Z2WU"), text.replace(at, from.size(), to));
    Choose(u"Z2WU");
  }
  /// The items of group 01 that were written since the accesses were forgotten, with their data.
  [[nodiscard]] std::vector<std::string> Written() const {
    std::vector<std::string> written;
    for (const std::string& access : line.accesses) {
      if (access.starts_with("01/") && access.find(" D") != std::string::npos && !access.ends_with(" D") &&
          !access.starts_with("01/01")) {
        written.push_back(access.substr(3));
      }
    }
    return written;
  }
};

}  // namespace korva::test
