// Every definition of the build against the design of its page: a row of the design says whose place it is,
// and no definition puts another item there.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "core/text_utilities.h"
#include "page_bench.h"

namespace korva {
namespace {

using Faults = std::vector<std::string>;

/// Whether `name` is one of the names, which blanks separate.
template <typename Text>
bool Names(const Text& names, const Text& name) {
  for (std::size_t begin = 0; begin < names.size();) {
    const std::size_t end = std::min(names.find(' ', begin), names.size());
    if (names.substr(begin, end - begin) == name) {
      return true;
    }
    begin = end + 1;
  }
  return false;
}

/// All lines of the page, tab by tab.
std::vector<const DesignRow*> RowsOf(const Design& design) {
  std::vector<const DesignRow*> rows;
  for (const DesignTab& tab : design.tabs) {
    for (const DesignGroup& group : tab.groups) {
      for (const DesignRow& row : group.rows) {
        rows.push_back(&row);
      }
    }
  }
  return rows;
}

/// The columns of $Data that choose the place of an item, and the arrays that they choose from.
struct PlaceColumn {
  DataColumn column;
  std::string array;
};
const std::vector<PlaceColumn> kPlaceColumns = {{.column = kTextIndex, .array = "Text"},
                                                {.column = kComboIndex, .array = "Combo"},
                                                {.column = kFrameIndex, .array = "Frame"}};

/// Full name of the control that a row of $Data chooses from an array, empty when it chooses none.
std::string Chosen(const ParameterPage& page, int row, const PlaceColumn& place) {
  const String& index = page.DataCell(row, place.column);
  return index.empty() ? std::string() : place.array + "(" + ToUtf8(index) + ")";
}

/// What a row of $Data finds at its place in the design.
Faults FaultsAt(const ParameterPage& page, int data_row, const std::string& field) {
  const std::vector<const DesignRow*> rows = RowsOf(page.ItsDesign());
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const DesignRow* row) {
    return Names<std::string_view>(row->field, field);
  });
  if (found == rows.end()) {
    return {"stands nowhere"};
  }
  const DesignRow& row = **found;
  Faults faults;
  if (!Names<StringView>(row.item, page.DataCell(data_row, kItem))) {
    faults.push_back("stands at the place of " + ToUtf8(row.item));
  }
  const std::string number = Chosen(page, data_row, {.column = kNumberLabel, .array = "lbl_Item"});
  if (row.number != number && row.label != number) {
    faults.emplace_back("has its number elsewhere");
  }
  const std::string label = Chosen(page, data_row, {.column = kLabel, .array = "Label"});
  if (!label.empty() && row.label != label) {
    faults.emplace_back("has its caption elsewhere");
  }
  const std::string unit = Chosen(page, data_row, {.column = kUnitLabel, .array = "lbl_unit"});
  if (!unit.empty() && row.unit != unit) {
    faults.emplace_back("has its unit elsewhere");
  }
  return faults;
}

Faults FaultsOf(const ParameterPage& page) {
  Faults faults;
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    for (const PlaceColumn& place : kPlaceColumns) {
      const std::string field = Chosen(page, row, place);
      if (page.DataCell(row, kOnPage) != u"Y" || field.empty()) {
        continue;
      }
      const std::string item = std::string("item ").append(ToUtf8(page.DataCell(row, kItem)));
      for (const std::string& fault : FaultsAt(page, row, field)) {
        faults.push_back(std::string(item).append(" (").append(field).append(") ").append(fault));
      }
    }
  }
  return faults;
}

class ModelDesignTest : public testing::TestWithParam<String> {};

TEST_P(ModelDesignTest, HasEachItemAtThePlaceThatNamesIt) {
  test::PageBench bench;
  bench.Choose(GetParam());
  EXPECT_EQ(FaultsOf(bench.Page()), Faults());
}

INSTANTIATE_TEST_SUITE_P(Each, ModelDesignTest, testing::ValuesIn(test::AllModels()),
                         [](const auto& parameter) { return "Model_" + ToUtf8(parameter.param); });

