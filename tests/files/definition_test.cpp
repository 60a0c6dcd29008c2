#include "files/definition.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>

#include "core/text_utilities.h"
#include "page_host.h"

namespace korva {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr const char16_t* kDefPath = u"/korva/system/Kv_1/TEST.def";
constexpr StringView kFaulty = u"ﾌｧｲﾙを開く: defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです。ﾌﾟﾛｸﾞﾗﾑを再ｲﾝｽﾄｰﾙしてください。";

class DefFile : public testing::Test {
 protected:
  explicit DefFile(StringView family = u"First")
      : definition(EntryOf(family).record.family, EntryOf(family).record.definition) {}

  void Read(StringView text) {
    host.PutText(kDefPath, text);
    ReadDefFile(lines, boxes, kDefPath, definition);
  }
  void ReadBytes(std::string_view bytes) {
    host.files.Put(kDefPath, bytes);
    ReadDefFile(lines, boxes, kDefPath, definition);
  }
  /// The failure's text when the file ends the program, else empty.
  String FailureOf(StringView text) {
    try {
      Read(text);
    } catch (const RuntimeFailure& failure) {
      return failure.Text();
    }
    return {};
  }
  const String& Cell(int row, DataColumn column) { return definition.Cell(row, column); }
  const String& Cell(StringView key, int row, int column) { return definition[key].At(row, column); }
  [[nodiscard]] bool Clean() const { return host.dialogs.Boxes().empty(); }

  test::MemoryHost host;
  SharedState shared;
  LineReader lines{host.files, host.code_page, shared};
  Boxes boxes{host.dialogs};
  Definition definition;
};

class SecondDefFile : public DefFile {
 protected:
  SecondDefFile() : DefFile(u"Second") {}
};

class LiteForthDefFile : public DefFile {
 protected:
  LiteForthDefFile() : DefFile(u"LiteForth") {}
};

TEST_F(DefFile, ReadsEachSectionIntoItsTable) {
  Read(
      u"comment lines before the first key are skipped\n"
      u"01, 99, no key yet\n"
      u"$Data\n"
      u"01, 10, 3, Input type, Y, Y, 3, 入力, Input, , 2, $I10, , , , , , , , , , , TG:, 2\n"
      u"$I10\n"
      u"T1, Type one, 0, 100, 10, N, Y, , deg C\n"
      u"$SSTab\n"
      u"True, True, True, False, False, True, True\n"
      u"$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(0, kGroup), u"01");
  EXPECT_EQ(Cell(0, kCaption), u"入力");
  EXPECT_EQ(Cell(0, kTextIndex), u"");
  EXPECT_EQ(Cell(0, kReplyPrefix), u"TG:");
  EXPECT_EQ(Cell(0, kWritePosition), u"2");
  EXPECT_EQ(Cell(1, kGroup), u"");
  EXPECT_EQ(Cell(u"$I10", 0, 8), u"deg C");
  EXPECT_EQ(Cell(u"$SSTab", 0, 3), u"False");
  EXPECT_EQ(Cell(u"$SSTab", 0, 6), u"True");
}

TEST_F(DefFile, FieldsReadAlikeWithBlanksTabsAndQuotesAroundThem) {
  Read(u"$Data\n01, 10\n\"01\",\"10\"\n01 ,\t10\n$End\n");
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(Cell(row, kGroup), u"01") << row;
    EXPECT_EQ(Cell(row, kItem), u"10") << row;
  }
}

TEST_F(DefFile, AQuoteInsideAFieldStays) {
  Read(u"$Data\n01, \"a\" b, c\n$End\n");
  EXPECT_EQ(Cell(0, kItem), u"a\" b");
}

TEST_F(DefFile, AShortRowLeavesTheRemainingColumnsEmpty) {
  Read(u"$Data\n01,10\n$End\n");
  for (int column = 2; column < 26; ++column) {
    EXPECT_EQ(definition.Data().At(0, column), u"");
  }
}

TEST_F(DefFile, ALongRowLosesItsSurplusSilently) {
  Read(u"$I23\n0,none,surplus\n1,one\n$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I23", 0, 1), u"none");
  EXPECT_EQ(Cell(u"$I23", 1, 0), u"1");
}

