#include "pages/z8_kv_config/item_pairs.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "transfer/conversion.h"
#include "transfer/known_items.h"

namespace korva {

namespace {

constexpr StringView kSentMask = u"#0.000";
constexpr StringView kTypes = u"$I10";
constexpr StringView kUnitList = u"$I21";
constexpr int kUnitItem = 21;
/// The range of the input, whose decimals are those of its type.
constexpr int kInputRange = 0;

/// Rows and labels of two numbers, and how the labels are captioned.
struct PairRows {
  std::array<StringView, 2> keys;
  std::array<std::string_view, 2> labels;
  bool limits = false;
};
constexpr std::array kPairs = {
    PairRows{.keys = {u"14_0", u"14_100"}, .labels = {"lblInputScale0", "lblInputScale100"}},
    PairRows{
        .keys = {u"15_Min", u"15_Max"}, .labels = {"lblInputPropMin", "lblInputPropMax"}, .limits = true},
    PairRows{.keys = {u"12_0", u"12_100"}, .labels = {"lblOut1Scale0", "lblOut1Scale100"}},
    PairRows{.keys = {u"13_Min", u"13_Max"}, .labels = {"lblOut1PropMin", "lblOut1PropMax"}, .limits = true},
    PairRows{.keys = {u"42_0", u"42_100"}, .labels = {"lblOut2Scale0", "lblOut2Scale100"}},
    PairRows{.keys = {u"43_Min", u"43_Max"}, .labels = {"lblOut2PropMin", "lblOut2PropMax"}, .limits = true},
};

template <std::size_t... places>
std::array<Label, sizeof...(places)> MakeLabels(std::index_sequence<places...> /*places*/) {
  return {Label(kPairs.at(places / 2).labels.at(places % 2))...};
}

/// The words of a text, which blanks separate.
std::vector<StringView> WordsOf(StringView text) {
  std::vector<StringView> words;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find(u' '), text.size());
    if (length > 0) {
      words.push_back(text.substr(0, length));
    }
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return words;
}

/// What was typed for one number, less the blanks around it. A blank within it becomes a wide one: the other
/// number begins behind the first blank of the cell.
String AsOneWord(const String& typed) {
  String word = Trimmed(typed);
  std::replace(word.begin(), word.end(), u' ', u'\u3000');
  return word;
}

String Converted(StringView from, StringView to, const String& text) {
  return IsNumeric(text) && from != to && IsTemperatureUnit(from) && IsTemperatureUnit(to)
             ? ShortestText(ConvertTemperature(from, to, LeadingNumber(text)))
             : text;
}

}  // namespace

PairTexts SplitPair(StringView text) {
  const std::size_t blank = text.find(u' ');
  return blank == StringView::npos
             ? PairTexts{.first = String(text), .second = {}}
             : PairTexts{.first = String(text.substr(0, blank)), .second = Trimmed(text.substr(blank))};
}

String JoinPair(const PairTexts& pair) {
  return pair.second.empty() ? pair.first : pair.first + u" " + pair.second;
}

PairTexts PairOfAnswer(StringView answer) {
  std::vector<String> numbers;
  for (const StringView word : WordsOf(answer)) {
    if (String number = TrimNumericText(word); !number.empty()) {
      numbers.push_back(std::move(number));
    }
  }
  numbers.resize(2);
  return {.first = numbers.front(), .second = numbers.back()};
}

ItemPairs::ItemPairs(ParameterPage& page)
    : page_(page), labels_(MakeLabels(std::make_index_sequence<2 * kPairs.size()>())) {
  page_.Add(*this);
  for (Label& label : labels_) {
    page_.Register(label);
  }
}

