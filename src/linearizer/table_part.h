#pragma once

#include "core/field_range.h"
#include "core/grid.h"
#include "core/or_none.h"
#include "files/parameter_page.h"
#include "linearizer/csv_file.h"
#include "linearizer/lnr_editor.h"

namespace korva {

/// What all pages with a table have, whatever its points mean and however they travel: the grid of a
/// linearizer and its switch, the editor of a cell, and the table's files.
class TablePart : public PagePart, public RangeTeller {
 public:
  void SetCaptions(Language language) override;
  /// The grid, its editor and its files.
  void SetLocked(bool locked) override;
  void ResetBars() override { LnrProgressBar.SetValue(0); }
  void TabEntered(int /*tab*/) override { editor_.HideForScroll(); }
  void SetCleared() override { SetTableUnsaved(false); }
  void SetSaved() override { SetTableUnsaved(false); }
  void SetTaken() override { editor_.TellOpenEdit(); }

  /// Tells with its box that no table is in use; true when none is.
  [[nodiscard]] virtual bool Refused() const = 0;

  /// The limits of the value under edit.
  [[nodiscard]] std::optional<FieldRange> RangeOfField(const TextField& field) const override;

  /// cmd_csvFileOpen: puts the points of a file into the table. A file that can't be read, or isn't text,
  /// leaves the table as it is, after a box that tells why.
  void OpenCsv();
  /// cmd_csvFileSave: writes the grid's points to a file. True when it was written; a failure shows the
  /// system's reason and leaves a former file of that name as it was.
  bool SaveCsv();

  /// Tells in the status area that the table was read from a file and would be lost unless the set is saved.
  /// Such a table is no edit: nothing asks about it.
  void SetTableUnsaved(bool unsaved) { lbl_LnrUnsaved.SetVisible(unsaved); }
  [[nodiscard]] bool TableUnsaved() const { return lbl_LnrUnsaved.Visible(); }

  LnrEditor& Editor() { return editor_; }

  String CsvFilePath;  ///< of the table file written last
  String CsvFileName;  ///< its bare name

  ProgressBar LnrProgressBar{"LnrProgressBar"};
  Grid LnrFlexGrid{"LnrFlexGrid"};
  Button cmd_csvFileOpen{"cmd_csvFileOpen"};
  Button cmd_csvFileSave{"cmd_csvFileSave"};  ///< of families that save tables
  Label lbl_LnrUnsaved{"lbl_LnrUnsaved"};
  Label lblLnrLimits{"lblLnrLimits"};  ///< of families that tell the limits beside the grid
  OptionGroup Opt_Lnr{"Opt_Lnr", 2};

 protected:
  /// Adds itself and its controls to the page; without `csv` tables have no files. `table` is the one that is
  /// edited first. All outlive this.
  TablePart(ParameterPage& page, const OrNone<CsvFamily>& csv, LnrTable& table);

  /// The table that is shown, edited and exchanged with files.
  [[nodiscard]] virtual LnrTable& InHand() = 0;
  /// What a file told of its table, whose points are in it already.
  virtual void TakeHeads(const CsvHeads& /*heads*/) {}
  /// What is written ahead of the points, on pages that save.
  [[nodiscard]] virtual CsvHeads HeadsToWrite() = 0;

  /// The limits of the values in a column of the table in hand.
  [[nodiscard]] virtual FieldRange RangeOfColumn(int column) const = 0;
  /// True when the table in hand is a sensor's curve and no linearizer.
  [[nodiscard]] virtual bool IsOfSensor() const = 0;
  /// Lets the notice of an unsaved table name the one in hand.
  void NameUnsaved();

  [[nodiscard]] ParameterPage& ItsPage() const { return page_; }
  [[nodiscard]] const OrNone<CsvFamily>& Csv() const { return csv_; }

 private:
  std::optional<String> ChooseCsvFile(bool save) const;
  [[nodiscard]] std::optional<CsvTable> ReadFile(const String& path);
  void TakePoints(const std::vector<CsvPoint>& points);

  ParameterPage& page_;
  const OrNone<CsvFamily>& csv_;
  LnrEditor editor_;
};

}  // namespace korva
