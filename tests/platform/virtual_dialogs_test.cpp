#include "platform/virtual/virtual_dialogs.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korva {
namespace {

const Box kReport{.title = u"ﾌｧｲﾙに保存", .text = u"done"};
const Box kYesNo{
    .icon = BoxIcon::Question, .title = u"t", .text = u"discard?", .buttons = {Answer::Yes, Answer::No}};
const Box kYesNoCancel{.icon = BoxIcon::Question,
                       .title = u"t",
                       .text = u"save?",
                       .buttons = {Answer::Yes, Answer::No, Answer::Cancel},
                       .preset = Answer::Cancel};

TEST(VirtualDialogs, ABoxWithOneButtonAnswersItselfAndTakesNothingFromTheQueue) {
  VirtualDialogs dialogs;
  dialogs.QueueAnswer(Answer::Yes);
  EXPECT_EQ(dialogs.ShowBox(kReport), Answer::Ok);
  EXPECT_EQ(dialogs.Unused(), 1U);
  EXPECT_EQ(dialogs.ShowBox(kYesNo), Answer::Yes);
  EXPECT_EQ(dialogs.Unused(), 0U);
}

TEST(VirtualDialogs, AQuestionWithoutAQueuedAnswerGetsTheOneThatChangesLeast) {
  VirtualDialogs dialogs;
  EXPECT_EQ(dialogs.ShowBox(kYesNoCancel), Answer::Cancel);
  EXPECT_EQ(dialogs.ShowBox(kYesNo), Answer::No);
}

TEST(VirtualDialogs, AnAnswerThatTheBoxDoesNotOfferFailsTheTest) {
  VirtualDialogs dialogs;
  dialogs.QueueAnswer(Answer::Cancel);
  EXPECT_THROW(dialogs.ShowBox(kYesNo), std::logic_error);
}

TEST(VirtualDialogs, EachBoxIsKeptWithItsAnswerAndTheHookSeesItFirst) {
  VirtualDialogs dialogs;
  String seen;
  dialogs.OnBox([&](const Box& box) {
    seen = box.text;
    dialogs.QueueAnswer(Answer::Yes);
  });
  EXPECT_EQ(dialogs.ShowBox(kYesNo), Answer::Yes);
  EXPECT_EQ(seen, u"discard?");
  ASSERT_EQ(dialogs.Boxes().size(), 1U);
  EXPECT_EQ(dialogs.Boxes()[0].box.text, u"discard?");
  EXPECT_EQ(dialogs.Boxes()[0].answer, Answer::Yes);
}

TEST(VirtualDialogs, FileDialogsTakeTheQueuedChoicesAndAreCancelledWithoutOne) {
  VirtualDialogs dialogs;
  dialogs.QueueFile(u"/data/a.cfg");
  dialogs.QueueFile(std::nullopt);
  const FileDialog open{.start_folder = u"/data", .filter = u"cfg|*.cfg|", .filter_index = 1};
  EXPECT_EQ(dialogs.ChooseFile(open), u"/data/a.cfg");
  EXPECT_EQ(dialogs.ChooseFile(open), std::nullopt);
  EXPECT_EQ(dialogs.ChooseFile(open), std::nullopt);
  ASSERT_EQ(dialogs.FileDialogs().size(), 3U);
  EXPECT_EQ(dialogs.FileDialogs()[0].choice, u"/data/a.cfg");
  EXPECT_EQ(dialogs.FileDialogs()[0].dialog.start_folder, u"/data");
}

TEST(VirtualDialogs, FailuresAreKept) {
  VirtualDialogs dialogs;
  dialogs.ShowFailure(u"catalogue missing");
  EXPECT_EQ(dialogs.Failures(), std::vector<String>{u"catalogue missing"});
}

}  // namespace
}  // namespace korva
