#include "link/keyed_item.h"

#include "core/text_utilities.h"

namespace korva {

namespace {

String Taken(const String& answer) { return TellsRefusal(answer) ? String() : Trimmed(answer); }

}  // namespace

String KeyedItem::Read(const String& key) const {
  return Taken(access_.WriteParamRetry(kItemRepeats, item_, key));
}

bool KeyedItem::Write(const String& key, const String& value) const {
  return !Taken(access_.WriteParamPairRetry(kItemRepeats, item_, value, key)).empty();
}

bool KeyedItem::WriteRow(const String& key_and_row, const String& value) const {
  return !Taken(access_.WriteParamRetry(kItemRepeats, item_, key_and_row + u"D" + value)).empty();
}

bool KeyedItem::Command(const String& command) const {
  return Taken(access_.WriteParamPairRetry(kItemRepeats, item_, {}, command)) == u"OK";
}

String WithoutUnit(StringView answer, StringView unit) {
  const String text = Trimmed(answer);
  return text.ends_with(unit) ? Trimmed(StringView(text).substr(0, text.size() - unit.size())) : text;
}

}  // namespace korva
