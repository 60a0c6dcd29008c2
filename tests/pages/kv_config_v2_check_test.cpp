// The value check of the page of family Second, and the grid of 5 msec before a download's check.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A page with a device's set, which passes its check.
struct V2CheckTest : testing::Test {
  V2CheckTest() { EXPECT_EQ(bench.BoxesOfUpload(), Texts{Shown(BoxKey::UploadDone)}); }
  Texts BoxesOfCheck() {
    bench.Check();
    return bench.TakeBoxes();
  }
  V2Bench bench{u"QEYZ"};
  const Texts good = {Shown(BoxKey::CheckDone)};
  const Texts bad = {Shown(BoxKey::ValueBad)};
  const Texts blank = {Shown(BoxKey::FieldBlank)};
};

TEST_F(V2CheckTest, ASetOfTheDevicePasses) {
  EXPECT_EQ(BoxesOfCheck(), good);
  bench.ExpectAtRest();
}

TEST_F(V2CheckTest, EveryNumberFieldMustBeANumber) {
  for (const StringView item :
       {u"10", u"08", u"09", u"16", u"17", u"12", u"13", u"20", u"21", u"24", u"25", u"33"}) {
    const String name(item);
    const String before = bench.Field(name).Text();
    for (const StringView text : {u"abc", u"1.5.2", u"12 Hz", u"12,5", u"１２", u"-", u"."}) {
      bench.Type(name, String(text));
      EXPECT_EQ(BoxesOfCheck(), bad) << ToUtf8(name) << ' ' << ToUtf8(text);
      EXPECT_EQ(bench.LookOf(name), Look::Bad) << ToUtf8(name) << ' ' << ToUtf8(text);
    }
    for (const StringView text : {u"5", u"-5", u" 12.5 ", u"0", u".5"}) {
      bench.Type(name, String(text));
      EXPECT_EQ(BoxesOfCheck(), good) << ToUtf8(name) << ' ' << ToUtf8(text);
      EXPECT_EQ(bench.LookOf(name), Look::Normal) << ToUtf8(name) << ' ' << ToUtf8(text);
    }
    bench.Type(name, before);
  }
}

TEST_F(V2CheckTest, FineValuesMustBeNumbersToo) {
  V2Bench other(u"QIC");
  other.BoxesOfUpload();
  for (const char16_t* item : {u"30", u"31"}) {
    other.Type(item, u"x");
    other.Check();
    EXPECT_EQ(other.TakeBoxes(), bad);
    EXPECT_EQ(other.LookOf(item), Look::Bad);
    other.Type(item, u"1");
  }
}

TEST_F(V2CheckTest, AllBadFieldsAreMarkedAtOnceAndACorrectedOneWithTheNextCheckOnly) {
  bench.Type(u"02", u"ELEVENCHARS");
  bench.Type(u"10", u"x");
  bench.Type(u"33", u"y");
  EXPECT_EQ(BoxesOfCheck(), bad);
  for (const char16_t* item : {u"02", u"10", u"33"}) {
    EXPECT_EQ(bench.LookOf(item), Look::Bad) << ToUtf8(item);
  }
  EXPECT_EQ(bench.LookOf(u"08"), Look::Normal);
  bench.Type(u"10", u"100");
  EXPECT_EQ(bench.LookOf(u"10"), Look::Bad);
  EXPECT_EQ(BoxesOfCheck(), bad);
  EXPECT_EQ(bench.LookOf(u"10"), Look::Normal);
  EXPECT_EQ(bench.LookOf(u"33"), Look::Bad);
}

