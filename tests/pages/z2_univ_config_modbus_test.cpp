// The Modbus settings of the page of family LiteUniv: their three buttons, the address, and the reset with
// its window.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "z2_univ_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

using namespace std::chrono_literals;

struct ModbusTest : testing::Test {
  ModbusTest() { bench.line.accesses.clear(); }

  ModbusSettings& Modbus() { return bench.Univ().modbus; }
  TextField& Address() { return bench.Field(u"81"); }
  ComboBox& Speed() { return bench.Page().Combo[4]; }
  ComboBox& Parity() { return bench.Page().Combo[5]; }
  ComboBox& StopBits() { return bench.Page().Combo[6]; }
  void ReadOut() {
    bench.Click(Modbus().cmdReadOutModbus);
    bench.TakeBoxes();
    bench.line.accesses.clear();
  }
  Texts BoxesOf(Button& button) {
    bench.TakeBoxes();
    bench.line.accesses.clear();
    bench.Click(button);
    return bench.TakeBoxes();
  }
  /// Values of the bar as they come.
  std::vector<int> FollowBar(Button& button) {
    std::vector<int> values;
    Modbus().Modbus_ProgressBar.Observe(
        [&] { values.push_back(static_cast<int>(Modbus().Modbus_ProgressBar.Value())); });
    bench.Click(button);
    return values;
  }

  Z2UnivBench bench;
};

// --- reading

TEST_F(ModbusTest, ReadsTheFourItemsBehindTheTitleOfTheModel) {
  bench.device.Set("01", "81", "2A");
  bench.device.Set("01", "82", "38400 bps");
  bench.device.Set("01", "83", "EVEN");
  bench.device.Set("01", "84", "2 BITS");
  EXPECT_EQ(BoxesOf(Modbus().cmdReadOutModbus), Texts());
  EXPECT_EQ(bench.line.accesses,
            (Texts{"00/01", "01/81", "01/81 D", "01/82", "01/82 D", "01/83", "01/83 D", "01/84", "01/84 D"}));
  EXPECT_EQ(Address().Text(), u"2A") << "less the unit behind it";
  EXPECT_EQ(Speed().Text(), u"38400 bps");
  EXPECT_EQ(Parity().Text(), u"EVEN");
  EXPECT_EQ(StopBits().Text(), u"2 BITS");
  EXPECT_EQ(bench.Page().Item(81), u"2A");
  EXPECT_EQ(bench.Page().Item(84), u"2 BITS");
  EXPECT_TRUE(bench.Page().DataChanged) << "the page differs from any file";
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, TheBarTellsHowFarTheReadIs) {
  EXPECT_EQ(FollowBar(Modbus().cmdReadOutModbus), (std::vector{20, 30, 50, 70, 90, 100, 0}));
}

