#include "files/definition_sections.h"

#include <array>

#include "files/definition.h"
#include "platform/event_gate.h"

namespace korva {

namespace {

constexpr int kWidth = 26;  ///< columns of $Data
constexpr SectionKind kList = SectionKind::List;
constexpr SectionKind kBlock = SectionKind::Block;

constexpr std::array kFirst = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I10", .rows = 17, .columns = 9},
    SectionShape{.key = u"$I11", .kind = kBlock},
    SectionShape{.key = u"$I11Title", .columns = 10, .kind = kList, .block = u"$I11"},
    SectionShape{.key = u"$I11Body", .rows = 5, .columns = 10, .block = u"$I11"},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 3},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I21QD", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I23QD", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I25QD", .rows = 4, .columns = 2},
    SectionShape{.key = u"$I31QD", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I11QEI", .rows = 8, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 7, .kind = kList},
};

constexpr std::array kSecond = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I23", .rows = 8, .columns = 2},
    SectionShape{.key = u"$I26", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I27", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I28", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I29", .rows = 5, .columns = 2},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = kList},
};

constexpr std::array kThird = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I08", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I09QEC2", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 17, .columns = 9},
    SectionShape{.key = u"$I11", .kind = kBlock},
    SectionShape{.key = u"$I11Title", .columns = 10, .kind = kList, .block = u"$I11"},
    SectionShape{.key = u"$I11Body", .rows = 5, .columns = 10, .block = u"$I11"},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I21QEB2", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I11QEI", .rows = 8, .columns = 4},
    SectionShape{.key = u"$I11QIE", .rows = 6, .columns = 4},
    SectionShape{.key = u"$I11QHC2", .rows = 8, .columns = 4},
    SectionShape{.key = u"$I11QCB2", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I12QCB2", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I13QHC2", .rows = 8, .columns = 4},
    SectionShape{.key = u"$I27", .rows = 2, .columns = 2},
    SectionShape{.key = u"$I25", .rows = 2, .columns = 2},
    SectionShape{.key = u"$SSTab", .columns = 7, .kind = kList},
};

constexpr std::array kQXI = {
    SectionShape{.key = u"$Data", .rows = 37, .columns = kWidth},
    SectionShape{.key = u"$I10", .rows = 25, .columns = 9},
    SectionShape{.key = u"$I11", .rows = 8, .columns = 7},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I25", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I28", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I31", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I38", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I39", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I84", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I85", .rows = 2, .columns = 4},
};

constexpr std::array kLite = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I10", .rows = 22, .columns = 10},
    SectionShape{.key = u"$I11", .rows = 6, .columns = 7},
    SectionShape{.key = u"$I16", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 7, .kind = kList},
};

constexpr std::array kLiteUniv = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I00", .rows = 4, .columns = 3},
    SectionShape{.key = u"$I10DC", .rows = 3, .columns = 10},
    SectionShape{.key = u"$I10TC", .rows = 14, .columns = 10},
    SectionShape{.key = u"$I10RTD", .rows = 9, .columns = 10},
    SectionShape{.key = u"$I10PM", .rows = 5, .columns = 10},
    SectionShape{.key = u"$I11", .rows = 3, .columns = 7},
    SectionShape{.key = u"$I41", .rows = 3, .columns = 7},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I25", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I82", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I83", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I84", .rows = 2, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 8, .kind = kList},
};

constexpr std::array kNano = {
    SectionShape{.key = u"$Data", .rows = 34, .columns = kWidth},
    SectionShape{.key = u"$I00", .rows = 4, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 14, .columns = 10},
    SectionShape{.key = u"$I11", .rows = 3, .columns = 7},
    SectionShape{.key = u"$I41", .rows = 3, .columns = 7},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I23", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I25", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I82", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I83", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I84", .rows = 2, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 8, .kind = kList},
};

