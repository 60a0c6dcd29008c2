#pragma once

#include "linearizer/table_page.h"

namespace korva {

/// A page with a linearizer's tab that opens the port when it is loaded.
class SevenTabPage : public TablePage {
 public:
  using TablePage::TablePage;

  [[nodiscard]] int LnrTab() const override;

 protected:
  void PreparePort() override;
};

}  // namespace korva
