#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "sim/setup_error.h"

namespace korva::sim {

/// One model of the catalogue. Texts are bytes as they stand in the file.
struct Model {
  std::string name;             ///< As the user knows it.
  std::string definition_file;  ///< Such as "QHW.def".
  std::string family_word;      ///< Decides speed, dialect and folder.
};

/// Reads the models of HOME/system/MdlVTRMFx.jpn, rows without a name left out.
/// \throws SetupError when the file is missing or has no "$Type" line.
std::vector<Model> ReadCatalogue(const std::filesystem::path& home);

/// The tables of a model's definition file as bytes: section key ("$Data", "$I10", ...) to rows of fields.
/// Both parts of the `$I11` block stand under their own keys, "$I11Title" and "$I11Body".
class Definition {
 public:
  using Row = std::vector<std::string>;

  /// Takes the text of a definition file.
  /// \throws SetupError when it has no `$Data` rows.
  static Definition Parse(std::string_view text);

  /// Reads HOME/system/FOLDER/FILE of the model's family.
  /// \throws SetupError for an unknown family, a missing file or one without `$Data` rows.
  static Definition Read(const std::filesystem::path& home, const Model& model);

  /// The rows of a section; none when the file has no such section.
  const std::vector<Row>& Rows(std::string_view key) const;

  /// Puts the rows of the sections `keys`, which are separated by blanks, behind those of `key`.
  void Join(std::string_view key, std::string_view keys);

 private:
  std::map<std::string, std::vector<Row>, std::less<>> sections_;
};

/// A field of a row; empty beyond the row's last field.
const std::string& Field(const Definition::Row& row, std::size_t column);

}  // namespace korva::sim
