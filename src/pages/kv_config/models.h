#pragma once

#include <span>

#include "files/model_traits.h"
#include "transfer/value_check.h"

namespace korva {

/// What the page of family First knows of its models.
std::span<const ModelTraits> KvConfigModels();

/// The value checks of the models of family First.
std::span<const ModelCheck> KvConfigChecks();

}  // namespace korva
