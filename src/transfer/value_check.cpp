#include "transfer/value_check.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/program.h"
#include "core/text_utilities.h"
#include "transfer/columns.h"
#include "transfer/transfer_page.h"

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

void TransferPage::CheckCommand() {
  LockFrame();
  if (CheckAllValues()) {
    TransferBar.SetValue(100);
    Box().Show(BoxKey::CheckDone);
  }
  TransferBar.SetValue(0);
  LnrProgressBar.SetValue(0);
  UnlockFrame();
}

bool TransferPage::CheckAllValues() {
  const std::optional<BoxKey> fault = FindFault();
  if (fault) {
    Box().Show(*fault);
  }
  return !fault;
}

bool TransferPage::CheckBlankFields() {
  const int tag = FindTextIndex(u"01", u"02");
  for (int index = 0; index < Text.Count(); ++index) {
    const TextField& field = Text[index];
    if (!field.Visible() || !field.Enabled() || !field.Text().empty()) {
      continue;
    }
    if (index == tag) {
      SetItem(kTagItem, String(kEmptyTag));
    } else if (!field.Locked() && !IsLiveField(index)) {
      return false;
    }
  }
  return true;
}

std::span<const StringView> TransferPage::LiveItems() const {
  static constexpr std::array<StringView, 7> items = {u"03_set", u"03_mon", u"04", u"05",
                                                      u"06",     u"07",     u"08"};
  return items;
}

bool TransferPage::IsLiveField(int index) const {
  const auto items = LiveItems();
  return std::any_of(items.begin(), items.end(), [&](StringView item) {
    const String key(item);
    return FindTextIndex(u"01", key) == index && !IsWritten(FindDataRow(u"01", key));
  });
}

std::optional<BoxKey> TransferPage::FindFault() {
  if (!CheckBlankFields()) {
    return BoxKey::FieldBlank;
  }
  TransferBar.SetValue(5);
  if (!CheckFields() || !CheckModel()) {
    return BoxKey::ValueBad;
  }
  if (TableInUse() && IsTableBlank()) {
    return BoxKey::FieldBlank;
  }
  if (TableInUse() && !CheckTable()) {
    return BoxKey::ValueBad;
  }
  TransferBar.SetValue(10);
  return std::nullopt;
}

bool TransferPage::CheckFields() { return CheckTag() && CheckZeroSpan() && CheckScale(); }

bool TransferPage::TableInUse() const { return LnrTab() >= 0 && KeptTabEnabled(LnrTab()) && LnrActive(); }

String TransferPage::ItemText(int item) { return FormatMask(item, u"00"); }

TextField* TransferPage::FieldOf(int item) { return FindField(ItemText(item)); }

bool TransferPage::Mark(int item, bool good) {
  SetFieldColor(u"01", ItemText(item), good ? Look::Normal : Look::Bad);
  return good;
}

bool TransferPage::CheckTag() {
  const TextField* field = FieldOf(kTagItem);
  if (field == nullptr) {
    return true;
  }
  const String tag = Trimmed(field->Text());
  const CodePage& code_page = ItsProgram().Surroundings().code_page;
  const bool good =
      tag.size() <= kTagLength && std::all_of(tag.begin(), tag.end(), [&](char16_t character) {
        const auto bytes = code_page.Encode(StringView(&character, 1));
        return bytes && bytes->size() == 1 && static_cast<unsigned char>(bytes->front()) <= kHighestTagCode;
      });
  return Mark(kTagItem, good);
}

TransferPage::Limits TransferPage::LimitsOfType(int type) const {
  const StringTable& types = Def[u"$I10"];
  const String& own_unit = types.At(type, kTypeUnit);
  const bool temperature = own_unit.empty() || IsTemperatureUnit(own_unit);
  const String unit = temperature ? UnitOf(kZeroItem) : own_unit;
  Limits limits = {.low = LimitInUnit(LeadingNumber(types.At(type, kTypeLow)), unit),
                   .high = LimitInUnit(LeadingNumber(types.At(type, kTypeHigh)), unit),
                   .span = SpanInUnit(LeadingNumber(types.At(type, kTypeSpan)), unit)};
  if (unit != kDegF && unit != kKelvin) {
    return limits;
  }
  if (Traits().whole_number_limits) {
    limits.low = LeadingNumber(FormatMask(limits.low, u"#0"));
    limits.high = LeadingNumber(FormatMask(limits.high, u"#0"));
  } else {
    limits.low = WholeUp(limits.low);
    limits.high = WholeDown(limits.high);
  }
  return limits;
}

