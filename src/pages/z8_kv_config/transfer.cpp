#include "pages/z8_kv_config/transfer.h"

#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"
#include "transfer/known_items.h"
#include "transfer/model_check.h"

namespace korva {

namespace {

constexpr std::array kRanges = {
    RangeEnds{.low_key = u"12_0", .high_key = u"12_100", .list = u"$I11", .choice = kRangeItem},
    RangeEnds{.low_key = u"42_0", .high_key = u"42_100", .list = u"$I41", .choice = kSecondOutputTypeItem},
    RangeEnds{.low_key = u"14_0", .high_key = u"14_100", .list = u"$I10", .choice = kTypeItem},
};

constexpr StringView kFirstCorrection = u"34";
constexpr StringView kSecondCorrection = u"35";

}  // namespace

String Z8KvConfigForm::DataOf(int row, const String& cell) const {
  return pairs_.Has(row) ? pairs_.DataOf(row) : KindForm::DataOf(row, cell);
}

bool Z8KvConfigUpload::ConfirmModel() { return ModelChosen(Page()) && ConfirmModelOfDevice(Page()); }

void Z8KvConfigUpload::AfterItemRead(int row) {
  if (pairs_.Has(row)) {
    pairs_.TakeAnswer(row);
  } else if (Page().DataCell(row, kItem) == kFirstCorrection) {
    // The values of a cold junction have a cell each, though they come as one text.
    const PairTexts texts = PairOfAnswer(Page().SetCell(row));
    Page().GroupItem.Set(u"01", String(kFirstCorrection), texts.first);
    Page().GroupItem.Set(u"01", String(kSecondCorrection), texts.second);
  } else {
    TransmitterUpload::AfterItemRead(row);
  }
  // With each item, since an upload that ends early shows what it has read beside the unit that it has read.
  pairs_.ShowInUnit();
}

bool Z8KvConfigCheck::CheckValues() {
  bool good = fields_.CheckTag() && fields_.CheckNumbers();
  for (const RangeEnds& range : kRanges) {
    good = good && CheckRange(range);
  }
  return good;
}

std::optional<FieldRange> Z8KvConfigCheck::RangeOf(int row) const {
  for (const RangeEnds& range : kRanges) {
    if (row == page_.FindDataRow(range.low_key) || row == page_.FindDataRow(range.high_key)) {
      return LimitsOf(range);
    }
  }
  return FieldChecks::RangeOfTag(fields_.ItemOf(row));
}

bool Z8KvConfigCheck::CheckRange(const RangeEnds& range) {
  const std::optional<FieldRange> limits = LimitsOf(range);
  return !limits || CheckEnds(range, *limits);
}

std::optional<FieldRange> Z8KvConfigCheck::LimitsOf(const RangeEnds& range) const {
  const ChoiceList choices = page_.Def.ListOf(range.list);
  const String& chosen = page_.Item(range.choice);
  const int row = chosen.empty() ? -1 : choices.FindText(chosen);
  const int low_row = page_.FindDataRow(range.low_key);
  if (row < 0 || low_row < 0 || page_.SetCell(low_row) == kNeedless) {
    return std::nullopt;
  }
  const auto number = [&](ListColumn column) { return LeadingNumber(choices.Cell(row, column)); };
  const Label* label = page_.UnitLabelOf(low_row);
  const bool temperature = IsTemperatureUnit(choices.Cell(row, &ListColumns::unit));
  const String unit = temperature && label != nullptr ? label->Caption() : String();
  return FieldRange{.low = LowestInUnit(number(&ListColumns::low), unit),
                    .high = HighestInUnit(number(&ListColumns::high), unit),
                    .span = SpanInUnit(number(&ListColumns::span), unit),
                    .lower = page_.FindField(range.low_key),
                    .upper = page_.FindField(range.high_key)};
}

bool Z8KvConfigCheck::CheckEnds(const RangeEnds& range, const FieldRange& limits) {
  const PairTexts ends = SplitPair(page_.SetCell(page_.FindDataRow(range.low_key)));
  const auto within = [&](StringView key, const String& text) {
    const bool good = IsBetween(limits.high, limits.low, LeadingNumber(text));
    page_.SetFieldColor(key, good ? Look::Normal : Look::Bad);
    return good;
  };
  const bool low_good = within(range.low_key, ends.first);
  const bool high_good = within(range.high_key, ends.second);
  if (!low_good || !high_good) {
    return false;
  }
  const String width = FormatMask(LeadingNumber(ends.second) - LeadingNumber(ends.first), u"#0.000");
  const bool wide = AtLeast(LeadingNumber(width), limits.span);
  for (const StringView key : {range.low_key, range.high_key}) {
    page_.SetFieldColor(key, wide ? Look::Normal : Look::Bad);
  }
  return wide;
}

bool Z8KvConfigDownload::ConfirmModel() { return ModelChosen(Page()) && ConfirmModelOfDevice(Page()); }

bool Z8KvConfigDownload::Collate() { return CollateInputType(Page()) && CollateOutputType(Page()); }

}  // namespace korva
