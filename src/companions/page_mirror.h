#pragma once

#include <optional>
#include <vector>

#include "companions/page_change.h"
#include "core/grid.h"
#include "files/parameter_page.h"
#include "linearizer/table_part.h"

namespace korva {

/// The set of a page and what shows it, as they stood when they were looked at last: finds what has changed
/// since, and puts changes back.
///
/// It follows what an edit can change: the set, its fields, boxes, options, tables and tabs, and the texts
/// and frames around them. Buttons, bars and notices tell of what goes on, the editor of a cell holds what is
/// not in the table yet, and the choice of the port is none of the set: they are left alone.
class PageMirror {
 public:
  /// Looks at the page as it is now. The page outlives this, or ends with it.
  explicit PageMirror(ParameterPage& page);
  PageMirror(const PageMirror&) = delete;
  PageMirror& operator=(const PageMirror&) = delete;
  ~PageMirror() = default;

  /// What has changed since this was asked last.
  [[nodiscard]] PageChange Take();
  /// Puts the page to one side of a change, raising nothing. A live value that was read since then is not
  /// brought back: its field shows nothing until the next one.
  void Put(const PageChange& change, bool after) const;

  /// Where a control stands here; nothing for one that is left alone.
  [[nodiscard]] std::optional<std::size_t> PlaceOf(const Control& control) const;
  [[nodiscard]] Control& At(std::size_t place) const { return *controls_.at(place).control; }
  [[nodiscard]] Grid& Table(std::size_t number) const { return *tables_.at(number).grid; }
  /// Notes in a change what the live values show whose units it changes.
  void NoteLiveValues(PageChange& change) const;

 private:
  struct Followed {
    Control* control = nullptr;
    ControlState state;
    bool touched = false;
  };
  struct FollowedTable {
    Grid* grid = nullptr;
    std::vector<CellState> cells;  ///< row by row
    int rows = 0;
    int columns = 0;
    unsigned changes = 0;  ///< as the grid counts them
    std::vector<std::pair<int, int>> touched;
    bool all_touched = false;
  };
  /// A live value, as the page shows it.
  struct LiveValue {
    std::size_t field = 0;
    std::optional<std::size_t> unit;
    SetPlace cell;
  };

  [[nodiscard]] bool IsLeftAlone(const Control& control) const;
  void Follow(Control& control);
  void FollowTable(Grid& grid);
  void Touch(std::size_t place);
  void TouchTable(std::size_t number);
  void TakeSet(PageChange& change);
  void TakeTable(std::size_t number, PageChange& change);
  void TakeCell(std::size_t number, int row, int column, PageChange& change);
  void LookAtTable(FollowedTable& table) const;
  [[nodiscard]] CellState CellOf(const Grid& grid, int row, int column) const;
  [[nodiscard]] TabState TabAt(int tab) const;
  [[nodiscard]] std::vector<LiveValue> LiveValues() const;
  /// True when a live value is no longer, or no longer beside the unit, that the change left there.
  [[nodiscard]] bool WasReadSince(const LiveValue& value, const PageChange& change, bool after) const;
  void PutSet(const PageChange& change, bool after) const;
  void PutControls(const PageChange& change, bool after) const;
  void PutOptions(const PageChange& change, bool after) const;

  ParameterPage& page_;
  ParameterSet set_;
  std::vector<Followed> controls_;
  std::vector<std::size_t> touched_;
  std::vector<FollowedTable> tables_;
  std::vector<TabState> tabs_;
  std::vector<TablePart*> editors_;  ///< the parts whose editor may stand open over a cell
};

}  // namespace korva
