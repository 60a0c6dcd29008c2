// What a page asks of its parts, and in which order.

#include "core/page_part.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "file_commands_fixture.h"
#include "files/section_lines.h"

namespace korva::test {
namespace {

using Journal = std::vector<std::string>;

std::string NameOf(TabMoment moment) {
  switch (moment) {
    case TabMoment::ModelChosen:
      return "model chosen";
    case TabMoment::FileOpened:
      return "file opened";
    case TabMoment::Uploaded:
      break;
  }
  return "uploaded";
}

/// Notes in the journal what it takes part in, answers for one row and has a section of its own.
class Recorder final : public PagePart {
 public:
  Recorder(std::string name, Journal& journal) : name_(std::move(name)), journal_(journal) {}

  void PageCleared() override { Note("cleared"); }
  void DefinitionRead() override { Note("definition"); }
  [[nodiscard]] std::optional<String> ShownText(int row) const override {
    return row == answered_row ? shown : std::nullopt;
  }
  [[nodiscard]] std::optional<String> CellOf(int row, const String& text) const override {
    return row == answered_row && cell ? std::optional(*cell + text) : std::nullopt;
  }
  void RowShown(int row) override { Note("row " + std::to_string(row)); }
  void PageBuilt() override { Note("built"); }
  void ChoiceMade(const Choice& choice) override {
    const bool pressed = choice.options != nullptr;
    EXPECT_EQ(choice.place >= 0, pressed);
    Note("choice " + ToUtf8(choice.item) + " " + ToUtf8(choice.key) +
         (pressed ? " of " + (*choice.options)[choice.place].FullName() : ""));
  }
  void SettleTabs(TabMoment moment) override { Note(NameOf(moment)); }
  void SetCleared() override { Note("set cleared"); }
  void SetSaved() override { Note("saved"); }
  [[nodiscard]] String CfgSection() const override { return section; }
  SectionRead ReadCfgSection(StringView key, LineReader& lines, int handle) override {
    if (key != section_key) {
      return SectionRead::NotMine;
    }
    read.clear();
    while (!lines.AtEnd(handle)) {
      const String line = lines.ReadLine(handle);
      if (IsKeyLine(line)) {
        lines.UnreadLine(line);
        break;
      }
      read.push_back(line);
    }
    return how_read;
  }

  SectionRead how_read = SectionRead::Whole;
  int answered_row = 0;
  std::optional<String> shown;
  std::optional<String> cell;
  String section;
  String section_key = u"$none";
  std::vector<String> read;  ///< lines of the section

 private:
  void Note(const std::string& what) { journal_.push_back(name_ + " " + what); }

  std::string name_;
  Journal& journal_;
};

/// A page with two more parts, whose notes begin after its first model was chosen.
class PagePartTest : public testing::Test {
 protected:
  PagePartTest() {
    host.Define(u"PLAIN.def", Definition(u"plain"));
    host.Define(u"OTHER.def", Definition(u"other"));
    host.Start();
    Page().Add(first);
    Page().Add(second);
  }
  TestPage& Page() { return host.Page(); }
  void Open(StringView text) {
    host.PutText(kCfg, text);
    host.dialogs.QueueFile(kCfg);
    Page().cmdOpen.Click();
  }
  bool Save() {
    host.dialogs.QueueFile(kCfg);
    return Page().SaveCfgFile();
  }
  /// What both parts note of these steps, the first part ahead of the second at each.
  static Journal Both(const std::vector<std::string>& steps) {
    Journal expected;
    for (const std::string& step : steps) {
      expected.push_back("first " + step);
      expected.push_back("second " + step);
    }
    return expected;
  }

