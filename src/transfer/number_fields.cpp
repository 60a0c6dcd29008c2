#include "transfer/number_fields.h"

#include <utility>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kBetween = u"、";

void Append(String& list, const String& name) {
  list.append(list.empty() ? StringView() : kBetween).append(name);
}

}  // namespace

NumberFields::NumberFields(ParameterPage& page, DataOf data_of) : page_(page), data_of_(std::move(data_of)) {
  page_.Add(*this);
}

void NumberFields::Judge() {
  String list;
  for (int row = 0; row < page_.Def.Data().Rows(); ++row) {
    if (!page_.IsNumberRow(row)) {
      continue;
    }
    TextField& field = page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())];
    const String text = Trimmed(field.Text());
    const bool plain = IsPlainDecimal(text) || IsPlainDecimal(page_.CellOf(row, text));
    const String data = text.empty() || plain ? String() : data_of_(row);
    field.SetMarked(!data.empty());
    if (!data.empty()) {
      Append(list, NameOf(row, data));
    }
  }
  page_.Notes.Tell(Notice::NotPlain, list.empty() ? list : page_.Words(TextKey::NotPlain) + list);
}

void NumberFields::BeginSending() {
  sent_.clear();
  page_.Notes.Tell(Notice::SentAsTyped, {});
}

void NumberFields::Sent(int row, const String& data) {
  if (page_.IsNumberRow(row) && page_.Text[page_.Place(row, kTextIndex, page_.Text.Count())].Marked()) {
    Append(sent_, NameOf(row, data));
    page_.Notes.Tell(Notice::SentAsTyped, page_.Words(TextKey::SentAsTyped) + sent_);
  }
}

String NumberFields::NameOf(int row, const String& data) const {
  return u"Item " + page_.DataCell(row, kItem) + u"「" + data + u"」";
}

}  // namespace korva