TEST_F(ModbusTest, ADeviceThatDoesNotAnswerFailsTheWholeRead) {
  ReadOut();
  bench.line.replies["00/01"] = std::nullopt;
  EXPECT_EQ(BoxesOf(Modbus().cmdReadOutModbus), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(bench.line.accesses, Texts(4, "00/01")) << "three repeats";
  EXPECT_EQ(Address().Text(), u"") << "what was stored is cleared first";
  EXPECT_EQ(Speed().Text(), u"");
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, AnItemWithoutAnAnswerIsLeftEmptyAndTheNextOnesAreStillRead) {
  for (const char* item : {"81", "82", "83", "84"}) {
    SCOPED_TRACE(item);
    bench.line.replies = {{std::string("01/") + item + " D", std::nullopt}};
    EXPECT_EQ(BoxesOf(Modbus().cmdReadOutModbus), Texts{Shown(BoxKey::CommFailure)});
    for (const int other : {81, 82, 83, 84}) {
      EXPECT_EQ(bench.Page().Item(other).empty(), std::to_string(other) == item) << other;
    }
    bench.ExpectAtRest();
  }
}

TEST_F(ModbusTest, ARefusedItemIsLeftEmptyToo) {
  bench.line.replies["01/81 D"] = "D    invalid data";
  bench.line.replies["01/83 D"] = "CNG";
  EXPECT_EQ(BoxesOf(Modbus().cmdReadOutModbus), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(Address().Text(), u"");
  EXPECT_EQ(Parity().Text(), u"");
  EXPECT_EQ(StopBits().Text(), u"1 BIT");
}

TEST_F(ModbusTest, AnAnswerOfFourCharactersOrFewerLeavesTheAddressEmptyAndFailsTheRead) {
  for (const auto& [reply, address] : std::vector<std::pair<std::string, String>>{
           {"D         1 hex", u"1"}, {"D          hexa", u""}, {"D           01", u""}}) {
    bench.line.replies["01/81 D"] = reply;
    const Texts boxes = BoxesOf(Modbus().cmdReadOutModbus);
    EXPECT_EQ(boxes, address.empty() ? Texts{Shown(BoxKey::CommFailure)} : Texts()) << reply;
    EXPECT_EQ(Address().Text(), address) << reply;
  }
}

// --- the address

struct AddressCase {
  String typed;
  std::string sent;  ///< empty: rejected
};

TEST_F(ModbusTest, TheAddressIsSentInTwoCapitalDigitsAndRejectedBeyond01To7F) {
  ReadOut();
  for (const AddressCase& one : std::vector<AddressCase>{{u"7f", "7F"},
                                                         {u"7", "07"},
                                                         {u"007", "07"},
                                                         {u"01", "01"},
                                                         {u"7F", "7F"},
                                                         {u"2a", "2A"},
                                                         {u" 1b ", "1B"},
                                                         {u"80", ""},
                                                         {u"0", ""},
                                                         {u"00", ""},
                                                         {u"FF", ""},
                                                         {u"100", ""},
                                                         {u"7G", ""},
                                                         {u"-1", ""},
                                                         {u"１", ""}}) {
    SCOPED_TRACE(ToUtf8(one.typed));
    bench.Type(Address(), one.typed);
    const Texts boxes = BoxesOf(Modbus().cmdWriteInModbus);
    if (one.sent.empty()) {
      EXPECT_EQ(boxes, Texts{Shown(BoxKey::ValueBad)});
      EXPECT_EQ(Address().ShownLook(), Look::Bad);
      EXPECT_EQ(bench.line.accesses, Texts()) << "nothing is sent";
    } else {
      EXPECT_EQ(boxes, Texts{Shown(BoxKey::ModbusChanged)});
      EXPECT_EQ(bench.Accesses("01/81 D").front(), "01/81 D" + one.sent);
      EXPECT_EQ(ToUtf8(bench.Page().Item(81)), one.sent);
      EXPECT_EQ(Address().ShownLook(), Look::Normal);
    }
  }
}

TEST_F(ModbusTest, AnEmptyAddressIsToldUnderTheTitleOfTheColdJunction) {
  const Texts boxes = BoxesOf(Modbus().cmdWriteInModbus);
  EXPECT_EQ(boxes, Texts{"CJM交換: 空白の項目があります。値を入力して下さい。"});
  EXPECT_EQ(bench.line.accesses, Texts());
}

TEST_F(ModbusTest, AnAddressThatNoUploadReadsStopsNeitherACheckNorADownload) {
  bench.ReadAll();
  ASSERT_EQ(Address().Text(), u"");
  EXPECT_EQ(bench.CheckResult(), Shown(BoxKey::CheckDone));
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  EXPECT_EQ(bench.Accesses("01/8"), Texts()) << "these settings take no part in a download";
}

// --- writing

TEST_F(ModbusTest, WritesTheAddressAndThePlacesOfTheChoicesAndReadsThem) {
  ReadOut();
  bench.Type(Address(), u"1f");
  bench.Pick(Speed(), u"38400 bps");
  bench.Pick(Parity(), u"ODD");
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus), Texts{Shown(BoxKey::ModbusChanged)});
  EXPECT_EQ(bench.Written(), (Texts{"81 D1F", "82 D2", "83 D1", "84 D0"}));
  const Texts& accesses = bench.line.accesses;
  EXPECT_EQ(accesses.at(0), "00/01");
  EXPECT_EQ(accesses.at(2), "01/01 D1");
  EXPECT_EQ(accesses.at(12), "01/01 D0") << "monitor mode, behind four writes";
  EXPECT_EQ(accesses.at(14), "01/01 D0") << "and again as any download ends";
  EXPECT_EQ(accesses.at(15), "00/01") << "the read-out follows";
  EXPECT_EQ(accesses.back(), "01/84 D");
  EXPECT_EQ(Address().Text(), u"1F");
  EXPECT_EQ(Speed().Text(), u"38400 bps");
  EXPECT_EQ(bench.device.Mode(), '0');
  EXPECT_EQ(bench.device.InForce("81"), "01 hex") << "a change takes effect at the reset";
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, TheBarTellsHowFarTheWriteIsAndThenTheRead) {
  ReadOut();
  EXPECT_EQ(FollowBar(Modbus().cmdWriteInModbus),
            (std::vector{20, 30, 50, 70, 90, 100, 0, 20, 30, 50, 70, 90, 100, 0}));
}

TEST_F(ModbusTest, WithAnEmptyItem84ListRowTheWriteFailsAndItems81To83StayWritten) {
  bench.Type(Address(), u"05");
  bench.Pick(Speed(), u"19200 bps");
  bench.Pick(Parity(), u"EVEN");
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(bench.Written(), (Texts{"81 D05", "82 D1", "83 D2"}));
  EXPECT_EQ(bench.device.Value("01", "81"), "05 hex");
  EXPECT_EQ(bench.device.Value("01", "83"), "EVEN");
  EXPECT_EQ(bench.device.Mode(), '0') << "a failed one goes back to monitor mode";
  EXPECT_EQ(StopBits().Text(), u"1 BIT") << "the page shows what the device holds";
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, AChoiceIsSentAsItsPlaceWhateverItsCode) {
  bench.Redefine(u"$I82\n", u"0, 9600 bps\n1, 19200 bps\n2, 38400 bps",
                 u"7, 9600 bps\n8, 19200 bps\n9, 38400 bps");
  ReadOut();
  bench.Pick(Speed(), u"38400 bps");
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus), Texts{Shown(BoxKey::ModbusChanged)});
  EXPECT_EQ(bench.Written().at(1), "82 D2");
}

