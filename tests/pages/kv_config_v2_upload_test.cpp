// Uploads of the page of family Second, and the road of each of its models to a file and to another device.

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char16_t* kSecondFile = u"/korva/data/again.cfg";

// Each model's whole road.

class V2RoadTest : public testing::TestWithParam<String> {
 protected:
  /// Another value for every parameter than the maker's.
  static void Change(V2Bench& bench) {
    KvConfig_V2& page = bench.V2();
    bench.Type(u"02", u"ROAD-1");
    int place = 0;
    for (int row = 0; row < page.Def.Data().Rows(); ++row) {
      const String item = page.DataCell(row, kItem);
      if (page.DataCell(row, kWritePosition).empty() || item == u"02") {
        continue;
      }
      ++place;
      if (!page.DataCell(row, kTextIndex).empty()) {
        const bool fine = !page.DataCell(row, kReplyPrefix).empty();
        bench.Type(item, Ascii(fine ? "1.25" : std::to_string(place * 5)));
      }
      if (!page.DataCell(row, kUnitBox).empty()) {
        bench.Pick(page.units.cbo_unit[LeadingInteger(page.DataCell(row, kUnitBox))],
                   std::vector<String>{u"kHz", u"mHz", u"Hz"}.at(static_cast<std::size_t>(place) % 3));
      }
      if (!page.DataCell(row, kComboIndex).empty()) {
        ComboBox& box = page.Combo[LeadingInteger(page.DataCell(row, kComboIndex))];
        bench.Pick(box, box.Entries().back());
      }
      if (!page.DataCell(row, kFrameIndex).empty()) {
        bench.Press(page.optAlarm, 1);
      }
    }
  }
};

