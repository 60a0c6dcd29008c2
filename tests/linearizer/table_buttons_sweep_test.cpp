// The buttons of a table against a device whose every exchange is broken in turn, with the close box pressed,
// and with everything pressed, at each pump.

#include <gtest/gtest.h>

#include <functional>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/table_buttons.h"
#include "pages/sweep_bench.h"
#include "support/page_parts.h"
#include "support/sampled.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A model whose table travels by buttons.
struct ButtonModel {
  String name;
  std::string switch_item;  ///< of group "01"; code 1 is on
  std::size_t one_in;       ///< broken exchanges that are tried
};
void PrintTo(const ButtonModel& model, std::ostream* out) { *out << ToUtf8(model.name); }

/// The page of the model with its linearizer on. The device's table is a straight line; the page's another
/// one.
class ButtonSweepBench : public SweepBench {
 public:
  explicit ButtonSweepBench(const ButtonModel& model) : SweepBench(model.name) {
    device.Set("01", model.switch_item, "1");
    Upload();
    const LnrTable& table = Linear().Table();
    Do([&] {
      for (int point = 1; point <= table.Points(); ++point) {
        Linear().Table().Store(point, 1, FormatMask(point, u"0"));
        Linear().Table().Store(point, 2, FormatMask(100 - point, u"0"));
      }
    });
    if (auto* const size = dynamic_cast<TextField*>(Page().FindControl("txtSize"))) {
      Type(*size, FormatMask(table.Points(), u"0"));
    }
    Page().DataChanged = false;
    TakeBoxes();
    commands.clear();
  }
  Linearizer& Linear() { return Part<Linearizer>(Page()); }
  TableButtons& Buttons() { return Part<TableButtons>(Page()); }
  void Run(bool write) { Click(write ? Buttons().cmdWriteInTable : Buttons().cmdReadOutTable); }

  /// The device and the page hold the same points.
  void ExpectSameTable() {
    ButtonSweepBench* const bench = this;
    bench->device.ClearFaults();
    bench->loop.RunUntilIdle();
    const Texts kept = GridTexts();
    bench->Run(false);
    EXPECT_EQ(GridTexts(), kept);
  }
  /// The values of the grid as the device tells them.
  Texts GridTexts() {
    Texts texts;
    const Grid& grid = Linear().LnrFlexGrid;
    for (int row = 1; row < grid.Rows(); ++row) {
      for (int column = 1; column < kLnrColumns; ++column) {
        const String& text = grid.At(row, column).text;
        texts.push_back(ToUtf8(text.empty() ? text : FormatMask(LeadingNumber(text), u"0.00")));
      }
    }
    return texts;
  }
  void PressCloseAt(std::size_t at) {
    loop.OnPump([this, first = loop.PumpCount() + 1, at] {
      if (loop.PumpCount() == first + at && !status.has_value()) {
        sent_at_close = commands.size();
        app.program.PressClose();
      }
    });
  }
  std::size_t sent_at_close = 0;
};

struct ButtonSweepTest : testing::TestWithParam<ButtonModel> {};
INSTANTIATE_TEST_SUITE_P(Model, ButtonSweepTest,
                         testing::Values(ButtonModel{u"Z2WPR", "10", 13}, ButtonModel{u"Z2WPL", "10", 149},
                                         ButtonModel{u"Z2WQ", "61", 13}),
                         [](const auto& one) { return ToUtf8(one.param.name); });

TEST_P(ButtonSweepTest, BrokenAtAnyExchangeThePageCanBeUsedAndAReportIsTrue) {
  for (const bool write : {false, true}) {
    ButtonSweepBench good(GetParam());
    good.Run(write);
    const std::string done = Shown(write ? BoxKey::TableWritten : BoxKey::TableRead);
    ASSERT_EQ(good.TakeBoxes(), Texts{done});
    const std::vector<Break> breaks = BreaksOf(good.commands.size());
    std::size_t tried = 0;
    for (std::size_t at = write ? 1 : 0; at < breaks.size(); at += GetParam().one_in, ++tried) {
      SCOPED_TRACE((write ? "write, " : "read, ") + breaks[at].Name());
      ButtonSweepBench bench(GetParam());
      bench.StartBreak(breaks[at]);
      const Clock start = bench.loop.Now();
      bench.Run(write);
      EXPECT_LT(bench.loop.Now() - start, kLongestRun);
      bench.ExpectUsable();
      const Texts boxes = bench.TakeBoxes();
      ASSERT_FALSE(boxes.empty());
      // Refused, an item reads as an empty cell.
      if (boxes.front() == done && (write || breaks[at].fault != sim::Fault::Refused)) {
        bench.ExpectSameTable();
      }
      ASSERT_FALSE(HasFailure());
    }
    TellShare(ToUtf8(GetParam().name) + (write ? ": writes" : ": read-outs") + " with a broken exchange",
              tried, breaks.size());
  }
}