TEST_F(DefFile, ABlankLineInATableUsesUpARow) {
  Read(u"$I21\n0,deg C\n\n2,K\n$End\n");
  EXPECT_EQ(Cell(u"$I21", 1, 0), u"");
  EXPECT_EQ(Cell(u"$I21", 2, 1), u"K");
}

TEST_F(DefFile, ReadsCleanWithExactlyTheLastRowFilled) {
  Read(u"$I23\n0,a\n1,b\n$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I23", 1, 1), u"b");
}

TEST_F(DefFile, OneRowTooManyIsReportedAsFaultyAndKeepsWhatWasRead) {
  Read(u"$I23\n0,a\n1,b\n2,c\n$SSTab\nTrue\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFaulty)});
  EXPECT_EQ(host.dialogs.Boxes()[0].box.icon, BoxIcon::Warning);
  EXPECT_EQ(Cell(u"$I23", 1, 1), u"b");
  EXPECT_EQ(Cell(u"$SSTab", 0, 0), u"");
}

TEST_F(DefFile, TakesAllRowsOfItemsAndReportsOneMore) {
  String text = u"$Data\n";
  for (int row = 0; row < 32; ++row) {
    text += u"01," + Ascii(std::to_string(row)) + u"\n";
  }
  Read(text + u"$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(31, kItem), u"31");
  Read(text + u"01,32\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFaulty)});
}

TEST_F(DefFile, AFullTableMayEndTheFile) {
  Read(u"$I23\n0,a\n1,b");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I23", 1, 1), u"b");
}

TEST_F(DefFile, AMissingEndAfterAListReadsClean) {
  Read(u"$I23\n0,a\n$SSTab\nTrue,False\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$SSTab", 0, 1), u"False");
}

TEST_F(DefFile, AListMayEndWithoutALineEnd) {
  Read(u"$SSTab\nTrue,False");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$SSTab", 0, 1), u"False");
}

TEST_F(DefFile, AMissingEndAfterATableEndsTheProgramNamingFileAndLine) {
  const String text = FailureOf(u"$I10\n1,one\n2,two\n");
  EXPECT_NE(text.find(kDefPath), String::npos);
  EXPECT_NE(text.find(u"4行目"), String::npos);
  EXPECT_EQ(Cell(u"$I10", 1, 1), u"two");
}

TEST_F(DefFile, AFileWithoutAnyKeyEndsTheProgram) {
  EXPECT_NE(FailureOf(u"01,10\nno key\n").find(kDefPath), String::npos);
  EXPECT_NE(FailureOf(u"").find(kDefPath), String::npos);
}

TEST_F(DefFile, AMissingFileEndsTheProgram) {
  EXPECT_THROW(ReadDefFile(lines, boxes, u"/nowhere/X.def", definition), RuntimeFailure);
}

TEST_F(DefFile, AFurtherLineOfAListOverwritesFromItsFirstEntry) {
  Read(u"$SSTab\nTrue,True,True\nFalse\n$End\n");
  EXPECT_EQ(Cell(u"$SSTab", 0, 0), u"False");
  EXPECT_EQ(Cell(u"$SSTab", 0, 1), u"True");
}

TEST_F(DefFile, ASectionThatTheFileLacksIsEmptyAfterAnotherModel) {
  Read(u"$I23\n0,a\n$SSTab\nTrue\n$End\n");
  Read(u"$SSTab\nFalse\n$End\n");
  EXPECT_EQ(Cell(u"$I23", 0, 1), u"");
  EXPECT_EQ(Cell(u"$SSTab", 0, 0), u"False");
}

TEST_F(DefFile, ReadsTheBlockOfRanges) {
  Read(
      u"$I11\n$I11Title\nNONE, DCV, DCMV\n$I11Body\n1,1-5 V,0-10 mV,,0,6\n2,0-5 V,0-50 mV,,0,5\n"
      u"$I23\n0,a\n$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I11Title", 0, 2), u"DCMV");
  EXPECT_EQ(Cell(u"$I11Body", 0, 5), u"6");
  EXPECT_EQ(Cell(u"$I11Body", 1, 2), u"0-50 mV");
  EXPECT_EQ(Cell(u"$I23", 0, 1), u"a");
}

TEST_F(DefFile, TheBlockTakesItsSectionsInAnyOrderAndDropsOtherLines) {
  Read(u"$I11\nnot of use\n$I11Body\n1,a\n2,b\n3,c\n4,d\n5,e\nsixth row\n$I11Title\nNONE\n$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I11Body", 4, 1), u"e");
  EXPECT_EQ(Cell(u"$I11Title", 0, 0), u"NONE");
}

