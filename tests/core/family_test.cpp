#include "core/family.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

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

TEST(Families, StandInTheOrderOfComparison) {
  std::vector<StringView> words;
  for (const Family& family : Families()) {
    words.push_back(family.word);
  }
  EXPECT_EQ(words,
            (std::vector<StringView>{u"QXI", u"First", u"Second", u"Third", u"Lite", u"LiteUniv",
                                     u"LiteSecond", u"LiteThird", u"LiteForth", u"LiteFifth", u"Nano"}));
}

TEST(Families, HaveTheirPageFolderSpeedAndDialect) {
  ASSERT_EQ(Families().size(), ExpectedFamilies().size());
  for (const Family& family : Families()) {
    SCOPED_TRACE(testing::PrintToString(family.word));
    const Expected& expected = ExpectedFamilies().at(String(family.word));
    EXPECT_EQ(family.page, expected.page);
    EXPECT_EQ(family.folder, expected.folder);
    EXPECT_EQ(family.baud, expected.baud);
    EXPECT_EQ(family.settings, expected.settings);
    EXPECT_EQ(family.dialect, expected.dialect);
  }
}

TEST(Families, HavePagesAndFoldersOfTheirOwn) {
  std::set<StringView> pages;
  std::set<StringView> folders;
  for (const Family& family : Families()) {
    pages.insert(family.page);
    folders.insert(family.folder);
  }
  EXPECT_EQ(pages.size(), Families().size());
  EXPECT_EQ(folders.size(), Families().size());
}

TEST(FindFamily, FindsEachWord) {
  for (const Family& family : Families()) {
    EXPECT_EQ(FindFamily(family.word), &family);
  }
}

TEST(FindFamily, FindsNoUnknownAndNoEmptyWord) {
  EXPECT_EQ(FindFamily(u""), nullptr);
  EXPECT_EQ(FindFamily(u"first"), nullptr);
  EXPECT_EQ(FindFamily(u"First "), nullptr);
  EXPECT_EQ(FindFamily(u"LiteSixth"), nullptr);
}

}  // namespace
}  // namespace korva
