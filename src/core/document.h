#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/curve.h"
#include "platform/string.h"

namespace korva {

/// A column of a document's table.
struct DocumentColumn {
  String head;
  int share = 1;        ///< of the width, against those of the other columns, 1 to 100
  bool number = false;  ///< it is as wide as its cells, which stand right-aligned, whatever its share
  bool operator==(const DocumentColumn&) const = default;
};

/// A table of a document, with a heading above. One with columns of numbers alone stands beside itself as
/// often as there is room, so that many short rows take few pages.
struct DocumentTable {
  String heading;
  std::vector<DocumentColumn> columns;
  std::vector<std::vector<String>> rows;  ///< each has as many cells as there are columns
  std::optional<Curve> curve = {};        ///< drawn above it
  bool operator==(const DocumentTable&) const = default;
};

/// A document for paper: what stands on it, and nothing of how it is drawn.
struct Document {
  String title;        ///< heads the first page
  String header;       ///< stands at the top of each page
  String footer;       ///< stands at the bottom of each page
  String page_number;  ///< (page, of pages) the same, at the right end
  std::vector<std::pair<String, String>>
      facts;  ///< below the title: what, and its text in any number of lines
  std::vector<DocumentTable> tables;
  bool operator==(const Document&) const = default;
};

/// The document in a plain form, by which one program hands it to another: lines of UTF-8, each a word and
/// cells with TABs between.
std::string PlainForm(const Document& document);
/// The document of a plain form; nothing when the bytes are none, or are not all that there were.
std::optional<Document> DocumentOf(std::string_view plain);

}  // namespace korva
