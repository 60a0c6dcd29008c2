#pragma once

#include <map>
#include <memory>
#include <vector>

#include "companions/watch.h"
#include "platform/code_page.h"
#include "platform/record_place.h"

namespace korva {

/// Live values in a csv file, as the program's other csv files are: code page 932, lines with CR LF. Cells
/// are quoted where they must be (RFC 4180).
///
/// The head line names the values. Then comes a line for each whole turn of the loop: day and time of day at
/// its end, the seconds since the recording began, and for each value what was read in this very turn, with
/// its unit. A value that was not told has two empty cells. Each line is in the file before the loop goes on.
class Recording {
 public:
  /// All outlive this.
  Recording(const EventLoop& loop, const CodePage& code_page) : loop_(loop), code_page_(code_page) {}
  Recording(const Recording&) = delete;
  Recording& operator=(const Recording&) = delete;
  ~Recording() { End(); }

  /// Begins at the next turn. False when there is no such file to be made, or, as any time later, when it
  /// can't be written: Problem() tells then, and the recording has ended.
  bool Begin(RecordPlace& place, const String& path);
  void Take(const WatchReading& reading);
  /// The values of a turn are all read. `values` are those that the loop reads.
  void EndTurn(const std::vector<WatchedValue>& values, Language language);
  /// Brings the record to the disk. Problem() tells when that failed.
  void End();
  void ForgetProblem() { problem_.clear(); }

  [[nodiscard]] bool Runs() const { return file_ != nullptr; }
  [[nodiscard]] const String& Path() const { return path_; }
  /// Why the last recording ended before its end, or is not on the disk; empty for one that is whole.
  [[nodiscard]] const String& Problem() const { return problem_; }

 private:
  /// A line of cells.
  using Cells = std::vector<String>;

  [[nodiscard]] static Cells Head(const std::vector<WatchedValue>& values, Language language);
  [[nodiscard]] Cells Line() const;
  void Write(const Cells& cells);
  void Fail(const SystemReason& reason);

  const EventLoop& loop_;
  const CodePage& code_page_;
  RecordPlace* place_ = nullptr;
  std::unique_ptr<RecordFile> file_;
  String path_;
  String problem_;
  std::vector<int> rows_;             ///< of the columns; empty: the first whole turn has not begun
  std::map<int, WatchReading> turn_;  ///< what was read in it, by row
  Clock began_{0};
};

/// The cells with commas between them and a line end. A cell with a comma, a quote or a line end in it stands
/// in quotes.
String CsvLine(const std::vector<String>& cells);

}  // namespace korva
