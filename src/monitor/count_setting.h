#pragma once

#include "monitor/model_set.h"
#include "monitor/status_monitor.h"

namespace korva {

/// A count that can be set, by the keys of its two rows in group "01".
struct CountItem {
  StringView set_key;      ///< row of the count to send
  StringView monitor_key;  ///< row that shows the count that the device took
  std::span<const ModelRange> ranges;
  ModelSet models = {};  ///< the models whose row holds a count; empty: all that have the row
};

// The counts of items 03, 04 and 06. On models that are not named, item 03 is an output.
extern const CountItem kCount03;
extern const CountItem kCount04;
extern const CountItem kCount06;

/// Sets a count of the device: programming mode, the write, and monitor mode again. Unlike a forced output
/// nothing is held: the page is free afterwards.
///
/// A text that is no whole number within the range is refused with its box, and nothing is sent. A device
/// that doesn't take programming mode leaves the typed count in its box. A close request made meanwhile ends
/// the program once the device is back in monitor mode; when it isn't, the window stays.
class CountSetting {
 public:
  /// `monitor` is the page's, whose boxes are put to rest; `blink` blinks the box of the count taken. All
  /// outlive this.
  CountSetting(ParameterPage& page, const CountItem& item, StatusMonitor& monitor, Timer& blink)
      : page_(page), item_(item), monitor_(monitor), blink_(blink) {}
  CountSetting(const CountSetting&) = delete;
  CountSetting& operator=(const CountSetting&) = delete;
  ~CountSetting() = default;

  /// True when the chosen model has this count.
  [[nodiscard]] bool Serves() const;
  /// Key of the row of the count to send.
  [[nodiscard]] StringView SetKey() const { return item_.set_key; }
  /// The press of its button. Does nothing on a model without this count. Afterwards the box of a count that
  /// was sent is empty and has the focus.
  void Set();

 private:
  [[nodiscard]] bool CheckCount(const String& text) const;
  bool Write(const TextField& set_box);

  ParameterPage& page_;
  const CountItem& item_;
  StatusMonitor& monitor_;
  Timer& blink_;
};

}  // namespace korva
