// Which picture of the universal device belongs to an input and to an output.

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "pages/univ_config/pictures.h"

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

}  // namespace
}  // namespace korva::test
