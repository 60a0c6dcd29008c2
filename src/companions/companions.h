#pragma once

#include <array>

#include "companions/report_panel.h"
#include "companions/transfer_report.h"
#include "files/parameter_page.h"

namespace korva {

/// What accompanies every page without its knowledge, and the windows of it that stand beside any page.
class Companions {
 public:
  Companions() = default;
  Companions(const Companions&) = delete;
  Companions& operator=(const Companions&) = delete;
  ~Companions() = default;

  /// Adds to a page, which does not show yet, what accompanies it. The page lives no longer than this.
  void Join(ParameterPage& page);
  /// The windows, each of which a button of the status area opens.
  [[nodiscard]] std::array<Panel*, 1> Panels() { return {&report_panel_}; }

  TransferReport Report;

 private:
  ReportPanel report_panel_{Report};
};

}  // namespace korva
