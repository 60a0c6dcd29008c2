#include "companions/companions.h"

#include <memory>

#include "companions/edit_history.h"
#include "companions/field_help.h"
#include "companions/line_button.h"
#include "companions/report_writer.h"
#include "companions/settings_printer.h"
#include "companions/value_follower.h"

namespace korva {

void Companions::Join(ParameterPage& page) {
  page.Adopt(std::make_unique<ReportWriter>(page, Report, report_panel_));
  page.Adopt(std::make_unique<Comparer>(page, families_, make_, Compared, compare_panel_));
  page.Adopt(std::make_unique<LineButton>(page, line_panel_));
  page.Adopt(std::make_unique<ValueFollower>(page, Watched, watch_panel_));
  if (paper_ != nullptr) {
    page.Adopt(std::make_unique<SettingsPrinter>(page, *paper_));
  }
  page.Adopt(std::make_unique<EditHistory>(page));  // behind all whose buttons end what is typed
  page.Adopt(std::make_unique<FieldHelp>(page));    // behind whatever changes fields
}

}  // namespace korva
