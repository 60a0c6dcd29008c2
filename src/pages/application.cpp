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
std::unique_ptr<Page> MakePage(Program& program, const Family& family, DeviceLink& link,
                               Companions& companions) {
  const RegistryEntry& entry = EntryOf(family.word);
  if (!entry.page.Has()) {
    return nullptr;
  }
  std::unique_ptr<ParameterPage> page = entry.page.Value()(program, entry.record, link);
  companions.Join(*page);
  return page;
}

}  // namespace

Application::Application(const Platform& platform, String folder)
    : companions(platform, folder),
      program(
          platform, std::move(folder), AllFamilies(),
          [this](Program& owner, const Family& family) { return MakePage(owner, family, link, companions); }),
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
