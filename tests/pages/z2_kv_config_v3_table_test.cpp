// The table of family LiteThird, which travels through item 42 in a dialogue.

#include <gtest/gtest.h>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "support/sampled.h"
#include "sweep_bench.h"
#include "z2_kv_config_v3_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;
using Table = std::vector<std::pair<std::string, std::string>>;

const std::string kAskUpload = Shown(BoxKey::UploadLinearizer);
const std::string kAskDownload = Shown(BoxKey::DownloadLinearizer);
const std::string kUploaded = Shown(BoxKey::UploadDone);
const std::string kDownloaded = Shown(BoxKey::DownloadDone);
const Texts kFailed = {kAskDownload, Shown(BoxKey::LinearizerDataMismatch),
                       Shown(BoxKey::LinearizerDownloadFailed)};
const Table kThree = {{"0", "10"}, {"12.5", "-15"}, {"100", "99.99"}};

/// A device whose table is on, and a page that holds its set.
struct DialogueBench : PulseBench {
  DialogueBench() : PulseBench(true) { BoxesOfUpload({Answer::No}); }
  [[nodiscard]] Texts Held() const {
    Texts points;
    for (const sim::Point& point : device.GetTableDialogue().Points()) {
      points.push_back(ToUtf8(FormatMask(point.x, u"0.00") + u" " + FormatMask(point.y, u"0.00")));
    }
    return points;
  }
  std::string Notice() { return ToUtf8(Page().Notes.Caption()); }
};

// Upload.

TEST(PulseTableUploadTest, ShowsThePointsAsTheDeviceSendsThem) {
  DialogueBench bench;
  bench.line.replies["01/42 D2"] = "D    25.0    +30.500";
  EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}), (Texts{kAskUpload, kUploaded}));
  EXPECT_EQ(bench.Points(),
            (Texts{"0.00 0.00", "25.0 +30.500", "50.00 50.00", "75.00 75.00", "100.00 100.00"}));
  EXPECT_EQ(bench.Dialogue(), (Texts{"D", "DO", "D100", "D1", "D2", "D3", "D4", "D5", "D6"}));
  EXPECT_EQ(bench.Page().GroupItem.At(2, 3), u"+30.500");
  EXPECT_EQ(bench.Notice(), "");
  bench.ExpectAtRest();
}

TEST(PulseTableUploadTest, TheAnswerNoReadsNothingAndLeavesTheTable) {
  DialogueBench bench;
  bench.FillTable(kThree);
  EXPECT_EQ(bench.BoxesOfUpload({Answer::No}), (Texts{kAskUpload, kUploaded}));
  EXPECT_EQ(bench.Dialogue(), Texts{"D"});
  EXPECT_EQ(bench.Points(), (Texts{"0 10", "12.5 -15", "100 99.99"}));
}

TEST(PulseTableUploadTest, WithTheSwitchAtNoneNothingIsAsked) {
  DialogueBench bench;
  bench.device.Set("01", "42", "0");
  EXPECT_EQ(bench.BoxesOfUpload(), Texts{kUploaded});
  EXPECT_FALSE(bench.Page().Tabs.TabEnabled(3));
}

TEST(PulseTableUploadTest, AWrongAnswerBeginsAtOAgainAndNeverInside) {
  for (const char* const wrong :
       {"D    invalid data", "D 25.00", "D 25.00 x", "D 25.00 25.00 1", "D 25,0 30"}) {
    DialogueBench bench;
    bench.line.replies["01/42 D2"] = wrong;
    EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}), (Texts{kAskUpload, kUploaded})) << wrong;
    EXPECT_EQ(bench.Points(), (Texts{"0.00 0.00", " ", "50.00 50.00", "75.00 75.00", "100.00 100.00"}))
        << "an empty row: " << wrong;
    EXPECT_EQ(bench.Dialogue(), (Texts{"D",  "DO", "D100", "D1", "D2", "DO",   "D100", "D2", "DO", "D100",
                                       "D2", "DO", "D100", "D2", "DO", "D100", "D3",   "D4", "D5", "D6"}))
        << wrong;
    EXPECT_NE(bench.Notice().find(ToUtf8(CaptionText(TextKey::TableNotRead))), std::string::npos);
    bench.ExpectAtRest();
  }
}

TEST(PulseTableUploadTest, ADialogueThatCantBeBegunGivesAnEmptyTableAfterFourTries) {
  for (const char* const step : {"01/42 DO", "01/42 D100"}) {
    for (const std::optional<std::string>& answer :
         {std::optional<std::string>(), std::optional<std::string>("D    invalid data")}) {
      DialogueBench bench;
      bench.FillTable(kThree);
      bench.line.replies[step] = answer;
      EXPECT_EQ(bench.BoxesOfUpload({Answer::Yes}), (Texts{kAskUpload, kUploaded}));
      EXPECT_EQ(bench.Points(), Texts{});
      EXPECT_EQ(bench.Accesses("01/42 DO").size(), 4U);
      EXPECT_TRUE(bench.Accesses("01/42 D1").size() == bench.Accesses("01/42 D100").size()) << "no point";
      EXPECT_NE(bench.Notice().find(ToUtf8(CaptionText(TextKey::TableNotRead))), std::string::npos);
      bench.ExpectAtRest();
    }
  }
}

