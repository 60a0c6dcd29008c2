#pragma once

#include <array>
#include <span>

#include "files/model_set.h"
#include "monitor/answer_cleaning.h"
#include "platform/event_loop.h"

namespace korva {

/// How a family's output is forced. All items are of group "01". The mode item and the dialect are the device
/// page's.
struct OutputFamily {
  StringView set_key = u"03_set";      ///< row of the value to send
  StringView monitor_key = u"03_mon";  ///< row of the value that the device took
  std::span<const ModelRange> ranges;  ///< of the output, in percent
  Cleaner clean_sent;
  Cleaner clean_answer;
  Milliseconds settling{0};    ///< between the change to programming mode and the look at its result
  bool resets_colours = true;  ///< the monitored boxes are put to rest before the mode change
  int further_box = -1;        ///< index of a Text that shows the value too
  ModelSet models_without_set_box = {};
};

/// The range of most outputs.
inline constexpr std::array kUsualOutputRange = {ModelRange{.low = u"-15.00", .high = u"115.00"}};

/// The output of most devices that report a value with its unit behind it.
inline constexpr OutputFamily kTrimmedOutput = {
    .ranges = kUsualOutputRange, .clean_sent = TrimNumericTail, .clean_answer = TrimNumericTail};

}  // namespace korva
