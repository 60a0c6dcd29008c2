// The frame on the real page: start, choice of a model, leaving, captions.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "page_bench.h"
#include "pages/kv_config/design.h"

namespace korva {
namespace {

using test::kFile;
constexpr const char16_t* kCatalogue = u"/korva/system/MdlVTRMFx.jpn";

class PageFrameTest : public testing::Test {
 protected:
  KvConfig& Page() { return bench_.First(); }
  ListBox& List() { return Page().lst_TypeSelect; }
  void ClickRow(int row) {
    bench_.Do([&] { List().UserPicks(row); });
  }
  test::PageBench bench_;
};

// Start.

TEST_F(PageFrameTest, StartsWithTheFirstModelOfTheCatalogueOnTheRootPageAt1200Baud) {
  int opened = 0;
  bench_.app.link.line.OnOpened = [&](int number, const String& settings, bool open) {
    ++opened;
    EXPECT_EQ(number, 1);
    EXPECT_EQ(settings, u"1200,n,8,1");
    EXPECT_TRUE(open);
  };
  bench_.Start();
  EXPECT_EQ(opened, 2);  // at the load, and anew at the activation
  EXPECT_EQ(List().ListIndex(), 0);
  EXPECT_EQ(List().Text(), u"QHW");
  EXPECT_EQ(Page().DefFile, u"QHW.def");
  EXPECT_EQ(Page().txtDirName.Text(), u"/korva/data");
  EXPECT_EQ(Page().lbl_FrmVersion.Caption(), u"KORVA Ver12.09");
  EXPECT_EQ(Page().OptCom.Selected(), 0);
  EXPECT_FALSE(Page().DataChanged);
  EXPECT_TRUE(bench_.dialogs.Boxes().empty());
}

TEST_F(PageFrameTest, StartsWithoutAPort) {
  bench_.port.Remove(1);
  bench_.Start();
  EXPECT_EQ(Page().DefFile, u"QHW.def");
  EXPECT_TRUE(bench_.dialogs.Boxes().empty());
  EXPECT_FALSE(bench_.status);
}

TEST_F(PageFrameTest, EndsWithABoxThatNamesTheCatalogueWhenItIsMissing) {
  bench_.files.Remove(kCatalogue);
  bench_.Start();
  EXPECT_EQ(bench_.status, 1);
  ASSERT_EQ(bench_.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench_.dialogs.Failures()[0].find(kCatalogue), String::npos);
}

TEST_F(PageFrameTest, EndsWithABoxThatNamesTheDefinitionWhenItIsMissing) {
  bench_.files.Remove(test::DefPath(u"QHW"));
  bench_.Start();
  EXPECT_EQ(bench_.status, 1);
  ASSERT_EQ(bench_.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench_.dialogs.Failures()[0].find(test::DefPath(u"QHW")), String::npos);
}

TEST_F(PageFrameTest, ReadsACatalogueOf69RowsWithoutAnEnd) {
  String rows;
  for (int row = 0; row < 68; ++row) {
    rows += u"QHW, QHW.def, First\n";
  }
  bench_.PutText(kCatalogue, u"$Type\n" + rows + u"QL, QL.def, First\n");
  bench_.Start();
  ClickRow(68);
  EXPECT_EQ(Page().DefFile, u"QL.def");
}

// Choice of a model.

TEST_F(PageFrameTest, FindsTheFirstRowOfANameThatStandsTwice) {
  bench_.PutText(kCatalogue,
                 u"$Type\nQHW, QHW.def, First\nTWICE, QL.def, First\nTWICE, QC.def, First\n$End\n");
  bench_.Start();
  ClickRow(2);
  EXPECT_EQ(Page().DefFile, u"QL.def");
}

TEST_F(PageFrameTest, HasNoEffectOfARowWithoutAFamilyWord) {
  bench_.PutText(kCatalogue, u"$Type\nQHW, QHW.def, First\nA, B\nC, QC.def, Unknown\n$End\n");
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  for (const int row : {1, 2, 40}) {
    ClickRow(row);
    EXPECT_EQ(Page().DefFile, u"QHW.def") << row;
    EXPECT_EQ(bench_.Field(u"02").Text(), u"KEPT") << row;
    EXPECT_TRUE(Page().DataChanged) << row;
    EXPECT_TRUE(bench_.dialogs.Boxes().empty()) << row;
  }
}

TEST_F(PageFrameTest, ShowsAndHidesNothingForAModelOfThePresentFamily) {
  bench_.Start();
  int shown = 0;
  bench_.app.program.OnPageShown([&](korva::Page&) { ++shown; });
  const korva::Page* before = bench_.app.program.Showing();
  bench_.Choose(u"QZ");
  EXPECT_EQ(shown, 0);
  EXPECT_EQ(bench_.app.program.Showing(), before);
  EXPECT_EQ(Page().DefFile, u"QZ.def");
}

TEST_F(PageFrameTest, AsksFirstWhenTheCurrentModelIsClickedWithUnsavedData) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bool asked = false;
  bench_.dialogs.OnBox([&](const Box& box) {
    asked = true;
    EXPECT_EQ(box.text, u"データは変更されています。保存しますか。");
    EXPECT_EQ(box.buttons, (std::vector{Answer::Yes, Answer::No, Answer::Cancel}));
    EXPECT_EQ(bench_.Field(u"02").Text(), u"KEPT");
  });
  bench_.dialogs.QueueAnswer(Answer::Cancel);
  ClickRow(0);
  EXPECT_TRUE(asked);
  EXPECT_EQ(Page().Item(2), u"KEPT");
  EXPECT_TRUE(Page().DataChanged);
}

TEST_F(PageFrameTest, SavesOnYesAndThenTakesTheNewModel) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.dialogs.QueueAnswer(Answer::Yes);
  bench_.dialogs.QueueFile(kFile);
  bench_.Choose(u"QL");
  EXPECT_NE(bench_.TextOf(kFile).find(u"\"QHW.def\"\r\n"), String::npos);
  EXPECT_NE(bench_.TextOf(kFile).find(u"\"1\",\"2\",\"KEPT\"\r\n"), String::npos);
  EXPECT_EQ(Page().DefFile, u"QL.def");
  EXPECT_FALSE(Page().DataChanged);
}

