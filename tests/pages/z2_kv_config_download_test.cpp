// Downloads of the page of family Lite: their order, what ends them before anything has changed the device,
// and the three places to which a set goes - items, memory, and the linearizer's.

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"
#include "support/tabs.h"
#include "z2_kv_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kTableType = 513;

/// Places of the accesses in the order in which they came; -1 for one that did not come.
std::vector<std::ptrdiff_t> Places(const Z2Bench& bench, const Texts& accesses) {
  std::vector<std::ptrdiff_t> places;
  for (const std::string& access : accesses) {
    const auto& all = bench.line.accesses;
    const auto found = std::find(all.begin(), all.end(), access);
    places.push_back(found == all.end() ? -1 : found - all.begin());
  }
  return places;
}

/// What an access to the device's memory looks like here: everything behind the way into it.
Texts MemoryAccesses(const Z2Bench& bench) { return bench.Accesses("99/10 "); }

struct Z2Download : testing::Test {
  explicit Z2Download(const String& model = u"Z2WT") : bench(model) { bench.Read(); }
  void ExpectUntouched() {
    EXPECT_EQ(bench.Accesses("01/01 D1"), Texts()) << "programming mode";
    const Texts all = MemoryAccesses(bench);
    EXPECT_TRUE(std::none_of(all.begin(), all.end(), [](const std::string& access) {
      return access.starts_with("99/10 D") && !access.starts_with("99/10 DS") && access.size() > 7;
    })) << "data in the memory";
    bench.ExpectAtRest();
  }
  int Byte(std::size_t address) {
    return static_cast<unsigned char>(bench.device.GetMemory().Bytes(address, 1).front());
  }

  Z2Bench bench;
};

TEST_F(Z2Download, GoesFromTheLinkTestToTheMemoryInOrder) {
  bench.Pick(bench.Z2().Combo[0], u"TC K (CA)");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  const std::vector<std::ptrdiff_t> places =
      Places(bench, {"00/99", "00/01", "01/01 D0", "01/10 D", "01/11 D", "99/10", "99/10 DS004D-1",
                     "01/01 D1", "01/02 D", "99/10 DS0030-8", "99/10 DS004A-2"});
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
  EXPECT_EQ(places.front(), 0);
  bench.ExpectAtRest();
}

TEST_F(Z2Download, WritesValuesAsTextsChoicesAsCodesAndNeitherItem10NorItem11) {
  bench.Type(u"02", u"OVEN 7");
  bench.Type(u"14", u"100");
  bench.Press(bench.Z2().optBurn, 2);
  bench.Press(bench.Z2().Opt_FiltSW, 1);
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/02 DO"), Texts{"01/02 DOVEN 7"});
  EXPECT_EQ(bench.Accesses("01/14 D1"), Texts{"01/14 D100"});
  EXPECT_EQ(bench.Accesses("01/24 D2"), Texts{"01/24 D2"});
  EXPECT_EQ(bench.Accesses("01/16 D1"), Texts{"01/16 D1"});
  for (const char* item : {"01/10 ", "01/11 ", "01/34 ", "01/35 "}) {
    for (const std::string& access : bench.Accesses(item)) {
      EXPECT_EQ(access, std::string(item) + "D") << "read, not written";
    }
  }
  EXPECT_EQ(bench.device.Value("01", "24"), "DOWNSCALE");
}

TEST_F(Z2Download, AnEmptyTagGoesOutAsTenBlanksAndComesBackSo) {
  bench.Type(u"02", u"");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/02 D ").size(), 1U);
  bench.line.replies["01/02 D          "] = "DTAG-9";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDataMismatch)});
}

TEST_F(Z2Download, ComparesChoicesTagAndFineValuesAndTakesAnyAnswerToAnotherValue) {
  const std::map<std::string, std::pair<std::string, bool>> cases = {
      {"01/24 D0", {"D UPSCALE", false}}, {"01/02 DTAG-1", {"D TAG-2", false}},
      {"01/17 D0.00", {"D 0.02", true}},  {"01/17 D0.00 ", {"D 0", true}},
      {"01/12 D4.00", {"D 5", true}},     {"01/18 D100.00", {"D 100.03", false}}};
  for (const auto& [access, reply] : cases) {
    Z2Bench one(u"Z2WT");
    one.Read();
    one.line.replies[access] = reply.first;
    EXPECT_EQ(one.BoxesOfDownload(),
              Texts{Shown(reply.second ? BoxKey::DownloadDone : BoxKey::DownloadDataMismatch)})
        << access;
  }
}

// What ends it before anything has changed the device.

