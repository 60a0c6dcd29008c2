#pragma once

#include <span>

#include "core/or_none.h"
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
  /// Place of its page in the order in which a closing page unloads the others; without one the page stays
  /// until the program ends.
  OrNone<int> unload_place;
};

/// The families that a program serves.
struct Families {
  std::span<const Family* const> all;  ///< in the order in which a family word is compared with them
  const Family& root;                  ///< the one whose page shows first

  /// The family of this word; nullptr when there is none.
  [[nodiscard]] const Family* Find(StringView word) const;
};

}  // namespace korva
