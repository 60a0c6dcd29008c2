#include "pages/z2_kv_config_v2/family.h"

#include <array>

#include "pages/z2_parts.h"

namespace korva {

namespace {

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I20", .rows = 3, .columns = 6},
    SectionShape{.key = u"$I05", .rows = 5, .columns = 6},
    SectionShape{.key = u"$I13", .rows = 9, .columns = 2},
    SectionShape{.key = u"$I61", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I32", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I33", .rows = 7, .columns = 4, .means = {.low = 2, .high = 3}},
    SectionShape{.key = u"$I02", .rows = 5, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 43, .label = 43, .text = 43, .frame = 0, .combo = 4, .lbl_unit = 43};
constexpr std::array kLists = {
    ListRule{.key = u"$I20", .table = u"$I20", .fill = ListFill::Coded},
    ListRule{.key = u"$I05", .table = u"$I05", .fill = ListFill::Coded},
    ListRule{.key = u"$I13", .table = u"$I13", .fill = ListFill::Coded},
    ListRule{.key = u"$I32", .table = u"$I32", .fill = ListFill::Coded},
    ListRule{.key = u"$I33", .table = u"$I33", .fill = ListFill::Coded},
};
constexpr std::array<StringView, 7> kLiveItems = {u"24_set", u"24_mon", u"04", u"05", u"06", u"07", u"08"};
/// They go to the device by the buttons of their loops.
constexpr std::array<StringView, 3> kLoopItems = {u"28_zero", u"28_span", u"30"};

constexpr std::array<StringView, 6> kPresence = {u"22", u"04", u"05", u"06", u"07", u"08"};
constexpr std::array kCycle = {CycleItem{.key = u"06"}, CycleItem{.key = u"07"}};

String UnitOfFrequencyCode(const UnitReader& reader) {
  constexpr std::array<StringView, 3> kTexts = {u"mHz", u"Hz", u"kHz"};
  const String code = reader.Read(u"03", 0);
  const bool known = code.size() == 1 && code[0] >= u'0' && code[0] < u'0' + kTexts.size();
  return known ? String(kTexts.at(static_cast<std::size_t>(code[0] - u'0'))) : String();
}
constexpr std::array kItem06 = {UnitRule{.unit = {.kind = UnitKind::Rule, .rule = UnitOfFrequencyCode}}};
constexpr std::array kUnits = {
    UnitStep{.item = u"06", .timer = UnitTimer::Item06, .rules = kItem06, .to_measured_frequency = true}};

}  // namespace

constexpr FamilyRecord kZ2KvConfigV2Record = {
    .family = {.word = u"LiteSecond",
               .page = u"z2KvConfig_V2",
               .folder = u"z2Kv_2",
               .baud = 9600,
               .settings = u"9600,n,8,1",
               .dialect = Dialect::EnterItem,
               .unload_place = 3},
    .device = {.system_text = SystemText::Title, .mode_item = u"22"},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kTitledLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = {},
                        .live_items = kLiveItems,
                        .text_items = kTagAlone,
                        .blank_items = kLoopItems,
                        .first_saved_group = 2},
    .monitor = {.presence = kPresence,
                .cycle = kCycle,
                .clean = TrimNumericTailFixed,
                .resets_colours = false,
                .paints_first = true,
                .units = kUnits},
    .output = {.set_key = u"24_set",
               .monitor_key = u"24_mon",
               .ranges = kUsualOutputRange,
               .clean_sent = TrimNumericHead,
               .clean_answer = TrimNumericTail,
               .resets_colours = false,
               .models_without_set_box = {.names = kZ2WithoutSetBox}},
    .table = Z2Table(kLnrLongPoints, &kTableByCommands),
    .csv =
        CsvFamily{
            .reader = {.size_records = SizeRecords::TakeAll, .ends_at_blank = true, .two_decimals = true},
            .saves = true,
            .writes_size = true},
    .user_tables = kNone,
};

}  // namespace korva
