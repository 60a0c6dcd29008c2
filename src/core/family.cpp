#include "core/family.h"

#include <algorithm>
#include <array>

namespace korva {
namespace {

constexpr std::array<Family, 11> kFamilies = {{
    {.word = u"QXI",
     .page = u"UnivConfig",
     .folder = u"Univ",
     .baud = 1200,
     .settings = u"1200,n,8,1",
     .dialect = Dialect::Cok},
    {.word = u"First",
     .page = u"KvConfig",
     .folder = u"Kv_1",
     .baud = 1200,
     .settings = u"1200,n,8,1",
     .dialect = Dialect::Cok},
    {.word = u"Second",
     .page = u"KvConfig_V2",
     .folder = u"Kv_2",
     .baud = 1200,
     .settings = u"1200,n,8,1",
     .dialect = Dialect::EnterItem},
    {.word = u"Third",
     .page = u"KvConfig_V3",
     .folder = u"Kv_3",
     .baud = 1200,
     .settings = u"1200,n,8,1",
     .dialect = Dialect::Cok},
    {.word = u"Lite",
     .page = u"z2KvConfig",
     .folder = u"z2Kv",
     .baud = 1200,
     .settings = u"1200,n,8,1",
     .dialect = Dialect::EnterItem},
    {.word = u"LiteUniv",
     .page = u"z2UnivConfig",
     .folder = u"z2Univ",
     .baud = 38400,
     .settings = u"38400,n,8,1",
     .dialect = Dialect::EnterItem},
    {.word = u"LiteSecond",
     .page = u"z2KvConfig_V2",
     .folder = u"z2Kv_2",
     .baud = 9600,
     .settings = u"9600,n,8,1",
     .dialect = Dialect::EnterItem},
    {.word = u"LiteThird",
     .page = u"z2KvConfig_V3",
     .folder = u"z2Kv_3",
     .baud = 1200,
     .settings = u"1200,n,8,1",
     .dialect = Dialect::EnterItem},
    {.word = u"LiteForth",
     .page = u"z2KvConfig_V4",
     .folder = u"z2Kv_4",
     .baud = 9600,
     .settings = u"9600,n,8,1",
     .dialect = Dialect::Cok},
    {.word = u"LiteFifth",
     .page = u"z2KvConfig_V5",
     .folder = u"z2Kv_5",
     .baud = 9600,
     .settings = u"9600,n,8,1",
     .dialect = Dialect::Cok},
    {.word = u"Nano",
     .page = u"z8KvConfig",
     .folder = u"z8Kv",
     .baud = 9600,
     .settings = u"9600,n,8,1",
     .dialect = Dialect::EnterItem},
}};

}  // namespace

std::span<const Family> Families() { return kFamilies; }

const Family* FindFamily(StringView word) {
  const auto* const found = std::find_if(kFamilies.begin(), kFamilies.end(),
                                         [word](const Family& family) { return family.word == word; });
  return found == kFamilies.end() ? nullptr : found;
}

}  // namespace korva
