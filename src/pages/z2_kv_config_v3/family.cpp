#include "pages/z2_kv_config_v3/family.h"

#include <array>

#include "monitor/common_rows.h"
#include "pages/z2_parts.h"

namespace korva {

namespace {

/// The unit's code goes into an item of the row's own.
constexpr DataLayout UnitCodeLayout() {
  DataLayout layout = kUnitBoxLayout;
  layout.unit_code_item = 23;
  return layout;
}
constexpr DataLayout kLayout = UnitCodeLayout();

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I35", .rows = 3, .columns = 6},
    SectionShape{.key = u"$I41", .rows = 8, .columns = 4},
    SectionShape{.key = u"$I23", .rows = 8, .columns = 2},
    SectionShape{.key = u"$I36", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I37", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I40", .rows = 9, .columns = 3},
    SectionShape{.key = u"$I42", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 2, .columns = 3},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 43, .label = 43, .text = 43, .frame = 3, .combo = 3, .lbl_unit = 43};
constexpr std::array kLists = {
    ListRule{.key = u"$I35", .table = u"$I35", .fill = ListFill::Coded},
    ListRule{.key = u"$I41", .table = u"$I41", .fill = ListFill::Coded},
    ListRule{.key = u"$I23", .table = u"$I23", .fill = ListFill::Coded},
    ListRule{.key = u"$I40", .table = u"$I40", .fill = ListFill::Coded},
};
constexpr std::array<StringView, 7> kLiveItems = {u"03_set", u"03_mon", u"04", u"05", u"06", u"07", u"08"};

constexpr std::array kCycle = {CycleItem{.key = u"05"}, CycleItem{.key = u"06"}};

}  // namespace

constexpr FamilyRecord kZ2KvConfigV3Record = {
    .family = {.word = u"LiteThird",
               .page = u"z2KvConfig_V3",
               .folder = u"z2Kv_3",
               .baud = 1200,
               .settings = u"1200,n,8,1",
               .dialect = Dialect::EnterItem,
               .unload_place = 4},
    .device = {.system_text = SystemText::Value},
    .slow_models = kNone,
    .definition = {.sections = kSections, .only_file = kNone, .layout = kLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = {},
                        .live_items = kLiveItems,
                        .text_items = kTagAlone},
    .monitor = {.presence = live::kItems03To08,
                .cycle = kCycle,
                .clean = TrimNumericTail,
                .paints_first = true},
    .output = {.ranges = kUsualOutputRange,
               .clean_sent = TrimNumericHead,
               .clean_answer = TrimNumericTail,
               .models_without_set_box = {.names = kZ2WithoutSetBox}},
    .table = Z2Table(kLnrLongPoints, nullptr),
    .csv = CsvFamily{.reader = {}},
    .user_tables = kNone,
};

}  // namespace korva
