#include "pages/z8_kv_config/family.h"

#include <array>

#include "monitor/common_rows.h"

namespace korva {

namespace {

constexpr ListColumns kTypeColumns = {
    .low = 6, .high = 9, .span = 4, .preset_low = 2, .preset_high = 3, .unit = 5, .settable = 7, .step = 8};
constexpr ListColumns kOutputs = {.low = 4, .high = 6, .span = 5, .preset_low = 2, .preset_high = 3};

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 34, .columns = kDataWidth},
    SectionShape{.key = u"$I00", .rows = 4, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 14, .columns = 10, .means = kTypeColumns},
    SectionShape{.key = u"$I11", .rows = 3, .columns = 7, .means = kOutputs},
    SectionShape{.key = u"$I41", .rows = 3, .columns = 7, .means = kOutputs},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I25", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I82", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I83", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I84", .rows = 2, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 8, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 43, .label = 43, .text = 43, .frame = 3, .combo = 2, .lbl_unit = 43};
constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::Texts},
    ListRule{.key = u"$I11", .table = u"$I11", .fill = ListFill::Texts},
    ListRule{.key = u"$I41", .table = u"$I41", .fill = ListFill::Texts},
};
constexpr std::array<StringView, 7> kLiveItems = {u"03_set", u"03_mon", u"03", u"04", u"05", u"06", u"07"};

constexpr std::array<StringView, 1> kVoltage = {u"Z8WV2.def"};
constexpr std::array<StringView, 1> kPotentiometer = {u"Z8WM2.def"};
constexpr std::array<StringView, 1> kThermocouple = {u"Z8WT2.def"};
constexpr std::array<StringView, 1> kResistance = {u"Z8WR2.def"};
constexpr UnitSource kUnitOfLabel2 = {.kind = UnitKind::Caption, .label = 2};
constexpr std::array kItem04 = {
    UnitRule{.models = {.names = kVoltage}, .unit = kUnitOfLabel2},
    UnitRule{.models = {.names = kPotentiometer}, .unit = live::kPercent},
    UnitRule{.unit = live::kUnitFromTemperatureItem},
};
constexpr std::array kItem06 = {
    UnitRule{.models = {.names = kVoltage}, .unit = kUnitOfLabel2},
    UnitRule{.models = {.names = kPotentiometer}, .unit = live::kPercent},
    UnitRule{.models = {.names = kThermocouple}, .unit = live::kMillivolt},
    UnitRule{.models = {.names = kResistance}, .unit = live::kOhm},
    UnitRule{.unit = live::kUnitFromTemperatureItem},
};
constexpr std::array kUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06},
    UnitStep{.item = u"07", .timer = UnitTimer::Item07, .rules = kItem04, .blinks = false},
};

constexpr std::array<StringView, 2> kTemperatureModels = {u"Z8WR2.def", u"Z8WT2.def"};
constexpr std::array<StringView, 2> kOffsetItems = {u"04", u"07"};
constexpr TemperatureOffset kOffset = {.models = {.names = kTemperatureModels},
                                       .items = kOffsetItems,
                                       .unit_table = live::kTemperatureItem,
                                       .unit = u"deg F",
                                       .subtracted = 25.6};

constexpr LnrLimits kThermocoupleLimits = {.low = -78, .high = 78};
constexpr LnrLimits kResistanceLimits = {.low = 0, .high = 8000};
constexpr int kSensorPoints = 300;
constexpr std::array kUserInputs = {
    UserInput{.text = u"13 ",
              .beginning = true,
              .table = UserTable::Thermocouple,
              .models = {.names = kThermocouple}},
    UserInput{
        .text = u"8 ", .beginning = true, .table = UserTable::Resistance, .models = {.names = kResistance}},
};
constexpr UserTableFamily kUserTables = {.linearizer = {.heads = kUserLinearizerHeads,
                                                        .limits = kUserLinearizerLimits,
                                                        .points = kUserLinearizerPoints,
                                                        .most = kUserLinearizerPoints,
                                                        .note = kPercentLimits,
                                                        .sent_mask = u"#0.000"},
                                         .thermocouple = {.heads = {u"  k", u"  Emf(k)     mV"},
                                                          .limits = kThermocoupleLimits,
                                                          .points = kSensorPoints,
                                                          .most = kSensorPoints,
                                                          .note = u"-78mV =< Emf(k) =< 78mV"},
                                         .resistance = {.heads = {u"  k", u"  Rtd(k)     OHM"},
                                                        .limits = kResistanceLimits,
                                                        .points = kSensorPoints,
                                                        .most = kSensorPoints,
                                                        .note = u"0 Ohm =< Rtd(k) =< 8000 Ohm"},
                                         .inputs = kUserInputs,
                                         .opened_by_commands = true,
                                         .shown_mask = u"0.000",
                                         .steps = LnrLimits{.low = 1, .high = 10},
                                         .bases = LnrLimits{.low = -274, .high = 10000},
                                         .most_step = kSensorPoints};

}  // namespace

constexpr FamilyRecord kZ8KvConfigRecord = {
    .family = {.word = u"Nano",
               .page = u"z8KvConfig",
               .folder = u"z8Kv",
               .baud = 9600,
               .settings = u"9600,n,8,1",
               .dialect = Dialect::EnterItem,
               .unload_place = 6},
    .device = {.system_text = SystemText::Title},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kTitledLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = {},
                        .live_items = kLiveItems,
                        .text_items = kTagAlone,
                        .blank_items = kColdJunctionItems,
                        .needed_choices = kTypesOfTwoOutputs},
    .monitor = {.presence = live::kItems03To07,
                .cycle = live::kCycle04To07,
                .clean = TrimNumericTail,
                .needs_unit = true,
                .units = kUnits,
                .offset = kOffset},
    .output = {.ranges = kUsualOutputRange,
               .clean_sent = TrimNumericTail,
               .clean_answer = TrimNumericTail,
               .further_box = 22},
    .table = kNone,
    .csv = CsvFamily{.reader = {.size_records = SizeRecords::TakeAllHeads, .ends_at_blank = true},
                     .saves = true},
    .user_tables = kUserTables,
};

}  // namespace korva
