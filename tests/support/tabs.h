#pragma once

#include <array>

#include "core/design.h"
#include "core/page.h"

namespace korva::test {

template <TextKey... captions>
inline constexpr std::array kBareTabs = {DesignTab{.caption = captions}...};
/// A design of tabs with nothing on them.
template <TextKey... captions>
inline constexpr Design kBareDesign = {.tabs = kBareTabs<captions...>};

inline constexpr auto kSevenTabs = std::to_array<DesignTab>({
    {.caption = TextKey::File},
    {.caption = TextKey::Input},
    {.caption = TextKey::Output},
    {.caption = TextKey::Linearizer, .rule = TabRule::BySwitch},
    {.caption = TextKey::Filter, .rule = TabRule::OpenIfTrue},
    {.caption = TextKey::Port},
    {.caption = TextKey::IoCheck},
});
/// The tabs of a page with a linearizer and a filter, with nothing on them.
inline constexpr Design kSevenTabDesign = {.tabs = kSevenTabs};

/// Whether the tab with this caption, which the page has, can be brought to the front.
inline bool TabOpen(const Page& page, TextKey caption) { return page.Tabs.TabEnabled(page.TabWith(caption)); }

}  // namespace korva::test
