#pragma once

#include <span>
#include <string_view>

#include "core/texts.h"
#include "platform/string.h"

namespace korva {

/// Where the controls of a page stand. The window lays a page out from these tables, and a script learns from
/// them which tab must be enabled before a control can be reached. Controls go by their full names.

/// One line of a box: number label, caption label, field, unit label and buttons, side by side. An empty name
/// leaves its place free. `field` may name several controls, separated by blanks, that share the place
/// (buttons side by side; a text field and a combo box of which only one is shown).
struct DesignRow {
  /// The item whose place this is, as in column 1 of $Data ("14", "03_set"); several, separated by blanks,
  /// where models have different items here; empty in a line of no item.
  StringView item = {};
  std::string_view number = {};
  std::string_view label = {};
  std::string_view field = {};
  std::string_view unit = {};
  std::string_view buttons = {};  ///< what is pressed for the field, behind its unit; several like `field`
  /// The keys that press the buttons while the keyboard is in the line, one word for each of `buttons`: "Up",
  /// "Shift+PgDown", or "-" for a control without.
  std::string_view keys = {};
  std::string_view curve =
      {};  ///< a grid of points whose picture fills the line, and nothing else stands in it
};

/// A box with a heading on a tab. Boxes stand in two columns, in table order from the top.
struct DesignGroup {
  int column = 0;  ///< 0 left, 1 right
  TextKey heading;
  std::string_view frame = {};  ///< the frame control that is this box ("fraMonitoring"); empty: no control
  std::span<const DesignRow> rows;
};

/// When a tab can be brought to the front, by the definition's flag for it in $SSTab.
enum class TabRule {
  OpenUnlessFalse,  ///< closed where the flag is exactly "False"
  OpenIfTrue,       ///< closed unless the flag is exactly "True"
  BySwitch,         ///< what stands on it settles it: the linearizer by the model's switch, and so on
};

struct DesignTab {
  TextKey caption;
  TabRule rule = TabRule::OpenUnlessFalse;
  std::span<const DesignGroup> groups = {};
};

/// A group of option buttons and the frame that it stands in.
struct DesignOptions {
  std::string_view options;  ///< array name, "Opt_Table"
  std::string_view frame;    ///< "Frame(0)"
};

struct Design {
  std::span<const DesignTab> tabs;  ///< from left to right
  std::span<const DesignOptions> options = {};
};

}  // namespace korva
