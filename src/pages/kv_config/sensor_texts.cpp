#include "pages/kv_config/sensor_texts.h"

#include <algorithm>

namespace korva {

namespace {

/// How devices of the first version and later ones spell a sensor.
struct SensorSpelling {
  StringView short_text;
  StringView long_text;
};
constexpr std::array<SensorSpelling, kSensorTexts> kSpellings = {{
    {.short_text = u"Tc-1: (PR)", .long_text = u"Tc-1:  (PR)"},
    {.short_text = u"Tc-2:K(CA)", .long_text = u"Tc-2: K(CA)"},
    {.short_text = u"Tc-3:E(CRC)", .long_text = u"Tc-3: E(CRC)"},
    {.short_text = u"Tc-4:J(IC)", .long_text = u"Tc-4: J(IC)"},
    {.short_text = u"Tc-5:T(CC)", .long_text = u"Tc-5: T(CC)"},
    {.short_text = u"Tc-6:B(RH)", .long_text = u"Tc-6: B(RH)"},
    {.short_text = u"Tc-7:R", .long_text = u"Tc-7: R"},
    {.short_text = u"Tc-8:S", .long_text = u"Tc-8: S"},
    {.short_text = u"Tc-9:WRe5-26", .long_text = u"Tc-9: WRe5-26"},
    {.short_text = u"DS:straight", .long_text = u"PS: Straight"},
    {.short_text = u"Fx:linearizer", .long_text = u"FX: Linearizer"},
    {.short_text = u"RB-1:Pt100", .long_text = u"RB-1: Pt100"},
    {.short_text = u"RB-2:JPt100", .long_text = u"RB-2: JPt100"},
    {.short_text = u"RB-3:Pt 50", .long_text = u"RB-3: Pt 50"},
    {.short_text = u"RB-4:Ni508.4", .long_text = u"RB-4: Ni508.4"},
    {.short_text = u"Sq-1:no drop", .long_text = u"Sq-1:no drop"},
    {.short_text = u"Sq-2:drop out", .long_text = u"Sq-2:drop out"},
}};

constexpr SensorTexts TextsOf(StringView SensorSpelling::*text) {
  SensorTexts texts;
  std::transform(kSpellings.begin(), kSpellings.end(), texts.begin(),
                 [text](const SensorSpelling& sensor) { return sensor.*text; });
  return texts;
}
constexpr SensorTexts kShortTexts = TextsOf(&SensorSpelling::short_text);
constexpr SensorTexts kLongTexts = TextsOf(&SensorSpelling::long_text);

}  // namespace

const SensorTexts& ShortSensorTexts() { return kShortTexts; }

const SensorTexts& LongSensorTexts() { return kLongTexts; }

const SensorTexts& SensorTextsOf(StringView version) {
  return version == u"SYSVER   1.00" ? kShortTexts : kLongTexts;
}

}  // namespace korva
