#include "core/program.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/text_utilities.h"

namespace korva {

Program::Program(const Platform& platform, ProgramFolders folders, const Families& families,
                 PageFactory factory)
    : platform_(platform),
      folders_(std::move(folders)),
      families_(families),
      factory_(std::move(factory)),
      boxes_(platform.dialogs),
      lines_(platform.files, platform.code_page, shared_) {
  platform_.loop.Gate().OnEnded([this](const Ending& ending) { Finish(ending); });
}

void Program::Start() {
  platform_.loop.Gate().Enter([this] {
    shared_.CommBusy = false;
    shared_.DownloadBusy = false;
    shared_.QuitRequested = false;
    Show(families_.root);
  });
}

void Program::PressClose() {
  platform_.loop.Gate().Enter([this] {
    if (showing_ == nullptr || !showing_->OnUnload()) {
      End();
    }
  });
}

Page* Program::Loaded(const Family& family) const {
  const auto found = std::find_if(pages_.begin(), pages_.end(),
                                  [&](const auto& page) { return page->ItsFamily().word == family.word; });
  return found == pages_.end() ? nullptr : found->get();
}

bool Program::Show(const Family& family) {
  Page* page = Loaded(family);
  if (page == nullptr) {
    std::unique_ptr<Page> made = factory_(*this, family);
    if (made == nullptr) {
      return false;
    }
    page = made.get();
    pages_.push_back(std::move(made));
    page->OnLoad();
  }
  showing_ = page;
  for (const auto& action : page_shown_) {
    action(*page);
  }
  page->OnActivate();
  return true;
}

void Program::UnloadOthers(const Page& closing) {
  std::vector<Page*> others;
  for (const auto& page : pages_) {
    if (page.get() != &closing && page->ItsFamily().unload_place.Has()) {
      others.push_back(page.get());
    }
  }
  const auto place = [](const Page* page) { return page->ItsFamily().unload_place.Value(); };
  std::sort(others.begin(), others.end(),
            [&](const Page* one, const Page* other) { return place(one) < place(other); });
  for (Page* page : others) {
    if (page_unloaded_) {
      page_unloaded_(*page);
    }
    std::erase_if(pages_, [page](const auto& one) { return one.get() == page; });
  }
}

String Program::Join(const String& folder, StringView name) const {
  const char16_t separator = platform_.files.Separator();
  String path = folder;
  if (path.empty() || path.back() != separator) {
    path += separator;
  }
  return path.append(name);
}

void Program::Finish(const Ending& ending) {
  if (ending.failure) {
    String text = *ending.failure;
    const String rescue = RescueUnsaved();
    if (!rescue.empty()) {
      text += u"\n保存されていない設定値は次のファイルに残しました。\n" + rescue;
    }
    platform_.dialogs.ShowFailure(text);
  }
  if (ended_) {
    ended_(ending.failure ? 1 : 0);
  }
}

String Program::RescueUnsaved() {
  if (showing_ == nullptr || !showing_->Loaded() || !showing_->DataChanged) {
    return {};
  }
  String path = Join(showing_->DataPath, u"rescue.cfg");
  for (int number = 2; platform_.files.Exists(path); ++number) {
    path = Join(showing_->DataPath, Ascii("rescue-" + std::to_string(number) + ".cfg"));
  }
  return showing_->SaveRescueFile(path) ? path : String();
}

}  // namespace korva
