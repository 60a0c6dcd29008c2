// The exchange of a cold junction module on the four pages that have it.

#include "tables/cold_junction.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/program.h"
#include "core/text_utilities.h"
#include "pages/registry.h"
#include "support/box_text.h"
#include "support/command_line.h"
#include "support/memory_files.h"
#include "support/tabs.h"
#include "support/virtual_host.h"

namespace korva::test {
namespace {

using Texts = std::vector<std::string>;

/// A device of either dialect, whose items hold what they are told.
class MenuLine final : public CommandLine {
 public:
  MenuLine(VirtualPort& port, Dialect dialect) : port_(port), dialect_(dialect) {}

  std::map<std::string, std::string> items;  ///< by "group/item"
  /// In place of the reply to a read ("01/34 D"), a write ("01/34 D25") or a selection ("00/99").
  std::map<std::string, std::optional<std::string>> replies;
  std::function<void(const std::string& access)> on_access;
  Texts accesses;  ///< those that read or write data, and titles of group 00

 private:
  void Take(const Command& command) override {
    const std::string& text = command.text;
    if (text.starts_with('G')) {
      group_ = text.substr(1);
      Reply(command, dialect_ == Dialect::Cok ? "COK" : "D      enter item");
      return;
    }
    if (text.starts_with('I')) {
      item_ = std::string(group_).append("/").append(text.substr(1));
      Answer(command, item_, Title());
      return;
    }
    if (text.size() > 1) {
      items[item_] = text.substr(1);
    }
    Answer(command, std::string(item_).append(" ").append(text), "D" + items[item_]);
  }
  [[nodiscard]] std::string Title() const {
    if (dialect_ == Dialect::Cok) {
      const auto found = items.find(item_);
      return found == items.end() ? "CNG" : "D" + found->second;
    }
    return item_ == "01/34" ? "D CJM 1" : item_ == "01/35" ? "D CJM 2" : "D Status";
  }
  void Answer(const Command& command, const std::string& access, const std::string& good) {
    accesses.push_back(access);
    if (on_access) {
      on_access(access);
    }
    const auto told = replies.find(access);
    if (const std::optional<std::string> reply = told == replies.end() ? good : told->second) {
      Reply(command, *reply);
    }
  }
  void Reply(const Command& command, const std::string& text) {
    port_.DeliverPaced(command.received + Milliseconds(10), text + "\r", 0);
  }

  VirtualPort& port_;
  Dialect dialect_;
  std::string group_;
  std::string item_;
};

constexpr std::array<StringView, 2> kBlankItems = {u"34", u"35"};
constexpr FieldForm kForm = {
    .arrays = {.lbl_item = 3, .label = 3, .text = 9, .frame = 3, .combo = 1, .lbl_unit = 3},
    .groups = 4,
    .lists = {},
    .unit_lists = {},
    .live_items = {},
    .text_items = kTagAlone,
    .blank_items = kBlankItems};

constexpr auto kTwoTabs = std::to_array<DesignTab>(
    {{.caption = TextKey::File}, {.caption = TextKey::Cjm, .rule = TabRule::BySwitch}});
const Design kCjmDesign = {.tabs = kTwoTabs};

/// A page with the cold junction alone.
class CjmPage final : public ParameterPage {
 public:
  CjmPage(Program& program, const FamilyRecord& record, DeviceLink& link, const ColdJunctionFamily& family)
      : ParameterPage(program, {.family = record.family, .tab_control = "z2KvCfg_Tab", .design = kCjmDesign},
                      {.device = record.device, .definition = record.definition, .fields = kForm}, link),
        cjm(*this, family) {}

  ColdJunction cjm;

