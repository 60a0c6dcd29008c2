#pragma once

#include <memory>

#include "core/field_range.h"
#include "linearizer/linearizer.h"
#include "linearizer/table_exchange.h"
#include "linearizer/table_mover.h"

namespace korva {

/// The buttons by which a linearizer's table travels, on pages where it doesn't ride with upload and
/// download.
///
/// A read-out empties the table first, and shows each point as it comes: one that fails leaves the points up
/// to there. A write that fails leaves the device's table half written; nothing undoes that.
class TableButtons final : public TableMover, public RangeTeller {
 public:
  /// Adds itself and its controls to the page. The family of the linearizer has a form of exchange. Both
  /// outlive this.
  TableButtons(ParameterPage& page, Linearizer& linearizer);

  void SetCaptions(Language language) override;
  void SetLocked(bool locked) override { txtSize.SetEnabled(!locked); }
  void PageCleared() override;
  void PageBuilt() override;  ///< shows the size of the set
  [[nodiscard]] String CfgSection() const override;
  SectionRead ReadCfgSection(StringView key, LineReader& lines, int handle) override;
  /// The size goes up to the points that the table holds.
  [[nodiscard]] std::optional<FieldRange> RangeOfField(const TextField& field) const override;

  /// cmdReadOutTable: puts the device's table into set and grid. Does nothing while an operation runs;
  /// refused with its box while the linearizer's switch stands at none.
  void ReadOut();
  /// cmdWriteInTable: checks the table and writes it into the device. The same.
  void WriteIn();

  Label lblSize{"lblSize"};      ///< like txtSize of families with a size
  TextField txtSize{"txtSize"};  ///< how many points a write sends

 private:
  using EnterMode = bool (DevicePage::*)();
  using Move = bool (TableButtons::*)();
  /// `mode` is nullptr where the device's mode stays.
  void Travel(EnterMode mode, Move move, BoxKey report);
  /// False after its box.
  bool ReadPoints();
  /// False after its box.
  bool WritePoints();
  bool CheckSize();
  bool CheckTable();
  /// How many points a write sends.
  [[nodiscard]] int PointsToWrite() const;
  void ShowDone(int done, int all);
  void ShowSize(const String& size);

  ParameterPage& page_;
  Linearizer& linearizer_;
  const TableButtonsForm& form_;
  std::unique_ptr<TableExchange> exchange_;
  bool showing_ = false;  ///< the program puts a text into txtSize
};

}  // namespace korva
