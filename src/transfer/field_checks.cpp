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
constexpr StringView kTypes = u"$I10";
// Inputs in mV or V, without a range of their own.
constexpr FieldRange kInputRange = {.low = -10, .high = 10, .span = 0.003, .suppression = 3};
constexpr double kLargestSpan = 20;

bool Serves(const ItemRange& range, StringView def_file) {
  return range.def_file.empty() || range.def_file == def_file;
}

}  // namespace

int FieldChecks::ItemOf(int row) const {
  const String& key = page_.DataCell(row, kItem);
  const auto is_digit = [](char16_t character) { return character >= u'0' && character <= u'9'; };
  const bool plain = key.size() == 2 && is_digit(key[0]) && is_digit(key[1]);
  return plain && page_.DataCell(row, kGroup) == u"01" ? 10 * (key[0] - u'0') + (key[1] - u'0') : -1;
}

String FieldChecks::ItemText(int item) {
  const auto digit = [](int number) { return static_cast<char16_t>(u'0' + number); };
  return {digit(item / 10), digit(item % 10)};
}

TextField* FieldChecks::FieldOf(int item) const {
  // Asked again and again for every field of a page that comes up.
  std::optional<TextField*>& field = fields_.at(static_cast<std::size_t>(item));
  if (!field) {
    field = page_.FindField(ItemText(item));
  }
  return *field;
}

bool FieldChecks::Mark(int item, bool good) {
  page_.SetFieldColor(ItemText(item), good ? Look::Normal : Look::Bad);
  return good;
}

