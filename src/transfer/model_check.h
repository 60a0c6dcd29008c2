#pragma once

#include "link/device_page.h"

namespace korva {

/// Reads the device's model, group "00", item "01", and compares it with the model of the page: the first
/// four characters of the definition file's name, and the two from the fourth on where they are one of the
/// tails "T2", "R2", "V2", "M2" and "F2" on either side. False after its box, with CommFailed set, when they
/// differ or the device doesn't answer.
bool ConfirmModelOfDevice(DevicePage& page);

/// The comparison alone: "Z2WT2-KA-X" is no model of "Z2WT.def".
bool SameModel(StringView def_file, StringView model);

}  // namespace korva
