#pragma once

#include "companions/line_panel.h"
#include "core/page.h"

namespace korva {

/// The page's way to the window of the line.
class LineButton final : public PagePart {
 public:
  /// All outlive this, but for the page, which keeps it.
  LineButton(Page& page, LinePanel& panel) : panel_(panel) {
    page.PutIntoStatus(cmdLine);
    cmdLine.OnClick = [this] { panel_.Open(); };
  }

  void SetCaptions(Language language) override {
    cmdLine.SetCaption(CaptionText(TextKey::LineView, language));
    panel_.SetLanguage(language);
  }
  void SetExchangesBarred(bool barred) override { panel_.SetLocked(barred); }

  Button cmdLine{"cmdLine"};

 private:
  LinePanel& panel_;
};

}  // namespace korva
