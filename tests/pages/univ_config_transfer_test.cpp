// Upload and download of family QXI, against its device.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "support/tabs.h"
#include "univ_config_bench.h"

namespace korva {
namespace {

using test::Shown;
using test::UnivBench;
using Texts = std::vector<std::string>;

const Texts kUploadQuestions = {Shown(BoxKey::ModelMatches), Shown(BoxKey::StartUpload)};

Texts Behind(Texts boxes, std::initializer_list<BoxKey> keys) {
  for (const BoxKey key : keys) {
    boxes.push_back(Shown(key));
  }
  return boxes;
}

/// Presses cmdUpload, answers its questions and `answers`, and tells its boxes.
Texts BoxesOfUpload(UnivBench& bench, const std::vector<Answer>& answers = {}) {
  bench.TakeBoxes();
  bench.line.accesses.clear();
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.dialogs.QueueAnswer(Answer::Ok);
  for (const Answer answer : answers) {
    bench.dialogs.QueueAnswer(answer);
  }
  bench.Page().DataChanged = false;
  bench.Click(bench.Page().cmdUpload);
  return bench.TakeBoxes();
}

int Count(const Texts& accesses, const std::string& access) {
  return static_cast<int>(std::count(accesses.begin(), accesses.end(), access));
}

// --- upload

TEST(UnivUpload, ReadsRowByRowAndTheBarRisesFromTwentyToNinety) {
  UnivBench bench;
  std::vector<float> bar;
  Texts items;
  bench.line.on_access = [&](const std::string& access) {
    items.push_back(access);
    bar.push_back(bench.Page().TransferBar.Value());
  };
  EXPECT_EQ(BoxesOfUpload(bench), Behind(kUploadQuestions, {BoxKey::UploadDone}));
  // link test, monitor mode, then the rows
  const Texts expected = {"00/99", "01/01", "01/01 D0", "01/02", "01/10", "01/11", "01/21", "01/14", "01/15",
                          "01/12", "01/13", "01/23",    "01/24", "01/31", "01/19", "01/20", "01/25", "01/38",
                          "01/26", "01/27", "01/80",    "01/81", "01/84", "01/28", "01/39", "01/29", "01/30",
                          "01/82", "01/83", "01/85",    "01/34", "01/35", "00/99"};
  EXPECT_EQ(items, expected);
  ASSERT_EQ(bar.size(), expected.size());
  // item 02 is row 0, 10 is row 7, and 35 row 34: when the next one is asked for, that is behind it
  EXPECT_FLOAT_EQ(bar[4], 20.0F);
  EXPECT_FLOAT_EQ(bar[5], 20.0F + 7.0F / 36 * 70);
  EXPECT_FLOAT_EQ(bar[32], 20.0F + 34.0F / 36 * 70);
}

TEST(UnivUpload, ShowsWhatTheDeviceHolds) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "24", "DOWNSCALE"));
  ASSERT_TRUE(bench.device.Set("01", "31", "REVERSE"));
  bench.Read(u"RB-1:Pt100");
  EXPECT_EQ(bench.Input().Text(), u"RB-1:Pt100");
  EXPECT_EQ(bench.Page().Item(24), u"2") << "the code stands in place of the text";
  EXPECT_EQ(bench.Univ().optBurn.Selected(), 2);
  EXPECT_EQ(bench.Univ().optDirect.Selected(), 1);
  EXPECT_EQ(bench.Page().Item(23), u"NEEDLESS");
  EXPECT_EQ(bench.Field(u"34").Text(), u"-999.9");
}

TEST(UnivUpload, AsksForTheTableOfEachKindButNone) {
  struct Kind {
    String input;
    bool asked;
  };
  for (const Kind& one : std::vector<Kind>{{u"Tc-2:K(CA)", false},
                                           {u"POT:RATIO", true},
                                           {u"mV-1:1-5 V", true},
                                           {u"Tc-99:USER", true},
                                           {u"RB-98:USER", true},
                                           {u"RB-97:USER 2W", true}}) {
    SCOPED_TRACE(ToUtf8(one.input));
    UnivBench bench;
    ASSERT_TRUE(bench.device.Set("01", "10", ToUtf8(one.input)));
    const Texts boxes = BoxesOfUpload(bench);
    EXPECT_EQ(boxes, one.asked ? Behind(kUploadQuestions, {BoxKey::UploadLinearizer, BoxKey::UploadDone})
                               : Behind(kUploadQuestions, {BoxKey::UploadDone}));
    EXPECT_EQ(Count(bench.line.accesses, "G02"), 0);
  }
}

