#pragma once

#include <cstddef>
#include <vector>

namespace korva::test {

// What a sweep tries is tried in full where its outcomes are judged. Under sanitizers, which look for faults
// of memory and take ten times as long, a sample does: one case in 127, an odd number, so that the eight
// breaks of an exchange take turns.
#ifdef KORVA_CHECKED
inline constexpr std::size_t kSampleStep = 127;
#else
inline constexpr std::size_t kSampleStep = 1;
#endif

/// The cases to try, the first among them.
template <typename T>
std::vector<T> Sampled(const std::vector<T>& cases) {
  std::vector<T> sample;
  for (std::size_t at = 0; at < cases.size(); at += kSampleStep) {
    sample.push_back(cases[at]);
  }
  return sample;
}

}  // namespace korva::test
