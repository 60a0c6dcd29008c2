#pragma once

#include <vector>

#include "companions/paper.h"

namespace korva::test {

/// Paper that keeps what is put on it: the file of a document is its plain form.
class KeptPaper final : public Paper {
 public:
  std::optional<std::string> PdfOf(const Document& document, String& why) override {
    if (!fault.empty()) {
      why = fault;
      return std::nullopt;
    }
    return PlainForm(document);
  }
  [[nodiscard]] bool CanPrint() const override { return true; }
  String Print(const Document& document) override {
    printed.push_back(document);
    return fault;
  }

  String fault;  ///< why nothing can be drawn; empty: all is well
  std::vector<Document> printed;
};

}  // namespace korva::test
