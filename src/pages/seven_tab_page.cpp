#include "pages/seven_tab_page.h"

namespace korva {

int SevenTabPage::LnrTab() const { return kLinearizerTab; }

void SevenTabPage::PreparePort() { Line().OpenAtStart(String(ItsFamily().settings)); }

void SevenTabPage::SettleFlaggedTabs() {
  Tabs.SetTabEnabled(kFilterTab, Def[u"$SSTab"].At(0, kFilterTab) == u"True");
}

}  // namespace korva
