// The page of family LiteThird: options, frequencies with their units, upload and download of the items.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "kv_config_v2_bench.h"
#include "z2_kv_config_v3_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

const Texts kUploadDone = {Shown(BoxKey::UploadDone)};
const Texts kDownloadDone = {Shown(BoxKey::DownloadDone)};
const Texts kMismatch = {Shown(BoxKey::DownloadDataMismatch), Shown(BoxKey::NotMonitorMode)};

// Options.

TEST(PulsePageTest, OptDecrPressOption1WritesRow1sValueIntoItem10) {
  PulseBench bench;
  EXPECT_EQ(bench.V3().Opt_DecrPress[0].Caption(), u"< 6V");
  EXPECT_EQ(bench.V3().Opt_DecrPress[1].Caption(), u">= 6V");
  bench.Press(bench.V3().Opt_DecrPress, 1);
  EXPECT_EQ(bench.Page().Item(10), u">= 6V");
  bench.Press(bench.V3().Opt_DecrPress, 0);
  EXPECT_EQ(bench.Page().Item(10), u"< 6V");
}

TEST(PulsePageTest, TheFiltersAndTheSwitchOfTheTableWriteTheirOwnItems) {
  PulseBench bench;
  bench.Press(bench.V3().Opt_FilterSSW, 1);
  EXPECT_EQ(bench.Page().Item(36), u"ON");
  EXPECT_EQ(bench.Page().Item(37), u"OFF");
  bench.Press(bench.V3().Opt_FilterLSW, 1);
  EXPECT_EQ(bench.Page().Item(37), u"ON");
  EXPECT_FALSE(bench.Page().Tabs.TabEnabled(3));
  bench.Press(bench.V3().linearizer.Opt_Lnr, 1);
  EXPECT_EQ(bench.Page().Item(42), u"ON");
  EXPECT_TRUE(bench.Page().Tabs.TabEnabled(3));
  bench.Press(bench.V3().linearizer.Opt_Lnr, 0);
  EXPECT_EQ(bench.Page().Item(42), u"OFF");
  EXPECT_FALSE(bench.Page().Tabs.TabEnabled(3));
}

TEST(PulsePageTest, OptionsAndListsGoOutAsTheirCodes) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Press(bench.V3().Opt_DecrPress, 1);
  bench.Press(bench.V3().Opt_FilterLSW, 1);
  bench.Pick(bench.Page().Combo[0], u"2:VOLTAGE PULSE");
  bench.Pick(bench.Page().Combo[1], u"7:-10-10 V");
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
  for (const char* const write : {"01/10 D1", "01/36 D0", "01/37 D1", "01/35 D2", "01/41 D7"}) {
    EXPECT_EQ(bench.Accesses(write).size(), 1U) << write;
  }
}

// Frequencies.

struct FrequencyCell {
  String cell;
  String field;
  String unit;
};

TEST(PulseUnitTest, ACellOfNumberAndUnitIsSplitBetweenFieldAndBox) {
  for (const FrequencyCell& one :
       {FrequencyCell{u"12.5 Hz", u"12.5", u"Hz"}, FrequencyCell{u"12.5kHz", u"12.5", u"kHz"},
        FrequencyCell{u"12.5 kHz", u"12.5", u"kHz"}, FrequencyCell{u"7mHz", u"7", u"mHz"},
        FrequencyCell{u"7", u"7", u"Hz"}, FrequencyCell{u"invalid data", u"invalid data", u"Hz"},
        FrequencyCell{u"", u"", u"Hz"}}) {
    PulseBench bench;
    bench.Show(32, one.cell);
    EXPECT_EQ(ToUtf8(bench.Field(u"32").Text()), ToUtf8(one.field));
    EXPECT_EQ(ToUtf8(bench.V3().units.cbo_unit[0].Text()), ToUtf8(one.unit));
    EXPECT_EQ(bench.Page().Item(32), one.cell);
    EXPECT_FALSE(bench.Page().DataChanged);
  }
}

TEST(PulseUnitTest, ATypedNumberIsComposedWithTheUnitThatIsShownAndABlankBeforeThePlainUnit) {
  PulseBench bench;
  bench.Show(32, u"1 Hz");
  bench.Type(u"32", u"2.5");
  EXPECT_EQ(bench.Page().Item(32), u"2.5 Hz");
  bench.Show(32, u"1kHz");
  bench.Type(u"32", u"2.5");
  EXPECT_EQ(bench.Page().Item(32), u"2.5kHz");
  bench.Show(32, u"1mHz");
  bench.Type(u"32", u"2.5");
  EXPECT_EQ(bench.Page().Item(32), u"2.5mHz");
  bench.Type(u"32", u" abc");
  EXPECT_EQ(bench.Page().Item(32), u"abc");
}

