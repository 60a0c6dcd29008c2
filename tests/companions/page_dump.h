#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "companions/edit_history.h"
#include "companions/part_of.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"

namespace korva::test {

/// All that a page shows and keeps, a line each: what an edit that was taken back must leave as it was. Not
/// in it are the tab in front, the keyboard's place, the text of a closed editor, what a paste left out, and
/// the two buttons of the history.
inline std::vector<std::string> DumpOf(PageBench& bench) {
  ParameterPage& page = bench.Page();
  std::vector<std::string> lines;
  const auto flag = [](bool set, const char* name) {
    return std::string(set ? " " : "") + (set ? name : "");
  };
  for (const Control* control : page.Controls()) {
    const std::string& name = control->Name();
    if (name == "cmdUndo" || name == "cmdRedo" || name.ends_with("LnrNewValue") || control == &page.Notes) {
      continue;
    }
    std::string line =
        control->FullName() + flag(control->Visible(), "shown") + flag(control->Enabled(), "enabled") +
        flag(control->Locked(), "locked") + flag(control->Differs(), "differs") + " look " +
        std::to_string(static_cast<int>(control->ShownLook())) + " '" + ToUtf8(control->ShownText()) + "'";
    if (const auto* const field = dynamic_cast<const TextField*>(control)) {
      line += flag(field->Marked(), "marked") + flag(field->Outside(), "outside") +
              flag(field->Numeric(), "numeric") + flag(field->Dimmed(), "dimmed");
    } else if (const auto* const box = dynamic_cast<const ComboBox*>(control)) {
      for (const String& entry : box->Entries()) {
        line += "|" + ToUtf8(entry);
      }
    } else if (const auto* const option = dynamic_cast<const OptionButton*>(control)) {
      line += flag(option->Value(), "on");
    } else if (const auto* const grid = dynamic_cast<const Grid*>(control)) {
      line += " rows in use " + std::to_string(grid->RowsInUse()) +
              (grid->ScaleOfRows() ? " from " + std::to_string(grid->ScaleOfRows()->first) + " by " +
                                         std::to_string(grid->ScaleOfRows()->step)
                                   : "");
      for (int row = 0; row < grid->Rows(); ++row) {
        for (int column = 0; column < grid->Columns(); ++column) {
          const Grid::Cell& cell = grid->At(row, column);
          line += "|" + ToUtf8(cell.text) + flag(cell.marked, "marked") +
                  (cell.look == Look::Normal ? "" : " look " + std::to_string(static_cast<int>(cell.look)));
        }
      }
    }
    lines.push_back(std::move(line));
  }
  for (int kind = 0; kind < static_cast<int>(Notice::kCount); ++kind) {
    if (static_cast<Notice>(kind) != Notice::NotPasted) {
      lines.push_back("told " + ToUtf8(page.Notes.Told(static_cast<Notice>(kind))));
    }
  }
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    lines.push_back("tab " + ToUtf8(page.Tabs.TabCaption(tab)) + flag(page.Tabs.TabEnabled(tab), "enabled") +
                    flag(page.Tabs.TabBad(tab), "bad"));
  }
  for (int group = 0; group < page.GroupItem.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (const String& cell = page.GroupItem.At(group, item); !cell.empty()) {
        lines.push_back("item " + std::to_string(group) + "/" + std::to_string(item) + " " + ToUtf8(cell));
      }
    }
  }
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    lines.push_back("row " + std::to_string(row) + ToUtf8(page.DataCell(row, kOnPage)) +
                    ToUtf8(page.DataCell(row, kUploaded)));
  }
  lines.push_back("list " + ToUtf8(String(page.Def.ChosenList())));
  const String file = u"/korva/data/dump.cfg";
  page.SaveRescueFile(file);
  lines.push_back("file " + ToUtf8(bench.TextOf(file)));
  return lines;
}

/// The first line of a dump that is another one than expected, both as they stand; empty for none.
inline std::string FirstOf(const std::vector<std::string>& found, const std::vector<std::string>& expected) {
  for (std::size_t at = 0; at < std::min(found.size(), expected.size()); ++at) {
    if (found[at] != expected[at]) {
      return "is " + found[at] + "\nnot " + expected[at];
    }
  }
  return found.size() == expected.size() ? std::string() : "another number of lines";
}

inline void Undo(PageBench& bench) { bench.Click(PartOf<EditHistory>(bench.Page())->cmdUndo); }
inline void Redo(PageBench& bench) { bench.Click(PartOf<EditHistory>(bench.Page())->cmdRedo); }
inline bool CanUndo(PageBench& bench) { return PartOf<EditHistory>(bench.Page())->cmdUndo.Enabled(); }
inline bool CanRedo(PageBench& bench) { return PartOf<EditHistory>(bench.Page())->cmdRedo.Enabled(); }

}  // namespace korva::test
