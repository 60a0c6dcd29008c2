#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace korva::bench {

/// Copies of a program and of the libraries that it loads, which can be put out of memory: the originals
/// can't, since this process and others use them. What every program of the machine uses (the C library, the
/// fonts) stays in memory.
class ColdCopy {
 public:
  /// `files` are those that the program has mapped when it runs.
  explicit ColdCopy(const std::vector<std::string>& files);
  ColdCopy(const ColdCopy&) = delete;
  ColdCopy& operator=(const ColdCopy&) = delete;
  ~ColdCopy();

  /// Puts the copies out of memory; false when some of them stay.
  [[nodiscard]] bool Cool() const;
  /// Path of the copy of a program.
  [[nodiscard]] std::string Of(const std::string& program) const;
  /// Variables of the environment that let it use the copies of its libraries.
  [[nodiscard]] std::vector<std::string> Surroundings() const;

 private:
  std::filesystem::path folder_;
};

}  // namespace korva::bench
