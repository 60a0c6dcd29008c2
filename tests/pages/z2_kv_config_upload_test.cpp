// Uploads of the page of family Lite: the model of the device, what an answer ends, and what becomes of
// values.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "support/tabs.h"
#include "z2_kv_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

// The model of the device.

struct ModelCase {
  String chosen;
  std::string told;  ///< by the device
  bool same;
};

TEST(Z2ModelOfDevice, GoesByFourCharactersAndByATailOnEitherSide) {
  for (const ModelCase& one : std::vector<ModelCase>{{u"Z2WT", "D Z2WT-KA-4", true},
                                                     {u"Z2WT", "D Z2WT2-KA-4", false},
                                                     {u"Z2WT2", "D Z2WT2-KA-4", true},
                                                     {u"Z2WT2", "D Z2WT-KA-4", false},
                                                     {u"Z2WT", "D Z2WR-KA-4", false},
                                                     {u"Z2WT", "D Z8WT-KA-4", false},
                                                     {u"Z2WF2", "D Z2WF2-UA-4", true},
                                                     {u"Z2WM", "D Z2WM2-XA-4", false},
                                                     {u"Z2WV2", "D Z2WV2", true},
                                                     {u"Z2WR2", "D Z2WR", false},
                                                     {u"Z2WT", "D Z2WTX", true}}) {
    SCOPED_TRACE(ToUtf8(one.chosen) + " and " + one.told);
    Z2Bench bench(one.chosen);
    bench.line.replies["00/01"] = one.told;
    EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(one.same ? BoxKey::UploadDone : BoxKey::ModelMismatch)});
    EXPECT_EQ(bench.Page().CommFailed, !one.same);
    EXPECT_EQ(bench.Page().DataChanged, one.same);
    bench.ExpectAtRest();
    // A download asks the same; one that goes on reads the input type next.
    bench.BoxesOfDownload();
    EXPECT_EQ(bench.Accesses("01/10 D").empty(), !one.same);
  }
}

TEST(Z2ModelOfDevice, IsReadRightBehindTheLinkTestWithFourTriesAndNothingIsAsked) {
  Z2Bench bench(u"Z2WT");
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(bench.line.accesses.at(0), "00/99");
  EXPECT_EQ(bench.line.accesses.at(1), "00/01");
  bench.line.replies["00/01"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(bench.Accesses("00/01"), Texts(4, "00/01"));
  EXPECT_TRUE(bench.Page().CommFailed) << "an empty answer is a failed link test";
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

TEST(Z2ModelOfDevice, AnotherOneLeavesThePageAsItIsAndGetsNoModeCommand) {
  Z2Bench bench(u"Z2WT", u"Z2WR");
  bench.Type(u"14", u"12");
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::ModelMismatch)});
  EXPECT_EQ(bench.Page().Item(14), u"12");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ModelMismatch)});
  EXPECT_EQ(bench.Accesses("01/01"), Texts()) << "the device is in its mode still";
  bench.ExpectAtRest();
}

TEST(Z2ModelOfDevice, IsNotAskedForWhileNoModelIsChosen) {
  Z2Bench bench(u"Z2WT");
  bench.Do([&] { bench.Page().lst_TypeSelect.ShowListIndex(-1); });
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::NoModelChosen)});
  EXPECT_EQ(bench.Accesses("00/01"), Texts());
}

// The items.

TEST(Z2Upload, ReadsRowsOfGroup00ByTheirTitlesAndTheOthersByTheirData) {
  Z2Bench bench(u"Z2WT");
  bench.Read();
  bench.BoxesOfUpload();
  EXPECT_EQ(bench.Accesses("00/99"), Texts(2, "00/99")) << "the link test and the row";
  EXPECT_FALSE(bench.Page().GroupItem.At(0, 99).empty());
  EXPECT_EQ(bench.Accesses("01/14 "), Texts{"01/14 D"});
}

TEST(Z2Upload, DropsTheUnitBehindAValueAndShowsTwoDecimals) {
  Z2Bench bench(u"Z2WT");
  bench.line.replies["01/14 D"] = "D 12.5 deg C";
  bench.line.replies["01/12 D"] = "D 4mA";
  bench.line.replies["01/17 D"] = "D 0.1 %";
  bench.line.replies["01/34 D"] = "D 25.00000";
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(bench.Page().Item(14), u"12.50");
  EXPECT_EQ(bench.Page().Item(12), u"4.00");
  EXPECT_EQ(bench.Page().Item(17), u"0.1");
  EXPECT_EQ(bench.Page().Item(34), u"25.00000");
}

