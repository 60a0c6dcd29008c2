#pragma once

#include <span>

#include "platform/string.h"

namespace korva {

/// How a device answers the selection of a group: with "COK", or with "enter item".
enum class Dialect { Cok, EnterItem };

/// What sets a device family apart for the whole program.
struct Family {
  StringView word;      ///< as in column 2 of the catalogue
  StringView page;      ///< name of its page
  StringView folder;    ///< of its definition files, below the folder system
  int baud;             ///< speed of its line in bits a second
  StringView settings;  ///< of the port: speed, no parity, 8 data bits, 1 stop bit
  Dialect dialect;      ///< of its parameter traffic
};

/// All families, in the order in which a family word is compared with them.
std::span<const Family> Families();

/// The family of this word; nullptr when there is none.
const Family* FindFamily(StringView word);

}  // namespace korva
