#include "sim/definition.h"

#include <gtest/gtest.h>

#include <fstream>

#include "sample.h"

namespace korva::sim {
namespace {

/// A program folder in the test's own temporary place.
class HomeTest : public testing::Test {
 protected:
  void SetUp() override {
    home_ = std::filesystem::path(testing::TempDir()) /
            ("home_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    std::filesystem::create_directories(home_ / "system" / "Kv_1");
  }
  void TearDown() override { std::filesystem::remove_all(home_); }

  void WriteFile(const std::string& name, std::string_view text) const {
    std::ofstream(home_ / "system" / name, std::ios::binary) << text;
  }

  std::filesystem::path home_;
};

TEST_F(HomeTest, CatalogueRowsStandBetweenTypeAndEnd) {
  WriteFile("MdlVTRMFx.jpn",
            "A, a.def, First\r\n$Type\r\n \"B\" ,\tb.def , First\r\n\r\nC, c.def\r\n$End\r\nD, d.def\r\n");
  const auto models = ReadCatalogue(home_);
  ASSERT_EQ(models.size(), 2U);
  EXPECT_EQ(models[0].name, "B");
  EXPECT_EQ(models[0].definition_file, "b.def");
  EXPECT_EQ(models[0].family_word, "First");
  EXPECT_EQ(models[1].name, "C");
  EXPECT_EQ(models[1].family_word, "");
}

TEST_F(HomeTest, CatalogueThatIsMissingOrHasNoModelsIsAnError) {
  EXPECT_THROW(ReadCatalogue(home_), SetupError);
  WriteFile("MdlVTRMFx.jpn", "A, a.def, First\r\n");
  EXPECT_THROW(ReadCatalogue(home_), SetupError);
}

TEST_F(HomeTest, DeviceIsFoundByNameAndByDefaultTheFirst) {
  WriteFile("MdlVTRMFx.jpn",
            "$Type\r\nB, b.def, First\r\nC, c.def, First\r\nD, d.def, Elsewhere\r\n$End\r\n");
  WriteFile("Kv_1/b.def", kSample);
  EXPECT_EQ(Device::ForModel(home_, "").GetModel().name, "B");
  EXPECT_EQ(Device::ForModel(home_, "B").GetFamily().baud, 1200U);
  EXPECT_THROW(Device::ForModel(home_, "C"), SetupError) << "file missing";
  EXPECT_THROW(Device::ForModel(home_, "D"), SetupError) << "family unknown";
  EXPECT_THROW(Device::ForModel(home_, "X"), SetupError) << "model unknown";
}

TEST(DefinitionTest, FieldsLoseBlanksTabsAndQuotesAroundThem) {
  const auto definition = Definition::Parse("$Data\n \"01\" ,\t10,\"a\" b\", x y \n$End\n");
  const auto& row = definition.Rows("$Data").at(0);
  EXPECT_EQ(Field(row, 0), "01");
  EXPECT_EQ(Field(row, 1), "10");
  EXPECT_EQ(Field(row, 2), "a\" b");
  EXPECT_EQ(Field(row, 3), "x y");
  EXPECT_EQ(Field(row, 4), "");
}

TEST(DefinitionTest, BlankLineUsesUpARow) {
  EXPECT_EQ(Definition::Parse("$Data\n01,02\n\n01,03\n$End\n").Rows("$Data").size(), 3U);
}

TEST(DefinitionTest, NothingBehindEndIsRead) {
  EXPECT_EQ(Definition::Parse("$Data\n01,02\n$End\n01,03\n").Rows("$Data").size(), 1U);
}

TEST(DefinitionTest, FileWithoutDataRowsIsAnError) {
  EXPECT_THROW(Definition::Parse(""), SetupError);
  EXPECT_THROW(Definition::Parse("$I10\n1,2\n$End\n"), SetupError);
}

TEST(FamilyTest, SpeedsFolderAndDialectOfEveryFamily) {
  struct Expected {
    const char* word;
    const char* folder;
    unsigned baud;
    Dialect dialect;
  };
  for (const auto& row :
       {Expected{"First", "Kv_1", 1200, Dialect::Cok}, Expected{"QXI", "Univ", 1200, Dialect::Cok},
        Expected{"Second", "Kv_2", 1200, Dialect::EnterItem}, Expected{"Third", "Kv_3", 1200, Dialect::Cok},
        Expected{"Lite", "z2Kv", 1200, Dialect::EnterItem},
        Expected{"LiteUniv", "z2Univ", 38400, Dialect::EnterItem},
        Expected{"LiteSecond", "z2Kv_2", 9600, Dialect::EnterItem},
        Expected{"LiteThird", "z2Kv_3", 1200, Dialect::EnterItem},
        Expected{"LiteForth", "z2Kv_4", 9600, Dialect::Cok},
        Expected{"LiteFifth", "z2Kv_5", 9600, Dialect::Cok},
        Expected{"Nano", "z8Kv", 9600, Dialect::EnterItem}}) {
    const Family* const family = FindFamily(row.word);
    ASSERT_NE(family, nullptr) << row.word;
    EXPECT_EQ(family->folder, row.folder) << row.word;
    EXPECT_EQ(family->baud, row.baud) << row.word;
    EXPECT_EQ(family->dialect, row.dialect) << row.word;
  }
  EXPECT_EQ(FindFamily(""), nullptr);
  EXPECT_EQ(FindFamily("first"), nullptr);
}

}  // namespace
}  // namespace korva::sim
