// From the page of one family to that of another and back, by the list and by a file.

#include <gtest/gtest.h>

#include <array>

#include "core/text_utilities.h"
#include "page_bench.h"

namespace korva::test {
namespace {

/// A model of each family with a page.
struct OfFamily {
  const char16_t* family;
  const char16_t* page;
  const char16_t* model;
  const char16_t* other;  ///< another model of the family
};
constexpr std::array kFamilies = {
    OfFamily{.family = u"First", .page = u"KvConfig", .model = u"QL", .other = u"QC"},
    OfFamily{.family = u"Second", .page = u"KvConfig_V2", .model = u"QEY", .other = u"QIC"},
    OfFamily{.family = u"Third", .page = u"KvConfig_V3", .model = u"QEI2", .other = u"QNA2"},
    OfFamily{.family = u"LiteSecond", .page = u"z2KvConfig_V2", .model = u"Z2WQ", .other = u"Z2WQ2"},
};

struct Way {
  OfFamily from;
  OfFamily to;
};

void PrintTo(const Way& way, std::ostream* out) {
  *out << ToUtf8(way.from.family) << " to " << ToUtf8(way.to.family);
}

std::vector<Way> Ways() {
  std::vector<Way> ways;
  for (const OfFamily& from : kFamilies) {
    for (const OfFamily& to : kFamilies) {
      if (from.family != to.family) {
        ways.push_back({.from = from, .to = to});
      }
    }
  }
  return ways;
}

class PageSwitchTest : public testing::TestWithParam<Way> {
 protected:
  PageSwitchTest() { bench.Choose(From().model); }
  static const OfFamily& From() { return GetParam().from; }
  static const OfFamily& To() { return GetParam().to; }

  PageBench bench;
};

INSTANTIATE_TEST_SUITE_P(Way, PageSwitchTest, testing::ValuesIn(Ways()), [](const auto& one) {
  return ToUtf8(one.param.from.family) + "To" + ToUtf8(one.param.to.family);
});

TEST_P(PageSwitchTest, AModelOfAnotherFamilyShowsItsPageWithTheListInTheSamePlace) {
  bench.Do([this] { bench.Page().lst_TypeSelect.SetTopIndex(17); });
  std::vector<String> opened;
  bench.app.link.line.OnOpened = [&](int /*number*/, const String& settings, bool /*open*/) {
    opened.push_back(settings);
  };
  bench.Choose(To().model);
  EXPECT_EQ(bench.Page().ItsFamily().page, To().page);
  EXPECT_EQ(bench.Page().DefFile, String(To().model) + u".def");
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), To().model);
  EXPECT_EQ(bench.Page().lst_TypeSelect.TopIndex(), 17);
  ASSERT_FALSE(opened.empty());
  EXPECT_EQ(opened.back(), bench.Page().ItsFamily().settings);
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST_P(PageSwitchTest, GoingBackFindsTheFormerPageAsItWasLeft) {
  bench.Type(u"02", u"PUMP 1");
  bench.Save(kFile);
  bench.Do([this] { bench.Page().Tabs.SetCurrent(1); });
  Page* const former = &bench.Page();
  bench.Choose(To().model);
  bench.Type(u"02", u"FAN 2");
  bench.Page().DataChanged = false;
  bench.Choose(From().model);
  EXPECT_EQ(&bench.Page(), former);
  EXPECT_EQ(bench.Field(u"02").Text(), u"PUMP 1");
  EXPECT_EQ(bench.Page().txtFileTitle.Text(), u"kept.cfg");
  EXPECT_EQ(bench.Page().Tabs.Current(), 1);
  EXPECT_FALSE(bench.Page().DataChanged);
  bench.Choose(To().model);
  EXPECT_EQ(bench.Field(u"02").Text(), u"FAN 2");
}

TEST_P(PageSwitchTest, AModelChosenOnTheFormerPageIsTheOneThatShows) {
  bench.Choose(To().model);
  bench.Choose(From().other);
  EXPECT_EQ(bench.Page().ItsFamily().page, From().page);
  EXPECT_EQ(bench.Page().DefFile, String(From().other) + u".def");
}

TEST_P(PageSwitchTest, UnsavedDataAsksAndCancelStays) {
  bench.Type(u"02", u"PUMP 1");
  bench.dialogs.QueueAnswer(Answer::Cancel);
  bench.Choose(To().model);
  EXPECT_EQ(bench.Page().ItsFamily().page, From().page);
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), From().model);
  EXPECT_EQ(bench.Field(u"02").Text(), u"PUMP 1");
  EXPECT_TRUE(bench.Page().DataChanged);
  EXPECT_EQ(bench.TakeBoxes(), std::vector{Shown(BoxKey::SaveChanges)});
}

