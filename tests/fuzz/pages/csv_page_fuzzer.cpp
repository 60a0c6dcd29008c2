// A table file of any bytes: opened on the page of family First for a table of 16 and of 100 points, checked,
// and written again.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "demand.h"
#include "linearizer/csv_cases.h"
#include "linearizer/csv_file.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using test::Demand;

constexpr const char16_t* kFile = u"/korva/data/table.csv";

/// The grid has the table's size and shows what the set holds.
void ExpectTable(KvConfig& page, int points) {
  Demand(test::Part<Linearizer>(page).LnrFlexGrid.Rows() == points + 1);
  for (int row = 1; row <= points; ++row) {
    for (int column = 1; column < kLnrColumns; ++column) {
      const PointPlace place = PointItem(points, row, column).value();
      Demand(test::Part<Linearizer>(page).LnrFlexGrid.At(row, column).text ==
             page.GroupItem.At(place.group, place.item));
    }
  }
}

void OpenOnPage(test::PageBench& bench, const String& model, int points) {
  bench.Choose(model);
  KvConfig& page = bench.First();
  bench.Press(points == kLnrShortPoints ? test::Part<Linearizer>(page).Opt_Table
                                        : test::Part<Linearizer>(page).Opt_Lnr,
              1);
  bench.dialogs.QueueFile(kFile);
  bench.Click(test::Part<Linearizer>(page).cmd_csvFileOpen);
  ExpectTable(page, points);
  bench.Do([&] { page.cmdCheck.Click(); });
  for (const test::CsvCase& family : test::CsvCases()) {
    Demand(bench.code_page
               .Encode(CsvText(test::Part<Linearizer>(page).LnrFlexGrid, points, family.csv.writes_size))
               .has_value());
  }
  Demand(!bench.status);
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::PageBench bench;
  bench.files.Put(korva::kFile, {reinterpret_cast<const char*>(data), size});
  korva::OpenOnPage(bench, u"QZ", korva::kLnrShortPoints);
  korva::OpenOnPage(bench, u"QHNY1", korva::kLnrLongPoints);
  return 0;
}
