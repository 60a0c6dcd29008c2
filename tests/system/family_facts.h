#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Columns of $Data that mean the same in every family.
enum Column : std::size_t {
  kGroup = 0,
  kItem = 1,
  kNumber = 2,
  kNumberText = 3,
  kUploaded = 4,
  kOnPage = 5,
  kLabel = 6,
  kCaption = 7,
  kEnglish = 8,
  kText = 9,
  kCombo = 10,
  kList = 11,
  kFrame = 12,
  kUnitLabel = 13,
  kPrefix = 22,  ///< or the form of a choice
};

/// The place of a column that a family does not have: its field is always empty.
inline constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

/// Columns of $Data that each family has at a place of its own.
struct Columns {
  std::size_t unit = kNoColumn;
  std::size_t unit_box = kNoColumn;
  std::size_t follows = kNoColumn;
  std::size_t temperature = kNoColumn;
  std::size_t last_option = kNoColumn;
  std::size_t default_option = kNoColumn;
  std::size_t rule = kNoColumn;  ///< or whether the row is locked
  std::size_t condition = kNoColumn;
  std::size_t position = kNoColumn;
  std::size_t title = kNoColumn;
  std::size_t threshold_low = kNoColumn;
  std::size_t threshold_high = kNoColumn;
  std::array<std::size_t, 3> unused{};  ///< mean nothing
};

/// Columns of a list of types: of `$I10`, and of `$I11` where that is a list of its own.
struct TypeColumns {
  std::size_t fixed = kNoColumn;  ///< `Y` or `N`
  std::size_t settable = kNoColumn;
  std::size_t title = kNoColumn;
  std::size_t unit = kNoColumn;
  std::size_t tag = kNoColumn;  ///< what a type is called in the model text
  std::size_t converter = kNoColumn;
};

struct Shape {
  std::string_view key;
  std::size_t rows;
  std::size_t columns;
};

struct ArrayColumn {
  std::size_t column;
  int highest;
};

/// Where an item stands on the page. An index of -1 says that the row has none.
struct Place {
  std::string_view item;
  std::string_view list = {};
  int number = -1;
  int label = -1;
  int text = -1;
  int combo = -1;
  int frame = -1;
  int unit_box = -1;
  int last_option = -1;
};

/// A row that has to stand at its place, because the program knows it by its number.
struct FixedRow {
  std::string_view definition;
  std::size_t row;  ///< from 0
  std::string_view item;
};

/// What the definitions of a family may hold, and where its page shows each item.
struct FamilyFacts {
  std::string_view folder;
  Columns columns;
  std::vector<Shape> shapes;
  std::vector<ArrayColumn> arrays;
  std::vector<Place> plan;
  std::vector<std::string_view> follow_keys = {};  ///< lists that a unit can follow
  std::vector<std::string_view> conditions;        ///< words for when a download writes an item
  std::vector<std::string_view> frequency_lists = {};
  TypeColumns types = {};       ///< of `$I10`
  TypeColumns outputs = {};     ///< of `$I11` as a list
  bool one_definition = false;  ///< which serves every model of the family
  bool listed_inputs = false;   ///< `$I11` is a list of inputs: range, class and unit of each
  std::vector<std::string_view> type_rules = {"Y", "N", "$I10"};  ///< of the box of input types
  /// Parameters that are read, but that no download writes through their items.
  std::vector<std::string_view> unwritten_items = {};
  /// Parameters that an upload reads with another row, or that something else than an upload reads.
  std::vector<std::string_view> unread_items = {};
  std::vector<std::string_view> class_lists = {};   ///< lists of inputs, one for each class
  std::vector<std::string_view> placed_lists = {};  ///< lists of which the place of a choice is sent
  /// Rows of an item's second number, whose title stands in the row of the first.
  std::vector<std::string_view> second_halves = {};
  bool titled_version = true;  ///< the row of the version text has a title, which is not that text itself
  bool forms = false;          ///< a choice is marked by `O` or `N`, and a value needs no prefix
  std::vector<std::string_view> rounded_items = {};  ///< times that the program brings onto the device's grid
  std::vector<FixedRow> fixed_rows = {};
  int last_position;
};

/// The facts by family word.
const std::map<std::string, FamilyFacts>& Families();
