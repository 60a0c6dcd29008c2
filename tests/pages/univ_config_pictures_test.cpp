// Which picture of the universal device belongs to an input and to an output, and when it is shown.

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "pages/univ_config/pictures.h"
#include "univ_config_bench.h"

namespace korva::test {
namespace {

struct InputRow {
  std::vector<int> types;
  double reach;
  StringView file;
};

/// All types of a row, at a range inside its limit and at the limit itself.
const std::vector<InputRow> kInputs = {
    {.types = {11}, .reach = 0, .file = u"In_dcvl.bmp"},
    {.types = {11}, .reach = 1000, .file = u"In_dcvl.bmp"},
    {.types = {11}, .reach = 1000.5, .file = u"In_dcvh.bmp"},
    {.types = {12, 13, 14}, .reach = 5, .file = u"In_dcvh.bmp"},
    {.types = {12, 13, 14}, .reach = 10000, .file = u"In_dcvh.bmp"},
    {.types = {15, 16, 17, 18}, .reach = 0, .file = u"In_dccl.bmp"},
    {.types = {15, 16, 17, 18}, .reach = 10, .file = u"In_dccl.bmp"},
    {.types = {15, 16, 17, 18}, .reach = 10.01, .file = u"In_dcch.bmp"},
    {.types = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 99}, .reach = 1370, .file = u"In_tc.bmp"},
    {.types = {31, 32, 98}, .reach = 850, .file = u"In_rtd3.bmp"},
    {.types = {51, 97}, .reach = 850, .file = u"In_rtd2.bmp"},
    {.types = {41}, .reach = 100, .file = u"In_pot.bmp"},
    {.types = {-1, 10, 19, 30, 33, 40, 42, 50, 52, 96, 100}, .reach = 5, .file = u""},
};

TEST(UnivPictures, BelongToTheNumberOfTheInputTypeAndTheReachOfItsRange) {
  for (const InputRow& row : kInputs) {
    for (const int type : row.types) {
      EXPECT_EQ(InputPicture(type, row.reach), row.file) << type << " at " << row.reach;
    }
  }
}

TEST(UnivPictures, BelongToTheNumberOfTheOutput) {
  for (const auto& [numbers, file] : std::vector<std::pair<std::vector<int>, StringView>>{
           {{11, 12, 13, 14}, u"Out_v.bmp"}, {{15, 16, 17, 18}, u"Out_c.bmp"}, {{0, 10, 19}, u""}}) {
    for (const int number : numbers) {
      EXPECT_EQ(OutputPicture(number), file) << number;
    }
  }
}

constexpr int kPictureTab = 5;
const String kFolder = u"/korva/system/Univ/";

/// The page with pictures that tell themselves apart, in place of those of this build.
struct PictureBench : UnivBench {
  PictureBench() {
    for (const InputRow& row : kInputs) {
      files.Put(kFolder + String(row.file), "BM " + ToUtf8(row.file));
    }
    for (const StringView file : {u"Out_v.bmp", u"Out_c.bmp"}) {
      files.Put(kFolder + String(file), "BM " + ToUtf8(file));
    }
  }
  void ClickTab(int tab = kPictureTab) {
    Do([&] { Page().Tabs.UserClicks(tab); });
  }
  /// What the images show after a click on their tab.
  std::string ShownInput() {
    ClickTab();
    return ToUtf8(Univ().pictures.ImgInput.FileName());
  }
  std::string ShownOutput() {
    ClickTab();
    return ToUtf8(Univ().pictures.ImgOutput.FileName());
  }
};

TEST(UnivPictures, StandOnTheSixthTab) {
  PictureBench bench;
  for (const char* name : {"ImgInput", "ImgOutput"}) {
    const Control* image = bench.Page().FindControl(name);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(bench.Page().TabOf(*image), kPictureTab);
  }
}

TEST(UnivPictures, ShowEachOfTheTwentyFiveInputs) {
  const std::map<std::string, std::string> pictures = {
      {"0", "tc"},    {"1", "tc"},    {"2", "tc"},    {"3", "tc"},    {"4", "tc"},
      {"5", "tc"},    {"6", "tc"},    {"7", "tc"},    {"8", "tc"},    {"9", "tc"},
      {"99", "tc"},   {"31", "rtd3"}, {"32", "rtd3"}, {"98", "rtd3"}, {"51", "rtd2"},
      {"97", "rtd2"}, {"41", "pot"},  {"11", "dcvh"}, {"12", "dcvh"}, {"13", "dcvh"},
      {"14", "dcvh"}, {"15", "dcch"}, {"16", "dcch"}, {"17", "dcch"}, {"18", "dccl"}};
  ASSERT_EQ(pictures.size(), 25U);
  PictureBench bench;
  const ChoiceList types = bench.Page().Def.ListOf(u"$I10");
  ASSERT_EQ(types.Rows(), 25);
  for (int row = 0; row < types.Rows(); ++row) {
    bench.PickInput(types.Text(row));
    EXPECT_EQ(bench.ShownInput(), "In_" + pictures.at(ToUtf8(types.Code(row))) + ".bmp") << row;
  }
}

TEST(UnivPictures, ShowEachOfTheEightOutputs) {
  PictureBench bench;
  const ChoiceList outputs = bench.Page().Def.ListOf(u"$I11");
  ASSERT_EQ(outputs.Rows(), 8);
  for (int row = 0; row < outputs.Rows(); ++row) {
    bench.PickOutput(outputs.Text(row));
    EXPECT_EQ(bench.ShownOutput(), row < 4 ? "Out_v.bmp" : "Out_c.bmp") << row;
  }
}

TEST(UnivPictures, InputType11WithItem14At0AndItem15At1000ShowsTheLowVoltageAndAt1000Point5TheHighOne) {
  PictureBench bench;
  bench.PickInput(bench.InputText(u"11"));
  bench.Type(u"14", u"0");
  bench.Type(u"15", u"1000");
  EXPECT_EQ(bench.ShownInput(), "In_dcvl.bmp");
  bench.Type(u"15", u"1000.5");
  EXPECT_EQ(bench.ShownInput(), "In_dcvh.bmp");
  bench.Type(u"14", u"-1000.5");
  bench.Type(u"15", u"1000");
  EXPECT_EQ(bench.ShownInput(), "In_dcvh.bmp") << "the larger amount of both ends counts";
}

TEST(UnivPictures, AreReadAnewWithEachClickOnTheirTabAndWithNothingElse) {
  PictureBench bench;
  bench.PickInput(bench.InputText(u"1"));
  bench.ClickTab(1);
  EXPECT_EQ(bench.Univ().pictures.ImgInput.FileName(), u"");
  EXPECT_EQ(bench.ShownInput(), "In_tc.bmp");
  EXPECT_EQ(bench.Univ().pictures.ImgInput.Bytes(), "BM In_tc.bmp");
  bench.files.Put(kFolder + u"In_tc.bmp", "BM mended");
  bench.PickInput(bench.InputText(u"41"));
  EXPECT_EQ(bench.Univ().pictures.ImgInput.FileName(), u"In_tc.bmp") << "until the tab is clicked";
  bench.PickInput(bench.InputText(u"1"));
  bench.ClickTab();
  EXPECT_EQ(bench.Univ().pictures.ImgInput.Bytes(), "BM mended");
}

TEST(UnivPictures, AnEmptySelectionLeavesTheImageAsItIs) {
  PictureBench bench;
  bench.PickInput(bench.InputText(u"1"));
  bench.PickOutput(bench.OutputText(u"15"));
  bench.ClickTab();
  bench.Show(10, u"");
  bench.Show(11, u"");
  EXPECT_EQ(bench.ShownInput(), "In_tc.bmp");
  EXPECT_EQ(bench.ShownOutput(), "Out_c.bmp");
}

TEST(UnivPictures, ATextThatIsNotInTheListClearsTheImage) {
  PictureBench bench;
  bench.PickInput(bench.InputText(u"1"));
  bench.PickOutput(bench.OutputText(u"15"));
  bench.ClickTab();
  bench.Show(10, u"Tc-77:NONE");
  bench.Show(11, u"mV-77:NONE");
  EXPECT_EQ(bench.ShownInput(), "");
  EXPECT_EQ(bench.ShownOutput(), "");
  EXPECT_EQ(bench.Univ().pictures.ImgInput.Bytes(), "");
}

TEST(UnivPictures, ATypeOutsideTheTableClearsTheInputsImageAndAnOutputOutsideItKeepsIts) {
  PictureBench bench;
  bench.PickInput(bench.InputText(u"1"));
  bench.PickOutput(bench.OutputText(u"15"));
  bench.ClickTab();
  bench.Page().Def[u"$I10"].Set(1, 0, u"60");
  bench.Page().Def[u"$I11"].Set(4, 0, u"19");
  EXPECT_EQ(bench.ShownInput(), "");
  EXPECT_EQ(bench.ShownOutput(), "Out_c.bmp");
}

TEST(UnivPictures, AMissingFileLeavesTheImageEmptyWithItsNameAndNothingEnds) {
  PictureBench bench;
  bench.PickInput(bench.InputText(u"1"));
  bench.ClickTab();
  bench.files.Remove(kFolder + u"In_tc.bmp");
  EXPECT_EQ(bench.ShownInput(), "In_tc.bmp");
  EXPECT_EQ(bench.Univ().pictures.ImgInput.Bytes(), "");
  bench.PickInput(bench.InputText(u"41"));
  bench.files.FailReads(MemoryFiles::Fault::NotPermitted);
  EXPECT_EQ(bench.ShownInput(), "In_pot.bmp");
  EXPECT_EQ(bench.Univ().pictures.ImgInput.Bytes(), "");
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_EQ(bench.status, std::nullopt);
}

}  // namespace
}  // namespace korva::test
