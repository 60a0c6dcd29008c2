#include "monitor/trim_buttons.h"

#include <string>

namespace korva {

namespace {

std::string NameOf(std::string_view name, std::string_view what) {
  return std::string("cmd").append(name).append(what);
}

}  // namespace

TrimButtons::TrimButtons(std::string_view name)
    : StartButton(NameOf(name, "Start")),
      M01Button(NameOf(name, "M01")),
      M001Button(NameOf(name, "M001")),
      P001Button(NameOf(name, "P001")),
      P01Button(NameOf(name, "P01")),
      ResetButton(NameOf(name, "Reset")),
      LimitsLabel(std::string("lbl").append(name).append("Limits")) {}

std::array<Control*, 7> TrimButtons::Controls() {
  return {&StartButton, &M01Button, &M001Button, &P001Button, &P01Button, &ResetButton, &LimitsLabel};
}

void TrimButtons::SetCaptions(StringView low, StringView high, Language language) {
  M01Button.SetCaption(u"-0.1");
  M001Button.SetCaption(u"-0.01");
  P001Button.SetCaption(u"+0.01");
  P01Button.SetCaption(u"+0.1");
  ResetButton.SetCaption(CaptionText(TextKey::Reset, language));
  LimitsLabel.SetCaption(String(low) + u"% <= X <= " + String(high) + u"%");
}

void TrimButtons::Offer(StepRequest& request, const TrimSteps& steps) {
  request.Offer(M01Button, steps.m01);
  request.Offer(M001Button, steps.m001);
  request.Offer(P001Button, steps.p001);
  request.Offer(P01Button, steps.p01);
  request.Offer(ResetButton, kTrimReset);
}

void TrimButtons::ShowRunning(bool running) {
  StartButton.SetCaption(CaptionText(running ? TextKey::Stop : TextKey::Start));
  for (Button* button : {&M01Button, &M001Button, &P001Button, &P01Button, &ResetButton}) {
    button->SetEnabled(running);
  }
}

}  // namespace korva
