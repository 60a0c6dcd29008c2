// The report of settings becomes a file or is printed: where it goes, what is told, and when it can't be.

#include "companions/settings_printer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/text_utilities.h"
#include "pages/page_bench.h"
#include "support/page_parts.h"

namespace korva::test {
namespace {

const String kPdf = u"/korva/data/out.pdf";

class PrinterBench : public PageBench {
 public:
  explicit PrinterBench(const String& model = u"QHN") {
    Connect(model);
    Choose(model);
  }
  SettingsPrinter& Printer() { return Part<SettingsPrinter>(Page()); }
  void SavePdf(const std::optional<String>& path) {
    dialogs.QueueFile(path);
    Click(Printer().cmdPdf);
  }
  [[nodiscard]] String Told() { return Page().Notes.Told(Notice::Pdf); }
  [[nodiscard]] std::optional<Document> Written() {
    const std::optional<std::string> bytes = files.Bytes(kPdf);
    return bytes ? DocumentOf(*bytes) : std::nullopt;
  }
  /// The file that the report names; empty for none.
  String FileNamed() {
    Click(Printer().cmdPrint);
    for (const auto& [what, text] : paper.printed.back().facts) {
      if (what == u"ファイル名") {
        return text;
      }
    }
    return {};
  }
};

TEST(SettingsPrinterTest, WritesTheReportToTheChosenFileAndTellsIt) {
  PrinterBench bench;
  bench.Type(u"02", u"PUMP 3/4");
  bench.SavePdf(kPdf);
  const FileDialog& dialog = bench.dialogs.FileDialogs().back().dialog;
  EXPECT_TRUE(dialog.save);
  EXPECT_EQ(dialog.name, u"PUMP 3_4.pdf");
  EXPECT_EQ(dialog.filter, u"PDFファイル (*.pdf)|*.pdf|");
  EXPECT_EQ(dialog.start_folder, bench.Page().txtDirName.Text());
  ASSERT_TRUE(bench.Written());
  EXPECT_EQ(bench.Written()->header, u"QHN    PUMP 3/4");
  EXPECT_EQ(bench.Told(), u"PDFに保存しました: /korva/data/out.pdf");
  EXPECT_TRUE(bench.TakeBoxes().empty());
  EXPECT_TRUE(bench.Page().DataChanged) << "it is no save of the set";
}

TEST(SettingsPrinterTest, ACancelledDialogWritesNothing) {
  PrinterBench bench;
  bench.SavePdf(std::nullopt);
  EXPECT_FALSE(bench.Written());
  EXPECT_EQ(bench.Told(), u"");
}

TEST(SettingsPrinterTest, AFailureTellsWhyAndLeavesTheFormerFile) {
  PrinterBench bench;
  bench.files.Put(kPdf, "former");
  bench.files.FailWrites(MemoryFiles::Fault::DiskFull);
  bench.SavePdf(kPdf);
  EXPECT_EQ(bench.files.Bytes(kPdf), "former");
  EXPECT_EQ(bench.Told(), u"PDFに保存できませんでした: ﾃﾞｨｽｸの空き容量が足りません。");
  bench.files.FailWrites(MemoryFiles::Fault::None);
  bench.paper.fault = u"no ink";
  bench.SavePdf(kPdf);
  EXPECT_EQ(bench.files.Bytes(kPdf), "former");
  EXPECT_EQ(bench.Told(), u"PDFに保存できませんでした: no ink");
  EXPECT_TRUE(bench.TakeBoxes().empty());
}

TEST(SettingsPrinterTest, WhatWasToldGoesWithTheModel) {
  PrinterBench bench;
  bench.SavePdf(kPdf);
  bench.Page().DataChanged = false;
  bench.Choose(u"QHW");
  EXPECT_EQ(bench.Told(), u"");
}

TEST(SettingsPrinterTest, PrintsTheReportAndTellsOnlyAFailure) {
  PrinterBench bench;
  bench.Click(bench.Printer().cmdPrint);
  ASSERT_EQ(bench.paper.printed.size(), 1U);
  EXPECT_EQ(bench.paper.printed.front().header, u"QHN");
  EXPECT_EQ(bench.Told(), u"");
  bench.paper.fault = u"no ink";
  bench.Click(bench.Printer().cmdPrint);
  EXPECT_EQ(bench.Told(), u"no ink");
}

TEST(SettingsPrinterTest, PaperThatCantPrintHasNoButtonForIt) {
  struct Files final : Paper {
    std::optional<std::string> PdfOf(const Document& /*document*/, String& /*why*/) override { return ""; }
    [[nodiscard]] bool CanPrint() const override { return false; }
    String Print(const Document& /*document*/) override { return {}; }
  } files;
  PageBench bench;
  bench.app.companions.UsePaper(files);
  EXPECT_NE(bench.Page().FindControl("cmdPdf"), nullptr);
  EXPECT_EQ(bench.Page().FindControl("cmdPrint"), nullptr);
}

TEST(SettingsPrinterTest, IsBarredWhileAnOperationRuns) {
  PrinterBench bench;
  bench.Do([&] {
    bench.Page().LockFrame();
    EXPECT_EQ(bench.Page().WhyRefused(bench.Printer().cmdPdf), "disabled");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Printer().cmdPrint), "disabled");
    bench.Page().UnlockFrame();
    bench.Page().BarExchanges();
    EXPECT_EQ(bench.Page().WhyRefused(bench.Printer().cmdPdf), "disabled");
    bench.Page().FreeExchanges();
    EXPECT_EQ(bench.Page().WhyRefused(bench.Printer().cmdPdf), "");
    EXPECT_EQ(bench.Page().WhyRefused(bench.Printer().cmdPrint), "");
    // A click that was under way comes too late.
    bench.Page().BeginOperation();
    bench.Printer().SavePdf();
    bench.Printer().Print();
    bench.Page().EndOperation();
  });
  EXPECT_TRUE(bench.dialogs.FileDialogs().empty());
  EXPECT_TRUE(bench.paper.printed.empty());
}

