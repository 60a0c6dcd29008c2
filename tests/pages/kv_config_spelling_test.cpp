// Input types that a model of family First spells by the device's version.

#include <gtest/gtest.h>

#include "core/text_utilities.h"
#include "page_bench.h"
#include "pages/kv_config/spelling.h"
#include "support/item_line.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

TEST(SensorTextsTest, TheExactVersionTextSelectsTheShortList) {
  EXPECT_EQ(&SensorTextsOf(u"SYSVER   1.00"), &ShortSensorTexts());
  for (const StringView version :
       {u"SYSVER 1.00", u"SYSVER     1.00", u"SYSVER   1.01", u"SYSVER   2.00", u"ERROR", u""}) {
    EXPECT_EQ(&SensorTextsOf(version), &LongSensorTexts());
  }
}

TEST(SensorTextsTest, TheTwoListsSpellTheSameSensorsInTheSameOrder) {
  const std::pair<StringView, StringView> rows[] = {
      {u"Tc-1: (PR)", u"Tc-1:  (PR)"},
      {u"Tc-2:K(CA)", u"Tc-2: K(CA)"},
      {u"Tc-3:E(CRC)", u"Tc-3: E(CRC)"},
      {u"Tc-4:J(IC)", u"Tc-4: J(IC)"},
      {u"Tc-5:T(CC)", u"Tc-5: T(CC)"},
      {u"Tc-6:B(RH)", u"Tc-6: B(RH)"},
      {u"Tc-7:R", u"Tc-7: R"},
      {u"Tc-8:S", u"Tc-8: S"},
      {u"Tc-9:WRe5-26", u"Tc-9: WRe5-26"},
      {u"DS:straight", u"PS: Straight"},
      {u"Fx:linearizer", u"FX: Linearizer"},
      {u"RB-1:Pt100", u"RB-1: Pt100"},
      {u"RB-2:JPt100", u"RB-2: JPt100"},
      {u"RB-3:Pt 50", u"RB-3: Pt 50"},
      {u"RB-4:Ni508.4", u"RB-4: Ni508.4"},
      {u"Sq-1:no drop", u"Sq-1:no drop"},
      {u"Sq-2:drop out", u"Sq-2:drop out"},
  };
  for (std::size_t row = 0; row < ShortSensorTexts().size(); ++row) {
    EXPECT_EQ(ShortSensorTexts()[row], rows[row].first);
    EXPECT_EQ(LongSensorTexts()[row], rows[row].second);
  }
}

/// A definition of the input type alone, whose rows have the codes 100, 101, ... and texts of no device, and
/// which is written under `condition`.
String InputTypesOnly(const String& condition) {
  String text =
      u"$Data\n"
      u"01, 10, , , Y, Y, , , , , 0, $I10, , , , , , , , $I10, " +
      condition +
      u", , , 0\n"
      u"00, 99, , , Y, , , , , , , , , , , , , , , , , , ,\n"
      u"$I10\n";
  for (int row = 0; row < kSensorTexts; ++row) {
    text +=
        Ascii(std::to_string(100 + row) + ", text " + std::to_string(row)) + u", 0, 100, 1, N, Y, , deg C\n";
  }
  return text + u"$I21\n0, deg C\n1, deg F\n2, K\n$SSTab\nTrue, True, True, True, True, True, True\n$End\n";
}

/// The page of a model with that definition, and a device of this version.
struct SpellingBench : PageBench {
  SpellingBench(const String& model, const std::string& version, const String& condition = u"$I10") {
    PutText(DefPath(model), InputTypesOnly(condition));
    line.items = {{"00/99", version}, {"01/01", "0"}};
    port.Connect(1, &line);
    Choose(model);
  }
  /// The device's input types, of which it has the fourth.
  void Hold(const SensorTexts& texts) {
    for (std::size_t row = 0; row < texts.size(); ++row) {
      line.choices["01/10"][std::to_string(100 + row)] = ToUtf8(texts[row]);
    }
    line.items["01/10"] = ToUtf8(texts[3]);
  }
  void Show(const String& type) {
    First().SetItem(10, type);
    First().BuildPage();
  }
  String Listed(int row) { return First().Def[u"$I10"].At(row, 1); }

  ItemLine line{port};
};

// Upload.

struct VersionCase {
  std::string version;
  String first_type;
  String second_type;
};