struct PickedUnit {
  String cell;
  String pick;
  String then;
  String field;
};

TEST(PulseUnitTest, PickingAUnitConvertsTheNumberAndIsAnEdit) {
  for (const PickedUnit& one :
       {PickedUnit{u"1500 Hz", u"kHz", u"1.5kHz", u"1.5"}, PickedUnit{u"1.5kHz", u"Hz", u"1500 Hz", u"1500"},
        PickedUnit{u"0.3 Hz", u"mHz", u"300mHz", u"300"}, PickedUnit{u"250mHz", u"Hz", u"0.25 Hz", u"0.25"},
        PickedUnit{u"0.1kHz", u"mHz", u"100000mHz", u"100000"},
        PickedUnit{u"12.50 Hz", u"Hz", u"12.50 Hz", u"12.50"},
        PickedUnit{u"12.50 kHz", u"kHz", u"12.50kHz", u"12.50"},
        PickedUnit{u"-1 Hz", u"mHz", u"-1000mHz", u"-1000"}, PickedUnit{u"7", u"kHz", u"0.007kHz", u"0.007"},
        PickedUnit{u"abc", u"kHz", u"abc", u"abc"}}) {
    PulseBench bench;
    bench.Show(32, one.cell);
    bench.Pick(bench.V3().units.cbo_unit[0], one.pick);
    EXPECT_EQ(ToUtf8(bench.Page().Item(32)), ToUtf8(one.then)) << ToUtf8(one.cell);
    EXPECT_EQ(ToUtf8(bench.Field(u"32").Text()), ToUtf8(one.field)) << ToUtf8(one.cell);
    EXPECT_EQ(bench.V3().units.cbo_unit[0].Text(), one.pick);
    EXPECT_TRUE(bench.Page().DataChanged) << ToUtf8(one.cell);
  }
}

TEST(PulseUnitTest, OneBoxDoesNotTouchTheOtherFrequency) {
  PulseBench bench;
  bench.Show(32, u"1500 Hz");
  bench.Show(33, u"2 Hz");
  bench.Pick(bench.V3().units.cbo_unit[0], u"kHz");
  EXPECT_EQ(bench.Page().Item(33), u"2 Hz");
  EXPECT_EQ(bench.V3().units.cbo_unit[1].Text(), u"Hz");
  bench.Pick(bench.V3().units.cbo_unit[0], u"mHz");
  EXPECT_EQ(bench.Page().Item(32), u"1500000mHz") << "from the unit picked before";
}

TEST(PulseUnitTest, ARowWithoutABoxIsNotSplit) {
  PulseBench bench;
  bench.Show(38, u"2.50 V");
  EXPECT_EQ(bench.Field(u"38").Text(), u"2.50 V");
  bench.Type(u"38", u"3");
  EXPECT_EQ(bench.Page().Item(38), u"3");
}

TEST(PulseUnitTest, TheCodeOfTheUnitGoesAheadOfTheNumber) {
  for (const auto& [unit, code] :
       {std::pair{u"mHz", "D0"}, std::pair{u"Hz", "D1"}, std::pair{u"kHz", "D2"}}) {
    PulseBench bench;
    bench.BoxesOfUpload();
    bench.Show(32, String(u"2.5") + unit);
    EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
    const std::string write = std::string("01/11 ") + code;
    const auto& accesses = bench.line.accesses;
    const auto number = std::find(accesses.begin(), accesses.end(), "01/32 D2.5");
    ASSERT_NE(number, accesses.end()) << code;
    EXPECT_EQ(*(number - 2), write) << "ahead of the number, with nothing between";
    EXPECT_EQ(bench.Accesses("01/11 D").size(), 1U);
    EXPECT_EQ(bench.device.Value("01", "32"),
              ToUtf8(u"2.5" + String(unit == StringView(u"Hz") ? u" " : u"") + unit));
  }
}

TEST(PulseUnitTest, ARowMayHaveAnItemOfItsOwnForItsUnit) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Show(33, u"40mHz");
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
  const auto& accesses = bench.line.accesses;
  const auto number = std::find(accesses.begin(), accesses.end(), "01/33 D40");
  ASSERT_NE(number, accesses.end());
  EXPECT_EQ(*(number - 2), "01/34 D0");
  EXPECT_EQ(bench.Accesses("01/11 D").size(), 1U) << "that of the other frequency";
}

TEST(PulseUnitTest, AUnitThatTheDeviceDoesNotTakeEndsTheDownload) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.line.replies["01/11 D1"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDataMismatch)});
  EXPECT_TRUE(bench.Accesses("01/32 D5").empty()) << "the number is not sent in another unit";
  bench.ExpectAtRest();
}

// Upload.

