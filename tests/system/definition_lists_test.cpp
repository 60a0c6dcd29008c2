// Checks the definitions' sources in their lists of choices, ranges and limits.

#include <algorithm>
#include <array>
#include <set>
#include <vector>

#include "definition_fixture.h"

namespace {

class DefinitionLists : public DefinitionFixture {};

TEST_P(DefinitionLists, HasTheListAndTheDefaultOfEachChoice) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[kList].empty()) {
      continue;
    }
    const auto& texts = source.Rows(TableOf(source, row[kList]));
    EXPECT_FALSE(texts.empty()) << At(row) << "has no section " << row[kList];
    const int last = Index(row[columns.last_option]);
    EXPECT_LE(Index(row[columns.default_option]), last) << At(row);
    for (int option = 0; option <= last; ++option) {
      const auto place = static_cast<std::size_t>(option);
      ASSERT_LT(place, texts.size()) << At(row) << "has no text for option " << option;
      EXPECT_FALSE(texts[place][0].empty() || texts[place][1].empty()) << At(row) << "option " << option;
    }
  }
}

TEST_P(DefinitionLists, GivesEachCodeAndEachTextOfAListOnce) {
  const auto distinct = [&](const SourceSection& section, std::size_t column) {
    std::set<std::string> seen;
    for (const auto& row : section.rows) {
      EXPECT_TRUE(row[column].empty() || seen.insert(row[column]).second)
          << section.key << " line " << row.line << ": " << row[column] << " again";
    }
  };
  for (const auto& section : source.sections) {
    if (!section.key.starts_with("$I") || section.key == "$I11Title") {
      continue;
    }
    distinct(section, 0);
    distinct(section, 1);
    for (const auto& row : section.rows) {
      EXPECT_EQ(row[0].empty(), row[1].empty()) << section.key << " line " << row.line;
    }
    if (section.key == "$I11Body") {
      distinct(section, 2);
      distinct(section, 3);
    }
  }
}

TEST_P(DefinitionLists, HasNoListThatNoItemUses) {
  for (const auto& section : source.sections) {
    if (section.key.starts_with("$I") && section.key != "$I11Title" && section.key != "$I11Body") {
      const bool of_a_class = std::ranges::find(facts.class_lists, section.key) != facts.class_lists.end();
      EXPECT_TRUE(of_a_class ||
                  std::ranges::any_of(source.Rows("$Data"),
                                      [&](const SourceRow& row) { return row[kList] == section.key; }))
          << section.key << " in line " << section.line;
    }
  }
}

TEST_P(DefinitionLists, HasTextsThatTheDisplayCanShow) {
  constexpr std::size_t width = 16;
  for (const auto& section : source.sections) {
    for (const auto& row : section.rows) {
      // The classes of an input are words of the page's own.
      const bool shown = section.key.starts_with("$I") && section.key != "$I00";
      EXPECT_TRUE(columns.title == kNoColumn || !shown || row[1].size() <= width)
          << section.key << " line " << row.line << ": " << row[1];
    }
  }
}

// The unit of live values is looked up from row 1 on where types have titles.
TEST_P(DefinitionLists, LeavesRow0EmptyWhereALiveUnitFollows) {
  if (facts.types.title == kNoColumn) {
    return;
  }
  for (const auto& row : source.Rows("$Data")) {
    if (row[kItem] == "06" && row[kUploaded].empty() && !row[columns.follows].empty()) {
      const auto& texts = source.Rows(TableOf(source, row[columns.follows]));
      ASSERT_FALSE(texts.empty());
      EXPECT_EQ(texts[0][0], "") << At(row) << row[columns.follows];
    }
  }
}

TEST_P(DefinitionLists, RatesEachFrequencyRangeByAUnitAndASpan) {
  for (const auto list : facts.frequency_lists) {
    for (const auto& row : source.Rows(list)) {
      EXPECT_TRUE(row[0].empty() || (!row[2].empty() && Number(row[3]).value_or(0) > 0))
          << list << " line " << row.line;
    }
  }
}

TEST_P(DefinitionLists, HasTheTitleOfTheRangesOfEachInputType) {
  const auto& titles = source.Rows("$I11Title");
  for (const auto& row : source.Rows("$I10")) {
    if (!row[facts.types.title].empty()) {
      ASSERT_EQ(titles.size(), 1U) << "line " << row.line;
      const auto& title = row[facts.types.title];
      const auto found = std::ranges::find(titles[0].fields, title);
      EXPECT_LT(found - titles[0].fields.begin(), std::min<std::ptrdiff_t>(4, std::ssize(titles[0].fields)))
          << "line " << row.line << ": " << title;
    }
  }
}

