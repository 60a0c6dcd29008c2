#include "monitor/step_request.h"

#include <gtest/gtest.h>

#include <vector>

namespace korva {
namespace {

class StepRequestTest : public testing::Test {
 protected:
  StepRequestTest() {
    request_.Offer(up_, u"1");
    request_.Offer(down_, u"-1");
  }
  void Turn() {
    request_.CarryOut([this](const String& step) { steps_.push_back(step); });
  }

  Button up_{"up"};
  Button down_{"down"};
  std::vector<String> steps_;
  StepRequest request_;
};

TEST_F(StepRequestTest, CarriesNothingOutThatNobodyAskedFor) {
  EXPECT_FALSE(request_.Waits());
  Turn();
  EXPECT_TRUE(steps_.empty());
}

TEST_F(StepRequestTest, ShowsAtOnceThatAPressWaitsAndCarriesItOutOnce) {
  up_.Click();
  EXPECT_TRUE(up_.Pending());
  EXPECT_EQ(up_.ShownLook(), Look::Highlight);
  EXPECT_TRUE(steps_.empty()) << "not inside the press";
  Turn();
  EXPECT_EQ(steps_, std::vector<String>{u"1"});
  EXPECT_FALSE(up_.Pending());
  Turn();
  EXPECT_EQ(steps_.size(), 1U);
}

TEST_F(StepRequestTest, ASecondPressTakesThePlaceOfTheFirst) {
  up_.Click();
  down_.Click();
  EXPECT_FALSE(up_.Pending());
  EXPECT_TRUE(down_.Pending());
  Turn();
  EXPECT_EQ(steps_, std::vector<String>{u"-1"});
  EXPECT_FALSE(down_.Pending());
}

TEST_F(StepRequestTest, ShowsThatItWaitsUntilItIsCarriedOut) {
  up_.Click();
  request_.CarryOut([this](const String&) { EXPECT_TRUE(up_.Pending()); });
  EXPECT_FALSE(up_.Pending());
}

TEST_F(StepRequestTest, APressWhileAnotherIsCarriedOutWaitsForTheNextTurn) {
  up_.Click();
  request_.CarryOut([this](const String&) { down_.Click(); });
  EXPECT_TRUE(request_.Waits());
  EXPECT_FALSE(up_.Pending());
  EXPECT_TRUE(down_.Pending());
  Turn();
  EXPECT_EQ(steps_, std::vector<String>{u"-1"});
  EXPECT_FALSE(down_.Pending());
}

TEST_F(StepRequestTest, WhatIsDroppedIsNotCarriedOut) {
  up_.Click();
  request_.Drop();
  EXPECT_FALSE(up_.Pending());
  Turn();
  EXPECT_TRUE(steps_.empty());
}

}  // namespace
}  // namespace korva
