// Checks the definitions' sources in their lists of choices, ranges and limits.

#include <algorithm>
#include <set>

#include "definition_fixture.h"

namespace {

class DefinitionLists : public DefinitionFixture {};

TEST_P(DefinitionLists, HasTheListAndTheDefaultOfEachChoice) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[kList].empty()) {
      continue;
    }
    const auto& texts = source.Rows(TableOf(row[kList]));
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
      EXPECT_TRUE(std::ranges::any_of(source.Rows("$Data"),
                                      [&](const SourceRow& row) { return row[kList] == section.key; }))
          << section.key << " in line " << section.line;
    }
  }
}

TEST_P(DefinitionLists, HasTextsThatTheDisplayCanShow) {
  constexpr std::size_t width = 16;
  for (const auto& section : source.sections) {
    for (const auto& row : section.rows) {
      EXPECT_TRUE(columns.title == kNoColumn || !section.key.starts_with("$I") || row[1].size() <= width)
          << section.key << " line " << row.line << ": " << row[1];
    }
  }
}

// The unit of live values is looked up from row 1 on.
TEST_P(DefinitionLists, LeavesRow0EmptyWhereALiveUnitFollows) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[kItem] == "06" && row[kUploaded].empty() && !row[columns.follows].empty()) {
      const auto& texts = source.Rows(TableOf(row[columns.follows]));
      ASSERT_FALSE(texts.empty());
      EXPECT_EQ(texts[0][0], "") << At(row) << row[columns.follows];
    }
  }
}

TEST_P(DefinitionLists, RatesEachFrequencyRangeByAUnitAndASpan) {
  for (const auto& section : source.sections) {
    const auto shape = std::ranges::find(facts.shapes, section.key, &Shape::key);
    if (shape == facts.shapes.end() || shape->columns != 4) {
      continue;
    }
    for (const auto& row : section.rows) {
      EXPECT_TRUE(row[0].empty() || (!row[2].empty() && Number(row[3]).value_or(0) > 0))
          << section.key << " line " << row.line;
    }
  }
}

TEST_P(DefinitionLists, HasTheTitleOfTheRangesOfEachInputType) {
  const auto& titles = source.Rows("$I11Title");
  for (const auto& row : source.Rows("$I10")) {
    if (!row[7].empty()) {
      ASSERT_EQ(titles.size(), 1U) << "line " << row.line;
      const auto found = std::ranges::find(titles[0].fields, row[7]);
      EXPECT_LT(found - titles[0].fields.begin(), std::min<std::ptrdiff_t>(4, std::ssize(titles[0].fields)))
          << "line " << row.line << ": " << row[7];
    }
  }
}

TEST_P(DefinitionLists, LimitsZeroAndSpanByNumbersInOrder) {
  const auto rising = [](const SourceRow& row, std::size_t low, std::size_t high) {
    const auto from = Number(row[low]);
    const auto to = Number(row[high]);
    EXPECT_TRUE(from && to && *from < *to) << "line " << row.line << ": " << row[low] << " to " << row[high];
  };
  for (const auto& row : source.Rows("$I10")) {
    EXPECT_TRUE(row[0].empty() || (OneOf(row[5], {"Y", "N"}) && OneOf(row[6], {"Y", "N"})))
        << "line " << row.line;
    if (row[2].empty() && row[3].empty() && row[4].empty()) {
      continue;  // no range to set
    }
    rising(row, 2, 3);
    const auto span = Number(row[4]);
    ASSERT_TRUE(span) << "line " << row.line;
    EXPECT_LE(*span, Number(row[3]).value_or(0) - Number(row[2]).value_or(0)) << "line " << row.line;
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
    const auto title = titles.empty() || type[7].empty()
                           ? 0
                           : static_cast<std::size_t>(std::ranges::find(titles[0].fields, type[7]) -
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

INSTANTIATE_TEST_SUITE_P(Each, DefinitionLists, testing::ValuesIn(ModelsWithDefinition()), TestName);

}  // namespace
