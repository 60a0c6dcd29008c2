// Each text stands out from what is behind it, and each mark from what is beside it, in light and dark
// colours.

#include "print/contrast.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <set>
#include <span>

#include "accessibility_bench.h"
#include "app/looks.h"
#include "linearizer/linearizer.h"
#include "support/page_parts.h"

namespace korva {

namespace {

using Bench = test::WindowBench;
using test::Colours;
using test::DarkSystem;
using test::OnEachTab;
using test::SeenToDiffer;

/// Letters without grey edges, as long as this lives: each of their pixels has the colour of the text.
class SharpLetters {
 public:
  SharpLetters() {
    QFont font = before_;
    font.setStyleStrategy(QFont::NoAntialias);
    QApplication::setFont(font);
  }
  SharpLetters(const SharpLetters&) = delete;
  SharpLetters& operator=(const SharpLetters&) = delete;
  ~SharpLetters() { QApplication::setFont(before_); }

 private:
  QFont before_ = QApplication::font();
};

/// The contrast of a text with what is right beside its letters, where that is least. 0: there is no text.
double LeastContrast(const QImage& picture) {
  std::map<QRgb, int> counts;
  std::set<std::pair<QRgb, QRgb>> neighbours;
  for (int y = 0; y < picture.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      ++counts[line[x]];
      if (x > 0 && line[x] != line[x - 1]) {
        neighbours.emplace(std::min(line[x], line[x - 1]), std::max(line[x], line[x - 1]));
      }
    }
  }
  if (neighbours.empty()) {
    return 0;
  }
  const auto fewer = [](const auto& one, const auto& other) { return one.second < other.second; };
  const QRgb back = std::max_element(counts.begin(), counts.end(), fewer)->first;
  const auto fainter = [&](const auto& one, const auto& other) {
    return Contrast(QColor(back), QColor(one.first)) < Contrast(QColor(back), QColor(other.first));
  };
  const QRgb text = std::max_element(counts.begin(), counts.end(), fainter)->first;
  double contrast = Contrast(QColor(back), QColor(text));
  for (const auto& [one, other] : neighbours) {
    if (one == text || other == text) {
      contrast = std::min(contrast, Contrast(QColor(one), QColor(other)));
    }
  }
  return contrast;
}

/// Where a widget shows texts: without its edges and signs.
std::vector<QRect> TextAreas(QWidget& widget) {
  const QRect inside = widget.rect().adjusted(5, 4, -5, -4);
  const auto area_of = [](const QString& text, const QRect& area) {
    return text.isEmpty() ? std::vector<QRect>() : std::vector{area};
  };
  if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
    std::vector<QRect> areas;
    for (int tab = 0; tab < bar->count(); ++tab) {
      const int sign = bar->tabIcon(tab).isNull() ? 0 : bar->iconSize().width() + 10;
      areas.push_back(bar->tabRect(tab).adjusted(5 + sign, 5, -5, -4));
    }
    return areas;
  }
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) {
    const QFontMetrics metrics = box->fontMetrics();
    return area_of(box->title(), QRect(0, 1, metrics.horizontalAdvance(box->title()), metrics.ascent()));
  }
  if (const auto* option = qobject_cast<const QRadioButton*>(&widget)) {
    return area_of(option->text(), option->rect().adjusted(20, 2, -2, -2));
  }
  if (const auto* choice = qobject_cast<const QComboBox*>(&widget)) {
    return area_of(choice->currentIndex() < 0 ? choice->placeholderText() : choice->currentText(),
                   inside.adjusted(0, 0, -20, 0));
  }
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    return area_of(label->text(), label->rect());
  }
  if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
    return area_of(field->text() + field->placeholderText(), inside);
  }
  if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
    return area_of(button->text(), inside);
  }
  if (const auto* bar = qobject_cast<const QProgressBar*>(&widget)) {
    return area_of(bar->text(), inside);
  }
  return {};
}

