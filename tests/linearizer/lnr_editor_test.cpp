// The cell editor of the linearizer's tab, on the page of family First with a device of 16 points.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva {
namespace {

using test::Shown;
using Texts = std::vector<std::string>;

/// A page whose table is in use and has been read: X(k) and Y(k) from 0.00 to 100.00.
struct EditorBench : test::PageBench {
  EditorBench() {
    Connect(u"QZ").Set("01", "10", "1");
    Choose(u"QZ");
    Upload();
    Page().DataChanged = false;
    TakeBoxes();
  }
  void ClickCell(int row, int column) {
    ASSERT_EQ(Page().WhyRefused(test::Part<Linearizer>(Page()).LnrFlexGrid), "");
    Do([&] { test::Part<Linearizer>(Page()).LnrFlexGrid.UserClicks(row, column); });
  }
  void TypeValue(const String& text) { Type(test::Part<Linearizer>(Page()).Editor().txtLnrNewValue, text); }
  void Ok() { Click(test::Part<Linearizer>(Page()).Editor().cmdLnrChangeOK); }
  void Cancel() { Click(test::Part<Linearizer>(Page()).Editor().cmdLnrChangeCancel); }
  const Grid::Cell& Cell(int row, int column) {
    return test::Part<Linearizer>(Page()).LnrFlexGrid.At(row, column);
  }
  /// Row, column and text that the editor shows; empty when it is closed.
  Texts Editor() {
    if (!test::Part<Linearizer>(Page()).Editor().fraLnrChange.Visible()) {
      return {};
    }
    return {ToUtf8(test::Part<Linearizer>(Page()).Editor().txtLnrRow.Text()),
            ToUtf8(test::Part<Linearizer>(Page()).Editor().txtLnrCol.Text()),
            ToUtf8(test::Part<Linearizer>(Page()).Editor().txtLnrNewValue.Text())};
  }
};

TEST(LnrEditorTest, AClickOnACellSelectsItAndShowsItsPlaceAndText) {
  EditorBench bench;
  int focused = 0;
  test::Part<Linearizer>(bench.Page()).Editor().txtLnrNewValue.ObserveFocus([&] { ++focused; });
  EXPECT_EQ(bench.Editor(), Texts());
  bench.ClickCell(3, 2);
  EXPECT_EQ(bench.Editor(), (Texts{"3", "2", "13.33"}));
  EXPECT_EQ(bench.Cell(3, 2), (Grid::Cell{.text = u"13.33", .look = Look::Selected}));
  EXPECT_EQ(focused, 1);
  EXPECT_EQ(bench.Page().WhyRefused(test::Part<Linearizer>(bench.Page()).Editor().txtLnrRow), "locked");
  EXPECT_EQ(bench.Page().WhyRefused(test::Part<Linearizer>(bench.Page()).Editor().txtLnrCol), "locked");
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST(LnrEditorTest, OkPutsTheTextIntoTheCellAndTheSetAsItStands) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u" 1e2 %");
  bench.Ok();
  EXPECT_EQ(bench.Cell(3, 2), (Grid::Cell{.text = u" 1e2 %", .look = Look::Normal}));
  EXPECT_EQ(bench.Page().GroupItem.At(1, 65), u" 1e2 %");
  EXPECT_TRUE(bench.Page().DataChanged);
  EXPECT_EQ(bench.Editor(), Texts());
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).Editor().txtLnrRow.Text(), u"");
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).Editor().txtLnrCol.Text(), u"");
}

TEST(LnrEditorTest, CancelLeavesCellSetAndUnsavedMarkAsTheyWere) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"99");
  bench.Cancel();
  EXPECT_EQ(bench.Cell(3, 2), (Grid::Cell{.text = u"13.33", .look = Look::Normal}));
  EXPECT_EQ(bench.Page().GroupItem.At(1, 65), u"13.33");
  EXPECT_FALSE(bench.Page().DataChanged);
  EXPECT_EQ(bench.Editor(), Texts());
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).Editor().txtLnrNewValue.Text(), u"");
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).Editor().txtLnrRow.Text(), u"");
}

TEST(LnrEditorTest, AClickOnAnotherCellWithAnUnchangedTextAsksNothing) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.ClickCell(4, 1);
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Normal);
  EXPECT_EQ(bench.Cell(4, 1).look, Look::Selected);
  EXPECT_EQ(bench.Editor(), (Texts{"4", "1", "20.00"}));
}

