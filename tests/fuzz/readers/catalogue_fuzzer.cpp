// A catalogue of any bytes.

#include "core/catalogue.h"
#include "platform/event_gate.h"
#include "reader_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::ReaderBench bench(data, size);
  korva::ModelTable models;
  try {
    korva::ReadModelCatalogue(bench.lines, bench.kPath, models);
  } catch (const korva::RuntimeFailure&) {
    // a catalogue that is cut off ends the program
  }
  for (int row = 0; row < korva::ModelTable::kRows; ++row) {
    korva::FindModelByName(models, models.At(row, korva::ModelTable::kName));
    korva::FindModelByDefFile(models, models.At(row, korva::ModelTable::kDefFile));
  }
  return 0;
}
