// The catalogue and the definition files of the build, read and built as they are.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "core/text_utilities.h"
#include "page_host.h"

namespace korva::test {
namespace {

String SourceText(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return FromUtf8(std::string(std::istreambuf_iterator<char>(file), {}));
}

class ModelFiles : public testing::Test {
 protected:
  ModelFiles() {
    const std::filesystem::path system = KORVA_SYSTEM_SOURCES;
    host.PutText(u"/korva/system/MdlVTRMFx.jpn", SourceText(system / "MdlVTRMFx.jpn"));
    for (const auto& entry : std::filesystem::directory_iterator(system / "Kv_1")) {
      host.Define(entry.path().filename().u16string(), SourceText(entry.path()));
    }
    host.Start();
  }
  /// List positions of the models of family First.
  std::vector<int> Models() {
    std::vector<int> rows;
    for (int row = 0; row < ModelTable::kRows; ++row) {
      if (host.Page().Models.At(row, ModelTable::kFamily) == u"First") {
        rows.push_back(row);
      }
    }
    return rows;
  }
  void ChooseRow(int row) { host.Page().lst_TypeSelect.UserPicks(row); }

  PageHost host;
};

TEST_F(ModelFiles, EveryModelIsReadAndBuiltWithoutAFault) {
  EXPECT_GE(Models().size(), 23U);
  for (const int row : Models()) {
    ChooseRow(row);
    const String model = host.Page().DefFile;
    EXPECT_EQ(host.Page().Models.At(row, ModelTable::kDefFile), model);
    EXPECT_TRUE(host.dialogs.Boxes().empty()) << ToUtf8(model);
    EXPECT_TRUE(host.Page().Text[0].Visible()) << ToUtf8(model) << " has no tag";
    EXPECT_EQ(host.Page().linearizer.LnrFlexGrid.Rows() == 101,
              model == u"QHNY1.def" || model == u"QHNY2.def" || model == u"QHW1.def")
        << ToUtf8(model);
  }
}

TEST_F(ModelFiles, TheSetOfEveryModelComesBackFromItsFileWithoutALoss) {
  for (const int row : Models()) {
    ChooseRow(row);
    host.Page().cmdNew.Click();
    TestPage& page = host.Page();
    for (int data = 0; data < page.Def.Data().Rows(); ++data) {
      const String& item = page.DataCell(data, kItem);
      if (!item.empty() && page.GroupItem.At(page.DataCell(data, kGroup), item).empty()) {
        page.GroupItem.Set(page.DataCell(data, kGroup), item, u"v" + item);
      }
    }
    const ParameterSet saved = page.GroupItem;
    host.dialogs.QueueFile(u"/korva/data/a.cfg");
    ASSERT_TRUE(page.SaveCfgFile());
    host.dialogs.QueueFile(u"/korva/data/a.cfg");
    page.cmdOpen.Click();
    const String model = page.Models.At(row, ModelTable::kDefFile);
    // The model of the list's first entry can't be told from none, so its file shows a new set.
    if (FindModelByDefFile(page.Models, model) == 0) {
      continue;
    }
    EXPECT_EQ(page.DefFile, model);
    for (int group = 0; group < saved.Groups(); ++group) {
      for (int item = 0; item < ParameterSet::kItems; ++item) {
        EXPECT_EQ(page.GroupItem.At(group, item), saved.At(group, item)) << ToUtf8(model) << item;
      }
    }
    EXPECT_FALSE(page.DataChanged);
  }
}

}  // namespace
}  // namespace korva::test
