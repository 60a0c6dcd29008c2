// A sensor curve's file of any bytes, and the image that it gives a device's memory.

#include <algorithm>
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

/// The six digits of a point, high byte first.
std::string Digits(const std::string& image, std::size_t point) {
  constexpr std::size_t digits = 6;
  return SwapBytePairs(std::string_view(image).substr(point * digits, digits));
}

/// The image has the low three bytes of each value.
void DemandImage(const std::vector<std::int32_t>& values) {
  const std::string image = ImageOf(values);
  test::Demand(image.size() == 6 * values.size());
  for (std::size_t point = 0; point < values.size(); ++point) {
    const auto stored = static_cast<std::uint32_t>(HexToNumber(Digits(image, point)));
    test::Demand((stored ^ static_cast<std::uint32_t>(values[point])) << 8U == 0);
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
  korva::DemandImage(*values);
  return 0;
}