TEST_P(DefinitionLists, LimitsZeroAndSpanByNumbersInOrder) {
  const auto rising = [](const SourceRow& row, std::size_t low, std::size_t high) {
    const auto from = Number(row[low]);
    const auto to = Number(row[high]);
    EXPECT_TRUE(from && to && *from < *to) << "line " << row.line << ": " << row[low] << " to " << row[high];
  };
  const auto limited = [&](const SourceRow& row) {
    rising(row, 2, 3);
    const auto span = Number(row[4]);
    ASSERT_TRUE(span) << "line " << row.line;
    EXPECT_LE(*span, Number(row[3]).value_or(0) - Number(row[2]).value_or(0)) << "line " << row.line;
  };
  for (const auto list : facts.class_lists) {
    for (const auto& row : source.Rows(list)) {
      limited(row);
    }
  }
  if (!facts.class_lists.empty()) {
    for (const auto& row : source.Rows("$I41")) {
      limited(row);
    }
  }
  for (const auto& row : source.Rows("$I11")) {
    if (facts.listed_inputs) {
      rising(row, 2, 3);
    } else {
      limited(row);
    }
  }
  for (const auto& row : source.Rows("$I10")) {
    const auto flagged = [&](std::size_t column) {
      return column == kNoColumn || OneOf(row[column], {"Y", "N"});
    };
    EXPECT_TRUE(row[0].empty() || (flagged(facts.types.fixed) && flagged(facts.types.settable)))
        << "line " << row.line;
    if (row[2].empty() && row[3].empty() && row[4].empty()) {
      continue;  // no range to set
    }
    limited(row);
  }
  for (const auto& row : source.Rows("$I11Body")) {
    for (std::size_t title = 1; title <= 3; ++title) {
      if (!row[2 * title + 2].empty() || !row[2 * title + 3].empty()) {
        EXPECT_FALSE(row[title].empty()) << "line " << row.line;
        rising(row, 2 * title + 2, 2 * title + 3);
      }
    }
  }
}

TEST_P(DefinitionLists, HoldsEveryRangeWithinTheInputTypesThatOfferIt) {
  for (const auto& type : source.Rows("$I10")) {
    const auto& titles = source.Rows("$I11Title");
    const auto title =
        titles.empty() || type[facts.types.title].empty()
            ? 0
            : static_cast<std::size_t>(std::ranges::find(titles[0].fields, type[facts.types.title]) -
                                       titles[0].fields.begin());
    for (const auto& range : source.Rows("$I11Body")) {
      if (title == 0 || title > 3 || range[title].empty()) {
        continue;
      }
      const double low = Number(range[(2 * title) + 2]).value_or(0);
      const double high = Number(range[(2 * title) + 3]).value_or(0);
      EXPECT_GE(low, Number(type[2])) << type[1] << " with " << range[title];
      EXPECT_LE(high, Number(type[3])) << type[1] << " with " << range[title];
      EXPECT_GE(high - low, Number(type[4])) << type[1] << " with " << range[title];
    }
  }
}

// Of inputs whose class decides what they have, and whose unit is that of what they count.
TEST_P(DefinitionLists, TellsClassAndUnitOfEachListedInput) {
  if (!facts.listed_inputs) {
    return;
  }
  for (const auto& row : source.Rows("$I11")) {
    EXPECT_TRUE(Index(row[5]) >= 1 && Index(row[5]) <= 4) << "line " << row.line;
    EXPECT_TRUE(OneOf(row[6], {"Hz", "kHz", "mHz"})) << "line " << row.line;
  }
  for (const auto& row : source.Rows("$I21")) {
    EXPECT_FALSE(row[6].empty()) << "line " << row.line;
  }
}

// Of inputs that are told by the first letters of their text, and whose table has a kind.
TEST_P(DefinitionLists, TellsClassAndTableOfEachUniversalInput) {
  constexpr std::size_t kind = 8;
  if (!facts.one_definition) {
    return;
  }
  for (const auto& row : source.Rows("$I10")) {
    const bool classed = std::ranges::any_of(std::array{"Tc-", "RB", "mV-", "POT"},
                                             [&](const char* word) { return row[1].starts_with(word); });
    EXPECT_TRUE(classed) << "line " << row.line << ": " << row[1];
    EXPECT_FALSE(row[facts.types.unit].empty()) << "line " << row.line;
    EXPECT_TRUE(OneOf(row[kind], {"N", "L", "T", "R"})) << "line " << row.line;
  }
  for (const auto& row : source.Rows("$I11")) {
    EXPECT_FALSE(row[facts.outputs.unit].empty()) << "line " << row.line;
  }
}

// The class is no item of the device: code and text of an input alone tell which it is.
TEST_P(DefinitionLists, TellsEachInputOfAllClassesByItself) {
  std::set<std::string> codes;
  std::set<std::string> texts;
  std::vector<std::string> named;
  for (const auto& row : source.Rows("$I00")) {
    named.push_back(row[2]);
  }
  EXPECT_TRUE(std::ranges::equal(named, facts.class_lists));
  for (const auto list : facts.class_lists) {
    for (const auto& row : source.Rows(list)) {
      EXPECT_TRUE(codes.insert(row[0]).second) << list << " line " << row.line;
      EXPECT_TRUE(texts.insert(row[1]).second) << list << " line " << row.line;
      EXPECT_FALSE(row[5].empty()) << list << " line " << row.line;
      EXPECT_TRUE(OneOf(row[6], {"Y", "N"})) << list << " line " << row.line;
    }
  }
}

