#pragma once

#include <filesystem>

#include "companions/paper.h"

namespace korva::cli {

/// PDF files that a program of their own draws, so that this one needs nothing that draws. It has a minute.
class ChildPaper final : public Paper {
 public:
  /// `program` takes a document in its plain form and gives a PDF file.
  explicit ChildPaper(std::filesystem::path program) : program_(std::move(program)) {}

  std::optional<std::string> PdfOf(const Document& document, String& why) override;
  [[nodiscard]] bool CanPrint() const override { return false; }
  String Print(const Document& /*document*/) override { return {}; }

 private:
  std::filesystem::path program_;
};

}  // namespace korva::cli
