#pragma once

#include <vector>

#include "core/side_window.h"

namespace korva {

/// A window beside the page that shows a table, which can be read and copied.
///
/// Rows are counted from the first one that there ever was: those before FirstRow() are gone, those before
/// EndRow() are there. Rows that came or went leave the others as they are; with Generation() all changed.
class Panel : public SideWindow {
 public:
  using SideWindow::SideWindow;

  [[nodiscard]] virtual std::vector<String> Heads() const = 0;
  [[nodiscard]] virtual int FirstRow() const { return 0; }
  [[nodiscard]] virtual int EndRow() const = 0;
  /// The cells of a row, as many as Heads().
  [[nodiscard]] virtual std::vector<String> Cells(int row) const = 0;
  /// Highlight for a row that the user should look at.
  [[nodiscard]] virtual Look LookOf(int /*row*/) const { return Look::Normal; }
  /// True when the last row is what the user looks for first.
  [[nodiscard]] virtual bool BeginsAtEnd() const { return false; }
  [[nodiscard]] virtual unsigned Generation() const { return 0; }
};

}  // namespace korva
