#include "sim/parameters.h"

// The ranges of a device whose input and output are chosen freely.

namespace korva::sim {

namespace {

// Columns of the lists of inputs and outputs.
constexpr std::size_t kLow = 2;
constexpr std::size_t kHigh = 3;

bool IsUsersRange(std::string_view type) { return type.starts_with("mV-Z:") || type.starts_with("mV-0:"); }

}  // namespace

/// An end of a range that belongs to the chosen input or output; none for one that is the user's own.
std::optional<std::string> Parameters::FixedEnd(const Item& item) const {
  const bool input = item.item == "14" || item.item == "15";
  const bool output = item.item == "12" || item.item == "13";
  const Item* const choice = Find("01", input ? "10" : "11");
  if (!family_.universal || item.group != "01" || (!input && !output) || choice == nullptr) {
    return std::nullopt;
  }
  const std::string type = RowText(*choice, choice->row);
  if (IsUsersRange(type) || (input && !type.starts_with("mV-"))) {
    return std::nullopt;
  }
  const bool zero = item.item == "14" || item.item == "12";
  return Field(Rows(*choice)[choice->row], zero ? kLow : kHigh);
}

/// Another output has a range of its own.
void Parameters::BringOutputRange(const Item& choice) {
  if (!family_.universal || choice.group != "01" || choice.item != "11") {
    return;
  }
  const auto& row = Rows(choice)[choice.row];
  const auto bring = [this](std::string_view item, const std::string& value) {
    if (Item* const end = Find("01", item)) {
      end->held = value;
    }
  };
  bring("12", Field(row, kLow));
  bring("13", Field(row, kHigh));
}

}  // namespace korva::sim
