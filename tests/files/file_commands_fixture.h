#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "page_host.h"

namespace korva::test {

inline constexpr const char16_t* kCfg = u"/korva/data/a.cfg";
inline constexpr StringView kOpenTitle = u"ﾌｧｲﾙを開く: ";
inline constexpr StringView kSaveTitle = u"ﾌｧｲﾙに保存: ";
inline constexpr StringView kSections =
    u"$I10\n0,off\n1,on\n$I21\n0,deg C\n1,deg F\n2,K\n$SSTab\nTrue,True,True,True,False,True,True\n";

inline String Definition(const String& caption) {
  return DefText({{.item = u"02", .label = u"1", .caption = caption, .text = u"0"},
                  {.item = u"14", .text = u"9", .unit_label = u"9", .unit = u"$in", .temperature = u"Item21"},
                  {.item = u"10", .key = u"$I10", .frame = u"0", .last = u"1", .preset = u"1"},
                  {.item = u"21", .key = u"$I21", .frame = u"3", .last = u"2", .preset = u"0"}},
                 kSections);
}

/// A configuration of the model OTHER.
inline constexpr StringView kOther =
    u"$DefFile\n\"OTHER.def\"\n$Data\n\"1\",\"2\",\"TAG-1\"\n\"1\",\"10\",\"off\"\n\"1\",\"14\",\"12\"\n"
    u"\"1\",\"21\",\"deg F\"\n$Memo\n\"0\",\"author\"\n\"1\",\"one\ntwo\"\n$End\n";

/// The commands on a page whose models have a tag, a zero, a table switch and a temperature unit.
class FileCommands : public testing::Test {
 protected:
  FileCommands() {
    host.Define(u"PLAIN.def", Definition(u"plain"));
    host.Define(u"OTHER.def", Definition(u"other"));
    host.PutText(u"/korva/system/Kv_3/THIRD.def", Definition(u"third"));
    host.Start();
  }
  TestPage& Page() { return host.Page(); }
  void Open(StringView text) {
    host.PutText(kCfg, text);
    host.dialogs.QueueFile(kCfg);
    Page().cmdOpen.Click();
  }
  bool Save(const String& path = kCfg) {
    host.dialogs.QueueFile(path);
    return Page().SaveCfgFile();
  }
  [[nodiscard]] String LastBox() const {
    return host.dialogs.Boxes().empty() ? String() : host.BoxTexts().back();
  }

  PageHost host;
};

}  // namespace korva::test
