#include "user_tables_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "core/text_utilities.h"
#include "pages/design_parts.h"

namespace korva::test {

namespace {

using Texts = std::vector<std::string>;

constexpr std::array kGridRows = Joined(kUserGridRows, std::array{DesignRow{.field = "lblLnrLimits"}},
                                        UserMoveRows("cmd_csvFileOpen cmd_csvFileSave"));
constexpr std::array kPlainGridRows = Joined(kUserGridRows, UserMoveRows("cmd_csvFileOpen"));
constexpr std::array kNotedGroups = UserTableGroups(kGridRows, kUserFieldRows);
constexpr std::array kRangedGroups = UserTableGroups(kPlainGridRows, kRangedUserFieldRows);
constexpr std::array kNotedTabs = {kFileTab, TableTab(kNotedGroups)};
constexpr std::array kRangedTabs = {kFileTab, TableTab(kRangedGroups)};
const Design kNotedDesign = {.tabs = kNotedTabs};
const Design kRangedDesign = {.tabs = kRangedTabs};

constexpr std::array kTypeLists = {ListRule{.key = u"$I10", .table = u"$I10"}};
constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 3, .columns = kDataWidth},
    SectionShape{.key = u"$I10", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I25", .rows = 2, .columns = 2},
    SectionShape{.key = u"$SSTab", .columns = 2, .kind = SectionKind::List},
};
constexpr DefinitionForm kDefinition = {.sections = kSections, .only_file = kNone, .layout = kTitledLayout};
constexpr FieldForm kTablesForm = {
    .arrays = {.lbl_item = 3, .label = 3, .text = 3, .frame = 1, .combo = 1, .lbl_unit = 3},
    .groups = 4,
    .lists = kTypeLists,
    .unit_lists = {},
    .live_items = {},
    .text_items = kTagAlone};

bool IsNano(const FamilyRecord& record) { return record.user_tables.Value().opened_by_commands; }

const Design& DesignOf(const FamilyRecord& record) { return IsNano(record) ? kNotedDesign : kRangedDesign; }

/// Tag, input type and switch, and their lists.
std::string DefinitionOf(const FamilyRecord& record) {
  const std::string types = IsNano(record) ? "0,0 K(CA)\r\n13,13 User's TC\r\n8,8 User's RTD\r\n"
                                           : "0,K(CA)\r\n1,User's TC\r\n2,User's RTD\r\n";
  return "$Data\r\n"
         "01,02,0,Item 02,Y,Y,0,Tag,Tag,0,,,,,,,,,,,Y,,TG:,0,,Tag No.\r\n"
         "01,10,1,Item 10,Y,Y,1,Input,Input,,0,$I10"
         ",,,,,,,,,Y,,,1,,Input Type\r\n"
         "01,25,2,Item 25,Y,Y,2,Lnr,Lnr,,,$I25,0,,,,,1,0,,Y,,,2,,Linearizer\r\n$I10\r\n" +
         types + "$I25\r\n0,OFF\r\n1,ON\r\n$SSTab\r\nTrue,True\r\n$End\r\n";
}

sim::Device DeviceOf(const FamilyRecord& record, const String& def_file) {
  const sim::Model row = {
      .name = "Model", .definition_file = ToUtf8(def_file), .family_word = ToUtf8(record.family.word)};
  return {row, sim::Definition::Parse(DefinitionOf(record))};
}

Control* FieldOf(UserTablesBench& bench, std::string_view name) { return bench.page->FindControl(name); }

}  // namespace

UserTablesPage::UserTablesPage(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program, {.family = record.family, .tab_control = "Cfg_Tab", .design = DesignOf(record)},
                    {.device = record.device, .definition = kDefinition, .fields = kTablesForm}, link),
      tables(*this, record.user_tables.Value(), record.csv) {
  AddOptions({.key = u"$I25", .table = u"$I25", .item = u"25", .options = &tables.Opt_Lnr});
  ApplyDesign();
}

