// The close box is pressed at each pump of an upload and of a download in turn.

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "page_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A program with a device of model QL, whose set has been uploaded and changed.
class CloseBench : public PageBench {
 public:
  CloseBench() : device(Connect(u"QL")) {
    Choose(u"QL");
    Upload();
    Type(u"02", u"PUMP 1");
    Page().DataChanged = false;
    TakeBoxes();
    app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) { sent += traffic.sent ? 1 : 0; };
    first_pump = loop.PumpCount() + 1;
  }
  /// Presses the close box at pump `at` of what follows (from 0), `times` over.
  void CloseAt(std::size_t at, int times = 1) {
    loop.OnPump([this, at, times] {
      if (loop.PumpCount() == first_pump + at) {
        sent_at_close = sent;
        for (int press = 0; press < times; ++press) {
          app.program.PressClose();
          told = told || Page().flaMsg_CannotEnd.Visible();
        }
      }
    });
  }
  [[nodiscard]] std::size_t Pumps() const { return loop.PumpCount() + 1 - first_pump; }

  sim::Device& device;
  std::size_t first_pump = 0;
  int sent = 0;
  int sent_at_close = 0;
  bool told = false;  ///< the frame that tells that the program can't end was seen
};

TEST(CloseSweepTest, ClosedAtAnyPumpAnUploadEndsTheProgramWithinOneExchange) {
  CloseBench whole;
  whole.Upload();
  const std::size_t pumps = whole.Pumps();
  ASSERT_GT(pumps, 20U);
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    CloseBench bench;
    bench.CloseAt(at);
    bench.Upload();
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.sent, bench.sent_at_close) << "no exchange begins after the one under way";
    EXPECT_FALSE(bench.told);
    for (const std::string& box : bench.TakeBoxes()) {
      EXPECT_NE(box, Shown(BoxKey::UploadDone));
    }
  }
  std::cout << "uploads closed: " << pumps << '\n';
}

TEST(CloseSweepTest, ClosedAtAnyPumpADownloadTellsThatItCannotEndGoesToItsEndAndThenEnds) {
  CloseBench whole;
  whole.Download();
  const std::size_t pumps = whole.Pumps();
  const int exchanges = whole.sent;
  ASSERT_GT(pumps, 20U);
  for (std::size_t at = 0; at < pumps; ++at) {
    for (const int times : {1, 2}) {
      SCOPED_TRACE(at);
      CloseBench bench;
      bench.CloseAt(at, times);
      bench.Download();
      EXPECT_TRUE(bench.told);
      EXPECT_EQ(bench.sent, exchanges);
      EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadDone)}));
      EXPECT_EQ(bench.status, 0);
      EXPECT_EQ(bench.device.Mode(), '0');
      EXPECT_EQ(Trimmed(FromUtf8(bench.device.Value("01", "02"))), u"PUMP 1");
    }
  }
  std::cout << "downloads closed: " << 2 * pumps << '\n';
}

TEST(CloseSweepTest, ClosedAtAnyPumpADownloadThatFailsKeepsTheWindowAndTheNextUploadRuns) {
  CloseBench whole;
  whole.device.AddFault({.fault = sim::Fault::WrongEcho, .command = "DPUMP 1"});
  whole.Download();
  const std::size_t pumps = whole.Pumps();
  for (std::size_t at = 0; at < pumps; ++at) {
    SCOPED_TRACE(at);
    CloseBench bench;
    bench.device.AddFault({.fault = sim::Fault::WrongEcho, .command = "DPUMP 1"});
    bench.CloseAt(at);
    bench.Download();
    EXPECT_TRUE(bench.told);
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_FALSE(bench.Page().flaMsg_CannotEnd.Visible());
    EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::StartDownload), Shown(BoxKey::DownloadDataMismatch)}));
    bench.Upload();
    EXPECT_FALSE(bench.status.has_value());
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
  }
  std::cout << "failing downloads closed: " << pumps << '\n';
}

}  // namespace
}  // namespace korva::test
