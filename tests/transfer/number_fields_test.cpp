// Texts of number fields that are no plain numbers: marked, told before they are sent, and told when they
// were.

#include "transfer/number_fields.h"

#include "core/text_utilities.h"
#include "download_fixture.h"

namespace korva::test {
namespace {

constexpr StringView kWouldBeSent = u"数値でないﾃﾞｰﾀは、ﾀﾞｳﾝﾛｰﾄﾞでこのまま送信されます: ";
constexpr StringView kSent = u"数値でないﾃﾞｰﾀを、このまま送信しました: ";

struct NumberFieldsTest : DownloadTest {
  [[nodiscard]] String Told(Notice notice) const { return bench.page->Notes.Told(notice); }
  [[nodiscard]] bool Marked(const String& item) const { return bench.page->FindField(item)->Marked(); }
};

TEST_F(NumberFieldsTest, APlainNumberIsNeitherMarkedNorTold) {
  for (const StringView text : {u"2.5", u"-0.5", u"+3", u".5", u"12.", u" 7 ", u"", u"   "}) {
    bench.Type(u"14", String(text));
    EXPECT_FALSE(Marked(u"14")) << ToUtf8(text);
    EXPECT_EQ(Told(Notice::NotPlain), u"") << ToUtf8(text);
  }
}

TEST_F(NumberFieldsTest, AnyOtherTextIsMarkedAndToldAsItWouldBeSentUntilItIsCorrected) {
  for (const StringView text : {u"２．５", u"1,5", u"1e2", u"12abc", u"1.5.2", u"ERROR", u"- 5"}) {
    bench.Type(u"14", String(text));
    EXPECT_TRUE(Marked(u"14")) << ToUtf8(text);
    EXPECT_EQ(Told(Notice::NotPlain), String(kWouldBeSent) + u"Item 14「" + String(text) + u"」");
  }
  bench.Type(u"14", u"  1,5 ");
  EXPECT_EQ(Told(Notice::NotPlain), String(kWouldBeSent) + u"Item 14「1,5」");
  bench.Type(u"15", u"7,5");
  EXPECT_EQ(Told(Notice::NotPlain), String(kWouldBeSent) + u"Item 14「1,5」、Item 15「7,5」");
  bench.Type(u"14", u"1.5");
  EXPECT_FALSE(Marked(u"14"));
  EXPECT_EQ(Told(Notice::NotPlain), String(kWouldBeSent) + u"Item 15「7,5」");
}

TEST_F(NumberFieldsTest, ATextThatCameFromAFileOrADeviceIsMarkedWhenThePageIsBuilt) {
  bench.page->SetItem(15, u"7,5");
  bench.page->BuildPage();
  EXPECT_TRUE(Marked(u"15"));
  bench.page->SetItem(15, u"7.5");
  bench.page->BuildPage();
  EXPECT_FALSE(Marked(u"15"));
  EXPECT_EQ(Told(Notice::NotPlain), u"");
}

TEST_F(NumberFieldsTest, TheTagAndWhatIsNotWrittenAreNotJudged) {
  bench.Type(u"02", u"1,5");
  bench.Type(u"19", u"1,5");  // has no place in the order of writing
  bench.Type(u"34", u"1,5");  // is written under no condition
  for (const char16_t* item : {u"02", u"19", u"34"}) {
    EXPECT_FALSE(Marked(item));
  }
  EXPECT_EQ(Told(Notice::NotPlain), u"");
}

TEST_F(NumberFieldsTest, ADownloadNamesWhatItHasSent) {
  bench.Type(u"14", u"2,5");
  bench.Type(u"15", u"7.5");
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_TRUE(Wrote("01/14=2,5"));
  EXPECT_EQ(Told(Notice::SentAsTyped), String(kSent) + u"Item 14「2,5」");
  bench.Type(u"14", u"2.5");
  EXPECT_EQ(Told(Notice::SentAsTyped), String(kSent) + u"Item 14「2,5」") << "the device has it still";
  bench.Download();
  EXPECT_EQ(Told(Notice::SentAsTyped), u"");
}

TEST_F(NumberFieldsTest, ADownloadThatStopsNamesWhatItHadSentAndNothingElse) {
  bench.Type(u"14", u"2,5");
  bench.Type(u"16", u"0,12");
  bench.line.echoes["01/16"] = {"CNG"};
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::DownloadDataMismatch)});
  EXPECT_EQ(Told(Notice::SentAsTyped), String(kSent) + u"Item 14「2,5」");
}

TEST_F(NumberFieldsTest, ADownloadThatIsRefusedHasSentNothing) {
  bench.Type(u"14", u"2,5");
  bench.Type(u"15", u"11");
  bench.Download();
  EXPECT_EQ(BoxesAfterStart(), Texts{Shown(BoxKey::ValueBad)});
  EXPECT_EQ(Told(Notice::SentAsTyped), u"");
}

TEST_F(NumberFieldsTest, ANewSetAndAnUploadTakeBackWhatWasToldOfTheLastDownload) {
  for (const bool upload : {false, true}) {
    Fill();
    bench.Type(u"14", u"2,5");
    bench.Download();
    EXPECT_NE(Told(Notice::SentAsTyped), u"");
    bench.page->DataChanged = false;
    bench.line.items["01/14"] = "INPZER 1.0";
    if (upload) {
      bench.Upload();
    } else {
      bench.Click(bench.page->cmdNew);
    }
    EXPECT_EQ(Told(Notice::SentAsTyped), u"");
    EXPECT_EQ(Told(Notice::NotPlain), u"");
    bench.page->DataChanged = false;
  }
}

}  // namespace
}  // namespace korva::test
