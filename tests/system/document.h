#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

// Reads the pages of docs/, as far as they use Markdown.

/// A heading, a paragraph, an item of a list, a table, a block of code or a picture.
struct DocumentBlock {
  int line = 0;  ///< on which it begins, from 1
  std::string
      form;  ///< all of it that does not depend on the language: "heading 2, 13.", "table 4 x 3", "code ..."
  std::string text;  ///< as it is written, line after line; of a heading without its signs
  bool heading = false;
};

struct Document {
  std::string path;
  std::vector<DocumentBlock> blocks;
};

/// A heading with all that stands below it, up to the next heading of whatever level.
struct DocumentSection {
  std::string heading = {};
  std::string text = {};
};

/// The page at this path; without blocks when it can't be read.
Document ReadDocument(const std::string& path);

std::vector<DocumentSection> SectionsOf(const Document& document);

/// The headings by what a link behind `#` calls them, in their order.
std::vector<std::string> AnchorsOf(const Document& document);

/// Where the links of a text lead, as they are written; pictures are none.
std::vector<std::string> LinksIn(std::string_view text);

/// Its numbers with their signs and decimals; digits of a name, such as `QD2`, are none.
std::set<std::string> NumbersIn(const std::string& text);

/// The longest runs of Japanese letters; with `half_width` those of half-width katakana alone.
std::set<std::string> JapaneseIn(std::string_view text, bool half_width);