String FieldChecks::UnitOfItem(int item) const {
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

std::optional<FieldRange> FieldChecks::RangeOfTag(int item) {
  return item == kTagItem ? std::optional(FieldRange{.length = static_cast<int>(kTagLength)}) : std::nullopt;
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

FieldRange FieldChecks::LimitsOfType(int type, bool whole_numbers) const {
  const ChoiceList types = page_.Def.ListOf(kTypes);
  const String& own_unit = types.Cell(type, &ListColumns::unit);
  const bool temperature = own_unit.empty() || IsTemperatureUnit(own_unit);
  const String unit = temperature ? UnitOfItem(kZeroItem) : own_unit;
  FieldRange limits = {.low = LimitInUnit(LeadingNumber(types.Cell(type, &ListColumns::low)), unit),
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

bool FieldChecks::HasPair(int low_item, int high_item) const {
  return FieldOf(low_item) != nullptr && FieldOf(high_item) != nullptr && page_.Item(low_item) != kNeedless &&
         page_.Item(high_item) != kNeedless;
}

bool FieldChecks::LimitsType(int type) const {
  const ChoiceList types = page_.Def.ListOf(kTypes);
  return !types.Cell(type, &ListColumns::low).empty() || !types.Cell(type, &ListColumns::high).empty() ||
         !types.Cell(type, &ListColumns::span).empty();
}

bool FieldChecks::CheckZeroSpan(bool whole_numbers) {
  const int type = page_.InputTypeRow();
  if (!HasPair(kZeroItem, kSpanItem) || type < 0) {
    return true;
  }
  if (!LimitsType(type)) {
    const bool good = !whole_numbers || IsGoodWithoutRange(LeadingNumber(FieldOf(kZeroItem)->Text()),
                                                           LeadingNumber(FieldOf(kSpanItem)->Text()));
    Mark(kZeroItem, good);
    return Mark(kSpanItem, good);
  }
  return MarkPair(kZeroItem, kSpanItem, LimitsOfType(type, whole_numbers));
}

std::optional<FieldRange> FieldChecks::RangeOfZeroSpan(int item, bool whole_numbers) const {
  const bool end = item == kZeroItem || item == kSpanItem;
  const int type = end && HasPair(kZeroItem, kSpanItem) ? page_.InputTypeRow() : -1;
  if (type < 0) {
    return std::nullopt;
  }
  if (LimitsType(type)) {
    return OfPair(LimitsOfType(type, whole_numbers), kZeroItem, kSpanItem);
  }
  return whole_numbers ? std::optional(OfPair(kInputRange, kZeroItem, kSpanItem)) : std::nullopt;
}

FieldRange FieldChecks::OfPair(FieldRange range, int low_item, int high_item) const {
  range.lower = FieldOf(low_item);
  range.upper = FieldOf(high_item);
  return range;
}

bool FieldChecks::MarkPair(int low_item, int high_item, const FieldRange& limits) {
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

std::optional<FieldRange> FieldChecks::LimitsOfOutput(const OutputItems& output) const {
  if (!HasPair(output.low, output.high)) {
    return std::nullopt;
  }
  const ChoiceList outputs = page_.Def.ListOf(output.list);
  const String& type = page_.Item(output.type);
  const int row = type.empty() ? -1 : outputs.FindText(type);
  if (row < 0) {
    return std::nullopt;
  }
  const auto limit = [&](ListColumn column) { return LeadingNumber(outputs.Cell(row, column)); };
  return OfPair(
      {.low = limit(&ListColumns::low), .high = limit(&ListColumns::high), .span = limit(&ListColumns::span)},
      output.low, output.high);
}

bool FieldChecks::CheckOutputRange(const OutputItems& output) {
  const std::optional<FieldRange> limits = LimitsOfOutput(output);
  return !limits || MarkPair(output.low, output.high, *limits);
}

std::optional<FieldRange> FieldChecks::RangeOfOutput(int item, const OutputItems& output) const {
  return item == output.low || item == output.high ? LimitsOfOutput(output) : std::nullopt;
}

bool FieldChecks::IsGoodWithoutRange(double zero, double span_end) {
  const double span = span_end - zero;
  return IsBetween(kInputRange.high, kInputRange.low, zero) &&
         IsBetween(kInputRange.high, kInputRange.low, span_end) && AtLeast(span, kInputRange.span) &&
         AtLeast(kLargestSpan, span) && AtLeast(kInputRange.suppression * span, zero);
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

std::optional<FieldRange> FieldChecks::RangeOfScale(int item) const {
  const bool end = item == kScaleLowItem || item == kScaleHighItem;
  if (!end || FieldOf(kScaleLowItem) == nullptr || FieldOf(kScaleHighItem) == nullptr) {
    return std::nullopt;
  }
  return OfPair({.low = -kScaleLimit, .high = kScaleLimit, .rises = true}, kScaleLowItem, kScaleHighItem);
}

std::optional<FieldRange> FieldChecks::LimitsOfRange() const {
  const std::optional<ChoiceList> ranges = page_.RangesOfType();
  const String& range = page_.Item(kRangeItem);
  const int row = ranges && !range.empty() ? ranges->FindText(range) : -1;
  if (FieldOf(kZeroItem) == nullptr || FieldOf(kSpanItem) == nullptr || row < 0) {
    return std::nullopt;
  }
  return FieldRange{.low = LeadingNumber(ranges->Cell(row, &ListColumns::low)),
                    .high = LeadingNumber(ranges->Cell(row, &ListColumns::high))};
}

bool FieldChecks::CheckRangeOfType() {
  const std::optional<FieldRange> limits = LimitsOfRange();
  if (!limits) {
    return true;
  }
  const std::array<ItemRange, 2> both = {{{.item = kZeroItem, .low = limits->low, .high = limits->high},
                                          {.item = kSpanItem, .low = limits->low, .high = limits->high}}};
  return CheckRanges(both, RangeCondition::NoneMissing);
}

std::optional<FieldRange> FieldChecks::RangeOfType(int item) const {
  const bool end = item == kZeroItem || item == kSpanItem;
  return end && Judges({.item = item}) ? LimitsOfRange() : std::nullopt;
}

bool FieldChecks::Judges(const ItemRange& range) const {
  const TextField* field = FieldOf(range.item);
  return field != nullptr && field->Enabled() && page_.Item(range.item) != kNeedless;
}

bool FieldChecks::CheckRange(const ItemRange& range) {
  return !Judges(range) ||
         Mark(range.item, IsBetween(range.high, range.low, LeadingNumber(FieldOf(range.item)->Text())));
}

std::span<const ItemRange> FieldChecks::Asked(std::span<const ItemRange> ranges,
                                              RangeCondition condition) const {
  const auto closed = std::find_if(ranges.begin(), ranges.end(), [&](const ItemRange& range) {
    const TextField* field = FieldOf(range.item);
    const bool missing = field == nullptr && condition != RangeCondition::NoneLocked;
    const bool locked = field != nullptr && field->Locked() && condition != RangeCondition::NoneMissing;
    return missing || locked;
  });
  if (condition == RangeCondition::OpenInOrder) {
    return ranges.first(static_cast<std::size_t>(closed - ranges.begin()));
  }
  return closed == ranges.end() ? ranges : std::span<const ItemRange>();
}

bool FieldChecks::CheckRanges(std::span<const ItemRange> ranges, RangeCondition condition) {
  const bool in_order = condition == RangeCondition::OpenInOrder;
  bool good = true;
  for (const ItemRange& range : Asked(ranges, condition)) {
    if (Serves(range, page_.DefFile) && (in_order || !page_.Item(range.item).empty())) {
      good = CheckRange(range) && good;
    }
    if (in_order && !good) {
      break;
    }
  }
  return good;
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

std::optional<FieldRange> FieldChecks::RangeByModel(int item, const ModelCheck& check) const {
  const auto own = std::find_if(check.ranges.begin(), check.ranges.end(), [&](const ItemRange& range) {
    return range.item == item && Serves(range, page_.DefFile);
  });
  const bool judged = own != check.ranges.end() && Judges(*own) &&
                      own - check.ranges.begin() < std::ssize(Asked(check.ranges, check.condition));
  const auto range = judged ? std::optional(FieldRange{.low = own->low, .high = own->high}) : std::nullopt;
  return check.sensor == nullptr ? range : Narrowed(range, RangeOfSensor(item, *check.sensor));
}

bool FieldChecks::HasFields(const SensorCheck& check) const {
  return FieldOf(check.span_item) != nullptr && FieldOf(check.code_item) != nullptr &&
         FieldOf(check.percent.item) != nullptr;
}

int FieldChecks::SensorRow(const SensorCheck& check) const {
  const String& chosen = page_.Item(kRangeItem);
  return chosen.empty() ? -1 : page_.Def.ListOf(check.table).FindText(chosen);
}

std::optional<ItemRange> FieldChecks::CodeRangeOf(const SensorCheck& check) const {
  const int sensor = SensorRow(check);
  const String code = sensor < 0 ? String() : page_.Def.ListOf(check.table).Code(sensor);
  const auto range = std::find_if(check.code_ranges.begin(), check.code_ranges.end(),
                                  [&](const CodeRange& one) { return sensor >= 0 && one.code == code; });
  return range == check.code_ranges.end()
             ? std::nullopt
             : std::optional(ItemRange{.item = check.code_item, .low = range->low, .high = range->high});
}

std::optional<double> FieldChecks::HighestSpan(const SensorCheck& check) const {
  const int sensor = SensorRow(check);
  if (sensor < 0) {
    return std::nullopt;
  }
  const String& base = page_.Def.ListOf(check.table).Cell(sensor, &ListColumns::span_base);
  return check.span_factor * LeadingNumber(base);
}

bool FieldChecks::CheckSensor(const SensorCheck& check) {
  if (!HasFields(check)) {
    return true;
  }
  const std::optional<ItemRange> codes = CodeRangeOf(check);
  bool good = !codes || CheckRange(*codes);
  if (const std::optional<double> highest = HighestSpan(check)) {
    const double span = LeadingNumber(FieldOf(check.span_item)->Text());
    good = Mark(check.span_item, AtLeast(*highest, span)) && good;
  }
  return CheckRange(check.percent) && good;
}

std::optional<FieldRange> FieldChecks::RangeOfSensor(int item, const SensorCheck& check) const {
  const bool own = item == check.span_item || item == check.code_item || item == check.percent.item;
  if (!own || !HasFields(check)) {
    return std::nullopt;
  }
  if (item == check.span_item) {
    const std::optional<double> highest = HighestSpan(check);
    return highest ? std::optional(FieldRange{.high = *highest}) : std::nullopt;
  }
  const std::optional<ItemRange> range = item == check.code_item ? CodeRangeOf(check) : check.percent;
  return range && range->item == item && Judges(*range)
             ? std::optional(FieldRange{.low = range->low, .high = range->high})
             : std::nullopt;
}

}  // namespace korva
