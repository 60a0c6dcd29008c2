// Each edit that a page takes, on each model: taken back and put again it leaves page, set and file exactly
// as they were. The same of long series of edits, behind which a download sends what it would have sent.

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <random>

#include "linearizer/table_buttons.h"
#include "linearizer/table_part.h"
#include "page_dump.h"
#include "support/page_parts.h"
#include "support/sampled.h"

namespace korva::test {
namespace {

/// A user's edit, with a name for the report of a failure.
struct Edit {
  std::string name;
  const Control* control;
  std::function<void(PageBench& bench)> act;
};

bool IsReachable(PageBench& bench, const Control& control) {
  const ParameterPage& page = bench.Page();
  return page.WhyRefused(control).empty() && (page.TabOf(control) >= 0 || &control == &page.txtAuthor ||
                                              &control == &page.txtMemo || &control == &page.txtDirName);
}

/// The editor of a cell, and the choice of the port.
bool IsNoneOfTheSet(const Control& control) {
  return control.Name() == "txtLnrNewValue" || control.Name().starts_with("OptCom");
}

void ChangeCell(PageBench& bench, Grid& grid, int row, int column, const String& text) {
  bench.Do([&] { grid.UserClicks(row, column); });
  LnrEditor& editor = Part<TablePart>(bench.Page()).Editor();
  bench.Do([&] { editor.txtLnrNewValue.UserTypes(text); });
  bench.Do([&] { editor.cmdLnrChangeOK.Click(); });
}

void AddFieldEdits(TextField& field, std::vector<Edit>& edits) {
  for (const String& text : {String(u"7"), String(u"-12.5"), String(u"x"), String()}) {
    edits.push_back({.name = field.FullName() + " typed " + ToUtf8(text),
                     .control = &field,
                     .act = [&field, text](PageBench& bench) { bench.Type(field, text); }});
  }
}

void AddBoxEdits(ComboBox& box, std::vector<Edit>& edits) {
  const std::vector<String> entries = box.Entries();
  for (const String& entry : PartOf(entries)) {
    edits.push_back({.name = box.FullName() + " picks " + ToUtf8(entry),
                     .control = &box,
                     .act = [&box, entry](PageBench& bench) { bench.Pick(box, entry); }});
  }
}

void AddTableEdits(Grid& grid, std::vector<Edit>& edits) {
  for (const int row : {1, 2, grid.Rows() - 1}) {
    edits.push_back({.name = grid.FullName() + " row " + std::to_string(row),
                     .control = &grid,
                     .act = [&grid, row](PageBench& bench) {
                       ChangeCell(bench, grid, row, grid.Columns() - 1, u"3.25");
                     }});
  }
  edits.push_back({.name = grid.FullName() + " pasted", .control = &grid, .act = [&grid](PageBench& bench) {
                     bench.Do([&] { grid.UserPastes(2, 1, u"1.5\t2.5\r\n3.5\t4.5\r\n"); });
                   }});
}

/// The edits that the page takes as it stands.
std::vector<Edit> EditsOf(PageBench& bench) {
  std::vector<Edit> edits;
  for (Control* control : bench.Page().Controls()) {
    if (!IsReachable(bench, *control) || IsNoneOfTheSet(*control)) {
      continue;
    }
    if (auto* field = dynamic_cast<TextField*>(control)) {
      AddFieldEdits(*field, edits);
    } else if (auto* box = dynamic_cast<ComboBox*>(control)) {
      AddBoxEdits(*box, edits);
    } else if (auto* option = dynamic_cast<OptionButton*>(control)) {
      edits.push_back({.name = option->FullName(), .control = option, .act = [option](PageBench& inner) {
                         inner.Do([&] { option->Click(); });
                       }});
    } else if (auto* grid = dynamic_cast<Grid*>(control)) {
      AddTableEdits(*grid, edits);
    } else if (control->Name() == "cmdSetCutOut" || control->Name() == "cmdDisableCutOut") {
      edits.push_back({.name = control->FullName(), .control = control, .act = [control](PageBench& inner) {
                         inner.Click(dynamic_cast<Button&>(*control));
                       }});
    }
  }
  return edits;
}

class HistoryOfModel : public testing::TestWithParam<String> {
 protected:
  /// A page with the set of a device, which has been saved.
  static void Prepare(PageBench& bench) {
    bench.Connect(GetParam());
    bench.Choose(GetParam());
    bench.TakeTables();
    bench.Upload();
    bench.Save(kFile);
    bench.TakeBoxes();
    ASSERT_FALSE(bench.Page().DataChanged);
  }

  /// What a download puts on the line.
  static std::vector<std::string> SentByDownload(PageBench& bench) {
    std::vector<std::string> sent;
    bench.app.link.line.OnTraffic = [&](const SerialLink::Traffic& traffic) {
      if (traffic.sent) {
        sent.push_back(ToUtf8(traffic.text));
      }
    };
    bench.Download();
    bench.app.link.line.OnTraffic = nullptr;
    return sent;
  }

  static std::vector<std::string> SentWithoutEdits() {
    PageBench bench;
    Prepare(bench);
    return SentByDownload(bench);
  }

