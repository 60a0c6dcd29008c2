#include "pages/kv_config_v2/design.h"

#include <array>
#include <string_view>

#include "pages/design_parts.h"

namespace korva {

namespace {

enum Tab : int { kFileTab, kInputTab, kOutput1Tab, kOutput2Tab, kPortTab, kIoCheckTab };

enum Group : int {
  kFile,
  kInput,
  kFirstOutput,
  kFineAdjustment,
  kAlarm,
  kSecondOutput,
  kDetails,
  kPort,
  kMonitor,
  kOutputSetting,
};

constexpr std::array kGroups = Joined(
    std::array{
        DesignGroup{.tab = kFileTab, .heading = TextKey::File},
        DesignGroup{.tab = kInputTab, .heading = TextKey::Input},
        DesignGroup{.tab = kOutput1Tab, .heading = TextKey::FirstOutput},
        DesignGroup{.tab = kOutput1Tab, .column = 1, .heading = TextKey::ZeroSpanAdjustment},
        DesignGroup{.tab = kOutput2Tab, .heading = TextKey::Alarm},
        DesignGroup{.tab = kOutput2Tab, .column = 1, .heading = TextKey::SecondOutput},
        DesignGroup{.tab = kOutput2Tab, .column = 1, .heading = TextKey::Details},
        DesignGroup{.tab = kPortTab, .heading = TextKey::Port},
    },
    IoCheckGroups(kIoCheckTab));

/// A frequency: the box of its unit stands behind its field.
template <int label>
constexpr DesignRow FrequencyRow(int group, std::string_view field) {
  return {.group = group,
          .item = Element<arrays::kNumber, label>::name,
          .label = Element<arrays::kCaption, label>::name,
          .field = field};
}

constexpr std::array kRows = Joined(
    FileRows(kFile),
    std::array{
        PlainRow<10, 0>(kInput),
        ListRow<14, 0>(kInput),
        FrequencyRow<11>(kInput, "Text(6) cbo_unit(0)"),
        FieldRow<12, 7>(kInput),
        FieldRow<13, 8>(kInput),
        PlainRow<15, 9>(kInput),
        FrequencyRow<16>(kFirstOutput, "Text(10) cbo_unit(1)"),
        FieldRow<17, 11>(kFirstOutput),
        FieldRow<18, 12>(kFirstOutput),
        ListRow<21, 1>(kFirstOutput),
        ListRow<22, 2>(kFirstOutput),
        FieldRow<19, 13>(kFineAdjustment),
        FieldRow<20, 14>(kFineAdjustment),
        OptionRow<30, 0>(kAlarm),
        ListRow<23, 3>(kAlarm),
        FrequencyRow<24>(kAlarm, "Text(15) cbo_unit(2)"),
        FieldRow<25, 16>(kAlarm),
        FieldRow<28, 19>(kAlarm),
        FieldRow<29, 20>(kAlarm),
        FieldRow<26, 17>(kSecondOutput),
        FieldRow<27, 18>(kSecondOutput),
        FieldRow<31, 21>(kDetails),
    },
    PortRows(kPort),
    MonitorRows(kMonitor,
                std::array{LiveRow<2, 3>(kMonitor), LiveRow<3, 4>(kMonitor), LiveRow<4, 5>(kMonitor)}),
    OutputRows(kOutputSetting, std::array{LiveRow<0, 1>(kOutputSetting), LiveRow<1, 2>(kOutputSetting)}));

constexpr std::array kOptions = {DesignOptions{.options = "optAlarm", .frame = "Frame(0)"}};

}  // namespace

const Design kKvConfigV2Design = {.groups = kGroups, .rows = kRows, .options = kOptions};

}  // namespace korva
