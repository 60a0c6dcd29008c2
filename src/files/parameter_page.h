#pragma once

#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <vector>

#include "core/control_array.h"
#include "files/definition.h"
#include "files/item_key.h"
#include "files/model_set.h"
#include "files/parameter_set.h"
#include "link/device_page.h"

namespace korva {

/// A group of option buttons that stands for an item: the button's place is the row of the item's cell in the
/// table.
struct OptionRule {
  StringView key;    ///< "$I21QD", as in column 11
  StringView table;  ///< "$I21QD"; the range's is "$I11Body"
  StringView item;   ///< "21": the item of group "01" that a press of a button sets
  OptionGroup* options = nullptr;
  bool captions_from_table = false;       ///< the buttons are captioned with the texts of the table
  ListColumn keeps = &ListColumns::text;  ///< what the item's cell holds of the row that was chosen
  ModelSet models = {};                   ///< only on these; empty: on all
  bool reads_codes = false;               ///< a cell that has the code of a row means that row
};

/// What a page with a parameter set is told of its family, beyond its kind. All of it outlives the page.
struct PageForms {
  const DeviceTraits& device;
  const DefinitionForm& definition;
  const FieldForm& fields;
};

/// A page with a parameter set: what the definition file says of the model, the text of every item, and the
/// fields that show them.
///
/// `GroupItem` is the truth. While the page is being built, what is put into fields writes nothing back and
/// is no edit; any other change of a field, by the user or by the program, goes into `GroupItem`. An edit of
/// a field or combo box sets `DataChanged`, a press of an option button does not.
///
/// A definition that names a control, button or item which the page lacks ends the program with a text that
/// names the file, the row and the column.
class ParameterPage : public DevicePage {
 public:
  ParameterPage(Program& program, const PageKind& kind, const PageForms& forms, DeviceLink& link);

  // Building the page.
  void BuildPage() override;  ///< shows the whole set, author and memo too; may be called at any time
  void ClearPage();           ///< hides every field, empties the units, puts every option off
  /// Presses the default option of each row whose cell is empty, but for rows that the page does not show.
  void ApplyDefaults();

  /// Index of the field of a row, by its two-digit texts (one digit is padded); -1 when it has none.
  [[nodiscard]] int FindTextIndex(const ItemKey& item) const;
  /// The field itself; nullptr when the row has none.
  [[nodiscard]] TextField* FindField(const ItemKey& item);
  /// First row of $Data whose combo box is `box`; the number of rows when there is none.
  [[nodiscard]] int FindComboRow(int box) const;
  /// First row of $Data with these texts in columns 0 and 1, -1 when there is none.
  [[nodiscard]] int FindDataRow(const ItemKey& item) const;
  /// Row of $I10 whose text is `text` and not empty; -1 when there is none.
  [[nodiscard]] int FindI10Row(const String& text) const;
  /// Row of $I10 of the present item 10, -1 when it stands in none.
  [[nodiscard]] int InputTypeRow() const;
  /// Title index (0 to 9) that the input type of this $I10 row selects in $I11Title: 0 no range, 1 to 3 a
  /// column group of $I11Body; -1 for an unknown title. Row -1 gives 0.
  [[nodiscard]] int TitleIndex(int i10_row) const;
  /// The ranges under the title of the present input type; nothing without one.
  [[nodiscard]] std::optional<ChoiceList> RangesOfType() const;
  /// Colours the field of an item, if it has one.
  void SetFieldColor(const ItemKey& item, Look look);
  /// Empties, locks and greys a field, or opens it with window colours.
  static void CloseField(TextField& field);
  static void OpenField(TextField& field);

  // The page's file commands.
  /// cmdOpen. A file of another family's model opens on that family's page, which reads it itself; this page
  /// then keeps its values.
  void OpenCommand();
  void NewCommand();  ///< cmdNew
  void OpenChosenFile() override;
  void OpenFile(const String& path) override;
  /// What a save dialog proposes: the tag, or without one the model, with `suffix` (".cfg"). Characters that
  /// no file can be named with become "_".
  [[nodiscard]] String ProposedName(StringView suffix) const;
  bool SaveCfgFile() override;
  bool SaveRescueFile(const String& path) override;
  void ClearParameterSet() override;

