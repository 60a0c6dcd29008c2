#pragma once

#include "monitor/output_setting.h"

namespace korva {

/// A count that can be set, by the keys of its two rows in group "01".
struct CountItem {
  StringView set_key;      ///< row of the count to send
  StringView monitor_key;  ///< row that shows the count that the device took
  std::span<const ModelRange> ranges;
  ModelSet models = {};  ///< the models whose row holds a count; empty: all that have the row
  std::string_view timer;
  /// Its own button; empty: that of the output setting, since its models have either an output there or a
  /// count.
  std::string_view button = {};
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
class CountSetting final : public PagePart, public RangeTeller {
 public:
  /// Adds itself and its button to the page. `monitor`, whose boxes are put to rest, and `output` are the
  /// page's, added before. All outlive this.
  CountSetting(ParameterPage& page, const CountItem& item, StatusMonitor& monitor, OutputSetting& output);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override { PressButton.SetEnabled(!barred); }
  void PageBuilt() override;  ///< shows its button to models with the count

  /// The limits of the count to send. It stands behind the output setting, in whose box it may be.
  [[nodiscard]] std::optional<FieldRange> RangeOfRow(int row) const override;

  /// True when the chosen model has this count.
  [[nodiscard]] bool Serves() const;
  /// The press of its button. Does nothing on a model without this count. Afterwards the box of a count that
  /// was sent is empty and has the focus.
  void Set();

  Button PressButton;  ///< named after the item
  Timer BlinkTimer;

 private:
  [[nodiscard]] bool HasOwnButton() const { return !item_.button.empty(); }
  [[nodiscard]] bool CheckCount(const String& text) const;
  bool Write(const TextField& set_box);

  ParameterPage& page_;
  const CountItem& item_;
  StatusMonitor& monitor_;
  OutputSetting& output_;
};

}  // namespace korva