TEST(LnrEditorTest, AClickOnAnotherCellWithAChangedEditorAnsweredNoDropsTheChange) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"99");
  bench.dialogs.QueueAnswer(Answer::No);
  bench.ClickCell(4, 1);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::ChangeFormerCell)}));
  EXPECT_EQ(bench.Cell(3, 2), (Grid::Cell{.text = u"13.33", .look = Look::Normal}));
  EXPECT_EQ(bench.Page().GroupItem.At(1, 65), u"13.33");
  EXPECT_EQ(bench.Editor(), (Texts{"4", "1", "20.00"}));
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST(LnrEditorTest, AnsweredYesTheFormerCellIsChangedAndTheNewOneSelected) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"99");
  bench.dialogs.QueueAnswer(Answer::Yes);
  bench.ClickCell(4, 1);
  EXPECT_EQ(bench.TakeBoxes(), (Texts{Shown(BoxKey::ChangeFormerCell)}));
  EXPECT_EQ(bench.Cell(3, 2), (Grid::Cell{.text = u"99", .look = Look::Normal}));
  EXPECT_EQ(bench.Page().GroupItem.At(1, 65), u"99");
  EXPECT_EQ(bench.Editor(), (Texts{"4", "1", "20.00"}));
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(LnrEditorTest, AfterCancelTheNextClickAsksNothing) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"99");
  bench.Cancel();
  bench.ClickCell(3, 2);
  EXPECT_EQ(bench.TakeBoxes(), Texts());
  EXPECT_EQ(bench.Editor(), (Texts{"3", "2", "13.33"}));
}

TEST(LnrEditorTest, AMarkedCellIsMarkedAgainUnlessItWasChanged) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"300");
  bench.Ok();
  bench.Check();
  ASSERT_EQ(bench.Cell(3, 2).look, Look::Bad);
  bench.ClickCell(3, 2);
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Selected);
  bench.ClickCell(4, 1);
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Bad);
  bench.ClickCell(3, 2);
  EXPECT_EQ(bench.Cell(4, 1).look, Look::Normal);
  bench.Cancel();
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Bad);
  bench.ClickCell(3, 2);
  bench.TypeValue(u"30");
  bench.Ok();
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Normal);
}

TEST(LnrEditorTest, ACheckWhileACellIsOpenMarksItWhenItIsLeft) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"300");
  bench.Ok();
  bench.ClickCell(3, 2);
  bench.Check();
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Selected);
  bench.Cancel();
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Bad);
}

TEST(LnrEditorTest, AClickOnTheHeadRowOrColumnZeroSelectsThatCellTooAndOkStoresNothing) {
  for (const auto& [row, column] : {std::pair(0, 1), std::pair(0, 2), std::pair(5, 0), std::pair(0, 0)}) {
    EditorBench bench;
    const ParameterSet before = bench.Page().GroupItem;
    const String text = bench.Cell(row, column).text;
    bench.ClickCell(row, column);
    EXPECT_EQ(bench.Editor(), (Texts{std::to_string(row), std::to_string(column), ToUtf8(text)}));
    EXPECT_EQ(bench.Cell(row, column).look, Look::Selected);
    bench.TypeValue(u"55");
    bench.Ok();
    for (int group = 0; group < before.Groups(); ++group) {
      for (int item = 0; item < ParameterSet::kItems; ++item) {
        EXPECT_EQ(bench.Page().GroupItem.At(group, item), before.At(group, item));
      }
    }
    EXPECT_EQ(bench.Cell(row, column), (Grid::Cell{.text = text, .look = Look::Normal}));
  }
}

TEST(LnrEditorTest, EnterTakesTheTextAndOtherKeysAreTheFieldsOwn) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"42");
  for (const Key key : {Key::Up, Key::Down, Key::Left, Key::Right}) {
    EXPECT_FALSE(test::Part<Linearizer>(bench.Page()).Editor().txtLnrNewValue.UserPresses(key));
  }
  EXPECT_EQ(bench.Editor(), (Texts{"3", "2", "42"}));
  EXPECT_TRUE(test::Part<Linearizer>(bench.Page()).Editor().txtLnrNewValue.UserPresses(Key::Enter));
  EXPECT_EQ(bench.Cell(3, 2).text, u"42");
  EXPECT_EQ(bench.Editor(), Texts());
}

