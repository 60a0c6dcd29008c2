#include "print/pages.h"

#include <QBuffer>
#include <QPageRanges>
#include <QPainter>
#include <QPdfWriter>

#include "print/sheets.h"

namespace korva {

namespace {

constexpr double kPointsAnInch = 72;
constexpr int kResolution = 600;  // dots an inch
/// The left one has room for the holes of a file.
constexpr QMarginsF kPdfMargins(20, 12, 12, 12);  // mm

}  // namespace

bool DrawPages(const Document& document, QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) {
    return false;
  }
  const double scale = device.logicalDpiX() / kPointsAnInch;
  const std::vector<Sheet> sheets = SheetsOf(document, QSizeF(device.width(), device.height()) / scale);
  const QPageRanges ranges = device.pageRanges();
  painter.scale(scale, scale);
  bool begun = false;
  for (std::size_t page = 0; page < sheets.size(); ++page) {
    if (!ranges.isEmpty() && !ranges.contains(static_cast<int>(page) + 1)) {
      continue;
    }
    if (begun && !device.newPage()) {
      return false;
    }
    begun = true;
    DrawSheet(painter, sheets[page]);
  }
  return painter.end();
}

std::string PdfBytes(const Document& document) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(kResolution);
  writer.setPageLayout(
      {QPageSize(QPageSize::A4), QPageLayout::Portrait, kPdfMargins, QPageLayout::Millimeter});
  writer.setTitle(QString::fromStdU16String(document.header));
  writer.setCreator(QStringLiteral("KORVA"));
  return DrawPages(document, writer) ? bytes.toStdString() : std::string();
}

}  // namespace korva