 protected:
  void ReopenPort() override { Line().Reopen(String(ItsFamily().settings)); }
};

std::string Row(const std::string& item, const std::string& field, const std::string& title) {
  return "01," + item + ",,,Y,Y,,,," + field + ",,,,,,,,,,,,,CJMVAL,,," + title + "\r\n";
}
const std::string kBothRows = "$Data\r\n" + Row("34", "7", "CJM 1") + Row("35", "8", "CJM 2") + "$End\r\n";
const std::string kOneRow = "$Data\r\n" + Row("34", "7", "CJM 1") + "$End\r\n";

/// What a family's page says of its exchange.
constexpr ColdJunctionFamily kUniversal = {.fills_fields = true, .tells_failure = false};
constexpr ColdJunctionFamily kTransmitters = {};
constexpr ColdJunctionFamily kTwoOutputs = {
    .identity_item = u"01", .defaults = {u"25.000", u"574.000"}, .one_item = true};

struct CjmBench {
  explicit CjmBench(StringView word = u"Lite", const ColdJunctionFamily& family = kTransmitters,
                    const std::string& definition = kBothRows)
      : record(EntryOf(word).record),
        line(host.port, record.family.dialect),
        families({&record.family}),
        program(platform, u"/korva", {.all = families, .root = record.family},
                [this, &family](Program& owner, const Family& /*family*/) {
                  auto made = std::make_unique<CjmPage>(owner, record, link, family);
                  page = made.get();
                  return made;
                }),
        link(platform, program.Shared()) {
    files.Put(u"/korva/system/MdlVTRMFx.jpn",
              "$Type\r\nModel, Model.def, " + ToUtf8(record.family.word) + "\r\n$End\r\n");
    files.Put(DefFilePath(u"/korva", record.family, record.definition, u"Model.def", u'/'), definition);
    line.items = {{"00/99", "SYSVER 2.00"}, {"01/01", "0"}, {"01/34", "0"}, {"01/35", "0"}};
    host.port.Connect(1, &line);
    program.OnEnded([this](int) { ended = true; });
    program.Start();
    page->cjm.CJM_ProgressBar.Observe(
        [this] { progress.push_back(static_cast<int>(page->cjm.CJM_ProgressBar.Value())); });
  }

  void Press(Button& button, const std::vector<Answer>& answers = {}) {
    progress.clear();
    line.accesses.clear();
    boxes_before = host.dialogs.Boxes().size();
    for (const Answer answer : answers) {
      host.dialogs.QueueAnswer(answer);
    }
    host.loop.Gate().Enter([&] { button.Click(); });
  }
  void Type(const String& first, const String& second) {
    host.loop.Gate().Enter([&] {
      page->Text[7].UserTypes(first);
      page->Text[8].UserTypes(second);
    });
  }
  [[nodiscard]] Texts Boxes() const {
    Texts boxes;
    for (std::size_t at = boxes_before; at < host.dialogs.Boxes().size(); ++at) {
      const Box& box = host.dialogs.Boxes()[at].box;
      boxes.push_back(ToUtf8(box.title + u": " + box.text));
    }
    return boxes;
  }
  /// The writes of the exchange: items 34 and 35, and modes.
  [[nodiscard]] Texts Writes() const {
    Texts writes;
    for (const std::string& access : line.accesses) {
      if (access.size() > 7 && access.starts_with("01/")) {
        writes.push_back(access.substr(3));
      }
    }
    return writes;
  }
  [[nodiscard]] bool FrameShown() const { return page->cjm.fraCJM.Visible(); }
  [[nodiscard]] Look LookOf(int field) const { return page->Text[field].ShownLook(); }
  void ExpectAtRest() const {
    const SharedState& shared = program.Shared();
    EXPECT_FALSE(ended);
    EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy);
    EXPECT_TRUE(page->cmdUpload.Enabled() && page->cjm.cmdChangeCJM.Enabled() && page->Tabs.TabEnabled(0));
    EXPECT_EQ(page->cjm.CJM_ProgressBar.Value(), 0.0F);
    EXPECT_FALSE(page->cjm.lblPrg.Visible());
    EXPECT_EQ(host.dialogs.Unused(), 0U);
  }

