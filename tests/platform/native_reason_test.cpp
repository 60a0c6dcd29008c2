#include "platform/native/native_reason.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <utility>

namespace korva {
namespace {

TEST(NativeReason, TellsTheCasesThatAUserCanActOn) {
  using enum SystemReason::Case;
  constexpr std::array kCases = {
      std::pair(ENOENT, Missing),     std::pair(ENOTDIR, Missing), std::pair(EACCES, NotPermitted),
      std::pair(EPERM, NotPermitted), std::pair(EISDIR, Folder),   std::pair(ENOSPC, NoSpace),
      std::pair(EDQUOT, NoSpace),     std::pair(EROFS, ReadOnly),  std::pair(EBUSY, InUse),
      std::pair(ETXTBSY, InUse),      std::pair(EFBIG, TooLarge),  std::pair(EIO, Other)};
  for (const auto& [error, what] : kCases) {
    EXPECT_EQ(ReasonOf(error).what, what) << error;
  }
}

TEST(NativeReason, HasTheSystemsOwnWords) {
  EXPECT_EQ(ReasonOf(ENOSPC).words, u"No space left on device");
  EXPECT_EQ(ReasonOf(EIO).words, u"Input/output error");
}

}  // namespace
}  // namespace korva
