#include "companions/comparison.h"

#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

TextKey TextOf(const Comparison& comparison) {
  if (comparison.What() == Comparison::With::Nothing) {
    return TextKey::CompareUnbegun;
  }
  if (comparison.Result() == Comparison::Outcome::OtherModel) {
    return TextKey::CompareOtherModel;
  }
  if (comparison.Result() == Comparison::Outcome::Broken) {
    return TextKey::CompareBroken;
  }
  return comparison.Differences().empty() ? TextKey::CompareSame : TextKey::CompareDiffers;
}

}  // namespace

ComparisonPanel::ComparisonPanel(Comparison& comparison) : Panel("pnlCompare"), comparison_(comparison) {
  comparison.Observe([this] { Changed(); });
}

String ComparisonPanel::Heading() const {
  return Filled(Words(TextOf(comparison_)),
                {comparison_.Model(), Ascii(std::to_string(comparison_.Differences().size()))});
}

std::vector<String> ComparisonPanel::Heads() const {
  const bool file = comparison_.What() == Comparison::With::File;
  return {Words(TextKey::ReportItem), Words(TextKey::ReportCaption), Words(TextKey::ComparePage),
          Words(file ? TextKey::CompareInFile : TextKey::CompareInDevice)};
}

std::vector<String> ComparisonPanel::Cells(int row) const {
  const Difference& line = comparison_.Differences().at(static_cast<std::size_t>(row));
  return {line.item, line.caption, line.page, line.silent ? Words(TextKey::ProofSilent) : line.other};
}

}  // namespace korva
