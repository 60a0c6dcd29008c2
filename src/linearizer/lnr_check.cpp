#include "linearizer/lnr_check.h"

#include <algorithm>
#include <optional>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr double kRange = 300;
constexpr double kBelowAll = -100000;
constexpr int kLeastPoints = 2;

bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

/// The cell's number; nothing for an empty cell, a text that is no number, and one with more digits behind
/// its number: whoever types "12,5" doesn't mean the 12 that would be sent.
std::optional<double> NumberOf(const String& cell) {
  const String value = ValueFromLnrCell(cell);
  const String text = Trimmed(cell);
  const bool whole =
      std::none_of(text.begin() + static_cast<std::ptrdiff_t>(value.size()), text.end(), IsDigit);
  return whole && IsNumeric(value) ? std::optional(LeadingNumber(value)) : std::nullopt;
}

bool IsWithin(const LnrLimits& limits, std::optional<double> number) {
  return number && IsBetween(limits.high, limits.low, *number);
}

/// The walk through the cells of a table, X(1), Y(1), X(2), Y(2), ...
class CurveWalk {
 public:
  CurveWalk(LnrTable& table, const LnrLimits& x_limits, const LnrLimits& y_limits)
      : table_(table), x_limits_(x_limits), y_limits_(y_limits) {}

  [[nodiscard]] bool Good() const { return good_; }

  void CheckX(int point) {
    const String& cell = table_.Value(point, 1);
    if (Trimmed(cell).empty()) {
      ended_ = ended_ || (point > kLeastPoints && Trimmed(table_.Value(point, 2)).empty());
      Judge(point, 1, ended_);
      return;
    }
    const auto number = NumberOf(cell);
    Judge(point, 1, !ended_ && IsWithin(x_limits_, number) && previous_ < *number);
    previous_ = number.value_or(previous_);
  }

  void CheckY(int point) {
    const String& cell = table_.Value(point, 2);
    const bool empty = Trimmed(cell).empty();
    Judge(point, 2, empty ? ended_ : !ended_ && IsWithin(y_limits_, NumberOf(cell)));
  }

 private:
  void Judge(int point, int column, bool good) {
    if (!good) {
      table_.SetLook(point, column, Look::Bad);
      good_ = false;
    }
  }

  LnrTable& table_;
  const LnrLimits& x_limits_;
  const LnrLimits& y_limits_;
  double previous_ = kBelowAll;
  bool ended_ = false;
  bool good_ = true;
};

}  // namespace

String ValueFromLnrCell(StringView text) {
  const String value = Trimmed(text);
  const std::size_t sign = value.starts_with(u'-') || value.starts_with(u'+') ? 1 : 0;
  const bool begins_with_number = value.size() > sign && IsDigit(value[sign]);
  return begins_with_number ? Trimmed(value.substr(0, NumericLength(value))) : value;
}

bool CheckLnrRange(LnrTable& table) {
  table.ClearLnrMarks();
  bool all_good = true;
  for (int row = 1; row <= table.Points(); ++row) {
    for (int column = 1; column < kLnrColumns; ++column) {
      const String& cell = table.Value(row, column);
      const auto number = NumberOf(cell);
      const bool good = number ? *number > -kRange && *number < kRange : Trimmed(cell).empty();
      if (!good) {
        table.SetLook(row, column, Look::Bad);
        all_good = false;
      }
    }
  }
  return all_good;
}

bool CheckLnrCurve(LnrTable& table, const LnrLimits& x_limits, const LnrLimits& y_limits, ProgressBar& bar) {
  table.ClearLnrMarks();
  CurveWalk walk(table, x_limits, y_limits);
  const auto show_share = [&](int cells) {
    bar.SetValue(static_cast<float>(cells) / static_cast<float>(2 * table.Points()) * 100);
  };
  for (int point = 1; point <= table.Points(); ++point) {
    walk.CheckX(point);
    show_share(2 * point - 1);
    walk.CheckY(point);
    show_share(2 * point);
  }
  return walk.Good();
}

}  // namespace korva
