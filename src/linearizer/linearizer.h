#pragma once

#include <functional>

#include "linearizer/lnr_family.h"
#include "linearizer/lnr_transfer.h"
#include "linearizer/table_part.h"

namespace korva {

/// The linearizer of a page: its table, cell editor, files and transfer, behind the controls of its tab. The
/// table rides with upload and download; an option switches it on, Opt_Table or Opt_Lnr, whichever the
/// model's definition has.
///
/// While the model's switch stands at none the tab is disabled. What reaches the table all the same, such as
/// a click that was under way, is refused with a box.
class Linearizer final : public TablePart {
 public:
  /// Adds itself and its controls to the page; without `csv` the table has no files. `store` is nullptr where
  /// all models have items for the table. All outlive this.
  Linearizer(ParameterPage& page, const LnrFamily& family, const OrNone<CsvFamily>& csv,
             LnrStore* store = nullptr);

  void SetCaptions(Language language) override;
  void PageCleared() override;
  void ChoiceMade(const Choice& choice) override;
  [[nodiscard]] std::function<void()> Keep() override {
    return [this, heads = table_.Heads()] { table_.SetHeads(heads); };
  }
  /// Enables or disables the tab, and sets the table up, as the model and its set say.
  void SettleTabs(TabMoment moment) override;
  void UploadBegins() override;
  /// Reads the device's table into the set, where the model has one in use, and shows it. Where the user
  /// doesn't want the 100 points, or the table has buttons of its own, it is that from before the upload.
  bool Upload() override;
  [[nodiscard]] Finding Check() override;
  [[nodiscard]] Control* Checked() override { return &LnrFlexGrid; }
  bool Download() override;

  /// True when the model's linearizer is in use.
  [[nodiscard]] bool LnrActive() const;
  /// True when the switch of the model's linearizer stands at none.
  [[nodiscard]] bool LnrSwitchedOff() const;
  /// Tells with its box that the model's switch stands at none; true when it does.
  [[nodiscard]] bool Refused() const override;
  /// Marks the cells that keep the table from going to the device; true when none does. The frame of the
  /// keyboard goes to the first.
  bool CheckLnrTable();
  /// Takes the shape of `points`, which a family with one shape only overrules, and shows the set's points.
  void SetUp(int points);

  /// Letter of the kind of table that the present input has, of a page where that differs (LnrQuantity).
  std::function<String()> KindOfInput;
  /// What the values mean under the present input; nullptr for an input without a table.
  [[nodiscard]] const LnrQuantity* Quantity() const;
  /// Another input was chosen: heads and tab become those of its table, whose points stay.
  void FollowInput() { SettleTab(Model().on_choice); }

  /// Called with the number of points that a file told.
  std::function<void(const String& size)> OnSizeRead;

  Button Lnr_OK{"Lnr_OK"};  ///< takes an edit, of families whose arrow keys do so
  OptionGroup Opt_Table{"Opt_Table", 2};

  LnrTable& Table() { return table_; }
  [[nodiscard]] const LnrFamily& ItsFamily() const { return family_; }

 private:
  [[nodiscard]] LnrTable& InHand() override { return table_; }
  [[nodiscard]] FieldRange RangeOfColumn(int column) const override;
  [[nodiscard]] bool IsOfSensor() const override;
  void TakeHeads(const CsvHeads& heads) override;
  [[nodiscard]] CsvHeads HeadsToWrite() override;
  /// What the values mean, of an input without a table too.
  [[nodiscard]] const LnrQuantity& QuantityOrFirst() const;
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
  void AddControls();
  /// Puts the table of the set from before the upload back.
  void TakeFormerTable();
  [[nodiscard]] int PointsOf(int points) const { return family_.points != 0 ? family_.points : points; }

  ParameterPage& page_;
  const LnrFamily& family_;
  LnrTable table_;
  LnrTransfer transfer_;
  std::optional<ParameterSet> before_;  ///< the set as it was when the upload began
};

}  // namespace korva
