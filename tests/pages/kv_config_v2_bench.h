#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "page_bench.h"
#include "pages/kv_config_v2/kv_config_v2.h"

namespace korva::test {

/// A simulated device whose answers a test can replace. The device itself takes every command.
class AlteredLine final : public DeviceLine {
 public:
  using DeviceLine::DeviceLine;

  /// What comes in place of the device's reply to a read ("10") or to a write ("10=12.5") of an item of group
  /// "01"; nothing is silence.
  std::map<std::string, std::optional<std::string>> replies;
  /// Each write that came, as "10=12.5".
  std::vector<std::string> writes;

 private:
  sim::Reply Answer(const Command& command) override;

  std::string item_;
};

/// The page of family Second with a device of the model behind it. The model is chosen.
struct V2Bench : PageBench {
  explicit V2Bench(const String& model);

  KvConfig_V2& V2() { return dynamic_cast<KvConfig_V2&>(Page()); }
  /// Puts a text into the set as a file or a device would, and shows the set.
  void Show(int item, const String& cell);
  /// The boxes of an upload or download after its questions.
  std::vector<std::string> BoxesOfUpload();
  std::vector<std::string> BoxesOfDownload();
  /// Everything that the set holds, a line for each value.
  std::vector<std::string> SetOf();
  /// No operation is under way, and none has left a trace.
  void ExpectAtRest();
  /// The device reports what the page keeps, item by item.
  void ExpectDeviceHoldsTheSet();

  sim::Device& device;
  AlteredLine line;
};

/// The definition with field `column` (from 0) of the $Data row of `item` replaced.
String WithDataField(const String& definition, const String& item, std::size_t column, const String& value);

}  // namespace korva::test
