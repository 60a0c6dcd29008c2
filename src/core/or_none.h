#pragma once

#include <optional>
#include <utility>

namespace korva {

/// Says in a table that a row has none of something.
struct None {
  explicit constexpr None(int) {}
};
inline constexpr None kNone{0};

/// A value of a table's row that some rows have not. A row tells the value or kNone; a row that says nothing
/// doesn't compile.
template <typename T>
class OrNone {
 public:
  constexpr OrNone(None) {}
  constexpr OrNone(T value) : value_(std::move(value)) {}

  [[nodiscard]] constexpr bool Has() const { return value_.has_value(); }
  /// The value. To ask a row that has none is a fault of the program (std::bad_optional_access).
  [[nodiscard]] constexpr const T& Value() const { return value_.value(); }

 private:
  std::optional<T> value_;
};

}  // namespace korva
