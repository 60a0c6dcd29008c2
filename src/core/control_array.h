#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "core/control.h"

namespace korva {

/// A control array: elements 0 to a highest index under one name.
template <typename T>
class ControlArray {
 public:
  ControlArray(std::string_view name, int highest) {
    for (int index = 0; index <= highest; ++index) {
      elements_.push_back(std::make_unique<T>(name, index));
    }
  }
  [[nodiscard]] int Count() const { return static_cast<int>(elements_.size()); }
  /// True when the array has an element of this index.
  [[nodiscard]] bool Has(int index) const { return index >= 0 && index < Count(); }
  T& operator[](int index) { return *elements_.at(static_cast<std::size_t>(index)); }
  const T& operator[](int index) const { return *elements_.at(static_cast<std::size_t>(index)); }

 private:
  std::vector<std::unique_ptr<T>> elements_;
};

}  // namespace korva
