#pragma once

#include <QAccessible>
#include <QBasicTimer>
#include <QLabel>
#include <QTabBar>
#include <QWidget>
#include <functional>

#include "core/page.h"

namespace korva {

// What a screen reader is told. All of it is made when one asks for the first time.

/// Lets screen readers know the widgets whose role was told below. Call once, after the application object is
/// made.
void PrepareAccessibility();

/// What a widget is to a screen reader, where its class does not tell.
void TellRole(QWidget* widget, QAccessible::Role role);

/// What a screen reader says of a field or cell in this look; empty where it is not worth saying, as that a
/// value is being read.
QString StateWords(Look look, Language language = Language::Japanese);

/// What it says of something that the user should look at.
QString LookWords(Language language = Language::Japanese);

/// `read` is called with `label` whenever it comes with a text or shows another one. `control` is the label's
/// or the frame's that it stands in, whose widget follows it already; it outlives the label.
void OnNewText(Control& control, QLabel* label, std::function<void(QLabel& label)> read);
/// Has each new text of `label` read out; `role` is what it is to a screen reader.
void ReadOut(Control& control, QLabel* label, QAccessible::Role role);

/// The names and descriptions by which a screen reader tells a page's widgets apart: caption and item, as
/// they are at present; then unit and state. The widgets are found by their object names, which are the
/// controls' full names. Nothing is done before a screen reader asks, and then once after any number of
/// changes.
class SpokenPage final : public QObject, public QAccessible::ActivationObserver {
 public:
  /// Belongs to `view`, which shows `page`; the page outlives it.
  SpokenPage(QWidget& view, const Page& page);
  SpokenPage(const SpokenPage&) = delete;
  SpokenPage& operator=(const SpokenPage&) = delete;
  ~SpokenPage() override;
  void accessibilityActiveChanged(bool active) override;

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void Listen();
  void Tell() const;
  void TellTabs(QTabBar& bar) const;

  QWidget& view_;
  const Page& page_;
  QBasicTimer due_;
  bool listens_ = false;  ///< to the page's controls
};

}  // namespace korva
