#pragma once

#include "cli/transcript.h"
#include "companions/watch.h"

namespace korva::cli {

/// Prints what is known of the live values: a line that tells whether the loop runs, and one for each value
/// with its unit and its least and most number. Nothing but `watch none` before the first one.
///
///     watch running
///     watch 04 "測定温度" "414.25" "deg C" min "330.25" max "414.25"
///     watch 06 "入力信号" "12.00" "mV" min "12.00" max "12.00" silent 7
///
/// In place of `running` stands `ended`. Behind a value that is not the present one stand the seconds since
/// it was told: `silent` where the device no longer answers, else `old`.
void PrintWatch(const Watch& watch, Clock now, Transcript& transcript);

}  // namespace korva::cli