TEST(UploadVersionTest, TheExactVersionSelectsTheShortSpellingAndAnyOtherTheLongOne) {
  for (const auto& [version, first, second] : {
           VersionCase{"SYSVER   1.00", u"Tc-1: (PR)", u"Tc-2:K(CA)"},
           VersionCase{"SYSVER 1.00", u"Tc-1:  (PR)", u"Tc-2: K(CA)"},
           VersionCase{"SYSVER     1.00", u"Tc-1:  (PR)", u"Tc-2: K(CA)"},
           VersionCase{"SYSVER   2.00", u"Tc-1:  (PR)", u"Tc-2: K(CA)"},
       }) {
    SpellingBench bench(u"QUO", version);
    EXPECT_EQ(bench.Listed(0), u"text 0") << "as the definition has it, until the version is known";
    bench.line.items["01/10"] = ToUtf8(first);
    bench.Upload();
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::UploadDone));
    EXPECT_EQ(bench.Listed(0), first) << version;
    EXPECT_EQ(bench.Listed(1), second) << version;
    EXPECT_EQ(bench.First().Combo[0].Entries().at(1), second) << "the list shows the device's spelling";
    EXPECT_EQ(bench.First().Combo[0].Text(), first);
  }
}

TEST(UploadVersionTest, OtherModelsKeepTheSpellingOfTheirDefinition) {
  SpellingBench bench(u"QC", "SYSVER   1.00");
  bench.line.items["01/10"] = "text 3";
  bench.Upload();
  EXPECT_EQ(bench.Listed(0), u"text 0");
  EXPECT_EQ(bench.First().Combo[0].Text(), u"text 3");
}

// Download.

struct SpellingCase {
  std::string version;
  String chosen;
  String spelt;
  std::string code;
};

TEST(DownloadSpellingTest, TheChosenTypeAndTheListTakeTheDevicesSpelling) {
  for (const auto& [version, chosen, spelt, code] : {
           SpellingCase{"SYSVER   1.00", u"Tc-2: K(CA)", u"Tc-2:K(CA)", "101"},
           SpellingCase{"SYSVER   1.00", u"Tc-2:K(CA)", u"Tc-2:K(CA)", "101"},
           SpellingCase{"SYSVER   2.00", u"Tc-1: (PR)", u"Tc-1:  (PR)", "100"},
           SpellingCase{"SYSVER   2.00", u"PS: Straight", u"PS: Straight", "109"},
           SpellingCase{"SYSVER   1.00", u"Sq-1:no drop", u"Sq-1:no drop", "115"},
       }) {
    const SensorTexts& texts = SensorTextsOf(FromUtf8(version));
    SpellingBench bench(u"QUO", version);
    bench.Hold(texts);
    bench.Show(chosen);
    bench.Download();
    EXPECT_EQ(bench.First().Item(10), spelt);
    EXPECT_EQ(bench.First().Combo[0].Text(), spelt);
    EXPECT_EQ(bench.Listed(3), texts[3]);
    EXPECT_EQ(bench.line.writes, (Texts{"01/01=0", "01/01=1", "01/10=" + code, "01/01=0", "01/01=0"}));
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
    EXPECT_FALSE(bench.First().DataChanged);
  }
}

TEST(DownloadSpellingTest, ATextOfTheOtherSpellingIsNoBadChoice) {
  SpellingBench bench(u"QUO", "SYSVER   1.00", u"Y");
  bench.Hold(ShortSensorTexts());
  bench.Show(u"Tc-2: K(CA)");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::DownloadDone));
  EXPECT_EQ(bench.First().Item(10), u"Tc-2:K(CA)");
  bench.Show(u"Tc-99: none");
  bench.Download();
  EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::ValueBad)) << "a text of neither";
}

TEST(DownloadSpellingTest, OnOtherModelsBothAreBadChoicesAndTheListStays) {
  for (const SensorTexts* texts : {&ShortSensorTexts(), &LongSensorTexts()}) {
    SpellingBench bench(u"QC", "SYSVER   1.00", u"Y");
    bench.Hold(ShortSensorTexts());
    bench.Show(String(texts->at(1)));
    bench.Download();
    EXPECT_EQ(bench.TakeBoxes().back(), Shown(BoxKey::ValueBad));
    EXPECT_EQ(bench.line.writes, (Texts{"01/01=0", "01/01=0"})) << "nothing but monitor mode";
    EXPECT_EQ(bench.Listed(1), u"text 1");
  }
}

}  // namespace
}  // namespace korva::test
