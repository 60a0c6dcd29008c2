#include "platform/native/native_reason.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace korva {

namespace {

SystemReason::Case CaseOf(int error) {
  using enum SystemReason::Case;
  static constexpr std::array cases = {
      std::pair(ENOENT, Missing),     std::pair(ENOTDIR, Missing), std::pair(EACCES, NotPermitted),
      std::pair(EPERM, NotPermitted), std::pair(EISDIR, Folder),   std::pair(ENOSPC, NoSpace),
      std::pair(EDQUOT, NoSpace),     std::pair(EROFS, ReadOnly),  std::pair(EBUSY, InUse),
      std::pair(ETXTBSY, InUse),      std::pair(EFBIG, TooLarge)};
  const auto* const found =
      std::find_if(cases.begin(), cases.end(), [error](const auto& row) { return row.first == error; });
  return found == cases.end() ? Other : found->second;
}

// The system's words come in UTF-8, as paths do.
String WordsOf(int error) {
  try {
    return std::filesystem::path(std::generic_category().message(error)).u16string();
  } catch (const std::exception&) {
    return u"error " + std::filesystem::path(std::to_string(error)).u16string();
  }
}

}  // namespace

SystemReason ReasonOf(int error) { return {.what = CaseOf(error), .words = WordsOf(error)}; }

}  // namespace korva
