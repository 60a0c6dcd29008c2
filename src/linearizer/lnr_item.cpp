#include "linearizer/lnr_item.h"

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"

namespace korva {

namespace {

constexpr std::size_t kHead = 6;  ///< "X(05):", before each value
constexpr double kDeviceRounding = 0.01;
constexpr StringView kLongGroup = u"02";

String WriteLnrItem(const ParameterPage& page, const WireItem& item, const String& data) {
  // A device that can't be read in the long table's first group has no such table and is sent nothing.
  if (page.Items().ReadRetry(kItemRepeats, item).empty() && item.group == kLongGroup) {
    return {};
  }
  return page.Items().WriteRetry(kItemRepeats, item, data);
}

}  // namespace

WireItem WireOfPoint(const PointPlace& place) {
  return {.group = FormatMask(place.group, u"00"), .item = FormatMask(place.item, u"00")};
}

String LnrValueOf(const String& reply) {
  return reply.size() <= kHead || reply == kNeedless ? String() : Trimmed(reply.substr(kHead));
}

bool LnrValueMatches(const String& sent, const String& value) {
  if (!IsNumeric(sent) || NumericLength(value) == 0) {
    return false;
  }
  const double number = LeadingNumber(sent);
  const double reported = LeadingNumber(value);
  return AtLeast(reported, number - kDeviceRounding) && AtLeast(number + kDeviceRounding, reported);
}

bool LnrReplyMatches(const String& sent, const String& reply) {
  return LnrValueMatches(sent, LnrValueOf(reply));
}

bool WriteLnrValue(const ParameterPage& page, const PointPlace& place) {
  const WireItem wire = WireOfPoint(place);
  // What was checked is what is sent: not the unit that a user typed behind a number.
  const String cell = ValueFromLnrCell(page.GroupItem.At(place.group, place.item));
  const String data = cell.empty() ? String(u"0") : cell;
  String reply = WriteLnrItem(page, wire, data);
  const bool echoed = !reply.empty();
  if (!echoed) {
    reply = page.Items().ReadRetry(kItemRepeats, wire);
  }
  const bool good = LnrReplyMatches(data, reply);
  const Evidence proved = echoed ? Evidence::Compared : Evidence::ReadBack;
  page.TellSent({.what = TextKey::Linearizer, .item = wire, .sent = data}, reply,
                good ? proved : Evidence::Differs);
  return good;
}

}  // namespace korva
