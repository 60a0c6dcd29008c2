#include "pages/kv_config_v2/family.h"

#include <array>

#include "monitor/common_rows.h"

namespace korva {

namespace {

constexpr std::array kSections = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kDataWidth},
    SectionShape{.key = u"$I23", .rows = 8, .columns = 2},
    SectionShape{.key = u"$I26", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I27", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I28", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I29", .rows = 5, .columns = 2},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = SectionKind::List},
};

constexpr FieldArrays kArrays = {
    .lbl_item = 40, .label = 40, .text = 30, .frame = 3, .combo = 5, .lbl_unit = 30};
constexpr std::array kLists = {
    ListRule{.key = u"$I23", .table = u"$I23"},
    ListRule{.key = u"$I27", .table = u"$I27"},
    ListRule{.key = u"$I28", .table = u"$I28"},
    ListRule{.key = u"$I29", .table = u"$I29"},
};

constexpr std::array<StringView, 5> kLiveItems = {u"03_set", u"03_mon", u"05", u"06", u"07"};

constexpr std::array kCycle = {CycleItem{.key = u"05"}, CycleItem{.key = u"06"}, CycleItem{.key = u"07"}};

constexpr std::array<StringView, 2> kSlowModels = {u"QICE.def", u"QEYZ.def"};

}  // namespace

constexpr FamilyRecord kKvConfigV2Record = {
    .family = {.word = u"Second",
               .page = u"KvConfig_V2",
               .folder = u"Kv_2",
               .baud = 1200,
               .settings = u"1200,n,8,1",
               .dialect = Dialect::EnterItem,
               .unload_place = 1},
    .device = {.system_text = SystemText::Value},
    .slow_models = ModelSet{.names = kSlowModels, .ending = u"D.def"},
    .definition = {.sections = kSections, .only_file = kNone, .layout = kUnitBoxLayout},
    .fields = FieldForm{.arrays = kArrays,
                        .groups = 4,
                        .lists = kLists,
                        .unit_lists = {},
                        .live_items = kLiveItems,
                        .text_items = kTagAlone},
    .monitor = {.presence = live::kItems03To07,
                .cycle = kCycle,
                .clean = TrimNumericTail,
                .paints_first = true},
    .output = {.ranges = kUsualOutputRange,
               .clean_sent = TrimNumericTail,
               .clean_answer = TrimNumericTail,
               .settling = Milliseconds(500)},
    .table = kNone,
    .csv = kNone,
    .user_tables = kNone,
};

}  // namespace korva
