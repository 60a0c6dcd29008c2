#pragma once

#include <limits>
#include <optional>

#include "platform/string.h"

namespace korva {

class TextField;

/// What may stand in a field, by the rule of what judges it: the limits of its number, in the unit beside the
/// field, or the length of its text. A side without a limit is infinite.
///
/// Two fields may be the ends of one range. Both have the limits of a pair then, and what it asks for
/// besides.
struct FieldRange {
  double low = -std::numeric_limits<double>::infinity();
  double high = std::numeric_limits<double>::infinity();
  bool ends = true;              ///< the limits themselves are allowed
  double span = 0;               ///< of one end of a pair: the least distance of the two; 0: there is none
  bool rises = false;            ///< of one end of a pair: the upper one must be above the lower one
  double suppression = 0;        ///< of one end of a pair: most that the lower one is of the distance; 0: any
  std::optional<double> also{};  ///< a number that is allowed besides
  int length = 0;                ///< most characters of a text; 0: the field holds a number
  const TextField* lower = nullptr;  ///< the ends of a pair; nullptr for a field that is none
  const TextField* upper = nullptr;

  /// True when `number` lies within the limits, both meant as a user reads them. What a pair asks for besides
  /// doesn't count.
  [[nodiscard]] bool Takes(double number) const;
  /// True when the two ends of a pair go together, whatever their own limits.
  [[nodiscard]] bool TakesPair(double lower_end, double upper_end) const;
};

/// The numbers from `low` to `high`, as a rule writes them.
FieldRange RangeBetween(StringView low, StringView high);

/// What two rules leave, both of which must be kept; a rule that there isn't leaves the other.
std::optional<FieldRange> Narrowed(const std::optional<FieldRange>& one,
                                   const std::optional<FieldRange>& another);

/// A part of a page that judges what stands in fields, and can tell the limits by which it would judge them
/// now; nothing for a field that it leaves alone.
class RangeTeller {
 public:
  RangeTeller() = default;
  RangeTeller(const RangeTeller&) = delete;
  RangeTeller& operator=(const RangeTeller&) = delete;
  virtual ~RangeTeller() = default;

  /// Of the field of a row of $Data.
  [[nodiscard]] virtual std::optional<FieldRange> RangeOfRow(int /*row*/) const { return std::nullopt; }
  /// Of a field that is for no item.
  [[nodiscard]] virtual std::optional<FieldRange> RangeOfField(const TextField& /*field*/) const {
    return std::nullopt;
  }
};

}  // namespace korva
