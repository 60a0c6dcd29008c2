// A model's whole road: from the device to the page, to a file and back, and to the device again. Nothing may
// be lost on it, whatever input type the device has.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "linearizer/table_buttons.h"
#include "support/sampled.h"
#include "sweep_bench.h"

namespace korva {
namespace {

using test::kFile;
constexpr const char16_t* kSecondFile = u"/korva/data/again.cfg";

/// Everything that the page keeps, a line for each value.
std::vector<std::string> SetOf(const ParameterPage& page) {
  std::vector<std::string> lines;
  for (int group = 0; group < page.GroupItem.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (const String& value = page.GroupItem.At(group, item); !value.empty()) {
        lines.push_back(std::to_string(group) + " " + std::to_string(item) + " " + ToUtf8(value));
      }
    }
  }
  lines.push_back("author " + ToUtf8(page.GroupItem.Author));
  lines.push_back("memo " + ToUtf8(page.GroupItem.Memo));
  return lines;
}

/// What the user sees in the fields and boxes that are shown, and on which option buttons.
std::vector<std::string> Seen(const ParameterPage& page) {
  std::vector<std::string> lines;
  for (const Control* control : page.Controls()) {
    const auto* const option = dynamic_cast<const OptionButton*>(control);
    const bool on = option != nullptr && option->Value();
    if (control->Visible() && control->Name() != "ProgressBar") {
      lines.push_back(control->FullName() + " " + ToUtf8(control->ShownText()) + (on ? " on" : "") +
                      (control->Locked() ? " locked" : ""));
    }
  }
  return lines;
}

class RoundTripTest : public testing::TestWithParam<String> {
 protected:
  static const String& Model() { return GetParam(); }

  /// Texts of the input types or switch positions that the model's devices know; one empty text for a model
  /// without any.
  static std::vector<String> Types() {
    test::PageBench bench;
    bench.Choose(Model());
    std::vector<String> texts;
    if (!HasTypes(bench.Page())) {
      return {u""};
    }
    for (const String& list : test::ListsBehind(bench.Page(), u"$I10")) {
      const StringTable& types = bench.Page().Def[list];
      for (int row = 0; row < types.Rows(); ++row) {
        if (!types.At(row, 1).empty()) {
          texts.push_back(types.At(row, 1));
        }
      }
    }
    return texts.empty() ? std::vector<String>{u""} : texts;
  }

  /// True when item 10 is a choice of an input type or of a switch.
  static bool HasTypes(const ParameterPage& page) {
    const int row = page.FindDataRow(u"10");
    return row >= 0 && page.DataCell(row, kChoiceKey) == u"$I10";
  }

  /// Gives the device an input type as a technician does, with a range where the type limits none.
  static void Set(sim::Device& device, const String& type) {
    if (!type.empty()) {
      ASSERT_TRUE(device.Set("01", "10", ToUtf8(type)));
    }
    if (type == u"DS:straight") {
      ASSERT_TRUE(device.Set("01", "14", "-5"));
      ASSERT_TRUE(device.Set("01", "15", "5"));
    }
  }

  /// A device of this input type behind the page of its model, its set uploaded.
  static void Prepare(test::PageBench& bench, sim::Device& device, const String& type) {
    Set(device, type);
    bench.Choose(Model());
    bench.TakeTables();
    bench.Upload();
    ASSERT_EQ(bench.TakeBoxes().back(), test::Shown(BoxKey::UploadDone));
    ReadTable(bench);
  }