TEST(PulseTableUploadTest, ADeviceWithoutATableGivesAnEmptyOne) {
  DialogueBench bench;
  bench.device.GetTableDialogue().SetPoints({});
  bench.BoxesOfUpload({Answer::Yes});
  EXPECT_EQ(bench.Points(), Texts{});
  EXPECT_NE(bench.Notice().find(ToUtf8(CaptionText(TextKey::NoTable))), std::string::npos);
}

TEST(PulseTableUploadTest, AllHundredPointsFit) {
  DialogueBench bench;
  std::vector<sim::Point> points;
  points.reserve(100);
  for (int point = 0; point < 100; ++point) {
    points.push_back({.x = point / 2.0, .y = 100 - point / 2.0});
  }
  bench.device.GetTableDialogue().SetPoints(points);
  bench.BoxesOfUpload({Answer::Yes});
  EXPECT_EQ(bench.Points(), bench.Held());
  EXPECT_EQ(bench.Dialogue().back(), "D100");
  EXPECT_EQ(bench.Page().GroupItem.At(3, 99), u"50.50");
}

// Download.

TEST(PulseTableDownloadTest, ResetsTheTableTellsTheNumberAndSendsEachPointWithItsNumber) {
  DialogueBench bench;
  bench.FillTable(kThree);
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}), (Texts{kAskDownload, kDownloaded}));
  const Texts dialogue = bench.Dialogue();
  ASSERT_GE(dialogue.size(), 6U);
  EXPECT_EQ(Texts(dialogue.end() - 6, dialogue.end()),
            (Texts{"DC", "DI", "D3", "D1 0 10", "D2 12.5 -15", "D3 100 99.99"}));
  EXPECT_EQ(bench.Held(), (Texts{"0.00 10.00", "12.50 -15.00", "100.00 99.99"}));
  EXPECT_EQ(bench.device.Mode(), '0');
  bench.ExpectAtRest();
}

TEST(PulseTableDownloadTest, AUnitBehindAValueIsNotSent) {
  DialogueBench bench;
  bench.FillTable({{"0 %", "10%"}, {"50", "60 %"}});
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}), (Texts{kAskDownload, kDownloaded}));
  EXPECT_EQ(bench.Accesses("01/42 D1 0 10").size(), 1U);
}

TEST(PulseTableDownloadTest, TheAnswerNoLeavesTheTableInTheDeviceAndIsASuccess) {
  DialogueBench bench;
  bench.FillTable(kThree);
  EXPECT_EQ(bench.BoxesOfDownload({Answer::No}), (Texts{kAskDownload, kDownloaded}));
  EXPECT_EQ(bench.Held().size(), 5U);
  EXPECT_TRUE(bench.Accesses("01/42 DC").empty());
}

TEST(PulseTableDownloadTest, ABadTableStopsBeforeProgrammingMode) {
  DialogueBench bench;
  bench.FillTable({{"0", "10"}, {"0", "20"}});
  EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::ValueBad)});
  EXPECT_TRUE(bench.Accesses("01/01 D1").empty());
}

struct WrongStep {
  const char* access;
  const char* answer;  ///< nullptr: silence
  std::size_t times;   ///< how often the step is tried
};

TEST(PulseTableDownloadTest, ARepeatBeginsAtCOrIAgainAndNeverInside) {
  for (const WrongStep& step :
       {WrongStep{"01/42 DC", nullptr, 4}, WrongStep{"01/42 DC", "D    invalid data", 4},
        WrongStep{"01/42 DI", nullptr, 4}, WrongStep{"01/42 DI", "D   output number", 4},
        WrongStep{"01/42 D3", "D    input number", 4}, WrongStep{"01/42 D2 12.5 -15", nullptr, 4},
        WrongStep{"01/42 D2 12.5 -15", "D    invalid data", 4},
        WrongStep{"01/42 D2 12.5 -15", "D      not usable", 4}, WrongStep{"01/42 D2 12.5 -15", "D", 4},
        WrongStep{"01/42 D2 12.5 -15", "D 2 12.50 -15.02", 4}}) {
    SCOPED_TRACE(step.access);
    DialogueBench bench;
    bench.FillTable(kThree);
    bench.line.replies[step.access] =
        step.answer == nullptr ? std::nullopt : std::optional<std::string>(step.answer);
    EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}), kFailed);
    EXPECT_EQ(bench.Accesses(step.access).size(), step.times);
    const bool at_reset = std::string(step.access).ends_with("DC");
    EXPECT_EQ(bench.Accesses("01/42 DC").size(), at_reset ? 4U : 1U);
    EXPECT_EQ(bench.Accesses("01/42 DI").size(), at_reset ? 0U : 4U);
    EXPECT_TRUE(bench.Accesses("01/42 D3 100 99.99").empty());
    EXPECT_EQ(bench.device.Mode(), '0');
    bench.ExpectAtRest();
  }
}

