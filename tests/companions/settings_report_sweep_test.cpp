// The report of each model tells each item that its page shows, as the page shows it.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "companions/settings_report.h"
#include "core/text_utilities.h"
#include "pages/page_bench.h"

namespace korva::test {
namespace {

/// What the page shows of a row, read off its controls.
struct ShownRow {
  const Control* control = nullptr;
  String value;
  String unit;
};

String Without(const String& text) { return Trimmed(text); }

ShownRow ShownRowOf(ParameterPage& page, int row) {
  ShownRow shown;
  const auto index = [&](DataColumn column) { return page.DataCell(row, column); };
  if (!index(kTextIndex).empty()) {
    shown.control = page.FindControl("Text(" + ToUtf8(index(kTextIndex)) + ")");
    shown.value = Without(shown.control->ShownText());
  } else if (!index(kComboIndex).empty()) {
    shown.control = page.FindControl("Combo(" + ToUtf8(index(kComboIndex)) + ")");
    shown.value = Without(shown.control->ShownText());
  } else if (!index(kFrameIndex).empty()) {
    shown.control = page.FindControl("Frame(" + ToUtf8(index(kFrameIndex)) + ")");
    for (const Control* control : page.Controls()) {
      const auto* option = dynamic_cast<const OptionButton*>(control);
      if (option != nullptr && option->Container() == shown.control && option->Visible() && option->Value()) {
        shown.value = option->Caption();
      }
    }
  }
  if (!index(kUnitLabel).empty()) {
    shown.unit = page.FindControl("lbl_unit(" + ToUtf8(index(kUnitLabel)) + ")")->ShownText();
  }
  return shown;
}

bool CountsOnPage(const ParameterPage& page, const ShownRow& shown) {
  return shown.control != nullptr && shown.control->Refused() != Refusal::Hidden &&
         page.Tabs.TabEnabled(page.TabOf(*shown.control));
}

/// The lines of the report with these beginnings.
std::vector<std::vector<String>> LinesOf(const Document& document, const String& item,
                                         const String& caption) {
  std::vector<std::vector<String>> lines;
  for (const DocumentTable& table : document.tables) {
    for (const auto& row : table.rows) {
      if (table.columns.size() == 4 && row[0] == item && row[1].starts_with(caption)) {
        lines.push_back(row);
      }
    }
  }
  return lines;
}

class SettingsReportOfModel : public testing::TestWithParam<String> {};

void ExpectAll(PageBench& bench) {
  ParameterPage& page = bench.Page();
  const Document document = SettingsReport(page, {});
  int lines = 0;
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    const ShownRow shown = page.DataCell(row, kOnPage) == u"Y" ? ShownRowOf(page, row) : ShownRow();
    const auto found = LinesOf(document, page.DataCell(row, kNumberCaption), page.DataCell(row, kCaption));
    if (page.IsLive(row)) {
      EXPECT_TRUE(page.DataCell(row, kCaption).empty() ? true : found.empty()) << row;
      continue;
    }
    if (!CountsOnPage(page, shown)) {
      continue;
    }
    ++lines;
    const bool counts = !shown.value.empty() && shown.control->Enabled() && page.SetCell(row) != kNeedless;
    const bool told = std::any_of(found.begin(), found.end(), [&](const auto& line) {
      const bool unit =
          line[3] == shown.unit || shown.unit.empty();  // a box of units, a range beside a choice
      return counts ? line[2] == shown.value && unit
                    : (line[2] == u"―" || line[2].starts_with(u"(")) && line[3].empty();
    });
    EXPECT_TRUE(told) << ToUtf8(page.DataCell(row, kItem)) << ": " << ToUtf8(shown.value) << " "
                      << ToUtf8(shown.unit);
  }
  EXPECT_GT(lines, 3);
}

TEST_P(SettingsReportOfModel, TellsEachItemAsThePageShowsItBeforeAndAfterAnUpload) {
  PageBench bench;
  bench.Connect(GetParam());
  bench.Choose(GetParam());
  ExpectAll(bench);
  bench.TakeTables();
  bench.Upload();
  bench.TakeBoxes();
  ExpectAll(bench);
}

INSTANTIATE_TEST_SUITE_P(Each, SettingsReportOfModel, testing::ValuesIn(AllModels()),
                         [](const testing::TestParamInfo<String>& parameter) {
                           return "Model_" + ToUtf8(parameter.param);
                         });

}  // namespace
}  // namespace korva::test
