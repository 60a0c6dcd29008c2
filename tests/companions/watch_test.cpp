#include "companions/watch.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_utilities.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;
using Age = Watch::Age;
using Number = WatchedValue::Number;
using Reading = WatchedValue::Outcome;
using Point = WatchedValue::Point;

/// A loop that reads what a test says when a test says.
class WatchTest : public testing::Test {
 protected:
  WatchTest() { watch.Begin(); }
  /// The value of item 04, told by the device.
  void Tell(Clock time, const String& text, const String& unit = u"V") { Read(4, time, text, unit, true); }
  void Read(int row, Clock time, const String& text, const String& unit, bool answered) {
    watch.Take({.row = row,
                .item = u"0" + Ascii(std::to_string(row)),
                .caption = u"入力値",
                .text = text,
                .unit = unit,
                .answered = answered},
               time);
  }
  void Silence(Clock time) { Read(4, time, {}, u"V", false); }
  [[nodiscard]] const WatchedValue& Value() const { return watch.Values().at(0); }
  [[nodiscard]] std::optional<Age> AgeAt(Clock now) const { return watch.AgeOf(Value(), now); }
  [[nodiscard]] String Least() const { return Value().least.value_or(Number{}).text; }
  [[nodiscard]] String Most() const { return Value().most.value_or(Number{}).text; }
  [[nodiscard]] std::vector<Point> Trend() const { return {Value().trend.begin(), Value().trend.end()}; }

  Watch watch;
};

Age Silent(int seconds) { return {.text = TextKey::WatchSilent, .seconds = seconds}; }
Age Old(int seconds) { return {.text = TextKey::WatchAge, .seconds = seconds}; }

TEST_F(WatchTest, KeepsAValueWithWhatItIsCalledAndItsUnit) {
  Tell(1s, u"12.50");
  EXPECT_EQ(Value().item, u"04");
  EXPECT_EQ(Value().caption, u"入力値");
  EXPECT_EQ(Value().text, u"12.50");
  EXPECT_EQ(Value().unit, u"V");
  EXPECT_EQ(Value().told, Clock(1s));
  EXPECT_EQ(Value().outcome, Reading::Told);
  EXPECT_EQ(AgeAt(1s), std::nullopt);
}

TEST_F(WatchTest, KeepsLeastAndMostAsTheDeviceToldThem) {
  Tell(1s, u"12.50");
  EXPECT_EQ(Value().least, (Number{.value = 12.5, .text = u"12.50"}));
  EXPECT_EQ(Value().most, (Number{.value = 12.5, .text = u"12.50"}));
  Tell(2s, u"-3.10");
  Tell(3s, u"9.00");
  EXPECT_EQ(Value().least, (Number{.value = -3.1, .text = u"-3.10"}));
  EXPECT_EQ(Value().most, (Number{.value = 12.5, .text = u"12.50"}));
  Tell(4s, u"100");  // as a number: as texts "100" stands before "12.50"
  EXPECT_EQ(Value().most, (Number{.value = 100, .text = u"100"}));
}

TEST_F(WatchTest, AStatusWordIsShownButCountsNot) {
  Tell(1s, u"12.50");
  Tell(2s, u"OPEN");
  EXPECT_EQ(Value().text, u"OPEN");
  EXPECT_EQ(Value().outcome, Reading::Told);
  EXPECT_EQ(AgeAt(2s), std::nullopt);
  EXPECT_EQ(Least(), u"12.50");
  EXPECT_EQ(Most(), u"12.50");
  Tell(3s, u"13.00");
  EXPECT_EQ(Trend(), (std::vector<Point>{{1s, 12.5}, {2s, std::nullopt}, {3s, 13.0}})) << "a gap";
}

