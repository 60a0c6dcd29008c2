#pragma once

#include "platform/code_page.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/file_store.h"
#include "platform/port.h"

namespace korva {

/// All that the program needs of its surroundings. The parts live longer than the program.
struct Platform {
  EventLoop& loop;
  Port& port;
  Dialogs& dialogs;
  FileStore& files;
  CodePage& code_page;
};

}  // namespace korva