TEST(PulseUploadTest, BringsEveryItemAsTheDeviceTellsIt) {
  PulseBench bench;
  EXPECT_EQ(bench.BoxesOfUpload(), kUploadDone);
  EXPECT_EQ(bench.Page().Item(2), u"TAG-1");
  EXPECT_EQ(bench.Page().Item(10), u"< 6V");
  EXPECT_EQ(bench.Page().Item(18), u"1.00");
  EXPECT_EQ(bench.Page().Item(30), u"0.00");
  EXPECT_EQ(bench.Page().Item(32), u"500 Hz");
  EXPECT_EQ(bench.Page().Item(38), u"2.50");
  EXPECT_EQ(bench.Page().Item(41), u"0:4-20 mA");
  EXPECT_TRUE(bench.Page().DataChanged);
  EXPECT_EQ(bench.Accesses("00/99").size(), 2U) << "the link test reads the value, once";
  bench.ExpectAtRest();
}

TEST(PulseUploadTest, AnItemThatDoesNotAnswerIsEmptyAndTheUploadGoesOn) {
  PulseBench bench;
  bench.line.replies["01/38 D"] = std::nullopt;
  EXPECT_EQ(bench.BoxesOfUpload(), kUploadDone);
  EXPECT_EQ(bench.Page().Item(38), u"");
  EXPECT_EQ(bench.Page().Item(39), u"0.50");
  EXPECT_EQ(bench.Accesses("01/38 D").size(), 4U);
}

TEST(PulseUploadTest, TagAndCutOutThatAreNotReadyAreReadAgain) {
  PulseBench bench;
  bench.device.AddFault(sim::ParseFault("not-ready"));
  bench.BoxesOfUpload({Answer::No});
  for (const char* const item : {"02", "18"}) {
    EXPECT_EQ(bench.Accesses(std::string("01/") + item + " D").size(), 2U) << item;
  }
  EXPECT_EQ(bench.Page().Item(2), u"TAG-1");
  EXPECT_EQ(bench.Page().Item(18), u"1.00");
  EXPECT_EQ(bench.Page().Item(38), u"invalid data") << "any other item is what the device says";
}

TEST(PulseUploadTest, AnItemThatIsNeverReadyIsEmptyAfterFourTries) {
  PulseBench bench;
  bench.line.replies["01/18 D"] = "D    invalid data";
  EXPECT_EQ(bench.BoxesOfUpload(), kUploadDone);
  EXPECT_EQ(bench.Page().Item(18), u"");
  EXPECT_EQ(bench.Accesses("01/18 D").size(), 4U);
}

TEST(PulseUploadTest, ADeviceWithoutATagHasABlankOne) {
  PulseBench bench;
  bench.device.Set("01", "02", "");
  EXPECT_EQ(bench.BoxesOfUpload(), kUploadDone);
  EXPECT_EQ(Trimmed(bench.Page().Item(2)), u"");
  EXPECT_EQ(bench.Field(u"02").Text(), u"");
}

TEST(PulseUploadTest, ASilentDeviceIsLeftAtTheLinkTest) {
  PulseBench bench;
  bench.device.AddFault(sim::ParseFault("silent"));
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(bench.Page().cmdUpload);
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::CommFailure)});
}

// Download.

TEST(PulseDownloadTest, SendsTheItemsInTheirOrderWithoutResetAndWithoutPauses) {
  PulseBench bench;
  bench.BoxesOfUpload();
  const Clock start = bench.loop.Now();
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
  EXPECT_LT(bench.loop.Now() - start, std::chrono::seconds(75)) << "what the wire takes at 1200 baud";
  Texts written;
  for (const std::string& access : bench.line.accesses) {
    if (access.find(" D") != std::string::npos && !access.ends_with(" D")) {
      written.push_back(access);
    }
  }
  EXPECT_EQ(written,
            (Texts{"01/01 D0", "01/01 D1",    "01/02 DTAG-1",  "01/35 D0",    "01/10 D0",      "01/36 D0",
                   "01/37 D0", "01/38 D2.50", "01/39 D0.50",   "01/11 D1",    "01/32 D500",    "01/34 D1",
                   "01/33 D1", "01/23 D0",    "01/41 D0",      "01/12 D0.00", "01/13 D100.00", "01/18 D1.00",
                   "01/40 D0", "01/30 D0.00", "01/31 D100.00", "01/42 D0",    "01/01 D0",      "01/01 D0"}));
  EXPECT_TRUE(bench.Accesses("01/00").empty());
  bench.ExpectAtRest();
}

struct Voltage {
  String typed;
  String then;
};

