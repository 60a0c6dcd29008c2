#include "linearizer/linearizer.h"

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

Linearizer::Linearizer(ParameterPage& page)
    : page_(page),
      family_(*FindLnrFamily(page.ItsFamily())),
      csv_(*FindCsvFamily(page.ItsFamily())),
      table_(page.GroupItem, page.LnrFlexGrid, family_.quantities.front().heads),
      editor_(page, table_),
      transfer_(page, table_) {
  page_.LnrFlexGrid.OnCellClick = [this](int row, int column) {
    if (!Refused()) {
      editor_.Select(row, column);
    }
  };
  page_.cmdLnrChangeOK.OnClick = [this] {
    if (!Refused()) {
      editor_.Ok();
    }
  };
  page_.cmdLnrChangeCancel.OnClick = [this] { editor_.Cancel(); };
  page_.txtLnrNewValue.OnKey = [this](Key key) {
    if (key == Key::Enter) {
      page_.cmdLnrChangeOK.Click();
    }
    return key == Key::Enter;
  };
  page_.cmd_csvFileOpen.OnClick = [this] { OpenCsv(); };
  page_.cmd_csvFileSave.OnClick = [this] { SaveCsv(); };
}

bool Linearizer::Refused() const {
  if (page_.LnrSwitchedOff()) {
    page_.Box().Show(BoxKey::LinearizerSwitchedOff);
    return true;
  }
  return false;
}

void Linearizer::SetUp(int points) {
  editor_.Reset();
  table_.SetUp(PointsOf(points));
}

void Linearizer::Clear() {
  editor_.Reset();
  table_.ClearGrid();
}

bool Linearizer::CheckLnrTable() {
  const LnrQuantity& quantity = family_.quantities.front();
  const bool good = family_.rule == LnrRule::Range
                        ? CheckLnrRange(table_)
                        : CheckLnrCurve(table_, quantity.x_limits, quantity.y_limits, page_.LnrProgressBar);
  editor_.TakeMarks();
  return good;
}

bool Linearizer::Upload(int points, const ParameterSet& before) {
  SetUp(points);
  if (transfer_.Upload()) {
    return true;
  }
  for (int row = 1; row <= table_.Points(); ++row) {
    for (int column = 1; column < kLnrColumns; ++column) {
      const PointPlace place = PointItem(table_.Points(), row, column).value();
      table_.Store(row, column, before.At(place.group, place.item));
    }
  }
  return false;
}

std::optional<String> Linearizer::ChooseCsvFile(bool save) const {
  const Platform& platform = page_.ItsProgram().Surroundings();
  const auto path = platform.dialogs.ChooseFile(
      {.save = save, .start_folder = page_.txtDirName.Text(), .filter = CsvFilter()});
  return path && path->empty() ? std::nullopt : path;
}

std::optional<CsvTable> Linearizer::ReadFile(const String& path) const {
  LineReader& lines = page_.ItsProgram().Lines();
  String reason;
  if (!lines.TryOpenTextFile(path, kCsvHandle, reason)) {
    page_.Box().Show(BoxKey::CsvOpenFailed, {path + u"\n" + reason});
    return std::nullopt;
  }
  std::optional<CsvTable> read = ReadCsv(lines, kCsvHandle, csv_.reader, table_.Points());
  lines.CloseTextFile(kCsvHandle);
  if (!read) {
    page_.Box().Show(BoxKey::CsvOpenFailed, {NotText(path)});
  }
  return read;
}

void Linearizer::OpenCsv() {
  if (Refused()) {
    return;
  }
  if (csv_.cancels_edit) {
    editor_.Cancel();
  }
  const std::optional<String> path = ChooseCsvFile(false);
  if (!path) {
    return;
  }
  if (!page_.ItsProgram().Surroundings().files.Exists(*path)) {
    page_.Box().Show(BoxKey::CsvFileNotFound);
    return;
  }
  const std::optional<CsvTable> read = ReadFile(*path);
  if (!read) {
    return;
  }
  table_.Clear();
  int row = 0;
  for (const CsvPoint& point : read->points) {
    ++row;
    table_.Store(row, 1, point.x);
    table_.Store(row, 2, point.y);
  }
  table_.ShowLnrTable();
  editor_.GoToTop();
  page_.SetTableUnsaved(true);
}

bool Linearizer::SaveCsv() {
  if (Refused()) {
    return false;
  }
  const std::optional<String> path = ChooseCsvFile(true);
  if (!path) {
    return false;
  }
  const Platform& platform = page_.ItsProgram().Surroundings();
  const String text = CsvText(table_.Shown(), table_.Points(), csv_.writes_size);
  const std::optional<std::string> bytes = platform.code_page.Encode(text);
  String reason;
  if (bytes && platform.files.Replace(*path, *bytes, reason)) {
    CsvFilePath = *path;
    CsvFileName = path->substr(path->rfind(platform.files.Separator()) + 1);
    return true;
  }
  if (!bytes) {
    reason = LackedCharacter(platform.code_page, table_.Shown());
  }
  page_.Box().Show(BoxKey::CsvSaveFailed, {reason});
  return false;
}

}  // namespace korva
