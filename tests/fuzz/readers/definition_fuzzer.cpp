// A definition file of any bytes, read as one of some family.

#include <deque>

#include "files/definition.h"
#include "pages/registry.h"
#include "platform/event_gate.h"
#include "reader_bench.h"

namespace korva {
namespace {

/// One of each family; reading clears it first.
std::deque<Definition>& Definitions() {
  static std::deque<Definition> definitions = [] {
    std::deque<Definition> all;
    for (const RegistryEntry& entry : Registry()) {
      all.emplace_back(entry.record.family, entry.record.definition);
    }
    return all;
  }();
  return definitions;
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  korva::test::ReaderBench bench(data, size);
  auto& definitions = korva::Definitions();
  try {
    korva::ReadDefFile(bench.lines, bench.boxes, bench.kPath,
                       definitions[korva::test::ReaderOf(data, size, definitions.size())]);
  } catch (const korva::RuntimeFailure&) {
    return 0;  // a file that is cut off ends the program
  }
  return 0;
}
