#pragma once

#include "cli/action.h"
#include "cli/outcome.h"
#include "core/page.h"

namespace korva::cli {

// The user's actions on a showing page, as the screen would let him do them. Each is called inside the gate.
Outcome ActOn(Page& page, const ChooseModel& action);
Outcome ActOn(const Page& page, const ClickButton& action);
Outcome ActOn(const Page& page, const TypeText& action);
Outcome ActOn(const Page& page, const PickEntry& action);
Outcome ActOn(const Page& page, const ClickCell& action);
Outcome ActOn(const Page& page, const PressKey& action);
Outcome ActOn(Page& page, const ClickTab& action);

}  // namespace korva::cli
