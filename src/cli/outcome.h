#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace korva::cli {

/// What came of a statement on the showing page.
struct Outcome {
  enum class Kind {
    Done,
    Refused,  ///< the screen would not let the user do it
    Wrong     ///< the page has no control of this name, or not one for this action
  };
  Kind kind = Kind::Done;
  std::string reason;  ///< why it was not done
};

inline Outcome Refused(std::string_view reason) {
  return {.kind = Outcome::Kind::Refused, .reason = std::string(reason)};
}

inline Outcome Wrong(std::string reason) {
  return {.kind = Outcome::Kind::Wrong, .reason = std::move(reason)};
}

inline Outcome NoControl(const std::string& name) { return Wrong("the showing page has no control " + name); }

}  // namespace korva::cli
