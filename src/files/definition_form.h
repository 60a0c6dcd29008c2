#pragma once

#include <array>
#include <span>

#include "core/or_none.h"
#include "platform/string.h"

namespace korva {

inline constexpr int kDataWidth = 26;               ///< columns of $Data
inline constexpr StringView kTabFlags = u"$SSTab";  ///< the section with a flag for each tab

/// The column of $Data for each purpose; -1: none. A family tells what it has elsewhere than family First,
/// whose columns these are.
struct DataLayout {
  int group = 0;         ///< as sent on the wire
  int item = 1;          ///< as sent on the wire, or a tag such as 03_set
  int number_label = 2;  ///< index of lbl_Item
  int number_caption = 3;
  int uploaded = 4;          ///< Y: read at upload
  int on_page = 5;           ///< Y: takes part in the page
  int label = 6;             ///< index of Label
  int caption = 7;           ///< Japanese; the English one stands behind it
  int text_index = 9;        ///< of Text
  int combo_index = 10;      ///< of Combo
  int choice_key = 11;       ///< the list of the combo box or option group
  int frame_index = 12;      ///< of Frame
  int unit_label = 13;       ///< index of lbl_unit
  int unit_text = 14;        ///< $in: the unit of the temperature option
  int unit_key = 15;         ///< the section whose choice brings the unit
  int temperature = 16;      ///< Item21: a temperature, which follows the unit option
  int last_option = 17;      ///< last index of the option group
  int default_option = 18;   ///< index of the option button of a new set
  int change_rule = 19;      ///< Y: fixed
  int write_condition = 20;  ///< when the item is written
  int reply_prefix = 22;
  int write_position = 23;  ///< place in the order of writing, from 0
  int unit_box = -1;        ///< index of the box from which the value's unit is chosen
  int unit_code_item = -1;  ///< the item that takes the unit's code; empty: 11
  int item_kind =
      -1;  ///< empty: a choice; TG:, FINZER, FINSPN; any other word: a value that goes out as text
  int threshold_low = -1;  ///< lowest threshold in volts
  int threshold_high = -1;
  int item_title = -1;  ///< the item's title on the device's display
};

/// A column of $Data by its purpose.
using DataColumn = int DataLayout::*;
inline constexpr DataColumn kGroup = &DataLayout::group;
inline constexpr DataColumn kItem = &DataLayout::item;
inline constexpr DataColumn kNumberLabel = &DataLayout::number_label;
inline constexpr DataColumn kNumberCaption = &DataLayout::number_caption;
inline constexpr DataColumn kUploaded = &DataLayout::uploaded;
inline constexpr DataColumn kOnPage = &DataLayout::on_page;
inline constexpr DataColumn kLabel = &DataLayout::label;
inline constexpr DataColumn kCaption = &DataLayout::caption;
inline constexpr DataColumn kTextIndex = &DataLayout::text_index;
inline constexpr DataColumn kComboIndex = &DataLayout::combo_index;
inline constexpr DataColumn kChoiceKey = &DataLayout::choice_key;
inline constexpr DataColumn kFrameIndex = &DataLayout::frame_index;
inline constexpr DataColumn kUnitLabel = &DataLayout::unit_label;
inline constexpr DataColumn kUnitText = &DataLayout::unit_text;
inline constexpr DataColumn kUnitKey = &DataLayout::unit_key;
inline constexpr DataColumn kTemperature = &DataLayout::temperature;
inline constexpr DataColumn kLastOption = &DataLayout::last_option;
inline constexpr DataColumn kDefaultOption = &DataLayout::default_option;
inline constexpr DataColumn kChangeRule = &DataLayout::change_rule;
inline constexpr DataColumn kWriteCondition = &DataLayout::write_condition;
inline constexpr DataColumn kReplyPrefix = &DataLayout::reply_prefix;
inline constexpr DataColumn kWritePosition = &DataLayout::write_position;
inline constexpr DataColumn kUnitBox = &DataLayout::unit_box;
inline constexpr DataColumn kUnitCodeItem = &DataLayout::unit_code_item;
inline constexpr DataColumn kItemKind = &DataLayout::item_kind;
inline constexpr DataColumn kThresholdLow = &DataLayout::threshold_low;
inline constexpr DataColumn kThresholdHigh = &DataLayout::threshold_high;
inline constexpr DataColumn kItemTitle = &DataLayout::item_title;

// The layouts of several families.
inline constexpr DataLayout kUsualLayout = {};
/// The dialect of "enter item" needs the items' titles, and its replies have no prefix.
inline constexpr DataLayout kTitledLayout = {.reply_prefix = -1, .item_kind = 22, .item_title = 25};
/// Values have a unit of their own, chosen in a box.
inline constexpr DataLayout kUnitBoxLayout = {.unit_text = 15,
                                              .unit_key = -1,
                                              .temperature = -1,
                                              .last_option = 18,
                                              .default_option = 19,
                                              .change_rule = 20,
                                              .write_condition = 21,
                                              .write_position = 24,
                                              .unit_box = 14,
                                              .item_title = 25};

/// What the columns of a list of choices hold, by number; -1: the list has none of it. A column may hold two
/// things.
struct ListColumns {
  int code = 0;          ///< as sent
  int text = 1;          ///< as the device reports it
  int low = -1;          ///< lowest value of what the choice limits
  int high = -1;         ///< its highest value
  int span = -1;         ///< least distance of its two ends
  int preset_low = -1;   ///< value that the choice brings to the low end
  int preset_high = -1;  ///< and to the high end
  int unit = -1;
  int settable = -1;     ///< Y: the device can be set to it from here
  int fixed = -1;        ///< Y: fixed in the device; N: may be picked
  int title = -1;        ///< of the ranges under this choice
  int list = -1;         ///< key of the list of this class
  int kind = -1;         ///< of the input, as a letter
  int input_class = -1;  ///< of the input
  int tag = -1;          ///< in the model text
  int adc = -1;          ///< type of the converter
  int step = -1;         ///< of the values
  int span_base = -1;    ///< the highest span is a multiple of it
  /// Text columns side by side, one for each title, each with its own pair of limits.
  int titles = 1;
};
/// A column of a list by what it holds.
using ListColumn = int ListColumns::*;

enum class SectionKind { Table, List, Block };

/// One section of a family's definition files: a table of rows; a list, which is one row; or a block of
/// further sections ($I11 with the list $I11Title and the table $I11Body), which name it as theirs.
struct SectionShape {
  StringView key;
  int rows = 1;
  int columns = 0;
  SectionKind kind = SectionKind::Table;
  StringView block = {};   ///< the block in which the section stands; empty: in none
  ListColumns means = {};  ///< of a list of choices
};

// Lists of several families.
/// Input types of the first line.
inline constexpr ListColumns kFirstTypes = {.low = 2,
                                            .high = 3,
                                            .span = 4,
                                            .preset_low = 2,
                                            .preset_high = 3,
                                            .unit = 8,
                                            .settable = 6,
                                            .fixed = 5,
                                            .title = 7};
/// Its ranges ($I11Body), under three titles.
inline constexpr ListColumns kFirstRanges = {
    .low = 4, .high = 5, .preset_low = 4, .preset_high = 5, .titles = 3};
/// Its sensors.
inline constexpr ListColumns kSensorList = {.unit = 2, .span_base = 3};
inline constexpr ListColumns kListWithUnits = {.unit = 2};

/// The form of a family's definition files.
struct DefinitionForm {
  std::span<const SectionShape> sections;
  OrNone<StringView> only_file;  ///< serves every model of the family; none: one file a model
  const DataLayout& layout;
  /// A key that is no section but stands for one of the lists, whichever was chosen; empty: there is none.
  StringView chosen_list = {};
};

/// Highest indexes of a page's control arrays.
struct FieldArrays {
  int lbl_item;
  int label;
  int text;
  int frame;
  int combo;
  int lbl_unit;
};

/// How the list of a combo box is filled, by the key in its row's column 11.
enum class ListFill {
  InputType,  ///< by the row's change rule (column 19)
  Range,      ///< the column of the range table under the present input type's title
  Whole,      ///< column 1 of all rows of the table
  Coded,      ///< column 1 of all rows with a code; a fixed row's box is locked
  Texts,      ///< column 1 of all rows with a text; a fixed row's box is locked
};
struct ListRule {
  StringView key;    ///< "$I10"
  StringView table;  ///< "$I10"; the range's is "$I11Body"
  ListFill fill = ListFill::Whole;
};

/// A list whose choice brings a unit: column 2 of the row whose text the item has.
struct UnitList {
  StringView key;  ///< "$I11QEI"
  int item = 0;    ///< of group 1, 0 to 99
};

/// What a page shows of its family's definitions, and how.
struct FieldForm {
  FieldArrays arrays;
  int groups;  ///< of the parameter set
  std::span<const ListRule> lists;
  std::span<const UnitList> unit_lists;
  /// The items of group "01" that show live values on models that don't write them; their fields may be
  /// blank.
  std::span<const StringView> live_items;
  /// The items of group "01" whose fields hold texts; all other fields hold numbers.
  std::span<const StringView> text_items;
  /// The items of group "01" whose fields may be blank when the set is checked: something else than a
  /// download sends them.
  std::span<const StringView> blank_items = {};
  /// The items of group "01" whose combo boxes may not be blank when the set is checked.
  std::span<const StringView> needed_choices = {};
  /// The group of the set with which the values of a configuration file begin: 2 where the table goes ahead.
  int first_saved_group = 0;
};

/// The text of the families that have only the tag.
inline constexpr std::array<StringView, 1> kTagAlone = {u"02"};
/// The data of a cold junction, which are checked where they are changed.
inline constexpr std::array<StringView, 2> kColdJunctionItems = {u"34", u"35"};
/// The input, and the output or both outputs.
inline constexpr std::array<StringView, 2> kTypes10And11 = {u"10", u"11"};
inline constexpr std::array<StringView, 3> kTypesOfTwoOutputs = {u"10", u"11", u"41"};

}  // namespace korva