TEST(ModelDesign, OfAnItemAtThePlaceOfAnotherIsFound) {
  test::PageBench bench;
  String text = bench.TextOf(test::DefPath(u"QL"));
  const String row = u"01,  14,     19,";
  const std::size_t at = text.find(row);
  ASSERT_NE(at, String::npos);
  text.replace(at, row.size(), u"01,  22,     18,");
  bench.files.Put(test::DefPath(u"QL"), bench.code_page.Encode(text).value());
  bench.Choose(u"QL");
  EXPECT_EQ(FaultsOf(bench.Page()), (Faults{"item 22 (Text(9)) stands at the place of 14",
                                            "item 22 (Text(9)) has its number elsewhere"}));
}

class FamilyDesignTest : public testing::TestWithParam<String> {};

/// Items by the controls that stand for them in the family's models.
std::map<std::string, String> PlacesOf(const String& family) {
  std::map<std::string, String> items;
  test::PageBench bench;
  for (const String& model : test::ModelsOf(family)) {
    bench.Choose(model);
    for (int row = 0; row < bench.Page().Def.Data().Rows(); ++row) {
      for (const PlaceColumn& place : kPlaceColumns) {
        if (const std::string field = Chosen(bench.Page(), row, place); !field.empty()) {
          items[field] += bench.Page().DataCell(row, kItem) + u" ";
        }
      }
    }
  }
  return items;
}

/// Items that the design names at a place where no model has them.
Faults Unused(const Design& design, const std::map<std::string, String>& places) {
  Faults unused;
  for (const DesignRow* row : RowsOf(design)) {
    String items;
    for (const auto& [field, field_items] : places) {
      if (Names<std::string_view>(row->field, field)) {
        items += field_items;
      }
    }
    for (std::size_t begin = 0; begin < row->item.size();) {
      const std::size_t end = std::min(row->item.find(u' ', begin), row->item.size());
      const StringView item = row->item.substr(begin, end - begin);
      if (!Names<StringView>(items, item)) {
        unused.push_back(ToUtf8(item) + " at " + std::string(row->field));
      }
      begin = end + 1;
    }
  }
  return unused;
}

/// True for a line that is kept free for a new item.
bool IsFree(const DesignRow& row, const std::map<std::string, String>& places) {
  return row.item.empty() && row.field.starts_with("Text(") && !places.contains(std::string(row.field));
}

TEST_P(FamilyDesignTest, NamesNoItemThatNoModelHasAtItsPlace) {
  test::PageBench bench;
  bench.Choose(test::ModelsOf(GetParam()).front());
  // The buttons of a temperature's unit stand on the page of family Third; none of its models measures one.
  const Faults expected = GetParam() == u"Third" ? Faults{"21 at Frame(2)"} : Faults{};
  EXPECT_EQ(Unused(bench.Page().ItsDesign(), PlacesOf(GetParam())), expected);
}

TEST_P(FamilyDesignTest, NamesAnItemInEachLineOfAParameter) {
  test::PageBench bench;
  bench.Choose(test::ModelsOf(GetParam()).front());
  const std::map<std::string, String> places = PlacesOf(GetParam());
  for (const DesignRow* row : RowsOf(bench.Page().ItsDesign())) {
    const bool parameter = row->number.starts_with("lbl_Item") || row->label.starts_with("lbl_Item");
    EXPECT_EQ(!row->item.empty(), parameter && !IsFree(*row, places)) << row->field;
  }
}

INSTANTIATE_TEST_SUITE_P(Each, FamilyDesignTest,
                         testing::Values(u"First", u"Second", u"Third", u"QXI", u"Lite", u"LiteSecond",
                                         u"LiteThird", u"LiteForth", u"LiteFifth", u"Nano"),
                         [](const auto& parameter) { return ToUtf8(parameter.param); });

}  // namespace
}  // namespace korva
