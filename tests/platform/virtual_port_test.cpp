#include "platform/virtual/virtual_port.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace korva {
namespace {

using namespace std::chrono_literals;

struct RecordingLine final : VirtualLine {
  void Opened(const LineSettings& settings) override { bauds.push_back(settings.baud); }
  void BytesSent(std::string_view bytes, Clock now) override { sent.emplace_back(bytes, now); }

  std::vector<int> bauds;
  std::vector<std::pair<std::string, Clock>> sent;
};

struct VirtualPortTest : testing::Test {
  VirtualPortTest() {
    port.Connect(1, &line);
    port.OnArrival([this] { arrivals.emplace_back(port.Take(), loop.Now()); });
  }

  VirtualEventLoop loop;
  VirtualPort port{loop};
  RecordingLine line;
  std::vector<std::pair<std::string, Clock>> arrivals;
};

using Chunks = std::vector<std::pair<std::string, Clock>>;

TEST_F(VirtualPortTest, APortThatDoesNotExistCannotBeOpened) {
  EXPECT_FALSE(port.Open(2, {}));
  EXPECT_FALSE(port.IsOpen());
  EXPECT_FALSE(port.Write("L?\r"));
}

TEST_F(VirtualPortTest, OpeningAnotherPortClosesTheOpenOneEvenWhenItFails) {
  EXPECT_TRUE(port.Open(1, {}));
  EXPECT_FALSE(port.Open(3, {}));
  EXPECT_FALSE(port.IsOpen());
}

TEST_F(VirtualPortTest, TheLineLearnsTheSpeed) {
  port.Open(1, {.baud = 9600});
  EXPECT_EQ(line.bauds, std::vector<int>{9600});
  EXPECT_EQ(port.TimedBaud(), 9600);
  EXPECT_EQ(port.Number(), 1);
  EXPECT_EQ(port.Settings().baud, 9600);
}

TEST_F(VirtualPortTest, BytesLeaveOneAfterTheOtherAtTenBitsEach) {
  port.Open(1, {.baud = 1000});  // 10 ms a character
  EXPECT_TRUE(port.Write("G01\r"));
  EXPECT_TRUE(port.Write("D"));
  loop.RunUntilIdle();
  EXPECT_EQ(line.sent, (Chunks{{"G01\r", 40ms}, {"D", 50ms}}));
  port.Write("G");
  loop.RunUntilIdle();
  EXPECT_EQ(line.sent.back(), (std::pair<std::string, Clock>{"G", 60ms}));
}

TEST_F(VirtualPortTest, AnUntimedLineCarriesBytesAtOnceAndHasNoBaud) {
  port.SetTimed(false);
  port.Open(1, {});
  port.Write("G01\r");
  loop.RunUntilIdle();
  EXPECT_EQ(line.sent, (Chunks{{"G01\r", 0ms}}));
  EXPECT_EQ(port.TimedBaud(), std::nullopt);
}

TEST_F(VirtualPortTest, AClosedPortHasNoBaud) { EXPECT_EQ(port.TimedBaud(), std::nullopt); }

TEST_F(VirtualPortTest, ChunksArriveAsTheLineScheduledThem) {
  port.Open(1, {});
  port.DeliverAt(10ms, "CO");
  port.DeliverAt(35ms, "K\r");
  loop.RunUntilIdle();
  EXPECT_EQ(arrivals, (Chunks{{"CO", 10ms}, {"K\r", 35ms}}));
}

TEST_F(VirtualPortTest, PacedBytesArriveOneByOneAfterThoseStillUnderWay) {
  port.Open(1, {.baud = 1000});
  port.DeliverPaced(5ms, "OK", 1);
  port.DeliverPaced(6ms, "\r", 1);
  loop.RunUntilIdle();
  EXPECT_EQ(arrivals, (Chunks{{"O", 15ms}, {"K", 25ms}, {"\r", 35ms}}));
}

TEST_F(VirtualPortTest, PacedBytesInOnePieceArriveWhenTheLastIsComplete) {
  port.Open(1, {.baud = 1000});
  port.DeliverPaced(5ms, "COK\r", 0);
  port.DeliverPaced(5ms, "", 0);
  loop.RunUntilIdle();
  EXPECT_EQ(arrivals, (Chunks{{"COK\r", 45ms}}));
}

TEST_F(VirtualPortTest, WhatWasNotTakenWaitsAsOneChunk) {
  port.OnArrival(nullptr);
  port.Open(1, {});
  port.Deliver("CO");
  port.Deliver("K\r");
  loop.Pump();
  EXPECT_EQ(port.Available(), 4U);
  EXPECT_EQ(port.Take(), "COK\r");
  EXPECT_EQ(port.Available(), 0U);
}

TEST_F(VirtualPortTest, ClosingLosesWhatWasNotTakenAndWhatComesLater) {
  port.OnArrival(nullptr);
  port.Open(1, {});
  port.Deliver("late");
  loop.Pump();
  port.DeliverAt(50ms, "later");
  port.Close();
  port.Close();
  EXPECT_EQ(port.Available(), 0U);
  loop.RunUntilIdle();
  EXPECT_EQ(port.Available(), 0U);
}

TEST_F(VirtualPortTest, BytesUnderWayFromOnePortDoNotReachAnother) {
  port.Connect(2);
  port.Open(1, {});
  port.DeliverAt(10ms, "COK\r");
  port.Open(2, {});
  loop.RunUntilIdle();
  EXPECT_TRUE(arrivals.empty());
}

TEST_F(VirtualPortTest, AVanishedPortRefusesWritesAndWorksAgainAfterReopening) {
  port.Open(1, {});
  port.Remove(1);
  EXPECT_FALSE(port.IsOpen());
  EXPECT_FALSE(port.Write("G01\r"));
  port.DeliverAt(10ms, "COK\r");
  loop.RunUntilIdle();
  EXPECT_TRUE(line.sent.empty());
  EXPECT_EQ(arrivals, (Chunks{{"", 0ms}})) << "the break itself is told, once";

  port.Connect(1, &line);
  EXPECT_TRUE(port.Open(1, {}));
  port.Write("G01\r");
  loop.RunUntilIdle();
  EXPECT_EQ(line.sent.size(), 1U);
}

TEST_F(VirtualPortTest, AnOpenEndNeverAnswers) {
  port.Connect(4);
  EXPECT_TRUE(port.Open(4, {}));
  EXPECT_TRUE(port.Write("G01\r"));
  loop.RunUntilIdle();
  EXPECT_TRUE(arrivals.empty());
  EXPECT_EQ(port.DeviceName(4), "virtual COM4");
}

}  // namespace
}  // namespace korva