void ItemPairs::SetCaptions(Language language) {
  constexpr std::array kRangeEnds = {TextKey::AtZeroPercent, TextKey::AtHundredPercent};
  constexpr std::array kLimits = {TextKey::Minimum, TextKey::Maximum};
  for (std::size_t place = 0; place < labels_.size(); ++place) {
    const auto& captions = kPairs.at(place / 2).limits ? kLimits : kRangeEnds;
    labels_.at(place).SetCaption(CaptionText(captions.at(place % 2), language));
  }
}

void ItemPairs::SettleTabs(TabMoment moment) {
  if (moment == TabMoment::FileOpened) {
    read_.clear();
  }
}

void ItemPairs::PageBuilt() {
  for (std::size_t place = 0; place < labels_.size(); ++place) {
    const TextField* field = page_.FindField(kPairs.at(place / 2).keys.at(place % 2));
    labels_.at(place).SetVisible(field != nullptr && field->Visible());
  }
}

ItemPairs::Place ItemPairs::PlaceOf(int row) const {
  const String& key = page_.DataCell(row, kItem);
  const auto* const found = std::find_if(kPairs.begin(), kPairs.end(), [&](const PairRows& pair) {
    return key == pair.keys.front() || key == pair.keys.back();
  });
  return found == kPairs.end()
             ? Place()
             : Place{.pair = static_cast<int>(found - kPairs.begin()), .second = key == found->keys.back()};
}

int ItemPairs::RowOf(int row, bool second) const {
  const Place place = PlaceOf(row);
  return place.pair < 0
             ? -1
             : page_.FindDataRow(kPairs.at(static_cast<std::size_t>(place.pair)).keys.at(second ? 1 : 0));
}

int ItemPairs::CarrierOf(int row) const { return Has(row) ? RowOf(row, false) : row; }

String ItemPairs::TextOf(int row) const {
  const PairTexts texts = SplitPair(page_.SetCell(row));
  return PlaceOf(row).second ? texts.second : texts.first;
}

String ItemPairs::MaskOf(int row) const {
  const int type = PlaceOf(row).pair == kInputRange ? page_.InputTypeRow() : -1;
  const String step = type < 0 ? String() : page_.Def.ListOf(kTypes).Cell(type, &ListColumns::step);
  if (step == u"0.1") {
    return u"0.0";
  }
  return step == u"0.01" ? u"0.00" : u"0.000";
}

std::optional<String> ItemPairs::ShownText(int row) const {
  if (!Has(row)) {
    return std::nullopt;
  }
  const String text = TextOf(row);
  return IsNumeric(text) ? FormatMask(LeadingNumber(text), MaskOf(row)) : text;
}

std::optional<String> ItemPairs::CellOf(int row, const String& text) const {
  if (!Has(row)) {
    return std::nullopt;
  }
  const String& cell = page_.SetCell(row);
  if (cell != kNeedless && text == ShownText(row)) {
    return cell;  // the digits that the field doesn't show stay
  }
  PairTexts texts = cell == kNeedless ? PairTexts() : SplitPair(cell);
  (PlaceOf(row).second ? texts.second : texts.first) = AsOneWord(text);
  return JoinPair(texts);
}

void ItemPairs::Put(int row, const String& text) {
  PairTexts texts = SplitPair(page_.SetCell(row));
  (PlaceOf(row).second ? texts.second : texts.first) = text;
  page_.GroupItem.Set(page_.DataCell(row, kGroup), page_.DataCell(row, kItem), JoinPair(texts));
}

void ItemPairs::Remember(int row, const Number& number) { read_[page_.DataCell(row, kItem)] = number; }

void ItemPairs::TakeAnswer(int row) {
  const String& cell = page_.SetCell(row);
  const PairTexts texts = cell == kNeedless ? PairTexts() : PairOfAnswer(cell);
  if (texts.first.empty() && texts.second.empty()) {
    return;  // a text without a number stays as it is
  }
  page_.GroupItem.Set(page_.DataCell(row, kGroup), page_.DataCell(row, kItem), JoinPair(texts));
  for (const bool second : {false, true}) {
    if (const int one = RowOf(row, second); one >= 0) {
      Remember(one, {.read = TextOf(one), .shown = TextOf(one)});
    }
  }
}

