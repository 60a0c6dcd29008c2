#pragma once

#include <initializer_list>
#include <string>

#include "core/boxes.h"
#include "core/text_utilities.h"

namespace korva::test {

/// "title: text" of a box, in UTF-8.
inline std::string Shown(BoxKey key, std::initializer_list<String> arguments = {}) {
  const Box box = BoxOf(key, arguments);
  return ToUtf8(box.title + u": " + box.text);
}

}  // namespace korva::test