TEST_F(Z2Download, AnInputTypeThatIsFixedInTheDeviceMustBeTheChosenOne) {
  Z2Bench volts(u"Z2WV");
  ASSERT_TRUE(volts.device.Set("01", "10", "-300 - 300 V"));
  volts.Read();
  volts.Pick(volts.Z2().Combo[0], u"-1 - 1 V");
  // The name is that of the caption label with the number of the device's row, 4, which no item has.
  EXPECT_EQ(volts.BoxesOfDownload(), Texts{Shown(BoxKey::InputTypeMismatch, {u""})});
  EXPECT_EQ(volts.Accesses("99/10"), Texts());
}

TEST_F(Z2Download, AnInputTypeThatCannotBeSetFromHereIsNot) {
  Z2Bench volts(u"Z2WV");
  volts.Read();
  volts.Pick(volts.Z2().Combo[0], u"-300 - 300 V");
  EXPECT_EQ(volts.BoxesOfDownload(), Texts{Shown(BoxKey::InputTypeNotSettable)});
  EXPECT_EQ(volts.Accesses("99/10"), Texts());
}

TEST_F(Z2Download, AnOutputTypeThatTheListLacksEndsIt) {
  for (const char* answer : {"D 0-1 A", "D", "CNG"}) {
    bench.line.replies["01/11 D"] = answer;
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::OutputTypeUnknown)}) << answer;
    ExpectUntouched();
  }
}

TEST_F(Z2Download, AnOutputTypeThatIsFixedInTheDeviceMustBeTheChosenOne) {
  const String text = bench.TextOf(DefPath(u"Z2WT"));
  const std::size_t at = text.find(u"0, 4-20 mA, 4, 20, 4, Y");
  ASSERT_NE(at, String::npos);
  String fixed = text;
  fixed.replace(at, 23, u"0, 4-20 mA, 4, 20, 4, N");
  bench.files.Put(DefPath(u"Z2WT"), bench.code_page.Encode(fixed).value());
  bench.Page().DataChanged = false;
  bench.Choose(u"Z2WR");
  bench.Choose(u"Z2WT");
  bench.Read();
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << "the same one passes";
  bench.Pick(bench.Z2().Combo[1], u"1-5 V");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::OutputTypeMismatch, {u""})});
  ExpectUntouched();
  // The other way round, the type that can't be set from here is chosen.
  ASSERT_TRUE(bench.device.Set("01", "11", "1-5 V"));
  bench.Pick(bench.Z2().Combo[1], u"4-20 mA");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::OutputTypeMismatch, {u""})});
  ExpectUntouched();
}

TEST_F(Z2Download, TheNameOfAMismatchIsTheCaptionWithTheRowsNumber) {
  // Row 10 of the input types; caption label 10 is the tag's.
  String text = bench.TextOf(DefPath(u"Z2WT"));
  const std::size_t at = text.find(u"10, TC U,            -200, 600,  75,  deg C, U,  0, Y");
  ASSERT_NE(at, String::npos);
  text[text.find(u'\r', at) - 1] = u'N';
  bench.files.Put(DefPath(u"Z2WT"), bench.code_page.Encode(text).value());
  bench.Page().DataChanged = false;
  bench.Choose(u"Z2WR");
  bench.Choose(u"Z2WT");
  bench.Read();
  bench.line.replies["01/10 D"] = "D TC U";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::InputTypeMismatch, {u"ﾀｸﾞ名"})});
}

TEST_F(Z2Download, AMissingCurveFileIsFoundBehindTheValueCheckAndNamed) {
  bench.Pick(bench.Z2().Combo[0], u"TC K (CA)");
  bench.files.Remove(u"/korva/system/z2Kv/TC_TypeK_01.tct");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::CurveFileNotFound, {u"TC_TypeK_01.tct"})});
  EXPECT_EQ(MemoryAccesses(bench), Texts());
  ExpectUntouched();
  bench.Type(u"14", u"-300");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ValueBad)}) << "the values come first";
}

TEST_F(Z2Download, TheCurveMustBeThereThoughTheTypeStaysTheSame) {
  ASSERT_EQ(bench.Page().Item(10), u"TC PR");
  bench.files.Remove(u"/korva/system/z2Kv/TC_TypePR_00.tct");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::CurveFileNotFound, {u"TC_TypePR_00.tct"})});
}

TEST_F(Z2Download, AConverterTypeThatCannotBeReadEndsItWithItsBoxAlone) {
  for (const char* access : {"99/10", "99/10 DS004D-1"}) {
    Z2Bench one(u"Z2WT");
    one.Read();
    one.line.replies[access] = std::nullopt;
    EXPECT_EQ(one.BoxesOfDownload(), Texts{Shown(BoxKey::AdcTypeUnreadable)}) << access;
    EXPECT_EQ(one.Accesses("01/01 D1"), Texts());
    EXPECT_EQ(one.line.accesses.back(), "01/01 D0") << "and back to monitor mode";
    one.ExpectAtRest();
  }
}

