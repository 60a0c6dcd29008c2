// Every definition file of the build on the page that it is for: what a wrong index, a doubled position, an
// unknown key or an item without a tab would break. The same checks are then shown to fail on definitions
// with one fault each.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <ostream>
#include <set>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "page_bench.h"
#include "support/page_parts.h"
#include "tables/cold_junction.h"

namespace korva {
namespace {

using Faults = std::vector<std::string>;

/// The table of texts and codes that a list or a group of options stands for; empty for an unknown key.
std::optional<StringView> TableOf(ParameterPage& page, const String& key, bool box) {
  for (const ListRule& list : page.Lists()) {
    if (box && list.key == key) {
      return list.table;
    }
  }
  const OptionRule* rule = box ? nullptr : page.FindOptionRule(key);
  return rule == nullptr ? std::nullopt : std::optional(rule->table);
}

/// The faults of the definition that a page shows, each in a few words.
class Examination {
 public:
  explicit Examination(ParameterPage& page) : page_(page) {}

  Faults Run() {
    for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
      if (!page_.DataCell(row, kGroup).empty()) {
        Indexes(row);
        Words(row);
        Choice(row);
        Writing(row);
      }
    }
    if (used_.empty()) {
      faults_.emplace_back("no rows");
    }
    Places();
    return faults_;
  }

 private:
  void Fault(int row, const std::string& text) {
    faults_.push_back("Item " + ToUtf8(page_.DataCell(row, kItem)) + ": " + text);
  }

  void Indexes(int row) {
    const std::array arrays = {
        std::pair{kNumberLabel, page_.lbl_Item.Count()}, std::pair{kLabel, page_.CaptionLabels.Count()},
        std::pair{kTextIndex, page_.Text.Count()},       std::pair{kComboIndex, page_.Combo.Count()},
        std::pair{kFrameIndex, page_.Frames.Count()},    std::pair{kUnitLabel, page_.lbl_unit.Count()}};
    for (const auto& [column, count] : arrays) {
      const String& index = page_.DataCell(row, column);
      if (index.empty()) {
        continue;
      }
      if (!IsNumeric(index) || LeadingInteger(index) < 0 || LeadingInteger(index) >= count) {
        Fault(row, "no control of this index");
      }
      if (!used_.emplace(page_.Def.ColumnOf(column), LeadingInteger(index)).second) {
        Fault(row, "shares a control");
      }
    }
    if (!page_.GroupItem.Has(LeadingInteger(page_.DataCell(row, kGroup)),
                             LeadingInteger(page_.DataCell(row, kItem)))) {
      Fault(row, "outside the set");
    }
  }

  void Words(int row) {
    const auto is_one_of = [&](DataColumn column, const std::vector<StringView>& words) {
      if (std::find(words.begin(), words.end(), StringView(page_.DataCell(row, column))) == words.end()) {
        Fault(row, "a word without a meaning");
      }
    };
    is_one_of(kUploaded, {u"", u"Y", u"N"});  // the class of an input says no
    is_one_of(kOnPage, {u"", u"Y", u"N"});
    std::vector<StringView> unit_keys = {u"", u"$I10"};
    for (const UnitList& list : page_.UnitLists()) {
      unit_keys.push_back(list.key);
    }
    is_one_of(kUnitKey, unit_keys);
    is_one_of(kTemperature, {u"", u"Item21"});
    is_one_of(kChangeRule, {u"", u"Y", u"N", u"$I10"});
    is_one_of(kWriteCondition, {u"", u"Y", u"$I10", u"$I10_CNECTI11"});
  }

  void Choice(int row) {
    const String& key = page_.DataCell(row, kChoiceKey);
    const bool box = !page_.DataCell(row, kComboIndex).empty();
    const bool group = !page_.DataCell(row, kFrameIndex).empty();
    if ((box || group) == key.empty() || (box && group)) {
      Fault(row, "a box or a group goes with a list, and only one of them");
    }
    if (key.empty()) {
      return;
    }
    const std::optional<StringView> table = TableOf(page_, key, box);
    if (!table) {
      Fault(row, "an unknown list");
      return;
    }
    for (const String& list : test::ListsBehind(page_, *table)) {
      Texts(row, page_.Def[list]);
    }
    if (group) {
      OptionRange(row, *page_.FindOptionRule(key)->options, page_.Def[*table]);
    }
  }

