#pragma once

#include "platform/string.h"

namespace korva {

/// Why the system refused something that was to be done with a file or a port.
struct SystemReason {
  /// What the program can tell a user in words of its own.
  enum class Case {
    Other,
    Missing,       ///< there is nothing of this name, or not the folder for it
    NotPermitted,  ///< the user has no right to it
    Folder,        ///< it is a folder and no file
    NoSpace,       ///< the disk, or the user's share of it, is full
    ReadOnly,      ///< it lies on a disk that is not written on
    InUse,         ///< another program has it for itself
    TooLarge       ///< it has, or would get, more bytes than a file may have
  };
  Case what = Case::Other;
  String words;  ///< the system's own
};

}  // namespace korva