  VirtualHost host;
  MemoryFiles files;
  Platform platform{.loop = host.loop,
                    .port = host.port,
                    .dialogs = host.dialogs,
                    .files = files,
                    .code_page = host.code_page};
  const FamilyRecord& record;
  MenuLine line;
  std::array<const Family*, 1> families;
  CjmPage* page = nullptr;
  std::vector<int> progress;
  std::size_t boxes_before = 0;
  bool ended = false;
  mutable Program program;
  DeviceLink link;
};

const std::string kQuestion = Shown(BoxKey::ChangeCjm);

// The frame.

TEST(ColdJunctionFrame, IsHiddenAtTheStartAndShownOnAYes) {
  CjmBench bench;
  EXPECT_FALSE(bench.FrameShown());
  bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::No});
  EXPECT_FALSE(bench.FrameShown());
  EXPECT_EQ(bench.host.dialogs.Boxes().back().box.preset, Answer::No);
  EXPECT_EQ(bench.host.dialogs.Boxes().back().box.icon, BoxIcon::Warning);
  bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::Yes});
  EXPECT_TRUE(bench.FrameShown());
  EXPECT_EQ(bench.Boxes(), Texts{kQuestion});
  EXPECT_EQ(bench.line.accesses, Texts()) << "nothing is sent";
}

TEST(ColdJunctionFrame, IsHiddenByCancelAndTheFieldsKeepWhatStandsInThem) {
  CjmBench bench;
  bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::Yes});
  bench.Type(u"25", u"600");
  bench.Press(bench.page->cjm.cmdCancelCJM);
  EXPECT_FALSE(bench.FrameShown());
  EXPECT_EQ(bench.page->Text[7].Text(), u"25");
  EXPECT_EQ(bench.page->Text[8].Text(), u"600");
}

TEST(ColdJunctionFrame, FillsItsFieldsFromTheSetOnTheUniversalPageAlone) {
  for (const bool universal : {true, false}) {
    CjmBench bench(universal ? u"QXI" : u"Lite", universal ? kUniversal : kTransmitters);
    bench.page->SetItem(34, u"21.5");
    bench.page->SetItem(35, u"555");
    bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::Yes});
    EXPECT_EQ(bench.page->Text[7].Text(), universal ? u"21.5" : u"");
    EXPECT_EQ(bench.page->Text[8].Text(), universal ? u"555" : u"");
  }
}

TEST(ColdJunctionFrame, HasTheJapaneseTexts) {
  CjmBench bench;
  const ColdJunction& cjm = bench.page->cjm;
  EXPECT_EQ(cjm.cmdChangeCJM.Caption(), u"CJM交換");
  EXPECT_EQ(cjm.cmdCJMcheck.Caption(), u"ﾁｪｯｸ");
  EXPECT_EQ(cjm.cmdWriteInCJM.Caption(), u"書込み");
  EXPECT_EQ(cjm.cmdDefaultCJM.Caption(), u"ﾃﾞﾌｫﾙﾄ");
  EXPECT_EQ(cjm.cmdCancelCJM.Caption(), u"中止");
  EXPECT_EQ(cjm.lblPrg.Caption(), u"転送中");
  EXPECT_EQ(cjm.lbl_CJMmsg.Caption(),
            u"温度補正値を変更します。\n\rCJMに添付されているﾃﾞｰﾀを入力してください。");
}

// The check.

struct Checked {
  String first;
  String second;
  bool first_good;
  bool second_good;
};

TEST(ColdJunctionCheck, TakesWhatLiesWithinTheLimitsAndTheDefault) {
  for (const Checked& one : std::vector<Checked>{{u"29.99999", u"600", true, true},
                                                 {u"30", u"600", false, true},
                                                 {u"20", u"600", true, true},
                                                 {u"19.99", u"600", false, true},
                                                 {u"-999.9", u"600", true, true},
                                                 {u"25", u"500", true, true},
                                                 {u"25", u"499.99", true, false},
                                                 {u"25", u"699.99999", true, true},
                                                 {u"25", u"700", true, false},
                                                 {u"25", u"-999.9", true, true},
                                                 {u"-999.90", u"-999.900", true, true},
                                                 {u"x", u"x", false, false}}) {
    CjmBench bench;
    bench.Type(one.first, one.second);
    bench.Press(bench.page->cjm.cmdCJMcheck);
    const bool good = one.first_good && one.second_good;
    EXPECT_EQ(bench.Boxes(), Texts{Shown(good ? BoxKey::CheckDone : BoxKey::ValueBad)})
        << ToUtf8(one.first + u" " + one.second);
    EXPECT_EQ(bench.LookOf(7), one.first_good ? Look::Normal : Look::Bad);
    EXPECT_EQ(bench.LookOf(8), one.second_good ? Look::Normal : Look::Bad);
    EXPECT_EQ(bench.line.accesses, Texts());
  }
}

