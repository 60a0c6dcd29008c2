// A line has no numbers on its replies: one that comes too late, twice or not at all must not be taken for
// that of another command, whatever is read and written.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "link/group_item.h"
#include "sim/sample.h"
#include "support/device_line.h"
#include "support/scripted_line.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using sim::Fault;
using test::kSilence;

/// What happens to the reply to one command.
struct Mishap {
  std::string name;
  Fault fault = Fault::Silent;
  Milliseconds latency{0};  ///< of Late
};

const std::vector<Mishap> kMishaps = {
    {"lost", Fault::Silent},
    {"garbled", Fault::Garbled},
    {"noisy", Fault::Noise},
    {"halved", Fault::Half},
    {"emptied", Fault::Empty},
    {"doubled", Fault::Doubled},
    {"3.1 s late", Fault::Late, 3100ms},
    {"3.5 s late", Fault::Late, 3500ms},
    {"5 s late", Fault::Late, 5s},
    {"8 s late", Fault::Late, 8s},
};

/// A device with a mishap on its line.
class UnluckyLine final : public test::DeviceLine {
 public:
  using DeviceLine::DeviceLine;
  Mishap mishap;
  std::set<std::size_t> struck;  ///< commands, from 1

 private:
  sim::Reply Answer(const Command& command) override {
    sim::Reply reply = DeviceLine::Answer(command);
    if (struck.contains(Commands().size())) {
      reply.silent = mishap.fault == Fault::Silent;
      sim::SpoilReply(mishap.fault, reply);
      reply.latency = std::max(reply.latency, mishap.fault == Fault::Late ? mishap.latency : 0ms);
    }
    return reply;
  }
};

/// Something done with an item, and what must come of it.
struct Act {
  WireItem item;
  std::optional<String> data;  ///< nothing: the item is read
  String result;
  String held{};  ///< of a choice: its text before, which whoever writes it compares with what he wants
};

/// The sample device behind a line of the family's dialect.
struct UnluckyBench : test::VirtualHost {
  UnluckyBench(const std::string& family, bool timed)
      : device({.name = "sample", .definition_file = "SAMPLE.def", .family_word = family},
               sim::Definition::Parse(sim::kSample)) {
    port.SetTimed(timed);
    port.Connect(1, &line);
    link.Reopen(FromUtf8(std::to_string(device.GetFamily().baud) + ",n,8,1"));
    for (const auto& [item, value] :
         {std::pair("02", "PUMP1"), std::pair("14", "-200"), std::pair("15", "1200")}) {
      EXPECT_TRUE(device.Set("01", item, value));
    }
    std::copy_n(kTitles.begin(), kTitles.size(), shared.KnownItemNames.begin());
  }
  String Do(const Act& act, int repeats) {
    ItemAccess& items =
        device.GetFamily().dialect == sim::Dialect::Cok ? static_cast<ItemAccess&>(cok) : enter_item;
    return act.data ? items.WriteRetry(repeats, act.item, *act.data) : items.ReadRetry(repeats, act.item);
  }

  static constexpr std::array<const char16_t*, 8> kTitles = {u"Version", u"Tag",  u"Output", u"Input",
                                                             u"Zero",    u"Span", u"Unit",   u"Fine zero"};
  sim::Device device;
  UnluckyLine line{port, device};
  SharedState shared;
  SerialLink link{platform, shared};
  CokDialect cok{link, shared};
  EnterItemDialect enter_item{link, shared};
};

/// Reads and writes of items that the device has, one behind the other: their order and values are such that
/// no answer is good for another act than its own.
std::vector<Act> ActsOf(const sim::Family& family) {
  const WireItem mode = {u"01", u"01"};
  const WireItem tag = {u"01", u"02"};
  const WireItem zero = {u"01", u"14"};
  const WireItem span = {u"01", u"15"};
  const WireItem fine = {u"01", u"16"};
  const WireItem unit = {u"01", u"21"};
  const String refusal = family.dialect == sim::Dialect::Cok ? u"" : u"invalid data";
  const auto with = [&](const String& prefix, const String& value) {
    return family.kinds ? value : prefix + value;
  };
  return {
      {tag, {}, with(u"TG:", u"PUMP1")},
      {zero, {}, with(u"ZERO:", u"-200")},
      {span, {}, with(u"SPAN:", u"1200")},
      {mode, u"1", u"1"},
      {zero, u"-50", with(u"ZERO:", u"-50")},
      {zero, u"-50", with(u"ZERO:", u"-50")},
      {span, u"abc", refusal},
      {span, {}, with(u"SPAN:", u"1200")},
      {span, u"900", with(u"SPAN:", u"900")},
      {tag, u"FIC-7", with(u"TG:", u"FIC-7")},
      {unit, u"1", u"F", u"C"},
      {fine, u"0.50", with(u"FINZER", u"0.50")},
      {zero, {}, with(u"ZERO:", u"-50")},
      {tag, {}, with(u"TG:", u"FIC-7")},
      {mode, u"0", u"0"},
  };
}

