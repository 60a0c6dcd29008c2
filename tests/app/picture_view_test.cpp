// A picture on the screen: its size, its colours on a light and on a dark window, and what stands there
// without it.

#include "app/picture_view.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QTabBar>
#include <utility>

#include "app/control_views.h"
#include "paint_count.h"
#include "platform/virtual/virtual_event_loop.h"
#include "window_bench.h"

namespace korva {

namespace {

constexpr int kDotsPerMetreOfDoubleScale = 7559;  // 192 dots per inch
constexpr int kDotsPerMetreOfPrint = 2835;        // 72 dots per inch

std::string BytesOf(const QImage& image, const char* format = "BMP") {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, format);
  return bytes.toStdString();
}

/// Paper with a black and a red dot, at double scale: an image with a table of colours.
QImage Drawing() {
  QImage drawing(20, 12, QImage::Format_Indexed8);
  drawing.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0), qRgb(160, 0, 0)});
  drawing.fill(0);
  drawing.setPixel(1, 0, 1);
  drawing.setPixel(2, 0, 2);
  drawing.setDotsPerMeterX(kDotsPerMetreOfDoubleScale);
  drawing.setDotsPerMeterY(kDotsPerMetreOfDoubleScale);
  return drawing;
}

struct PictureBench {
  PictureBench() { view.resize(view.sizeHint()); }
  QWidget& Made() { return *views.Make(picture, &window); }

  QWidget window;
  VirtualEventLoop loop;
  ControlViews views{loop.Gate()};
  Picture picture{"ImgInput"};
  PictureView& view = dynamic_cast<PictureView&>(Made());
};

QPalette DarkPalette() {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 34));
  dark.setColor(QPalette::Text, QColor(240, 240, 240));
  return dark;
}

TEST(PictureViewTest, HasTheNameOfItsControl) {
  const PictureBench bench;
  EXPECT_EQ(bench.view.objectName(), "ImgInput");
}

TEST(PictureViewTest, IsAsLargeAsTheFileSaysWhateverTheNumberOfItsDots) {
  PictureBench bench;
  QImage drawing = Drawing();
  bench.picture.Show(u"In_tc.bmp", BytesOf(drawing));
  EXPECT_EQ(bench.view.sizeHint(), QSize(10 + 2, 6 + 2));
  drawing.setDotsPerMeterX(kDotsPerMetreOfPrint);
  drawing.setDotsPerMeterY(kDotsPerMetreOfPrint);
  bench.picture.Show(u"In_tc.bmp", BytesOf(drawing));
  EXPECT_EQ(bench.view.sizeHint(), QSize(20 + 2, 12 + 2)) << "a picture is never blown up";
}

TEST(PictureViewTest, OnALightWindowADrawingHasItsOwnColours) {
  PictureBench bench;
  bench.picture.Show(u"In_tc.bmp", BytesOf(Drawing()));
  QPalette cream = bench.view.palette();
  cream.setColor(QPalette::Base, QColor(250, 250, 230));
  cream.setColor(QPalette::Text, QColor(60, 60, 60));
  for (const QPalette& light : {bench.view.palette(), cream}) {
    bench.view.setPalette(light);
    EXPECT_EQ(bench.view.Shown().pixel(0, 0), qRgb(255, 255, 255));
    EXPECT_EQ(bench.view.Shown().pixel(1, 0), qRgb(0, 0, 0));
    EXPECT_EQ(bench.view.Shown().pixel(2, 0), qRgb(160, 0, 0));
  }
}

TEST(PictureViewTest, OnADarkWindowItsPaperIsDarkItsInkLightAndRedStaysRed) {
  PictureBench bench;
  bench.picture.Show(u"In_tc.bmp", BytesOf(Drawing()));
  bench.view.setPalette(DarkPalette());
  EXPECT_EQ(bench.view.Shown().pixel(0, 0), qRgb(30, 30, 34));
  EXPECT_EQ(bench.view.Shown().pixel(1, 0), qRgb(240, 240, 240));
  const QColor red(bench.view.Shown().pixel(2, 0));
  EXPECT_EQ(red.hslHue(), 0);
  EXPECT_GT(red.lightness(), QColor(160, 0, 0).lightness());
}

