#pragma once

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace korva::test {

// What a sweep tries is tried in full. After a change of a few sources a share does as well, another one each
// time: KORVA_SWEEP_PART tells which, from 0 on, of kSweepParts.
inline constexpr std::size_t kSweepParts = 7;

struct Sample {
  std::size_t first = 0;
  std::size_t step = 1;
};

inline Sample PartOfSweeps() {
  const char* const part = std::getenv("KORVA_SWEEP_PART");
  return part == nullptr
             ? Sample()
             : Sample{.first = std::strtoul(part, nullptr, 10) % kSweepParts, .step = kSweepParts};
}

/// Of `count` cases the places of those to try; of a few the first, if no other.
inline std::vector<std::size_t> PlacesOf(std::size_t count, Sample sample) {
  std::vector<std::size_t> places;
  for (std::size_t at = sample.first < count ? sample.first : 0; at < count; at += sample.step) {
    places.push_back(at);
  }
  return places;
}

/// The cases to try.
template <typename T>
std::vector<T> PartOf(const std::vector<T>& cases, Sample sample = PartOfSweeps()) {
  std::vector<T> part;
  for (const std::size_t at : PlacesOf(cases.size(), sample)) {
    part.push_back(cases[at]);
  }
  return part;
}

/// The cases to try of a long sweep, whose outcomes are judged in full without sanitizers. These look for
/// faults of memory and take ten times as long, so that they see one case in 127, an odd number: the eight
/// breaks of an exchange take turns.
template <typename T>
std::vector<T> Sampled(const std::vector<T>& cases) {
#ifdef KORVA_CHECKED
  return PartOf(cases, {.step = 127});
#else
  return PartOf(cases);
#endif
}

/// One case in `step`, of a sweep that would take too long. `step` shares no factor with the number of ways
/// in which a case is broken, so that each has its turn.
template <typename T>
std::vector<T> OneIn(std::size_t step, const std::vector<T>& cases) {
  return PartOf(cases, {.step = step});
}

/// The places of a sweep over `count` pumps at which the close box is pressed.
inline std::vector<std::size_t> SampledPumps(std::size_t count) { return PlacesOf(count, PartOfSweeps()); }

/// A sweep tells how much of it was tried.
inline void TellShare(const std::string& what, std::size_t tried, std::size_t all) {
  std::cout << what << ": " << tried << " of " << all << '\n';
}

}  // namespace korva::test