struct OutOfStepTest : testing::TestWithParam<std::pair<const char*, bool>> {
  /// Does the acts one behind the other; each result must be right or, unless `mended`, none.
  static void ExpectNothingWrong(UnluckyBench& bench, const std::vector<Act>& acts, int repeats,
                                 bool mended) {
    for (const Act& act : acts) {
      const String result = bench.Do(act, repeats);
      if ((mended || !result.empty()) && (act.held.empty() || result != act.held)) {
        EXPECT_EQ(ToUtf8(result), ToUtf8(act.result)) << ToUtf8(act.item.item);
      } else if (act.data) {
        return;  // what follows has other results
      }
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Line, OutOfStepTest,
                         testing::Values(std::pair("First", true), std::pair("First", false),
                                         std::pair("Lite", true), std::pair("Lite", false)),
                         [](const auto& one) {
                           return std::string(one.param.first) + (one.param.second ? "Timed" : "Untimed");
                         });

TEST_P(OutOfStepTest, WithOneMishapAnywhereEveryResultIsRightAndWithFewRepeatsRightOrNone) {
  UnluckyBench good(GetParam().first, GetParam().second);
  const std::vector<Act> acts = ActsOf(good.device.GetFamily());
  ExpectNothingWrong(good, acts, 0, true);
  for (std::size_t struck = 1; struck <= good.line.Commands().size(); ++struck) {
    for (const Mishap& mishap : kMishaps) {
      for (const int repeats : {0, 1, 3}) {
        SCOPED_TRACE(mishap.name + " at " + std::to_string(struck) + ", " + std::to_string(repeats) +
                     " repeats");
        UnluckyBench bench(GetParam().first, GetParam().second);
        bench.line.mishap = mishap;
        bench.line.struck = {struck};
        ExpectNothingWrong(bench, acts, repeats, repeats == 3);
      }
    }
  }
}

TEST_P(OutOfStepTest, WithTwoLateRepliesAnywhereNoResultIsWrong) {
  UnluckyBench good(GetParam().first, GetParam().second);
  const std::vector<Act> acts = ActsOf(good.device.GetFamily());
  ExpectNothingWrong(good, acts, 0, true);
  const std::size_t commands = good.line.Commands().size();
  for (std::size_t first = 1; first < commands; ++first) {
    for (std::size_t apart = 1; apart <= 8; ++apart) {
      for (const int repeats : {0, 1, 3}) {
        SCOPED_TRACE(std::to_string(first) + " and " + std::to_string(first + apart) + " late, " +
                     std::to_string(repeats) + " repeats");
        UnluckyBench bench(GetParam().first, GetParam().second);
        bench.line.mishap = {"late", Fault::Late, 3500ms};
        bench.line.struck = {first, first + apart};
        ExpectNothingWrong(bench, acts, repeats, false);
      }
    }
  }
}

TEST_P(OutOfStepTest, WithADeviceThatIsAlwaysLateNoResultIsWrong) {
  const std::vector<Act> acts = ActsOf(UnluckyBench(GetParam().first, true).device.GetFamily());
  for (const Milliseconds latency : {2500ms, 2900ms, 3010ms, 3100ms, 3500ms, 3900ms, 4500ms}) {
    for (const int repeats : {0, 1, 3}) {
      for (std::size_t first = 1; first < 12; ++first) {
        SCOPED_TRACE(std::to_string(latency.count()) + " ms from " + std::to_string(first) + " on");
        UnluckyBench bench(GetParam().first, GetParam().second);
        bench.line.mishap = {"late", Fault::Late, latency};
        for (std::size_t at = first; at < 400; ++at) {
          bench.line.struck.insert(at);
        }
        ExpectNothingWrong(bench, acts, repeats, false);
      }
    }
  }
}

}  // namespace
}  // namespace korva
