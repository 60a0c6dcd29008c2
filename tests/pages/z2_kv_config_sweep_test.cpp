// Whole downloads of transmitters, with items, memory, curve and linearizer, broken at their exchanges and
// closed at their pumps. There are too many to try them all: a sample is drawn by a fixed seed.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "pages/z2_kv_config/z2_kv_config.h"
#include "sweep_bench.h"
#include "tables/curve_file.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kTableType = 513;
constexpr char kBeingWritten = 99;

/// What a download changes in the memory of a model: its input type, with its code and its curve, or the
/// linearizer.
struct Change {
  String model;
  String input;
  int code = 0;
  std::optional<SensorKind> curve = {};
  bool linearizer = false;
};

const std::vector<Change>& Changes() {
  static const std::vector<Change> changes = {
      {.model = u"Z2WT", .input = u"TC T (CC)", .code = 4, .curve = SensorKind::Thermocouple},
      {.model = u"Z2WR", .input = u"Ni508.4", .code = 4, .curve = SensorKind::Resistance},
      {.model = u"Z2WF", .input = u"4 - 20 mA", .code = 3, .linearizer = true},
      {.model = u"Z2WV", .input = u"-1 - 1 V", .code = 1}};
  return changes;
}

/// True when the device does not carry out what is sent in this exchange.
bool Loses(const Break& line_break, std::size_t exchange) {
  const bool struck = line_break.for_good ? exchange >= line_break.at : exchange == line_break.at;
  return struck && (line_break.fault == sim::Fault::Silent || line_break.fault == sim::Fault::Refused);
}

/// A transmitter whose set was uploaded and then changed.
struct Transmitter : SweepBench {
  explicit Transmitter(const Change& its_change) : SweepBench(its_change.model), change(its_change) {
    auto& page = dynamic_cast<z2KvConfig&>(Page());
    Type(u"02", u"PUMP 1");
    Pick(page.Combo[0], change.input);
    Pick(page.Combo[1], page.Combo[1].Entries().at(1));
    if (change.linearizer) {
      Press(page.linearizer.Opt_Lnr, 1);
      Do([&] {
        int row = 0;
        for (const StringView value : {u"0", u"25", u"100"}) {
          ++row;
          page.linearizer.Table().Store(row, 1, String(value));
          page.linearizer.Table().Store(row, 2, String(value));
        }
      });
    }
    type_before = Bytes(kTableType, 1).front();
    // The question comes only where the download has got that far.
    dialogs.OnBox([this](const Box& box) {
      if (box.text == BoxOf(BoxKey::DownloadLinearizer).text) {
        dialogs.QueueAnswer(Answer::Yes);
      }
    });
  }

  /// The boxes behind the download's question, less that of the linearizer.
  Texts BoxesOfDownload() {
    TakeBoxes();
    commands.clear();
    Download();
    Texts boxes = TakeBoxes();
    boxes.erase(boxes.begin());
    std::erase(boxes, Shown(BoxKey::DownloadLinearizer));
    return boxes;
  }
  [[nodiscard]] std::string Bytes(std::size_t address, std::size_t count) const {
    return device.GetMemory().Bytes(address, count);
  }
  /// The table's type as the device holds it after the download: what was sent to it last and not lost.
  [[nodiscard]] char TypeAfter(const Break& line_break) const {
    char type = type_before;
    for (std::size_t at = 0; at + 1 < commands.size(); ++at) {
      const std::string& data = commands[at + 1];
      if (commands[at] == "DS0201-1" && data.front() == 'D' && data.size() == 3 &&
          !Loses(line_break, at + 1)) {
        type = static_cast<char>(std::stoi(data.substr(1), nullptr, 16));
      }
    }
    return type;
  }
  /// The device holds all that the page has for it.
  void ExpectAllWritten() {
    EXPECT_EQ(device.Value("01", "10"), ToUtf8(change.input));
    EXPECT_EQ(device.Value("01", "11"), ToUtf8(Page().Item(11)));
    EXPECT_EQ(Bytes(78, 1).front(), static_cast<char>(change.code));
    EXPECT_EQ(Trimmed(FromUtf8(device.Value("01", "02"))), u"PUMP 1");
    ExpectTable();
  }
  void ExpectTable() {
    if (change.curve) {
      EXPECT_EQ(Bytes(kTableType, 1).front(), static_cast<char>(change.code));
      const std::string image = ImageOfFile();
      EXPECT_TRUE(Bytes(8192 - image.size(), image.size()) == image) << "the curve of the file";
    }
    if (change.linearizer) {
      EXPECT_EQ(Bytes(kTableType, 1), "\x65");
      // 100 % times 32768, in three bytes with the low one first.
      EXPECT_EQ(Bytes(8192 - 6, 6), std::string("\x00\x00\x32\x00\x00\x32", 6));
    }
  }
  /// The three low bytes of each of the file's numbers.
  [[nodiscard]] std::string ImageOfFile() const {
    const CurveFile& file = CurveFiles(*change.curve)[static_cast<std::size_t>(change.code)];
    const std::string bytes = files.Bytes(u"/korva/system/z2Kv/" + String(file.name)).value();
    std::string image;
    for (std::size_t value = 0; value < static_cast<std::size_t>(file.points); ++value) {
      image += bytes.substr(4 * value, 3);
    }
    return image;
  }

  Change change;
  char type_before = 0;
};

