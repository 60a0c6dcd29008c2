#include "files/cfg_file.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/text_utilities.h"
#include "page_host.h"

namespace korva {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr const char16_t* kCfgPath = u"/data/a.cfg";
constexpr StringView kFormat = u"ﾌｧｲﾙを開く: cfgﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。";
constexpr StringView kDataFormat = u"ﾌｧｲﾙを開く: cfgﾌｧｲﾙ(GroupItem$)のﾌｫｰﾏｯﾄｴﾗｰです。このﾌｧｲﾙは使えません。";

class CfgFile : public testing::Test {
 protected:
  CfgFile() {
    models.cells[0] = {u"ZERO", u"ZERO.def", u"First"};
    models.cells[1] = {u"QH-1", u"QH.def", u"First"};
    models.cells[2] = {u"QH-2", u"QH.def", u"First"};
    models.cells[5] = {u"QY-1", u"QY.def", u"First"};
  }

  void Read(StringView text) {
    host.PutText(kCfgPath, text);
    ReadInto(set);
  }
  void ReadBytes(std::string_view bytes) {
    host.files.Put(kCfgPath, bytes);
    ReadInto(set);
  }
  void ReadInto(ParameterSet& other) {
    ASSERT_TRUE(OpenCfgFile(lines, boxes, kCfgPath));
    model = ReadCfgFile(lines, boxes, models, kCfgPath, other, {});
  }
  /// Writes the set and reads it back into another.
  ParameterSet RoundTrip() {
    host.files.Put(kCfgPath, host.code_page.Encode(CfgText(u"QH.def", set, {})).value());
    ParameterSet other(set.Groups());
    ReadInto(other);
    return other;
  }
  [[nodiscard]] bool Clean() const { return host.dialogs.Boxes().empty(); }
  /// What a file of the set would not give back.
  CfgLosses Losses(const String& def_file = u"QH.def") {
    host.files.Put(kCfgPath, host.code_page.Encode(CfgText(def_file, set, {})).value());
    return LossesOfCfgFile(lines, models, kCfgPath, set, {});
  }

