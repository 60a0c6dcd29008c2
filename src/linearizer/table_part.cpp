#include "linearizer/table_part.h"

#include <initializer_list>
#include <string>

#include "core/program.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kCsvHandle = 4;

String NotText(const String& path) { return path + u"\nテキストファイルではありません。"; }

/// Why the grid can't be written: names its first text with a character that the code page lacks, and the
/// cell by the words of its editor.
String LackedCharacter(const CodePage& code_page, const Grid& grid) {
  for (int row = 1; row < grid.Rows(); ++row) {
    for (int column = 1; column < grid.Columns(); ++column) {
      const String& text = grid.At(row, column).text;
      if (!code_page.Encode(text)) {
        return u"行 " + Ascii(std::to_string(row)) + u"、列 " + Ascii(std::to_string(column)) + u"の「" +
               text + u"」にファイルの文字コードに無い文字があるので、保存できません。";
      }
    }
  }
  return {};
}

}  // namespace

TablePart::TablePart(ParameterPage& page, const OrNone<CsvFamily>& csv, LnrTable& table)
    : page_(page), csv_(csv), editor_(page, table, [this] { return Refused(); }) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&LnrProgressBar, &LnrFlexGrid, &lbl_LnrUnsaved});
  if (csv_.Has()) {
    page_.Register(cmd_csvFileOpen);
  }
  if (csv_.Has() && csv_.Value().saves) {
    page_.Register(cmd_csvFileSave);
  }
  lbl_LnrUnsaved.SetVisible(false);
  editor_.Listen(LnrFlexGrid);
  cmd_csvFileOpen.OnClick = [this] { OpenCsv(); };
  cmd_csvFileSave.OnClick = [this] { SaveCsv(); };
}

void TablePart::SetCaptions(Language language) {
  editor_.SetCaptions(language);
  LnrProgressBar.SetCaption(CaptionText(TextKey::Linearizer, language));
  cmd_csvFileOpen.SetCaption(CaptionText(TextKey::OpenCsv, language));
  cmd_csvFileSave.SetCaption(CaptionText(TextKey::SaveCsv, language));
  NameUnsaved();
  Opt_Lnr[0].SetCaption(CaptionText(TextKey::OptionNo, language));
  Opt_Lnr[1].SetCaption(CaptionText(TextKey::OptionYes, language));
}

void TablePart::NameUnsaved() {
  lbl_LnrUnsaved.SetCaption(page_.Words(IsOfSensor() ? TextKey::SensorTableUnsaved : TextKey::TableUnsaved));
}

void TablePart::SetLocked(bool locked) {
  for (Control* control : std::initializer_list<Control*>{&LnrFlexGrid, &editor_.fraLnrChange,
                                                          &cmd_csvFileOpen, &cmd_csvFileSave}) {
    control->SetEnabled(!locked);
  }
}

std::optional<FieldRange> TablePart::RangeOfField(const TextField& field) const {
  const bool under_edit = &field == &editor_.txtLnrNewValue && editor_.LnrPrevCol > 0;
  return under_edit ? std::optional(RangeOfColumn(editor_.LnrPrevCol)) : std::nullopt;
}

std::optional<String> TablePart::ChooseCsvFile(bool save) const {
  const Platform& platform = page_.ItsProgram().Surroundings();
  const auto path = platform.dialogs.ChooseFile({.save = save,
                                                 .start_folder = page_.txtDirName.Text(),
                                                 .filter = CsvFilter(),
                                                 .name = save ? page_.ProposedName(u".csv") : String()});
  return path && path->empty() ? std::nullopt : path;
}

std::optional<CsvTable> TablePart::ReadFile(const String& path) {
  LineReader& lines = page_.ItsProgram().Lines();
  SystemReason reason;
  if (!lines.TryOpenTextFile(path, kCsvHandle, reason)) {
    page_.Box().Show(BoxKey::CsvOpenFailed, {path + u"\n" + ReasonText(reason)});
    return std::nullopt;
  }
  std::optional<CsvTable> read = ReadCsv(lines, kCsvHandle, csv_.Value().reader, InHand().Points());
  lines.CloseTextFile(kCsvHandle);
  if (!read) {
    page_.Box().Show(BoxKey::CsvOpenFailed, {NotText(path)});
  }
  return read;
}

void TablePart::TakePoints(const std::vector<CsvPoint>& points) {
  LnrTable& table = InHand();
  table.Clear();
  int row = 0;
  for (const CsvPoint& point : points) {
    ++row;
    table.Store(row, 1, point.x);
    table.Store(row, 2, point.y);
  }
  table.ShowLnrTable();
  editor_.GoToTop();
  NameUnsaved();
  SetTableUnsaved(true);
}

void TablePart::OpenCsv() {
  if (!csv_.Has() || Refused()) {
    return;
  }
  if (csv_.Value().cancels_edit) {
    editor_.Cancel();
    editor_.HideForScroll();
  }
  const std::optional<String> path = ChooseCsvFile(false);
  if (!path) {
    return;
  }
  if (!page_.ItsProgram().Surroundings().files.Exists(*path)) {
    page_.Box().Show(BoxKey::CsvFileNotFound);
    return;
  }
  if (const std::optional<CsvTable> read = ReadFile(*path)) {
    TakePoints(read->points);
    TakeHeads(read->heads);
  }
}

bool TablePart::SaveCsv() {
  if (!csv_.Has() || Refused()) {
    return false;
  }
  const std::optional<String> path = ChooseCsvFile(true);
  if (!path) {
    return false;
  }
  editor_.TellOpenEdit();
  const Platform& platform = page_.ItsProgram().Surroundings();
  const Grid& grid = InHand().Shown();
  const String text = CsvText(grid, InHand().Points(), HeadsToWrite());
  const std::optional<std::string> bytes = platform.code_page.Encode(text);
  SystemReason reason;
  if (bytes && platform.files.Replace(*path, *bytes, reason)) {
    CsvFilePath = *path;
    CsvFileName = path->substr(path->rfind(platform.files.Separator()) + 1);
    return true;
  }
  page_.Box().Show(BoxKey::CsvSaveFailed,
                   {bytes ? ReasonText(reason) : LackedCharacter(platform.code_page, grid)});
  return false;
}

}  // namespace korva
