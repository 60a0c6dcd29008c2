#include "tables/user_table_transfer.h"

#include <functional>
#include <string>

#include "core/numbers.h"
#include "core/text_utilities.h"
#include "linearizer/lnr_check.h"
#include "linearizer/table_exchange.h"
#include "link/keyed_item.h"

namespace korva {

namespace {

constexpr StringView kStep = u"P";
constexpr StringView kBase = u"S";
constexpr StringView kLast = u"Z";  ///< the number of the last row, from 0
constexpr StringView kRange = u"G";
constexpr StringView kOpen = u"R";
constexpr StringView kConfirm = u"C";
constexpr StringView kKeep = u"W";

/// The bar moves behind each fifth of a table's rows.
constexpr int kParts = 5;
constexpr int kBarOfPart = 10;

/// How a table is reached.
struct TableWire {
  StringView item;
  StringView unit;         ///< behind a value that the device gives
  StringView keys;         ///< a letter for each value of a row
  bool has_scale = true;   ///< pitch and base
  bool has_range = false;  ///< where the family's tables have one
};
constexpr TableWire kThermocoupleWire = {.item = u"60", .unit = u"mV", .keys = u"T"};
constexpr TableWire kResistanceWire = {.item = u"61", .unit = u"Ohm", .keys = u"T", .has_range = true};
constexpr TableWire kLinearizerWire = {.item = u"62", .unit = u"%", .keys = u"XY", .has_scale = false};

const TableWire& WireOf(UserTable table) {
  switch (table) {
    case UserTable::Thermocouple:
      return kThermocoupleWire;
    case UserTable::Resistance:
      return kResistanceWire;
    case UserTable::None:
    case UserTable::Linearizer:
      break;
  }
  return kLinearizerWire;
}

String Digits(int number) { return Ascii(std::to_string(number)); }

}  // namespace

/// One table on its one way.
class UserTableTransfer::Journey {
 public:
  Journey(UserTableTransfer& transfer, const UserTableInHand& table)
      : to_(transfer),
        table_(table),
        wire_(WireOf(table.which)),
        item_(transfer.page_.EnterItem(), {.group = u"01", .item = String(wire_.item)}) {}

  [[nodiscard]] bool Open() const {
    return !to_.family_.opened_by_commands || (Command(String(kOpen)) && Command(String(kConfirm)));
  }
  [[nodiscard]] bool Keep() const {
    return !to_.family_.opened_by_commands || (Command(String(kKeep)) && Open());
  }

  bool ReadFields() {
    return (!wire_.has_scale || ReadScale()) && ReadSize() && (!HasRange() || ReadRange());
  }
  bool ReadRows() {
    return to_.fields_.Size() <= table_.form.most &&
           ForEachValue([this](int row, int column) { return ReadValue(row, column); });
  }
  [[nodiscard]] bool WriteFields() const {
    const UserTableFields& fields = to_.fields_;
    const bool scaled = !wire_.has_scale || (Write(String(kStep), Trimmed(fields.txtStep.Text())) &&
                                             Write(String(kBase), Trimmed(fields.txtBase.Text())));
    return scaled && Write(String(kLast), Digits(fields.Size() - 1)) &&
           (!HasRange() || Write(String(kRange), fields.RangeCode()));
  }
  bool WriteRows() {
    return ForEachValue([this](int row, int column) { return WriteValue(row, column); });
  }

 private:
  [[nodiscard]] bool HasRange() const { return wire_.has_range && to_.family_.ranged; }
  [[nodiscard]] String KeyOf(int row, int column) const {
    return String(1, wire_.keys[static_cast<std::size_t>(column - 1)]) + Digits(row);
  }

