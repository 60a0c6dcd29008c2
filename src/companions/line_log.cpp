#include "companions/line_log.h"

#include "core/text_utilities.h"

namespace korva {

namespace {

String NameOfControl(char16_t character) {
  if (character == u'\r') {
    return u"<CR>";
  }
  if (character == u'\n') {
    return u"<LF>";
  }
  constexpr StringView kDigits = u"0123456789ABCDEF";
  return {u'<', kDigits[character / kDigits.size()], kDigits[character % kDigits.size()], u'>'};
}

bool IsControl(char16_t character) { return character < u' ' || (character >= 0x7F && character < 0xA0); }

}  // namespace

void LineLog::Add(Clock time, const SerialLink::Traffic& traffic) {
  if (static_cast<int>(lines_.size()) < kMost) {
    lines_.emplace_back();
  }
  Line& line = lines_[PlaceOf(end_)];
  line.time = time;
  line.traffic = traffic;
  ++end_;
}

String WithVisibleControls(StringView text) {
  String visible;
  visible.reserve(text.size());
  for (const char16_t character : text) {
    visible += IsControl(character) ? NameOfControl(character) : String(1, character);
  }
  return visible;
}

}  // namespace korva