TEST(LnrEditorTest, AnOpenEditorLocksNothing) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  const KvConfig& page = bench.First();
  for (int tab = 0; tab < page.Tabs.Count(); ++tab) {
    EXPECT_EQ(page.Tabs.TabEnabled(tab), tab != 4) << "the model has no filter; tab " << tab;
  }
  EXPECT_EQ(page.WhyRefused(page.cmdUpload), "");
  EXPECT_EQ(page.WhyRefused(test::Part<Linearizer>(page).cmd_csvFileOpen), "");
}

TEST(LnrEditorTest, ANewTableClosesTheEditor) {
  using Step = void (*)(EditorBench&);
  for (const Step step :
       {Step([](EditorBench& bench) { bench.Upload(); }), Step([](EditorBench& bench) { bench.New(); }),
        Step([](EditorBench& bench) { bench.Choose(u"QHW1"); })}) {
    EditorBench bench;
    bench.ClickCell(16, 2);
    bench.TypeValue(u"99");
    step(bench);
    EXPECT_EQ(bench.Editor(), Texts());
    EXPECT_NE(bench.Cell(16, 2).look, Look::Selected);
    EXPECT_NE(bench.Cell(16, 2).text, u"99");
    EXPECT_FALSE(bench.status.has_value());
  }
}

TEST(LnrEditorTest, AnOpenedConfigurationClosesTheEditorAndASmallerTableIsNoTrap) {
  EditorBench bench;
  bench.Save(u"/korva/data/short.cfg");
  bench.Choose(u"QHW1");
  bench.Do([&] { test::Part<Linearizer>(bench.First()).Opt_Lnr[1].Click(); });
  bench.ClickCell(100, 2);
  bench.TypeValue(u"99");
  bench.Open(u"/korva/data/short.cfg");
  EXPECT_EQ(bench.Editor(), Texts());
  EXPECT_EQ(test::Part<Linearizer>(bench.Page()).LnrFlexGrid.Rows(), 17);
  bench.ClickCell(1, 1);
  EXPECT_EQ(bench.Editor(), (Texts{"1", "1", "0.00"}));
  EXPECT_FALSE(bench.status.has_value());
}

TEST(LnrEditorTest, WhileTheSwitchStandsAtNoneNoCellIsSelectedOrChanged) {
  EditorBench bench;
  bench.ClickCell(3, 2);
  bench.TypeValue(u"99");
  bench.Do([&] { test::Part<Linearizer>(bench.First()).Opt_Table[0].Click(); });
  EXPECT_EQ(bench.Page().WhyRefused(test::Part<Linearizer>(bench.Page()).LnrFlexGrid), "tab disabled");
  bench.Do([&] { test::Part<Linearizer>(bench.Page()).Editor().cmdLnrChangeOK.Click(); });
  EXPECT_EQ(bench.Cell(3, 2).text, u"13.33");
  bench.Do([&] { test::Part<Linearizer>(bench.Page()).LnrFlexGrid.UserClicks(4, 1); });
  EXPECT_EQ(bench.Cell(4, 1).look, Look::Normal);
  EXPECT_EQ(bench.TakeBoxes(),
            (Texts{Shown(BoxKey::LinearizerSwitchedOff), Shown(BoxKey::LinearizerSwitchedOff)}));
  EXPECT_EQ(bench.Editor(), (Texts{"3", "2", "99"})) << "what was typed is still there";
  bench.Do([&] { test::Part<Linearizer>(bench.Page()).Editor().cmdLnrChangeCancel.Click(); });
  EXPECT_EQ(bench.Editor(), Texts());
}

TEST(LnrEditorTest, DuringAnUploadTheGridIsOutOfReach) {
  EditorBench bench;
  bool tried = false;
  bench.loop.After(std::chrono::seconds(2), [&] {
    tried = true;
    EXPECT_EQ(bench.Page().WhyRefused(test::Part<Linearizer>(bench.Page()).LnrFlexGrid), "disabled");
  });
  bench.Upload();
  EXPECT_TRUE(tried);
}

