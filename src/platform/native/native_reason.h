#pragma once

#include "platform/system_reason.h"

namespace korva {

/// What the system's error number tells.
SystemReason ReasonOf(int error);

}  // namespace korva
