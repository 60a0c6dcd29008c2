#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "core/design.h"

namespace korva {

// What the design tables of the pages are put together from.

namespace arrays {
inline constexpr std::string_view kNumber = "lbl_Item";
inline constexpr std::string_view kCaption = "Label";
inline constexpr std::string_view kText = "Text";
inline constexpr std::string_view kCombo = "Combo";
inline constexpr std::string_view kFrame = "Frame";
inline constexpr std::string_view kUnit = "lbl_unit";

/// "Text(0)" to "Text(99)"; a name with one digit is a character shorter than its place.
template <const std::string_view& array>
inline constexpr auto kElements = [] {
  constexpr int count = 100;
  std::array<std::array<char, array.size() + 4>, count> names{};
  for (int index = 0; index < count; ++index) {
    auto& name = names.at(static_cast<std::size_t>(index));
    std::size_t at = 0;
    for (const char character : array) {
      name.at(at++) = character;
    }
    name.at(at++) = '(';
    if (index >= 10) {
      name.at(at++) = static_cast<char>('0' + index / 10);
    }
    name.at(at++) = static_cast<char>('0' + index % 10);
    name.at(at) = ')';
  }
  return names;
}();
}  // namespace arrays

/// The full name of an element of a control array, index 0 to 99: "Text(12)".
template <const std::string_view& array>
constexpr std::string_view ElementName(int index) {
  const auto& name = arrays::kElements<array>.at(static_cast<std::size_t>(index));
  return {name.data(), index < 10 ? name.size() - 1 : name.size()};
}

/// Where an item stands.
struct ItemPlace {
  StringView item;  ///< as in DesignRow
  int label = 0;    ///< index of its number label, and of its caption label where the row has one
  int field = 0;    ///< index of its field, box or frame, and of its unit label where the row has one
};

/// A parameter: number and caption labels, text field and unit label.
constexpr DesignRow FieldRow(const ItemPlace& place) {
  return {.item = place.item,
          .number = ElementName<arrays::kNumber>(place.label),
          .label = ElementName<arrays::kCaption>(place.label),
          .field = ElementName<arrays::kText>(place.field),
          .unit = ElementName<arrays::kUnit>(place.field)};
}

/// The same without a unit.
constexpr DesignRow PlainRow(const ItemPlace& place) {
  return {.item = place.item,
          .number = ElementName<arrays::kNumber>(place.label),
          .label = ElementName<arrays::kCaption>(place.label),
          .field = ElementName<arrays::kText>(place.field)};
}

/// A list of choices.
constexpr DesignRow ListRow(const ItemPlace& place) {
  return {.item = place.item,
          .number = ElementName<arrays::kNumber>(place.label),
          .label = ElementName<arrays::kCaption>(place.label),
          .field = ElementName<arrays::kCombo>(place.field)};
}

/// A frame with option buttons, captioned by the frame.
constexpr DesignRow OptionRow(const ItemPlace& place) {
  return {.item = place.item,
          .number = ElementName<arrays::kNumber>(place.label),
          .field = ElementName<arrays::kFrame>(place.field)};
}

/// An option group with room for a caption label beside its frame.
constexpr DesignRow LabelledOptionRow(const ItemPlace& place) {
  DesignRow row = OptionRow(place);
  row.label = ElementName<arrays::kCaption>(place.label);
  return row;
}

/// A live value, captioned by its number label.
constexpr DesignRow LiveRow(const ItemPlace& place) {
  return {.item = place.item,
          .label = ElementName<arrays::kNumber>(place.label),
          .field = ElementName<arrays::kText>(place.field),
          .unit = ElementName<arrays::kUnit>(place.field)};
}

/// The row with these buttons.
constexpr DesignRow WithButtons(DesignRow row, std::string_view buttons) {
  row.buttons = buttons;
  return row;
}

/// The row of a value that a live loop steps: the buttons beside it, and the keys that press them.
constexpr DesignRow SteppedRow(DesignRow row, std::string_view buttons, std::string_view keys) {
  row.buttons = buttons;
  row.keys = keys;
  return row;
}

/// `parts` one behind the other.
template <typename T, std::size_t... sizes>
constexpr auto Joined(const std::array<T, sizes>&... parts) {
  std::array<T, (sizes + ...)> all{};
  std::size_t at = 0;
  const auto take = [&](const auto& part) {
    for (const T& one : part) {
      all.at(at++) = one;
    }
  };
  (take(parts), ...);
  return all;
}

/// Rows for the indexes that no item of today's models has: a new item takes any of them. A caption label
/// whose index is that of a live value has its number label elsewhere, so its row has none.
template <std::size_t count>
constexpr std::array<DesignRow, count> FreeRows(const std::array<int, count>& labels,
                                                const std::array<int, count>& fields, int first_number) {
  std::array<DesignRow, count> rows{};
  for (std::size_t place = 0; place < count; ++place) {
    DesignRow& row = rows.at(place);
    row = FieldRow({.item = {}, .label = labels.at(place), .field = fields.at(place)});
    if (labels.at(place) < first_number) {
      row.number = {};
    }
  }
  return rows;
}

/// What a parameter file tells of itself.
inline constexpr std::array kFileRows = {
    DesignRow{.label = "lblFileTitle", .field = "txtFileTitle"},
    DesignRow{.label = "lblDirName", .field = "txtDirName"},
    DesignRow{.label = "lblAuthor", .field = "txtAuthor"},
    DesignRow{.label = "lblMemo", .field = "txtMemo"},
};
inline constexpr std::array kFileGroups = {DesignGroup{.heading = TextKey::File, .rows = kFileRows}};
inline constexpr DesignTab kFileTab = {.caption = TextKey::File, .groups = kFileGroups};

inline constexpr std::array kPortRows = {
    DesignRow{.field = "OptCom1"},
    DesignRow{.field = "OptCom2"},
    DesignRow{.field = "OptCom3"},
    DesignRow{.field = "OptCom4"},
};
inline constexpr std::array kPortGroups = {DesignGroup{.heading = TextKey::Port, .rows = kPortRows}};
inline constexpr DesignTab kPortTab = {.caption = TextKey::Port, .groups = kPortGroups};

/// The points of a linearizer. `buttons` are those of its files.
constexpr std::array<DesignRow, 2> PointRows(std::string_view buttons) {
  return {{{.field = "LnrFlexGrid"}, {.field = buttons}}};
}
/// The points of a table that travels by buttons of its own, which stand in the line `move`.
constexpr std::array<DesignRow, 5> MovedPointRows(const DesignRow& move) {
  return {{{.field = "LnrFlexGrid"},
           {.field = "lblLnrLimits"},
           {.field = "cmd_csvFileOpen cmd_csvFileSave"},
           move,
           {.field = "Table_ProgressBar"}}};
}
/// The grids of a page with user tables, of which one shows.
inline constexpr std::array kUserGridRows = {
    DesignRow{.field = "LnrFlexGrid"}, DesignRow{.field = "TCFlexGrid"}, DesignRow{.field = "RTDFlexGrid"}};
/// What moves a user table: the buttons of its files, `files`, and those of the device.
constexpr std::array<DesignRow, 3> UserMoveRows(std::string_view files) {
  return {{{.field = files}, {.field = "cmdReadOutTable cmdWriteInTable"}, {.field = "Table_ProgressBar"}}};
}
/// What belongs to a user table beside its points.
inline constexpr std::array kUserFieldRows = {
    DesignRow{.label = "lblStep", .field = "txtStep", .unit = "lblStepUnit"},
    DesignRow{.label = "lblBase", .field = "txtBase", .unit = "lblBaseUnit"},
    DesignRow{.label = "lblSize", .field = "txtSize"}};
/// The same of pages whose resistance tables have a range.
inline constexpr std::array kRangedUserFieldRows =
    Joined(kUserFieldRows, std::array{DesignRow{.label = "lblRange", .field = "cmbRange"}});
inline constexpr std::array kUserCurveRows = {
    DesignRow{.curve = "LnrFlexGrid"}, DesignRow{.curve = "TCFlexGrid"}, DesignRow{.curve = "RTDFlexGrid"}};
inline constexpr std::array kCurveRows = {DesignRow{.curve = "LnrFlexGrid"}};
/// The editor of a cell.
inline constexpr std::array kCellEditorRows = {
    DesignRow{.label = "lblLnrRow", .field = "txtLnrRow lblLnrCol txtLnrCol"},
    DesignRow{.label = "lblLnrNewValue", .field = "txtLnrNewValue"},
    DesignRow{.field = "cmdLnrChangeOK cmdLnrChangeCancel"},
};

/// The boxes of a linearizer's tab: `points`, their curve and the editor.
constexpr std::array<DesignGroup, 3> TableGroups(std::span<const DesignRow> points) {
  return {
      {{.heading = TextKey::Linearizer, .rows = points},
       {.column = 1, .heading = TextKey::Curve, .rows = kCurveRows},
       {.column = 1, .heading = TextKey::ChangeOfValue, .frame = "fraLnrChange", .rows = kCellEditorRows}}};
}
/// The boxes of a tab of user tables: `points` with what moves them, `fields`, the curve and the editor.
constexpr std::array<DesignGroup, 4> UserTableGroups(std::span<const DesignRow> points,
                                                     std::span<const DesignRow> fields) {
  return {
      {{.heading = TextKey::UserTable, .rows = points},
       {.column = 1, .heading = TextKey::UserTable, .rows = fields},
       {.column = 1, .heading = TextKey::Curve, .rows = kUserCurveRows},
       {.column = 1, .heading = TextKey::ChangeOfValue, .frame = "fraLnrChange", .rows = kCellEditorRows}}};
}
/// The tab of a linearizer with these boxes.
constexpr DesignTab TableTab(std::span<const DesignGroup> groups) {
  return {.caption = TextKey::Linearizer, .rule = TabRule::BySwitch, .groups = groups};
}

/// A threshold at its place, with its steps and its limits beside it, and the frequency that it lets through.
constexpr std::array<DesignRow, 2> ThresholdRows(const ItemPlace& place) {
  return {{SteppedRow(FieldRow(place),
                      "cmdThresholdStart cmdThresholdM1 cmdThresholdM01 cmdThresholdM001 cmdThresholdP001 "
                      "cmdThresholdP01 cmdThresholdP1 lblThreshold",
                      "- Shift+PgDown PgDown Down Up PgUp Shift+PgUp -"),
           {.label = "lblMeasFreq", .field = "txtMeasFreq", .unit = "unitMeasFreq"}}};
}

/// The options of a transmitter with user tables and their frames.
inline constexpr std::array kSensorOptions = {
    DesignOptions{.options = "optTempUnit", .frame = "Frame(0)"},
    DesignOptions{.options = "Opt_Cjc", .frame = "Frame(1)"},
    DesignOptions{.options = "optBurn", .frame = "Frame(2)"},
    DesignOptions{.options = "Opt_Lnr", .frame = "Frame(3)"},
};

/// The switches of a linearizer and their frames.
inline constexpr std::array kTableOptions = {
    DesignOptions{.options = "Opt_Table", .frame = "Frame(0)"},
    DesignOptions{.options = "Opt_Lnr", .frame = "Frame(1)"},
};

/// The exchange of the cold junction module, whose frame is opened by a button beside it.
inline constexpr std::array kCjmRows = {DesignRow{.field = "cmdChangeCJM"}};
/// Its two values, the first at this place and the second at the next.
constexpr std::array<DesignRow, 5> CjmExchangeRows(const ItemPlace& first) {
  return {{{.field = "lbl_CJMmsg"},
           FieldRow(first),
           FieldRow({.item = u"35", .label = first.label + 1, .field = first.field + 1}),
           {.field = "cmdCJMcheck cmdWriteInCJM cmdDefaultCJM cmdCancelCJM"},
           {.label = "lblPrg", .field = "CJM_ProgressBar"}}};
}
constexpr std::array<DesignGroup, 2> CjmGroups(std::span<const DesignRow> exchange) {
  return {{{.heading = TextKey::Cjm, .rows = kCjmRows},
           {.heading = TextKey::ChangeCjm, .frame = "fraCJM", .rows = exchange}}};
}
/// The tab with these boxes.
constexpr DesignTab CjmTab(std::span<const DesignGroup> groups) {
  return {.caption = TextKey::Cjm, .rule = TabRule::BySwitch, .groups = groups};
}

/// Live values under their heading, with the buttons of the monitor.
template <std::size_t count>
constexpr auto MonitorRows(const std::array<DesignRow, count>& values) {
  return Joined(std::array{DesignRow{.field = "IO_lblShow"}}, values,
                std::array{DesignRow{.field = "cmdMonitorON cmdMonitorOFF"}});
}

/// The boxes of a forced output under their heading, its buttons beside the first, which takes the value.
template <std::size_t count>
constexpr auto OutputRows(std::array<DesignRow, count> values) {
  values.front() = WithButtons(values.front(), "cmdSet cmdStatusMonOFF");
  return Joined(std::array{DesignRow{.field = "IO_lblSet"}}, values);
}

/// The two boxes of a tab I/O check: live values and forced output.
constexpr std::array<DesignGroup, 2> IoCheckGroups(std::span<const DesignRow> monitor,
                                                   std::span<const DesignRow> output) {
  return {{{.heading = TextKey::Monitoring, .frame = "fraMonitoring", .rows = monitor},
           {.column = 1, .heading = TextKey::Output, .rows = output}}};
}

}  // namespace korva
