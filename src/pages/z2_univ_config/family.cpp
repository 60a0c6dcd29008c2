#include "pages/z2_univ_config/family.h"

#include <array>

#include "monitor/common_rows.h"

namespace korva {

namespace {

constexpr ListColumns kTypes = {
    .low = 2, .high = 3, .span = 4, .preset_low = 2, .preset_high = 3, .unit = 5, .settable = 6};
constexpr ListColumns kOutputs = {
    .low = 2, .high = 3, .span = 4, .preset_low = 2, .preset_high = 3, .settable = 5};

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I00", .rows = 4, .columns = 3, .means = {.list = 2}},
    SectionShape{.key = u"$I10DC", .rows = 3, .columns = 10, .means = kTypes},
    SectionShape{.key = u"$I10TC", .rows = 14, .columns = 10, .means = kTypes},
    SectionShape{.key = u"$I10RTD", .rows = 9, .columns = 10, .means = kTypes},
    SectionShape{.key = u"$I10PM", .rows = 5, .columns = 10, .means = kTypes},
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

constexpr StringView kVoltageKind = u"$I10DC";
constexpr StringView kThermocoupleKind = u"$I10TC";
constexpr StringView kResistanceKind = u"$I10RTD";
constexpr StringView kPotentiometerKind = u"$I10PM";
constexpr UnitSource kUnitFromVoltageItem = {.kind = UnitKind::Device,
                                             .table = {.item = u"10", .repeats = 5, .table = kVoltageKind}};
constexpr std::array kItem04 = {
    UnitRule{.input_kind = kThermocoupleKind, .unit = live::kUnitFromTemperatureItem},
    UnitRule{.input_kind = kResistanceKind, .unit = live::kUnitFromTemperatureItem},
    UnitRule{.input_kind = kVoltageKind, .unit = kUnitFromVoltageItem},
    UnitRule{.input_kind = kPotentiometerKind, .unit = live::kPercent},
};
constexpr std::array kItem06 = {
    UnitRule{.input_kind = kVoltageKind, .unit = kUnitFromVoltageItem},
    UnitRule{.input_kind = kPotentiometerKind, .unit = live::kPercent},
    UnitRule{.input_kind = kThermocoupleKind, .unit = live::kMillivolt},
    UnitRule{.input_kind = kResistanceKind, .unit = live::kOhm},
    UnitRule{.unit = live::kUnitOfItem04},
};
constexpr std::array kUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06},
    UnitStep{.item = u"07", .rules = live::kCopyOfItem04},
};

}  // namespace

constexpr FamilyRecord kZ2UnivConfigRecord = {
    .family = {.word = u"LiteUniv",
               .page = u"z2UnivConfig",
               .folder = u"z2Univ",
               .baud = 38400,
               .settings = u"38400,n,8,1",
               .dialect = Dialect::EnterItem,
               .unload_place = 5},
    .device = {.system_text = SystemText::Title},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kTitledLayout},
    .fields = kNone,
    .monitor = {.presence = live::kItems03To07,
                .cycle = live::kCycle04To07,
                .clean = TrimNumericTail,
                .needs_unit = true,
                .units = kUnits},
    .output = kTrimmedOutput,
    .table = kPercentTable,
    .csv = kNone,
};

}  // namespace korva
