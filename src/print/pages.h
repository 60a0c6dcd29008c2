#pragma once

#include <string>

#include "core/document.h"

class QPagedPaintDevice;

namespace korva {

/// Draws the document on the pages of a device, those of its page ranges alone where it has some. False when
/// the device can't be drawn on.
bool DrawPages(const Document& document, QPagedPaintDevice& device);

/// The document as a PDF file of A4 pages; empty when that failed.
std::string PdfBytes(const Document& document);

}  // namespace korva
