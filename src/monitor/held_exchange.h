#pragma once

#include "core/page.h"

namespace korva {

// An exchange that takes the device out of monitor mode and back: a program that ended in the middle of it
// would leave the device in programming mode. A close request made meanwhile is held.

/// Locks the frame, so that nothing else can start, and holds close requests.
void BeginHeldExchange(Page& page);

/// Ends the program if the user wanted to close it meanwhile and the device is back in monitor mode
/// (`released`); else unlocks the frame. Without `released` the window stays, since the user, who has seen
/// the box of the failure, must be able to act on the device.
void EndHeldExchange(Page& page, bool released);

}  // namespace korva
