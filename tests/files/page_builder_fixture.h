#pragma once

#include <gtest/gtest.h>

#include "page_host.h"
#include "support/def_text.h"

namespace korva::test {

/// Builds the page of a made-up model from a definition and a set.
class PageBuilder : public testing::Test {
 protected:
  /// Chooses a model with the definition; what the set holds of items of group 1 was put there before.
  TestPage& Show(StringView definition, const String& model = u"OTHER") {
    TestPage& page = host.Choose(model, definition);
    page.BuildPage();
    return page;
  }
  TestPage& ShowWith(int item, const String& value, StringView definition, const String& model = u"OTHER") {
    host.Choose(model, definition);
    host.Page().SetItem(item, value);
    host.Page().BuildPage();
    return host.Page();
  }

  PageHost host;
};

}  // namespace korva::test
