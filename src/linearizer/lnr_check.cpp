#include "linearizer/lnr_check.h"

#include <algorithm>
#include <optional>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr double kBelowAll = -100000;
constexpr int kLeastPoints = 2;

bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

/// The cell's number; nothing for an empty cell, a text that is no number, and one that means more.
std::optional<double> NumberOf(const LnrTable& table, int row, int column) {
  const String text = table.NumberText(row, column);
  const String value = ValueFromLnrCell(text);
  return MeansItsValue(text) && IsNumeric(value) ? std::optional(LeadingNumber(value)) : std::nullopt;
}

bool IsEmptyCell(const LnrTable& table, int row, int column) {
  return Trimmed(table.Value(row, column)).empty();
}

bool IsWithin(const LnrLimits& limits, std::optional<double> number) {
  return number && IsBetween(limits.high, limits.low, *number);
}

/// The walk through the cells of a table, X(1), Y(1), X(2), Y(2), ...
class CurveWalk {
 public:
  CurveWalk(LnrTable& table, const LnrLimits& x_limits, const LnrLimits& y_limits, int sent)
      : table_(table), x_limits_(x_limits), y_limits_(y_limits), sent_(sent) {}

  [[nodiscard]] bool Good() const { return good_; }

  void CheckX(int point) {
    if (IsEmpty(point, 1)) {
      ended_ = ended_ || (point > kLeastPoints && IsEmpty(point, 2));
      Judge(point, 1, ended_);
      return;
    }
    const auto number = NumberOf(table_, point, 1);
    Judge(point, 1, !ended_ && IsWithin(x_limits_, number) && previous_ < *number);
    previous_ = number.value_or(previous_);
  }

  void CheckY(int point) {
    const bool good = IsEmpty(point, 2) ? ended_ : !ended_ && IsWithin(y_limits_, NumberOf(table_, point, 2));
    Judge(point, 2, good);
  }

 private:
  [[nodiscard]] bool IsEmpty(int point, int column) const {
    return IsEmptyCell(table_, point, column) || (point > sent_ && table_.HoldsStart(point));
  }
  void Judge(int point, int column, bool good) {
    if (!good) {
      table_.SetLook(point, column, Look::Bad);
      good_ = false;
    }
  }

  LnrTable& table_;
  const LnrLimits& x_limits_;
  const LnrLimits& y_limits_;
  int sent_;
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

bool MeansItsValue(StringView text) {
  const String cell = Trimmed(text);
  const auto value = static_cast<std::ptrdiff_t>(ValueFromLnrCell(cell).size());
  return std::none_of(cell.begin() + value, cell.end(), IsDigit);
}

bool CheckLnrRange(LnrTable& table) {
  table.ClearLnrMarks();
  bool all_good = true;
  for (int row = 1; row <= table.Points(); ++row) {
    for (int column = 1; column < kLnrColumns; ++column) {
      const auto number = NumberOf(table, row, column);
      const bool good =
          number ? *number > kLnrRange.low && *number < kLnrRange.high : IsEmptyCell(table, row, column);
      if (!good) {
        table.SetLook(row, column, Look::Bad);
        all_good = false;
      }
    }
  }
  return all_good;
}

bool CheckLnrCurve(LnrTable& table, const LnrLimits& x_limits, const LnrLimits& y_limits, ProgressBar& bar,
                   int sent) {
  table.ClearLnrMarks();
  CurveWalk walk(table, x_limits, y_limits, sent);
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

bool CheckLnrLimits(LnrTable& table, const LnrLimits& limits) {
  table.ClearLnrMarks();
  bool all_good = CheckLnrFilled(table, kLeastPoints);
  for (int row = 1; row <= table.Points(); ++row) {
    for (int column = 1; column < table.Columns(); ++column) {
      if (IsEmptyCell(table, row, column)) {
        return all_good;
      }
      if (!IsWithin(limits, NumberOf(table, row, column))) {
        table.SetLook(row, column, Look::Bad);
        all_good = false;
      }
    }
  }
  return all_good;
}

bool CheckLnrFilled(LnrTable& table, int rows) {
  bool filled = true;
  for (int row = 1; row <= std::min(rows, table.Points()); ++row) {
    for (int column = 1; column < table.Columns(); ++column) {
      if (IsEmptyCell(table, row, column)) {
        table.SetLook(row, column, Look::Bad);
        filled = false;
      }
    }
  }
  return filled;
}

}  // namespace korva
