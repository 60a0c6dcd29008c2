#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korva::cli {

/// Cuts the bytes of a script, as they arrive, into lines. A line ends with LF or CR LF, the last one also
/// with the script. A byte order mark at the beginning is no part of the first line. Of a line that is too
/// long only the beginning is kept, which is too long as well.
class ScriptLines {
 public:
  static constexpr std::size_t kMostBytes = std::size_t{64} << 10;  ///< of a line, without its line end

  void Feed(std::string_view bytes);
  /// Nothing more will come.
  void Close() { closed_ = true; }
  [[nodiscard]] bool Closed() const { return closed_; }

  /// The next line without its line end; nothing while none is complete.
  std::optional<std::string> Next();

 private:
  std::string bytes_;
  std::size_t taken_ = 0;  ///< how many of the bytes were given out as lines
  bool closed_ = false;
  bool at_start_ = true;
};

}  // namespace korva::cli
