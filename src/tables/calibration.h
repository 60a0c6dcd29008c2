#pragma once

#include "link/eeprom.h"

namespace korva {

/// True when the number of `size` bytes was written and is read back as these bytes; what `value` has beyond
/// them is cut off.
bool StoreNumber(Eeprom& eeprom, int address, int size, std::int32_t value);
/// True when the text was written, padded with blanks to its place, and is read back. False, and nothing was
/// sent, for one that is too long or has a character that the code page lacks.
bool StoreText(Eeprom& eeprom, const CodePage& code_page, int address, const String& text);

/// Makes the calibration of one type of the converter (0, 1, 2) the active one. False for another type, of
/// which nothing is copied, and when a value could not be read or stored.
bool CopyAdcBank(Eeprom& eeprom, int type);

/// Where a model has its calibration of the output.
enum class OutputLayout { A, B };
/// Makes the calibration of one type of the output (0, 1, 2) the active one. False as above.
bool CopyOutputBank(Eeprom& eeprom, OutputLayout layout, int type);

}  // namespace korva
