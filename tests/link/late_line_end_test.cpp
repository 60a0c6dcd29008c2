// The second carriage return of a reply, at the speeds of all families.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "link/serial_link.h"
#include "support/scripted_line.h"
#include "support/virtual_host.h"

namespace korva {
namespace {

using namespace std::chrono_literals;
using test::kSilence;

/// Devices that send their second carriage return one character after the first.
struct LateLineEndTest : testing::TestWithParam<int> {
  LateLineEndTest() {
    host.port.Connect(1, &line);
    link.Reopen(FromUtf8(std::to_string(GetParam()) + ",n,8,1"));
  }

  /// The reply to G01, "COK" at once after the command, and then `rest`.
  void AnswerFirst(const std::string& end, const std::vector<test::ScriptedLine::Chunk>& rest) {
    test::ScriptedLine::Reply reply = {{4 * character, "COK" + end}};
    reply.insert(reply.end(), rest.begin(), rest.end());
    line.AnswerNext(reply);
    EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  }

  const Clock character = Clock(10s) / GetParam();
  test::VirtualHost host;
  test::ScriptedLine line{host.port};
  SharedState shared;
  SerialLink link{host.platform, shared};
};

INSTANTIATE_TEST_SUITE_P(Baud, LateLineEndTest, testing::Values(1200, 9600, 38400));

TEST_P(LateLineEndTest, ASecondCarriageReturnACharacterLaterDoesNotAnswerTheNextCommand) {
  for (int i = 0; i < 50; ++i) {
    AnswerFirst("\r", {{5 * character, "\r"}});
    line.AnswerNext({{6 * character, "D12.5\r"}, {7 * character, "\r"}});
    ASSERT_EQ(link.SendCommandTrimmed(u"I14\r"), u"D12.5");
  }
}

TEST_P(LateLineEndTest, ItIsDroppedUntilTheCommandHasLeftTheWireAndNotAfter) {
  // The command of four characters goes out as the reply has come.
  AnswerFirst("\r", {{8 * character - 1ns, "\r"}});
  line.AnswerNext({{6 * character, "D12.5\r"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"D12.5");
  AnswerFirst("\r", {{8 * character + 10ns, "\r"}});
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1) << "the carriage return must have counted as a reply";
}

TEST_P(LateLineEndTest, NothingIsDroppedWhenTheFormerReplyEndedWithTwo) {
  AnswerFirst("\r\r", {{5 * character, "\r"}});
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1);
}

TEST_P(LateLineEndTest, OnlyOneCarriageReturnIsDropped) {
  AnswerFirst("\r", {{5 * character, "\r"}, {6 * character, "\r"}});
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1);
}

TEST_P(LateLineEndTest, OtherTextThatComesEarlyIsReadAsTheStartOfTheReply) {
  AnswerFirst("\r", {{5 * character, "x"}, {6 * character, "\r"}});
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"x");
}

TEST_P(LateLineEndTest, NothingIsDroppedAfterATimeOut) {
  AnswerFirst("\r", {});
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  host.port.DeliverAt(host.loop.Now() + character, "\r");
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1);
}

TEST_P(LateLineEndTest, NothingIsDroppedOnceTheSecondEndHasBeenDrained) {
  AnswerFirst("\r", {{5 * character, "\r"}, {22 * character, "\r"}});
  host.loop.RunFor(16 * character);
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1);
}

TEST_P(LateLineEndTest, NothingIsDroppedOnceThePortWasReopened) {
  AnswerFirst("\r", {});
  link.ChoosePort(1);
  host.port.DeliverAt(host.loop.Now() + character, "\r");
  line.AnswerNext(kSilence);
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
  EXPECT_EQ(link.RThreshold(), 1);
}

TEST_P(LateLineEndTest, NothingIsDroppedOnALineWithoutTiming) {
  host.port.SetTimed(false);
  line.AnswerNext({{1ms, "COK\r"}, {2ms, "\r"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  line.AnswerNext(test::ScriptedLine::OneChunk("D12.5"));
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"");
}

TEST_P(LateLineEndTest, ItIsDroppedForASlowDeviceToo) {
  link.SlowDevice = [] { return true; };
  const Clock reply = 500ms - 4 * character - 1us;  // just before the first look
  line.AnswerNext({{reply, "COK\r"}, {reply + character, "\r"}});
  line.AnswerNext({{100ms, "D12.5\r"}});
  EXPECT_EQ(link.SendCommandTrimmed(u"G01\r"), u"COK");
  EXPECT_EQ(link.SendCommandTrimmed(u"I14\r"), u"D12.5");
  EXPECT_EQ(host.loop.Now(), Clock(1s));
}

}  // namespace
}  // namespace korva
