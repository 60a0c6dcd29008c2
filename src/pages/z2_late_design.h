#pragma once

#include <array>

#include "pages/z2_design.h"

namespace korva::late_z2 {

// The design that the pages of families LiteForth and LiteFifth have in common.

inline constexpr auto kInputRows = std::to_array<DesignRow>({
    FieldRow({.item = u"02", .label = 10, .field = 0}),
    ListRow({.item = u"21", .label = 11, .field = 2}),
    ListRow({.item = u"11", .label = 14, .field = 3}),
    ListRow({.item = u"08", .label = 15, .field = 5}),
    ListRow({.item = u"07", .label = 22, .field = 4}),
});

/// The switch of the linearizer, with room for a caption beside its frame.
inline constexpr DesignRow kLnrRow = [] {
  DesignRow row = OptionRow({.item = u"10", .label = 33, .field = 0});
  row.label = ElementName<arrays::kCaption>(33);
  return row;
}();
inline constexpr auto kRangeRows = std::to_array<DesignRow>({
    FieldRow({.item = u"14", .label = 12, .field = 1}),
    FieldRow({.item = u"15", .label = 13, .field = 2}),
    FieldRow({.item = u"12", .label = 17, .field = 3}),
    kLnrRow,
});

inline constexpr auto kOutputRows = std::to_array<DesignRow>({
    ListRow({.item = u"24", .label = 23, .field = 6}),
    FieldRow({.item = u"25", .label = 20, .field = 6}),
});
inline constexpr auto kFineRows = std::to_array<DesignRow>({
    FieldRow({.item = u"17", .label = 18, .field = 4}),
    FieldRow({.item = u"18", .label = 19, .field = 5}),
});

inline constexpr int kLiveNumbers = 5;  ///< number labels below it are those of live values

inline constexpr std::array kPointRows = MovedPointRows({.field = "cmdReadOutTable cmdWriteInTable"});

inline constexpr std::array kMonitorRows = MonitorRows(std::array{
    LiveRow({.item = u"04", .label = 2, .field = 22}),
    LiveRow({.item = u"05", .label = 3, .field = 23}),
    LiveRow({.item = u"06", .label = 4, .field = 24}),
});
inline constexpr std::array kThresholdRows = ThresholdRows({.item = u"09", .label = 16, .field = 10});

inline constexpr std::array kIoCheckGroups = {
    DesignGroup{.heading = TextKey::Threshold, .frame = "Frame(1)", .rows = kThresholdRows},
    DesignGroup{.heading = TextKey::Monitoring, .frame = "fraMonitoring", .rows = kMonitorRows},
    DesignGroup{.heading = TextKey::Output, .rows = z2::kSettingRows},
};

inline constexpr std::array kOptions = {DesignOptions{.options = "Opt_Lnr", .frame = "Frame(0)"}};

}  // namespace korva::late_z2