TEST_P(ButtonSweepTest, ClosedAtAnyPumpAWriteGoesToItsEndAndThenTheProgramEnds) {
  ButtonSweepBench whole(GetParam());
  const std::size_t before = whole.loop.PumpCount();
  whole.Run(true);
  const std::size_t pumps = whole.loop.PumpCount() - before;
  std::size_t tried = 0;
  for (std::size_t at = 0; at < pumps; at += GetParam().one_in, ++tried) {
    SCOPED_TRACE(at);
    ButtonSweepBench bench(GetParam());
    bench.PressCloseAt(at);
    bench.Run(true);
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.commands, whole.commands);
    EXPECT_EQ(bench.device.Mode(), '0');
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableWritten)});
    ASSERT_FALSE(HasFailure());
  }
  TellShare(ToUtf8(GetParam().name) + ": writes closed", tried, pumps);
}

TEST_P(ButtonSweepTest, ClosedAtAnyPumpAWriteThatFailsKeepsTheWindow) {
  const auto fail = [](ButtonSweepBench& bench) {
    // A value comes back as another one; where nothing comes back, a point has no answer.
    const bool sized = bench.Page().FindControl("txtSize") != nullptr;
    bench.device.AddFault({.fault = sized ? sim::Fault::Silent : sim::Fault::WrongEcho,
                           .first = bench.device.Exchanges() + 20,
                           .command = sized ? "DT5 0.0600 0.9400" : ""});
  };
  ButtonSweepBench whole(GetParam());
  fail(whole);
  const std::size_t before = whole.loop.PumpCount();
  whole.Run(true);
  ASSERT_NE(whole.TakeBoxes().front(), Shown(BoxKey::TableWritten));
  const std::size_t pumps = whole.loop.PumpCount() - before;
  for (std::size_t at = 0; at < pumps; at += 13) {
    SCOPED_TRACE(at);
    ButtonSweepBench bench(GetParam());
    fail(bench);
    bench.PressCloseAt(at);
    bench.Run(true);
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_FALSE(bench.app.program.Shared().CommBusy);
    EXPECT_FALSE(bench.Page().flaMsg_CannotEnd.Visible());
    EXPECT_EQ(bench.device.Mode(), '0');
    bench.device.ClearFaults();
    bench.TakeBoxes();
    bench.Run(true);
    EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableWritten)}) << "the request went with the failure";
    EXPECT_FALSE(bench.status.has_value());
    ASSERT_FALSE(HasFailure());
  }
}

TEST_P(ButtonSweepTest, PressedAtAnyPumpTheDeviceIsAskedNothingElse) {
  for (const bool write : {false, true}) {
    ButtonSweepBench whole(GetParam());
    const std::size_t before = whole.loop.PumpCount();
    whole.Run(write);
    const std::size_t pumps = whole.loop.PumpCount() - before;
    const Texts boxes = whole.TakeBoxes();
    for (std::size_t at = 0; at < pumps; at += GetParam().one_in) {
      SCOPED_TRACE(at);
      ButtonSweepBench bench(GetParam());
      bench.loop.OnPump([&, first = bench.loop.PumpCount() + 1] {
        if (bench.loop.PumpCount() != first + at) {
          return;
        }
        Page& page = bench.Page();
        for (Control* control : page.Controls()) {
          auto* const button = dynamic_cast<Button*>(control);
          if (button != nullptr && !OpensWindow(*button) && page.WhyRefused(*button).empty()) {
            ADD_FAILURE() << button->FullName() << " is in reach";
          }
        }
        for (const char* const name :
             {"cmdUpload", "cmdDownload", "cmdMonitorON", "cmdSet", "cmdStatusMonOFF", "cmdReadOutTable",
              "cmdWriteInTable", "cmdThresholdStart", "cmdOutZeroStart", "cmdOutSpanStart"}) {
          if (auto* const button = dynamic_cast<Button*>(page.FindControl(name))) {
            button->Click();
          }
        }
        page.lst_TypeSelect.UserPicks(0);
      });
      bench.Run(write);
      EXPECT_EQ(bench.commands, whole.commands);
      EXPECT_EQ(bench.TakeBoxes(), boxes);
      bench.ExpectUsable();
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST(ButtonReadOutTest, AReadOutThatLeavesTheModeIsClosedWithinOneExchange) {
  const ButtonModel model{u"Z2WPR", "10", 1};
  ButtonSweepBench whole(model);
  const std::size_t before = whole.loop.PumpCount();
  whole.Run(false);
  const std::size_t pumps = whole.loop.PumpCount() - before;
  for (std::size_t at = 0; at < pumps; at += 3) {
    SCOPED_TRACE(at);
    ButtonSweepBench bench(model);
    bench.PressCloseAt(at);
    bench.Run(false);
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.commands.size(), bench.sent_at_close + 1);
    EXPECT_EQ(bench.TakeBoxes(), Texts{});
    ASSERT_FALSE(HasFailure());
  }
}

}  // namespace
}  // namespace korva::test
