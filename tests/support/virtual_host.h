#pragma once

#include "platform/native/native_code_page.h"
#include "platform/native/native_file_store.h"
#include "platform/platform.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"

namespace korva::test {

/// Surroundings of the program in virtual time, with real files and the real code page. No port exists until
/// a line is connected to it: `host.port.Connect(1, &line)`.
struct VirtualHost {
  VirtualEventLoop loop;
  VirtualPort port{loop};
  VirtualDialogs dialogs;
  NativeFileStore files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
};

}  // namespace korva::test
