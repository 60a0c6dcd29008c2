#pragma once

#include <memory>

#include "platform/record_place.h"

namespace korva {

/// As RecordPlace::Create says, on the machine's own files: an existing file is emptied and keeps its
/// permissions, and symbolic links are followed. What is added has been handed to the system, so that it
/// outlives the program, but nobody waits until it is on the disk.
std::unique_ptr<RecordFile> CreateRecordFile(const String& path, SystemReason& reason);

/// By the machine's clock and the user's time zone.
LocalTime LocalTimeNow();

}  // namespace korva
