// Whatever is pressed at whichever pump of an operation, the device is asked nothing but what the operation
// asks.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <iostream>
#include <numeric>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_utilities.h"
#include "linearizer/table_part.h"
#include "support/page_parts.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// Something that a user does with the device, up to the page being free again.
struct Operation {
  std::string name;
  std::function<void(SweepBench& bench)> run;
  Texts in_reach = {};      ///< what may be pressed meanwhile
  std::string stop = {};    ///< the beginner that ends it
  bool keeps_page = false;  ///< the page stays usable, but for what begins an operation
};

/// Buttons that begin an operation on the device.
constexpr std::array<std::string_view, 30> kBeginners = {
    "cmdUpload",        "cmdDownload",      "cmdMonitorON",      "cmdSet",           "cmdStatusMonOFF",
    "cmdSet2",          "cmdSet3",          "Command_I12",       "Command_I13",      "cmdChangeCJM",
    "cmdWriteInCJM",    "cmdDefaultCJM",    "cmdThresholdStart", "cmdReadOutTable",  "cmdWriteInTable",
    "cmdOutZeroStart",  "cmdOutSpanStart",  "cmdReadOutModbus",  "cmdWriteInModbus", "cmdResetModbus",
    "cmdOut1ZeroStart", "cmdOut1SpanStart", "cmdOut2ZeroStart",  "cmdOut2SpanStart", "cmdLineSet",
    "cmdLineReset",     "cmd0Per",          "cmd100Per",         "cmdCalReset",      "cmdReadOutComp"};

void Monitor(SweepBench& bench) {
  bench.loop.After(std::chrono::seconds(3),
                   [&bench] { Part<StatusMonitor>(bench.Page()).cmdMonitorOFF.Click(); });
  bench.Click(Part<StatusMonitor>(bench.Page()).cmdMonitorON);
}

void Force(SweepBench& bench) {
  bench.ForceOutput(u"50");
  bench.Click(Part<OutputSetting>(bench.Page()).cmdStatusMonOFF);
}

/// Opens the frame of the cold junction and sets its data back.
void ResetJunction(SweepBench& bench) {
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(ButtonOf(bench.Page(), "cmdChangeCJM"));
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.Click(ButtonOf(bench.Page(), "cmdDefaultCJM"));
}

/// True when the page has a control of this name that a user could act on.
bool InReachOfUser(const Page& page, std::string_view name) {
  const Control* const control = page.FindControl(name);
  return control != nullptr && page.WhyRefused(*control).empty();
}

/// Reads the table that the switch of the linearizer puts in use, or where there is none the curve that is
/// the user's own, the last of the inputs.
void ReadTable(SweepBench& bench) {
  if (InReachOfUser(bench.Page(), "Opt_Lnr(1)")) {
    bench.Press(Part<TablePart>(bench.Page()).Opt_Lnr, 1);
  } else {
    bench.Pick(bench.Page().Combo[0], bench.Page().Combo[0].Entries().back());
  }
  bench.Click(ButtonOf(bench.Page(), "cmdReadOutTable"));
}

/// Reads the table and writes it back.
void WriteTable(SweepBench& bench) {
  ReadTable(bench);
  bench.Click(ButtonOf(bench.Page(), "cmdWriteInTable"));
}

/// Trims the zero of the first of two outputs for some turns.
void Trim(SweepBench& bench) {
  Button& start = ButtonOf(bench.Page(), "cmdOut1ZeroStart");
  bench.loop.After(std::chrono::seconds(3), [&start] { start.Click(); });
  bench.Click(start);
}

/// The operations of a model that counts, or of one whose output can be forced.
std::vector<Operation> OperationsOf(SweepBench& bench) {
  std::vector<Operation> operations = {{"upload", [](SweepBench& any) { any.Upload(); }},
                                       {"download", [](SweepBench& any) { any.Download(); }},
                                       {"monitor", Monitor, {"cmdMonitorOFF"}}};
  if (bench.Page().WhyRefused(Part<OutputSetting>(bench.Page()).cmdStatusMonOFF).empty()) {
    operations.push_back({"forced output", Force, {"cmdStatusMonOFF"}});
  } else {
    operations.push_back({"count", [](SweepBench& any) { any.ForceOutput(u"50"); }});
    operations.push_back(
        {"command", [](SweepBench& any) { any.Click(ButtonOf(any.Page(), "Command_I12")); }});
  }
  if (InReachOfUser(bench.Page(), "cmdChangeCJM")) {
    operations.push_back({"cold junction", ResetJunction});
  }
  if (bench.Page().FindControl("cmdResetModbus") != nullptr) {
    operations.push_back(
        {"reset", [](SweepBench& any) { any.Click(ButtonOf(any.Page(), "cmdResetModbus")); }});
  }
  if (InReachOfUser(bench.Page(), "cmd0Per")) {
    operations.push_back(
        {"calibration", [](SweepBench& any) { any.Click(ButtonOf(any.Page(), "cmd0Per")); }});
  }
  if (InReachOfUser(bench.Page(), "cmdLineSet")) {
    operations.push_back(
        {"compensation", [](SweepBench& any) { any.Click(ButtonOf(any.Page(), "cmdLineSet")); }});
  }
  if (InReachOfUser(bench.Page(), "cmdOut1ZeroStart")) {
    operations.push_back({.name = "trim", .run = Trim, .stop = "cmdOut1ZeroStart", .keeps_page = true});
  }
  if (bench.Page().FindControl("cmdReadOutTable") != nullptr) {
    operations.push_back({"table", WriteTable});
  }
  return operations;
}

