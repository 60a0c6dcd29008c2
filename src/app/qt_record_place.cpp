#include "app/qt_record_place.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <utility>

#include "app/qt_dialogs.h"
#include "app/text.h"
#include "platform/native/native_record_file.h"

namespace korva {

namespace {

/// A dialog that saves, and the question whether to replace a file, one after the other.
class SaveQuestion final : public OpenQuestion {
 public:
  SaveQuestion(const FileDialog& dialog, EventGate& gate, RecordPlace::Chosen chosen, QWidget* parent)
      : gate_(gate), chosen_(std::move(chosen)), chooser_(new QFileDialog(parent)) {
    Prepare(*chooser_, dialog);
    chooser_->setObjectName(QStringLiteral("recordFile"));
    chooser_->setModal(false);
    // The desktop's own dialog, the questions of this one, its menus and its dragging have loops of their
    // own.
    chooser_->setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
                         QFileDialog::ReadOnly);
    for (auto* view : chooser_->findChildren<QAbstractItemView*>()) {
      view->setContextMenuPolicy(Qt::NoContextMenu);
      view->setDragEnabled(false);
    }
    QObject::connect(chooser_, &QDialog::accepted, chooser_, [this] { TakeFile(); });
    QObject::connect(chooser_, &QDialog::rejected, chooser_, [this] { Tell(std::nullopt); });
    chooser_->show();
  }
  SaveQuestion(const SaveQuestion&) = delete;
  SaveQuestion& operator=(const SaveQuestion&) = delete;
  ~SaveQuestion() override {
    for (QDialog* dialog : {static_cast<QDialog*>(chooser_.data()), static_cast<QDialog*>(replace_.data())}) {
      if (dialog != nullptr) {
        dialog->disconnect();
        dialog->hide();
        dialog->deleteLater();  // it may be the one whose signal ends this
      }
    }
  }

 private:
  void TakeFile() {
    const QString path = chooser_->selectedFiles().value(0);
    if (!QFileInfo::exists(path)) {
      Tell(path);
      return;
    }
    replace_ = new QMessageBox(chooser_->parentWidget());
    replace_->setIcon(QMessageBox::Warning);
    replace_->setWindowTitle(chooser_->windowTitle());
    ShowText(*replace_, QFileDialog::tr("%1 already exists.\nDo you want to replace it?")
                            .arg(QDir::toNativeSeparators(path)));
    replace_->setObjectName(QStringLiteral("replaceFile"));
    replace_->setModal(false);
    const QPushButton* yes = AddAnswer(*replace_, Answer::Yes);
    QPushButton* no = AddAnswer(*replace_, Answer::No);
    replace_->setDefaultButton(no);
    replace_->setEscapeButton(no);
    QObject::connect(replace_, &QDialog::finished, replace_, [this, yes, path] {
      QMessageBox* box = std::exchange(replace_, nullptr);
      const bool replaces = box->clickedButton() == yes;
      box->deleteLater();
      if (replaces) {
        Tell(path);
      } else {
        chooser_->show();
      }
    });
    replace_->show();
  }
  /// The last thing here: who is told lets go of this.
  void Tell(const std::optional<QString>& path) {
    gate_.Enter([&path, chosen = std::move(chosen_)] {
      chosen(path ? std::optional(FromQt(QDir::toNativeSeparators(*path))) : std::nullopt);
    });
  }

  EventGate& gate_;
  RecordPlace::Chosen chosen_;
  QPointer<QFileDialog> chooser_;
  QPointer<QMessageBox> replace_;
};

}  // namespace

std::unique_ptr<OpenQuestion> QtRecordPlace::Ask(const FileDialog& dialog, Chosen chosen) {
  return std::make_unique<SaveQuestion>(dialog, gate_, std::move(chosen), parent_);
}

std::unique_ptr<RecordFile> QtRecordPlace::Create(const String& path, SystemReason& reason) {
  return CreateRecordFile(path, reason);
}

LocalTime QtRecordPlace::Time() const { return LocalTimeNow(); }

}  // namespace korva
