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
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <map>
#include <optional>
#include <ostream>
#include <set>

#include "accessibility_bench.h"
#include "app/field_view.h"
#include "app/looks.h"
#include "dialogs_bench.h"
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
    for (int x = 0, begin = 0; x < picture.width(); begin = x) {
      while (x < picture.width() && line[x] == line[begin]) {
        ++x;
      }
      counts[line[begin]] += x - begin;
      if (x < picture.width()) {
        neighbours.insert(std::minmax(line[begin], line[x]));
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

/// The part of a field in which its text stands, or what is selected of it.
QRect TextOf(const QLineEdit& field, const QRect& inside) {
  QRect area = inside.marginsRemoved(field.textMargins());  // without the sign of a number outside
  if (!field.hasSelectedText()) {
    return area;
  }
  constexpr int gap = 3;
  const int width = std::min(field.fontMetrics().horizontalAdvance(field.text()), area.width()) - 2 * gap;
  const bool right = field.alignment().testFlag(Qt::AlignRight);
  area.setLeft(right ? area.right() - gap - width : area.left() + gap);
  area.setWidth(width);
  return area;
}

/// Where a widget shows texts: without its edges, signs and marks.
std::vector<QRect> TextAreas(QWidget& widget) {
  const QRect inside = widget.rect().adjusted(5, 4, -5, -6);
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
    return area_of(field->text() + field->placeholderText(), TextOf(*field, inside));
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
        areas.push_back(cell.adjusted(5, 2, -2, -6));
      }
    }
  }
  return areas;
}

/// What shows of a widget, with all that stands in it.
struct PictureOfTexts {
  explicit PictureOfTexts(QWidget& widget) : root(widget), picture(widget.grab().toImage()) {}
  /// Texts in these areas of a widget that stands in it; how many there are.
  [[nodiscard]] int ExpectTexts(const QWidget& widget, const std::vector<QRect>& areas) const {
    const QRect whole(widget.mapTo(&root, QPoint()), widget.size());
    int texts = 0;
    for (const QRect& area : areas) {
      const double contrast = LeastContrast(picture.copy(area.translated(whole.topLeft()) & whole));
      texts += contrast > 0 ? 1 : 0;
      EXPECT_TRUE(contrast == 0 || contrast >= kTextContrast)
          << widget.objectName().toStdString() << " " << widget.metaObject()->className() << " at "
          << area.x() << " " << area.y() << ": " << contrast;
    }
    return texts;
  }

  QWidget& root;
  QImage picture;
};

/// All texts that show in an area, besides those in `left_out`; how many there are.
int ExpectReadable(QWidget& area, const QWidget* left_out = nullptr) {
  const PictureOfTexts shown(area);
  int texts = 0;
  for (QWidget* widget : area.findChildren<QWidget*>()) {
    const bool counts = left_out == nullptr || (widget != left_out && !left_out->isAncestorOf(widget));
    if (!counts || !widget->isVisible() || widget->size().isEmpty()) {
      continue;
    }
    texts += shown.ExpectTexts(*widget, TextAreas(*widget));
    if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
      texts += shown.ExpectTexts(*view->viewport(), CellAreas(*view));
    }
  }
  return texts;
}

/// All that stands on the tab in front, whether the window is high enough for it or not.
QWidget& TabInFront(const QWidget& page) {
  return *qobject_cast<QScrollArea*>(page.findChild<QTabWidget*>()->currentWidget())->widget();
}

struct ShownState {
  Look look = Look::Normal;
  bool dimmed = false;
  bool disabled = false;
  bool selected = false;  ///< the texts of the fields
  bool marked = false;    ///< locked, marked to be looked at, outside its limits and different, all at once
};
constexpr std::array kStates = {
    ShownState{},
    ShownState{.disabled = true},
    ShownState{.selected = true},
    ShownState{.marked = true},
    ShownState{.look = Look::Bad},
    ShownState{.look = Look::Bad, .selected = true},
    ShownState{.look = Look::Bad, .marked = true},
    ShownState{.dimmed = true},
    ShownState{.look = Look::Grey},
    ShownState{.look = Look::Grey, .dimmed = true},
    ShownState{.look = Look::Grey, .disabled = true},
    ShownState{.look = Look::Grey, .selected = true, .marked = true},
    ShownState{.look = Look::Bad, .dimmed = true},
    ShownState{.look = Look::Bad, .disabled = true},
    ShownState{.look = Look::Highlight},
    ShownState{.look = Look::Highlight, .dimmed = true},
    ShownState{.look = Look::Highlight, .disabled = true},
    ShownState{.look = Look::Highlight, .selected = true, .marked = true},
};

