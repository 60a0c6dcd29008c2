#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "core/control_array.h"
#include "files/definition.h"
#include "files/model_traits.h"
#include "files/parameter_set.h"
#include "link/device_page.h"

namespace korva {

/// Highest indexes of a page's control arrays.
struct FieldArrays {
  int lbl_item = 0;
  int label = 0;
  int text = 0;
  int frame = 0;
  int combo = 0;
  int lbl_unit = 0;
};

/// How the list of a combo box is filled, by the key in its row's column 11.
enum class ListFill {
  InputType,  ///< by the row's change rule (column 19)
  Range,      ///< the column of the range table under the present input type's title
  Whole,      ///< column 1 of all rows of the table
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

/// A group of option buttons that stands for an item: the button's place is the row of the item's text in the
/// table. The page has registered the group.
struct OptionRule {
  StringView key;    ///< "$I21QD", as in column 11
  StringView table;  ///< "$I21QD"; the range's is "$I11Body"
  StringView item;   ///< "21": the item of group "01" that a press of a button sets
  OptionGroup* options = nullptr;
  bool captions_from_table = false;  ///< the buttons are captioned with column 1 of the table
};

/// When the state of the linearizer's tab is settled; the rules differ.
enum class TabMoment { ModelChosen, FileOpened, Uploaded };

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
  ParameterPage(Program& program, const PageKind& kind, DeviceLink& link, const FieldArrays& arrays,
                int groups);

  // Building the page.
  void BuildPage() override;  ///< shows the whole set, author and memo too; may be called at any time
  void ClearPage();           ///< hides every field, empties the units, puts every option off
  void ApplyDefaults();       ///< presses the default option of each row whose cell is empty

  /// Index of the field of a row, by its two-digit texts (one digit is padded); -1 when it has none.
  [[nodiscard]] int FindTextIndex(const String& group, const String& item) const;
  /// The field itself; nullptr when the row has none.
  [[nodiscard]] TextField* FindField(const String& item);
  /// First row of $Data whose combo box is `box`; the number of rows when there is none.
  [[nodiscard]] int FindComboRow(int box) const;
  /// First row of $Data with these texts in columns 0 and 1, -1 when there is none.
  [[nodiscard]] int FindDataRow(const String& group, const String& item) const;
  /// Row of $I10 whose text is `text` and not empty; -1 when there is none.
  [[nodiscard]] int FindI10Row(const String& text) const;
  /// Row of $I10 of the present item 10, -1 when it stands in none.
  [[nodiscard]] int InputTypeRow() const;
  /// Title index (0 to 9) that the input type of this $I10 row selects in $I11Title: 0 no range, 1 to 3 a
  /// column group of $I11Body; -1 for an unknown title. Row -1 gives 0.
  [[nodiscard]] int TitleIndex(int i10_row) const;
  /// Colours the field of an item of group "01", if it has one.
  void SetFieldColor(const String& group, const String& item, Look look);
  /// Empties, locks and greys a field, or opens it with window colours.
  static void CloseField(TextField& field);
  static void OpenField(TextField& field);

  // The page's file commands.
  /// cmdOpen. A file of another family's model opens on that family's page, which reads it itself; this page
  /// then keeps its values.
  void OpenCommand();
  void NewCommand();  ///< cmdNew
  void OpenChosenFile() override;
  bool SaveCfgFile() override;
  bool SaveRescueFile(const String& path) override;
  void ClearParameterSet() override;

  /// What the page knows of the chosen model beyond its definition.
  [[nodiscard]] const ModelTraits& Traits() const { return TraitsOf(TraitTable(), DefFile); }
  /// Cell of a row of $Data.
  [[nodiscard]] const String& DataCell(int row, DataColumn column) const { return Def.Cell(row, column); }
  /// True when the row of $Data is fixed: its value is shown and can't be changed.
  [[nodiscard]] bool Fixed(int row) const { return DataCell(row, kChangeRule) == u"Y"; }
  /// True when a download writes the row, so that it holds a parameter and no live value.
  [[nodiscard]] bool IsWritten(int row) const;
  /// Item of group 1 of the set.
  [[nodiscard]] const String& Item(int item) const { return GroupItem.At(1, item); }
  void SetItem(int item, const String& value) { GroupItem.Set(1, item, value); }

  // What depends on the family's linearizer.
  /// Enables or disables the linearizer's tab, and sets its table up, as the model and its set say.
  void SettleLnrTab(TabMoment moment);
  /// True when the model's linearizer is in use.
  [[nodiscard]] bool LnrActive() const;
  /// True when the switch of the model's linearizer stands at none.
  [[nodiscard]] bool LnrSwitchedOff() const;
  /// Tells in the status area that the table was read from a file and would be lost unless the set is saved.
  /// Such a table is no edit: nothing asks about it.
  void SetTableUnsaved(bool unsaved) { lbl_LnrUnsaved.SetVisible(unsaved); }
  [[nodiscard]] bool TableUnsaved() const { return lbl_LnrUnsaved.Visible(); }
  /// Index of the linearizer's tab; -1 on pages without one.
  [[nodiscard]] virtual int LnrTab() const { return -1; }
  /// Sizes the grid for the table (17 or 101 rows) and shows the set's points in it; `points` is 16 or 100.
  virtual void SetUpTable(int /*points*/) {}
  /// Empties the grid and its editor.
  virtual void ClearTable() {}

