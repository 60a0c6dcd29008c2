// What stops a download before the first write.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "download_fixture.h"

namespace korva::test {
namespace {

TEST_F(DownloadTest, ASilentDeviceShowsTheLinksBoxAndGetsNoModeCommand) {
  bench.line.silent_from = 0;
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::CommFailure));
  EXPECT_EQ(bench.line.Sent(), "G00 G00 G00 G00");
  EXPECT_TRUE(bench.page->CommFailed);
}

TEST_F(DownloadTest, WithoutAModelInTheListItStopsAfterTheLinkTest) {
  bench.host.loop.Gate().Enter([&] { bench.page->lst_TypeSelect.SetListIndex(-1); });
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::NoModelChosen));
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0");
}

TEST_F(DownloadTest, AFixedInputTypeThatDiffersStopsItWithTheCaptionOfTheLabelOfItsRow) {
  bench.line.items["01/10"] = "3:FIXED";
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeMismatch, {u"Third"}));
  EXPECT_EQ(bench.line.Sent(), "G00 I99 G01 I01 D0 G01 I10 G01 I01 D0");
}

TEST_F(DownloadTest, WithoutSuchALabelTheNameIsEmpty) {
  bench.line.items["01/10"] = "4:OTHER";
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeMismatch, {u""}));
}

TEST_F(DownloadTest, AFixedInputTypeThatAgreesPasses) {
  bench.line.items["01/10"] = "4:OTHER";
  bench.page->SetItem(10, u" 4:OTHER ");
  bench.page->SetItem(11, {});
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, AnInputTypeThatCannotBeSetFromHereStopsIt) {
  bench.page->SetItem(10, u"3:FIXED");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeNotSettable));
}

TEST_F(DownloadTest, ALabelOfTheModelChosenBeforeDoesNotCount) {
  bench.line.items["01/10"] = "4:OTHER";
  bench.page->CaptionLabels[3].SetCaption(u"Former");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::InputTypeMismatch, {u""}));
}

TEST_F(DownloadTest, AnInputTypeOfWhichTheListSaysNothingPassesAndIsNotWritten) {
  bench.page->SetItem(10, u"4:OTHER");
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_FALSE(Wrote("01/10=4"));
}

TEST_F(DownloadTest, AnInputTypeThatTheListDoesNotHaveIsNotCompared) {
  bench.line.replies["I10"] = {"D9:UNKNOWN", "D1:DC V"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST_F(DownloadTest, ADeviceThatRefusesMonitorModeBeforeTheChecksStopsIt) {
  bench.line.replies["D0"] = {"CNG", "CNG", "CNG", "CNG", "D0"};
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::NotMonitorMode));
}

TEST_F(DownloadTest, AFieldLeftBlankThatIsNotTheTagStopsItBeforeProgrammingMode) {
  bench.Type(u"16", u"");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::FieldBlank));
}

TEST_F(DownloadTest, ABadValueStopsItBeforeProgrammingMode) {
  bench.Type(u"15", u"11");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.LookOf(u"15"), Look::Bad);
}

TEST_F(DownloadTest, ADeviceThatRefusesProgrammingModeHasBeenLeftUntouched) {
  bench.line.replies["D1"] = {"CNG"};
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::NotProgrammingMode));
  EXPECT_EQ(bench.line.writes, (Texts{"01/01=0", "01/01=0"}));
}

TEST_F(DownloadTest, AModeThatCannotBeLeftShowsItsBoxAndTheDownloadIsDone) {
  bench.line.echoes["01/01"] = {"D0", "D1", "CNG"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), (Texts{Shown(BoxKey::NotMonitorMode), Shown(BoxKey::DownloadDone),
                                      Shown(BoxKey::NotMonitorMode)}));
  EXPECT_TRUE(bench.AtRest());
}

TEST_F(DownloadTest, ValuesAreRoundedAfterTheInputTypeAndBeforeTheCheck) {
  bench.Type(u"16", u"");
  bench.Download();
  EXPECT_EQ(bench.page->notes, Texts{"round"});
  bench.line.items["01/10"] = "3:FIXED";
  bench.Download();
  EXPECT_EQ(bench.page->notes, Texts{});
}

// Choices that the model has no code for.

TEST_F(DownloadTest, AChoiceWithoutACodeIsMarkedAndStopsItBeforeProgrammingMode) {
  bench.page->SetItem(23, u"2:SOMETIMES");
  bench.Download();
  ExpectFailedUntouched(Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench.page->Combo[2].ShownLook(), Look::Bad);
  EXPECT_EQ(bench.page->Combo[1].ShownLook(), Look::Normal);
}

TEST_F(DownloadTest, TheCheckRefusesAChoiceWithoutACodeAsADownloadDoes) {
  bench.page->SetItem(23, u"2:SOMETIMES");
  bench.Check();
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::ValueBad)});
  EXPECT_EQ(bench.page->Combo[2].ShownLook(), Look::Bad);
  EXPECT_TRUE(bench.AtRest());
  bench.page->SetItem(23, u"1:ON");
  bench.Check();
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::CheckDone));
  EXPECT_EQ(bench.page->Combo[2].ShownLook(), Look::Normal);
}

TEST_F(DownloadTest, AChoiceThatWasCorrectedLosesItsMarkWithTheNextDownload) {
  bench.page->SetItem(23, u"2:SOMETIMES");
  bench.Download();
  bench.page->SetItem(23, u"1:ON");
  bench.Download();
  EXPECT_EQ(bench.page->Combo[2].ShownLook(), Look::Normal);
  EXPECT_EQ(bench.Boxes().back(), Shown(BoxKey::DownloadDone));
}

TEST_F(DownloadTest, AChoiceThatIsNotWrittenNeedsNoCode) {
  bench.page->SetItem(10, u"2:RTD");
  bench.page->SetItem(11, u"no range of this type");
  bench.page->SetItem(15, u"80");
  bench.page->BuildPage();
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
}

}  // namespace
}  // namespace korva::test