TEST(PulseDownloadTest, VoltagesAreRaisedToTheGridOfFiveHundredthsWithABox) {
  for (const Voltage& one : {Voltage{u"2.51", u"2.55"}, Voltage{u"2.54", u"2.55"}, Voltage{u"2.56", u"2.60"},
                             Voltage{u"2.99", u"3.00"}}) {
    PulseBench bench;
    bench.BoxesOfUpload();
    bench.Type(u"38", one.typed);
    const std::string box = Shown(BoxKey::RoundedTo005V, {u"38", one.typed, one.then});
    EXPECT_EQ(bench.BoxesOfDownload(), (Texts{box, kDownloadDone.front()}));
    EXPECT_EQ(bench.Page().Item(38), one.then);
    EXPECT_EQ(bench.Accesses("01/38 D" + ToUtf8(one.then)).size(), 1U);
  }
}

TEST(PulseDownloadTest, AValueOnTheGridAndAValueWithoutVoltsHaveNoBox) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Type(u"38", u"2.5");
  bench.Type(u"39", u"0.55");
  bench.Type(u"18", u"1.23");
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
  EXPECT_EQ(bench.Accesses("01/38 D2.50").size(), 1U) << "in the mask of two decimals";
  EXPECT_EQ(bench.Accesses("01/18 D1.23").size(), 1U);
}

TEST(PulseDownloadTest, SETUserTAGAsReadBackOfATagCountsAsEqual) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Type(u"02", u"PUMP 7");
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
  EXPECT_EQ(bench.device.Value("01", "02"), "PUMP 7");
  bench.line.replies["01/02 DPUMP 7"] = "DPUMP 7    ";
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone) << "so does the tag itself";
}

TEST(PulseDownloadTest, AnotherTagAndSETUserTAGForAnyOtherItemAreDifferences) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.line.replies["01/02 DTAG-1"] = "DTAG-2     ";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{kMismatch.front()});
  bench.line.replies.clear();
  bench.line.replies["01/38 D2.50"] = "D    SET_user_TAG";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{kMismatch.front()});
  bench.ExpectAtRest();
}

TEST(PulseDownloadTest, ABlankTagGoesOutAsTenBlanks) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Type(u"02", u"");
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
  EXPECT_EQ(bench.Accesses("01/02 D          ").size(), 1U);
  EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"");
}

TEST(PulseDownloadTest, WhatIsNotReadyBehindItsWriteIsReadAgain) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Type(u"18", u"2.5");
  bench.line.replies["01/18 D2.5"] = "D    invalid data";
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone) << "the device holds it";
  bench.Type(u"18", u"3");
  bench.line.replies["01/18 D3"] = "D    invalid data";
  bench.line.replies["01/18 D"] = "D            2.50";
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{kMismatch.front()}) << "the device holds another";
}

TEST(PulseDownloadTest, ItemsTenAndElevenAreNotCollated) {
  PulseBench bench;
  bench.BoxesOfUpload();
  bench.Press(bench.V3().Opt_DecrPress, 1);
  bench.line.replies["01/10 D"] = "D            < 6V";
  EXPECT_EQ(bench.BoxesOfDownload(), kDownloadDone);
}

TEST(PulseDownloadTest, EveryOpenFieldMustBeANumber) {
  for (const StringView item : {u"12", u"13", u"18", u"30", u"31", u"32", u"33", u"38", u"39"}) {
    PulseBench bench;
    bench.BoxesOfUpload();
    bench.Type(String(item), u"12x");
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ValueBad)}) << ToUtf8(item);
    EXPECT_EQ(bench.LookOf(String(item)), Look::Bad);
    bench.Type(String(item), u"");
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::FieldBlank)}) << ToUtf8(item);
  }
}

// Monitor and output.

TEST(PulseIoCheckTest, TheMonitorReadsItemsFiveAndSix) {
  PulseBench bench;
  bench.loop.After(std::chrono::seconds(3), [&] { bench.V3().monitor.cmdMonitorOFF.Click(); });
  bench.Click(bench.V3().monitor.cmdMonitorON);
  const Texts reads = bench.Accesses("01/0");
  ASSERT_GE(reads.size(), 6U);
  EXPECT_EQ(Texts(reads.begin() + 2, reads.begin() + 6), (Texts{"01/05", "01/05 D", "01/06", "01/06 D"}));
  EXPECT_TRUE(bench.Accesses("01/03").empty());
  EXPECT_TRUE(bench.Accesses("01/04").empty());
  bench.ExpectAtRest();
}

TEST(PulseIoCheckTest, TheOutputIsForcedFromMinus15To115) {
  PulseBench bench;
  bench.ForceOutput(u"115.01");
  EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::OutputOutOfRange, {u"-15.00", u"115.00"})});
  bench.ForceOutput(u"115.00");
  EXPECT_EQ(bench.Accesses("01/03 D115.00").size(), 1U);
  EXPECT_EQ(bench.Field(u"03_mon").Text(), u"115.00");
  bench.Click(bench.V3().output.cmdStatusMonOFF);
  bench.ExpectAtRest();
}

}  // namespace
}  // namespace korva::test
