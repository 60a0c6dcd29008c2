// What the window makes of the controls' states: disabled ones look alike, numbers stand right, bars are
// quiet.

#include "app/looks.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>

#include "linearizer/linearizer.h"
#include "support/page_parts.h"
#include "window_bench.h"

namespace korva {

namespace {

using Bench = test::WindowBench;

TEST(LooksTest, DisabledFieldsLookAlikeWhateverTheyHold) {
  const QPalette system = QApplication::palette();
  for (const Look look : {Look::Normal, Look::Grey}) {
    const QPalette palette = PaletteOf(look, system);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
      EXPECT_EQ(palette.color(QPalette::Disabled, role), system.color(QPalette::Disabled, role));
    }
  }
  EXPECT_EQ(PaletteOf(Look::Bad, system).color(QPalette::Disabled, QPalette::Base),
            system.color(QPalette::Text));
}

TEST(LooksTest, PlainCellsOfATableHaveNoColoursThatHideThatItIsDisabled) {
  Bench bench("QHW");
  const auto* table = bench.Find<QTableView>("LnrFlexGrid");
  const auto brush = [&](int role) { return table->model()->index(1, 1).data(role).value<QBrush>(); };
  EXPECT_EQ(brush(Qt::ForegroundRole).style(), Qt::NoBrush);
  EXPECT_EQ(brush(Qt::BackgroundRole).style(), Qt::NoBrush);
  test::Part<Linearizer>(bench.Page()).LnrFlexGrid.SetLook(1, 1, Look::Bad);
  EXPECT_NE(brush(Qt::BackgroundRole).style(), Qt::NoBrush);
}

TEST(LooksTest, NumbersStandRightAndWordsLeft) {
  Bench bench("QHW");
  for (const char* name : {"Text(9)", "Text(4)", "txtLnrNewValue"}) {
    EXPECT_EQ(bench.Find<QLineEdit>(name)->alignment(), Qt::AlignRight | Qt::AlignVCenter) << name;
  }
  for (const char* name : {"Text(0)", "txtAuthor", "txtDirName"}) {
    EXPECT_EQ(bench.Find<QLineEdit>(name)->alignment(), Qt::AlignLeft | Qt::AlignVCenter) << name;
  }
}

TEST(LooksTest, ABarTellsItsCaptionAndAtWorkHowFarItIs) {
  Bench bench("QHW");
  const auto* bar = bench.Find<QProgressBar>("ProgressBar");
  EXPECT_EQ(bar->text(), QStringLiteral("設定値"));
  EXPECT_EQ(bench.Find<QProgressBar>("LnrProgressBar")->text(), QStringLiteral("ﾘﾆｱﾗｲｻﾞ"));
  const QColor quiet = bar->palette().color(QPalette::Active, QPalette::Text);
  EXPECT_EQ(quiet, QApplication::palette().color(QPalette::Disabled, QPalette::PlaceholderText));
  bench.Page().TransferBar.SetValue(40);
  EXPECT_EQ(bar->text(), QStringLiteral("設定値  40%"));
  EXPECT_NE(bar->palette().color(QPalette::Active, QPalette::Text), quiet);
  bench.Page().TransferBar.SetValue(0);
  EXPECT_EQ(bar->text(), QStringLiteral("設定値"));
}

struct SetButtonTest : testing::TestWithParam<std::tuple<const char*, const char*, const char*>> {};
INSTANTIATE_TEST_SUITE_P(
    Each, SetButtonTest,
    testing::Values(std::tuple("QN", "cmdSet", "03_set"), std::tuple("QEY", "cmdSet", "03_set"),
                    std::tuple("QEC2", "cmdSet", "03_set"), std::tuple("QEC2", "cmdSet2", "04_set"),
                    std::tuple("QCB2", "cmdSet3", "06_set")),
    [](const auto& one) { return std::string(std::get<0>(one.param)) + "_" + std::get<1>(one.param); });

TEST_P(SetButtonTest, StandsInTheLineOfItsField) {
  const auto& [model, button_name, item] = GetParam();
  Bench bench(model);
  bench.Show(bench.Page().TabWith(TextKey::IoCheck));
  const TextField* field = bench.Page().FindField(FromQt(QString::fromLatin1(item)));
  ASSERT_NE(field, nullptr);
  const QWidget* view = bench.window.Current();
  const auto* button = view->findChild<QWidget*>(QString::fromLatin1(button_name));
  const auto* box = view->findChild<QWidget*>(QString::fromStdString(field->FullName()));
  ASSERT_TRUE(button->isVisible() && box->isVisible());
  const QRect button_area(button->mapTo(view, QPoint()), button->size());
  const QRect box_area(box->mapTo(view, QPoint()), box->size());
  EXPECT_GT(button_area.left(), box_area.right());
  EXPECT_LE(std::abs(button_area.center().y() - box_area.center().y()), 3);
}

}  // namespace

}  // namespace korva
