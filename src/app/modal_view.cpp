#include "app/modal_view.h"

#include <QCloseEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "app/looks.h"

namespace korva {

namespace {

constexpr int kMargin = 3;  ///< around the controls, in digits of the font

}  // namespace

ModalView::ModalView(const ModalWindow& window, Program& program, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      window_(window),
      program_(program),
      views_(program.Loop().Gate()) {
  setObjectName(QString::fromStdString(window.Name()));
  setWindowTitle(QStringLiteral("KORVA"));
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  const int margin = Digits(this, kMargin);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  for (Control* control : window.Controls()) {
    QWidget* widget = views_.Make(*control, this);
    if (auto* text = qobject_cast<QLabel*>(widget)) {
      text->setAlignment(Qt::AlignCenter);
      setAccessibleDescription(text->text());
    } else {
      widget->setAccessibleName(accessibleDescription());  // a bar's caption is the text above it
    }
    layout->addWidget(widget);
  }
}

void ModalView::closeEvent(QCloseEvent* event) {
  event->ignore();
  program_.PressClose();
}

}  // namespace korva