  // The family's lists.
  [[nodiscard]] virtual std::span<const ListRule> Lists() const = 0;
  [[nodiscard]] virtual std::vector<OptionRule> Options() = 0;  ///< for the present model
  [[nodiscard]] virtual std::span<const UnitList> UnitLists() const;

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
  // The family's tables.
  [[nodiscard]] virtual std::span<const ModelTraits> TraitTable() const = 0;

  // The family's steps.
  /// What the field of a row shows of its cell, which is not NEEDLESS.
  [[nodiscard]] virtual String ShownText(int row) const { return SetCell(row); }
  /// What the cell of a row takes of the text in its field.
  [[nodiscard]] virtual String CellOf(int row, const String& text) const;
  /// Shows what the family has in a row beside the common fields.
  virtual void ShowFurther(int /*row*/) {}
  /// After the user's choice in a combo box went into the set and the common rules ran; `item` is the item of
  /// its row ("10").
  virtual void ApplyModelRules(const String& item) = 0;
  /// After a press of an option button went into the set.
  virtual void AfterOption(const OptionRule& rule, int place) = 0;
  /// After each step of showing rows: what is shown for some models only.
  virtual void ShowModelControls() {}
  /// The temperature unit's button `place` was pressed: converts the values that follow it.
  virtual void ChangeTemperatureUnit(int place) = 0;
  /// After the definition was read: brings it into the form that the set's device speaks.
  virtual void AdaptDefinition() {}
  /// True when the set's input type is one whose table is in use.
  [[nodiscard]] virtual bool InputTypeUsesTable() const { return false; }
  /// The switch of the table, or nullptr.
  [[nodiscard]] virtual const OptionGroup* SwitchOptions(TableSwitch) const { return nullptr; }

  // The page frame's steps.
  void ReadModel() override;
  void KeepTabState(int tab, bool enabled) override;
  [[nodiscard]] bool KeptTabEnabled(int tab) const override;

  /// Lists the range texts of the input type in a combo box and opens it; title 0 closes it empty.
  void FillRangeList(ComboBox& box, int title);
  /// Unit of all rows that follow item 10, from the row of $I10; -1 and a row without a code give none.
  void ShowInputTypeUnits(int i10_row);
  /// Opens or closes the filter's fields by the filter type in item 23.
  void ApplyFilterRule();

  /// True while BuildPage puts values into fields.
  [[nodiscard]] bool Building() const { return building_; }

  using DevicePage::Register;
  /// Registers a group of option buttons as one of the fields: ClearPage hides it, a press sets its item.
  void Register(OptionGroup& options);
  /// Registers an array of fields: ClearPage hides them.
  template <typename T>
  void RegisterFields(ControlArray<T>& controls) {
    Register(controls);
    for (int index = 0; index < controls.Count(); ++index) {
      fields_.push_back(&controls[index]);
    }
  }
  /// The index that a row has in `column` for an array of `count` controls. Any other text than such an index
  /// ends the program with a text that names the definition, the row and the column.
  [[nodiscard]] int Place(int row, DataColumn column, int count) const;
  /// Cell of the set that a row stands for.
  [[nodiscard]] const String& SetCell(int row) const;
  void MarkEdited();  ///< sets DataChanged, unless an upload puts values into the fields

 private:
  // Building a row.
  void BuildRow(int row);
  void ShowField(int row);
  void ShowBox(int row);
  void FillInputTypes(ComboBox& box, int row, const StringTable& types);
  void ShowOptions(int row);
  void FixOptions(int row, OptionGroup& options) const;
  void ShowUnit(int row);
  void ShowTemperatureUnits();
  void ShowUnitsOf(StringView unit_key, const String& unit);
  void ApplyMillivoltRule(const String& range);
  [[nodiscard]] String TemperatureUnit() const;
  /// The list whose choice brings a unit, by its key; nullptr when the key is another list's.
  [[nodiscard]] const UnitList* FindUnitList(const String& key) const;
  [[nodiscard]] String UnitFrom(const UnitList& list) const;
  [[nodiscard]] std::optional<OptionRule> FindOptionRule(StringView key);

  // Events of the fields.
  void ListenToFields();
  void TextChanged(int index);
  void ComboClicked(int index);
  void OptionClicked(OptionGroup& options, int place);

  /// Makes the titles of the model's items those that its device is expected to answer.
  void LoadItemTitles();
  void SettleTab(TableSwitch table_switch, int points);
  /// After the definition was read: opens or closes the tabs that follow its flags. The tabs of a family
  /// whose definitions have none stay as they are.
  void SettleFlaggedTabs();
  [[nodiscard]] bool SwitchedOn(TableSwitch table_switch) const;

  // Files.
  std::optional<String> ChooseCfgFile(bool save);
  void ShowFileName();
  void SelectModelOfFile(int row);

  bool building_ = false;
  std::vector<Control*> fields_;
  std::vector<OptionGroup*> options_;
};

}  // namespace korva
