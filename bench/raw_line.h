#pragma once

#include <string>
#include <string_view>

namespace korva::bench {

/// The plainest loop on a line: write, poll and read, and nothing else. What the program adds is measured
/// against it.
class RawLine {
 public:
  /// `device` may be open in the program as well, as long as the two take turns.
  explicit RawLine(const std::string& device);
  RawLine(const RawLine&) = delete;
  RawLine& operator=(const RawLine&) = delete;
  ~RawLine();

  /// Sends the command, its carriage return included, and waits up to three seconds for a reply that ends in
  /// one; false without it.
  [[nodiscard]] bool Exchange(std::string_view command) const;

 private:
  int line_;
};

}  // namespace korva::bench
