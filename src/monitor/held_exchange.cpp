#include "monitor/held_exchange.h"

#include "core/program.h"

namespace korva {

void BeginHeldExchange(Page& page) {
  page.BeginOperation();
  page.LockFrame();
  page.Shared().DownloadBusy = true;
  page.HoldClose(TextKey::CloseAtEnd);
}

void EndHeldExchange(Page& page, bool released) {
  page.EndOperation();
  page.flaMsg_CannotEnd.SetVisible(false);
  if (released && page.Shared().QuitRequested) {
    Program::End();
  }
  page.UnlockFrame();
}

}  // namespace korva
