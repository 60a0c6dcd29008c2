#pragma once

#include "linearizer/table_page.h"

namespace korva {

/// The tabs of the pages KvConfig and KvConfig_V3, in their order. Tab 4 holds the filter on the one, the
/// alarms on the other.
enum KvConfigTab : int {
  kFileTab,
  kInputTab,
  kOutputTab,
  kLinearizerTab,
  kFilterTab,
  kPortTab,
  kIoCheckTab,
};

/// A page with these tabs. Its linearizer's tab follows the model's switch, the others the definition's
/// flags: tab 4 is closed without one, the others with the flag False, where the model has nothing on them.
/// It opens the port when it is loaded.
class SevenTabPage : public TablePage {
 public:
  using TablePage::TablePage;

  [[nodiscard]] int LnrTab() const override;

 protected:
  void PreparePort() override;
  void SettleFlaggedTabs() override;
};

}  // namespace korva