  /// Every text that can be chosen has a code to be written.
  void Texts(int row, const StringTable& table) {
    const int last_text = ListsRanges(row) && !page_.DataCell(row, kComboIndex).empty() ? 3 : 1;
    int texts = 0;
    for (int entry = 0; entry < table.Rows(); ++entry) {
      for (int column = 1; column <= last_text; ++column) {
        if (!table.At(entry, column).empty()) {
          ++texts;
          if (table.At(entry, 0).empty()) {
            Fault(row, "a text without a code");
          }
        }
      }
    }
    if (texts == 0) {
      Fault(row, "an empty list");
    }
  }

  [[nodiscard]] bool ListsRanges(int row) const { return page_.DataCell(row, kChoiceKey) == u"$I11"; }

  void OptionRange(int row, const OptionGroup& options, const StringTable& table) {
    const int last = LeadingInteger(page_.DataCell(row, kLastOption));
    const String& preset = page_.DataCell(row, kDefaultOption);
    if (page_.DataCell(row, kLastOption).empty() || last >= options.Count() || table.At(last, 1).empty()) {
      Fault(row, "no such last option");
    } else if (!preset.empty() && LeadingInteger(preset) > last) {
      Fault(row, "no such default option");
    }
  }

  void Writing(int row) {
    const String& position = page_.DataCell(row, kWritePosition);
    if (position.empty()) {
      return;
    }
    const int last = page_.ItsFamily().word == u"QXI" ? 36 : 20;
    if (!IsNumeric(position) || LeadingInteger(position) < 0 || LeadingInteger(position) > last) {
      Fault(row, "no position of the write list");
    }
    if (!positions_.insert(LeadingInteger(position)).second) {
      Fault(row, "a position that is taken");
    }
    if (page_.DataCell(row, kWriteCondition).empty()) {
      Fault(row, "a position, but never written");
    }
    if (TellsChoice(row) == page_.DataCell(row, kChoiceKey).empty()) {
      Fault(row, "a value is written by its prefix, a choice by its code");
    }
    const bool of_another_class = page_.DataCell(row, kUploaded) == u"N";
    if (page_.DataCell(row, kUploaded) != u"Y" && !of_another_class) {
      Fault(row, "written but not read");
    }
  }

  /// Whether the column of prefixes, or of kinds, says that the row is a choice.
  [[nodiscard]] bool TellsChoice(int row) const {
    if (page_.Def.HasColumn(kItemKind)) {
      return page_.DataCell(row, kItemKind).empty();
    }
    const String& prefix = page_.DataCell(row, kReplyPrefix);
    return page_.ItsFamily().dialect == Dialect::Cok ? prefix.empty() : prefix == u"O" || prefix == u"N";
  }

  /// The table's switch opens its tab later, few models have a cold junction, and nothing opens that of live
  /// values which are not read.
  [[nodiscard]] bool MayBeClosed(int tab) const {
    return tab == page_.TabWith(TextKey::Linearizer) ||
           (tab == page_.TabWith(TextKey::Cjm) && !test::Part<ColdJunction>(page_).Serves()) ||
           (tab == page_.TabWith(TextKey::IoCheck) &&
            !test::Part<StatusMonitor>(page_).cmdMonitorON.Visible());
  }

