#include "page_bench.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

#include "core/text_utilities.h"
#include "support/page_parts.h"

namespace korva::test {

namespace {

const std::filesystem::path kSources = KORVA_SYSTEM_SOURCES;
const std::filesystem::path kCurves = KORVA_HOME "/system/z2Kv";

std::string Encoded(const CodePage& code_page, StringView text) {
  String lines;
  for (const char16_t character : text) {
    lines.append(character == u'\n' ? u"\r\n" : String(1, character));
  }
  return code_page.Encode(lines).value();
}

std::string BytesOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The system folder's files as a build encodes and makes them, by their paths in the program's folder. Read
/// once.
const std::map<String, std::string>& SystemFiles() {
  static const std::map<String, std::string> files = [] {
    const NativeCodePage code_page;
    std::map<String, std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kSources)) {
      if (const auto kind = entry.path().extension(); kind == ".def" || kind == ".jpn") {
        const std::string path = std::filesystem::relative(entry.path(), kSources).generic_string();
        found[u"/korva/system/" + FromUtf8(path)] = Encoded(code_page, FromUtf8(BytesOf(entry.path())));
      }
    }
    for (const auto& entry : std::filesystem::directory_iterator(kCurves)) {
      if (entry.path().extension() == ".tct") {
        found[u"/korva/system/z2Kv/" + FromUtf8(entry.path().filename().string())] = BytesOf(entry.path());
      }
    }
    return found;
  }();
  return files;
}

/// The catalogue of this build. Read once.
const ModelTable& Catalogue() {
  static const ModelTable models = [] {
    PageFolder folder;
    SharedState shared;
    LineReader lines(folder.files, folder.code_page, shared);
    ModelTable table;
    ReadModelCatalogue(lines, u"/korva/system/MdlVTRMFx.jpn", table);
    return table;
  }();
  return models;
}

}  // namespace

PageFolder::PageFolder() {
  for (const auto& [path, bytes] : SystemFiles()) {
    files.Put(path, bytes);
  }
}

void PageFolder::PutText(const String& path, StringView text) { files.Put(path, Encoded(code_page, text)); }

String PageFolder::TextOf(const String& path) const { return code_page.Decode(files.Bytes(path).value()); }

std::vector<String> ModelsOf(StringView family) {
  std::vector<String> names;
  for (int row = 0; row < ModelTable::kRows; ++row) {
    const String& name = Catalogue().At(row, ModelTable::kName);
    if (FamilyOfRow(Catalogue(), row) == family &&
        std::find(names.begin(), names.end(), name) == names.end()) {
      names.push_back(name);
    }
  }
  return names;
}

std::vector<String> AllModels() {
  std::vector<String> names;
  for (const StringView family : {u"First", u"Second", u"Third", u"QXI", u"Lite", u"LiteUniv", u"LiteSecond",
                                  u"LiteThird", u"LiteForth", u"LiteFifth", u"Nano"}) {
    const std::vector<String> models = ModelsOf(family);
    names.insert(names.end(), models.begin(), models.end());
  }
  return names;
}

std::vector<String> ListsBehind(const ParameterPage& page, StringView key) {
  if (key != page.Def.Form().chosen_list) {
    return {String(key)};
  }
  const ChoiceList classes = page.Def.ListOf(u"$I00");
  std::vector<String> lists;
  lists.reserve(static_cast<std::size_t>(classes.Rows()));
  for (int row = 0; row < classes.Rows(); ++row) {
    lists.push_back(classes.Cell(row, &ListColumns::list));
  }
  return lists;
}

const Family& FamilyOf(const String& model) {
  const std::optional<int> row = FindModelByName(Catalogue(), model);
  return row ? *AllFamilies().Find(FamilyOfRow(Catalogue(), *row)) : AllFamilies().root;
}

String DefFileOf(const String& model) {
  return DefFileName(EntryOf(FamilyOf(model).word).record.definition, model + u".def");
}

String DefPath(const String& model) {
  const FamilyRecord& record = EntryOf(FamilyOf(model).word).record;
  return DefFilePath(u"/korva", record.family, record.definition, model + u".def", u'/');
}

PageBench::PageBench() {
  port.Connect(1);
  app.companions.UsePaper(paper);
  app.program.OnEnded([this](int exit_status) { status = exit_status; });
}

sim::Device& PageBench::Connect(const String& model, const sim::DeviceOptions& options) {
  const std::string name = ToUtf8(model);
  sim::DeviceOptions with_curves = options;
  with_curves.curves = kCurves;
  device_.emplace(sim::Model{.name = name,
                             .definition_file = ToUtf8(DefFileOf(model)),
                             .family_word = ToUtf8(FamilyOf(model).word)},
                  sim::Definition::Parse(files.Bytes(DefPath(model)).value()), with_curves);
  line_.emplace(port, *device_);
  port.Connect(1, &*line_);
  return *device_;
}

