#include "page_host.h"

#include <algorithm>
#include <array>

#include "support/tabs.h"

namespace korva::test {

namespace {

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 3, .lbl_unit = 40};

constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::InputType},
    ListRule{.key = u"$I11", .table = u"$I11Body", .fill = ListFill::Range},
    ListRule{.key = u"$I23", .table = u"$I23"},
    ListRule{.key = u"$I11QEI", .table = u"$I11QEI"},
};

/// How the models of family First are known to their page, as far as fields and the linearizer's tab go.
constexpr std::array kTraits = {
    ModelTraits{.def_file = u"QHNY1.def",
                .table_points = 100,
                .table_on_choice = TableSwitch::LnrOption,
                .table_after_upload = TableSwitch::LnrOption,
                .lists_fixed_input_type = true,
                .filter_follows_type = true},
    ModelTraits{.def_file = u"QHNY2.def",
                .table_points = 100,
                .table_on_choice = TableSwitch::LnrOption,
                .table_after_upload = TableSwitch::LnrOption,
                .lists_fixed_input_type = true,
                .filter_follows_type = true},
    ModelTraits{.def_file = u"QHW1.def",
                .table_points = 100,
                .table_on_choice = TableSwitch::LnrOption,
                .table_after_upload = TableSwitch::LnrOption,
                .lists_fixed_input_type = true},
    ModelTraits{.def_file = u"QHN", .beginning = true, .filter_follows_type = true},
    ModelTraits{.def_file = u"QHW.def",
                .table_on_choice = TableSwitch::Always,
                .table_after_upload = TableSwitch::AsItStands},
    ModelTraits{.def_file = u"QUO.def",
                .table_on_choice = TableSwitch::InputType,
                .table_after_upload = TableSwitch::InputType,
                .table_on_opening = TableSwitch::TableOption,
                .table_without_flag = TableSwitch::InputType},
    ModelTraits{.def_file = u"QY.def",
                .table_after_upload = TableSwitch::TableOption,
                .table_without_flag = TableSwitch::TableOption},
    ModelTraits{.def_file = u"QEI.def",
                .table_after_upload = TableSwitch::TableOption,
                .table_without_flag = TableSwitch::TableOption},
    ModelTraits{.def_file = u"QZ.def", .table_after_upload = TableSwitch::TableOption},
    ModelTraits{.def_file = u"10QCE.def", .table_after_upload = TableSwitch::TableOption},
    ModelTraits{.def_file = u"QH.def", .range_options_are_root = true},
    ModelTraits{.def_file = u"QHG.def", .range_options_are_root = true},
};

constexpr StringView kCatalogue =
    u"models of the tests\n"
    u"$Type\n"
    u"PLAIN,PLAIN.def,First\n"
    u"OTHER,OTHER.def,First\n"
    u"THIRD,THIRD.def,Third\n"
    u"QHNY1,QHNY1.def,First\n"
    u"QHNY2,QHNY2.def,First\n"
    u"QHW1,QHW1.def,First\n"
    u"QHN1,QHN1.def,First\n"
    u"QHW,QHW.def,First\n"
    u"QUO,QUO.def,First\n"
    u"QY,QY.def,First\n"
    u"QEI,QEI.def,First\n"
    u"QZ,QZ.def,First\n"
    u"10QCE,10QCE.def,First\n"
    u"QH,QH.def,First\n"
    u"QD,QD.def,First\n"
    u"$End\n";

PageKind KindOf(const Family& family) {
  return {.family = family, .tab_control = "KvCfg_Tab", .design = kSevenTabDesign};
}

}  // namespace

void MemoryHost::PutText(const String& path, StringView text) {
  String lines;
  for (const char16_t character : text) {
    lines.append(character == u'\n' ? u"\r\n" : String(1, character));
  }
  files.Put(path, code_page.Encode(lines).value());
}

String MemoryHost::TextOf(const String& path) const { return code_page.Decode(files.Bytes(path).value()); }

