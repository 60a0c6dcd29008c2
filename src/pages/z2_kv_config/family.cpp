#include "pages/z2_kv_config/family.h"

#include <array>

#include "monitor/common_rows.h"
#include "pages/z2_parts.h"

namespace korva {

namespace {

constexpr ListColumns kTypes = {.low = 2,
                                .high = 3,
                                .span = 4,
                                .preset_low = 2,
                                .preset_high = 3,
                                .unit = 5,
                                .settable = 8,
                                .tag = 6,
                                .adc = 7};
constexpr ListColumns kOutputs = {
    .low = 2, .high = 3, .span = 4, .preset_low = 2, .preset_high = 3, .settable = 5, .tag = 6};

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I10", .rows = 22, .columns = 10, .means = kTypes},
    SectionShape{.key = u"$I11", .rows = 6, .columns = 7, .means = kOutputs},
    SectionShape{.key = u"$I16", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4, .means = kListWithUnits},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 7, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 43, .label = 43, .text = 43, .frame = 3, .combo = 1, .lbl_unit = 43};
constexpr std::array kLists = {
    ListRule{.key = u"$I10", .table = u"$I10", .fill = ListFill::Coded},
    ListRule{.key = u"$I11", .table = u"$I11", .fill = ListFill::Coded},
};
constexpr std::array<StringView, 6> kLiveItems = {u"03_set", u"03_mon", u"03", u"04", u"06", u"07"};

constexpr std::array kCycle = {CycleItem{.key = u"04"}, CycleItem{.key = u"03"}, CycleItem{.key = u"06"},
                               CycleItem{.key = u"07"}};

constexpr std::array<StringView, 4> kTemperature = {u"Z#WT2.def", u"Z#WT.def", u"Z#WR.def", u"Z#WR2.def"};
constexpr std::array<StringView, 4> kVoltage = {u"Z#WV2.def", u"Z#WV.def", u"Z#WF.def", u"Z#WF2.def"};
constexpr std::array<StringView, 2> kPotentiometer = {u"Z#WM.def", u"Z#WM2.def"};
constexpr UnitSource kUnitFromTypeItem = {.kind = UnitKind::Device, .table = live::kTypeItem};
constexpr std::array kItem04 = {
    UnitRule{.models = {.names = kTemperature}, .unit = live::kUnitFromTemperatureItem},
    UnitRule{.models = {.names = kVoltage}, .unit = kUnitFromTypeItem},
    UnitRule{.models = {.names = kPotentiometer}, .unit = kUnitFromTypeItem},
};
constexpr std::array kItem06 = {
    UnitRule{.models = {.names = kVoltage}, .unit = kUnitFromTypeItem},
    UnitRule{.unit = live::kRowUnit},
};
constexpr std::array kUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06},
    UnitStep{.item = u"07", .rules = live::kCopyOfItem04},
};

}  // namespace

constexpr FamilyRecord kZ2KvConfigRecord = {
    .family = {.word = u"Lite",
               .page = u"z2KvConfig",
               .folder = u"z2Kv",
               .baud = 1200,
               .settings = u"1200,n,8,1",
               .dialect = Dialect::EnterItem,
               .unload_place = 2},
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
                        .needed_choices = kTypes10And11},
    .monitor = {.presence = live::kItems03To07,
                .cycle = kCycle,
                .clean = TrimNumericTail,
                .needs_unit = true,
                .units = kUnits},
    .output = kTrimmedOutput,
    .table = Z2Table(kLnrLongPoints, nullptr),
    .csv = CsvFamily{.reader = {.size_records = SizeRecords::SkipOne}, .saves = true},
    .user_tables = kNone,
};

}  // namespace korva