TEST(UnivUpload, OnYesReadsTheHundredPointsOfGroupsTwoAndThree) {
  UnivBench bench;
  ASSERT_TRUE(bench.device.Set("01", "10", "Tc-99:USER"));
  ASSERT_TRUE(bench.device.Set("02", "01", "-69000"));
  ASSERT_TRUE(bench.device.Set("03", "98", "2500"));
  EXPECT_EQ(BoxesOfUpload(bench, {Answer::Yes}),
            Behind(kUploadQuestions, {BoxKey::UploadLinearizer, BoxKey::UploadDone}));
  EXPECT_EQ(Count(bench.line.accesses, "G02"), 100);
  EXPECT_EQ(Count(bench.line.accesses, "G03"), 100);
  const Grid& grid = bench.Univ().linearizer.LnrFlexGrid;
  EXPECT_EQ(grid.At(1, 2).text, u"-69000.00");
  EXPECT_EQ(grid.At(100, 1).text, u"2500.00");
  EXPECT_EQ(grid.At(0, 2).text, u"  Y(k)    uV");
  EXPECT_EQ(bench.Page().GroupItem.At(3, 98), u"2500.00");
  EXPECT_TRUE(test::TabOpen(bench.Page(), TextKey::Linearizer));
  EXPECT_TRUE(bench.Univ().rules.lbl_Tc99User.Visible());
}

TEST(UnivUpload, OnNoTheTableStaysAsItStands) {
  UnivBench bench;
  bench.PickInput(u"POT:RATIO");
  bench.Do([&] { bench.Univ().linearizer.Table().Store(2, 1, u"12.5"); });
  ASSERT_TRUE(bench.device.Set("01", "10", "POT:RATIO"));
  BoxesOfUpload(bench, {Answer::No});
  EXPECT_EQ(bench.Page().GroupItem.At(2, 2), u"12.5");
  EXPECT_EQ(bench.Univ().linearizer.LnrFlexGrid.At(2, 1).text, u"12.5");
  EXPECT_FALSE(test::TabOpen(bench.Page(), TextKey::Linearizer)) << "the device's switch stands at none";
}

TEST(UnivUpload, GoesOnBehindAnItemThatIsSilentOrRefused) {
  UnivBench bench;
  bench.line.replies["01/26"] = std::nullopt;
  bench.line.replies["01/29"] = "CNG";
  EXPECT_EQ(BoxesOfUpload(bench).back(), Shown(BoxKey::UploadDone));
  EXPECT_EQ(bench.Page().Item(26), u"");
  EXPECT_EQ(bench.Page().Item(29), u"ERROR");
  EXPECT_EQ(bench.Page().Item(30), u"5");
}

// --- download

TEST(UnivDownload, WritesInTheOrderOfTheRowsAndTheBarRisesFromTwentyToNinety) {
  UnivBench bench;
  bench.Fill(u"mV-Z:USER mV", u"mV-Z:USER V");
  std::vector<float> bar;
  bench.line.on_access = [&](const std::string& access) {
    if (access == "01/02" || access == "01/10" || access == "01/85") {
      bar.push_back(bench.Page().TransferBar.Value());
    }
  };
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.line.writes,
            (Texts{"01/02=          ", "01/10=11", "01/11=11", "01/14=-10000", "01/15=10000",
                   "01/12=-10",        "01/13=10", "01/23=0",  "01/31=0",      "01/19=0",
                   "01/20=100",        "01/25=0",  "01/38=0",  "01/26=50",     "01/27=5",
                   "01/80=0",          "01/81=0",  "01/84=0",  "01/28=0",      "01/39=0",
                   "01/29=20",         "01/30=5",  "01/82=0",  "01/83=0",      "01/85=0"}));
  // each item is read before it is written: the tag at position 0 with the bar at 20, the input behind
  // position 0, excitation 2, position 26, behind position 25
  ASSERT_EQ(bar.size(), 7U) << "the input is compared before";
  EXPECT_FLOAT_EQ(bar[1], 20.0F);
  EXPECT_FLOAT_EQ(bar[3], 20.0F);
  EXPECT_FLOAT_EQ(bar[5], 20.0F + 25.0F / 36 * 70);
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST(UnivDownload, AnInputTextThatBeginsMvAndIsNoUsersRangeLeavesTheRangeOut) {
  UnivBench bench;
  bench.Fill(u"mV-2:0-10 V");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_FALSE(bench.Wrote("01/14") || bench.Wrote("01/15"));
}