constexpr std::array kLiteSecond = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I20", .rows = 3, .columns = 6},
    SectionShape{.key = u"$I05", .rows = 5, .columns = 6},
    SectionShape{.key = u"$I13", .rows = 9, .columns = 2},
    SectionShape{.key = u"$I61", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I32", .rows = 3, .columns = 2},
    SectionShape{.key = u"$I33", .rows = 7, .columns = 4},
    SectionShape{.key = u"$I02", .rows = 5, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = kList},
};

constexpr std::array kLiteThird = {
    SectionShape{.key = u"$Data", .rows = 32, .columns = kWidth},
    SectionShape{.key = u"$I35", .rows = 3, .columns = 6},
    SectionShape{.key = u"$I41", .rows = 8, .columns = 4},
    SectionShape{.key = u"$I23", .rows = 8, .columns = 2},
    SectionShape{.key = u"$I36", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I37", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I40", .rows = 9, .columns = 3},
    SectionShape{.key = u"$I42", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 2, .columns = 3},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = kList},
};

constexpr std::array kLiteForth = {
    SectionShape{.key = u"$Data", .rows = 33, .columns = kWidth},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 7},
    SectionShape{.key = u"$I11", .rows = 8, .columns = 7},
    SectionShape{.key = u"$I08", .rows = 4, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I07", .rows = 3, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 2, .columns = 3},
    SectionShape{.key = u"$I29", .rows = 2, .columns = 4},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = kList},
};

constexpr std::array kLiteFifth = {
    SectionShape{.key = u"$Data", .rows = 33, .columns = kWidth},
    SectionShape{.key = u"$I21", .rows = 3, .columns = 7},
    SectionShape{.key = u"$I11", .rows = 8, .columns = 7},
    SectionShape{.key = u"$I08", .rows = 7, .columns = 3},
    SectionShape{.key = u"$I10", .rows = 2, .columns = 4},
    SectionShape{.key = u"$I07", .rows = 5, .columns = 4},
    SectionShape{.key = u"$I24", .rows = 3, .columns = 3},
    SectionShape{.key = u"$SSTab", .columns = 6, .kind = kList},
};

/// Values have a unit of their own there, and the dialect needs the titles of the items.
constexpr DataLayout SecondLayout() {
  DataLayout layout = kUsualLayout;
  layout[kUnitBox] = 14;
  layout[kUnitText] = 15;
  layout[kUnitKey] = -1;
  layout[kTemperature] = -1;
  layout[kLastOption] = 18;
  layout[kDefaultOption] = 19;
  layout[kChangeRule] = 20;
  layout[kWriteCondition] = 21;
  layout[kWritePosition] = 24;
  layout[kItemTitle] = 25;
  return layout;
}
constexpr DataLayout kSecondLayout = SecondLayout();

constexpr std::array<FamilySections, 11> kFamilies = {{
    {.family = u"First", .sections = kFirst},
    {.family = u"Second", .sections = kSecond, .layout = kSecondLayout},
    {.family = u"Third", .sections = kThird},
    {.family = u"QXI", .sections = kQXI, .only_file = u"Univ.def"},
    {.family = u"Lite", .sections = kLite},
    {.family = u"LiteUniv", .sections = kLiteUniv},
    {.family = u"Nano", .sections = kNano},
    {.family = u"LiteSecond", .sections = kLiteSecond},
    {.family = u"LiteThird", .sections = kLiteThird},
    {.family = u"LiteForth", .sections = kLiteForth},
    {.family = u"LiteFifth", .sections = kLiteFifth},
}};

}  // namespace

const FamilySections& FamilySectionsOf(const Family& family) {
  for (const FamilySections& row : kFamilies) {
    if (row.family == family.word) {
      return row;
    }
  }
  throw RuntimeFailure(u"定義ファイルの形式が決まっていない機種群です: " + String(family.word));
}

std::span<const SectionShape> SectionsOf(const Family& family) { return FamilySectionsOf(family).sections; }

}  // namespace korva
