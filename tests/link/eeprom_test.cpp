#include "link/eeprom.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/program.h"
#include "support/scripted_line.h"
#include "support/virtual_host.h"

namespace korva {
namespace {

using namespace std::chrono_literals;

TEST(ToHexFieldTest, ANumberIsFilledWithZerosOrCutOnTheLeftInTwosComplement) {
  EXPECT_EQ(ToHexField(513, 2), "0201");
  EXPECT_EQ(ToHexField(8191, 2), "1FFF");
  EXPECT_EQ(ToHexField(99, 1), "63");
  EXPECT_EQ(ToHexField(-1, 1), "FF");
  EXPECT_EQ(ToHexField(-273, 2), "FEEF");
  EXPECT_EQ(ToHexField(-6460, 3), "FFE6C4");
  EXPECT_EQ(ToHexField(0x12345678, 3), "345678");
  EXPECT_EQ(ToHexField(10, 4), "0000000A");
}

TEST(ToHexFieldTest, ATextIsItsCharacterCodesAsTheyStand) {
  EXPECT_EQ(ToHexField("Z2WT-", 5), "5A3257542D");
  EXPECT_EQ(ToHexField("AB", 1), "41");
  EXPECT_EQ(ToHexField("\xB1", 1), "B1");
}

TEST(SwapBytePairsTest, JoinsThePairsFromTheLastToTheFirst) {
  EXPECT_EQ(SwapBytePairs("FEEF"), "EFFE");
  EXPECT_EQ(SwapBytePairs("123456"), "563412");
  EXPECT_EQ(SwapBytePairs("63"), "63");
  EXPECT_EQ(SwapBytePairs(""), "");
}

TEST(HexToNumberTest, ATwoByteValueFFFFReadsAs65535AndAOneByteFFAsMinus1) {
  EXPECT_EQ(HexToNumber("FFFF"), 65535);
  EXPECT_EQ(HexToNumber("FF"), -1);
}

TEST(HexToNumberTest, OneAndThreeBytesAreSignedAndTheirLowestValueStaysPositive) {
  EXPECT_EQ(HexToNumber("7F"), 127);
  EXPECT_EQ(HexToNumber("80"), 128);
  EXPECT_EQ(HexToNumber("81"), -127);
  EXPECT_EQ(HexToNumber("FFE6C4"), -6460);
  EXPECT_EQ(HexToNumber("800000"), 0x800000);
  EXPECT_EQ(HexToNumber("800001"), -0x7FFFFF);
  EXPECT_EQ(HexToNumber("8000"), 32768);
  EXPECT_EQ(HexToNumber("8001"), 32769);
  EXPECT_EQ(HexToNumber("7FFFFFFF"), 0x7FFFFFFF);
}

TEST(HexToNumberTest, AReplyWithLowerCaseHexDigitsGivesMinus1) {
  EXPECT_EQ(HexToNumber("6f"), -1);
  EXPECT_EQ(HexToNumber("6 "), -1);
}

TEST(HexToNumberTest, ZerosInFrontDoNotCount) {
  EXPECT_EQ(HexToNumber("0000007F"), 127);
  EXPECT_EQ(HexToNumber("00000000000000000000000000000081"), 129);
  EXPECT_EQ(HexToNumber(""), 0);
}

TEST(HexToNumberTest, ANumberThat32BitsDoNotHoldIsAFailure) {
  EXPECT_THROW(HexToNumber("80000000"), RuntimeFailure);
  EXPECT_THROW(HexToNumber("1000000000"), RuntimeFailure);
}

TEST(HexToTextTest, ACharacterBelowZeroCountsAsZeroAndAValueAbove15As15) {
  EXPECT_EQ(HexToText("5A3257"), "Z2W");
  EXPECT_EQ(HexToText("4 4z"), "@O");
  EXPECT_EQ(HexToText("4\xB1"), "O");
  EXPECT_EQ(HexToText("41B1"), "A\xB1");
  EXPECT_EQ(HexToText(""), "");
}

struct EepromTest : testing::Test {
  EepromTest() {
    host.port.Connect(1, &line);
    link.OpenAtStart(u"1200,n,8,1");
  }
  /// The line answers each command that follows; anything else is silence.
  void Expect(const std::vector<std::pair<std::string, std::string>>& exchanges) {
    for (const auto& [command, reply] : exchanges) {
      sent_expected += (sent_expected.empty() ? "" : " ") + command;
      reply.empty() ? line.AnswerNext(test::kSilence) : line.AnswerNext(reply);
    }
  }
  void ExpectAllSent() {
    EXPECT_EQ(line.Sent(), sent_expected);
    EXPECT_EQ(line.Unused(), 0U);
  }

