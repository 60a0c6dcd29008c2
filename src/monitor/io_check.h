#pragma once

#include "monitor/output_setting.h"
#include "monitor/status_monitor.h"

namespace korva {

/// The tab I/O check of a page: its status monitor and its output setting, behind the buttons of the frame.
class IoCheck {
 public:
  /// Takes the page's buttons. The page outlives this.
  explicit IoCheck(ParameterPage& page);
  IoCheck(const IoCheck&) = delete;
  IoCheck& operator=(const IoCheck&) = delete;
  ~IoCheck() = default;

  /// Shows the controls of the monitor, and those of the output, to models that have them.
  void ShowControls();
  StatusMonitor& Monitor() { return monitor_; }
  OutputSetting& Output() { return output_; }

 private:
  ParameterPage& page_;
  StatusMonitor monitor_;
  OutputSetting output_;
};

}  // namespace korva
