#pragma once

#include "cli/transcript.h"
#include "companions/comparison.h"
#include "companions/transfer_report.h"

namespace korva::cli {

/// Prints the report of the last transfer: a line that tells how it went, and one for each step. Nothing but
/// `report none` before the first transfer.
///
///     report download "QHW" done
///     report 01/10 "入力ﾀｲﾌﾟ" sent "07" answered "Tc-2:K(CA)" compared
///     report 01/21 "温度単位" sent "" answered "" skipped needless
void PrintReport(const TransferReport& report, Transcript& transcript);

/// Prints a comparison: a line that tells with what and how it went, and one for each value that differs.
///
///     compare device "QHW" complete 1
///     compare 01/14 "入力ｾﾞﾛ (0%)" page "1 V" other "2 V"
///
/// For `complete` stands `broken` where not all could be read, and `other-model` for a file of another model.
void PrintComparison(const Comparison& comparison, Transcript& transcript);

}  // namespace korva::cli