std::vector<String> MemoryHost::BoxTexts() const {
  std::vector<String> texts;
  for (const auto& shown : dialogs.Boxes()) {
    texts.push_back(shown.box.title + u": " + shown.box.text);
  }
  return texts;
}

String DefText(std::initializer_list<DataRow> rows, StringView sections) {
  String text = u"$Data\n";
  for (const DataRow& row : rows) {
    const std::array<const String*, 20> columns = {
        &row.group,    &row.item,        &row.number_label, &row.number,     &row.uploaded,
        &row.on_page,  &row.label,       &row.caption,      &row.caption,    &row.text,
        &row.combo,    &row.key,         &row.frame,        &row.unit_label, &row.unit,
        &row.unit_key, &row.temperature, &row.last,         &row.preset,     &row.rule};
    for (const String* column : columns) {
      text += *column + u",";
    }
    text += u"\n";
  }
  return text.append(sections).append(u"$End\n");
}

std::span<const ModelTraits> PageHostTraits() { return kTraits; }

TestPage::TestPage(Program& program, const Family& family, DeviceLink& link)
    : ParameterPage(program, KindOf(family), link, kArrays, family.word == u"Third" ? 2 : 4) {
  for (OptionGroup* options : {&Opt_Table, &Opt_Lnr, &Opt_Root, &Opt_Backup}) {
    Register(*options);
  }
  ApplyDesign();
}

std::span<const ListRule> TestPage::Lists() const { return kLists; }

std::vector<OptionRule> TestPage::Options() {
  const bool root = Traits().range_options_are_root;
  std::vector<OptionRule> rules = {
      {.key = u"$I10", .table = u"$I10", .item = u"10", .options = &Opt_Table},
      {.key = u"$I11", .table = u"$I11Body", .item = u"11", .options = root ? &Opt_Root : &Opt_Lnr},
      {.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit, .captions_from_table = true},
      {.key = u"$I21QD",
       .table = u"$I21QD",
       .item = u"21",
       .options = &Opt_Backup,
       .captions_from_table = true}};
  return rules;
}

void TestPage::ApplyModelRules(const String& item) {
  model_rules.push_back(item);
  if (on_model_rules) {
    on_model_rules();
  }
}

void TestPage::AfterOption(const OptionRule& rule, int place) {
  options_set.emplace_back(rule.key);
  Tabs.SetTabEnabled(LnrTab(), place != 0);
}

void TestPage::ChangeTemperatureUnit(int place) {
  units_chosen.push_back(place);
  if (on_unit) {
    on_unit();
  }
}

bool TestPage::InputTypeUsesTable() const {
  return Item(10) == u"FX: Linearizer" || Item(10) == u"Fx:linearizer";
}

const OptionGroup* TestPage::SwitchOptions(TableSwitch table_switch) const {
  switch (table_switch) {
    case TableSwitch::TableOption:
      return &Opt_Table;
    case TableSwitch::LnrOption:
      return &Opt_Lnr;
    default:
      return nullptr;
  }
}

PageHost::PageHost() {
  PutText(u"/korva/system/MdlVTRMFx.jpn", kCatalogue);
  Define(u"PLAIN.def", DefText({{.item = u"02", .text = u"0"}}));
}

TestPage& PageHost::Start() {
  program.Start();
  return *first;
}

TestPage& PageHost::Choose(const String& model, StringView definition) {
  Define(model + u".def", definition);
  if (first == nullptr) {
    Start();
  }
  return Choose(model);
}

TestPage& PageHost::Choose(const String& model) const {
  const auto& entries = first->lst_TypeSelect.Entries();
  const auto found = std::find(entries.begin(), entries.end(), model);
  first->lst_TypeSelect.UserPicks(static_cast<int>(found - entries.begin()));
  return *first;
}

std::unique_ptr<korva::Page> PageHost::MakePage(Program& made_for, const Family& family) {
  auto page = std::make_unique<TestPage>(made_for, family, link);
  (family.word == u"Third" ? third : first) = page.get();
  return page;
}

}  // namespace korva::test
