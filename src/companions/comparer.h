#pragma once

#include <map>
#include <optional>
#include <set>
#include <vector>

#include "companions/comparison.h"
#include "companions/second_page.h"
#include "core/grid.h"

namespace korva {

/// Compares the page with the device or with a configuration file, and marks the fields that differ until the
/// next edit. Page and set stay as they are.
class Comparer final : public PagePart {
 public:
  /// All outlive this, but for the page, which keeps it.
  Comparer(ParameterPage& page, const Families& families, const BarePageMaker& make, Comparison& comparison,
           ComparisonPanel& panel);

  void SetCaptions(Language language) override;
  void SetExchangesBarred(bool barred) override;
  void FieldChanged(int row) override;
  void ChoiceMade(const Choice& /*choice*/) override { Unmark(); }
  void PageCleared() override { Unmark(); }
  void PageBuilt() override { Unmark(); }

  /// Reads the device as an upload does, without its questions, and lists what differs. Does nothing while an
  /// operation runs.
  void CompareDevice();
  /// The same with a file; the first lets the user choose it.
  void CompareChosenFile();
  void CompareFile(const String& path);
  /// Where files of the page are kept unless another folder is named.
  [[nodiscard]] String Folder() const { return page_.txtDirName.Text(); }
  /// Takes the marks of what differs away.
  void Unmark();

  Button cmdCompare{"cmdCompare"};
  Button cmdCompareFile{"cmdCompareFile"};

 private:
  void Take(Comparison::With with, SecondPage& other, Comparison::Outcome outcome);
  std::vector<Difference> DifferencesFrom(Comparison::With with, SecondPage& other);
  void CompareRows(Comparison::With with, SecondPage& other, std::vector<Difference>& found);
  void CompareGrids(SecondPage& other, std::vector<Difference>& found);
  void CompareTableFields(SecondPage& other, std::vector<Difference>& found);
  /// True for a row that the page shows, and that was read: of a file all of them are.
  [[nodiscard]] bool IsCompared(int row, Comparison::With with, const ParameterPage& other) const;
  [[nodiscard]] bool IsUploaded(int row) const;
  /// True for the row of the input type, where both pages have the same one, which devices of another version
  /// may spell in another way.
  [[nodiscard]] bool IsSameType(int row, const ParameterPage& other) const;
  /// Lets the other page show its temperatures in this page's unit.
  void AlignUnits(ParameterPage& other) const;
  void MarkRow(int row, ParameterPage& other);
  void Mark(Control& control);
  void MarkCell(Grid& grid, int row, int column);
  /// Follows, from the first mark on, what is edited and is no row of the definition.
  void FollowEdits();
  void Follow(Control& control);

  ParameterPage& page_;
  const Families& families_;
  const BarePageMaker& make_;
  Comparison& comparison_;
  ComparisonPanel& panel_;
  std::vector<Control*> marked_;
  std::map<Grid*, unsigned> marked_grids_;  ///< with how often each was edited until then
  std::set<Grid*> followed_;                ///< whose edits are told
  bool follows_ = false;                    ///< FollowEdits was done
};

}  // namespace korva