  /// What the built page shows stands on a tab that can come to the front, and says what it is.
  void Places() {
    for (const Control* control : page_.Controls()) {
      if (!control->Visible() || InView(*control) || page_.InWindow(*control) || InStatus(*control)) {
        continue;
      }
      const int tab = page_.TabOf(*control);
      if (tab < 0) {
        faults_.push_back(control->FullName() + ": without a tab");
      } else if (!page_.Tabs.TabEnabled(tab) && !MayBeClosed(tab)) {
        faults_.push_back(control->FullName() + ": on a tab that never opens");
      }
      const auto* const captioned = dynamic_cast<const CaptionedControl*>(control);
      if (captioned != nullptr && !IsToldByDevice(*control) && captioned->Caption().empty()) {
        faults_.push_back(control->FullName() + ": without a caption");
      }
    }
    for (const OptionRule& rule : page_.OptionRules()) {
      for (int place = 0; place < rule.options->Count(); ++place) {
        const OptionButton& button = (*rule.options)[place];
        if (button.Visible() && (button.Container() == nullptr || !button.Container()->Visible())) {
          faults_.push_back(button.FullName() + ": not in a frame that shows");
        }
      }
    }
  }

  /// Captioned with what the model, its set or its device tells.
  static bool IsToldByDevice(const Control& control) {
    static const std::set<std::string_view> names = {"lbl_unit", "lblThreshold", "unitMeasFreq"};
    return names.contains(control.Name());
  }

  [[nodiscard]] bool InStatus(const Control& control) const {
    const auto& buttons = page_.StatusButtons();
    return std::find(buttons.begin(), buttons.end(), &control) != buttons.end();
  }

  /// Above, beside and below the tabs.
  static bool InView(const Control& control) {
    static const std::set<std::string_view> names = {
        "lst_TypeSelect", "lbl_TypeSelect", "cmdUpload",   "cmdDownload",     "cmdOpen",     "cmdSave",
        "cmdNew",         "cmdCheck",       "cmdExit",     "KvCfg_Tab",       "z2KvCfg_Tab", "ProgressBar",
        "LnrProgressBar", "lbl_FrmVersion", "lbl_Waitfor", "lblMsg_CannotEnd"};
    return names.contains(control.Name());
  }

  ParameterPage& page_;
  Faults faults_;
  std::set<std::pair<int, int>> used_;  ///< column and index
  std::set<int> positions_;
};

/// Chooses the model as the folder holds it and tells what is wrong with its definition.
Faults FaultsOf(test::PageBench& bench, const String& model) {
  bench.Choose(model);
  if (bench.status) {
    return {"ended: " + ToUtf8(bench.dialogs.Failures().at(0))};
  }
  if (Faults boxes = bench.TakeBoxes(); !boxes.empty()) {
    return boxes;
  }
  return Examination(bench.Page()).Run();
}

class EveryDefinitionTest : public testing::TestWithParam<String> {};

TEST_P(EveryDefinitionTest, BuildsItsPageWithoutAFault) {
  test::PageBench bench;
  EXPECT_EQ(FaultsOf(bench, GetParam()), Faults());
  EXPECT_EQ(bench.Page().DefFile, test::DefFileOf(GetParam()));
  EXPECT_FALSE(bench.Page().DataChanged);
}

TEST_P(EveryDefinitionTest, ShowsEachItemOfThePageSomewhere) {
  test::PageBench bench;
  bench.Choose(GetParam());
  const ParameterPage& page = bench.Page();
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.DataCell(row, kOnPage) != u"Y") {
      continue;
    }
    const auto shows = [&](const auto& controls, DataColumn column) {
      const String& index = page.DataCell(row, column);
      return !index.empty() && controls[LeadingInteger(index)].Visible();
    };
    EXPECT_TRUE(shows(page.Text, kTextIndex) || shows(page.Combo, kComboIndex) ||
                shows(page.Frames, kFrameIndex))
        << ToUtf8(page.DataCell(row, kItem));
  }
}

TEST_P(EveryDefinitionTest, LeavesNothingOfTheModelBefore) {
  test::PageBench fresh;
  fresh.Choose(GetParam());
  test::PageBench used;
  for (const String& other : test::AllModels()) {
    used.Choose(other);
  }
  used.Choose(GetParam());
  const auto& expected = fresh.Page().Controls();
  const auto& found = used.Page().Controls();
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t place = 0; place < found.size(); ++place) {
    if (found[place] == &used.Page().Notes) {
      continue;  // it tells of the set, which stays
    }
    EXPECT_EQ(found[place]->Visible(), expected[place]->Visible()) << found[place]->FullName();
    if (found[place]->Visible()) {
      EXPECT_EQ(found[place]->Enabled(), expected[place]->Enabled()) << found[place]->FullName();
      EXPECT_EQ(found[place]->Locked(), expected[place]->Locked()) << found[place]->FullName();
      EXPECT_EQ(found[place]->ShownLook(), expected[place]->ShownLook()) << found[place]->FullName();
    }
  }
}

