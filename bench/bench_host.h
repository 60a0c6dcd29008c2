#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "pages/application.h"
#include "platform/native/native_code_page.h"
#include "platform/native/native_file_store.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/qt/qt_port.h"
#include "platform/virtual/virtual_dialogs.h"

namespace korva::bench {

/// Of a benchmark of what a user sees.
inline constexpr int kRepetitions = 9;

/// A program's folder of its own, with the built system data, whose COM 1 is `device`.
class HomeFolder {
 public:
  explicit HomeFolder(const std::string& device);
  HomeFolder(const HomeFolder&) = delete;
  HomeFolder& operator=(const HomeFolder&) = delete;
  ~HomeFolder();
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// The whole program on the Qt host, with boxes that answer themselves.
struct BenchHost {
  explicit BenchHost(const std::string& device);

  /// Starts the program and clicks the entry of this name in its model list.
  void StartWith(StringView model);
  /// Carries `action` out as an event of the program.
  void Act(const std::function<void()>& action) { loop.Gate().Enter(action); }

  HomeFolder home;
  QtEventLoop loop;
  QtPort port;
  VirtualDialogs dialogs;
  NativeFileStore files;
  NativeCodePage code_page;
  Application application;
};

}  // namespace korva::bench