// What is sent of a choice is its place.
TEST_P(DefinitionLists, NumbersAListByPlacesWhereAPlaceIsSent) {
  for (const auto list : facts.placed_lists) {
    int place = 0;
    for (const auto& row : source.Rows(list)) {
      EXPECT_EQ(Index(row[0]), place++) << list << " line " << row.line;
    }
    EXPECT_GT(place, 0) << list;
  }
}

// Of types that stand in the device's memory with their text, tag and converter.
TEST_P(DefinitionLists, TellsWhatTheMemoryHoldsOfEachType) {
  constexpr std::size_t text_size = 16;
  constexpr int converters = 3;
  const auto check = [&](std::string_view list, const TypeColumns& types) {
    if (types.tag == kNoColumn) {
      return;
    }
    EXPECT_FALSE(source.Rows(list).empty()) << list;
    std::set<std::string> tags;
    for (const auto& row : source.Rows(list)) {
      const auto code = Number(row[0]);
      EXPECT_TRUE(code && *code >= 0 && *code <= 127) << list << " line " << row.line;
      EXPECT_LE(row[1].size(), text_size) << list << " line " << row.line;
      EXPECT_TRUE(OneOf(row[types.settable], {"Y", "N"})) << list << " line " << row.line;
      EXPECT_TRUE(!row[types.tag].empty() && tags.insert(row[types.tag]).second)
          << list << " line " << row.line << ": " << row[types.tag];
      EXPECT_EQ(row[types.tag].find('-'), std::string::npos) << "it would end a part of the model text";
      EXPECT_TRUE(types.unit == kNoColumn || !row[types.unit].empty()) << list << " line " << row.line;
      if (types.converter != kNoColumn) {
        EXPECT_TRUE(Index(row[types.converter]) >= 0 && Index(row[types.converter]) < converters)
            << list << " line " << row.line;
      }
    }
  };
  check("$I10", facts.types);
  check("$I11", facts.outputs);
}

// What a download copies by a type's number in the memory has a place there.
TEST_P(DefinitionLists, HasACalibrationOfEachOutputType) {
  constexpr double banks = 3;
  for (const auto& row : source.Rows("$I11")) {
    EXPECT_TRUE(facts.outputs.tag == kNoColumn || Number(row[0]).value_or(banks) < banks)
        << "line " << row.line;
  }
}

// The head of the model text is the model, and all of it fits its place with the longest tags.
TEST_P(DefinitionLists, FitsItsModelTextIntoTheMemory) {
  constexpr std::size_t text_size = 16;
  constexpr std::size_t separators_and_tail = 3;
  if (facts.types.tag == kNoColumn) {
    return;
  }
  const auto longest = [&](std::string_view list, std::size_t column) {
    std::size_t size = 0;
    for (const auto& row : source.Rows(list)) {
      size = std::max(size, row[column].size());
    }
    return size;
  };
  EXPECT_LE(GetParam().name.size() + longest("$I10", facts.types.tag) + longest("$I11", facts.outputs.tag) +
                separators_and_tail,
            text_size);
}

/// First and last degree of a curve.
struct Ends {
  double base;
  double top;
};

/// The curves of the sensors that a model can have, by their numbers; none for a model without a sensor.
std::vector<Ends> CurvesOf(const Model& model) {
  const char kind = model.family == "Lite" ? model.name.at(3) : '\0';
  if (kind == 'T') {
    return {{-50, 1860},  {-273, 1470}, {-273, 1020}, {-260, 1300}, {-272, 500},  {23, 1920}, {-100, 1860},
            {-100, 1860}, {-50, 2415},  {-273, 1400}, {-250, 600},  {-250, 1000}, {-50, 1495}};
  }
  if (kind == 'R') {
    return {{-235, 560}, {-240, 900}, {-240, 900}, {-235, 700},
            {-100, 330}, {-240, 900}, {-100, 250}, {-210, 310}};
  }
  return {};
}

// A download of a sensor's type writes its curve, but no calibration of another converter; and the limits of
// zero and span lie on the curve, whose ends the device can't pass.
TEST_P(DefinitionLists, NumbersASensorByItsCurveAndKeepsToIt) {
  const auto curves = CurvesOf(GetParam());
  const auto& types = source.Rows("$I10");
  if (curves.empty()) {
    return;
  }
  ASSERT_EQ(types.size(), curves.size());
  for (std::size_t i = 0; i < curves.size(); ++i) {
    const auto& type = types[i];
    EXPECT_EQ(Number(type[0]), static_cast<double>(i)) << "line " << type.line;
    EXPECT_EQ(type[facts.types.converter], types[0][facts.types.converter]) << "line " << type.line;
    EXPECT_EQ(type[facts.types.unit], "deg C") << "line " << type.line;
    EXPECT_GE(Number(type[2]), curves[i].base) << "line " << type.line;
    EXPECT_LE(Number(type[3]), curves[i].top) << "line " << type.line;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, DefinitionLists, testing::ValuesIn(ModelsWithDefinition()), TestName);

}  // namespace
