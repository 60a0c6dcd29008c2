#pragma once

#include "pages/design_parts.h"

namespace korva::z2 {

// What the designs of several pages of the second line have in common.

inline constexpr std::array kSettingRows = OutputRows(std::array{
    LiveRow({.item = u"03_set", .label = 0, .field = 20}),
    LiveRow({.item = u"03_mon", .label = 1, .field = 21}),
});

inline constexpr std::array kCjmExchangeRows = CjmExchangeRows({.item = u"34", .label = 20, .field = 7});
inline constexpr std::array kCjmGroups = CjmGroups(kCjmExchangeRows);
inline constexpr DesignTab kCjmTab = CjmTab(kCjmGroups);

/// The boxes of the input's tab.
constexpr std::array<DesignGroup, 2> InputGroups(std::span<const DesignRow> input,
                                                 std::span<const DesignRow> range) {
  return {
      {{.heading = TextKey::Input, .rows = input}, {.column = 1, .heading = TextKey::Range, .rows = range}}};
}

/// The boxes of the output's tab; `free` are the lines for new items.
constexpr std::array<DesignGroup, 3> OutputGroups(std::span<const DesignRow> output,
                                                  std::span<const DesignRow> fine,
                                                  std::span<const DesignRow> free) {
  return {{{.heading = TextKey::Output, .rows = output},
           {.column = 1, .heading = TextKey::ZeroSpanAdjustment, .rows = fine},
           {.column = 1, .heading = TextKey::Details, .rows = free}}};
}

/// The tabs of the pages of pulses and frequencies, in their order.
constexpr std::array<DesignTab, 6> PulseTabs(std::span<const DesignGroup> input,
                                             std::span<const DesignGroup> output,
                                             std::span<const DesignGroup> table,
                                             std::span<const DesignGroup> io_check) {
  return {{kFileTab,
           {.caption = TextKey::Input, .groups = input},
           {.caption = TextKey::Output, .groups = output},
           TableTab(table),
           {.caption = TextKey::IoCheck, .groups = io_check},
           kPortTab}};
}

}  // namespace korva::z2
