#pragma once

#include "linearizer/linearizer.h"
#include "monitor/count_setting.h"
#include "monitor/item_command.h"
#include "pages/family_record.h"
#include "pages/kv_config_v3/transfer.h"
#include "transfer/temperature_units.h"

namespace korva {

/// The page of family Third: pulse and frequency inputs, counters and alarm units. Counters set their counts
/// and reset them on the tab I/O check.
class KvConfig_V3 final : public ParameterPage {
 public:
  KvConfig_V3(Program& program, const FamilyRecord& record, DeviceLink& link);

  OptionGroup Opt_Direction{"Opt_Direction", 2};      ///< of the alarms
  OptionGroup Opt_Direction09{"Opt_Direction09", 2};  ///< of the count's alarm
  OptionGroup Opt_Rotation{"Opt_Rotation", 2};

  Linearizer linearizer;
  StatusMonitor monitor;
  OutputSetting output;

 protected:
  void PreparePort() override;

 private:
  /// The captions above set and shown values, which counters have of their own.
  class Heads final : public PagePart {
   public:
    explicit Heads(KvConfig_V3& page);
    void SetCaptions(Language language) override;
    void PageBuilt() override { Show(); }

   private:
    void Show();

    KvConfig_V3& page_;
    Language language_ = Language::Japanese;
  };

  void AddAllOptions();
  [[nodiscard]] bool HasCounts() const;

  CountSetting count03_;
  CountSetting count04_;
  CountSetting count06_;
  ItemCommand command12_;
  ItemCommand command13_;
  Heads heads_;
  TemperatureUnits units_;
  KvConfigV3Alarms alarms_;

  KvConfigV3Form form_;
  KvConfigV3Upload upload_steps_;
  KvConfigV3Check check_steps_;
  KvConfigV3Download download_steps_;
  Upload upload_;
  ValueCheck check_;
  Download download_;
};

}  // namespace korva