TEST_F(PageFrameTest, KeepsTheModelWhenTheSaveIsCancelledOrFails) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  for (const bool fails : {false, true}) {
    bench_.files.FailWrites(fails ? test::MemoryFiles::Fault::DiskFull : test::MemoryFiles::Fault::None);
    bench_.dialogs.QueueAnswer(Answer::Yes);
    bench_.dialogs.QueueFile(fails ? std::optional<String>(kFile) : std::nullopt);
    bench_.Choose(u"QL");
    EXPECT_EQ(Page().DefFile, u"QHW.def");
    EXPECT_EQ(List().Text(), u"QHW");
    EXPECT_EQ(Page().Item(2), u"KEPT");
    EXPECT_TRUE(Page().DataChanged);
  }
  EXPECT_EQ(bench_.TakeBoxes().back(), "ﾌｧｲﾙに保存: ﾃﾞｨｽｸの空き容量が足りません。");
}

TEST_F(PageFrameTest, DropsTheChangesOnNo) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.dialogs.QueueAnswer(Answer::No);
  bench_.Choose(u"QL");
  EXPECT_EQ(Page().DefFile, u"QL.def");
  EXPECT_EQ(Page().Item(2), u"");
  EXPECT_EQ(bench_.Field(u"02").Text(), u"");
}

TEST_F(PageFrameTest, KeepsTheItemsOfASavedSetForTheNextModel) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.Save(kFile);
  bench_.Choose(u"QL");
  EXPECT_EQ(bench_.Field(u"02").Text(), u"KEPT");
  EXPECT_FALSE(Page().DataChanged);
}

// Leaving.

TEST_F(PageFrameTest, StaysWhenTheQuestionOnClosingIsCancelled) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.dialogs.QueueAnswer(Answer::Cancel);
  bench_.app.program.PressClose();
  EXPECT_FALSE(bench_.status);
  EXPECT_EQ(bench_.Field(u"02").Text(), u"KEPT");
  EXPECT_TRUE(Page().DataChanged);
}

TEST_F(PageFrameTest, CanUseItsDeviceAgainAfterACancelledClose) {
  bench_.Connect(u"QHW");
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.dialogs.QueueAnswer(Answer::Cancel);
  bench_.app.program.PressClose();
  // Closing has let the port go; choosing it again opens it.
  bench_.Press(Page().OptCom, 0);
  bench_.dialogs.QueueAnswer(Answer::No);
  bench_.Upload();
  EXPECT_EQ(bench_.TakeBoxes().back(), test::Shown(BoxKey::UploadDone));
}

