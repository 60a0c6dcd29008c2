#pragma once

#include <string_view>
#include <vector>

#include "core/control.h"
#include "core/texts.h"

namespace korva {

/// A window beside the page, which stays usable. It is open while it is visible. What it shows is asked for
/// only while it is open.
class SideWindow : public Control {
 public:
  explicit SideWindow(std::string_view name) : Control(name) { SetVisible(false); }

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
  /// What stands above its contents; empty for nothing.
  [[nodiscard]] virtual String Heading() const { return {}; }
  /// What stands below its contents, beside the button that closes it.
  [[nodiscard]] virtual std::vector<Button*> Buttons() { return {}; }

 protected:
  [[nodiscard]] Language ItsLanguage() const { return language_; }

 private:
  Language language_ = Language::Japanese;
};

}  // namespace korva
