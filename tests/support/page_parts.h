#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "core/page.h"

namespace korva::test {

/// The page's part of this type, which it must have.
template <typename T>
T& Part(const Page& page) {
  for (PagePart* part : page.Parts()) {
    if (auto* found = dynamic_cast<T*>(part)) {
      return *found;
    }
  }
  throw std::logic_error("the page has no such part");
}

/// The page's button of this name, which it must have.
inline Button& ButtonOf(const Page& page, std::string_view name) {
  if (auto* found = dynamic_cast<Button*>(page.FindControl(name))) {
    return *found;
  }
  throw std::logic_error("the page has no button " + std::string(name));
}

/// True for a button that opens a window beside the page, which asks the device nothing and may be opened
/// while an operation runs.
inline bool OpensWindow(const Control& control) {
  return control.Name() == "cmdLine" || control.Name() == "cmdReport" || control.Name() == "cmdWatch";
}

}  // namespace korva::test
