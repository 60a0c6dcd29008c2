// The section of a user's table of any bytes, read into a table of one value a row and into one of two. What
// was read is written, and must be the same when it is read again.

#include <cstddef>
#include <cstdint>

#include "demand.h"
#include "reader_bench.h"
#include "tables/user_table_section.h"

namespace korva {
namespace {

constexpr int kHandle = 2;
constexpr int kPoints = 101;

SavedTable Read(test::ReaderBench& bench, const String& path) {
  SavedTable saved;
  bench.lines.OpenTextFile(path, kHandle);
  while (ReadTableSection(bench.lines, kHandle, saved) == SectionRead::Whole && !bench.lines.AtEnd(kHandle)) {
    bench.lines.ReadLine(kHandle);  // the next section's key
  }
  bench.lines.CloseTextFile(kHandle);
  return saved;
}

bool SameCells(const LnrTable& one, const LnrTable& other) {
  for (int row = 1; row <= kPoints; ++row) {
    for (int column = 1; column < one.Columns(); ++column) {
      if (one.Value(row, column) != other.Value(row, column)) {
        return false;
      }
    }
  }
  return true;
}

void TakeAndWrite(test::ReaderBench& bench, const SavedTable& saved, const LnrHeads& heads) {
  Grid grid("LnrFlexGrid");
  LnrTable table(grid, heads, kPoints);
  TakeCells(saved.cells, table);
  const String text = TableSection(saved.fields, &table);
  const std::optional<std::string> bytes = bench.code_page.Encode(text);
  if (!bytes) {
    return;  // bytes without a meaning in the code page
  }
  // Behind the key line.
  bench.files.Put(u"/written", bytes->substr(bytes->find('\n') + 1));
  const SavedTable again = Read(bench, u"/written");
  Grid other_grid("LnrFlexGrid");
  LnrTable other(other_grid, heads, kPoints);
  TakeCells(again.cells, other);
  test::Demand(again.fields == saved.fields && SameCells(table, other));
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::ReaderBench bench(data, size);
  const korva::SavedTable saved = korva::Read(bench, bench.kPath);
  korva::TakeAndWrite(bench, saved, {u"k", u"X(k)", {}});
  korva::TakeAndWrite(bench, saved, {u"k", u"X(k)", u"Y(k)"});
  return 0;
}
