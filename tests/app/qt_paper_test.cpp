// The report of settings from the window: its buttons, its file, and the dialog of the printers.

#include "app/qt_paper.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <set>

#include "companions/settings_report.h"
#include "print/sheets.h"
#include "window_bench.h"

namespace korva::test {
namespace {

Document OneLine() {
  return {.title = u"設定一覧",
          .header = u"QHN",
          .footer = {},
          .page_number = u"{1} / {2}",
          .facts = {},
          .tables = {}};
}

/// Does something with the dialog when it stands on the screen.
template <typename Action>
void WithDialog(const Action& action) {
  QTimer::singleShot(0, [action] {
    auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    action(*dialog);
  });
}

TEST(QtPaperTest, DrawsAPdfFile) {
  const EventGate gate;
  QtPaper paper(gate);
  String why;
  const std::optional<std::string> bytes = paper.PdfOf(OneLine(), why);
  ASSERT_TRUE(bytes);
  EXPECT_TRUE(bytes->starts_with("%PDF-"));
  EXPECT_EQ(why, u"");
}

/// What stands in the place of the unit of an item, in the report of settings.
String UnitInReport(const Document& document, const String& item) {
  for (const DocumentTable& table : document.tables) {
    for (const auto& row : table.rows) {
      if (row.front() == item) {
        return row.back();
      }
    }
  }
  return {};
}

bool StandsInOneLine(const Document& document, const String& text) {
  constexpr QSizeF a4_with_margins(523, 770);
  const std::vector<Sheet> sheets = SheetsOf(document, a4_with_margins);
  return std::any_of(sheets.begin(), sheets.end(), [&](const Sheet& sheet) {
    return std::any_of(sheet.texts.begin(), sheet.texts.end(),
                       [&](const SheetText& one) { return one.text == ToQt(text); });
  });
}

TEST(QtPaperTest, TheRangeOfEachInputStandsInOneLine) {
  for (const char* model : {"Z2WT", "Z2WR"}) {
    WindowBench bench(model);
    bench.device.dialogs.OnBox(
        [&](const Box& box) { bench.device.dialogs.QueueAnswer(box.buttons.front()); });
    ParameterPage& page = bench.Page();
    std::set<String> ranges;
    for (int entry = 0; entry < static_cast<int>(page.Combo[0].Entries().size()); ++entry) {
      bench.application.program.Loop().Gate().Enter([&] { page.Combo[0].UserPicks(entry); });
      const Document document = SettingsReport(page, {});
      const String range = UnitInReport(document, u"Item 10");
      ranges.insert(range);
      EXPECT_TRUE(range.empty() || StandsInOneLine(document, range)) << ToQt(range).toStdString();
    }
    EXPECT_GT(ranges.size(), 5) << model;
  }
}

TEST(QtPaperTest, PrintsWhereTheUserSaysAndNothingWhenHeCancels) {
  const EventGate gate;
  QtPaper paper(gate);
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("printed.pdf"));
  WithDialog([](QPrintDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(paper.Print(OneLine()), u"");
  WithDialog([&](QPrintDialog& dialog) {
    dialog.printer()->setOutputFileName(path);
    dialog.done(QDialog::Accepted);
  });
  EXPECT_EQ(paper.Print(OneLine()), u"");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().startsWith("%PDF-"));
}

TEST(QtPaperTest, TellsWhenThePrinterCannotBegin) {
  const EventGate gate;
  QtPaper paper(gate);
  WithDialog([&](QPrintDialog& dialog) {
    dialog.printer()->setOutputFileName(QStringLiteral("/no/such/folder/printed.pdf"));
    dialog.done(QDialog::Accepted);
  });
  EXPECT_EQ(paper.Print(OneLine()), u"印刷できませんでした。");
}

TEST(QtPaperTest, TheWindowHasItsButtonsInTheStatusArea) {
  WindowBench bench("QHW");
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("a.pdf"));
  bench.device.dialogs.QueueFile(FromQt(path));
  bench.Press("cmdPdf");
  EXPECT_TRUE(QFile::exists(path));
  EXPECT_EQ(ToQt(bench.Page().Notes.Caption()), QStringLiteral("PDFに保存しました: ") + path);
  EXPECT_TRUE(bench.Find<QWidget>("lblNotices")->isVisible());
  bench.Press("cmdPrint");
  EXPECT_EQ(bench.paper.printed.size(), 1U);
}

}  // namespace
}  // namespace korva::test
