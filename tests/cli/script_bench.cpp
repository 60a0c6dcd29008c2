#include "script_bench.h"

#include <array>
#include <memory>
#include <utility>

#include "core/design.h"
#include "pages/registry.h"

namespace korva::cli::test {

namespace {

constexpr std::array kInputRows = {DesignRow{.field = "Text(0) Combo(0)"}, DesignRow{.field = "Frame(0)"}};
constexpr std::array kTableRows = {DesignRow{.field = "Text(1)"}, DesignRow{.field = "LnrFlexGrid"},
                                   DesignRow{.field = "ImgInput"}};
constexpr std::array kInputGroups = {DesignGroup{.heading = TextKey::Input, .rows = kInputRows}};
constexpr std::array kTableGroups = {DesignGroup{.heading = TextKey::Linearizer, .rows = kTableRows}};
constexpr std::array kTabs = {DesignTab{.caption = TextKey::Input, .groups = kInputGroups},
                              DesignTab{.caption = TextKey::Linearizer, .groups = kTableGroups}};
constexpr std::array kOptions = {DesignOptions{.options = "Opt_Table", .frame = "Frame(0)"}};
constexpr Design kDesign = {.tabs = kTabs, .options = kOptions};

constexpr std::string_view kCatalogue =
    "$Type\r\n\"A1\",\"A1.def\",\"First\"\r\n\"A 2\",\"A2.def\",\"First\"\r\n\"N1\",\"N1.def\",\"Nano\"\r\n"
    "$End\r\n";

}  // namespace

Lines TakeLines(std::ostringstream& printed) {
  Lines lines;
  std::istringstream text(printed.str());
  for (std::string line; std::getline(text, line);) {
    lines.push_back(line);
  }
  printed.str({});
  return lines;
}

BenchPage::BenchPage(Program& program, const Family& family, SerialLink& link)
    : Page(program, {.family = family, .tab_control = "KvCfg_Tab", .design = kDesign}), link_(link) {
  Register(Text);
  Register(Combo);
  Register(Frames);
  Register(Opt_Table);
  Register(LnrFlexGrid);
  Register(LnrProgressBar);
  Register(ImgInput);
  LnrFlexGrid.Resize(17, 3);
  ApplyDesign();
}

void BenchPage::ReopenPort() {
  OptCom.Mark(link_.CommPort() - 1);
  link_.Reopen(String(ItsFamily().settings));
}

ScriptBench::ScriptBench(ScriptRunner::Options options)
    : program(platform, u"/k", AllFamilies(),
              [this](Program& owner, const Family& family) -> std::unique_ptr<korva::Page> {
                return std::make_unique<BenchPage>(owner, family, link);
              }),
      link(platform, program.Shared()),
      companions(platform, u"/k", AllFamilies(), nullptr),
      runner(program, link, companions, dialogs, transcript, options) {
  files.Put(u"/k/system/MdlVTRMFx.jpn", kCatalogue);
  port.Connect(1, &line);
}

Lines ScriptBench::Run(const std::string& script) {
  std::istringstream lines(script);
  for (std::string line_text; std::getline(lines, line_text);) {
    runner.Carry(line_text);
  }
  return TakeLines(printed);
}

Lines ScriptBench::RunStarted(const std::string& script) {
  Run("start");
  return Run(script);
}

BenchPage& ScriptBench::Page() const { return dynamic_cast<BenchPage&>(*program.Showing()); }

}  // namespace korva::cli::test