TEST_F(Z2Download, AnInputTypeThatCannotBeReadEndsItInWords) {
  int reads = 0;
  bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
    if (traffic.sent && traffic.text == u"I10" && ++reads == 2) {
      bench.line.replies["01/10 D"] = std::nullopt;  // the second: the collation has read it once
    }
  };
  EXPECT_EQ(bench.BoxesOfDownload(), Texts());
  EXPECT_NE(bench.Page().Notes.Told(Notice::Stage), u"");
  EXPECT_EQ(bench.Accesses("01/01 D1"), Texts());
  bench.ExpectAtRest();
  bench.line.replies.clear();
  bench.Read();
  EXPECT_EQ(bench.Page().Notes.Told(Notice::Stage), u"");
}

TEST_F(Z2Download, ABlankFieldStopsItBeforeProgrammingMode) {
  bench.Type(u"15", u"");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::FieldBlank)});
  ExpectUntouched();
}

// The memory.

TEST_F(Z2Download, ANewInputTypeBringsItsCurveAndAnUnchangedOneNone) {
  bench.Pick(bench.Z2().Combo[0], u"TC T (CC)");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(Byte(kTableType), 4);
  EXPECT_EQ(bench.device.Value("01", "10"), "TC T (CC)");
  const std::size_t whole = MemoryAccesses(bench).size();
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_LT(MemoryAccesses(bench).size(), whole / 3);
  EXPECT_EQ(bench.Page().Notes.Told(Notice::Stage), u"") << "nothing goes on any more";
}

TEST_F(Z2Download, TheStatusAreaTellsTheStageTheBlocksAndTheTimeLeft) {
  std::vector<String> told;
  bench.Page().Notes.Observe([&] {
    const String& text = bench.Page().Notes.Told(Notice::Stage);
    if (!text.empty() && (told.empty() || told.back() != text)) {
      told.push_back(text);
    }
  });
  bench.Pick(bench.Z2().Combo[0], u"TC T (CC)");
  bench.BoxesOfDownload();
  ASSERT_GT(told.size(), 280U) << "289 blocks of 8 bytes";
  EXPECT_TRUE(std::any_of(told.begin(), told.end(), [](const String& text) {
    return text.find(u"145") != String::npos && text.find(u"289") != String::npos;
  }));
}

TEST_F(Z2Download, AnUnknownInputTypePassesTheCheckAndEndsInTheBoxesOfTheMemory) {
  bench.Show(10, u"TC of another maker");
  EXPECT_EQ(bench.BoxesOfDownload(),
            (Texts{Shown(BoxKey::EepromDataInvalid, {u"Item10"}), Shown(BoxKey::InputTypeNumberInvalid)}));
  bench.ExpectAtRest();
}

TEST_F(Z2Download, AnUnknownOutputTypePassesTheCheckAndEndsInTheBoxesOfTheMemory) {
  bench.Show(11, u"0-1 A");
  EXPECT_EQ(bench.BoxesOfDownload(),
            (Texts{Shown(BoxKey::EepromDataInvalid, {u"Item11"}), Shown(BoxKey::OutputTypeNumberInvalid)}));
  bench.ExpectAtRest();
}

TEST_F(Z2Download, AStageThatFailsSendsItsOwnMonitorModeAndThenTheClosingsOne) {
  bench.Show(10, u"TC of another maker");
  bench.BoxesOfDownload();
  const Texts& all = bench.line.accesses;
  ASSERT_GE(all.size(), 2U);
  EXPECT_EQ(all[all.size() - 1], "01/01 D0");
  EXPECT_EQ(all[all.size() - 2], "01/01");  // selected for it
  EXPECT_EQ(bench.Accesses("01/01 D0").size(), 4U)
      << "before the collation, behind the items, by the stage, by the closing";
}

TEST_F(Z2Download, ACurveThatBreaksOffLeaves99AndTheNextDownloadWritesItAnew) {
  bench.Pick(bench.Z2().Combo[0], u"TC T (CC)");
  bench.line.replies["99/10 DS1B00-8"] = "CNG";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::EepromWriteFailed)});
  EXPECT_EQ(Byte(kTableType), 99);
  bench.ExpectAtRest();
  bench.line.replies.clear();
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(Byte(kTableType), 4);
}

// The linearizer.

