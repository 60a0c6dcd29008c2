#include "core/line_reader.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "core/text_utilities.h"
#include "core/texts.h"
#include "platform/event_gate.h"

namespace korva {

namespace {

constexpr StringView kStripped = u"\t \"";

}  // namespace

String TrimLine(String text) {
  text.erase(std::min(text.find_last_not_of(kStripped) + 1, text.size()));
  text.erase(0, std::min(text.find_first_not_of(kStripped), text.size()));
  return text;
}

LineReader::LineReader(const FileStore& files, const CodePage& code_page, SharedState& shared)
    : files_(files), code_page_(code_page), shared_(shared) {}

void LineReader::OpenTextFile(const String& path, int handle) {
  SystemReason reason;
  if (!TryOpenTextFile(path, handle, reason)) {
    throw RuntimeFailure(u"ファイルを開けません。\n" + path + u"\n" + ReasonText(reason));
  }
}

bool LineReader::TryOpenTextFile(const String& path, int handle, SystemReason& reason, std::size_t most) {
  CloseTextFile(handle);
  std::optional<std::string> bytes = files_.Read(path, most, reason);
  if (!bytes) {
    return false;
  }
  open_files_[handle] = {.path = path, .bytes = std::move(*bytes)};
  return true;
}

void LineReader::Rewind(int handle) {
  shared_.LinePushedBack = false;
  if (const auto found = open_files_.find(handle); found != open_files_.end()) {
    found->second.position = 0;
    found->second.lines_read = 0;
  }
}

void LineReader::CloseTextFile(int handle) {
  open_files_.erase(handle);
  shared_.LinePushedBack = false;
}

bool LineReader::AtEnd(int handle) const {
  const auto found = open_files_.find(handle);
  return found == open_files_.end() || found->second.position == found->second.bytes.size();
}

String LineReader::ReadLine(int handle) {
  if (shared_.LinePushedBack) {
    shared_.LinePushedBack = false;
    return shared_.LineBuffer;
  }
  const auto found = open_files_.find(handle);
  if (found == open_files_.end()) {
    throw RuntimeFailure(u"開いていないファイルは読めません。");
  }
  OpenFile& file = found->second;
  if (file.position == file.bytes.size()) {
    throw RuntimeFailure(u"ファイルが途中で終わっています。\n" + file.path + u" (" +
                         Ascii(std::to_string(file.lines_read + 1)) + u"行目)");
  }
  const std::size_t end = std::min(file.bytes.find_first_of("\r\n", file.position), file.bytes.size());
  const std::string_view line = std::string_view(file.bytes).substr(file.position, end - file.position);
  shared_.LineBuffer = TrimLine(code_page_.Decode(line));
  const bool two_characters = file.bytes.compare(end, 2, "\r\n") == 0;
  file.position = std::min(end + (two_characters ? 2 : 1), file.bytes.size());
  ++file.lines_read;
  return shared_.LineBuffer;
}

void LineReader::UnreadLine(const String& line) {
  shared_.LineBuffer = line;
  shared_.LinePushedBack = true;
}

int LineReader::NextField(int position, const String& line) {
  shared_.LineField.clear();
  if (position < 1 || static_cast<std::size_t>(position) > line.size()) {
    return -1;
  }
  const std::size_t first = static_cast<std::size_t>(position) - 1;
  const std::size_t comma = line.find(u',', first);
  shared_.LineField = TrimLine(line.substr(first, std::min(comma, line.size()) - first));
  return comma == String::npos ? -1 : static_cast<int>(comma) + 2;
}

}  // namespace korva
