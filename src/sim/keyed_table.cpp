#include "sim/keyed_table.h"

#include <algorithm>

#include "sim/number.h"

namespace korva::sim {

namespace {

constexpr int kValueDecimals = 4;
constexpr double kHighestAmount = 10000;
constexpr std::string_view kDone = "OK";

/// Digits alone, below `end`; none for anything else.
std::optional<std::size_t> RowNumber(std::string_view text, std::size_t end) {
  const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  const auto number = digits ? ParseNumber(text) : std::nullopt;
  return number && *number < static_cast<double>(end) ? std::optional(static_cast<std::size_t>(*number))
                                                      : std::nullopt;
}

std::optional<double> ValueOf(std::string_view text) {
  const auto number = ParseNumber(text);
  return number && *number >= -kHighestAmount && *number <= kHighestAmount ? number : std::nullopt;
}

}  // namespace

KeyedTable::KeyedTable(const KeyedTableForm& form) : form_(form) {
  const std::size_t columns = form.keys.size();
  held_.values.resize(form.rows * columns);
  held_.last = std::min(held_.last, form.rows - 1);
  for (std::size_t row = 0; row <= held_.last; ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      held_.values.at(row * columns + column) = static_cast<double>(row) * form.rise;
    }
  }
  kept_ = held_;
}

std::optional<std::string> KeyedTable::Answer(std::string_view data, bool writable) {
  if (form_.guarded && (data == "R" || data == "C" || data == "W")) {
    return Command(data.front(), writable);
  }
  if (data.empty() || (form_.guarded && state_ != State::Open)) {
    return std::nullopt;
  }
  if (data.front() == 'Z') {
    return AnswerLast(data.substr(1), writable);
  }
  return IsRow(data) ? AnswerRow(data, writable) : AnswerField(data, writable);
}

/// A command that came already, and whose answer was lost, is answered again.
std::optional<std::string> KeyedTable::Command(char command, bool writable) {
  if (command == 'R') {
    state_ = State::Asked;
    held_ = kept_;
    return std::string(kDone);
  }
  if (command == 'C') {
    if (state_ == State::Closed) {
      return std::nullopt;
    }
    state_ = State::Open;
    return std::string(kDone);
  }
  if (!writable || state_ == State::Asked) {
    return std::nullopt;
  }
  kept_ = held_;
  state_ = State::Closed;
  return std::string(kDone);
}

std::string* KeyedTable::FieldOf(Content& content, char key) const {
  switch (key) {
    case 'P':
      return form_.scaled ? &content.pitch : nullptr;
    case 'S':
      return form_.scaled ? &content.base : nullptr;
    case 'G':
      return form_.ranged ? &content.range : nullptr;
    default:
      return nullptr;
  }
}

std::optional<std::string> KeyedTable::AnswerField(std::string_view data, bool writable) {
  std::string* const field = FieldOf(held_, data.front());
  const std::string_view value = data.substr(1);
  if (field == nullptr || (!value.empty() && (!writable || !ValueOf(value)))) {
    return std::nullopt;
  }
  if (!value.empty()) {
    *field = value;
  }
  return *field;
}

std::optional<std::string> KeyedTable::AnswerLast(std::string_view text, bool writable) {
  const auto last = RowNumber(text, form_.rows);
  if (!text.empty() && (!writable || !last)) {
    return std::nullopt;
  }
  held_.last = last.value_or(held_.last);
  return std::to_string(held_.last);
}

bool KeyedTable::IsRow(std::string_view data) const {
  return data.size() > 1 && form_.keys.find(data.front()) != std::string_view::npos;
}

std::optional<std::string> KeyedTable::AnswerRow(std::string_view data, bool writable) {
  const std::size_t column = form_.keys.find(data.front());
  const std::size_t end = data.find('D');
  const auto row = RowNumber(data.substr(1, end == std::string_view::npos ? end : end - 1), form_.rows);
  if (!row) {
    return std::nullopt;
  }
  if (end == std::string_view::npos) {
    return *row <= held_.last ? std::optional(Value(*row, column) + std::string(form_.unit)) : std::nullopt;
  }
  const auto value = ValueOf(data.substr(end + 1));
  if (!value || !writable) {
    return std::nullopt;
  }
  held_.values.at(*row * form_.keys.size() + column) = *value;
  return Value(*row, column) + std::string(form_.unit);
}

std::string KeyedTable::Value(std::size_t row, std::size_t column) const {
  return FormatNumber(held_.values.at(row * form_.keys.size() + column), kValueDecimals);
}

void KeyedTable::SetValue(std::size_t row, std::size_t column, double value) {
  held_.values.at(row * form_.keys.size() + column) = value;
  kept_.values = held_.values;
}

std::string KeyedTable::Field(char key) const {
  Content content = held_;
  const std::string* const field = FieldOf(content, key);
  return field == nullptr ? std::string() : *field;
}

void KeyedTable::SetField(char key, const std::string& value) {
  for (Content* content : {&held_, &kept_}) {
    if (std::string* const field = FieldOf(*content, key)) {
      *field = value;
    }
  }
}

}  // namespace korva::sim
