#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "transfer_bench.h"

namespace korva::test {

using Texts = std::vector<std::string>;

/// Sections of a model with two input types that can be set and two that can't.
inline const std::string kDownloadSections =
    "$I10\r\n"
    "1, 1:DC V, 0, 10, 0.1, N, Y, DC V, V\r\n"
    "2, 2:RTD, -200, 600, 20, N, Y, , deg C\r\n"
    "3, 3:FIXED, 0, 100, 1, N, N, , %\r\n"
    "4, 4:OTHER, 0, 100, 1, N, , , %\r\n"
    "$I11\r\n"
    "$I11Title\r\nNONE, DC V\r\n"
    "$I11Body\r\n0, 0-10 V, , , 0, 10\r\n1, 0-5 V, , , 0, 5\r\n"
    "$I21\r\n0, deg C\r\n1, deg F\r\n2, K\r\n"
    "$I23\r\n0, 0:OFF\r\n1, 1:ON\r\n"
    "$SSTab\r\nTrue, True, True, True, True, True, True\r\n";

inline const std::vector<TransferRow> kDownloadRows = {
    {.item = "02", .label = "0", .caption = "First", .text = "0", .prefix = "TG:", .position = "0"},
    {.item = "10",
     .label = "1",
     .caption = "Second",
     .combo = "0",
     .list = "$I10",
     .condition = "$I10",
     .position = "1"},
    {.item = "11",
     .label = "2",
     .caption = "Third",
     .combo = "1",
     .list = "$I11",
     .condition = "$I10_CNECTI11",
     .position = "2"},
    {.item = "14", .text = "2", .unit_label = "2", .unit = "V", .prefix = "INPZER", .position = "3"},
    {.item = "15", .text = "3", .prefix = "INPSPN", .position = "4"},
    {.item = "16", .text = "4", .prefix = "FINZER", .position = "6"},
    {.item = "19", .text = "5", .prefix = "SCLLOW"},
    {.item = "23", .combo = "2", .list = "$I23", .position = "7"},
    {.item = "33", .position = "8"},
    {.group = "02", .item = "33", .position = "9"},
    {.item = "34", .text = "6", .condition = "", .prefix = "OTHER", .position = "10"},
};

/// A page with a set that differs from the device's in every item.
struct DownloadTest : testing::Test {
  DownloadTest() { Fill(); }

  void Fill() {
    ItemLine& line = bench.line;
    line.items["01/02"] = "TG:OLD";
    line.items["01/10"] = "2:RTD";
    line.items["01/11"] = "0-5 V";
    line.items["01/14"] = "INPZER 1.0";
    line.items["01/15"] = "INPSPN 9.0";
    line.items["01/16"] = "FINZER 0.00";
    line.items["01/23"] = "0:OFF";
    line.prefixes = {{"01/02", "TG:"}, {"01/14", "INPZER"}, {"01/15", "INPSPN"}, {"01/16", "FINZER"}};
    line.choices["01/10"] = {{"1", "1:DC V"}, {"2", "2:RTD"}, {"3", "3:FIXED"}, {"4", "4:OTHER"}};
    line.choices["01/11"] = {{"0", "0-10 V"}, {"1", "0-5 V"}};
    line.choices["01/23"] = {{"0", "0:OFF"}, {"1", "1:ON"}};
    BenchPage& page = *bench.page;
    page.SetItem(2, u"PUMP 1");
    page.SetItem(10, u"1:DC V");
    page.SetItem(11, u"0-10 V");
    page.SetItem(14, u"2.5");
    page.SetItem(15, u"7.5");
    page.SetItem(16, u"0.12");
    page.SetItem(19, u"1");
    page.SetItem(23, u"1:ON");
    page.SetItem(33, u"x");
    page.SetItem(34, u"5");
    page.GroupItem.Set(2, 33, u"y");
    page.BuildPage();
  }
  /// Everything but the first question.
  [[nodiscard]] Texts BoxesAfterStart() const {
    Texts boxes = bench.Boxes();
    EXPECT_FALSE(boxes.empty());
    boxes.erase(boxes.begin());
    return boxes;
  }
  [[nodiscard]] bool Wrote(const std::string& write) const {
    const auto& writes = bench.line.writes;
    return std::find(writes.begin(), writes.end(), write) != writes.end();
  }
  void ExpectFailedUntouched(const std::string& box) const {
    EXPECT_EQ(BoxesAfterStart(), Texts{box});
    EXPECT_TRUE(bench.AtRest());
    EXPECT_FALSE(Wrote("01/01=1")) << "the device was not put into programming mode";
    EXPECT_FALSE(bench.page->flaMsg_CannotEnd.Visible());
  }

  TransferBench bench{DataSection(kDownloadRows) + kDownloadSections};
};

}  // namespace korva::test
