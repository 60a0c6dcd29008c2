// The user's tables by their buttons and in transfers, with each exchange in turn broken, once and for good,
// and with the close box pressed at each pump.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "support/sampled.h"
#include "user_tables_bench.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

enum class Job { ReadOut, WriteIn, Upload, Download };

struct TableCase {
  std::string name;
  StringView word;
  StringView def_file;
  UserTable table;
};
void PrintTo(const TableCase& one, std::ostream* out) { *out << one.name; }

const std::vector<TableCase>& Cases() {
  static const std::vector<TableCase> cases = {
      {"UniversalThermocouple", u"LiteUniv", u"Model.def", UserTable::Thermocouple},
      {"UniversalResistance", u"LiteUniv", u"Model.def", UserTable::Resistance},
      {"UniversalLinearizer", u"LiteUniv", u"Model.def", UserTable::Linearizer},
      {"TwoOutputsThermocouple", u"Nano", u"Z8WT2.def", UserTable::Thermocouple},
      {"TwoOutputsResistance", u"Nano", u"Z8WR2.def", UserTable::Resistance},
      {"TwoOutputsLinearizer", u"Nano", u"Z8WV2.def", UserTable::Linearizer},
  };
  return cases;
}

/// A page and a device with the same table in use, of three rows that differ.
class TableSweepBench : public UserTablesBench {
 public:
  explicit TableSweepBench(const TableCase& one) : UserTablesBench(one.word, String(one.def_file)) {
    Use(one.table);
    ReadOut();  // a device with little to tell keeps the sweep short
    sim::KeyedTable& table = DeviceTable(Item());
    table.SetSize(3);
    Fields(u"-20", u"5", u"3", u"50 ohm");
    Fill(Points().Columns() == 2 ? std::vector<String>{u"1", u"2", u"3"}
                                 : std::vector<String>{u"1", u"10", u"2", u"20", u"3", u"30"});
    page->DataChanged = false;
    TakeBoxes();
    line.ForgetCommands();
  }
  void Run(Job job) {
    // Whoever is asked goes on.
    dialogs.OnBox([this](const Box& box) {
      if (box.buttons.size() > 1) {
        dialogs.QueueAnswer(Offers(box, korva::Answer::Yes) ? korva::Answer::Yes : korva::Answer::Ok);
      }
    });
    switch (job) {
      case Job::ReadOut:
        return ReadOut();
      case Job::WriteIn:
        return WriteIn();
      case Job::Upload:
        return Click(page->cmdUpload);
      case Job::Download:
        return Click(page->cmdDownload);
    }
  }
  static std::string Report(Job job) {
    switch (job) {
      case Job::ReadOut:
        return Shown(BoxKey::TableRead);
      case Job::WriteIn:
        return Shown(BoxKey::TableWritten);
      case Job::Upload:
        return Shown(BoxKey::UploadDone);
      case Job::Download:
        break;
    }
    return Shown(BoxKey::DownloadDone);
  }
  [[nodiscard]] std::string Item() const {
    switch (page->tables.Shown()) {
      case UserTable::Thermocouple:
        return "60";
      case UserTable::Resistance:
        return "61";
      default:
        return "62";
    }
  }
  /// The device and the page hold the same table.
  void ExpectSameTable() {
    const sim::KeyedTable& table = DeviceTable(Item());
    EXPECT_EQ(table.Size(), 3U);
    for (int row = 1; row <= 3; ++row) {
      for (int column = 1; column < Points().Columns(); ++column) {
        EXPECT_EQ(
            std::stod(table.Value(static_cast<std::size_t>(row - 1), static_cast<std::size_t>(column - 1))),
            std::stod(Cell(row, column)))
            << row << " " << column;
      }
    }
  }
  void Break(sim::Fault fault, bool for_good, int after) {
    const int first = device.Exchanges() + 1 + after;
    device.AddFault(
        {.fault = fault, .first = first, .last = for_good ? sim::FaultRule::kForGood : first, .command = {}});
  }
  void PressCloseAt(std::size_t at) {
    loop.OnPump([this, first = loop.PumpCount() + 1, at] {
      if (loop.PumpCount() == first + at && !status.has_value()) {
        program.PressClose();
      }
    });
  }
};

struct UserTableSweepTest : testing::TestWithParam<TableCase> {};
INSTANTIATE_TEST_SUITE_P(Case, UserTableSweepTest, testing::ValuesIn(Cases()),
                         [](const auto& one) { return one.param.name; });

struct OneBreak {
  sim::Fault fault;
  bool for_good;
  int after;
};