TEST_F(PageFrameTest, SavesOnYesAndEnds) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.dialogs.QueueAnswer(Answer::Yes);
  bench_.dialogs.QueueFile(kFile);
  bench_.app.program.PressClose();
  EXPECT_EQ(bench_.status, 0);
  EXPECT_NE(bench_.TextOf(kFile).find(u"KEPT"), String::npos);
}

TEST_F(PageFrameTest, LeavesByItsExitButtonWithTheSameQuestion) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.Click(Page().cmdExit);  // cancelled
  EXPECT_FALSE(bench_.status);
  bench_.dialogs.QueueAnswer(Answer::No);
  bench_.Click(Page().cmdExit);
  EXPECT_EQ(bench_.status, 0);
  EXPECT_FALSE(bench_.port.IsOpen());
}

TEST_F(PageFrameTest, ShowsTheSameFrameWhenClosedTwiceDuringADownloadAndEndsWithIt) {
  bench_.Connect(u"QHW");
  bench_.Choose(u"QHW");
  bench_.Upload();
  std::vector<bool> shown;
  int changes = 0;
  for (const int second : {2, 4}) {
    bench_.loop.After(std::chrono::seconds(second), [&, second] {
      if (second == 4) {
        for (Control* control : Page().Controls()) {
          control->Observe([&] { ++changes; });
        }
      }
      bench_.app.program.PressClose();
      shown.push_back(Page().flaMsg_CannotEnd.Visible());
      EXPECT_EQ(changes, 0);
      EXPECT_EQ(Page().lblMsg_CannotEnd.Caption(), CannotEndText());
    });
  }
  bench_.dialogs.OnBox([&](const Box& box) {
    if (box.text == u"ﾀﾞｳﾝﾛｰﾄﾞ完了。") {
      EXPECT_EQ(shown, (std::vector{true, true}));
    }
  });
  bench_.Download();
  EXPECT_EQ(bench_.TakeBoxes().back(), test::Shown(BoxKey::DownloadDone));
  EXPECT_EQ(shown, (std::vector{true, true}));
  EXPECT_EQ(bench_.status, 0);
}

TEST_F(PageFrameTest, EndsWithinOneExchangeWhenClosedDuringAnUpload) {
  bench_.Connect(u"QHW");
  bench_.Choose(u"QHW");
  Clock closed{0};
  bench_.loop.After(std::chrono::seconds(2), [&] {
    bench_.app.program.PressClose();
    closed = bench_.loop.Now();
    EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
  });
  bench_.Upload();
  EXPECT_EQ(bench_.status, 0);
  // A reply of 17 characters at 1200 baud takes 142 ms, a command before it 34 ms.
  EXPECT_LT(bench_.loop.Now() - closed, Milliseconds(250));
}

// Failures.

TEST_F(PageFrameTest, WritesUnsavedValuesToARescueFileWhenSomethingEndsTheProgram) {
  bench_.Start();
  bench_.Type(u"02", u"KEPT");
  bench_.Type(Page().txtMemo, u"memo");
  bench_.Do([] { throw RuntimeFailure(u"item 500"); });
  EXPECT_EQ(bench_.status, 1);
  ASSERT_EQ(bench_.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench_.dialogs.Failures()[0].find(u"item 500"), String::npos);
  EXPECT_NE(bench_.dialogs.Failures()[0].find(u"/korva/data/rescue.cfg"), String::npos);

  test::PageBench next;
  next.files.Put(kFile, bench_.files.Bytes(u"/korva/data/rescue.cfg").value());
  next.Open(kFile);
  EXPECT_EQ(next.Page().DefFile, u"QHW.def");
  EXPECT_EQ(next.Field(u"02").Text(), u"KEPT");
  EXPECT_EQ(next.Page().txtMemo.Text(), u"memo");
}

TEST_F(PageFrameTest, WritesNoRescueFileWithoutUnsavedValues) {
  bench_.Start();
  bench_.Do([] { throw RuntimeFailure(u"item 500"); });
  EXPECT_EQ(bench_.status, 1);
  EXPECT_FALSE(bench_.files.Bytes(u"/korva/data/rescue.cfg"));
}

// Captions.

struct KnownCaption {
  std::string control;
  String japanese;
  String english;
};

