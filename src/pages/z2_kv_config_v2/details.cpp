#include "pages/z2_kv_config_v2/details.h"

namespace korva {

DetailFrame::DetailFrame(Page& page) : page_(page) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&fraDetailInfo, &cmdDetailInfo, &cmdCloseInfo});
  cmdDetailInfo.OnClick = [this] { Show(true); };
  cmdCloseInfo.OnClick = [this] { Show(false); };
  Show(false);
}

void DetailFrame::SetCaptions(Language language) {
  fraDetailInfo.SetCaption(CaptionText(TextKey::Details, language));
  cmdDetailInfo.SetCaption(CaptionText(TextKey::OpenDetails, language));
  cmdCloseInfo.SetCaption(CaptionText(TextKey::CloseDetails, language));
}

void DetailFrame::WatchContents() {
  for (Control* control : page_.Controls()) {
    if (control->Container() != &fraDetailInfo) {
      continue;
    }
    control->ObserveFocus([this] { Show(true); });
    control->Observe([this, control] {
      if (control->IsBad()) {
        Show(true);
      }
    });
  }
}

void DetailFrame::Show(bool open) {
  fraDetailInfo.SetVisible(open);
  cmdDetailInfo.SetEnabled(!open);
}

}  // namespace korva
