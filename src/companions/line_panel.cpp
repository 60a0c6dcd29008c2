#include "companions/line_panel.h"

#include <utility>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kFileName = u"korva-line.txt";

/// What a line is about: sent or received, or what went wrong with it.
TextKey TextOf(const SerialLink::Traffic& traffic) {
  if (traffic.sent) {
    return traffic.ok ? TextKey::LineSent : TextKey::LineNotSent;
  }
  return traffic.ok ? TextKey::LineReceived : TextKey::LineSilent;
}

String Seconds(Clock time) { return FormatMask(std::chrono::duration<double>(time).count(), u"0.000"); }

}  // namespace

LinePanel::LinePanel(const Platform& platform, String folder)
    : Panel("pnlLine"), platform_(platform), folder_(std::move(folder)) {
  SetLanguage(Language::Japanese);
  cmdSaveLine.OnClick = [this] { Save(); };
}

void LinePanel::Follow(SerialLink& line) {
  line.OnTraffic = [this](const SerialLink::Traffic& traffic) {
    log_.Add(platform_.loop.Now(), traffic);
    if (Visible()) {
      Changed();
    }
  };
}

void LinePanel::SetLanguage(Language language) {
  cmdSaveLine.SetCaption(CaptionText(TextKey::SaveLine, language));
  Panel::SetLanguage(language);
}

std::vector<String> LinePanel::Heads() const {
  return {Words(TextKey::LineTime), Words(TextKey::LineKind), Words(TextKey::LineText)};
}

std::vector<String> LinePanel::Cells(int row) const {
  const LineLog::Line& line = log_.At(row);
  return {Seconds(line.time), Words(TextOf(line.traffic)), WithVisibleControls(line.traffic.text)};
}

Look LinePanel::LookOf(int row) const { return log_.At(row).traffic.ok ? Look::Normal : Look::Highlight; }

String LinePanel::TextToSave() const {
  String text;
  for (int row = FirstRow(); row < EndRow(); ++row) {
    const std::vector<String> cells = Cells(row);
    text += cells[0] + u'\t' + cells[1] + u'\t' + cells[2] + u"\r\n";
  }
  return text;
}

void LinePanel::Save() const {
  const std::optional<String> path = platform_.dialogs.ChooseFile(
      {.save = true, .start_folder = folder_, .filter = TextFilter(), .name = String(kFileName)});
  if (!path) {
    return;
  }
  SystemReason reason;
  if (!platform_.files.Replace(*path, ToUtf8(TextToSave()), reason)) {
    Boxes(platform_.dialogs).Show(BoxKey::SaveFailed, {ReasonText(reason)});
  }
}

}  // namespace korva
