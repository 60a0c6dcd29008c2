#pragma once

#include "app/side_view.h"
#include "core/panel.h"

class QAbstractTableModel;
class QTableView;

namespace korva {

/// A panel on the screen: its heading, its table and its buttons. What is selected in the table, or all of it
/// when nothing is, goes to the clipboard with Ctrl+C or the button, a row a line, tabs between the cells.
class PanelView final : public SideView {
 public:
  PanelView(Panel& panel, EventGate& gate, QWidget* parent);

 protected:
  void ShowContents(bool other_heading) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class Model;

  void ShowRows();
  void FitColumns();
  void Copy();
  void MakeTable();

  Panel& panel_;
  QTableView* table_;
  Model* model_;
};

}  // namespace korva
