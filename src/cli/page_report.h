#pragma once

#include "cli/action.h"
#include "cli/outcome.h"
#include "cli/transcript.h"
#include "core/control.h"
#include "core/page.h"

namespace korva::cli {

/// A bar's value as it is printed: the nearest whole percent.
int Percent(const ProgressBar& bar);

// What the questions of a script print of a page.

/// A line for each control, its own state whatever it stands in: `Text(3) shown enabled unlocked normal
/// "12.5"`. A tab goes by the tab control's name and its number from 0 (`KvCfg_Tab(3)`), and is enabled when
/// it can be reached. Nothing when the page lacks one of them.
Outcome Report(const Page& page, const ShowControls& question, Transcript& transcript);
/// A line for each item of the page's parameter set that has a text, by group, then item.
Outcome Report(const Page& page, const DumpItems& question, Transcript& transcript);
/// A line for each cell of the grid that has a text or is marked and is no head, by row, then column.
Outcome Report(const Page& page, const DumpGrid& question, Transcript& transcript);

}  // namespace korva::cli