  /// Reads a table that travels by buttons of its own, where it is in use.
  static void ReadTable(test::PageBench& bench) {
    for (PagePart* part : bench.Page().Parts()) {
      auto* const buttons = dynamic_cast<TableButtons*>(part);
      if (buttons != nullptr && bench.Page().WhyRefused(buttons->cmdReadOutTable).empty()) {
        bench.Click(buttons->cmdReadOutTable);
        ASSERT_EQ(bench.TakeBoxes(), std::vector{test::Shown(BoxKey::TableRead)});
      }
    }
  }
};

/// The long list of input types is what QUO's definition holds; this version of the device reports it.
sim::DeviceOptions LaterVersion() { return {.system_text = "SYSVER   2.00"}; }

TEST_P(RoundTripTest, AnUploadedSetIsWhatTheDeviceHoldsAndPassesItsCheck) {
  for (const String& type : test::PartOf(Types())) {
    SCOPED_TRACE(ToUtf8(type));
    test::PageBench bench;
    sim::Device& device = bench.Connect(Model(), LaterVersion());
    Prepare(bench, device, type);
    test::ExpectDeviceHolds(bench.Page(), device);
    EXPECT_TRUE(bench.Page().DataChanged);
    bench.Check();
    EXPECT_EQ(bench.TakeBoxes(), std::vector{test::Shown(BoxKey::CheckDone)});
  }
}

TEST_P(RoundTripTest, ASavedSetComesBackFromItsFileAsItWas) {
  for (const String& type : test::PartOf(Types())) {
    SCOPED_TRACE(ToUtf8(type));
    test::PageBench bench;
    sim::Device& device = bench.Connect(Model(), LaterVersion());
    Prepare(bench, device, type);
    bench.Type(u"02", u"ROUND-1");
    bench.Type(bench.Page().txtAuthor, u"技術部");
    bench.Type(bench.Page().txtMemo, u"1行目\r\n2行目\r\n3行目");
    bench.Save(kFile);
    EXPECT_FALSE(bench.Page().DataChanged);
    const std::vector<std::string> kept = SetOf(bench.Page());
    const std::vector<std::string> seen = Seen(bench.Page());
    bench.New();
    EXPECT_NE(SetOf(bench.Page()), kept);
    bench.Open(kFile);
    EXPECT_EQ(SetOf(bench.Page()), kept);
    EXPECT_EQ(Seen(bench.Page()), seen);
    EXPECT_EQ(bench.Page().DefFile, test::DefFileOf(Model()));
    EXPECT_FALSE(bench.Page().DataChanged);
    bench.Save(kSecondFile);
    EXPECT_EQ(bench.files.Bytes(kSecondFile), bench.files.Bytes(kFile));
    EXPECT_EQ(bench.TakeBoxes(), (std::vector(2, test::Shown(BoxKey::FileSaved))));
    EXPECT_FALSE(bench.status);
  }
}

TEST_P(RoundTripTest, ASetReadFromAFileGoesToAnotherDeviceAndComesBackTheSame) {
  for (const String& type : test::PartOf(Types())) {
    SCOPED_TRACE(ToUtf8(type));
    test::PageBench first;
    Prepare(first, first.Connect(Model(), LaterVersion()), type);
    first.Type(u"02", u"ROUND-1");
    first.Save(kFile);
    const std::vector<std::string> kept = SetOf(first.Page());

    test::PageBench second;
    second.TakeTables();
    second.files.Put(kFile, first.files.Bytes(kFile).value());
    sim::Device& other = second.Connect(Model(), LaterVersion());
    // A type that is fixed in the device is never written: the other device has it from its maker.
    Set(other, type);
    second.Open(kFile);
    second.Download();
    EXPECT_EQ(second.TakeBoxes().back(), test::Shown(BoxKey::DownloadDone));
    EXPECT_EQ(SetOf(second.Page()), kept);
    EXPECT_EQ(other.Mode(), '0');
    test::ExpectDeviceHolds(second.Page(), other);
    second.Upload();
    EXPECT_EQ(SetOf(second.Page()), kept);
  }
}

TEST_P(RoundTripTest, ASettableTypeIsWrittenOverAnotherOne) {
  test::PageBench catalogue;
  catalogue.Choose(Model());
  if (!HasTypes(catalogue.Page())) {
    return;  // nothing to set
  }
  std::vector<String> settable;
  for (const String& list : test::ListsBehind(catalogue.Page(), u"$I10")) {
    const ChoiceList types = catalogue.Page().Def.ListOf(list);
    for (int row = 0; row < types.Rows(); ++row) {
      if (!types.Text(row).empty() && types.Settable(row)) {
        settable.push_back(types.Text(row));
      }
    }
  }
  for (const String& type : test::PartOf(settable)) {
    SCOPED_TRACE(ToUtf8(type));
    test::PageBench first;
    Prepare(first, first.Connect(Model(), LaterVersion()), type);
    first.Save(kFile);

    test::PageBench second;
    second.TakeTables();
    second.files.Put(kFile, first.files.Bytes(kFile).value());
    const sim::Device& other = second.Connect(Model(), LaterVersion());  // as its maker left it
    second.Open(kFile);
    second.Download();
    EXPECT_EQ(second.TakeBoxes().back(), test::Shown(BoxKey::DownloadDone));
    EXPECT_EQ(other.Value("01", "10"), ToUtf8(type));
    test::ExpectDeviceHolds(second.Page(), other);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, RoundTripTest, testing::ValuesIn(test::AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

TEST(RoundTripOfTheFirstVersion, SpellsTheInputTypesAsTheDeviceDoesAndBringsThemBack) {
  test::PageBench bench;
  sim::Device& device = bench.Connect(u"QUO", {.system_text = "SYSVER   1.00"});
  ASSERT_TRUE(device.Set("01", "10", "Tc-2:K(CA)"));
  bench.Choose(u"QUO");
  bench.Upload();
  EXPECT_EQ(bench.Page().Item(10), u"Tc-2:K(CA)");
  EXPECT_EQ(bench.Page().Def[u"$I10"].At(9, 1), u"DS:straight");
  bench.Pick(bench.Page().Combo[0], u"RB-1:Pt100");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), test::Shown(BoxKey::DownloadDone));
  EXPECT_EQ(device.Value("01", "10"), "RB-1:Pt100");
}

TEST(RoundTripOfTheFirstVersion, IsCheckedWhenItsFileIsOpenedWithoutTheDevice) {
  test::PageBench first;
  first.Connect(u"QUO", {.system_text = "SYSVER   1.00"}).Set("01", "10", "Tc-2:K(CA)");
  first.Choose(u"QUO");
  first.Upload();
  first.Save(kFile);

  test::PageBench second;
  second.files.Put(kFile, first.files.Bytes(kFile).value());
  second.Start();
  second.Open(kFile);
  EXPECT_EQ(second.Page().InputTypeRow(), 1);
  // A thermocouple K goes up to 1370 deg C.
  second.Type(u"15", u"1371");
  second.Check();
  EXPECT_EQ(second.TakeBoxes().back(), test::Shown(BoxKey::ValueBad));
  EXPECT_EQ(second.LookOf(u"15"), Look::Bad);
}

TEST(RoundTripOfTheFirstVersion, GoesIntoALaterDeviceInThatDevicesSpelling) {
  test::PageBench first;
  first.Connect(u"QUO", {.system_text = "SYSVER   1.00"}).Set("01", "10", "Tc-2:K(CA)");
  first.Choose(u"QUO");
  first.Upload();
  first.Save(kFile);

  test::PageBench second;
  second.files.Put(kFile, first.files.Bytes(kFile).value());
  sim::Device& later = second.Connect(u"QUO", LaterVersion());
  second.Open(kFile);
  EXPECT_EQ(second.Page().Item(10), u"Tc-2:K(CA)");
  second.Download();
  EXPECT_EQ(second.TakeBoxes().back(), test::Shown(BoxKey::DownloadDone));
  EXPECT_EQ(later.Value("01", "10"), "Tc-2: K(CA)");
  EXPECT_EQ(second.Page().Item(10), u"Tc-2: K(CA)");
}

}  // namespace
}  // namespace korva
