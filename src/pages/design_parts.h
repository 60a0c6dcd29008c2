#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "core/design.h"

namespace korva {

// What the design tables of the pages are put together from. `group` is the row's place in the table of
// boxes.

/// The full name of an element of a control array: "Text(12)".
template <const std::string_view& array, int index>
struct Element {
  static_assert(index >= 0 && index < 100);
  static constexpr auto characters = [] {
    constexpr std::size_t digits = index < 10 ? 1 : 2;
    std::array<char, array.size() + digits + 2> text{};
    std::size_t at = 0;
    for (const char character : array) {
      text.at(at++) = character;
    }
    text.at(at++) = '(';
    if (digits == 2) {
      text.at(at++) = static_cast<char>('0' + index / 10);
    }
    text.at(at++) = static_cast<char>('0' + index % 10);
    text.at(at) = ')';
    return text;
  }();
  static constexpr std::string_view name{characters.data(), characters.size()};
};

namespace arrays {
inline constexpr std::string_view kNumber = "lbl_Item";
inline constexpr std::string_view kCaption = "Label";
inline constexpr std::string_view kText = "Text";
inline constexpr std::string_view kCombo = "Combo";
inline constexpr std::string_view kFrame = "Frame";
inline constexpr std::string_view kUnit = "lbl_unit";
}  // namespace arrays

/// A parameter: number and caption labels of index `label`, the field and its unit label of index `text`.
template <int label, int text>
constexpr DesignRow FieldRow(int group) {
  return {.group = group,
          .item = Element<arrays::kNumber, label>::name,
          .label = Element<arrays::kCaption, label>::name,
          .field = Element<arrays::kText, text>::name,
          .unit = Element<arrays::kUnit, text>::name};
}

/// The same without a unit.
template <int label, int text>
constexpr DesignRow PlainRow(int group) {
  return {.group = group,
          .item = Element<arrays::kNumber, label>::name,
          .label = Element<arrays::kCaption, label>::name,
          .field = Element<arrays::kText, text>::name};
}

/// A list of choices.
template <int label, int combo>
constexpr DesignRow ListRow(int group) {
  return {.group = group,
          .item = Element<arrays::kNumber, label>::name,
          .label = Element<arrays::kCaption, label>::name,
          .field = Element<arrays::kCombo, combo>::name};
}

/// A frame with option buttons, captioned by the frame.
template <int label, int frame>
constexpr DesignRow OptionRow(int group) {
  return {.group = group,
          .item = Element<arrays::kNumber, label>::name,
          .field = Element<arrays::kFrame, frame>::name};
}

/// A live value, captioned by its number label.
template <int label, int text>
constexpr DesignRow LiveRow(int group) {
  return {.group = group,
          .label = Element<arrays::kNumber, label>::name,
          .field = Element<arrays::kText, text>::name,
          .unit = Element<arrays::kUnit, text>::name};
}

/// What a parameter file tells of itself.
constexpr std::array<DesignRow, 4> FileRows(int group) {
  return {{{.group = group, .label = "lblFileTitle", .field = "txtFileTitle"},
           {.group = group, .label = "lblDirName", .field = "txtDirName"},
           {.group = group, .label = "lblAuthor", .field = "txtAuthor"},
           {.group = group, .label = "lblMemo", .field = "txtMemo"}}};
}

constexpr std::array<DesignRow, 4> PortRows(int group) {
  return {{{.group = group, .field = "OptCom1"},
           {.group = group, .field = "OptCom2"},
           {.group = group, .field = "OptCom3"},
           {.group = group, .field = "OptCom4"}}};
}

/// The boxes of a linearizer's tab, in the order of TableRows' arguments.
constexpr std::array<DesignGroup, 3> TableGroups(int tab) {
  return {{{.tab = tab, .heading = TextKey::Linearizer},
           {.tab = tab, .column = 1, .heading = TextKey::Curve},
           {.tab = tab, .column = 1, .heading = TextKey::ChangeOfValue, .frame = "fraLnrChange"}}};
}

/// The points of a linearizer, their curve, and the editor of a cell. `buttons` are those of its files.
constexpr std::array<DesignRow, 6> TableRows(int table, int curve, int editor, std::string_view buttons) {
  return {{{.group = table, .field = "LnrFlexGrid"},
           {.group = table, .field = buttons},
           {.group = curve, .curve = "LnrFlexGrid"},
           {.group = editor, .label = "lblLnrRow", .field = "txtLnrRow lblLnrCol txtLnrCol"},
           {.group = editor, .label = "lblLnrNewValue", .field = "txtLnrNewValue"},
           {.group = editor, .field = "cmdLnrChangeOK cmdLnrChangeCancel"}}};
}

/// The two boxes of a tab I/O check: live values and forced output.
constexpr std::array<DesignGroup, 2> IoCheckGroups(int tab) {
  return {{{.tab = tab, .heading = TextKey::Monitoring, .frame = "fraMonitoring"},
           {.tab = tab, .column = 1, .heading = TextKey::Output}}};
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

/// The switches of a linearizer and their frames.
inline constexpr std::array kTableOptions = {
    DesignOptions{.options = "Opt_Table", .frame = "Frame(0)"},
    DesignOptions{.options = "Opt_Lnr", .frame = "Frame(1)"},
};

/// Live values under their heading, with the buttons of the monitor.
template <std::size_t count>
constexpr auto MonitorRows(int group, const std::array<DesignRow, count>& values) {
  return Joined(std::array{DesignRow{.group = group, .field = "IO_lblShow"}}, values,
                std::array{DesignRow{.group = group, .field = "cmdMonitorON cmdMonitorOFF"}});
}

/// The boxes of a forced output under their heading, with its buttons.
template <std::size_t count>
constexpr auto OutputRows(int group, const std::array<DesignRow, count>& values) {
  return Joined(std::array{DesignRow{.group = group, .field = "IO_lblSet"}}, values,
                std::array{DesignRow{.group = group, .field = "cmdSet cmdStatusMonOFF"}});
}

}  // namespace korva