TEST_F(ModbusTest, OfADefinitionWithoutAnAddressTheOthersAreWritten) {
  bench.Redefine(u"01,  81,", u"01,  81,", u"01,  86,");
  ReadOut();
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus), Texts{Shown(BoxKey::ModbusChanged)});
  EXPECT_EQ(bench.Written(), (Texts{"82 D0", "83 D0", "84 D0"}));
}

TEST_F(ModbusTest, HasTheJapaneseCaptionsAndTellsWhileItTransmits) {
  bench.Page().SetCaptions(Language::Japanese);
  EXPECT_EQ(Modbus().cmdReadOutModbus.Caption(), u"読み出し");
  EXPECT_EQ(Modbus().cmdWriteInModbus.Caption(), u"書込み");
  EXPECT_EQ(Modbus().cmdResetModbus.Caption(), u"ｼｽﾃﾑ ﾘｾｯﾄ");
  EXPECT_EQ(Modbus().lblPrg2.Caption(), u"転送中");
  EXPECT_FALSE(Modbus().lblPrg2.Visible());
  bench.loop.After(50ms, [&] {
    EXPECT_TRUE(Modbus().lblPrg2.Visible());
    EXPECT_TRUE(bench.app.program.Shared().CommBusy);
    EXPECT_FALSE(bench.app.program.Shared().DownloadBusy) << "a read writes nothing";
  });
  ReadOut();
  EXPECT_FALSE(Modbus().lblPrg2.Visible());
  bench.loop.After(50ms, [&] {
    EXPECT_TRUE(Modbus().lblPrg2.Visible());
    EXPECT_TRUE(bench.app.program.Shared().CommBusy);
    EXPECT_TRUE(bench.app.program.Shared().DownloadBusy);
  });
  BoxesOf(Modbus().cmdWriteInModbus);
  EXPECT_FALSE(Modbus().lblPrg2.Visible());
}

TEST_F(ModbusTest, ARefusedWriteStopsThereAndIsNoSuccess) {
  ReadOut();
  bench.line.replies["01/82 D0"] = "D    invalid data";
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus), Texts{Shown(BoxKey::CommFailure)});
  EXPECT_EQ(bench.Written(), (Texts{"81 D01", "82 D0"}));
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, ADeviceThatIsNotThereIsSentNoMode) {
  ReadOut();
  bench.line.replies["00/01"] = std::nullopt;
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus),
            (Texts{Shown(BoxKey::CommFailure), Shown(BoxKey::CommFailure)}))
      << "the write's own, and that of the read behind it";
  EXPECT_EQ(bench.Accesses("01/01"), Texts());
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, ADeviceThatTakesNoProgrammingModeIsWrittenNothing) {
  ReadOut();
  bench.line.replies["01/01 D1"] = std::nullopt;
  EXPECT_EQ(BoxesOf(Modbus().cmdWriteInModbus),
            (Texts{Shown(BoxKey::NotProgrammingMode), Shown(BoxKey::CommFailure)}));
  EXPECT_EQ(bench.Written(), Texts());
  bench.ExpectAtRest();
}

TEST_F(ModbusTest, ACloseRequestWaitsForTheEndOfAWrite) {
  ReadOut();
  bench.loop.After(100ms, [&] {
    bench.app.program.PressClose();
    EXPECT_TRUE(bench.Page().flaMsg_CannotEnd.Visible());
  });
  bench.Click(Modbus().cmdWriteInModbus);
  EXPECT_EQ(bench.status, 0);
  EXPECT_EQ(bench.device.Value("01", "84"), "1 BIT");
  EXPECT_EQ(bench.Written().size(), 4U);
  EXPECT_EQ(bench.device.Mode(), '0');
}

TEST_F(ModbusTest, TheSettingsStandInAFileAndComeBackFromIt) {
  bench.device.Set("01", "81", "33");
  ReadOut();
  bench.Save(kFile);
  bench.New();
  EXPECT_EQ(Address().Text(), u"");
  bench.Open(kFile);
  EXPECT_EQ(Address().Text(), u"33");
  EXPECT_EQ(Speed().Text(), u"9600 bps");
}

TEST_F(ModbusTest, NoButtonBeginsAnythingWhileAnOperationRuns) {
  bench.loop.After(50ms, [&] {
    for (Button* button :
         {&Modbus().cmdReadOutModbus, &Modbus().cmdWriteInModbus, &Modbus().cmdResetModbus}) {
      EXPECT_EQ(bench.Page().WhyRefused(*button), "disabled");
      button->Click();
    }
  });
  const std::size_t before = bench.line.accesses.size();
  bench.Click(Modbus().cmdReadOutModbus);
  EXPECT_EQ(bench.line.accesses.size(), before + 9);
}

}  // namespace
}  // namespace korva::test