  test::MemoryHost host;
  SharedState shared;
  LineReader lines{host.files, host.code_page, shared};
  Boxes boxes{host.dialogs};
  ModelTable models;
  ParameterSet set{4};
  std::optional<CfgModel> model;
};

TEST_F(CfgFile, IsWrittenByteForByteInItsLayout) {
  set.Set(1, 15, u"1200");
  set.Set(0, 99, u"SYSVER   1.00");
  set.Set(1, 2, u"TAG-1");
  set.Set(1, 10, u"Tc-2:K(CA)");
  set.Set(1, 14, u"0");
  set.Set(1, 21, u"NEEDLESS");
  set.Author = u"author";
  set.Memo = u"first line\r\nsecond line";
  EXPECT_EQ(CfgText(u"QH.def", set, {}),
            u"$DefFile\r\n\"QH.def\"\r\n$Data\r\n"
            u"\"0\",\"99\",\"SYSVER   1.00\"\r\n\"1\",\"2\",\"TAG-1\"\r\n\"1\",\"10\",\"Tc-2:K(CA)\"\r\n"
            u"\"1\",\"14\",\"0\"\r\n\"1\",\"15\",\"1200\"\r\n\"1\",\"21\",\"NEEDLESS\"\r\n"
            u"$Memo\r\n\"0\",\"author\"\r\n\"1\",\"first line\r\nsecond line\"\r\n$End\r\n");
}

TEST_F(CfgFile, OfAnEmptySetHasNoValues) {
  EXPECT_EQ(CfgText(u"QH.def", set, {}),
            u"$DefFile\r\n\"QH.def\"\r\n$Data\r\n$Memo\r\n\"0\",\"\"\r\n\"1\",\"\"\r\n$End\r\n");
}

TEST_F(CfgFile, IsSortedByGroupThenItem) {
  set.Set(3, 0, u"c");
  set.Set(2, 99, u"b");
  set.Set(0, 5, u"a");
  EXPECT_NE(CfgText(u"X", set, {}).find(u"\"0\",\"5\",\"a\"\r\n\"2\",\"99\",\"b\"\r\n\"3\",\"0\",\"c\"\r\n"),
            String::npos);
}

TEST(CfgTextTest, TheGroupsOfTheTableCanStandAheadOfTheOthers) {
  ParameterSet set(4);
  set.Set(0, 99, u"a");
  set.Set(1, 2, u"b");
  set.Set(2, 0, u"c");
  set.Set(3, 1, u"d");
  const String text = CfgText(u"X", set, {}, 2);
  EXPECT_NE(text.find(u"$Data\r\n\"2\",\"0\",\"c\"\r\n\"3\",\"1\",\"d\"\r\n\"0\",\"99\",\"a\"\r\n\"1\",\"2\","
                      u"\"b\"\r\n$Memo"),
            String::npos);
}

TEST_F(CfgFile, AQuoteInsideAValueIsWrittenAsItStands) {
  set.Set(1, 2, u"a\"b");
  EXPECT_NE(CfgText(u"X", set, {}).find(u"\"1\",\"2\",\"a\"b\"\r\n"), String::npos);
  EXPECT_EQ(RoundTrip().At(1, 2), u"a\"b");
}

TEST_F(CfgFile, ReadsWhatWasWritten) {
  set.Set(0, 99, u"SYSVER   1.00");
  set.Set(1, 10, u"Tc-1:  (PR)");
  set.Set(1, 21, u"NEEDLESS");
  set.Set(3, 99, u"ﾀｸﾞ");
  set.Author = u"山田";
  const ParameterSet other = RoundTrip();
  EXPECT_TRUE(Clean());
  for (int group = 0; group < 4; ++group) {
    for (int item = 0; item < 100; ++item) {
      EXPECT_EQ(other.At(group, item), set.At(group, item));
    }
  }
  EXPECT_EQ(other.Author, u"山田");
}

TEST_F(CfgFile, TellsTheModelAndItsRow) {
  Read(u"$DefFile\n\"QY.def\"\n$Data\n$Memo\n$End\n");
  ASSERT_TRUE(model);
  EXPECT_EQ(model->def_file, u"QY.def");
  EXPECT_EQ(model->row, 5);
}

TEST_F(CfgFile, AModelThatStandsTwiceIsItsFirstRow) {
  Read(u"$DefFile\n\"QH.def\"\n$End\n");
  EXPECT_EQ(model.value().row, 1);
}

TEST_F(CfgFile, AnUnknownModelStopsTheReading) {
  Read(u"$DefFile\n\"NONE.def\"\n$Data\n\"1\",\"2\",\"x\"\nfaulty\n");
  EXPECT_EQ(model.value().row, 0);
  EXPECT_EQ(set.At(1, 2), u"");
  EXPECT_TRUE(Clean());
}

TEST_F(CfgFile, TheModelOfTheFirstRowCountsAsUnknown) {
  Read(u"$DefFile\n\"ZERO.def\"\n$Data\n\"1\",\"2\",\"x\"\n$End\n");
  EXPECT_EQ(model.value().row, 0);
  EXPECT_EQ(set.At(1, 2), u"");
}

TEST_F(CfgFile, AnEmptyNameIsNoModelEvenWithFreeRowsInTheCatalogue) {
  Read(u"$DefFile\n\"\"\n$Data\n\"1\",\"2\",\"x\"\n$End\n");
  EXPECT_EQ(model.value().row, 0);
  Read(u"$DefFile\n");
  EXPECT_EQ(model.value().row, 0);
}

TEST_F(CfgFile, TheLastLineUnderTheKeyIsTheModel) {
  Read(u"$DefFile\n\"QH.def\"\n\"QY.def\"\n$End\n");
  EXPECT_EQ(model.value().row, 5);
}

TEST_F(CfgFile, WithValuesOnlyNamesNoModel) {
  Read(u"$Data\n\"1\",\"2\",\"TAG\"\n");
  EXPECT_FALSE(model);
  EXPECT_EQ(set.At(1, 2), u"TAG");
  EXPECT_TRUE(Clean());
}

TEST_F(CfgFile, LinesBeforeTheFirstKeyAreSkipped) {
  Read(u"made by hand\n\"1\",\"2\",\"x\"\n$Data\n\"1\",\"3\",\"y\"\n$End\n");
  EXPECT_EQ(set.At(1, 2), u"");
  EXPECT_EQ(set.At(1, 3), u"y");
}

TEST_F(CfgFile, WithoutAnEndReadsCleanAfterEachSection) {
  for (const StringView text :
       {u"$DefFile\n\"QH.def\"\n", u"$Data\n", u"$Data\n\"1\",\"2\",\"x\"\n", u"$Data\n\"1\",\"2\",\"x\"",
        u"$Memo\n", u"$Memo\n\"0\",\"a\"\n\"1\",\"m\"\n"}) {
    Read(text);
    EXPECT_TRUE(Clean());
  }
  EXPECT_EQ(set.Memo, u"m");
}

TEST_F(CfgFile, TheSetIsEmptiedBeforeAnythingIsRead) {
  set.Set(1, 99, u"old");
  set.Author = u"old";
  set.Memo = u"old";
  Read(u"$Data\n$End\n");
  EXPECT_EQ(set.At(1, 99), u"");
  EXPECT_EQ(set.Author, u"");
  EXPECT_EQ(set.Memo, u"");
}

TEST_F(CfgFile, ATagOfTenBlanksIsSavedAsSuchAndComesBackEmpty) {
  set.Set(1, 2, String(kEmptyTag));
  EXPECT_NE(CfgText(u"X", set, {}).find(u"\"1\",\"2\",\"          \"\r\n"), String::npos);
  EXPECT_EQ(RoundTrip().At(1, 2), u"");
}

TEST_F(CfgFile, AFourthFieldShowsBothBoxesAndKeepsTheCutValue) {
  Read(u"$Data\n\"1\",\"2\",\"a,b\"\n\"1\",\"3\",\"c\"\n$Memo\n\"0\",\"x\"\n$End\n");
  EXPECT_EQ(host.BoxTexts(), (std::vector<String>{String(kDataFormat), String(kFormat)}));
  EXPECT_EQ(set.At(1, 2), u"a");
  EXPECT_EQ(set.At(1, 3), u"");
  EXPECT_EQ(set.Author, u"");
}

TEST_F(CfgFile, AFourthFieldInTheLastRecordShowsOneBoxAndTheNextSectionIsRead) {
  Read(u"$Data\n\"1\",\"2\",\"a,b\"\n$Memo\n\"0\",\"x\"\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kDataFormat)});
  EXPECT_EQ(set.Author, u"x");
}

TEST_F(CfgFile, AnUnknownKeyShowsItsBoxAndKeepsWhatWasRead) {
  Read(u"$Data\n\"1\",\"2\",\"a\"\n$Table\n\"5\",\"0\",\"1\"\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFormat)});
  EXPECT_EQ(set.At(1, 2), u"a");
}

TEST_F(CfgFile, WithoutAnyKeyIsReported) {
  Read(u"no key at all\nreally\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFormat)});
  Read(u"");
  EXPECT_EQ(host.BoxTexts().size(), 2U);
}

TEST_F(CfgFile, AGroupOrItemOutsideTheSetEndsTheProgramNamingFileAndPlace) {
  for (const StringView record : {u"\"9\",\"1\",\"x\"", u"\"1\",\"500\",\"x\"", u"\"-1\",\"1\",\"x\"",
                                  u"\"1\",\"-5\",\"x\"", u"\"1e300\",\"1\",\"x\""}) {
    try {
      Read(u"$Data\n" + String(record) + u"\n$End\n");
      ADD_FAILURE() << "read on";
    } catch (const RuntimeFailure& failure) {
      EXPECT_NE(failure.Text().find(kCfgPath), String::npos);
      EXPECT_NE(failure.Text().find(u"Group"), String::npos);
    }
  }
}

TEST_F(CfgFile, OfATwoGroupFamilyHasNoThirdGroup) {
  set = ParameterSet(2);
  set.Set(1, 99, u"x");
  EXPECT_NE(CfgText(u"X", set, {}).find(u"\"1\",\"99\",\"x\""), String::npos);
  EXPECT_THROW(Read(u"$Data\n\"2\",\"0\",\"x\"\n$End\n"), RuntimeFailure);
}

TEST_F(CfgFile, GroupAndItemAreReadByTheirLeadingNumber) {
  Read(u"$Data\n01,02,TAG\n\"1 group\",\"3.2\",\"x\"\n$End\n");
  EXPECT_EQ(set.At(1, 2), u"TAG");
  EXPECT_EQ(set.At(1, 3), u"x");
}

TEST_F(CfgFile, ARecordWithoutAValueEmptiesItsCell) {
  Read(u"$Data\n\"1\",\"2\",\"x\"\n\"1\",\"2\"\n$End\n");
  EXPECT_EQ(set.At(1, 2), u"");
  EXPECT_TRUE(Clean());
}

TEST_F(CfgFile, AnItemThatTheModelLacksIsKept) {
  Read(u"$DefFile\n\"QH.def\"\n$Data\n\"0\",\"1\",\"odd\"\n$End\n");
  EXPECT_EQ(set.At(0, 1), u"odd");
}

TEST_F(CfgFile, AMemoOfThreeLinesComesBackAsTheSameThree) {
  set.Memo = u"one\r\ntwo\r\nthree";
  EXPECT_EQ(RoundTrip().Memo, set.Memo);
}

TEST_F(CfgFile, EmptyLinesOfAMemoComeBackAtAnyPlace) {
  for (const StringView memo : {u"\r\none", u"one\r\n", u"one\r\n\r\nthree", u"\r\n", u"\r\n\r\n"}) {
    set.Memo = memo;
    EXPECT_EQ(RoundTrip().Memo, memo);
  }
}

TEST_F(CfgFile, AnEmptyMemoComesBackEmpty) {
  set.Author = u"a";
  EXPECT_EQ(RoundTrip().Memo, u"");
  EXPECT_EQ(RoundTrip().Author, u"a");
}

TEST_F(CfgFile, BlanksTabsAndQuotesAtTheEndsOfAMemoLineAreLost) {
  set.Memo = u"one \r\n\t\"two\"\r\n  three";
  EXPECT_EQ(RoundTrip().Memo, u"one\r\ntwo\r\nthree");
}

TEST_F(CfgFile, AMemoLineWithACommaIsReadAsARecord) {
  set.Author = u"author";
  set.Memo = u"one\r\ntwo, three\r\nfour";
  const ParameterSet other = RoundTrip();
  EXPECT_EQ(other.Author, u"three");
  EXPECT_EQ(other.Memo, u"one\r\nfour");
}

TEST_F(CfgFile, AMemoLineThatBeginsWithOneAndACommaReplacesTheMemo) {
  set.Memo = u"first\r\n1 bar, 2 bar\r\nlast";
  EXPECT_EQ(RoundTrip().Memo, u"2 bar\r\nlast");
}

TEST_F(CfgFile, AMemoLineWithAnotherNumberAndACommaIsDropped) {
  set.Author = u"author";
  set.Memo = u"first\r\n5 bar, 2 bar\r\nlast";
  const ParameterSet other = RoundTrip();
  EXPECT_EQ(other.Memo, u"first\r\nlast");
  EXPECT_EQ(other.Author, u"author");
}

TEST_F(CfgFile, AMemoLineThatBeginsWithADollarEndsTheSectionAsFaulty) {
  set.Memo = u"one\r\n$5 a piece\r\nthree";
  EXPECT_EQ(RoundTrip().Memo, u"one");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFormat)});
}

TEST_F(CfgFile, MayHaveAMebibyteOfWhichALineIsOneValue) {
  const std::string head = "$Data\r\n\"1\",\"2\",\"";
  const std::string tail = "\"\r\n$End\r\n";
  const std::size_t length = kMostCfgBytes - head.size() - tail.size();
  ReadBytes(head + std::string(length, 'x') + tail);
  EXPECT_EQ(set.At(1, 2).size(), length);
}

TEST_F(CfgFile, OfMoreThanAMebibyteIsNone) {
  host.files.Put(kCfgPath, std::string((1 << 20) + 1, ' '));
  EXPECT_FALSE(OpenCfgFile(lines, boxes, kCfgPath));
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFormat)});
}

