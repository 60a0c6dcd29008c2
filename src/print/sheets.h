#pragma once

#include <QLineF>
#include <QRectF>
#include <QString>
#include <vector>

#include "core/document.h"

class QPainter;

namespace korva {

// A document laid out in pages. All lengths are in points, 1/72 inch, from the upper left corner of what can
// be drawn on.

/// A line of text.
struct SheetText {
  enum class Kind { Body, Head, Margin, Heading, Title };
  Kind kind = Kind::Body;
  QRectF area;         ///< as high as a line of its kind
  QString text;        ///< not wider than the area
  bool right = false;  ///< it stands at the right end of the area
};

struct SheetCurve {
  QRectF area;
  const Curve* curve = nullptr;  ///< of the document
};

/// What stands on a page.
struct Sheet {
  std::vector<QRectF> bands;  ///< behind the heads of tables
  std::vector<QLineF> rules;
  std::vector<SheetText> texts;
  std::vector<SheetCurve> curves;
};

/// The pages of a document that fill `area`, which is at least 200 wide and high. The document outlives them.
///
/// A row of a table stands on one page, as far as one has room for it; a table that goes on has its heads
/// again. Texts that are too long for their column go on in further lines.
std::vector<Sheet> SheetsOf(const Document& document, const QSizeF& area);

/// Draws a page from the painter's origin on, in whose units it is.
void DrawSheet(QPainter& painter, const Sheet& sheet);

}  // namespace korva
