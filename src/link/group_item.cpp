#include "link/group_item.h"

#include <algorithm>
#include <array>

#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kRefused = u"CNG";
constexpr StringView kNotUsable = u"CNU";
constexpr StringView kEmptyTag = u"TG:          ";

constexpr std::array<StringView, 14> kFixedItemNames = {
    u"maintenance sw",      u"Maintenance SW",   u"Status 1",        u"Status",        u"Sensor Comp.",
    u"unit frequency",      u"prms initializer", u"Linearize Table", u"TC Table",      u"RTD Table",
    u"Linearization Table", u"Output Mode",      u"Output Trim",     u"Output Up/Down"};

String Command(char16_t letter, const String& text) { return letter + text + u'\r'; }

bool StopsWrite(const String& reply) { return reply.empty() || reply == kNotUsable || reply == kRefused; }

String WithoutFirst(const String& reply) { return reply.substr(1); }

// `count` + 1 tries at most, until one gives a text.
template <typename Try>
String FirstText(int count, Try attempt) {
  String text;
  for (int i = 0; i <= count && text.empty(); ++i) {
    text = attempt();
  }
  return text;
}

}  // namespace

String CokDialect::ReadItem(const WireItem& item) {
  if (link_.SendCommandTrimmed(Command(u'G', item.group)) != u"COK") {
    return {};
  }
  const String reply = link_.SendCommandTrimmed(Command(u'I', item.item));
  if (reply.empty()) {
    return {};
  }
  if (reply == kRefused) {
    return u"ERROR";
  }
  return reply == kNotUsable ? String(u"NEEDLESS") : WithoutFirst(reply);
}

String CokDialect::WriteItem(const WireItem& item, const String& data) {
  String reply = link_.SendCommandTrimmed(Command(u'G', item.group));
  if (reply != u"COK") {
    shared_.LastItemReply = reply;
    return {};
  }
  reply = link_.SendCommandTrimmed(Command(u'I', item.item));
  if (!StopsWrite(reply)) {
    reply = link_.SendCommandTrimmed(Command(u'D', data));
  }
  if (StopsWrite(reply)) {
    shared_.LastItemReply = reply;
    return {};
  }
  return WithoutFirst(reply);
}

String CokDialect::ReadItemRetry(int count, const WireItem& item) {
  return FirstText(count, [&] { return Trimmed(ReadItem(item)); });
}

String CokDialect::WriteItemRetry(int count, const WireItem& item, const String& data) {
  return FirstText(count, [&] {
    const String echo = WriteItem(item, data);
    return echo == kEmptyTag ? echo : Trimmed(echo);
  });
}

bool EnterItemDialect::SelectItem(const WireItem& item) {
  const String reply = link_.SendCommandStripped(Command(u'G', item.group));
  if (reply != u"Enter item" && reply != u"enter item") {
    return false;
  }
  String title = link_.SendCommandStripped(Command(u'I', item.item));
  if (StringView(title).substr(0, title.empty() ? 0 : title.size() - 1).ends_with(u"Type")) {
    title.pop_back();
  }
  return IsKnownItemName(title);
}

bool EnterItemDialect::IsKnownItemName(const String& name) const {
  const auto among = [&name](const auto& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  return !name.empty() && (among(kFixedItemNames) || among(shared_.KnownItemNames));
}

String EnterItemDialect::ReadParam(const WireItem& item) {
  return SelectItem(item) ? link_.SendCommandStripped(u"D\r") : String();
}

String EnterItemDialect::WriteParam(const WireItem& item, const String& data) {
  return SelectItem(item) ? link_.SendCommandStripped(Command(u'D', data)) : String();
}

String EnterItemDialect::WriteParamPair(const WireItem& item, const String& tail, const String& head) {
  return WriteParam(item, head + tail);
}

String EnterItemDialect::ReadParamRetry(int count, const WireItem& item) {
  return FirstText(count, [&] { return ReadParam(item); });
}

String EnterItemDialect::WriteParamRetry(int count, const WireItem& item, const String& data) {
  return FirstText(count, [&] { return WriteParam(item, data); });
}

String EnterItemDialect::WriteParamPairRetry(int count, const WireItem& item, const String& tail,
                                             const String& head) {
  return FirstText(count, [&] { return WriteParamPair(item, tail, head); });
}

String EnterItemDialect::ReadItemName(const WireItem& item) {
  if (link_.SendCommandStripped(Command(u'G', item.group)) != u"enter item") {
    return {};
  }
  return link_.SendCommandStripped(Command(u'I', item.item));
}

String EnterItemDialect::ReadItemNameRetry(int count, const WireItem& item) {
  return FirstText(count, [&] { return Trimmed(ReadItemName(item)); });
}

}  // namespace korva