TEST(PictureViewTest, APhotographIsShownAsItIs) {
  PictureBench bench;
  QImage photograph(4, 4, QImage::Format_RGB32);
  photograph.fill(qRgb(10, 20, 30));
  bench.picture.Show(u"In_tc.bmp", BytesOf(photograph));
  bench.view.setPalette(DarkPalette());
  EXPECT_EQ(bench.view.Shown().pixel(0, 0), qRgb(10, 20, 30));
}

TEST(PictureViewTest, AMissingOrBrokenFileLeavesAnEmptySheetWithItsName) {
  PictureBench bench;
  const QSize empty = bench.view.sizeHint();
  bench.view.resize(empty);
  const QImage without_name = bench.view.grab().toImage();
  const std::string whole = BytesOf(Drawing());
  for (const std::string& bytes :
       {std::string(), std::string("BM"), whole.substr(0, 30), whole.substr(0, whole.size() - 1),
        whole.substr(0, whole.size() - 100), BytesOf(Drawing(), "PNG")}) {
    bench.picture.Show(u"In_tc.bmp", bytes);
    EXPECT_TRUE(bench.view.Shown().isNull());
    EXPECT_EQ(bench.view.sizeHint(), empty);
    EXPECT_NE(bench.view.grab().toImage(), without_name);
    EXPECT_EQ(bench.view.accessibleDescription(), "In_tc.bmp");
  }
  bench.picture.Clear();
  EXPECT_EQ(bench.view.grab().toImage(), without_name);
}

TEST(PictureViewTest, FollowsTheWindowFromLightToDark) {
  PictureBench bench;
  QImage paper(40, 40, QImage::Format_Indexed8);
  paper.setColorTable({qRgb(255, 255, 255)});
  paper.fill(0);
  bench.picture.Show(u"In_tc.bmp", BytesOf(paper));
  bench.view.resize(bench.view.sizeHint());
  EXPECT_EQ(bench.view.grab().toImage().pixel(5, 5), qRgb(255, 255, 255));
  bench.view.setPalette(DarkPalette());
  EXPECT_EQ(bench.view.grab().toImage().pixel(5, 5), qRgb(30, 30, 34));
}

TEST(PictureViewTest, APictureThatIsReadAgainUnchangedIsNotPainted) {
  PictureBench bench;
  bench.window.show();
  EXPECT_TRUE(QTest::qWaitForWindowExposed(&bench.window));
  PaintCount paints(&bench.view);
  const auto painted_by = [&](const std::string& bytes) {
    bench.picture.Show(u"In_tc.bmp", bytes);
    QCoreApplication::processEvents();
    return std::exchange(paints.count, 0);
  };
  EXPECT_GT(painted_by(BytesOf(Drawing())), 0);
  EXPECT_EQ(painted_by(BytesOf(Drawing())), 0);
}

TEST(PictureViewTest, AClickOnTheirTabReadsThePicturesAlsoWhenItIsInFront) {
  test::WindowBench bench("QXI");
  const auto* image = bench.Find<QWidget>("ImgInput");
  auto* bar = bench.window.Current()->findChild<QTabBar*>();  // behind it is the page of the start
  const auto shown_after_click = [&](const char16_t* input) {
    bench.Page().SetItem(10, input);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(5).center());
    return image->accessibleDescription().toStdString();
  };
  EXPECT_EQ(shown_after_click(u"Tc-2:K(CA)"), "In_tc.bmp");
  EXPECT_EQ(bench.Page().Tabs.Current(), 5);
  EXPECT_EQ(shown_after_click(u"POT:RATIO"), "In_pot.bmp");
}

}  // namespace

}  // namespace korva
