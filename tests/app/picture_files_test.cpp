// The pictures that the build draws: each is there, and all show the same device.

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <set>

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