const std::vector<KnownCaption> kCaptions = {
    {"lbl_TypeSelect", u"機種名", u"Model"},
    {"lblAuthor", u"作者名", u"Author"},
    {"lblDirName", u"ﾃﾞｨﾚｸﾄﾘ名", u"Directory"},
    {"lblFileTitle", u"ファイル名", u"File name"},
    {"lblMemo", u"メモ", u"Notes"},
    {"cmdUpload", u"アップロード", u"UPLOAD"},
    {"cmdDownload", u"ダウンロード", u"DOWNLOAD"},
    {"cmdOpen", u"ファイルを開く", u"OPEN"},
    {"cmdSave", u"ファイルに保存", u"SAVE"},
    {"cmdCheck", u"設定値ﾁｪｯｸ", u"CHECK"},
    {"cmdNew", u"新規作成", u"NEW"},
    {"cmdExit", u"終了", u"EXIT"},
    {"lblLnrRow", u"行", u"Row"},
    {"lblLnrCol", u"列", u"Column"},
    {"lblLnrNewValue", u"変更内容", u"Content"},
    {"cmd_csvFileOpen", u"csvﾌｧｲﾙを開く", u"Open *.csv"},
    {"cmdLnrChangeOK", u"変更する", u"Modify"},
    {"cmdLnrChangeCancel", u"中止", u"Cancel"},
    {"fraLnrChange", u"値の変更", u"Modification of value"},
    {"IO_lblSet", u"設定", u"Setting"},
    {"IO_lblShow", u"表示", u"Monitor"},
    {"fraMonitoring", u"表示", u"Monitoring"},
    {"lbl_Waitfor", u"お待ち下さい", u"Reading Data."},
    {"OptCom1", u"COM 1", u"COM 1"},
    {"OptCom2", u"COM 2", u"COM 2"},
    {"OptCom3", u"COM 3", u"COM 3"},
    {"OptCom4", u"COM 4", u"COM 4"},
    {"cmdSet", u"OUTPUT", u"OUTPUT"},
    {"cmdMonitorON", u"ON", u"ON"},
    {"cmdMonitorOFF", u"OFF", u"OFF"},
    {"lbl_FrmVersion", u"KORVA Ver12.09", u"KORVA Ver12.09"},
};

TEST_F(PageFrameTest, HasItsCaptionsInBothSetsWithJapaneseSelected) {
  bench_.Start();
  for (const Language language : {Language::Japanese, Language::English}) {
    const bool japanese = language == Language::Japanese;
    if (!japanese) {
      Page().SetCaptions(language);
    }
    for (const KnownCaption& known : kCaptions) {
      const Control* control = Page().FindControl(known.control);
      ASSERT_NE(control, nullptr) << known.control;
      EXPECT_EQ(ToUtf8(control->ShownText()), ToUtf8(japanese ? known.japanese : known.english))
          << known.control;
    }
  }
}

TEST_F(PageFrameTest, HasItsTabsCaptionsInBothSets) {
  const std::vector<String> japanese = {u"ﾌｧｲﾙ", u"入力", u"出力", u"ﾘﾆｱﾗｲｻﾞ", u"ﾌｨﾙﾀ", u"ﾎﾟｰﾄ", u"I/O ﾁｪｯｸ"};
  const std::vector<String> english = {u"File",   u"Input", u"Output",   u"Linearizer",
                                       u"Filter", u"Port",  u"I/O check"};
  const auto captions = [&] {
    std::vector<String> found(static_cast<std::size_t>(Page().Tabs.Count()));
    for (std::size_t tab = 0; tab < found.size(); ++tab) {
      found[tab] = Page().Tabs.TabCaption(static_cast<int>(tab));
    }
    return found;
  };
  EXPECT_EQ(captions(), japanese);
  Page().SetCaptions(Language::English);
  EXPECT_EQ(captions(), english);
}

TEST_F(PageFrameTest, HasACaptionInBothSetsForEachHeadingOfItsTabs) {
  for (const DesignTab& tab : Page().ItsDesign().tabs) {
    EXPECT_FALSE(tab.groups.empty());
    for (const DesignGroup& group : tab.groups) {
      EXPECT_FALSE(CaptionText(group.heading, Language::Japanese).empty());
      EXPECT_FALSE(CaptionText(group.heading, Language::English).empty());
    }
  }
}

}  // namespace
}  // namespace korva
