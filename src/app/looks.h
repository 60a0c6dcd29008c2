#pragma once

#include <QPainter>
#include <QPalette>
#include <QWidget>
#include <functional>

#include "core/control.h"

namespace korva {

/// Gives a widget the palette that `colours` makes of the system's one, now and whenever that changes. Unset,
/// it is the system's own again.
void ShowColours(QWidget* widget, std::function<QPalette(const QPalette& system)> colours);

/// The palette of a field or label in a look: a pair of the system's own colours, light or dark.
QPalette PaletteOf(Look look, const QPalette& system);
/// A field's palette while its value is not read at present.
QPalette Dimmed(const QPalette& palette);
/// The palette of something that has nothing to tell at present.
QPalette PaletteAtRest(const QPalette& system);
/// The palette of a progress bar that shows how far something is.
QPalette PaletteAtWork(const QPalette& system);
/// Width of `count` digits in the widget's font, in pixels.
int Digits(const QWidget* widget, int count);

/// Width of the bar that marks a value which differs from what the page was compared with, in pixels.
inline constexpr int kDifferenceMark = 4;

/// Strength of the frame around what has the keyboard, in pixels.
inline constexpr int kFocusFrame = 2;
/// Draws the frame of what has the keyboard along the inner edge of `area`, in a colour that is seen on
/// `back`.
void DrawFocusFrame(QPainter& painter, const QRect& area, const QColor& back);

/// Draws the mark of a text that the user should look at: a faint wave along the lower edge of `area`.
void DrawMark(QPainter& painter, const QRect& area, const QColor& colour);
/// Draws the sign of a value that lies outside its limits: a triangle with an exclamation mark that fills
/// `area`, which is a square.
void DrawWarningSign(QPainter& painter, const QRect& area, const QColor& colour);

}  // namespace korva
