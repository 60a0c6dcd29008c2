#pragma once

#include <array>

#include "transfer/field_checks.h"

namespace korva {

/// Pulse averaging, a count, by the code of the frequency range: the faster the pulses, the fewer fit into
/// the device's time.
inline constexpr std::array kAveragingByRange = {
    CodeRange{.code = u"0", .low = 1, .high = 255}, CodeRange{.code = u"1", .low = 1, .high = 255},
    CodeRange{.code = u"2", .low = 1, .high = 255}, CodeRange{.code = u"3", .low = 1, .high = 255},
    CodeRange{.code = u"4", .low = 1, .high = 255}, CodeRange{.code = u"5", .low = 1, .high = 25},
    CodeRange{.code = u"6", .low = 1, .high = 2},
};

}  // namespace korva
