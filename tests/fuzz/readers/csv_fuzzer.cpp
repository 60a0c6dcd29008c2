// A table file of any bytes, read as one of some family, for a table of 16 and of 100 points.

#include "demand.h"
#include "linearizer/csv_cases.h"
#include "linearizer/csv_file.h"
#include "linearizer/lnr_table.h"
#include "reader_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr int handle = 4;
  static const auto families = korva::test::CsvCases();
  korva::test::ReaderBench bench(data, size);
  const auto& family = families[korva::test::ReaderOf(data, size, families.size())];
  for (const int limit : {korva::kLnrShortPoints, korva::kLnrLongPoints}) {
    bench.lines.OpenTextFile(bench.kPath, handle);
    const auto table = korva::ReadCsv(bench.lines, handle, family.csv.reader, limit);
    korva::test::Demand(!table || static_cast<int>(table->points.size()) <= limit);
  }
  return 0;
}
