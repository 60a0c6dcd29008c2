#pragma once

#include <memory>
#include <optional>

#include "core/boxes.h"
#include "files/parameter_page.h"
#include "linearizer/lnr_table.h"

namespace korva {

/// The number of points that a text tells; nothing when it is anything but digits.
std::optional<int> PointCount(const String& text);

/// A table's way to and from the device at the press of a button, point by point. Points count from 1. A
/// device that gave no answer has been asked again: false, and nothing, are final, and what was read or
/// written up to then stays.
class TableExchange {
 public:
  /// Both outlive this.
  TableExchange(ParameterPage& page, LnrTable& table) : page_(page), table_(table) {}
  TableExchange(const TableExchange&) = delete;
  TableExchange& operator=(const TableExchange&) = delete;
  virtual ~TableExchange() = default;

  /// How many points the device has to give, whatever number that is.
  virtual std::optional<int> PointsToRead() = 0;
  /// Reads a point into the table.
  virtual bool ReadPoint(int point) = 0;
  /// Tells the device that so many points come (0 to those of the table).
  virtual bool BeginWriting(int points) = 0;
  /// Writes a point of the table.
  virtual bool WritePoint(int point) = 0;
  virtual bool EndWriting() = 0;

 protected:
  [[nodiscard]] ParameterPage& Page() const { return page_; }
  [[nodiscard]] LnrTable& Table() const { return table_; }

 private:
  ParameterPage& page_;
  LnrTable& table_;
};

/// How a family's table travels by the buttons of its tab.
struct TableButtonsForm {
  std::unique_ptr<TableExchange> (*make)(ParameterPage&, LnrTable&) = nullptr;
  bool sized = false;  ///< the user tells in txtSize how many points are sent
  /// A read-out puts the device in monitor mode, before it begins and when it ends.
  bool reads_in_monitor_mode = false;
  BoxKey blank_cell = BoxKey::ValueBad;  ///< a cell that must have a value has none
  BoxKey read_failed = BoxKey::TableReadWriteFailed;
  BoxKey write_failed = BoxKey::TableReadWriteFailed;
};

/// All points through one item that takes commands: the size with "P", a point with "T", the end with "F".
extern const TableButtonsForm kTableByCommands;
/// An item for each value, as in a download.
extern const TableButtonsForm kTableByItems;

}  // namespace korva
