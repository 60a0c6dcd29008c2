#pragma once

#include "core/document.h"
#include "files/parameter_page.h"

namespace korva {

/// The report of the page's settings as a plant files it: model, tag, day, author, memo; then what the open
/// tabs show, box by box, each item with its caption, value and unit; and the points of a table with their
/// curve. Values are told as they stand on the page, checked or not: a blank one by a dash, one that does not
/// count by a word in brackets. What a box hides that the user can open is told too; what is live is not.
///
/// `file` is the path of the configuration file that holds the same set; empty for none.
Document SettingsReport(ParameterPage& page, const String& file);

}  // namespace korva
