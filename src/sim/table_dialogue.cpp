#include "sim/table_dialogue.h"

#include <algorithm>
#include <cmath>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr double kHighestValue = 300;  // %

/// The words of a line, which blanks separate.
std::vector<std::string_view> WordsOf(std::string_view line) {
  std::vector<std::string_view> words;
  for (line = TrimBlanks(line); !line.empty(); line = TrimBlanks(line)) {
    const auto length = std::min(line.find(' '), line.size());
    words.push_back(line.substr(0, length));
    line.remove_prefix(length);
  }
  return words;
}

/// A whole number from 1 to the most points.
std::optional<std::size_t> PointNumber(std::string_view text) {
  const auto number = ParseNumber(text);
  const bool good = number && *number >= 1 && *number <= static_cast<double>(TableDialogue::kMostPoints) &&
                    *number == std::trunc(*number);
  return good ? std::optional(static_cast<std::size_t>(*number)) : std::nullopt;
}

std::optional<double> Percent(std::string_view text) {
  const auto number = ParseNumber(text);
  return number && std::abs(*number) <= kHighestValue ? std::optional(std::round(*number * 100) / 100)
                                                      : std::nullopt;
}

std::string TextOf(const Point& point) { return FormatNumber(point.x, 2) + " " + FormatNumber(point.y, 2); }

}  // namespace

bool TableDialogue::Takes(std::string_view data) const {
  return state_ != State::Idle || data == "C" || data == "I" || data == "O";
}

std::optional<std::string> TableDialogue::Answer(std::string_view data, bool programming) {
  if (data == "C" || data == "I" || data == "O") {
    return Begin(data.front(), programming);
  }
  switch (state_) {
    case State::InputNumber:
    case State::OutputNumber:
      return TakeNumber(data);
    case State::Input:
      return TakePoint(data);
    case State::Output:
      return GivePoint(data);
    case State::Idle:
      break;
  }
  return std::nullopt;
}

std::optional<std::string> TableDialogue::Begin(char letter, bool programming) {
  if (letter == 'O') {
    state_ = State::OutputNumber;
    return "output number";
  }
  state_ = State::Idle;
  if (!programming) {
    return std::nullopt;
  }
  if (letter == 'C') {
    points_.clear();
    return "rest_linear";
  }
  state_ = State::InputNumber;
  return "input number";
}

std::optional<std::string> TableDialogue::TakeNumber(std::string_view data) {
  const auto number = PointNumber(data);
  if (!number) {
    return std::nullopt;
  }
  if (state_ == State::OutputNumber) {
    state_ = State::Output;
    return "output num-data";
  }
  points_.assign(*number, {});
  state_ = State::Input;
  return "input num-data";
}

std::optional<std::string> TableDialogue::TakePoint(std::string_view data) {
  const auto words = WordsOf(data);
  const auto number = words.size() == 3 ? PointNumber(words[0]) : std::nullopt;
  const auto x = number ? Percent(words[1]) : std::nullopt;
  const auto y = number ? Percent(words[2]) : std::nullopt;
  if (!x || !y || *number > points_.size()) {
    return std::nullopt;
  }
  points_[*number - 1] = {.x = *x, .y = *y};
  return std::to_string(*number) + " " + TextOf(points_[*number - 1]);
}

/// Behind the last point there is nothing to tell.
std::optional<std::string> TableDialogue::GivePoint(std::string_view data) const {
  const auto number = PointNumber(data);
  if (!number) {
    return std::nullopt;
  }
  return *number > points_.size() ? std::string() : TextOf(points_[*number - 1]);
}

}  // namespace korva::sim