/// The same of the cells that a table or list shows, and of a table's head.
std::vector<QRect> CellAreas(const QAbstractItemView& view) {
  std::vector<QRect> areas;
  for (int row = 0; row < view.model()->rowCount(); ++row) {
    for (int column = 0; column < view.model()->columnCount(); ++column) {
      const QRect cell = view.visualRect(view.model()->index(row, column));
      if (view.viewport()->rect().contains(cell)) {
        areas.push_back(cell.adjusted(2, 2, -2, -2));
      }
    }
  }
  return areas;
}

int ExpectTextsReadable(QWidget& widget, const std::vector<QRect>& areas) {
  const QImage picture = widget.grab().toImage();
  int texts = 0;
  for (const QRect& area : areas) {
    const double contrast = LeastContrast(picture.copy(area.intersected(picture.rect())));
    texts += contrast > 0 ? 1 : 0;
    EXPECT_TRUE(contrast == 0 || contrast >= kTextContrast)
        << widget.objectName().toStdString() << " " << widget.metaObject()->className() << " at " << area.x()
        << " " << area.y() << ": " << contrast;
  }
  return texts;
}

/// All texts that show in an area; how many there are.
int ExpectReadable(const QWidget& area) {
  int texts = 0;
  for (QWidget* widget : area.findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->size().isEmpty()) {
      continue;
    }
    texts += ExpectTextsReadable(*widget, TextAreas(*widget));
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
      texts += ExpectTextsReadable(*view->viewport(), CellAreas(*view));
    }
  }
  return texts;
}

struct ShownState {
  Look look = Look::Normal;
  bool dimmed = false;
  bool disabled = false;
};
constexpr std::array kStates = {
    ShownState{},
    ShownState{.disabled = true},
    ShownState{.look = Look::Bad},
    ShownState{.dimmed = true},
    ShownState{.look = Look::Grey},
    ShownState{.look = Look::Grey, .dimmed = true},
    ShownState{.look = Look::Grey, .disabled = true},
    ShownState{.look = Look::Bad, .dimmed = true},
    ShownState{.look = Look::Bad, .disabled = true},
    ShownState{.look = Look::Highlight},
    ShownState{.look = Look::Highlight, .dimmed = true},
    ShownState{.look = Look::Highlight, .disabled = true},
};

constexpr std::size_t kCommonStates = 3;

void SetState(const Page& page, const ShownState& state) {
  for (Control* control : page.Controls()) {
    if (auto* field = dynamic_cast<TextField*>(control)) {
      field->SetLook(state.look);
      field->SetDimmed(state.dimmed);
    } else if (auto* combo = dynamic_cast<ComboBox*>(control)) {
      combo->SetLook(state.look);
    } else if (auto* label = dynamic_cast<Label*>(control)) {
      label->SetLook(state.look);
    } else if (auto* button = dynamic_cast<Button*>(control)) {
      button->SetPending(state.look == Look::Highlight);
    } else if (auto* bar = dynamic_cast<ProgressBar*>(control)) {
      bar->SetValue(state.look == Look::Normal ? 0.0F : 55.0F);
    } else if (auto* grid = dynamic_cast<Grid*>(control); grid != nullptr && grid->Rows() > 3) {
      grid->SetText(1, grid->Columns() - 1, u"12.5");
      grid->SetLook(1, grid->Columns() - 1, state.look);
      grid->SetText(2, grid->Columns() - 1, u"13.5");
      grid->SetLook(2, grid->Columns() - 1, Look::Selected);
    }
  }
}

struct TextInColours : test::InColours {};
INSTANTIATE_TEST_SUITE_P(Model, TextInColours,
                         testing::Combine(testing::ValuesIn(test::kEachFamily), testing::Bool()),
                         test::NameOfColours);