/// A way of pressing at pump `at` of what follows (from 0).
void PressAt(SweepBench& bench, std::size_t at, const std::function<void()>& press) {
  bench.loop.OnPump([&bench, first = bench.loop.PumpCount() + 1, at, press] {
    if (bench.loop.PumpCount() == first + at) {
      press();
    }
  });
}

/// Presses everything that begins an operation, be it in reach or not, but for the button that stops this
/// one, and picks another family's model.
void PressAllBeginners(const SweepBench& bench, std::string_view stop) {
  Page& page = *bench.app.program.Showing();
  for (const std::string_view name : kBeginners) {
    const auto* const button = dynamic_cast<Button*>(page.FindControl(name));
    if (button != nullptr && name != stop) {
      button->Click();
    }
  }
  const int shown = page.lst_TypeSelect.ListIndex();
  page.lst_TypeSelect.UserPicks(shown == 0 ? static_cast<int>(page.lst_TypeSelect.Entries().size()) - 1 : 0);
  EXPECT_EQ(page.lst_TypeSelect.ListIndex(), shown);
  EXPECT_EQ(bench.app.program.Showing(), &page);
}

/// Names of the buttons, options and lists that a user could act on, but for those that show what goes on.
Texts InReach(const Page& page) {
  Texts names;
  for (const Control* control : page.Controls()) {
    if (OpensWindow(*control)) {
      continue;
    }
    const bool acts = dynamic_cast<const Button*>(control) != nullptr ||
                      dynamic_cast<const OptionButton*>(control) != nullptr ||
                      dynamic_cast<const ComboBox*>(control) != nullptr ||
                      dynamic_cast<const ListBox*>(control) != nullptr;
    if (acts && page.WhyRefused(*control).empty()) {
      names.push_back(control->FullName());
    }
  }
  return names;
}

/// A model of each page, one that counts, and all that have two outputs.
struct OneOperationTest : testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Model, OneOperationTest,
                         testing::Values("QN", "QXI", "QEY", "QNA2", "QEC2", "Z2WT", "Z2WU", "Z2WQ", "Z2WPA",
                                         "Z2WPR", "Z8WV2", "Z8WM2", "Z8WT2", "Z8WR2"),
                         [](const auto& one) { return std::string(one.param); });

TEST_P(OneOperationTest, NothingButItsOwnStopIsInReachWhileAnOperationRuns) {
  SweepBench bench(FromUtf8(GetParam()));
  for (const Operation& operation : OperationsOf(bench)) {
    if (operation.keeps_page) {
      continue;
    }
    SCOPED_TRACE(operation.name);
    std::set<std::string> reached;
    std::size_t pumps = 0;
    bench.loop.OnPump([&] {
      ++pumps;
      const Texts names = InReach(bench.Page());
      reached.insert(names.begin(), names.end());
    });
    operation.run(bench);
    bench.loop.OnPump(nullptr);
    EXPECT_GT(pumps, 5U);
    EXPECT_TRUE(
        std::includes(operation.in_reach.begin(), operation.in_reach.end(), reached.begin(), reached.end()))
        << testing::PrintToString(reached);
    bench.ExpectUsable();
    bench.Page().DataChanged = false;
  }
}

TEST_P(OneOperationTest, WhateverIsPressedAtAnyPumpOfAnOperationTheDeviceIsAskedNothingElse) {
  SweepBench plan(FromUtf8(GetParam()));
  int runs = 0;
  for (const Operation& operation : OperationsOf(plan)) {
    SweepBench whole(FromUtf8(GetParam()));
    const std::size_t before = whole.loop.PumpCount();
    operation.run(whole);
    const std::size_t pumps = whole.loop.PumpCount() - before;
    const Texts boxes = whole.TakeBoxes();
    std::vector<std::size_t> places(pumps);
    std::iota(places.begin(), places.end(), 0U);
    for (const std::size_t at : Sampled(places)) {
      SCOPED_TRACE(operation.name + ", pump " + std::to_string(at));
      SweepBench bench(FromUtf8(GetParam()));
      PressAt(bench, at, [&bench, &operation] {
        if (bench.app.program.Shared().CommBusy) {  // between a forced output and its end nothing pumps
          PressAllBeginners(bench, operation.stop);
        }
      });
      operation.run(bench);
      ++runs;
      EXPECT_EQ(bench.commands, whole.commands);
      EXPECT_EQ(bench.TakeBoxes(), boxes);
      bench.ExpectUsable();
      ASSERT_FALSE(HasFailure());
    }
  }
  std::cout << GetParam() << ": operations with everything pressed: " << runs << '\n';
}

}  // namespace
}  // namespace korva::test
