#include "linearizer/table_exchange.h"

#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"
#include "linearizer/lnr_item.h"

namespace korva {

namespace {

constexpr StringView kShownMask = u"0.00";
constexpr StringView kFractionMask = u"0.0000";

String Digits(int number) { return Ascii(std::to_string(number)); }

/// The two texts of a reply that a blank separates, the second without what may follow it.
struct TwoWords {
  String first;
  String second;
};
TwoWords WordsOf(const String& reply) {
  const String text = Trimmed(reply);
  const std::size_t blank = text.find(u' ');
  if (blank == String::npos) {
    return {.first = text, .second = {}};
  }
  const String rest = Trimmed(text.substr(blank));
  return {.first = text.substr(0, blank), .second = rest.substr(0, rest.find(u' '))};
}

/// All points through one item of the "enter item" dialect: the device counts them from 0, and takes and
/// gives each value as a fraction.
class CommandExchange final : public TableExchange {
 public:
  using TableExchange::TableExchange;

  std::optional<int> PointsToRead() override { return PointCount(WordsOf(Send(u"P")).second); }

  bool ReadPoint(int point) override {
    const TwoWords values = WordsOf(Send(u"T" + Digits(point - 1)));
    if (!IsNumeric(values.first) || !IsNumeric(values.second)) {
      return false;
    }
    Table().Store(point, 1, FormatMask(LeadingNumber(values.first) * 100, kShownMask));
    Table().Store(point, 2, FormatMask(LeadingNumber(values.second) * 100, kShownMask));
    return true;
  }

  bool BeginWriting(int points) override { return SendPair(u"P", Digits(points)); }

  bool WritePoint(int point) override {
    return IsTaken(Send(u"T" + Digits(point - 1) + u" " + Fraction(point, 1) + u" " + Fraction(point, 2)));
  }

  bool EndWriting() override { return SendPair(u"F", {}); }

 private:
  static bool IsTaken(const String& reply) { return !reply.empty() && !TellsRefusal(reply); }
  static WireItem Item() { return {.group = u"01", .item = u"62"}; }

  [[nodiscard]] String Send(const String& data) const {
    String answer = Page().EnterItem().WriteParamRetry(kItemRepeats, Item(), data);
    Page().TellSent({.what = TextKey::Linearizer, .item = Item(), .sent = data}, answer);
    return answer;
  }
  [[nodiscard]] bool SendPair(const String& head, const String& tail) const {
    const String answer = Page().EnterItem().WriteParamPairRetry(kItemRepeats, Item(), tail, head);
    Page().TellSent({.what = TextKey::Linearizer, .item = Item(), .sent = head + tail}, answer);
    return IsTaken(answer);
  }
  [[nodiscard]] String Fraction(int point, int column) const {
    return FormatMask(LeadingNumber(ValueFromLnrCell(Table().Value(point, column))) / 100, kFractionMask);
  }
};

/// An item for each value.
class ItemExchange final : public TableExchange {
 public:
  using TableExchange::TableExchange;

  std::optional<int> PointsToRead() override { return Table().Points(); }
  bool ReadPoint(int point) override { return ReadValue(point, 1) && ReadValue(point, 2); }
  bool BeginWriting(int /*points*/) override { return true; }
  bool WritePoint(int point) override { return WriteValue(point, 1) && WriteValue(point, 2); }
  bool EndWriting() override { return true; }

 private:
  [[nodiscard]] PointPlace PlaceOf(int point, int column) const {
    return PointItem(Table().Points(), point, column).value();
  }
  [[nodiscard]] bool ReadValue(int point, int column) const {
    const WireItem wire = WireOfPoint(PlaceOf(point, column));
    const String reply = Page().Items().ReadRetry(kItemRepeats, wire);
    Page().TellRead({.what = TextKey::Linearizer, .item = wire}, reply);
    const String value = LnrValueOf(reply);
    Table().Store(point, column, IsNumeric(value) ? FormatMask(LeadingNumber(value), kShownMask) : value);
    return !reply.empty();
  }
  [[nodiscard]] bool WriteValue(int point, int column) const {
    return WriteLnrValue(Page(), PlaceOf(point, column));
  }
};

template <typename Exchange>
std::unique_ptr<TableExchange> Make(ParameterPage& page, LnrTable& table) {
  return std::make_unique<Exchange>(page, table);
}

}  // namespace

std::optional<int> PointCount(const String& text) {
  const String digits = Trimmed(text);
  const bool whole = !digits.empty() && digits.find_first_not_of(u"0123456789") == String::npos;
  return whole ? std::optional(LeadingInteger(digits)) : std::nullopt;
}

const TableButtonsForm kTableByCommands = {
    .make = Make<CommandExchange>, .sized = true, .reads_in_monitor_mode = true};
const TableButtonsForm kTableByItems = {.make = Make<ItemExchange>,
                                        .blank_cell = BoxKey::TableFieldBlank,
                                        .read_failed = BoxKey::TableReadFailed,
                                        .write_failed = BoxKey::TableWriteFailed};

}  // namespace korva
