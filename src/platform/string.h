#pragma once

#include <string>
#include <string_view>

namespace korva {

/// Text inside the program: UTF-16, so that a position in a text is the position that the rules of the
/// devices and files speak of. Code page 932 exists at the edges only (see CodePage).
using String = std::u16string;
using StringView = std::u16string_view;

}  // namespace korva
