// What is watched of all models is what the monitor shows.

#include <gtest/gtest.h>

#include <set>

#include "core/text_utilities.h"
#include "monitor/status_monitor.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;

class WatchOfModel : public testing::TestWithParam<String> {
 protected:
  WatchOfModel() {
    bench.Connect(GetParam());
    bench.Choose(GetParam());
    bench.TakeTables();
    bench.Upload();
    bench.TakeBoxes();
  }
  /// Rows whose field was highlighted, which a monitor does with each value that it reads.
  void RecordLit() {
    ParameterPage& page = bench.Page();
    for (int row = 0; row < page.Def.Data().Rows(); ++row) {
      if (TextField* field = page.FindField(page.KeyOf(row))) {
        field->Observe([this, field, row] {
          if (field->ShownLook() == Look::Highlight) {
            lit.insert(row);
          }
        });
      }
    }
  }

  PageBench bench;
  std::set<int> lit;
};

TEST_P(WatchOfModel, EachLiveValueIsThereWithItsCaptionAndTheTextOfItsField) {
  ParameterPage& page = bench.Page();
  auto& monitor = Part<StatusMonitor>(page);
  if (!monitor.cmdMonitorON.Visible()) {
    return;  // a model without a monitor
  }
  RecordLit();
  bench.loop.After(12s, [&monitor] { monitor.cmdMonitorOFF.Click(); });
  bench.Click(monitor.cmdMonitorON);
  const Watch& watch = bench.app.companions.Watched;
  std::set<int> watched;
  for (const WatchedValue& value : watch.Values()) {
    SCOPED_TRACE(ToUtf8(value.item));
    watched.insert(value.row);
    const TextField& field = *page.FindField(page.KeyOf(value.row));
    EXPECT_EQ(value.text, field.Text());
    EXPECT_NE(value.text, u"");
    EXPECT_EQ(value.caption, page.FindControl(page.RowOf(field)->label)->ShownText());
    EXPECT_NE(value.caption, u"");
    const Label* unit = page.UnitLabelOf(value.row);
    EXPECT_EQ(value.unit, unit == nullptr ? String() : unit->Caption());
    EXPECT_TRUE(value.least && value.most) << ToUtf8(value.text);
  }
  EXPECT_EQ(watched, lit);
  EXPECT_FALSE(watched.empty());
  EXPECT_LE(watched.size(), 6U);
}

INSTANTIATE_TEST_SUITE_P(Each, WatchOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
