// Configurations, definitions and catalogues that nobody should have written, on the page that opens them.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "page_bench.h"

namespace korva {
namespace {

using namespace std::string_literals;

using test::kFile;
constexpr std::size_t kMegabyte = 1024UL * 1024UL;

class HostileConfigurationTest : public testing::Test {
 protected:
  /// Opens a file of these bytes on the page of QL.
  void Open(const std::string& bytes) {
    bench_.Choose(u"QL");
    bench_.files.Put(kFile, bytes);
    bench_.Open(kFile);
  }
  void ExpectFailureNaming(StringView text) {
    EXPECT_EQ(bench_.status, 1);
    ASSERT_EQ(bench_.dialogs.Failures().size(), 1U);
    EXPECT_NE(bench_.dialogs.Failures()[0].find(text), String::npos) << ToUtf8(bench_.dialogs.Failures()[0]);
  }
  String Item(int item) { return bench_.Page().Item(item); }

  test::PageBench bench_;
  const std::string format_fault_ = test::Shown(BoxKey::CfgFormat);
  const std::string data_fault_ = test::Shown(BoxKey::CfgDataFormat);
};

TEST_F(HostileConfigurationTest, AFileWithoutAKeyLineIsReportedAndThePageStaysUsable) {
  Open("no key\r\nat all\r\n");
  EXPECT_EQ(bench_.TakeBoxes(), std::vector{format_fault_});
  EXPECT_EQ(bench_.Page().DefFile, u"QL.def");
  EXPECT_FALSE(bench_.status);
}

TEST_F(HostileConfigurationTest, AnEmptyFileIsReportedLikeOneWithoutAKeyLine) {
  Open("");
  EXPECT_EQ(bench_.TakeBoxes(), std::vector{format_fault_});
  EXPECT_FALSE(bench_.status);
}

TEST_F(HostileConfigurationTest, AGroupAboveTheSetEndsTheProgramAndNamesFileAndGroup) {
  Open("$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"9\",\"1\",\"x\"\r\n$End\r\n");
  ExpectFailureNaming(u"Group 9");
  ExpectFailureNaming(kFile);
}

TEST_F(HostileConfigurationTest, AnItemAboveTheSetEndsTheProgramAndNamesFileAndItem) {
  Open("$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"1\",\"500\",\"x\"\r\n$End\r\n");
  ExpectFailureNaming(u"Item 500");
  ExpectFailureNaming(kFile);
}

TEST_F(HostileConfigurationTest, NegativeAndHugeNumbersAreOutsideTheSetToo) {
  for (const std::string place : {R"("-1","1")", R"("1","-1")", R"("1","1e99")", R"("99999999999","1")"}) {
    test::PageBench bench;
    bench.files.Put(kFile, "$Data\r\n" + place + ",\"x\"\r\n$End\r\n");
    bench.Open(kFile);
    EXPECT_EQ(bench.status, 1) << place;
  }
}

TEST_F(HostileConfigurationTest, ALineOfNearlyAMegabyteIsTakenAsItIs) {
  const std::string value(kMegabyte - 100, 'x');
  Open("$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"1\",\"2\",\"" + value + "\"\r\n$End\r\n");
  EXPECT_TRUE(bench_.TakeBoxes().empty());
  EXPECT_EQ(Item(2).size(), value.size());
  EXPECT_FALSE(bench_.status);
}

TEST_F(HostileConfigurationTest, NulBytesStayInTheirValue) {
  Open("$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"1\",\"2\",\"A\0B\"\r\n$End\r\n"s);
  EXPECT_EQ(Item(2), u"A\0B"s);
  EXPECT_FALSE(bench_.status);
}

TEST_F(HostileConfigurationTest, ATextOfAnotherCodePageIsShownButNotSavedAsSomethingElse) {
  Open("$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"1\",\"2\",\"\xFF\xFE\xFD\"\r\n$End\r\n");
  EXPECT_FALSE(bench_.status);
  EXPECT_FALSE(Item(2).empty());
  bench_.TakeBoxes();
  bench_.Save(u"/korva/data/second.cfg");
  EXPECT_NE(bench_.TakeBoxes(), std::vector{test::Shown(BoxKey::FileSaved)});
  EXPECT_FALSE(bench_.files.Bytes(u"/korva/data/second.cfg"));
}

TEST_F(HostileConfigurationTest, AFileWithoutAFinalLineEndReadsClean) {
  Open(
      "$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"1\",\"2\",\"TAG\"\r\n$Memo\r\n\"0\",\"a\"\r\n\"1\",\"m\"\r\n$"
      "End");
  EXPECT_TRUE(bench_.TakeBoxes().empty());
  EXPECT_EQ(Item(2), u"TAG");
  EXPECT_EQ(bench_.Page().txtMemo.Text(), u"m");
}

TEST_F(HostileConfigurationTest, AnUnknownKeyIsReportedAndWhatWasReadIsShown) {
  Open("$DefFile\r\n\"QZ.def\"\r\n$Data\r\n\"1\",\"2\",\"TAG\"\r\n$Table\r\n\"5\",\"0\",\"1\"\r\n$End\r\n");
  EXPECT_EQ(bench_.TakeBoxes(), std::vector{format_fault_});
  EXPECT_EQ(bench_.Page().DefFile, u"QZ.def");
  EXPECT_EQ(bench_.Field(u"02").Text(), u"TAG");
}

TEST_F(HostileConfigurationTest, AValueWithACommaIsCutAndReportedTwice) {
  Open("$DefFile\r\n\"QL.def\"\r\n$Data\r\n\"1\",\"2\",\"a,b\"\r\n\"1\",\"14\",\"5\"\r\n$End\r\n");
  EXPECT_EQ(bench_.TakeBoxes(), (std::vector{data_fault_, format_fault_}));
  EXPECT_EQ(bench_.Field(u"02").Text(), u"a");
  EXPECT_EQ(Item(14), u"");
}

TEST_F(HostileConfigurationTest, AnUnknownModelShowsTheCataloguesFirstModelWithoutAMessage) {
  Open("$DefFile\r\n\"NONE.def\"\r\n$Data\r\n\"1\",\"2\",\"TAG\"\r\n$End\r\n");
  EXPECT_TRUE(bench_.TakeBoxes().empty());
  EXPECT_EQ(bench_.Page().DefFile, u"QHW.def");
  EXPECT_EQ(bench_.Page().lst_TypeSelect.ListIndex(), 0);
  EXPECT_EQ(Item(2), u"");
}

TEST_F(HostileConfigurationTest, DataAloneGoesIntoThePresentModel) {
  Open("$Data\r\n\"1\",\"2\",\"TAG\"\r\n\"3\",\"99\",\"kept\"\r\n");
  EXPECT_TRUE(bench_.TakeBoxes().empty());
  EXPECT_EQ(bench_.Page().DefFile, u"QL.def");
  EXPECT_EQ(bench_.Field(u"02").Text(), u"TAG");
  EXPECT_EQ(bench_.Page().GroupItem.At(3, 99), u"kept");
}

TEST_F(HostileConfigurationTest, AFileThatIsGoneIsReportedAndChangesNothing) {
  bench_.Choose(u"QL");
  bench_.Open(u"/korva/data/gone.cfg");
  EXPECT_EQ(bench_.TakeBoxes(), std::vector{test::Shown(BoxKey::FileNotFound)});
  EXPECT_EQ(bench_.Page().DefFile, u"QL.def");
}

/// Uploads a set, has one of its values replaced in its file, and opens that.
void OpenWithValueReplaced(test::PageBench& bench, const String& model, StringView value, StringView by) {
  bench.Connect(model);
  bench.Choose(model);
  bench.Upload();
  bench.Save(kFile);
  String text = bench.TextOf(kFile);
  const std::size_t at = text.find(value);
  ASSERT_NE(at, String::npos);
  text.replace(at, value.size(), by);
  bench.files.Put(kFile, bench.code_page.Encode(text).value());
  bench.Open(kFile);
  bench.TakeBoxes();
}

TEST_F(HostileConfigurationTest, AChoiceThatItsBoxDoesNotListIsShownAndIsABadValueToACheckAndADownload) {
  OpenWithValueReplaced(bench_, u"QL", u"\"0-100 mV\"", u"\"0-99 mV\"");
  EXPECT_EQ(bench_.Page().Combo[1].Text(), u"0-99 mV");
  bench_.Check();
  EXPECT_EQ(bench_.TakeBoxes(), std::vector{test::Shown(BoxKey::ValueBad)});
  bench_.Download();
  EXPECT_EQ(bench_.TakeBoxes().back(), test::Shown(BoxKey::ValueBad));
  EXPECT_EQ(bench_.Page().Combo[1].ShownLook(), Look::Bad);
  EXPECT_FALSE(bench_.status);
}

TEST_F(HostileConfigurationTest, AnOptionThatHasNoCodeEndsADownloadWithItsTextAndTheEditsAreKept) {
  OpenWithValueReplaced(bench_, u"QZ", u"\"deg C\"", u"\"deg X\"");
  EXPECT_EQ(bench_.Page().optTempUnit.Selected(), -1);
  bench_.Type(u"02", u"EDITED");
  bench_.Download();
  ExpectFailureNaming(u"deg X");
  ExpectFailureNaming(u"/korva/data/rescue.cfg");
  EXPECT_NE(bench_.TextOf(u"/korva/data/rescue.cfg").find(u"EDITED"), String::npos);
}

// Definitions.

struct HostileDefinition {
  std::string name;
  std::string bytes;
  std::string box;  ///< shown; empty: the program ends
};

void PrintTo(const HostileDefinition& hostile, std::ostream* out) { *out << hostile.name; }

class HostileDefinitionTest : public testing::TestWithParam<HostileDefinition> {};

TEST_P(HostileDefinitionTest, IsReportedOrEndsTheProgramWithItsName) {
  const HostileDefinition& hostile = GetParam();
  test::PageBench bench;
  bench.files.Put(test::DefPath(u"QL"), hostile.bytes);
  bench.Start();
  bench.Choose(u"QL");
  if (!hostile.box.empty()) {
    EXPECT_EQ(bench.TakeBoxes(), std::vector{hostile.box});
    EXPECT_FALSE(bench.status);
    bench.Choose(u"QC");  // the page goes on
    EXPECT_TRUE(bench.Field(u"14").Visible());
    return;
  }
  EXPECT_EQ(bench.status, 1);
  ASSERT_EQ(bench.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench.dialogs.Failures()[0].find(u"QL.def"), String::npos) << ToUtf8(bench.dialogs.Failures()[0]);
}

const std::string kTagRow = "01,02,17,Item 02,Y,Y,17,Tag,Tag,0,,,,,,,,,,,Y,,TG:,0\r\n";

std::string Rows(int count) {
  std::string rows;
  for (int row = 0; row < count; ++row) {
    rows += row == 0 ? kTagRow : "\r\n";
  }
  return rows;
}

INSTANTIATE_TEST_SUITE_P(
    Definitions, HostileDefinitionTest,
    testing::Values(HostileDefinition{"Empty", "", ""},
                    HostileDefinition{"NoKeyLine", "text\r\nonly\r\n", ""},
                    HostileDefinition{"CutOffInATable", "$Data\r\n" + kTagRow, ""},
                    HostileDefinition{"OneRowTooMany", "$Data\r\n" + Rows(32) + kTagRow + "$End\r\n",
                                      test::Shown(BoxKey::DefFormat)},
                    HostileDefinition{"UnknownKey", "$Data\r\n" + kTagRow + "$I99\r\n$End\r\n",
                                      test::Shown(BoxKey::DefFormat)},
                    HostileDefinition{"IndexOfNoNumber", "$Data\r\n01,02,,,Y,Y,,,,99999999999999\r\n$End\r\n",
                                      ""},
                    HostileDefinition{"NulBytes", "\0$Data\0\r\n"s + kTagRow, ""}),
    [](const testing::TestParamInfo<HostileDefinition>& parameter) { return parameter.param.name; });

TEST(HostileDefinitionFile, WithALineOfAMegabyteIsRead) {
  test::PageBench bench;
  bench.files.Put(test::DefPath(u"QL"), "$Data\r\n01,02,17," + std::string(kMegabyte, 'x') +
                                            ",Y,Y,17,Tag,Tag,0,,,,,,,,,,,Y,,TG:,0\r\n$End\r\n");
  bench.Choose(u"QL");
  EXPECT_FALSE(bench.status);
  EXPECT_EQ(bench.Page().lbl_Item[17].Caption().size(), kMegabyte);
}

TEST(HostileDefinitionFile, MayNameAFrameThatThePageLacksOnARowThatItLeavesOut) {
  test::PageBench bench;
  bench.files.Put(test::DefPath(u"QL"), "$Data\r\n01,21,,,Y,,,,,,,$I21,99\r\n" + kTagRow + "$End\r\n");
  bench.Choose(u"QL");
  EXPECT_FALSE(bench.status);
  EXPECT_TRUE(bench.Field(u"02").Visible());
}

TEST(HostileDefinitionFile, WithoutAFinalLineEndIsRead) {
  test::PageBench bench;
  bench.files.Put(test::DefPath(u"QL"), "$Data\r\n" + kTagRow + "$SSTab\r\nTrue,True");
  bench.Choose(u"QL");
  EXPECT_FALSE(bench.status);
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_TRUE(bench.Field(u"02").Visible());
}

}  // namespace
}  // namespace korva
