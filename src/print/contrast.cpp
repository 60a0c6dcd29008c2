#include "print/contrast.h"

#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <span>

namespace korva {

namespace {

constexpr int kSteps = 100;  ///< from a colour to black or white
// What a button or tab shades off into, in percent as QColor counts.
constexpr int kDarkestShade = 116;
constexpr int kLightestShade = 138;
constexpr int kBoxShade = 103;  ///< what a box lays over the window, likewise

/// A part of a colour as light, from 0 to 1.
double Linear(double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); }

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

/// What is seen of a colour that lets `back` through.
QColor Opaque(const QColor& colour, const QColor& back) { return Mix(back, colour, colour.alphaF()); }

/// At least 1 where `colour` has its contrast to all of them.
double Share(const QColor& colour, std::span<const Beside> others) {
  double least = kSteps;
  for (const Beside& other : others) {
    least = std::min(least, Contrast(colour, other.colour) / other.least);
  }
  return least;
}

/// What is nearest to `colour` of the colours with the best share, which needs be no more than 1.
QColor Nearest(const QColor& colour, std::span<const Beside> others) {
  QColor best = colour;
  double share = Share(colour, others);
  for (int step = 1; step <= kSteps && share < 1; ++step) {
    for (const QColor& end : {QColor(Qt::black), QColor(Qt::white)}) {
      const QColor mixed = Mix(colour, end, static_cast<double>(step) / kSteps);
      if (const double other = Share(mixed, others); share < 1 && other > share) {
        share = other;
        best = mixed;
      }
    }
  }
  return best;
}

void MakeReadable(QPalette& palette, QPalette::ColorGroup group) {
  const auto colour = [&](QPalette::ColorRole role) { return palette.color(group, role); };
  const QColor base = colour(QPalette::Base);
  const QColor window = colour(QPalette::Window);
  const QColor button = colour(QPalette::Button);
  const auto strengthen = [&](QPalette::ColorRole role, const QColor& back, const QColor& other) {
    palette.setColor(group, role,
                     Distinct(Opaque(colour(role), back), {{.colour = back, .least = kTextContrast},
                                                           {.colour = other, .least = kTextContrast}}));
  };
  strengthen(QPalette::Text, base, window);
  // Of fields, and of the numbers that stand beside them in boxes.
  strengthen(QPalette::PlaceholderText, base, window);
  strengthen(QPalette::PlaceholderText, base, window.darker(kBoxShade));
  strengthen(QPalette::WindowText, window.lighter(kLightestShade), window.darker(kDarkestShade));
  strengthen(QPalette::ButtonText, button.lighter(kLightestShade), button.darker(kDarkestShade));
  strengthen(QPalette::ToolTipText, colour(QPalette::ToolTipBase), colour(QPalette::ToolTipBase));
  palette.setColor(group, QPalette::Highlight,
                   Distinct(colour(QPalette::Highlight),
                            {{.colour = colour(QPalette::HighlightedText), .least = kTextContrast},
                             {.colour = base, .least = kMarkContrast}}));
}

}  // namespace

QColor Mix(const QColor& from, const QColor& to, double share) {
  const auto part = [share](int one, int other) {
    return static_cast<int>(std::lround(one + (other - one) * share));
  };
  return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

double Contrast(const QColor& one, const QColor& other) {
  constexpr double flare = 0.05;
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + flare) / (dark + flare);
}

QColor Distinct(const QColor& colour, std::initializer_list<Beside> others) {
  std::span<const Beside> wanted(others.begin(), others.size());
  QColor found = Nearest(colour, wanted);
  while (wanted.size() > 1 && Share(found, wanted) < 1) {
    wanted = wanted.first(wanted.size() - 1);
    found = Nearest(colour, wanted);
  }
  return found;
}

QPalette Readable(const QPalette& system) {
  QPalette palette = system;
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    MakeReadable(palette, group);
  }
  return palette;
}

QColor MarkColour(const QColor& back) {
  const QPalette palette = QGuiApplication::palette();
  return Distinct(palette.color(QPalette::Active, QPalette::Highlight),
                  {{.colour = back}, {.colour = palette.color(QPalette::Active, QPalette::Window)}});
}

}  // namespace korva
