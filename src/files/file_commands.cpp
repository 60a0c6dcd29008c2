// The page's commands on configuration files: open, save, new.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "files/cfg_file.h"
#include "files/parameter_page.h"

namespace korva {

namespace {

constexpr int kTagItem = 2;

/// Calls `visit` with each character of the text, a pair of surrogates as one.
template <typename Visitor>
void ForEachCharacter(StringView text, const Visitor& visit) {
  for (std::size_t at = 0; at < text.size();) {
    const bool pair =
        at + 1 < text.size() && (text[at] & 0xFC00) == 0xD800 && (text[at + 1] & 0xFC00) == 0xDC00;
    const std::size_t length = pair ? 2 : 1;
    visit(text.substr(at, length));
    at += length;
  }
}

/// Why the text can't be encoded: names its first character that the code page lacks.
String LackedCharacter(const CodePage& code_page, StringView text) {
  String lacked;
  ForEachCharacter(text, [&](StringView character) {
    if (lacked.empty() && !code_page.Encode(character)) {
      lacked = character;
    }
  });
  return u"「" + lacked + u"」はファイルの文字コードに無い文字なので、保存できません。";
}

/// Writes the text in place of the file, reviewed before it takes that place; empty when it stands there,
/// else why not.
String WhyNotWritten(const Platform& platform, const String& path, const String& text,
                     const FileStore::Review& review) {
  const std::optional<std::string> bytes = platform.code_page.Encode(text);
  if (!bytes) {
    return LackedCharacter(platform.code_page, text);
  }
  SystemReason reason;
  return platform.files.Replace(path, *bytes, reason, review) ? String() : ReasonText(reason);
}

/// The bytes of the text, with "?" for each character that the code page lacks.
std::string EncodeReplacing(const CodePage& code_page, StringView text) {
  std::string bytes;
  ForEachCharacter(text, [&](StringView character) { bytes += code_page.Encode(character).value_or("?"); });
  return bytes;
}

constexpr std::size_t kLongRun = 8;

/// "Item 14", "Item 60～91": a run of items of one group. Group 1 is that of the page and goes without
/// saying.
String NameOfRun(int group, int first, int last) {
  const auto number = [](int value) { return Ascii(std::to_string(value)); };
  const String item =
      u"Item " + FormatMask(first, u"00") + (last > first ? u"～" + FormatMask(last, u"00") : String());
  return group == 1 ? item : u"Group " + number(group) + u" " + item;
}

/// The names of what a file has lost, one behind the other.
std::vector<String> NamesOf(const CfgLosses& losses, const Page& page) {
  std::vector<String> names;
  for (std::size_t at = 0; at < losses.items.size();) {
    const auto [group, first] = losses.items[at];
    std::size_t end = at + 1;
    while (end < losses.items.size() &&
           losses.items[end] == std::pair(group, first + static_cast<int>(end - at))) {
      ++end;
    }
    // The points of a table go as one.
    end = end - at < kLongRun ? at + 1 : end;
    names.push_back(NameOfRun(group, first, first + static_cast<int>(end - at) - 1));
    at = end;
  }
  if (losses.author) {
    names.push_back(page.Words(TextKey::Author));
  }
  for (const int line : losses.memo_lines) {
    names.push_back(page.Words(TextKey::MemoLine) + u" " + Ascii(std::to_string(line)));
  }
  return names;
}

/// Tells in the status area what the file saved last will not give back; withdraws what was told when it will
/// give back all.
void TellLosses(Page& page, const CfgLosses& losses) {
  String text;
  for (const String& name : NamesOf(losses, page)) {
    text += (text.empty() ? page.Words(TextKey::NotKept) : String(u"、")) + name;
  }
  page.Notes.Tell(Notice::NotKept, text);
}

}  // namespace

std::optional<String> ParameterPage::ChooseCfgFile(bool save) {
  const Platform& platform = ItsProgram().Surroundings();
  std::optional<String> path = platform.dialogs.ChooseFile({.save = save,
                                                            .start_folder = txtDirName.Text(),
                                                            .filter = save ? CfgFilter() : OpenCfgFilter(),
                                                            .filter_index = save ? 1 : kOpenCfgFilterIndex,
                                                            .name = save ? ProposedName(u".cfg") : String()});
  CfgLoaded = path && !path->empty();
  if (!CfgLoaded) {
    return std::nullopt;
  }
  TakePath(*path);
  return path;
}

void ParameterPage::TakePath(const String& path) {
  Shared().CfgFilePath = path;
  Shared().CfgFileName = path.substr(path.rfind(ItsProgram().Surroundings().files.Separator()) + 1);
}

String ParameterPage::ProposedName(StringView suffix) const {
  const String tag = Item(kTagItem) == kNeedless ? String() : Trimmed(Item(kTagItem));
  String name = tag.empty() ? lst_TypeSelect.Text() : tag;
  std::replace_if(
      name.begin(), name.end(),
      [](char16_t character) {
        return character < u' ' || StringView(u"\\/:*?\"<>|").find(character) != StringView::npos;
      },
      u'_');
  return name.empty() ? name : name.append(suffix);
}

void ParameterPage::ShowFileName() {
  const String& path = Shared().CfgFilePath;
  const String& name = Shared().CfgFileName;
  txtFileTitle.SetText(name);
  txtDirName.SetText(path.substr(0, path.size() - std::min(path.size(), name.size() + 1)));
}

void ParameterPage::OpenCommand() {
  if (!OperationRuns() && !ConfirmDiscard() && ChooseCfgFile(false)) {
    OpenTakenPath();
  }
}

void ParameterPage::OpenFile(const String& path) {
  if (!ConfirmDiscard()) {
    CfgLoaded = true;
    TakePath(path);
    OpenTakenPath();
  }
}

void ParameterPage::OpenTakenPath() {
  if (!OpenCfgFile(ItsProgram().Lines(), Box(), Shared().CfgFilePath)) {
    ShowFileName();
    return;
  }
  const std::optional<CfgModel> model = ModelOfCfgFile(ItsProgram().Lines(), Models);
  const Family* family = model ? ItsProgram().FindFamily(FamilyOfRow(Models, model->row)) : nullptr;
  if (family != nullptr && model->row != 0 && family->word != ItsFamily().word) {
    lst_TypeSelect.SetListIndex(model->row);  // hands over to the page of that family
  }
  if (Page* showing = ItsProgram().Showing(); showing != nullptr) {
    showing->OpenChosenFile();
  }
}

void ParameterPage::OpenChosenFile() {
  ShowFileName();
  TellLosses(*this, {});
  const String& path = Shared().CfgFilePath;
  const std::optional<CfgModel> model =
      ReadCfgFile(ItsProgram().Lines(), Box(), Models, path, GroupItem, Parts());
  // A definition that serves every model of its family doesn't tell which of them the file is of.
  const bool tells_model = model && !(Def.Form().only_file.Has() && model->def_file == DefFile);
  if (tells_model) {
    DefFile = model->def_file;
    Shared().SelectedModelIndex = model->row;
  }
  if (model && model->row == 0) {
    ClearParameterSet();
    BuildPage();
    lst_TypeSelect.SetListIndex(0);
    return;
  }
  if (tells_model) {
    SelectModelOfFile(model->row);
  }
  BuildPage();
  SettleTabs(TabMoment::FileOpened);
  DataChanged = false;
}

void ParameterPage::SelectModelOfFile(int row) {
  const std::vector<String>& entries = lst_TypeSelect.Entries();
  const auto place = static_cast<std::size_t>(row);
  if (place >= entries.size() || entries[place] != Models.At(row, ModelTable::kName)) {
    Box().Show(BoxKey::ModelOfFileUnknown);
    return;
  }
  // The choice of the model brings its defaults, and the unit of temperatures with them.
  const ParameterSet from_file = GroupItem;
  lst_TypeSelect.SetListIndex(row);
  GroupItem.TakeOver(from_file);
}

String ParameterPage::TextToSave() const {
  return CfgText(DefFileName(Def.Form(), DefFile), GroupItem, Parts(), fields_form_.first_saved_group);
}

bool ParameterPage::SaveCfgFile() {
  const std::optional<String> path = ChooseCfgFile(true);
  if (!path) {
    return false;
  }
  for (PagePart* part : Parts()) {
    part->SetTaken();
  }
  const String text = TextToSave();
  CfgLosses losses;
  const auto review = [&](const String& written) {
    losses = LossesOfCfgFile(ItsProgram().Lines(), Models, written, GroupItem, Parts());
  };
  if (const String why = WhyNotWritten(ItsProgram().Surroundings(), *path, text, review); !why.empty()) {
    Box().Show(BoxKey::SaveFailed, {why});
    return false;
  }
  TellLosses(*this, losses);
  ShowFileName();
  for (PagePart* part : Parts()) {
    part->SetSaved();
  }
  Box().Show(BoxKey::FileSaved);
  DataChanged = false;
  return true;
}

bool ParameterPage::SaveRescueFile(const String& path) {
  const Platform& platform = ItsProgram().Surroundings();
  const String text = TextToSave();
  SystemReason reason;
  return platform.files.Replace(path, EncodeReplacing(platform.code_page, text), reason);
}

void ParameterPage::ClearParameterSet() {
  GroupItem.Clear();
  TellLosses(*this, {});
  for (PagePart* part : Parts()) {
    part->SetCleared();
  }
}

void ParameterPage::NewCommand() {
  if (OperationRuns() || ConfirmDiscard()) {
    return;
  }
  ClearParameterSet();
  txtFileTitle.SetText({});
  BuildPage();
  for (PagePart* part : Parts()) {
    part->PageCleared();
  }
  SettleTabs(TabMoment::ModelChosen);
  ApplyDefaults();
  ResetBars();
  DataChanged = false;
}

}  // namespace korva
