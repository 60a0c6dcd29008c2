#include <array>
#include <utility>

#include "file_commands_fixture.h"
#include "files/cfg_file.h"

namespace korva::test {
namespace {

class OpenCommand : public FileCommands {};

TEST_F(OpenCommand, OpeningChoosesTheModelAndShowsValuesAndTexts) {
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
  EXPECT_EQ(Page().probe.units_chosen.size(), 1U) << "only the default of the first model";
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(OpenCommand, OpeningSettlesTheTabOfTheTableByTheValuesOfTheFile) {
  Open(kOther);
  EXPECT_FALSE(Page().Tabs.TabEnabled(3));
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"10\",\"on\"\n$End\n");
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
}

TEST_F(OpenCommand, OpeningEnablesTheTabOfAModelThatStartsWithoutIt) {
  host.Define(u"QY.def", DefText({{.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1"}},
                                 u"$I10\n0,off\n1,on\n$SSTab\nTrue,True,True,False,False,True,True\n"));
  Open(u"$DefFile\n\"QY.def\"\n$Data\n\"1\",\"10\",\"on\"\n$End\n");
  EXPECT_TRUE(Page().Tabs.TabEnabled(3));
  Open(u"$Data\n\"1\",\"10\",\"off\"\n$End\n");
  EXPECT_FALSE(Page().Tabs.TabEnabled(3));
}

TEST_F(OpenCommand, TheFilesValuesStandAgainstADefaultThatConvertsThem) {
  Page().probe.on_unit = [this] { Page().SetItem(14, u"0"); };
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"14\",\"12\"\n$End\n");
  EXPECT_EQ(Page().Item(21), u"deg C");
  EXPECT_EQ(Page().Item(14), u"12");
  EXPECT_EQ(Page().Text[9].Text(), u"12");
}

TEST_F(OpenCommand, TheDialogStartsInTheFolderAndShowsConfigurations) {
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

TEST_F(OpenCommand, ACancelledDialogChangesNothing) {
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

TEST_F(OpenCommand, FolderAndNameOfTheFileAreShownAndShared) {
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

TEST_F(OpenCommand, AFileInTheRootFolderIsFound) {
  host.PutText(u"/b.cfg", kOther);
  host.dialogs.QueueFile(u"/b.cfg");
  Page().cmdOpen.Click();
  EXPECT_EQ(Page().txtDirName.Text(), u"");
  EXPECT_EQ(Page().txtFileTitle.Text(), u"b.cfg");
  EXPECT_EQ(Page().Item(2), u"TAG-1");
}

TEST_F(OpenCommand, AFileThatIsNotFoundLeavesThePage) {
  Page().SetItem(2, u"TAG");
  host.dialogs.QueueFile(u"/korva/data/none.cfg");
  Page().cmdOpen.Click();
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kOpenTitle) + u"ファイルが見つかりません。"});
  EXPECT_EQ(host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(OpenCommand, AFileThatCantBeReadIsToldWithTheReasonAndThePageStays) {
  const std::array faults = {
      std::pair(MemoryFiles::Fault::NotPermitted, StringView(u"ｱｸｾｽする権限がありません。")),
      std::pair(MemoryFiles::Fault::IsFolder, StringView(u"ﾌｧｲﾙではなくﾌｫﾙﾀﾞです。")),
      std::pair(MemoryFiles::Fault::BadDisk, StringView(u"Input/output error"))};
  host.Choose(u"OTHER");
  Page().SetItem(2, u"TAG");
  for (const auto& [fault, reason] : faults) {
    host.files.FailReads(fault);
    Open(kOther);
    EXPECT_EQ(LastBox(), String(kOpenTitle).append(kCfg).append(u"\n").append(reason));
    EXPECT_EQ(host.dialogs.Boxes().back().box.icon, BoxIcon::Warning);
    EXPECT_EQ(Page().DefFile, u"OTHER.def");
    EXPECT_EQ(Page().Item(2), u"TAG");
    EXPECT_FALSE(Page().DataChanged);
  }
  host.files.FailReads(MemoryFiles::Fault::None);
  Open(kOther);
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-1");
}

TEST_F(OpenCommand, AFileOfMoreThanAMebibyteIsNoConfigurationAndThePageStays) {
  Page().SetItem(2, u"TAG");
  Open(String(kOther) + String(kMostCfgBytes, u' '));
  EXPECT_EQ(host.BoxTexts(),
            std::vector<String>{String(kOpenTitle) + u"cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"});
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_EQ(Page().DefFile, u"PLAIN.def");
}

TEST_F(OpenCommand, AFileThatVanishesWhileItsPageComesIsReadAllTheSame) {
  Page().lst_TypeSelect.Observe([this] { host.files.Remove(kCfg); });
  Open(u"$DefFile\n\"THIRD.def\"\n$Data\n\"1\",\"2\",\"TAG-3\"\n$End\n");
  ASSERT_NE(host.third, nullptr);
  EXPECT_EQ(host.third->Text[0].Text(), u"TAG-3");
  EXPECT_TRUE(host.dialogs.Boxes().empty());
}

TEST_F(OpenCommand, AFileWithoutAModelGoesIntoTheCurrentPage) {
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

TEST_F(OpenCommand, AnItemThatTheModelLacksIsSavedAgain) {
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"3\",\"98\",\"odd\"\n$End\n");
  ASSERT_TRUE(Save());
  EXPECT_NE(host.TextOf(kCfg).find(u"\"3\",\"98\",\"odd\"\r\n"), String::npos);
}

TEST_F(OpenCommand, AnUnknownModelShowsTheFirstEntryAndDropsTheFilesValues) {
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

TEST_F(OpenCommand, AModelThatTheListLostIsReportedAndThePageGoesOn) {
  Page().lst_TypeSelect.Clear();
  Page().lst_TypeSelect.AddEntry(u"PLAIN");
  Page().lst_TypeSelect.AddEntry(u"ANOTHER");
  Open(kOther);
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{u"ｱｯﾌﾟﾛｰﾄﾞ: 機種名ｺﾝﾎﾞﾎﾞｯｸｽ(ModelType$) 照合ｴﾗｰ"});
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-1");
}

TEST_F(OpenCommand, AFormatFaultIsReportedAndWhatWasReadIsShown) {
  Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n$Odd\n$End\n");
  EXPECT_EQ(host.BoxTexts(),
            std::vector<String>{String(kOpenTitle) + u"cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"});
  EXPECT_EQ(Page().Text[0].Text(), u"TAG-1");
  EXPECT_EQ(Page().CaptionLabels[1].Caption(), u"other");
}

TEST_F(OpenCommand, AnItemOutsideTheSetEndsTheProgram) {
  EXPECT_THROW(Open(u"$DefFile\n\"OTHER.def\"\n$Data\n\"9\",\"500\",\"x\"\n$End\n"), RuntimeFailure);
}

TEST_F(OpenCommand, AModelOfAnotherFamilyOpensOnThatFamilysPageAndThisOneKeepsItsValues) {
  Open(kOther);
  const String title = Page().txtFileTitle.Text();
  Open(u"$DefFile\n\"THIRD.def\"\n$Data\n\"1\",\"2\",\"TAG-3\"\n$Memo\n\"0\",\"a\"\n\"1\",\"m\"\n$End\n");
  ASSERT_NE(host.third, nullptr);
  EXPECT_EQ(host.program.Showing(), host.third);
  EXPECT_EQ(host.third->DefFile, u"THIRD.def");
  EXPECT_EQ(host.third->Text[0].Text(), u"TAG-3");
  EXPECT_EQ(host.third->txtAuthor.Text(), u"a");
  EXPECT_FALSE(host.third->DataChanged);
  EXPECT_EQ(Page().Item(2), u"TAG-1");
  EXPECT_EQ(Page().txtFileTitle.Text(), title);
}

TEST_F(OpenCommand, AFileOfAnotherFamilyIsReadByThatFamilysReader) {
  EXPECT_THROW(Open(u"$DefFile\n\"THIRD.def\"\n$Data\n\"2\",\"0\",\"x\"\n$End\n"), RuntimeFailure);
}

}  // namespace
}  // namespace korva::test