std::ostream& operator<<(std::ostream& out, const ShownState& state) {
  return out << "look " << static_cast<int>(state.look) << (state.dimmed ? " dimmed" : "")
             << (state.disabled ? " disabled" : "") << (state.selected ? " selected" : "")
             << (state.marked ? " marked" : "");
}

void SetFieldState(TextField& field, const ShownState& state) {
  field.SetLook(state.look);
  field.SetDimmed(state.dimmed);
  field.SetMarked(state.marked);
  field.SetLocked(state.marked);
  field.SetDiffers(state.marked);
}

void SetGridState(Grid& grid, const ShownState& state) {
  if (grid.Rows() > 3) {
    const int column = grid.Columns() - 1;
    grid.SetText(1, column, u"12.5");
    grid.SetLook(1, column, state.look);
    grid.SetMarked(2, column, state.marked);
    grid.ClearDiffers();
    if (state.marked) {
      grid.SetCellDiffers(1, column);
    }
    grid.SetText(2, column, u"13.5");
    grid.SetLook(2, column, Look::Selected);
  }
}

void SetControlState(Control& control, const ShownState& state) {
  if (auto* field = dynamic_cast<TextField*>(&control)) {
    SetFieldState(*field, state);
  } else if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    combo->SetLook(state.look);
    combo->SetDiffers(state.marked);
  } else if (auto* label = dynamic_cast<Label*>(&control)) {
    label->SetLook(state.look);
  } else if (auto* button = dynamic_cast<Button*>(&control)) {
    button->SetPending(state.look == Look::Highlight);
  } else if (auto* bar = dynamic_cast<ProgressBar*>(&control)) {
    bar->SetValue(state.look == Look::Normal ? 0.0F : 55.0F);
  } else if (auto* grid = dynamic_cast<Grid*>(&control)) {
    SetGridState(*grid, state);
  }
}

