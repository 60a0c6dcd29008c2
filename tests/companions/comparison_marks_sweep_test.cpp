// On each model a comparison marks what it lists, whatever control it stands in, and nothing else, until the
// next edit of any kind.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include "companions/comparer.h"
#include "companions/part_of.h"
#include "companions/row_value.h"
#include "core/numbers.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"
#include "tables/user_tables.h"

namespace korva::test {
namespace {

bool Settable(const Control& control) { return control.Refused() == Refusal::None; }

class MarksBench : public PageBench {
 public:
  explicit MarksBench(const String& model) {
    Connect(model);
    Choose(model);
    TakeTables();
    Upload();
    Keep();
  }

  /// From now on the page is compared with what it is now.
  void Keep() {
    Save(kFile);
    TakeBoxes();
    kept_ = Shown();
  }
  const std::vector<Difference>& Compare() {
    Do([&] { Part<Comparer>(Page()).CompareFile(kFile); });
    EXPECT_EQ(app.companions.Compared.Result(), Comparison::Outcome::Complete);
    return app.companions.Compared.Differences();
  }

  /// Gives another value to all that the user can set and a set holds; temperatures keep their unit.
  void ChangeAll() {
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      if (Page().DataCell(row, kOnPage) == u"Y" && OptionsOf(Page(), row) != &Page().optTempUnit) {
        ChangeRow(row);
      }
    }
    ChangeTable();
  }
  /// The controls that an edit of the set begins in, options apart, which may convert what they stand for.
  std::vector<Control*> EditedControls() {
    std::vector<Control*> edited = {&Page().txtAuthor, &Page().txtMemo};
    for (Control* control : Page().Controls()) {
      const bool beside = std::any_of(kTableFields.begin(), kTableFields.end(),
                                      [&](const auto& one) { return one.first == control->Name(); });
      if ((beside || control->Name() == "cbo_unit") && Settable(*control)) {
        edited.push_back(control);
      }
    }
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      Control* const control = Page().IsLive(row) ? nullptr : ControlOf(Page(), row);
      if (control != nullptr && Page().DataCell(row, kOnPage) == u"Y" && Settable(*control)) {
        edited.push_back(control);
      }
    }
    return edited;
  }
  /// Chooses each input of each class in turn, and last the linearizer.
  void EachInput(const std::function<void()>& action) {
    EachEntry(u"00", [&] { EachEntry(u"10", action); });
    auto* const table = PartOf<TablePart>(Page());
    if (table != nullptr && Settable(table->Opt_Lnr[1])) {
      Press(table->Opt_Lnr, 1);
      action();
    }
  }
  [[nodiscard]] UserTable UsersTable() {
    const auto* const users = PartOf<UserTables>(Page());
    return users == nullptr ? UserTable::None : users->InUse();
  }
  /// The same of the table that shows.
  void ChangeTable() {
    for (const auto& [name, caption] : kTableFields) {
      if (Control* control = Page().FindControl(name); control != nullptr && Settable(*control)) {
        Change(*control);
      }
    }
    ChangeCells();
  }
  void ChangeCells() {
    for (Control* control : Page().Controls()) {
      if (auto* grid = dynamic_cast<Grid*>(control); grid != nullptr && grid->Visible() && grid->Rows() > 1) {
        const String& text = grid->At(1, 1).text;
        Do([&] { grid->SetText(1, 1, text == u"5.00" ? u"6.00" : u"5.00"); });
      }
    }
  }
  void Change(Control& control) {
    if (auto* const field = dynamic_cast<TextField*>(&control)) {
      const bool number = IsNumeric(field->Text());
      const String other = number ? ShortestText(LeadingNumber(field->Text()) + 1) : field->Text() + u"1";
      Do([&] { field->UserTypes(other); });
    } else if (auto* const box = dynamic_cast<ComboBox*>(&control)) {
      for (std::size_t entry = 0; entry < box->Entries().size(); ++entry) {
        if (box->Entries()[entry] != box->Text()) {
          Do([&] { box->UserPicks(static_cast<int>(entry)); });
          return;
        }
      }
    }
  }

  /// What the set holds on the page, by a name that begins with "row", "unit", "beside" or "cell".
  [[nodiscard]] std::map<std::string, String> Shown() {
    std::map<std::string, String> shown;
    EachPlace([&](const std::string& name, const String& text, bool /*marked*/) { shown[name] = text; });
    shown["author"] = Page().txtAuthor.Text();
    shown["memo"] = Page().txtMemo.Text();
    return shown;
  }
  [[nodiscard]] std::vector<std::string> Marked() {
    std::vector<std::string> marked;
    EachPlace([&](const std::string& name, const String& /*text*/, bool differs) {
      if (differs) {
        marked.push_back(name);
      }
    });
    return marked;
  }
  /// What shows another value than when it was kept.
  [[nodiscard]] std::vector<std::string> Changed() {
    std::vector<std::string> changed;
    EachPlace([&](const std::string& name, const String& text, bool /*marked*/) {
      const String& before = kept_[name];
      const bool numbers = IsNumeric(text) && IsNumeric(before);
      if (numbers ? LeadingNumber(text) != LeadingNumber(before) : text != before) {
        changed.push_back(name);
      }
    });
    return changed;
  }
  /// Each control that is marked, whatever it is; cells of tables are none.
  [[nodiscard]] int MarkedControls() {
    const std::vector<Control*> all = Page().Controls();
    return static_cast<int>(std::count_if(all.begin(), all.end(), [](const Control* one) {
      return one->Differs() && dynamic_cast<const OptionButton*>(one) == nullptr;
    }));
  }

 private:
  using Visitor = std::function<void(const std::string& name, const String& text, bool marked)>;

