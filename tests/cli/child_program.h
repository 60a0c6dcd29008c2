#pragma once

#include <sys/types.h>

#include <QProcess>
#include <QStringList>
#include <filesystem>
#include <string>
#include <vector>

namespace korva::cli::test {

using Lines = std::vector<std::string>;

/// A program of this build that runs beside the test and is ended with it. A test that waits for what never
/// comes fails after half a minute.
class ChildProgram {
 public:
  /// Starts the program, which is one of this build when it is no full path.
  ChildProgram(const std::filesystem::path& program, const QStringList& arguments);
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;
  ~ChildProgram() { Terminate(); }

  /// Writes a line to its standard input.
  void Send(const std::string& line);
  /// The next line of its standard output; waits for it.
  std::string ReadLine();
  /// The lines up to and with the first one that begins so.
  Lines ReadUntil(const std::string& beginning);
  /// Ends its standard input; all that it prints until it ends.
  Lines ReadToEnd();
  /// Its exit status, and what it printed to standard error; waits for its end.
  int Status();
  std::string Complaints();
  /// Its process.
  [[nodiscard]] pid_t Process() const { return static_cast<pid_t>(process_.processId()); }
  /// Asks it to end, and waits for that.
  void Terminate();

 private:
  void AwaitEnd();

  QProcess process_;
};

}  // namespace korva::cli::test
