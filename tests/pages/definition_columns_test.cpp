// What the columns of the definition files hold, family by family.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/text_utilities.h"
#include "pages/registry.h"

namespace korva {
namespace {

// --- $Data

const std::vector<std::pair<std::string, DataColumn>> kPurposes = {
    {"group", kGroup},
    {"item", kItem},
    {"number label", kNumberLabel},
    {"number", kNumberCaption},
    {"uploaded", kUploaded},
    {"on page", kOnPage},
    {"label", kLabel},
    {"caption", kCaption},
    {"field", kTextIndex},
    {"box", kComboIndex},
    {"list", kChoiceKey},
    {"frame", kFrameIndex},
    {"unit label", kUnitLabel},
    {"unit box", kUnitBox},
    {"unit", kUnitText},
    {"unit key", kUnitKey},
    {"temperature", kTemperature},
    {"last", kLastOption},
    {"default", kDefaultOption},
    {"change", kChangeRule},
    {"condition", kWriteCondition},
    {"threshold", kThresholdLow},
    {"prefix", kReplyPrefix},
    {"kind", kItemKind},
    {"position", kWritePosition},
    {"unit code", kUnitCodeItem},
    {"threshold high", kThresholdHigh},
    {"title", kItemTitle},
};

/// "group 0, item 1" and so on, less what the family has not.
std::string LayoutOf(StringView family) {
  std::string text;
  for (const auto& [purpose, column] : kPurposes) {
    const int number = EntryOf(family).record.definition.layout.*column;
    if (number >= 0) {
      text += (text.empty() ? "" : ", ") + purpose + " " + std::to_string(number);
    }
  }
  return text;
}

const std::string kSame =
    "group 0, item 1, number label 2, number 3, uploaded 4, on page 5, label 6, caption 7, field 9, box 10, "
    "list 11, frame 12, unit label 13, ";
const std::string kFirst =
    kSame + "unit 14, unit key 15, temperature 16, last 17, default 18, change 19, condition 20, ";
const std::string kSecond =
    kSame + "unit box 14, unit 15, last 18, default 19, change 20, condition 21, prefix 22, position 24, ";

TEST(DataColumns, StandWhereTheFamilysDefinitionsHaveThem) {
  const std::map<StringView, std::string> expected = {
      {u"QXI", kFirst + "prefix 22, position 23"},
      {u"First", kFirst + "prefix 22, position 23"},
      {u"Second", kSecond + "title 25"},
      {u"Third", kFirst + "prefix 22, position 23"},
      {u"Lite", kFirst + "kind 22, position 23, title 25"},
      {u"LiteUniv", kFirst + "kind 22, position 23, title 25"},
      {u"LiteSecond", kFirst + "kind 22, position 23, title 25"},
      {u"LiteThird", kSecond + "unit code 23, title 25"},
      {u"LiteForth", kFirst + "threshold 21, prefix 22, position 23, threshold high 24"},
      {u"LiteFifth", kFirst + "threshold 21, prefix 22, position 23, threshold high 24"},
      {u"Nano", kFirst + "kind 22, position 23, title 25"},
  };
  ASSERT_EQ(expected.size(), Registry().size());
  for (const auto& [family, columns] : expected) {
    EXPECT_EQ(LayoutOf(family), columns) << ToUtf8(family);
  }
}

TEST(DataColumns, TellTheTitlesInTheDialectOfEnterItemAndInNoOther) {
  for (const RegistryEntry& entry : Registry()) {
    EXPECT_EQ(entry.record.definition.layout.item_title >= 0,
              entry.record.family.dialect == Dialect::EnterItem);
  }
}

// --- lists

const std::vector<std::pair<std::string, ListColumn>> kContents = {
    {"code", &ListColumns::code},
    {"text", &ListColumns::text},
    {"low", &ListColumns::low},
    {"high", &ListColumns::high},
    {"preset low", &ListColumns::preset_low},
    {"preset high", &ListColumns::preset_high},
    {"span", &ListColumns::span},
    {"unit", &ListColumns::unit},
    {"settable", &ListColumns::settable},
    {"fixed", &ListColumns::fixed},
    {"title", &ListColumns::title},
    {"list", &ListColumns::list},
    {"kind", &ListColumns::kind},
    {"class", &ListColumns::input_class},
    {"tag", &ListColumns::tag},
    {"adc", &ListColumns::adc},
    {"step", &ListColumns::step},
    {"base", &ListColumns::span_base},
};

/// "low 2, high 3" and so on, less what the list has not; a code in column 0 and one text in column 1 go
/// without saying.
std::string ColumnsOf(const ListColumns& columns) {
  std::string text;
  for (const auto& [content, column] : kContents) {
    const int number = columns.*column;
    const bool usual = (content == "code" && number == 0) || (content == "text" && number == 1);
    if (number >= 0 && !usual) {
      text += (text.empty() ? "" : ", ") + content + " " + std::to_string(number);
    }
  }
  return columns.titles == 1 ? text : text + ", titles " + std::to_string(columns.titles);
}

using Lists = std::map<StringView, std::string>;

/// The lists with anything behind the text.
Lists ListsOf(StringView family) {
  Lists lists;
  for (const SectionShape& shape : EntryOf(family).record.definition.sections) {
    if (const std::string columns = ColumnsOf(shape.means); !columns.empty()) {
      lists[shape.key] = columns;
    }
  }
  return lists;
}

const std::string kPair = "low 2, high 3, preset low 2, preset high 3, span 4";
const std::string kFirstType = kPair + ", unit 8, settable 6, fixed 5, title 7";
const std::string kFirstRange = "low 4, high 5, preset low 4, preset high 5, titles 3";
const std::string kSensor = "unit 2, base 3";

TEST(ListColumnsTest, HoldWhatTheFamilysDefinitionsHaveThere) {
  const std::map<StringView, Lists> expected = {
      {u"QXI",
       {{u"$I10", kPair + ", unit 5, settable 6, kind 8"},
        {u"$I11", kPair + ", unit 5"},
        {u"$I21", "unit 2"},
        {u"$I23", "unit 2"},
        {u"$I24", "unit 2"},
        {u"$I25", "unit 2"},
        {u"$I28", "unit 2"},
        {u"$I31", "unit 2"},
        {u"$I38", "unit 2"},
        {u"$I39", "unit 2"},
        {u"$I84", "unit 2"},
        {u"$I85", "unit 2"}}},
      {u"First",
       {{u"$I10", kFirstType}, {u"$I11Body", kFirstRange}, {u"$I21", "unit 2"}, {u"$I11QEI", kSensor}}},
      {u"Second", {}},
      {u"Third",
       {{u"$I10", kFirstType},
        {u"$I11Body", kFirstRange},
        {u"$I11QEI", kSensor},
        {u"$I11QIE", kSensor},
        {u"$I11QHC2", kSensor},
        {u"$I13QHC2", kSensor}}},
      {u"Lite",
       {{u"$I10", kPair + ", unit 5, settable 8, tag 6, adc 7"},
        {u"$I11", kPair + ", settable 5, tag 6"},
        {u"$I21", "unit 2"}}},
      {u"LiteUniv",
       {{u"$I00", "list 2"},
        {u"$I10DC", kPair + ", unit 5, settable 6"},
        {u"$I10TC", kPair + ", unit 5, settable 6"},
        {u"$I10RTD", kPair + ", unit 5, settable 6"},
        {u"$I10PM", kPair + ", unit 5, settable 6"},
        {u"$I11", kPair + ", settable 5"},
        {u"$I41", kPair + ", settable 5"},
        {u"$I21", "unit 2"}}},
      {u"LiteSecond", {{u"$I33", "low 2, high 3"}}},
      {u"LiteThird", {}},
      {u"LiteForth", {{u"$I21", "unit 6"}, {u"$I11", "low 2, high 3, unit 6, class 5"}}},
      {u"LiteFifth", {{u"$I21", "unit 6"}, {u"$I11", "low 2, high 3, unit 6, class 5"}}},
      {u"Nano",
       {{u"$I10", "low 6, high 9, preset low 2, preset high 3, span 4, unit 5, settable 7, step 8"},
        {u"$I11", "low 4, high 6, preset low 2, preset high 3, span 5"},
        {u"$I41", "low 4, high 6, preset low 2, preset high 3, span 5"},
        {u"$I21", "unit 2"}}},
  };
  ASSERT_EQ(expected.size(), Registry().size());
  for (const auto& [family, lists] : expected) {
    EXPECT_EQ(ListsOf(family), lists) << ToUtf8(family);
  }
}

TEST(ListColumnsTest, LieWithinTheirLists) {
  for (const RegistryEntry& entry : Registry()) {
    for (const SectionShape& shape : entry.record.definition.sections) {
      if (shape.kind == SectionKind::Block) {
        continue;
      }
      SCOPED_TRACE(ToUtf8(entry.record.family.word) + " " + ToUtf8(shape.key));
      const int further = 2 * (shape.means.titles - 1);
      for (const auto& [content, column] : kContents) {
        const bool limit = content.ends_with("low") || content.ends_with("high");
        EXPECT_LT(shape.means.*column + (limit ? further : 0), shape.columns) << content;
      }
    }
  }
}

}  // namespace
}  // namespace korva
