#include "pages/kv_config/family.h"

#include <array>

#include "monitor/common_rows.h"

namespace korva {

namespace {

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I10", .rows = 17, .columns = 9, .means = kFirstTypes},
    SectionShape{.key = u"$I11", .kind = SectionKind::Block},
    SectionShape{.key = u"$I11Title", .columns = 10, .kind = SectionKind::List, .block = u"$I11"},
    SectionShape{.key = u"$I11Body", .rows = 5, .columns = 10, .block = u"$I11", .means = kFirstRanges},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 3, .means = kListWithUnits},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I21QD", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I23QD", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I25QD", .rows = 4, .columns = 2},
    SectionShape{.key = u"$I31QD", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I11QEI", .rows = 8, .columns = 4, .means = kSensorList},
    SectionShape{.key = u"$SSTab", .columns = 7, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 54, .label = 44, .text = 43, .frame = 9, .combo = 3, .lbl_unit = 40};
constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::InputType},
    ListRule{.key = u"$I11", .table = u"$I11Body", .fill = ListFill::Range},
    ListRule{.key = u"$I23", .table = u"$I23"},
    ListRule{.key = u"$I11QEI", .table = u"$I11QEI"},
};
constexpr std::array kUnitLists = {UnitList{.key = u"$I11QEI", .item = 11}};

constexpr std::array<StringView, 8> kLiveItems = {u"03_set", u"03_mon", u"04", u"05",
                                                  u"06",     u"07",     u"08", u"32"};

constexpr std::array<StringView, 3> kBackupStations = {u"QD.def", u"QD2.def", u"QD2I.def"};
constexpr std::array<StringView, 1> kWithOutputCurrent = {u"QD2I.def"};
constexpr std::array kCycle = {
    CycleItem{.key = u"03_mon", .models = {.names = kBackupStations}},
    CycleItem{.key = u"04"},
    CycleItem{.key = u"05"},
    CycleItem{.key = u"06"},
    CycleItem{.key = u"07"},
    CycleItem{.key = u"08"},
    CycleItem{.key = u"32", .models = {.names = kWithOutputCurrent}},
};

constexpr std::array<StringView, 6> kWithoutUnits = {u"QHG.def", u"QH.def",   u"QD.def",
                                                     u"QD2.def", u"QD2I.def", u"QY.def"};
constexpr std::array<StringView, 2> kByType = {u"QHW.def", u"QL.def"};
constexpr std::array<StringView, 2> kByRow = {u"QC.def", u"QN.def"};
constexpr std::array<StringView, 1> kBySensor = {u"QEI.def"};
constexpr std::array kItem06 = {
    // Row 0 of these lists is no choice of the user's.
    UnitRule{.models = {.names = kByType, .beginning = u"QHN.def"},
             .unit = {.kind = UnitKind::Device,
                      .table = {.item = u"10", .repeats = 5, .table = u"$I10", .first_row = 1}}},
    UnitRule{.models = {.names = kByRow}, .unit = live::kRowUnit},
    UnitRule{.models = {.names = kBySensor},
             .unit = {.kind = UnitKind::Device,
                      .table = {.item = u"11", .repeats = 5, .table = u"$I11QEI", .first_row = 1}}},
    UnitRule{.unit = live::kNoUnit},
};
constexpr std::array kUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = live::kTemperatureUnit},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06},
};

/// A table of 100 points that Opt_Lnr switches on.
constexpr LnrModel LongTable(StringView def_file) {
  return {.def_file = def_file,
          .points = 100,
          .on_choice = TableSwitch::LnrOption,
          .after_upload = TableSwitch::LnrOption};
}

constexpr std::array kLinearizers = {
    LongTable(u"QHNY1.def"),
    LongTable(u"QHNY2.def"),
    LongTable(u"QHW1.def"),
    LnrModel{
        .def_file = u"QHW.def", .on_choice = TableSwitch::Always, .after_upload = TableSwitch::AsItStands},
    LnrModel{.def_file = u"QUO.def",
             .on_choice = TableSwitch::InputType,
             .after_upload = TableSwitch::InputType,
             .on_opening = TableSwitch::TableOption,
             .without_flag = TableSwitch::InputType},
    LnrModel{.def_file = u"QY.def",
             .after_upload = TableSwitch::TableOption,
             .without_flag = TableSwitch::TableOption},
    LnrModel{.def_file = u"QEI.def",
             .after_upload = TableSwitch::TableOption,
             .without_flag = TableSwitch::TableOption},
    LnrModel{.def_file = u"QZ.def", .after_upload = TableSwitch::TableOption},
    LnrModel{.def_file = u"10QCE.def", .after_upload = TableSwitch::TableOption},
};

/// The input types whose linearizer table is in use, as both versions of the devices spell them.
constexpr std::array<StringView, 2> kTableTypes = {u"FX: Linearizer", u"Fx:linearizer"};

}  // namespace

constexpr FamilyRecord kKvConfigRecord = {
    .family = {.word = u"First",
               .page = u"KvConfig",
               .folder = u"Kv_1",
               .baud = 1200,
               .settings = u"1200,n,8,1",
               .dialect = Dialect::Cok,
               .unload_place = 7},
    .device = {.system_text = SystemText::Value},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kUsualLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = kUnitLists,
                        .live_items = kLiveItems,
                        .text_items = kTagAlone},
    .monitor = {.presence = live::kItems03To08,
                .cycle = kCycle,
                .clean = TrimNumericHead,
                .paints_first = true,
                .units = kUnits,
                .models_without_units = {.names = kWithoutUnits},
                .hidden_rows_keep_unit = true,
                .models_without_monitor = {.names = kBackupStations}},
    .output = {.ranges = kUsualOutputRange,
               .clean_sent = TrimNumericHead,
               .clean_answer = TrimNumericHead,
               .models_without_set_box = {.names = kBackupStations}},
    .table = LnrFamily{.rule = LnrRule::Range,
                       .quantities = kPlainQuantity,
                       .models = kLinearizers,
                       .table_types = kTableTypes},
    .csv = CsvFamily{.reader = {}},
    .user_tables = kNone,
};

}  // namespace korva
