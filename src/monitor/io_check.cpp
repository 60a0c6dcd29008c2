#include "monitor/io_check.h"

#include <initializer_list>

namespace korva {

namespace {

void ShowAll(std::initializer_list<Control*> controls, bool visible) {
  for (Control* control : controls) {
    control->SetVisible(visible);
  }
}

}  // namespace

IoCheck::IoCheck(ParameterPage& page)
    : page_(page),
      monitor_(page, MonitorFamilyOf(page.ItsFamily())),
      output_(page, OutputFamilyOf(page.ItsFamily()), monitor_) {
  page_.cmdMonitorON.OnClick = [this] { monitor_.Start(); };
  page_.cmdMonitorOFF.OnClick = [this] { monitor_.RequestStop(); };
  page_.cmdSet.OnClick = [this] { output_.Set(); };
  page_.cmdStatusMonOFF.OnClick = [this] { output_.Off(); };
}

void IoCheck::ShowControls() {
  ShowAll({&page_.fraMonitoring, &page_.IO_lblShow, &page_.cmdMonitorON, &page_.cmdMonitorOFF},
          page_.Traits().has_monitor);
  ShowAll({&page_.IO_lblSet, &page_.cmdSet, &page_.cmdStatusMonOFF},
          page_.FindTextIndex(u"01", u"03_set") >= 0);
}

}  // namespace korva
