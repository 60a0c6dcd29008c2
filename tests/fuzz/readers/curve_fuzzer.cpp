// A sensor curve's file of any bytes, and the image that it gives a device's memory.

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "demand.h"
#include "reader_bench.h"
#include "tables/curve_writer.h"

namespace korva {
namespace {

std::vector<const CurveFile*> AllCurves() {
  std::vector<const CurveFile*> all;
  for (const SensorKind kind : {SensorKind::Thermocouple, SensorKind::Resistance}) {
    for (const CurveFile& file : CurveFiles(kind)) {
      all.push_back(&file);
    }
  }
  return all;
}

/// The image has the low three bytes of each value, low byte first.
void DemandImage(std::span<const std::int32_t> values) {
  const std::string image = ImageOf(values);
  test::Demand(image.size() == 6 * values.size());
  auto digit = image.begin();
  for (const std::int32_t value : values) {
    for (const unsigned shift : {4U, 0U, 12U, 8U, 20U, 16U}) {
      test::Demand(*digit++ == "0123456789ABCDEF"[static_cast<std::uint32_t>(value) >> shift & 0xFU]);
    }
  }
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto curves = korva::AllCurves();
  const korva::CurveFile& curve = *curves[korva::test::ReaderOf(data, size, curves.size())];
  korva::test::MemoryFiles files;
  files.Put(korva::CurvePath(u"/korva", curve, u'/'), {reinterpret_cast<const char*>(data), size});
  korva::SystemReason reason;
  const auto values = korva::ReadTableFile(files, u"/korva", curve, reason);
  korva::test::Demand(values && static_cast<int>(values->size()) == curve.points);
  const std::size_t held = std::min(size / 4, values->size());
  korva::test::Demand(std::all_of(values->begin() + static_cast<std::ptrdiff_t>(held), values->end(),
                                  [](std::int32_t value) { return value == 0; }));
  // Behind these no input reaches.
  korva::DemandImage(std::span(*values).first(std::min(values->size(), size / 4 + 1)));
  return 0;
}
