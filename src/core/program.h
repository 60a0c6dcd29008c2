#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "core/boxes.h"
#include "core/family.h"
#include "core/line_reader.h"
#include "core/modal_window.h"
#include "core/page.h"
#include "core/shared_state.h"
#include "platform/platform.h"

namespace korva {

/// The folders in which the program finds its files; all may lie in one.
struct ProgramFolders {
  String installed;  ///< holds system
  String own;        ///< holds data
};

/// The running program: its surroundings, the state that all pages share, and the pages.
///
/// Started by Start(), it runs on the events that come through the platform's gate, and ends for good when
/// the showing page is closed, when a wait notices a close request, or when something fails that nothing can
/// go on without. One page is showing from Start() to the end. A page comes into being when it first shows.
class Program {
 public:
  /// Makes the page of a family.
  using PageFactory = std::function<std::unique_ptr<Page>(Program&, const Family&)>;

  /// The families outlive the program.
  Program(const Platform& platform, ProgramFolders folders, const Families& families, PageFactory factory);
  /// The same with system and data in one folder.
  Program(const Platform& platform, const String& folder, const Families& families, PageFactory factory)
      : Program(platform, ProgramFolders{.installed = folder, .own = folder}, families, std::move(factory)) {}

  /// Shows the root page, through the gate.
  void Start();
  /// The user presses the close box of the showing page, through the gate.
  void PressClose();

  /// Shows the page of the family, loading it at its first use, and hides the one that shows. False when no
  /// page serves this family.
  bool Show(const Family& family);
  /// The showing page; nullptr before Start().
  [[nodiscard]] Page* Showing() const { return showing_; }
  /// The loaded page of the family; nullptr when it has not been used yet.
  [[nodiscard]] Page* Loaded(const Family& family) const;
  /// Unloads every other page that a closing page takes with it, in the order that the families tell.
  void UnloadOthers(const Page& closing);
  /// Ends the program at once: unwinds every handler on the stack.
  [[noreturn]] static void End() { throw ProgramEnd{}; }

  /// The small window over the showing page, where one is open.
  [[nodiscard]] OpenWindow& Window() { return window_; }

  /// `action` is called with each page that comes to the front, before its activation.
  void OnPageShown(std::function<void(Page&)> action) { page_shown_.push_back(std::move(action)); }
  /// `action` is called with each page before it is unloaded.
  void OnPageUnloaded(std::function<void(Page&)> action) { page_unloaded_ = std::move(action); }
  /// `action` is called once when the program has ended, with the process's exit status: 0, or 1 after a
  /// failure.
  void OnEnded(std::function<void(int status)> action) { ended_ = std::move(action); }

  /// The family of this word; nullptr when the program serves none.
  [[nodiscard]] const Family* FindFamily(StringView word) const { return families_.Find(word); }
  [[nodiscard]] const Platform& Surroundings() const { return platform_; }
  [[nodiscard]] EventLoop& Loop() const { return platform_.loop; }
  [[nodiscard]] SharedState& Shared() { return shared_; }
  [[nodiscard]] const Boxes& Box() const { return boxes_; }
  [[nodiscard]] LineReader& Lines() { return lines_; }
  [[nodiscard]] const ProgramFolders& Folders() const { return folders_; }
  /// `folder`, one separator unless it ends in one, `name`.
  [[nodiscard]] String Join(const String& folder, StringView name) const;

 private:
  void Finish(const Ending& ending);
  /// Saves the showing page's unsaved values; the rescue file's path, empty when there was nothing to save.
  String RescueUnsaved();

  Platform platform_;
  ProgramFolders folders_;
  Families families_;
  PageFactory factory_;
  SharedState shared_;
  Boxes boxes_;
  LineReader lines_;
  std::vector<std::unique_ptr<Page>> pages_;
  Page* showing_ = nullptr;
  OpenWindow window_;
  std::vector<std::function<void(Page&)>> page_shown_;
  std::function<void(Page&)> page_unloaded_;
  std::function<void(int)> ended_;
};

}  // namespace korva
