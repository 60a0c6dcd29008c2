// Checks the definitions' sources row by row: what each item of $Data is, and where it stands.

#include <algorithm>
#include <map>
#include <set>

#include "definition_fixture.h"

namespace {

class DefinitionItems : public DefinitionFixture {};

TEST_P(DefinitionItems, KeepsEachIndexWithinItsControlsAndGivesItToOneRow) {
  for (const auto& array : facts.arrays) {
    std::set<int> taken;
    for (const auto& row : source.Rows("$Data")) {
      const int index = Index(row[array.column]);
      EXPECT_NE(index, -2) << At(row) << "column " << array.column;
      EXPECT_LE(index, array.highest) << At(row) << "column " << array.column;
      EXPECT_TRUE(index < 0 || taken.insert(index).second)
          << At(row) << "doubles " << index << " in column " << array.column;
    }
  }
}

TEST_P(DefinitionItems, GivesEachWritePositionToOneRow) {
  std::set<int> taken;
  for (const auto& row : source.Rows("$Data")) {
    const int position = Index(row[columns.position]);
    EXPECT_NE(position, -2) << At(row);
    EXPECT_LE(position, facts.last_position) << At(row);
    EXPECT_TRUE(position < 0 || taken.insert(position).second) << At(row) << "doubles position " << position;
  }
}

TEST_P(DefinitionItems, ShowsEachItemAtItsPlaceOfThePage) {
  std::set<std::string> items;
  for (const auto& row : source.Rows("$Data")) {
    EXPECT_TRUE(items.insert(row[kGroup] + row[kItem]).second) << At(row) << "again";
    const bool shown = row[kOnPage] == "Y";
    const bool placed = std::ranges::any_of(facts.plan, [&](const Place& place) {
      return row[kItem] == place.item && row[kList] == place.list && Index(row[kNumber]) == place.number &&
             Index(row[kLabel]) == place.label && Index(row[kText]) == place.text &&
             Index(row[kCombo]) == place.combo && Index(row[kFrame]) == place.frame &&
             Index(row[columns.unit_box]) == place.unit_box &&
             Index(row[columns.last_option]) == place.last_option;
    });
    EXPECT_EQ(placed, shown) << At(row);
    EXPECT_EQ(row[kNumberText].empty(), row[kNumber].empty()) << At(row);
    EXPECT_EQ(row[kCaption].empty(), row[kLabel].empty() && row[kFrame].empty()) << At(row);
    EXPECT_TRUE(row[kUnitLabel].empty() || row[kUnitLabel] == row[kText]) << At(row);
  }
}

TEST_P(DefinitionItems, UsesOnlyWordsThatHaveAMeaning) {
  const auto known = [](const std::string& word, const std::vector<std::string_view>& words) {
    return word.empty() || std::ranges::find(words, word) != words.end();
  };
  for (const auto& row : source.Rows("$Data")) {
    EXPECT_TRUE(row[kGroup].size() == 2 && row[kItem].size() >= 2) << At(row);
    EXPECT_TRUE(OneOf(row[kUploaded], {"", "Y"})) << At(row);
    EXPECT_TRUE(OneOf(row[kOnPage], {"", "Y"})) << At(row);
    EXPECT_TRUE(known(row[columns.follows], facts.follow_keys)) << At(row);
    EXPECT_TRUE(OneOf(row[columns.temperature], {"", "Item21"})) << At(row);
    const bool types = row[kList] == "$I10" && !row[kCombo].empty();
    const auto& rules = facts.type_rules;
    EXPECT_TRUE(types ? std::ranges::find(rules, row[columns.rule]) != rules.end()
                      : OneOf(row[columns.rule], {"", "Y"}))
        << At(row);
    EXPECT_TRUE(known(row[columns.condition], facts.conditions)) << At(row);
    EXPECT_EQ(row[columns.condition].empty(), row[columns.position].empty()) << At(row);
    for (const auto column : columns.unused) {
      EXPECT_EQ(row[column], "") << At(row) << "column " << column;
    }
  }
}

TEST_P(DefinitionItems, WritesAValueAsItStandsAndAChoiceByItsCode) {
  for (const auto& row : source.Rows("$Data")) {
    const bool form = OneOf(row[kPrefix], {"O", "N"});
    EXPECT_FALSE(form && !facts.forms) << At(row);
    if (row[columns.position].empty()) {
      EXPECT_FALSE(form) << At(row);
      continue;
    }
    EXPECT_EQ(row[kUploaded], "Y") << At(row);
    EXPECT_NE(row[kList].empty(), row[kText].empty()) << At(row);
    if (facts.forms) {
      EXPECT_EQ(row[kPrefix] == "O", !row[kFrame].empty()) << At(row);
      EXPECT_EQ(row[kPrefix] == "N", !row[kCombo].empty()) << At(row);
    } else {
      EXPECT_EQ(row[kPrefix].empty(), row[kText].empty()) << At(row);
    }
  }
}

TEST_P(DefinitionItems, LocksLiveValuesAndNeitherReadsNorWritesThemAsParameters) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[kText].empty()) {
      continue;
    }
    // A live value has its caption in the number label.
    const bool live = row[kLabel].empty();
    const auto among = [&](const auto& items) { return std::ranges::find(items, row[kItem]) != items.end(); };
    EXPECT_EQ(row[kUploaded].empty(), live || among(facts.unread_items)) << At(row);
    const bool unwritten = among(facts.unwritten_items);
    EXPECT_EQ(row[columns.position].empty(), live || unwritten) << At(row);
    EXPECT_EQ(row[columns.rule], live && !row[kItem].ends_with("_set") ? "Y" : "") << At(row);
  }
}

