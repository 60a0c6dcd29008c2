#include "sim/line.h"

#include <gtest/gtest.h>

#include "sample.h"

namespace korva::sim {
namespace {

using std::chrono::milliseconds;
using std::chrono::nanoseconds;

DeviceOptions WithoutLatency() {
  DeviceOptions options;
  options.latency = milliseconds(0);
  return options;
}

Device PlainDevice() { return SampleDevice("SAMPLE.def", kSample, WithoutLatency()); }

TEST(LineTest, CharacterTimeIsTenBits) {
  EXPECT_EQ(CharacterTime(1200), nanoseconds(8'333'333));
  EXPECT_EQ(CharacterTime(1200, 3), milliseconds(25));
  EXPECT_EQ(CharacterTime(9600, 96), milliseconds(100));
  EXPECT_EQ(CharacterTime(38400, 384), milliseconds(100));
}

TEST(LineTest, ExchangeTakesTheTimeOfItsCharacters) {
  auto device = PlainDevice();
  Line line(device);
  line.Receive("G01\r", milliseconds(1000));
  // four characters to the device, four back, 8.333 ms each
  ASSERT_TRUE(line.NextDue());
  EXPECT_NEAR(static_cast<double>(line.NextDue()->count()), 1'066'666'667.0, 10.0);
  EXPECT_EQ(line.TakeDue(*line.NextDue() - nanoseconds(1)), "");
  EXPECT_EQ(line.TakeDue(*line.NextDue()), "COK\r");
  EXPECT_FALSE(line.NextDue());
}

TEST(LineTest, LatencyStandsBetweenCommandAndReply) {
  auto device = SampleDevice();  // 10 ms
  Line line(device);
  line.Receive("G01\r", nanoseconds(0));
  EXPECT_NEAR(static_cast<double>(line.NextDue()->count()), 76'666'667.0, 10.0);
}

TEST(LineTest, UnpacedLineNeedsNoTime) {
  auto device = PlainDevice();
  Line line(device, false);
  line.Receive("G01\rI02\r", milliseconds(7));
  EXPECT_EQ(line.NextDue(), milliseconds(7));
  EXPECT_EQ(line.TakeDue(milliseconds(7)), "COK\r");
  EXPECT_EQ(line.TakeDue(milliseconds(7)), "DTG:TAG-1     \r");
  EXPECT_EQ(line.TakeDue(milliseconds(7)), "");
}

TEST(LineTest, CommandInPiecesIsTakenAtItsLineEnd) {
  auto device = PlainDevice();
  Line line(device);
  line.Receive("G", nanoseconds(0));
  line.Receive("01", milliseconds(100));
  EXPECT_FALSE(line.NextDue());
  line.Receive("\r", milliseconds(200));
  // the last character leaves the wire at 208.3 ms, the reply 33.3 ms later
  EXPECT_NEAR(static_cast<double>(line.NextDue()->count()), 241'666'666.0, 10.0);
}

TEST(LineTest, ReplyWaitsUntilTheFormerOneIsSent) {
  auto device = PlainDevice();
  device.AddFault(ParseFault("late@1"));
  Line line(device);
  line.Receive("G01\r", nanoseconds(0));
  line.Receive("G01\r", milliseconds(3000));
  const auto late = *line.NextDue();
  EXPECT_NEAR(static_cast<double>(late.count()), 3'566'666'667.0, 10.0);
  EXPECT_EQ(line.TakeDue(late), "COK\r");
  EXPECT_EQ(*line.NextDue() - late, CharacterTime(1200, 4));
}

TEST(LineTest, DoubledReplyComesTwiceInTwoPieces) {
  auto device = PlainDevice();
  device.AddFault(ParseFault("doubled"));
  for (const bool paced : {true, false}) {
    Line line(device, paced);
    line.Receive("G01\r", nanoseconds(0));
    const auto first = line.NextDue().value();
    EXPECT_EQ(line.TakeDue(first), "COK\r");
    EXPECT_EQ(line.NextDue().value() - first, paced ? CharacterTime(1200, 4) : Instant(0));
    EXPECT_EQ(line.TakeDue(line.NextDue().value()), "COK\r");
    EXPECT_FALSE(line.NextDue());
  }
}

TEST(LineTest, SilentReplySendsNothing) {
  auto device = PlainDevice();
  device.AddFault(ParseFault("silent"));
  Line line(device);
  line.Receive("G01\r", nanoseconds(0));
  EXPECT_FALSE(line.NextDue());
}

TEST(LineTest, BytesOfAByteByByteReplyArriveACharacterTimeApart) {
  Reply reply;
  reply.text = "COK";
  reply.byte_by_byte = true;
  const auto plan = PlanWire(reply, milliseconds(100), 1200, true);
  ASSERT_EQ(plan.size(), 4U);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(plan[i].bytes, std::string(1, "COK\r"[i]));
    EXPECT_EQ(plan[i].at, milliseconds(100) + CharacterTime(1200, static_cast<std::int64_t>(i) + 1));
  }
}

TEST(LineTest, SecondLineEndComesAtOnceOrOneCharacterTimeLater) {
  Reply reply;
  reply.text = "COK";
  reply.line_ends = 2;
  auto plan = PlanWire(reply, nanoseconds(0), 38400, true);
  ASSERT_EQ(plan.size(), 1U);
  EXPECT_EQ(plan[0].bytes, "COK\r\r");
  EXPECT_EQ(plan[0].at, CharacterTime(38400, 5));

  reply.late_second_line_end = true;
  for (const bool paced : {true, false}) {
    plan = PlanWire(reply, nanoseconds(0), 38400, paced);
    ASSERT_EQ(plan.size(), 2U);
    EXPECT_EQ(plan[0].bytes, "COK\r");
    EXPECT_EQ(plan[1].bytes, "\r");
    EXPECT_EQ(plan[1].at - plan[0].at, CharacterTime(38400)) << paced;
  }
}

TEST(LineTest, HalfAReplyHasNoLineEndAndAnEmptyOneNothingElse) {
  Reply reply;
  reply.text = "CO";
  reply.line_ends = 0;
  EXPECT_EQ(PlanWire(reply, nanoseconds(0), 9600, true).at(0).bytes, "CO");
  reply.text.clear();
  EXPECT_TRUE(PlanWire(reply, nanoseconds(0), 9600, true).empty());
  reply.line_ends = 1;
  EXPECT_EQ(PlanWire(reply, nanoseconds(0), 9600, true).at(0).bytes, "\r");
}

TEST(LineTest, EndlessCommandIsCutToTheDevicesBuffer) {
  auto device = PlainDevice();
  Line line(device, false);
  std::size_t taken = 0;
  line.OnExchange([&](std::string_view command, const Reply& reply) {
    taken = command.size();
    EXPECT_EQ(reply.text, "CNG");
  });
  line.Receive(std::string(100'000, 'G') + "\r", nanoseconds(0));
  EXPECT_EQ(taken, 255U);
}

TEST(LineTest, ResetForgetsACommandBegunAndRepliesUnderWay) {
  auto device = PlainDevice();
  Line line(device);
  line.Receive("G01\rG0", milliseconds(500));
  line.Reset();
  EXPECT_FALSE(line.NextDue());
  line.Receive("G01\r", milliseconds(500));
  EXPECT_EQ(line.TakeDue(milliseconds(600)), "COK\r") << "not G0G01";
}

}  // namespace
}  // namespace korva::sim