TEST(ColdJunctionCheck, TakesTheTwoDefaultsOfThePageWithTwoOutputs) {
  CjmBench bench(u"Nano", kTwoOutputs);
  bench.Type(u"25.000", u"574.000");
  bench.Press(bench.page->cjm.cmdCJMcheck);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CheckDone)});
  bench.Type(u"-999.9", u"574.000");
  bench.Press(bench.page->cjm.cmdCJMcheck);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::ValueBad)});
}

TEST(ColdJunctionCheck, AnEmptyFieldHasABoxOfItsOwnAndNoColour) {
  CjmBench bench;
  bench.Type(u"30", u"");
  bench.Press(bench.page->cjm.cmdCJMcheck);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CjmFieldBlank)});
  EXPECT_EQ(bench.LookOf(7), Look::Normal);
}

TEST(ColdJunctionCheck, PassesOnAModelThatHasNotBothItems) {
  CjmBench bench(u"Lite", kTransmitters, kOneRow);
  EXPECT_FALSE(TabOpen(*bench.page, TextKey::Cjm));
  bench.Press(bench.page->cjm.cmdCJMcheck);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CheckDone)});
  bench.Press(bench.page->cjm.cmdWriteInCJM);
  bench.Press(bench.page->cjm.cmdDefaultCJM);
  EXPECT_EQ(bench.Boxes(), Texts());
  EXPECT_EQ(bench.line.accesses, Texts());
}

// Writing.

TEST(ColdJunctionWriting, WritesBothItemsAndShowsWhatTheDeviceHolds) {
  CjmBench bench;
  bench.line.replies["01/34 D"] = "D 25.50 deg";
  bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::Yes});
  bench.Type(u"25.5 C", u"600.1");
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CjmChanged)}));
  EXPECT_EQ(bench.Writes(), (Texts{"01 D1", "34 D25.5", "35 D600.1", "01 D0", "01 D0"}));
  EXPECT_EQ(bench.line.accesses.front(), "00/99");
  EXPECT_EQ(bench.page->Text[7].Text(), u"25.50");
  EXPECT_EQ(bench.page->Text[8].Text(), u"600.1");
  EXPECT_EQ(bench.page->Item(34), u"25.50") << "of the page's state the two items alone";
  EXPECT_EQ(bench.progress, (std::vector<int>{20, 30, 70, 100, 0}));
  EXPECT_TRUE(bench.FrameShown());
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, AnEmptySecondFieldStopsItBeforeTheQuestion) {
  CjmBench bench;
  bench.Type(u"25", u"");
  bench.Press(bench.page->cjm.cmdWriteInCJM);
  EXPECT_EQ(bench.Boxes(), Texts{Shown(BoxKey::CjmFieldBlank)});
  EXPECT_EQ(bench.line.accesses, Texts());
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, ANoHidesTheFrameAndGoesBackToMonitorMode) {
  CjmBench bench;
  bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::Yes});
  bench.Type(u"25", u"600");
  bench.page->CommFailed = true;  // of an operation before
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::No});
  EXPECT_EQ(bench.Boxes(), Texts{kQuestion});
  EXPECT_EQ(bench.Writes(), Texts{"01 D0"});
  EXPECT_FALSE(bench.FrameShown());
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, AnEmptyAnswerBeforeTheModeChangeIsAFailedLink) {
  CjmBench bench;
  bench.Type(u"25", u"600");
  bench.line.replies["00/99"] = std::nullopt;
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CommFailure)}));
  EXPECT_TRUE(bench.page->CommFailed);
  EXPECT_EQ(bench.Writes(), Texts()) << "no mode command: the device stays in its mode";
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, AModeThatIsNotTakenEndsItAndTheDeviceIsSentBack) {
  CjmBench bench;
  bench.Type(u"25", u"600");
  bench.line.replies["01/01 D1"] = std::nullopt;
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::NotProgrammingMode), Shown(BoxKey::CommFailure)}));
  EXPECT_EQ(bench.Writes().back(), "01 D0");
  EXPECT_EQ(bench.line.items["01/34"], "0");
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, AnItemThatTakesNoDataEndsItAndTheDeviceIsSentBack) {
  for (const char* item : {"34", "35"}) {
    CjmBench bench;
    bench.Type(u"25", u"600");
    const std::string write = std::string("01/") + item + (item == std::string("34") ? " D25" : " D600");
    bench.line.replies[write] = "CNG";
    bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
    EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CommFailure)})) << item;
    EXPECT_EQ(bench.Writes().back(), "01 D0");
    EXPECT_FALSE(bench.page->CommFailed);
    bench.ExpectAtRest();
  }
}

