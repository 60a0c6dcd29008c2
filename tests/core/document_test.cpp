#include "core/document.h"

#include <gtest/gtest.h>

namespace korva {
namespace {

Document Sample() {
  return {
      .title = u"設定一覧",
      .header = u"QHN\tTAG",
      .footer = u"KORVA",
      .page_number = u"{1} / {2}",
      .facts = {{u"メモ", u"one\ntwo\\n\\"}, {u"", u""}},
      .tables = {{.heading = u"入力",
                  .columns = {{.head = u"Item", .share = 9}, {.head = u"値", .share = 100, .number = true}},
                  .rows = {{u"Item 14", u"\t"}, {u"", u"μ\r"}}},
                 {.heading = u"",
                  .columns = {},
                  .rows = {},
                  .curve = Curve{.points = {{.row = 1, .x = 0.1, .y = -1e300, .bad = true},
                                            {.row = 3, .x = 1e-310, .y = 0, .selected = true}},
                                 .x_title = u"deg C",
                                 .y_title = u"X(k) mV"}}}};
}

TEST(DocumentTest, ComesBackFromItsPlainFormToTheLastCharacterAndDigit) {
  EXPECT_EQ(DocumentOf(PlainForm(Sample())), Sample());
  EXPECT_EQ(DocumentOf(PlainForm({})), Document());
}

TEST(DocumentTest, IsNoneWhereSomethingIsMissingAtTheEnd) {
  const std::string plain = PlainForm(Sample());
  for (std::size_t size = 0; size < plain.size(); ++size) {
    ASSERT_FALSE(DocumentOf(std::string_view(plain).substr(0, size))) << size;
  }
}

TEST(DocumentTest, IsNoneWhereALineSaysNothing) {
  for (const std::string_view plain :
       {"", "end", "other\nend\n", "title\nend\n", "title\ta\tb\nend\n", "fact\ta\nend\n",
        "column\ta\t1\t0\nend\n", "row\ta\nend\n", "curve\ta\tb\nend\n", "table\ta\ncolumn\tb\t0\t0\nend\n",
        "table\ta\ncolumn\tb\t101\t0\nend\n", "table\ta\ncolumn\tb\t1x\t0\nend\n",
        "table\ta\ncolumn\tb\t1\t0\nrow\tc\td\nend\n",
        "table\ta\ncolumn\tb\t1\t0\nrow\tc\ncolumn\td\t1\t0\nend\n", "table\ta\npoint\t1\t2\t3\t0\t0\nend\n",
        "table\ta\ncurve\tx\ty\npoint\t1\tnan\t3\t0\t0\nend\n",
        "table\ta\ncurve\tx\ty\npoint\t1\t2\t3\nend\n"}) {
    EXPECT_FALSE(DocumentOf(plain)) << plain;
  }
  EXPECT_TRUE(DocumentOf("table\ta\ncurve\tx\ty\npoint\t1\t2\t3\t0\t0\nend\n"));
}

}  // namespace
}  // namespace korva
