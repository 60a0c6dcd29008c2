#include "pages/kv_config_v3/family.h"

#include <array>

#include "monitor/common_rows.h"

namespace korva {

namespace {

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I08", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I09QEC2", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 17, .columns = 9, .means = kFirstTypes},
    SectionShape{.key = u"$I11", .kind = SectionKind::Block},
    SectionShape{.key = u"$I11Title", .columns = 10, .kind = SectionKind::List, .block = u"$I11"},
    SectionShape{.key = u"$I11Body", .rows = 5, .columns = 10, .block = u"$I11", .means = kFirstRanges},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I21QEB2", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I11QEI", .rows = 8, .columns = 4, .means = kSensorList},
    SectionShape{.key = u"$I11QIE", .rows = 6, .columns = 4, .means = kSensorList},
    SectionShape{.key = u"$I11QHC2", .rows = 8, .columns = 4, .means = kSensorList},
    SectionShape{.key = u"$I11QCB2", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I12QCB2", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I13QHC2", .rows = 8, .columns = 4, .means = kSensorList},
    SectionShape{.key = u"$I27", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I25", .rows = 2, .columns = 2},
    SectionShape{.key = u"$SSTab", .columns = 7, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 6, .lbl_unit = 40};
constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::InputType},
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

constexpr std::array kCycle = {CycleItem{.key = u"03_mon"}, CycleItem{.key = u"04_mon"},
                               CycleItem{.key = u"05"}, CycleItem{.key = u"06"}};

constexpr std::array<StringView, 2> kBySensorType = {u"QICE2.def", u"QIEU2.def"};
constexpr std::array<StringView, 1> kPercent = {u"QNA2.def"};
constexpr std::array<StringView, 2> kBySensor = {u"QCE2.def", u"QEI2.def"};
constexpr std::array<StringView, 1> kByRange = {u"QHC2.def"};
constexpr std::array kItem06 = {
    UnitRule{.models = {.names = kBySensorType},
             .unit = {.kind = UnitKind::Device,
                      .table = {.item = u"11", .repeats = 3, .table = u"$I11QIE", .first_row = 1}},
             .shown_in = 14},
    UnitRule{.models = {.names = kPercent}, .unit = live::kPercent},
    UnitRule{.models = {.names = kBySensor},
             .unit = {.kind = UnitKind::Device, .table = {.item = u"11", .repeats = 3, .table = u"$I11QEI"}}},
    UnitRule{
        .models = {.names = kByRange},
        .unit = {.kind = UnitKind::Device, .table = {.item = u"11", .repeats = 3, .table = u"$I11QHC2"}}},
    UnitRule{.unit = live::kNoUnit},
};
constexpr std::array kUnits = {UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06}};

constexpr std::array<StringView, 2> kNarrowThird = {u"QICE2.def", u"QIEU2.def"};
constexpr std::array kRanges = {
    ModelRange{.models = {.names = kNarrowThird}, .low = u"-5", .high = u"105"},
    ModelRange{.low = u"-15.00", .high = u"115.00"},
};

/// A model whose table one of the options switches on, whatever the flag of the table's tab.
constexpr LnrModel WithTable(StringView def_file, TableSwitch by) {
  return {.def_file = def_file, .on_choice = by, .after_upload = by, .without_flag = by};
}

/// Models without a row have none.
constexpr std::array kLinearizers = {
    WithTable(u"QCE2.def", TableSwitch::TableOption), WithTable(u"QEI2.def", TableSwitch::TableOption),
    WithTable(u"QCB2.def", TableSwitch::TableOption), WithTable(u"QEB2.def", TableSwitch::LnrOption),
    WithTable(u"QNA2.def", TableSwitch::TableOption),
};

}  // namespace

constexpr FamilyRecord kKvConfigV3Record = {
    .family = {.word = u"Third",
               .page = u"KvConfig_V3",
               .folder = u"Kv_3",
               .baud = 1200,
               .settings = u"1200,n,8,1",
               .dialect = Dialect::Cok,
               .unload_place = kNone},
    .device = {.system_text = SystemText::Value, .mode_repeats = 1},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kUsualLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 2,
                        .lists = kLists,
                        .unit_lists = kUnitLists,
                        .live_items = kLiveItems,
                        .text_items = kTagAlone},
    .monitor = {.presence = live::kItems03To08,
                .cycle = kCycle,
                .clean = TrimNumericHead,
                .focuses_stop = true,
                .obeys_write_condition = true,
                .paints_first = true,
                .units = kUnits},
    .output = {.ranges = kRanges, .clean_sent = TrimNumericHead, .clean_answer = TrimNumericHead},
    .table = LnrFamily{.rule = LnrRule::Range, .quantities = kPlainQuantity, .models = kLinearizers},
    .csv = CsvFamily{.reader = {}, .saves = true},
    .user_tables = kNone,
};

}  // namespace korva