TEST_P(TextInColours, EachTextStandsOutInEveryState) {
  const Colours colours(std::get<1>(GetParam()));
  const SharpLetters letters;
  Bench bench(std::get<0>(GetParam()));
  bench.Upload();
  QWidget& page = *bench.window.Current();
  const auto* tabs = page.findChild<QTabWidget*>();
  // What a state does is the same on every page; all of them on one page, those that users see most on each.
  const std::span<const ShownState> all(kStates);
  for (const ShownState& state :
       bench.Page().TabWith(TextKey::Filter) >= 0 ? all : all.first(kCommonStates)) {
    SCOPED_TRACE(testing::Message() << "look " << static_cast<int>(state.look)
                                    << (state.dimmed ? " dimmed" : "")
                                    << (state.disabled ? " disabled" : ""));
    SetState(bench.Page(), state);
    int texts = 0;
    OnEachTab(bench, [&] {
      page.setEnabled(!state.disabled);
      texts += ExpectReadable(tabs->currentIndex() == 0 ? page : *tabs->currentWidget());
      page.setEnabled(true);
    });
    EXPECT_GT(texts, 100);
  }
}

/// The colours of a system that hardly lets a disabled text be seen.
QPalette FaintSystem() {
  QPalette palette(QColor(200, 205, 215));
  palette.setColor(QPalette::Base, QColor(235, 235, 225));
  palette.setColor(QPalette::Highlight, QColor(150, 200, 150));
  palette.setColor(QPalette::HighlightedText, QColor(220, 240, 220));
  for (const auto text : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
    palette.setColor(text, QColor(120, 120, 130));
    palette.setColor(QPalette::Disabled, text, QColor(190, 195, 200));
  }
  return palette;
}

struct Pairing {
  QPalette::ColorRole text;
  QPalette::ColorRole back;
};

void ExpectPairs(const QPalette& palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    for (const auto& [text, back] :
         {Pairing{QPalette::Text, QPalette::Base}, Pairing{QPalette::PlaceholderText, QPalette::Base},
          Pairing{QPalette::PlaceholderText, QPalette::Window},
          Pairing{QPalette::WindowText, QPalette::Window}, Pairing{QPalette::ButtonText, QPalette::Button},
          Pairing{QPalette::HighlightedText, QPalette::Highlight},
          Pairing{QPalette::ToolTipText, QPalette::ToolTipBase}}) {
      EXPECT_GE(Contrast(palette.color(group, text), palette.color(group, back)), kTextContrast)
          << "group " << group << ", role " << text << " on " << back;
    }
  }
}

TEST(ContrastTest, EveryLookOfEverySystemsColoursCanBeRead) {
  for (const QPalette& system : {QApplication::palette(), Readable(DarkSystem()), Readable(FaintSystem())}) {
    for (const Look look : {Look::Normal, Look::Grey, Look::Bad, Look::Highlight, Look::Selected}) {
      SCOPED_TRACE(testing::Message() << "look " << static_cast<int>(look));
      const QPalette palette = PaletteOf(look, system);
      ExpectPairs(palette);
      ExpectPairs(Dimmed(palette));
    }
    ExpectPairs(PaletteAtRest(system));
    ExpectPairs(PaletteAtWork(system));
  }
}

TEST(ContrastTest, IsThatOfTheGuidelines) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(Contrast(Qt::white, Qt::white), 1, 0.001);
  EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);  // known as just too faint
  EXPECT_NEAR(Contrast(Qt::red, Qt::white), 4.0, 0.005);
}

TEST(ContrastTest, ADisabledTextIsFainterThanOneThatIsNot) {
  for (const QPalette& system :
       {QApplication::palette(), Readable(DarkSystem().resolve(QApplication::palette()))}) {
    for (const auto& [text, back] :
         {Pairing{QPalette::Text, QPalette::Base}, Pairing{QPalette::WindowText, QPalette::Window},
          Pairing{QPalette::ButtonText, QPalette::Button}}) {
      EXPECT_LT(Contrast(system.color(QPalette::Disabled, text), system.color(QPalette::Disabled, back)),
                0.7 * Contrast(system.color(QPalette::Active, text), system.color(QPalette::Active, back)));
    }
  }
}

