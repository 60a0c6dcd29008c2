#include "pages/z2_kv_config_v2/cut_out.h"

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kItem11 = u"11";
constexpr StringView kNoCutOut = u"-10";
constexpr StringView kDisabled = u"Disable";

}  // namespace

CutOut::CutOut(ParameterPage& page) : page_(page) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&cmdSetCutOut, &cmdDisableCutOut});
  cmdSetCutOut.OnClick = [this] { Set(); };
  cmdDisableCutOut.OnClick = [this] { Disable(); };
}

void CutOut::SetCaptions(Language language) {
  cmdSetCutOut.SetCaption(CaptionText(TextKey::SetCutOut, language));
  cmdDisableCutOut.SetCaption(CaptionText(TextKey::DisableCutOut, language));
}

bool CutOut::IsItsRow(int row) const { return row >= 0 && row == page_.FindDataRow(kItem11); }

bool CutOut::IsDisabled(int row) const {
  const String& cell = page_.SetCell(row);
  return IsNumeric(cell) && LeadingNumber(cell) == LeadingNumber(kNoCutOut);
}

std::optional<String> CutOut::ShownText(int row) const {
  return IsItsRow(row) && IsDisabled(row) ? std::optional(String(kDisabled)) : std::nullopt;
}

std::optional<String> CutOut::CellOf(int row, const String& text) const {
  return IsItsRow(row) && Trimmed(text) == kDisabled ? std::optional(String(kNoCutOut)) : std::nullopt;
}

void CutOut::RowShown(int row) {
  if (IsItsRow(row) && IsDisabled(row)) {
    TextField& box = *page_.FindField(kItem11);
    box.SetLocked(true);
    box.SetLook(Look::Grey);
  }
}

void CutOut::PageBuilt() {
  const bool has_box = page_.FindTextIndex(kItem11) >= 0;
  cmdSetCutOut.SetVisible(has_box);
  cmdDisableCutOut.SetVisible(has_box);
}

int CutOut::SettableRow() const {
  const int row = page_.FindTextIndex(kItem11) < 0 ? -1 : page_.FindDataRow(kItem11);
  return row >= 0 && !page_.Fixed(row) && page_.SetCell(row) != kNeedless ? row : -1;
}

void CutOut::Set() {
  if (SettableRow() >= 0) {
    TextField& box = *page_.FindField(kItem11);
    ParameterPage::OpenField(box);
    box.SetText(u"0");
  }
}

void CutOut::Disable() {
  const int row = SettableRow();
  if (row >= 0) {
    page_.FindField(kItem11)->SetText(String(kDisabled));
    RowShown(row);
    page_.MarkEdited();
  }
}

}  // namespace korva
