#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/boxes.h"
#include "core/catalogue.h"
#include "core/control.h"
#include "core/control_array.h"
#include "core/design.h"
#include "core/family.h"
#include "core/modal_window.h"
#include "core/notices.h"
#include "core/page_part.h"
#include "core/placement.h"
#include "core/shared_state.h"
#include "core/tab_control.h"
#include "core/texts.h"

namespace korva {

class Program;

/// What a page is made from: its family, and where its controls stand.
struct PageKind {
  const Family& family;
  std::string_view tab_control;  ///< "KvCfg_Tab"
  const Design& design;
};

/// The frame that every family page has: model list, buttons, header, tabs, progress bar, port choice, and
/// the load, activate, close and exit logic around them. What else a page has it adds as parts.
///
/// A page is not loaded, loaded and hidden, or showing; one page shows at a time. An operation on the device
/// is idle, busy (CommBusy) or busy and not to be cut off (CommBusy with DownloadBusy). While it is busy the
/// frame is locked (LockFrame), since the waits let the user's actions in.
class Page {
 public:
  Page(Program& program, const PageKind& kind);
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  virtual ~Page();

  // Events.
  void OnLoad();      ///< before the page shows for the first time
  void Load();        ///< the same, but the port is left as it is: for a page that will not show
  void OnActivate();  ///< whenever the page comes to the front
  /// The page is to be closed; true (cancel) when the window must stay.
  bool OnUnload();
  void OnModelSelected();  ///< a click in lst_TypeSelect

  /// Hands over to the page of the chosen model's family. True when this page has nothing more to do: another
  /// page took over, or the entry has no known family.
  bool SwitchFamily();
  /// Looks the chosen model up and sets DefFile. Shows its box and returns false when the list's text is no
  /// model's name.
  bool FindModel();

  /// Asks whether to save the changes. True: cancel, the caller must stop.
  bool AskSaveChanges();
  /// True while an operation on the device runs, which the waits let the user's actions in. None may begin
  /// inside it: it does nothing then.
  [[nodiscard]] bool OperationRuns() const;
  /// True when the operation must stop because the user wants to keep unsaved changes.
  bool ConfirmDiscard();

  void BeginOperation();  ///< an upload or the monitor begins
  void BeginDownload();
  void EndOperation();
  void EndDownload();       ///< returns the device to monitor mode first, unless CommFailed
  void CheckPendingQuit();  ///< EndDownload, then ends the program if the user wanted to close it meanwhile
  /// What a close request waits for from now on, a text of the keys Close...; each Begin... sets its own.
  void HoldClose(TextKey what_will_happen);
  /// Tells over the page, on every page, at what the device holds its output; empty: it was let go.
  void TellForced(const String& value);
  void LockFrame();
  void UnlockFrame();
  /// Disables what would start another exchange, the model list included, and nothing else: for a live loop
  /// beside which the page stays usable. It holds across a frame that is locked and unlocked meanwhile.
  void BarExchanges();
  void FreeExchanges();
  void ResetBars();  ///< all progress bars to 0

  // What the page is put together from.
  /// Adds a part behind those added before. It lives as long as the page.
  void Add(PagePart& part) { parts_.push_back(&part); }
  [[nodiscard]] const std::vector<PagePart*>& Parts() const { return parts_; }
  /// Adds a part that the page does not know, and keeps it as long as the page lives.
  void Adopt(std::unique_ptr<PagePart> companion);
  /// Makes a button one of the page's, and puts it into the status area behind those before it.
  void PutIntoStatus(Button& button);
  [[nodiscard]] const std::vector<Button*>& StatusButtons() const { return status_buttons_; }
  /// Makes a control one of the page's: it can be found by its name and placed by the design.
  void Register(Control& control);
  void Register(OptionGroup& options);
  /// Makes the controls of a small window over the page the page's: they can be found by their names.
  void Register(const ModalWindow& window);
  template <typename T>
  void Register(ControlArray<T>& controls) {
    for (int index = 0; index < controls.Count(); ++index) {
      Register(controls[index]);
    }
  }
  template <typename T>
  void RegisterAll(std::initializer_list<T*> controls) {
    for (T* control : controls) {
      Register(*control);
    }
  }

  /// True for a control of a small window over the page.
  [[nodiscard]] bool InWindow(const Control& control) const { return in_windows_.contains(&control); }
  /// Index of the tab with this caption; -1 when the page has none.
  [[nodiscard]] int TabWith(TextKey caption) const;
  /// Tab on which the control stands, -1 for a control that is always in view.
  [[nodiscard]] int TabOf(const Control& control) const { return placement_.TabOf(control); }
  /// The line of the design in which the control stands; nullptr for a control that is always in view.
  [[nodiscard]] const DesignRow* RowOf(const Control& control) const { return placement_.RowOf(control); }
  /// The first control that is shown and `wanted`, in the order of tabs, boxes and lines; nullptr for none.
  [[nodiscard]] Control* FirstShown(const std::function<bool(const Control&)>& wanted) const {
    return placement_.FirstShown(wanted);
  }
  /// Brings the control's tab to the front, if it is enabled, and puts the keyboard's focus on the control.
  void GoTo(Control& control);
  /// Why the user can't act on the control: its own state, "tab disabled", or "window open" for a small
  /// window over the page; empty when he can.
  [[nodiscard]] std::string_view WhyRefused(const Control& control) const;
  /// The control of this full name ("Text(3)"), nullptr when the page has none.
  [[nodiscard]] Control* FindControl(std::string_view full_name) const;
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// The option group whose first button is `name`(0); nullptr when there is none.
  [[nodiscard]] OptionGroup* FindOptions(std::string_view name) const;

