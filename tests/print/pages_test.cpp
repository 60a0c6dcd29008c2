#include "print/pages.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPageRanges>
#include <QPdfWriter>
#include <string>
#include <string_view>

namespace korva {
namespace {

Document ManyPages() {
  Document document{.title = u"設定一覧",
                    .header = u"QHN",
                    .footer = {},
                    .page_number = u"{1} / {2}",
                    .facts = {},
                    .tables = {}};
  DocumentTable& table = document.tables.emplace_back();
  table.columns = {{.head = u"Item"}};
  table.rows.assign(150, {u"Item 14"});
  return document;
}

int PagesIn(std::string_view pdf) {
  int pages = 0;
  constexpr std::string_view kPage = "/Type /Page\n";
  for (std::size_t at = pdf.find(kPage); at != std::string_view::npos; at = pdf.find(kPage, at + 1)) {
    ++pages;
  }
  return pages;
}

TEST(PagesTest, APdfFileHasTheDocumentsPagesAndItsFonts) {
  const std::string pdf = PdfBytes(ManyPages());
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  EXPECT_NE(pdf.find("%%EOF", pdf.size() - 8), std::string::npos);
  EXPECT_EQ(PagesIn(pdf), 4);
  EXPECT_NE(pdf.find("/FontFile"), std::string::npos) << "it can be read where the font is not installed";
  EXPECT_NE(pdf.find("/MediaBox [0 0 595"), std::string::npos);
  const std::string_view title("/Title (\xFE\xFF\0Q\0H\0N)", 17);
  EXPECT_NE(pdf.find(title), std::string::npos) << "what a reader's window is headed with";
}

TEST(PagesTest, OfADeviceWithRangesThesePagesAloneAreDrawn) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
  {
    QPdfWriter writer(&buffer);
    QPageRanges ranges;
    ranges.addRange(2, 3);
    writer.setPageRanges(ranges);
    EXPECT_TRUE(DrawPages(ManyPages(), writer));
  }
  EXPECT_EQ(PagesIn(bytes.toStdString()), 2);
}

}  // namespace
}  // namespace korva