TEST(ContrastTest, ColoursThatCanBeReadStayAsTheyAre) {
  const QPalette once = Readable(FaintSystem());
  EXPECT_EQ(Readable(once), once);
  EXPECT_EQ(Distinct(Qt::black, {{.colour = Qt::white, .least = kTextContrast}}), QColor(Qt::black));
}

/// The colour in which most of the pixels are that differ between the pictures.
QColor InkOf(const QImage& without, const QImage& with) {
  std::map<QRgb, int> counts;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) {
      counts[with.pixel(x, y)] += with.pixel(x, y) != without.pixel(x, y) ? 1 : 0;
    }
  }
  const auto most = std::max_element(counts.begin(), counts.end(), [](const auto& one, const auto& other) {
    return one.second < other.second;
  });
  return {most->first};
}

struct MarkTest : testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(Colours, MarkTest, testing::Bool(),
                         [](const auto& one) { return one.param ? "dark" : "light"; });

TEST_P(MarkTest, OfADifferenceIsSeenOnEveryLook) {
  const Colours colours(GetParam());
  Bench bench("QHW");
  bench.Show(1);
  TextField& control = bench.Page().Text[9];
  auto* field = bench.Find<QLineEdit>("Text(9)");
  for (const Look look : {Look::Normal, Look::Grey, Look::Bad, Look::Highlight}) {
    control.SetLook(look);
    control.SetDiffers(false);
    const QImage without = field->grab().toImage();
    control.SetDiffers(true);
    const QColor mark = InkOf(without, field->grab().toImage());
    EXPECT_GE(Contrast(mark, field->palette().color(QPalette::Base)), kMarkContrast)
        << static_cast<int>(look);
    EXPECT_GE(Contrast(mark, QApplication::palette().color(QPalette::Window)), kMarkContrast);
  }
}

TEST_P(MarkTest, OfATextToLookAtIsSeenOnEveryLookAndWhileDisabled) {
  const Colours colours(GetParam());
  Bench bench("QHW");
  bench.Show(1);
  TextField& control = bench.Page().Text[9];
  auto* field = bench.Find<QLineEdit>("Text(9)");
  for (const bool enabled : {true, false}) {
    for (const Look look : {Look::Normal, Look::Grey, Look::Bad, Look::Highlight}) {
      control.SetEnabled(enabled);
      control.SetLook(look);
      control.SetMarked(false);
      const QImage without = field->grab().toImage();
      control.SetMarked(true);
      const QImage with = field->grab().toImage();
      EXPECT_GT(SeenToDiffer(without, with), field->width() / 2) << static_cast<int>(look) << enabled;
    }
  }
}

TEST_P(MarkTest, OfACurvesLineIsSeen) {
  const Colours colours(GetParam());
  Bench bench("QHW");
  Grid& grid = test::Part<Linearizer>(bench.Page()).LnrFlexGrid;
  bench.Show(3);
  auto* curve = bench.window.Current()->findChild<QWidget*>(QStringLiteral("LnrFlexGrid curve"));
  for (const bool enabled : {true, false}) {
    curve->setEnabled(enabled);
    grid.SetText(1, 1, u"");
    const QImage without = curve->grab().toImage();
    grid.SetText(1, 1, u"0");
    grid.SetText(1, 2, u"0");
    grid.SetText(2, 1, u"100");
    grid.SetText(2, 2, u"0");
    const QImage with = curve->grab().toImage();
    EXPECT_GT(SeenToDiffer(without, with), curve->width() / 2) << enabled;
  }
}

TEST_P(MarkTest, TextsOfTheWindowsBesideThePageStandOut) {
  const Colours colours(GetParam());
  const SharpLetters letters;
  Bench bench("QHW");
  test::ReadAll(bench);
  for (SideWindow* window : test::WindowsBeside(bench)) {
    window->Open();
    QCoreApplication::processEvents();  // what is new shows then
    SCOPED_TRACE(window->Name());
    EXPECT_GE(ExpectReadable(*bench.Find<QDialog>(window->Name().c_str())), 3);
  }
}

}  // namespace

}  // namespace korva