TEST_F(V2CheckTest, ATagIsNoNumberAndHasAtMostTenCharactersOfOneByte) {
  for (const StringView tag : {u"FIC-101", u"ABCDEFGHIJ", u"12.5", u"ﾎﾟﾝﾌﾟ1"}) {
    bench.Type(u"02", String(tag));
    EXPECT_EQ(BoxesOfCheck(), good) << ToUtf8(tag);
  }
  for (const StringView tag : {u"ABCDEFGHIJK", u"ポンプ1"}) {
    bench.Type(u"02", String(tag));
    EXPECT_EQ(BoxesOfCheck(), bad) << ToUtf8(tag);
    EXPECT_EQ(bench.LookOf(u"02"), Look::Bad);
  }
}

TEST_F(V2CheckTest, ABlankTagPassesAndBecomesTenBlanks) {
  bench.Type(u"02", u"");
  EXPECT_EQ(BoxesOfCheck(), good);
  EXPECT_EQ(bench.V2().Item(2), u"          ");
}

TEST_F(V2CheckTest, ABlankFieldIsToldUnlessItIsLive) {
  for (const char16_t* item : {u"03_set", u"03_mon", u"05", u"06", u"07"}) {
    EXPECT_EQ(bench.Field(item).Text(), u"") << ToUtf8(item);
  }
  // Items that are live values in other families are parameters here.
  for (const char16_t* item : {u"08", u"10", u"16", u"33"}) {
    const String before = bench.Field(item).Text();
    bench.Type(item, u"");
    EXPECT_EQ(BoxesOfCheck(), blank) << ToUtf8(item);
    bench.Type(item, before);
  }
  EXPECT_EQ(BoxesOfCheck(), good);
}

TEST_F(V2CheckTest, LiveValuesAreNotJudged) {
  bench.Type(u"03_set", u"abc");
  EXPECT_EQ(BoxesOfCheck(), good);
  EXPECT_EQ(bench.LookOf(u"03_set"), Look::Normal);
  EXPECT_EQ(bench.LookOf(u"05"), Look::Grey);
}

TEST_F(V2CheckTest, AFieldThatCannotBeChangedIsNotJudged) {
  bench.Show(16, u"NEEDLESS");
  EXPECT_EQ(BoxesOfCheck(), good);
  EXPECT_EQ(bench.LookOf(u"16"), Look::Grey);
}

// The grid of 5 msec.

struct Time {
  String typed;
  String old_number;  ///< empty: no message
  String cell;
};

void PrintTo(const Time& time, std::ostream* out) { *out << '"' << ToUtf8(time.typed) << '"'; }

class V2GridTest : public testing::TestWithParam<Time> {};

TEST_P(V2GridTest, IsKeptBeforeADownload) {
  V2Bench bench(u"QEYZ");
  bench.Upload();
  bench.Type(u"08", GetParam().typed);
  const Texts boxes = bench.BoxesOfDownload();
  const String number = GetParam().cell.substr(0, GetParam().cell.find(u' '));
  Texts expected = {Shown(BoxKey::DownloadDone)};
  if (!GetParam().old_number.empty()) {
    expected.insert(expected.begin(), Shown(BoxKey::RoundedTo5Msec, {u"08", GetParam().old_number, number}));
  }
  EXPECT_EQ(boxes, expected);
  EXPECT_EQ(ToUtf8(bench.V2().Item(8)), ToUtf8(GetParam().cell));
  EXPECT_EQ(bench.Field(u"08").Text(), number);
  EXPECT_EQ(bench.device.Value("01", "08"), ToUtf8(GetParam().cell));
}

INSTANTIATE_TEST_SUITE_P(OfFiveMsec, V2GridTest,
                         testing::Values(Time{u"7", u"7", u"5 msec"}, Time{u"10", u"", u"10 msec"},
                                         Time{u"12.5", u"12", u"10 msec"}, Time{u"13.5", u"14", u"10 msec"},
                                         Time{u"103", u"103", u"100 msec"}, Time{u"106", u"106", u"105 msec"},
                                         Time{u"5", u"", u"5 msec"}));

