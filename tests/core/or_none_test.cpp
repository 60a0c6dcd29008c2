#include "core/or_none.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace korva {
namespace {

TEST(OrNone, TellsItsValueOrThatThereIsNone) {
  constexpr OrNone<int> value = 7;
  constexpr OrNone<int> none = kNone;
  EXPECT_TRUE(value.Has());
  EXPECT_EQ(value.Value(), 7);
  EXPECT_FALSE(none.Has());
  EXPECT_THROW((void)none.Value(), std::bad_optional_access);
}

struct Row {
  OrNone<int> value;
};
template <typename T>
concept MayBeLeftOut = requires {
  T{};
};

TEST(OrNone, ARowThatSaysNothingDoesNotCompile) {
  EXPECT_FALSE(MayBeLeftOut<Row>);
  EXPECT_FALSE(std::is_default_constructible_v<OrNone<int>>);
  EXPECT_FALSE(std::is_default_constructible_v<None>);
}

}  // namespace
}  // namespace korva
