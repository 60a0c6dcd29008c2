#pragma once

#include <QDialog>

#include "app/control_views.h"
#include "core/panel.h"

class QAbstractTableModel;
class QLabel;
class QPushButton;
class QTableView;

namespace korva {

/// A panel on the screen: its heading, its table and its buttons. What is selected in the table, or all of it
/// when nothing is, goes to the clipboard with Ctrl+C or the button, a row a line, tabs between the cells.
class PanelView final : public QDialog {
 public:
  PanelView(Panel& panel, EventGate& gate, QWidget* parent);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Model;

  void Show();
  void ShowRows();
  void FitColumns();
  void Copy();
  QWidget* MakeTable();
  QWidget* MakeButtons();

  Panel& panel_;
  ControlViews views_;
  QLabel* heading_;
  QTableView* table_;
  Model* model_;
  QPushButton* copy_ = nullptr;
  QPushButton* close_ = nullptr;
};

}  // namespace korva