/// True when a download writes the row, or the first row of two numbers that are one item.
bool IsWrittenWithItsItem(const ParameterPage& page, int row) {
  const String& key = page.DataCell(row, kItem);
  const bool second = key.ends_with(u"_100") || key.ends_with(u"_Max");
  return page.IsWritten(row) || (second && page.IsWritten(row - 1));
}

TEST_P(EveryDefinitionTest, ShowsNothingInTheFieldsOfLiveValuesWhenThePageIsBuiltAgainAndKeepsTheSet) {
  test::PageBench bench;
  bench.Choose(GetParam());
  ParameterPage& page = bench.Page();
  for (const char16_t* item : {u"03_set", u"03_mon", u"05", u"07"}) {
    const int row = page.FindDataRow(item);
    if (row >= 0 && !page.IsWritten(row)) {
      bench.Do([&] { page.FindField(item)->SetText(u"50"); });
    }
  }
  const ParameterSet kept = page.GroupItem;
  bench.Do([&] { page.BuildPage(); });
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (!IsWrittenWithItsItem(page, row) && !page.DataCell(row, kTextIndex).empty()) {
      EXPECT_EQ(page.Text[LeadingInteger(page.DataCell(row, kTextIndex))].Text(), u"")
          << ToUtf8(page.DataCell(row, kItem));
      EXPECT_EQ(page.SetCell(row), kept.At(page.DataCell(row, kGroup), page.DataCell(row, kItem)));
    }
  }
}

TEST_P(EveryDefinitionTest, HasNumbersInAllItsFieldsButTheTagAndANetworksAddress) {
  test::PageBench bench;
  bench.Choose(GetParam());
  ParameterPage& page = bench.Page();
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.DataCell(row, kOnPage) == u"Y" && !page.DataCell(row, kTextIndex).empty()) {
      EXPECT_EQ(page.Text[LeadingInteger(page.DataCell(row, kTextIndex))].Numeric(),
                page.DataCell(row, kItem) != u"02" && page.DataCell(row, kItemKind) != u"HEXADR")
          << ToUtf8(page.DataCell(row, kItem));
    }
  }
}

TEST_P(EveryDefinitionTest, MarksATextThatIsNoNumberInEachFieldThatIsSentAndInNoOther) {
  test::PageBench bench;
  bench.Connect(GetParam());
  bench.Choose(GetParam());
  bench.Upload();
  ParameterPage& page = bench.Page();
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    if (page.DataCell(row, kOnPage) != u"Y" || page.DataCell(row, kTextIndex).empty()) {
      continue;
    }
    TextField& field = page.Text[LeadingInteger(page.DataCell(row, kTextIndex))];
    EXPECT_FALSE(field.Marked()) << "of the device: " << ToUtf8(field.Text());
    if (!page.WhyRefused(field).empty()) {
      continue;
    }
    bench.Type(field, u"1,5");
    const bool sent = IsWrittenWithItsItem(page, row) && page.DataCell(row, kItem) != u"02";
    EXPECT_EQ(field.Marked(), sent) << ToUtf8(page.DataCell(row, kItem));
    // Some send the number that it begins with, and some another one of the same item before it.
    const String name = u"Item " + page.DataCell(row, kItem) + (page.IsWritten(row) ? u"「1" : u"「");
    EXPECT_EQ(page.Notes.Told(Notice::NotPlain).find(name) != String::npos, sent) << ToUtf8(name);
  }
}

std::string ModelName(const testing::TestParamInfo<String>& parameter) {
  return "Model_" + ToUtf8(parameter.param);
}

