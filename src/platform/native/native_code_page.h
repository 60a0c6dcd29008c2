#pragma once

#include "platform/code_page.h"

namespace korva {

/// Code page 932 by the machine's own conversion; independent of the locale.
class NativeCodePage final : public CodePage {
 public:
  NativeCodePage();
  ~NativeCodePage() override;
  NativeCodePage(const NativeCodePage&) = delete;
  NativeCodePage& operator=(const NativeCodePage&) = delete;

  [[nodiscard]] std::optional<std::string> Encode(StringView text) const override;

  /// As CodePage says; a broken sequence loses one byte at a time, so what follows it is still read. Control
  /// characters, NUL among them, pass as they are.
  [[nodiscard]] String Decode(std::string_view bytes) const override;

 private:
  // Conversion descriptors, opened once: opening one loads a table.
  void* encoder_;
  void* decoder_;
};

}  // namespace korva