TEST(V2GridOfTimesTest, TheMessageReadsAsItShould) {
  V2Bench bench(u"QEYZ");
  bench.Upload();
  bench.Type(u"08", u"7");
  EXPECT_EQ(bench.BoxesOfDownload().front(),
            "設定値ﾁｪｯｸ: Item08 の値は、5msec単位に切り捨てました｡\n\r7msec -----> 5msec");
}

TEST(V2GridOfTimesTest, HoldsEveryTimeOfTheDefinitionInItsOrderAndNothingElse) {
  V2Bench bench(u"QEYD");
  bench.Upload();
  const auto times = {u"33", u"25", u"24", u"19", u"18", u"13", u"12", u"09", u"08"};
  for (const char16_t* item : times) {
    if (bench.V2().FindTextIndex(item) >= 0) {
      bench.Type(item, u"7");
    }
  }
  bench.Type(u"16", u"7");
  Texts expected;
  for (const char16_t* item : {u"08", u"09", u"12", u"13", u"18", u"19", u"24", u"25", u"33"}) {
    if (bench.V2().FindTextIndex(item) >= 0) {
      expected.push_back(Shown(BoxKey::RoundedTo5Msec, {item, u"7", u"5"}));
    }
  }
  EXPECT_GE(expected.size(), 5U);
  expected.push_back(Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.BoxesOfDownload(), expected);
  EXPECT_EQ(bench.V2().Item(16), u"7");
}

TEST(V2GridOfTimesTest, HasEachOfItsTimesInSomeModel) {
  std::vector<String> missing = {u"08", u"09", u"12", u"13", u"18", u"19", u"24", u"25", u"33"};
  for (const String& model : ModelsOf(u"Second")) {
    V2Bench bench(model);
    std::erase_if(missing, [&](const String& item) { return bench.V2().FindTextIndex(item) >= 0; });
  }
  EXPECT_TRUE(missing.empty());
}

TEST(V2GridOfTimesTest, KeepsTheUnitOfTheCellItself) {
  V2Bench bench(u"QEYZ");
  bench.Upload();
  bench.Show(8, u"103 ms");
  bench.device.AddFault(sim::ParseFault("silent=G01"));
  EXPECT_EQ(bench.BoxesOfDownload(), (Texts(2, Shown(BoxKey::NotMonitorMode))));
  EXPECT_EQ(bench.V2().Item(8), u"103 ms") << "nothing is rounded while no device is ready";
  bench.device.ClearFaults();
  bench.line.replies["08=100"] = "D100 ms";
  EXPECT_EQ(bench.BoxesOfDownload(),
            (Texts{Shown(BoxKey::RoundedTo5Msec, {u"08", u"103", u"100"}), Shown(BoxKey::DownloadDone)}));
  EXPECT_EQ(bench.V2().Item(8), u"100 ms");
  EXPECT_EQ(bench.Field(u"08").Text(), u"100");
}

TEST(V2GridOfTimesTest, IsKeptBeforeTheCheckAndLeavesATextThatIsNoNumberToIt) {
  V2Bench bench(u"QEYZ");
  bench.Upload();
  bench.Type(u"08", u"7");
  bench.Type(u"09", u"abc");
  EXPECT_EQ(bench.BoxesOfDownload(),
            (Texts{Shown(BoxKey::RoundedTo5Msec, {u"08", u"7", u"5"}), Shown(BoxKey::ValueBad)}));
  EXPECT_EQ(bench.V2().Item(8), u"5 msec");
  EXPECT_EQ(bench.V2().Item(9), u"abc");
  EXPECT_EQ(bench.line.writes, (Texts{"01=0", "01=0"}));
}

TEST(V2GridOfTimesTest, IsNoConcernOfACheckAlone) {
  V2Bench bench(u"QEYZ");
  bench.Upload();
  bench.Type(u"08", u"7");
  bench.TakeBoxes();
  bench.Check();
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::CheckDone)});
  EXPECT_EQ(bench.V2().Item(8), u"7 msec");
}

}  // namespace
}  // namespace korva::test
