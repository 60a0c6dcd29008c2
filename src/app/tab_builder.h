#pragma once

#include <string_view>
#include <vector>

#include "app/control_views.h"
#include "core/page.h"

class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QVBoxLayout;

namespace korva {

/// Lays out the fields of a page's tabs from its design table.
class TabBuilder {
 public:
  /// Both outlive what is made.
  TabBuilder(const Page& page, ControlViews& views) : page_(page), views_(views) {}
  /// All that stands on the tab, in an area that scrolls. Never nullptr.
  QWidget* Make(const DesignTab& tab, QWidget* parent);

 private:
  void AddBox(const DesignGroup& group, QHBoxLayout& columns, QVBoxLayout& stack);
  QGroupBox* MakeGroup(const DesignGroup& group, QWidget* parent);
  /// Where a row of a box stands.
  struct Place {
    int line;
    int first;  ///< the first column that the box uses
  };
  // Each adds what it shows to `controls`.
  void AddRow(const DesignRow& row, int first, QGridLayout& layout, QWidget* box,
              std::vector<Control*>& controls);
  void AddLabels(const DesignRow& row, int line, QGridLayout& layout, QWidget* box,
                 std::vector<Control*>& controls);
  void AddField(const DesignRow& row, Place place, QGridLayout& layout, QWidget* box,
                std::vector<Control*>& controls);
  [[nodiscard]] std::vector<Control*> ControlsOf(std::string_view names) const;
  /// The frame that a row shows; nullptr when it shows something else.
  [[nodiscard]] Frame* FrameOf(const DesignRow& row) const;
  /// Lets the keys of the row press its buttons.
  static void AssignKeys(const DesignRow& row, QWidget& field, QWidget& buttons);
  QWidget* MakeRowOf(const std::vector<Control*>& controls, QWidget* parent);
  QWidget* MakeOptions(Frame& frame, QWidget* parent);
  /// Shows a box only while `frame` (which may be missing) and at least one of the controls are shown.
  static void ShowWithAny(QWidget* box, Control* frame, const std::vector<Control*>& controls);

  const Page& page_;
  ControlViews& views_;
};

}  // namespace korva
