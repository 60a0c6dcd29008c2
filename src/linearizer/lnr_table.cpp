#include "linearizer/lnr_table.h"

#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr int kFirstShortItem = 60;
constexpr int kPointsOfGroup = 50;

String PointNumber(int point) {
  const std::string digits = std::to_string(point);
  return Ascii(point < 10 ? "0" + digits : digits);
}

}  // namespace

std::optional<PointPlace> PointItem(int points, int row, int column) {
  if (row < 1 || row > points || column < 1 || column > 2) {
    return std::nullopt;
  }
  if (points == kLnrShortPoints) {
    return PointPlace{.group = 1, .item = kFirstShortItem + 2 * (row - 1) + column - 1};
  }
  const int group = row <= kPointsOfGroup ? 2 : 3;
  return PointPlace{.group = group, .item = 2 * ((row - 1) % kPointsOfGroup) + column - 1};
}

LnrTable::LnrTable(Grid& grid, const LnrHeads& heads, int points)
    : grid_(grid), heads_(heads), points_(points) {
  grid_.Resize(points + 1, Columns());
  ShowFrame();
}

void LnrTable::SetUp(int points) {
  points_ = points;
  grid_.Resize(points + 1, kLnrColumns);
  ShowLnrTable();
}

bool LnrTable::IsShown(int row, int column) const {
  return row >= 0 && row < grid_.Rows() && column >= 0 && column < grid_.Columns();
}

Look LnrTable::LookOf(int row, int column) const {
  return IsShown(row, column) ? grid_.At(row, column).look : Look::Normal;
}

void LnrTable::SetLook(int row, int column, Look look) {
  if (IsShown(row, column)) {
    grid_.SetLook(row, column, look);
  }
}

void LnrTable::SetMarked(int row, int column, bool marked) {
  if (IsShown(row, column)) {
    grid_.SetMarked(row, column, marked);
  }
}

bool LnrTable::IsValue(int row, int column) const {
  return row >= 1 && row <= points_ && column >= 1 && column < Columns();
}

void LnrTable::ShowFrame() {
  for (int column = 0; column < Columns(); ++column) {
    grid_.SetText(0, column, String(heads_.at(static_cast<std::size_t>(column))));
    grid_.SetLook(0, column, Look::Normal);
  }
  for (int row = 1; row < grid_.Rows(); ++row) {
    grid_.SetText(row, 0, PointNumber(set_ != nullptr ? row : row - 1));
    grid_.SetLook(row, 0, Look::Normal);
  }
}

void LnrTable::ShowLnrTable() {
  ShowFrame();
  for (int row = 1; row < grid_.Rows(); ++row) {
    for (int column = 1; column < Columns(); ++column) {
      grid_.SetText(row, column, IsValue(row, column) ? Value(row, column) : String());
    }
  }
  ClearLnrMarks();
}

void LnrTable::ClearLnrMarks() {
  for (int row = 1; row < grid_.Rows(); ++row) {
    for (int column = 1; column < grid_.Columns(); ++column) {
      grid_.SetLook(row, column, Look::Normal);
      grid_.SetMarked(row, column, false);
    }
  }
}

void LnrTable::ClearGrid() {
  for (int row = 1; row < grid_.Rows(); ++row) {
    for (int column = 1; column < grid_.Columns(); ++column) {
      grid_.SetText(row, column, {});
    }
  }
  ClearLnrMarks();
}

void LnrTable::Clear() {
  for (int row = 1; row <= points_; ++row) {
    for (int column = 1; column < Columns(); ++column) {
      Store(row, column, {});
    }
  }
  ClearGrid();
}

void LnrTable::Start(const String& text) {
  start_ = text;
  for (int row = 1; row <= points_; ++row) {
    for (int column = 1; column < Columns(); ++column) {
      Store(row, column, text);
    }
  }
  ClearLnrMarks();
  fresh_ = true;
}

bool LnrTable::HoldsStart(int row) const {
  bool holds = start_.has_value();
  for (int column = 1; holds && column < Columns(); ++column) {
    holds = Value(row, column) == *start_;
  }
  return holds;
}

const String& LnrTable::Value(int row, int column) const {
  if (set_ == nullptr) {
    return grid_.At(row, column).text;
  }
  const PointPlace place = PointItem(points_, row, column).value();
  return set_->At(place.group, place.item);
}

String LnrTable::NumberText(int row, int column) const {
  const String& text = Value(row, column);
  return set_ == nullptr ? CommaToPoint(text) : text;
}

void LnrTable::Store(int row, int column, const String& text) {
  if (!IsValue(row, column)) {
    return;
  }
  fresh_ = false;
  if (set_ != nullptr) {
    const PointPlace place = PointItem(points_, row, column).value();
    set_->Set(place.group, place.item, text);
  }
  if (IsShown(row, column)) {
    grid_.SetText(row, column, text);
  }
}

void LnrTable::GoTo(int row, int column) {
  grid_.SetCurrentCell(std::min(row, grid_.Rows() - 1), column);
  grid_.SetFocus();
}

void LnrTable::GoToFirstBad() {
  for (int row = 1; row < grid_.Rows(); ++row) {
    for (int column = 1; column < grid_.Columns(); ++column) {
      if (grid_.At(row, column).look == Look::Bad) {
        grid_.SetCurrentCell(row, column);
        return;
      }
    }
  }
}

bool LnrTable::IsBlank() const {
  for (int row = 1; row <= points_; ++row) {
    for (int column = 1; column < Columns(); ++column) {
      if (!Trimmed(Value(row, column)).empty()) {
        return false;
      }
    }
  }
  return true;
}

int LnrTable::FilledPoints() const {
  int points = 0;
  while (points < points_ && !Trimmed(Value(points + 1, 1)).empty()) {
    ++points;
  }
  return points;
}

bool LnrTable::MissesValue() const {
  for (int row = 1; row < grid_.Rows(); ++row) {
    for (int column = 1; column < Columns(); ++column) {
      if (LookOf(row, column) == Look::Bad && Trimmed(grid_.At(row, column).text).empty()) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace korva