TEST(ColdJunctionWriting, ABadReadBackDoesNotFailItAndIsColouredByTheCheck) {
  CjmBench bench;
  bench.Type(u"25", u"600");
  bench.line.replies["01/34 D"] = "D 31.00";
  bench.line.replies["01/35 D"] = std::nullopt;
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CjmChanged)}));
  EXPECT_EQ(bench.page->Text[7].Text(), u"31.00");
  EXPECT_EQ(bench.LookOf(7), Look::Bad);
  EXPECT_EQ(bench.page->Text[8].Text(), u"");
  EXPECT_EQ(bench.LookOf(8), Look::Bad);
}

TEST(ColdJunctionWriting, ADeviceThatStaysInProgrammingModeIsAFailure) {
  CjmBench bench;
  bench.Type(u"25", u"600");
  bench.line.replies["01/01 D0"] = std::nullopt;
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::NotMonitorMode), Shown(BoxKey::CommFailure),
                                  Shown(BoxKey::NotMonitorMode)}));
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, ARefusedWriteIsSilentOnTheUniversalPage) {
  CjmBench bench(u"QXI", kUniversal);
  bench.Type(u"25", u"600");
  bench.line.replies["01/35 D600"] = "CNG";
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), Texts{kQuestion});
  EXPECT_EQ(bench.line.items["01/01"], "0");
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, ASilentDeviceShowsTheBoxOnTheUniversalPageToo) {
  CjmBench bench(u"QXI", kUniversal);
  bench.Type(u"25", u"600");
  bench.line.replies["00/99"] = std::nullopt;
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CommFailure)}));
  bench.ExpectAtRest();
}

TEST(ColdJunctionWriting, WritesBothItemsInTheOtherDialectToo) {
  CjmBench bench(u"QXI", kUniversal);
  bench.Type(u"25", u"600");
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CjmChanged)}));
  EXPECT_EQ(bench.line.items["01/34"], "25");
  EXPECT_EQ(bench.line.items["01/35"], "600");
}

TEST(ColdJunctionWriting, WritesOneTextWithOneBlankOnThePageWithTwoOutputs) {
  CjmBench bench(u"Nano", kTwoOutputs);
  bench.Type(u"25.000", u"574.000");
  bench.line.replies["01/34 D"] = "D 25.001 574.002 ";
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CjmChanged)}));
  EXPECT_EQ(bench.Writes(), (Texts{"01 D1", "34 D25.000 574.000", "01 D0", "01 D0"}));
  EXPECT_EQ(bench.line.accesses.front(), "00/01");
  EXPECT_EQ(bench.page->Text[7].Text(), u"25.001");
  EXPECT_EQ(bench.page->Text[8].Text(), u"574.002");
}

// The default.