  /// Cell of a row of $Data.
  [[nodiscard]] const String& DataCell(int row, DataColumn column) const { return Def.Cell(row, column); }
  /// True when the row of $Data is fixed: its value is shown and can't be changed.
  [[nodiscard]] bool Fixed(int row) const { return DataCell(row, kChangeRule) == u"Y"; }
  /// True when a download writes the row, so that it holds a parameter and no live value.
  [[nodiscard]] bool IsWritten(int row) const;
  /// True when the field of the row is for a live value: what it shows is known only once the device was
  /// asked, so a page that is built again shows nothing there, whatever the set holds.
  [[nodiscard]] bool IsLive(int row) const;
  /// True when the field of the row may be blank in a set that goes to the device.
  [[nodiscard]] bool MayBeBlank(int row) const;
  /// True when the box of the row must not be blank in a set that goes to the device.
  [[nodiscard]] bool NeedsChoice(int row) const;
  /// Item of group 1 of the set.
  [[nodiscard]] const String& Item(int item) const { return GroupItem.At(1, item); }
  void SetItem(int item, const String& value) { GroupItem.Set(1, item, value); }

  // Rows, as the page's parts need them.
  /// The index that a row has in `column` for an array of `count` controls. Any other text than such an index
  /// ends the program with a text that names the definition, the row and the column.
  [[nodiscard]] int Place(int row, DataColumn column, int count) const;
  /// True when the row has a field on the page, and the field is for a number.
  [[nodiscard]] bool IsNumberRow(int row) const;
  /// The item of a row, as the page and as the device names it.
  [[nodiscard]] ItemKey KeyOf(int row) const { return {DataCell(row, kGroup), DataCell(row, kItem)}; }
  [[nodiscard]] WireItem WireOf(int row) const { return KeyOf(row).OnWire(); }
  /// Cell of the set that a row stands for.
  [[nodiscard]] const String& SetCell(int row) const;
  /// What the field of a row shows of its cell, which is not NEEDLESS.
  [[nodiscard]] String ShownText(int row) const;
  /// What the cell of a row takes of the text in its field.
  [[nodiscard]] String CellOf(int row, const String& text) const;
  /// Presses the default option of a row, if it has one and its cell is empty.
  void ApplyDefault(int row);
  /// Shows one row of the page anew from the set.
  void ShowAgain(int row);
  /// Shows the unit of one row anew, if it has one.
  void ShowUnit(int row);
  /// The unit label of a row; nullptr when it has none, or there is no such row (-1).
  [[nodiscard]] Label* UnitLabelOf(int row);
  /// The temperature unit that is chosen, empty for none.
  [[nodiscard]] String TemperatureUnit() const;
  /// True while BuildPage puts values into fields.
  [[nodiscard]] bool Building() const { return building_; }
  void MarkEdited();  ///< sets DataChanged, unless an upload puts values into the fields
  /// Lists the ranges of the present input type in a combo box and opens it; without a title it is closed
  /// empty.
  void FillRangeList(ComboBox& box) const;
  /// Unit of all rows that follow item 10, from the row of $I10; -1 and a row without a code give none.
  void ShowInputTypeUnits(int i10_row);
  /// Unit of all rows whose unit comes from the choice in this section.
  void ShowUnitsOf(StringView unit_key, const String& unit);
  /// Settles the tabs that depend on the model and its set.
  void SettleTabs(TabMoment moment);
  /// The definition's flag of a tab in $SSTab; empty where its family has none.
  [[nodiscard]] const String& TabFlag(int tab) const;
  /// State of a tab from before an operation locked the frame. It is kept beside the definition, whose flags
  /// go on telling what the model has.
  [[nodiscard]] bool KeptTabEnabled(int tab) const override;

