#include "link/keyed_item.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_utilities.h"
#include "support/scripted_line.h"
#include "support/virtual_host.h"

namespace korva {
namespace {

struct KeyedItemTest : testing::Test {
  KeyedItemTest() {
    host.port.Connect(1, &line);
    link.OpenAtStart(u"38400,n,8,1");
    line.Answer("G01", "D      enter item");
    line.Answer("I60", "D        TC Table");
  }

  test::VirtualHost host;
  test::ScriptedLine line{host.port};
  SharedState shared;
  SerialLink link{host.platform, shared};
  EnterItemDialect access{link, shared};
  KeyedItem item{access, {u"01", u"60"}};
};

TEST_F(KeyedItemTest, AReadSelectsTheItemAndSendsTheKey) {
  line.Answer("DT12", "D        7.9034mV");
  EXPECT_EQ(item.Read(u"T12"), u"7.9034mV");
  EXPECT_EQ(line.Sent(), "G01 I60 DT12");
}

TEST_F(KeyedItemTest, AValueFollowsItsKeyAndThatOfARowASecondLetter) {
  line.Answer("DP10", "D              10");
  line.Answer("DT12D7.9034", "D        7.9034mV");
  EXPECT_TRUE(item.Write(u"P", u"10"));
  EXPECT_TRUE(item.WriteRow(u"T12", u"7.9034"));
  EXPECT_EQ(line.Sent(), "G01 I60 DP10 G01 I60 DT12D7.9034");
}

TEST_F(KeyedItemTest, ACommandIsTakenWithOkAlone) {
  line.Answer("DR", "D              OK");
  line.Answer("DC", "D              NO");
  EXPECT_TRUE(item.Command(u"R"));
  EXPECT_FALSE(item.Command(u"C"));
  EXPECT_FALSE(item.Command(u"W"));
}

TEST_F(KeyedItemTest, NoAnswerAfterThreeRetriesIsNone) {
  EXPECT_EQ(item.Read(u"P"), u"");
  EXPECT_EQ(line.Sent(), "G01 I60 DP G01 I60 DP G01 I60 DP G01 I60 DP");
}

TEST_F(KeyedItemTest, ARefusalIsNoAnswer) {
  for (const char* refusal : {"D    invalid data", "D      not usable", "CNG", "CNU"}) {
    line.Answer("DT1", refusal);
    line.Answer("DT1D2", refusal);
    line.Answer("DP2", refusal);
    EXPECT_EQ(item.Read(u"T1"), u"") << refusal;
    EXPECT_FALSE(item.WriteRow(u"T1", u"2")) << refusal;
    EXPECT_FALSE(item.Write(u"P", u"2")) << refusal;
  }
}

TEST(WithoutUnit, CutsTheUnitOnlyWhereTheAnswerEndsInIt) {
  EXPECT_EQ(WithoutUnit(u"7.9034mV", u"mV"), u"7.9034");
  EXPECT_EQ(WithoutUnit(u"  7.9034 mV ", u"mV"), u"7.9034");
  EXPECT_EQ(WithoutUnit(u"7.9034", u"mV"), u"7.9034");
  EXPECT_EQ(WithoutUnit(u"100Ohm", u"mV"), u"100Ohm");
  EXPECT_EQ(WithoutUnit(u"50%", u"%"), u"50");
  EXPECT_EQ(WithoutUnit(u"mV", u"mV"), u"");
  EXPECT_EQ(WithoutUnit(u"", u"%"), u"");
}

}  // namespace
}  // namespace korva
