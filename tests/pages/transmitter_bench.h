#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sweep_bench.h"
#include "tables/curve_file.h"

namespace korva::test {

/// A download that changes the input and the output type of a transmitter, and what must stand in its memory
/// afterwards.
struct TypeChange {
  const char* name;
  String model;
  const char* delivered = "";  ///< the input type that the device has before; empty: as its maker left it
  String input;
  std::string model_text;
  char code = 0;  ///< of the input type
  char adc = 0;   ///< converter that the input type needs
  std::optional<SensorKind> curve = {};
  bool linearizer = false;
  bool copies_adc_bank = false;
  std::size_t output_bank = 349;  ///< address of the first active value
};

/// One of a thermocouple, a resistance thermometer, a signal with a linearizer and a voltage; each with the
/// second output type of its list.
const std::vector<TypeChange>& TypeChanges();

/// A transmitter whose set was uploaded and then changed: types, tag, fine zero and filter.
class TransmitterBench : public SweepBench {
 public:
  explicit TransmitterBench(const TypeChange& type_change);

  /// Downloads, with the linearizer where it asks; its boxes but for the questions.
  std::vector<std::string> BoxesOfDownload();
  /// Chooses the types that the device had before, or those of the change again.
  void ChooseFormerTypes() { Choose(former_input_, 0); }
  void ChooseTypes() { Choose(change.input, 1); }
  /// All bytes of the device's memory, or some.
  [[nodiscard]] std::string Memory() const { return Bytes(0, 8192); }
  [[nodiscard]] std::string Bytes(std::size_t address, std::size_t count) const {
    return device.GetMemory().Bytes(address, count);
  }
  /// What the device holds of the items that a download can write, "item value",
  /// without the units.
  [[nodiscard]] std::vector<std::string> Items() const;
  /// The device holds all that was chosen: items, types, texts, date, calibration and table.
  void ExpectAllWritten() const;

  TypeChange change;
  std::vector<String> chosen;  ///< SetOf() before any download

 private:
  void Deliver();
  void ChangeSet();
  /// `output` is a place in the list.
  void Choose(const String& input, std::size_t output);
  void FillTable();
  void ExpectTypes() const;
  void ExpectCalibration() const;
  void ExpectTable() const;
  void ExpectCopied(std::size_t from, std::size_t count, std::size_t to) const;
  void ExpectDifference(std::size_t first, std::size_t second, std::size_t width, std::size_t at) const;
  [[nodiscard]] int Number(std::size_t address, std::size_t width) const;
  /// The three low bytes of each of the file's numbers.
  [[nodiscard]] std::string ImageOfFile() const;

  String former_input_;
};

}  // namespace korva::test
