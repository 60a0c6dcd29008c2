#pragma once

#include "companions/companions.h"
#include "core/program.h"
#include "link/device_page.h"

namespace korva {

/// The whole program without a window: the shared state, the line to the device, and the pages of all
/// families. Runs on any platform; a window or a script drives it through the pages' controls.
struct Application {
  /// `folder` is the program's folder, in which system, data and ports lie.
  Application(const Platform& platform, String folder);

  Companions companions;  ///< outlives the pages
  Program program;
  DeviceLink link;
};

}  // namespace korva
