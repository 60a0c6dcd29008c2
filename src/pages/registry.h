#pragma once

#include <memory>
#include <span>

#include "core/program.h"
#include "pages/family_record.h"

namespace korva {

/// Makes the page of a family from its record.
using PageMaker = std::unique_ptr<ParameterPage> (*)(Program&, const FamilyRecord&, DeviceLink&);

/// One family of the program.
struct RegistryEntry {
  const FamilyRecord& record;
  OrNone<PageMaker> page;  ///< none: the family has no page yet
};

/// All families, in the order in which a family word is compared with them.
std::span<const RegistryEntry> Registry();

/// The same for the program, with the root page's family.
const Families& AllFamilies();

/// The entry of a family word. A word that no family has is a fault of the program (std::logic_error).
const RegistryEntry& EntryOf(StringView word);

}  // namespace korva