TEST_F(WatchTest, AValueThatIsNotAnsweredKeepsItsTextAndTellsForHowLong) {
  Tell(1s, u"12.50");
  Silence(3s);
  EXPECT_EQ(Value().text, u"12.50");
  EXPECT_EQ(Value().outcome, Reading::Silent);
  EXPECT_EQ(AgeAt(3s), Silent(2)) << "since the last answer";
  EXPECT_EQ(AgeAt(12999ms), Silent(11));
  EXPECT_EQ(AgeAt(13s), Silent(12));
  Silence(14s);
  EXPECT_EQ(AgeAt(14s), Silent(13));
  Tell(15s, u"12.60");
  EXPECT_EQ(AgeAt(15s), std::nullopt);
  Silence(17s);
  EXPECT_EQ(AgeAt(18s), Silent(3)) << "since the last answer, not since the first";
}

TEST_F(WatchTest, AValueThatWasNeverAnsweredTellsSinceItsFirstReading) {
  Silence(5s);
  EXPECT_EQ(Value().text, u"");
  EXPECT_EQ(Value().least, std::nullopt);
  EXPECT_EQ(AgeAt(9s), Silent(4));
  watch.End(10s);
  EXPECT_EQ(AgeAt(100s), Silent(5)) << "nobody asks any more";
}

TEST_F(WatchTest, AnAnswerWithoutAValueIsNoSilence) {
  Read(4, 1s, {}, {}, true);
  EXPECT_EQ(Value().outcome, Reading::Untold);
  EXPECT_EQ(AgeAt(60s), std::nullopt) << "there is no value that could be old";
  Tell(2s, u"5");
  Read(4, 4s, {}, {}, true);
  EXPECT_EQ(Value().text, u"5");
  EXPECT_EQ(Value().unit, u"V") << "that of the text";
  EXPECT_EQ(AgeAt(5s), Old(3));
}

TEST_F(WatchTest, AValueThatTheLoopReadsNoMoreGrowsOld) {
  Tell(1s, u"5");
  EXPECT_EQ(AgeAt(10999ms), std::nullopt);
  EXPECT_EQ(AgeAt(11s), Old(10));
}

TEST_F(WatchTest, AfterTheLoopAllValuesAreOld) {
  Tell(1s, u"5");
  watch.End(2s);
  EXPECT_FALSE(watch.Running());
  EXPECT_EQ(Value().text, u"5");
  EXPECT_EQ(AgeAt(2s), Old(1));
  EXPECT_EQ(AgeAt(65s), Old(64));
}

TEST_F(WatchTest, ASilentValueTellsItsAgeAfterTheLoop) {
  Tell(1s, u"5");
  Silence(3s);
  watch.End(4s);
  EXPECT_EQ(AgeAt(21s), Old(20));
}

TEST_F(WatchTest, AnotherLoopBeginsWithNothing) {
  Tell(1s, u"5");
  watch.End(2s);
  watch.Begin();
  EXPECT_TRUE(watch.Values().empty());
  EXPECT_TRUE(watch.Running());
}

TEST_F(WatchTest, AnotherPageForgetsTheValuesUnlessALoopRuns) {
  Tell(1s, u"5");
  watch.Clear();
  EXPECT_EQ(watch.Values().size(), 1U);
  watch.End(2s);
  watch.Clear();
  EXPECT_TRUE(watch.Values().empty());
}

TEST_F(WatchTest, AnotherUnitBeginsLeastMostAndTrendAnew) {
  Tell(1s, u"100.0", u"deg C");
  Tell(2s, u"90.0", u"deg C");
  Tell(3s, u"212.0", u"deg F");
  EXPECT_EQ(Value().unit, u"deg F");
  EXPECT_EQ(Least(), u"212.0");
  EXPECT_EQ(Most(), u"212.0");
  EXPECT_EQ(Trend(), (std::vector<Point>{{3s, 212.0}}));
}

