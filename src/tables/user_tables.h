#pragma once

#include <array>

#include "core/grid.h"
#include "linearizer/table_mover.h"
#include "linearizer/table_part.h"
#include "tables/user_table_section.h"
#include "tables/user_table_transfer.h"

namespace korva {

/// The user's tables of a page: his curve of a thermocouple, that of a resistance thermometer, and the
/// linearizer, each in a grid of its own of which one shows, with one cell editor, one set of fields, one
/// pair of buttons and one tab. The input type tells which is in use, else the switch of item 25, Opt_Lnr;
/// with none in use the tab is disabled and shows the linearizer.
///
/// The points live in the grids: a new page shows "0.00" in each of them, which counts as no table for a
/// configuration file until one is read, opened or edited. A table in use rides with check, upload and
/// download, and travels by its buttons as well.
///
/// A part of the page that changes what takes part (item 25's flag in $Data) for the input's class is added
/// before this, or calls Settle. The page lists Opt_Lnr among its options.
class UserTables final : public TablePart {
 public:
  /// Adds itself and its controls to the page; without `csv` tables have no files. All outlive this.
  UserTables(ParameterPage& page, const UserTableFamily& family, const OrNone<CsvFamily>& csv);

  void SetCaptions(Language language) override;
  void SetLocked(bool locked) override;
  void SetCleared() override;
  /// Tells in the status area too from where on the saved file will not give the table back: a comma inside a
  /// text ends its record.
  void SetSaved() override;
  void PageCleared() override;
  void ChoiceMade(const Choice& choice) override;
  [[nodiscard]] std::function<void()> Keep() override;
  void SettleTabs(TabMoment moment) override;
  [[nodiscard]] String CfgSection() const override;
  SectionRead ReadCfgSection(StringView key, LineReader& lines, int handle) override;
  [[nodiscard]] std::optional<FieldRange> RangeOfField(const TextField& field) const override;
  /// Reads the table in use from the device; of a linearizer the user is asked first. One that can't be read
  /// has shown its box, and the device has been sent to monitor mode.
  bool Upload() override;
  [[nodiscard]] Finding Check() override;
  [[nodiscard]] Control* Checked() override { return fault_; }
  /// Writes the table in use; of a linearizer the user is asked first.
  bool Download() override;

  /// The table that the device works with, as the model's set says.
  [[nodiscard]] UserTable InUse() const;
  [[nodiscard]] bool Refused() const override;
  /// Shows the table in use with its tab's caption, and opens or closes the tab.
  void Settle();

  /// The table of a kind; None gives the linearizer's.
  [[nodiscard]] LnrTable& TableOf(UserTable table) const { return *KindOf(table).points; }
  [[nodiscard]] UserTable Shown() const { return shown_; }

  /// The buttons, a part of their own.
  class Buttons final : public TableMover {
   public:
    /// Adds itself and its controls to the page. Both outlive this.
    Buttons(ParameterPage& page, UserTables& tables);
    /// cmdReadOutTable: puts the device's table into its grid and fields. Does nothing while an operation
    /// runs; refused with its box while no table is in use.
    void ReadOut();
    /// cmdWriteInTable: checks the table and writes it into the device. The same.
    void WriteIn();

   private:
    bool CheckAndWrite();

    UserTables& tables_;
  };

  Grid TCFlexGrid{"TCFlexGrid"};
  Grid RTDFlexGrid{"RTDFlexGrid"};
  UserTableFields fields;
  Buttons buttons;

 private:
  /// One of the tables.
  struct Kind {
    UserTable table;
    TextKey caption;  ///< of the tab
    const UserTableForm* form;
    Grid* grid;
    LnrTable* points;
  };

  [[nodiscard]] LnrTable& InHand() override { return TableOf(shown_); }
  [[nodiscard]] FieldRange RangeOfColumn(int column) const override;
  [[nodiscard]] bool IsOfSensor() const override { return shown_ != UserTable::Linearizer; }
  void TakeHeads(const CsvHeads& heads) override { fields.Take(heads, shown_); }
  [[nodiscard]] CsvHeads HeadsToWrite() override;

  [[nodiscard]] const Kind& KindOf(UserTable table) const;
  [[nodiscard]] UserTableInHand TableInHand() const {
    return {.which = shown_, .form = *KindOf(shown_).form, .points = TableOf(shown_)};
  }
  [[nodiscard]] int Tab() const { return page_.TabWith(TextKey::Linearizer); }
  /// The table of the set alone, whatever takes part at present.
  [[nodiscard]] UserTable OfSet() const;
  void Show(UserTable table);
  /// Puts grids and fields to what a new page shows.
  void Reset();
  /// Shows what a file that was opened held.
  void TakeOpened();
  /// Where the table of the set has its first text with a comma, in words; empty when it has none.
  [[nodiscard]] String FirstLoss() const;
  /// Tells the grids how many rows go to the device, and for what they stand.
  void FollowFields();
  bool Read();
  /// Looks for what is missing in the table that shows, then marks what is bad.
  Finding CheckShown();
  bool CheckPoints();

  ParameterPage& page_;
  const UserTableFamily& family_;
  LnrTable linearizer_;
  LnrTable thermocouple_;
  LnrTable resistance_;
  std::array<Kind, 3> kinds_;
  UserTable shown_ = UserTable::Linearizer;
  UserTableTransfer transfer_;
  std::optional<SavedTable> opened_;  ///< of a file that is being opened, until the page shows its set
  Control* fault_ = nullptr;          ///< what the last check found blank or bad
};

}  // namespace korva