  test::VirtualHost host;
  test::ScriptedLine line{host.port};
  SharedState shared;
  SerialLink link{host.platform, shared};
  Eeprom eeprom{link, host.platform.code_page};
  std::string sent_expected;
};

TEST_F(EepromTest, TheModeIsEnteredByTwoExchangesWhoseAnswersAreComparedWithAllBlanks) {
  Expect({{"G99", "D      enter item"}, {"I10", "D   EEPROM Access"}});
  EXPECT_EQ(eeprom.SelectEeprom({.group = u"99", .item = u"10"}), u"D   EEPROM Access");
  ExpectAllSent();
}

TEST_F(EepromTest, AnotherAnswerToEitherDoesNotEnterTheMode) {
  Expect({{"G99", "D     enter item"}});
  EXPECT_EQ(eeprom.SelectEeprom({.group = u"99", .item = u"10"}), u"");
  ExpectAllSent();
  Expect({{"G99", "D      enter item"}, {"I10", "D  EEPROM Access"}});
  EXPECT_EQ(eeprom.SelectEeprom({.group = u"99", .item = u"10"}), u"");
  ExpectAllSent();
}

TEST_F(EepromTest, TheModeIsTriedFourTimesAtThreeRepeats) {
  Expect({{"G99", ""}, {"G99", ""}, {"G99", ""}, {"G99", "D      enter item"}, {"I10", "D   EEPROM Access"}});
  EXPECT_EQ(eeprom.SelectEepromRetry(3, {.group = u"99", .item = u"10"}), u"D   EEPROM Access");
  ExpectAllSent();
}

TEST_F(EepromTest, ANumberIsReadLowByteFirst) {
  Expect({{"DS0208-2", "COK"}, {"D", "D900B"}});
  EXPECT_EQ(eeprom.EepReadValue(520, 2), Eeprom::Value(2960));
  ExpectAllSent();
}

TEST_F(EepromTest, AByteIsReadAsTheExampleTells) {
  Expect({{"DS0201-1", "COK"}, {"D", "D65"}});
  EXPECT_EQ(eeprom.EepReadNumber(513, 1), u"101");
  ExpectAllSent();
}

TEST_F(EepromTest, AReadOf20StringBytesSends8And8And4) {
  Expect({{"DS0030-8", "COK"},
          {"D", "D4142434445464748"},
          {"DS0038-8", "COK"},
          {"D", "D494A4B4C4D4E4F50"},
          {"DS0040-4", "COK"},
          {"D", "D51525354"}});
  EXPECT_EQ(eeprom.EepReadString(48, 20), u"ABCDEFGHIJKLMNOPQRST");
  ExpectAllSent();
}

TEST_F(EepromTest, ATextComesThroughTheCodePage) {
  Expect({{"DS0050-2", "COK"}, {"D", "DB141"}});
  EXPECT_EQ(eeprom.EepReadString(80, 2), u"ｱA");
}

TEST_F(EepromTest, AFailedReadOfAStringReturnsTheTextMinus1) {
  Expect({{"DS0030-8", "COK"}, {"D", "D4142434445464748"}, {"DS0038-8", "CNG"}});
  EXPECT_EQ(eeprom.EepReadString(48, 16), u"-1");
  ExpectAllSent();
}

TEST_F(EepromTest, AReadFailsByARefusalByAReplyWithoutItsLetterByOneOfAnotherLengthAndBySilence) {
  for (const std::string reply : {"", "CNG", "65", "COK", "D", "D6", "D6565", "d65", "D6f", "D\xB1"}) {
    line.AnswerNext("COK");
    reply.empty() ? line.AnswerNext(test::kSilence) : line.AnswerNext(reply);
    EXPECT_EQ(eeprom.EepReadValue(513, 1), Eeprom::Value(-1)) << reply;
    EXPECT_TRUE(eeprom.Failed()) << reply;
  }
}

TEST_F(EepromTest, AStringWithOneWrongDigitIsNotRead) {
  Expect({{"DS0030-2", "COK"}, {"D", "D414g"}});
  EXPECT_EQ(eeprom.EepReadString(48, 2), u"-1");
  EXPECT_TRUE(eeprom.Failed());
}

TEST_F(EepromTest, ANumberMinus1CanBeToldFromAFailedRead) {
  Expect({{"DS0200-1", "CNG"}, {"DS0200-1", "COK"}, {"D", "DFF"}});
  EXPECT_EQ(eeprom.EepReadNumber(512, 1), u"-1");
  EXPECT_TRUE(eeprom.Failed());
  EXPECT_EQ(eeprom.EepReadNumber(512, 1), u"-1");
  EXPECT_FALSE(eeprom.Failed());
}

TEST_F(EepromTest, BehindAWrongAnswerTheLineIsDrainedForASecondBeforeTheNextCommand) {
  line.AnswerNext("CNG");
  eeprom.EepReadNumber(512, 1);
  const Clock failed = host.loop.Now();
  line.AnswerNext("COK");
  eeprom.EepReadNumber(512, 1);
  EXPECT_GE(line.Commands().at(1).received - failed, 1s);
}

TEST_F(EepromTest, BehindARightOneThereIsNoPause) {
  line.AnswerNext("COK");
  line.AnswerNext("D00");
  eeprom.EepReadNumber(512, 1);
  EXPECT_LT(host.loop.Now(), 200ms);
}

TEST_F(EepromTest, AWriteIsReadBack) {
  Expect({{"DS0201-1", "COK"}, {"D63", "COK"}, {"D", "D63"}});
  EXPECT_EQ(eeprom.EepWriteValue(513, 1, 99), 0);
  ExpectAllSent();
}

TEST_F(EepromTest, ANegativeBaseSuchAsMinus273IsWrittenAsTheTwoBytesEFFE) {
  Expect({{"DS0202-2", "COK"}, {"DEFFE", "COK"}, {"D", "DEFFE"}});
  EXPECT_EQ(eeprom.EepWriteValue(514, 2, -273), 0);
  ExpectAllSent();
}

TEST_F(EepromTest, AWriteOf3BytesAtAddress14GoesOutAs2BytesAt14And1ByteAt16) {
  Expect({{"DS000E-2", "COK"},
          {"D5634", "COK"},
          {"D", "D5634"},
          {"DS0010-1", "COK"},
          {"D12", "COK"},
          {"D", "D12"}});
  EXPECT_EQ(eeprom.EepWriteValue(14, 3, 0x123456), 0);
  ExpectAllSent();
}

TEST_F(EepromTest, AWriteOf2BytesAtAddress14EndsOnAPageEndAndSendsNoEmptySecondPart) {
  Expect({{"DS000E-2", "COK"}, {"D3412", "COK"}, {"D", "D3412"}});
  EXPECT_EQ(eeprom.EepWriteValue(14, 2, 0x1234), 0);
  ExpectAllSent();
}

TEST_F(EepromTest, AWriteThatFailsInItsFirstPageDoesNotReachTheSecond) {
  Expect({{"DS000E-2", "COK"}, {"D5634", "COK"}, {"D", "D5600"}});
  EXPECT_EQ(eeprom.EepWriteChunk(14, "563412"), -1);
  ExpectAllSent();
}

TEST_F(EepromTest, ABlockThatDoesNotBeginAtAPagesBeginningIsSplitAtItsEnd) {
  Expect({{"DS001F-1", "COK"},
          {"D01", "COK"},
          {"D", "D01"},
          {"DS0020-7", "COK"},
          {"D02030405060708", "COK"},
          {"D", "D02030405060708"}});
  EXPECT_EQ(eeprom.EepWriteChunk(31, "0102030405060708"), 0);
  ExpectAllSent();
}

TEST_F(EepromTest, ATextIsWrittenInBlocksOf8) {
  Expect({{"DS0030-8", "COK"},
          {"D5A3257542D414230", "COK"},
          {"D", "D5A3257542D414230"},
          {"DS0038-2", "COK"},
          {"D2D58", "COK"},
          {"D", "D2D58"}});
  EXPECT_EQ(eeprom.EepWriteValue(48, -10, u"Z2WT-AB0-X"), 0);
  ExpectAllSent();
}

TEST_F(EepromTest, ATextThatIsTooShortOrNotInTheCodePageIsNotWritten) {
  EXPECT_EQ(eeprom.EepWriteValue(48, -4, u"ABC"), -1);
  EXPECT_EQ(eeprom.EepWriteValue(48, -4, u"ABÄD"), -1);
  EXPECT_EQ(line.Sent(), "");
}

TEST_F(EepromTest, AnyStepThatFailsEndsTheWrite) {
  const std::vector<std::vector<std::string>> replies = {{"CNG"},
                                                         {""},
                                                         {"COK", "CNG"},
                                                         {"COK", ""},
                                                         {"COK", "COK", ""},
                                                         {"COK", "COK", "D64"},
                                                         {"COK", "COK", "D6363"}};
  for (const std::vector<std::string>& some : replies) {
    for (const std::string& reply : some) {
      reply.empty() ? line.AnswerNext(test::kSilence) : line.AnswerNext(reply);
    }
    EXPECT_EQ(eeprom.EepWriteValue(513, 1, 99), -1);
    EXPECT_TRUE(eeprom.Failed());
    EXPECT_EQ(line.Unused(), 0U);
  }
}

TEST_F(EepromTest, WrittenAndReadAgainGivesWhatIsStored) {
  Expect({{"DS004A-2", "COK"}, {"DEA07", "COK"}, {"D", "DEA07"}, {"DS004A-2", "COK"}, {"D", "DEA07"}});
  EXPECT_EQ(eeprom.EepWriteNumber(74, 2, 2026), u"2026");
  ExpectAllSent();
}

TEST_F(EepromTest, TellsABlockThatIsReadOnceMoreOnlyWhenItIsAnotherThen) {
  struct Block {
    int address;
    std::string sent;
    bool good;
    bool operator==(const Block&) const = default;
  };
  std::vector<Block> told;
  eeprom.OnBlock = [&told](int address, const std::string& sent, bool good) {
    told.push_back({address, sent, good});
  };
  Expect({{"DS004A-2", "COK"}, {"DEA07", "COK"}, {"D", "DEA07"}, {"DS004A-2", "COK"}, {"D", "DEA07"}});
  eeprom.EepWriteNumber(74, 2, 2026);
  EXPECT_EQ(told, (std::vector<Block>{{74, "EA07", true}}));

  told.clear();
  Expect({{"DS004A-2", "COK"}, {"DEA07", "COK"}, {"D", "DEA07"}, {"DS004A-2", "COK"}, {"D", "DEA06"}});
  eeprom.EepWriteNumber(74, 2, 2026);
  EXPECT_EQ(told, (std::vector<Block>{{74, "EA07", true}, {74, "EA07", false}}));

  told.clear();
  Expect({{"DS004A-2", "COK"}, {"DEA07", "COK"}, {"D", "DEA07"}, {"DS004A-2", "CNG"}});
  eeprom.EepWriteNumber(74, 2, 2026);
  EXPECT_EQ(told, (std::vector<Block>{{74, "EA07", true}, {74, "EA07", false}}));

  told.clear();
  Expect({{"DS004D-1", "COK"}, {"D", "D01"}});
  eeprom.EepReadNumber(77, 1);
  EXPECT_EQ(told, (std::vector<Block>{{77, "", true}}));
  ExpectAllSent();
}

TEST_F(EepromTest, AWriteThatFailsGivesAnEmptyText) {
  Expect({{"DS004A-2", "CNG"}});
  EXPECT_EQ(eeprom.EepWriteNumber(74, 2, 2026), u"");
  ExpectAllSent();
}

}  // namespace
}  // namespace korva
