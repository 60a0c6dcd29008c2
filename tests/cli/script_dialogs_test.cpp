#include "cli/script_dialogs.h"

#include <gtest/gtest.h>

#include "script_bench.h"

namespace korva::cli {
namespace {

using test::Lines;
using test::TakeLines;

struct DialogsBench {
  Lines Printed() { return TakeLines(printed); }
  std::ostringstream printed;
  std::ostringstream complaints;
  Transcript transcript{printed, complaints};
  ScriptDialogs dialogs{transcript};
};

Box Question(std::vector<Answer> buttons) {
  return {.icon = BoxIcon::Question, .title = u"T", .text = u"Q", .buttons = std::move(buttons)};
}

TEST(Box, WithOneButtonIsAnsweredByItself) {
  DialogsBench bench;
  EXPECT_EQ(bench.dialogs.ShowBox({.icon = BoxIcon::Warning, .title = u"通信ﾃｽﾄ", .text = u"a\n\rb"}),
            Answer::Ok);
  EXPECT_EQ(bench.Printed(), Lines{R"(box warning "通信ﾃｽﾄ" "a\nb" ok -> ok)"});
}

TEST(Box, WithOneButtonLeavesTheQueuedAnswersAlone) {
  DialogsBench bench;
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.dialogs.ShowBox({.icon = BoxIcon::Plain, .title = u"T", .text = u"done"});
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No})), Answer::Yes);
  EXPECT_EQ(bench.Printed(),
            (Lines{R"(box plain "T" "done" ok -> ok)", R"(box question "T" "Q" yes,no -> yes)"}));
}

TEST(Question, TakesTheQueuedAnswersInTheirOrder) {
  DialogsBench bench;
  bench.dialogs.QueueAnswer(Answer::Ok);
  bench.dialogs.QueueAnswer(Answer::No);
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Ok, Answer::Cancel})), Answer::Ok);
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No, Answer::Cancel})), Answer::No);
  EXPECT_EQ(bench.Printed(), (Lines{R"(box question "T" "Q" ok,cancel -> ok)",
                                    R"(box question "T" "Q" yes,no,cancel -> no)"}));
}

TEST(Question, WithoutAQueuedAnswerIsCancelledOrElseDenied) {
  DialogsBench bench;
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Ok, Answer::Cancel})), Answer::Cancel);
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No, Answer::Cancel})), Answer::Cancel);
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No})), Answer::No);
}

TEST(Question, WithAQueuedAnswerThatItDoesNotOfferRefusesItAndChangesLeast) {
  DialogsBench bench;
  bench.dialogs.QueueAnswer(Answer::Ok);
  bench.dialogs.QueueAnswer(Answer::Yes);
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No})), Answer::No);
  EXPECT_EQ(bench.Printed(),
            (Lines{"refused answer ok: not offered", R"(box question "T" "Q" yes,no -> no)"}));
  EXPECT_TRUE(bench.transcript.Refused());
  EXPECT_EQ(bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No})), Answer::Yes);
  EXPECT_EQ(bench.Printed(), Lines{R"(box question "T" "Q" yes,no -> yes)"});
  EXPECT_EQ(TakeLines(bench.complaints), Lines{});
}

TEST(Question, WithoutAQueuedAnswerRefusesNothing) {
  DialogsBench bench;
  bench.dialogs.ShowBox(Question({Answer::Yes, Answer::No}));
  EXPECT_FALSE(bench.transcript.Refused());
}

TEST(FileDialog, TakesTheQueuedPathAndPrintsWhatItShows) {
  DialogsBench bench;
  bench.dialogs.QueueFile(u"/tmp/a.cfg");
  EXPECT_EQ(bench.dialogs.ChooseFile(
                {.save = false, .start_folder = u"/k/data", .filter = u"f|*.cfg|", .filter_index = 2}),
            u"/tmp/a.cfg");
  EXPECT_EQ(bench.Printed(), Lines{R"(dialog open "/k/data" "f|*.cfg|" 2 -> "/tmp/a.cfg")"});
}

TEST(FileDialog, WithoutAQueuedOutcomeIsCancelled) {
  DialogsBench bench;
  EXPECT_EQ(bench.dialogs.ChooseFile({.save = true, .start_folder = u"/k/data", .filter = u"f|*.cfg|"}),
            std::nullopt);
  EXPECT_EQ(bench.Printed(), Lines{R"(dialog save "/k/data" "f|*.cfg|" 1 -> cancel)"});
}

TEST(FileDialog, IsCancelledOnDemand) {
  DialogsBench bench;
  bench.dialogs.QueueFile(std::nullopt);
  bench.dialogs.QueueFile(u"/tmp/a.cfg");
  EXPECT_EQ(bench.dialogs.ChooseFile({}), std::nullopt);
  EXPECT_EQ(bench.dialogs.ChooseFile({}), u"/tmp/a.cfg");
}

TEST(FileDialog, CountsAPathThatIsNotFullFromItsStartFolder) {
  DialogsBench bench;
  bench.dialogs.QueueFile(u"設定.cfg");
  EXPECT_EQ(bench.dialogs.ChooseFile({.start_folder = u"/k/data", .filter = u"f"}), u"/k/data/設定.cfg");
  EXPECT_EQ(bench.Printed(), Lines{R"(dialog open "/k/data" "f" 1 -> "/k/data/設定.cfg")"});
}

TEST(Failure, IsPrintedWithItsText) {
  DialogsBench bench;
  bench.dialogs.ShowFailure(u"a\nb");
  EXPECT_EQ(bench.Printed(), Lines{R"(failure "a\nb")"});
}

}  // namespace
}  // namespace korva::cli
