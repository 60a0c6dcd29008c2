#pragma once

#include <optional>
#include <vector>

#include "core/grid.h"
#include "core/line_reader.h"

namespace korva {

/// What a reader does with records at the head of the file that tell the number of points ("Size, 16 ").
enum class SizeRecords {
  ArePoints,     ///< they count as points
  SkipOne,       ///< the first is passed over
  TakeAll,       ///< each is passed over, and the last one's number is the size
  TakeAllHeads,  ///< the same, and with those that tell base, pitch and range of a sensor's curve
};

/// How a family reads a table. The default takes every line of the file as a point.
struct CsvReader {
  SizeRecords size_records = SizeRecords::ArePoints;
  bool passes_over_text = false;  ///< a record whose first field isn't numeric is no point
  bool ends_at_blank = false;     ///< a record whose first field is empty ends the table
  bool two_decimals = false;      ///< numbers are shown with two decimals, those of the first point apart
};

/// A family's exchange of tables with files that hold nothing else.
struct CsvFamily {
  CsvReader reader;
  bool cancels_edit = false;  ///< opening a file drops an open cell edit first
  bool saves = false;         ///< the page can save
  bool writes_size = false;   ///< a file begins with the number of points
};

/// The texts of one point.
struct CsvPoint {
  String x;
  String y;
  bool operator==(const CsvPoint&) const = default;
};

/// What a file tells of its table ahead of the points. A file may lack any of it.
struct CsvHeads {
  std::optional<String> base = {};   ///< temperature of the first row
  std::optional<String> step = {};   ///< from row to row
  std::optional<String> size = {};   ///< number of points
  std::optional<String> range = {};  ///< of the device's measurement
  bool operator==(const CsvHeads&) const = default;
};

/// What a file holds for a table.
struct CsvTable {
  std::vector<CsvPoint> points;
  CsvHeads heads;
};

/// Reads at most `limit` points of the file that is open under `handle`; more are ignored. A point is a line:
/// X, a comma, Y; further fields are ignored, a missing one is empty. Values are not judged. Nothing when the
/// file holds bytes that are no text.
std::optional<CsvTable> ReadCsv(LineReader& lines, int handle, const CsvReader& reader, int limit);

/// The text of a file with the grid's points, from row 1 up to the first without an X, at most `limit`,
/// behind `heads`.
String CsvText(const Grid& grid, int limit, const CsvHeads& heads);
/// The same with the number of the points as its only head, or with none.
String CsvText(const Grid& grid, int limit, bool writes_size);
/// How many points that file has.
int CsvPoints(const Grid& grid, int limit);

}  // namespace korva
