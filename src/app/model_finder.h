#pragma once

#include <QLineEdit>

#include "app/list_view.h"

namespace korva {

/// The field above the list of models: typing narrows the list. Down leads into the list, Enter chooses the
/// one model that is left, Escape shows all again.
class ModelFinder final : public QLineEdit {
 public:
  /// `list` lives as long as the field.
  ModelFinder(ListView& list, const QString& prompt, QWidget* parent);

  static constexpr const char* kName = "txtFindModel";

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ChooseTheOne();

  ListView& list_;
};

}  // namespace korva
