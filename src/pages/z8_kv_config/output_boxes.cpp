#include "pages/z8_kv_config/output_boxes.h"

namespace korva {

OutputBoxes::OutputBoxes(ParameterPage& page) : page_(page) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&IO_lblShowOut1, &IO_lblShowOut2, &fraZeroSpan, &IO_lblOut1, &IO_lblOut2});
}

void OutputBoxes::SetCaptions(Language language) {
  IO_lblShowOut1.SetCaption(CaptionText(TextKey::Output1Monitor, language));
  IO_lblShowOut2.SetCaption(CaptionText(TextKey::Output2Monitor, language));
  fraZeroSpan.SetCaption(CaptionText(TextKey::ZeroSpanAdjustment, language));
  IO_lblOut1.SetCaption(CaptionText(TextKey::FirstOutput, language));
  IO_lblOut2.SetCaption(CaptionText(TextKey::SecondOutput, language));
}

void OutputBoxes::PageBuilt() {
  TextField& box = page_.Text[kSecondBox];
  box.SetVisible(true);
  box.SetLocked(true);
  box.SetNumeric(true);
  box.SetLook(Look::Grey);
  box.SetText({});
  const int first = page_.FindDataRow(u"03_mon");
  Label& label = page_.lbl_Item[kSecondLabel];
  label.SetVisible(true);
  label.SetCaption(first < 0 ? String() : page_.DataCell(first, kNumberCaption));
  page_.lbl_unit[kSecondBox].SetVisible(true);
  page_.lbl_unit[kSecondBox].SetCaption(u"%");
}

}  // namespace korva
