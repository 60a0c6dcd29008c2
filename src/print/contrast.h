#pragma once

#include <QColor>
#include <QPalette>
#include <initializer_list>

namespace korva {

inline constexpr double kTextContrast = 4.5;  ///< what a text needs to be read by weak eyes
inline constexpr double kMarkContrast = 3;    ///< what a line or a dot needs to be seen

/// The colour with `share` (0 to 1) of the way from one opaque colour to another behind it.
QColor Mix(const QColor& from, const QColor& to, double share);

/// The contrast of two opaque colours by their relative luminance, from 1 (none) to 21 (black on white).
double Contrast(const QColor& one, const QColor& other);

/// A colour beside which another one is seen, and the least contrast that it takes.
struct Beside {
  QColor colour;
  double least = kMarkContrast;
};
/// `colour`, or what is nearest to it on the way to black or white, that has its contrast to each of
/// `others`. Where none has, the last of them is left out, and so on; to the first it has at least what comes
/// closest. All are opaque.
QColor Distinct(const QColor& colour, std::initializer_list<Beside> others);

/// The system's colours, where a text of them is too faint made as strong as it takes: the disabled ones
/// first of all, which stay fainter than the others.
QPalette Readable(const QPalette& system);

/// The colour of a mark that is seen by its colour alone, such as the keyboard's frame, on `back` and on the
/// window.
QColor MarkColour(const QColor& back);

}  // namespace korva
