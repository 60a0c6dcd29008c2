#pragma once

#include <array>

#include "platform/string.h"

namespace korva {

/// How a device spells its input types, in the order of the definition's list.
inline constexpr int kSensorTexts = 17;
using SensorTexts = std::array<StringView, kSensorTexts>;
/// The texts of devices whose version text is exactly "SYSVER   1.00", and those of all others.
const SensorTexts& ShortSensorTexts();
const SensorTexts& LongSensorTexts();
/// Those of the device with this version text.
const SensorTexts& SensorTextsOf(StringView version);

}  // namespace korva