TEST_F(WatchTest, AUnitThatIsNotKnownWhileNothingIsToldChangesNothing) {
  Tell(1s, u"100.0", u"deg C");
  Read(4, 2s, {}, {}, true);  // a refused item loses its unit
  Read(4, 3s, {}, {}, false);
  Tell(4s, u"90.0", u"deg C");
  EXPECT_EQ(Most(), u"100.0");
}

TEST_F(WatchTest, AUnitThatIsMissingAtFirstIsAnotherOne) {
  Tell(1s, u"100.0", {});
  Tell(2s, u"90.0", u"deg C");
  EXPECT_EQ(Most(), u"90.0");
}

TEST_F(WatchTest, BeginsAnewWhenTheUserWantsIt) {
  Tell(1s, u"1");
  Tell(2s, u"9");
  watch.BeginAnew();
  EXPECT_EQ(Value().text, u"9");
  EXPECT_EQ(Value().least, std::nullopt);
  EXPECT_TRUE(Trend().empty());
  Tell(3s, u"5");
  EXPECT_EQ(Least(), u"5");
  EXPECT_EQ(Most(), u"5");
}

TEST_F(WatchTest, TheTrendHasAGapWhereNothingWasAnsweredHoweverLong) {
  Silence(1s);  // nothing to be separated yet
  Tell(2s, u"1");
  Silence(3s);
  Silence(4s);
  Tell(5s, u"2");
  EXPECT_EQ(Trend(), (std::vector<Point>{{2s, 1.0}, {3s, std::nullopt}, {5s, 2.0}}));
}

TEST_F(WatchTest, TheTrendGoesBackTenMinutes) {
  Tell(0s, u"1");
  Tell(1s, u"2");
  Tell(600s, u"3");
  EXPECT_EQ(Trend().size(), 3U);
  Tell(601s, u"4");
  EXPECT_EQ(Trend(), (std::vector<Point>{{1s, 2.0}, {600s, 3.0}, {601s, 4.0}}));
  EXPECT_EQ(Least(), u"1") << "least and most are since the start";
}

TEST_F(WatchTest, TheTrendIsBoundedWhateverThePace) {
  for (int reading = 0; reading < 5000; ++reading) {
    Tell(Milliseconds(reading), Ascii(std::to_string(reading)));
  }
  ASSERT_EQ(Trend().size(), 1200U);
  EXPECT_EQ(Trend().front(), (Point{.time = 3800ms, .value = 3800.0}));
  EXPECT_EQ(Trend().back(), (Point{.time = 4999ms, .value = 4999.0}));
}

TEST_F(WatchTest, AReadingEachHalfSecondFillsTenMinutes) {
  for (int reading = 0; reading < 3000; ++reading) {
    Tell(500ms * reading, u"1");
  }
  EXPECT_EQ(Trend().back().time - Trend().front().time, 599500ms);
}

TEST_F(WatchTest, ValuesStandInTheOrderOfTheLoop) {
  Read(7, 1s, u"1", u"%", true);
  Read(4, 2s, u"2", u"%", true);
  Read(7, 3s, u"3", u"%", true);
  ASSERT_EQ(watch.Values().size(), 2U);
  EXPECT_EQ(watch.Values()[0].item, u"07");
  EXPECT_EQ(watch.Values()[0].text, u"3");
  EXPECT_EQ(watch.Values()[1].item, u"04");
}

TEST_F(WatchTest, TellsOfEachChangeAndNumbersItForItself) {
  int told = 0;
  watch.Observe([&told] { ++told; });
  Read(4, 1s, u"1", u"%", true);
  Read(7, 1s, u"1", u"%", true);
  EXPECT_EQ(told, 2);
  EXPECT_NE(watch.Values()[0].change, watch.Values()[1].change);
  const unsigned before = watch.Values()[0].change;
  watch.End(2s);
  watch.Begin();
  Read(4, 3s, u"1", u"%", true);
  EXPECT_NE(watch.Values()[0].change, before) << "a picture of the former one is not its";
}

}  // namespace
}  // namespace korva::test
