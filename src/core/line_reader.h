#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "core/shared_state.h"
#include "platform/code_page.h"
#include "platform/file_store.h"
#include "platform/string.h"

namespace korva {

/// Strips TABs, blanks and double quotes from both ends.
String TrimLine(String text);

/// Reads the text files of the program line by line, under fixed handles: 1 the catalogue, 2 configurations,
/// 3 definitions, 4 tables.
///
/// A file is taken in whole when it is opened, so that it can be replaced while it is being read. Lines end
/// with CR LF, LF or CR; the last one may lack its end. NUL bytes stay, and bytes without a meaning in the
/// code page become U+FFFD. One line can be pushed back; the buffers for it lie in the shared state, one for
/// all handles.
class LineReader {
 public:
  /// Far above any file of the program; keeps the memory safe.
  static constexpr std::size_t kMostBytes = std::size_t{64} << 20;

  LineReader(const FileStore& files, const CodePage& code_page, SharedState& shared);

  /// Opens the file under `handle`; a file that was open under it is closed first. Throws RuntimeFailure with
  /// the path and the system's own reason when it can't be read.
  void OpenTextFile(const String& path, int handle);
  /// The same for a file that the user chose: false when it can't be read or has more than `most` bytes, and
  /// `reason` then tells why.
  bool TryOpenTextFile(const String& path, int handle, SystemReason& reason, std::size_t most = kMostBytes);
  /// Lets the open file be read from its beginning once more.
  void Rewind(int handle);
  /// Closes the handle; one that is not open is ignored.
  void CloseTextFile(int handle);
  /// True when the last line of the file has been read, even if it was pushed back. A handle that is not open
  /// is at its end.
  [[nodiscard]] bool AtEnd(int handle) const;
  /// The next line, or the one pushed back, stripped by TrimLine. Throws RuntimeFailure with file and line
  /// number when there is none left.
  String ReadLine(int handle);
  /// Makes `line` the next one that ReadLine returns.
  void UnreadLine(const String& line);
  /// Takes the text from `position` (from 1) up to the next comma or the end of the line into LineField,
  /// stripped by TrimLine. Returns the position behind the comma, or -1 when there was none. A position
  /// outside the line gives an empty field and -1.
  int NextField(int position, const String& line);
  /// LineField: what NextField took last.
  [[nodiscard]] const String& Field() const { return shared_.LineField; }

 private:
  struct OpenFile {
    String path;
    std::string bytes;
    std::size_t position = 0;  ///< of the next line's first byte
    int lines_read = 0;
  };

  const FileStore& files_;
  const CodePage& code_page_;
  SharedState& shared_;
  std::map<int, OpenFile> open_files_;
};

}  // namespace korva
