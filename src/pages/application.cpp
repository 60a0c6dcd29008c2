#include "pages/application.h"

#include <algorithm>
#include <array>
#include <utility>

#include "pages/kv_config.h"

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

}  // namespace

Application::Application(const Platform& platform, String folder)
    : program(platform, std::move(folder),
              [this](Program& owner, const Family& family) -> std::unique_ptr<Page> {
                if (family.page == u"KvConfig") {
                  return std::make_unique<KvConfig>(owner, family, link);
                }
                return nullptr;
              }),
      link(platform, program.Shared()) {
  link.line.SlowDevice = [this] { return HoldsSlowDevice(program); };
}

}  // namespace korva