struct Z2Table : Z2Download {
  explicit Z2Table(const String& model = u"Z2WF") : Z2Download(model) {
    bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
    bench.FillTable({{u"0", u"0"}, {u"50.25", u"40"}, {u"100", u"100"}});
    bench.device.GetMemory().PutNumber(kTableType, 1, 0);  // no linearizer yet
  }
};

TEST_F(Z2Table, GoesIntoTheMemoryAndComesBackByTheMask) {
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(Byte(kTableType), 101);
  EXPECT_EQ(bench.Accesses("02/"), Texts()) << "no items";
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.FillTable({});
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  const ParameterSet& set = bench.Page().GroupItem;
  EXPECT_EQ(set.At(2, 0), u"0.00");
  EXPECT_EQ(set.At(2, 2), u"50.25");
  EXPECT_EQ(set.At(2, 3), u"40.00");
  EXPECT_EQ(set.At(2, 5), u"100.00");
  EXPECT_EQ(set.At(2, 6), u"");
  EXPECT_EQ(bench.Z2().linearizer.LnrFlexGrid.At(2, 1).text, u"50.25");
  EXPECT_EQ(bench.line.accesses.back(), "01/01 D0") << "monitor mode behind it";
}

TEST_F(Z2Table, IsAskedForBeforeTheMemoryIsEntered) {
  std::size_t accesses_then = 0;
  bench.dialogs.OnBox([&](const Box& box) {
    if (box.text == BoxOf(BoxKey::DownloadLinearizer).text) {
      accesses_then = bench.line.accesses.size();
    }
  });
  bench.BoxesOfDownload({Answer::No});
  EXPECT_EQ(accesses_then + 2, bench.line.accesses.size())
      << "the closing's monitor mode alone comes behind it";
  EXPECT_NE(Byte(kTableType), 101);
}

TEST_F(Z2Table, ANoWritesTheRestAndReportsSuccess) {
  EXPECT_EQ(bench.BoxesOfDownload({Answer::No}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::DownloadDone)}));
  EXPECT_NE(Byte(kTableType), 101);
}

TEST_F(Z2Table, AFailedWriteHasItsBoxAndFailsTheDownload) {
  bench.line.replies["99/10 DS0208-2"] = "CNG";
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}),
            (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::LinearizerDownloadFailed)}));
  EXPECT_EQ(bench.Accesses("01/01 D0").size(), 5U) << "behind the table, and by the closing";
  EXPECT_EQ(Byte(kTableType), 99);
  bench.ExpectAtRest();
}

TEST_F(Z2Table, ADeviceWithoutOneEmptiesTheGridAndTheStatusAreaSaysSo) {
  ASSERT_TRUE(bench.device.Set("01", "23", "ON"));
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.Page().GroupItem.At(2, 0), u"");
  EXPECT_EQ(bench.Z2().linearizer.LnrFlexGrid.At(1, 1).text, u"");
  EXPECT_EQ(bench.Page().Notes.Told(Notice::NoTable), u"変換器にﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙは保存されていません。");
  bench.Page().DataChanged = false;
  bench.New();
  EXPECT_EQ(bench.Page().Notes.Told(Notice::NoTable), u"") << "it is told of a set that was uploaded";
}

TEST_F(Z2Table, OneThatCannotBeReadIsToldAsSuch) {
  ASSERT_TRUE(bench.device.Set("01", "23", "ON"));
  bench.line.replies["99/10 DS0201-1"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}),
            (Texts{Shown(BoxKey::UploadLinearizer), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.Page().Notes.Told(Notice::NoTable), u"変換器のﾘﾆｱﾗｲｻﾞのﾃｰﾌﾞﾙを読み込めませんでした。");
  EXPECT_EQ(bench.line.accesses.back(), "01/01 D0");
  bench.ExpectAtRest();
}

TEST(Z2TablePlaces, ModelsKeepItInTheMemoryOrInItemsByTheirNames) {
  for (const String& model : ModelsOf(u"Lite")) {
    Z2Bench bench(model);
    bench.Read();
    if (bench.Z2().FindDataRow(u"23") < 0) {
      continue;
    }
    bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
    bench.FillTable({{u"0", u"0"}, {u"100", u"50"}});
    EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}),
              (Texts{Shown(BoxKey::DownloadLinearizer), Shown(BoxKey::DownloadDone)}))
        << ToUtf8(model);
    const bool memory = model.at(3) == u'F' || model.at(3) == u'M';
    EXPECT_EQ(bench.device.GetMemory().Bytes(kTableType, 1) == "\x65", memory) << ToUtf8(model);
    EXPECT_EQ(bench.Accesses("02/00 D0").empty(), memory) << ToUtf8(model);
  }
}

}  // namespace
}  // namespace korva::test
