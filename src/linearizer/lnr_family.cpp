#include "linearizer/lnr_family.h"

#include <algorithm>
#include <array>

namespace korva {

namespace {

constexpr std::array kPlain = {LnrQuantity{.heads = {u"k", u"X(k)", u"Y(k)"}}};
constexpr std::array kPercent = {LnrQuantity{.heads = {u"  k", u"  X(k)        %", u"  Y(k)        %"}}};
constexpr std::array kByInput = {
    LnrQuantity{.kind = u"L", .heads = {u"  k", u"  X(k)     %", u"  Y(k)     %"}},
    LnrQuantity{.kind = u"T",
                .heads = {u"  k", u"  X(k)    ｰC", u"  Y(k)    uV"},
                .x_limits = {.low = -273, .high = 3000},
                .y_limits = {.low = -69000, .high = 69000}},
    LnrQuantity{.kind = u"R",
                .heads = {u"  k", u"  X(k)    ｰC", u"  Y(k)   Ohm"},
                .x_limits = {.low = -200, .high = 850},
                .y_limits = {.low = -69000, .high = 69000}},
};

constexpr std::array kFamilies = {
    LnrFamily{.family = u"First", .rule = LnrRule::Range, .quantities = kPlain},
    LnrFamily{.family = u"Third", .rule = LnrRule::Range, .quantities = kPlain},
    LnrFamily{.family = u"QXI", .points = kLnrLongPoints, .quantities = kByInput},
    LnrFamily{.family = u"Lite", .points = kLnrLongPoints, .quantities = kPercent},
    LnrFamily{.family = u"LiteThird", .points = kLnrLongPoints, .quantities = kPercent},
    LnrFamily{.family = u"LiteSecond", .points = kLnrLongPoints, .quantities = kPercent},
    LnrFamily{.family = u"LiteFifth", .points = kLnrLongPoints, .quantities = kPercent},
    LnrFamily{.family = u"LiteUniv", .points = kLnrLongPoints, .quantities = kPercent},
    LnrFamily{.family = u"Nano", .points = kLnrLongPoints, .quantities = kPercent},
    LnrFamily{.family = u"LiteForth", .points = kLnrShortPoints, .quantities = kPercent},
};

}  // namespace

const LnrFamily* FindLnrFamily(const Family& family) {
  const auto* const found = std::find_if(kFamilies.begin(), kFamilies.end(),
                                         [&](const LnrFamily& one) { return one.family == family.word; });
  return found == kFamilies.end() ? nullptr : found;
}

std::span<const LnrFamily> LnrFamilies() { return kFamilies; }

}  // namespace korva
