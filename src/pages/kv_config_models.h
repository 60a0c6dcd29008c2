#pragma once

#include <span>

#include "files/model_traits.h"
#include "transfer/value_check.h"

namespace korva {

/// What the page of family First knows of its models.
std::span<const ModelTraits> KvConfigModels();

/// The value checks of the models of family First, by definition file.
struct KvConfigCheck {
  StringView def_file;
  bool beginning = false;  ///< `def_file` is the beginning of the names
  std::span<const ItemRange> ranges = {};
  RangeCondition condition = RangeCondition::AllOpen;
  const SensorCheck* sensor = nullptr;
};
std::span<const KvConfigCheck> KvConfigChecks();

}  // namespace korva