TEST(PulseTableDownloadTest, ANumberBehindTheAnswersLastBlankMayDifferByOneHundredth) {
  for (const char* const answer : {"D 2 12.50 -15.01", "D 2 12.50 -14.99", "D 2 12.50 taken", "DOK"}) {
    DialogueBench bench;
    bench.FillTable(kThree);
    bench.line.replies["01/42 D2 12.5 -15"] = answer;
    EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}), (Texts{kAskDownload, kDownloaded})) << answer;
  }
}

TEST(PulseTableDownloadTest, AModeThatIsNotTakenHasItsOwnBoxAlone) {
  DialogueBench bench;
  bench.FillTable(kThree);
  bench.dialogs.OnBox([&](const Box& box) {
    if (ToUtf8(box.title + u": " + box.text) == kAskDownload) {
      bench.line.replies["01/01 D1"] = std::nullopt;
    }
  });
  EXPECT_EQ(bench.BoxesOfDownload({Answer::Yes}), (Texts{kAskDownload, Shown(BoxKey::NotProgrammingMode)}));
  EXPECT_TRUE(bench.Accesses("01/42 DC").empty());
}

TEST(PulseTableDownloadTest, TheBarGoesFrom10To100) {
  DialogueBench bench;
  bench.FillTable({{"0", "0"}, {"50", "50"}});
  std::vector<float> bar;
  ProgressBar& lnr_bar = bench.V3().linearizer.LnrProgressBar;
  bench.dialogs.OnBox([&](const Box& box) {
    if (ToUtf8(box.title + u": " + box.text) == kAskDownload) {
      lnr_bar.Observe([&] { bar.push_back(lnr_bar.Value()); });
    }
  });
  bench.BoxesOfDownload({Answer::Yes});
  EXPECT_EQ(bar, (std::vector<float>{10, 55, 100, 0}));
}

// The whole of both transfers, each exchange broken in turn.

/// One in this many breaks, prime to the nine of an exchange so that they take turns.
constexpr std::size_t kOneIn = 7;

TEST(PulseSweepTest, ATransferBrokenAtAnyExchangeLeavesAPageThatCanBeUsedAndSaysWhatIsTrue) {
  std::size_t tried = 0;
  std::size_t all = 0;
  for (const bool download : {false, true}) {
    const auto run = [download](DialogueBench& bench) {
      bench.FillTable(kThree);
      bench.Page().DataChanged = false;
      for (const Answer answer : download ? std::vector{Answer::Ok, Answer::Yes}
                                          : std::vector{Answer::Yes, Answer::Ok, Answer::Yes}) {
        bench.dialogs.QueueAnswer(answer);
      }
      bench.line.ForgetCommands();
      bench.TakeBoxes();
      bench.Click(download ? bench.Page().cmdDownload : bench.Page().cmdUpload);
      return bench.TakeBoxes();
    };
    DialogueBench good;
    run(good);
    const std::vector<Break> breaks = BreaksOf(good.line.Commands().size());
    all += breaks.size();
    for (std::size_t at = download ? 3 : 0; at < breaks.size(); at += kOneIn, ++tried) {
      SCOPED_TRACE((download ? "download, " : "upload, ") + breaks[at].Name());
      DialogueBench bench;
      const int first = bench.device.Exchanges() + 1 + static_cast<int>(breaks[at].at);
      bench.device.AddFault({.fault = breaks[at].fault,
                             .first = first,
                             .last = breaks[at].for_good ? sim::FaultRule::kForGood : first,
                             .command = {}});
      const Clock start = bench.loop.Now();
      const Texts boxes = run(bench);
      EXPECT_LT(bench.loop.Now() - start, kLongestRun);
      if (download && !boxes.empty() && boxes.back() == kDownloaded) {
        EXPECT_EQ(bench.Held(), (Texts{"0.00 10.00", "12.50 -15.00", "100.00 99.99"}));
        ExpectDeviceHolds(bench.Page(), bench.device);
      }
      bench.ExpectFree();
      if (testing::Test::HasFailure()) {
        return;
      }
    }
  }
  TellShare("Z2WPA: transfers with a broken exchange", tried, all);
}

}  // namespace
}  // namespace korva::test
