// The user's own tables on the page of the universal transmitter: which one its input takes, and when it
// travels.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "z2_univ_config_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

struct UniversalTablesTest : testing::Test {
  UserTables& Tables() { return bench.Univ().tables; }
  [[nodiscard]] bool TabOpen() {
    return bench.Page().Tabs.TabEnabled(bench.Page().TabWith(TextKey::Linearizer));
  }
  /// Accesses of the tables' items, of each the item and the key.
  [[nodiscard]] Texts TableAccesses() const {
    Texts tables;
    for (const std::string& access : bench.line.accesses) {
      if (access.starts_with("01/6") && access.find(" D") != std::string::npos) {
        tables.push_back(access.substr(3));
      }
    }
    return tables;
  }

  Z2UnivBench bench;
};

TEST_F(UniversalTablesTest, TheRowUsersTcSelectsTcFlexGridAnyOtherRowTheFactoryCurveInTheDevice) {
  bench.ReadInput("User's TC");
  EXPECT_EQ(Tables().InUse(), UserTable::Thermocouple);
  EXPECT_TRUE(Tables().TCFlexGrid.Visible());
  EXPECT_TRUE(TabOpen());
  for (const String& entry : bench.InputBox().Entries()) {
    bench.Pick(bench.InputBox(), entry);
    EXPECT_EQ(Tables().InUse(), entry == u"User's TC" ? UserTable::Thermocouple : UserTable::None)
        << ToUtf8(entry);
    EXPECT_EQ(TabOpen(), entry == u"User's TC") << ToUtf8(entry);
  }
}

TEST_F(UniversalTablesTest, TheRowUsersRtdSelectsRtdFlexGrid) {
  bench.ReadInput("User's RTD");
  EXPECT_EQ(Tables().InUse(), UserTable::Resistance);
  EXPECT_TRUE(Tables().RTDFlexGrid.Visible());
  EXPECT_EQ(bench.Page().Tabs.TabCaption(bench.Page().TabWith(TextKey::Linearizer)), u"RTD TBL");
}

TEST_F(UniversalTablesTest, AnUploadReadsTheTableOfAUsersInputAndNoOther) {
  bench.ReadAll();
  bench.device.Set("01", "10", "User's TC");
  bench.BoxesOfUpload({Answer::Yes, Answer::Ok});
  Texts accesses = TableAccesses();
  ASSERT_GE(accesses.size(), 4U);
  EXPECT_EQ(accesses[0], "60 DP");
  EXPECT_EQ(accesses.back(), "60 DT10");
  EXPECT_EQ(Tables().TableOf(UserTable::Thermocouple).Value(11, 1), u"5.0000");
  EXPECT_EQ(bench.device.Mode(), '0');

  bench.device.Set("01", "10", "TC K (CA)");
  bench.Page().DataChanged = false;
  bench.line.accesses.clear();
  bench.BoxesOfUpload({Answer::Yes, Answer::Ok});
  EXPECT_EQ(TableAccesses(), Texts{});
}

TEST_F(UniversalTablesTest, TheLinearizerIsInUseWithItsSwitchAndOnlyInAClassThatHasIt) {
  bench.ReadAll();
  bench.Pick(bench.ClassBox(), bench.ClassBox().Entries().front());
  bench.Press(Tables().Opt_Lnr, 1);
  EXPECT_EQ(bench.Page().Item(25), u"ON");
  EXPECT_EQ(Tables().InUse(), UserTable::Linearizer);
  EXPECT_TRUE(TabOpen());
  bench.Pick(bench.ClassBox(), bench.ClassBox().Entries().at(1));
  EXPECT_EQ(bench.Page().Item(25), u"ON") << "what the class hides keeps its value";
  EXPECT_EQ(Tables().InUse(), UserTable::None);
  EXPECT_FALSE(TabOpen());
}

TEST_F(UniversalTablesTest, ADownloadWritesTheTableBehindTheParametersThenGoesToMonitorMode) {
  bench.ReadInput("User's TC");
  bench.TakeBoxes();
  bench.line.accesses.clear();
  EXPECT_EQ(bench.DownloadAnswering({}).back(), Shown(BoxKey::DownloadDone));
  const Texts accesses = TableAccesses();
  ASSERT_EQ(accesses.size(), 14U) << "11 rows, pitch, base and last row";
  EXPECT_EQ(accesses.front(), "60 DT0D0.0000");
  EXPECT_EQ(accesses.back(), "60 DZ10");
  EXPECT_EQ(bench.device.Mode(), '0');
  const auto first_row =
      std::find(bench.line.accesses.begin(), bench.line.accesses.end(), "01/60 DT0D0.0000");
  EXPECT_EQ(std::find_if(first_row, bench.line.accesses.end(),
                         [](const std::string& access) {
                           return access.starts_with("01/1") && access.find(" D") != std::string::npos &&
                                  !access.ends_with(" D");
                         }),
            bench.line.accesses.end())
      << "no parameter goes out behind it";
}

TEST_F(UniversalTablesTest, AConfigurationBringsTheTableBack) {
  bench.ReadInput("User's TC");
  bench.Do([&] { Tables().TableOf(UserTable::Thermocouple).Store(2, 1, u"7.9034"); });
  bench.Save(kFile);
  bench.New();
  EXPECT_TRUE(Tables().TableOf(UserTable::Thermocouple).IsFresh());
  bench.Open(kFile);
  EXPECT_EQ(Tables().Shown(), UserTable::Thermocouple);
  EXPECT_EQ(Tables().TableOf(UserTable::Thermocouple).Value(2, 1), u"7.9034");
  EXPECT_EQ(Tables().fields.txtSize.Text(), u"11");
}

}  // namespace
}  // namespace korva::test
