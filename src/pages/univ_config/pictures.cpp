#include "pages/univ_config/pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

#include "core/numbers.h"
#include "core/program.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr std::size_t kMostPictureBytes = 16U << 20U;
constexpr double kAny = std::numeric_limits<double>::infinity();

/// The type numbers `first` to `last` up to a reach have this picture. The first row that fits counts.
struct PictureRow {
  int first;
  int last;
  double most_reach = kAny;
  StringView file;
};
constexpr auto kInputPictures = std::to_array<PictureRow>({
    {.first = 0, .last = 9, .file = u"In_tc.bmp"},
    {.first = 11, .last = 11, .most_reach = 1000, .file = u"In_dcvl.bmp"},
    {.first = 11, .last = 14, .file = u"In_dcvh.bmp"},
    {.first = 15, .last = 18, .most_reach = 10, .file = u"In_dccl.bmp"},
    {.first = 15, .last = 18, .file = u"In_dcch.bmp"},
    {.first = 31, .last = 32, .file = u"In_rtd3.bmp"},
    {.first = 41, .last = 41, .file = u"In_pot.bmp"},
    {.first = 51, .last = 51, .file = u"In_rtd2.bmp"},
    {.first = 97, .last = 97, .file = u"In_rtd2.bmp"},
    {.first = 98, .last = 98, .file = u"In_rtd3.bmp"},
    {.first = 99, .last = 99, .file = u"In_tc.bmp"},
});
constexpr auto kOutputPictures = std::to_array<PictureRow>({
    {.first = 11, .last = 14, .file = u"Out_v.bmp"},
    {.first = 15, .last = 18, .file = u"Out_c.bmp"},
});

StringView FileOf(std::span<const PictureRow> rows, int number, double reach) {
  const auto row = std::find_if(rows.begin(), rows.end(), [number, reach](const PictureRow& one) {
    return number >= one.first && number <= one.last && reach <= one.most_reach;
  });
  return row == rows.end() ? StringView() : row->file;
}

}  // namespace

StringView InputPicture(int type, double reach) { return FileOf(kInputPictures, type, reach); }
StringView OutputPicture(int number) { return FileOf(kOutputPictures, number, 0); }

UnivPictures::UnivPictures(ParameterPage& page) : page_(page) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&ImgInput, &ImgOutput});
}

void UnivPictures::TabClicked(int tab) {
  if (tab == page_.TabWith(TextKey::DipSwitch)) {
    ShowInput();
    ShowOutput();
  }
}

void UnivPictures::ShowInput() {
  const String& input = page_.Item(kTypeItem);
  if (input.empty()) {
    return;
  }
  const ChoiceList types = page_.Def.ListOf(u"$I10");
  const int row = types.FindText(input);
  const auto end = [this](int item) { return std::abs(LeadingNumber(page_.Item(item))); };
  Load(ImgInput,
       row < 0 ? StringView()
               : InputPicture(LeadingInteger(types.Code(row)), std::max(end(kZeroItem), end(kSpanItem))));
}

void UnivPictures::ShowOutput() {
  const String& output = page_.Item(kRangeItem);
  if (output.empty()) {
    return;
  }
  const ChoiceList outputs = page_.Def.ListOf(u"$I11");
  const int row = outputs.FindText(output);
  const StringView file = row < 0 ? StringView() : OutputPicture(LeadingInteger(outputs.Code(row)));
  if (row < 0 || !file.empty()) {
    Load(ImgOutput, file);
  }
}

void UnivPictures::Load(Picture& picture, StringView file) const {
  if (file.empty()) {
    picture.Clear();
    return;
  }
  const Program& program = page_.ItsProgram();
  const String folder = program.Join(program.Join(page_.AppPath, u"system"), page_.ItsFamily().folder);
  SystemReason why;  // the file's name in the picture's place tells enough
  picture.Show(String(file), program.Surroundings()
                                 .files.Read(program.Join(folder, file), kMostPictureBytes, why)
                                 .value_or(std::string()));
}

}  // namespace korva
