#pragma once

#include <QCoreApplication>

#include "app/main_window.h"
#include "bench_host.h"
#include "platform/pseudo_terminal.h"

namespace korva::bench {

/// The program with its window, on a line without a device.
struct ShownWindow {
  /// Starts the program and clicks the entry of this name in its model list.
  explicit ShownWindow(StringView model) : window(host.application) { host.StartWith(model); }

  /// Shows the window with this tab in front, in the size that the figures are told for.
  void Show(int tab) {
    window.resize(1180, 740);
    window.show();
    window.Current()->ShowTab(tab);
    Paint();
  }
  /// Until all that has changed is painted.
  static void Paint() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
  }

  PseudoTerminal device;
  BenchHost host{device.Device()};
  MainWindow window;
};

}  // namespace korva::bench