TEST_P(DefinitionItems, ShowsAUnitInOneWay) {
  for (const auto& row : source.Rows("$Data")) {
    const bool labelled = !row[columns.unit].empty() || !row[columns.follows].empty();
    EXPECT_TRUE(!labelled || !row[kUnitLabel].empty()) << At(row);
    EXPECT_TRUE(row[columns.unit_box].empty() || (!row[kText].empty() && row[kUnitLabel].empty())) << At(row);
  }
}

TEST_P(DefinitionItems, HasATimeOnTheDevicesGridWhereTheProgramRoundsIt) {
  for (const auto& row : source.Rows("$Data")) {
    if (row[columns.unit] == "msec") {
      EXPECT_TRUE(std::ranges::find(facts.rounded_items, row[kItem]) != facts.rounded_items.end()) << At(row);
    }
  }
}

TEST_P(DefinitionItems, HasTheLimitsOfAThresholdInOrder) {
  for (const auto& row : source.Rows("$Data")) {
    const auto low = Number(row[columns.threshold_low]);
    const auto high = Number(row[columns.threshold_high]);
    const bool threshold = columns.threshold_low != kNoColumn && row[kItem] == "09";
    EXPECT_EQ(low.has_value(), threshold) << At(row);
    EXPECT_EQ(high.has_value(), threshold) << At(row);
    EXPECT_TRUE(!threshold || *low < *high) << At(row);
  }
}

TEST_P(DefinitionItems, StandsAboveTheChoiceThatItsUnitFollows) {
  for (const auto& row : source.Rows("$Data")) {
    if (!row[columns.follows].empty()) {
      const auto& rows = source.Rows("$Data");
      const auto choice = std::ranges::find_if(
          rows, [&](const SourceRow& candidate) { return candidate[kList] == row[columns.follows]; });
      EXPECT_TRUE(choice != rows.end() && choice->line > row.line) << At(row);
    }
  }
}

TEST_P(DefinitionItems, StandsInTheRowThatTheProgramKnowsItBy) {
  for (const auto& fixed : facts.fixed_rows) {
    if (fixed.definition == GetParam().definition) {
      ASSERT_LT(fixed.row, source.Rows("$Data").size());
      EXPECT_EQ(source.Rows("$Data")[fixed.row][kItem], fixed.item) << "row " << fixed.row;
    }
  }
}

// The program takes an item for the right one when the title on the device's display is one that it knows.
TEST_P(DefinitionItems, HasATitleThatTheDisplayCanShow) {
  constexpr std::size_t width = 16;
  const std::string type = "Type";
  std::map<std::string, std::string> items;
  for (const auto& row : source.Rows("$Data")) {
    const auto& title = row[columns.title];
    const bool untitled_version = row[kGroup] == "00" && !facts.titled_version;
    const bool of_the_page = row[kItem] == "00";  // no item of the device
    const bool second = std::ranges::find(facts.second_halves, row[kItem]) != facts.second_halves.end();
    EXPECT_EQ(title.empty(), columns.title == kNoColumn || untitled_version || of_the_page || second)
        << At(row);
    EXPECT_LE(title.size(), width) << At(row);
    EXPECT_TRUE(std::ranges::all_of(title, [](char c) { return c >= ' ' && c <= '~'; })) << At(row);
    // The program drops one character behind "Type", so a title with one would never be known.
    EXPECT_FALSE(title.size() > type.size() && title.substr(title.size() - type.size() - 1, 4) == type)
        << At(row);
    const auto on_wire = row[kGroup] + row[kItem].substr(0, row[kItem].find('_'));
    EXPECT_TRUE(title.empty() || items.emplace(title, on_wire).first->second == on_wire)
        << At(row) << "has the title of " << items[title];
  }
  EXPECT_LE(items.size(), 32U);
}

INSTANTIATE_TEST_SUITE_P(Each, DefinitionItems, testing::ValuesIn(ModelsWithDefinition()), TestName);

}  // namespace
