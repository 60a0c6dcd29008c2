#include "pages/kv_config_v3/kv_config_v3.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "pages/kv_config_v3/design.h"

namespace korva {

namespace {

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 6, .lbl_unit = 40};
constexpr int kGroups = 2;
constexpr Milliseconds kBlink{200};

constexpr StringView kInputTypes = u"$I10";
constexpr StringView kRanges = u"$I11";
constexpr StringView kRangeTable = u"$I11Body";

constexpr std::array kLists = {
    ListRule{.key = kInputTypes, .table = kInputTypes, .fill = ListFill::InputType},
    ListRule{.key = u"$I11QEI", .table = u"$I11QEI"},
    ListRule{.key = u"$I11QIE", .table = u"$I11QIE"},
    ListRule{.key = u"$I11QHC2", .table = u"$I11QHC2"},
    ListRule{.key = u"$I11QCB2", .table = u"$I11QCB2"},
    ListRule{.key = u"$I12QCB2", .table = u"$I12QCB2"},
    ListRule{.key = u"$I13QHC2", .table = u"$I13QHC2"},
    ListRule{.key = u"$I25", .table = u"$I25"},
    ListRule{.key = u"$I27", .table = u"$I27"},
    ListRule{.key = u"$I08", .table = u"$I08"},
};

constexpr std::array kUnitLists = {
    UnitList{.key = u"$I11QEI", .item = 11},
    UnitList{.key = u"$I11QIE", .item = 11},
    UnitList{.key = u"$I11QHC2", .item = 11},
    UnitList{.key = u"$I13QHC2", .item = 13},
};

constexpr std::array<StringView, 9> kLiveItems = {u"03_set", u"03_mon", u"04_set", u"04_mon", u"05",
                                                  u"06_set", u"06",     u"12",     u"13"};

}  // namespace

KvConfig_V3::KvConfig_V3(Program& program, const Family& family, DeviceLink& link)
    : SevenTabPage(
          program,
          {.family = family, .tab_control = "KvCfg_Tab", .design = kKvConfigV3Design, .saves_table = true},
          link, kArrays, kGroups),
      Item04_MonitorTimer("Item04_MonitorTimer", program.Loop(), kBlink),
      Item06_MonitorTimer("Item06_MonitorTimer", program.Loop(), kBlink),
      Item12_Timer("Item12_Timer", program.Loop(), kBlink),
      Item13_Timer("Item13_Timer", program.Loop(), kBlink) {
  for (OptionGroup* options : {&Opt_Direction, &Opt_Direction09, &Opt_Rotation}) {
    Register(*options);
  }
  for (Button* button : {&cmdSet2, &cmdSet3, &Command_I12, &Command_I13}) {
    Register(*button);
  }
  cmdSet.OnClick = [this] { count03_.Serves() ? count03_.Set() : io_check_.Output().Set(); };
  cmdSet2.OnClick = [this] { count04_.Set(); };
  cmdSet3.OnClick = [this] { count06_.Set(); };
  Command_I12.OnClick = [this] { command12_.Run(); };
  Command_I13.OnClick = [this] { command13_.Run(); };
  ApplyDesign();
}

void KvConfig_V3::SetCaptions(Language language) {
  SevenTabPage::SetCaptions(language);
  cmdSet2.SetCaption(CaptionText(TextKey::OutputButton, language));
  cmdSet3.SetCaption(CaptionText(TextKey::OutputButton, language));
  Command_I12.SetCaption(CaptionText(TextKey::ResetFirst, language));
  Command_I13.SetCaption(CaptionText(TextKey::ResetSecond, language));
  language_ = language;
  ShowHeads();
}

void KvConfig_V3::ShowHeads() {
  const bool counts = count03_.Serves() || count04_.Serves() || count06_.Serves();
  IO_lblSet.SetCaption(CaptionText(counts ? TextKey::CountSet : TextKey::Setting, language_));
  IO_lblShow.SetCaption(CaptionText(counts ? TextKey::CountMonitor : TextKey::Monitor, language_));
}

std::vector<Control*> KvConfig_V3::FurtherLockedControls() {
  std::vector<Control*> controls = SevenTabPage::FurtherLockedControls();
  controls.insert(controls.end(), {&cmdSet2, &cmdSet3, &Command_I12, &Command_I13});
  return controls;
}

std::span<const ListRule> KvConfig_V3::Lists() const { return kLists; }

std::span<const UnitList> KvConfig_V3::UnitLists() const { return kUnitLists; }

