#include <array>
#include <utility>

#include "file_commands_fixture.h"

namespace korva::test {
namespace {

class SaveCommand : public FileCommands {};

TEST_F(SaveCommand, OpeningAsksAboutUnsavedChangesAndCancelStopsIt) {
  Page().Text[0].UserTypes(u"TAG");
  host.PutText(kCfg, kOther);
  host.dialogs.QueueAnswer(Answer::Cancel);
  Page().cmdOpen.Click();
  EXPECT_EQ(host.BoxTexts(),
            std::vector<String>{String(kSaveTitle) + u"データは変更されています。保存しますか。"});
  EXPECT_TRUE(host.dialogs.FileDialogs().empty());
  EXPECT_TRUE(Page().DataChanged);
  EXPECT_EQ(Page().Item(2), u"TAG");
}

TEST_F(SaveCommand, NoEmptiesTheSetAndThePageShowsIt) {
  Page().Text[0].UserTypes(u"TAG");
  Page().txtAuthor.UserTypes(u"a");
  host.dialogs.QueueAnswer(Answer::No);
  host.dialogs.QueueFile(std::nullopt);
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().Item(2), u"");
  EXPECT_EQ(Page().Text[0].Text(), u"");
  EXPECT_EQ(Page().txtAuthor.Text(), u"");
  EXPECT_EQ(Page().optTempUnit.Selected(), -1);
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(SaveCommand, YesSavesFirstAndACancelledSaveStops) {
  Page().Text[0].UserTypes(u"TAG");
  host.dialogs.QueueAnswer(Answer::Yes);
  host.dialogs.QueueFile(std::nullopt);
  EXPECT_TRUE(Page().ConfirmDiscard());
  EXPECT_TRUE(Page().DataChanged);
  host.dialogs.QueueAnswer(Answer::Yes);
  host.dialogs.QueueFile(kCfg);
  EXPECT_FALSE(Page().ConfirmDiscard());
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_TRUE(host.files.Exists(kCfg));
}

TEST_F(SaveCommand, SavingWritesTheSetAndReportsIt) {
  host.Choose(u"OTHER");
  Page().Text[0].UserTypes(u"ﾀｸﾞ");
  Page().txtAuthor.UserTypes(u"山田");
  host.dialogs.QueueFile(u"/korva/data/new.cfg");
  Page().cmdSave.Click();
  EXPECT_EQ(host.TextOf(u"/korva/data/new.cfg"),
            u"$DefFile\r\n\"OTHER.def\"\r\n$Data\r\n\"1\",\"2\",\"ﾀｸﾞ\"\r\n\"1\",\"10\",\"on\"\r\n"
            u"\"1\",\"21\",\"deg C\"\r\n$Memo\r\n\"0\",\"山田\"\r\n\"1\",\"\"\r\n$End\r\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kSaveTitle) + u"ファイルの保存が終了しました。"});
  EXPECT_EQ(host.dialogs.Boxes()[0].box.icon, BoxIcon::Plain);
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_EQ(Page().txtFileTitle.Text(), u"new.cfg");
  EXPECT_EQ(Page().txtDirName.Text(), u"/korva/data");
  EXPECT_EQ(host.program.Shared().CfgFileName, u"new.cfg");
  EXPECT_TRUE(Page().CfgLoaded);
}

TEST_F(SaveCommand, TheSaveDialogOffersConfigurationsInTheFolder) {
  EXPECT_TRUE(Save());
  const FileDialog& dialog = host.dialogs.FileDialogs()[0].dialog;
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.start_folder, u"/korva/data");
  EXPECT_EQ(dialog.filter, u"KORVAで作成されたテキストファイル (*.cfg)|*.cfg|");
}

TEST_F(SaveCommand, ACancelledSaveAndAnEmptyNameWriteNothing) {
  Page().Text[0].UserTypes(u"TAG");
  host.dialogs.QueueFile(std::nullopt);
  EXPECT_FALSE(Page().SaveCfgFile());
  EXPECT_FALSE(Save(u""));
  EXPECT_EQ(host.files.Replacements(), 0);
  EXPECT_TRUE(Page().DataChanged);
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(SaveCommand, SavingTwiceWithNoChangeGivesTheSameBytes) {
  Page().Text[0].UserTypes(u"TAG");
  Page().txtMemo.UserTypes(u"one\r\n二\r\nthree");
  ASSERT_TRUE(Save(u"/korva/data/1.cfg"));
  ASSERT_TRUE(Save(u"/korva/data/2.cfg"));
  EXPECT_EQ(host.files.Bytes(u"/korva/data/1.cfg"), host.files.Bytes(u"/korva/data/2.cfg"));
}

TEST_F(SaveCommand, SavingOpeningAndSavingAgainGivesTheSameBytes) {
  host.Choose(u"OTHER");
  Page().Text[0].UserTypes(u"TAG");
  Page().Text[9].UserTypes(u"NEEDLESS");
  Page().txtAuthor.UserTypes(u"山田");
  Page().txtMemo.UserTypes(u"one\r\n二\r\nthree");
  ASSERT_TRUE(Save());
  const auto bytes = host.files.Bytes(kCfg);
  host.Choose(u"PLAIN");
  host.dialogs.QueueFile(kCfg);
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().txtMemo.Text(), u"one\r\n二\r\nthree");
  ASSERT_TRUE(Save(u"/korva/data/2.cfg"));
  EXPECT_EQ(host.files.Bytes(u"/korva/data/2.cfg"), bytes);
}

TEST_F(SaveCommand, ASaveThatFailsTellsTheSystemsReasonAndKeepsFileValuesAndMark) {
  const std::array faults = {
      std::pair(MemoryFiles::Fault::DiskFull, StringView(u"ﾃﾞｨｽｸの空き容量が足りません。")),
      std::pair(MemoryFiles::Fault::FolderGone, StringView(u"ﾌｧｲﾙまたはﾌｫﾙﾀﾞが見つかりません。")),
      std::pair(MemoryFiles::Fault::NotPermitted, StringView(u"ｱｸｾｽする権限がありません。")),
      std::pair(MemoryFiles::Fault::BadDisk, StringView(u"Input/output error"))};
  for (const auto& [fault, reason] : faults) {
    host.files.Put(kCfg, "old");
    Page().Text[0].UserTypes(u"TAG");
    Page().DataChanged = true;
    host.files.FailWrites(fault);
    EXPECT_FALSE(Save());
    EXPECT_EQ(LastBox(), String(kSaveTitle).append(reason));
    EXPECT_EQ(host.dialogs.Boxes().back().box.icon, BoxIcon::Warning);
    EXPECT_EQ(host.files.Bytes(kCfg), "old");
    EXPECT_EQ(Page().Item(2), u"TAG");
    EXPECT_TRUE(Page().DataChanged);
    EXPECT_EQ(Page().txtFileTitle.Text(), u"");
  }
}

TEST_F(SaveCommand, ACharacterThatTheCodePageLacksIsNamedAndNothingIsWritten) {
  host.files.Put(kCfg, "old");
  Page().txtMemo.UserTypes(u"20 \u20AC \U0001F600");
  EXPECT_FALSE(Save());
  EXPECT_NE(LastBox().find(u'\u20AC'), String::npos);
  EXPECT_EQ(LastBox().find(u"\U0001F600"), String::npos);
  EXPECT_TRUE(LastBox().starts_with(kSaveTitle));
  EXPECT_EQ(host.files.Bytes(kCfg), "old");
  EXPECT_TRUE(Page().DataChanged);
  Page().txtMemo.UserTypes(u"\U0001F600");
  EXPECT_FALSE(Save());
  EXPECT_NE(LastBox().find(u"\U0001F600"), String::npos);
}

TEST_F(SaveCommand, TheRescueFileHoldsTheSetWithAMarkForWhatTheCodePageLacks) {
  Page().Text[0].UserTypes(u"TAG");
  Page().txtMemo.UserTypes(u"20 \u20AC \U0001F600 円");
  EXPECT_TRUE(Page().SaveRescueFile(u"/korva/data/rescue.cfg"));
  const String text = host.TextOf(u"/korva/data/rescue.cfg");
  EXPECT_NE(text.find(u"\"1\",\"2\",\"TAG\""), String::npos);
  EXPECT_NE(text.find(u"\"1\",\"20 ? ? 円\""), String::npos);
  EXPECT_TRUE(host.dialogs.Boxes().empty());
  EXPECT_TRUE(host.dialogs.FileDialogs().empty());
  host.files.FailWrites(MemoryFiles::Fault::DiskFull);
  EXPECT_FALSE(Page().SaveRescueFile(u"/korva/data/rescue.cfg"));
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(SaveCommand, NewEmptiesSetAndTextsAndTakesTheDefaults) {
  Open(kOther);
  Page().linearizer.SetUp(100);
  Page().probe.cleared = 0;
  Page().TransferBar.SetValue(40);
  Page().linearizer.LnrProgressBar.SetValue(40);
  Page().cmdNew.Click();
  EXPECT_EQ(Page().Item(2), u"");
  EXPECT_EQ(Page().Text[0].Text(), u"");
  EXPECT_EQ(Page().txtAuthor.Text(), u"");
  EXPECT_EQ(Page().txtMemo.Text(), u"");
  EXPECT_EQ(Page().txtFileTitle.Text(), u"");
  EXPECT_EQ(Page().GroupItem.Author, u"");
  EXPECT_EQ(Page().Item(10), u"on");
  EXPECT_EQ(Page().Item(21), u"deg C");
  EXPECT_EQ(Page().optTempUnit.Selected(), 0);
  EXPECT_EQ(Page().probe.cleared, 1);
  EXPECT_EQ(Page().linearizer.LnrFlexGrid.Rows(), 17);
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
  EXPECT_EQ(Page().TransferBar.Value(), 0);
  EXPECT_EQ(Page().linearizer.LnrProgressBar.Value(), 0);
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_EQ(Page().DefFile, u"OTHER.def");
}

TEST_F(SaveCommand, NewTakesADefaultWhoseButtonWasOnAlready) {
  host.Choose(u"OTHER");
  ASSERT_EQ(Page().optTempUnit.Selected(), 0);
  Page().cmdNew.Click();
  EXPECT_EQ(Page().Item(21), u"deg C");
}

TEST_F(SaveCommand, NewAsksAboutUnsavedChangesAndCancelStopsIt) {
  Page().Text[0].UserTypes(u"TAG");
  host.dialogs.QueueAnswer(Answer::Cancel);
  Page().cmdNew.Click();
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_TRUE(Page().DataChanged);
}

// What the file will not give back.

constexpr StringView kNotKept = u"保存したﾌｧｲﾙを開いても、次の内容は元に戻りません: ";

class SaveLosses : public SaveCommand {
 protected:
  SaveLosses() { host.Choose(u"OTHER"); }
  [[nodiscard]] const String& Told() { return Page().Notes.Told(Notice::NotKept); }
};

TEST_F(SaveLosses, NothingIsToldOfASetThatComesBack) {
  Page().Text[0].UserTypes(u"TAG-1");
  Page().txtMemo.UserTypes(u"one\r\ntwo");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Told(), u"");
}

TEST_F(SaveLosses, EachItemAuthorAndMemoLineThatWouldBeLostIsNamedAndTheFileIsSavedAllTheSame) {
  Page().txtAuthor.UserTypes(u"Yamada, T.");
  Page().txtMemo.UserTypes(u"one\r\ntwo, three\r\nfour");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Told(), String(kNotKept) + u"作者名、メモの行 2");
  EXPECT_EQ(LastBox(), String(kSaveTitle) + u"ファイルの保存が終了しました。");
  EXPECT_NE(host.TextOf(kCfg).find(u"two, three"), String::npos) << "the format stays";
  Page().Text[0].UserTypes(u"A,B");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Told(),
            String(kNotKept) + u"Item 02、Item 10、Item 21、作者名、メモの行 1、メモの行 2、メモの行 3");
}

