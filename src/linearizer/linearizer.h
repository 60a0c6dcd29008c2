#pragma once

#include "linearizer/csv_file.h"
#include "linearizer/lnr_editor.h"
#include "linearizer/lnr_family.h"
#include "linearizer/lnr_transfer.h"

namespace korva {

/// The linearizer of a page: its table, cell editor, files and transfer, behind the controls of its tab.
///
/// While the model's switch stands at none the tab is disabled. What reaches the table all the same, such as
/// a click that was under way, is refused with a box.
class Linearizer {
 public:
  /// Takes the page's grid and the buttons of the cell editor and of the table's files. The page outlives
  /// this; its family has a linearizer.
  explicit Linearizer(ParameterPage& page);
  Linearizer(const Linearizer&) = delete;
  Linearizer& operator=(const Linearizer&) = delete;
  ~Linearizer() = default;

  /// Takes the shape of `points`, which a family with one shape only overrules, and shows the set's points.
  void SetUp(int points);
  /// Empties the grid and its editor; the set stays.
  void Clear();
  /// Marks the bad cells; true when the table may go to the device.
  bool CheckLnrTable();
  [[nodiscard]] bool IsBlank() const { return table_.IsBlank(); }

  /// Reads the device's table into the set, for a page that will show it. False when the user doesn't want
  /// the 100 points: the table is then that of `before`.
  bool Upload(int points, const ParameterSet& before);
  bool DownloadLnr() { return transfer_.DownloadLnr(); }

  /// cmd_csvFileOpen: puts the points of a file into the table. A file that can't be read, or isn't text,
  /// leaves the table as it is, after a box that tells why.
  void OpenCsv();
  /// cmd_csvFileSave: writes the grid's points to a file. True when it was written; a failure shows the
  /// system's reason and leaves a former file of that name as it was.
  bool SaveCsv();

  String CsvFilePath;  ///< of the table file written last
  String CsvFileName;  ///< its bare name

  LnrTable& Table() { return table_; }
  LnrEditor& Editor() { return editor_; }

 private:
  [[nodiscard]] bool Refused() const;
  [[nodiscard]] int PointsOf(int points) const { return family_.points != 0 ? family_.points : points; }
  std::optional<String> ChooseCsvFile(bool save) const;
  std::optional<CsvTable> ReadFile(const String& path) const;

  ParameterPage& page_;
  const LnrFamily& family_;
  const CsvFamily& csv_;
  LnrTable table_;
  LnrEditor editor_;
  LnrTransfer transfer_;
};

}  // namespace korva
