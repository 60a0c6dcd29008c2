#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "transfer_bench.h"

namespace korva::test {

using Texts = std::vector<std::string>;

/// Sections of a model with input types of several limits, ranges and sensors.
inline const std::string kCheckSections =
    "$I10\r\n"
    "1, 1:RTD, 0, 1000, 50, N, Y, DC V, deg C\r\n"
    "2, 2:TC, -200.4, 600.4, 20, N, Y, , deg C\r\n"
    "3, 3:DC, -10, 10, 0.1, N, Y, DC mA, V\r\n"
    "4, 4:STRAIGHT, , , , N, Y, NONE, mV\r\n"
    "5, 5:ODD, 0, 10, 1, N, Y, NO SUCH TITLE, mV\r\n"
    "$I11\r\n"
    "$I11Title\r\nNONE, DC V, DC mA\r\n"
    "$I11Body\r\n0, 0-10 V, 0-20 mA, , 0, 10, 0, 20\r\n1, 0-5 V, 4-20 mA, , 0, 5, 4, 20\r\n"
    "$I11QEI\r\n0, A, Hz, 100\r\n5, B, Hz, 2\r\n6, C, Hz, 2\r\n7, D, Hz, 2\r\n"
    "$I21\r\n0, deg C\r\n1, deg F\r\n2, K\r\n"
    "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

inline const std::vector<TransferRow> kCheckRows = {
    {.item = "02", .text = "0", .prefix = "TG:"},
    {.item = "03_set", .text = "20"},
    {.item = "03_mon", .text = "21"},
    {.item = "04", .text = "22"},
    {.item = "08", .text = "23"},
    {.item = "14", .text = "2", .unit_label = "2", .unit = "$in", .temperature = true},
    {.item = "15", .text = "3", .unit_label = "3", .unit = "$in", .temperature = true},
    {.item = "18", .text = "4"},
    {.item = "19", .text = "5"},
    {.item = "20", .text = "6"},
    {.item = "21", .list = "$I21", .frame = "3"},
    {.item = "22", .text = "7"},
    {.item = "24", .text = "8"},
};

/// A page with a good set.
struct ValueCheckTest : testing::Test {
  explicit ValueCheckTest(const BenchModel& model = {})
      : bench(DataSection(kCheckRows) + kCheckSections, model) {
    for (const auto& [item, value] : std::vector<std::pair<int, String>>{{2, u"PUMP 1"},
                                                                         {10, u"1:RTD"},
                                                                         {14, u"0"},
                                                                         {15, u"100"},
                                                                         {18, u"1"},
                                                                         {19, u"0"},
                                                                         {20, u"100"},
                                                                         {21, u"deg C"},
                                                                         {22, u"1"},
                                                                         {24, u"1"}}) {
      bench.page->SetItem(item, value);
    }
    bench.page->BuildPage();
    bench.page->DataChanged = false;
  }

  /// Shows the set with another input type, unit, zero and span, and checks it.
  bool ZeroSpanGood(const String& type, const String& unit, const String& zero, const String& span) {
    bench.page->SetItem(10, type);
    bench.page->SetItem(21, unit);
    bench.page->SetItem(14, zero);
    bench.page->SetItem(15, span);
    bench.page->optTempUnit.Clear();
    bench.page->BuildPage();
    return Passes();
  }
  bool Passes() {
    const std::size_t before = bench.host.dialogs.Boxes().size();
    bench.Check();
    const bool passes = bench.Boxes().at(before) == Shown(BoxKey::CheckDone);
    if (!passes) {
      EXPECT_EQ(bench.Boxes().at(before), Shown(BoxKey::ValueBad));
    }
    EXPECT_TRUE(bench.AtRest());
    return passes;
  }
  void ExpectLooks(Look zero, Look span) const {
    EXPECT_EQ(bench.LookOf(u"14"), zero);
    EXPECT_EQ(bench.LookOf(u"15"), span);
  }

  TransferBench bench;
};

}  // namespace korva::test
