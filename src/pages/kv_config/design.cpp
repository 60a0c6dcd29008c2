#include "pages/kv_config/design.h"

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
  kDetails,
  kAlarm,
  kTable,
  kCurve,
  kCellEditor,
  kFilter,
  kPort,
  kMonitor,
  kOutputSetting,
};

constexpr std::array kGroups = Joined(
    std::array{
        DesignGroup{.tab = kFileTab, .heading = TextKey::File},
        DesignGroup{.tab = kInputTab, .heading = TextKey::Input},
        DesignGroup{.tab = kInputTab, .column = 1, .heading = TextKey::Range},
        DesignGroup{.tab = kOutputTab, .heading = TextKey::Output},
        DesignGroup{.tab = kOutputTab, .heading = TextKey::ZeroSpanAdjustment},
        DesignGroup{.tab = kOutputTab, .column = 1, .heading = TextKey::Details},
        DesignGroup{.tab = kOutputTab, .heading = TextKey::Alarm},
    },
    TableGroups(kLinearizerTab),
    std::array{
        DesignGroup{.tab = kFilterTab, .heading = TextKey::Filter},
        DesignGroup{.tab = kPortTab, .heading = TextKey::Port},
    },
    IoCheckGroups(kIoCheckTab));

constexpr std::array kRows = Joined(
    FileRows(kFile),
    std::array{
        PlainRow<17, 0>(kInput),
        ListRow<26, 0>(kInput),
        OptionRow<45, 0>(kInput),
        ListRow<27, 1>(kInput),
        ListRow<29, 3>(kInput),
        OptionRow<46, 1>(kInput),
        OptionRow<47, 2>(kInput),
        OptionRow<48, 3>(kRange),
        FieldRow<19, 9>(kRange),
        FieldRow<20, 10>(kRange),
        FieldRow<18, 8>(kRange),
        FieldRow<23, 13>(kRange),
        FieldRow<24, 14>(kOutput),
        FieldRow<25, 15>(kOutput),
        FieldRow<21, 11>(kFineAdjustment),
        FieldRow<22, 12>(kFineAdjustment),
        FieldRow<30, 16>(kDetails),
        FieldRow<31, 17>(kDetails),
        FieldRow<32, 18>(kDetails),
        FieldRow<33, 19>(kDetails),
        FieldRow<34, 20>(kDetails),
        FieldRow<35, 21>(kDetails),
        FieldRow<36, 22>(kDetails),
        FieldRow<37, 23>(kDetails),
        FieldRow<38, 24>(kDetails),
        FieldRow<39, 25>(kDetails),
        FieldRow<40, 26>(kDetails),
        FieldRow<41, 27>(kDetails),
        FieldRow<42, 28>(kDetails),
        FieldRow<43, 29>(kDetails),
        OptionRow<49, 4>(kAlarm),
        OptionRow<50, 5>(kAlarm),
        OptionRow<51, 6>(kAlarm),
        OptionRow<52, 7>(kAlarm),
    },
    TableRows(kTable, kCurve, kCellEditor, "cmd_csvFileOpen"),
    std::array{
        ListRow<28, 2>(kFilter),
        FieldRow<10, 30>(kFilter),
        FieldRow<11, 31>(kFilter),
        FieldRow<12, 32>(kFilter),
        FieldRow<13, 33>(kFilter),
        FieldRow<14, 34>(kFilter),
        FieldRow<15, 35>(kFilter),
        FieldRow<16, 36>(kFilter),
    },
    PortRows(kPort),
    MonitorRows(kMonitor,
                std::array{LiveRow<2, 3>(kMonitor), LiveRow<3, 4>(kMonitor), LiveRow<4, 5>(kMonitor),
                           LiveRow<5, 6>(kMonitor), LiveRow<6, 7>(kMonitor), LiveRow<7, 37>(kMonitor)}),
    OutputRows(kOutputSetting, std::array{LiveRow<0, 1>(kOutputSetting), LiveRow<1, 2>(kOutputSetting)}));

constexpr std::array kOptions =
    Joined(kTableOptions, std::array{
                              DesignOptions{.options = "Opt_Root", .frame = "Frame(2)"},
                              DesignOptions{.options = "optTempUnit", .frame = "Frame(3)"},
                              DesignOptions{.options = "Opt_Backup", .frame = "Frame(4)"},
                              DesignOptions{.options = "Opt_Updown", .frame = "Frame(5)"},
                              DesignOptions{.options = "Opt_Alarm", .frame = "Frame(6)"},
                              DesignOptions{.options = "Opt_Recovery", .frame = "Frame(7)"},
                          });

}  // namespace

const Design kKvConfigDesign = {.groups = kGroups, .rows = kRows, .options = kOptions};

}  // namespace korva
