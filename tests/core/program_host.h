#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/program.h"
#include "pages/registry.h"
#include "platform/native/native_code_page.h"
#include "platform/virtual/virtual_dialogs.h"
#include "platform/virtual/virtual_event_loop.h"
#include "platform/virtual/virtual_port.h"
#include "support/memory_files.h"

namespace korva::test {

inline constexpr std::array kFrameRows = {DesignRow{.field = "cmdFirst cmdSecond"}};
inline constexpr std::array kFrameGroups = {DesignGroup{.heading = TextKey::Monitoring, .rows = kFrameRows}};
inline constexpr auto kFrameTabs = std::to_array<DesignTab>({
    {.caption = TextKey::File},
    {.caption = TextKey::Linearizer},
    {.caption = TextKey::IoCheck, .groups = kFrameGroups},
});
inline constexpr Design kFrameDesign = {.tabs = kFrameTabs};

/// A part with a button and a bar, which notes what of the frame it takes part in.
class FramePart final : public PagePart {
 public:
  FramePart(Page& page, const std::string& name) : button("cmd" + name), bar("Bar" + name) {
    page.Add(*this);
    page.RegisterAll<Control>({&button, &bar});
  }

  void SetCaptions(Language language) override {
    button.SetCaption(language == Language::English ? u"in English" : u"日本語で");
    notes.emplace_back("captions");
  }
  void SetLocked(bool locked) override { button.SetEnabled(!locked); }
  void ResetBars() override { bar.SetValue(0); }
  void TabEntered(int tab) override { notes.emplace_back("tab " + std::to_string(tab)); }
  void TabClicked(int tab) override { notes.emplace_back("click on " + std::to_string(tab)); }

  Button button;
  ProgressBar bar;
  std::vector<std::string> notes;
};

/// A page with the frame, two parts, and nothing behind them: it notes what its steps were called for.
class FramePage final : public Page {
 public:
  FramePage(Program& program, const Family& family, std::vector<std::string>& journal)
      : Page(program, {.family = family, .tab_control = "KvCfg_Tab", .design = kFrameDesign}),
        journal_(journal) {
    ApplyDesign();
  }

  bool EnterMonitorMode() override { return Note("monitor mode"); }
  void ClearParameterSet() override { Note("clear set"); }
  void BuildPage() override { Note("build page"); }
  bool SaveCfgFile() override {
    Note("save");
    DataChanged = DataChanged && !SaveSucceeds;
    return SaveSucceeds;
  }
  bool SaveRescueFile(const String& path) override {
    Rescued = path;
    return SaveSucceeds;
  }

  bool SaveSucceeds = true;
  String Rescued;
  FramePart first{*this, "First"};
  FramePart second{*this, "Second"};

 protected:
  void PreparePort() override { Note("prepare port"); }
  void ReopenPort() override { Note("reopen port"); }
  void ChoosePort(int number) override { Note("choose port " + std::to_string(number)); }
  void ClosePort() override { Note("close port"); }
  void ReadModel() override { Note("read model"); }
  void KeepTabState(int tab, bool enabled) override {
    kept_.resize(static_cast<std::size_t>(Tabs.Count()));
    kept_[static_cast<std::size_t>(tab)] = enabled;
  }
  [[nodiscard]] bool KeptTabEnabled(int tab) const override {
    return kept_.at(static_cast<std::size_t>(tab));
  }

 private:
  bool Note(const std::string& step) {
    std::string word;
    for (const char16_t c : ItsFamily().word) {
      word += static_cast<char>(c);
    }
    journal_.push_back(word + ": " + step);
    return true;
  }

  std::vector<std::string>& journal_;
  std::vector<bool> kept_;
};

/// A program with frame pages for every family, in virtual time, with its files in memory.
struct ProgramHost {
  explicit ProgramHost(const String& folder = u"/korva")
      : program(platform, folder, AllFamilies(), Factory()) {
    program.OnEnded([this](int exit_status) { status = exit_status; });
    program.OnPageUnloaded([this](Page& page) { unloaded.emplace_back(page.ItsFamily().word); });
    PutCatalogue("QHW,QHW.def,First\r\nQC,QC.def,First\r\nZ2,Z2.def,Lite\r\nZ8,Z8.def,Nano\r\nA, B\r\n");
  }

  /// Lays a catalogue of these rows down.
  void PutCatalogue(const std::string& rows) {
    files.Put(u"/korva/system/MdlVTRMFx.jpn", "$Type\r\n" + rows + "$End\r\n");
  }
  /// The user's click on a row of the showing page's list.
  void Choose(int row) {
    loop.Gate().Enter([&] { program.Showing()->lst_TypeSelect.UserPicks(row); });
  }
  /// Something inside an event of the program.
  template <typename Action>
  void Do(Action action) {
    loop.Gate().Enter([&] { action(); });
  }
  [[nodiscard]] FramePage& Showing() const { return static_cast<FramePage&>(*program.Showing()); }
  [[nodiscard]] FramePage* Loaded(StringView word) const {
    return static_cast<FramePage*>(program.Loaded(*program.FindFamily(word)));
  }
  /// Steps noted since the last call.
  std::vector<std::string> TakeJournal() { return std::exchange(journal, {}); }

  VirtualEventLoop loop;
  VirtualPort port{loop};
  VirtualDialogs dialogs;
  MemoryFiles files;
  NativeCodePage code_page;
  Platform platform{.loop = loop, .port = port, .dialogs = dialogs, .files = files, .code_page = code_page};
  std::vector<std::string> journal;
  std::vector<String> unloaded;
  std::optional<int> status;  ///< once the program has ended
  Program program;

 private:
  Program::PageFactory Factory() {
    return [this](Program& owner, const Family& family) {
      return std::make_unique<FramePage>(owner, family, journal);
    };
  }
};

}  // namespace korva::test
