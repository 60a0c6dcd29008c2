#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "page_host.h"

namespace korva::test {
namespace {

constexpr const char16_t* kCfg = u"/korva/data/a.cfg";
constexpr StringView kOpenTitle = u"ﾌｧｲﾙを開く: ";
constexpr StringView kSaveTitle = u"ﾌｧｲﾙに保存: ";
constexpr StringView kSections =
    u"$I10\n0,off\n1,on\n$I21\n0,deg C\n1,deg F\n2,K\n$SSTab\nTrue,True,True,True,False,True,True\n";

String Definition(const String& caption) {
  return DefText({{.item = u"02", .label = u"1", .caption = caption, .text = u"0"},
                  {.item = u"14", .text = u"9", .unit_label = u"9", .unit = u"$in", .temperature = u"Item21"},
                  {.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1", .preset = u"1"},
                  {.item = u"21", .key = u"$I21", .frame = u"3", .last = u"2", .preset = u"0"}},
                 kSections);
}

class FileCommands : public testing::Test {
 protected:
  FileCommands() {
    host.Define(u"PLAIN.def", Definition(u"plain"));
    host.Define(u"OTHER.def", Definition(u"other"));
    host.PutText(u"/korva/system/Kv_3/THIRD.def", Definition(u"third"));
    host.Start();
  }
  TestPage& Page() { return host.Page(); }
  void Open(StringView text) {
    host.PutText(kCfg, text);
    host.dialogs.QueueFile(kCfg);
    Page().cmdOpen.Click();
  }
  bool Save(const String& path = kCfg) {
    host.dialogs.QueueFile(path);
    return Page().SaveCfgFile();
  }
  [[nodiscard]] String LastBox() const {
    return host.dialogs.Boxes().empty() ? String() : host.BoxTexts().back();
  }

  PageHost host;
};

// Choosing a model.

TEST_F(FileCommands, AModelChoiceBuildsThePageWithItsDefaultsAndSettlesTheTabs) {
  Page().tables_cleared = 0;
  Page().tables.clear();
  host.Choose(u"OTHER");
  EXPECT_EQ(Page().DefFile, u"OTHER.def");
  EXPECT_EQ(Page().CaptionLabels[1].Caption(), u"other");
  EXPECT_EQ(Page().tables_cleared, 1);
  EXPECT_EQ(Page().tables, std::vector<int>{16});
  EXPECT_EQ(Page().LnrFlexGrid.Rows(), 17);
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
  EXPECT_FALSE(Page().Tabs.TabEnabled(4));
  EXPECT_EQ(Page().Item(10), u"on");
  EXPECT_EQ(Page().Item(21), u"deg C");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(FileCommands, AModelWithAHundredPointsHasAGridForThem) {
  for (const String model : {u"QHNY1", u"QHNY2", u"QHW1"}) {
    host.Choose(model, Definition(u"hundred"));
    EXPECT_EQ(Page().LnrFlexGrid.Rows(), 101) << ToUtf8(model);
    host.Choose(u"OTHER");
    EXPECT_EQ(Page().LnrFlexGrid.Rows(), 17);
  }
}

TEST_F(FileCommands, AModelChoiceKeepsTheSet) {
  Page().Text[0].UserTypes(u"TAG");
  Page().DataChanged = false;
  host.Choose(u"OTHER");
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_EQ(Page().Text[0].Text(), u"TAG");
}

TEST_F(FileCommands, AModelChoiceHidesWhatTheFormerModelShowed) {
  host.Choose(u"QD", DefText({{.item = u"03", .text = u"7"}}));
  EXPECT_FALSE(Page().Text[0].Visible());
  EXPECT_TRUE(Page().Text[7].Visible());
  EXPECT_FALSE(Page().optTempUnit[0].Visible());
  EXPECT_EQ(Page().optTempUnit.Selected(), -1);
}

TEST_F(FileCommands, AFaultyDefinitionIsReportedAndThePageShowsWhatWasRead) {
  host.Choose(u"OTHER", u"$Data\n01,02,,,Y,Y,,,,5\n$I99\n$End\n");
  EXPECT_EQ(LastBox(), String(kOpenTitle) + u"defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。ﾌﾟﾛｸﾞﾗﾑを再ｲﾝｽﾄｰﾙしてください。");
  EXPECT_TRUE(Page().Text[5].Visible());
}

TEST_F(FileCommands, AMissingDefinitionEndsTheProgram) { EXPECT_THROW(host.Choose(u"QZ"), RuntimeFailure); }

// Opening.

constexpr StringView kOther =
    u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n\"1\",\"10\",\"off\"\n\"1\",\"14\",\"12\"\n"
    u"\"1\",\"21\",\"deg F\"\n$Memo\n\"0\",\"author\"\n\"1\",\"one\ntwo\"\n$End\n";

TEST_F(FileCommands, OpeningChoosesTheModelAndShowsValuesAndTexts) {
  Open(kOther);
  EXPECT_EQ(Page().lst_TypeSelect.ListIndex(), 1);
  EXPECT_EQ(host.program.Shared().SelectedModelIndex, 1);
  EXPECT_EQ(Page().DefFile, u"OTHER.def");
  EXPECT_EQ(Page().CaptionLabels[1].Caption(), u"other");
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-1");
  EXPECT_EQ(Page().Text[9].Text(), u"12");
  EXPECT_EQ(Page().optTempUnit.Selected(), 1);
  EXPECT_EQ(Page().lbl_unit[9].Caption(), u"deg F");
  EXPECT_EQ(Page().txtAuthor.Text(), u"author");
  EXPECT_EQ(Page().txtMemo.Text(), u"one\r\ntwo");
  EXPECT_EQ(Page().units_chosen.size(), 1U) << "only the default of the first model";
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(FileCommands, OpeningSettlesTheTabOfTheTableByTheValuesOfTheFile) {
  Open(kOther);
  EXPECT_FALSE(Page().Tabs.TabEnabled(3));
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"10\",\"on\"\n$End\n");
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
}

TEST_F(FileCommands, TheFilesValuesStandAgainstADefaultThatConvertsThem) {
  Page().on_unit = [this] { Page().SetItem(14, u"0"); };
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"14\",\"12\"\n$End\n");
  EXPECT_EQ(Page().Item(21), u"deg C");
  EXPECT_EQ(Page().Item(14), u"12");
  EXPECT_EQ(Page().Text[9].Text(), u"12");
}

TEST_F(FileCommands, TheDialogStartsInTheFolderAndShowsConfigurations) {
  host.dialogs.QueueFile(std::nullopt);
  Page().cmdOpen.Click();
  ASSERT_EQ(host.dialogs.FileDialogs().size(), 1U);
  const FileDialog& dialog = host.dialogs.FileDialogs()[0].dialog;
  EXPECT_FALSE(dialog.save);
  EXPECT_EQ(dialog.start_folder, u"/korva/data");
  EXPECT_EQ(dialog.filter,
            u"プログラム管理ファイル (*.def)|*.def|KORVAで作成されたテキストファイル (*.cfg)|*.cfg|"
            u"すべてのファイル (*.*)|*.*|");
  EXPECT_EQ(dialog.filter_index, 2);
}

TEST_F(FileCommands, ACancelledDialogChangesNothing) {
  Page().Text[0].UserTypes(u"TAG");
  Page().DataChanged = false;
  Page().CfgLoaded = true;
  host.dialogs.QueueFile(std::nullopt);
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_EQ(Page().txtDirName.Text(), u"/korva/data");
  EXPECT_EQ(Page().txtFileTitle.Text(), u"");
  EXPECT_FALSE(Page().CfgLoaded);
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(FileCommands, FolderAndNameOfTheFileAreShownAndShared) {
  host.PutText(u"/home/me/b.cfg", kOther);
  host.dialogs.QueueFile(u"/home/me/b.cfg");
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().txtDirName.Text(), u"/home/me");
  EXPECT_EQ(Page().txtFileTitle.Text(), u"b.cfg");
  EXPECT_EQ(host.program.Shared().CfgFilePath, u"/home/me/b.cfg");
  EXPECT_EQ(host.program.Shared().CfgFileName, u"b.cfg");
  EXPECT_TRUE(Page().CfgLoaded);
  host.dialogs.QueueFile(std::nullopt);
  Page().cmdOpen.Click();
  EXPECT_EQ(host.dialogs.FileDialogs().back().dialog.start_folder, u"/home/me");
}

TEST_F(FileCommands, AFileInTheRootFolderIsFound) {
  host.PutText(u"/b.cfg", kOther);
  host.dialogs.QueueFile(u"/b.cfg");
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().txtDirName.Text(), u"");
  EXPECT_EQ(Page().txtFileTitle.Text(), u"b.cfg");
  EXPECT_EQ(Page().Item(2), u"TAG-1");
}

TEST_F(FileCommands, AFileThatIsNotFoundLeavesThePage) {
  Page().SetItem(2, u"TAG");
  host.dialogs.QueueFile(u"/korva/data/none.cfg");
  Page().cmdOpen.Click();
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kOpenTitle) + u"ファイルが見つかりません。"});
  EXPECT_EQ(host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(FileCommands, AFileWithoutAModelGoesIntoTheCurrentPage) {
  host.Choose(u"OTHER");
  host.program.Shared().SelectedModelIndex = 0;
  Open(u"$Data\n\"1\",\"2\",\"TAG-2\"\n\"0\",\"5\",\"odd\"\n");
  EXPECT_EQ(Page().DefFile, u"OTHER.def");
  EXPECT_EQ(Page().lst_TypeSelect.ListIndex(), 1);
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-2");
  EXPECT_EQ(Page().GroupItem.At(0, 5), u"odd");
  EXPECT_EQ(Page().Item(21), u"");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(FileCommands, AnItemThatTheModelLacksIsSavedAgain) {
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"3\",\"98\",\"odd\"\n$End\n");
  ASSERT_TRUE(Save());
  EXPECT_NE(host.TextOf(kCfg).find(u"\"3\",\"98\",\"odd\"\r\n"), String::npos);
}

TEST_F(FileCommands, AnUnknownModelShowsTheFirstEntryAndDropsTheFilesValues) {
  for (const StringView text :
       {StringView(u"$DefFile\n\"NONE.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n$End\n"),
        StringView(u"$DefFile\n\"PLAIN.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n$End\n"),
        StringView(u"$Data\n\"1\",\"2\",\"TAG-1\"\n$DefFile\n\"NONE.def\"\n$End\n")}) {
    host.Choose(u"OTHER");
    Page().Text[0].UserTypes(u"TAG");
    Page().txtAuthor.UserTypes(u"a");
    Page().DataChanged = false;
    Open(text);
    EXPECT_EQ(Page().lst_TypeSelect.ListIndex(), 0);
    EXPECT_EQ(host.program.Shared().SelectedModelIndex, 0);
    EXPECT_EQ(Page().DefFile, u"PLAIN.def");
    EXPECT_EQ(Page().CaptionLabels[1].Caption(), u"plain");
    EXPECT_EQ(Page().Item(2), u"");
    EXPECT_EQ(Page().txtAuthor.Text(), u"");
    EXPECT_EQ(Page().Item(21), u"deg C");
    EXPECT_FALSE(Page().DataChanged);
    EXPECT_TRUE(host.dialogs.Boxes().empty());
  }
}

TEST_F(FileCommands, AModelThatTheListLostIsReportedAndThePageGoesOn) {
  Page().lst_TypeSelect.Clear();
  Open(kOther);
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{u"ｱｯﾌﾟﾛｰﾄﾞ: 機種名ｺﾝﾎﾞﾎﾞｯｸｽ(ModelType$) 照合ｴﾗｰ"});
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-1");
}

