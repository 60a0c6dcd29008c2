#include "pages/application.h"

#include <algorithm>
#include <array>
#include <utility>

#include "pages/kv_config/kv_config.h"
#include "pages/kv_config_v2/kv_config_v2.h"
#include "pages/kv_config_v3/kv_config_v3.h"

namespace korva {

namespace {

/// Models of family Second whose replies are slow: by the end of their definition file's name, or by the
/// name.
constexpr StringView kSlowEnding = u"D.def";
constexpr std::array<StringView, 2> kSlowModels = {u"QICE.def", u"QEYZ.def"};

/// The device in use is polled slowly as long as the page of family Second holds such a model, even after
/// that page has been left.
bool HoldsSlowDevice(const Program& program) {
  const Page* page = program.Loaded(*FindFamily(u"Second"));
  return page != nullptr &&
         (page->DefFile.ends_with(kSlowEnding) ||
          std::find(kSlowModels.begin(), kSlowModels.end(), page->DefFile) != kSlowModels.end());
}

template <typename PageOfFamily>
std::unique_ptr<Page> Make(Program& program, const Family& family, DeviceLink& link) {
  return std::make_unique<PageOfFamily>(program, family, link);
}

struct PageMaker {
  StringView page;
  std::unique_ptr<Page> (*make)(Program&, const Family&, DeviceLink&);
};

constexpr std::array kPages = {
    PageMaker{.page = u"KvConfig", .make = Make<KvConfig>},
    PageMaker{.page = u"KvConfig_V2", .make = Make<KvConfig_V2>},
    PageMaker{.page = u"KvConfig_V3", .make = Make<KvConfig_V3>},
};

/// nullptr for a family without a page.
std::unique_ptr<Page> MakePage(Program& program, const Family& family, DeviceLink& link) {
  const auto* const maker = std::find_if(kPages.begin(), kPages.end(),
                                         [&](const PageMaker& one) { return one.page == family.page; });
  return maker == kPages.end() ? nullptr : maker->make(program, family, link);
}

}  // namespace

Application::Application(const Platform& platform, String folder)
    : program(platform, std::move(folder),
              [this](Program& owner, const Family& family) { return MakePage(owner, family, link); }),
      link(platform, program.Shared()) {
  link.line.SlowDevice = [this] { return HoldsSlowDevice(program); };
}

}  // namespace korva
