#pragma once

#include <string>
#include <string_view>

namespace korva {

/// Text inside the program: UTF-16, in which each character of code page 932 is one unit, so that lengths and
/// positions count characters. The code page exists at the edges only (see CodePage).
using String = std::u16string;
using StringView = std::u16string_view;

}  // namespace korva