TEST(LnrEditorTest, EachCellOfALongTableGoesToItsOwnPlace) {
  EditorBench bench;
  bench.Choose(u"QHNY1");
  bench.Do([&] { test::Part<Linearizer>(bench.First()).Opt_Lnr[1].Click(); });
  struct Spot {
    int row;
    int column;
    int group;
    int item;
  };
  for (const Spot& place : {Spot{1, 1, 2, 0}, Spot{50, 2, 2, 99}, Spot{51, 1, 3, 0}, Spot{100, 2, 3, 99}}) {
    EXPECT_EQ(bench.Cell(place.row, place.column).text, u"");
    bench.ClickCell(place.row, place.column);
    bench.TypeValue(u"7.5");
    bench.Ok();
    EXPECT_EQ(bench.Page().GroupItem.At(place.group, place.item), u"7.5");
  }
}

// An edit that stands open.

constexpr StringView kNotTaken = u"「変更する」を押していない値は、ﾁｪｯｸ･ﾀﾞｳﾝﾛｰﾄﾞ･保存に含まれません: ";

struct OpenEditTest : testing::Test {
  [[nodiscard]] const String& Told() { return bench.Page().Notes.Told(Notice::OpenEdit); }
  TextField& Value() { return test::Part<Linearizer>(bench.Page()).Editor().txtLnrNewValue; }
  void Edit(int row, int column, const String& text) {
    bench.ClickCell(row, column);
    bench.TypeValue(text);
  }

  EditorBench bench;
};

TEST_F(OpenEditTest, ItsCellAndItsTextAreMarkedAsLongAsTheyDiffer) {
  Edit(3, 2, u"13.5");
  EXPECT_TRUE(bench.Cell(3, 2).marked);
  EXPECT_EQ(bench.Cell(3, 2).look, Look::Selected);
  EXPECT_TRUE(Value().Marked());
  bench.TypeValue(u"13.33");
  EXPECT_FALSE(bench.Cell(3, 2).marked);
  EXPECT_FALSE(Value().Marked());
  EXPECT_EQ(Told(), u"") << "nothing was checked, sent or saved";
}

TEST_F(OpenEditTest, IsToldOfAtACheckADownloadAndASave) {
  const String told = String(kNotTaken) + u"行 3 列 2「13.5」";
  const std::vector<std::function<void()>> commands = {[&] { bench.Check(); }, [&] { bench.Download(); },
                                                       [&] { bench.Save(u"/korva/data/kept.cfg"); }};
  for (const auto& command : commands) {
    Edit(3, 2, u"13.5");
    EXPECT_EQ(Told(), u"");
    command();
    EXPECT_EQ(Told(), told);
    EXPECT_TRUE(bench.Cell(3, 2).marked);
    EXPECT_EQ(bench.Editor(), (Texts{"3", "2", "13.5"})) << "it still stands open";
    bench.Cancel();
  }
}

TEST_F(OpenEditTest, IsToldOfAtACheckThatFailsToo) {
  Edit(3, 2, u"13.5");
  bench.Type(u"02", u"TOO LONG A TAG");
  bench.Check();
  EXPECT_NE(Told(), u"");
}

TEST_F(OpenEditTest, IsNoLongerToldOfWhenItIsConfirmedDroppedOrTypedBack) {
  const std::vector<std::function<void()>> ends = {
      [&] { bench.Ok(); },
      [&] { bench.Cancel(); },
      [&] { bench.TypeValue(u"13.33"); },
      [&] {
        bench.dialogs.QueueAnswer(Answer::No);
        bench.ClickCell(4, 1);
      },
  };
  for (const auto& end : ends) {
    bench.Do([&] { test::Part<Linearizer>(bench.Page()).Table().Store(3, 2, u"13.33"); });
    Edit(3, 2, u"13.5");
    bench.Check();
    EXPECT_NE(Told(), u"");
    end();
    EXPECT_EQ(Told(), u"");
    EXPECT_FALSE(bench.Cell(3, 2).marked);
    bench.Do([&] { test::Part<Linearizer>(bench.Page()).Editor().Cancel(); });
  }
}

TEST_F(OpenEditTest, ATextThatIsTheCellsOwnIsNoEdit) {
  bench.ClickCell(3, 2);
  bench.Check();
  EXPECT_EQ(Told(), u"");
}

TEST_F(OpenEditTest, OfTheHeadOrAPointNumberHoldsNoValue) {
  for (const auto& [row, column] : {std::pair{0, 1}, std::pair{3, 0}}) {
    Edit(row, column, u"x");
    bench.Check();
    EXPECT_EQ(Told(), u"");
    EXPECT_FALSE(bench.Cell(row, column).marked);
    bench.Cancel();
  }
}

