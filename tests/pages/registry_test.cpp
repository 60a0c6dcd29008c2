// All eleven families at once: what their records hold, and that none lacks anything.

#include "pages/registry.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <type_traits>
#include <vector>

#include "core/text_utilities.h"

namespace korva {
namespace {

struct Expected {
  String page;
  String folder;
  int baud;
  String settings;
  Dialect dialect;
};

const std::map<String, Expected>& ExpectedFamilies() {
  static const std::map<String, Expected> families = {
      {u"First", {u"KvConfig", u"Kv_1", 1200, u"1200,n,8,1", Dialect::Cok}},
      {u"QXI", {u"UnivConfig", u"Univ", 1200, u"1200,n,8,1", Dialect::Cok}},
      {u"Second", {u"KvConfig_V2", u"Kv_2", 1200, u"1200,n,8,1", Dialect::EnterItem}},
      {u"Third", {u"KvConfig_V3", u"Kv_3", 1200, u"1200,n,8,1", Dialect::Cok}},
      {u"Lite", {u"z2KvConfig", u"z2Kv", 1200, u"1200,n,8,1", Dialect::EnterItem}},
      {u"LiteUniv", {u"z2UnivConfig", u"z2Univ", 38400, u"38400,n,8,1", Dialect::EnterItem}},
      {u"LiteSecond", {u"z2KvConfig_V2", u"z2Kv_2", 9600, u"9600,n,8,1", Dialect::EnterItem}},
      {u"LiteThird", {u"z2KvConfig_V3", u"z2Kv_3", 1200, u"1200,n,8,1", Dialect::EnterItem}},
      {u"LiteForth", {u"z2KvConfig_V4", u"z2Kv_4", 9600, u"9600,n,8,1", Dialect::Cok}},
      {u"LiteFifth", {u"z2KvConfig_V5", u"z2Kv_5", 9600, u"9600,n,8,1", Dialect::Cok}},
      {u"Nano", {u"z8KvConfig", u"z8Kv", 9600, u"9600,n,8,1", Dialect::EnterItem}},
  };
  return families;
}

// What a record can't leave out.

/// A row without the member does not compile: a reference must be bound, and there is no value to fall back
/// on.
template <typename Member>
constexpr bool kCantBeLeftOut = std::is_reference_v<Member> || !std::is_default_constructible_v<Member>;

static_assert(kCantBeLeftOut<decltype(FamilyRecord::family)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::device)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::slow_models)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::definition)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::fields)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::monitor)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::output)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::table)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::csv)>);
static_assert(kCantBeLeftOut<decltype(FamilyRecord::user_tables)>);
static_assert(kCantBeLeftOut<decltype(RegistryEntry::record)>);
static_assert(kCantBeLeftOut<decltype(RegistryEntry::page)>);

template <typename Record>
concept ComplainsOfNothing = requires(const Record& one) {
  Record{.family = one.family,
         .device = one.device,
         .slow_models = kNone,
         .definition = one.definition,
         .fields = kNone,
         .output = one.output,
         .table = kNone,
         .csv = kNone,
         .user_tables = kNone};
};
static_assert(!ComplainsOfNothing<FamilyRecord>, "the monitor is left out");

TEST(Registry, ListsTheFamiliesInTheOrderOfComparison) {
  std::vector<StringView> words;
  for (const RegistryEntry& entry : Registry()) {
    words.push_back(entry.record.family.word);
  }
  EXPECT_EQ(words,
            (std::vector<StringView>{u"QXI", u"First", u"Second", u"Third", u"Lite", u"LiteUniv",
                                     u"LiteSecond", u"LiteThird", u"LiteForth", u"LiteFifth", u"Nano"}));
}

TEST(Registry, GivesTheProgramItsFamiliesAndTheRootPages) {
  ASSERT_EQ(AllFamilies().all.size(), Registry().size());
  for (std::size_t place = 0; place < Registry().size(); ++place) {
    EXPECT_EQ(AllFamilies().all[place], &Registry()[place].record.family);
  }
  EXPECT_EQ(AllFamilies().root.word, u"First");
}

TEST(Registry, FindsTheEntryOfEachWordAndNoOther) {
  for (const RegistryEntry& entry : Registry()) {
    EXPECT_EQ(&EntryOf(entry.record.family.word), &entry);
  }
  EXPECT_THROW((void)EntryOf(u""), std::logic_error);
  EXPECT_THROW((void)EntryOf(u"first"), std::logic_error);
}

