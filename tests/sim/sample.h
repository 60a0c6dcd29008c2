#pragma once

#include <string>
#include <string_view>

#include "sim/definition.h"
#include "sim/device.h"

namespace korva::sim {

/// A made-up model of family First with one item of every kind: tag, output and live values, input type with
/// ranges by title, zero and span, fine values, temperature unit.
inline constexpr std::string_view kSample =
    "made up for tests\r\n"
    "$Data\r\n"
    "00, 99, , Version, Y\r\n"
    "01, 02, , Tag, Y, Y, , , , 0, , , , , , , , , , , Y, , TG:, 0\r\n"
    "01, 03_set, , Output, , Y, , , , 1\r\n"
    "01, 03_mon, , Output, , Y, , , , 2\r\n"
    "01, 04, , Input, , Y, , , , 3\r\n"
    "01, 06, , Measured, , Y, , , , 4, , , , , , , , , , , , , MEAS5:\r\n"
    "01, 10, , Type, Y, Y, , , , , 2, $I10, , , , , , , , $I10, $I10, , , 1\r\n"
    "01, 11, , Range, Y, Y, , , , , 1, $I11, , , , , , , , , $I10_CNECTI11, , , 2\r\n"
    "01, 21, , Unit, Y, Y, , , , , , $I21, 3, , , , , 2, , , Y, , , 3\r\n"
    "01, 14, , Zero, Y, Y, , , , 5, , , , , , , Item21, , , , Y, , ZERO:, 4\r\n"
    "01, 15, , Span, Y, Y, , , , 6, , , , , , , Item21, , , , Y, , SPAN:, 5\r\n"
    "01, 16, , Fine zero, Y, Y, , , , 7, , , , , , , , , , , Y, , FINZER, 6\r\n"
    "01, 17, , Fine span, Y, Y, , , , 8, , , , , , , , , , , Y, , FINSPN, 7\r\n"
    "$I10\r\n"
    "7, fixed mV, 0, 50, 5, Y, N, , mV\r\n"
    "1, K, -200, 1200, 100, N, Y, , deg C\r\n"
    "2, volts, -10, 10, 1, N, Y, DC, V\r\n"
    "$I11\r\n"
    "$I11Title\r\n"
    "NONE, DC\r\n"
    "$I11Body\r\n"
    "A, 0-5 V, , , 0, 5\r\n"
    "B, 1-5 V, , , 1, 5\r\n"
    "$I21\r\n"
    "0, C, deg C\r\n"
    "1, F, deg F\r\n"
    "2, K, K\r\n"
    "$End\r\n";

/// A device of the sample model, or of another definition file's name with the same items.
inline Device SampleDevice(const std::string& file = "SAMPLE.def", std::string_view text = kSample,
                           const DeviceOptions& options = {}) {
  return {
      {.name = "sample", .definition_file = file, .family_word = "First"}, Definition::Parse(text), options};
}

/// Selects an item and gives the reply to "I".
inline std::string Read(Device& device, const std::string& group, const std::string& item) {
  device.Answer("G" + group);
  return device.Answer("I" + item).text;
}

/// Selects an item, sends data and gives the reply to "D".
inline std::string Write(Device& device, const std::string& group, const std::string& item,
                         const std::string& data) {
  Read(device, group, item);
  return device.Answer("D" + data).text;
}

/// Puts the device into programming mode.
inline void EnterProgramming(Device& device) {
  Write(device, "01", std::string(device.GetFamily().mode_item), "1");
}

}  // namespace korva::sim
