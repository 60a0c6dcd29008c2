#include "companions/comparison.h"

#include <string>

#include "core/text_utilities.h"

namespace korva {

namespace {

/// What stands in the place of the other value; empty where there is one.
String WhyNone(const Difference& line, const Panel& panel) {
  if (line.silent) {
    return panel.Words(TextKey::ProofSilent);
  }
  return line.untold ? panel.Words(TextKey::ProofRefused) : String();
}

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
  const String none = WhyNone(line, *this);
  return {line.item, line.caption, line.page, none.empty() ? line.other : none};
}

}  // namespace korva
