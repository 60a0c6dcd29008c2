#include "sim/command_table.h"

#include <algorithm>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr int kFractionDecimals = 4;

std::vector<std::string_view> Words(std::string_view text) {
  std::vector<std::string_view> words;
  while (!text.empty()) {
    const auto end = std::min(text.find(' '), text.size());
    if (end > 0) {
      words.push_back(text.substr(0, end));
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

/// Digits alone; none for anything else and beyond `highest`.
std::optional<std::size_t> Count(std::string_view text, std::size_t highest) {
  const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  const auto number = digits ? ParseNumber(text) : std::nullopt;
  return number && *number <= static_cast<double>(highest) ? std::optional(static_cast<std::size_t>(*number))
                                                           : std::nullopt;
}

std::optional<Point> ParsePoint(std::string_view x, std::string_view y) {
  const auto first = ParseNumber(x);
  const auto second = ParseNumber(y);
  return first && second ? std::optional(Point{.x = *first, .y = *second}) : std::nullopt;
}

std::string PointText(const Point& point) {
  return FormatNumber(point.x, kFractionDecimals) + " " + FormatNumber(point.y, kFractionDecimals);
}

std::string SizeText(std::size_t size) { return "Size " + std::to_string(size); }

}  // namespace

CommandTable::CommandTable() {
  constexpr int steps = 10;
  for (int step = 0; step <= steps; ++step) {
    const double value = static_cast<double>(step) / steps;
    points_.push_back({.x = value, .y = value});
  }
}

std::optional<std::string> CommandTable::Answer(std::string_view command, bool writable) {
  if (command.starts_with('P')) {
    return AnswerSize(command.substr(1), writable);
  }
  if (command.starts_with('T')) {
    return AnswerPoint(command.substr(1), writable);
  }
  return command == "F" && writable ? End() : std::nullopt;
}

std::optional<std::string> CommandTable::AnswerSize(std::string_view size, bool writable) {
  if (size.empty()) {
    return SizeText(points_.size());
  }
  const auto count = Count(size, kMostPoints);
  if (!count || !writable) {
    return std::nullopt;
  }
  coming_.assign(*count, std::nullopt);
  return SizeText(*count);
}

std::optional<std::string> CommandTable::AnswerPoint(std::string_view text, bool writable) {
  const auto words = Words(text);
  const auto index = words.empty() ? std::nullopt : Count(words.front(), kMostPoints);
  if (!index) {
    return std::nullopt;
  }
  if (words.size() == 1) {
    return *index < points_.size() ? std::optional(PointText(points_[*index])) : std::nullopt;
  }
  const auto point = words.size() == 3 ? ParsePoint(words[1], words[2]) : std::nullopt;
  if (!point || !writable || *index >= coming_.size()) {
    return std::nullopt;
  }
  coming_[*index] = *point;
  return PointText(*point);
}

std::optional<std::string> CommandTable::End() {
  if (std::ranges::any_of(coming_, [](const auto& point) { return !point; })) {
    return std::nullopt;
  }
  points_.clear();
  for (const auto& point : coming_) {
    points_.push_back(*point);
  }
  return "Table end";
}

std::string CommandTable::Text() const {
  std::string text = std::to_string(points_.size());
  for (const auto& point : points_) {
    text += " " + PointText(point);
  }
  return text;
}

bool CommandTable::Set(std::string_view text) {
  const auto words = Words(text);
  const auto count = words.empty() ? std::nullopt : Count(words.front(), kMostPoints);
  if (!count || words.size() != 1 + (2 * *count)) {
    return false;
  }
  std::vector<Point> points;
  for (std::size_t at = 1; at + 1 < words.size(); at += 2) {
    const auto point = ParsePoint(words[at], words[at + 1]);
    if (!point) {
      return false;
    }
    points.push_back(*point);
  }
  points_ = points;
  return true;
}

}  // namespace korva::sim
