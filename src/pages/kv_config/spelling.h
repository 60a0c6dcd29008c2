#pragma once

#include "files/parameter_page.h"
#include "pages/kv_config/sensor_texts.h"

namespace korva {

class KvConfig;

/// The input types of models that spell them by the device's version: the definition's list is brought into
/// the device's own spelling, so that what the device reports is found in it.
class KvConfigSpelling final : public PagePart {
 public:
  /// Adds itself to the page, which outlives this.
  explicit KvConfigSpelling(KvConfig& page);

  /// Spells the input types as the device does from which the set came, so that a set of an older device is
  /// found in the list, and checked, when its file is opened again.
  void DefinitionRead() override;
  /// After an upload: by the version that was read with it.
  void FollowSet();
  /// Before a download: asks the device for its version, and brings the chosen input type into its spelling
  /// too.
  void FollowDevice();
  /// True when the text is an input type in one of the spellings, on a model that has them.
  [[nodiscard]] bool Knows(const String& text) const;

 private:
  [[nodiscard]] bool Serves() const;
  void SpellInputTypes(const SensorTexts& texts);

  KvConfig& page_;
};

}  // namespace korva
