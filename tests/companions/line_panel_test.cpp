#include "companions/line_panel.h"

#include <gtest/gtest.h>

#include <string>

#include "core/text_utilities.h"
#include "pages/page_bench.h"

namespace korva::test {
namespace {

using Cells = std::vector<String>;

TEST(LineLogTest, KeepsTheLastLinesAndNumbersThemOn) {
  LineLog log;
  EXPECT_EQ(log.First(), 0);
  EXPECT_EQ(log.End(), 0);
  for (int line = 0; line < LineLog::kMost + 3; ++line) {
    log.Add(Clock(line), {.sent = true, .ok = true, .text = Ascii(std::to_string(line))});
  }
  EXPECT_EQ(log.First(), 3);
  EXPECT_EQ(log.End(), LineLog::kMost + 3);
  EXPECT_EQ(log.At(3).traffic.text, u"3");
  EXPECT_EQ(log.At(LineLog::kMost + 2).traffic.text, Ascii(std::to_string(LineLog::kMost + 2)));
  EXPECT_EQ(log.At(LineLog::kMost + 2).time, Clock(LineLog::kMost + 2));
}

TEST(LineLogTest, ShowsControlCharacters) {
  EXPECT_EQ(WithVisibleControls(u"D12.5"), u"D12.5");
  EXPECT_EQ(WithVisibleControls(u"A\r\nB"), u"A<CR><LF>B");
  EXPECT_EQ(WithVisibleControls(u"\x1B\x7F"), u"<1B><7F>");
  EXPECT_EQ(WithVisibleControls(StringView(u"\0x", 2)), u"<00>x");
}

/// The window of the line of a program with a device of QHW, which is chosen.
class LinePanelTest : public PageBench, public testing::Test {
 protected:
  LinePanelTest() : device(Connect(u"QHW")) {
    panel.Follow(app.link.line);
    Choose(u"QHW");
  }
  [[nodiscard]] Cells Last() const { return panel.Cells(panel.EndRow() - 1); }
  [[nodiscard]] std::vector<Cells> Rows() const {
    std::vector<Cells> rows;
    for (int row = panel.FirstRow(); row < panel.EndRow(); ++row) {
      rows.push_back(panel.Cells(row));
    }
    return rows;
  }

  sim::Device& device;
  LinePanel panel{platform, u"/korva"};
};

TEST_F(LinePanelTest, ShowsWhatWasSentAndWhatCameWithItsTime) {
  Do([&] { Page().LinkTest(); });
  const std::vector<Cells> rows = Rows();
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0][1], u"送信");
  EXPECT_EQ(rows[0][2], u"G00");
  EXPECT_EQ(rows[1][1], u"受信");
  EXPECT_EQ(rows[1][2], u"COK");
  EXPECT_EQ(rows[2][2], u"I99");
  // Four characters each way at 1200 baud with 10 bits each, and the device's latency of 10 ms.
  EXPECT_EQ(rows[0][0], u"0.000");
  EXPECT_EQ(rows[1][0], u"0.077");
  EXPECT_EQ(panel.LookOf(0), Look::Normal);
}

TEST_F(LinePanelTest, MarksAReplyThatDidNotComeAndACommandThatCouldNotBeSent) {
  device.AddFault(sim::ParseFault("silent"));
  Do([&] { Page().LinkTest(); });
  EXPECT_EQ(Last()[1], u"応答なし");
  EXPECT_EQ(panel.LookOf(panel.EndRow() - 1), Look::Highlight);
  Do([&] {
    app.link.line.Close();
    Page().LinkTest();
  });
  EXPECT_EQ(Last()[1], u"送信不可");
  EXPECT_EQ(Last()[2], u"G00");
  EXPECT_EQ(panel.LookOf(panel.EndRow() - 1), Look::Highlight);
}

TEST_F(LinePanelTest, TellsItsWindowOfLinesOnlyWhileItIsOpen) {
  int told = 0;
  panel.Observe([&told] { ++told; });
  Do([&] { Page().LinkTest(); });
  EXPECT_EQ(told, 0);
  panel.Open();
  told = 0;
  Do([&] { Page().LinkTest(); });
  EXPECT_EQ(told, 4);
}

TEST_F(LinePanelTest, WritesNothingUnlessTheUserChoosesAFile) {
  Do([&] { Page().LinkTest(); });
  Do([&] { panel.cmdSaveLine.Click(); });  // the dialog is cancelled
  EXPECT_FALSE(files.Exists(u"/korva/line.txt"));
  dialogs.QueueFile(u"/korva/line.txt");
  Do([&] { panel.cmdSaveLine.Click(); });
  const std::string saved = files.Bytes(u"/korva/line.txt").value();
  EXPECT_TRUE(saved.starts_with("0.000\t送信\tG00\r\n0.077\t受信\tCOK\r\n")) << saved;
  EXPECT_TRUE(TakeBoxes().empty());
}

TEST_F(LinePanelTest, CantBeSavedWhileAnOperationRuns) {
  const Button& save = *app.companions.Panels()[2]->Buttons().front();
  Do([&] {
    Page().LockFrame();
    EXPECT_FALSE(save.Enabled());
    Page().UnlockFrame();
    EXPECT_TRUE(save.Enabled());
    Page().BarExchanges();  // a live loop beside a page that stays usable
    EXPECT_FALSE(save.Enabled());
    Page().FreeExchanges();
    EXPECT_TRUE(save.Enabled());
  });
}

}  // namespace
}  // namespace korva::test