INSTANTIATE_TEST_SUITE_P(Each, EveryDefinitionTest, testing::ValuesIn(test::AllModels()), ModelName);

TEST(FamilyFirst, HasItsTwentyThreeModelsInTheCatalogue) {
  const std::vector<String> models = {
      u"QHW", u"QL",  u"QHN", u"QHN1", u"QHN2", u"QHN3", u"QHN4", u"QHN6", u"QHNY1", u"QHNY2", u"QHW1", u"QC",
      u"QN",  u"QUO", u"QH",  u"QHG",  u"QD",   u"QD2",  u"QD2I", u"QY",   u"QEI",   u"QZ",    u"10QCE"};
  EXPECT_EQ(test::FirstModels(), models);
}

// The checks can fail.

/// The text with field `column` of the $Data row of `item` replaced.
String WithField(const String& text, const String& item, DataColumn column, const String& value) {
  const std::size_t data = text.find(u"$Data\r\n");
  for (std::size_t begin = data; begin < text.size();) {
    const std::size_t end = text.find(u"\r\n", begin);
    std::vector<String> fields;
    for (std::size_t at = begin; at <= end;) {
      const std::size_t comma = std::min(text.find(u',', at), end);
      fields.push_back(text.substr(at, comma - at));
      at = comma + 1;
    }
    if (fields.size() > 1 && Trimmed(fields[1]) == item) {
      const auto place = static_cast<std::size_t>(kUsualLayout.*column);
      fields.resize(std::max(fields.size(), place + 1));
      fields[place] = value;
      String line;
      for (const String& field : fields) {
        line += (line.empty() ? u"" : u",") + field;
      }
      return text.substr(0, begin) + line + text.substr(end);
    }
    begin = end + 2;
  }
  throw std::logic_error("no row of item " + ToUtf8(item));
}

String Replaced(const String& text, StringView old_text, StringView new_text) {
  const std::size_t at = text.find(old_text);
  if (at == String::npos) {
    throw std::logic_error("nothing to replace: " + ToUtf8(old_text));
  }
  return text.substr(0, at) + String(new_text) + text.substr(at + old_text.size());
}

/// One fault in a good definition, and what the examination says of it.
struct BrokenDefinition {
  std::string name;
  String model;
  std::string fault;
  std::function<String(const String& good)> broken;
};

/// The $Data row of `item` has `value` in `column`.
BrokenDefinition Field(const std::string& name, const String& model, const String& item, DataColumn column,
                       const String& value, const std::string& fault) {
  return {.name = name, .model = model, .fault = fault, .broken = [=](const String& good) {
            return WithField(good, item, column, value);
          }};
}

/// `old_text` reads `new_text`.
BrokenDefinition Lines(const std::string& name, const String& model, const String& old_text,
                       const String& new_text, const std::string& fault) {
  return {.name = name, .model = model, .fault = fault, .broken = [=](const String& good) {
            return Replaced(good, old_text, new_text);
          }};
}

void PrintTo(const BrokenDefinition& broken, std::ostream* out) { *out << broken.name; }

class BrokenDefinitionTest : public testing::TestWithParam<BrokenDefinition> {};

TEST_P(BrokenDefinitionTest, IsFound) {
  const BrokenDefinition& broken = GetParam();
  test::PageBench bench;
  const String bad = broken.broken(bench.TextOf(test::DefPath(broken.model)));
  bench.files.Put(test::DefPath(broken.model), bench.code_page.Encode(bad).value());
  const Faults faults = FaultsOf(bench, broken.model);
  EXPECT_TRUE(std::any_of(faults.begin(), faults.end(), [&](const std::string& fault) {
    return fault.find(broken.fault) != std::string::npos;
  })) << (faults.empty() ? "no fault" : faults[0]);
}

const std::string kNoControl = "に当たる部品が画面にありません";
const std::string kDefFault = "defﾌｧｲﾙのﾌｫｰﾏｯﾄｴﾗｰです";

