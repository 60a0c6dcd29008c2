// What family First does its own way in a download.

#include <gtest/gtest.h>

#include "page_bench.h"
#include "support/item_line.h"

namespace korva::test {
namespace {

struct PointCase {
  String model;
  std::string zero;
};

TEST(DownloadPointTest, APointAtTheEndIsDroppedForTheModelsThatAskForItButNotFromTheTag) {
  for (const auto& [model, zero] :
       {PointCase{u"QC", "01/14=12"}, PointCase{u"QN", "01/14=12"}, PointCase{u"QUO", "01/14=12"},
        PointCase{u"QZ", "01/14=12."}, PointCase{u"QHW", "01/14=12."}}) {
    PageBench bench;
    bench.PutText(DefPath(model),
                  u"$Data\n"
                  u"01, 02, , , Y, Y, , , , 0, , , , , , , , , , , Y, , TG:, 0\n"
                  u"01, 14, , , Y, Y, , , , 2, , , , , , , , , , , Y, , INPZER, 1\n"
                  u"01, 15, , , Y, Y, , , , 3, , , , , , , , , , , Y, , INPSPN, 2\n"
                  u"$I10\n1, 1:DC V, 0, 10, 0.1, N, Y, , V\n"
                  u"$I21\n0, deg C\n1, deg F\n2, K\n"
                  u"$SSTab\nTrue, True, True, False, True, True, True\n$End\n");
    ItemLine line(bench.port);
    line.items = {{"00/99", "SYSVER   2.00"}, {"01/01", "0"}};
    line.prefixes["01/02"] = "TG:";
    for (const char* item : {"01/02", "01/14", "01/15"}) {
      line.items[item] = "INPZER 0";
    }
    bench.port.Connect(1, &line);
    bench.Choose(model);
    bench.First().SetItem(2, u"NO.");
    bench.First().SetItem(14, u"12.");
    bench.First().SetItem(15, u"12.5");
    bench.First().BuildPage();
    bench.Download();
    EXPECT_EQ(line.writes.at(2), "01/02=NO.");
    EXPECT_EQ(line.writes.at(3), zero);
    EXPECT_EQ(line.writes.at(4), "01/15=12.5");
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  }
}

}  // namespace
}  // namespace korva::test