TEST_P(V2RoadTest, UploadsSavesOpensAndDownloadsWithoutLoss) {
  V2Bench first(GetParam());
  EXPECT_EQ(first.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_TRUE(first.V2().DataChanged);
  first.ExpectDeviceHoldsTheSet();
  Change(first);
  first.Check();
  EXPECT_EQ(first.TakeBoxes(), Texts{Shown(BoxKey::CheckDone)});
  const Texts kept = first.SetOf();
  first.Save(kFile);

  V2Bench second(GetParam());
  second.files.Put(kFile, first.files.Bytes(kFile).value());
  second.Choose(u"QL");
  second.Open(kFile);
  EXPECT_EQ(second.SetOf(), kept);
  EXPECT_EQ(second.V2().DefFile, GetParam() + u".def");
  second.Save(kSecondFile);
  EXPECT_EQ(second.files.Bytes(kSecondFile), first.files.Bytes(kFile));
  EXPECT_EQ(second.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(second.SetOf(), kept) << "a download changes nothing on the page";
  EXPECT_EQ(second.device.Mode(), '0');
  second.ExpectDeviceHoldsTheSet();
  second.ExpectAtRest();

  // The device's spelling goes to another device and comes back to the letter.
  second.BoxesOfUpload();
  const Texts uploaded = second.SetOf();
  second.Save(kFile);
  EXPECT_EQ(second.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  second.BoxesOfUpload();
  EXPECT_EQ(second.SetOf(), uploaded);
}

TEST_P(V2RoadTest, WritesEveryPositionOfItsDefinitionOnce) {
  V2Bench bench(GetParam());
  bench.BoxesOfUpload();
  bench.BoxesOfDownload();
  std::vector<std::string> items(21);
  const KvConfig_V2& page = bench.V2();
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (const String& position = page.DataCell(row, kWritePosition); !position.empty()) {
      items.at(static_cast<std::size_t>(LeadingInteger(position))) = ToUtf8(page.DataCell(row, kItem));
    }
  }
  std::erase(items, "");
  Texts written;
  for (const std::string& write : bench.line.writes) {
    const std::string item = write.substr(0, write.find('='));
    if (item != "01" && item != "11" && item != "34") {
      written.push_back(item);
    }
  }
  EXPECT_EQ(written, items);
}

INSTANTIATE_TEST_SUITE_P(FamilySecond, V2RoadTest, testing::ValuesIn(ModelsOf(u"Second")),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

// Upload.

TEST(V2UploadTest, KeepsNumberAndUnitAsTheDeviceReportsThem) {
  V2Bench bench(u"QIC");
  ASSERT_TRUE(bench.device.Set("01", "11", "1"));
  ASSERT_TRUE(bench.device.Set("01", "10", "12.5"));
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(bench.V2().Item(10), u"12.50 kHz");
  EXPECT_EQ(bench.V2().units.cbo_unit[0].Text(), u"kHz");
  EXPECT_EQ(bench.V2().Item(23), u"0:OPEN COLLECTOR") << "a form is no prefix: nothing is cut";
  EXPECT_EQ(bench.V2().Combo[0].Text(), u"0:OPEN COLLECTOR");
  EXPECT_EQ(bench.V2().Item(28), u"0:DIRECT");
  EXPECT_EQ(bench.V2().Item(30), u"0.00 %") << "less its prefix";
  EXPECT_EQ(bench.V2().Item(31), u"100.00 %");
  EXPECT_EQ(bench.V2().Item(2), u"TAG-1");
}

TEST(V2UploadTest, TakesATextForNoTag) {
  V2Bench bench(u"QIC");
  ASSERT_TRUE(bench.device.Set("01", "02", ""));
  bench.BoxesOfUpload();
  EXPECT_EQ(bench.V2().Item(2), u"");
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.line.writes.at(3), "02=          ");
  EXPECT_EQ(bench.device.Value("01", "02"), "");
}

TEST(V2UploadTest, AReplyNoLongerThanItsPrefixGivesAnEmptyCell) {
  V2Bench bench(u"QIC");
  bench.line.replies["30"] = "DFINZER";
  bench.BoxesOfUpload();
  EXPECT_EQ(bench.V2().Item(30), u"");
  EXPECT_EQ(bench.V2().Item(31), u"100.00 %");
}

TEST(V2UploadTest, AnItemThatDoesNotAnswerLeavesItsFieldBlankAndItsUnitShown) {
  V2Bench bench(u"QIC");
  bench.Pick(bench.V2().units.cbo_unit[0], u"mHz");
  bench.V2().DataChanged = false;
  bench.line.replies["10"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)});
  EXPECT_EQ(bench.V2().Item(10), u"");
  EXPECT_EQ(bench.V2().units.cbo_unit[0].Text(), u"mHz");
}

TEST(V2UploadTest, ADeviceThatFallsSilentBehindTheLinkTestGivesBlankFieldsAndIsDone) {
  V2Bench bench(u"QIC");
  bench.device.AddFault(sim::ParseFault("silent@4-"));
  EXPECT_EQ(bench.BoxesOfUpload(), (Texts{Shown(BoxKey::NotMonitorMode), Shown(BoxKey::UploadDone)}));
  EXPECT_EQ(bench.SetOf(), Texts{});
  bench.ExpectAtRest();
}

TEST(V2UploadTest, ADeviceWhoseTitlesAreUnknownIsNoDeviceOfThisModel) {
  V2Bench bench(u"QIC");
  bench.app.program.Shared().KnownItemNames.fill(u"");
  bench.Click(bench.V2().cmdUpload);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::CommFailure)});
}

TEST(V2UploadTest, AnItemUnderAnotherTitleIsNotRead) {
  V2Bench bench(u"QIC");
  bench.app.program.Shared().KnownItemNames[9] = u"";  // the row of item 09
  bench.BoxesOfUpload();
  EXPECT_EQ(bench.V2().Item(9), u"");
  EXPECT_EQ(bench.V2().Item(8), u"10 msec");
}

}  // namespace
}  // namespace korva::test