UserTablesBench::UserTablesBench(StringView word, const String& def_file)
    : record(EntryOf(word).record),
      device(DeviceOf(record, def_file)),
      families({&record.family}),
      program(platform, u"/korva", {.all = families, .root = record.family},
              [this](Program& owner, const Family& /*family*/) {
                auto made = std::make_unique<UserTablesPage>(owner, record, link);
                page = made.get();
                return made;
              }),
      link(platform, program.Shared()) {
  files.Put(u"/korva/system/MdlVTRMFx.jpn", "$Type\r\nModel," + ToUtf8(def_file) + "," +
                                                ToUtf8(record.family.word) + "\r\nModel," + ToUtf8(def_file) +
                                                "," + ToUtf8(record.family.word) + "\r\n$End\r\n");
  files.Put(DefFilePath(u"/korva", record.family, kDefinition, def_file, u'/'), DefinitionOf(record));
  port.Connect(1, &line);
  port.SetTimed(false);
  program.OnEnded([this](int code) { status = code; });
  program.Start();
  page->tables.buttons.Table_ProgressBar.Observe(
      [this] { bar.push_back(static_cast<int>(page->tables.buttons.Table_ProgressBar.Value())); });
}

void UserTablesBench::PickType(const String& type) {
  Do([&] {
    ComboBox& box = page->Combo[0];
    const auto& entries = box.Entries();
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const String& entry) { return entry.ends_with(type); });
    ASSERT_NE(found, entries.end()) << ToUtf8(type);
    box.UserPicks(static_cast<int>(found - entries.begin()));
  });
}

void UserTablesBench::SwitchOn() {
  PickType(u"K(CA)");
  Do([&] { page->tables.Opt_Lnr[1].Click(); });
}

void UserTablesBench::Use(UserTable table) {
  const bool sensor = table != UserTable::Linearizer;
  const std::string prefix = !IsNano(record) || !sensor         ? ""
                             : table == UserTable::Thermocouple ? "13 "
                                                                : "8 ";
  if (sensor) {
    const String type = table == UserTable::Thermocouple ? u"User's TC" : u"User's RTD";
    PickType(type);
    ASSERT_TRUE(device.Set("01", "10", prefix + ToUtf8(type)));
  } else {
    SwitchOn();
    ASSERT_TRUE(device.Set("01", "25", "ON"));
  }
  page->DataChanged = false;
  TakeBoxes();
  TakeData();
}

void UserTablesBench::Click(Button& button, const std::vector<korva::Answer>& answers) {
  bar.clear();
  for (const korva::Answer answer : answers) {
    dialogs.QueueAnswer(answer);
  }
  Do([&] { button.Click(); });
}

void UserTablesBench::Upload(const std::vector<korva::Answer>& further) {
  std::vector<korva::Answer> answers = {korva::Answer::Yes, korva::Answer::Ok};
  answers.insert(answers.end(), further.begin(), further.end());
  page->DataChanged = false;
  Click(page->cmdUpload, answers);
}

void UserTablesBench::Download(const std::vector<korva::Answer>& further) {
  std::vector<korva::Answer> answers = {korva::Answer::Ok};
  answers.insert(answers.end(), further.begin(), further.end());
  Click(page->cmdDownload, answers);
}

void UserTablesBench::OpenCsv(const std::string& bytes) {
  files.Put(u"/korva/data/table.csv", bytes);
  dialogs.QueueFile(u"/korva/data/table.csv");
  Click(page->tables.cmd_csvFileOpen);
}

void UserTablesBench::Save(const String& path) {
  dialogs.QueueFile(path);
  Click(page->cmdSave);
}

void UserTablesBench::Open(const String& path) {
  dialogs.QueueFile(path);
  Click(page->cmdOpen);
}

void UserTablesBench::PutText(const String& path, const std::string& utf8) {
  files.Put(path, code_page.Encode(FromUtf8(utf8)).value());
}

std::string UserTablesBench::TextOf(const String& path) const {
  return ToUtf8(code_page.Decode(files.Bytes(path).value()));
}

