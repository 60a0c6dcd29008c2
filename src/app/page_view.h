#pragma once

#include <QTabWidget>
#include <QWidget>
#include <string_view>
#include <vector>

#include "app/control_views.h"
#include "core/page.h"

class QGridLayout;
class QGroupBox;

namespace korva {

/// One page on the screen: model list, tabs with their fields laid out from the page's design table, button
/// row and status area. It holds nothing of its own: all is the page's.
class PageView : public QWidget {
 public:
  PageView(Page& page, EventGate& gate, QWidget* parent);
  [[nodiscard]] Page& Shown() const { return page_; }
  /// Brings tab `tab` to the front, if it is enabled.
  void ShowTab(int tab);
  /// Tells in tooltips which device each port choice stands for.
  void SetPortTips(const std::function<QString(int number)>& device_name);

 private:
  QWidget* MakeModelList();
  QWidget* MakeTabs();
  QWidget* MakeButtons();
  QWidget* MakeStatus();
  QWidget* MakeNotice();
  QWidget* MakeTab(const DesignTab& tab);
  QGroupBox* MakeGroup(const DesignGroup& group, QWidget* parent);
  // Each adds what it shows to `controls`.
  void AddRow(const DesignRow& row, QGridLayout& layout, QWidget* box, std::vector<Control*>& controls);
  void AddLabels(const DesignRow& row, int line, QGridLayout& layout, QWidget* box,
                 std::vector<Control*>& controls);
  void AddField(const DesignRow& row, int line, QGridLayout& layout, QWidget* box,
                std::vector<Control*>& controls);
  /// The frame that a row shows; nullptr when it shows something else.
  [[nodiscard]] Frame* FrameOf(const DesignRow& row) const;
  QWidget* MakeRowOf(const std::vector<Control*>& controls, QWidget* parent);
  QWidget* MakeOptions(Frame& frame, QWidget* parent);
  /// Shows a box only while `frame` (which may be missing) and at least one of the controls are shown.
  static void ShowWithAny(QWidget* box, Control* frame, const std::vector<Control*>& controls);
  void FollowTabs();

  Page& page_;
  ControlViews views_;
  QTabWidget* tabs_ = nullptr;
};

}  // namespace korva
