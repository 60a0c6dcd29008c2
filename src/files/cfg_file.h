#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/boxes.h"
#include "core/catalogue.h"
#include "core/line_reader.h"
#include "core/page_part.h"
#include "files/parameter_set.h"

namespace korva {

/// What a configuration file told of its model.
struct CfgModel {
  String def_file;
  int row = 0;  ///< the model's row in the catalogue, 0: none
};

/// The text of a configuration file: the whole set and the sections of the page's parts, with CR LF line
/// ends.
String CfgText(const String& def_file, const ParameterSet& set, std::span<PagePart* const> parts);

/// The model of a configuration file, which is not read further; nothing when it names none. A file that
/// can't be opened ends the program.
std::optional<CfgModel> ModelOfCfgFile(LineReader& lines, const ModelTable& models, const String& path);

/// Reads a configuration file into `set`, which is cleared first, and into the parts that have a section of
/// their own. Nothing comes back when the file names no
/// model: its values then belong to the current model's page. A file whose model is unknown is not read
/// further. Format faults show their boxes and leave what was read up to there; a file that can't be opened,
/// and an item outside the set, end the program.
std::optional<CfgModel> ReadCfgFile(LineReader& lines, const Boxes& boxes, const ModelTable& models,
                                    const String& path, ParameterSet& set, std::span<PagePart* const> parts);

}  // namespace korva