String ItemPairs::UnitOfSet() const {
  const String& unit = page_.Item(kUnitItem);
  const ChoiceList units = page_.Def.ListOf(kUnitList);
  const int coded = units.FindText(unit) < 0 && !unit.empty() ? units.FindCode(unit) : -1;
  return coded < 0 ? unit : units.Text(coded);
}

void ItemPairs::ShowInUnit() {
  const String unit = UnitOfSet();
  for (int row = 0; IsTemperatureUnit(unit) && row < page_.Def.Data().Rows(); ++row) {
    if (Has(row) && page_.DataCell(row, kTemperature) == u"Item21") {
      ChangeUnit(row, unit);
    }
  }
}

void ItemPairs::ChoiceMade(const Choice& choice) {
  if (choice.options != &page_.optTempUnit) {
    return;
  }
  const String unit = page_.optTempUnit[choice.place].Caption();
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (!Has(row) || page_.DataCell(row, kTemperature) != u"Item21" || page_.SetCell(row) == kNeedless) {
      continue;
    }
    ChangeUnit(row, unit);
    if (Label* label = page_.UnitLabelOf(row)) {
      label->SetCaption(unit);
    }
    if (TextField* field = page_.FindField(page_.KeyOf(row))) {
      field->SetText(page_.ShownText(row));
    }
  }
}

void ItemPairs::ChangeUnit(int row, const String& unit) {
  const Number* number = Unedited(row);
  if (number == nullptr) {
    Put(row, Converted(ShownUnitOf(row), unit, TextOf(row)));
    return;
  }
  const Number changed = {.read = number->read, .shown = Converted(kDegC, unit, number->read)};
  Put(row, changed.shown);
  Remember(row, changed);
}

const ItemPairs::Number* ItemPairs::Unedited(int row) const {
  const auto found = read_.find(page_.DataCell(row, kItem));
  return found == read_.end() || found->second.shown != TextOf(row) ? nullptr : &found->second;
}

String ItemPairs::ShownUnitOf(int row) const {
  const Label* label = page_.DataCell(row, kTemperature) == u"Item21" ? page_.UnitLabelOf(row) : nullptr;
  return label == nullptr ? String() : label->Caption();
}

String ItemPairs::DataOf(int row) const {
  if (page_.SetCell(row) == kNeedless) {
    return String(kNeedless);
  }
  const PairTexts data = {.first = DataOfNumber(RowOf(row, false)), .second = DataOfNumber(RowOf(row, true))};
  return data.first.empty() || data.second.empty() ? String() : JoinPair(data);
}

String ItemPairs::DataOfNumber(int row) const {
  if (row < 0) {
    return {};
  }
  const Number* number = Unedited(row);
  if (number != nullptr) {
    return number->read;
  }
  const String text = TextOf(row);
  return text.empty() ? text : FormatMask(LeadingNumber(Converted(ShownUnitOf(row), kDegC, text)), kSentMask);
}

void ItemPairs::BringRange(StringView first_key, StringView list, int row) {
  const int first = page_.FindDataRow(first_key);
  const ChoiceList choices = page_.Def.ListOf(list);
  if (first >= 0) {
    BringOne(first, choices.Cell(row, &ListColumns::preset_low), true);
    BringOne(RowOf(first, true), choices.Cell(row, &ListColumns::preset_high), false);
  }
}

void ItemPairs::BringOne(int row, const String& preset, bool low) {
  if (row < 0 || preset.empty()) {
    return;
  }
  const double limit = LeadingNumber(preset);
  const String unit = ShownUnitOf(row);
  const bool as_it_stands = unit != kDegF && unit != kKelvin;
  Put(row,
      as_it_stands ? preset : ShortestText(low ? LowestInUnit(limit, unit) : HighestInUnit(limit, unit)));
}

}  // namespace korva