std::vector<OneBreak> BreaksOf(int exchanges) {
  std::vector<OneBreak> breaks;
  for (int after = 0; after < exchanges; ++after) {
    for (const sim::Fault fault :
         {sim::Fault::Silent, sim::Fault::Refused, sim::Fault::Garbled, sim::Fault::Late}) {
      breaks.push_back({fault, false, after});
      breaks.push_back({fault, true, after});
    }
    breaks.push_back({sim::Fault::Doubled, false, after});
  }
  return breaks;
}

TEST_P(UserTableSweepTest, BrokenAtAnyExchangeThePageCanBeUsedAndAReportIsTrue) {
  std::size_t tried = 0;
  std::size_t all = 0;
  for (const Job job : {Job::ReadOut, Job::WriteIn, Job::Upload, Job::Download}) {
    TableSweepBench good(GetParam());
    good.Run(job);
    ASSERT_EQ(good.TakeBoxes().back(), TableSweepBench::Report(job));
    const auto breaks = BreaksOf(static_cast<int>(good.line.Commands().size()));
    all += breaks.size();
    for (const OneBreak& one : OneIn(5, breaks)) {
      ++tried;
      SCOPED_TRACE(std::to_string(static_cast<int>(job)) + ": " +
                   std::string(sim::AllFaults()[static_cast<std::size_t>(one.fault)].name) +
                   (one.for_good ? " for good after " : " once after ") + std::to_string(one.after));
      TableSweepBench bench(GetParam());
      bench.Break(one.fault, one.for_good, one.after);
      bench.Run(job);
      bench.device.ClearFaults();
      bench.ExpectAtRest();
      const Texts boxes = bench.TakeBoxes();
      ASSERT_FALSE(boxes.empty());
      // An upload that lost the input type or the switch knows of no table.
      const bool in_use = bench.page->tables.InUse() == GetParam().table;
      if (boxes.back() == TableSweepBench::Report(job) && in_use) {
        bench.ExpectSameTable();
      }
      bench.loop.RunUntilIdle();
      bench.page->DataChanged = false;
      bench.TakeBoxes();
      bench.ReadOut();
      if (in_use) {
        EXPECT_EQ(bench.TakeBoxes(), Texts{Shown(BoxKey::TableRead)}) << "the line is good again";
      }
      ASSERT_FALSE(HasFailure());
    }
  }
  TellShare(GetParam().name + ": broken exchanges", tried, all);
}

TEST_P(UserTableSweepTest, ClosedAtAnyPumpAWriteGoesToItsEndAndThenTheProgramEnds) {
  for (const Job job : {Job::WriteIn, Job::Download}) {
    TableSweepBench whole(GetParam());
    const std::size_t before = whole.loop.PumpCount();
    whole.Run(job);
    const std::size_t pumps = whole.loop.PumpCount() - before;
    for (const std::size_t at : SampledPumps(pumps)) {
      SCOPED_TRACE(at);
      TableSweepBench bench(GetParam());
      bench.PressCloseAt(at);
      bench.Run(job);
      EXPECT_EQ(bench.status, 0);
      EXPECT_EQ(bench.line.Sent(), whole.line.Sent());
      EXPECT_EQ(bench.device.Mode(), '0');
      bench.ExpectSameTable();
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST_P(UserTableSweepTest, ClosedAtAnyPumpAReadOutEndsWithinOneExchange) {
  TableSweepBench whole(GetParam());
  const std::size_t before = whole.loop.PumpCount();
  whole.Run(Job::ReadOut);
  const std::size_t pumps = whole.loop.PumpCount() - before;
  for (const std::size_t at : SampledPumps(pumps)) {
    SCOPED_TRACE(at);
    TableSweepBench bench(GetParam());
    bench.PressCloseAt(at);
    bench.Run(Job::ReadOut);
    EXPECT_EQ(bench.status, 0);
    EXPECT_LE(bench.line.Commands().size(), whole.line.Commands().size());
    ASSERT_FALSE(HasFailure());
  }
}

TEST_P(UserTableSweepTest, WhileItTravelsNothingElseCanBeReached) {
  for (const Job job : {Job::ReadOut, Job::WriteIn}) {
    TableSweepBench bench(GetParam());
    std::size_t pumps = 0;
    bench.loop.OnPump([&] {
      ++pumps;
      for (Control* control : bench.page->Controls()) {
        const bool acts = dynamic_cast<Button*>(control) != nullptr ||
                          dynamic_cast<Grid*>(control) != nullptr ||
                          (dynamic_cast<TextField*>(control) != nullptr && control->Name() == "txtSize");
        if (acts && bench.page->WhyRefused(*control).empty()) {
          ADD_FAILURE() << control->FullName() << " is in reach";
        }
      }
    });
    bench.Run(job);
    EXPECT_GT(pumps, 0U);
    ASSERT_FALSE(HasFailure());
  }
}

}  // namespace
}  // namespace korva::test