  Journal journal;
  Recorder first{"first", journal};
  Recorder second{"second", journal};
  PageHost host;
};

TEST_F(PagePartTest, DoesNothingOfItsOwn) {
  class Bare final : public PagePart {
  } part;
  PagePart& bare = part;
  EXPECT_EQ(bare.ShownText(0), std::nullopt);
  EXPECT_EQ(bare.CellOf(0, u"x"), std::nullopt);
  EXPECT_EQ(bare.CfgSection(), u"");
  EXPECT_EQ(bare.ReadCfgSection(u"$Data", host.program.Lines(), 2), SectionRead::NotMine);
  EXPECT_EQ(bare.Check(), Finding::Good);
  EXPECT_TRUE(bare.Upload());
  EXPECT_TRUE(bare.Download());
}

TEST_F(PagePartTest, TakesPartInTheChoiceOfAModel) {
  Page().SetItem(10, u"off");
  Page().SetItem(21, u"K");
  host.Choose(u"OTHER");
  EXPECT_EQ(journal,
            Both({"cleared", "definition", "row 0", "row 1", "row 2", "row 3", "built", "model chosen"}));
}

TEST_F(PagePartTest, IsToldOfTheDefaultsWhenTheTabsAreSettled) {
  Page().GroupItem.Clear();
  host.Choose(u"OTHER");
  const Journal expected =
      Both({"cleared", "definition", "row 0", "row 1", "row 2", "row 3", "built", "model chosen",
            "choice 10 $I10 of Opt_Table(1)", "choice 21 $I21 of optTempUnit(0)"});
  EXPECT_EQ(journal, expected);
}

TEST_F(PagePartTest, SeesOnlyTheRowsThatAreOnThePage) {
  host.Choose(u"OTHER", DefText({{.item = u"02", .text = u"0"},
                                 {.item = u"03", .on_page = u"N", .text = u"1"},
                                 {.item = u"14", .text = u"9"}}));
  EXPECT_EQ(journal, Both({"cleared", "definition", "row 0", "row 2", "built", "model chosen"}));
}

TEST_F(PagePartTest, TakesPartInANewSet) {
  Page().cmdNew.Click();
  EXPECT_EQ(journal,
            Both({"set cleared", "row 0", "row 1", "row 2", "row 3", "built", "cleared", "model chosen",
                  "choice 10 $I10 of Opt_Table(1)", "choice 21 $I21 of optTempUnit(0)"}));
}

TEST_F(PagePartTest, TakesPartInTheOpeningOfAFile) {
  Open(kOther);
  EXPECT_EQ(journal, Both({"cleared", "definition", "row 0", "row 1", "row 2", "row 3", "built",
                           "model chosen", "row 0", "row 1", "row 2", "row 3", "built", "file opened"}));
}

TEST_F(PagePartTest, TakesPartInTheOpeningOfAFileWithoutAModel) {
  Open(u"$Data\n\"1\",\"2\",\"TAG-1\"\n$End\n");
  EXPECT_EQ(journal, Both({"row 0", "row 1", "row 2", "row 3", "built", "file opened"}));
}

TEST_F(PagePartTest, IsToldOfASaveThatWroteItsFile) {
  EXPECT_TRUE(Save());
  EXPECT_EQ(journal, Both({"saved"}));
  journal.clear();
  host.files.FailWrites(MemoryFiles::Fault::DiskFull);
  EXPECT_FALSE(Save());
  EXPECT_TRUE(journal.empty());
}

TEST_F(PagePartTest, IsToldOfAChoiceInAComboBox) {
  host.Choose(u"OTHER", DefText({TypeRow(u"N")}, kTypes));
  journal.clear();
  Page().Combo[0].UserPicks(1);
  EXPECT_EQ(journal, Both({"choice 10 $I10"}));
}

TEST_F(PagePartTest, IsToldOfAPressOfAnOption) {
  Page().linearizer.Opt_Table[0].Click();
  Page().optTempUnit[2].Click();
  EXPECT_EQ(journal, Both({"choice 10 $I10 of Opt_Table(0)", "choice 21 $I21 of optTempUnit(2)"}));
}

TEST_F(PagePartTest, ShowsItsOwnTextInTheFieldOfARowAndTheFirstAnswerCounts) {
  Page().SetItem(2, u"TAG");
  second.shown = u"of the second";
  Page().BuildPage();
  EXPECT_EQ(Page().Text[0].Text(), u"of the second");
  first.shown = u"of the first";
  Page().BuildPage();
  EXPECT_EQ(Page().Text[0].Text(), u"of the first");
  EXPECT_EQ(Page().Item(2), u"TAG");
  first.answered_row = 1;
  second.answered_row = 1;
  Page().BuildPage();
  EXPECT_EQ(Page().Text[0].Text(), u"TAG");
}

TEST_F(PagePartTest, HasNoTextForANeedlessCell) {
  Page().SetItem(2, u"NEEDLESS");
  first.shown = u"of the first";
  Page().BuildPage();
  EXPECT_EQ(Page().Text[0].Text(), u"");
}

TEST_F(PagePartTest, TurnsTheTextOfAFieldIntoItsCellAndTheFirstAnswerCounts) {
  second.cell = u"second:";
  Page().Text[0].UserTypes(u" a ");
  EXPECT_EQ(Page().Item(2), u"second: a ");
  first.cell = u"first:";
  Page().Text[0].UserTypes(u" b ");
  EXPECT_EQ(Page().Item(2), u"first: b ");
  Page().Text[9].UserTypes(u" 12 ");
  EXPECT_EQ(Page().Item(14), u"12");
}

TEST_F(PagePartTest, HasItsSectionBetweenTheValuesAndTheMemo) {
  second.section = u"$Late\r\n\"2\"\r\n";
  first.section = u"$Early\r\n\"1\",\"x\"\r\n";
  Page().Text[0].UserTypes(u"TAG");
  ASSERT_TRUE(Save());
  EXPECT_EQ(host.TextOf(kCfg),
            u"$DefFile\r\n\"PLAIN.def\"\r\n$Data\r\n\"1\",\"2\",\"TAG\"\r\n\"1\",\"10\",\"on\"\r\n"
            u"\"1\",\"21\",\"deg C\"\r\n$Early\r\n\"1\",\"x\"\r\n$Late\r\n\"2\"\r\n"
            u"$Memo\r\n\"0\",\"\"\r\n\"1\",\"\"\r\n$End\r\n");
}

TEST_F(PagePartTest, HasItsSectionInTheRescueFileToo) {
  first.section = u"$Early\r\n\"1\"\r\n";
  EXPECT_TRUE(Page().SaveRescueFile(kCfg));
  EXPECT_NE(host.TextOf(kCfg).find(u"$Early\r\n\"1\"\r\n$Memo\r\n"), String::npos);
}

TEST_F(PagePartTest, ReadsItsOwnSectionBack) {
  host.Choose(u"OTHER");
  first.section = u"$Early\r\n\"1\",\"x\"\r\n\"2\",\"y\"\r\n";
  first.section_key = u"$Early";
  second.section = u"$Late\r\n\"3\"\r\n";
  second.section_key = u"$Late";
  Page().Text[0].UserTypes(u"TAG");
  Page().txtMemo.UserTypes(u"memo");
  ASSERT_TRUE(Save());
  Page().Text[0].UserTypes(u"ANOTHER");
  Page().DataChanged = false;
  const std::size_t boxes = host.dialogs.Boxes().size();
  host.dialogs.QueueFile(kCfg);
  Page().cmdOpen.Click();
  EXPECT_EQ(first.read, (std::vector<String>{u"1\",\"x", u"2\",\"y"}));
  EXPECT_EQ(second.read, std::vector<String>{u"3"});
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_EQ(Page().txtMemo.Text(), u"memo");
  EXPECT_EQ(host.dialogs.Boxes().size(), boxes);
}

TEST_F(PagePartTest, ASectionWithTooManyFieldsIsToldAndTheReadingGoesOnWithTheNextKey) {
  first.section_key = u"$Early";
  first.how_read = SectionRead::Faulty;
  Open(u"$Data\n\"1\",\"2\",\"TAG\"\n$Early\n\"1\"\n$Memo\n\"0\",\"x\"\n$End\n");
  EXPECT_EQ(host.BoxTexts(),
            std::vector<String>{String(kOpenTitle) +
                                u"cfgﾌｧｲﾙ(GroupItem$)のﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"});
  EXPECT_EQ(Page().txtAuthor.Text(), u"x");
}

TEST_F(PagePartTest, LeavesAnUnknownSectionAFormatFault) {
  first.section_key = u"$Early";
  Open(u"$Data\n\"1\",\"2\",\"TAG\"\n$Early\n\"1\"\n$Odd\n\"2\"\n$Memo\n\"0\",\"x\"\n$End\n");
  EXPECT_EQ(first.read, std::vector<String>{u"1"});
  EXPECT_EQ(host.BoxTexts(),
            std::vector<String>{String(kOpenTitle) + u"cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。"});
  EXPECT_EQ(Page().Item(2), u"TAG");
  EXPECT_EQ(Page().txtAuthor.Text(), u"");
}

}  // namespace
}  // namespace korva::test
