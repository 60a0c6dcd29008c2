#include "monitor/output_family.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace korva {

namespace {

constexpr std::array kUsualRange = {ModelRange{.low = u"-15.00", .high = u"115.00"}};
constexpr std::array kWideRange = {ModelRange{.low = u"-20.00", .high = u"120.00"}};

constexpr std::array<StringView, 2> kNarrowThird = {u"QICE2.def", u"QIEU2.def"};
constexpr std::array kThirdRanges = {
    ModelRange{.models = {.names = kNarrowThird}, .low = u"-5", .high = u"105"},
    ModelRange{.low = u"-15.00", .high = u"115.00"},
};

constexpr std::array<StringView, 3> kFirstWithoutSetBox = {u"QD.def", u"QD2.def", u"QD2I.def"};
constexpr std::array<StringView, 2> kLiteWithoutSetBox = {u"QD.def", u"QD2.def"};

constexpr std::array kFamilies = {
    OutputFamily{.family = u"First",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericHead,
                 .clean_answer = TrimNumericHead,
                 .models_without_set_box = {.names = kFirstWithoutSetBox}},
    OutputFamily{.family = u"Second",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericTail,
                 .clean_answer = TrimNumericTail,
                 .settling = Milliseconds(500)},
    OutputFamily{.family = u"Third",
                 .ranges = kThirdRanges,
                 .clean_sent = TrimNumericHead,
                 .clean_answer = TrimNumericHead},
    OutputFamily{.family = u"QXI",
                 .ranges = kWideRange,
                 .clean_sent = TrimNumericHead,
                 .clean_answer = TrimNumericHead,
                 .settling = Milliseconds(500)},
    OutputFamily{.family = u"Lite",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericTail,
                 .clean_answer = TrimNumericTail},
    OutputFamily{.family = u"LiteUniv",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericTail,
                 .clean_answer = TrimNumericTail},
    OutputFamily{.family = u"Nano",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericTail,
                 .clean_answer = TrimNumericTail,
                 .further_box = 22},
    OutputFamily{.family = u"LiteSecond",
                 .set_key = u"24_set",
                 .monitor_key = u"24_mon",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericHead,
                 .clean_answer = TrimNumericTail,
                 .resets_colours = false,
                 .models_without_set_box = {.names = kLiteWithoutSetBox}},
    OutputFamily{.family = u"LiteThird",
                 .ranges = kUsualRange,
                 .clean_sent = TrimNumericHead,
                 .clean_answer = TrimNumericTail,
                 .models_without_set_box = {.names = kLiteWithoutSetBox}},
    OutputFamily{.family = u"LiteForth",
                 .ranges = kUsualRange,
                 .clean_sent = TrimPlain,
                 .clean_answer = StripItemPrefix},
    OutputFamily{.family = u"LiteFifth",
                 .ranges = kUsualRange,
                 .clean_sent = TrimPlain,
                 .clean_answer = StripItemPrefix},
};

}  // namespace

std::span<const OutputFamily> OutputFamilies() { return kFamilies; }

const OutputFamily& OutputFamilyOf(const Family& family) {
  const auto* const row = std::find_if(kFamilies.begin(), kFamilies.end(),
                                       [&](const OutputFamily& one) { return one.family == family.word; });
  if (row == kFamilies.end()) {
    throw std::logic_error("a family without output setting");
  }
  return *row;
}

}  // namespace korva
