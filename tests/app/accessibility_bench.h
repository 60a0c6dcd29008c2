#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <array>
#include <tuple>

#include "monitor/status_monitor.h"
#include "print/contrast.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva::test {

// What the tests of what people with weak eyes or without a mouse need have in common.

/// One model of each family.
inline constexpr std::array kEachFamily = {"QN",    "QEY",   "QNA2",  "QXI",  "Z2WT", "Z2WQ",
                                           "Z2WPR", "Z2WPA", "Z2WPL", "Z2WU", "Z8WT2"};

inline QPalette DarkSystem() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::ToolTipBase, QColor(90, 80, 30));
  palette.setColor(QPalette::ToolTipText, Qt::white);
  for (const auto text : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    palette.setColor(QPalette::Disabled, text, QColor(80, 80, 80));
  }
  return palette;
}

/// The program in the system's own colours, or in dark ones, as long as this lives.
class Colours {
 public:
  explicit Colours(bool dark) {
    if (dark) {
      QApplication::setPalette(Readable(DarkSystem().resolve(QApplication::palette())));
    }
  }
  Colours(const Colours&) = delete;
  Colours& operator=(const Colours&) = delete;
  ~Colours() { QApplication::setPalette(QPalette()); }
};

inline QAccessibleInterface& Spoken(QObject* object) {
  return *QAccessible::queryAccessibleInterface(object);
}
inline QString NameOf(QObject* object) { return Spoken(object).text(QAccessible::Name); }
inline QString DescriptionOf(QObject* object) { return Spoken(object).text(QAccessible::Description); }

/// What the keyboard can come to, in no order.
inline std::vector<QWidget*> Stops(const QWidget& window) {
  std::vector<QWidget*> stops;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    const bool by_tab = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr;
    if (by_tab && widget->isVisible() && widget->window() == &window) {
      stops.push_back(widget);
    }
  }
  return stops;
}

/// Shows each tab and has a screen reader's names told.
template <typename Check>
void OnEachTab(WindowBench& bench, Check check) {
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    bench.Show(tab);
    QCoreApplication::processEvents();
    SCOPED_TRACE(testing::Message() << "tab " << tab);
    check();
  }
}

/// A screen reader that asks as long as this lives.
struct Reader {
  Reader() {
    QAccessible::setActive(true);
    QCoreApplication::processEvents();
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() { QAccessible::setActive(false); }
};

inline std::vector<QWidget*> EnabledStops(const QWidget& window) {
  std::vector<QWidget*> stops = Stops(window);
  stops.erase(
      std::remove_if(stops.begin(), stops.end(), [](const QWidget* one) { return !one->isEnabled(); }),
      stops.end());
  return stops;
}

/// How many pixels differ between the pictures so that it can be seen.
inline int SeenToDiffer(const QImage& one, const QImage& other) {
  int count = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      count += one.pixel(x, y) != other.pixel(x, y) &&
                       Contrast(one.pixelColor(x, y), other.pixelColor(x, y)) >= kMarkContrast
                   ? 1
                   : 0;
    }
  }
  return count;
}

/// Reads the device's settings, and its live values for a while.
inline void ReadAll(WindowBench& bench) {
  bench.Upload();
  bench.Show(bench.Page().TabWith(TextKey::IoCheck));
  bench.device.loop.After(std::chrono::seconds(5),
                          [&] { Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  bench.Press("cmdMonitorON");
}

/// The windows beside the page, each of which a button of the status area opens.
inline std::vector<SideWindow*> WindowsBeside(WindowBench& bench) {
  std::vector<SideWindow*> windows{&bench.application.companions.ValuesInLarge()};
  for (Panel* panel : bench.application.companions.Panels()) {
    windows.push_back(panel);
  }
  return windows;
}

/// A model of a family, and whether the system's colours are dark.
struct InColours : testing::TestWithParam<std::tuple<const char*, bool>> {};
inline std::string NameOfColours(const testing::TestParamInfo<std::tuple<const char*, bool>>& one) {
  return std::string(std::get<0>(one.param)) + (std::get<1>(one.param) ? "_dark" : "_light");
}

}  // namespace korva::test
