#pragma once

#include <QTabWidget>
#include <QWidget>
#include <string_view>
#include <vector>

#include "app/control_views.h"
#include "core/page.h"

class QLineEdit;
class QPushButton;

namespace korva {

/// One page on the screen: model list, tabs with their fields laid out from the page's design table, button
/// row and status area. It holds nothing of its own: all is the page's.
class PageView : public QWidget {
 public:
  PageView(Page& page, EventGate& gate, QWidget* parent);
  [[nodiscard]] Page& Shown() const { return page_; }
  /// Brings tab `tab` to the front, if it is enabled.
  void ShowTab(int tab);
  /// Narrows the list of models as on the page that showed before.
  void TakeSearch(const PageView& former);
  /// Tells in tooltips which device each port choice stands for.
  void SetPortTips(const std::function<QString(int number)>& device_name);

 private:
  QWidget* MakeModelList();
  QWidget* MakeTabs();
  QWidget* MakeButtons();
  void AddShortcut(const Button& button, QPushButton& widget);
  QWidget* MakeStatus();
  /// What accompanies the page, and the version at the right end.
  QWidget* MakeStatusButtons(QWidget* parent);
  QWidget* MakeBanner();
  QWidget* MakeNotice();
  QWidget* MakeHeldClose();
  void FollowTabs();
  void ShowBadTab(int tab, bool bad);

  Page& page_;
  ControlViews views_;
  QTabWidget* tabs_ = nullptr;
  QLineEdit* finder_ = nullptr;
};

}  // namespace korva
