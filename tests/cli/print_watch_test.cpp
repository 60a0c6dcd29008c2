#include "cli/print_watch.h"

#include <gtest/gtest.h>

#include "script_bench.h"

namespace korva::cli::test {
namespace {

using namespace std::chrono_literals;

Lines Printed(const Watch& watch, Clock now) {
  std::ostringstream printed;
  Transcript transcript(printed, printed);
  PrintWatch(watch, now, transcript);
  return TakeLines(printed);
}

TEST(PrintWatchTest, TellsThatThereAreNoValues) {
  EXPECT_EQ(Printed(Watch(), 0s), Lines{"watch none"});
  ScriptBench bench;
  EXPECT_EQ(bench.RunStarted("watch"), Lines{"watch none"});
}

TEST(PrintWatchTest, TellsEachValueWithLeastAndMostAndTheAgeOfAnOldOne) {
  Watch watch;
  watch.Begin();
  EXPECT_EQ(Printed(watch, 0s), Lines{"watch running"});
  const auto tell = [&](int row, const String& item, const String& text, Clock now) {
    watch.Take({.row = row,
                .item = item,
                .caption = u"入力値",
                .text = text,
                .unit = u"deg C",
                .answered = !text.empty()},
               now);
  };
  tell(1, u"04", u"12.50", 1s);
  tell(2, u"06", u"OPEN", 2s);
  tell(1, u"04", u"9.75", 3s);
  tell(2, u"06", {}, 4s);
  EXPECT_EQ(Printed(watch, 9s),
            (Lines{"watch running", "watch 04 \"入力値\" \"9.75\" \"deg C\" min \"9.75\" max \"12.50\"",
                   "watch 06 \"入力値\" \"OPEN\" \"deg C\" min \"\" max \"\" silent 7"}));
  watch.End(10s);
  EXPECT_EQ(Printed(watch, 20s),
            (Lines{"watch ended", "watch 04 \"入力値\" \"9.75\" \"deg C\" min \"9.75\" max \"12.50\" old 17",
                   "watch 06 \"入力値\" \"OPEN\" \"deg C\" min \"\" max \"\" old 18"}));
}

}  // namespace
}  // namespace korva::cli::test