TEST(SettingsPrinterTest, NamesTheFileOnlyWhileItHoldsTheSet) {
  PrinterBench bench;
  EXPECT_EQ(bench.FileNamed(), u"");
  bench.Type(u"14", u"1");
  bench.Save(kFile);
  EXPECT_EQ(bench.FileNamed(), kFile);
  bench.Type(bench.Page().txtMemo, u"later");
  EXPECT_EQ(bench.FileNamed(), u"");
  bench.Save(kFile);
  bench.Type(u"14", u"2");
  EXPECT_EQ(bench.FileNamed(), u"");
  bench.Page().DataChanged = false;
  bench.Open(kFile);
  EXPECT_EQ(bench.FileNamed(), kFile);
  bench.Choose(u"QHW");  // the title of the file still stands on the page
  EXPECT_EQ(bench.FileNamed(), u"");
  bench.Open(kFile);
  EXPECT_EQ(bench.FileNamed(), kFile);
  bench.New();
  EXPECT_EQ(bench.FileNamed(), u"");
}

TEST(SettingsPrinterTest, APressedOptionAndAnUploadAreNoLongerOfTheFile) {
  PrinterBench bench(u"QHNY1");
  bench.Save(kFile);
  ASSERT_EQ(bench.FileNamed(), kFile);
  bench.Press(*bench.Page().FindOptions("Opt_Lnr"), 1);
  ASSERT_FALSE(bench.Page().DataChanged);
  EXPECT_EQ(bench.FileNamed(), u"");
  bench.Page().DataChanged = false;

  PrinterBench other(u"QHN");
  other.Save(kFile);
  other.Page().DataChanged = false;
  ASSERT_EQ(other.FileNamed(), kFile);
  other.Upload();
  EXPECT_EQ(other.FileNamed(), u"");
}

}  // namespace
}  // namespace korva::test
