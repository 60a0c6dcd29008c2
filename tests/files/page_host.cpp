#include "page_host.h"

#include <algorithm>
#include <array>

#include "pages/kv_config/family.h"
#include "support/tabs.h"

namespace korva::test {

namespace {

constexpr std::array<StringView, 2> kRootModels = {u"QH.def", u"QHG.def"};

constexpr StringView kCatalogue =
    u"models of the tests\n"
    u"$Type\n"
    u"PLAIN,PLAIN.def,First\n"
    u"OTHER,OTHER.def,First\n"
    u"THIRD,THIRD.def,Third\n"
    u"QHNY1,QHNY1.def,First\n"
    u"QHNY2,QHNY2.def,First\n"
    u"QHW1,QHW1.def,First\n"
    u"QHN1,QHN1.def,First\n"
    u"QHW,QHW.def,First\n"
    u"QUO,QUO.def,First\n"
    u"QY,QY.def,First\n"
    u"QEI,QEI.def,First\n"
    u"QZ,QZ.def,First\n"
    u"10QCE,10QCE.def,First\n"
    u"QH,QH.def,First\n"
    u"QD,QD.def,First\n"
    u"$End\n";

}  // namespace

void MemoryHost::PutText(const String& path, StringView text) {
  String lines;
  for (const char16_t character : text) {
    lines.append(character == u'\n' ? u"\r\n" : String(1, character));
  }
  files.Put(path, code_page.Encode(lines).value());
}

String MemoryHost::TextOf(const String& path) const { return code_page.Decode(files.Bytes(path).value()); }

std::vector<String> MemoryHost::BoxTexts() const {
  std::vector<String> texts;
  for (const auto& shown : dialogs.Boxes()) {
    texts.push_back(shown.box.title + u": " + shown.box.text);
  }
  return texts;
}

Probe::Probe(ParameterPage& page) : page_(page) { page_.Add(*this); }

void Probe::ChoiceMade(const Choice& choice) {
  const auto call = [](const std::function<void()>& listener) {
    if (listener) {
      listener();
    }
  };
  if (choice.options == nullptr) {
    model_rules.push_back(choice.item);
    call(on_model_rules);
  } else if (choice.options == &page_.optTempUnit) {
    units_chosen.push_back(choice.place);
    call(on_unit);
  } else {
    options_set.push_back(choice.key);
  }
}

TestPage::TestPage(Program& program, const FamilyRecord& record, DeviceLink& link)
    : ParameterPage(program, {.family = record.family, .tab_control = "KvCfg_Tab", .design = kSevenTabDesign},
                    FormsOf(record), link),
      linearizer(*this, kKvConfigRecord.table.Value(), kKvConfigRecord.csv),
      probe(*this) {
  AddAllOptions();
  ApplyDesign();
}

void TestPage::AddAllOptions() {
  AddOptions({.key = u"$I10", .table = u"$I10", .item = u"10", .options = &linearizer.Opt_Table});
  AddOptions({.key = u"$I11",
              .table = u"$I11Body",
              .item = u"11",
              .options = &Opt_Root,
              .models = {.names = kRootModels}});
  AddOptions({.key = u"$I11", .table = u"$I11Body", .item = u"11", .options = &linearizer.Opt_Lnr});
  AddOptions({.key = u"$I21",
              .table = u"$I21",
              .item = u"21",
              .options = &optTempUnit,
              .captions_from_table = true});
  AddOptions({.key = u"$I21QD",
              .table = u"$I21QD",
              .item = u"21",
              .options = &Opt_Backup,
              .captions_from_table = true});
}

PageHost::PageHost() {
  PutText(u"/korva/system/MdlVTRMFx.jpn", kCatalogue);
  Define(u"PLAIN.def", DefText({{.item = u"02", .text = u"0"}}));
}

TestPage& PageHost::Start() {
  program.Start();
  return *first;
}

TestPage& PageHost::Choose(const String& model, StringView definition) {
  Define(model + u".def", definition);
  if (first == nullptr) {
    Start();
  }
  return Choose(model);
}

TestPage& PageHost::Choose(const String& model) const {
  const auto& entries = first->lst_TypeSelect.Entries();
  const auto found = std::find(entries.begin(), entries.end(), model);
  first->lst_TypeSelect.UserPicks(static_cast<int>(found - entries.begin()));
  return *first;
}

std::unique_ptr<korva::Page> PageHost::MakePage(Program& made_for, const Family& family) {
  auto page = std::make_unique<TestPage>(made_for, EntryOf(family.word).record, link);
  (family.word == u"Third" ? third : first) = page.get();
  return page;
}

}  // namespace korva::test