TEST(UnivDownload, ARefusedWriteTellsItemAndAnswerInItsOwnBoxAlone) {
  struct Refusal {
    std::string access;
    std::string answer;
    std::string text;
  };
  for (const Refusal& one :
       std::vector<Refusal>{{"01/19 D0", "CNG", "Group=01 Item=19で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : NG"},
                            {"01/25 D0", "CNU", "Group=01 Item=25で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : NU"},
                            {"01/14 D-270", "CNG", "Group=01 Item=14で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : NG"},
                            {"01/02 D          ", "CNU", "Group=01 Item=02で ﾀﾞｳﾝﾛｰﾄﾞｴﾗｰ : NU"}}) {
    SCOPED_TRACE(one.access);
    UnivBench bench;
    bench.Fill(u"Tc-2:K(CA)");
    bench.line.replies[one.access] = one.answer;
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{"ﾀﾞｳﾝﾛｰﾄﾞ: " + one.text});
    EXPECT_EQ(bench.line.writes.back(), one.access.substr(0, 5) + "=" + one.access.substr(7));
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_FALSE(bench.app.program.Shared().CommBusy);
    EXPECT_EQ(bench.Page().TransferBar.Value(), 0.0F);
  }
}

TEST(UnivDownload, AWriteWithoutAnAnswerTellsItsItem) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.line.replies["01/19 D0"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{"ﾀﾞｳﾝﾛｰﾄﾞ: Group=01, Item=19で ﾃﾞｰﾀ書き込みｴﾗｰ"});
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST(UnivDownload, AnItemThatCantBeReadIsAFailedWriteAndNoRefusalOfAnEarlierOne) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.app.program.Shared().LastItemReply = u"CNG";
  bench.line.replies["01/19"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{"ﾀﾞｳﾝﾛｰﾄﾞ: Group=01, Item=19で ﾃﾞｰﾀ書き込みｴﾗｰ"});
  EXPECT_FALSE(bench.Wrote("01/19"));
}

TEST(UnivDownload, ADifferentAnswerTellsItsItem) {
  for (const char* access : {"01/10 D1", "01/24 D1", "01/02 D          "}) {
    UnivBench bench;
    bench.Fill(u"Tc-2:K(CA)");
    bench.line.replies[access] = "DOTHER";
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{"ﾀﾞｳﾝﾛｰﾄﾞ: Group=01 Item=" + std::string(access).substr(3, 2) +
                                             "で ﾀﾞｳﾝﾛｰﾄﾞﾃﾞｰﾀ照合ｴﾗｰ"});
  }
}

TEST(UnivDownload, AnOptionIsProvedByItsCodeOrItsText) {
  for (const char* echo : {"D1", "DUPSCALE"}) {
    UnivBench bench;
    bench.Fill(u"Tc-2:K(CA)");
    bench.line.replies["01/24 D1"] = echo;
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << echo;
  }
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.line.replies["01/24 D1"] = "DDOWNSCALE";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ItemDownloadMismatch, {u"Group=01 Item=24"})});
}

