#include "monitor/item_command.h"

#include "core/program.h"
#include "monitor/answer_cleaning.h"
#include "monitor/held_exchange.h"
#include "monitor/updated_control.h"

namespace korva {

namespace {

constexpr int kSettling = 100;  ///< ms from the device's answer to the change to monitor mode

}  // namespace

ItemCommand::ItemCommand(ParameterPage& page, const CommandItem& item)
    : PressButton(item.button),
      BlinkTimer(item.timer, page.ItsProgram().Loop(), kBlinkPeriod),
      page_(page),
      item_(item.item),
      caption_(item.caption) {
  page_.Add(*this);
  page_.Register(PressButton);
  PressButton.OnClick = [this] { Run(); };
}

void ItemCommand::SetCaptions(Language language) { PressButton.SetCaption(CaptionText(caption_, language)); }

bool ItemCommand::Serves() const {
  return page_.FindTextIndex(item_) >= 0 && !page_.IsWritten(page_.FindDataRow(item_));
}

void ItemCommand::Run() {
  if (page_.OperationRuns() || !Serves()) {
    return;
  }
  TextField& box = *page_.FindField(item_);
  BeginHeldExchange(page_);
  const bool released = Trigger(box);
  box.SetLook(Look::Normal);
  EndHeldExchange(page_, released);
}

bool ItemCommand::Trigger(TextField& box) {
  const Blinking blinking(box, BlinkTimer);
  if (!page_.EnterProgrammingMode()) {
    return false;
  }
  box.SetText(TrimNumericHead(page_.Items().WriteRetry(kItemRepeats, ItemKey(item_).OnWire(), {}), {}));
  page_.Line().WaitFor(kSettling);
  return page_.EnterMonitorMode();
}

}  // namespace korva
