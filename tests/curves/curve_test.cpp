#include "curves/curve.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace korva::curves {
namespace {

Curve Read(const std::string& text) {
  std::istringstream source(text);
  return ReadCurve(source);
}

std::string FailureOf(const std::string& text) {
  try {
    Read(text);
  } catch (const std::runtime_error& failure) {
    return failure.what();
  }
  return "read";
}

TEST(CurveTest, IsAPolynomialTimesItsFactor) {
  const Curve curve =
      Read("# a comment\n\nunit ohm\nrange 0 10\ntimes 100\npolynomial 0 10\n  1\n  0.1\n  0.01\n");
  EXPECT_DOUBLE_EQ(curve.At(0), 100);
  EXPECT_DOUBLE_EQ(curve.At(2), 124);
  EXPECT_DOUBLE_EQ(curve.At(10), 300);
}

TEST(CurveTest, CountsThePowersFromWhereItsPolynomialIsAbout) {
  const Curve curve = Read("unit ohm\nrange -60 -50\npolynomial -60 -50 about -50\n  7\n  0.5\n  0.25\n");
  EXPECT_DOUBLE_EQ(curve.At(-50), 7);
  EXPECT_DOUBLE_EQ(curve.At(-54), 9);
}

TEST(CurveTest, GoesOnStraightBeyondItsPiecesWithTheSlopeAtTheirEnd) {
  const Curve curve = Read("unit mV\nrange -10 20\npolynomial 0 10\n  0\n  1\n  0.1\n");
  EXPECT_DOUBLE_EQ(curve.At(-5), -5);      // slope 1 at 0
  EXPECT_DOUBLE_EQ(curve.At(12), 20 + 6);  // slope 1 + 2 x 0.1 x 10 = 3 at 10
}

TEST(CurveTest, AddsTheBellToItsPolynomial) {
  const Curve curve = Read("unit mV\nrange 0 10\npolynomial 0 10\n  0\n  1\nbell 2 -0.5 4\n");
  EXPECT_DOUBLE_EQ(curve.At(4), 6);
  EXPECT_NEAR(curve.At(6), 6 + 2 * 0.1353352832366127, 1e-12);  // exp(-2)
  // Slope at 10: 1 + 2 (-0.5) 6 x 2 exp(-18).
  EXPECT_NEAR(curve.At(11) - curve.At(10), 1 - 12 * 1.522997974471263e-8, 1e-12);
}

TEST(CurveTest, PassesThroughItsNodesWithTheSlopeOfTheirNeighbours) {
  const Curve curve = Read("unit mV\nrange -10 40\nnodes 0 10\n  0 10 40\n  90\n");
  EXPECT_DOUBLE_EQ(curve.At(0), 0);
  EXPECT_DOUBLE_EQ(curve.At(10), 10);
  EXPECT_DOUBLE_EQ(curve.At(20), 40);
  EXPECT_DOUBLE_EQ(curve.At(30), 90);
  // Half-way: mean of the ends, and an eighth of the step times the difference of the slopes. They are 2
  // and 4.
  EXPECT_DOUBLE_EQ(curve.At(15), 25 - 10 * 2 / 8.0);
  EXPECT_DOUBLE_EQ(curve.At(-1), -1);   // one-sided slope 1
  EXPECT_DOUBLE_EQ(curve.At(32), 100);  // 5
}

TEST(CurveTest, TakesThePieceThatHoldsTheTemperature) {
  const Curve curve = Read("unit mV\nrange 0 20\npolynomial 0 10\n0\n1\npolynomial 10 20\n-10\n2\n");
  EXPECT_DOUBLE_EQ(curve.At(5), 5);
  EXPECT_DOUBLE_EQ(curve.At(15), 20);
}

TEST(CurveTest, TheTableIsInThousandthsHalvesRoundedAwayFromZero) {
  const Curve curve = Read("unit mV\nrange -3 3\npolynomial -3 3\n0\n0.0005\n");
  EXPECT_EQ(TableOf(curve), (std::vector<std::int32_t>{-2, -1, -1, 0, 1, 1, 2}));
}

TEST(CurveTest, TheFileIsLowByteFirst) {
  EXPECT_EQ(FileOf({1, -2, 0x12345678}), std::string("\x01\x00\x00\x00\xFE\xFF\xFF\xFF\x78\x56\x34\x12", 12));
}

TEST(CurveSourceTest, AWordThatIsNotKnownIsNamedWithItsLine) {
  EXPECT_EQ(FailureOf("unit mV\nspline 0 10\n"), "line 2: neither a word that is known nor a number");
  EXPECT_EQ(FailureOf("unit mV\n1\n"), "line 2: a number stands before the piece that it belongs to");
  EXPECT_EQ(FailureOf("unit mV\npolynomial 0 10\n1\nspline\n"),
            "line 4: neither a word that is known nor a number");
}

TEST(CurveSourceTest, WhatIsMissingOrTooMuchIsAnError) {
  const std::string head = "unit mV\nrange 0 10\n";
  EXPECT_EQ(FailureOf("unit V\n"), "line 1: the unit is mV or ohm");
  EXPECT_EQ(FailureOf("range 0\n"), "line 1: a whole number of degrees is missing");
  EXPECT_EQ(FailureOf("range 0 10.5\n"), "line 1: something stands behind the end");
  EXPECT_EQ(FailureOf("times x\n"), "line 1: a number is missing");
  EXPECT_EQ(FailureOf(head + "polynomial 0\n"), "line 3: a number is missing");
  EXPECT_EQ(FailureOf(head + "bell 1 2 3\n"), "line 3: a bell stands behind a polynomial");
  EXPECT_EQ(FailureOf(head + "polynomial 0 10\n1\nbell 1 2\n"), "line 5: a number is missing");
  EXPECT_EQ(FailureOf(head + "polynomial 0 10 about 5 6\n1\n"), "line 3: something stands behind the end");
  EXPECT_EQ(FailureOf(head), "line 2: unit, range or pieces are missing");
  EXPECT_EQ(FailureOf("unit mV\npolynomial 0 10\n1\n"), "line 3: unit, range or pieces are missing");
  EXPECT_EQ(FailureOf("range 0 10\npolynomial 0 10\n1\n"), "line 3: unit, range or pieces are missing");
  EXPECT_EQ(FailureOf(""), "line 0: unit, range or pieces are missing");
}

TEST(CurveSourceTest, PiecesThatAreEmptyOrLeaveAGapOrJumpAreAnError) {
  const std::string head = "unit mV\nrange 0 20\n";
  EXPECT_EQ(FailureOf(head + "polynomial 0 10\n"), "line 3: a piece is empty");
  EXPECT_EQ(FailureOf(head + "polynomial 10 0\n1\n"), "line 4: a piece is empty");
  EXPECT_EQ(FailureOf(head + "nodes 0 10\n1\n"), "line 4: a piece is empty");
  EXPECT_EQ(FailureOf(head + "polynomial 0 10\n1\npolynomial 11 20\n1\n"), "line 6: two pieces do not join");
  EXPECT_EQ(FailureOf(head + "polynomial 0 10\n1\npolynomial 10 20\n1.02\n"),
            "line 6: two pieces do not join");
}

}  // namespace
}  // namespace korva::curves
