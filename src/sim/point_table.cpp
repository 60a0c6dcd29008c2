#include "sim/point_table.h"

#include <cmath>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr std::size_t kFirstShortItem = 60;
constexpr std::size_t kItemsOfGroup = 100;

std::optional<std::size_t> TwoDigits(std::string_view text) {
  constexpr std::string_view digits = "0123456789";
  if (text.size() != 2 || text.find_first_not_of(digits) != std::string_view::npos) {
    return std::nullopt;
  }
  return (digits.find(text[0]) * 10) + digits.find(text[1]);
}

std::size_t PointCount(TableShape shape) {
  switch (shape) {
    case TableShape::Points16:
      return 16;
    case TableShape::Points100:
      return 100;
    default:
      return 0;
  }
}

}  // namespace

PointTable::PointTable(TableShape shape, double limit) : shape_(shape), limit_(limit) {
  const std::size_t points = PointCount(shape);
  for (std::size_t point = 0; point < points; ++point) {
    const double percent = 100.0 * static_cast<double>(point) / static_cast<double>(points - 1);
    values_.insert(values_.end(), 2, std::round(percent * 100) / 100);
  }
}

bool PointTable::HasGroup(std::string_view group) const {
  return (shape_ == TableShape::Points16 && group == "01") ||
         (shape_ == TableShape::Points100 && (group == "02" || group == "03"));
}

std::optional<std::size_t> PointTable::Find(std::string_view group, std::string_view item) const {
  const auto number = TwoDigits(item);
  if (!number || !HasGroup(group)) {
    return std::nullopt;
  }
  if (shape_ == TableShape::Points100) {
    return *number + (group == "03" ? kItemsOfGroup : 0);
  }
  const bool inside = *number >= kFirstShortItem && *number < kFirstShortItem + values_.size();
  return inside ? std::optional(*number - kFirstShortItem) : std::nullopt;
}

std::string PointTable::Text(std::size_t position) const { return FormatNumber(values_.at(position), 2); }

std::vector<Point> PointTable::Points() const {
  std::vector<Point> points;
  for (std::size_t i = 0; i + 1 < values_.size(); i += 2) {
    points.push_back({.x = values_[i], .y = values_[i + 1]});
  }
  return points;
}

std::string PointTable::Head(std::size_t position) {
  const std::size_t point = ((position / 2) + 1) % 100;
  const std::string digits = std::to_string(point);
  return (position % 2 == 0 ? "X(" : "Y(") + std::string(digits.size() < 2 ? "0" : "") + digits + "):";
}

bool PointTable::Write(std::size_t position, std::string_view data) {
  const auto value = ParseNumber(TrimBlanks(data));
  if (!value || std::abs(*value) > limit_) {
    return false;
  }
  values_.at(position) = std::round(*value * 100) / 100;
  return true;
}

}  // namespace korva::sim
