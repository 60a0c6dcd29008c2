#include "app/model_finder.h"

#include <QKeyEvent>

namespace korva {

ModelFinder::ModelFinder(ListView& list, const QString& prompt, QWidget* parent)
    : QLineEdit(parent), list_(list) {
  setObjectName(QString::fromLatin1(kName));
  setAccessibleName(prompt);
  setPlaceholderText(prompt);
  setToolTip(prompt);
  setClearButtonEnabled(true);
  connect(this, &QLineEdit::textChanged, this, [this](const QString& words) { list_.Narrow(words); });
}

void ModelFinder::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Down:
      list_.setFocus();
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      ChooseTheOne();
      break;
    case Qt::Key_Escape:
      clear();
      break;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

void ModelFinder::ChooseTheOne() {
  const std::vector<int> shown = list_.Shown();
  if (shown.size() == 1 && list_.isEnabled()) {
    list_.setCurrentRow(shown.front());
  }
}

}  // namespace korva
