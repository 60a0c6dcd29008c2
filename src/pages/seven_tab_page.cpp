#include "pages/seven_tab_page.h"

namespace korva {

int SevenTabPage::LnrTab() const { return TabWith(TextKey::Linearizer); }

void SevenTabPage::PreparePort() { Line().OpenAtStart(String(ItsFamily().settings)); }

}  // namespace korva
