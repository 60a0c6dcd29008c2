#include "monitor/item_command.h"

#include "monitor/answer_cleaning.h"
#include "monitor/held_exchange.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr int kRepeats = 3;
constexpr int kSettling = 100;  ///< ms from the device's answer to the change to monitor mode

}  // namespace

bool ItemCommand::Serves() const {
  return page_.FindTextIndex(u"01", item_) >= 0 && !page_.IsWritten(page_.FindDataRow(u"01", item_));
}

void ItemCommand::Run() {
  if (!Serves()) {
    return;
  }
  TextField& box = *page_.FindField(item_);
  BeginHeldExchange(page_);
  const bool released = Trigger(box);
  box.SetLook(Look::Normal);
  EndHeldExchange(page_, released);
}

bool ItemCommand::Trigger(TextField& box) {
  const Blinking blinking(box, blink_);
  if (!page_.EnterProgrammingMode()) {
    return false;
  }
  box.SetText(TrimNumericHead(page_.Items().WriteRetry(kRepeats, u"01", item_, {}), {}));
  page_.Line().WaitFor(kSettling);
  return page_.EnterMonitorMode();
}

}  // namespace korva
