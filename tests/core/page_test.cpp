#include "core/page.h"

#include <gtest/gtest.h>

#include "core/program_host.h"

namespace korva {
namespace {

using Steps = std::vector<std::string>;
using Words = std::vector<String>;

class PageTest : public testing::Test {
 protected:
  PageTest() {
    host_.program.Start();
    host_.TakeJournal();
    host_.program.OnPageShown([this](korva::Page& page) { shown_.emplace_back(page.ItsFamily().word); });
  }
  test::FramePage& Page() { return host_.Showing(); }
  SharedState& Shared() { return host_.program.Shared(); }
  void Close() { host_.program.PressClose(); }

  test::ProgramHost host_;
  Words shown_;
};

// Load.

TEST_F(PageTest, LoadsItsFoldersCatalogueAndCaptions) {
  EXPECT_EQ(Page().AppPath, u"/korva");
  EXPECT_EQ(Page().DataPath, u"/korva/data");
  EXPECT_EQ(Page().txtDirName.Text(), u"/korva/data");
  EXPECT_EQ(Page().lbl_FrmVersion.Caption(), u"KORVA Ver12.09");
  EXPECT_EQ(Page().cmdUpload.Caption(), u"アップロード");
  EXPECT_EQ(Page().Tabs.TabCaption(1), u"ﾘﾆｱﾗｲｻﾞ");
  EXPECT_EQ(Page().OptCom[3].Caption(), u"COM 4");
  EXPECT_EQ(Page().first.button.Caption(), u"日本語で");
  EXPECT_EQ(Page().second.button.Caption(), u"日本語で");
  EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
}

TEST_F(PageTest, ListsAll69RowsTheEmptyOnesToo) {
  const std::vector<String>& entries = Page().lst_TypeSelect.Entries();
  ASSERT_EQ(entries.size(), 69U);
  EXPECT_EQ(entries[0], u"QHW");
  EXPECT_EQ(entries[4], u"A");
  EXPECT_EQ(entries[5], u"");
}

TEST(PageInARootFolder, HasOneSeparatorOnlyInItsDataPath) {
  test::ProgramHost host(u"/");
  host.files.Put(u"/system/MdlVTRMFx.jpn", "$Type\r\nQHW,QHW.def,First\r\n$End\r\n");
  host.program.Start();
  ASSERT_FALSE(host.status) << "the catalogue was not found";
  EXPECT_EQ(host.Showing().DataPath, u"/data");
}

// Choice of a model.

TEST_F(PageTest, ReadsAModelOfItsOwnFamilyWithoutShowingOrHidingAnything) {
  host_.Choose(1);
  EXPECT_EQ(Page().DefFile, u"QC.def");
  EXPECT_EQ(host_.TakeJournal(), Steps{"First: read model"});
  EXPECT_TRUE(shown_.empty());
}

TEST_F(PageTest, HandsAModelOfAnotherFamilyOverToItsPage) {
  Page().lst_TypeSelect.SetTopIndex(2);
  host_.Choose(2);
  EXPECT_EQ(shown_, Words{u"Lite"});
  EXPECT_EQ(Page().lst_TypeSelect.ListIndex(), 2);
  EXPECT_EQ(Page().lst_TypeSelect.TopIndex(), 2);
  EXPECT_EQ(Page().DefFile, u"Z2.def");
  EXPECT_EQ(host_.Loaded(u"First")->DefFile, u"QHW.def");
}

TEST_F(PageTest, ChangesThePortsSpeedInTheNewPagesActivationNotInTheClick) {
  host_.Choose(3);
  EXPECT_EQ(host_.TakeJournal(), (Steps{"Nano: prepare port", "Nano: read model", "Nano: reopen port"}));
}

TEST_F(PageTest, ShowsTheModelChosenLastInTheListOfEitherPageAfterSwitchingThereAndBack) {
  host_.Choose(2);
  host_.Choose(3);
  EXPECT_EQ(Page().ItsFamily().word, u"Nano");
  EXPECT_EQ(Page().lst_TypeSelect.Text(), u"Z8");
  host_.Choose(2);
  EXPECT_EQ(Page().ItsFamily().word, u"Lite");
  EXPECT_EQ(Page().lst_TypeSelect.Text(), u"Z2");
  EXPECT_EQ(shown_, (Words{u"Lite", u"Nano", u"Lite"}));
}

TEST_F(PageTest, DoesNothingOnARowWithAnEmptyOrUnknownFamilyWord) {
  for (const int row : {4, 5}) {
    Page().DataChanged = true;
    host_.Choose(row);
    EXPECT_TRUE(host_.TakeJournal().empty());
    EXPECT_TRUE(host_.dialogs.Boxes().empty());
    EXPECT_EQ(Page().DefFile, u"QHW.def");
    EXPECT_TRUE(Page().DataChanged);
  }
}

TEST_F(PageTest, AsksForUnsavedDataBeforeAnythingElseEvenOnTheCurrentModel) {
  Page().DataChanged = true;
  host_.dialogs.OnBox([this](const Box& box) {
    EXPECT_EQ(box.text, u"データは変更されています。保存しますか。");
    EXPECT_TRUE(host_.TakeJournal().empty());
  });
  host_.dialogs.QueueAnswer(Answer::Cancel);
  host_.Choose(0);
  EXPECT_EQ(host_.dialogs.Boxes().size(), 1U);
  EXPECT_TRUE(host_.TakeJournal().empty());
  EXPECT_TRUE(Page().DataChanged);
}

TEST_F(PageTest, StaysOnItsModelWhenTheQuestionIsCancelled) {
  Page().DataChanged = true;
  host_.dialogs.QueueAnswer(Answer::Cancel);
  host_.Choose(2);
  EXPECT_TRUE(shown_.empty());
  EXPECT_EQ(Page().lst_TypeSelect.ListIndex(), 0);
}

// The save question.

TEST_F(PageTest, AsksNothingWhenNothingChanged) {
  EXPECT_FALSE(Page().ConfirmDiscard());
  EXPECT_TRUE(host_.dialogs.Boxes().empty());
}

TEST_F(PageTest, SavesOnYesAndGoesOnOnlyIfSaved) {
  Page().DataChanged = true;
  Page().SaveSucceeds = false;
  host_.dialogs.QueueAnswer(Answer::Yes);
  EXPECT_TRUE(Page().ConfirmDiscard());
  EXPECT_TRUE(Page().DataChanged);
  Page().SaveSucceeds = true;
  host_.dialogs.QueueAnswer(Answer::Yes);
  EXPECT_FALSE(Page().ConfirmDiscard());
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(PageTest, EmptiesTheSetOnNoAndShowsIt) {
  Page().DataChanged = true;
  host_.dialogs.QueueAnswer(Answer::No);
  EXPECT_FALSE(Page().ConfirmDiscard());
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_EQ(host_.TakeJournal(), (Steps{"First: clear set", "First: build page"}));
}

// Operations.

TEST_F(PageTest, IsBusyDuringAnOperationAndNotToBeCutOffDuringADownload) {
  Page().TransferBar.SetValue(100);
  Page().first.bar.SetValue(100);
  Page().second.bar.SetValue(50);
  Page().BeginOperation();
  EXPECT_TRUE(Shared().CommBusy);
  EXPECT_FALSE(Shared().DownloadBusy);
  EXPECT_EQ(Page().TransferBar.Value(), 0.0F);
  EXPECT_EQ(Page().first.bar.Value(), 0.0F);
  EXPECT_EQ(Page().second.bar.Value(), 0.0F);
  Page().BeginDownload();
  EXPECT_TRUE(Shared().CommBusy);
  EXPECT_TRUE(Shared().DownloadBusy);
}

TEST_F(PageTest, IsIdleWithItsBarsAt0AfterAnOperation) {
  Page().BeginDownload();
  Page().TransferBar.SetValue(100);
  Page().EndOperation();
  EXPECT_FALSE(Shared().CommBusy);
  EXPECT_FALSE(Shared().DownloadBusy);
  EXPECT_EQ(Page().TransferBar.Value(), 0.0F);
  EXPECT_TRUE(host_.TakeJournal().empty());
}

TEST_F(PageTest, ReturnsTheDeviceToMonitorModeAfterADownloadUnlessTheLinkFailed) {
  Page().BeginDownload();
  Page().EndDownload();
  EXPECT_EQ(host_.TakeJournal(), Steps{"First: monitor mode"});
  Page().BeginDownload();
  Page().CommFailed = true;
  Page().EndDownload();
  EXPECT_TRUE(host_.TakeJournal().empty());
  EXPECT_FALSE(Shared().CommBusy);
}

TEST_F(PageTest, DisablesButtonsListAndTabsWhileLockedAndPutsTheTabsBackAsTheyWere) {
  Page().Tabs.SetTabEnabled(1, false);
  Page().LockFrame();
  for (const Control* control : std::initializer_list<const Control*>{
           &Page().cmdUpload, &Page().cmdDownload, &Page().cmdOpen, &Page().cmdSave, &Page().cmdNew,
           &Page().cmdCheck, &Page().cmdExit, &Page().first.button, &Page().second.button}) {
    EXPECT_FALSE(control->Enabled()) << control->FullName();
  }
  for (int tab = 0; tab < 3; ++tab) {
    EXPECT_FALSE(Page().Tabs.TabEnabled(tab)) << tab;
  }
  Page().UnlockFrame();
  EXPECT_TRUE(Page().cmdUpload.Enabled());
  EXPECT_TRUE(Page().first.button.Enabled());
  EXPECT_TRUE(Page().second.button.Enabled());
  EXPECT_TRUE(Page().Tabs.TabEnabled(0));
  EXPECT_FALSE(Page().Tabs.TabEnabled(1));
  EXPECT_TRUE(Page().Tabs.TabEnabled(2));
}

// Leaving.

TEST_F(PageTest, HoldsACloseDuringAnUploadOffWithoutAMessage) {
  Page().BeginOperation();
  Close();
  EXPECT_FALSE(host_.status);
  EXPECT_TRUE(Shared().QuitRequested);
  EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
}

TEST_F(PageTest, TellsOnACloseDuringADownloadThatTheProgramCanNotEnd) {
  Page().BeginDownload();
  Close();
  EXPECT_FALSE(host_.status);
  EXPECT_TRUE(Shared().QuitRequested);
  EXPECT_TRUE(Page().flaMsg_CannotEnd.Visible());
  EXPECT_EQ(Page().flaMsg_CannotEnd.Caption(), u"");
  EXPECT_EQ(Page().lblMsg_CannotEnd.Caption(), u"ﾀﾞｳﾝﾛｰﾄﾞの途中でﾌﾟﾛｸﾞﾗﾑを終了することはできません。");
}

TEST_F(PageTest, ShowsTheSameFrameAndChangesNothingOnASecondCloseDuringADownload) {
  Page().BeginDownload();
  Close();
  int changes = 0;
  for (Control* control : Page().Controls()) {
    control->Observe([&changes] { ++changes; });
  }
  Close();
  EXPECT_EQ(changes, 0);
  EXPECT_TRUE(Page().flaMsg_CannotEnd.Visible());
  EXPECT_FALSE(host_.status);
}

TEST_F(PageTest, TakesAHeldOffCloseUpWhenTheDownloadIsOver) {
  Page().BeginDownload();
  Close();
  host_.Do([this] { Page().CheckPendingQuit(); });
  EXPECT_EQ(host_.status, 0);
  EXPECT_EQ(host_.TakeJournal(), Steps{"First: monitor mode"});
  EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
}

TEST_F(PageTest, GoesOnAfterADownloadThatNobodyClosed) {
  Page().BeginDownload();
  host_.Do([this] { Page().CheckPendingQuit(); });
  EXPECT_FALSE(host_.status);
}

TEST_F(PageTest, EndsWithItsExitButtonAsWithTheCloseBox) {
  host_.Do([this] { Page().cmdExit.Click(); });
  EXPECT_EQ(host_.status, 0);
}

TEST_F(PageTest, StaysWhenItsSaveQuestionIsCancelledWhileTheOtherPagesGo) {
  host_.Choose(2);
  Page().DataChanged = true;
  host_.dialogs.QueueAnswer(Answer::Cancel);
  Close();
  EXPECT_FALSE(host_.status);
  EXPECT_EQ(Page().ItsFamily().word, u"Lite");
  EXPECT_EQ(host_.unloaded, Words{u"First"});
}

TEST_F(PageTest, StaysWhenTheSaveBeforeLeavingFails) {
  Page().DataChanged = true;
  Page().SaveSucceeds = false;
  host_.dialogs.QueueAnswer(Answer::Yes);
  Close();
  EXPECT_FALSE(host_.status);
  EXPECT_TRUE(Page().DataChanged);
}

TEST_F(PageTest, LeavesWithoutSavingOnNo) {
  Page().DataChanged = true;
  host_.dialogs.QueueAnswer(Answer::No);
  Close();
  EXPECT_EQ(host_.status, 0);
}

// Reaching controls.

TEST_F(PageTest, PassesThePortChoiceOnEvenForThePortInUse) {
  Page().OptCom[1].Click();
  Page().OptCom[1].Click();
  EXPECT_EQ(host_.TakeJournal(), (Steps{"First: choose port 2", "First: choose port 2"}));
}

TEST_F(PageTest, FindsItsControlsByName) {
  EXPECT_EQ(Page().FindControl("cmdUpload"), &Page().cmdUpload);
  EXPECT_EQ(Page().FindControl("OptCom2"), &Page().OptCom[1]);
  EXPECT_EQ(Page().FindControl("cmdNothing"), nullptr);
}

TEST_F(PageTest, FindsItsTabsByCaption) {
  EXPECT_EQ(Page().Tabs.Count(), 3);
  EXPECT_EQ(Page().TabWith(TextKey::File), 0);
  EXPECT_EQ(Page().TabWith(TextKey::IoCheck), 2);
  EXPECT_EQ(Page().TabWith(TextKey::Port), -1);
}

TEST_F(PageTest, TellsWhyTheUserCanNotReachAControl) {
  EXPECT_EQ(Page().TabOf(Page().first.button), 2);
  EXPECT_EQ(Page().TabOf(Page().cmdUpload), -1);
  EXPECT_EQ(Page().WhyRefused(Page().first.button), "");
  Page().Tabs.SetTabEnabled(2, false);
  EXPECT_EQ(Page().WhyRefused(Page().first.button), "tab disabled");
  EXPECT_EQ(Page().WhyRefused(Page().txtFileTitle), "locked");
  EXPECT_EQ(Page().WhyRefused(Page().lbl_Waitfor), "hidden");
  Page().cmdUpload.SetEnabled(false);
  EXPECT_EQ(Page().WhyRefused(Page().cmdUpload), "disabled");
}

TEST_F(PageTest, TellsEachPartOfATabThatComesToTheFront) {
  Page().first.notes.clear();
  Page().second.notes.clear();
  Page().Tabs.SetCurrent(2);
  Page().Tabs.SetCurrent(2);  // it is there already
  Page().Tabs.SetCurrent(0);
  EXPECT_EQ(Page().first.notes, (Steps{"tab 2", "tab 0"}));
  EXPECT_EQ(Page().second.notes, (Steps{"tab 2", "tab 0"}));
}

TEST_F(PageTest, TellsEachPartOfEachClickOnATab) {
  Page().first.notes.clear();
  Page().second.notes.clear();
  Page().Tabs.UserClicks(2);
  Page().Tabs.UserClicks(2);
  EXPECT_EQ(Page().first.notes, (Steps{"tab 2", "click on 2", "click on 2"}));
  EXPECT_EQ(Page().second.notes, Page().first.notes);
}

TEST_F(PageTest, CaptionsItsPartsInTheLanguageOfTheFrame) {
  Page().SetCaptions(Language::English);
  EXPECT_EQ(Page().cmdUpload.Caption(), u"UPLOAD");
  EXPECT_EQ(Page().first.button.Caption(), u"in English");
  EXPECT_EQ(Page().second.button.Caption(), u"in English");
}

TEST_F(PageTest, AsksItsPartsInTheOrderInWhichTheyWereAdded) {
  ASSERT_EQ(Page().Parts().size(), 2U);
  EXPECT_EQ(Page().Parts()[0], &Page().first);
  EXPECT_EQ(Page().Parts()[1], &Page().second);
}

TEST_F(PageTest, RefusesTheUserOnAPageThatIsHidden) {
  host_.Choose(2);
  EXPECT_EQ(host_.Loaded(u"First")->WhyRefused(host_.Loaded(u"First")->cmdUpload), "page not showing");
}

}  // namespace
}  // namespace korva
