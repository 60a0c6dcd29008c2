#include "sweep_bench.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "sim/model_rules.h"
#include "support/page_parts.h"
#include "support/sampled.h"

namespace korva::test {

using sim::Fault;

std::string Break::Name() const {
  const auto faults = sim::AllFaults();
  const auto info = std::find_if(faults.begin(), faults.end(),
                                 [this](const sim::FaultInfo& one) { return one.fault == fault; });
  return std::string(info->name) + (for_good ? " for good" : " once") + " from exchange " +
         std::to_string(at + 1);
}

std::vector<Break> BreaksOf(std::size_t exchanges) {
  std::vector<Break> breaks;
  for (std::size_t at = 0; at < exchanges; ++at) {
    for (const Fault fault : {Fault::Silent, Fault::Refused, Fault::Garbled, Fault::Late}) {
      breaks.push_back({.fault = fault, .for_good = false, .at = at});
      breaks.push_back({.fault = fault, .for_good = true, .at = at});
    }
    breaks.push_back({.fault = Fault::Doubled, .for_good = false, .at = at});
  }
  return Sampled(breaks);
}

void ExpectDeviceHolds(const ParameterPage& page, const sim::Device& device) {
  for (int row = 0; row < page.Def.Data().Rows(); ++row) {
    const String& group = page.DataCell(row, kGroup);
    const String& item = page.DataCell(row, kItem);
    const String& kept = page.GroupItem.At(group, item);
    if (page.DataCell(row, kUploaded) != u"Y" || kept == kNeedless) {
      continue;
    }
    String held = FromUtf8(device.Value(ToUtf8(group), ToUtf8(page.WireOf(row).item)));
    if (const String& unit = page.DataCell(row, kUnitText); !unit.empty() && held.ends_with(unit)) {
      held.resize(held.size() - unit.size());  // some counters tell it with the value
    }
    if (sim::HasWord(device.GetFamily().pairs, ToUtf8(page.WireOf(row).item))) {
      EXPECT_EQ(ToUtf8(kept), ToUtf8(item == u"34" ? held.substr(0, held.find(u' ')) : held)) << ToUtf8(item);
      continue;
    }
    if (const String& kind = page.DataCell(row, kItemKind); !kind.empty() && kind != u"TG:") {
      held = TrimNumericText(held);  // these devices tell it with every value
    }
    const OptionRule* option = page.FindOptionRule(page.DataCell(row, kChoiceKey));
    if (option != nullptr && option->keeps == &ListColumns::code) {
      const ChoiceList list = page.Def.ListOf(option->table);
      held = list.Code(list.FindText(held));
    }
    if (IsNumeric(held)) {
      EXPECT_DOUBLE_EQ(LeadingNumber(kept), LeadingNumber(held)) << ToUtf8(item);
    } else {
      EXPECT_EQ(ToUtf8(kept), ToUtf8(Trimmed(held))) << ToUtf8(item);
    }
  }
}

SweepBench::SweepBench(const String& model) : device(Connect(model)) {
  app.link.line.OnTraffic = [this](const SerialLink::Traffic& traffic) {
    if (traffic.sent) {
      commands.push_back(ToUtf8(traffic.text));
    }
  };
  Choose(model);
  Upload();
  uploaded = SetOf();
  for (int tab = 0; tab < Page().Tabs.Count(); ++tab) {
    if (tab != Page().TabWith(TextKey::Linearizer) && Page().Tabs.TabEnabled(tab)) {
      open_tabs_.push_back(tab);
    }
  }
  Page().DataChanged = false;
  TakeBoxes();
  commands.clear();
}

void SweepBench::StartBreak(const Break& line_break) {
  const int first = device.Exchanges() + 1 + static_cast<int>(line_break.at);
  device.AddFault({.fault = line_break.fault,
                   .first = first,
                   .last = line_break.for_good ? sim::FaultRule::kForGood : first,
                   .command = {}});
}

std::vector<String> SweepBench::SetOf() {
  std::vector<String> cells;
  cells.reserve(ParameterSet::kItems);
  for (int item = 0; item < ParameterSet::kItems; ++item) {
    cells.push_back(Page().Item(item));
  }
  return cells;
}

void SweepBench::ExpectUsable() {
  const SharedState& shared = app.program.Shared();
  EXPECT_FALSE(status.has_value()) << "the program has ended";
  EXPECT_FALSE(shared.CommBusy || shared.DownloadBusy || shared.QuitRequested || Page().UploadBusy);
  EXPECT_EQ(Page().TransferBar.Value(), 0.0F);
  for (const Control* control : Page().Controls()) {
    if (const auto* bar = dynamic_cast<const ProgressBar*>(control)) {
      EXPECT_EQ(bar->Value(), 0.0F) << bar->FullName();
    }
  }
  EXPECT_FALSE(Page().flaMsg_CannotEnd.Visible());
  for (const Button* button : {&Page().cmdUpload, &Page().cmdDownload, &Page().cmdCheck, &Page().cmdOpen,
                               &Page().cmdSave, &Page().cmdNew, &Page().cmdExit}) {
    EXPECT_TRUE(button->Enabled()) << button->Name();
  }
  EXPECT_TRUE(Page().lst_TypeSelect.Enabled());
  for (const int tab : open_tabs_) {
    EXPECT_TRUE(Page().Tabs.TabEnabled(tab)) << tab;
  }
}

void SweepBench::ExpectUploadWorks() {
  device.ClearFaults();
  loop.RunUntilIdle();
  Page().DataChanged = false;
  TakeBoxes();
  Upload();
  std::vector<std::string> boxes;
  for (const BoxKey question : QuestionsOfUpload()) {
    boxes.push_back(Shown(question));
  }
  boxes.push_back(Shown(BoxKey::UploadDone));
  EXPECT_EQ(TakeBoxes(), boxes);
  EXPECT_EQ(device.Mode(), '0');
  ExpectDeviceHolds(Page(), device);
  EXPECT_EQ(dialogs.Unused(), 0U);
}

}  // namespace korva::test
