#pragma once

#include "app/side_view.h"
#include "core/panel.h"

class QAbstractTableModel;
class QKeyEvent;
class QTableView;

namespace korva {

/// A panel on the screen: its heading, its table and its buttons. What is selected in the table, or all of it
/// when nothing is, goes to the clipboard with Ctrl+C or the button, a row a line, tabs between the cells.
/// Ctrl++ makes the columns as wide as their texts, Ctrl+- as they were at first.
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
  void WidenColumns();
  /// True for a key that the window takes from its table.
  bool Press(const QKeyEvent& key);
  void Copy();
  void MakeTable();

  Panel& panel_;
  QTableView* table_;
  Model* model_;
};

}  // namespace korva