TEST_F(DefFile, TheBlockMayEndTheFileWithItsList) {
  Read(u"$I11\n$I11Title\nNONE,A");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I11Title", 0, 1), u"A");
}

TEST_F(DefFile, ASectionOfTheBlockIsNoKeyOutsideIt) {
  Read(u"$I11Title\nNONE\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFaulty)});
}

TEST_F(DefFile, KeysAreComparedWithTheirCase) {
  Read(u"$data\n01,10\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFaulty)});
  EXPECT_EQ(Cell(0, kGroup), u"");
}

TEST_F(SecondDefFile, InputTypesAreAnUnknownKeyToTheSecondFamily) {
  Read(u"$Data\n01,08\n$I10\n1,one\n$SSTab\nTrue\n$End\n");
  EXPECT_EQ(host.BoxTexts(), std::vector<String>{String(kFaulty)});
  EXPECT_EQ(Cell(0, kItem), u"08");
  EXPECT_EQ(Cell(u"$SSTab", 0, 0), u"");
}

TEST_F(LiteForthDefFile, RangesAreATableInTheOtherFamilies) {
  Read(u"$I11\n0,a,b\n1,c,d\n$SSTab\nTrue\n$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_EQ(Cell(u"$I11", 1, 2), u"d");
}

TEST_F(DefFile, AnUnknownTableEndsTheProgramNamingIt) {
  try {
    (void)definition[u"$I99"];
    FAIL();
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(failure.Text().find(u"$I99"), String::npos);
  }
}

TEST_F(DefFile, APlaceOutsideATableEndsTheProgram) {
  EXPECT_THROW((void)definition[u"$I23"].At(2, 0), RuntimeFailure);
  EXPECT_THROW((void)definition[u"$I23"].At(0, 2), RuntimeFailure);
  EXPECT_THROW((void)definition[u"$I23"].At(-1, 0), RuntimeFailure);
}

TEST_F(DefFile, FindsTheFirstRowFromAGivenOneOn) {
  Read(u"$I21\n0,a\n1,b\n2,a\n$End\n");
  EXPECT_EQ(definition[u"$I21"].FindRow(1, u"a"), 0);
  EXPECT_EQ(definition[u"$I21"].FindRow(1, u"a", 1), 2);
  EXPECT_EQ(definition[u"$I21"].FindRow(1, u"c"), -1);
}

TEST_F(DefFile, AListIsReadByWhatItsColumnsHold) {
  Read(u"$I10\nT1,One,0,100,10,N,Y,DCV,deg C\nT2,Two,-5,5,1,Y,N,,mV\nT3,Two\n$End\n");
  const ChoiceList types = definition.ListOf(u"$I10");
  EXPECT_EQ(types.Rows(), 17);
  EXPECT_EQ(types.Code(1), u"T2");
  EXPECT_EQ(types.Text(1), u"Two");
  EXPECT_EQ(types.Cell(1, &ListColumns::low), u"-5");
  EXPECT_EQ(types.Cell(0, &ListColumns::high), u"100");
  EXPECT_EQ(types.Cell(0, &ListColumns::title), u"DCV");
  EXPECT_EQ(types.Cell(0, &ListColumns::unit), u"deg C");
  EXPECT_EQ(types.Cell(0, &ListColumns::fixed), u"N");
  EXPECT_TRUE(types.Settable(0));
  EXPECT_FALSE(types.Settable(1));
  EXPECT_FALSE(types.Settable(2));
  EXPECT_EQ(types.FindText(u"Two"), 1);
  EXPECT_EQ(types.FindText(u"Two", 2), 2);
  EXPECT_EQ(types.FindText(u"T1"), -1);
  EXPECT_EQ(types.FindCode(u"T3"), 2);
  EXPECT_EQ(types.Find(&ListColumns::fixed, u"Y"), 1);
}

TEST_F(DefFile, AColumnThatAListLacksIsEmptyAndHoldsNothing) {
  Read(u"$I23\n0,none\n1,one\n$End\n");
  const ChoiceList list = definition.ListOf(u"$I23");
  EXPECT_TRUE(list.Has(&ListColumns::text));
  EXPECT_FALSE(list.Has(&ListColumns::unit));
  EXPECT_EQ(list.Cell(0, &ListColumns::unit), u"");
  EXPECT_EQ(list.Find(&ListColumns::unit, u""), -1);
  EXPECT_FALSE(list.Settable(0));
}

TEST_F(DefFile, EachTitleOfTheRangesHasItsTextsAndLimits) {
  Read(u"$I11\n$I11Body\n1,a,b,c,10,11,20,21,30,31\n2,d,e,f,12,13,22,23,32,33\n$End\n");
  const ChoiceList ranges = definition.ListOf(u"$I11Body");
  for (const auto& [title, text, low, high] :
       {std::tuple{1, u"d", u"12", u"13"}, std::tuple{2, u"e", u"22", u"23"},
        std::tuple{3, u"f", u"32", u"33"}}) {
    const ChoiceList under = ranges.UnderTitle(title);
    EXPECT_EQ(under.FindText(text), 1);
    EXPECT_EQ(under.Code(1), u"2");
    EXPECT_EQ(under.Cell(1, &ListColumns::low), low);
    EXPECT_EQ(under.Cell(1, &ListColumns::high), high);
    EXPECT_EQ(under.Cell(1, &ListColumns::preset_high), high);
  }
  EXPECT_THROW((void)ranges.UnderTitle(0), RuntimeFailure);
  EXPECT_THROW((void)ranges.UnderTitle(4), RuntimeFailure);
}

TEST_F(DefFile, ARowOutsideAListEndsTheProgramWhateverTheColumn) {
  const ChoiceList list = definition.ListOf(u"$I23");
  for (const ListColumn column : {&ListColumns::code, &ListColumns::text, &ListColumns::unit}) {
    EXPECT_THROW((void)list.Cell(2, column), RuntimeFailure);
    EXPECT_THROW((void)list.Cell(-1, column), RuntimeFailure);
  }
  EXPECT_THROW((void)definition.ListOf(u"$I99"), RuntimeFailure);
}

TEST_F(SecondDefFile, ItemsAreReadWhereTheFamilyHasTheirColumns) {
  Read(u"$Data\n01,05,,,,,,,,,,,,3,2,Hz,,,0,1,Y,Y,TG:,,7,Lift Factor\n$End\n");
  EXPECT_EQ(Cell(0, kUnitBox), u"2");
  EXPECT_EQ(Cell(0, kUnitText), u"Hz");
  EXPECT_EQ(Cell(0, kDefaultOption), u"1");
  EXPECT_EQ(Cell(0, kWritePosition), u"7");
  EXPECT_EQ(Cell(0, kItemTitle), u"Lift Factor");
  EXPECT_EQ(Cell(0, kUnitKey), u"");
  EXPECT_FALSE(definition.HasColumn(kTemperature));
  EXPECT_EQ(definition.FindRow(kWritePosition, u"7"), 0);
  EXPECT_EQ(definition.FindRow(kWritePosition, u"7", 1), -1);
}

TEST_F(DefFile, ALineOfAMegabyteReadsAsOneField) {
  Read(u"$Data\n01," + String(1 << 20, u'x') + u",3\n$End\n");
  EXPECT_EQ(Cell(0, kItem).size(), std::size_t{1} << 20);
  EXPECT_EQ(Cell(0, kNumberLabel), u"3");
}

TEST_F(DefFile, NulBytesStayInTheirField) {
  ReadBytes("$I23\r\n0,a\0b\r\n$End\r\n"sv);
  EXPECT_EQ(Cell(u"$I23", 0, 1), u"a\0b"s);
}

TEST_F(DefFile, BytesOfAnotherCodePageBecomeReplacementCharacters) {
  ReadBytes("$I23\n0,\xFF\xFE\n$End\n");
  EXPECT_TRUE(Clean());
  EXPECT_NE(Cell(u"$I23", 0, 1).find(u'\uFFFD'), String::npos);
}

/// "$Data 32x26, $I11 block, $SSTab 7" and so on.
String ShapesOf(StringView family) {
  String text;
  for (const SectionShape& shape : EntryOf(family).record.definition.sections) {
    text += (text.empty() ? u"" : u" ") + String(shape.block) + String(shape.key);
    const String columns = Ascii(std::to_string(shape.columns));
    switch (shape.kind) {
      case SectionKind::Table:
        text += u" " + Ascii(std::to_string(shape.rows)) + u"x" + columns;
        break;
      case SectionKind::List:
        text += u" " + columns;
        break;
      case SectionKind::Block:
        text += u" block";
        break;
    }
  }
  return text;
}

TEST(DefSections, EachFamilyHasItsOwn) {
  EXPECT_EQ(ShapesOf(u"First"),
            u"$Data 32x26 $I10 17x9 $I11 block $I11$I11Title 10 $I11$I11Body 5x10 $I21 3x3 $I23 2x2 "
            u"$I21QD 3x2 $I23QD 3x2 $I25QD 4x2 $I31QD 2x2 $I11QEI 8x4 $SSTab 7");
  EXPECT_EQ(ShapesOf(u"Second"), u"$Data 32x26 $I23 8x2 $I26 2x2 $I27 2x2 $I28 3x2 $I29 5x2 $SSTab 6");
  EXPECT_EQ(ShapesOf(u"Third"),
            u"$Data 32x26 $I08 2x2 $I09QEC2 2x3 $I10 17x9 $I11 block $I11$I11Title 10 $I11$I11Body 5x10 "
            u"$I21 3x2 $I21QEB2 2x2 $I11QEI 8x4 $I11QIE 6x4 $I11QHC2 8x4 $I11QCB2 3x2 $I12QCB2 3x2 "
            u"$I13QHC2 8x4 $I27 2x2 $I25 2x2 $SSTab 7");
  EXPECT_EQ(ShapesOf(u"QXI"),
            u"$Data 37x26 $I10 25x9 $I11 8x7 $I21 3x4 $I23 2x4 $I24 3x4 $I25 3x4 $I28 3x4 $I31 2x4 $I38 2x4 "
            u"$I39 2x4 $I84 2x4 $I85 2x4");
  EXPECT_EQ(ShapesOf(u"Lite"),
            u"$Data 32x26 $I10 22x10 $I11 6x7 $I16 2x4 $I21 3x4 $I23 2x4 $I24 3x4 $SSTab 7");
  EXPECT_EQ(ShapesOf(u"LiteUniv"),
            u"$Data 32x26 $I00 4x3 $I10DC 3x10 $I10TC 14x10 $I10RTD 9x10 $I10PM 5x10 $I11 3x7 $I41 3x7 "
            u"$I21 3x4 $I23 2x4 $I24 3x4 $I25 2x4 $I82 3x4 $I83 3x4 $I84 2x4 $SSTab 8");
  EXPECT_EQ(ShapesOf(u"Nano"),
            u"$Data 34x26 $I00 4x3 $I10 14x10 $I11 3x7 $I41 3x7 $I21 3x4 $I23 2x4 $I24 3x4 $I25 2x4 "
            u"$I82 3x4 $I83 3x4 $I84 2x4 $SSTab 8");
  EXPECT_EQ(ShapesOf(u"LiteSecond"),
            u"$Data 32x26 $I20 3x6 $I05 5x6 $I13 9x2 $I61 2x4 $I32 3x2 $I33 7x4 $I02 5x4 $SSTab 6");
  EXPECT_EQ(ShapesOf(u"LiteThird"),
            u"$Data 32x26 $I35 3x6 $I41 8x4 $I23 8x2 $I36 2x3 $I37 2x3 $I40 9x3 $I42 2x3 $I10 2x3 $SSTab 6");
  EXPECT_EQ(ShapesOf(u"LiteForth"),
            u"$Data 33x26 $I21 3x7 $I11 8x7 $I08 4x3 $I10 2x4 $I07 3x4 $I24 2x3 $I29 2x4 $SSTab 6");
  EXPECT_EQ(ShapesOf(u"LiteFifth"),
            u"$Data 33x26 $I21 3x7 $I11 8x7 $I08 7x3 $I10 2x4 $I07 5x4 $I24 3x3 $SSTab 6");
}

TEST(DefSections, EverySectionOfEveryFamilyIsReadAndTheFileEndsClean) {
  for (const RegistryEntry& entry : Registry()) {
    const FamilyRecord& record = entry.record;
    test::MemoryHost host;
    SharedState shared;
    LineReader lines(host.files, host.code_page, shared);
    const Boxes boxes(host.dialogs);
    Definition definition(record.family, record.definition);
    String text;
    for (const SectionShape& shape : record.definition.sections) {
      text += String(shape.key) + u"\n";
      if (shape.kind != SectionKind::Block) {
        text += String(shape.key).substr(1) + u" first," + String(shape.key).substr(1) + u" second\n";
      }
    }
    host.PutText(kDefPath, text + u"$End\n");
    ReadDefFile(lines, boxes, kDefPath, definition);
    EXPECT_TRUE(host.dialogs.Boxes().empty()) << ToUtf8(record.family.word);
    for (const SectionShape& shape : record.definition.sections) {
      if (shape.kind != SectionKind::Block) {
        EXPECT_EQ(definition[shape.key].At(0, 1), String(shape.key).substr(1) + u" second");
      }
    }
  }
}

String PathOf(const String& app_path, StringView family, const String& def_file, char16_t separator) {
  const FamilyRecord& record = EntryOf(family).record;
  return DefFilePath(app_path, record.family, record.definition, def_file, separator);
}

TEST(DefFilePath, LiesInTheFolderOfTheFamily) {
  EXPECT_EQ(PathOf(u"C:\\KORVA", u"First", u"QH.def", u'\\'), u"C:\\KORVA\\system\\Kv_1\\QH.def");
  EXPECT_EQ(PathOf(u"/opt/korva", u"LiteFifth", u"X.def", u'/'), u"/opt/korva/system/z2Kv_5/X.def");
}

TEST(DefFilePath, ARootFolderGetsNoSecondSeparator) {
  EXPECT_EQ(PathOf(u"C:\\", u"Third", u"X.def", u'\\'), u"C:\\system\\Kv_3\\X.def");
}

TEST(DefFilePath, TheUniversalFamilyHasOneFileWhateverTheModel) {
  EXPECT_EQ(PathOf(u"/k", u"QXI", u"QXI-7.def", u'/'), u"/k/system/Univ/Univ.def");
}

}  // namespace
}  // namespace korva
