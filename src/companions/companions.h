#pragma once

#include <array>
#include <utility>

#include "companions/comparer.h"
#include "companions/line_panel.h"
#include "companions/paper.h"
#include "companions/report_panel.h"
#include "companions/transfer_report.h"
#include "companions/watch_panel.h"
#include "files/parameter_page.h"

namespace korva {

/// What accompanies every page without its knowledge, and the windows of it that stand beside any page.
class Companions {
 public:
  /// `folder` is where dialogs begin. The platform outlives this.
  /// `families` outlive it too; `make` makes a page of theirs on the program's line.
  Companions(const Platform& platform, const String& folder, const Families& families, BarePageMaker make)
      : families_(families),
        make_(std::move(make)),
        line_panel_(platform, folder),
        watch_panel_(Watched, platform) {}
  Companions(const Companions&) = delete;
  Companions& operator=(const Companions&) = delete;
  ~Companions() = default;

  /// From now on each page that is made can be put on this paper, which outlives it.
  void UsePaper(Paper& paper) { paper_ = &paper; }
  /// Adds to a page, which does not show yet, what accompanies it. The page lives no longer than this.
  void Join(ParameterPage& page);
  /// The windows with a table, each of which a button of the status area opens.
  [[nodiscard]] std::array<Panel*, 3> Panels() { return {&report_panel_, &compare_panel_, &line_panel_}; }
  /// The window of the live values, which another button opens.
  [[nodiscard]] WatchPanel& ValuesInLarge() { return watch_panel_; }
  /// Shows the traffic of the line from now on, which is taken to the window of the line.
  void FollowLine(SerialLink& line) { line_panel_.Follow(line); }

  TransferReport Report;
  Comparison Compared;
  Watch Watched;

 private:
  const Families& families_;
  BarePageMaker make_;
  Paper* paper_ = nullptr;  ///< none: surroundings without
  ReportPanel report_panel_{Report};
  ComparisonPanel compare_panel_{Compared};
  LinePanel line_panel_;
  WatchPanel watch_panel_;
};

}  // namespace korva
