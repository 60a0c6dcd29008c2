#pragma once

#include <array>
#include <functional>

#include "core/field_range.h"
#include "files/parameter_page.h"
#include "linearizer/csv_file.h"
#include "tables/user_table_family.h"

namespace korva {

/// What belongs to a user's table beside its points: pitch, base, size and, where there is one, range, in the
/// controls of its tab. A linearizer has its size alone. The texts are those of all tables of the page.
class UserTableFields {
 public:
  static constexpr std::size_t kCount = 4;
  /// Base, pitch, size and range, in the order in which files have them.
  using Texts = std::array<String, kCount>;

  /// Adds its controls to the page. Both outlive this.
  UserTableFields(ParameterPage& page, const UserTableFamily& family);

  void SetCaptions(Language language);
  void SetEnabled(bool enabled);
  /// Shows the controls of this table, and no others.
  void Show(UserTable table);
  /// Shows texts that are no edit. A range that there is not is left empty.
  void Take(const Texts& texts);
  [[nodiscard]] Texts Held() const;
  /// The same from and for a file of this table alone. What the file doesn't tell stays as it is, and so does
  /// what the table has not.
  void Take(const CsvHeads& heads, UserTable table);
  [[nodiscard]] CsvHeads Heads(UserTable table) const;
  /// The limits by which Check judges one of its fields; nothing for any other field.
  [[nodiscard]] std::optional<FieldRange> RangeOf(const TextField& field, const UserTableForm& form) const;

  // What the device tells. Each shows its text.
  void TakeStep(const String& answer);
  void TakeBase(const String& answer);
  void TakeSize(const String& size);
  void TakeRange(const String& code);

  /// How many points go to the device; 0 for a text that is no such number.
  [[nodiscard]] int Size() const;
  /// The code of the range; empty for none.
  [[nodiscard]] String RangeCode() const;
  /// The first control of this table that must have a value and has none; nullptr when there is none.
  [[nodiscard]] Control* Blank(UserTable table);
  /// Marks what keeps this table, whose form is `form`, from going to the device; the first such control,
  /// nullptr when all is good.
  [[nodiscard]] Control* Check(UserTable table, const UserTableForm& form);
  void ClearMarks();

  /// Pitch, base or size has another text.
  std::function<void()> OnChange;

  Label lblStep{"lblStep"};
  Label lblBase{"lblBase"};
  Label lblSize{"lblSize"};
  Label lblRange{"lblRange"};  ///< like cmbRange of families whose tables have one
  Label lblStepUnit{"lblStepUnit"};
  Label lblBaseUnit{"lblBaseUnit"};
  TextField txtStep{"txtStep"};
  TextField txtBase{"txtBase"};
  TextField txtSize{"txtSize"};
  ComboBox cmbRange{"cmbRange"};

 private:
  void ShowText(TextField& field, const String& text);
  void ShowRange(const String& text);
  void Changed();
  [[nodiscard]] bool HasRange(UserTable table) const {
    return family_.ranged && table == UserTable::Resistance;
  }

  ParameterPage& page_;
  const UserTableFamily& family_;
  bool showing_ = false;  ///< the program puts a text into a field
};

}  // namespace korva