TEST_P(PageSwitchTest, AFileOfTheOtherFamilyOpensWithItsValuesOnThatFamilysPage) {
  PageBench source;
  source.Connect(To().model);
  source.Choose(To().model);
  source.Upload();
  source.Type(u"02", u"FAN 2");
  source.Type(source.Page().txtMemo, u"1行目\r\n2行目");
  source.Save(kFile);
  bench.files.Put(kFile, source.files.Bytes(kFile).value());

  bench.Type(u"02", u"PUMP 1");
  bench.Page().DataChanged = false;
  const ParameterSet former = bench.Page().GroupItem;
  ParameterPage& former_page = bench.Page();
  bench.Open(kFile);
  EXPECT_EQ(bench.Page().ItsFamily().page, To().page);
  EXPECT_EQ(bench.Page().DefFile, String(To().model) + u".def");
  EXPECT_EQ(bench.Page().lst_TypeSelect.Text(), To().model);
  EXPECT_EQ(bench.Page().txtFileTitle.Text(), u"kept.cfg");
  EXPECT_EQ(bench.Page().txtMemo.Text(), u"1行目\r\n2行目");
  for (int group = 0; group < former.Groups() && group < source.Page().GroupItem.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      EXPECT_EQ(bench.Page().GroupItem.At(group, item), source.Page().GroupItem.At(group, item)) << item;
      EXPECT_EQ(former_page.GroupItem.At(group, item), former.At(group, item)) << item;
    }
  }
  EXPECT_FALSE(bench.Page().DataChanged);
  EXPECT_FALSE(former_page.DataChanged);
  EXPECT_TRUE(bench.TakeBoxes().empty());
  bench.Check();
  EXPECT_EQ(bench.TakeBoxes(), std::vector{Shown(BoxKey::CheckDone)});
}

TEST_P(PageSwitchTest, ClosingTheShowingPageEndsTheProgram) {
  bench.Choose(To().model);
  bench.app.program.PressClose();
  EXPECT_EQ(bench.status, 0);
}

TEST(PageSwitch, AFileWithAnUnknownModelShowsTheFirstEntryWithItsPage) {
  PageBench bench;
  bench.Choose(u"QEI2");
  bench.PutText(kFile, u"$DefFile\n\"NONE.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n$End\n");
  bench.Open(kFile);
  EXPECT_EQ(bench.Page().ItsFamily().page, u"KvConfig");
  EXPECT_EQ(bench.Page().lst_TypeSelect.ListIndex(), 0);
  EXPECT_NE(bench.Page().Item(2), u"TAG-1");
}

TEST(PageSwitch, AGroupThatFamilyThirdLacksEndsTheProgramAndKeepsTheFile) {
  PageBench bench;
  bench.Choose(u"QL");
  bench.PutText(kFile, u"$DefFile\n\"QEI2.def\"\n$Data\n\"2\",\"0\",\"1\"\n$End\n");
  const auto bytes = bench.files.Bytes(kFile);
  bench.Open(kFile);
  EXPECT_EQ(bench.status, 1);
  ASSERT_EQ(bench.dialogs.Failures().size(), 1U);
  EXPECT_NE(bench.dialogs.Failures()[0].find(u"Group 2"), String::npos);
  EXPECT_EQ(bench.files.Bytes(kFile), bytes);
}

// --- captions

/// What a page's caption may be besides the text table's: the words of the definition or of the device.
bool FromDefinition(const Control& control) {
  static const std::array<std::string_view, 9> names = {"lbl_Item",     "Label",    "Frame",
                                                        "lbl_unit",     "optAlarm", "optTempUnit",
                                                        "lblThreshold", "Opt_Root", "unitMeasFreq"};
  return std::find(names.begin(), names.end(), control.Name()) != names.end();
}

struct CaptionTest : testing::TestWithParam<OfFamily> {};
INSTANTIATE_TEST_SUITE_P(Family, CaptionTest, testing::ValuesIn(kFamilies),
                         [](const auto& one) { return ToUtf8(one.param.family); });

/// Steps ("+0.01") and limits ("-6% <= X <= 6%") are the same in every language.
bool HasWords(const String& caption) {
  return caption.empty() || caption.find_first_not_of(u"0123456789+-.,%<=()kVXY ") != String::npos;
}

TEST_P(CaptionTest, EveryCaptionOfThePageIsInTheTextTableInBothLanguages) {
  PageBench bench;
  bench.Choose(GetParam().model);
  for (const Language language : {Language::Japanese, Language::English}) {
    std::vector<String> texts;
    texts.reserve(static_cast<std::size_t>(TextKey::kCount));
    for (int key = 0; key < static_cast<int>(TextKey::kCount); ++key) {
      texts.push_back(CaptionText(static_cast<TextKey>(key), language));
    }
    const auto known = [&](const String& text) {
      return std::find(texts.begin(), texts.end(), text) != texts.end();
    };
    bench.Page().SetCaptions(language);
    int captions = 0;
    for (const Control* control : bench.Page().Controls()) {
      const auto* const captioned = dynamic_cast<const CaptionedControl*>(control);
      const bool option = dynamic_cast<const OptionButton*>(control) != nullptr &&
                          control->Name().starts_with("Opt_") && !known(control->ShownText());
      // What happens makes the texts of these.
      const Page& page = bench.Page();
      const bool told = control == &page.Notes || control == &page.lblWaiting || control == &page.lblForced ||
                        control == &page.lblHeldClose;
      if (captioned == nullptr || FromDefinition(*control) || option || told ||
          control->Name().ends_with("Msg_CannotEnd")) {
        continue;
      }
      if (!HasWords(captioned->Caption())) {
        continue;
      }
      ++captions;
      EXPECT_TRUE(known(captioned->Caption())) << control->FullName() << " " << ToUtf8(captioned->Caption());
    }
    EXPECT_GT(captions, 20);
    for (int tab = 0; tab < bench.Page().Tabs.Count(); ++tab) {
      EXPECT_TRUE(known(bench.Page().Tabs.TabCaption(tab))) << tab;
    }
  }
}

}  // namespace
}  // namespace korva::test