TEST_F(SaveLosses, TheLostPointsOfATableAreNamedTogether) {
  Page().GroupItem.Set(1, 60, u"1,5");
  for (int item = 61; item <= 91; ++item) {
    Page().SetItem(item, u"0");
  }
  Page().GroupItem.Set(2, 7, u"0");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Told(), String(kNotKept) + u"Item 60～91、Group 2 Item 07");
}

TEST_F(SaveLosses, WhatIsNotNamedComesBack) {
  Page().Text[0].UserTypes(u"TAG-1");
  Page().txtMemo.UserTypes(u"one\r\n5 bar, 2 bar\r\nthree");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Told(), String(kNotKept) + u"メモの行 2");
  host.dialogs.QueueFile(kCfg);
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().txtMemo.Text(), u"one\r\nthree");
  EXPECT_EQ(Page().Item(2), u"TAG-1");
  EXPECT_EQ(Told(), u"") << "the page shows what the file gave";
}

TEST_F(SaveLosses, ASaveThatLosesNothingASaveThatFailsAndANewSetLeaveTheNoticeAsTheFileIs) {
  Page().Text[0].UserTypes(u"A,B");
  EXPECT_TRUE(Save());
  const String told = Told();
  EXPECT_NE(told, u"");
  host.files.FailWrites(MemoryFiles::Fault::DiskFull);
  EXPECT_FALSE(Save());
  EXPECT_EQ(Told(), told) << "the old file is still there";
  host.files.FailWrites(MemoryFiles::Fault::None);
  Page().Text[0].UserTypes(u"AB");
  EXPECT_TRUE(Save());
  EXPECT_EQ(Told(), u"");
  Page().Text[0].UserTypes(u"A,B");
  EXPECT_TRUE(Save());
  Page().cmdNew.Click();
  EXPECT_EQ(Told(), u"");
}

}  // namespace
}  // namespace korva::test
