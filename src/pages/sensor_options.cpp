#include "pages/sensor_options.h"

namespace korva {

void AddSensorOptions(ParameterPage& page, OptionGroup& compensation, OptionGroup& burnout,
                      OptionGroup& linearizer) {
  const auto add = [&page](StringView key, StringView item, OptionGroup& options, bool captions_from_table) {
    page.AddOptions({.key = key,
                     .table = key,
                     .item = item,
                     .options = &options,
                     .captions_from_table = captions_from_table,
                     .reads_codes = true});
  };
  add(u"$I21", u"21", page.optTempUnit, false);
  add(u"$I23", u"23", compensation, true);
  add(u"$I24", u"24", burnout, true);
  add(u"$I25", u"25", linearizer, false);
}

}  // namespace korva
