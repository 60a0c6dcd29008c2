#include "tables/sensor_compensation.h"

#include <algorithm>
#include <initializer_list>

#include "core/text_utilities.h"
#include "monitor/held_exchange.h"

namespace korva {

namespace {

constexpr int kMeasuringTime = 3000;  ///< ms that a device needs
constexpr StringView kReportKey = u"D";

}  // namespace

SensorCompensation::SensorCompensation(ParameterPage& page, std::span<const CompensationModel> models)
    : page_(page), models_(models) {
  page_.Add(*this);
  page_.RegisterAll<Control>({&lblCompX, &txtCompX, &lbl_unitX, &lblCompY, &txtCompY, &lbl_unitY, &lblComp,
                              &cmdLineSet, &cmdLineReset, &cmd0Per, &cmd100Per, &cmdCalReset,
                              &cmdReadOutComp});
  for (TextField* field : {&txtCompX, &txtCompY}) {
    field->SetLocked(true);
    field->SetNumeric(true);
    field->SetLook(Look::Grey);
  }
  cmdLineSet.OnClick = [this] { Measure(u"Z"); };
  cmdLineReset.OnClick = [this] { Measure(u"R"); };
  cmd0Per.OnClick = [this] { Measure(u"Z"); };
  cmd100Per.OnClick = [this] { Measure(u"S"); };
  cmdCalReset.OnClick = [this] { Measure(u"R"); };
  cmdReadOutComp.OnClick = [this] { ReadOut(); };
}

void SensorCompensation::SetCaptions(Language language) {
  struct Caption {
    CaptionedControl* control;
    TextKey key;
  };
  for (const Caption& one : {Caption{.control = &lblCompX, .key = TextKey::ZeroCompensation},
                             Caption{.control = &lblCompY, .key = TextKey::SpanCompensation},
                             Caption{.control = &lblComp, .key = TextKey::LineResistanceCompensation},
                             Caption{.control = &cmdLineSet, .key = TextKey::Execute},
                             Caption{.control = &cmdLineReset, .key = TextKey::Reset},
                             Caption{.control = &cmd0Per, .key = TextKey::ZeroPositionCalibration},
                             Caption{.control = &cmd100Per, .key = TextKey::SpanPositionCalibration},
                             Caption{.control = &cmdCalReset, .key = TextKey::ResetCalibration},
                             Caption{.control = &cmdReadOutComp, .key = TextKey::ReadOut}}) {
    one.control->SetCaption(CaptionText(one.key, language));
  }
}

std::array<Button*, 6> SensorCompensation::Buttons() {
  return {&cmdLineSet, &cmdLineReset, &cmd0Per, &cmd100Per, &cmdCalReset, &cmdReadOutComp};
}

void SensorCompensation::SetExchangesBarred(bool barred) {
  for (Button* button : Buttons()) {
    button->SetEnabled(!barred);
  }
}

void SensorCompensation::PageCleared() {
  const auto model = std::find_if(models_.begin(), models_.end(), [this](const CompensationModel& one) {
    return one.def_file == page_.DefFile;
  });
  const CompensationModel has = model == models_.end() ? CompensationModel() : *model;
  const auto show = [](std::initializer_list<Control*> controls, bool shown) {
    for (Control* control : controls) {
      control->SetVisible(shown);
    }
  };
  const bool any = !has.def_file.empty();
  show({&lblCompX, &txtCompX, &lbl_unitX, &cmdReadOutComp}, any);
  show({&lblCompY, &txtCompY, &lbl_unitY}, !has.second_unit.empty());
  show({&lblComp, &cmdLineSet, &cmdLineReset}, any && !has.positions);
  show({&cmd0Per, &cmd100Per, &cmdCalReset}, has.positions);
  lbl_unitX.SetCaption(String(has.first_unit));
  lbl_unitY.SetCaption(String(has.second_unit));
  txtCompX.SetText({});
  txtCompY.SetText({});
}

void SensorCompensation::ReadOut() {
  if (page_.OperationRuns()) {
    return;
  }
  page_.BeginOperation();
  page_.LockFrame();
  Report();
  page_.EndOperation();
  page_.UnlockFrame();
}

void SensorCompensation::Measure(StringView key) {
  if (page_.OperationRuns()) {
    return;
  }
  BeginHeldExchange(page_);
  (void)Send(key);  // what the device makes of it shows in its report
  page_.Line().WaitFor(kMeasuringTime);
  Report();
  EndHeldExchange(page_, true);
}

void SensorCompensation::Report() {
  const String answer = Send(kReportKey);
  const std::size_t blank = std::min(answer.find(u' '), answer.size());
  txtCompX.SetText(answer.substr(0, blank));
  txtCompY.SetText(Trimmed(answer.substr(blank)));
}

String SensorCompensation::Send(StringView key) const {
  const WireItem item{.group = u"01", .item = u"27"};
  const String answer = Trimmed(page_.EnterItem().WriteParamPairRetry(kItemRepeats, item, {}, String(key)));
  return TellsRefusal(answer) ? String() : answer;
}

}  // namespace korva
