// Alarms of family Third: those that their type switches off, and the direction that goes with a value.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v3_bench.h"

namespace korva {
namespace {

using test::V3Bench;

using test::kFile;
constexpr const char16_t* kAlarmOn = u"ALARM";
constexpr const char16_t* kAlarmOff = u"NO ALARM";

/// An alarm of QNA2 by its items.
struct AlarmItems {
  String type;
  String value;
  String direction;
  String delay;
  std::string device_type;  ///< digits of the type, and of the other alarm's
  std::string other_type;
};

void PrintTo(const AlarmItems& alarm, std::ostream* out) { *out << "type in item " << ToUtf8(alarm.type); }

struct AlarmTest : testing::TestWithParam<AlarmItems> {
  static const AlarmItems& Alarm() { return GetParam(); }

  /// The states of the alarm's rows: value, direction, delay.
  static std::vector<bool> Enabled(V3Bench& bench, const AlarmItems& alarm) {
    return {bench.Field(alarm.value).Enabled(), bench.BoxOf(alarm.direction).Enabled(),
            bench.Field(alarm.delay).Enabled()};
  }
  static std::vector<bool> Enabled(V3Bench& bench) { return Enabled(bench, Alarm()); }
  static String Cell(V3Bench& bench, const String& item) { return bench.Page().GroupItem.At(u"01", item); }
};

const AlarmItems kFirstAlarm{u"25", u"22", u"23", u"24", "25", "27"};
const AlarmItems kSecondAlarm{u"27", u"28", u"29", u"30", "27", "25"};
const std::vector<bool> kAll = {true, true, true};
const std::vector<bool> kNone = {false, false, false};

INSTANTIATE_TEST_SUITE_P(Alarm, AlarmTest, testing::Values(kFirstAlarm, kSecondAlarm));

TEST_P(AlarmTest, NoAlarmInTheDeviceDisablesItsRowsAfterAnUploadAndNoOther) {
  V3Bench bench(u"QNA2", {{Alarm().device_type, "0"}, {Alarm().other_type, "1"}});
  EXPECT_EQ(Enabled(bench), kAll) << "nothing chosen";
  bench.Read();
  EXPECT_EQ(Enabled(bench), kNone);
  EXPECT_EQ(Enabled(bench, Alarm().type == u"25" ? kSecondAlarm : kFirstAlarm), kAll);
  EXPECT_TRUE(bench.BoxOf(Alarm().type).Enabled());
  EXPECT_TRUE(bench.Field(u"26").Enabled()) << "the hysteresis of both";
  EXPECT_TRUE(bench.Field(u"20").Enabled());
  for (const String& item : {Alarm().value, Alarm().direction, Alarm().delay}) {
    EXPECT_EQ(Cell(bench, item), kNeedless) << ToUtf8(item);
  }
  EXPECT_EQ(bench.Field(Alarm().value).Text(), u"");
  EXPECT_TRUE(bench.Passes());
}

TEST_P(AlarmTest, AChosenAlarmOpensItsRowsEmptyAndTheyMustBeFilled) {
  V3Bench bench(u"QNA2", {{Alarm().device_type, "0"}});
  bench.Read();
  bench.Pick(bench.BoxOf(Alarm().type), kAlarmOn);
  EXPECT_EQ(Enabled(bench), kAll);
  for (const String& item : {Alarm().value, Alarm().direction, Alarm().delay}) {
    EXPECT_EQ(Cell(bench, item), u"") << ToUtf8(item);
  }
  EXPECT_FALSE(bench.Field(Alarm().value).Locked());
  EXPECT_EQ(bench.LookOf(Alarm().value), Look::Normal);
  EXPECT_EQ(bench.CheckResult(), test::Shown(BoxKey::FieldBlank));
  bench.Type(Alarm().value, u"80");
  bench.Type(Alarm().delay, u"3");
  EXPECT_EQ(bench.CheckResult(), test::Shown(BoxKey::ValueBad)) << "no direction";
  EXPECT_EQ(bench.BoxOf(Alarm().direction).ShownLook(), Look::Bad);
  bench.Pick(bench.BoxOf(Alarm().direction), u"1:DOWN");
  EXPECT_TRUE(bench.Passes());
  EXPECT_EQ(bench.BoxOf(Alarm().direction).ShownLook(), Look::Normal);
  EXPECT_TRUE(bench.Downloads());
  EXPECT_EQ(bench.device.Value("01", ToUtf8(Alarm().type)), "ALARM");
  EXPECT_EQ(bench.device.Value("01", ToUtf8(Alarm().value)), "80");
  EXPECT_EQ(bench.device.Value("01", ToUtf8(Alarm().direction)), "1:DOWN");
  EXPECT_EQ(bench.device.Value("01", ToUtf8(Alarm().delay)), "3");
}

TEST_P(AlarmTest, ASwitchedOffAlarmKeepsItsTextsAndIsNeitherCheckedNorWritten) {
  V3Bench bench(u"QNA2", {{"25", "1"}, {"27", "1"}});
  bench.Read();
  bench.Type(Alarm().value, u"999");
  bench.Type(Alarm().delay, u"");
  bench.Page().GroupItem.Set(u"01", Alarm().direction, {});
  bench.Page().BuildPage();
  EXPECT_FALSE(bench.Passes());
  bench.Type(Alarm().delay, u"1000");
  EXPECT_FALSE(bench.Passes());
  EXPECT_EQ(bench.LookOf(Alarm().value), Look::Bad);
  EXPECT_EQ(bench.LookOf(Alarm().delay), Look::Bad);
  EXPECT_EQ(bench.BoxOf(Alarm().direction).ShownLook(), Look::Bad);
  bench.Pick(bench.BoxOf(Alarm().type), kAlarmOff);
  EXPECT_EQ(Enabled(bench), kNone);
  EXPECT_EQ(bench.LookOf(Alarm().value), Look::Normal) << "what isn't judged is not bad";
  EXPECT_EQ(bench.BoxOf(Alarm().direction).ShownLook(), Look::Normal);
  EXPECT_EQ(bench.Field(Alarm().value).Text(), u"999");
  EXPECT_EQ(bench.Field(Alarm().delay).Text(), u"1000");
  EXPECT_TRUE(bench.Passes());
  EXPECT_TRUE(bench.Downloads());
  EXPECT_TRUE(bench.Sent("I" + ToUtf8(Alarm().type)));
  for (const String& item : {Alarm().value, Alarm().direction, Alarm().delay}) {
    EXPECT_FALSE(bench.Sent("I" + ToUtf8(item))) << ToUtf8(item);
  }
  EXPECT_EQ(bench.device.Value("01", ToUtf8(Alarm().type)), "NO ALARM");
  bench.Pick(bench.BoxOf(Alarm().type), kAlarmOn);
  EXPECT_EQ(Enabled(bench), kAll);
  EXPECT_EQ(bench.Field(Alarm().value).Text(), u"999") << "as it was";
}

TEST_P(AlarmTest, TheStateComesBackFromAFileAndNewFreesAll) {
  V3Bench bench(u"QNA2", {{"25", "1"}, {"27", "1"}});
  bench.Read();
  bench.Pick(bench.BoxOf(Alarm().type), kAlarmOff);
  bench.Save(kFile);
  bench.New();
  EXPECT_EQ(Enabled(bench), kAll);
  bench.Open(kFile);
  EXPECT_EQ(Enabled(bench), kNone);
  EXPECT_NE(bench.Field(Alarm().value).Text(), u"");
  bench.Choose(u"QEC2");
  bench.Choose(u"QNA2");
  EXPECT_EQ(Enabled(bench), kNone) << "the set is the same";
}

TEST_P(AlarmTest, NothingIsLeftOverForAnotherModel) {
  V3Bench bench(u"QNA2", {{Alarm().device_type, "0"}});
  bench.Read();
  EXPECT_EQ(Enabled(bench), kNone);
  bench.Page().DataChanged = false;
  for (const String& model : test::ModelsOf(u"Third")) {
    if (model == u"QNA2") {
      continue;
    }
    bench.Choose(model);
    for (int index = 0; index < bench.Page().Text.Count(); ++index) {
      EXPECT_TRUE(bench.Page().Text[index].Enabled()) << ToUtf8(model) << ' ' << index;
    }
    for (int index = 0; index < bench.Page().Combo.Count(); ++index) {
      EXPECT_TRUE(bench.Page().Combo[index].Enabled()) << ToUtf8(model) << ' ' << index;
    }
  }
}

TEST(AlarmsTest, WithoutAChosenTypeTheRowsApply) {
  V3Bench bench(u"QNA2", {{"25", "1"}, {"27", "1"}});
  bench.Read();
  bench.Page().SetItem(25, u"");
  bench.Page().SetItem(23, u"");
  bench.Page().BuildPage();
  EXPECT_FALSE(bench.Passes());
  EXPECT_EQ(bench.BoxOf(u"23").ShownLook(), Look::Bad);
  EXPECT_EQ(bench.BoxOf(u"29").ShownLook(), Look::Normal);
}

TEST(AlarmsTest, ADirectionThatTheDeviceHasNoUseForNeedsNoChoice) {
  V3Bench bench(u"QNA2", {{"25", "1"}, {"27", "1"}});
  bench.device.AddFault({.fault = sim::Fault::NotUsable, .command = "I23"});
  bench.Read();
  EXPECT_EQ(bench.Page().Item(23), kNeedless);
  EXPECT_TRUE(bench.Passes());
}

TEST(AlarmsTest, AnotherModelsItemsOfTheSameNumbersKnowNoNoAlarm) {
  V3Bench bench(u"QHC2");
  String text = bench.TextOf(test::DefPath(u"QHC2"));
  text.replace(text.find(u"01,  31,"), 8, u"01,  22,");
  bench.files.Put(test::DefPath(u"QHC2"), bench.code_page.Encode(text).value());
  bench.Choose(u"QHC2");
  bench.Page().SetItem(25, kAlarmOff);
  bench.Page().BuildPage();
  EXPECT_TRUE(bench.Field(u"22").Enabled());
}

// Values with a direction, and with a unit of the device.

struct DirectedCase {
  String model;
  String item;
  int direction = 0;       ///< item of the direction
  std::string other = {};  ///< the direction item's text for down
  std::string unit = {};   ///< that the device appends
};

void PrintTo(const DirectedCase& one, std::ostream* out) {
  *out << ToUtf8(one.model) << " item " << ToUtf8(one.item);
}

struct DirectedValueTest : testing::TestWithParam<DirectedCase> {
  static OptionGroup& Options(V3Bench& bench) {
    return GetParam().direction == 8 ? bench.Page().Opt_Direction : bench.Page().Opt_Direction09;
  }
};

INSTANTIATE_TEST_SUITE_P(Value, DirectedValueTest,
                         testing::Values(DirectedCase{u"QEC2", u"06", 8, "1:DOWN", "Hz"},
                                         DirectedCase{u"QEC2", u"07", 8, "1:DOWN", "%"},
                                         DirectedCase{u"QEC2", u"09", 10, "1:COUNT DOWN", ""},
                                         DirectedCase{u"QEY3", u"07", 8, "1:DOWN", "Hz"},
                                         DirectedCase{u"QEY3", u"09", 8, "1:DOWN", "%"}));

TEST_P(DirectedValueTest, GoesOutWithItsDirectionBehindIt) {
  V3Bench bench(GetParam().model);
  bench.Read();
  bench.Type(GetParam().item, u"77");
  EXPECT_TRUE(bench.Downloads());
  EXPECT_TRUE(bench.Sent("D77 (UP)"));
  EXPECT_FALSE(bench.Sent("D77 (DOWN)"));
  bench.Press(Options(bench), 1);
  EXPECT_TRUE(bench.Downloads());
  EXPECT_TRUE(bench.Sent("D77 (DOWN)"));
  EXPECT_FALSE(bench.Sent("D77 (UP)"));
  EXPECT_EQ(bench.device.Value("01", ToUtf8(GetParam().item)), "77" + GetParam().unit);
  EXPECT_EQ(bench.device.Value("01", GetParam().direction == 8 ? "08" : "10"), GetParam().other);
}

TEST_P(DirectedValueTest, GoesOutAloneWithoutAChosenDirection) {
  for (const String& direction : {String(), String(kNeedless)}) {
    V3Bench bench(GetParam().model);
    bench.Read();
    bench.Type(GetParam().item, u"77");
    bench.Page().SetItem(GetParam().direction, direction);
    bench.Page().Def[GetParam().direction == 8 ? u"$I08" : u"$I09QEC2"].Set(1, 1, u"");  // a shorter list
    bench.Page().BuildPage();
    EXPECT_TRUE(bench.Downloads());
    EXPECT_TRUE(bench.Sent("D77"));
  }
}

TEST_P(DirectedValueTest, ComesInWithoutTheUnitThatTheDevicePutsBehindIt) {
  V3Bench bench(GetParam().model, {{ToUtf8(GetParam().item), "12"}});
  bench.Read();
  ASSERT_EQ(bench.device.Value("01", ToUtf8(GetParam().item)), "12" + GetParam().unit);
  EXPECT_EQ(bench.Field(GetParam().item).Text(), u"12");
  EXPECT_TRUE(bench.Passes());
}

TEST_P(DirectedValueTest, AnAnswerThatIsNoValueIsLeftAlone) {
  struct Answer {
    sim::Fault fault;
    String cell;
  };
  for (const auto& [fault, cell] :
       {Answer{sim::Fault::Refused, u"ERROR"}, Answer{sim::Fault::NotUsable, u"NEEDLESS"},
        Answer{sim::Fault::Silent, u""}}) {
    V3Bench bench(GetParam().model);
    bench.device.AddFault({.fault = fault, .command = "I" + ToUtf8(GetParam().item)});
    bench.Read();
    EXPECT_EQ(bench.Page().GroupItem.At(u"01", GetParam().item), cell);
  }
}

TEST(DirectedValuesTest, NoOtherValueGetsADirectionOrLosesAUnit) {
  V3Bench bench(u"QEC2", {{"31", "77"}});
  bench.Read();
  EXPECT_EQ(bench.Page().Item(31), u"77");
  bench.Press(bench.Page().Opt_Direction, 1);
  EXPECT_TRUE(bench.Downloads());
  EXPECT_TRUE(bench.Sent("D77"));
}

}  // namespace
}  // namespace korva
