#pragma once

#include "files/parameter_page.h"

namespace korva {

/// A command that acts at once: writing its item without data is the action, such as the reset of a counter.
/// The row's box shows what the device answered.
///
/// A close request made meanwhile ends the program once the device is back in monitor mode; when it isn't,
/// the window stays.
class ItemCommand {
 public:
  /// `item`: two digits, of group "01"; `blink` blinks the row's box. All outlive this.
  ItemCommand(ParameterPage& page, StringView item, Timer& blink) : page_(page), item_(item), blink_(blink) {}
  ItemCommand(const ItemCommand&) = delete;
  ItemCommand& operator=(const ItemCommand&) = delete;
  ~ItemCommand() = default;

  /// True when the chosen model has the item as a command: a row with a box, and no parameter.
  [[nodiscard]] bool Serves() const;
  /// The press of its button. Does nothing on a model without this command.
  void Run();

 private:
  bool Trigger(TextField& box);

  ParameterPage& page_;
  String item_;
  Timer& blink_;
};

}  // namespace korva
