#pragma once

#include <array>

#include "monitor/monitor_family.h"

/// What the monitors of several families have in common.
namespace korva::live {

// Items that let the monitor start.
inline constexpr std::array<StringView, 6> kItems03To08 = {u"03", u"04", u"05", u"06", u"07", u"08"};
inline constexpr std::array<StringView, 5> kItems03To07 = {u"03", u"04", u"05", u"06", u"07"};

// Items that are read.
inline constexpr std::array kCycle04To07 = {CycleItem{.key = u"04"}, CycleItem{.key = u"05"},
                                            CycleItem{.key = u"06"}, CycleItem{.key = u"07"}};

// Units.
inline constexpr UnitSource kNoUnit = {.kind = UnitKind::None};
inline constexpr UnitSource kRowUnit = {.kind = UnitKind::Row};
inline constexpr UnitSource kUnitOfItem04 = {.kind = UnitKind::Item, .text = u"04"};
inline constexpr UnitSource kPercent = {.kind = UnitKind::Text, .text = u"%"};
inline constexpr UnitSource kMillivolt = {.kind = UnitKind::Text, .text = u"mV"};
inline constexpr UnitSource kOhm = {.kind = UnitKind::Text, .text = u"Ohm"};

// Units that the device tells.
inline constexpr UnitTable kTemperatureItem = {.item = u"21", .repeats = 5, .table = u"$I21"};
inline constexpr UnitSource kUnitFromTemperatureItem = {.kind = UnitKind::Device, .table = kTemperatureItem};
inline constexpr UnitTable kTypeItem = {.item = u"10", .repeats = 5, .table = u"$I10"};

// Rules for one label.
inline constexpr std::array kTemperatureUnit = {UnitRule{.unit = kUnitFromTemperatureItem}};
inline constexpr std::array kCopyOfItem04 = {UnitRule{.unit = kUnitOfItem04}};

}  // namespace korva::live
