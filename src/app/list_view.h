#pragma once

#include <QListWidget>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "core/control.h"

namespace korva {

/// A list on the screen. The empty entries at its end can't be told apart and stand for nothing: they are not
/// shown. What is scrolled by the user is the list's top row; a newly chosen entry comes into view.
class ListView final : public QListWidget {
 public:
  /// `pick` carries out the user's choice of the entry at a position.
  ListView(ListBox& list, std::function<void(int position)> pick, QWidget* parent);
  /// Brings the widget to what the list holds; called after each change of it.
  void Show();
  /// What a tooltip tells of the entry at a position, by which it can be found too.
  void Describe(std::function<QString(int position)> describe) { describe_ = std::move(describe); }
  /// Shows the entries alone of which each word of `words` stands in name or description, in capitals or not.
  void Narrow(const QString& words);
  /// Positions of the entries that are shown.
  [[nodiscard]] std::vector<int> Shown() const;

 protected:
  bool viewportEvent(QEvent* event) override;
  /// Keeps the present entry in view where that was, as when a smaller window has less room.
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Entry;

  void Fill();
  [[nodiscard]] QString Description(int position);
  [[nodiscard]] int TopRow() const { return row(itemAt(1, 1)); }

  ListBox& list_;
  std::function<void(int position)> pick_;
  std::function<QString(int position)> describe_;
  std::map<int, QString> descriptions_;  ///< those that were asked for, by position
  bool following_ = false;               ///< the page chooses or scrolls, not the user
  int shown_top_ = -1;                   ///< the list's top row when it was last brought to the top
};

}  // namespace korva
