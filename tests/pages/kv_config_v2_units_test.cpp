// How the page of family Second shows numbers with units, and how it takes them.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"

namespace korva::test {
namespace {

// How a value is shown.

struct ShownValue {
  String cell;
  String field;
  String unit;  ///< in the box, which showed kHz before
};

void PrintTo(const ShownValue& value, std::ostream* out) { *out << '"' << ToUtf8(value.cell) << '"'; }

class V2ShownValueTest : public testing::TestWithParam<ShownValue> {};

TEST_P(V2ShownValueTest, IsSplitBehindItsNumberAndStaysAsItIs) {
  V2Bench bench(u"QEYZ");
  bench.Pick(bench.V2().units.cbo_unit[0], u"kHz");
  bench.V2().DataChanged = false;
  bench.Show(10, GetParam().cell);
  EXPECT_EQ(ToUtf8(bench.Field(u"10").Text()), ToUtf8(GetParam().field));
  EXPECT_EQ(ToUtf8(bench.V2().units.cbo_unit[0].Text()), ToUtf8(GetParam().unit));
  EXPECT_EQ(ToUtf8(bench.V2().Item(10)), ToUtf8(GetParam().cell));
  EXPECT_FALSE(bench.V2().DataChanged);
  EXPECT_EQ(bench.V2().units.cbo_unit[1].Text(), u"Hz") << "the box of another value";
}

INSTANTIATE_TEST_SUITE_P(
    Frequencies, V2ShownValueTest,
    testing::Values(ShownValue{u"12.50 kHz", u"12.50", u"kHz"}, ShownValue{u"12.50 Hz", u"12.50", u"Hz"},
                    ShownValue{u"7 mHz", u"7", u"mHz"}, ShownValue{u"7mHz", u"7", u"mHz"},
                    ShownValue{u"-1.5E3  Hz", u"-1.5E3", u"Hz"}, ShownValue{u"12.5", u"12.5", u"kHz"},
                    ShownValue{u"", u"", u"kHz"}, ShownValue{u"600 rpm", u"600", u"Hz"},
                    ShownValue{u"600 KHZ", u"600", u"Hz"},
                    ShownValue{u"invalid data", u"invalid data", u"kHz"}));

TEST(KvConfigV2Test, ABoxThatShowsNothingYetShowsHertz) {
  V2Bench bench(u"QEYZ");
  for (int index = 0; index < 3; ++index) {
    EXPECT_EQ(bench.V2().units.cbo_unit[index].Text(), u"Hz") << index;
  }
  bench.Show(10, u"12.5");
  EXPECT_EQ(bench.V2().units.cbo_unit[0].Text(), u"Hz");
}

TEST(KvConfigV2Test, AValueOfAFixedUnitShowsItsNumberAndKeepsItsOwnUnit) {
  V2Bench bench(u"QEYZ");
  bench.Show(8, u"100 ms");
  EXPECT_EQ(bench.Field(u"08").Text(), u"100");
  EXPECT_EQ(bench.UnitOf(u"08"), u"msec");
  EXPECT_EQ(bench.V2().Item(8), u"100 ms");
  bench.Show(8, u"no number");
  EXPECT_EQ(bench.Field(u"08").Text(), u"no number");
}

TEST(KvConfigV2Test, ATagAndACountAreShownWhole) {
  V2Bench bench(u"QEYZ");
  bench.Show(2, u"12 kHz");
  bench.Show(16, u"4 pulses");
  EXPECT_EQ(bench.Field(u"02").Text(), u"12 kHz");
  EXPECT_EQ(bench.Field(u"16").Text(), u"4 pulses");
  bench.Type(u"02", u" 12 Hz ");
  bench.Type(u"16", u" 8 ");
  EXPECT_EQ(bench.V2().Item(2), u"12 Hz");
  EXPECT_EQ(bench.V2().Item(16), u"8");
}

TEST(KvConfigV2Test, AValueOfNoUseIsBlankWithItsBoxClosed) {
  V2Bench bench(u"QEYZ");
  bench.Show(10, u"NEEDLESS");
  EXPECT_EQ(bench.Field(u"10").Text(), u"");
  EXPECT_TRUE(bench.V2().units.cbo_unit[0].Locked());
  EXPECT_EQ(bench.V2().units.cbo_unit[0].ShownLook(), Look::Grey);
  EXPECT_EQ(bench.V2().Item(10), u"NEEDLESS");
  bench.Show(10, u"5 Hz");
  EXPECT_FALSE(bench.V2().units.cbo_unit[0].Locked());
  EXPECT_EQ(bench.V2().units.cbo_unit[0].ShownLook(), Look::Normal);
}

TEST(KvConfigV2Test, LockedRowsLockTheirBoxes) {
  PageBench bench;
  String definition = bench.TextOf(DefPath(u"QEYZ"));
  for (const StringView item : {u"10", u"23", u"08"}) {
    definition = WithDataField(definition, String(item), 20, u"Y");
  }
  bench.files.Put(DefPath(u"QEYZ"), bench.code_page.Encode(definition).value());
  bench.Choose(u"QEYZ");
  auto& page = dynamic_cast<KvConfig_V2&>(bench.Page());
  for (const Control* control : std::initializer_list<const Control*>{
           &bench.Field(u"10"), &page.units.cbo_unit[0], &page.Combo[0], &bench.Field(u"08")}) {
    EXPECT_TRUE(control->Locked()) << control->FullName();
    EXPECT_EQ(control->ShownLook(), Look::Grey) << control->FullName();
  }
  for (const Control* control : std::initializer_list<const Control*>{
           &bench.Field(u"17"), &page.units.cbo_unit[1], &page.Combo[1], &bench.Field(u"09")}) {
    EXPECT_FALSE(control->Locked()) << control->FullName();
    EXPECT_EQ(control->ShownLook(), Look::Normal) << control->FullName();
  }
}

// How a value is typed.

struct TypedValue {
  String item;
  String text;
  String cell;
};

void PrintTo(const TypedValue& value, std::ostream* out) {
  *out << "item " << ToUtf8(value.item) << " \"" << ToUtf8(value.text) << '"';
}

class V2TypedValueTest : public testing::TestWithParam<TypedValue> {};

TEST_P(V2TypedValueTest, GoesIntoTheSetWithTheUnitThatIsShown) {
  V2Bench bench(u"QEYZ");
  bench.Upload();
  bench.Pick(bench.V2().units.cbo_unit[1], u"kHz");
  bench.V2().DataChanged = false;
  bench.Type(GetParam().item, GetParam().text);
  EXPECT_EQ(ToUtf8(bench.V2().Item(std::stoi(ToUtf8(GetParam().item)))), ToUtf8(GetParam().cell));
  EXPECT_EQ(ToUtf8(bench.Field(GetParam().item).Text()), ToUtf8(GetParam().text));
  EXPECT_TRUE(bench.V2().DataChanged);
}

INSTANTIATE_TEST_SUITE_P(
    Values, V2TypedValueTest,
    testing::Values(TypedValue{u"10", u"12.5", u"12.5 Hz"}, TypedValue{u"17", u"12.5", u"12.5 kHz"},
                    TypedValue{u"17", u" 12.5 ", u"12.5 kHz"}, TypedValue{u"17", u"\t12.5", u"12.5 kHz"},
                    TypedValue{u"17", u"-1e3", u"-1e3 kHz"}, TypedValue{u"17", u"12.5 kHz", u"12.5 kHz"},
                    TypedValue{u"17", u"12.5Hz", u"12.5Hz"}, TypedValue{u"17", u" abc ", u"abc"},
                    TypedValue{u"17", u"1.5.2", u"1.5.2"}, TypedValue{u"17", u"", u""},
                    TypedValue{u"17", u" ", u""}, TypedValue{u"08", u"15", u"15 msec"},
                    TypedValue{u"08", u"15 msec", u"15 msec"}, TypedValue{u"21", u"2.5", u"2.5 %"},
                    TypedValue{u"08", u"", u""}));

TEST(KvConfigV2Test, AnEmptiedFieldKeepsItsUnitForTheNextNumber) {
  V2Bench bench(u"QEYZ");
  bench.Show(17, u"5 mHz");
  bench.Type(u"17", u"");
  bench.Type(u"17", u"6");
  EXPECT_EQ(bench.V2().Item(17), u"6 mHz");
}

// How a unit is picked.

TEST(KvConfigV2Test, PickingAUnitStoresTheNumberWithItAndConvertsNothing) {
  V2Bench bench(u"QEYZ");
  bench.Show(20, u"12.50 kHz");
  bench.Pick(bench.V2().units.cbo_unit[2], u"mHz");
  EXPECT_EQ(bench.V2().Item(20), u"12.50 mHz");
  EXPECT_EQ(bench.Field(u"20").Text(), u"12.50");
  EXPECT_EQ(bench.V2().units.cbo_unit[2].Text(), u"mHz");
  EXPECT_TRUE(bench.V2().DataChanged);
  EXPECT_EQ(bench.V2().Item(10), u"");
  EXPECT_EQ(bench.V2().units.cbo_unit[0].Text(), u"Hz");
}

TEST(KvConfigV2Test, PickingAUnitGivesOneToAValueWithoutOrOfAnUnknownUnit) {
  V2Bench bench(u"QEYZ");
  bench.Show(10, u"12.5");
  bench.Pick(bench.V2().units.cbo_unit[0], u"Hz");
  EXPECT_EQ(bench.V2().Item(10), u"12.5 Hz");
  bench.Show(10, u"600 rpm");
  bench.Pick(bench.V2().units.cbo_unit[0], u"Hz");
  EXPECT_EQ(bench.V2().Item(10), u"600 Hz");
}

TEST(KvConfigV2Test, PickingAUnitLeavesTheOtherValuesAsTheyAre) {
  V2Bench bench(u"QEYZ");
  bench.Show(10, u"5 Hz");
  bench.Show(17, u"600 rpm");
  bench.Show(8, u"10 ms");
  bench.Pick(bench.V2().units.cbo_unit[0], u"mHz");
  EXPECT_EQ(bench.V2().Item(10), u"5 mHz");
  EXPECT_EQ(bench.V2().Item(17), u"600 rpm");
  EXPECT_EQ(bench.V2().Item(8), u"10 ms");
}

TEST(KvConfigV2Test, PickingAUnitInventsNoValue) {
  V2Bench bench(u"QEYZ");
  bench.Pick(bench.V2().units.cbo_unit[0], u"kHz");
  EXPECT_EQ(bench.V2().Item(10), u"");
  bench.Type(u"10", u"fast");
  bench.Pick(bench.V2().units.cbo_unit[0], u"mHz");
  EXPECT_EQ(bench.V2().Item(10), u"fast");
  bench.Type(u"10", u"5");
  EXPECT_EQ(bench.V2().Item(10), u"5 mHz");
}

TEST(KvConfigV2Test, FindsABoxOfUnitsByItsNameAsAScriptDoes) {
  V2Bench bench(u"QEYZ");
  auto* const box = dynamic_cast<ComboBox*>(bench.V2().FindControl("cbo_unit(2)"));
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(bench.V2().WhyRefused(*box), "");
  bench.Pick(*box, u"kHz");
  EXPECT_EQ(box->ShownText(), u"kHz");
  EXPECT_EQ(bench.V2().WhyRefused(*bench.V2().FindControl("cbo_unit(3)")), "hidden");
}

TEST(KvConfigV2Test, ANewSetBeginsWithHertzAgain) {
  V2Bench bench(u"QEYZ");
  bench.Show(10, u"12.50 kHz");
  bench.New();
  EXPECT_EQ(bench.V2().Item(10), u"");
  EXPECT_EQ(bench.Field(u"10").Text(), u"");
  EXPECT_EQ(bench.V2().units.cbo_unit[0].Text(), u"Hz");
  EXPECT_EQ(bench.V2().Item(26), u"0:HIGH ALARM");
}

TEST(KvConfigV2Test, ValuesOfAFileAreShownAndSavedAsTheyStandInIt) {
  V2Bench bench(u"QEYZ");
  const String text =
      u"$DefFile\r\n\"QEYZ.def\"\r\n$Data\r\n\"1\",\"2\",\"PUMP 1\"\r\n\"1\",\"8\",\"103 ms\"\r\n"
      u"\"1\",\"10\",\"12.5kHz\"\r\n\"1\",\"16\",\"04\"\r\n\"1\",\"17\",\"007.0 mHz\"\r\n"
      u"\"1\",\"20\",\"fast\"\r\n\"1\",\"26\",\"1:LOW ALARM\"\r\n$Memo\r\n\"0\",\"\"\r\n"
      u"\"1\",\"\"\r\n$End\r\n";
  bench.files.Put(kFile, bench.code_page.Encode(text).value());
  bench.Open(kFile);
  EXPECT_EQ(bench.Field(u"10").Text(), u"12.5");
  EXPECT_EQ(bench.V2().units.cbo_unit[0].Text(), u"kHz");
  EXPECT_EQ(bench.V2().units.cbo_unit[1].Text(), u"mHz");
  EXPECT_EQ(bench.V2().optAlarm.Selected(), 1);
  EXPECT_FALSE(bench.V2().DataChanged);
  bench.Save(kFile);
  EXPECT_EQ(bench.TextOf(kFile), text);
}

}  // namespace
}  // namespace korva::test
