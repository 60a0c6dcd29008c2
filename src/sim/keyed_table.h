#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korva::sim {

/// What sets one table of a device apart.
struct KeyedTableForm {
  std::string_view keys;  ///< A letter for each value of a row.
  std::string_view unit;  ///< Behind a value that is given.
  std::size_t rows = 0;   ///< It can have so many.
  bool scaled = true;     ///< It has a pitch and a base.
  bool ranged = false;    ///< It has a range.
  double rise = 1;        ///< Of its values from row to row at power-up.
  bool guarded = false;   ///< It is given and taken between commands.
};

/// A table of one item whose every value has a key: "P" the pitch, "S" the base, "Z" the number of the last
/// row, "G" the range, and a letter with the number of a row, from 0, each of the row's values: "T12". A key
/// alone asks for the value, "P10" writes a new one, "T12D7.9034" that of a row.
///
/// A guarded table answers nothing else until it has taken "R" and then "C", each with "OK". What was written
/// is kept by "W", which closes it; opened again before that, it is what was kept last.
///
///     Closed --"R"--> Asked --"C"--> Open --"W", in programming mode--> Closed
class KeyedTable {
 public:
  /// At power-up 11 rows, or as many as it can have, which is one at least.
  explicit KeyedTable(const KeyedTableForm& form);

  /// \param writable  Whether the device is in programming mode, without which nothing can be changed.
  /// \return the answer without its padding; none for what it doesn't take.
  std::optional<std::string> Answer(std::string_view data, bool writable);

  const KeyedTableForm& Form() const { return form_; }

  /// Whether the data asks for or writes a value of a row.
  bool IsRow(std::string_view data) const;

  /// The value of a row as it is held, "7.9034".
  /// \param column  From 0.
  std::string Value(std::size_t row, std::size_t column = 0) const;
  /// Gives the table a value from outside, as it then keeps it; so the two below.
  void SetValue(std::size_t row, std::size_t column, double value);
  /// Pitch, base and range as they are held, by their keys.
  std::string Field(char key) const;
  void SetField(char key, const std::string& value);
  std::size_t Size() const { return held_.last + 1; }
  void SetSize(std::size_t size) { kept_.last = held_.last = size - 1; }

 private:
  enum class State { Closed, Asked, Open };
  struct Content {
    std::string pitch = "10";
    std::string base = "0";
    std::string range = "0";
    std::size_t last = 10;
    std::vector<double> values;
  };

  std::optional<std::string> Command(char command, bool writable);
  std::optional<std::string> AnswerField(std::string_view data, bool writable);
  std::optional<std::string> AnswerLast(std::string_view text, bool writable);
  std::optional<std::string> AnswerRow(std::string_view data, bool writable);
  /// The text of a key; null when the table has none.
  std::string* FieldOf(Content& content, char key) const;

  KeyedTableForm form_;
  State state_ = State::Closed;
  Content held_;
  Content kept_;
};

}  // namespace korva::sim