TEST(UnivDownload, AnOptionThatThePageLeavesOutIsReadAndWrittenAllTheSame) {
  UnivBench bench;
  String text = bench.TextOf(test::DefPath(u"QXI"));
  const String row = u"01, 24,     32, Item 24,     Y, Y,";
  const std::size_t at = text.find(row);
  ASSERT_NE(at, String::npos);
  text.replace(at, row.size(), u"01, 24,     32, Item 24,     Y,  ,");
  bench.files.Put(test::DefPath(u"QXI"), bench.code_page.Encode(text).value());
  bench.Choose(u"QXI2");
  ASSERT_TRUE(bench.device.Set("01", "24", "DOWNSCALE"));
  bench.Read(u"Tc-2:K(CA)");
  EXPECT_EQ(bench.Page().Item(24), u"2");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.device.Value("01", "24"), "DOWNSCALE");
  EXPECT_TRUE(bench.Wrote("01/24"));
}

TEST(UnivDownload, TheInputIsProvedByItsText) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.line.replies["01/10 D1"] = "D1";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ItemDownloadMismatch, {u"Group=01 Item=10"})});
}

TEST(UnivDownload, TheLaterReadDecidesAboutTheRange) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.line.replies["01/14 D-270"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST(UnivDownload, ANeedlessCellIsSkipped) {
  UnivBench bench;
  bench.Fill(u"Tc-2:K(CA)");
  bench.Show(26, u"NEEDLESS");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_FALSE(bench.Wrote("01/26"));
}

TEST(UnivDownload, AnInputThatIsFixedInTheDeviceIsCompared) {
  UnivBench bench;
  String text = bench.TextOf(test::DefPath(u"QXI"));
  const String row = u"370, deg C, Y";
  const std::size_t at = text.find(row);
  ASSERT_NE(at, String::npos);
  text.replace(at, row.size(), u"370, deg C, N");
  bench.files.Put(test::DefPath(u"QXI"), bench.code_page.Encode(text).value());
  bench.Choose(u"QXI2");
  bench.Fill(u"Tc-2:K(CA)");
  const Texts boxes = bench.BoxesOfDownload();  // the device stands at its first input, which is fixed
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("接続された変換器のものと一致していません"), std::string::npos);
  EXPECT_TRUE(bench.line.writes.empty());
}

// --- the table of a download

struct WithTable : UnivBench {
  explicit WithTable(const String& input) {
    Fill(input);
    Do([this] {
      LnrTable& table = Univ().linearizer.Table();
      table.Store(1, 1, u"0");
      table.Store(1, 2, u"0");
      table.Store(2, 1, u"100");
      table.Store(2, 2, u"80.5");
    });
  }
};

TEST(UnivTableDownload, OfAUsersCurveIsAskedForAndWritten) {
  WithTable bench(u"Tc-99:USER");
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(bench.device.Value("02", "03"), "80.50");
  EXPECT_EQ(bench.device.Value("03", "99"), "0.00") << "an empty cell goes out as 0";
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST(UnivTableDownload, OnNoTheTableStaysInTheDevice) {
  WithTable bench(u"RB-98:USER");
  EXPECT_EQ(bench.BoxesOfDownload({Answer::No}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::DownloadDone)}));
  EXPECT_FALSE(bench.Wrote("02/00"));
}

TEST(UnivTableDownload, WithKindLTheSwitchDecides) {
  WithTable bench(u"POT:RATIO");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << "it stands at none";
  bench.Press(bench.Univ().linearizer.Opt_Lnr, 1);
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(bench.device.Value("02", "02"), "100.00");
}

TEST(UnivTableDownload, OfAnInputWithoutATableIsNone) {
  WithTable bench(u"Tc-2:K(CA)");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
}

TEST(UnivTableDownload, AValueThatCameBackAsAnotherStopsThere) {
  WithTable bench(u"Tc-99:USER");
  bench.line.replies["02/03 D80.5"] = "DY(02):   80.52";
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::LinearizerDataMismatch),
                   Shown(BoxKey::LinearizerDownloadFailed)}));
  EXPECT_FALSE(bench.Wrote("02/04"));
  EXPECT_EQ(bench.device.Mode(), '0');
}

}  // namespace
}  // namespace korva
