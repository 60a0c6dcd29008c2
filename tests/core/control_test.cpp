#include "core/control.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/control_array.h"
#include "core/grid.h"
#include "core/tab_control.h"
#include "platform/virtual/virtual_event_loop.h"

namespace korva {
namespace {

/// Counts the changes of a control from its making on.
template <typename T>
class ChangeCounter {
 public:
  explicit ChangeCounter(T& control) {
    control.Observe([this] { ++count_; });
  }
  /// Changes since the last call.
  int Take() { return std::exchange(count_, 0); }

 private:
  int count_ = 0;
};

TEST(Control, IsNamedByItselfOrByItsPlaceInAnArray) {
  EXPECT_EQ(Button("cmdUpload").FullName(), "cmdUpload");
  EXPECT_EQ(TextField("Text", 3).FullName(), "Text(3)");
  EXPECT_EQ(TextField("Text", 0).FullName(), "Text(0)");
  EXPECT_EQ(TextField("Text", 3).Name(), "Text");
}

TEST(Control, TellsItsObserversOfChangesAlone) {
  Button button("cmdUpload");
  ChangeCounter changes(button);
  button.SetEnabled(true);
  EXPECT_EQ(changes.Take(), 0);
  button.SetEnabled(false);
  EXPECT_EQ(changes.Take(), 1);
  button.SetVisible(false);
  EXPECT_EQ(changes.Take(), 1);
  button.SetCaption(u"UPLOAD");
  EXPECT_EQ(changes.Take(), 1);
  button.SetCaption(u"UPLOAD");
  EXPECT_EQ(changes.Take(), 0);
}

TEST(Control, TellsWhoeverShowsItWhenItTakesTheFocus) {
  TextField field("Text", 1);
  int focused = 0;
  field.ObserveFocus([&focused] { ++focused; });
  field.SetFocus();
  EXPECT_EQ(focused, 1);
}

TEST(Control, RefusesTheUserWhenHiddenOrDisabled) {
  Button button("cmdUpload");
  EXPECT_EQ(button.Refused(), Refusal::None);
  button.SetEnabled(false);
  EXPECT_EQ(button.Refused(), Refusal::Disabled);
  button.SetVisible(false);
  EXPECT_EQ(button.Refused(), Refusal::Hidden);
}

TEST(Control, IsHiddenAndDisabledWithItsContainer) {
  Frame outer("fraOuter");
  Frame inner("fraInner");
  Button button("cmdOK");
  inner.PutInto(&outer);
  button.PutInto(&inner);
  outer.SetEnabled(false);
  EXPECT_EQ(button.Refused(), Refusal::Disabled);
  EXPECT_TRUE(button.Enabled());
  inner.SetVisible(false);
  EXPECT_EQ(button.Refused(), Refusal::Hidden);
  inner.SetVisible(true);
  outer.SetEnabled(true);
  EXPECT_EQ(button.Refused(), Refusal::None);
}

TEST(Button, RaisesItsClickAndNeedsNoHandler) {
  Button button("cmdUpload");
  button.Click();
  int clicks = 0;
  button.OnClick = [&clicks] { ++clicks; };
  button.Click();
  EXPECT_EQ(clicks, 1);
}

TEST(Label, ShowsItsCaptionInItsLook) {
  Label label("lbl_unit", 2);
  ChangeCounter changes(label);
  label.SetCaption(u"deg C");
  label.SetLook(Look::Highlight);
  EXPECT_EQ(label.ShownText(), u"deg C");
  EXPECT_EQ(label.ShownLook(), Look::Highlight);
  EXPECT_EQ(changes.Take(), 2);
}

TEST(TextField, RaisesAChangeByUserAndByProgramAlike) {
  TextField field("Text", 1);
  std::vector<String> seen;
  field.OnChange = [&] { seen.push_back(field.Text()); };
  field.UserTypes(u"12");
  field.SetText(u"13");
  EXPECT_EQ(seen, (std::vector<String>{u"12", u"13"}));
}

TEST(TextField, RaisesNothingWhenItsTextStaysTheSame) {
  TextField field("Text", 1);
  field.SetText(u"12");
  ChangeCounter changes(field);
  int raised = 0;
  field.OnChange = [&raised] { ++raised; };
  field.SetText(u"12");
  field.UserTypes(u"12");
  EXPECT_EQ(raised, 0);
  EXPECT_EQ(changes.Take(), 0);
}

TEST(TextField, RefusesTheUserWhenLocked) {
  TextField field("Text", 1);
  field.SetLocked(true);
  EXPECT_TRUE(field.Locked());
  EXPECT_EQ(field.Refused(), Refusal::Locked);
  field.SetEnabled(false);
  EXPECT_EQ(field.Refused(), Refusal::Disabled);
}

TEST(TextField, ForANumberTakesFullWidthDigitsThatArePastedAsHalfWidthOnes) {
  TextField field("Text", 9);
  EXPECT_EQ(field.AsPasted(u"１２．５"), u"１２．５");
  field.SetNumeric(true);
  EXPECT_EQ(field.AsPasted(u"－１２．５ V"), u"-12.5 V");
  field.UserTypes(u"１２");
  EXPECT_EQ(field.Text(), u"１２") << "what is typed stays as it is";
}

TEST(TextField, TellsItsObserversOfItsMark) {
  TextField field("Text", 9);
  int changes = 0;
  field.Observe([&] { ++changes; });
  field.SetMarked(true);
  field.SetMarked(true);
  EXPECT_TRUE(field.Marked());
  EXPECT_EQ(changes, 1);
}

TEST(TextField, PassesKeysOn) {
  TextField field("Text", 1);
  EXPECT_FALSE(field.UserPresses(Key::Enter));
  std::vector<Key> keys;
  field.OnKey = [&keys](Key key) {
    keys.push_back(key);
    return key == Key::Enter;
  };
  EXPECT_TRUE(field.UserPresses(Key::Enter));
  EXPECT_FALSE(field.UserPresses(Key::Down));
  EXPECT_EQ(keys, (std::vector<Key>{Key::Enter, Key::Down}));
}

class ComboBoxTest : public testing::Test {
 protected:
  ComboBoxTest() {
    combo_.AddEntry(u"1-5 V");
    combo_.AddEntry(u"4-20 mA");
    combo_.OnClick = [this] { ++clicks_; };
  }
  ComboBox combo_{"Combo", 1};
  int clicks_ = 0;
};

TEST_F(ComboBoxTest, RaisesAClickForTheUsersChoiceAlone) {
  combo_.SetText(u"1-5 V");
  EXPECT_EQ(clicks_, 0);
  combo_.UserPicks(1);
  EXPECT_EQ(clicks_, 1);
  EXPECT_EQ(combo_.Text(), u"4-20 mA");
  EXPECT_EQ(combo_.ListIndex(), 1);
}

TEST_F(ComboBoxTest, ShowsATextThatItsListDoesNotHold) {
  combo_.SetText(u"0-10 V");
  EXPECT_EQ(combo_.ShownText(), u"0-10 V");
  EXPECT_EQ(combo_.ListIndex(), -1);
}

TEST_F(ComboBoxTest, LosesListAndTextTogether) {
  combo_.UserPicks(0);
  ChangeCounter changes(combo_);
  combo_.Clear();
  EXPECT_TRUE(combo_.Entries().empty());
  EXPECT_EQ(combo_.Text(), u"");
  EXPECT_EQ(changes.Take(), 1);
}

TEST_F(ComboBoxTest, RefusesTheUserWhenLocked) {
  combo_.SetLocked(true);
  EXPECT_EQ(combo_.Refused(), Refusal::Locked);
}

class OptionGroupTest : public testing::Test {
 protected:
  OptionGroupTest() {
    group_.OnClick = [this](int place) { clicks_.push_back(place); };
  }
  OptionGroup group_{"Opt_Table", 3};
  std::vector<int> clicks_;
};

TEST_F(OptionGroupTest, StartsWithNoButtonOn) {
  EXPECT_EQ(group_.Count(), 3);
  EXPECT_EQ(group_.Selected(), -1);
  EXPECT_EQ(group_[1].FullName(), "Opt_Table(1)");
  EXPECT_EQ(group_[2].Place(), 2);
}

TEST_F(OptionGroupTest, HoldsOneButtonOnAtMost) {
  group_[0].Click();
  group_[2].Click();
  EXPECT_FALSE(group_[0].Value());
  EXPECT_TRUE(group_[2].Value());
  EXPECT_EQ(group_.Selected(), 2);
}

TEST_F(OptionGroupTest, RaisesAClickWhenAButtonGoesOnByUserOrProgram) {
  group_[1].Click();
  group_[0].SetValue(true);
  EXPECT_EQ(clicks_, (std::vector<int>{1, 0}));
}

TEST_F(OptionGroupTest, RaisesNothingForAButtonThatIsOnAlready) {
  group_[1].Click();
  group_[1].Click();
  EXPECT_EQ(clicks_, std::vector<int>{1});
}

TEST_F(OptionGroupTest, RaisesAClickForAButtonThatIsOnAlreadyWhereThatCounts) {
  group_.RaisesWhenOn = true;
  group_[1].Click();
  group_[1].Click();
  EXPECT_EQ(clicks_, (std::vector<int>{1, 1}));
}

TEST_F(OptionGroupTest, RaisesNothingWhenButtonsGoOff) {
  group_[1].Click();
  group_[1].SetValue(false);
  EXPECT_EQ(group_.Selected(), -1);
  group_[2].Click();
  group_.Clear();
  EXPECT_EQ(group_.Selected(), -1);
  EXPECT_EQ(clicks_, (std::vector<int>{1, 2}));
}

TEST_F(OptionGroupTest, HasTheNewButtonOnAndTheOldOneOffWhenTheClickIsRaised) {
  group_[0].Click();
  int selected = -1;
  group_.OnClick = [&](int /*place*/) { selected = group_.Selected(); };
  group_[2].Click();
  EXPECT_EQ(selected, 2);
}

TEST_F(OptionGroupTest, TellsTheObserversOfBothButtons) {
  group_[0].Click();
  ChangeCounter off(group_[0]);
  ChangeCounter on(group_[1]);
  group_[1].Click();
  EXPECT_EQ(off.Take(), 1);
  EXPECT_EQ(on.Take(), 1);
}

TEST_F(OptionGroupTest, ShowsAndEnablesItsButtonsTogether) {
  group_.SetVisible(false);
  group_.SetEnabled(false);
  for (int place = 0; place < group_.Count(); ++place) {
    EXPECT_FALSE(group_[place].Visible());
    EXPECT_FALSE(group_[place].Enabled());
  }
}

TEST(OptionGroup, HoldsSingleButtonsUnderNamesOfTheirOwn) {
  OptionGroup group({"OptCom1", "OptCom2"});
  EXPECT_EQ(group[1].FullName(), "OptCom2");
  EXPECT_EQ(group[1].Place(), 1);
}

class ListBoxTest : public testing::Test {
 protected:
  ListBoxTest() {
    list_.AddEntry(u"QHW");
    list_.AddEntry(u"");
    list_.OnClick = [this] { ++clicks_; };
  }
  ListBox list_{"lst_TypeSelect"};
  int clicks_ = 0;
};

TEST_F(ListBoxTest, RaisesAClickWheneverItsPositionIsSetEvenToThePresentOne) {
  list_.SetListIndex(0);
  list_.UserPicks(0);
  list_.UserPicks(1);
  EXPECT_EQ(clicks_, 3);
}

TEST_F(ListBoxTest, MovesItsMarkBackWithoutAClick) {
  list_.SetListIndex(1);
  list_.ShowListIndex(0);
  EXPECT_EQ(list_.ListIndex(), 0);
  EXPECT_EQ(clicks_, 1);
}

TEST_F(ListBoxTest, ShowsTheChosenEntry) {
  EXPECT_EQ(list_.Text(), u"");
  list_.SetListIndex(0);
  EXPECT_EQ(list_.Text(), u"QHW");
  list_.SetListIndex(1);
  EXPECT_EQ(list_.ShownText(), u"");
  list_.SetListIndex(7);
  EXPECT_EQ(list_.Text(), u"");
}

TEST_F(ListBoxTest, ForgetsEntriesPositionAndTopWhenCleared) {
  list_.SetListIndex(1);
  list_.SetTopIndex(1);
  list_.Clear();
  EXPECT_TRUE(list_.Entries().empty());
  EXPECT_EQ(list_.ListIndex(), -1);
  EXPECT_EQ(list_.TopIndex(), 0);
}

TEST_F(ListBoxTest, RaisesNoClickForItsTop) {
  list_.SetTopIndex(1);
  EXPECT_EQ(list_.TopIndex(), 1);
  EXPECT_EQ(clicks_, 0);
}

class GridTest : public testing::Test {
 protected:
  GridTest() { grid_.Resize(3, 2); }
  Grid grid_{"LnrFlexGrid"};
};

TEST_F(GridTest, KeepsTextAndLookOfEachCell) {
  grid_.SetText(2, 1, u"0.5");
  grid_.SetLook(2, 1, Look::Bad);
  EXPECT_EQ(grid_.At(2, 1).text, u"0.5");
  EXPECT_EQ(grid_.At(2, 1).look, Look::Bad);
  EXPECT_EQ(grid_.At(1, 1), Grid::Cell{});
}

TEST_F(GridTest, KeepsCellsThatStayWhenItsSizeChanges) {
  grid_.SetText(1, 1, u"a");
  grid_.SetText(2, 0, u"b");
  grid_.Resize(2, 3);
  EXPECT_EQ(grid_.Rows(), 2);
  EXPECT_EQ(grid_.Columns(), 3);
  EXPECT_EQ(grid_.At(1, 1).text, u"a");
  grid_.Resize(3, 3);
  EXPECT_EQ(grid_.At(2, 0).text, u"");
}

TEST_F(GridTest, TellsWhichCellChangedAndOnlyWhenOneDid) {
  ChangeCounter changes(grid_);
  grid_.SetText(2, 1, u"0.5");
  EXPECT_EQ(changes.Take(), 1);
  EXPECT_EQ(grid_.LastChange(), std::pair(2, 1));
  grid_.SetText(2, 1, u"0.5");
  grid_.SetLook(2, 1, Look::Normal);
  EXPECT_EQ(changes.Take(), 0);
  grid_.Resize(4, 2);
  EXPECT_EQ(grid_.LastChange(), std::pair(-1, -1));
}

TEST_F(GridTest, TellsWhatItsRowsStandForAndHowManyAreInUse) {
  EXPECT_EQ(grid_.ScaleOfRows(), std::nullopt);
  EXPECT_EQ(grid_.RowsInUse(), 2) << "all but the head";
  ChangeCounter changes(grid_);
  grid_.SetRowScale(Grid::RowScale{.first = -50, .step = 10});
  grid_.SetRowScale(Grid::RowScale{.first = -50, .step = 10});
  EXPECT_EQ(changes.Take(), 1);
  EXPECT_EQ(grid_.LastChange(), std::pair(-1, -1));
  EXPECT_EQ(grid_.ScaleOfRows()->first, -50);
  grid_.SetRowsInUse(1);
  grid_.SetRowsInUse(1);
  EXPECT_EQ(changes.Take(), 1);
  EXPECT_EQ(grid_.RowsInUse(), 1);
  grid_.SetRowsInUse(-1);
  EXPECT_EQ(grid_.RowsInUse(), 2);
}

TEST_F(GridTest, CountsTheChangesOfItsCellsAndNoOthers) {
  const unsigned before = grid_.Changes();
  grid_.SetText(2, 1, u"0.5");
  grid_.SetText(2, 1, u"0.5");
  grid_.SetLook(2, 1, Look::Bad);
  grid_.Resize(4, 2);
  EXPECT_EQ(grid_.Changes(), before + 3);
  grid_.SetTopRow(2);
  grid_.SetEnabled(false);
  EXPECT_EQ(grid_.Changes(), before + 3);
}

TEST_F(GridTest, StandsAtItsFirstRowAgainWhenItsTopRowIsGone) {
  grid_.SetTopRow(2);
  grid_.Resize(3, 3);
  EXPECT_EQ(grid_.TopRow(), 2);
  grid_.Resize(2, 3);
  EXPECT_EQ(grid_.TopRow(), 1);
}

TEST_F(GridTest, PassesTheUsersClickOn) {
  grid_.UserClicks(1, 1);
  std::pair<int, int> clicked;
  grid_.OnCellClick = [&clicked](int row, int column) { clicked = {row, column}; };
  grid_.UserClicks(2, 0);
  EXPECT_EQ(clicked, std::pair(2, 0));
}

TEST_F(GridTest, EndsTheProgramForACellOutsideIt) {
  EXPECT_THROW(grid_.SetText(3, 0, u"x"), RuntimeFailure);
  EXPECT_THROW(grid_.SetText(0, 2, u"x"), RuntimeFailure);
  EXPECT_THROW((void)grid_.At(-1, 0), RuntimeFailure);
}

TEST_F(GridTest, IsBadWhileACellIsMarkedBad) {
  EXPECT_FALSE(grid_.IsBad());
  grid_.SetLook(1, 1, Look::Bad);
  grid_.SetLook(2, 1, Look::Bad);
  grid_.SetLook(1, 1, Look::Selected);
  EXPECT_TRUE(grid_.IsBad());
  grid_.Resize(2, 2);
  EXPECT_FALSE(grid_.IsBad());
  grid_.SetLook(1, 1, Look::Bad);
  EXPECT_TRUE(grid_.IsBad());
  grid_.SetLook(1, 1, Look::Normal);
  EXPECT_FALSE(grid_.IsBad());
}

TEST_F(GridTest, TheFrameOfTheKeyboardGoesToANewlySelectedValueCell) {
  grid_.SetLook(0, 1, Look::Selected);
  EXPECT_EQ(grid_.CurrentCell(), std::pair(0, 0));
  grid_.SetLook(2, 1, Look::Selected);
  EXPECT_EQ(grid_.CurrentCell(), std::pair(2, 1));
  grid_.SetCurrentCell(1, 0);
  EXPECT_EQ(grid_.CurrentCell(), std::pair(1, 0));
  grid_.SetCurrentCell(2, 0);
  grid_.Resize(2, 2);
  EXPECT_EQ(grid_.CurrentCell(), std::pair(0, 0));
}

TEST(TextBlock, IsALineForARowWithTabsBetweenItsColumns) {
  EXPECT_EQ(BlockOf(u"1\t2\r\n3\t4\r\n"), (TextBlock{{u"1", u"2"}, {u"3", u"4"}}));
  EXPECT_EQ(BlockOf(u"1\n2\r3"), (TextBlock{{u"1"}, {u"2"}, {u"3"}}));
  EXPECT_EQ(BlockOf(u" 1.5 \t\t 2"), (TextBlock{{u"1.5", u"", u"2"}}));
  EXPECT_EQ(BlockOf(u"1\n\n2"), (TextBlock{{u"1"}, {u""}, {u"2"}}));
  EXPECT_EQ(BlockOf(u""), TextBlock());
}

TEST(TabControl, HasACaptionAndAStateForEachTab) {
  TabControl tabs("KvCfg_Tab", 7);
  ChangeCounter changes(tabs);
  tabs.SetTabCaption(3, u"ﾘﾆｱﾗｲｻﾞ");
  tabs.SetTabEnabled(3, false);
  std::vector<int> entered;
  tabs.OnEntered = [&](int tab) { entered.push_back(tab); };
  tabs.SetCurrent(2);
  tabs.SetCurrent(2);
  EXPECT_EQ(changes.Take(), 3);
  EXPECT_EQ(entered, std::vector<int>{2});
  EXPECT_EQ(tabs.Count(), 7);
  EXPECT_EQ(tabs.TabCaption(3), u"ﾘﾆｱﾗｲｻﾞ");
  EXPECT_FALSE(tabs.TabEnabled(3));
  EXPECT_TRUE(tabs.TabEnabled(2));
  EXPECT_EQ(tabs.Current(), 2);
  tabs.SetTabBad(3, true);
  EXPECT_TRUE(tabs.TabBad(3));
  EXPECT_FALSE(tabs.TabBad(2));
  EXPECT_EQ(changes.Take(), 1);
}

TEST(TabControl, TellsEachClickAlsoOfTheTabInFront) {
  TabControl tabs("KvCfg_Tab", 7);
  std::vector<int> entered;
  std::vector<int> clicked;
  tabs.OnEntered = [&](int tab) { entered.push_back(tab); };
  tabs.OnClicked = [&](int tab) {
    EXPECT_EQ(tabs.Current(), tab);
    clicked.push_back(tab);
  };
  tabs.UserClicks(2);
  tabs.UserClicks(2);
  tabs.SetCurrent(1);
  EXPECT_EQ(entered, (std::vector{2, 1}));
  EXPECT_EQ(clicked, (std::vector{2, 2}));
}

TEST(Picture, TellsItsObserversOfAnotherFileOrOtherBytesOfIt) {
  Picture picture("ImgInput");
  ChangeCounter changes(picture);
  picture.Show(u"In_tc.bmp", "BM1");
  EXPECT_EQ(changes.Take(), 1);
  EXPECT_EQ(picture.ShownText(), u"In_tc.bmp");
  EXPECT_EQ(picture.Bytes(), "BM1");
  picture.Show(u"In_tc.bmp", "BM1");
  EXPECT_EQ(changes.Take(), 0);
  picture.Show(u"In_tc.bmp", "BM2");
  EXPECT_EQ(changes.Take(), 1);
  EXPECT_EQ(picture.Bytes(), "BM2");
  picture.Show(u"In_pot.bmp", "BM2");
  EXPECT_EQ(changes.Take(), 1);
  picture.Clear();
  EXPECT_EQ(changes.Take(), 1);
  EXPECT_EQ(picture.FileName(), u"");
  EXPECT_EQ(picture.Bytes(), "");
}

TEST(ProgressBar, TellsItsObserversOfANewValue) {
  ProgressBar bar("ProgressBar");
  ChangeCounter changes(bar);
  bar.SetValue(20.0F);
  bar.SetValue(20.0F);
  EXPECT_EQ(bar.Value(), 20.0F);
  EXPECT_EQ(changes.Take(), 1);
}

class PageTimerTest : public testing::Test {
 protected:
  PageTimerTest() {
    timer_.OnTick = [this] {
      ticks_.push_back(std::chrono::duration_cast<Milliseconds>(loop_.Now()).count());
    };
  }
  VirtualEventLoop loop_;
  Timer timer_{"Item03_MonitorTimer", loop_, Milliseconds(200)};
  std::vector<Milliseconds::rep> ticks_;
};

TEST_F(PageTimerTest, IsOffUntilItIsStarted) {
  loop_.RunFor(Milliseconds(1000));
  EXPECT_FALSE(timer_.Running());
  EXPECT_TRUE(ticks_.empty());
}

TEST_F(PageTimerTest, TicksAtItsInterval) {
  timer_.Start();
  loop_.RunFor(Milliseconds(650));
  EXPECT_EQ(ticks_, (std::vector<Milliseconds::rep>{200, 400, 600}));
}

TEST_F(PageTimerTest, TicksNoMoreOnceStopped) {
  timer_.Start();
  loop_.RunFor(Milliseconds(250));
  timer_.Stop();
  loop_.RunFor(Milliseconds(1000));
  EXPECT_EQ(ticks_, std::vector<Milliseconds::rep>{200});
}

TEST_F(PageTimerTest, StartsItsTimeAnewWhenStartedAgainOrGivenAnotherInterval) {
  timer_.Start();
  loop_.RunFor(Milliseconds(150));
  timer_.Start();
  loop_.RunFor(Milliseconds(150));
  EXPECT_TRUE(ticks_.empty());
  timer_.SetInterval(Milliseconds(500));
  loop_.RunFor(Milliseconds(600));
  EXPECT_EQ(ticks_, std::vector<Milliseconds::rep>{800});
}

TEST_F(PageTimerTest, StaysOffWhenGivenAnotherInterval) {
  timer_.SetInterval(Milliseconds(10));
  loop_.RunFor(Milliseconds(100));
  EXPECT_TRUE(ticks_.empty());
}

TEST(PageTimer, TicksNoMoreOnceItIsGone) {
  VirtualEventLoop loop;
  int ticks = 0;
  {
    Timer timer("Item03_MonitorTimer", loop, Milliseconds(200));
    timer.OnTick = [&ticks] { ++ticks; };
    timer.Start();
  }
  loop.RunFor(Milliseconds(1000));
  EXPECT_EQ(ticks, 0);
}

TEST(ControlArray, HoldsTheElements0ToItsHighestIndex) {
  ControlArray<TextField> fields("Text", 43);
  EXPECT_EQ(fields.Count(), 44);
  EXPECT_TRUE(fields.Has(0));
  EXPECT_TRUE(fields.Has(43));
  EXPECT_FALSE(fields.Has(44));
  EXPECT_FALSE(fields.Has(-1));
  EXPECT_EQ(fields[43].FullName(), "Text(43)");
}

}  // namespace
}  // namespace korva
