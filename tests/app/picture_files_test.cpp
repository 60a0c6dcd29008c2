// The pictures that the build draws: each is there, and all show the same device.

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <algorithm>
#include <optional>
#include <set>
#include <vector>

#include "app/picture_view.h"
#include "app/text.h"
#include "pages/univ_config/pictures.h"

namespace korva {

namespace {

constexpr QRect kOtherTerminals(580, 340, 250, 90);  ///< 5 and 6, which no picture wires

/// Names of all pictures that an input or output may have.
std::set<String> Files() {
  std::set<String> files;
  for (int number = 0; number < 100; ++number) {
    for (const StringView file :
         {InputPicture(number, 0), InputPicture(number, 1e6), OutputPicture(number)}) {
      if (!file.empty()) {
        files.emplace(file);
      }
    }
  }
  return files;
}

QImage ImageOf(const String& name) {
  QFile file(QStringLiteral(KORVA_HOME "/system/Univ/") + ToQt(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << ToQt(name).toStdString();
  Picture picture("ImgInput");
  picture.Show(name, file.readAll().toStdString());
  PictureView view(picture, nullptr);
  view.Show();
  EXPECT_EQ(view.sizeHint(), QSize(440 + 2, 500 + 2));
  return view.Shown();
}

TEST(PictureFilesTest, AreTenDrawingsOfDoubleResolutionOnWhitePaper) {
  ASSERT_EQ(Files().size(), 10U);
  for (const String& name : Files()) {
    const QImage image = ImageOf(name);
    EXPECT_EQ(image.size(), QSize(880, 1000));
    EXPECT_GT(image.colorCount(), 0);
    EXPECT_EQ(image.pixel(0, 0), qRgb(255, 255, 255));
  }
}

/// What a picture shows: the terminals that are wired or bridged, and the switches that are ON.
struct Drawn {
  const char16_t* file;
  std::set<int> terminals;
  std::set<int> input_switches;   ///< of SW1; empty: the picture leaves the block open
  std::set<int> output_switches;  ///< of SW2, the same
};
const std::vector<Drawn> kDrawn = {
    {u"In_dcvl.bmp", {1, 2}, {1}, {}},        {u"In_dcvh.bmp", {1, 2}, {2}, {}},
    {u"In_dccl.bmp", {1, 2, 3}, {1, 3}, {}},  {u"In_dcch.bmp", {1, 2, 3}, {1, 4}, {}},
    {u"In_tc.bmp", {1, 2, 3, 4}, {1, 7}, {}}, {u"In_rtd3.bmp", {1, 2, 3}, {1, 5, 6}, {}},
    {u"In_rtd2.bmp", {1, 2, 3}, {1, 5}, {}},  {u"In_pot.bmp", {1, 2, 3}, {5, 8}, {}},
    {u"Out_v.bmp", {7, 8}, {}, {1, 2}},       {u"Out_c.bmp", {7, 8}, {}, {3, 4}},
};
constexpr int kPerRow = 6;  ///< terminals

/// Where a terminal's ring stands, in the picture's own dots.
QPoint RingOf(int terminal) {
  const bool upper = terminal <= kPerRow;
  return {2 * (55 + 66 * ((terminal - 1) % kPerRow)) + 27, 2 * (upper ? 178 : 369)};
}

/// True when the lever of a switch stands at ON; nothing when the block has no levers. Its place counts
/// from 1.
std::optional<bool> IsOn(const QImage& image, int block, int place) {
  const int middle = 2 * (block + 25 * (place - 1)) + 25;
  const auto has_lever = [&](int y) { return qGray(image.pixel(middle, 2 * y)) < 40; };
  EXPECT_FALSE(has_lever(266) && has_lever(283));
  return has_lever(266) || has_lever(283) ? std::optional(has_lever(266)) : std::nullopt;
}

void ExpectSwitches(const QImage& image, int block, int count, const std::set<int>& on) {
  for (int place = 1; place <= count; ++place) {
    EXPECT_EQ(IsOn(image, block, place), on.empty() ? std::nullopt : std::optional(on.contains(place)))
        << "switch " << place;
  }
}

TEST(PictureFilesTest, WireTheTerminalsAndSetTheSwitchesOfTheirInputOrOutput) {
  for (const Drawn& drawn : kDrawn) {
    SCOPED_TRACE(QString::fromUtf16(drawn.file).toStdString());
    const QImage image = ImageOf(drawn.file);
    for (int terminal = 1; terminal <= 2 * kPerRow; ++terminal) {
      const QColor ring(image.pixel(RingOf(terminal)));
      EXPECT_EQ(ring.blue() > ring.red() + 100, drawn.terminals.contains(terminal))
          << "terminal " << terminal;
    }
    ExpectSwitches(image, 34, 8, drawn.input_switches);
    ExpectSwitches(image, 304, 4, drawn.output_switches);
  }
}

TEST(PictureFilesTest, ShowTheSameDeviceWiredAndSwitchedInAWayOfItsOwn) {
  const auto pixels = [](const QImage& image) { return image.convertToFormat(QImage::Format_RGB32); };
  const QImage device = pixels(ImageOf(u"In_tc.bmp"));
  std::vector<QImage> seen;
  for (const String& name : Files()) {
    const QImage image = pixels(ImageOf(name));
    EXPECT_EQ(image.copy(kOtherTerminals), device.copy(kOtherTerminals)) << ToQt(name).toStdString();
    EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0) << ToQt(name).toStdString();
    seen.push_back(image);
  }
}

}  // namespace

}  // namespace korva