/// `most` of the numbers below `all`, or all of them, by a fixed seed.
std::vector<std::size_t> Drawn(std::size_t all, std::size_t most) {
  std::mt19937 random(20261);
  std::vector<std::size_t> numbers(all);
  std::iota(numbers.begin(), numbers.end(), 0U);
  const std::size_t count = std::min(all, most);
  for (std::size_t place = 0; place < count; ++place) {
    std::swap(numbers[place], numbers[place + random() % (all - place)]);
  }
  numbers.resize(count);
  return numbers;
}

void TellShare(const String& model, const char* what, std::size_t tried, std::size_t all) {
  std::cout << ToUtf8(model) << ": " << what << ": " << tried << " of " << all << " drawn\n";
}

#ifdef KORVA_CHECKED
constexpr std::size_t kMostRuns = 6;
#else
constexpr std::size_t kMostRuns = 1200;
#endif

struct TransmitterSweep : testing::TestWithParam<Change> {};
INSTANTIATE_TEST_SUITE_P(Model, TransmitterSweep, testing::ValuesIn(Changes()),
                         [](const auto& one) { return ToUtf8(one.param.model); });

/// A break of the line at each of `exchanges`, as a download of items has them.
std::vector<Break> AllBreaks(std::size_t exchanges) {
  std::vector<Break> breaks;
  for (std::size_t at = 0; at < exchanges; ++at) {
    for (const sim::Fault fault :
         {sim::Fault::Silent, sim::Fault::Refused, sim::Fault::Garbled, sim::Fault::Late}) {
      breaks.push_back({.fault = fault, .for_good = false, .at = at});
      breaks.push_back({.fault = fault, .for_good = true, .at = at});
    }
  }
  return breaks;
}

/// The boxes that may end a download, and the closing's.
bool IsAnOutcome(const Texts& boxes) {
  static const Texts known = [] {
    Texts texts;
    for (const BoxKey key :
         {BoxKey::DownloadDone, BoxKey::CommFailure, BoxKey::ModelMismatch, BoxKey::NotMonitorMode,
          BoxKey::NotProgrammingMode, BoxKey::OutputTypeUnknown, BoxKey::AdcTypeUnreadable,
          BoxKey::DownloadDataMismatch, BoxKey::EepromModeNotEntered, BoxKey::EepromWriteFailed,
          BoxKey::LinearizerDownloadFailed}) {
      texts.push_back(Shown(key));
    }
    return texts;
  }();
  return std::all_of(boxes.begin(), boxes.end(), [](const std::string& box) {
    return std::find(known.begin(), known.end(), box) != known.end();
  });
}

TEST_P(TransmitterSweep, ADownloadBrokenAtAnExchangeTellsWhatWasProvedAndCanBeRepeated) {
  Transmitter good(GetParam());
  ASSERT_EQ(good.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
  good.ExpectAllWritten();
  const std::vector<Break> breaks = AllBreaks(good.commands.size());
  for (const std::size_t drawn : Drawn(breaks.size(), kMostRuns)) {
    const Break& line_break = breaks[drawn];
    SCOPED_TRACE(line_break.Name());
    Transmitter bench(GetParam());
    bench.StartBreak(line_break);
    const Texts boxes = bench.BoxesOfDownload();
    bench.ExpectUsable();
    EXPECT_TRUE(IsAnOutcome(boxes)) << testing::PrintToString(boxes);
    const bool done = std::find(boxes.begin(), boxes.end(), Shown(BoxKey::DownloadDone)) != boxes.end();
    const char type = bench.Bytes(kTableType, 1).front();
    EXPECT_EQ(type, bench.TypeAfter(line_break)) << "99 exactly when a table had begun and not ended";
    if (done) {
      EXPECT_NE(type, kBeingWritten);
      bench.ExpectAllWritten();
    }
    if (!line_break.for_good) {
      EXPECT_EQ(bench.device.Mode(), '0');
    }
    bench.device.ClearFaults();
    bench.loop.RunUntilIdle();
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)}) << "again";
    bench.ExpectAllWritten();
    EXPECT_EQ(bench.device.Mode(), '0');
    if (testing::Test::HasFailure()) {
      return;
    }
  }
  TellShare(GetParam().model, "downloads with a broken exchange", std::min(breaks.size(), kMostRuns),
            breaks.size());
}

TEST_P(TransmitterSweep, ClosedAtAPumpADownloadGoesToItsEndAndThenEndsTheProgram) {
  Transmitter good(GetParam());
  const std::size_t pumps_before = good.loop.PumpCount();
  good.BoxesOfDownload();
  const std::size_t pumps = good.loop.PumpCount() - pumps_before;
  const std::size_t exchanges = good.commands.size();
  for (const std::size_t drawn : Drawn(pumps, kMostRuns)) {
    SCOPED_TRACE(drawn);
    Transmitter bench(GetParam());
    const std::size_t first = bench.loop.PumpCount() + 1;
    bool told = false;
    bench.loop.OnPump([&] {
      if (bench.loop.PumpCount() == first + drawn) {
        bench.app.program.PressClose();
        told = bench.Page().flaMsg_CannotEnd.Visible();
      }
    });
    EXPECT_EQ(bench.BoxesOfDownload(), Texts{Shown(BoxKey::DownloadDone)});
    EXPECT_TRUE(told);
    EXPECT_EQ(bench.commands.size(), exchanges);
    EXPECT_EQ(bench.status, 0);
    EXPECT_EQ(bench.device.Mode(), '0');
    bench.ExpectTable();
    if (testing::Test::HasFailure()) {
      return;
    }
  }
  TellShare(GetParam().model, "downloads closed", std::min(pumps, kMostRuns), pumps);
}

}  // namespace
}  // namespace korva::test
