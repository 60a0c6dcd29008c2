#pragma once

#include <vector>

#include "platform/string.h"

namespace korva {

/// The word that marks an item as of no use in the present configuration.
inline constexpr StringView kNeedless = u"NEEDLESS";
/// An empty tag on the wire: ten blanks.
inline constexpr StringView kEmptyTag = u"          ";

/// One parameter set: the text of every item by group (0 up) and item (0 to 99), and what its file tells of
/// it.
class ParameterSet {
 public:
  static constexpr int kItems = 100;
  /// `groups` is 4, or 2 in family Third.
  explicit ParameterSet(int groups);
  [[nodiscard]] int Groups() const { return groups_; }
  /// True when the set has this item.
  [[nodiscard]] bool Has(int group, int item) const;
  /// The cell; a group or item outside the set ends the program with a text that names both.
  [[nodiscard]] const String& At(int group, int item) const { return cells_[Place(group, item)]; }
  void Set(int group, int item, const String& value) { cells_[Place(group, item)] = value; }
  /// Cell of the texts of a definition row, by their leading numbers.
  [[nodiscard]] const String& At(const String& group, const String& item) const;
  void Set(const String& group, const String& item, const String& value);
  void Clear();  ///< items, author, memo and size of the table
  void ClearItems();
  /// Takes every item of `other` that is not empty, and all else of it. `other` has as many groups.
  void TakeOver(const ParameterSet& other);

  String Author;
  String Memo;
  String TableSize;  ///< how many points of its table go to the device, as typed; of families that tell it

 private:
  [[nodiscard]] std::size_t Place(int group, int item) const;

  int groups_;
  std::vector<String> cells_;
};

}  // namespace korva