void UserTablesBench::Fields(const String& base, const String& step, const String& size,
                             const String& range) {
  Do([&] {
    page->tables.fields.txtBase.UserTypes(base);
    page->tables.fields.txtStep.UserTypes(step);
    page->tables.fields.txtSize.UserTypes(size);
    page->tables.fields.cmbRange.SetText(range);
  });
}

void UserTablesBench::Fill(const std::vector<String>& cells) {
  Do([&] {
    LnrTable& points = Points();
    const int values = points.Columns() - 1;
    points.Clear();
    for (int place = 0; place < static_cast<int>(cells.size()); ++place) {
      points.Store(place / values + 1, place % values + 1, cells[static_cast<std::size_t>(place)]);
    }
  });
}

std::string UserTablesBench::Cell(int row, int column) const { return ToUtf8(Points().Value(row, column)); }

Texts UserTablesBench::Cells() const {
  Texts cells;
  for (int row = 1; row <= Points().Points(); ++row) {
    for (int column = 1; column < Points().Columns(); ++column) {
      if (Cell(row, column).empty()) {
        return cells;
      }
      cells.push_back(Cell(row, column));
    }
  }
  return cells;
}

Texts UserTablesBench::Bad() const {
  Texts bad;
  for (int row = 1; row <= Points().Points(); ++row) {
    for (int column = 1; column < Points().Columns(); ++column) {
      if (Points().LookOf(row, column) == Look::Bad) {
        bad.push_back(std::to_string(row) + "/" + std::to_string(column));
      }
    }
  }
  const UserTableFields& fields = page->tables.fields;
  for (const TextField* field : {&fields.txtStep, &fields.txtBase, &fields.txtSize}) {
    if (field->ShownLook() == Look::Bad) {
      bad.push_back(field->FullName());
    }
  }
  return bad;
}

std::string UserTablesBench::FieldTexts() const {
  const UserTableFields& fields = page->tables.fields;
  return ToUtf8(fields.txtBase.Text() + u" " + fields.txtStep.Text() + u" " + fields.txtSize.Text() + u" " +
                fields.cmbRange.Text());
}

Texts UserTablesBench::TakeBoxes() {
  Texts boxes;
  for (; boxes_taken_ < dialogs.Boxes().size(); ++boxes_taken_) {
    const Box& box = dialogs.Boxes()[boxes_taken_].box;
    boxes.push_back(ToUtf8(box.title + u": " + box.text));
  }
  return boxes;
}

Texts UserTablesBench::TakeData() {
  Texts data;
  std::string item;
  for (const CommandLine::Command& command : line.Commands()) {
    if (command.text.starts_with('I')) {
      item = command.text.substr(1);
    } else if (command.text.starts_with('D') && (item == "60" || item == "61" || item == "62")) {
      data.push_back(item + " " + command.text.substr(1));
    }
  }
  line.ForgetCommands();
  return data;
}

void UserTablesBench::ExpectAtRest() {
  const SharedState& shared = program.Shared();
  EXPECT_FALSE(status.has_value());
  for (const String& failure : dialogs.Failures()) {
    ADD_FAILURE() << ToUtf8(failure);
  }
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested || page->UploadBusy);
  EXPECT_EQ(page->tables.buttons.Table_ProgressBar.Value(), 0.0F);
  EXPECT_EQ(page->tables.LnrProgressBar.Value(), 0.0F);
  EXPECT_EQ(page->TransferBar.Value(), 0.0F);
  for (const char* name :
       {"cmdUpload", "cmdDownload", "cmdReadOutTable", "cmdWriteInTable", "TCFlexGrid", "RTDFlexGrid",
        "LnrFlexGrid", "txtSize", "txtStep", "txtBase", "cmd_csvFileOpen"}) {
    EXPECT_TRUE(FieldOf(*this, name)->Enabled()) << name;
  }
  EXPECT_TRUE(page->Tabs.TabEnabled(0));
  EXPECT_EQ(dialogs.Unused(), 0U);
}

}  // namespace korva::test
