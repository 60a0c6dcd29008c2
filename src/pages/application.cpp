#include "pages/application.h"

#include <algorithm>
#include <utility>

#include "pages/registry.h"

namespace korva {

namespace {

bool HoldsSlowDevice(const Program& program) {
  const auto entries = Registry();
  return std::any_of(entries.begin(), entries.end(), [&](const RegistryEntry& entry) {
    const FamilyRecord& record = entry.record;
    const Page* page = record.slow_models.Has() ? program.Loaded(record.family) : nullptr;
    return page != nullptr && record.slow_models.Value().Has(page->DefFile);
  });
}

/// nullptr for a family without a page.
std::unique_ptr<ParameterPage> MakeBarePage(Program& program, const Family& family, DeviceLink& link) {
  const RegistryEntry& entry = EntryOf(family.word);
  return entry.page.Has() ? entry.page.Value()(program, entry.record, link) : nullptr;
}

}  // namespace

Application::Application(const Platform& platform, ProgramFolders folders)
    : companions(platform, folders.own, AllFamilies(),
                 [this](Program& owner, const Family& family) { return MakeBarePage(owner, family, link); }),
      program(platform, std::move(folders), AllFamilies(),
              [this](Program& owner, const Family& family) {
                std::unique_ptr<ParameterPage> page = MakeBarePage(owner, family, link);
                if (page != nullptr) {
                  companions.Join(*page);
                }
                return page;
              }),
      link(platform, program.Shared()) {
  link.line.OnWaiting = [this](const String& text) {
    if (Page* page = program.Showing()) {
      page->lblWaiting.SetCaption(text);
      page->lblWaiting.SetVisible(!text.empty());
    }
  };
  link.line.SlowDevice = [this] { return HoldsSlowDevice(program); };
}

}  // namespace korva