TEST(Registry, TheseFamiliesHaveAPageAndItsFields) {
  const std::set<StringView> with_page = {u"First",     u"QXI",       u"Second",     u"Third",
                                          u"Lite",      u"LiteUniv",  u"LiteSecond", u"LiteThird",
                                          u"LiteForth", u"LiteFifth", u"Nano"};
  for (const RegistryEntry& entry : Registry()) {
    EXPECT_EQ(entry.page.Has(), with_page.contains(entry.record.family.word));
    EXPECT_EQ(entry.record.fields.Has(), entry.page.Has());
  }
}

TEST(FamilyRecords, TellPageFolderSpeedAndDialect) {
  ASSERT_EQ(Registry().size(), ExpectedFamilies().size());
  for (const RegistryEntry& entry : Registry()) {
    const Family& family = entry.record.family;
    SCOPED_TRACE(ToUtf8(family.word));
    const Expected& expected = ExpectedFamilies().at(String(family.word));
    EXPECT_EQ(family.page, expected.page);
    EXPECT_EQ(family.folder, expected.folder);
    EXPECT_EQ(family.baud, expected.baud);
    EXPECT_EQ(family.settings, expected.settings);
    EXPECT_EQ(family.dialect, expected.dialect);
  }
}

TEST(FamilyRecords, TellPagesFoldersAndPlacesOfUnloadingOfTheirOwn) {
  std::set<StringView> pages;
  std::set<StringView> folders;
  std::set<int> places;
  int stay = 0;
  for (const RegistryEntry& entry : Registry()) {
    const Family& family = entry.record.family;
    pages.insert(family.page);
    folders.insert(family.folder);
    if (family.unload_place.Has()) {
      places.insert(family.unload_place.Value());
    } else {
      ++stay;
    }
  }
  EXPECT_EQ(pages.size(), Registry().size());
  EXPECT_EQ(folders.size(), Registry().size());
  EXPECT_EQ(places.size() + static_cast<std::size_t>(stay), Registry().size());
}

TEST(FamilyRecords, EachMonitorAndOutputIsComplete) {
  for (const RegistryEntry& entry : Registry()) {
    const FamilyRecord& record = entry.record;
    SCOPED_TRACE(ToUtf8(record.family.word));
    EXPECT_FALSE(record.definition.sections.empty());
    EXPECT_FALSE(record.monitor.presence.empty());
    EXPECT_FALSE(record.monitor.cycle.empty());
    EXPECT_NE(record.monitor.clean, nullptr);
    EXPECT_FALSE(record.output.ranges.empty());
    EXPECT_NE(record.output.clean_sent, nullptr);
    EXPECT_NE(record.output.clean_answer, nullptr);
  }
}

TEST(FamilyRecords, AllButSecondHaveALinearizer) {
  for (const RegistryEntry& entry : Registry()) {
    const bool any = entry.record.table.Has() || entry.record.user_tables.Has();
    EXPECT_EQ(any, entry.record.family.word != u"Second");
    EXPECT_TRUE(!entry.record.table.Has() || !entry.record.table.Value().quantities.empty());
  }
}

TEST(FamilyRecords, TheLinearizerIsOneOfTheUsersTablesWhereAnInputsCurveCanBeTheUsers) {
  for (const RegistryEntry& entry : Registry()) {
    const bool users = entry.record.family.word == u"LiteUniv" || entry.record.family.word == u"Nano";
    EXPECT_EQ(entry.record.user_tables.Has(), users) << ToUtf8(entry.record.family.word);
    EXPECT_FALSE(users && entry.record.table.Has()) << ToUtf8(entry.record.family.word);
  }
}

TEST(FamilyRecords, SlowModelsAreThoseOfSecondWithTheirNames) {
  for (const RegistryEntry& entry : Registry()) {
    EXPECT_EQ(entry.record.slow_models.Has(), entry.record.family.word == u"Second");
  }
  const ModelSet& slow = EntryOf(u"Second").record.slow_models.Value();
  for (const char16_t* model : {u"QICE.def", u"QEYZ.def", u"QEYD.def", u"D.def"}) {
    EXPECT_TRUE(slow.Has(model));
  }
  for (const char16_t* model : {u"QIC.def", u"QEY.def", u"QDE.def", u""}) {
    EXPECT_FALSE(slow.Has(model));
  }
}

TEST(FamilyRecords, ModelsWithoutTheControlsOfAMonitorAreThoseOfFirstThatAreBackups) {
  for (const RegistryEntry& entry : Registry()) {
    const ModelSet& models = entry.record.monitor.models_without_monitor;
    EXPECT_EQ(models.Empty(), entry.record.family.word != u"First");
  }
  const ModelSet& models = EntryOf(u"First").record.monitor.models_without_monitor;
  for (const char16_t* model : {u"QD.def", u"QD2.def", u"QD2I.def"}) {
    EXPECT_TRUE(models.Has(model));
  }
  EXPECT_FALSE(models.Has(u"QD3.def"));
}

}  // namespace
}  // namespace korva
