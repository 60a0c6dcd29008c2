#include "transfer/field_checks.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr std::size_t kTagLength = 10;
constexpr unsigned kHighestTagCode = 225;
constexpr double kScaleLimit = 299.99;
// Inputs in mV or V, without a range of their own.
constexpr double kInputLimit = 10;
constexpr double kSmallestSpan = 0.003;
constexpr double kLargestSpan = 20;

bool Serves(const ItemRange& range, StringView def_file) {
  return range.def_file.empty() || range.def_file == def_file;
}

}  // namespace

String FieldChecks::ItemText(int item) { return FormatMask(item, u"00"); }

TextField* FieldChecks::FieldOf(int item) { return page_.FindField(ItemText(item)); }

bool FieldChecks::Mark(int item, bool good) {
  page_.SetFieldColor(ItemText(item), good ? Look::Normal : Look::Bad);
  return good;
}

String FieldChecks::UnitOf(int item) const {
  const int row = page_.FindDataRow(ItemText(item));
  const Label* label = row < 0 ? nullptr : page_.UnitLabelOf(row);
  return label == nullptr ? String() : label->Caption();
}

bool FieldChecks::CheckTag() {
  const TextField* field = FieldOf(kTagItem);
  if (field == nullptr) {
    return true;
  }
  const String tag = Trimmed(field->Text());
  const CodePage& code_page = page_.ItsProgram().Surroundings().code_page;
  const bool good =
      tag.size() <= kTagLength && std::all_of(tag.begin(), tag.end(), [&](char16_t character) {
        const auto bytes = code_page.Encode(StringView(&character, 1));
        return bytes && bytes->size() == 1 && static_cast<unsigned char>(bytes->front()) <= kHighestTagCode;
      });
  return Mark(kTagItem, good);
}

bool FieldChecks::CheckNumbers() {
  bool good = true;
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (!page_.IsNumberRow(row) || page_.MayBeBlank(row)) {
      continue;
    }
    TextField& field = page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())];
    if (!field.Locked()) {
      const bool number = IsNumeric(field.Text()) || IsNumeric(page_.CellOf(row, field.Text()));
      field.SetLook(number ? Look::Normal : Look::Bad);
      good = good && number;
    }
  }
  return good;
}

FieldChecks::Limits FieldChecks::LimitsOfType(int type, bool whole_numbers) const {
  const ChoiceList types = page_.Def.ListOf(u"$I10");
  const String& own_unit = types.Cell(type, &ListColumns::unit);
  const bool temperature = own_unit.empty() || IsTemperatureUnit(own_unit);
  const String unit = temperature ? UnitOf(kZeroItem) : own_unit;
  Limits limits = {.low = LimitInUnit(LeadingNumber(types.Cell(type, &ListColumns::low)), unit),
                   .high = LimitInUnit(LeadingNumber(types.Cell(type, &ListColumns::high)), unit),
                   .span = SpanInUnit(LeadingNumber(types.Cell(type, &ListColumns::span)), unit)};
  if (unit != kDegF && unit != kKelvin) {
    return limits;
  }
  if (whole_numbers) {
    limits.low = LeadingNumber(FormatMask(limits.low, u"#0"));
    limits.high = LeadingNumber(FormatMask(limits.high, u"#0"));
  } else {
    limits.low = WholeUp(limits.low);
    limits.high = WholeDown(limits.high);
  }
  return limits;
}

bool FieldChecks::CheckZeroSpan(bool whole_numbers) {
  const TextField* zero_field = FieldOf(kZeroItem);
  const TextField* span_field = FieldOf(kSpanItem);
  const int type = page_.InputTypeRow();
  if (zero_field == nullptr || span_field == nullptr || page_.Item(kZeroItem) == kNeedless ||
      page_.Item(kSpanItem) == kNeedless || type < 0) {
    return true;
  }
  const double zero = LeadingNumber(zero_field->Text());
  const double span_end = LeadingNumber(span_field->Text());
  const ChoiceList types = page_.Def.ListOf(u"$I10");
  if (types.Cell(type, &ListColumns::low).empty() && types.Cell(type, &ListColumns::high).empty() &&
      types.Cell(type, &ListColumns::span).empty()) {
    const bool good = !whole_numbers || IsGoodWithoutRange(zero, span_end);
    Mark(kZeroItem, good);
    return Mark(kSpanItem, good);
  }
  return MarkPair(kZeroItem, kSpanItem, LimitsOfType(type, whole_numbers));
}

bool FieldChecks::MarkPair(int low_item, int high_item, const Limits& limits) {
  const double low = LeadingNumber(FieldOf(low_item)->Text());
  const double high = LeadingNumber(FieldOf(high_item)->Text());
  if (!AtLeast(low, limits.low)) {
    return Mark(low_item, false);
  }
  if (!AtLeast(limits.high, high)) {
    Mark(low_item, true);
    return Mark(high_item, false);
  }
  const bool good = AtLeast(high - low, limits.span);
  Mark(low_item, good);
  return Mark(high_item, good);
}

bool FieldChecks::CheckOutputRange(const OutputItems& output) {
  if (FieldOf(output.low) == nullptr || FieldOf(output.high) == nullptr ||
      page_.Item(output.low) == kNeedless || page_.Item(output.high) == kNeedless) {
    return true;
  }
  const ChoiceList outputs = page_.Def.ListOf(output.list);
  const String& type = page_.Item(output.type);
  const int row = type.empty() ? -1 : outputs.FindText(type);
  if (row < 0) {
    return true;
  }
  const auto limit = [&](ListColumn column) { return LeadingNumber(outputs.Cell(row, column)); };
  return MarkPair(output.low, output.high,
                  {.low = limit(&ListColumns::low),
                   .high = limit(&ListColumns::high),
                   .span = limit(&ListColumns::span)});
}

