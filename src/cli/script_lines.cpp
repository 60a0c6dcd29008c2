#include "cli/script_lines.h"

#include <algorithm>

namespace korva::cli {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kSlack = 8;  // more than a byte order mark and a line end have

}  // namespace

void ScriptLines::Feed(std::string_view bytes) {
  bytes_.erase(0, taken_);
  taken_ = 0;
  bytes_ += bytes;
  const std::size_t last_line = bytes_.rfind('\n') + 1;
  bytes_.resize(std::min(bytes_.size(), last_line + kMostBytes + kSlack));
}

std::optional<std::string> ScriptLines::Next() {
  const std::size_t end = bytes_.find('\n', taken_);
  if (end == std::string::npos && (!closed_ || taken_ == bytes_.size())) {
    return std::nullopt;
  }
  std::string line = bytes_.substr(taken_, end - taken_);
  taken_ = end == std::string::npos ? bytes_.size() : end + 1;
  if (at_start_ && line.starts_with(kByteOrderMark)) {
    line.erase(0, kByteOrderMark.size());
  }
  at_start_ = false;
  if (line.ends_with('\r')) {
    line.pop_back();
  }
  return line;
}

}  // namespace korva::cli
