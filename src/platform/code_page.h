#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/string.h"

namespace korva {

/// The legacy code page of files and of the line (932).
class CodePage {
 public:
  CodePage() = default;
  CodePage(const CodePage&) = delete;
  CodePage& operator=(const CodePage&) = delete;
  virtual ~CodePage() = default;

  /// The bytes of `text`; nothing when a character has none that reads back as the same character.
  [[nodiscard]] virtual std::optional<std::string> Encode(StringView text) const = 0;

  /// The text of `bytes`; a byte sequence without a meaning becomes U+FFFD.
  [[nodiscard]] virtual String Decode(std::string_view bytes) const = 0;
};

}  // namespace korva
