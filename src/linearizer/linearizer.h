#pragma once

#include <functional>

#include "core/or_none.h"
#include "linearizer/csv_file.h"
#include "linearizer/lnr_editor.h"
#include "linearizer/lnr_family.h"
#include "linearizer/lnr_transfer.h"

namespace korva {

/// The linearizer of a page: its table, cell editor, files and transfer, behind the controls of its tab. The
/// table rides with upload and download; an option switches it on, Opt_Table or Opt_Lnr, whichever the
/// model's definition has.
///
/// While the model's switch stands at none the tab is disabled. What reaches the table all the same, such as
/// a click that was under way, is refused with a box.
class Linearizer final : public PagePart {
 public:
  /// Adds itself and its controls to the page; without `csv` the table has no files. `store` is nullptr where
  /// all models have items for the table. All outlive this.
  Linearizer(ParameterPage& page, const LnrFamily& family, const OrNone<CsvFamily>& csv,
             LnrStore* store = nullptr);

  void SetCaptions(Language language) override;
  /// The table, its editor and its files: an upload enables their tab before it reads the table.
  void SetLocked(bool locked) override;
  void ResetBars() override { LnrProgressBar.SetValue(0); }
  void PageCleared() override;
  void TabEntered(int tab) override;
  void ChoiceMade(const Choice& choice) override;
  /// Enables or disables the tab, and sets the table up, as the model and its set say.
  void SettleTabs(TabMoment moment) override;
  void SetCleared() override { SetTableUnsaved(false); }
  void SetSaved() override { SetTableUnsaved(false); }
  void SetTaken() override { editor_.TellOpenEdit(); }
  void UploadBegins() override;
  /// Reads the device's table into the set, where the model has one in use, and shows it. Where the user
  /// doesn't want the 100 points, or the table has buttons of its own, it is that from before the upload.
  void Upload() override;
  [[nodiscard]] Finding Check() override;
  [[nodiscard]] Control* Checked() override { return &LnrFlexGrid; }
  bool Download() override;

  /// True when the model's linearizer is in use.
  [[nodiscard]] bool LnrActive() const;
  /// True when the switch of the model's linearizer stands at none.
  [[nodiscard]] bool LnrSwitchedOff() const;
  /// Tells with its box that the model's switch stands at none; true when it does.
  [[nodiscard]] bool Refused() const;
  /// Marks the cells that keep the table from going to the device; true when none does. The frame of the
  /// keyboard goes to the first.
  bool CheckLnrTable();
  /// Takes the shape of `points`, which a family with one shape only overrules, and shows the set's points.
  void SetUp(int points);

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

  /// Letter of the kind of table that the present input has, of a page where that differs (LnrQuantity).
  std::function<String()> KindOfInput;
  /// What the values mean under the present input; nullptr for an input without a table.
  [[nodiscard]] const LnrQuantity* Quantity() const;
  /// Another input was chosen: heads and tab become those of its table, whose points stay.
  void FollowInput() { SettleTab(Model().on_choice); }

  /// Called with the number of points that a file told.
  std::function<void(const String& size)> OnSizeRead;

  String CsvFilePath;  ///< of the table file written last
  String CsvFileName;  ///< its bare name

  ProgressBar LnrProgressBar{"LnrProgressBar"};
  Grid LnrFlexGrid{"LnrFlexGrid"};
  Button cmd_csvFileOpen{"cmd_csvFileOpen"};
  Button cmd_csvFileSave{"cmd_csvFileSave"};  ///< of families that save tables
  Label lbl_LnrUnsaved{"lbl_LnrUnsaved"};
  Button Lnr_OK{"Lnr_OK"};             ///< takes an edit, of families whose arrow keys do so
  Label lblLnrLimits{"lblLnrLimits"};  ///< of families that tell the limits beside the grid
  OptionGroup Opt_Table{"Opt_Table", 2};
  OptionGroup Opt_Lnr{"Opt_Lnr", 2};

  LnrTable& Table() { return table_; }
  LnrEditor& Editor() { return editor_; }
  [[nodiscard]] const LnrFamily& ItsFamily() const { return family_; }

 private:
  void ListenToControls();
  /// Ends an edit with the cell's new text; the keyboard stays in the table, `rows` further down.
  void Change(int rows);
  void CancelChange();
  bool PressInEditor(Key key);
  /// Takes an edit and goes on to the cell where the key leads.
  bool TakeByArrow(Key key);
  void HideField();
  [[nodiscard]] int Tab() const { return page_.TabWith(TextKey::Linearizer); }
  [[nodiscard]] const LnrModel& Model() const { return ModelRow(family_.models, page_.DefFile); }
  [[nodiscard]] bool SwitchedOn(TableSwitch table_switch) const;
  /// The options behind a switch; nullptr for a switch of another kind.
  [[nodiscard]] const OptionGroup* OptionsOf(TableSwitch table_switch) const;
  /// The definition's flag of the table's tab; a family without flags has them all set.
  [[nodiscard]] bool TabFlagged() const {
    return !page_.Def.Has(kTabFlags) || page_.TabFlag(Tab()) == u"True";
  }
  /// True when the model has a table, as its definition and its row tell, and its linearizer is in use: the
  /// table is then checked and sent, whatever state its tab is in.
  [[nodiscard]] bool InUse() const;
  /// The switch that counts after an upload.
  [[nodiscard]] TableSwitch AfterUpload() const;
  void SettleTab(TableSwitch table_switch);
  bool UploadPoints(int points);
  /// False when the switch says so, after an upload, that the table is not in use: it isn't read then.
  bool OpenTabForUpload(TableSwitch table_switch);
  void RegisterControls();
  /// Puts the table of the set from before the upload back.
  void TakeFormerTable();
  [[nodiscard]] int PointsOf(int points) const { return family_.points != 0 ? family_.points : points; }
  std::optional<String> ChooseCsvFile(bool save) const;
  [[nodiscard]] std::optional<CsvTable> ReadFile(const String& path, const CsvReader& reader) const;

  ParameterPage& page_;
  const LnrFamily& family_;
  const OrNone<CsvFamily>& csv_;
  LnrTable table_;
  LnrEditor editor_;
  LnrTransfer transfer_;
  std::optional<ParameterSet> before_;  ///< the set as it was when the upload began
};

}  // namespace korva
