#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "platform/pseudo_terminal.h"

namespace korva::bench {

/// A program that was started, with pipes for its input and output; it is ended with this object.
class Child {
 public:
  /// `surroundings` are variables of its environment ("NAME=value") in place of or beside those of this
  /// process.
  Child(const std::string& program, const std::string& home,
        const std::vector<std::string>& surroundings = {});
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child();

  void Say(const std::string& text) const;
  /// Reads until the output has `text`, and maybe some of what follows; all that was read. Without the text
  /// the output has ended.
  [[nodiscard]] std::string ReadUpTo(const std::string& text) const;
  [[nodiscard]] bool ReadsUpTo(const std::string& text) const {
    return ReadUpTo(text).find(text) != std::string::npos;
  }
  /// Whether the program is sleeping at this moment.
  [[nodiscard]] bool Sleeps() const;
  /// Memory in use, or the most of it so far, in MB (2^20 bytes): what the system calls VmRSS and VmHWM.
  [[nodiscard]] double Memory() const { return Megabytes("VmRSS:"); }
  [[nodiscard]] double MostMemory() const { return Megabytes("VmHWM:"); }
  /// Paths of the files that the program has mapped into its memory, each once.
  [[nodiscard]] std::vector<std::string> MappedFiles() const;

 private:
  [[nodiscard]] double Megabytes(const std::string& key) const;
  [[nodiscard]] std::string About(const std::string& what) const;

  pid_t process_ = -1;
  int input_ = -1;
  int output_ = -1;
};

/// A device that tells whether a program holds its near end open.
class WatchedDevice {
 public:
  WatchedDevice();
  [[nodiscard]] const std::string& Path() const { return terminal_.Device(); }
  [[nodiscard]] bool IsOpened() const;

 private:
  PseudoTerminal terminal_;
};

/// Waits until the program's window stands: its page has opened the port of `device`, and it goes to sleep
/// and stays asleep. The seconds from this call to its falling asleep; below 0 when it never did.
double SecondsToWindow(const Child& program, const WatchedDevice& device);

}  // namespace korva::bench