bool FieldChecks::IsGoodWithoutRange(double zero, double span_end) {
  const double span = span_end - zero;
  return IsBetween(kInputLimit, -kInputLimit, zero) && IsBetween(kInputLimit, -kInputLimit, span_end) &&
         AtLeast(span, kSmallestSpan) && AtLeast(kLargestSpan, span) && AtLeast(3 * span, zero);
}

bool FieldChecks::CheckScale() {
  const TextField* low_field = FieldOf(kScaleLowItem);
  const TextField* high_field = FieldOf(kScaleHighItem);
  if (low_field == nullptr || high_field == nullptr || low_field->Text().empty() ||
      high_field->Text().empty()) {
    return true;
  }
  const double low = LeadingNumber(low_field->Text());
  const double high = LeadingNumber(high_field->Text());
  if (high <= low) {
    Mark(kScaleLowItem, false);
    return Mark(kScaleHighItem, false);
  }
  const bool low_good = Mark(kScaleLowItem, IsBetween(kScaleLimit, -kScaleLimit, low));
  const bool high_good = Mark(kScaleHighItem, IsBetween(kScaleLimit, -kScaleLimit, high));
  return low_good && high_good;
}

bool FieldChecks::CheckRangeOfType() {
  const std::optional<ChoiceList> ranges = page_.RangesOfType();
  const String& range = page_.Item(kRangeItem);
  const int row = ranges && !range.empty() ? ranges->FindText(range) : -1;
  if (FieldOf(kZeroItem) == nullptr || FieldOf(kSpanItem) == nullptr || row < 0) {
    return true;
  }
  const double low = LeadingNumber(ranges->Cell(row, &ListColumns::low));
  const double high = LeadingNumber(ranges->Cell(row, &ListColumns::high));
  const std::array<ItemRange, 2> both = {
      {{.item = kZeroItem, .low = low, .high = high}, {.item = kSpanItem, .low = low, .high = high}}};
  return CheckRanges(both, RangeCondition::NoneMissing);
}

bool FieldChecks::CheckRange(const ItemRange& range) {
  const TextField* field = FieldOf(range.item);
  if (field == nullptr || !field->Enabled() || page_.Item(range.item) == kNeedless) {
    return true;
  }
  return Mark(range.item, IsBetween(range.high, range.low, LeadingNumber(field->Text())));
}

bool FieldChecks::CheckRanges(std::span<const ItemRange> ranges, RangeCondition condition) {
  if (condition == RangeCondition::OpenInOrder) {
    return CheckRangesInOrder(ranges);
  }
  for (const ItemRange& range : ranges) {
    const TextField* field = FieldOf(range.item);
    const bool missing = field == nullptr && condition != RangeCondition::NoneLocked;
    const bool locked = field != nullptr && field->Locked() && condition != RangeCondition::NoneMissing;
    if (missing || locked) {
      return true;
    }
  }
  bool good = true;
  for (const ItemRange& range : ranges) {
    if (Serves(range, page_.DefFile) && !page_.Item(range.item).empty()) {
      good = CheckRange(range) && good;
    }
  }
  return good;
}

bool FieldChecks::CheckRangesInOrder(std::span<const ItemRange> ranges) {
  for (const ItemRange& range : ranges) {
    const TextField* field = FieldOf(range.item);
    if (field == nullptr || field->Locked()) {
      return true;
    }
    if (Serves(range, page_.DefFile) && !CheckRange(range)) {
      return false;
    }
  }
  return true;
}

const ModelCheck* FindCheck(std::span<const ModelCheck> checks, StringView def_file) {
  const auto check = std::find_if(checks.begin(), checks.end(), [&](const ModelCheck& one) {
    return one.beginning ? def_file.starts_with(one.def_file) : def_file == one.def_file;
  });
  return check == checks.end() ? nullptr : &*check;
}

bool FieldChecks::CheckByModel(const ModelCheck& check) {
  const bool ranges = CheckRanges(check.ranges, check.condition);
  return (check.sensor == nullptr || CheckSensor(*check.sensor)) && ranges;
}

bool FieldChecks::CheckSensor(const SensorCheck& check) {
  const TextField* span_field = FieldOf(check.span_item);
  if (span_field == nullptr || FieldOf(check.code_item) == nullptr ||
      FieldOf(check.percent.item) == nullptr) {
    return true;
  }
  bool good = true;
  const ChoiceList sensors = page_.Def.ListOf(check.table);
  const int sensor = page_.Item(kRangeItem).empty() ? -1 : sensors.FindText(page_.Item(kRangeItem));
  if (sensor >= 0) {
    for (const CodeRange& range : check.code_ranges) {
      if (range.code == sensors.Code(sensor)) {
        good = CheckRange({.item = check.code_item, .low = range.low, .high = range.high});
      }
    }
    const double highest = check.span_factor * LeadingNumber(sensors.Cell(sensor, &ListColumns::span_base));
    good = Mark(check.span_item, AtLeast(highest, LeadingNumber(span_field->Text()))) && good;
  }
  return CheckRange(check.percent) && good;
}

}  // namespace korva
