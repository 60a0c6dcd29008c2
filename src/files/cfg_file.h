#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

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
/// ends. The groups of the set stand in it from `first_group` on, those before it behind the last.
String CfgText(const String& def_file, const ParameterSet& set, std::span<PagePart* const> parts,
               int first_group = 0);

/// Under which a configuration file is open.
inline constexpr int kCfgHandle = 2;

/// More bytes than this no configuration has; such a file is another kind of file.
inline constexpr std::size_t kMostCfgBytes = std::size_t{1} << 20;

/// Takes in the configuration file that the user chose, for ModelOfCfgFile and ReadCfgFile. False, after its
/// box, when it is missing, has more than kMostCfgBytes, or can't be read.
bool OpenCfgFile(LineReader& lines, const Boxes& boxes, const String& path);

/// The model of the open configuration file, which is not read further; nothing when it names none.
std::optional<CfgModel> ModelOfCfgFile(LineReader& lines, const ModelTable& models);

/// Reads the open configuration file, whose path is `path`, into `set`, which is cleared first, and into the
/// parts that have a section of their own, and closes it. Nothing comes back when the file names no model:
/// its values then belong to the current model's page. A file whose model is unknown is not read further.
/// Format faults show their boxes and leave what was read up to there; an item outside the set ends the
/// program.
std::optional<CfgModel> ReadCfgFile(LineReader& lines, const Boxes& boxes, const ModelTable& models,
                                    const String& path, ParameterSet& set, std::span<PagePart* const> parts);

/// What a configuration file does not give back.
struct CfgLosses {
  std::vector<std::pair<int, int>> items;  ///< group and item, in the file's order
  bool author = false;
  std::vector<int> memo_lines;  ///< from 1

  [[nodiscard]] bool None() const { return items.empty() && !author && memo_lines.empty(); }
};

/// Reads the file that was written of `set` and tells what opening it would not bring back as it stands
/// there: a value with a comma takes what follows it along, a memo line with one is read as a record. A tag
/// of ten blanks comes back empty, which means the same. The sections of the page's parts are passed over.
/// Nothing of a file that can't be read is brought back.
CfgLosses LossesOfCfgFile(LineReader& lines, const ModelTable& models, const String& path,
                          const ParameterSet& set, std::span<PagePart* const> parts);

}  // namespace korva
