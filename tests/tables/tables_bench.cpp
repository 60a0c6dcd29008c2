#include "tables_bench.h"

#include <array>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>

#include "core/text_utilities.h"
#include "pages/z2_kv_config/family.h"
#include "support/tabs.h"

namespace korva::test {

namespace {

constexpr std::array kLists = {ListRule{.key = u"$I10", .table = u"$I10"},
                               ListRule{.key = u"$I11", .table = u"$I11"}};
constexpr FieldForm kFields = {
    .arrays = {.lbl_item = 43, .label = 43, .text = 43, .frame = 3, .combo = 1, .lbl_unit = 43},
    .groups = 4,
    .lists = kLists,
    .unit_lists = {},
    .live_items = {},
    .text_items = kTagAlone};
const std::array<const Family*, 1> kFamilies = {&kZ2KvConfigRecord.family};

/// The types of a definition: of its rows those of items 10 and 11, and their lists, or `types` in their
/// place.
std::string TypesOf(const std::string& definition, const std::string& types_instead) {
  std::string types;
  bool wanted = false;
  std::istringstream lines(definition);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('$')) {
      wanted = types_instead.empty() && (line.starts_with("$I10") || line.starts_with("$I11"));
    }
    if (wanted || line.starts_with("$Data") || line.starts_with("01,  10,") || line.starts_with("01,  11,")) {
      types += line + "\n";
    }
  }
  return types + types_instead + "$End\r\n";
}

/// The curves of the build's home, by the paths at which a bench has them.
const std::map<String, std::string>& CurvesOfHome() {
  static const auto all = [] {
    std::map<String, std::string> curves;
    for (const SensorKind kind : {SensorKind::Thermocouple, SensorKind::Resistance}) {
      for (const CurveFile& curve : CurveFiles(kind)) {
        curves[CurvePath(u"/korva", curve, u'/')] = BytesOfHome("system/z2Kv/" + ToUtf8(curve.name));
      }
    }
    return curves;
  }();
  return all;
}

sim::Device Transmitter(const std::string& model) {
  const sim::Model row = {.name = model, .definition_file = model + ".def", .family_word = "Lite"};
  return {row, sim::Definition::Read(KORVA_HOME, row), {.curves = KORVA_HOME "/system/z2Kv"}};
}

}  // namespace

sim::Reply TransmitterLine::Answer(const Command& command) {
  const std::optional<sim::Reply> own = instead ? instead(command.text, Commands().size()) : std::nullopt;
  return own ? *own : DeviceLine::Answer(command);
}

TablesPage::TablesPage(Program& program, DeviceLink& link)
    : ParameterPage(
          program,
          {.family = kZ2KvConfigRecord.family,
           .tab_control = "z2KvCfg_Tab",
           .design = kBareDesign<TextKey::File>},
          {.device = kZ2KvConfigRecord.device, .definition = kZ2KvConfigRecord.definition, .fields = kFields},
          link) {}

TablesBench::TablesBench(const std::string& model, const std::string& def_file, const std::string& types)
    : device(Transmitter(model)),
      program(platform, u"/korva", {.all = kFamilies, .root = kZ2KvConfigRecord.family},
              [this](Program& owner, const Family& /*family*/) {
                auto made = std::make_unique<TablesPage>(owner, link);
                page = made.get();
                return made;
              }),
      link(platform, program.Shared()) {
  const std::string file = def_file.empty() ? model + ".def" : def_file;
  files.Put(u"/korva/system/MdlVTRMFx.jpn", "$Type\r\nModel, " + file + ", Lite\r\n$End\r\n");
  files.Put(u"/korva/system/z2Kv/" + Ascii(file),
            TypesOf(BytesOfHome("system/z2Kv/" + model + ".def"), types));
  for (const auto& [path, bytes] : CurvesOfHome()) {
    files.Put(path, bytes);
  }
  host.port.Connect(1, &line);
  host.port.SetTimed(false);
  program.Start();
  page->TransferBar.Observe([this] { progress.push_back(page->TransferBar.Value()); });
  page->LnrProgressBar.Observe([this] { lnr_progress.push_back(page->LnrProgressBar.Value()); });
  page->Notes.Observe([this] {
    const std::string told = ToUtf8(page->Notes.Told(Notice::Stage));
    if (notices.empty() || notices.back() != told) {
      notices.push_back(told);
    }
  });
}

bool TablesBench::RunStage() {
  line.ForgetCommands();
  bool good = false;
  Run([&] { good = Stage().ReadDevice() && Stage().Download(); });
  return good;
}

std::vector<std::string> TablesBench::Boxes() const {
  std::vector<std::string> boxes;
  for (const VirtualDialogs::ShownBox& shown : host.dialogs.Boxes()) {
    boxes.push_back(ToUtf8(shown.box.title + u": " + shown.box.text));
  }
  return boxes;
}

std::string BytesOfHome(const std::string& name) {
  std::ifstream file(KORVA_HOME "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

int Count(const std::string& text, const std::string& part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
    ++count;
  }
  return count;
}

}  // namespace korva::test