  /// Chooses each entry of the box of an item in turn; once for a page that has no such box.
  void EachEntry(StringView item, const std::function<void()>& action) {
    const int row = Page().FindDataRow({u"01", item});
    auto* const box = row < 0 ? nullptr : dynamic_cast<ComboBox*>(ControlOf(Page(), row));
    if (box == nullptr || !Settable(*box)) {
      action();
      return;
    }
    const std::vector<String> entries = box->Entries();
    for (const String& entry : entries) {
      Pick(*box, entry);
      action();
    }
  }

  void ChangeRow(int row) {
    Control* const control = ControlOf(Page(), row);
    if (OptionGroup* const options = control == nullptr ? OptionsOf(Page(), row) : nullptr) {
      for (int place = 0; place < options->Count(); ++place) {
        if (Settable((*options)[place]) && !(*options)[place].Value()) {
          Press(*options, place);
          return;
        }
      }
    } else if (control != nullptr && Settable(*control) && !Page().IsLive(row)) {
      Change(*control);
      if (ComboBox* const unit = UnitBoxOf(Page(), row); unit != nullptr && Settable(*unit)) {
        Change(*unit);
      }
    }
  }

  void EachPlace(const Visitor& visit) {
    for (int row = 0; row < Page().Def.Data().Rows(); ++row) {
      if (Page().DataCell(row, kOnPage) == u"Y" && !Page().IsLive(row)) {
        VisitRow(row, visit);
      }
    }
    for (const auto& [name, caption] : kTableFields) {
      if (Control* control = Page().FindControl(name); control != nullptr && control->Visible()) {
        visit("beside " + std::string(name), Trimmed(control->ShownText()), control->Differs());
      }
    }
    for (Control* control : Page().Controls()) {
      if (auto* grid = dynamic_cast<Grid*>(control); grid != nullptr && grid->Visible()) {
        VisitGrid(*grid, visit);
      }
    }
  }
  void VisitRow(int row, const Visitor& visit) {
    const std::string item =
        ToUtf8(Page().DataCell(row, kGroup) + u"/" + Page().DataCell(row, kItem)) + " " + std::to_string(row);
    const OptionGroup* const options = OptionsOf(Page(), row);
    const Control* const control = ControlOf(Page(), row);
    const ComboBox* const unit = UnitBoxOf(Page(), row);
    if (control != nullptr || options != nullptr) {
      visit("row " + item, ShownOf(Page(), row),
            control != nullptr ? control->Differs() : (*options)[0].Differs());
    }
    if (unit != nullptr) {
      visit("unit " + item, unit->Text(), unit->Differs());
    }
  }
  static void VisitGrid(const Grid& grid, const Visitor& visit) {
    for (int row = 1; row < grid.Rows(); ++row) {
      for (int column = 1; column < grid.Columns(); ++column) {
        visit("cell " + grid.FullName() + std::to_string(row) + "," + std::to_string(column),
              grid.At(row, column).text, grid.At(row, column).differs);
      }
    }
  }

  std::map<std::string, String> kept_;
};

/// Without the boxes of units, whose difference is listed with that of the number before.
std::size_t CountOfLines(const std::vector<std::string>& marked) {
  const auto units =
      std::count_if(marked.begin(), marked.end(), [](const std::string& one) { return one[0] == 'u'; });
  return marked.size() - static_cast<std::size_t>(units);
}

class MarksOfModel : public testing::TestWithParam<String> {};

TEST_P(MarksOfModel, StandOnEachValueThatWasChangedAndOnNothingElse) {
  MarksBench bench(GetParam());
  EXPECT_TRUE(bench.Compare().empty());
  EXPECT_EQ(bench.Marked(), std::vector<std::string>());
  bench.ChangeAll();
  const std::vector<std::string> changed = bench.Changed();
  ASSERT_FALSE(changed.empty());
  const std::size_t listed = bench.Compare().size();
  EXPECT_EQ(bench.Marked(), changed);
  EXPECT_EQ(CountOfLines(changed), listed);
}

TEST_P(MarksOfModel, GoWithTheNextEditOfAnyKind) {
  MarksBench bench(GetParam());
  const auto ends_marks = [&bench](const std::string& what, const std::function<void()>& edit) {
    bench.ChangeAll();
    bench.Compare();
    EXPECT_GT(bench.MarkedControls(), 0);
    const auto before = bench.Shown();
    edit();
    if (bench.Shown() == before) {
      return;  // another choice has closed it, or it has one entry
    }
    EXPECT_EQ(bench.MarkedControls(), 0) << what;
    EXPECT_EQ(bench.Marked(), std::vector<std::string>()) << what;
  };
  for (Control* control : bench.EditedControls()) {
    ends_marks(control->FullName(), [&] {
      if (Settable(*control)) {
        bench.Change(*control);
      }
    });
  }
  ends_marks("a cell", [&bench] { bench.ChangeCells(); });
}

TEST_P(MarksOfModel, StandBesideEachTableThatTheInputCanHave) {
  MarksBench bench(GetParam());
  std::set<UserTable> tables;
  bench.EachInput([&bench, &tables] {
    if (!tables.insert(bench.UsersTable()).second) {
      return;
    }
    bench.Keep();
    bench.ChangeTable();
    const std::vector<std::string> changed = bench.Changed();
    EXPECT_EQ(bench.Compare().size(), changed.size());
    EXPECT_EQ(bench.Marked(), changed);
    EXPECT_TRUE(bench.UsersTable() == UserTable::None || changed.size() > 1) << "the points and their number";
  });
  EXPECT_TRUE(PartOf<UserTables>(bench.Page()) == nullptr || tables.size() > 1);
}

INSTANTIATE_TEST_SUITE_P(Each, MarksOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
