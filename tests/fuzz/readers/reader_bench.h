#pragma once

#include <cstddef>
#include <cstdint>

#include "core/boxes.h"
#include "core/line_reader.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "support/memory_files.h"

namespace korva::test {

/// The one code page of a fuzzer: making one takes longer than reading a file.
inline NativeCodePage& CodePage932() {
  static NativeCodePage code_page;
  return code_page;
}

/// Which of `count` readers reads an input: its last byte tells, which is a line end in a file as users have
/// it. One reader an input leaves time for more inputs.
inline std::size_t ReaderOf(const std::uint8_t* data, std::size_t size, std::size_t count) {
  return size == 0 ? 0 : data[size - 1] % count;
}

/// One file of the input's bytes, and what a reader needs to read it; nothing of a page, so that a fuzzer has
/// the time for thousands of files a second.
struct ReaderBench {
  static constexpr const char16_t* kPath = u"/any";

  ReaderBench(const std::uint8_t* data, std::size_t size) {
    files.Put(kPath, {reinterpret_cast<const char*>(data), size});
  }

  MemoryFiles files;
  NativeCodePage& code_page = CodePage932();
  SharedState shared;
  LineReader lines{files, code_page, shared};
  VirtualDialogs dialogs;
  Boxes boxes{dialogs};
};

}  // namespace korva::test
