#include "verdict.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace korva::bench {
namespace {

constexpr Row kRow = {.what = "Reading", .benchmark = "Read", .value = "wall", .limit = 1.25, .unit = ""};

Measurements Of(const std::vector<double>& walls, bool failed = false) {
  return {{"Read", {.values = {{"wall", walls}}, .failed = failed}}};
}

TEST(Verdict, IsHeldUpToTheLimitByTheMedianOfTheRepetitions) {
  EXPECT_EQ(Judge(kRow, Of({9.0, 1.25, 1.0})), Verdict::Held);
  EXPECT_EQ(Judge(kRow, Of({0.5, 1.26, 9.0})), Verdict::Missed);
}

TEST(Verdict, OfAnEvenNumberOfRepetitionsGoesByTheMiddleOfTheTwo) {
  EXPECT_EQ(Judge(kRow, Of({1.0, 1.5})), Verdict::Held);
  EXPECT_EQ(Judge(kRow, Of({1.0, 1.51})), Verdict::Missed);
}

TEST(Verdict, IsFailedWhenARepetitionFailedWhateverTheOthersGave) {
  EXPECT_EQ(Judge(kRow, Of({1.0, 1.0}, true)), Verdict::Failed);
  EXPECT_EQ(Judge(kRow, Of({}, true)), Verdict::Failed);
}

TEST(Verdict, IsNotMeasuredWithoutTheBenchmarkOrItsValue) {
  EXPECT_EQ(Judge(kRow, {}), Verdict::NotMeasured);
  EXPECT_EQ(Judge(kRow, {{"Read", {.values = {{"processor", {1.0}}}}}}), Verdict::NotMeasured);
  EXPECT_EQ(Judge(kRow, Of({})), Verdict::NotMeasured);
}

TEST(Report, IsGoodOnlyWhenEveryRowIsHeld) {
  constexpr Row second = {.what = "W", .benchmark = "Write", .value = "real", .limit = 60, .unit = " ms"};
  constexpr std::array rows = {kRow, second};
  Measurements measurements = Of({1.0});
  EXPECT_FALSE(AllHeld(rows, measurements));
  measurements["Write"].values["real"] = {60};
  EXPECT_TRUE(AllHeld(rows, measurements));
  measurements["Write"].failed = true;
  EXPECT_FALSE(AllHeld(rows, measurements));
  EXPECT_FALSE(AllHeld(rows, Of({1.3})));
}

TEST(Report, TellsLimitMedianMiddleHalfAndVerdict) {
  constexpr Row start = {.what = "Start", .benchmark = "Start", .value = "real", .limit = 60, .unit = " ms"};
  const std::array rows = {kRow, start};
  // Quartiles of 1.0, 1.1, 1.2, 1.3, 1.4: the second and the fourth.
  EXPECT_EQ(TableOf(rows, Of({1.4, 1.0, 1.3, 1.1, 1.2})),
            "| What | At most | Median | Middle half | |\n|---|---|---|---|---|\n"
            "| Reading | 1.250 | 1.200 | 1.100 to 1.300 | held |\n"
            "| Start | 60 ms |  |  | not measured |\n");
}

const Matrix kMatrix = {
    .head = "Family",
    .columns = {{.what = "Reading", .benchmark = "ReadOf", .value = "wall", .limit = 1.25, .unit = " ms"},
                {.what = "Exchanges",
                 .benchmark = "ReadOf",
                 .value = "count",
                 .limit = std::numeric_limits<double>::infinity(),
                 .unit = ""}},
    .lines = {{.label = "First, QHN", .end = "First"}, {.label = "Nano, Z8WT2", .end = "Nano"}}};

TEST(MatrixTable, HasTheMedianOfEachCellAndTheVerdictOfWhatIsNotHeld) {
  const Measurements measurements = {
      {"ReadOfFirst", {.values = {{"wall", {1.0, 1.25, 9.0}}, {"count", {27.0}}}}},
      {"ReadOfNano", {.values = {{"wall", {1.5}}}}}};
  EXPECT_EQ(TableOf(kMatrix, measurements),
            "| Family | Reading (1.250 ms) | Exchanges |\n|---|---|---|\n"
            "| First, QHN | 1.250 ms | 27 |\n"
            "| Nano, Z8WT2 | 1.500 ms, missed | not measured |\n");
}

TEST(MatrixTable, IsHeldOnlyWhenEachCellIs) {
  Measurements measurements = {{"ReadOfFirst", {.values = {{"wall", {1.0}}, {"count", {27.0}}}}},
                               {"ReadOfNano", {.values = {{"wall", {1.0}}, {"count", {27.0}}}}}};
  EXPECT_TRUE(AllHeld(kMatrix, measurements));
  measurements["ReadOfNano"].values["wall"] = {1.5};
  EXPECT_FALSE(AllHeld(kMatrix, measurements));
  measurements["ReadOfNano"].values = {{"wall", {1.0}}};
  EXPECT_FALSE(AllHeld(kMatrix, measurements));
}

}  // namespace
}  // namespace korva::bench
