#include "pages/seven_tab_page.h"

namespace korva {

int SevenTabPage::LnrTab() const { return kLinearizerTab; }

void SevenTabPage::PreparePort() { Line().OpenAtStart(String(ItsFamily().settings)); }

void SevenTabPage::SettleFlaggedTabs() {
  for (int tab = 0; tab < Tabs.Count(); ++tab) {
    const String& flag = Def[u"$SSTab"].At(0, tab);
    if (tab != LnrTab()) {
      Tabs.SetTabEnabled(tab, tab == kFilterTab ? flag == u"True" : flag != u"False");
    }
  }
}

}  // namespace korva
