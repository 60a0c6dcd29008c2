#pragma once

#include <functional>

#include "files/parameter_page.h"

namespace korva {

/// The fields that hold numbers. A device is sent what stands in them, a number or not, so a text that is no
/// plain decimal number ("1,5", "1e2", "12abc"), and of which no part of the page makes one, carries a mark.
/// The status area tells item and text of each: as a download would send it, and after a download as it was
/// sent.
class NumberFields final : public PagePart {
 public:
  /// What a download would send for a row under the present choices; empty for nothing.
  using DataOf = std::function<String(int row)>;
  /// Adds itself to the page, which outlives this.
  NumberFields(ParameterPage& page, DataOf data_of);

  void DefinitionRead() override { BeginSending(); }
  void FieldChanged(int /*row*/) override { Judge(); }
  void PageBuilt() override { Judge(); }
  void ChoiceMade(const Choice& /*choice*/) override { Judge(); }
  void SetCleared() override { BeginSending(); }
  void UploadBegins() override { BeginSending(); }

  /// Nothing has been sent yet.
  void BeginSending();
  /// The device has answered to `data` of the row.
  void Sent(int row, const String& data);

 private:
  void Judge();
  /// "Item 14「1,5」"
  [[nodiscard]] String NameOf(int row, const String& data) const;

  ParameterPage& page_;
  DataOf data_of_;
  String sent_;
};

}  // namespace korva
