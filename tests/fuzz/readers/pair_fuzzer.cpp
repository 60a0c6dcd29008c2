// What a device answers to the read of an item that holds two numbers, taken as a page takes it.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "demand.h"
#include "pages/z8_kv_config/item_pairs.h"
#include "reader_bench.h"

namespace korva {
namespace {

/// Each is empty or a number that the device told, with no blank in it; and there is no second without a
/// first.
void DemandNumbers(const PairTexts& pair, const String& answer) {
  for (const String& number : {pair.first, pair.second}) {
    test::Demand(number.empty() || IsNumeric(number));
    test::Demand(number.find(u' ') == String::npos && answer.find(number) != String::npos);
  }
  test::Demand(pair.second.empty() || !pair.first.empty());
}

/// The one blank between two numbers keeps them apart, however often they are joined and split.
void DemandBlank(const PairTexts& pair) {
  const String joined = JoinPair(pair);
  test::Demand(std::count(joined.begin(), joined.end(), u' ') == (pair.second.empty() ? 0 : 1));
  test::Demand(SplitPair(joined) == pair && PairOfAnswer(joined) == pair);
}

/// An edit takes one side away: the other is still told from it.
void DemandSides(const PairTexts& pair) {
  for (const PairTexts& left :
       {PairTexts{.first = pair.first, .second = {}}, PairTexts{.first = {}, .second = pair.second}}) {
    test::Demand(SplitPair(JoinPair(left)) == left);
  }
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  const korva::String answer = korva::test::CodePage932().Decode(bytes);
  const korva::PairTexts pair = korva::PairOfAnswer(answer);
  korva::DemandNumbers(pair, answer);
  korva::DemandBlank(pair);
  korva::DemandSides(pair);
  return 0;
}
