#pragma once

#include <string_view>
#include <vector>

#include "core/control.h"
#include "core/texts.h"

namespace korva {

/// A window beside the page, which stays usable: a table that can be read and copied, with buttons below it.
/// It is open while it is visible. What it shows is asked for only while it is open.
///
/// Rows are counted from the first one that there ever was: those before FirstRow() are gone, those before
/// EndRow() are there. Rows that came or went leave the others as they are; with Generation() all changed.
class Panel : public Control {
 public:
  explicit Panel(std::string_view name) : Control(name) { SetVisible(false); }

  /// Opens the window, or brings it to the front.
  void Open() {
    SetVisible(true);
    SetFocus();
  }
  void Close() { SetVisible(false); }
  /// The language of all that stands in the window.
  virtual void SetLanguage(Language language) { Assign(language_, language); }
  /// A text of the table in that language.
  [[nodiscard]] const String& Words(TextKey key) const { return CaptionText(key, language_); }

  [[nodiscard]] virtual String Title() const = 0;
  /// What stands above the table; empty for nothing.
  [[nodiscard]] virtual String Heading() const { return {}; }
  [[nodiscard]] virtual std::vector<String> Heads() const = 0;
  [[nodiscard]] virtual int FirstRow() const { return 0; }
  [[nodiscard]] virtual int EndRow() const = 0;
  /// The cells of a row, as many as Heads().
  [[nodiscard]] virtual std::vector<String> Cells(int row) const = 0;
  /// Highlight for a row that the user should look at.
  [[nodiscard]] virtual Look LookOf(int /*row*/) const { return Look::Normal; }
  /// True when the last row is what the user looks for first.
  [[nodiscard]] virtual bool BeginsAtEnd() const { return false; }
  [[nodiscard]] virtual unsigned Generation() const { return 0; }
  /// What stands below the table, beside the buttons to copy and to close.
  [[nodiscard]] virtual std::vector<Button*> Buttons() { return {}; }

 protected:
  [[nodiscard]] Language ItsLanguage() const { return language_; }

 private:
  Language language_ = Language::Japanese;
};

}  // namespace korva
