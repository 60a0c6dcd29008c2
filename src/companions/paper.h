#pragma once

#include <optional>
#include <string>

#include "core/document.h"
#include "platform/string.h"

namespace korva {

/// Paper, as far as the surroundings of the program have it.
class Paper {
 public:
  Paper() = default;
  Paper(const Paper&) = delete;
  Paper& operator=(const Paper&) = delete;
  virtual ~Paper() = default;

  /// The bytes of the document as a PDF file; nothing when it can't be drawn, and `why` then tells why.
  virtual std::optional<std::string> PdfOf(const Document& document, String& why) = 0;
  /// True when there is a user who can choose a printer.
  [[nodiscard]] virtual bool CanPrint() const = 0;
  /// Lets the user choose a printer, and prints unless he changes his mind; empty, or why that failed.
  virtual String Print(const Document& document) = 0;
};

}  // namespace korva
