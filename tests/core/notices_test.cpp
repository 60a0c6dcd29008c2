#include "core/notices.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

TEST(NoticesTest, ShowsWhatIsToldAndHidesWhenNothingIs) {
  Notices notices("lblNotices");
  EXPECT_FALSE(notices.Visible());
  notices.Tell(Notice::Port, u"COM1");
  EXPECT_TRUE(notices.Visible());
  EXPECT_EQ(notices.Caption(), u"COM1");
  notices.Tell(Notice::Port, u"COM2");
  EXPECT_EQ(notices.Caption(), u"COM2");
  EXPECT_EQ(notices.Told(Notice::Port), u"COM2");
  notices.Tell(Notice::Port, u"");
  EXPECT_FALSE(notices.Visible());
  EXPECT_EQ(notices.Caption(), u"");
}

}  // namespace
}  // namespace korva
