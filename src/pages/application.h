#pragma once

#include "companions/companions.h"
#include "core/program.h"
#include "link/device_page.h"

namespace korva {

/// The whole program without a window: the shared state, the line to the device, and the pages of all
/// families. Runs on any platform; a window or a script drives it through the pages' controls.
struct Application {
  Application(const Platform& platform, ProgramFolders folders);
  /// The same with system and data in one folder.
  Application(const Platform& platform, const String& folder)
      : Application(platform, ProgramFolders{.installed = folder, .own = folder}) {}

  Companions companions;  ///< outlives the pages
  Program program;
  DeviceLink link;
};

}  // namespace korva
