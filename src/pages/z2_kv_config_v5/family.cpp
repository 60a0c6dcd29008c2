#include "pages/z2_kv_config_v5/family.h"

#include <array>

#include "pages/z2_parts.h"

namespace korva {

namespace {

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 33, .columns = kDataWidth},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 7, .means = kLateZ2Temperatures},
    SectionShape{.key = u"$I11", .rows = 8, .columns = 7, .means = kLateZ2Types},
    SectionShape{.key = u"$I08", .rows = 7, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I07", .rows = 5, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 3},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = SectionKind::List},
};

constexpr std::array kLists = {LateZ2List(u"$I21"), LateZ2List(u"$I11"), LateZ2List(u"$I08"),
                               LateZ2List(u"$I07"), LateZ2List(u"$I24")};

/// The table is edited by the arrow keys.
constexpr LnrFamily ArrowTable() {
  LnrFamily table = Z2Table(kLnrLongPoints, &kTableByItems);
  table.edits_by_arrows = true;
  return table;
}

}  // namespace

constexpr FamilyRecord kZ2KvConfigV5Record = {
    .family = {.word = u"LiteFifth",
               .page = u"z2KvConfig_V5",
               .folder = u"z2Kv_5",
               .baud = 9600,
               .settings = u"9600,n,8,1",
               .dialect = Dialect::Cok,
               .unload_place = kNone},
    .device = {.system_text = SystemText::Value},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kLateZ2Layout},
    .fields = LateZ2Fields(kLists),
    .monitor = kLateZ2Monitor,
    .output = kLateZ2Output,
    .table = ArrowTable(),
    .csv =
        CsvFamily{
            .reader = {.passes_over_text = true, .ends_at_blank = true}, .cancels_edit = true, .saves = true},
    .user_tables = kNone,
};

}  // namespace korva