INSTANTIATE_TEST_SUITE_P(
    OneFaultEach, BrokenDefinitionTest,
    testing::Values(
        Field("FieldBeyondItsArray", u"QL", u"14", kTextIndex, u"44", kNoControl),
        Field("NegativeField", u"QL", u"14", kTextIndex, u"-1", kNoControl),
        Field("BoxBeyondItsArray", u"QL", u"10", kComboIndex, u"4", kNoControl),
        Field("FrameBeyondItsArray", u"QZ", u"10", kFrameIndex, u"10", kNoControl),
        Field("NumberLabelBeyondItsArray", u"QL", u"14", kNumberLabel, u"55", kNoControl),
        Field("CaptionLabelBeyondItsArray", u"QL", u"14", kLabel, u"45", kNoControl),
        Field("UnitLabelBeyondItsArray", u"QL", u"14", kUnitLabel, u"41", kNoControl),
        Field("DefaultOptionBeyondItsGroup", u"QZ", u"10", kDefaultOption, u"2", kNoControl),
        Field("IndexOfARowThatThePageLeavesOut", u"QUO", u"99", kTextIndex, u"44", "no control"),
        Field("FieldOfTwoRows", u"QL", u"15", kTextIndex, u"9", "shares a control"),
        Field("UnitLabelOfTwoRows", u"QL", u"15", kUnitLabel, u"9", "shares a control"),
        Field("DoubledPosition", u"QL", u"15", kWritePosition, u"3", "taken"),
        Field("PositionBeyondTheList", u"QL", u"15", kWritePosition, u"21", "no position"),
        Field("PositionThatIsNoNumber", u"QL", u"15", kWritePosition, u"last", "no position"),
        Field("PositionWithoutACondition", u"QL", u"15", kWriteCondition, u"", "never written"),
        Field("UnknownCondition", u"QL", u"15", kWriteCondition, u"$I11", "without a meaning"),
        Field("ValueWithoutAPrefix", u"QL", u"15", kReplyPrefix, u"", "by its prefix"),
        Field("WrittenButNotRead", u"QL", u"15", kUploaded, u"", "not read"),
        Field("UnknownListOfABox", u"QL", u"11", kChoiceKey, u"$I21", "unknown list"),
        Field("UnknownListOfAGroup", u"QZ", u"10", kChoiceKey, u"$I23", "unknown list"),
        Field("ListWithoutABox", u"QL", u"11", kComboIndex, u"", "goes with a list"),
        Field("UnknownUnitKey", u"QL", u"14", kUnitKey, u"$I21", "without a meaning"),
        Field("FieldWithoutATab", u"QL", u"14", kTextIndex, u"38", "Text(38): without a tab"),
        Field("FrameWithoutATab", u"QZ", u"10", kFrameIndex, u"8", "Frame(8): without a tab"),
        Field("FieldOnATabThatNeverOpens", u"QL", u"14", kTextIndex, u"30", "never opens"),
        Field("LabelWithoutACaption", u"QL", u"14", kCaption, u"", "Label(19): without a caption"),
        Field("LastOptionBeyondTheList", u"QZ", u"10", kLastOption, u"2", "last option"),
        Field("GroupOutsideTheSet", u"QL", u"14", kGroup, u"09", "Group 9"),
        Field("ItemOutsideTheSet", u"QL", u"14", kItem, u"500", "Item 500"),
        Lines("UnknownSection", u"QL", u"$I10\r\n", u"$I12\r\n", kDefFault),
        Lines("SectionOfAnotherFamily", u"QL", u"$SSTab", u"$I26\r\n$SSTab", kDefFault),
        Lines("MissingSection", u"QC", u"$I21\r\n0, deg C, deg C\r\n1, deg F, deg F\r\n2, K,     K\r\n", u"",
              "an empty list"),
        Lines("TextWithoutACode", u"QL", u"\r\n2, 2:DC V,", u"\r\n , 2:DC V,", "a text without a code"),
        Lines("NoRows", u"QL", u"$Data", u"Data", "no rows")),
    [](const testing::TestParamInfo<BrokenDefinition>& parameter) { return parameter.param.name; });

}  // namespace
}  // namespace korva