/// Brings all that shows on a page into a state, as the program or its user would.
void SetState(const Bench& bench, const ShownState& state) {
  for (Control* control : bench.Page().Controls()) {
    SetControlState(*control, state);
  }
  for (auto* field : bench.window.Current()->findChildren<QLineEdit*>()) {
    field->setSelection(0, state.selected ? static_cast<int>(field->text().size()) : 0);
    if (auto* view = dynamic_cast<FieldView*>(field); view != nullptr && state.look != Look::Bad) {
      view->ShowOutside(state.marked);  // the page would judge the number itself
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
  for (const ShownState& state : kStates) {
    SCOPED_TRACE(testing::Message() << state);
    SetState(bench, state);
    int texts = 0;
    OnEachTab(bench, [&] {
      page.setEnabled(!state.disabled);
      QWidget& tab = TabInFront(page);
      texts += ExpectReadable(tab);
      // What stands around the tabs is the same beside each.
      texts += bench.Page().Tabs.Current() == 0 ? ExpectReadable(page, &tab) : 0;
      page.setEnabled(true);
    });
    EXPECT_GT(texts, 100);
  }
}

/// Brings each control of a page into another state, all states side by side; `shift` turns them.
void MixStates(const Bench& bench, std::size_t shift) {
  std::size_t place = shift;
  for (Control* control : bench.Page().Controls()) {
    SetControlState(*control, kStates.at(place++ % kStates.size()));
  }
}

/// The colours of all that stands on a page, in the order in which it was made.
std::vector<std::pair<std::string, QPalette>> PalettesOf(const QWidget& page) {
  std::vector<std::pair<std::string, QPalette>> palettes;
  for (const QWidget* widget : page.findChildren<QWidget*>()) {
    palettes.emplace_back(widget->objectName().toStdString(), widget->palette());
  }
  return palettes;
}

/// The pictures of all tabs of a page.
std::vector<QImage> PicturesOf(Bench& bench) {
  for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
    bench.Page().Tabs.SetTabEnabled(tab, true);
  }
  std::vector<QImage> pictures;
  OnEachTab(bench, [&] { pictures.push_back(bench.window.Current()->grab().toImage()); });
  return pictures;
}

using Palettes = std::vector<std::pair<std::string, QPalette>>;

/// What has other colours than it should.
std::vector<std::string> NamesThatDiffer(const Palettes& wanted, const Palettes& found) {
  std::vector<std::string> names;
  EXPECT_EQ(found.size(), wanted.size());
  for (std::size_t place = 0; place < std::min(found.size(), wanted.size()); ++place) {
    if (found[place] != wanted[place]) {
      names.push_back(found[place].first);
    }
  }
  return names;
}

/// Colours of the system that change while the program runs.
class ChangingColours {
 public:
  void Become(bool dark) {
    colours_.reset();
    colours_.emplace(dark);
    QCoreApplication::processEvents();
  }

 private:
  std::optional<Colours> colours_;
};

// A desktop goes over to its other colours by day and by night.
TEST_P(TextInColours, AChangeOfTheSystemsColoursLeavesNothingInTheFormerOnes) {
  const auto& [model, dark] = GetParam();
  ChangingColours colours;
  colours.Become(dark);
  constexpr std::size_t kShift = 3;  // each page has many controls of a kind
  std::vector<Palettes> palettes;
  std::vector<QImage> pictures;
  {
    Bench bench(model);
    for (std::size_t shift = 0; shift < kStates.size(); shift += kShift) {
      MixStates(bench, shift);
      palettes.push_back(PalettesOf(*bench.window.Current()));
    }
    pictures = PicturesOf(bench);
  }
  colours.Become(!dark);
  Bench bench(model);
  for (std::size_t shift = 0; shift < kStates.size(); shift += kShift) {
    MixStates(bench, shift);
    colours.Become(dark);
    EXPECT_EQ(NamesThatDiffer(palettes[shift / kShift], PalettesOf(*bench.window.Current())),
              std::vector<std::string>())
        << "shift " << shift;
    colours.Become(!dark);
  }
  PicturesOf(bench);  // what is kept of them is of the former colours
  colours.Become(dark);
  const std::vector<QImage> followed = PicturesOf(bench);
  for (std::size_t tab = 0; tab < pictures.size(); ++tab) {
    EXPECT_TRUE(followed.at(tab) == pictures[tab]) << "tab " << tab;
  }
}

struct TextInDialog : test::EachDialog {};
INSTANTIATE_TEST_SUITE_P(Of, TextInDialog,
                         testing::Combine(testing::ValuesIn(test::AllDialogs()), testing::Bool()),
                         test::NameOfDialog);

TEST_P(TextInDialog, StandsOut) {
  const auto& [dialog, dark] = GetParam();
  const Colours colours(dark);
  const SharpLetters letters;
  test::InDialog(dialog, [](QDialog& shown) { EXPECT_GE(ExpectReadable(shown), 2); });
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

TEST_P(MarkTest, OfANumberOutsideItsLimitsIsSeenOnEveryLookAndWhileDisabled) {
  const Colours colours(GetParam());
  Bench bench("QHW");
  bench.Show(1);
  TextField& control = bench.Page().Text[9];
  auto* field = static_cast<FieldView*>(bench.Find<QLineEdit>("Text(9)"));
  const auto picture = [&](bool outside) {
    field->ShowOutside(outside);                                     // the page would judge the number itself
    return field->grab(QRect(6, 0, 16, field->height())).toImage();  // where the sign stands
  };
  control.SetText({});
  for (const bool enabled : {true, false}) {
    for (const Look look : {Look::Normal, Look::Grey, Look::Highlight}) {
      for (const bool dimmed : {false, true}) {
        control.SetEnabled(enabled);
        control.SetLook(look);
        control.SetDimmed(dimmed);
        const QImage without = picture(false);
        // Three strong sides and the exclamation mark of a sign of 13 pixels.
        EXPECT_GE(SeenToDiffer(without, picture(true)), 30)
            << "look " << static_cast<int>(look) << (dimmed ? " dimmed" : "") << (enabled ? "" : " disabled");
      }
    }
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

TEST_P(MarkTest, TextsOfTheWindowThatStandsWhileADeviceRestartsStandOut) {
  const Colours colours(GetParam());
  const SharpLetters letters;
  Bench bench("Z2WU");
  bench.Show(5);
  int texts = 0;
  bench.device.loop.After(std::chrono::milliseconds(2600), [&] {
    QCoreApplication::processEvents();
    texts = ExpectReadable(*bench.Find<QDialog>("frmWaiting"));
  });
  bench.Press("cmdResetModbus");
  EXPECT_EQ(texts, 2);  // its words and those of its bar
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
