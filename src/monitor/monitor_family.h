#pragma once

#include <span>

#include "core/or_none.h"
#include "monitor/answer_cleaning.h"
#include "monitor/unit_reader.h"

namespace korva {

/// One item of the cycle, by its key in $Data.
struct CycleItem {
  StringView key;
  ModelSet models = {};  ///< only on these; empty: on all
};

/// Live temperatures that some models tell with an offset while the device is set to one unit.
struct TemperatureOffset {
  ModelSet models;
  std::span<const StringView> items;
  UnitTable unit_table;
  StringView unit;
  double subtracted = 0;
};

/// What a family's status monitor reads and shows, and in what order. All items are of group "01". The mode
/// item and the dialect are the device page's.
struct MonitorFamily {
  /// The monitor works on models that show at least one of these on the page.
  std::span<const StringView> presence;
  std::span<const CycleItem> cycle;
  Cleaner clean;

  /// The button that stops gets the keyboard focus.
  bool focuses_stop = false;
  /// Boxes and unit labels are put to rest before the first cycle.
  bool resets_colours = true;
  /// The cycle runs in the device's mode of status monitoring, and monitor mode follows it.
  bool has_io_check_mode = false;
  /// An item with an empty unit is not read. The unit of an item that the device refuses is emptied.
  bool needs_unit = false;
  /// A row whose write condition is "N" is not read.
  bool obeys_write_condition = false;
  /// The box is highlighted before it gets its text, not after.
  bool paints_first = false;

  InputItem input = {};
  std::span<const UnitStep> units = {};
  ModelSet models_without_units = {};  ///< their labels stay as the definition says
  bool hidden_rows_keep_unit = false;  ///< a row that isn't on the page ("N") keeps its unit
  OrNone<TemperatureOffset> offset = kNone;
  /// Their pages show no controls of the monitor.
  ModelSet models_without_monitor = {};
};

}  // namespace korva