TEST_F(FileCommands, AFormatFaultIsReportedAndWhatWasReadIsShown) {
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n$Odd\n$End\n");
  EXPECT_EQ(host.BoxTexts(),
            std::vector<String>{String(kOpenTitle) + u"cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"});
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-1");
  EXPECT_EQ(Page().CaptionLabels[1].Caption(), u"other");
}

TEST_F(FileCommands, AnItemOutsideTheSetEndsTheProgram) {
  EXPECT_THROW(Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"9\",\"500\",\"x\"\n$End\n"), RuntimeFailure);
}

TEST_F(FileCommands, AModelOfAnotherFamilyShowsThatFamilysPageWithoutTheValues) {
  Open(u"$DefFile\n\"THIRD.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n$End\n");
  ASSERT_NE(host.third, nullptr);
  EXPECT_EQ(host.program.Showing(), host.third);
  EXPECT_EQ(host.third->DefFile, u"THIRD.def");
  EXPECT_EQ(host.third->Text[0].Text(), u"");
  EXPECT_EQ(Page().Item(2), u"TAG-1");
}

// Unsaved changes.

TEST_F(FileCommands, OpeningAsksAboutUnsavedChangesAndCancelStopsIt) {
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

TEST_F(FileCommands, NoEmptiesTheSetAndThePageShowsIt) {
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

TEST_F(FileCommands, YesSavesFirstAndACancelledSaveStops) {
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

// Saving.

TEST_F(FileCommands, SavingWritesTheSetAndReportsIt) {
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

TEST_F(FileCommands, TheSaveDialogOffersConfigurationsInTheFolder) {
  EXPECT_TRUE(Save());
  const FileDialog& dialog = host.dialogs.FileDialogs()[0].dialog;
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.start_folder, u"/korva/data");
  EXPECT_EQ(dialog.filter, u"KORVAで作成されたテキストファイル (*.cfg)|*.cfg|");
}

TEST_F(FileCommands, ACancelledSaveAndAnEmptyNameWriteNothing) {
  Page().Text[0].UserTypes(u"TAG");
  host.dialogs.QueueFile(std::nullopt);
  EXPECT_FALSE(Page().SaveCfgFile());
  EXPECT_FALSE(Save(u""));
  EXPECT_EQ(host.files.Replacements(), 0);
  EXPECT_TRUE(Page().DataChanged);
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(FileCommands, SavingTwiceWithNoChangeGivesTheSameBytes) {
  Page().Text[0].UserTypes(u"TAG");
  Page().txtMemo.UserTypes(u"one\r\n二\r\nthree");
  ASSERT_TRUE(Save(u"/korva/data/1.cfg"));
  ASSERT_TRUE(Save(u"/korva/data/2.cfg"));
  EXPECT_EQ(host.files.Bytes(u"/korva/data/1.cfg"), host.files.Bytes(u"/korva/data/2.cfg"));
}

TEST_F(FileCommands, SavingOpeningAndSavingAgainGivesTheSameBytes) {
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

TEST_F(FileCommands, ASaveThatFailsTellsTheSystemsReasonAndKeepsFileValuesAndMark) {
  for (const auto fault :
       {MemoryFiles::Fault::DiskFull, MemoryFiles::Fault::FolderGone, MemoryFiles::Fault::NotPermitted}) {
    host.files.Put(kCfg, "old");
    Page().Text[0].UserTypes(u"TAG");
    Page().DataChanged = true;
    host.files.FailWrites(fault);
    EXPECT_FALSE(Save());
    EXPECT_EQ(LastBox(), String(kSaveTitle) + MemoryFiles::ReasonOf(fault));
    EXPECT_EQ(host.dialogs.Boxes().back().box.icon, BoxIcon::Warning);
    EXPECT_EQ(host.files.Bytes(kCfg), "old");
    EXPECT_EQ(Page().Item(2), u"TAG");
    EXPECT_TRUE(Page().DataChanged);
    EXPECT_EQ(Page().txtFileTitle.Text(), u"");
  }
}

TEST_F(FileCommands, ACharacterThatTheCodePageLacksIsNamedAndNothingIsWritten) {
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

TEST_F(FileCommands, TheRescueFileHoldsTheSetWithAMarkForWhatTheCodePageLacks) {
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

// A new set.

TEST_F(FileCommands, NewEmptiesSetAndTextsAndTakesTheDefaults) {
  Open(kOther);
  Page().tables.clear();
  Page().tables_cleared = 0;
  Page().TransferBar.SetValue(40);
  Page().LnrProgressBar.SetValue(40);
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
  EXPECT_EQ(Page().tables_cleared, 1);
  EXPECT_EQ(Page().tables, std::vector<int>{16});
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
  EXPECT_EQ(Page().TransferBar.Value(), 0);
  EXPECT_EQ(Page().LnrProgressBar.Value(), 0);
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_EQ(Page().DefFile, u"OTHER.def");
}

TEST_F(FileCommands, NewTakesADefaultWhoseButtonWasOnAlready) {
  host.Choose(u"OTHER");
  ASSERT_EQ(Page().optTempUnit.Selected(), 0);
  Page().cmdNew.Click();
  EXPECT_EQ(Page().Item(21), u"deg C");
}

TEST_F(FileCommands, NewAsksAboutUnsavedChangesAndCancelStopsIt) {
  Page().Text[0].UserTypes(u"TAG");
  host.dialogs.QueueAnswer(Answer::Cancel);
  Page().cmdNew.Click();
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_TRUE(Page().DataChanged);
}

}  // namespace
}  // namespace korva::test
