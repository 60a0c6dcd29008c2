#include "files/model_kind.h"

#include <gtest/gtest.h>

#include "page_host.h"

namespace korva::test {
namespace {

/// The kind of the catalogue's model of row 0 when its definition begins with `text`.
String KindIn(StringView text, Language language) {
  PageHost host;
  host.Start();
  const String file = host.Page().Models.At(0, ModelTable::kDefFile);
  host.PutText(u"/korva/system/Kv_1/" + file, text);
  return KindOfModel(host.Page(), 0, language);
}

TEST(ModelKindTest, IsWhatStandsBehindTheNameInTheFirstTwoLinesOfTheDefinition) {
  constexpr StringView text = u"QHW: DC input.\nQHW: 直流入力\n$Data\n";
  EXPECT_EQ(KindIn(text, Language::English), u"DC input.");
  EXPECT_EQ(KindIn(text, Language::Japanese), u"直流入力");
}

TEST(ModelKindTest, IsEmptyWhereTheDefinitionSaysNothing) {
  for (const StringView text : {u"", u"$Data", u"\n\n", u"no colon\nnone here\n"}) {
    EXPECT_EQ(KindIn(text, Language::English), u"");
    EXPECT_EQ(KindIn(text, Language::Japanese), u"");
  }
  EXPECT_EQ(KindIn(u"QHW: DC input.", Language::Japanese), u"");
}

TEST(ModelKindTest, IsEmptyForAModelWithoutADefinitionAndForNoModel) {
  PageHost host;
  host.Start();
  host.files.FailReads(MemoryFiles::Fault::FolderGone);
  EXPECT_EQ(KindOfModel(host.Page(), 0, Language::English), u"");
  EXPECT_EQ(KindOfModel(host.Page(), -1, Language::English), u"");
  EXPECT_EQ(KindOfModel(host.Page(), ModelTable::kRows, Language::English), u"");
}

}  // namespace
}  // namespace korva::test
