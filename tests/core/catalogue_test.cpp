#include "core/catalogue.h"

#include <gtest/gtest.h>

#include "platform/event_gate.h"
#include "platform/native/native_code_page.h"
#include "support/memory_files.h"

namespace korva {
namespace {

class CatalogueTest : public testing::Test {
 protected:
  const ModelTable& Read(std::string_view bytes) {
    files_.Put(u"system/MdlVTRMFx.jpn", bytes);
    ReadModelCatalogue(lines_, u"system/MdlVTRMFx.jpn", models_);
    return models_;
  }
  /// Text of the failure in which reading the catalogue ends; empty when it doesn't.
  String FailureOfReading(std::string_view bytes) {
    try {
      Read(bytes);
    } catch (const RuntimeFailure& failure) {
      return failure.Text();
    }
    return {};
  }
  static std::string Rows(int count) {
    std::string rows;
    for (int row = 0; row < count; ++row) {
      rows += "M" + std::to_string(row) + ",M" + std::to_string(row) + ".def,First\r\n";
    }
    return rows;
  }

  test::MemoryFiles files_;
  NativeCodePage code_page_;
  SharedState shared_;
  LineReader lines_{files_, code_page_, shared_};
  ModelTable models_;
};

TEST_F(CatalogueTest, ReadsNameDefinitionFileAndFamilyOfEachModel) {
  const ModelTable& models = Read("$Type\r\nQHW,QHW.def,First\r\nZ8,Z8.def,Nano\r\n$End\r\n");
  EXPECT_EQ(models.At(0, 0), u"QHW");
  EXPECT_EQ(models.At(0, 1), u"QHW.def");
  EXPECT_EQ(models.At(0, 2), u"First");
  EXPECT_EQ(models.At(1, 0), u"Z8");
  EXPECT_EQ(models.At(1, 1), u"Z8.def");
  EXPECT_EQ(models.At(1, 2), u"Nano");
}

TEST_F(CatalogueTest, IgnoresAllLinesUpToTheTypeLine) {
  const ModelTable& models = Read("comment\r\n$End\r\n$Type2\r\n\r\n $Type \r\nA,A.def,First\r\n$End\r\n");
  EXPECT_EQ(models.At(0, 0), u"A");
}

TEST_F(CatalogueTest, IgnoresWhatFollowsTheEndLine) {
  const ModelTable& models = Read("$Type\r\nA,A.def,First\r\n$End\r\nB,B.def,First\r\n");
  EXPECT_EQ(models.At(1, 0), u"");
}

TEST_F(CatalogueTest, LeavesUnfilledRowsEmptyAndForgetsFormerOnes) {
  Read("$Type\r\n" + Rows(69));
  const ModelTable& models = Read("$Type\r\nA,A.def,First\r\n$End\r\n");
  for (int row = 1; row < ModelTable::kRows; ++row) {
    for (int column = 0; column < ModelTable::kColumns; ++column) {
      EXPECT_EQ(models.At(row, column), u"") << row;
    }
  }
}

TEST_F(CatalogueTest, WithExactly69RowsAndNoEndIsReadWhole) {
  const ModelTable& models = Read("$Type\r\n" + Rows(69));
  EXPECT_EQ(models.At(0, 0), u"M0");
  EXPECT_EQ(models.At(68, 0), u"M68");
  EXPECT_EQ(models.At(68, 2), u"First");
}

TEST_F(CatalogueTest, DoesNotReadRowsBeyondThe69th) {
  const ModelTable& models = Read("$Type\r\n" + Rows(75) + "$End\r\n");
  EXPECT_EQ(models.At(68, 0), u"M68");
}

TEST_F(CatalogueTest, LeavesTheFamilyEmptyInARowOfTwoFields) {
  const ModelTable& models = Read("$Type\r\nC,C.def,First\r\nA, B\r\n$End\r\n");
  EXPECT_EQ(models.At(1, 0), u"A");
  EXPECT_EQ(models.At(1, 1), u"B");
  EXPECT_EQ(models.At(1, 2), u"");
  EXPECT_EQ(FamilyOfRow(models, 1), u"");
}

TEST_F(CatalogueTest, DropsQuotesBlanksAndTabsAroundFields) {
  const ModelTable& models = Read("$Type\r\n\"QHW\" ,\t\"QHW.def\" , \"First\"\r\n$End\r\n");
  EXPECT_EQ(models.At(0, 0), u"QHW");
  EXPECT_EQ(models.At(0, 1), u"QHW.def");
  EXPECT_EQ(models.At(0, 2), u"First");
}

TEST_F(CatalogueTest, IgnoresAFourthField) {
  EXPECT_EQ(Read("$Type\r\nA,A.def,First,more\r\n$End\r\n").At(0, 2), u"First");
}

TEST_F(CatalogueTest, CountsAnEmptyLineAsARow) {
  const ModelTable& models = Read("$Type\r\n\r\nA,A.def,First\r\n$End\r\n");
  EXPECT_EQ(models.At(0, 0), u"");
  EXPECT_EQ(models.At(1, 0), u"A");
}

TEST_F(CatalogueTest, ClosesItsFile) {
  Read("$Type\r\nA,A.def,First\r\n$End\r\nmore\r\n");
  EXPECT_TRUE(lines_.AtEnd(1));
}

TEST_F(CatalogueTest, FailsWhenTheFileIsMissing) {
  try {
    ReadModelCatalogue(lines_, u"system/MdlVTRMFx.jpn", models_);
    FAIL() << "read a missing catalogue";
  } catch (const RuntimeFailure& failure) {
    EXPECT_NE(failure.Text().find(u"system/MdlVTRMFx.jpn"), String::npos);
  }
}

TEST_F(CatalogueTest, FailsWithoutATypeLine) {
  EXPECT_NE(FailureOfReading("A,A.def,First\r\n$End\r\n").find(u"MdlVTRMFx.jpn"), String::npos);
  EXPECT_FALSE(FailureOfReading("").empty());
}

TEST_F(CatalogueTest, FailsWithoutAnEndLineBeforeThe69thRow) {
  EXPECT_NE(FailureOfReading("$Type\r\n" + Rows(68)).find(u"70行目"), String::npos);
}

TEST_F(CatalogueTest, GivesTheFamilyOfARowAndNoneOutsideTheTable) {
  const ModelTable& models = Read("$Type\r\n" + Rows(69));
  EXPECT_EQ(FamilyOfRow(models, 0), u"First");
  EXPECT_EQ(FamilyOfRow(models, 68), u"First");
  EXPECT_EQ(FamilyOfRow(models, -1), u"");
  EXPECT_EQ(FamilyOfRow(models, 69), u"");
}

TEST_F(CatalogueTest, FindsTheFirstRowOfAModelNameThatStandsTwice) {
  const ModelTable& models = Read("$Type\r\nA,1.def,First\r\nB,2.def,First\r\nB,3.def,Nano\r\n$End\r\n");
  EXPECT_EQ(FindModelByName(models, u"A"), 0);
  EXPECT_EQ(FindModelByName(models, u"B"), 1);
}

TEST_F(CatalogueTest, FindsTheFirstEmptyRowByAnEmptyName) {
  const ModelTable& models = Read("$Type\r\nA,1.def,First\r\nB,2.def,First\r\n$End\r\n");
  EXPECT_EQ(FindModelByName(models, u""), 2);
}

TEST_F(CatalogueTest, FindsNoModelByAnotherSpelling) {
  const ModelTable& models = Read("$Type\r\n" + Rows(69));
  EXPECT_EQ(FindModelByName(models, u"m1"), std::nullopt);
  EXPECT_EQ(FindModelByName(models, u"M1 "), std::nullopt);
  EXPECT_EQ(FindModelByName(models, u""), std::nullopt);
}

TEST_F(CatalogueTest, FindsAModelByItsDefinitionFileInTheRows1To68) {
  const ModelTable& models = Read("$Type\r\n" + Rows(69));
  EXPECT_EQ(FindModelByDefFile(models, u"M1.def"), 1);
  EXPECT_EQ(FindModelByDefFile(models, u"M68.def"), 68);
}

TEST_F(CatalogueTest, PassesRow0OverForALaterRowOfTheSameDefinitionFile) {
  const ModelTable& models = Read("$Type\r\nA,1.def,First\r\nB,2.def,First\r\nC,1.def,First\r\n$End\r\n");
  EXPECT_EQ(FindModelByDefFile(models, u"1.def"), 2);
}

TEST_F(CatalogueTest, TakesTheModelOfRow0ForNone) {
  const ModelTable& models = Read("$Type\r\n" + Rows(69));
  EXPECT_EQ(FindModelByDefFile(models, u"M0.def"), 0);
  EXPECT_EQ(FindModelByDefFile(models, u"unknown.def"), 0);
}

}  // namespace
}  // namespace korva
