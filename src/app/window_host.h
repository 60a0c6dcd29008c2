#pragma once

#include <QString>

#include "app/main_window.h"
#include "app/qt_dialogs.h"
#include "app/qt_paper.h"
#include "app/qt_record_place.h"
#include "pages/application.h"
#include "platform/native/native_code_page.h"
#include "platform/native/native_file_store.h"
#include "platform/qt/program_home.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_port.h"

namespace korva {

/// Chooses the look that suits Japanese text: the fonts, the style and the language of Qt's own texts, out of
/// the folder translations beside the program or Qt's own one. Call once, after the application object is
/// made.
void PrepareLook();

/// The program with its window, on the Qt host. The application object must exist.
class WindowHost {
 public:
  /// `dialogs` take the place of boxes and dialogs on the screen.
  explicit WindowHost(const ProgramHome& home, Dialogs* dialogs = nullptr);

  /// Starts the program and shows its window, which takes the whole screen where that is too small for its
  /// usual size. False when that ended the program.
  bool Start();
  /// Opens a configuration file, whose path is absolute; a window that shows tells of a failure in a box.
  void Open(const QString& path);
  /// Runs until the program has ended; the process's exit status.
  int Run() { return loop_.Run(); }

  [[nodiscard]] MainWindow& Window() { return window_; }
  [[nodiscard]] Program& Running() { return application_.program; }

 private:
  void ShowWindow();
  /// By a press of its button, which may be out of reach meanwhile.
  void OpenDropped(const QString& path, const Button& button);

  QtEventLoop loop_;
  QtPort port_;
  QtDialogs dialogs_;
  QtRecordPlace records_;
  QtPaper paper_;
  NativeFileStore files_;
  NativeCodePage code_page_;
  Application application_;
  MainWindow window_;
};

}  // namespace korva