  // Each access is told the report of the transfer.
  [[nodiscard]] bool Told(const String& key, const String& sent, bool good, Evidence evidence) const {
    const String& reply = to_.page_.Line().LastReply();
    to_.page_.TellStep({.what = TextKey::UserTable,
                        .item = {.group = u"01", .item = String(wire_.item)},
                        .part = key,
                        .sent = sent,
                        .answered = Trimmed(SerialLink::StrippedReply(reply)),
                        .evidence = good ? evidence : EvidenceOfFailure(reply)});
    return good;
  }
  [[nodiscard]] String Read(const String& key) const {
    String answer = item_.Read(key);
    (void)Told(key, {}, !answer.empty(), Evidence::Read);
    return answer;
  }
  [[nodiscard]] bool Write(const String& key, const String& value) const {
    return Told(key, value, item_.Write(key, value), Evidence::Echoed);
  }
  [[nodiscard]] bool Command(const String& command) const {
    return Told(command, command, item_.Command(command), Evidence::Compared);
  }

  bool ReadScale() {
    const String step = Read(String(kStep));
    if (step.empty()) {
      return false;
    }
    to_.fields_.TakeStep(step);
    const String base = Read(String(kBase));
    if (!base.empty()) {
      to_.fields_.TakeBase(base);
    }
    return !base.empty();
  }
  bool ReadSize() {
    const std::optional<int> last = PointCount(Read(String(kLast)));
    if (last) {
      to_.fields_.TakeSize(Digits(*last + 1));
    }
    return last.has_value();
  }
  bool ReadRange() {
    const String code = Read(String(kRange));
    to_.fields_.TakeRange(code);
    return !code.empty();
  }
  bool ReadValue(int row, int column) {
    const String answer = Read(KeyOf(row, column));
    const String value = WithoutUnit(answer, wire_.unit);
    const StringView mask = to_.family_.shown_mask;
    const bool formatted = !mask.empty() && IsNumeric(value);
    table_.points.Store(row + 1, column, formatted ? FormatMask(LeadingNumber(value), mask) : value);
    return !answer.empty();
  }
  [[nodiscard]] bool WriteValue(int row, int column) const {
    const String cell = ValueFromLnrCell(table_.points.NumberText(row + 1, column));
    const String key = KeyOf(row, column);
    const String value = FormatMask(LeadingNumber(cell), table_.form.sent_mask);
    return Told(key, value, item_.WriteRow(key, value), Evidence::Echoed);
  }

  /// One value of all rows, then the next, until one fails.
  bool ForEachValue(const std::function<bool(int row, int column)>& move) {
    const int size = to_.fields_.Size();
    for (int column = 1; column < table_.points.Columns(); ++column) {
      for (int row = 0; row < size; ++row) {
        if (!move(row, column)) {
          return false;
        }
        ShowDone(row, column, size);
      }
    }
    return true;
  }
  /// A table with one value a row reaches half of the bar before its end. Fewer rows than parts count as all
  /// parts at once.
  void ShowDone(int row, int column, int size) {
    const int steps = table_.points.Columns() - 1 == 1 ? 2 * kParts : kParts;
    for (int step = 1; step <= steps; ++step) {
      if (row == size / kParts * step) {
        to_.bar_.SetValue(static_cast<float>(((column - 1) * kParts + step) * kBarOfPart));
      }
    }
  }

  UserTableTransfer& to_;
  const UserTableInHand& table_;
  const TableWire& wire_;
  KeyedItem item_;
};

bool UserTableTransfer::Read(const UserTableInHand& table) {
  Journey journey(*this, table);
  if (!journey.Open()) {
    page_.Box().Show(BoxKey::TableReadWriteFailed);
    return false;
  }
  table.points.Clear();
  if (!page_.EnterMonitorMode()) {
    return false;
  }
  const bool read = journey.ReadFields() && journey.ReadRows();
  if (!read) {
    page_.Box().Show(BoxKey::TableReadFailed);
  }
  return read;
}

bool UserTableTransfer::Write(const UserTableInHand& table) {
  if (!page_.EnterProgrammingMode()) {
    return false;
  }
  Journey journey(*this, table);
  if (!journey.Open()) {
    page_.Box().Show(BoxKey::TableReadWriteFailed);
    return false;
  }
  if (!journey.WriteRows() || !journey.WriteFields()) {
    page_.Box().Show(BoxKey::TableWriteFailed);
    return false;
  }
  const bool kept = journey.Keep();
  if (!kept) {
    page_.Box().Show(BoxKey::TableReadWriteFailed);
  }
  return kept;
}

}  // namespace korva
