#pragma once

#include <array>

#include "platform/string.h"

namespace korva {

/// What all pages share. One instance for the program.
struct SharedState {
  int SelectedModelIndex = 0;             ///< position of the chosen model in the model list
  int ListTopIndex = 0;                   ///< first visible row of the model list
  String CfgFilePath;                     ///< full path of the open configuration file
  String CfgFileName;                     ///< its bare name
  bool CommBusy = false;                  ///< a long operation on the device is under way
  bool DownloadBusy = false;              ///< the operation must not be cut off by ending the program
  bool QuitRequested = false;             ///< the user tried to close the program while CommBusy was set
  String ForcedOutput;                    ///< what a device holds its output at; empty while none is forced
  String LastItemReply;                   ///< the device's last reply to an item exchange
  String LineField;                       ///< last field taken by LineReader::NextField
  String LineBuffer;                      ///< last line read by LineReader::ReadLine
  bool LinePushedBack = false;            ///< LineBuffer is to be read once more
  std::array<String, 34> KnownItemNames;  ///< item titles of the model in use
  int TablePitch = 0;                     ///< step of a temperature table
  int TableBase = 0;                      ///< temperature of its first entry
  int TableStartAddress = 0;              ///< EEPROM address of its first byte
};

}  // namespace korva