TEST(Z2Upload, KeepsATextWithoutANumberATagAndAChoiceAsTheyAre) {
  Z2Bench bench(u"Z2WT");
  bench.line.replies["01/14 D"] = "CNU";
  bench.line.replies["01/15 D"] = "D open";
  bench.line.replies["01/02 D"] = "D 12 % A";
  bench.line.replies["01/24 D"] = "D 1 UPSCALE";
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(bench.Page().Item(14), kNeedless);
  EXPECT_TRUE(bench.Field(u"14").Locked());
  EXPECT_EQ(bench.Page().Item(15), u"open");
  EXPECT_EQ(bench.Page().Item(2), u"12 % A");
  EXPECT_EQ(bench.Page().Item(24), u"1 UPSCALE");
}

TEST(Z2Upload, ADeviceWithoutATagHasAnEmptyOne) {
  Z2Bench bench(u"Z2WT");
  bench.line.replies["01/02 D"] = "D          ";
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(bench.Page().Item(2), u"");
}

// What ends it.

struct Ending {
  std::optional<std::string> reply;
  BoxKey box;
};

class Z2UploadEnd : public testing::TestWithParam<Ending> {};

TEST_P(Z2UploadEnd, ShowsWhatWasReadReadsNoTableAndReportsNothingComplete) {
  Z2Bench bench(u"Z2WV");
  bench.Show(15, u"99");
  bench.line.replies["01/17 D"] = GetParam().reply;
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(GetParam().box)});
  EXPECT_FALSE(bench.Field(u"14").Text().empty()) << "read before";
  EXPECT_EQ(bench.Page().Item(17), u"");
  EXPECT_EQ(bench.Page().Item(10), u"") << "behind it";
  EXPECT_EQ(bench.Accesses("01/10"), Texts());
  EXPECT_EQ(bench.Accesses("02/"), Texts());
  EXPECT_TRUE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

TEST_P(Z2UploadEnd, OfTheFirstItemHasChangedNothingThatCouldBeSaved) {
  Z2Bench bench(u"Z2WV");
  bench.line.replies["01/02 D"] = GetParam().reply;
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(GetParam().box)});
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.ExpectAtRest();
}

INSTANTIATE_TEST_SUITE_P(Each, Z2UploadEnd,
                         testing::Values(Ending{.reply = std::nullopt, .box = BoxKey::CommFailure},
                                         Ending{.reply = "CNG", .box = BoxKey::UploadAgain}),
                         [](const testing::TestParamInfo<Ending>& parameter) {
                           return parameter.param.reply ? "Refused" : "Silent";
                         });

// The table.

void SwitchOn(Z2Bench& bench) { ASSERT_TRUE(bench.device.Set("01", "23", "ON")); }

TEST(Z2UploadOfATable, ReadsTwoHundredItemsOnAModelThatHasThem) {
  Z2Bench bench(u"Z2WV");
  SwitchOn(bench);
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.Accesses("02/").size(), 200U) << "selected and read";
  EXPECT_EQ(bench.Accesses("03/").size(), 200U);
  EXPECT_TRUE(TabOpen(bench.Page(), TextKey::Linearizer));
}

TEST(Z2UploadOfATable, IsNotAskedForWhileTheSwitchStandsAtNone) {
  Z2Bench bench(u"Z2WV");
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_FALSE(TabOpen(bench.Page(), TextKey::Linearizer));
}

class Z2TableKept : public testing::TestWithParam<String> {};

TEST_P(Z2TableKept, ANoToTheUploadsQuestionKeepsTheCellsOfGroups2And3) {
  Z2Bench bench(GetParam());
  SwitchOn(bench);
  bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
  std::vector<std::pair<String, String>> points;
  points.reserve(60);
  for (int point = 0; point < 60; ++point) {
    points.emplace_back(Ascii(std::to_string(point)), u"1");
  }
  bench.FillTable(points);
  EXPECT_EQ(bench.BoxesOfUpload({Answer::No}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.Page().GroupItem.At(2, 0), u"0");
  EXPECT_EQ(bench.Page().GroupItem.At(2, 98), u"49");
  EXPECT_EQ(bench.Page().GroupItem.At(3, 18), u"59");
  EXPECT_EQ(bench.Z2().linearizer.LnrFlexGrid.At(60, 1).text, u"59");
  EXPECT_EQ(bench.Accesses("02/"), Texts());
  EXPECT_EQ(bench.Accesses("99/10"), Texts());
}

INSTANTIATE_TEST_SUITE_P(InItemsAndInMemory, Z2TableKept, testing::Values(u"Z2WV", u"Z2WF", u"Z8WM"),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