  // What the page's parts bring along.
  /// Makes an array of controls fields: ClearPage hides them.
  template <typename T>
  void RegisterFields(ControlArray<T>& controls) {
    Register(controls);
    for (int index = 0; index < controls.Count(); ++index) {
      fields_.push_back(&controls[index]);
    }
  }
  /// Adds a group of option buttons to the fields: ClearPage hides it, a press sets the item of its rule.
  /// Where models differ, the first rule of a key that serves the chosen one counts.
  void AddOptions(const OptionRule& rule);
  [[nodiscard]] std::span<const OptionRule> OptionRules() const { return option_rules_; }
  /// The rule of the key that serves the chosen model; nullptr when there is none.
  [[nodiscard]] const OptionRule* FindOptionRule(StringView key) const;

  // The family's lists.
  [[nodiscard]] std::span<const ListRule> Lists() const { return fields_form_.lists; }
  [[nodiscard]] std::span<const UnitList> UnitLists() const { return fields_form_.unit_lists; }

  Definition Def;
  ParameterSet GroupItem;

  ControlArray<Label> lbl_Item;
  ControlArray<Label> CaptionLabels;  ///< the array "Label"
  ControlArray<TextField> Text;
  ControlArray<Frame> Frames;  ///< the array "Frame"
  ControlArray<ComboBox> Combo;
  ControlArray<Label> lbl_unit;
  OptionGroup optTempUnit{"optTempUnit", 3};

 protected:
  // The page frame's steps.
  void ReadModel() override;
  void KeepTabState(int tab, bool enabled) override;

 private:
  /// True for the row of one of these items of group "01".
  [[nodiscard]] bool IsAmong(std::span<const StringView> items, int row) const;

  // Building a row.
  void BuildRow(int row);
  void ShowField(int row);
  void ShowBox(int row);
  void FillInputTypes(ComboBox& box, int row, const ChoiceList& types) const;
  /// Lists the rows that have something in `column`.
  void FillUsedRows(ComboBox& box, int row, const ChoiceList& list, ListColumn column);
  /// Place of the option in the cell of a row, -1 for none. A cell that names it by its text, as a device or
  /// a file does, or by its code where the rule allows that, takes what the rule keeps.
  int TakeOption(int row, const OptionRule& rule, const ChoiceList& list);
  void ShowOptions(int row);
  void FixOptions(int row, OptionGroup& options) const;
  /// Shows the unit of a row that has a unit label: a part's, or else this one.
  void PutUnit(int row, const String& unit);
  void ShowTemperatureUnits();
  /// The list whose choice brings a unit, by its key; nullptr when the key is another list's.
  [[nodiscard]] const UnitList* FindUnitList(const String& key) const;
  [[nodiscard]] String UnitFrom(const UnitList& list) const;
  [[nodiscard]] const OptionRule* RuleOf(const OptionGroup& options) const;

  // Events of the fields.
  void RegisterField(OptionGroup& options);
  void ListenToFields();
  void TextChanged(int index);
  void ComboClicked(int index);
  void OptionClicked(OptionGroup& options, int place);
  void Tell(const Choice& choice);

  /// Makes the titles of the model's items those that its device is expected to answer, and no others: a
  /// device of the other dialect answers with none.
  void LoadItemTitles();
  /// After the definition was read: opens or closes the tabs that follow its flags. The tabs of a family
  /// whose definitions have none stay as they are.
  void SettleFlaggedTabs();

  // Files.
  std::optional<String> ChooseCfgFile(bool save);
  void TakePath(const String& path);
  void OpenTakenPath();
  void ShowFileName();
  [[nodiscard]] String TextToSave() const;  ///< of a configuration file
  void SelectModelOfFile(int row);

  const FieldForm& fields_form_;
  std::set<int> closed_tabs_;  ///< closed before the frame was locked
  bool building_ = false;
  std::vector<Control*> fields_;
  std::vector<OptionGroup*> options_;
  std::vector<OptionRule> option_rules_;
};

}  // namespace korva
