#include "pages/z2_univ_config/family.h"

#include <array>

#include "monitor/common_rows.h"
#include "pages/z2_univ_config/input_class.h"

namespace korva {

namespace {

constexpr StringView kChosenInputs = u"$I10";  ///< the list of the chosen class

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

constexpr FieldArrays kArrays = {
    .lbl_item = 43, .label = 43, .text = 43, .frame = 3, .combo = 6, .lbl_unit = 43};
constexpr ListRule ListOfTexts(StringView key) { return {.key = key, .table = key, .fill = ListFill::Texts}; }
constexpr std::array kLists = {ListOfTexts(u"$I00"), ListOfTexts(kChosenInputs), ListOfTexts(u"$I11"),
                               ListOfTexts(u"$I41"), ListOfTexts(u"$I82"),       ListOfTexts(u"$I83"),
                               ListOfTexts(u"$I84")};
constexpr std::array<StringView, 7> kLiveItems = {u"03_set", u"03_mon", u"03", u"04", u"05", u"06", u"07"};
/// The address of the plant network is of two hexadecimal digits.
constexpr std::array<StringView, 2> kTextItems = {u"02", u"81"};
constexpr std::array<StringView, 3> kBlankItems = {u"34", u"35", u"81"};

constexpr UnitSource kUnitOfInput = {.kind = UnitKind::Input};
/// An input that the device does not tell has no unit: that of the set may be another one's.
constexpr std::array kItem04 = {
    UnitRule{.input_kind = kThermocoupleInputs, .unit = live::kUnitFromTemperatureItem},
    UnitRule{.input_kind = kResistanceInputs, .unit = live::kUnitFromTemperatureItem},
    UnitRule{.input_kind = kPotentiometerInputs, .unit = live::kPercent},
    UnitRule{.unit = kUnitOfInput},
};
constexpr std::array kItem06 = {
    UnitRule{.input_kind = kDirectInputs, .unit = kUnitOfInput},
    UnitRule{.input_kind = kPotentiometerInputs, .unit = live::kPercent},
    UnitRule{.input_kind = kThermocoupleInputs, .unit = live::kMillivolt},
    UnitRule{.input_kind = kResistanceInputs, .unit = live::kOhm},
    UnitRule{.unit = live::kUnitOfItem04},
};
constexpr std::array kUnits = {
    UnitStep{.item = u"04", .timer = UnitTimer::Item04, .rules = kItem04},
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06},
    UnitStep{.item = u"07", .rules = live::kCopyOfItem04},
};

constexpr LnrLimits kThermocoupleLimits = {.low = -78, .high = 78};
constexpr LnrLimits kResistanceLimits = {.low = 0, .high = 8000};
constexpr std::array kUserInputs = {
    UserInput{.text = u"User's TC", .table = UserTable::Thermocouple},
    UserInput{.text = u"User's RTD", .table = UserTable::Resistance},
};
constexpr UserTableFamily kUserTables = {.linearizer = {.heads = kUserLinearizerHeads,
                                                        .limits = kUserLinearizerLimits,
                                                        .points = kUserLinearizerPoints,
                                                        .fewest = 2,
                                                        .most = kUserLinearizerPoints},
                                         .thermocouple = {.heads = {u"  k", u"  X(k)       mV"},
                                                          .limits = kThermocoupleLimits,
                                                          .points = 1001,
                                                          .most = 1000},
                                         .resistance = {.heads = {u"  k", u"  X(k)       OHM"},
                                                        .limits = kResistanceLimits,
                                                        .points = 1001,
                                                        .most = 1000},
                                         .inputs = kUserInputs,
                                         .ranged = true};

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
    .definition = {.sections = kSections,
                   .only_file = kNone,
                   .layout = kTitledLayout,
                   .chosen_list = kChosenInputs},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = {},
                        .live_items = kLiveItems,
                        .text_items = kTextItems,
                        .blank_items = kBlankItems,
                        .needed_choices = kTypesOfTwoOutputs},
    .monitor = {.presence = live::kItems03To07,
                .cycle = live::kCycle04To07,
                .clean = TrimNumericTail,
                .needs_unit = true,
                .input = {.item = u"10", .repeats = 5, .lists = kInputClasses},
                .units = kUnits},
    .output = kTrimmedOutput,
    .table = kNone,
    .csv = CsvFamily{.reader = {.size_records = SizeRecords::TakeAllHeads, .ends_at_blank = true}},
    .user_tables = kUserTables,
};

}  // namespace korva
