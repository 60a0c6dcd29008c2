// What is watched of all models is what the monitor shows.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "core/text_utilities.h"
#include "monitor/status_monitor.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

using namespace std::chrono_literals;

/// How many thresholds and trims a model has besides its monitor: pulse inputs a threshold, outputs that are
/// trimmed their two ends.
int LoopsOf(const String& model) {
  if (model == u"Z2WQ") {
    return 3;
  }
  if (model == u"Z2WQ2") {
    return 2;
  }
  if (model.starts_with(u"Z8W") && model.ends_with(u'2')) {
    return 4;
  }
  return model == u"Z2WPR" || model == u"Z2WPL" ? 1 : 0;
}

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

  /// True when a field that is seen shows the text.
  [[nodiscard]] bool IsShown(const String& text) {
    const std::vector<Control*>& controls = bench.Page().Controls();
    return std::any_of(controls.begin(), controls.end(), [&](const Control* control) {
      return dynamic_cast<const TextField*>(control) != nullptr && control->Visible() &&
             control->ShownText() == text;
    });
  }

  PageBench bench;
  std::set<int> lit;
  int loops = 0;
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

TEST_P(WatchOfModel, WhatAThresholdOrATrimReadsIsThereToo) {
  ParameterPage& page = bench.Page();
  for (const Control* control : page.Controls()) {
    const auto* const start = dynamic_cast<const Button*>(control);
    if (start == nullptr || start->Caption() != CaptionText(TextKey::Start) || !start->Visible()) {
      continue;
    }
    SCOPED_TRACE(start->Name());
    page.Tabs.SetTabEnabled(page.TabOf(*start), true);
    if (!page.WhyRefused(*start).empty()) {
      continue;  // a threshold that the device's input has no use for
    }
    bench.loop.After(5s, [start] { start->Click(); });
    bench.Do([start] { start->Click(); });
    EXPECT_EQ(bench.TakeBoxes(), std::vector<std::string>());
    const Watch& watch = bench.app.companions.Watched;
    ASSERT_EQ(watch.Values().size(), start->Name() == "cmdThresholdStart" ? 2U : 1U);
    for (const WatchedValue& value : watch.Values()) {
      EXPECT_NE(value.caption, u"");
      EXPECT_NE(value.unit, u"");
      EXPECT_TRUE(value.least && value.most) << ToUtf8(value.text);
      EXPECT_TRUE(IsShown(value.text)) << ToUtf8(value.text);
    }
    ++loops;
  }
  EXPECT_EQ(loops, LoopsOf(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Each, WatchOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