TEST_F(CfgFile, NulBytesAndForeignBytesAreRead) {
  ReadBytes("$Data\r\n\"1\",\"2\",\"a\0b\"\r\n\"1\",\"3\",\"\xFF\xFE\"\r\n$End"sv);
  EXPECT_TRUE(Clean());
  EXPECT_EQ(set.At(1, 2), u"a\0b"s);
  EXPECT_NE(set.At(1, 3).find(u'\uFFFD'), String::npos);
}

// What a file does not give back.

using Items = std::vector<std::pair<int, int>>;
using LineNumbers = std::vector<int>;

TEST_F(CfgFile, LosesNothingOfAPlainSet) {
  set.Set(0, 99, u"SYSVER   1.00");
  set.Set(1, 2, String(kEmptyTag));
  set.Set(1, 14, u"a\"b");
  set.Author = u"山田";
  set.Memo = u"one\r\n\r\nthree";
  EXPECT_TRUE(Losses().None());
  EXPECT_TRUE(Clean());
}

TEST_F(CfgFile, LosesWhatFollowsACommaInAValueAndEveryRecordBehindIt) {
  set.Set(1, 2, u"A,B");
  EXPECT_EQ(Losses().items, (Items{{1, 2}}));
  set.Set(1, 14, u"0");
  set.Set(2, 3, u"5");
  set.Set(0, 99, u"before");
  set.Author = u"author";
  set.Memo = u"one\r\ntwo";
  const CfgLosses losses = Losses();
  EXPECT_EQ(losses.items, (Items{{1, 2}, {1, 14}, {2, 3}}));
  EXPECT_TRUE(losses.author);
  EXPECT_EQ(losses.memo_lines, (LineNumbers{1, 2}));
  EXPECT_TRUE(Clean()) << "nothing is opened, so nothing is reported";
}