  [[nodiscard]] const Family& ItsFamily() const { return kind_.family; }
  [[nodiscard]] const Design& ItsDesign() const { return kind_.design; }
  [[nodiscard]] Program& ItsProgram() const { return program_; }
  [[nodiscard]] SharedState& Shared() const;
  [[nodiscard]] const Boxes& Box() const;
  [[nodiscard]] bool Loaded() const { return loaded_; }
  [[nodiscard]] bool Showing() const;

  // Steps of the family pages.
  virtual bool EnterMonitorMode() = 0;
  virtual void ClearParameterSet() = 0;
  virtual void BuildPage() = 0;
  /// Opens a configuration file as if the user had chosen it with cmdOpen; `path` is absolute.
  virtual void OpenFile(const String& /*path*/) {}
  /// Reads the configuration file that was chosen last (CfgFilePath) into this page, which shows.
  virtual void OpenChosenFile() {}
  virtual bool SaveCfgFile() = 0;  ///< through the file dialog; true when a file was written
  /// Writes the parameter set to `path`, with no dialog and no box; false when that failed.
  virtual bool SaveRescueFile(const String& path) = 0;

  /// Sets every caption from the text table.
  void SetCaptions(Language language);
  [[nodiscard]] Language CaptionLanguage() const { return language_; }
  /// A text of the table in the language of the captions.
  [[nodiscard]] const String& Words(TextKey key) const { return CaptionText(key, language_); }

  ModelTable Models;
  String DefFile;
  String AppPath;
  String DataPath;
  bool DataChanged = false;
  bool CommFailed = false;
  bool MonitorStop = false;
  bool UploadBusy = false;
  bool CfgLoaded = false;

  ListBox lst_TypeSelect{"lst_TypeSelect"};
  Label lbl_TypeSelect{"lbl_TypeSelect"};
  Button cmdUpload{"cmdUpload"};
  Button cmdDownload{"cmdDownload"};
  Button cmdOpen{"cmdOpen"};
  Button cmdSave{"cmdSave"};
  Button cmdNew{"cmdNew"};
  Button cmdCheck{"cmdCheck"};
  Button cmdExit{"cmdExit"};
  TextField txtAuthor{"txtAuthor"};
  TextField txtMemo{"txtMemo"};
  TextField txtDirName{"txtDirName"};
  TextField txtFileTitle{"txtFileTitle"};
  Label lblAuthor{"lblAuthor"};
  Label lblMemo{"lblMemo"};
  Label lblDirName{"lblDirName"};
  Label lblFileTitle{"lblFileTitle"};
  OptionGroup OptCom{{"OptCom1", "OptCom2", "OptCom3", "OptCom4"}};
  TabControl Tabs;
  ProgressBar TransferBar{"ProgressBar"};
  Label lbl_Waitfor{"lbl_Waitfor"};
  Label lblWaiting{"lblWaiting"};  ///< what an operation is waiting for; hidden while it waits for nothing
  Notices Notes{"lblNotices"};
  Label lbl_FrmVersion{"lbl_FrmVersion"};
  Label lblForced{"lblForced"};        ///< the banner of a forced output; hidden while none is
  Label lblHeldClose{"lblHeldClose"};  ///< that a close request is held, and what will happen
  Frame flaMsg_CannotEnd{"flaMsg_CannotEnd"};
  Label lblMsg_CannotEnd{"lblMsg_CannotEnd"};

 protected:
  // Steps of OnLoad, OnActivate and OnModelSelected that lie outside the frame.
  virtual void PreparePort() {}        ///< load: only the pages that open the port themselves
  virtual void PrepareFamilyTabs() {}  ///< load
  virtual void
  ReopenPort() = 0;  ///< activation: marks the port's option button, reopens at the family's speed
  virtual void ChoosePort(int number) = 0;  ///< OptCom`number` pressed, 1 to 4
  virtual void ClosePort() {}               ///< closing: only the root page
  virtual void RestorePort() {}             ///< an operation begins: opens a port again that has broken
  virtual void ReadModel() = 0;             ///< reads the chosen model's definition and builds the page
  /// Where LockFrame keeps each tab's state, and whether UnlockFrame may enable it again.
  virtual void KeepTabState(int tab, bool enabled) = 0;
  [[nodiscard]] virtual bool KeptTabEnabled(int tab) const = 0;
  /// Places the registered controls by the design table. Called once, at the end of the last constructor.
  void ApplyDesign();

 private:
  void SetLocked(bool locked);
  void ShowBarred(bool barred);
  void ShowForced();
  void FillModelList();
  void RegisterFrame();

  Program& program_;
  PageKind kind_;
  bool loaded_ = false;
  bool exchanges_barred_ = false;  ///< by a live loop
  Language language_ = Language::Japanese;
  int accepted_model_ = -1;  ///< list position of the model that the page shows
  std::vector<PagePart*> parts_;
  std::vector<std::unique_ptr<PagePart>> companions_;  ///< those of them that the page keeps
  std::vector<Button*> status_buttons_;
  std::vector<Control*> controls_;
  std::map<std::string, Control*, std::less<>> by_name_;  ///< the same, by FullName()
  std::vector<OptionGroup*> option_groups_;
  std::set<const Control*> in_windows_;
  Placement placement_{Tabs};
};

}  // namespace korva