TEST(ColdJunctionDefault, DoesNotNeedTheFieldsToBeFilled) {
  CjmBench bench;
  bench.Press(bench.page->cjm.cmdDefaultCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CjmSetToDefault)}));
  EXPECT_EQ(bench.Writes(), (Texts{"01 D1", "34 D-999.9", "35 D-999.9", "01 D0", "01 D0"}));
  EXPECT_EQ(bench.page->Text[7].Text(), u"-999.9");
  EXPECT_EQ(bench.LookOf(7), Look::Normal);
  EXPECT_EQ(bench.progress, (std::vector<int>{20, 30, 70, 100, 0}));
  bench.ExpectAtRest();
}

TEST(ColdJunctionDefault, GreysTheFieldsWhileItRunsAndANoHidesTheFrame) {
  CjmBench bench;
  bench.Press(bench.page->cjm.cmdChangeCJM, {Answer::Yes});
  Look during = Look::Normal;
  bench.line.on_access = [&](const std::string& access) {
    if (access == "00/99") {
      during = bench.LookOf(7);
      EXPECT_TRUE(bench.page->cjm.lblPrg.Visible());
      EXPECT_FALSE(bench.page->cjm.cmdWriteInCJM.Enabled()) << "the frame is locked";
      EXPECT_FALSE(bench.page->cmdUpload.Enabled());
    }
  };
  bench.Press(bench.page->cjm.cmdDefaultCJM, {Answer::Yes});
  EXPECT_EQ(during, Look::Grey);
  bench.Press(bench.page->cjm.cmdDefaultCJM, {Answer::No});
  EXPECT_EQ(bench.Boxes(), Texts{kQuestion});
  EXPECT_EQ(bench.line.accesses, Texts());
  EXPECT_FALSE(bench.FrameShown());
  EXPECT_EQ(bench.LookOf(7), Look::Normal);
}

TEST(ColdJunctionDefault, AFailureHasItsBoxAndLeavesTheFieldsNormal) {
  CjmBench bench;
  bench.line.replies["01/35 D-999.9"] = std::nullopt;
  bench.Press(bench.page->cjm.cmdDefaultCJM, {Answer::Yes});
  EXPECT_EQ(bench.Boxes(), (Texts{kQuestion, Shown(BoxKey::CommFailure)}));
  EXPECT_EQ(bench.LookOf(7), Look::Normal);
  EXPECT_EQ(bench.LookOf(8), Look::Normal);
  bench.ExpectAtRest();
}

TEST(ColdJunctionDefault, IsOneTextOnThePageWithTwoOutputs) {
  CjmBench bench(u"Nano", kTwoOutputs);
  bench.Press(bench.page->cjm.cmdDefaultCJM, {Answer::Yes});
  EXPECT_EQ(bench.line.items["01/34"], "25.000 574.000");
  EXPECT_EQ(bench.page->Text[8].Text(), u"574.000");
}

// The close box.

TEST(ColdJunctionClose, IsHeldWhileTheDeviceIsInProgrammingModeAndEndsTheProgramAfterwards) {
  CjmBench bench;
  bench.Type(u"25", u"600");
  bench.line.on_access = [&](const std::string& access) {
    if (access == "01/34 D25") {
      EXPECT_TRUE(bench.page->OnUnload()) << "the window stays";
    }
  };
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_TRUE(bench.ended);
  EXPECT_EQ(bench.Writes(), (Texts{"01 D1", "34 D25", "35 D600", "01 D0", "01 D0"}));
}

TEST(ColdJunctionClose, LeavesTheWindowOpenWhenTheExchangeFailed) {
  CjmBench bench;
  bench.Type(u"25", u"600");
  bench.line.on_access = [&](const std::string& access) {
    if (access == "01/34 D25") {
      bench.page->OnUnload();
    }
  };
  bench.line.replies["01/35 D600"] = "CNG";
  bench.Press(bench.page->cjm.cmdWriteInCJM, {Answer::Yes});
  EXPECT_FALSE(bench.ended);
  bench.ExpectAtRest();
}

}  // namespace
}  // namespace korva::test
