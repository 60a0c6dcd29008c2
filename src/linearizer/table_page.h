#pragma once

#include "linearizer/linearizer.h"
#include "transfer/transfer_page.h"

namespace korva {

/// A page whose models have a linearizer table that rides with upload and download, and that an option
/// switches on: Opt_Table or Opt_Lnr, whichever the model's definition has.
class TablePage : public TransferPage {
 public:
  TablePage(Program& program, const PageKind& kind, DeviceLink& link, const FieldArrays& arrays, int groups);

  void SetCaptions(Language language) override;
  void SetUpTable(int points) override { linearizer_.SetUp(points); }
  void ClearTable() override { linearizer_.Clear(); }

  OptionGroup Opt_Table{"Opt_Table", 2};
  OptionGroup Opt_Lnr{"Opt_Lnr", 2};

 protected:
  /// The table, its editor and its files: an upload enables their tab before it reads the table.
  std::vector<Control*> FurtherLockedControls() override;

  void AfterOption(const OptionRule& rule, int place) override;
  [[nodiscard]] const OptionGroup* SwitchOptions(TableSwitch table_switch) const override;

  bool CheckTable() override { return linearizer_.CheckLnrTable(); }
  [[nodiscard]] bool IsTableBlank() const override { return linearizer_.IsBlank(); }
  bool UploadTable(const ParameterSet& before) override {
    return linearizer_.Upload(Traits().table_points, before);
  }
  bool DownloadTable() override { return linearizer_.DownloadLnr(); }

 private:
  Linearizer linearizer_;
};

}  // namespace korva
