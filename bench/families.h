#pragma once

#include <array>

namespace korva::bench {

/// A family, and the model of it that stands for it in what is measured of each.
struct FamilyModel {
  const char16_t* family;
  const char16_t* model;
  bool asks = true;  ///< before an upload; without, the device tells its model
};

inline constexpr std::array<FamilyModel, 11> kFamilyModels = {{
    {.family = u"First", .model = u"QHN"},
    {.family = u"Second", .model = u"QEY"},
    {.family = u"Third", .model = u"QCE2"},
    {.family = u"QXI", .model = u"QXI"},
    {.family = u"Lite", .model = u"Z2WT", .asks = false},
    {.family = u"LiteUniv", .model = u"Z2WU"},
    {.family = u"LiteSecond", .model = u"Z2WQ"},
    {.family = u"LiteThird", .model = u"Z2WPA"},
    {.family = u"LiteForth", .model = u"Z2WPR"},
    {.family = u"LiteFifth", .model = u"Z2WPL"},
    {.family = u"Nano", .model = u"Z8WT2", .asks = false},
}};

}  // namespace korva::bench
