#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/definition.h"
#include "sim/memory.h"
#include "sim/point.h"

namespace korva::sim {

/// What a transmitter keeps in its memory instead of in items that could be written: the types of its input
/// and output, its model text, the calibration of each, and the curve of its sensor or its linearizer.
///
/// As it leaves its maker it has the first type of each list, the calibration that goes with them, a date,
/// and
/// the curve of its sensor out of the curves' folder. Where that file is missing it has no valid curve (table
/// type 99, as after a broken writing); a model without sensor and linearizer has no table at all.
class Setup {
 public:
  /// \param code    Definition file without its ending, such as "Z2WT".
  /// \param curves  Folder of the `.tct` files.
  Setup(const Definition& definition, std::string_view code, std::filesystem::path curves);

  Memory memory;

  // Texts as the items report them.
  std::string ModelText() const;
  std::string InputText() const;
  std::string OutputText() const;

  /// Gives the transmitter a type as its maker does, with all that goes with it.
  /// \param choice  Text or code of a row. \return false when the list has no such row; nothing changes then.
  bool SetInput(std::string_view choice);
  bool SetOutput(std::string_view choice);
  /// Gives it a model text, at most 16 characters.
  bool SetModelText(std::string_view text);

  /// Column of the type that the memory tells; empty when its text is none of the list's.
  std::string InputUnit() const;

  /// Lowest and highest values that the types of the present texts allow to zero and span of input and
  /// output; empty texts without such a type.
  struct Limits {
    std::string low;
    std::string high;
  };
  Limits InputLimits() const;
  Limits OutputLimits() const;

  bool HasSensor() const;
  bool HasColdJunction() const;

  /// What the sensor that the maker connected gives at the ends of its type's range, in microvolts or
  /// milliohms; none without a sensor's curve.
  std::optional<Point> SensorRange() const { return sensor_range_; }

  /// Temperature over signal as the memory has them now; empty without a valid table.
  std::vector<Point> StoredCurve() const;

  /// Y over X in %; empty without a valid table.
  std::vector<Point> StoredLinearizer() const;

 private:
  void ChooseInput(const Definition::Row& row);
  void ChooseOutput(const Definition::Row& row);
  void PutTable(const Definition::Row& type);
  void PutModelText();
  void PutCurve(const Definition::Row& type);
  void PutLinearizer();

  std::vector<Definition::Row> inputs_;
  std::vector<Definition::Row> outputs_;
  std::string code_;
  std::filesystem::path curves_;
  std::string input_tag_;
  std::string output_tag_;
  std::optional<Point> sensor_range_;
};

}  // namespace korva::sim
