#pragma once

#include <QListWidget>
#include <QTest>

#include "app/main_window.h"
#include "app/text.h"
#include "files/parameter_page.h"
#include "support/device_line.h"
#include "support/kept_paper.h"

namespace korva::test {

/// The program with its window in virtual time, and a device of `model` on COM 1.
struct WindowBench {
  explicit WindowBench(const char* model)
      : device(sim::Device::ForModel(KORVA_HOME, model)),
        application(device.platform, FromQt(QString::fromUtf8(KORVA_HOME))) {
    application.companions.UsePaper(paper);
    application.program.Start();
    window.resize(1180, 740);
    window.show();
    Choose(QString::fromUtf8(model));
  }
  WindowBench(const WindowBench&) = delete;
  WindowBench& operator=(const WindowBench&) = delete;
  ~WindowBench() { window.hide(); }

  template <typename T>
  T* Find(const char* name) {
    auto* widget = window.findChild<T*>(QString::fromLatin1(name));
    if (widget == nullptr) {
      qFatal("no widget %s", name);
    }
    return widget;
  }
  void Press(const char* name) { QTest::mouseClick(Find<QWidget>(name), Qt::LeftButton); }
  void Choose(const QString& model) {
    auto* list = Find<QListWidget>("lst_TypeSelect");
    QListWidgetItem* item = list->findItems(model, Qt::MatchExactly).constLast();
    list->scrollToItem(item);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
  }
  void Upload() {
    device.dialogs.QueueAnswer(Answer::Yes);
    device.dialogs.QueueAnswer(Answer::Ok);
    Press("cmdUpload");
  }
  /// Brings a tab to the front, even where the device's settings give no reason for it.
  void Show(int tab) const {
    Page().Tabs.SetTabEnabled(tab, true);
    window.Current()->ShowTab(tab);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] ParameterPage& Page() const {
    return dynamic_cast<ParameterPage&>(*application.program.Showing());
  }

  DeviceBench device;
  KeptPaper paper;
  Application application;
  MainWindow window{application};
};

}  // namespace korva::test