void PageBench::Start() { app.program.Start(); }

ParameterPage& PageBench::Page() {
  if (app.program.Showing() == nullptr) {
    Start();
  }
  return dynamic_cast<ParameterPage&>(*app.program.Showing());
}

void PageBench::Demand(const Control& control) {
  if (const std::string_view reason = Page().WhyRefused(control); !reason.empty()) {
    throw std::logic_error(control.FullName() + ": " + std::string(reason));
  }
}

void PageBench::Choose(const String& model) {
  ListBox& list = Page().lst_TypeSelect;
  Demand(list);
  const auto found = std::find(list.Entries().begin(), list.Entries().end(), model);
  if (found == list.Entries().end()) {
    throw std::logic_error("no model " + ToUtf8(model));
  }
  const auto row = static_cast<int>(found - list.Entries().begin());
  Do([&] { list.UserPicks(row); });
}

void PageBench::Click(Button& button) {
  Demand(button);
  Do([&] { button.Click(); });
}

void PageBench::Press(OptionGroup& options, int place) {
  Demand(options[place]);
  Do([&] { options[place].Click(); });
}

void PageBench::Pick(ComboBox& box, const String& entry) {
  Demand(box);
  const auto found = std::find(box.Entries().begin(), box.Entries().end(), entry);
  if (found == box.Entries().end()) {
    throw std::logic_error(box.FullName() + " does not list " + ToUtf8(entry));
  }
  Do([&] { box.UserPicks(static_cast<int>(found - box.Entries().begin())); });
}

void PageBench::Type(TextField& field, const String& text) {
  Demand(field);
  Do([&] { field.UserTypes(text); });
}

void PageBench::Type(const String& item, const String& text) { Type(Field(item), text); }

std::vector<BoxKey> PageBench::QuestionsOfUpload() {
  const StringView family = Page().ItsFamily().word;
  const bool tells_model = family == u"Lite" || family == u"Nano";
  return tells_model ? std::vector<BoxKey>() : std::vector{BoxKey::ModelMatches, BoxKey::StartUpload};
}

void PageBench::Upload() {
  for (const BoxKey question : QuestionsOfUpload()) {
    dialogs.QueueAnswer(question == BoxKey::StartUpload ? Answer::Ok : Answer::Yes);
  }
  Click(Page().cmdUpload);
}

void PageBench::TakeTables() {
  dialogs.OnBox([this](const Box& box) {
    if (box.text == BoxOf(BoxKey::UploadLinearizer).text ||
        box.text == BoxOf(BoxKey::DownloadLinearizer).text) {
      dialogs.QueueAnswer(Answer::Yes);
    }
  });
}

void PageBench::Download() {
  dialogs.QueueAnswer(Answer::Ok);
  Click(Page().cmdDownload);
}

std::vector<std::string> PageBench::DownloadAnswering(const std::vector<Answer>& answers) {
  TakeBoxes();
  dialogs.QueueAnswer(Answer::Ok);
  for (const Answer answer : answers) {
    dialogs.QueueAnswer(answer);
  }
  Click(Page().cmdDownload);
  std::vector<std::string> boxes = TakeBoxes();
  boxes.erase(boxes.begin());
  return boxes;
}

void PageBench::Save(const String& path) {
  dialogs.QueueFile(path);
  Click(Page().cmdSave);
}

void PageBench::Open(const String& path) {
  dialogs.QueueFile(path);
  Click(Page().cmdOpen);
}

void PageBench::ForceOutput(const String& percent) {
  Type(String(EntryOf(Page().ItsFamily().word).record.output.set_key), percent);
  Click(Part<OutputSetting>(Page()).cmdSet);
}

TextField& PageBench::Field(const String& item) {
  TextField* field = Page().FindField(item);
  if (field == nullptr) {
    throw std::logic_error("no field of item " + ToUtf8(item));
  }
  return *field;
}

String PageBench::UnitOf(const String& item) {
  const int row = Page().FindDataRow(item);
  return Page().lbl_unit[std::stoi(ToUtf8(Page().DataCell(row, kUnitLabel)))].Caption();
}

std::vector<std::string> PageBench::TakeBoxes() {
  std::vector<std::string> texts;
  for (; boxes_taken_ < dialogs.Boxes().size(); ++boxes_taken_) {
    const Box& box = dialogs.Boxes()[boxes_taken_].box;
    texts.push_back(ToUtf8(box.title + u": " + box.text));
  }
  return texts;
}

}  // namespace korva::test
