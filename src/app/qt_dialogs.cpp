#include "app/qt_dialogs.h"

#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <map>

#include "app/looks.h"
#include "app/text.h"

namespace korva {

namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Warning:
      return QMessageBox::Warning;
    case BoxIcon::Question:
      return QMessageBox::Question;
    case BoxIcon::Plain:
      break;
  }
  return QMessageBox::NoIcon;
}

struct ButtonForm {
  QMessageBox::ButtonRole role;
  QString text;
};

ButtonForm FormOf(Answer answer) {
  switch (answer) {
    case Answer::Cancel:
      return {QMessageBox::RejectRole, QStringLiteral("キャンセル")};
    case Answer::Yes:
      return {QMessageBox::YesRole, QStringLiteral("はい(&Y)")};
    case Answer::No:
      return {QMessageBox::NoRole, QStringLiteral("いいえ(&N)")};
    case Answer::Ok:
      break;
  }
  return {QMessageBox::AcceptRole, QStringLiteral("OK")};
}

/// Makes a box with a short text as wide as its title asks for, beside the signs of the window's frame.
void HaveTitleShown(QMessageBox& message) {
  constexpr int signs = 20;  // in digits of the font
  auto& layout = dynamic_cast<QGridLayout&>(*message.layout());
  const int width = message.fontMetrics().horizontalAdvance(message.windowTitle()) + Digits(&message, signs);
  layout.addItem(new QSpacerItem(width, 0), layout.rowCount(), 0, 1, layout.columnCount());
}

/// "text|pattern|text|pattern|" as the list that Qt takes; a pattern that the text already shows stays there.
QStringList NameFilters(const String& filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
  QStringList names;
  for (qsizetype part = 0; part + 1 < parts.size(); part += 2) {
    const QString description = parts[part].section(QLatin1String(" ("), 0, 0);
    const QString pattern = parts[part + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[part + 1];
    names += description + QLatin1String(" (") + pattern + QLatin1Char(')');
  }
  return names;
}

/// Tells a screen reader what the boxes of Qt's own dialog are for: their labels ("fileTypeLabel" of
/// "fileTypeCombo") stand beside them alone.
void JoinLabels(const QFileDialog& chooser) {
  for (const char* name : {"lookIn", "fileType"}) {
    const QString stem = QString::fromLatin1(name);
    auto* label = chooser.findChild<QLabel*>(stem + QStringLiteral("Label"));
    if (label != nullptr) {  // the desktop's own dialog has none
      label->setBuddy(chooser.findChild<QComboBox*>(stem + QStringLiteral("Combo")));
    }
  }
}

}  // namespace

Answer QtDialogs::ShowBox(const Box& box) {
  QMessageBox message(parent_);
  message.setIcon(IconOf(box.icon));
  message.setWindowTitle(ToQt(box.title));
  ShowText(message, ToQt(box.text));
  HaveTitleShown(message);
  std::map<QAbstractButton*, Answer> answers;
  for (const Answer answer : box.buttons) {
    QPushButton* button = AddAnswer(message, answer);
    answers[button] = answer;
    if (answer == box.preset) {
      message.setDefaultButton(button);
    }
    if (answer == LeastAnswer(box)) {
      message.setEscapeButton(button);
    }
  }
  message.exec();
  gate_.RaiseIfEnded();
  const auto pressed = answers.find(message.clickedButton());
  return pressed == answers.end() ? LeastAnswer(box) : pressed->second;
}

void QtDialogs::WithFile(const String& path, const std::function<void()>& action) {
  file_ = path;
  action();
  file_.reset();
}

std::optional<String> QtDialogs::ChooseFile(const FileDialog& dialog) {
  if (file_ && !dialog.save) {
    return std::exchange(file_, std::nullopt);
  }
  QFileDialog chooser(parent_);
  Prepare(chooser, dialog);
  const bool chosen = chooser.exec() == QDialog::Accepted;
  gate_.RaiseIfEnded();
  if (!chosen || chooser.selectedFiles().isEmpty()) {
    return std::nullopt;
  }
  return FromQt(QDir::toNativeSeparators(chooser.selectedFiles().constFirst()));
}

void Prepare(QFileDialog& chooser, const FileDialog& dialog) {
  chooser.setAcceptMode(dialog.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  chooser.setFileMode(dialog.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  const QStringList filters = NameFilters(dialog.filter);
  chooser.setNameFilters(filters);
  if (dialog.filter_index >= 1 && dialog.filter_index <= filters.size()) {
    chooser.selectNameFilter(filters[dialog.filter_index - 1]);
  }
  if (dialog.save) {
    // "text (*.cfg)": the suffix that a name without one gets.
    chooser.setDefaultSuffix(filters.value(0).section(QLatin1String("*."), 1).chopped(1));
  }
  if (!dialog.start_folder.empty()) {
    chooser.setDirectory(ToQt(dialog.start_folder));
  }
  if (dialog.save && !dialog.name.empty()) {
    chooser.selectFile(ToQt(dialog.name));
  }
  JoinLabels(chooser);
}

QPushButton* AddAnswer(QMessageBox& box, Answer answer) {
  const ButtonForm form = FormOf(answer);
  return box.addButton(form.text, form.role);
}

void ShowText(QMessageBox& box, QString text) {
  text.remove(QLatin1Char('\r'));
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
  box.setAccessibleDescription(text);
}

void QtDialogs::ShowFailure(const String& text) {
  QMessageBox message(parent_);
  message.setIcon(QMessageBox::Critical);
  message.setWindowTitle(QStringLiteral("KORVA"));
  ShowText(message, ToQt(text));
  message.setDefaultButton(AddAnswer(message, Answer::Ok));
  message.exec();
}

}  // namespace korva
