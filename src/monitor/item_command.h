#pragma once

#include "files/parameter_page.h"

namespace korva {

/// An item that is a command.
struct CommandItem {
  StringView item;  ///< two digits, of group "01"
  std::string_view button;
  TextKey caption;
  std::string_view timer;  ///< blinks the row's box
};

/// A command that acts at once: writing its item without data is the action, such as the reset of a counter.
/// The row's box shows what the device answered.
///
/// A close request made meanwhile ends the program once the device is back in monitor mode; when it isn't,
/// the window stays.
class ItemCommand final : public PagePart {
 public:
  /// Adds itself and its button to the page, which outlives this.
  ItemCommand(ParameterPage& page, const CommandItem& item);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override { PressButton.SetEnabled(!barred); }
  void PageBuilt() override { PressButton.SetVisible(Serves()); }

  /// True when the chosen model has the item as a command: a row with a box, and no parameter.
  [[nodiscard]] bool Serves() const;
  /// The press of its button. Does nothing on a model without this command.
  void Run();

  Button PressButton;  ///< named after the item
  Timer BlinkTimer;

 private:
  bool Trigger(TextField& box);

  ParameterPage& page_;
  String item_;
  TextKey caption_;
};

}  // namespace korva
