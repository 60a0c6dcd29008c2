#include "pages/kv_config_v3/design.h"

#include <array>

#include "pages/design_parts.h"
#include "pages/seven_tab_page.h"

namespace korva {

namespace {

enum Group : int {
  kFile,
  kInput,
  kRange,
  kOutput,
  kFineAdjustment,
  kTable,
  kCurve,
  kCellEditor,
  kFirstAlarm,
  kSecondAlarm,
  kAlarm,
  kPort,
  kMonitor,
  kOutputSetting,
  kReset,
};

constexpr std::array kGroups = Joined(
    std::array{
        DesignGroup{.tab = kFileTab, .heading = TextKey::File},
        DesignGroup{.tab = kInputTab, .heading = TextKey::Input},
        DesignGroup{.tab = kInputTab, .column = 1, .heading = TextKey::Range},
        DesignGroup{.tab = kOutputTab, .heading = TextKey::Output},
        DesignGroup{.tab = kOutputTab, .heading = TextKey::ZeroSpanAdjustment},
    },
    TableGroups(kLinearizerTab),
    std::array{
        DesignGroup{.tab = kFilterTab, .heading = TextKey::FirstAlarm},
        DesignGroup{.tab = kFilterTab, .column = 1, .heading = TextKey::SecondAlarm},
        DesignGroup{.tab = kFilterTab, .heading = TextKey::Alarm},
        DesignGroup{.tab = kPortTab, .heading = TextKey::Port},
    },
    IoCheckGroups(kIoCheckTab),
    std::array{DesignGroup{.tab = kIoCheckTab, .column = 1, .heading = TextKey::Reset}});

/// A command with the box of its answer.
constexpr DesignRow CommandRow(std::string_view label, std::string_view field_and_button) {
  return {.group = kReset, .label = label, .field = field_and_button};
}

constexpr std::array kRows =
    Joined(FileRows(kFile),
           std::array{
               PlainRow<17, 0>(kInput),
               OptionRow<45, 0>(kInput),
               OptionRow<46, 1>(kInput),
               ListRow<10, 0>(kInput),
               ListRow<11, 1>(kInput),
               ListRow<12, 2>(kInput),
               OptionRow<50, 5>(kInput),
               OptionRow<47, 2>(kRange),
               FieldRow<18, 18>(kRange),
               FieldRow<19, 19>(kRange),
               FieldRow<20, 20>(kRange),
               FieldRow<23, 23>(kRange),
               PlainRow<41, 41>(kRange),
               PlainRow<42, 42>(kRange),
               FieldRow<24, 24>(kOutput),
               FieldRow<25, 25>(kOutput),
               FieldRow<21, 21>(kFineAdjustment),
               FieldRow<22, 22>(kFineAdjustment),
           },
           TableRows(kTable, kCurve, kCellEditor, "cmd_csvFileOpen cmd_csvFileSave"),
           std::array{
               ListRow<13, 3>(kFirstAlarm),
               FieldRow<32, 32>(kFirstAlarm),
               ListRow<16, 5>(kFirstAlarm),
               FieldRow<34, 34>(kFirstAlarm),
               ListRow<15, 4>(kSecondAlarm),
               FieldRow<38, 38>(kSecondAlarm),
               ListRow<28, 6>(kSecondAlarm),
               FieldRow<40, 40>(kSecondAlarm),
               FieldRow<26, 26>(kAlarm),
               FieldRow<27, 27>(kAlarm),
               OptionRow<48, 3>(kAlarm),
               FieldRow<29, 29>(kAlarm),
               OptionRow<49, 4>(kAlarm),
               FieldRow<36, 36>(kAlarm),
           },
           PortRows(kPort),
           MonitorRows(kMonitor,
                       std::array{LiveRow<1, 2>(kMonitor), LiveRow<3, 4>(kMonitor), LiveRow<4, 5>(kMonitor),
                                  LiveRow<6, 7>(kMonitor), LiveRow<14, 14>(kMonitor)}),
           OutputRows(kOutputSetting, std::array{LiveRow<0, 1>(kOutputSetting)}),
           std::array{
               LiveRow<2, 3>(kOutputSetting),
               DesignRow{.group = kOutputSetting, .field = "cmdSet2"},
               LiveRow<5, 6>(kOutputSetting),
               DesignRow{.group = kOutputSetting, .field = "cmdSet3"},
               CommandRow("lbl_Item(7)", "Text(8) Command_I12"),
               CommandRow("lbl_Item(8)", "Text(9) Command_I13"),
           });

constexpr std::array kOptions =
    Joined(kTableOptions, std::array{
                              DesignOptions{.options = "optTempUnit", .frame = "Frame(2)"},
                              DesignOptions{.options = "Opt_Direction", .frame = "Frame(3)"},
                              DesignOptions{.options = "Opt_Direction09", .frame = "Frame(4)"},
                              DesignOptions{.options = "Opt_Rotation", .frame = "Frame(5)"},
                          });

}  // namespace

const Design kKvConfigV3Design = {.groups = kGroups, .rows = kRows, .options = kOptions};

}  // namespace korva
