#include "core/program.h"

#include <gtest/gtest.h>

#include "core/program_host.h"

namespace korva {
namespace {

using Steps = std::vector<std::string>;
using Words = std::vector<String>;

class ProgramTest : public testing::Test {
 protected:
  void Start() {
    host_.program.Start();
    host_.TakeJournal();
  }
  test::ProgramHost host_;
};

TEST_F(ProgramTest, StartsWithTheRootPageAndItsFirstModel) {
  std::vector<StringView> shown;
  host_.program.OnPageShown([&shown](Page& page) { shown.push_back(page.ItsFamily().page); });
  host_.program.Start();
  EXPECT_EQ(shown, std::vector<StringView>{u"KvConfig"});
  EXPECT_EQ(host_.TakeJournal(), (Steps{"First: prepare port", "First: read model", "First: reopen port"}));
  EXPECT_EQ(host_.Showing().lst_TypeSelect.ListIndex(), 0);
  EXPECT_EQ(host_.Showing().DefFile, u"QHW.def");
  EXPECT_FALSE(host_.Showing().DataChanged);
}

TEST_F(ProgramTest, StartsWithClearFlags) {
  SharedState& shared = host_.program.Shared();
  shared.CommBusy = shared.DownloadBusy = shared.QuitRequested = true;
  Start();
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested);
}

TEST_F(ProgramTest, EndsWithAFailureWhenTheCatalogueIsMissing) {
  host_.files.Remove(u"/korva/system/MdlVTRMFx.jpn");
  host_.program.Start();
  EXPECT_EQ(host_.status, 1);
  ASSERT_EQ(host_.dialogs.Failures().size(), 1U);
  EXPECT_NE(host_.dialogs.Failures()[0].find(u"/korva/system/MdlVTRMFx.jpn"), String::npos);
}

TEST_F(ProgramTest, JoinsAFolderAndANameWithOneSeparatorOnly) {
  EXPECT_EQ(host_.program.Join(u"/korva", u"data"), u"/korva/data");
  EXPECT_EQ(host_.program.Join(u"/", u"data"), u"/data");
  host_.files.SetSeparator(u'\\');
  EXPECT_EQ(host_.program.Join(u"C:\\korva", u"data"), u"C:\\korva\\data");
  EXPECT_EQ(host_.program.Join(u"C:\\", u"data"), u"C:\\data");
}

TEST_F(ProgramTest, EndsWhenTheShowingPageIsClosed) {
  Start();
  host_.program.PressClose();
  EXPECT_EQ(host_.status, 0);
  EXPECT_EQ(host_.TakeJournal(), Steps{"First: close port"});
  EXPECT_TRUE(host_.dialogs.Failures().empty());
}

TEST_F(ProgramTest, UnloadsTheOtherPagesButThoseOfThirdLiteForthAndLiteFifth) {
  Start();
  for (const Family* family : AllFamilies().all) {
    host_.Do([&] { host_.program.Show(*family); });
  }
  host_.Do([&] { host_.program.Show(AllFamilies().root); });
  host_.program.PressClose();
  EXPECT_EQ(host_.unloaded,
            (Words{u"QXI", u"Second", u"Lite", u"LiteSecond", u"LiteThird", u"LiteUniv", u"Nano"}));
}

TEST_F(ProgramTest, UnloadsTheRootPageWhenAnotherPageIsClosed) {
  Start();
  host_.Choose(2);
  host_.program.PressClose();
  EXPECT_EQ(host_.unloaded, Words{u"First"});
  EXPECT_EQ(host_.status, 0);
}

TEST_F(ProgramTest, TellsARunTimeFailureOnceAndEndsWithStatus1) {
  Start();
  host_.Do([] { throw RuntimeFailure(u"item 500"); });
  host_.Do([] { throw RuntimeFailure(u"later"); });
  EXPECT_EQ(host_.dialogs.Failures(), Words{u"item 500"});
  EXPECT_EQ(host_.status, 1);
}

TEST_F(ProgramTest, WritesUnsavedValuesToARescueFileAndNamesIt) {
  Start();
  host_.Showing().DataChanged = true;
  host_.Do([] { throw RuntimeFailure(u"item 500"); });
  EXPECT_EQ(host_.Showing().Rescued, u"/korva/data/rescue.cfg");
  ASSERT_EQ(host_.dialogs.Failures().size(), 1U);
  EXPECT_NE(host_.dialogs.Failures()[0].find(u"/korva/data/rescue.cfg"), String::npos);
}

TEST_F(ProgramTest, ReplacesNoFormerRescueFile) {
  host_.files.Put(u"/korva/data/rescue.cfg", "former");
  host_.files.Put(u"/korva/data/rescue-2.cfg", "former");
  Start();
  host_.Showing().DataChanged = true;
  host_.Do([] { throw RuntimeFailure(u"item 500"); });
  EXPECT_EQ(host_.Showing().Rescued, u"/korva/data/rescue-3.cfg");
}

TEST_F(ProgramTest, NamesNoRescueFileThatCouldNotBeWritten) {
  Start();
  host_.Showing().DataChanged = true;
  host_.Showing().SaveSucceeds = false;
  host_.Do([] { throw RuntimeFailure(u"item 500"); });
  EXPECT_EQ(host_.dialogs.Failures(), Words{u"item 500"});
}

}  // namespace
}  // namespace korva
