// A configuration file of any bytes, read into a set of four groups and into one of two. What was read is
// written, and must be the same when it is read again.

#include "demand.h"
#include "files/cfg_file.h"
#include "platform/event_gate.h"
#include "reader_bench.h"

namespace korva {
namespace {

/// A catalogue with two models.
ModelTable Models() {
  ModelTable models;
  models.cells[0] = {u"QL", u"QL.def", u"First"};
  models.cells[1] = {u"QL", u"QL.def", u"First"};
  models.cells[2] = {u"QEY", u"QEY.def", u"Second"};
  return models;
}

bool Same(const ParameterSet& set, const ParameterSet& other) {
  for (int group = 0; group < set.Groups(); ++group) {
    for (int item = 0; item < ParameterSet::kItems; ++item) {
      if (set.At(group, item) != other.At(group, item)) {
        return false;
      }
    }
  }
  return set.Author == other.Author && set.Memo == other.Memo;
}

/// What bytes without a meaning in the code page became can't be written, and no such set is.
void DemandRoundTrip(test::ReaderBench& bench, const ModelTable& models, const ParameterSet& set) {
  const std::optional<std::string> written = bench.code_page.Encode(CfgText(u"QL.def", set, {}));
  if (!written || written->size() > kMostCfgBytes) {
    return;
  }
  bench.files.Put(u"/written", *written);
  ParameterSet again(set.Groups());
  test::Demand(OpenCfgFile(bench.lines, bench.boxes, u"/written"));
  const auto model = ReadCfgFile(bench.lines, bench.boxes, models, u"/written", again, {});
  test::Demand(model && model->row == 1 && Same(set, again));
}

}  // namespace
}  // namespace korva

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const korva::ModelTable models = korva::Models();
  korva::test::ReaderBench bench(data, size);
  if (!korva::OpenCfgFile(bench.lines, bench.boxes, bench.kPath)) {
    return 0;  // longer than any configuration
  }
  korva::ModelOfCfgFile(bench.lines, models);
  korva::ParameterSet set(korva::test::ReaderOf(data, size, 2) == 0 ? 4 : 2);
  try {
    korva::ReadCfgFile(bench.lines, bench.boxes, models, bench.kPath, set, {});
  } catch (const korva::RuntimeFailure&) {
    return 0;  // an item outside the set ends the program
  }
  korva::DemandRoundTrip(bench, models, set);
  return 0;
}
