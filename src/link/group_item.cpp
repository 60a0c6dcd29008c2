#include "link/group_item.h"

#include <algorithm>
#include <array>

#include "core/numbers.h"
#include "core/text_utilities.h"

namespace korva {

namespace {

constexpr StringView kAccepted = u"COK";
constexpr StringView kRefused = u"CNG";
constexpr StringView kNotUsable = u"CNU";
constexpr StringView kEmptyTag = u"TG:          ";

constexpr std::array<StringView, 14> kFixedItemNames = {
    u"maintenance sw",      u"Maintenance SW",   u"Status 1",        u"Status",        u"Sensor Comp.",
    u"unit frequency",      u"prms initializer", u"Linearize Table", u"TC Table",      u"RTD Table",
    u"Linearization Table", u"Output Mode",      u"Output Trim",     u"Output Up/Down"};

String Command(char16_t letter, const String& text) { return letter + text + u'\r'; }

String WithoutFirst(const String& reply) { return reply.substr(1); }

bool IsRefusal(StringView reply) { return reply == kRefused || reply == kNotUsable; }

bool IsMenu(StringView reply) { return reply == u"Enter item" || reply == u"enter item"; }

/// True for a reply that can be an item's data: it has the letter of one, and nothing that no device sends,
/// such as the line end between two replies that came in one piece.
bool IsData(const String& reply) {
  const auto unsent = [](char16_t character) {
    return character < u' ' || (character >= 0x7F && character < 0xA0) || character == u'\uFFFD';
  };
  return !reply.empty() && reply.front() == u'D' && std::none_of(reply.begin(), reply.end(), unsent);
}

/// `own`, which tells whether `reply` can be its command's own. One that can't shows that the line is out of
/// step; the lack of one shows nothing.
bool Accept(SerialLink& link, const String& reply, bool own) {
  if (!own && !reply.empty()) {
    link.LoseStep();
  }
  return own;
}

/// The number at the end of a reply, whatever unit stands behind it. Empty when there is none, and for the
/// text of a choice such as "4-20 mA".
String NumberOf(StringView reply) {
  const std::size_t last = reply.find_last_of(u"0123456789");
  const StringView text = reply.substr(0, last == StringView::npos ? 0 : last + 1);
  const String number = TrimNumericTextLeft(text);
  const StringView before = text.substr(0, text.size() - number.size());
  return !before.empty() && before.back() >= u'0' && before.back() <= u'9' ? String() : number;
}

/// True when a reply to the write of `data` tells another number than was sent.
bool TellsAnother(const String& reply, const String& data) {
  const String number = NumberOf(reply);
  return !number.empty() && !reply.ends_with(data) && LeadingNumber(number) != LeadingNumber(data);
}

// `count` + 1 tries at most, until one gives a text.
template <typename Try>
String FirstText(SerialLink& link, const WireItem& item, int count, Try attempt) {
  String text;
  for (int i = 0; i <= count && text.empty(); ++i) {
    link.Announce(
        SerialLink::Purpose{.group = item.group, .item = item.item, .attempt = i + 1, .tries = count + 1});
    text = attempt();
  }
  link.Announce(std::nullopt);
  return text;
}

}  // namespace

bool TellsRefusal(StringView answer) {
  const String text = Trimmed(answer);
  return text == u"invalid data" || text == u"not usable";
}

String CokDialect::ReadItem(const WireItem& item) {
  if (!SelectGroup(item)) {
    return {};
  }
  const String reply = link_.SendCommandTrimmed(Command(u'I', item.item));
  if (reply == kRefused) {
    return u"ERROR";
  }
  if (reply == kNotUsable) {
    return u"NEEDLESS";
  }
  return Accept(link_, reply, IsData(reply)) ? WithoutFirst(reply) : String();
}

bool CokDialect::SelectGroup(const WireItem& item) {
  last_reply_ = link_.SendCommandTrimmed(Command(u'G', item.group));
  return Accept(link_, last_reply_, last_reply_ == kAccepted);
}

bool CokDialect::Send(const String& command, Echo echo) {
  last_reply_ = link_.SendCommandTrimmed(command);
  const bool any = echo == Echo::AnyText && !last_reply_.empty() && last_reply_ != kAccepted;
  return !IsRefusal(last_reply_) && Accept(link_, last_reply_, any || IsData(last_reply_));
}

String CokDialect::Write(const WireItem& item, const String& data, Echo echo) {
  if (SelectGroup(item) && Send(Command(u'I', item.item), Echo::Data)) {
    const String held = last_reply_;
    const bool taken = Send(Command(u'D', data), echo);
    // The same reply twice: a device that makes of the data what it held, or the former reply sent twice.
    const bool doubtful = last_reply_ == held && TellsAnother(last_reply_, data);
    if (taken && !(doubtful && link_.Drain())) {
      return WithoutFirst(last_reply_);
    }
  }
  shared_.LastItemReply = last_reply_;
  return {};
}

String CokDialect::ReadItemRetry(int count, const WireItem& item) {
  return FirstText(link_, item, count, [&] { return Trimmed(ReadItem(item)); });
}

String CokDialect::WriteItemRetry(int count, const WireItem& item, const String& data) {
  return FirstText(link_, item, count, [&] {
    const String echo = WriteItem(item, data);
    return echo == kEmptyTag ? echo : Trimmed(echo);
  });
}

String CokDialect::WriteModeRetry(int count, const WireItem& item, const String& data) {
  return FirstText(link_, item, count, [&] { return Trimmed(Write(item, data, Echo::AnyText)); });
}

bool EnterItemDialect::SelectItem(const WireItem& item) {
  const String reply = link_.SendCommandStripped(Command(u'G', item.group));
  if (!Accept(link_, reply, IsMenu(reply))) {
    return false;
  }
  title_reply_ = link_.SendCommandUntrimmed(Command(u'I', item.item));
  String title = SerialLink::StrippedReply(title_reply_);
  if (StringView(title).substr(0, title.empty() ? 0 : title.size() - 1).ends_with(u"Type")) {
    title.pop_back();
  }
  return Accept(link_, title, IsKnownItemName(title));
}

bool EnterItemDialect::IsKnownItemName(const String& name) const {
  const auto among = [&name](const auto& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  };
  return !name.empty() && (among(kFixedItemNames) || among(shared_.KnownItemNames));
}

String EnterItemDialect::Send(const WireItem& item, const String& data, Echo echo) {
  if (!SelectItem(item)) {
    return {};
  }
  const String reply = link_.SendCommandUntrimmed(Command(u'D', data));
  if (IsRefusal(Trimmed(reply))) {
    return Trimmed(reply);
  }
  const bool any = echo == Echo::AnyText && !reply.empty();
  const bool own = any || (IsData(reply) && !IsMenu(SerialLink::StrippedReply(reply)));
  // The title again: data that reads like it, or the former reply sent twice.
  return Accept(link_, reply, own) && !(reply == title_reply_ && link_.Drain()) ? reply : String();
}

String EnterItemDialect::ReadParam(const WireItem& item) {
  const String reply = Send(item, {}, Echo::Data);
  if (reply == kRefused) {
    return u"ERROR";
  }
  return reply == kNotUsable ? String(u"NEEDLESS") : SerialLink::StrippedReply(reply);
}

String EnterItemDialect::WriteParam(const WireItem& item, const String& data) {
  const String reply = Send(item, data, Echo::Data);
  return IsRefusal(reply) ? String() : SerialLink::StrippedReply(reply);
}

String EnterItemDialect::WriteParamPair(const WireItem& item, const String& tail, const String& head) {
  return WriteParam(item, head + tail);
}

String EnterItemDialect::ReadParamRetry(int count, const WireItem& item, StringView not_ready) {
  return FirstText(link_, item, count, [&] {
    const String text = ReadParam(item);
    return text == not_ready ? String() : text;
  });
}

String EnterItemDialect::WriteParamRetry(int count, const WireItem& item, const String& data) {
  return FirstText(link_, item, count, [&] { return WriteParam(item, data); });
}

String EnterItemDialect::WriteModeRetry(int count, const WireItem& item, const String& data) {
  return FirstText(link_, item, count,
                   [&] { return SerialLink::StrippedReply(Send(item, data, Echo::AnyText)); });
}

String EnterItemDialect::WriteParamPairRetry(int count, const WireItem& item, const String& tail,
                                             const String& head) {
  return FirstText(link_, item, count, [&] { return WriteParamPair(item, tail, head); });
}

String EnterItemDialect::ReadItemName(const WireItem& item) {
  const String reply = link_.SendCommandStripped(Command(u'G', item.group));
  if (!Accept(link_, reply, IsMenu(reply)) || reply != u"enter item") {
    return {};
  }
  const String name = link_.SendCommandStripped(Command(u'I', item.item));
  return Accept(link_, name, !IsMenu(name)) ? name : String();
}

String EnterItemDialect::ReadItemNameRetry(int count, const WireItem& item) {
  return FirstText(link_, item, count, [&] { return Trimmed(ReadItemName(item)); });
}

}  // namespace korva