bool TransferPage::CheckZeroSpan() {
  const TextField* zero_field = FieldOf(kZeroItem);
  const TextField* span_field = FieldOf(kSpanItem);
  const int type = InputTypeRow();
  if (zero_field == nullptr || span_field == nullptr || Item(kZeroItem) == kNeedless ||
      Item(kSpanItem) == kNeedless || type < 0) {
    return true;
  }
  const double zero = LeadingNumber(zero_field->Text());
  const double span_end = LeadingNumber(span_field->Text());
  const StringTable& types = Def[u"$I10"];
  if (types.At(type, kTypeLow).empty() && types.At(type, kTypeHigh).empty() &&
      types.At(type, kTypeSpan).empty()) {
    const bool good = !Traits().whole_number_limits || IsGoodWithoutRange(zero, span_end);
    Mark(kZeroItem, good);
    return Mark(kSpanItem, good);
  }
  const Limits limits = LimitsOfType(type);
  if (!AtLeast(zero, limits.low)) {
    return Mark(kZeroItem, false);
  }
  if (!AtLeast(limits.high, span_end)) {
    Mark(kZeroItem, true);
    return Mark(kSpanItem, false);
  }
  const bool good = AtLeast(span_end - zero, limits.span);
  Mark(kZeroItem, good);
  return Mark(kSpanItem, good);
}

bool TransferPage::IsGoodWithoutRange(double zero, double span_end) {
  const double span = span_end - zero;
  return IsBetween(kInputLimit, -kInputLimit, zero) && IsBetween(kInputLimit, -kInputLimit, span_end) &&
         AtLeast(span, kSmallestSpan) && AtLeast(kLargestSpan, span) && AtLeast(3 * span, zero);
}

bool TransferPage::CheckScale() {
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

bool TransferPage::CheckRangeOfType() {
  const int title = TitleIndex(InputTypeRow());
  const String& range = Item(kRangeItem);
  if (FieldOf(kZeroItem) == nullptr || FieldOf(kSpanItem) == nullptr || title < 1 || title > kRangeTitles ||
      range.empty()) {
    return true;
  }
  const StringTable& ranges = Def[u"$I11Body"];
  const int row = ranges.FindRow(title, range);
  if (row < 0) {
    return true;
  }
  const double low = LeadingNumber(ranges.At(row, 2 * title + 2));
  const double high = LeadingNumber(ranges.At(row, 2 * title + 3));
  const std::array<ItemRange, 2> both = {
      {{.item = kZeroItem, .low = low, .high = high}, {.item = kSpanItem, .low = low, .high = high}}};
  return CheckRanges(both, RangeCondition::NoneMissing);
}

bool TransferPage::CheckRange(const ItemRange& range) {
  const TextField* field = FieldOf(range.item);
  if (field == nullptr || !field->Enabled() || Item(range.item) == kNeedless) {
    return true;
  }
  return Mark(range.item, IsBetween(range.high, range.low, LeadingNumber(field->Text())));
}

bool TransferPage::CheckRanges(std::span<const ItemRange> ranges, RangeCondition condition) {
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
    if (Serves(range, DefFile) && !Item(range.item).empty()) {
      good = CheckRange(range) && good;
    }
  }
  return good;
}

bool TransferPage::CheckRangesInOrder(std::span<const ItemRange> ranges) {
  for (const ItemRange& range : ranges) {
    const TextField* field = FieldOf(range.item);
    if (field == nullptr || field->Locked()) {
      return true;
    }
    if (Serves(range, DefFile) && !CheckRange(range)) {
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

bool TransferPage::CheckByModel(const ModelCheck& check) {
  const bool ranges = CheckRanges(check.ranges, check.condition);
  return (check.sensor == nullptr || CheckSensor(*check.sensor)) && ranges;
}

bool TransferPage::CheckSensor(const SensorCheck& check) {
  const TextField* span_field = FieldOf(check.span_item);
  if (span_field == nullptr || FieldOf(check.code_item) == nullptr ||
      FieldOf(check.percent.item) == nullptr) {
    return true;
  }
  bool good = true;
  const StringTable& sensors = Def[check.table];
  const int sensor = Item(kRangeItem).empty() ? -1 : sensors.FindRow(1, Item(kRangeItem));
  if (sensor >= 0) {
    for (const CodeRange& range : check.code_ranges) {
      if (range.code == sensors.At(sensor, 0)) {
        good = CheckRange({.item = check.code_item, .low = range.low, .high = range.high});
      }
    }
    const double highest = check.span_factor * LeadingNumber(sensors.At(sensor, 3));
    good = Mark(check.span_item, AtLeast(highest, LeadingNumber(span_field->Text()))) && good;
  }
  return CheckRange(check.percent) && good;
}

}  // namespace korva
