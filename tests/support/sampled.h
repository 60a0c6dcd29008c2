#pragma once

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace korva::test {

// What a sweep tries is tried in full where its outcomes are judged. Under sanitizers, which look for faults
// of memory and take ten times as long, a sample does: one case in a number that is odd, so that the eight
// breaks of an exchange take turns. After a change of a few sources a share does as well, another one each
// time: KORVA_SWEEP_PART tells which, from 0 on, of kSweepParts.
inline constexpr std::size_t kSweepParts = 7;

struct Sample {
  std::size_t first = 0;
  std::size_t step = 1;
};

inline Sample SampleOfSweeps(std::size_t checked_step) {
#ifdef KORVA_CHECKED
  return {.step = checked_step};
#else
  static_cast<void>(checked_step);
  const char* const part = std::getenv("KORVA_SWEEP_PART");
  return part == nullptr
             ? Sample()
             : Sample{.first = std::strtoul(part, nullptr, 10) % kSweepParts, .step = kSweepParts};
#endif
}

/// Of `count` cases the places of those to try; of a few the first, if no other.
inline std::vector<std::size_t> PlacesOf(std::size_t count, Sample sample) {
  std::vector<std::size_t> places;
  for (std::size_t at = sample.first < count ? sample.first : 0; at < count; at += sample.step) {
    places.push_back(at);
  }
  return places;
}

/// The cases to try; under sanitizers one in `checked_step`.
template <typename T>
std::vector<T> Sampled(const std::vector<T>& cases, std::size_t checked_step = 127) {
  std::vector<T> sample;
  for (const std::size_t at : PlacesOf(cases.size(), SampleOfSweeps(checked_step))) {
    sample.push_back(cases[at]);
  }
  return sample;
}

/// One case in `step`, of a sweep that would take too long. `step` shares no factor with the number of ways
/// in which a case is broken, so that each has its turn.
template <typename T>
std::vector<T> OneIn(std::size_t step, const std::vector<T>& cases) {
  std::vector<T> sample;
  for (const std::size_t at : PlacesOf(cases.size(), {.step = step})) {
    sample.push_back(cases[at]);
  }
  return sample;
}

/// The places of a sweep over `count` pumps at which the close box is pressed. An end in the middle of things
/// is where memory goes wrong, so that the sanitizers see one in 13.
inline std::vector<std::size_t> SampledPumps(std::size_t count) {
  return PlacesOf(count, SampleOfSweeps(13));
}

/// A sweep tells how much of it was tried.
inline void TellShare(const std::string& what, std::size_t tried, std::size_t all) {
  std::cout << what << ": " << tried << " of " << all << '\n';
}

}  // namespace korva::test