TEST_F(OpenEditTest, GoesWithItsMarkWhenTheTableIsReplaced) {
  Edit(3, 2, u"13.5");
  bench.Check();
  bench.files.Put(u"/korva/data/table.csv", "1,2\r\n");
  bench.dialogs.QueueFile(u"/korva/data/table.csv");
  bench.Click(test::Part<Linearizer>(bench.Page()).cmd_csvFileOpen);
  EXPECT_EQ(Told(), u"");
  EXPECT_FALSE(bench.Cell(3, 2).marked);
  EXPECT_FALSE(Value().Marked());
}

/// A paste from a spreadsheet into the table, from a cell on.
void PasteAt(EditorBench& bench, int row, int column, StringView text) {
  bench.Do([&] { test::Part<Linearizer>(bench.Page()).LnrFlexGrid.UserPastes(row, column, text); });
}

TEST(LnrEditorPasteTest, PutsColumnsOfASpreadsheetIntoTheTableAndTheSet) {
  EditorBench bench;
  PasteAt(bench, 2, 1, u"1.5\t2.5\r\n-3\t4\r\n");
  EXPECT_EQ(bench.Cell(2, 1).text, u"1.5");
  EXPECT_EQ(bench.Cell(2, 2).text, u"2.5");
  EXPECT_EQ(bench.Cell(3, 1).text, u"-3");
  EXPECT_EQ(bench.Cell(3, 2).text, u"4");
  EXPECT_EQ(bench.Cell(1, 1).text, u"0.00");
  EXPECT_EQ(bench.Cell(4, 1).text, u"20.00");
  // Item 60 of group 1 is X(1), 61 Y(1), 62 X(2).
  EXPECT_EQ(bench.Page().GroupItem.At(1, 62), u"1.5");
  EXPECT_EQ(bench.Page().GroupItem.At(1, 65), u"4");
  EXPECT_TRUE(bench.Page().DataChanged);
}

TEST(LnrEditorPasteTest, TakesFullWidthNumbersAsNumbers) {
  EditorBench bench;
  PasteAt(bench, 1, 2, u"１２．５");
  EXPECT_EQ(bench.Cell(1, 2).text, u"12.5");
}

TEST(LnrEditorPasteTest, TellsHowManyValuesLieBeyondTheTable) {
  EditorBench bench;
  PasteAt(bench, 16, 2, u"1\t2\n3\t4\n");
  EXPECT_EQ(bench.Cell(16, 2).text, u"1");
  EXPECT_EQ(bench.Page().Notes.Told(Notice::NotPasted),
            u"貼り付けた値のうち3個は、表の範囲外のため取り込んでいません");
  PasteAt(bench, 1, 1, u"1");
  EXPECT_EQ(bench.Page().Notes.Told(Notice::NotPasted), u"");
}

TEST(LnrEditorPasteTest, SeveralTextsPastedIntoTheOpenEditGoIntoTheTable) {
  EditorBench bench;
  bench.ClickCell(5, 1);
  const TextField& field = test::Part<Linearizer>(bench.Page()).Editor().txtLnrNewValue;
  bool taken = true;
  bench.Do([&] { taken = field.UserPastes(u"7"); });
  EXPECT_FALSE(taken) << "the field takes one text itself";
  bench.Do([&] { taken = field.UserPastes(u"7\n8"); });
  EXPECT_TRUE(taken);
  EXPECT_EQ(bench.Cell(5, 1), (Grid::Cell{.text = u"7", .look = Look::Normal}));
  EXPECT_EQ(bench.Cell(6, 1).text, u"8");
  EXPECT_EQ(bench.Editor(), Texts());
}

TEST(LnrEditorPasteTest, ATableThatIsSwitchedOffTakesNone) {
  EditorBench bench;
  bench.Do([&] { test::Part<Linearizer>(bench.First()).Opt_Table[0].Click(); });
  bench.Page().DataChanged = false;
  PasteAt(bench, 1, 1, u"9\t9");
  EXPECT_EQ(bench.Cell(1, 1).text, u"0.00");
  EXPECT_FALSE(bench.Page().DataChanged);
  EXPECT_EQ(bench.TakeBoxes().size(), 1U);
}

}  // namespace
}  // namespace korva