  /// Does an edit, takes it back and puts it again. True when it was one: it changed something.
  static bool TryEdit(PageBench& bench, const Edit& edit) {
    const std::vector<std::string> before = DumpOf(bench);
    const bool changed_before = bench.Page().DataChanged;
    edit.act(bench);
    const std::vector<std::string> after = DumpOf(bench);
    const bool changed_after = bench.Page().DataChanged;
    if (before == after) {
      return false;
    }
    if (!CanUndo(bench)) {
      ADD_FAILURE() << edit.name << ": " << FirstOf(after, before);
      return false;
    }
    Undo(bench);
    EXPECT_EQ(FirstOf(DumpOf(bench), before), "") << edit.name << " taken back";
    EXPECT_EQ(bench.Page().DataChanged, changed_before) << edit.name;
    Redo(bench);
    EXPECT_EQ(FirstOf(DumpOf(bench), after), "") << edit.name << " put again";
    EXPECT_EQ(bench.Page().DataChanged, changed_after) << edit.name;
    Undo(bench);
    EXPECT_EQ(FirstOf(DumpOf(bench), before), "") << edit.name << " taken back again";
    return true;
  }
};

TEST_P(HistoryOfModel, TakesEachEditBackExactly) {
  PageBench bench;
  Prepare(bench);
  int tried = 0;
  for (const Edit& edit : EditsOf(bench)) {
    if (!IsReachable(bench, *edit.control)) {
      continue;
    }
    tried += TryEdit(bench, edit) ? 1 : 0;
    EXPECT_FALSE(CanUndo(bench)) << edit.name;
    ASSERT_FALSE(HasFailure());
  }
  EXPECT_GT(tried, 3);
}

/// Tables stand on tabs that a switch opens: behind each choice of a box or a switch the edits of the table.
TEST_P(HistoryOfModel, TakesTheEditsOfATableBackThatAChoiceOpened) {
  PageBench bench;
  Prepare(bench);
  for (const Edit& edit : EditsOf(bench)) {
    if (!IsReachable(bench, *edit.control) || dynamic_cast<const TextField*>(edit.control) != nullptr) {
      continue;
    }
    const std::vector<std::string> before = DumpOf(bench);
    edit.act(bench);
    if (DumpOf(bench) == before || !CanUndo(bench)) {
      continue;
    }
    for (const Edit& inner : EditsOf(bench)) {
      const std::string& name = inner.control->Name();
      if (dynamic_cast<const Grid*>(inner.control) != nullptr || name == "txtSize" || name == "txtStep" ||
          name == "txtBase" || name == "cmbRange") {
        TryEdit(bench, inner);
        ASSERT_FALSE(HasFailure()) << "behind " << edit.name;
      }
    }
    Undo(bench);
    ASSERT_EQ(FirstOf(DumpOf(bench), before), "") << edit.name;
  }
}

/// An edit that was taken back leaves nothing behind: the next edit does what it would have done without.
TEST_P(HistoryOfModel, LetsTheNextEditDoWhatItWouldHaveDone) {
  PageBench bench;
  Prepare(bench);
  const std::vector<Edit> edits = EditsOf(bench);
  const auto made = [&](const Edit& edit) {
    edit.act(bench);
    std::vector<std::string> dump = DumpOf(bench);
    while (CanUndo(bench)) {
      Undo(bench);
    }
    return dump;
  };
  std::vector<std::vector<std::string>> alone;
  alone.reserve(edits.size());
  for (const Edit& edit : edits) {
    alone.push_back(made(edit));
  }
  for (std::size_t at = 0; at < edits.size(); ++at) {
    for (const std::size_t next :
         {(at + 1) % edits.size(), (at + edits.size() - 1) % edits.size(), (at * 7 + 3) % edits.size()}) {
      made(edits[at]);
      ASSERT_EQ(FirstOf(made(edits[next]), alone[next]), "")
          << edits[next].name << " behind " << edits[at].name;
    }
  }
}

TEST_P(HistoryOfModel, TakesALongSeriesBackStepByStepAndSendsWhatItWouldHaveSent) {
  constexpr unsigned kSeed = 20261122;
  constexpr std::size_t kEdits = 60;
  PageBench bench;
  Prepare(bench);
  std::mt19937 random(kSeed);
  std::vector<std::vector<std::string>> dumps = {DumpOf(bench)};
  std::string names;
  const Control* last = nullptr;
  for (int tries = 0; tries < 400 && dumps.size() <= kEdits; ++tries) {
    const std::vector<Edit> edits = EditsOf(bench);
    const Edit& edit = edits[random() % edits.size()];
    if (edit.control == last) {
      continue;  // what is typed into one field is one step
    }
    edit.act(bench);
    last = edit.control;
    std::vector<std::string> dump = DumpOf(bench);
    if (dump != dumps.back()) {
      dumps.push_back(std::move(dump));
      names += edit.name + "; ";
    }
  }
  SCOPED_TRACE("seed " + std::to_string(kSeed) + ": " + names);
  for (std::size_t at = dumps.size() - 1; at-- > 0;) {
    ASSERT_TRUE(CanUndo(bench)) << at;
    Undo(bench);
    ASSERT_EQ(FirstOf(DumpOf(bench), dumps[at]), "") << "back to " << at;
  }
  EXPECT_FALSE(CanUndo(bench));
  for (std::size_t at = 1; at < dumps.size(); ++at) {
    ASSERT_TRUE(CanRedo(bench)) << at;
    Redo(bench);
    ASSERT_EQ(FirstOf(DumpOf(bench), dumps[at]), "") << "forth to " << at;
  }
  EXPECT_FALSE(CanRedo(bench));
  while (CanUndo(bench)) {
    Undo(bench);
  }
  EXPECT_TRUE(bench.TakeBoxes().empty());
  const std::vector<std::string> sent = SentByDownload(bench);
  EXPECT_FALSE(sent.empty());
  EXPECT_EQ(sent, SentWithoutEdits());
}

INSTANTIATE_TEST_SUITE_P(Each, HistoryOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
