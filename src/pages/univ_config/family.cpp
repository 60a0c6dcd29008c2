#include "pages/univ_config/family.h"

#include <array>

#include "monitor/common_rows.h"

namespace korva {

namespace {

constexpr ListColumns kTypes = {
    .low = 2, .high = 3, .span = 4, .preset_low = 2, .preset_high = 3, .unit = 5, .settable = 6, .kind = 8};
constexpr ListColumns kOutputs = {
    .low = 2, .high = 3, .span = 4, .preset_low = 2, .preset_high = 3, .unit = 5};

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 37, .columns = kDataWidth},
    SectionShape{.key = u"$I10", .rows = 25, .columns = 9, .means = kTypes},
    SectionShape{.key = u"$I11", .rows = 8, .columns = 7, .means = kOutputs},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I25", .rows = 3, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I28", .rows = 3, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I31", .rows = 2, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I38", .rows = 2, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I39", .rows = 2, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I84", .rows = 2, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I85", .rows = 2, .columns = 4, .means = kListWithUnits},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 49, .label = 49, .text = 43, .frame = 9, .combo = 1, .lbl_unit = 43};
constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::Texts},
    ListRule{.key = u"$I11", .table = u"$I11", .fill = ListFill::Texts},
};
constexpr std::array<StringView, 6> kLiveItems = {u"03_set", u"03_mon", u"04", u"05", u"06", u"07"};

/// The device tells its temperature unit by its text or its code.
constexpr UnitSource kTemperatureUnit = {
    .kind = UnitKind::Device, .table = {.item = u"21", .repeats = 5, .table = u"$I21", .by_code = true}};

/// A voltage input has the unit of its type, a potentiometer that of the temperature item; the signals of all
/// other inputs are told in percent.
String UnitOfUniversalInput(const UnitReader& reader) {
  const String type = reader.Read(live::kTypeItem.item, live::kTypeItem.repeats);
  if (type.starts_with(u"mV-")) {
    return reader.LookUp(live::kTypeItem, type);
  }
  return reader.UnitFrom(type.starts_with(u"POT") ? kTemperatureUnit : live::kPercent, u"06");
}
constexpr std::array kItems04And07 = {UnitRule{.unit = kTemperatureUnit}};
constexpr std::array kItem06 = {UnitRule{.unit = {.kind = UnitKind::Rule, .rule = UnitOfUniversalInput}}};
constexpr std::array kUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kItems04And07},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06},
    UnitStep{.item = u"07", .timer = UnitTimer::Item07, .rules = kItems04And07},
};

constexpr std::array kOutputRange = {ModelRange{.low = u"-20.00", .high = u"120.00"}};

constexpr std::array kQuantities = {
    LnrQuantity{.kind = u"L", .heads = {u"  k", u"  X(k)     %", u"  Y(k)     %"}},
    LnrQuantity{.kind = u"T",
                .heads = {u"  k", u"  X(k)    ｰC", u"  Y(k)    uV"},
                .x_limits = {.low = -273, .high = 3000},
                .y_limits = {.low = -69000, .high = 69000},
                .is_input_curve = true},
    LnrQuantity{.kind = u"R",
                .heads = {u"  k", u"  X(k)    ｰC", u"  Y(k)   Ohm"},
                .x_limits = {.low = -200, .high = 850},
                .y_limits = {.low = -69000, .high = 69000},
                .is_input_curve = true},
};
constexpr std::array kTables = {LnrModel{.def_file = u"Univ.def",
                                         .points = kLnrLongPoints,
                                         .on_choice = TableSwitch::InputKind,
                                         .after_upload = TableSwitch::InputKind}};

}  // namespace

constexpr FamilyRecord kUnivConfigRecord = {
    .family = {.word = u"QXI",
               .page = u"UnivConfig",
               .folder = u"Univ",
               .baud = 1200,
               .settings = u"1200,n,8,1",
               .dialect = Dialect::Cok,
               .unload_place = 0},
    .device = {.system_text = SystemText::Value},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = StringView(u"Univ.def"), .layout = kUsualLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = {},
                        .live_items = kLiveItems,
                        .text_items = kTagAlone,
                        .blank_items = kColdJunctionItems,
                        .needed_choices = kTypes10And11},
    .monitor = {.presence = live::kItems03To07,
                .cycle = live::kCycle04To07,
                .clean = TrimNumericHead,
                .has_io_check_mode = true,
                .needs_unit = true,
                .units = kUnits},
    .output = {.ranges = kOutputRange,
               .clean_sent = TrimNumericHead,
               .clean_answer = TrimNumericHead,
               .settling = Milliseconds(500)},
    .table = LnrFamily{.points = kLnrLongPoints, .quantities = kQuantities, .models = kTables},
    .csv = CsvFamily{.reader = {}},
    .user_tables = kNone,
};

}  // namespace korva