std::vector<OptionRule> KvConfig_V3::Options() {
  return {
      {.key = kInputTypes, .table = kInputTypes, .item = u"10", .options = &Opt_Table},
      {.key = kRanges, .table = kRangeTable, .item = u"11", .options = &Opt_Lnr},
      {.key = u"$I21", .table = u"$I21", .item = u"21", .options = &optTempUnit},
      {.key = u"$I08",
       .table = u"$I08",
       .item = u"08",
       .options = &Opt_Direction,
       .captions_from_table = true},
      {.key = u"$I09QEC2",
       .table = u"$I09QEC2",
       .item = u"10",
       .options = &Opt_Direction09,
       .captions_from_table = true},
      {.key = u"$I21QEB2",
       .table = u"$I21QEB2",
       .item = u"21",
       .options = &Opt_Rotation,
       .captions_from_table = true},
  };
}

String KvConfig_V3::ShownText(int row) const {
  for (const CountSetting* count : {&count03_, &count04_, &count06_}) {
    if (count->Serves() && count->SetKey() == DataCell(row, kItem)) {
      return {};
    }
  }
  return SevenTabPage::ShownText(row);
}

void KvConfig_V3::ShowModelControls() {
  io_check_.ShowControls();
  if (count03_.Serves()) {
    cmdStatusMonOFF.SetVisible(false);  // it ends a forced output, which a counter has not
  }
  cmdSet2.SetVisible(count04_.Serves());
  cmdSet3.SetVisible(count06_.Serves());
  Command_I12.SetVisible(command12_.Serves());
  Command_I13.SetVisible(command13_.Serves());
  ShowHeads();
  SettleAlarms();
}

void KvConfig_V3::AfterItemRead(int row) {
  const String& item = DataCell(row, kItem);
  const auto units = AppendedUnits();
  const auto unit = std::find_if(units.begin(), units.end(), [&](const AppendedUnit& one) {
    return one.def_file == DefFile && one.item == item;
  });
  const String& cell = SetCell(row);
  if (unit == units.end() || cell == u"ERROR" || cell == kNeedless) {
    return;
  }
  const std::size_t length = cell.size() - std::min(cell.size(), unit->length);
  GroupItem.Set(DataCell(row, kGroup), item, Trimmed(cell.substr(0, length)));
}

bool KvConfig_V3::CheckInputType() {
  // A switch or a direction in item 10 is written like any other choice. Only a list of input types may have
  // types that are fixed in the device.
  const int row = FindDataRow(u"01", u"10");
  const bool listed =
      row >= 0 && !DataCell(row, kComboIndex).empty() && DataCell(row, kChoiceKey) == kInputTypes;
  return !listed || SevenTabPage::CheckInputType();
}

String KvConfig_V3::DataOf(int row, const String& cell) const {
  String data = SevenTabPage::DataOf(row, cell);
  const String& item = DataCell(row, kItem);
  const auto values = DirectedValues();
  const auto value = std::find_if(values.begin(), values.end(), [&](const DirectedValue& one) {
    return one.def_file == DefFile && one.item == item;
  });
  const int direction_row = value == values.end() ? -1 : FindDataRow(u"01", String(value->direction));
  if (direction_row < 0 || SetCell(direction_row).empty()) {
    return data;
  }
  constexpr std::array<StringView, 2> kSuffixes = {u" (UP)", u" (DOWN)"};
  const int place = Def[DataCell(direction_row, kChoiceKey)].FindRow(1, SetCell(direction_row));
  const bool known = place >= 0 && place < static_cast<int>(kSuffixes.size());
  return known ? data.append(kSuffixes.at(static_cast<std::size_t>(place))) : data;
}

std::optional<CodeTable> KvConfig_V3::CodesOf(int item) const {
  const int row = FindDataRow(u"01", FormatMask(item, u"00"));
  if (row < 0 || DataCell(row, kChoiceKey).empty()) {
    return std::nullopt;
  }
  const StringView key = DataCell(row, kChoiceKey);
  return CodeTable{.key = key == kRanges ? kRangeTable : key};
}

std::span<const StringView> KvConfig_V3::LiveItems() const { return kLiveItems; }

bool KvConfig_V3::CheckFields() { return CheckTag() && CheckScale(); }

bool KvConfig_V3::CheckModel() {
  const ModelCheck* check = FindCheck(KvConfigV3Checks(), DefFile);
  const bool values = check == nullptr || CheckByModel(*check);
  return CheckDirections() && values;
}

}  // namespace korva