TEST_F(CfgFile, LosesQuotesAndBlanksAtTheEndsOfAValue) {
  set.Set(1, 2, u"5\"");
  set.Set(1, 3, u"\"x");
  set.Set(1, 4, u" y");
  EXPECT_EQ(Losses().items, (Items{{1, 2}, {1, 3}, {1, 4}}));
}

TEST_F(CfgFile, LosesAnAuthorWithAComma) {
  set.Author = u"Yamada, T.";
  EXPECT_TRUE(Losses().author);
  EXPECT_TRUE(Losses().items.empty());
}

TEST_F(CfgFile, LosesTheMemoLinesThatAreReadAsSomethingElse) {
  struct Case {
    String memo;
    LineNumbers lost;
    bool author = false;
  };
  for (const Case& one :
       {Case{u"one\r\ntwo, three\r\nfour", {2}, true}, Case{u"first, second", {1}},
        Case{u"first\r\n1 bar, 2 bar\r\nlast", {1, 2}}, Case{u"first\r\n5 bar, 2 bar\r\nlast", {2}},
        Case{u"one\r\n$5 a piece\r\nthree", {2, 3}}, Case{u"one\r\n$Data\r\n9,9,9\r\nfour", {2, 3, 4}},
        Case{u"one \r\n\"two\"\r\nthree", {1, 2}}}) {
    set.Author = u"author";
    set.Memo = one.memo;
    EXPECT_EQ(Losses().memo_lines, one.lost) << ToUtf8(one.memo);
    EXPECT_EQ(Losses().author, one.author) << ToUtf8(one.memo);
  }
}

TEST_F(CfgFile, LosesEverythingOfAModelThatTheCatalogueLacks) {
  set.Set(1, 2, u"TAG");
  EXPECT_EQ(Losses(u"NONE.def").items, (Items{{1, 2}}));
}

TEST_F(CfgFile, ThatCannotBeReadLosesEverything) {
  set.Set(1, 2, u"TAG");
  EXPECT_EQ(LossesOfCfgFile(lines, models, u"/nowhere.cfg", set, {}).items, (Items{{1, 2}}));
}

TEST_F(CfgFile, ThatIsMissingIsTold) {
  EXPECT_FALSE(OpenCfgFile(lines, boxes, u"/nowhere.cfg"));
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{u"ﾌｧｲﾙを開く: ファイルが見つかりません。"});
}

}  // namespace
}  // namespace korva
