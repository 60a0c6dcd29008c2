#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Columns of $Data.
enum Column : std::size_t {
  kGroup = 0,
  kItem = 1,
  kNumber = 2,
  kNumberText = 3,
  kUploaded = 4,
  kOnPage = 5,
  kLabel = 6,
  kCaption = 7,
  kText = 9,
  kCombo = 10,
  kList = 11,
  kFrame = 12,
  kUnitLabel = 13,
  kFollows = 15,
  kTemperature = 16,
  kLastOption = 17,
  kDefaultOption = 18,
  kRule = 19,
  kCondition = 20,
  kPrefix = 22,
  kPosition = 23,
};

struct Shape {
  std::string_view key;
  std::size_t rows;
  std::size_t columns;
};

struct ArrayColumn {
  Column column;
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
  int last_option = -1;
};

/// What the definitions of a family may hold, and where its page shows each item.
struct FamilyFacts {
  std::string_view folder;
  std::vector<Shape> shapes;
  std::vector<ArrayColumn> arrays;
  std::vector<Place> plan;
  int last_position;
};

/// The facts by family word.
const std::map<std::string, FamilyFacts>& Families();
