#include "monitor/answer_cleaning.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/text_utilities.h"

namespace korva {
namespace {

struct CleaningCase {
  const char* name;
  Cleaner clean;
  StringView answer;
  StringView prefix;
  StringView shown;
};

struct AnswerCleaningTest : testing::TestWithParam<CleaningCase> {};

INSTANTIATE_TEST_SUITE_P(
    Answer, AnswerCleaningTest,
    testing::Values(CleaningCase{"HeadBeforeANumber", TrimNumericHead, u"INPPCT:    50.00", u"", u"50.00"},
                    CleaningCase{"HeadWithASign", TrimNumericHead, u"OUTPCT:-5.25 ", u"", u"-5.25"},
                    CleaningCase{"HeadOfARefusal", TrimNumericHead, u"ERROR", u"", u""},
                    CleaningCase{"HeadOfNothing", TrimNumericHead, u"", u"", u""},
                    CleaningCase{"HeadWithTextBehindTheNumber", TrimNumericHead, u"50.00 %", u"", u""},
                    CleaningCase{"TailBehindANumber", TrimNumericTail, u"  12.5 mA", u"", u"12.5"},
                    CleaningCase{"TailOfARefusal", TrimNumericTail, u"NG", u"", u""},
                    CleaningCase{"TailWithTextBeforeTheNumber", TrimNumericTail, u"OUT 12.5", u"", u""},
                    CleaningCase{"TwoDecimals", TrimNumericTailFixed, u"7.5 Hz", u"", u"7.50"},
                    CleaningCase{"TwoDecimalsRounded", TrimNumericTailFixed, u"7.455 Hz", u"", u"7.46"},
                    CleaningCase{"TwoDecimalsOfNothing", TrimNumericTailFixed, u"", u"", u""},
                    CleaningCase{"PrefixCut", StripItemPrefix, u"IN: 12.5 V", u"IN:", u"12.5 V"},
                    CleaningCase{"PrefixCutWhateverStandsThere", StripItemPrefix, u"XY=12.5", u"IN:",
                                 u"12.5"},
                    CleaningCase{"PrefixAsLongAsTheAnswer", StripItemPrefix, u"IN:", u"IN:", u""},
                    CleaningCase{"PrefixLongerThanTheAnswer", StripItemPrefix, u"I", u"IN:", u""},
                    CleaningCase{"NoPrefixTrimsOnly", StripItemPrefix, u"  12.5 ", u"", u"12.5"},
                    CleaningCase{"PrefixOfARefusal", StripItemPrefix, u"ERROR", u"IN:", u"ERROR"},
                    CleaningCase{"PrefixOfAnItemOfNoUse", StripItemPrefix, u"NEEDLESS", u"IN:", u"NEEDLESS"},
                    CleaningCase{"Plain", TrimPlain, u"  12.5 ", u"IN:", u"12.5"}),
    [](const auto& one) { return one.param.name; });

TEST_P(AnswerCleaningTest, LeavesWhatIsShown) {
  const CleaningCase& one = GetParam();
  EXPECT_EQ(ToUtf8(one.clean(one.answer, one.prefix)), ToUtf8(one.shown));
}

}  // namespace
}  // namespace korva
