// A transmitter's whole road, memory included: from one device to the page, through a file into another
// device, and back to the page. What the two devices then hold was brought there in two ways: the first one's
// types, calibration and curve by the simulator, the second one's by the program.

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "support/sampled.h"
#include "z2_kv_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// Everything that the page keeps, a line for each value.
Texts KeptBy(const ParameterPage& page) {
  Texts lines;
  for (int group = 0; group < page.GroupItem.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (const String& value = page.GroupItem.At(group, item); !value.empty()) {
        lines.push_back(std::to_string(group) + " " + std::to_string(item) + " " + ToUtf8(value));
      }
    }
  }
  return lines;
}

/// The device's memory but for the day, month and year of the last download.
std::string MemoryBesideDate(const sim::Memory& memory) {
  std::string bytes = memory.Bytes(0, sim::Memory::kSize);
  return bytes.replace(72, 4, "date");
}

/// 100 points, whose Y lag behind. A device that has items for them knows no shorter table.
std::vector<std::pair<String, String>> WholeTable() {
  std::vector<std::pair<String, String>> points;
  points.reserve(100);
  for (int point = 0; point < 100; ++point) {
    points.emplace_back(FormatMask(point, u"##0.00"), FormatMask(point * point / 99.0, u"##0.00"));
  }
  return points;
}

/// Answers the questions about the linearizer with yes; everything else is told.
struct RoundTripBench : Z2Bench {
  explicit RoundTripBench(const String& model) : Z2Bench(model) {
    dialogs.OnBox([this](const Box& box) {
      for (const BoxKey question : {BoxKey::UploadLinearizer, BoxKey::DownloadLinearizer}) {
        if (box.text == BoxOf(question).text) {
          dialogs.QueueAnswer(Answer::Yes);
        }
      }
    });
  }
  void ExpectDownload() { EXPECT_EQ(BoxesOfDownload().back(), Shown(BoxKey::DownloadDone)); }
  void ExpectUpload() { EXPECT_EQ(BoxesOfUpload().back(), Shown(BoxKey::UploadDone)); }
};

struct TransmitterRoundTrip : testing::TestWithParam<String> {
  /// The texts of a list's types that can be set from here.
  static std::vector<String> Settable(const ParameterPage& page, StringView key) {
    const ChoiceList list = page.Def.ListOf(key);
    std::vector<String> texts;
    for (int row = 0; row < list.Rows(); ++row) {
      if (!list.Text(row).empty() && list.Settable(row)) {
        texts.push_back(list.Text(row));
      }
    }
    return texts;
  }
  static void FillFirst(RoundTripBench& bench, const String& input, const String& output);
  static void ExpectTrip(const String& input, const String& output);
};

/// Gives a device types and, where it has one, a linearizer, and the page its set.
void TransmitterRoundTrip::FillFirst(RoundTripBench& bench, const String& input, const String& output) {
  ASSERT_TRUE(bench.device.Set("01", "10", ToUtf8(input)));
  ASSERT_TRUE(bench.device.Set("01", "11", ToUtf8(output)));
  bench.ExpectUpload();
  bench.Type(u"02", u"ROUND-1");
  if (bench.Z2().FindDataRow(u"23") >= 0) {
    bench.Press(bench.Z2().linearizer.Opt_Lnr, 1);
    bench.FillTable(WholeTable());
    bench.ExpectDownload();
    bench.ExpectUpload();
  }
}

void TransmitterRoundTrip::ExpectTrip(const String& input, const String& output) {
  RoundTripBench first(GetParam());
  FillFirst(first, input, output);
  first.Save(kFile);
  const Texts kept = KeptBy(first.Page());

  RoundTripBench second(GetParam());
  second.files.Put(kFile, first.files.Bytes(kFile).value());
  second.Open(kFile);
  EXPECT_EQ(KeptBy(second.Page()), kept);
  second.ExpectDownload();
  EXPECT_TRUE(MemoryBesideDate(second.device.GetMemory()) == MemoryBesideDate(first.device.GetMemory()));
  EXPECT_EQ(second.device.Mode(), '0');
  second.Page().DataChanged = false;
  second.New();
  EXPECT_NE(KeptBy(second.Page()), kept);
  second.ExpectUpload();
  EXPECT_EQ(KeptBy(second.Page()), kept);
}

TEST_P(TransmitterRoundTrip, BringsEveryTypeIntoAnotherDevicesMemoryAndBack) {
  RoundTripBench catalogue(GetParam());
  const std::vector<String> inputs = Settable(catalogue.Page(), u"$I10");
  const std::vector<String> outputs = Settable(catalogue.Page(), u"$I11");
  ASSERT_FALSE(inputs.empty() || outputs.empty());
  std::vector<std::size_t> trips(std::max(inputs.size(), outputs.size()));
  std::iota(trips.begin(), trips.end(), 0U);
  for (const std::size_t trip : Sampled(trips)) {
    // One behind the other, so that the device has neither the first input nor the first output by chance.
    const String& input = inputs[(trip + 1) % inputs.size()];
    const String& output = outputs[(trip + 1) % outputs.size()];
    SCOPED_TRACE(ToUtf8(input) + ", " + ToUtf8(output));
    ExpectTrip(input, output);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, TransmitterRoundTrip, testing::ValuesIn(ModelsOf(u"Lite")),
                         [](const auto& one) { return ToUtf8(one.param); });

}  // namespace
}  // namespace korva::test
