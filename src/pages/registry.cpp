#include "pages/registry.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "pages/kv_config/family.h"
#include "pages/kv_config/kv_config.h"
#include "pages/kv_config_v2/family.h"
#include "pages/kv_config_v2/kv_config_v2.h"
#include "pages/kv_config_v3/family.h"
#include "pages/kv_config_v3/kv_config_v3.h"
#include "pages/univ_config/family.h"
#include "pages/univ_config/univ_config.h"
#include "pages/z2_kv_config/family.h"
#include "pages/z2_kv_config/z2_kv_config.h"
#include "pages/z2_kv_config_v2/family.h"
#include "pages/z2_kv_config_v2/z2_kv_config_v2.h"
#include "pages/z2_kv_config_v3/family.h"
#include "pages/z2_kv_config_v3/z2_kv_config_v3.h"
#include "pages/z2_kv_config_v4/family.h"
#include "pages/z2_kv_config_v4/z2_kv_config_v4.h"
#include "pages/z2_kv_config_v5/family.h"
#include "pages/z2_kv_config_v5/z2_kv_config_v5.h"
#include "pages/z2_univ_config/family.h"
#include "pages/z2_univ_config/z2_univ_config.h"
#include "pages/z8_kv_config/family.h"
#include "pages/z8_kv_config/z8_kv_config.h"

namespace korva {

namespace {

template <typename PageOfFamily>
std::unique_ptr<ParameterPage> Make(Program& program, const FamilyRecord& record, DeviceLink& link) {
  return std::make_unique<PageOfFamily>(program, record, link);
}

constexpr std::array kRegistry = {
    RegistryEntry{.record = kUnivConfigRecord, .page = PageMaker(Make<UnivConfig>)},
    RegistryEntry{.record = kKvConfigRecord, .page = PageMaker(Make<KvConfig>)},
    RegistryEntry{.record = kKvConfigV2Record, .page = PageMaker(Make<KvConfig_V2>)},
    RegistryEntry{.record = kKvConfigV3Record, .page = PageMaker(Make<KvConfig_V3>)},
    RegistryEntry{.record = kZ2KvConfigRecord, .page = PageMaker(Make<z2KvConfig>)},
    RegistryEntry{.record = kZ2UnivConfigRecord, .page = PageMaker(Make<z2UnivConfig>)},
    RegistryEntry{.record = kZ2KvConfigV2Record, .page = PageMaker(Make<z2KvConfig_V2>)},
    RegistryEntry{.record = kZ2KvConfigV3Record, .page = PageMaker(Make<z2KvConfig_V3>)},
    RegistryEntry{.record = kZ2KvConfigV4Record, .page = PageMaker(Make<z2KvConfig_V4>)},
    RegistryEntry{.record = kZ2KvConfigV5Record, .page = PageMaker(Make<z2KvConfig_V5>)},
    RegistryEntry{.record = kZ8KvConfigRecord, .page = PageMaker(Make<z8KvConfig>)},
};

}  // namespace

std::span<const RegistryEntry> Registry() { return kRegistry; }

const Families& AllFamilies() {
  static const auto all = [] {
    std::array<const Family*, kRegistry.size()> list{};
    std::transform(kRegistry.begin(), kRegistry.end(), list.begin(),
                   [](const RegistryEntry& entry) { return &entry.record.family; });
    return list;
  }();
  static const Families families = {.all = all, .root = kKvConfigRecord.family};
  return families;
}

const RegistryEntry& EntryOf(StringView word) {
  const auto* const entry =
      std::find_if(kRegistry.begin(), kRegistry.end(),
                   [word](const RegistryEntry& one) { return one.record.family.word == word; });
  if (entry == kRegistry.end()) {
    throw std::logic_error("no such family");
  }
  return *entry;
}

}  // namespace korva
