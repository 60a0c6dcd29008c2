#pragma once

#include <functional>
#include <optional>

#include "core/control.h"
#include "core/texts.h"
#include "platform/string.h"

namespace korva {

class LineReader;

/// When the tabs that depend on the model and its parameter set are settled; each moment has a rule of its
/// own.
enum class TabMoment { ModelChosen, FileOpened, Uploaded };

/// What a check of values found. Blank: a value is missing that must be there.
enum class Finding { Good, Blank, Bad };

/// What a part has done with a section of a configuration file.
enum class SectionRead {
  NotMine,  ///< nothing: it is another part's
  Whole,
  Faulty,  ///< a record has too many fields: it was taken without them, and the section is left behind it
};

/// A choice of the user that went into the parameter set.
struct Choice {
  String item;  ///< of group "01": "10"
  String key;   ///< of the list that was chosen from: "$I11QEI"
  /// The group whose button was pressed, and which; nullptr and -1 for a choice in a combo box.
  const OptionGroup* options = nullptr;
  int place = -1;
};

/// A piece of a page, such as its linearizer or its status monitor. It owns its controls and takes part in
/// what the page does as a whole. A page adds its parts in an order (Page::Add), and each of its sequences
/// asks them in that order. A part overrides what concerns it; everything else does nothing.
class PagePart {
 public:
  PagePart() = default;
  PagePart(const PagePart&) = delete;
  PagePart& operator=(const PagePart&) = delete;
  virtual ~PagePart() = default;

  // The frame.
  virtual void SetCaptions(Language /*language*/) {}
  /// An operation on the device begins or has ended: disables or enables what could disturb it.
  virtual void SetLocked(bool /*locked*/) {}
  /// No other exchange with the device may begin: the frame is locked, or a live loop runs while the page
  /// stays usable. Disables or enables what would start one.
  virtual void SetExchangesBarred(bool /*barred*/) {}
  virtual void ResetBars() {}  ///< puts the part's progress bars to 0
  virtual void TabEntered(int /*tab*/) {}
  /// The user clicked a tab, which came to the front or was there already.
  virtual void TabClicked(int /*tab*/) {}
  /// The device holds its output at a value of the user's, or does so no longer.
  virtual void OutputForced(bool /*forced*/) {}

  // The model and its parameter set, row by row of the definition.
  virtual void PageCleared() {}     ///< the fields were emptied for another model or a new set
  virtual void DefinitionRead() {}  ///< and nothing of it is shown yet
  /// What the field of a row shows in place of its cell, which is not NEEDLESS. The first part that has an
  /// answer gives it.
  [[nodiscard]] virtual std::optional<String> ShownText(int /*row*/) const { return std::nullopt; }
  /// The unit beside the field of a row, in place of the definition's. The first answer counts.
  [[nodiscard]] virtual std::optional<String> UnitOf(int /*row*/) const { return std::nullopt; }
  /// What the cell of a row takes in place of the text in its field. The first answer counts here too.
  [[nodiscard]] virtual std::optional<String> CellOf(int /*row*/, const String& /*text*/) const {
    return std::nullopt;
  }
  /// The cell of a row took the text of its field.
  virtual void FieldChanged(int /*row*/) {}
  virtual void RowShown(int /*row*/) {}
  virtual void PageBuilt() {}  ///< all rows are shown
  virtual void ChoiceMade(const Choice& /*choice*/) {}
  virtual void SettleTabs(TabMoment /*moment*/) {}
  virtual void SetCleared() {}  ///< the parameter set was emptied
  virtual void SetSaved() {}    ///< the parameter set was written to a configuration file
  virtual void SetTaken() {}    ///< the parameter set is checked, sent or saved as it now stands

  /// What puts the part back to where it stands now in all that neither the set nor a control tells; empty
  /// for a part that knows no more than they do. It is called with both as they are now, and changes neither
  /// in effect.
  [[nodiscard]] virtual std::function<void()> Keep() { return {}; }

  // Sections of a configuration file beyond the values of the items.
  /// The whole section with its key line and line ends; empty for none.
  [[nodiscard]] virtual String CfgSection() const { return {}; }
  /// Reads the section of `key`, whose line was read last, from the file open under `handle`, and pushes the
  /// next key line back. Behind a record with too many fields nothing further is read.
  virtual SectionRead ReadCfgSection(StringView /*key*/, LineReader& /*lines*/, int /*handle*/) {
    return SectionRead::NotMine;
  }

  // Transfers. The frame is locked.
  virtual void UploadBegins() {}  ///< the parameter set still holds what it held before
  /// The items have been read and are shown. False, after its box, ends the upload: no part behind this one
  /// reads anything, and nothing is reported as complete.
  virtual bool Upload() { return true; }
  [[nodiscard]] virtual Finding Check() { return Finding::Good; }
  /// The control whose values Check judges; nullptr when it isn't one alone.
  [[nodiscard]] virtual Control* Checked() { return nullptr; }
  /// The items have been written. False, after its box, ends the download.
  virtual bool Download() { return true; }
};

}  // namespace korva
